// frame_test.cpp - the parameter access frame: argument checks in their
// order, and every number, text and raw ID of the terminal dictionary at its
// offset and through its get rule.
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

unsigned char kWire[8] = {0x81, 0x92, 0xa3, 0xb4, 0xc5, 0xd6, 0xe7, 0xf8};

// n bytes of src, then one byte still 0xee.
std::string then_ee(const void* src, int n) {
    return n > 0 ? to_hex(static_cast<const unsigned char*>(src), n) + " ee" : "ee";
}

TEST(Frame, ArgumentChecksInOrder) {
    // clang-format off
    const struct { int id; unsigned char* buf; std::string set_text, get_text; } cases[] = {
        {0x0000, nullptr, "0x0000 != ParamId", "0x0000 != ParamId"},
        {0xffff, nullptr, "BB_PARAM_ID_RESERVED != ParamId", "BB_PARAM_ID_RESERVED != ParamId"},
        {0x0001, nullptr, "NULL != pStr", "NULL != pBuf"},
        {0x0001, kWire, "NULL != pbbConf", "NULL != pbbConf"},
    };
    // clang-format on
    for (const auto& c : cases) {
        EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(nullptr, c.id, c.buf, 4), -1); }),
                  "[ASSERT][CMN_SetParam:N]: " + c.set_text + "\n");
        EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(nullptr, c.id, c.buf, 4), -1); }),
                  "[ASSERT][CMN_GetParam:N]: " + c.get_text + "\n");
    }
}

// clang-format off
// IDs first..last at offset, offset + stride, ...; width is the bytes of a
// number or the characters of a text.
struct IdRun { int first, last; size_t offset; int width; };

const IdRun kNumbers[] = {
    {0x0001, 0x0007, 0, 4},    {0x0018, 0x0019, 348, 4},  {0x001b, 0x001c, 388, 4},  {0x0020, 0x0022, 428, 4},
    {0x0027, 0x0029, 440, 4},  {0x002c, 0x0030, 452, 4},  {0x0031, 0x0031, 472, 2},  {0x0045, 0x0047, 554, 4},
    {0x0050, 0x005a, 598, 4},  {0x005b, 0x005e, 642, 2},  {0x0064, 0x0065, 650, 4},  {0x0070, 0x0074, 662, 4},
    {0x007a, 0x007a, 682, 4},  {0x0080, 0x0080, 1136, 4}, {0x0081, 0x0082, 1140, 2}, {0x0084, 0x0084, 1176, 1},
    {0x0090, 0x0092, 1177, 1}, {0x0093, 0x0093, 1180, 4}, {0x0094, 0x0094, 1184, 1}, {0x0095, 0x0095, 1185, 4},
    {0x00a1, 0x00a1, 2274, 1}, {0x00a2, 0x00a2, 2273, 1}, {0x0100, 0x0100, 1189, 4}, {0x0101, 0x0101, 1193, 2},
    {0x0102, 0x0102, 1195, 4}, {0x0103, 0x0103, 1199, 2}, {0x101a, 0x101d, 2275, 2}, {0x101e, 0x101f, 2283, 1},
    {0x1031, 0x1031, 2285, 1}, {0xc223, 0xc223, 2189, 4}, {0xc257, 0xc258, 2203, 4}, {0xc25b, 0xc25c, 2211, 4},
    {0xf011, 0xf011, 1433, 4}, {0xf106, 0xf106, 2297, 2}, {0xf108, 0xf108, 2286, 1}, {0xf110, 0xf110, 2287, 1},
    {0xf113, 0xf113, 2288, 1}, {0xf128, 0xf129, 3213, 4}, {0xf12a, 0xf12a, 3221, 1}, {0xf200, 0xf201, 1437, 1},
    {0xf202, 0xf202, 1439, 4},
};

// Texts in fields of width + 1; 0x0023-0x0025 and 0xf120-0xf122 share theirs.
const IdRun kTexts[] = {
    {0x0010, 0x0012, 28, 31},   {0x0013, 0x0013, 124, 63},  {0x0014, 0x0016, 188, 31},  {0x0017, 0x0017, 284, 63},
    {0x001a, 0x001a, 356, 31},  {0x001d, 0x001d, 396, 31},  {0x0023, 0x0025, 2893, 31}, {0x0040, 0x0044, 474, 15},
    {0x0048, 0x0049, 566, 15},  {0x0083, 0x0083, 1144, 31}, {0xf120, 0xf122, 2893, 31}, {0xf123, 0xf123, 2989, 63},
    {0xf124, 0xf126, 3053, 31}, {0xf127, 0xf127, 3149, 63}, {0xfe05, 0xfe05, 1273, 31}, {0xfe06, 0xfe06, 1305, 15},
    {0xfe09, 0xfe0a, 1369, 31},
};
// clang-format on

