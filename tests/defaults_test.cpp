// defaults_test.cpp - the factory reset: the whole 3386-byte image built
// here field by field from the published defaults, the order of the block
// initialisers, the null record and the closing line.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::hex;
using bbtest::output_of;

namespace {

constexpr size_t kRecLen = 3386;
constexpr size_t kServerA = 356;  // 0x001a, 32 bytes
constexpr size_t kServerB = 396;  // 0x001d, 32 bytes

// The expected record, little-endian numbers at byte offsets.
struct Image {
    std::vector<unsigned char> b = std::vector<unsigned char>(kRecLen, 0);
    void u8(size_t off, unsigned v) { b.at(off) = static_cast<unsigned char>(v); }
    void u16(size_t off, unsigned v) {
        u8(off, v & 0xff);
        u8(off + 1, v >> 8);
    }
    void u32(size_t off, unsigned v) {
        u16(off, v & 0xffff);
        u16(off + 2, v >> 16);
    }
    void text(size_t off, const char* s) { std::memcpy(&b.at(off), s, std::strlen(s) + 1); }
    void bytes(size_t off, const std::string& hex_text) {
        std::vector<unsigned char> v = hex(hex_text);
        std::memcpy(&b.at(off), v.data(), v.size());
    }
};

// Every non-zero byte of the factory record but the two server fields.
Image expected_image() {
    Image m;
    // Communication and servers.
    const unsigned comm[] = {20, 60, 3, 60, 3, 60, 3};
    for (int i = 0; i < 7; i++) m.u32(4 * i, comm[i]);
    m.text(28, "3gnet");
    m.text(60, "ptxk");
    m.text(92, "ptxk");
    m.text(124, "192.168.168.168");
    m.text(188, "3gnet");
    m.text(220, "ptxk");
    m.text(252, "ptxk");
    m.text(284, "192.168.168.168");
    m.u32(348, 7008);
    m.u32(352, 7008);
    m.u32(388, 11001);
    m.u32(392, 11001);
    // Reporting.
    m.u32(436, 30);
    m.u32(440, 120);
    m.u32(444, 10);
    m.u32(448, 30);
    m.u32(452, 500);
    m.u32(456, 500);
    m.u32(460, 500);
    m.u32(464, 200);
    m.u32(468, 45);
    m.u16(472, 500);
    // Telephony, alarms, image.
    m.u32(554, 1);
    m.u32(558, 0xffffffff);
    m.u32(562, 0xffffffff);
    m.u32(622, 10);
    m.u32(626, 14400);
    m.u32(634, 1200);
    m.bytes(642, "32 00  08 07  32 0a  1e 00");  // 50, 1800, 0x0a32, 30
    m.u32(662, 5);
    m.u32(666, 128);
    m.u32(670, 64);
    m.u32(674, 64);
    m.u32(678, 128);
    // 0x0075 encoding block.
    m.bytes(686, "00 01 19 00 0c 80 00 00 00  00 03 19 00 19 00 04 00 00  1b 00  00");
    // 0x0076 look-up list: 4 channels, entries (k, k, 0, 0).
    m.bytes(707, "04 00 00  01 01 00 00  02 02 00 00  03 03 00 00  04 04 00 00");
    // 0x0077 channel settings: 4 entries of 21 bytes.
    m.u8(858, 4);
    for (int k = 1; k <= 4; k++) {
        m.u8(859 + 21 * (k - 1), k);
        m.bytes(860 + 21 * (k - 1), "00 01 19 00 0c 80 00 00 00  00 03 19 00 19 19 00 00 00  1b 00");
    }
    m.bytes(1111, "14 05 01");
    // 0x007c wake-up: mode 4, periods 00:00-23:59.
    m.bytes(1116, "04 00 00 00  0000 2359  0000 2359  0000 2359  0000 2359");
    m.u8(1176, 9);
    m.bytes(1177, "03 01 01");
    m.u32(1180, 1);
    // Night rules.
    m.bytes(1241, "00 50 22 00 00 06 00 00");
    m.bytes(1249, "00 02 00 00 05 00 00 00");
    m.bytes(1257, "00 22 00 00 05 00 00 20 1c 00 00 b0 04 00 00 00");
    m.u8(1437, 60);
    m.u8(1438, 5);
    m.bytes(1443, "02 c0 a8 00 00 1e");
    m.u8(1469, 5);
    m.bytes(1473, "c0 a8 00 00");
    // Subiao ADAS (104 bytes; 63 to 103 zero).
    m.bytes(1487,
            "1e 06 00 3c 00 c8 00 03 02 03 03 ff 1f 01 00 03 00 00 00 00"
            "1e 32 05 03 02  3c 05 32 05 03 02  32 05 03 02  1b 32 05 03 02  1e 32 05 03 02"
            "0a 32 05 03 02  03 02  05 03 02  32 05 03 02  32 05 03 02");
    // Subiao DSM (132 bytes; 84 to 131 zero).
    m.bytes(1591,
            "1e 06 00 10 0e c8 00 03 02 03 03 ff c3 ff 00 03 00 00 00 b4 00 78 00"
            "32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  01"
            "00 00 00 00 00 00  05 03 02 2c 01  05 03 02 2c 01"
            "32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02");
    // TPMS and BSD.
    m.bytes(1723, "55 6e 6b 6e 6f 77 6e 00 00 00 00 00");  // "Unknown"
    m.bytes(1735, "03 00 8c 00 14 00 05 00 6e 00 bd 00 50 00 0a 00 3c 00");
    m.bytes(1759, "05 05");
    // Heibiao blocks.
    m.bytes(1761, "05 06 01 01 b0 04 05 03 02 05 03 02");
    m.bytes(1783, "1e 06 01 01 32 1b 1b 05 03 02 05 05 03 02 05 03 02 05 03 02 05 03 02");
    m.bytes(1816, "05 06 01 01 3c 00 3c 00  05 03 02 05 03 02 05 03 02 05 03 02 05 03 02");
    m.bytes(1849, "05 06 01 01 2c 01 2c 01");
    for (int i = 0; i < 9; i++) m.bytes(1857 + 3 * i, "05 03 02");
    // Xiangbiao blocks.
    m.bytes(1931, "01 00 00 00 01");
    m.bytes(1952, "05 03 02");
    m.bytes(1981, "01 32 32 02");
    m.bytes(1985, "01 14 05 00 01 14 05 00 01 14 05 00 b0 04 01 14 05 00");
    // Intense driving (2003-2056) stays zero.  RS485 inquiry, muck truck.
    m.bytes(2059, "04 00 00 00 41 02 0a 02 42 02 08 02 80 02 06 06 51 02 04 0c");
    m.bytes(2127, "1e 06 00 3c 00 c8 00 03 02 01 01 3f 00 00 00 01 00 00 00"
                  "32 05 03 02 05 03 02 1e 05 03 02");
    // Muck-truck profile.
    m.bytes(2273, "00 03 2c 01 58 02 00 00 bc 02 00 00 00 00 00 00"
                  "01 01 01 01 01 01 01 01 00 01");
    // Terminal-local settings.
    const unsigned words[] = {5, 10, 600, 1600, 10, 600, 600, 600, 29, 25, 1600, 1000};
    for (int i = 0; i < 12; i++) m.u16(2473 + 2 * i, words[i]);
    m.u8(2561, 10);
    m.u8(2570, 1);
    m.bytes(2572, "80 03 03 50");
    m.u32(2579, 7200);
    m.bytes(2583, "20 00 06 00");  // u32 32, then the byte 6 written into it
    m.u16(2588, 2000);
    m.u8(2590, 8);
    m.u16(2592, 16000);
    m.bytes(2594, "04 01");
    m.u16(2632, 1987);
    m.u8(2639, 1);
    m.bytes(2641, "b4 f3 d0 cd c6 fb b3 b5 00");
    m.u8(3221, 10);
    m.u16(3354, 10000);
    m.u16(3374, 1750);
    m.u16(3376, 1850);
    return m;
}

bool in_server_field(size_t i) {
    return (i >= kServerA && i < kServerA + 32) || (i >= kServerB && i < kServerB + 32);
}

void reset(Conf& conf) {
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
}

TEST(Defaults, WholeImageByteForByte) {
    Conf conf;
    reset(conf);
    const Image want = expected_image();
    int differing = 0;
    for (size_t i = 0; i < kRecLen; i++) {
        if (in_server_field(i)) continue;
        if (conf.bytes()[i] != want.b[i]) {
            if (++differing <= 40) {
                ADD_FAILURE() << "offset " << i << ": got " << static_cast<int>(conf.bytes()[i]) << ", want "
                              << static_cast<int>(want.b[i]);
            }
        }
    }
    EXPECT_EQ(differing, 0);
}

// The platform server: one dotted address in both fields, zero behind it.
TEST(Defaults, PlatformServerFields) {
    Conf conf;
    reset(conf);
    unsigned char want[32] = "192.168.168.168";
    EXPECT_EQ(bbtest::to_hex(conf.bytes() + kServerA, 32), bbtest::to_hex(want, 32));
    EXPECT_EQ(bbtest::to_hex(conf.bytes() + kServerB, 32), bbtest::to_hex(want, 32));
}

TEST(Defaults, EveryByteIsWrittenAndNothingBeyond) {
    struct Guarded {
        unsigned char before[16];
        tagBB_CONF_ST rec;
        unsigned char after[16];
    };
    static_assert(sizeof(Guarded) == 16 + kRecLen + 16, "no padding around the record");
    Guarded clean{}, dirty{};
    std::memset(&clean, 0xa5, sizeof clean);
    std::memset(&clean.rec, 0x00, sizeof clean.rec);
    std::memset(&dirty, 0xa5, sizeof dirty);
    std::memset(&dirty.rec, 0xff, sizeof dirty.rec);
    output_of([&] {
        CMN_InitBbConfToDefault(&clean.rec);
        CMN_InitBbConfToDefault(&dirty.rec);
    });
    EXPECT_EQ(std::memcmp(&clean, &dirty, sizeof clean), 0);
    for (unsigned char g : dirty.before) EXPECT_EQ(g, 0xa5);
    for (unsigned char g : dirty.after) EXPECT_EQ(g, 0xa5);
}

TEST(Defaults, ResetRecordsShareTheirChecksum) {
    Conf a, b;
    std::memset(&b.rec, 0x5a, sizeof b.rec);
    reset(a);
    reset(b);
    int ca = 0, cb = 0;
    output_of([&] {
        ca = CMN_UpdateCheckSum(&a.rec);
        cb = CMN_UpdateCheckSum(&b.rec);
    });
    EXPECT_EQ(ca, cb);
    // A record changed in one byte after the reset no longer matches.
    b.bytes()[3385] ^= 1;
    output_of([&] { cb = CMN_UpdateCheckSum(&b.rec); });
    EXPECT_NE(ca, cb);
}

TEST(Defaults, NullRecordOnlyAsserts) {
    EXPECT_EQ(output_of([] { CMN_InitBbConfToDefault(nullptr); }),
              "[ASSERT][CMN_InitBbConfToDefault:N]: NULL != pbbConf\n");
}

// The block initialisers report in their call order; the intense-driving
// initialiser is not called; the reset closes with the record length.
TEST(Defaults, InitialisersRunInOrderAndTheLengthClosesTheOutput) {
    const char* const order[] = {
        "__InitSubiaoAdasParam",        "__InitSubiaoDsmParam",      "__InitSubiaoTpmsParam",
        "__InitSubiaoBsdParam",         "__InitHljDriverIdentifyParam", "__InitHljAdasParam",
        "__InitHljDsmParam",            "__InitHljDevFailParam",     "__InitXiangbiaoVdsParam",
        "__InitXiangbiaoDriverCmpParam", "__InitXiangbiaoDriverCaptureParam", "__InitQ8RS485InqureParam",
        "__InitZhatuAlarmParam",
    };
    std::string want;
    for (const char* fn : order) want += std::string("War [") + fn + "():N] Param Inited!\n";
    want += "Inf [CMN_InitBbConfToDefault():N] Init Param Len:3386\n";
    Conf conf;
    EXPECT_EQ(output_of([&] { CMN_InitBbConfToDefault(&conf.rec); }), want);
}

// The defaults as the platform reads them back: the reset and the
// dictionary agree on where each value lives.
TEST(Defaults, ReadBackThroughTheDictionary) {
    struct Case {
        int id;
        const char* wire;
    };
    const Case cases[] = {
        {0x0001, "00 00 00 14"}, {0x0018, "00 00 1b 60"}, {0x001b, "00 00 2a f9"}, {0x0031, "01 f4"},
        {0x0046, "ff ff ff ff"}, {0x005d, "0a 32"},       {0x0057, "00 00 38 40"}, {0x0084, "09"},
        {0x0093, "00 00 00 01"}, {0x00a1, "03"},          {0x101a, "01 2c"},       {0x101d, "02 bc"},
        {0xf106, "01 00"},       {0xf200, "3c"},          {0xf201, "05"},          {0xf12a, "0a"},
        {0xf202, "00 00 00 00"}, {0xf114, "01 01 01 01 01 01 01 01"},
    };
    Conf conf;
    reset(conf);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        unsigned char buf[16] = {};
        int r = CMN_GetParam(&conf.rec, c.id, buf, sizeof buf);
        std::vector<unsigned char> want = hex(c.wire);
        ASSERT_EQ(r, static_cast<int>(want.size()));
        EXPECT_EQ(bbtest::to_hex(buf, want.size()), bbtest::to_hex(want.data(), want.size()));
    }
    unsigned char text[64] = {};
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0010, text, sizeof text), 5);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(text), 5), "3gnet");
}

}  // namespace
