// params_av_test.cpp - the alarm, video and vehicle IDs 0x0040 - 0x0110:
// every ID at its offset and through its kind, the get rules that differ
// from the kinds, the video block IDs and the IDs of the range that are
// unknown.
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

unsigned char kWire[8] = {0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc, 0xde, 0xf0};

// The record filled with a pattern; the expectation is the same pattern
// with the changes a test makes.
Conf patterned() {
    Conf c;
    std::memset(&c.rec, 0x5a, sizeof c.rec);
    return c;
}

std::string diff(Conf& a, Conf& b) {
    std::string s;
    for (size_t i = 0; i < sizeof a.rec; i++) {
        if (a.bytes()[i] != b.bytes()[i]) s += " " + std::to_string(i);
    }
    return s;
}

struct NumCase {
    int id;
    size_t offset;
    int width;
    int get_ret;
};

TEST(AvParams, NumericIds) {
    const NumCase cases[] = {
        {0x0045, 554, 4, 4},  {0x0046, 558, 4, 4},  {0x0047, 562, 4, 4},  {0x0050, 598, 4, 4},
        {0x0051, 602, 4, 4},  {0x0052, 606, 4, 4},  {0x0053, 610, 4, 4},  {0x0054, 614, 4, 4},
        {0x0055, 618, 4, 4},  {0x0056, 622, 4, 4},  {0x0057, 626, 4, 4},  {0x0058, 630, 4, 4},
        {0x0059, 634, 4, 4},  {0x005a, 638, 4, 4},  {0x005b, 642, 2, 2},  {0x005c, 644, 2, 2},
        {0x005d, 646, 2, 2},  {0x005e, 648, 2, 2},  {0x0064, 650, 4, 4},  {0x0065, 654, 4, 4},
        {0x0070, 662, 4, 4},  {0x0071, 666, 4, 4},  {0x0072, 670, 4, 4},  {0x0073, 674, 4, 4},
        {0x0074, 678, 4, 4},  {0x007a, 682, 4, 4},  {0x0080, 1136, 4, 4}, {0x0081, 1140, 2, 4},
        {0x0082, 1142, 2, 4}, {0x0084, 1176, 1, 1}, {0x0090, 1177, 1, 1}, {0x0091, 1178, 1, 1},
        {0x0092, 1179, 1, 1}, {0x0093, 1180, 4, 4}, {0x0094, 1184, 1, 1}, {0x0095, 1185, 4, 4},
        {0x00a1, 2274, 1, 1}, {0x00a2, 2273, 1, 1}, {0x0100, 1189, 4, 4}, {0x0101, 1193, 2, 2},
        {0x0102, 1195, 4, 4}, {0x0103, 1199, 2, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf = patterned();
        Conf expect = patterned();
        for (int i = 0; i < c.width; i++) expect.bytes()[c.offset + i] = kWire[c.width - 1 - i];
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, kWire, 1); }), "");
        EXPECT_EQ(r, 1);
        EXPECT_EQ(diff(conf, expect), "");

        unsigned char out[8];
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 0), c.get_ret);
        EXPECT_EQ(to_hex(out, c.width), to_hex(kWire, c.width));
        EXPECT_EQ(out[c.width], 0xee);  // 0x0081 / 0x0082 report 4 but write 2
    }
}

TEST(AvParams, StringIds) {
    const struct {
        int id;
        size_t offset;
        int limit;
    } cases[] = {
        {0x0040, 474, 15}, {0x0041, 490, 15}, {0x0042, 506, 15}, {0x0043, 522, 15}, {0x0044, 538, 15},
        {0x0048, 566, 15}, {0x0049, 582, 15}, {0x0083, 1144, 31},
    };
    char text[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    unsigned char* src = reinterpret_cast<unsigned char*>(text);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf = patterned();
        Conf before = patterned();
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, src, c.limit + 1), c.limit + 1);
        EXPECT_EQ(diff(conf, before), "");
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, src, c.limit), c.limit);
        Conf expect = patterned();
        std::memcpy(expect.bytes() + c.offset, text, c.limit);
        expect.bytes()[c.offset + c.limit] = 0;
        EXPECT_EQ(diff(conf, expect), "");
        unsigned char out[40];
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, sizeof out), c.limit);
        EXPECT_EQ(std::memcmp(out, text, c.limit), 0);
    }
}

