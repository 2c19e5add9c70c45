// video_test.cpp - the encoding-parameter and channel-setting codecs:
// field order and byte order, convert-before-check, the count clamp in
// both directions and the short-buffer rules of the channel settings.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

const std::string kAssertSet = "[ASSERT][CMN_B2LStruct:N]: DataLen == Cnt\n";
const std::string kAssertGet = "[ASSERT][CMN_LStruct2B:N]: BufLen >= Cnt\n";

// Encoding parameters, every multi-byte field with distinct bytes.
const char kEncWire[] =
    "01 02 0019 1e 11223344"  // live: mode, resolution, key frame 25, 30 fps, bit rate
    "03 04 0032 0f a1b2c3d4"  // storage: mode, resolution, key frame 50, 15 fps, bit rate
    "0123 01";                // OSD mask, audio on

// Packed fields are read by value (+x): a reference to one may be misaligned.
void expect_enc_fields(const tagAV_ENC_PARAM_ST& p) {
    EXPECT_EQ(+p.ucRtEncMode, 1);
    EXPECT_EQ(+p.ucRtResolution, 2);
    EXPECT_EQ(+p.usRtKeyFrameItv, 25);
    EXPECT_EQ(+p.ucRtFrameRate, 30);
    EXPECT_EQ(+p.uiRtBitRate, 0x11223344u);
    EXPECT_EQ(+p.ucStEncMode, 3);
    EXPECT_EQ(+p.ucStResolution, 4);
    EXPECT_EQ(+p.usStKeyFrameItv, 50);
    EXPECT_EQ(+p.ucStFrameRate, 15);
    EXPECT_EQ(+p.uiStBitRate, 0xa1b2c3d4u);
    EXPECT_EQ(+p.usOsdSetting, 0x0123);
    EXPECT_EQ(+p.ucAudioOutput, 1);
}

TEST(Video, EncodingWireToLocal) {
    struct Case {
        int len;
        unsigned ret;
        const std::string* out;
    } cases[] = {{21, 21, nullptr}, {20, 0, &kAssertSet}, {22, 0, &kAssertSet}, {0, 0, &kAssertSet},
                 {255, 0, &kAssertSet}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.len);
        std::vector<unsigned char> wire = hex(kEncWire);
        tagAV_ENC_PARAM_ST local;
        std::memset(&local, 0x5a, sizeof local);
        unsigned r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), static_cast<unsigned char>(c.len), &local); }),
                  c.out ? *c.out : "");
        EXPECT_EQ(r, c.ret);
        expect_enc_fields(local);  // converted whatever the length said
    }
}

TEST(Video, EncodingLocalToWire) {
    struct Case {
        unsigned buflen;
        int ret;
        const std::string* out;
    } cases[] = {{21, 21, nullptr}, {64, 21, nullptr}, {20, 0, &kAssertGet}, {1, 0, &kAssertGet}};
    std::vector<unsigned char> expect = hex(kEncWire);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.buflen);
        tagAV_ENC_PARAM_ST local;
        std::vector<unsigned char> wire = hex(kEncWire);
        CMN_B2LStruct(wire.data(), 21, &local);
        unsigned char out[64];
        std::memset(out, 0xee, sizeof out);
        int r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&local, out, c.buflen); }), c.out ? *c.out : "");
        EXPECT_EQ(r, c.ret);
        // The 21 bytes are written before the room is checked, nothing after them.
        EXPECT_EQ(to_hex(out, 21), to_hex(expect.data(), 21));
        EXPECT_EQ(out[21], 0xee);
    }
}

// Channel entry k on the wire: logical channel k + 1, OSD mask 0x0f0k, the
// other fields fixed.
std::string entry_hex(int k) {
    char b[80];
    std::snprintf(b, sizeof b, "%02x 06 07 0019 19 00001388 02 03 0064 0a 0000ea60 0f%02x", k + 1, k);
    return b;
}

std::vector<unsigned char> channel_wire(int count, int entries) {
    std::string s;
    char b[4];
    std::snprintf(b, sizeof b, "%02x", count);
    s = b;
    for (int k = 0; k < entries; k++) s += entry_hex(k);
    std::vector<unsigned char> w = hex(s);
    w.resize(300, 0xcc);  // room for whatever the codec reads
    return w;
}

