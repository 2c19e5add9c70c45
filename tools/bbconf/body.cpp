// body.cpp - hex text and 0x8103 / 0x0104 parameter lists.
#include "body.h"

#include <cstdio>

namespace bbtool {

namespace {

int hex_digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

std::string describe_char(char c) {
    char buf[32];
    unsigned char u = static_cast<unsigned char>(c);
    if (u >= 0x21 && u < 0x7f) {
        std::snprintf(buf, sizeof buf, "'%c'", c);
    } else {
        std::snprintf(buf, sizeof buf, "byte 0x%02x", u);
    }
    return buf;
}

}  // namespace

std::string id_text(uint32_t id) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "0x%04x", static_cast<unsigned>(id));
    return buf;
}

bool parse_hex(std::string_view text, std::vector<uint8_t>& out, std::string& error) {
    out.clear();
    size_t i = 0;
    while (i < text.size()) {
        if (is_blank(text[i])) {
            i++;
            continue;
        }
        int hi = hex_digit(text[i]);
        if (hi < 0) {
            error = "malformed hex: " + describe_char(text[i]) + " at position " + std::to_string(i + 1) +
                    " is not a hex digit";
            out.clear();
            return false;
        }
        if (i + 1 >= text.size() || is_blank(text[i + 1])) {
            error = "malformed hex: the digit at position " + std::to_string(i + 1) +
                    " has no partner (hex needs two digits per byte)";
            out.clear();
            return false;
        }
        int lo = hex_digit(text[i + 1]);
        if (lo < 0) {
            error = "malformed hex: " + describe_char(text[i + 1]) + " at position " + std::to_string(i + 2) +
                    " is not a hex digit";
            out.clear();
            return false;
        }
        out.push_back(static_cast<uint8_t>(hi << 4 | lo));
        i += 2;
    }
    return true;
}

std::string to_hex(const uint8_t* data, size_t size) {
    static const char digits[] = "0123456789abcdef";
    std::string s;
    s.reserve(size * 2);
    for (size_t i = 0; i < size; i++) {
        s += digits[data[i] >> 4];
        s += digits[data[i] & 0x0f];
    }
    return s;
}

bool parse_param_body(const uint8_t* data, size_t size, std::vector<BodyParam>& out, std::string& error) {
    out.clear();
    if (size == 0 || data == nullptr) {
        error = "truncated body: it is empty (the first byte is the parameter count)";
        return false;
    }
    const size_t count = data[0];
    size_t pos = 1;
    for (size_t n = 0; n < count; n++) {
        const std::string which = "parameter " + std::to_string(n + 1) + " of " + std::to_string(count);
        if (size - pos < 5) {
            error = "truncated body: " + which + " at byte " + std::to_string(pos) +
                    " needs a 4-byte ID and a length byte, only " + counted(size - pos, "byte") +
                    (size - pos == 1 ? " remains" : " remain");
            out.clear();
            return false;
        }
        BodyParam p;
        p.id = static_cast<uint32_t>(data[pos]) << 24 | static_cast<uint32_t>(data[pos + 1]) << 16 |
               static_cast<uint32_t>(data[pos + 2]) << 8 | data[pos + 3];
        const size_t len = data[pos + 4];
        pos += 5;
        if (size - pos < len) {
            error = "truncated body: " + which + " (ID " + id_text(p.id) + ") declares " + counted(len, "value byte") +
                    ", only " + std::to_string(size - pos) + (size - pos == 1 ? " remains" : " remain");
            out.clear();
            return false;
        }
        p.value.assign(data + pos, data + pos + len);
        pos += len;
        out.push_back(std::move(p));
    }
    if (pos != size) {
        error = "over-long body: " + counted(size - pos, "byte") + (size - pos == 1 ? " follows" : " follow") +
                " the last of the " + counted(count, "parameter") + " the count announces";
        out.clear();
        return false;
    }
    return true;
}

bool build_param_body(const std::vector<BodyParam>& params, std::vector<uint8_t>& out, std::string& error) {
    out.clear();
    if (params.size() > kBodyMaxParams) {
        error = "a body carries at most 255 parameters, " + std::to_string(params.size()) + " were asked for";
        return false;
    }
    out.push_back(static_cast<uint8_t>(params.size()));
    for (const BodyParam& p : params) {
        if (p.value.size() > kBodyMaxValue) {
            error = "the value of " + id_text(p.id) + " is " + std::to_string(p.value.size()) +
                    " bytes, a body value holds at most 255";
            out.clear();
            return false;
        }
        out.push_back(static_cast<uint8_t>(p.id >> 24));
        out.push_back(static_cast<uint8_t>(p.id >> 16));
        out.push_back(static_cast<uint8_t>(p.id >> 8));
        out.push_back(static_cast<uint8_t>(p.id));
        out.push_back(static_cast<uint8_t>(p.value.size()));
        out.insert(out.end(), p.value.begin(), p.value.end());
    }
    return true;
}

}  // namespace bbtool
