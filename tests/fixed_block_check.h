// fixed_block_check.h - one driver for the byte-string blocks of the
// Heibiao, Xiangbiao and night-rule sources: byte order, dumps, keep markers
// and refusals, each block described in its test by the offsets of its
// multi-byte fields.
#ifndef BBCONF_TESTS_FIXED_BLOCK_CHECK_H
#define BBCONF_TESTS_FIXED_BLOCK_CHECK_H

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

namespace fixedblock {

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using Bytes = std::vector<unsigned char>;

struct Block {
    int len;
    std::vector<int> u16, u32;  // offsets of the multi-byte fields, high byte first on the wire
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    const char* fn;                     // the codec family, as the diagnostics name it
    const char *set_title, *get_title;  // dump titles; no set title: a quiet set without a length test
    bool keeps;                         // all ones on the wire keep a field
};

// Distinct values in and out with their dumps.  Then a wrong length or a short
// buffer is refused whole; the capture codecs trust their caller and move
// their 18 bytes whatever len or buflen says.
inline void round_trip(const Block& b) {
    Bytes wire(b.len), rec(b.len, 0x5a), out(b.len + 2, 0xee);
    for (int i = 0; i < b.len; i++) wire[i] = static_cast<unsigned char>(0x10 + 3 * i);
    Bytes local = wire;
    for (int off : b.u16) std::reverse(local.begin() + off, local.begin() + off + 2);
    for (int off : b.u32) std::reverse(local.begin() + off, local.begin() + off + 4);
    const bool checked = b.set_title != nullptr;
    const std::string set_fn = b.fn + std::string("B2LStruct"), get_fn = b.fn + std::string("LStruct2B");
    const std::string head = "Inf [" + get_fn + "():N] " + b.get_title;
    int r = 0, g = 0;
    EXPECT_EQ(
        output_of([&] {
            r = b.set(wire.data(), static_cast<unsigned char>(b.len), rec.data());
            g = b.get(rec.data(), out.data(), b.len + 2);
        }),
        (checked ? "Inf [" + set_fn + "():N] " + b.set_title + "After Set:" + dump_text(local.data(), b.len) : "") +
            head + "Before Get:" + dump_text(local.data(), b.len) + head +
            "After Get:" + dump_text(wire.data(), b.len));
    EXPECT_EQ(std::make_pair(r, g), std::make_pair(b.len, b.len));
    EXPECT_EQ(rec, local);
    wire.insert(wire.end(), {0xee, 0xee});
    EXPECT_EQ(out, wire);

    Bytes any(256, 0x11);
    rec.assign(b.len, 0x5a);
    out.assign(b.len, 0xee);
    for (int n : {b.len - 1, b.len + 1}) {
        const std::string text = output_of([&] {
            r = b.set(any.data(), static_cast<unsigned char>(n), rec.data());
            g = b.get(rec.data(), out.data(), n < b.len ? static_cast<unsigned>(n) : 0);
        });
        if (checked) {
            EXPECT_EQ(text, "[ASSERT][" + set_fn + ":N]: (DataLen == Len)\n[ASSERT][" + get_fn +
                                ":N]: (BufLen >= Len)\n");
        }
        EXPECT_EQ(std::make_pair(r, g), checked ? std::make_pair(0, 0) : std::make_pair(b.len, b.len));
        EXPECT_EQ(rec, Bytes(b.len, checked ? 0x5a : 0x11));
        EXPECT_EQ(out, Bytes(b.len, checked ? 0xee : 0x11));
    }
}

// All ones keep a field at its own width, where the block has the marker:
// a u16 or u32 with only some bytes 0xff is stored.  Elsewhere 0xff is data.
// Each case patches `wire` at `offset` over an all-0xff block and expects
// `local` there in a record of 0x80 + i.
struct OnesCase {
    int offset;
    const char *wire, *local;
};

inline void all_ones(const Block& b, const OnesCase& c) {
    SCOPED_TRACE("@" + std::to_string(c.offset) + ": " + c.wire);
    Bytes rec(b.len), wire(b.len, 0xff), w = hex(c.wire), l = hex(c.local);
    for (int i = 0; i < b.len; i++) rec[i] = static_cast<unsigned char>(0x80 + i);
    Bytes want = b.keeps ? rec : wire;
    std::copy(w.begin(), w.end(), wire.begin() + c.offset);
    std::copy(l.begin(), l.end(), want.begin() + c.offset);
    output_of([&] { EXPECT_EQ(b.set(wire.data(), static_cast<unsigned char>(b.len), rec.data()), b.len); });
    EXPECT_EQ(rec, want);
}

}  // namespace fixedblock

#endif
