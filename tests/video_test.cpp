// video_test.cpp - the encoding-parameter and channel-setting codecs:
// field order and byte order, convert-before-check, the count clamp in
// both directions and the short-buffer rules of the channel settings.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;

const std::string kAssertSet = "[ASSERT][CMN_B2LStruct:N]: DataLen == Cnt\n";
const std::string kAssertGet = "[ASSERT][CMN_LStruct2B:N]: BufLen >= Cnt\n";

template <typename T>
std::string hex_of(const T& v) {
    return to_hex(reinterpret_cast<const unsigned char*>(&v), sizeof v);
}
std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }

// Live: mode, resolution, key frame 25, 30 fps, bit rate; storage: mode,
// resolution, key frame 50, 15 fps, bit rate; OSD mask; audio on.
const char kEncWire[] = "01 02 0019 1e 11223344  03 04 0032 0f a1b2c3d4  0123 01";
const char kEncLocal[] = "01 02 1900 1e 44332211  03 04 3200 0f d4c3b2a1  2301 01";

// Both directions convert before they check the length or the room.
TEST(Video, EncodingBothWays) {
    Bytes wire = hex(kEncWire);
    for (int len : {21, 20, 22, 0, 255}) {
        SCOPED_TRACE(len);
        tagAV_ENC_PARAM_ST local;
        std::memset(&local, 0x5a, sizeof local);
        unsigned r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), static_cast<unsigned char>(len), &local); }),
                  len == 21 ? "" : kAssertSet);
        EXPECT_EQ(r, len == 21 ? 21u : 0u);
        EXPECT_EQ(hex_of(local), hx(hex(kEncLocal)));
    }
    for (unsigned buflen : {21u, 64u, 20u, 1u}) {
        SCOPED_TRACE(buflen);
        tagAV_ENC_PARAM_ST local;
        CMN_B2LStruct(wire.data(), 21, &local);
        unsigned char out[64];
        std::memset(out, 0xee, sizeof out);
        int r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&local, out, buflen); }), buflen >= 21 ? "" : kAssertGet);
        EXPECT_EQ(r, buflen >= 21 ? 21 : 0);
        EXPECT_EQ(to_hex(out, 22), hx(wire) + " ee");
    }
}

// Channel entry k: logical channel k + 1, OSD mask 0x0f0k, the rest fixed;
// a wire of `count` and its entries, with room behind for whatever is read.
std::string entry(int k, bool wire) {
    char b[80];
    std::snprintf(b, sizeof b,
                  wire ? " %02x 06 07 0019 19 00001388 02 03 0064 0a 0000ea60 0f%02x"
                       : " %02x 06 07 1900 19 88130000 02 03 6400 0a 60ea0000 %02x0f",
                  k + 1, k);
    return b;
}

Bytes channels(int count, int entries, bool wire = true) {
    char b[4];
    std::snprintf(b, sizeof b, "%02x", count);
    std::string s = b;
    for (int k = 0; k < entries; k++) s += entry(k, wire);
    return hex(s);
}

TEST(Video, ChannelSettingsWireToLocal) {
    // clang-format off
    const struct {
        int count, len;  // wire byte 0, len argument
        unsigned ret;
        int stored;  // count and entries found in the record afterwards
    } cases[] = {
        {0, 1, 1, 0},   {0, 2, 0, 0},       {1, 22, 22, 1},     {2, 43, 43, 2},   {2, 44, 0, 2},
        {2, 22, 0, 2},  {12, 253, 253, 12}, {13, 253, 253, 12}, {13, 255, 0, 12}, {255, 253, 253, 12},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << " len " << c.len);
        Bytes wire = channels(c.count, std::min(c.count, 12));
        wire.resize(300, 0xcc);
        tagAV_INDIVIDUAL_SETTING_ST local;
        std::memset(&local, 0x5a, sizeof local);
        unsigned r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), static_cast<unsigned char>(c.len), &local); }),
                  c.ret ? "" : kAssertSet);
        EXPECT_EQ(r, c.ret);
        Bytes want = channels(c.stored, c.stored, false);
        want.resize(sizeof local, 0x5a);
        EXPECT_EQ(hex_of(local), hx(want));
    }
}

TEST(Video, ChannelSettingsLocalToWire) {
    const std::string need13 = "Err [CMN_LStruct2B():N] Need Set AV Num:13 Over:12\n";
    // clang-format off
    const struct {
        int count;  // record count before the query
        unsigned buflen;
        int ret;
        int entries;     // whole entries expected on the wire
        int wire_count;  // byte 0 of the wire, -1 when nothing may be written
        std::string out;
    } cases[] = {
        {0, 1, 1, 0, 0, ""},        {0, 0, 0, 0, -1, kAssertGet},   {3, 0, 0, 0, -1, kAssertGet},
        {3, 10, 1, 0, 3, ""},       {3, 21, 1, 0, 3, ""},           {3, 22, 22, 1, 3, ""},
        {3, 63, 43, 2, 3, ""},      {3, 64, 64, 3, 3, ""},          {3, 253, 64, 3, 3, ""},
        {12, 252, 232, 11, 12, ""}, {13, 253, 253, 12, 13, need13}, {13, 0, 0, 0, -1, need13 + kAssertGet},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << " buflen " << c.buflen);
        Bytes full = channels(12, 12);
        tagAV_INDIVIDUAL_SETTING_ST local;
        CMN_B2LStruct(full.data(), 253, &local);
        local.ucChNum = static_cast<unsigned char>(c.count);
        Bytes out(300, 0xee);
        int r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&local, out.data(), c.buflen); }), c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(local.ucChNum, std::min(c.count, 12));  // repaired by the query
        Bytes want = c.wire_count < 0 ? Bytes() : channels(c.wire_count, c.entries);
        want.resize(300, 0xee);
        EXPECT_EQ(hx(out), hx(want));
    }
}

}  // namespace
