// The public header in a translation unit whose C library declares strlcpy
// itself: strlcpy then names the C library's function, the library's own
// stays exported under its C++ symbol and copies as before
// (size 0, 1, cut, whole, empty source).
#include "libc_strlcpy.h"
// clang-format off: the C library's declaration must come first.
#include "bbconf.h"
// clang-format on

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "common/strcopy.h"

// The C library's strlcpy, for C libraries that have none (this one is
// found before the C library's where it exists).
extern "C" size_t strlcpy(char* dst, const char* src, size_t size) {
    const size_t len = std::strlen(src);
    if (size != 0) {
        const size_t n = len < size - 1 ? len : size - 1;
        std::memcpy(dst, src, n);
        dst[n] = '\0';
    }
    return len;
}

namespace {

TEST(LibcStrlcpy, HeaderLeavesTheNameToTheCLibrary) {
    char b[8];
    EXPECT_EQ(strlcpy(b, "abc", 8), 3u);  // an int size: one candidate, no ambiguity
    EXPECT_STREQ(b, "abc");
    static_assert(sizeof strlcpy(b, "abc", 8) == sizeof(size_t), "the C library's strlcpy");
}

TEST(LibcStrlcpy, LibraryCopyStillExported) {
    // clang-format off
    const struct { const char* src; unsigned size; size_t ret; std::string dst; } cases[] = {
        {"abcdef", 4, 6, std::string("abc\0\x7f", 5)}, {"abcdef", 7, 6, std::string("abcdef\0\x7f", 8)},
        {"abcdef", 1, 6, std::string("\0\x7f", 2)},    {"abcdef", 0, 6, "\x7f"}, {"", 5, 0, std::string("\0\x7f", 2)},
    };
    // clang-format on
    for (const auto& c : cases) {
        char lib[16];
        std::memset(lib, 0x7f, sizeof lib);
        EXPECT_EQ(bbconf::exported_strlcpy(lib, c.src, c.size), c.ret) << c.src << " " << c.size;
        EXPECT_EQ(std::string(lib, c.dst.size()), c.dst);
    }
}

}  // namespace