// Raw IDs store verbatim up to their size and ignore one byte more.
TEST(AvParams, RawIdsOnSet) {
    const struct {
        int id;
        size_t offset;
        int size;
    } cases[] = {{0x0076, 707, 151}, {0x0079, 1111, 3}, {0x007b, 1114, 2}, {0x007c, 1116, 20}, {0x0110, 1201, 8}};
    unsigned char value[160];
    for (int i = 0; i < 160; i++) value[i] = static_cast<unsigned char>(i + 1);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf = patterned();
        Conf before = patterned();
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, value, c.size + 1); }), "");
        EXPECT_EQ(r, c.size + 1);
        EXPECT_EQ(diff(conf, before), "");
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, value, c.size), c.size);
        Conf expect = patterned();
        std::memcpy(expect.bytes() + c.offset, value, c.size);
        EXPECT_EQ(diff(conf, expect), "");
        // A shorter value replaces only its own bytes.
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, kWire, 1), 1);
        expect.bytes()[c.offset] = kWire[0];
        EXPECT_EQ(diff(conf, expect), "");
    }
}

// Fixed-size raw gets: a short buffer gets the size back and no bytes;
// 0x0110 always writes its 8 bytes.
TEST(AvParams, FixedSizeRawGets) {
    const struct {
        int id;
        int size;
        int buflen;
        bool written;
    } cases[] = {
        {0x0079, 3, 2, false},  {0x0079, 3, 3, true},  {0x007b, 2, 1, false}, {0x007b, 2, 2, true},
        {0x007c, 20, 19, false}, {0x007c, 20, 64, true}, {0x0110, 8, 0, true},  {0x0110, 8, 7, true},
    };
    unsigned char value[20];
    for (int i = 0; i < 20; i++) value[i] = static_cast<unsigned char>(0xa0 + i);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.id << " BufLen " << c.buflen);
        Conf conf;
        CMN_SetParam(&conf.rec, c.id, value, c.size);
        unsigned char out[64];
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, c.buflen), c.size);
        std::vector<unsigned char> expect(sizeof out, 0xee);
        if (c.written) std::memcpy(expect.data(), value, c.size);
        EXPECT_EQ(to_hex(out, sizeof out), to_hex(expect.data(), expect.size()));
    }
}

TEST(AvParams, ChannelListGet) {
    const struct {
        int audio_video[3];  // the three counts at the head of the list
        int ret;
        const char* out;
    } cases[] = {
        {{0, 0, 0}, 3, ""},
        {{1, 1, 0}, 11, ""},
        {{0, 0, 37}, 151, ""},
        {{200, 50, 10}, 19, ""},  // 260 modulo 256 = 4 entries
        {{20, 10, 8}, 151, "Err [CMN_GetParam():N] Total Ch Num:38=20+10+8 Over:37\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ret);
        Conf conf;
        unsigned char list[151];
        for (int i = 0; i < 151; i++) list[i] = static_cast<unsigned char>(i);
        for (int i = 0; i < 3; i++) list[i] = static_cast<unsigned char>(c.audio_video[i]);
        CMN_SetParam(&conf.rec, 0x0076, list, 151);
        unsigned char out[160];
        std::memset(out, 0xee, sizeof out);
        int r = 0;
        // BufLen is not consulted: the caller's buffer must hold the list.
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, 0x0076, out, 4); }), c.out);
        EXPECT_EQ(r, c.ret);
        std::vector<unsigned char> expect(sizeof out, 0xee);
        std::memcpy(expect.data(), list, c.ret);
        EXPECT_EQ(to_hex(out, sizeof out), to_hex(expect.data(), expect.size()));
    }
}

