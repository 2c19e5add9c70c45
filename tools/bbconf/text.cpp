// text.cpp - GBK and UTF-8 through iconv.
#include "text.h"

#include <iconv.h>

#include <cerrno>
#include <cstdio>

namespace bbtool {

namespace {

constexpr const char* kWire = "GBK";

// One conversion descriptor for the length of a call.
class Converter {
  public:
    Converter(const char* to, const char* from) : cd_(iconv_open(to, from)) {}
    ~Converter() {
        if (ok()) iconv_close(cd_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool ok() const { return cd_ != reinterpret_cast<iconv_t>(-1); }

    // Converts the whole of `in`; false (and `out` as it was) when any of it fails.
    bool convert(const char* in, size_t n, std::string& out) {
        iconv(cd_, nullptr, nullptr, nullptr, nullptr);
        char buf[64];
        char* src = const_cast<char*>(in);
        std::string got;
        while (n > 0) {
            char* dst = buf;
            size_t room = sizeof buf;
            const size_t r = iconv(cd_, &src, &n, &dst, &room);
            got.append(buf, static_cast<size_t>(dst - buf));
            if (r == static_cast<size_t>(-1) && errno != E2BIG) return false;
        }
        out += got;
        return true;
    }

  private:
    iconv_t cd_;
};

bool is_gbk_lead(uint8_t b) { return b >= 0x81 && b <= 0xfe; }

void escape_byte(std::string& out, uint8_t b) {
    char esc[8];
    std::snprintf(esc, sizeof esc, "\\x%02x", b);
    out += esc;
}

// Walks GBK bytes: `ascii(out, b)` for a byte below 0x80, the UTF-8 of a
// convertible two-byte character, `bad(out, b)` for any other byte.
template <typename Ascii, typename Bad>
bool walk_gbk(const std::vector<uint8_t>& gbk, std::string& out, Ascii ascii, Bad bad) {
    Converter c("UTF-8", kWire);
    bool all = true;
    for (size_t i = 0; i < gbk.size();) {
        const uint8_t b = gbk[i];
        if (b < 0x80) {
            ascii(out, b);
            i++;
        } else if (c.ok() && is_gbk_lead(b) && i + 1 < gbk.size() &&
                   c.convert(reinterpret_cast<const char*>(&gbk[i]), 2, out)) {
            i += 2;
        } else {
            bad(out, b);
            all = false;
            i++;
        }
    }
    return all;
}

}  // namespace

bool gbk_to_utf8(const std::vector<uint8_t>& gbk, std::string& out, void (*bad)(std::string& out, uint8_t byte)) {
    return walk_gbk(
        gbk, out, [](std::string& o, uint8_t b) { o += static_cast<char>(b); }, bad);
}

std::string display_text(const std::vector<uint8_t>& gbk) {
    std::string s = "\"";
    walk_gbk(
        gbk, s,
        [](std::string& o, uint8_t b) {
            switch (b) {
                case '"':
                    o += "\\\"";
                    break;
                case '\\':
                    o += "\\\\";
                    break;
                case '\n':
                    o += "\\n";
                    break;
                case '\r':
                    o += "\\r";
                    break;
                case '\t':
                    o += "\\t";
                    break;
                default:
                    if (b < 0x20 || b == 0x7f) {
                        escape_byte(o, b);
                    } else {
                        o += static_cast<char>(b);
                    }
            }
        },
        escape_byte);
    return s + "\"";
}

bool utf8_to_gbk(std::string_view utf8, std::vector<uint8_t>& out, std::string& error) {
    out.clear();
    Converter c(kWire, "UTF-8");
    std::string got;
    if (!c.ok() || !c.convert(utf8.data(), utf8.size(), got)) {
        error = "the text is not UTF-8 or has a character GBK cannot write";
        return false;
    }
    out.assign(got.begin(), got.end());
    return true;
}

}  // namespace bbtool