template <size_t N, typename F>
void for_each_id(const IdRun (&runs)[N], int stride_extra, F&& f) {
    for (const IdRun& run : runs) {
        for (int id = run.first; id <= run.last; id++) {
            SCOPED_TRACE(testing::Message() << std::hex << "ID 0x" << id);
            f(run.width, id, run.offset + (id - run.first) * (run.width + stride_extra));
        }
    }
}

// Big-endian on the wire, native in the record, width bytes read whatever
// len says; the get does not consult BufLen.
TEST(Frame, EveryNumberId) {
    for_each_id(kNumbers, 0, [](int width, int id, size_t off) {
        Conf conf;
        unsigned char out[8], native[4];
        std::reverse_copy(kWire, kWire + width, native);
        EXPECT_EQ(CMN_SetParam(&conf.rec, id, kWire, 1), 1);
        EXPECT_EQ(to_hex(conf.bytes() + off, width), to_hex(native, width));
        std::memset(out, 0xee, sizeof out);
        // Province and city report 4 for their 2 bytes.
        EXPECT_EQ(CMN_GetParam(&conf.rec, id, out, 0), id == 0x0081 || id == 0x0082 ? 4 : width);
        EXPECT_EQ(to_hex(out, width + 1), then_ee(kWire, width));
    });
}

TEST(Frame, EveryTextId) {
    unsigned char text[80], out[80];
    for (int i = 0; i < 80; i++) text[i] = static_cast<unsigned char>('A' + i % 26);
    for_each_id(kTexts, 1, [&](int limit, int id, size_t off) {
        Conf conf;
        EXPECT_EQ(CMN_SetParam(&conf.rec, id, text, limit), limit);
        EXPECT_EQ(CMN_SetParam(&conf.rec, id, text + 1, limit + 1), limit + 1);  // too long: dropped
        EXPECT_EQ(CMN_SetParam(&conf.rec, id, text + 1, -1), -1);
        EXPECT_EQ(to_hex(conf.bytes() + off, limit + 1), to_hex(text, limit) + " 00");
        // min(strlen, BufLen - 1) bytes, no terminator.
        for (const auto& g : {std::make_pair(80, limit), {limit, limit - 1}, {1, 0}, {0, -1}, {-3, -1}}) {
            std::memset(out, 0xee, sizeof out);
            EXPECT_EQ(CMN_GetParam(&conf.rec, id, out, g.first), g.second) << "BufLen " << g.first;
            EXPECT_EQ(to_hex(out, std::max(g.second, 0) + 1), then_ee(text, g.second));
        }
        unsigned char with_nul[] = {'a', 'b', 0, 'c'};  // the NUL ends the stored text
        CMN_SetParam(&conf.rec, id, with_nul, 4);
        EXPECT_EQ(CMN_GetParam(&conf.rec, id, out, 80), 2);
        EXPECT_EQ(to_hex(out, 3), "61 62 ee");
    });
}

enum RawGet { kFixed, kAlways, kOwn, kNoSet };

// Raw values: verbatim up to their size on set; a fixed get returns the
// size and writes nothing into a shorter buffer, kAlways writes its bytes
// whatever BufLen says.  kOwn rows have get rules of their own (below).
// clang-format off
const struct { int id; size_t offset; int size; RawGet get; } kRaws[] = {
    {0x0076, 707, 151, kOwn},   {0x0079, 1111, 3, kFixed},  {0x007b, 1114, 2, kFixed},  {0x007c, 1116, 20, kFixed},
    {0x0110, 1201, 8, kAlways}, {0x8620, 2345, 128, kFixed}, {0x8f21, 2299, 46, kFixed}, {0xc21b, 2169, 10, kOwn},
    {0xc222, 2179, 10, kOwn},   {0xc255, 2193, 10, kOwn},   {0xf001, 1241, 8, kFixed},  {0xf002, 1249, 8, kFixed},
    {0xf0e9, 1981, 4, kFixed},  {0xf114, 2289, 8, kOwn},    {0xf367, 1759, 2, kFixed},  {0xf3f0, 2059, 68, kNoSet},
};
// clang-format on

