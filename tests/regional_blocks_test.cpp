// regional_blocks_test.cpp - the Heibiao, Xiangbiao and night-rule blocks:
// byte order, dumps, keep markers, refusals and their dictionary routes.
#include <algorithm>
#include <string>
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
    const char* name;
    int len;
    std::vector<int> u16, u32;  // offsets of the multi-byte fields, high byte first on the wire
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    const char *set_title, *get_title;  // dump titles; no set title: a quiet set without a length test
    bool keeps;                         // all ones on the wire keep a field
    int id;                             // the dictionary route (0: none) ...
    size_t offset;                      // ... and the block's place in the record
};

#define CODEC(T) set_as<T>, get_as<T>
#define HLJ(T) bbtest::hlj_set_as<T>, bbtest::hlj_get_as<T>

// The vehicle operation block's set logs under the driver identification title.
// clang-format off
const Block kBlocks[] = {
    {"identify", 22, {4}, {}, HLJ(tagBB_PARAM_DRIVER_IDENTIFY_ST), "Driver Identify ", "Driver Identify ", true, 0xe138,
     1761},
    {"operation", 33, {}, {}, HLJ(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST), "Driver Identify ", "HLJ ADAS ", true,
     0xe139, 1783},
    {"hlj dsm", 33, {4, 6}, {}, HLJ(tagBB_PARAM_DSM_HEIBIAO_ST), "HLJ DSM ", "HLJ DSM ", true, 0xe140, 1816},
    {"dev fail", 45, {4, 6}, {}, HLJ(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST), "HLJ DEV FAIL ", "HLJ DEV FAIL ", true,
     0xe141, 1849},
    {"vds", 50, {28, 30, 32}, {0}, CODEC(tagBB_PARAM_VDS_XIANGBIAO_ST), "Dsm ", "BB_PARAM_VDS_XIANGBIAO_ST ", true,
     0xf368, 1931},
    {"capture", 18, {2, 6, 10, 12, 16}, {}, CODEC(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST), nullptr,
     "DRIVER_CAPTURE_XIANGBIAO ", false, 0xf0ef, 1985},
    {"night speed", 8, {}, {}, CODEC(tagBB_PARAM_NIGHT_SPEED_ST), "", "", false, 0, 1241},
    {"night move", 8, {}, {}, CODEC(tagBB_PARAM_NIGHT_MOVE_ST), "", "", false, 0, 1249},
    {"fatigue", 16, {}, {7, 11}, CODEC(tagBB_PARAM_NIGHT_TIRED_ST), "", "", false, 0xfe10, 1257},
};
// clang-format on

#undef CODEC
#undef HLJ

// The Heibiao blocks are read through 0xe138 - 0xe141 and cannot be set
// through the dictionary.
bool hlj(const Block& b) { return b.id >= 0xe138 && b.id <= 0xe141; }
bool settable(const Block& b) { return b.id && !hlj(b); }
std::string set_fn(const Block& b) { return hlj(b) ? "CMN_HljB2LStruct" : "CMN_B2LStruct"; }
std::string get_fn(const Block& b) { return hlj(b) ? "CMN_HljLStruct2B" : "CMN_LStruct2B"; }

