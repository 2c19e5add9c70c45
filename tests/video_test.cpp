// video_test.cpp - the encoding-parameter and channel-setting codecs: byte
// order, convert-before-check, the count clamp and the short-buffer rules.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

using bbtest::get_as;
using bbtest::hex;
using bbtest::output_of;
using bbtest::set_as;

namespace {

using Bytes = std::vector<unsigned char>;
using Enc = tagAV_ENC_PARAM_ST;
using Channels = tagAV_INDIVIDUAL_SETTING_ST;

const std::string kAssertSet = "[ASSERT][CMN_B2LStruct:N]: DataLen == Cnt\n";
const std::string kAssertGet = "[ASSERT][CMN_LStruct2B:N]: BufLen >= Cnt\n";

// The bytes as hex, padded with ee to size.
std::string hx(Bytes b, size_t size = 0) {
    b.resize(std::max(size, b.size()), 0xee);
    return bbtest::to_hex(b.data(), b.size());
}

// len must be 21 and buflen at least 21, but both directions convert first.
TEST(Video, EncodingBothWays) {
    // Live: mode, resolution, key frame 25, 30 fps, bit rate; storage likewise; OSD mask; audio on.
    Bytes wire = hex("01 02 0019 1e 11223344  03 04 0032 0f a1b2c3d4  0123 01");
    for (int len : {21, 20, 22}) {
        SCOPED_TRACE(len);
        Bytes local(sizeof(Enc), 0x5a), out(65, 0xee);
        int r = 99, g = 99;
        EXPECT_EQ(output_of([&] {
                      r = set_as<Enc>(wire.data(), static_cast<unsigned char>(len), local.data());
                      g = get_as<Enc>(local.data(), out.data(), static_cast<unsigned>(len));
                  }),
                  (len == 21 ? "" : kAssertSet) + (len >= 21 ? "" : kAssertGet));
        EXPECT_EQ(hx(local), hx(hex("01 02 1900 1e 44332211  03 04 3200 0f d4c3b2a1  2301 01")));
        EXPECT_EQ(std::make_pair(r, g), std::make_pair(len == 21 ? 21 : 0, len >= 21 ? 21 : 0));
        EXPECT_EQ(hx(out), hx(wire, 65));
    }
}

// A count byte and entries k = 0.. (logical channel k + 1, OSD mask 0x0f0k).
Bytes channels(int count, int entries, bool wire = true) {
    char b[80];
    std::snprintf(b, sizeof b, "%02x", count);
    std::string s = b;
    for (int k = 0; k < entries; k++) {
        std::snprintf(b, sizeof b,
                      wire ? " %02x 06 07 0019 19 00001388 02 03 0064 0a 0000ea60 0f%02x"
                           : " %02x 06 07 1900 19 88130000 02 03 6400 0a 60ea0000 %02x0f",
                      k + 1, k);
        s += b;
    }
    return hex(s);
}

TEST(Video, ChannelSettingsWireToLocal) {
    // wire count, len, result, count and entries in the record afterwards
    const int cases[][4] = {{0, 1, 1, 0},  {0, 2, 0, 0},       {1, 22, 22, 1},      {2, 43, 43, 2},  {2, 44, 0, 2},
                            {2, 22, 0, 2}, {12, 253, 253, 12}, {255, 253, 253, 12}, {13, 255, 0, 12}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c[0] << " len " << c[1]);
        Bytes wire = channels(c[0], std::min(c[0], 12)), local(sizeof(Channels), 0x5a), want = channels(c[3], c[3], 0);
        wire.resize(300, 0xcc);
        want.resize(local.size(), 0x5a);
        int r = 99;
        EXPECT_EQ(output_of([&] { r = set_as<Channels>(wire.data(), static_cast<unsigned char>(c[1]), local.data()); }),
                  c[2] ? "" : kAssertSet);
        EXPECT_EQ(r, c[2]);
        EXPECT_EQ(hx(local), hx(want));
    }
}

// The query repairs a count above 12 in the record; with room for fewer
// entries than counted it writes the whole ones that fit.
TEST(Video, ChannelSettingsLocalToWire) {
    const std::string need13 = "Err [CMN_LStruct2B():N] Need Set AV Num:13 Over:12\n";
    // count: in the record before the query; entries: whole ones on the wire; wire_count -1: nothing written
    // clang-format off
    const struct { int count; unsigned buflen; int ret, entries, wire_count; std::string out; } cases[] = {
        {0, 1, 1, 0, 0, ""},   {0, 0, 0, 0, -1, kAssertGet}, {3, 21, 1, 0, 3, ""},       {3, 22, 22, 1, 3, ""},
        {3, 63, 43, 2, 3, ""}, {3, 253, 64, 3, 3, ""},       {12, 252, 232, 11, 12, ""},
        {13, 253, 253, 12, 13, need13}, {13, 0, 0, 0, -1, need13 + kAssertGet},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.count << " buflen " << c.buflen);
        Bytes local = channels(c.count, 12, false), out(300, 0xee);  // 12 entries behind any count
        int r = 99;
        EXPECT_EQ(output_of([&] { r = get_as<Channels>(local.data(), out.data(), c.buflen); }), c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(local[0], std::min(c.count, 12));
        EXPECT_EQ(hx(out), hx(c.wire_count < 0 ? Bytes() : channels(c.wire_count, c.entries), 300));
    }
}

}  // namespace
