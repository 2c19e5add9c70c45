// frame_test.cpp - the parameter access frame: argument checks in their
// order, every number and text ID of both records at its field and through
// its get rule, and the terminal's raw IDs and own get rules.
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "bbconf_catalogue.h"
#include "test_util.h"

using bbconf::ParamInfo;
using bbconf::RecordKind;
using bbconf::ValueKind;
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

// Numbers of both records: big-endian on the wire, set_len bytes read whatever len says, kept native in the field,
// get_width bytes back big-endian whatever BufLen says.  The fields are the catalogue's (its layout checked in
// catalogue_test.cpp).
template <typename Rec, typename SetFn, typename GetFn>
void check_numbers(RecordKind kind, SetFn set, GetFn get) {
    for (int i = 0; i < bbconf::param_count(kind); i++) {
        const ParamInfo p = bbconf::param_at(kind, i);
        if (p.kind != ValueKind::Number) continue;
        SCOPED_TRACE(testing::Message() << std::hex << "ID 0x" << p.id);
        static Rec rec;
        std::memset(&rec, 0x5a, sizeof rec);
        unsigned v = 0;
        unsigned char native[4], back[4], out[8];
        for (int b = 0; b < p.set_len; b++) v = v << 8 | kWire[b];
        for (int b = 0; b < p.field_size; b++) native[b] = static_cast<unsigned char>(v >> 8 * b);
        for (int b = 0; b < p.get_width; b++) back[b] = static_cast<unsigned char>(v >> 8 * (p.get_width - 1 - b));
        EXPECT_EQ(set(&rec, p.id, kWire, 1), 1);
        EXPECT_EQ(to_hex(reinterpret_cast<unsigned char*>(&rec) + p.offset, p.field_size), to_hex(native, p.field_size));
        std::memset(out, 0xee, sizeof out);
        // Province and city report 4 for their 2 bytes; the taxi's 0x001d is set-only.
        const bool four = kind == RecordKind::Terminal && (p.id == 0x0081 || p.id == 0x0082);
        EXPECT_EQ(output_of([&] { EXPECT_EQ(get(&rec, p.id, out, 0), four ? 4 : p.readable ? p.get_width : -1); }), "");
        EXPECT_EQ(to_hex(out, p.get_width + 1), then_ee(back, p.get_width));
    }
}

TEST(Frame, EveryNumberId) {
    check_numbers<tagBB_CONF_ST>(RecordKind::Terminal, CMN_SetParam, CMN_GetParam);
    check_numbers<tagBBTAXI_CONF_ST>(RecordKind::Taxi, BBTAXI_SetParam, BBTAXI_GetParam);
}

