// body.cpp - hex text and the words for faults of lists and messages.
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

std::string list_fault_text(const bbconf::ListFault& f, const char* what) {
    using bbconf::ListError;
    const std::string name = what;
    switch (f.error) {
        case ListError::None:
            return "well-formed " + name;
        case ListError::Empty:
            return "empty " + name + ": the first byte is the count";
        case ListError::Truncated: {
            std::string s = "truncated " + name + ": the count announces " +
                            counted(static_cast<size_t>(f.declared), "item") + ", " + std::to_string(f.found) +
                            " found whole; item " + std::to_string(f.found + 1);
            if (f.id != 0) s += " (ID " + id_text(f.id) + ")";
            return s + " at byte " + std::to_string(f.offset) + " needs " + counted(f.needed, "byte") + ", " +
                   std::to_string(f.remaining) + (f.remaining == 1 ? " remains" : " remain");
        }
        case ListError::TrailingBytes:
            return "over-long " + name + ": " + counted(f.remaining, "byte") +
                   (f.remaining == 1 ? " follows" : " follow") + " the last of the " +
                   counted(static_cast<size_t>(f.declared), "item") + " the count announces";
    }
    return name + ": ?";
}

}  // namespace bbtool