void expect_entry(const tagAV_CH_ENC_PARAM_ST& e, int k) {
    EXPECT_EQ(+e.ucLogicCh, k + 1);
    EXPECT_EQ(+e.ucRtEncMode, 6);
    EXPECT_EQ(+e.ucRtResolution, 7);
    EXPECT_EQ(+e.usRtKeyFrameItv, 25);
    EXPECT_EQ(+e.ucRtFrameRate, 25);
    EXPECT_EQ(+e.uiRtBitRate, 5000u);
    EXPECT_EQ(+e.ucStEncMode, 2);
    EXPECT_EQ(+e.ucStResolution, 3);
    EXPECT_EQ(+e.usStKeyFrameItv, 100);
    EXPECT_EQ(+e.ucStFrameRate, 10);
    EXPECT_EQ(+e.uiStBitRate, 60000u);
    EXPECT_EQ(+e.usOsdSetting, 0x0f00 + k);
}

TEST(Video, ChannelSettingsWireToLocal) {
    struct Case {
        const char* name;
        int count;    // wire byte 0
        int len;      // len argument
        unsigned ret;
        int stored;   // count and entries found in the record afterwards
        bool assert_line;
    } cases[] = {
        {"no channels", 0, 1, 1, 0, false},
        {"no channels, stray byte", 0, 2, 0, 0, true},
        {"one channel", 1, 22, 22, 1, false},
        {"two channels", 2, 43, 43, 2, false},
        {"two channels, one byte over", 2, 44, 0, 2, true},
        {"two channels, short", 2, 22, 0, 2, true},
        {"twelve", 12, 253, 253, 12, false},
        {"thirteen clamped", 13, 253, 253, 12, false},
        {"thirteen, length of thirteen", 13, 255, 0, 12, true},
        {"255 clamped", 255, 253, 253, 12, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<unsigned char> wire = channel_wire(c.count, c.count > 12 ? 12 : c.count);
        tagAV_INDIVIDUAL_SETTING_ST local;
        std::memset(&local, 0x5a, sizeof local);
        unsigned r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), static_cast<unsigned char>(c.len), &local); }),
                  c.assert_line ? kAssertSet : "");
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(local.ucChNum, c.stored);
        for (int k = 0; k < c.stored; k++) {
            SCOPED_TRACE(k);
            expect_entry(local.astCh[k], k);
        }
        const unsigned char* rest = reinterpret_cast<unsigned char*>(&local.astCh[c.stored]);
        size_t rest_len = sizeof local - 1 - 21 * c.stored;
        EXPECT_EQ(std::vector<unsigned char>(rest, rest + rest_len), std::vector<unsigned char>(rest_len, 0x5a));
    }
}

TEST(Video, ChannelSettingsLocalToWire) {
    const std::string need13 = "Err [CMN_LStruct2B():N] Need Set AV Num:13 Over:12\n";
    struct Case {
        const char* name;
        int count;       // record count before the query
        unsigned buflen;
        int ret;
        int entries;     // whole entries expected on the wire
        int wire_count;  // byte 0 of the wire, -1 when nothing may be written
        std::string out;
    } cases[] = {
        {"no channels", 0, 1, 1, 0, 0, ""},
        {"no channels, no room", 0, 0, 0, 0, -1, kAssertGet},
        {"no room at all", 3, 0, 0, 0, -1, kAssertGet},
        {"room for the count only", 3, 10, 1, 0, 3, ""},
        {"one byte short of an entry", 3, 21, 1, 0, 3, ""},
        {"one entry", 3, 22, 22, 1, 3, ""},
        {"two and a bit", 3, 63, 43, 2, 3, ""},
        {"all three", 3, 64, 64, 3, 3, ""},
        {"all three, spare room", 3, 253, 64, 3, 3, ""},
        {"eleven of twelve fit", 12, 252, 232, 11, 12, ""},
        {"thirteen sent as twelve", 13, 253, 253, 12, 13, need13},
        {"thirteen, no room", 13, 0, 0, 0, -1, need13 + kAssertGet},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<unsigned char> full = channel_wire(12, 12);
        tagAV_INDIVIDUAL_SETTING_ST local;
        CMN_B2LStruct(full.data(), 253, &local);
        local.ucChNum = static_cast<unsigned char>(c.count);
        unsigned char out[300];
        std::memset(out, 0xee, sizeof out);
        int r = 99;
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&local, out, c.buflen); }), c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(local.ucChNum, c.count > 12 ? 12 : c.count);  // repaired by the query

        std::vector<unsigned char> expect(sizeof out, 0xee);
        if (c.wire_count >= 0) {
            expect[0] = static_cast<unsigned char>(c.wire_count);
            std::memcpy(&expect[1], &full[1], 21 * c.entries);
        }
        EXPECT_EQ(to_hex(out, sizeof out), to_hex(expect.data(), expect.size()));
    }
}

}  // namespace