TEST(Frame, EveryRawId) {
    unsigned char value[160], untouched[160];
    for (int i = 0; i < 160; i++) value[i] = static_cast<unsigned char>(i + 1);
    std::memset(untouched, 0xee, sizeof untouched);
    for (const auto& c : kRaws) {
        SCOPED_TRACE(c.id);
        Conf conf;
        if (c.get == kNoSet) {
            std::memcpy(conf.bytes() + c.offset, value, c.size);
        } else {
            EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, value, c.size), c.size);
            // Too long: dropped silently.
            EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, value + 1, c.size + 1), c.size + 1); }),
                      "");
            EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, kWire, 1), 1);  // replaces only its own byte
            EXPECT_EQ(to_hex(conf.bytes() + c.offset, c.size), to_hex(kWire, 1) + " " + to_hex(value + 1, c.size - 1));
        }
        if (c.get == kOwn) continue;
        for (int buflen : {c.size - 1, c.size}) {
            unsigned char out[200];
            std::memset(out, 0xee, sizeof out);
            EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, buflen), c.size); }), "");
            const bool written = buflen == c.size || c.get == kAlways;
            EXPECT_EQ(to_hex(out, c.size + 1), then_ee(written ? conf.bytes() + c.offset : untouched, c.size));
        }
    }
}

// 0xc21b/0xc222 store raw bytes without a terminator and read them as text,
// so a full 0xc21b runs on into 0xc222; 0xf114 gives min(8, BufLen - 1)
// bytes; 0x0026 writes "address:port" from 0xf123 and 0x0018, bounded by
// BufLen, and reports -1.
TEST(Frame, OwnGetRules) {
    using namespace std::string_literals;
    Conf conf;
    // clang-format off
    const std::pair<int, std::string> sets[] = {
        {0xc222, "ABCDEFG"},    {0xc222, "abc"},               {0xc255, "ABCDEFG"},  {0xc255, "abc"},
        {0xc21b, "xxxxxxxxxx"}, {0xf114, "\1\2\3\4\5\6\7\10"}, {0xf123, "10.1.2.3"}, {0x0018, "\0\0\x1b\x60"s}};
    const struct { int id, buflen, ret; std::string written; } cases[] = {
        {0xc222, 32, 7, "abcDEFG"}, {0xc255, 32, 7, "abcDEFG"}, {0xc21b, 32, 17, "xxxxxxxxxxabcDEFG"},
        {0xc21b, 6, 5, "xxxxx"},    {0xf114, 0, -1, ""},        {0xf114, 1, 0, ""},  {0xf114, 8, 7, "\1\2\3\4\5\6\7"},
        {0xf114, 9, 8, "\1\2\3\4\5\6\7\10"}, {0x0026, 80, -1, "10.1.2.3:7008\0"s}, {0x0026, 5, -1, "10.1\0"s},
    };
    // clang-format on
    for (auto s : sets) {
        CMN_SetParam(&conf.rec, s.first, reinterpret_cast<unsigned char*>(&s.second[0]), s.second.size());
    }
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.id << " BufLen " << c.buflen);
        unsigned char out[80];
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, c.buflen), c.ret);
        EXPECT_EQ(to_hex(out, c.written.size() + 1), then_ee(c.written.data(), static_cast<int>(c.written.size())));
    }
}

// 0x0076 sends the three counts and (their sum modulo 256) entries of 4,
// capped at 37 with a line; BufLen is not consulted.
TEST(Frame, ChannelListGet) {
    // clang-format off
    const struct { int counts[3], ret; const char* out; } cases[] = {
        {{0, 0, 37}, 151, ""}, {{200, 50, 10}, 19, ""},
        {{20, 10, 8}, 151, "Err [CMN_GetParam():N] Total Ch Num:38=20+10+8 Over:37\n"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.ret);
        Conf conf;
        unsigned char list[151], out[160];
        for (int i = 0; i < 151; i++) list[i] = static_cast<unsigned char>(i < 3 ? c.counts[i] : i);
        CMN_SetParam(&conf.rec, 0x0076, list, 151);
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0076, out, 4), c.ret); }), c.out);
        EXPECT_EQ(to_hex(out, c.ret + 1), then_ee(list, c.ret));
    }
}

}  // namespace
