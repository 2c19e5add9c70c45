// test_util.h - helpers shared by the unit tests: captured standard output
// with source line numbers masked, and hex strings.
#ifndef BBCONF_TESTS_TEST_UTIL_H
#define BBCONF_TESTS_TEST_UTIL_H

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>
#include <vector>

#include "bbconf.h"

namespace bbtest {

// Replaces the source line numbers of diagnostic lines with "N":
// "[ASSERT][fn:123]" -> "[ASSERT][fn:N]", "[fn():45]" -> "[fn():N]" and the
// debug dump's "fn,67,BufLen" -> "fn,N,BufLen".
inline std::string mask_lines(const std::string& s) {
    static const std::regex assert_re(R"(\[ASSERT\]\[(\w+):\d+\])");
    static const std::regex tagged_re(R"(\[(\w+)\(\):\d+\])");
    static const std::regex debug_re(R"((\w+),\d+,BufLen=)");
    std::string out = std::regex_replace(s, assert_re, "[ASSERT][$1:N]");
    out = std::regex_replace(out, tagged_re, "[$1():N]");
    return std::regex_replace(out, debug_re, "$1,N,BufLen=");
}

// Runs f with standard output captured and returns what it printed, with
// line numbers masked.
template <typename F>
std::string output_of(F&& f) {
    std::fflush(stdout);
    testing::internal::CaptureStdout();
    f();
    std::fflush(stdout);
    return mask_lines(testing::internal::GetCapturedStdout());
}

inline std::vector<unsigned char> hex(const std::string& text) {
    std::vector<unsigned char> out;
    std::string digits;
    for (char ch : text) {
        if (std::isxdigit(static_cast<unsigned char>(ch))) {
            digits += ch;
        }
    }
    for (size_t i = 0; i + 1 < digits.size(); i += 2) {
        out.push_back(static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, 16)));
    }
    return out;
}

inline std::string to_hex(const unsigned char* p, size_t n) {
    std::string s;
    char b[4];
    for (size_t i = 0; i < n; i++) {
        std::snprintf(b, sizeof b, i ? " %02x" : "%02x", p[i]);
        s += b;
    }
    return s;
}

// The dump lines of the codecs for n bytes, as the library prints them.
inline std::string dump_text(const unsigned char* p, int n) {
    std::string s;
    char b[4];
    for (int i = 0; i < n; i++) {
        if (i == 0) {
            s += ' ';
        } else {
            if (i % 30 == 0) s += '\n';
            if (i % 5 == 0) s += ' ';
        }
        std::snprintf(b, sizeof b, "%02x", p[i]);
        s += b;
    }
    return s + "\n\n";
}

// Byte-level adapters of the block codec overloads, so that one table can
// hold blocks of different types.
template <typename T>
int set_as(unsigned char* w, unsigned char n, unsigned char* l) {
    return CMN_B2LStruct(w, n, reinterpret_cast<T*>(l));
}
template <typename T>
int get_as(unsigned char* l, unsigned char* w, unsigned n) {
    return CMN_LStruct2B(reinterpret_cast<T*>(l), w, n);
}
template <typename T>
int hlj_set_as(unsigned char* w, unsigned char n, unsigned char* l) {
    return CMN_HljB2LStruct(w, n, reinterpret_cast<T*>(l));
}
template <typename T>
int hlj_get_as(unsigned char* l, unsigned char* w, unsigned n) {
    return CMN_HljLStruct2B(reinterpret_cast<T*>(l), w, n);
}

// A zeroed record on the heap (the terminal record is 3386 bytes).
struct Conf {
    tagBB_CONF_ST rec{};
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(&rec); }
};

}  // namespace bbtest

#endif