TEST(AvParams, EncodingBlockId) {
    const std::string wire_hex = "01 02 0019 1e 11223344 03 04 0032 0f a1b2c3d4 0123 01";
    std::vector<unsigned char> wire = hex(wire_hex);
    // The codec gets len cut to 8 bits: 277 arrives as 21 and passes.
    const struct {
        int len;
        const char* out;
    } sets[] = {{21, ""}, {277, ""}, {20, "[ASSERT][CMN_B2LStruct:N]: DataLen == Cnt\n"}};
    for (const auto& s : sets) {
        SCOPED_TRACE(s.len);
        Conf conf = patterned();
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0x0075, wire.data(), s.len); }), s.out);
        EXPECT_EQ(r, s.len);
        Conf expect = patterned();
        const unsigned char local[21] = {0x01, 0x02, 0x19, 0x00, 0x1e, 0x44, 0x33, 0x22, 0x11, 0x03, 0x04,
                                         0x32, 0x00, 0x0f, 0xd4, 0xc3, 0xb2, 0xa1, 0x23, 0x01, 0x01};
        std::memcpy(expect.bytes() + 686, local, 21);
        EXPECT_EQ(diff(conf, expect), "");  // stored even when the length is wrong
    }
    Conf conf;
    CMN_SetParam(&conf.rec, 0x0075, wire.data(), 21);
    unsigned char out[32];
    std::memset(out, 0xee, sizeof out);
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0075, out, 20), -1); }), "");
    EXPECT_EQ(out[0], 0xee);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0075, out, 21), 21);
    EXPECT_EQ(to_hex(out, 22), to_hex(wire.data(), 21) + " ee");
}

TEST(AvParams, ChannelSettingsBlockId) {
    std::vector<unsigned char> wire = hex("02"
                                          "01 01 02 0019 19 00001388 01 02 0019 19 00001388 0003"
                                          "02 01 02 0019 19 00001388 01 02 0019 19 00001388 0007");
    Conf conf = patterned();
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, 0x0077, wire.data(), 43), 43); }), "");
    EXPECT_EQ(conf.bytes()[858], 2);
    EXPECT_EQ(conf.bytes()[858 + 1 + 21], 2);  // logical channel of the second entry
    EXPECT_EQ(conf.bytes()[858 + 1 + 21 + 19], 0x07);  // its OSD mask, low byte first
    EXPECT_EQ(conf.bytes()[858 + 43], 0x5a);

    unsigned char out[260];
    std::memset(out, 0xee, sizeof out);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0077, out, 252), -1);  // the minimum comes first
    EXPECT_EQ(out[0], 0xee);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0077, out, 253), 43);
    EXPECT_EQ(to_hex(out, 44), to_hex(wire.data(), 43) + " ee");
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0077, out, -1), 43);  // -1 is a large unsigned length
}

// Every ID from 0x0032 to 0x0120 that the dictionary does not carry, and
// the IDs up to the vendor range, are unknown on both sides and leave the
// record alone.
TEST(AvParams, UnknownIdsOfTheRange) {
    const std::set<int> known = {
        0x0040, 0x0041, 0x0042, 0x0043, 0x0044, 0x0045, 0x0046, 0x0047, 0x0048, 0x0049, 0x0050, 0x0051,
        0x0052, 0x0053, 0x0054, 0x0055, 0x0056, 0x0057, 0x0058, 0x0059, 0x005a, 0x005b, 0x005c, 0x005d,
        0x005e, 0x0064, 0x0065, 0x0070, 0x0071, 0x0072, 0x0073, 0x0074, 0x0075, 0x0076, 0x0077, 0x0079,
        0x007a, 0x007b, 0x007c, 0x0080, 0x0081, 0x0082, 0x0083, 0x0084, 0x0090, 0x0091, 0x0092, 0x0093,
        0x0094, 0x0095, 0x00a1, 0x00a2, 0x0100, 0x0101, 0x0102, 0x0103, 0x0110,
    };
    std::vector<int> ids = {0x0200, 0x1000, 0x1019};
    for (int id = 0x0032; id <= 0x0120; id++) {
        if (!known.count(id)) ids.push_back(id);
    }
    for (int id : ids) {
        SCOPED_TRACE(id);
        Conf conf = patterned();
        Conf before = patterned();
        unsigned char wire[160] = {1, 2, 3, 4};
        char expect[64];
        int r = 0;
        std::snprintf(expect, sizeof expect, "Err [CMN_SetParam():N] Not Find ID:%x \n", id);
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, id, wire, 4); }), expect);
        EXPECT_EQ(r, 4);
        EXPECT_EQ(diff(conf, before), "");
        std::snprintf(expect, sizeof expect, "Err [CMN_GetParam():N] Not Find ID:%#x\n", id);
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, id, wire, sizeof wire); }), expect);
        EXPECT_EQ(r, -1);
    }
}

}  // namespace