// Texts of both records, set_len bytes and one more in the record, quiet throughout: over the limit or negative stores nothing; a
// verbatim row copies without a terminator (the old tail stays), the others terminate; a get gives
// min(strlen, BufLen - 1) bytes without terminator.  The taxi's 0x0094 admits a value as long as its field and
// cuts the last byte.  The terminal's verbatim rows fill their field and run on (OwnGetRules).
template <typename Rec, typename SetFn, typename GetFn>
void check_texts(RecordKind kind, SetFn set, GetFn get) {
    unsigned char text[300], out[300], xyz[] = {'X', 'Y', 'Z'}, with_nul[] = {'a', 'b', 0, 'c'};
    for (int i = 0; i < 300; i++) text[i] = static_cast<unsigned char>('a' + i % 26);
    for (int i = 0; i < bbconf::param_count(kind); i++) {
        const ParamInfo p = bbconf::param_at(kind, i);
        if (p.kind != ValueKind::Text || (p.verbatim && kind == RecordKind::Terminal)) continue;
        SCOPED_TRACE(testing::Message() << std::hex << "ID 0x" << p.id);
        const int kept = p.set_len, lim = kind == RecordKind::Taxi && p.id == 0x0094 ? kept + 1 : kept;
        static Rec rec;
        std::memset(&rec, 0x5a, sizeof rec);
        unsigned char* field = reinterpret_cast<unsigned char*>(&rec) + p.offset;
        const std::string untouched = to_hex(field, kept + 1);
        EXPECT_EQ(output_of([&] {
                      EXPECT_EQ(set(&rec, p.id, text + 1, lim + 1), lim + 1);
                      EXPECT_EQ(set(&rec, p.id, text + 1, -1), -1);
                      EXPECT_EQ(to_hex(field, kept + 1), untouched);
                      EXPECT_EQ(set(&rec, p.id, text, lim), lim);
                      EXPECT_EQ(to_hex(field, kept + 1), to_hex(text, kept) + (p.verbatim ? " 5a" : " 00"));
                      field[kept] = 0;  // as a reset leaves it, so that the get ends there
                      for (int buflen : {kept + 6, kept, 3, 1, 0, -3}) {
                          std::memset(out, 0xee, sizeof out);
                          const int n = !p.readable || buflen < 1 ? -1 : std::min(kept, buflen - 1);
                          EXPECT_EQ(get(&rec, p.id, out, buflen), n) << "BufLen " << buflen;
                          EXPECT_EQ(to_hex(out, std::max(n, 0) + 1), then_ee(text, n));
                      }
                      set(&rec, p.id, xyz, 1);
                      EXPECT_EQ(to_hex(field, kept > 1 ? 3 : 1),
                                kept == 1 ? "58" : p.verbatim ? "58 62 63" : "58 00 63");
                      set(&rec, p.id, with_nul, 4);  // the NUL ends the text a get reads
                      EXPECT_EQ(get(&rec, p.id, out, 80), p.readable ? std::min(kept, 2) : -1);
                  }),
                  "");
    }
}

TEST(Frame, EveryTextId) {
    check_texts<tagBB_CONF_ST>(RecordKind::Terminal, CMN_SetParam, CMN_GetParam);
    check_texts<tagBBTAXI_CONF_ST>(RecordKind::Taxi, BBTAXI_SetParam, BBTAXI_GetParam);
}

// Raw values: verbatim up to their size on set, a longer value dropped silently, a shorter one replacing only its
// own bytes; a Whole get returns the size and writes nothing into a shorter buffer, an Always get writes its bytes
// whatever BufLen says.  0xf114's own rule is in OwnGetRules.
TEST(Frame, EveryRawId) {
    unsigned char value[160], untouched[160];
    for (int i = 0; i < 160; i++) value[i] = static_cast<unsigned char>(i + 1);
    std::memset(untouched, 0xee, sizeof untouched);
    for (int i = 0; i < bbconf::param_count(RecordKind::Terminal); i++) {
        const ParamInfo p = bbconf::param_at(RecordKind::Terminal, i);
        if (p.kind != ValueKind::Raw || p.get_bound == bbconf::GetBound::BufLenLess1) continue;
        SCOPED_TRACE(testing::Message() << std::hex << "ID 0x" << p.id);
        const int size = p.field_size;
        Conf conf;
        if (!p.settable) {
            std::memcpy(conf.bytes() + p.offset, value, size);
        } else {
            EXPECT_EQ(CMN_SetParam(&conf.rec, p.id, value, size), size);
            EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, p.id, value + 1, size + 1), size + 1); }), "");
            EXPECT_EQ(CMN_SetParam(&conf.rec, p.id, kWire, 1), 1);
            EXPECT_EQ(to_hex(conf.bytes() + p.offset, size), to_hex(kWire, 1) + " " + to_hex(value + 1, size - 1));
        }
        for (int buflen : {size - 1, size}) {
            unsigned char out[200];
            std::memset(out, 0xee, sizeof out);
            EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, p.id, out, buflen), size); }), "");
            const bool written = buflen == size || p.get_bound == bbconf::GetBound::Always;
            EXPECT_EQ(to_hex(out, size + 1), then_ee(written ? conf.bytes() + p.offset : untouched, size));
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
