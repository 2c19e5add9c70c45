// regional_blocks_test.cpp - the Heibiao, Xiangbiao and night-rule blocks:
// byte order, dumps, keep markers and refusals.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

namespace {

using bbtest::dump_text;
using bbtest::get_as;
using bbtest::hex;
using bbtest::output_of;
using bbtest::set_as;
using Bytes = std::vector<unsigned char>;

struct Block {
    int len;
    std::vector<int> u16, u32;  // offsets of the multi-byte fields, high byte first on the wire
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    const char* fn;                     // the codec family, as the diagnostics name it
    const char *set_title, *get_title;  // dump titles; no set title: a quiet set without a length test
    bool keeps;                         // all any on the wire keep a field
};

#define C(T) set_as<T>, get_as<T>, "CMN_"
#define H(T) bbtest::hlj_set_as<T>, bbtest::hlj_get_as<T>, "CMN_Hlj"

// The Heibiao blocks have codecs of their own.  The vehicle operation block's
// set logs under the driver identification title.
// clang-format off
const Block kBlocks[] = {
    {22, {4}, {}, H(tagBB_PARAM_DRIVER_IDENTIFY_ST), "Driver Identify ", "Driver Identify ", true},
    {33, {}, {}, H(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST), "Driver Identify ", "HLJ ADAS ", true},
    {33, {4, 6}, {}, H(tagBB_PARAM_DSM_HEIBIAO_ST), "HLJ DSM ", "HLJ DSM ", true},
    {45, {4, 6}, {}, H(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST), "HLJ DEV FAIL ", "HLJ DEV FAIL ", true},
    {50, {28, 30, 32}, {0}, C(tagBB_PARAM_VDS_XIANGBIAO_ST), "Dsm ", "BB_PARAM_VDS_XIANGBIAO_ST ", true},
    {18, {2, 6, 10, 12, 16}, {}, C(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST), nullptr, "DRIVER_CAPTURE_XIANGBIAO ",
     false},
    {8, {}, {}, C(tagBB_PARAM_NIGHT_SPEED_ST), "", "", false},
    {8, {}, {}, C(tagBB_PARAM_NIGHT_MOVE_ST), "", "", false},
    {16, {}, {7, 11}, C(tagBB_PARAM_NIGHT_TIRED_ST), "", "", false},
};
// clang-format on

#undef C
#undef H

// Distinct values in and out with their dumps.  Then a wrong length or a short
// buffer is refused whole; the capture codecs trust their caller and move
// their 18 bytes whatever len or buflen says.
TEST(RegionalBlocks, RoundTripWithDumpsAndRefusals) {
    for (const Block& b : kBlocks) {
        SCOPED_TRACE(&b - kBlocks);
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
}

// All any keep a field at its own width, where the block has the marker:
// a u16 or u32 with only some bytes 0xff is stored.  Elsewhere 0xff is data.
TEST(RegionalBlocks, AllOnesOnTheWire) {
    // wire: patched over an all-0xff wire; local: the expected record there
    // clang-format off
    const struct { int block, offset; const char *wire, *local; } cases[] = {
        {0, 0, "", ""}, {1, 0, "", ""}, {2, 0, "", ""}, {3, 0, "", ""}, {4, 0, "", ""}, {5, 0, "", ""},
        {6, 0, "", ""}, {7, 0, "", ""}, {8, 0, "", ""}, {0, 4, "00 ff", "ff 00"}, {0, 6, "00", "00"},
        {1, 4, "ff 00", "84 00"}, {1, 32, "00", "00"}, {2, 4, "ff ff 00 3c", "84 85 3c 00"}, {2, 4, "ff 00", "00 ff"},
        {3, 6, "ff fe", "fe ff"}, {3, 44, "07", "07"}, {4, 0, "ff ff ff fe", "fe ff ff ff"},
        {4, 0, "00 00 00 ff", "ff 00 00 00"}, {4, 4, "00", "00"}, {4, 27, "09", "09"},
        {4, 28, "00 ff ff ff", "ff 00 9e 9f"}, {4, 32, "12 34", "34 12"}, {4, 49, "0b", "0b"},
    };
    // clang-format on
    for (const auto& c : cases) {
        const Block& b = kBlocks[c.block];
        SCOPED_TRACE(std::to_string(c.block) + " @" + std::to_string(c.offset) + ": " + c.wire);
        Bytes rec(b.len), wire(b.len, 0xff), w = hex(c.wire), l = hex(c.local);
        for (int i = 0; i < b.len; i++) rec[i] = static_cast<unsigned char>(0x80 + i);
        Bytes want = b.keeps ? rec : wire;
        std::copy(w.begin(), w.end(), wire.begin() + c.offset);
        std::copy(l.begin(), l.end(), want.begin() + c.offset);
        output_of([&] { EXPECT_EQ(b.set(wire.data(), static_cast<unsigned char>(b.len), rec.data()), b.len); });
        EXPECT_EQ(rec, want);
    }
}

}  // namespace