// Distinct values in and out, through the dictionary where the block has a
// route (the quiet capture set does not look at the length).
TEST(RegionalBlocks, RoundTripWithDumps) {
    for (const Block& b : kBlocks) {
        SCOPED_TRACE(b.name);
        bbtest::Conf conf;
        unsigned char* rec = conf.bytes() + b.offset;
        Bytes wire(b.len), out(b.len + 2, 0xee);
        for (int i = 0; i < b.len; i++) wire[i] = static_cast<unsigned char>(0x10 + 3 * i);
        Bytes local = wire;
        for (int off : b.u16) std::reverse(local.begin() + off, local.begin() + off + 2);
        for (int off : b.u32) std::reverse(local.begin() + off, local.begin() + off + 4);
        const int len = b.set_title ? b.len : 5;
        int r = 0;
        EXPECT_EQ(output_of([&] {
                      r = settable(b) ? CMN_SetParam(&conf.rec, b.id, wire.data(), len)
                                      : b.set(wire.data(), static_cast<unsigned char>(len), rec);
                  }),
                  b.set_title
                      ? "Inf [" + set_fn(b) + "():N] " + b.set_title + "After Set:" + dump_text(local.data(), b.len)
                      : "");
        EXPECT_EQ(r, len);
        EXPECT_EQ(Bytes(rec, rec + b.len), local);
        const std::string head = "Inf [" + get_fn(b) + "():N] " + b.get_title;
        EXPECT_EQ(output_of([&] {
                      r = b.id ? CMN_GetParam(&conf.rec, b.id, out.data(), b.len + 2)
                               : b.get(rec, out.data(), b.len + 2);
                  }),
                  head + "Before Get:" + dump_text(local.data(), b.len) + head +
                      "After Get:" + dump_text(wire.data(), b.len));
        EXPECT_EQ(r, b.len);
        wire.insert(wire.end(), {0xee, 0xee});  // nothing past the block
        EXPECT_EQ(out, wire);
    }
}

// All ones keep a field at its own width, where the block has the marker:
// a u16 or u32 with only some bytes 0xff is stored.  Elsewhere 0xff is data.
TEST(RegionalBlocks, AllOnesOnTheWire) {
    // clang-format off
    const struct {
        int block, offset;
        const char *wire, *local;  // patched over an all-0xff wire / the expected record
    } cases[] = {
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
        SCOPED_TRACE(std::string(b.name) + " @" + std::to_string(c.offset) + ": " + c.wire);
        Bytes rec(b.len), wire(b.len, 0xff), w = hex(c.wire), l = hex(c.local);
        for (int i = 0; i < b.len; i++) rec[i] = static_cast<unsigned char>(0x80 + i);
        Bytes want = b.keeps ? rec : wire;
        std::copy(w.begin(), w.end(), wire.begin() + c.offset);
        std::copy(l.begin(), l.end(), want.begin() + c.offset);
        output_of([&] { EXPECT_EQ(b.set(wire.data(), static_cast<unsigned char>(b.len), rec.data()), b.len); });
        EXPECT_EQ(rec, want);
    }
}

// A wrong length or a short buffer is refused whole; the capture codecs
// trust their caller and move their 18 bytes whatever len or buflen says.
TEST(RegionalBlocks, WrongLengthOrShortBuffer) {
    for (const Block& b : kBlocks) {
        SCOPED_TRACE(b.name);
        const bool checked = b.set_title != nullptr;
        Bytes wire(256, 0x11), rec(b.len, 0x5a), out(b.len, 0xee);
        int r = -1;
        for (int len : {b.len - 1, b.len + 1, 0, 255}) {
            EXPECT_EQ(output_of([&] { r = b.set(wire.data(), static_cast<unsigned char>(len), rec.data()); }),
                      checked ? "[ASSERT][" + set_fn(b) + ":N]: (DataLen == Len)\n" : "");
            EXPECT_EQ(r, checked ? 0 : b.len);
            EXPECT_EQ(rec, Bytes(b.len, checked ? 0x5a : 0x11));
        }
        for (int buflen : {0, b.len - 1}) {
            const std::string text =
                output_of([&] { r = b.get(rec.data(), out.data(), static_cast<unsigned>(buflen)); });
            if (checked) {
                EXPECT_EQ(text, "[ASSERT][" + get_fn(b) + ":N]: (BufLen >= Len)\n");
            }
            EXPECT_EQ(r, checked ? 0 : b.len);
            EXPECT_EQ(out, Bytes(b.len, checked ? 0xee : 0x11));
        }
    }
}

}  // namespace
