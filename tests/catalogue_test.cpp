// catalogue_test.cpp - the public parameter catalogue: every row's get stays within what its columns promise for
// every BufLen (guard bytes), the columns against the record layout and the block codecs, the checked set against
// CMN_SetParam / BBTAXI_SetParam, and 0x0026 reading on to the record's end.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bbconf_catalogue.h"
#include "test_util.h"

using bbconf::GetBound;
using bbconf::ParamInfo;
using bbconf::RecordKind;
using bbconf::SetResult;
using bbconf::ValueKind;
using bbtest::hex;
using bbtest::output_of;

namespace {

// The Subiao ADAS codec dumps the 56 bytes in front of the wire it writes: the guard in front covers them.
constexpr size_t kGuard = 64;
constexpr unsigned char kFill = 0xcd;

std::vector<ParamInfo> rows_of(RecordKind kind) {
    std::vector<ParamInfo> rows;
    for (int i = 0; i < bbconf::param_count(kind); i++) rows.push_back(bbconf::param_at(kind, i));
    return rows;
}

// The most bytes a get may write for a BufLen, from the row's columns.
size_t allowed(const ParamInfo& p, int buflen) {
    const size_t b = buflen > 0 ? static_cast<size_t>(buflen) : 0;
    switch (p.get_bound) {
        case GetBound::None: return 0;
        case GetBound::Always: return p.get_max;
        case GetBound::Whole: {
            // Blocks take BufLen as unsigned: a negative one counts as large.
            const bool fits = p.kind == ValueKind::Block ? static_cast<unsigned>(buflen) >= p.min_get_buf
                                                         : buflen >= p.min_get_buf;
            return fits ? p.get_max : 0;
        }
        case GetBound::BufLen: return std::min<size_t>(b, p.get_max);
        case GetBound::BufLenLess1: return std::min<size_t>(b ? b - 1 : 0, p.get_max);
    }
    return 0;
}

template <typename Rec, typename GetFn>
void check_gets(RecordKind kind, Rec* rec, GetFn get) {
    for (const ParamInfo& p : rows_of(kind)) {
        SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << p.id);
        // Only the Always rows may write past BufLen, and then exactly get_width bytes.
        EXPECT_EQ(p.get_width, p.get_bound == GetBound::Always ? p.get_max : 0);
        EXPECT_EQ(p.readable, p.get_bound != GetBound::None);
        // Every BufLen from -1 to the row's bound + 2; a text's run-on to the record end only around its end.
        const bool by_buflen = p.get_bound == GetBound::BufLen || p.get_bound == GetBound::BufLenLess1;
        std::vector<int> buflens;
        for (int b = -1; b <= std::max<int>(p.min_get_buf, by_buflen ? 0 : p.get_max) + 2; b++) buflens.push_back(b);
        for (int b = p.get_max - 1; by_buflen && b <= p.get_max + 2; b++) buflens.push_back(b);
        for (int buflen : buflens) {
            // The buffer is exactly what the caller hands over plus what the row says it writes anyway.
            const size_t room = std::max<size_t>(buflen > 0 ? buflen : 0, allowed(p, buflen));
            std::vector<unsigned char> buf(kGuard + room + kGuard, kFill);
            // Each get on a fresh record filled with 'A': texts carry no terminator and run on.
            std::memset(rec, 'A', sizeof *rec);
            output_of([&] { get(rec, p.id, buf.data() + kGuard, buflen); });
            const size_t ok = allowed(p, buflen);
            for (size_t i = 0; i < buf.size(); i++) {
                if (i >= kGuard && i < kGuard + ok) continue;
                ASSERT_EQ(buf[i], kFill) << "BufLen " << buflen << " wrote byte " << static_cast<long>(i - kGuard);
            }
        }
    }
}

TEST(Catalogue, EveryGetStaysWithinItsColumnsForEveryBufLen) {
    static tagBB_CONF_ST conf;
    static tagBBTAXI_CONF_ST taxi;
    check_gets(RecordKind::Terminal, &conf, CMN_GetParam);
    check_gets(RecordKind::Taxi, &taxi, BBTAXI_GetParam);
}

// The typed getters refuse what would not fit their variable: each row into variables of exactly 1, 2 and 4 bytes
// on the heap, so that ASan sees a write past them.
TEST(Catalogue, TypedGettersNeverWritePastTheirVariable) {
    bbtest::Conf c;
    output_of([&] { CMN_InitBbConfToDefault(&c.rec); });
    for (const ParamInfo& p : rows_of(RecordKind::Terminal)) {
        auto* b = new unsigned char(0);
        auto* w = new unsigned short(0);
        auto* d = new unsigned int(0);
        output_of([&] {
            CMN_GetByteParam(&c.rec, p.id, b);
            CMN_GetWordParam(&c.rec, p.id, w);
            CMN_GetDWordParam(&c.rec, p.id, d);
        });
        delete b;
        delete w;
        delete d;
    }
}

// Columns against the record layout and the protocol: wire widths, fields and who may set or read.
struct Row {
    RecordKind kind;
    uint16_t id;
    ValueKind value;
    uint16_t set_len, get_width;
    size_t offset, field_size;
    bool settable, readable;
};

#define TF(m) offsetof(tagBB_CONF_ST, m), sizeof(tagBB_CONF_ST::m)
#define XF(m) offsetof(tagBBTAXI_CONF_ST, m), sizeof(tagBBTAXI_CONF_ST::m)
constexpr RecordKind kT = RecordKind::Terminal, kX = RecordKind::Taxi;

// clang-format off
const Row kRows[] = {
    {kT, 0x0001, ValueKind::Number, 4, 4, TF(uiHeartBeatItv), true, true},
    {kT, 0x0031, ValueKind::Number, 2, 2, TF(usFenceRadius), true, true},
    {kT, 0x0081, ValueKind::Number, 2, 2, TF(usProvinceId), true, true},  // answers 4, writes 2
    {kT, 0x0084, ValueKind::Number, 1, 1, TF(ucPlateColor), true, true},
    {kT, 0x00a1, ValueKind::Number, 1, 1, TF(ucVendor00a1), true, true},  // the field after 0x00a2's
    {kT, 0x00a2, ValueKind::Number, 1, 1, TF(ucVendor00a2), true, true},
    {kT, 0x0023, ValueKind::Text, 31, 0, TF(szSlaveApn), true, true},  // shared with 0xf120
    {kT, 0xf120, ValueKind::Text, 31, 0, TF(szSlaveApn), true, true},
    {kT, 0x0013, ValueKind::Text, 63, 0, TF(szMainAddr), true, true},
    {kT, 0xfe06, ValueKind::Text, 15, 0, offsetof(tagBB_CONF_ST, szVendorFe06), 16, true, true},
    {kT, 0x0076, ValueKind::List, 151, 151, TF(stAVChLookUp), true, true},
    {kT, 0x0110, ValueKind::Raw, 8, 8, offsetof(tagBB_CONF_ST, aucCanIdSetting), 8, true, true},
    {kT, 0x8620, ValueKind::Raw, 128, 0, TF(aucVendor8620), true, true},
    {kT, 0x0075, ValueKind::Block, 21, 0, TF(stAVEnc), true, true},
    {kT, 0x0077, ValueKind::Block, 253, 0, TF(stAVIndSetting), true, true},
    {kT, 0xf364, ValueKind::Block, 56, 0, TF(stSubiaoAdas), true, true},
    {kT, 0xe138, ValueKind::Block, 0, 0, TF(stHljDriverIdentify), false, true},
    {kT, 0x0026, ValueKind::Endpoint, 0, 0, 0, 0, false, true},
    {kT, 0xff00, ValueKind::Identity, 0, 0, 0, 0, false, true},
    {kT, 0xf441, ValueKind::Debug, 0, 0, 0, 0, false, false},
    {kX, 0x0073, ValueKind::Number, 2, 4, offsetof(tagBBTAXI_CONF_ST, auiParam0070) + 12, 4, true, true},
    {kX, 0x001d, ValueKind::Number, 4, 0, XF(ucParam001d), true, false},
    {kX, 0x001c, ValueKind::Text, 31, 0, XF(aucParam001c), true, false},
    {kX, 0x0094, ValueKind::Text, 5, 0, XF(szParam0094), true, true},
    {kX, 0x0078, ValueKind::Ignored, 0, 0, 0, 0, false, false},
    {kX, 0xf015, ValueKind::Silent, 0, 0, 0, 0, false, false},
};
// clang-format on

// No two rows share record bytes (but the slave server's APN, user and password, named twice), and every field lies
// inside its record: a row pointing at its neighbour's field shows here.
TEST(Catalogue, FieldsDoNotOverlap) {
    const std::pair<int, int> shared[] = {{0x0023, 0xf120}, {0x0024, 0xf121}, {0x0025, 0xf122}};
    for (RecordKind kind : {kT, kX}) {
        const size_t size = kind == kT ? sizeof(tagBB_CONF_ST) : sizeof(tagBBTAXI_CONF_ST);
        std::vector<int> owner(size, 0);
        for (const ParamInfo& p : rows_of(kind)) {
            ASSERT_LE(p.offset + p.field_size, size) << std::hex << p.id;
            for (size_t i = p.offset; i < p.offset + p.field_size; i++) {
                const std::pair<int, int> both{owner[i], p.id};
                if (owner[i] != 0 && (kind == kX || std::count(std::begin(shared), std::end(shared), both) == 0)) {
                    ADD_FAILURE() << std::hex << "0x" << p.id << " overlaps 0x" << owner[i] << " at byte " << std::dec << i;
                    break;
                }
                owner[i] = p.id;
            }
        }
    }
}

TEST(Catalogue, ColumnsFollowTheRecordLayout) {
    for (const Row& r : kRows) {
        SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << r.id);
        ParamInfo p{};
        ASSERT_TRUE(bbconf::find_param(r.kind, r.id, &p));
        EXPECT_EQ(p.id, r.id);
        EXPECT_EQ(p.kind, r.value);
        EXPECT_EQ(p.set_len, r.set_len);
        EXPECT_EQ(p.get_width, r.get_width);
        if (r.field_size != 0) {
            EXPECT_EQ(p.offset, r.offset);
            EXPECT_EQ(p.field_size, r.field_size);
        }
        EXPECT_EQ(p.settable, r.settable);
        EXPECT_EQ(p.readable, r.readable);
    }
}

// Lists the IDs 0x0001..0xfffe whose "Not Find" on call(id) differs from the walk: "+id" found off the walk, "-id"
// on the walk but not found.  The output is captured unmasked (megabytes of it).
template <typename F>
std::string found_vs(const std::vector<bool>& want, F&& call) {
    std::fflush(stdout);
    testing::internal::CaptureStdout();
    for (int id = 0x0001; id <= 0xfffe; id++) call(id);
    std::fflush(stdout);
    const std::string out = testing::internal::GetCapturedStdout(), key = "Not Find ID:";
    std::vector<bool> found(0x10000, true);
    for (size_t at = out.find(key); at != std::string::npos; at = out.find(key, at + 1)) {
        found[std::strtoul(out.c_str() + at + key.size(), nullptr, 16) & 0xffff] = false;
    }
    testing::Message s;
    for (int id = 0x0001; id <= 0xfffe; id++) {
        if (found[id] != want[id]) s << (found[id] ? " +0x" : " -0x") << std::hex << id;
    }
    return s.GetString();
}

TEST(Catalogue, WalkIsAscendingAndAgreesWithLookupAndDispatch) {
    EXPECT_EQ(bbconf::param_count(kT), 159);
    EXPECT_EQ(bbconf::param_count(kX), 99);
    for (RecordKind kind : {kT, kX}) {
        int last = 0;
        for (const ParamInfo& p : rows_of(kind)) {
            EXPECT_GT(p.id, last);
            last = p.id;
            // The header's example answers every row from a 512-byte buffer.
            EXPECT_LE(p.min_get_buf, 256);
            EXPECT_LE(p.get_width, 256);
            ParamInfo q{};
            ASSERT_TRUE(bbconf::find_param(kind, p.id, &q));
            EXPECT_EQ(std::memcmp(&p, &q, sizeof p), 0);
        }
        EXPECT_EQ(bbconf::param_at(kind, -1).id, 0);
        EXPECT_EQ(bbconf::param_at(kind, bbconf::param_count(kind)).id, 0);
    }
    ParamInfo untouched{};
    untouched.id = 0x1234;
    for (uint32_t id : {0u, 0x0008u, 0xffffu, 0x10001u, 0xffffffffu}) {
        EXPECT_FALSE(bbconf::find_param(kT, id, &untouched)) << id;
        EXPECT_EQ(untouched.id, 0x1234);
    }
    EXPECT_FALSE(bbconf::find_param(kX, 0xf364, &untouched));
    // Every 16-bit ID through the terminal's get and set: found exactly on the walk, and on set only where settable
    // (the twelve get-only IDs).
    bbtest::Conf c;
    output_of([&] { CMN_InitBbConfToDefault(&c.rec); });
    std::vector<bool> want(0x10000);
    int get_only = 0;
    for (const ParamInfo& p : rows_of(kT)) want[p.id] = true;
    // Zeros with room on both sides: block codecs read a whole form, the ADAS codec logs the bytes ahead.
    std::vector<unsigned char> frame(1024, 0);
    EXPECT_EQ(found_vs(want, [&](int id) { CMN_GetParam(&c.rec, id, frame.data() + 256, 512); }), "");
    for (const ParamInfo& p : rows_of(kT)) {
        if (!p.settable) want[p.id] = false, get_only++;
    }
    EXPECT_EQ(get_only, 12);
    std::fill(frame.begin(), frame.end(), 0);
    EXPECT_EQ(found_vs(want, [&](int id) { CMN_SetParam(&c.rec, id, frame.data() + 256, 0); }), "");
}

// Unknown IDs (and get-only ones on set): one line, len back on set, -1 on get, the record untouched.
TEST(Catalogue, NotFindLinesAndResults) {
    // clang-format off
    const struct { int id; const char *set_id, *get_id; } cases[] = {
        {0x0008, "8", "0x8"}, {0x10000, "10000", "0x10000"}, {-5, "fffffffb", "0xfffffffb"}, {0x0026, "26", nullptr}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        bbtest::Conf conf, before;
        unsigned char wire[64] = {1, 2, 3, 4, 5, 6, 7, 8};
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, wire, 7); }),
                  std::string("Err [CMN_SetParam():N] Not Find ID:") + c.set_id + " \n");
        EXPECT_EQ(r, 7);
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
        if (!c.get_id) continue;
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, wire, sizeof wire); }),
                  std::string("Err [CMN_GetParam():N] Not Find ID:") + c.get_id + "\n");
        EXPECT_EQ(r, -1);
    }
}

// A settable block's set length is the wire form its own codec answers on a get.
TEST(Catalogue, BlockSetLengthIsTheCodecsWireForm) {
    bbtest::Conf c;
    output_of([&] { CMN_InitBbConfToDefault(&c.rec); });
    for (const ParamInfo& p : rows_of(kT)) {
        if (p.kind != ValueKind::Block || !p.settable || !p.fixed_set) continue;
        std::vector<unsigned char> buf(kGuard + p.min_get_buf);
        int r = 0;
        output_of([&] { r = CMN_GetParam(&c.rec, p.id, buf.data() + kGuard, p.min_get_buf); });
        EXPECT_EQ(r, p.set_len) << std::hex << p.id;
    }
}

// --- The checked set -------------------------------------------------------------------------------------------

struct SetLine {
    RecordKind kind;
    uint32_t id;
    const char* value;  // hex, or "'text'" for text bytes
    SetResult want;
};

std::vector<unsigned char> value_of(const char* v) {
    if (v[0] == '\'') return std::vector<unsigned char>(v + 1, v + std::strlen(v) - 1);
    return hex(v);
}

// clang-format off
const SetLine kSets[] = {
    {kT, 0x0001, "0102", SetResult::WrongLength},
    {kT, 0x0110, "0a0b", SetResult::WrongLength},
    {kT, 0xf114, "01020304050607", SetResult::WrongLength},
    {kT, 0x0013, "61620063", SetResult::Rejected},
    {kT, 0x0013, "6162000000", SetResult::Stored},
    {kT, 0x0076, "010203", SetResult::Stored},
    {kT, 0x0026, "'a:1'", SetResult::ReadOnly},
    {kT, 0xe138, "00", SetResult::ReadOnly},
    {kT, 0xff01, "00", SetResult::ReadOnly},
    {kT, 0xf441, "00", SetResult::ReadOnly},
    {kT, 0x0000, "00000001", SetResult::UnknownId},
    {kT, 0xffff, "00000001", SetResult::UnknownId},
    {kT, 0x10001, "00000001", SetResult::UnknownId},
    {kT, 0x0075, "0000", SetResult::WrongLength},
    {kT, 0x0077, "", SetResult::WrongLength},
    {kT, 0x0077, "00", SetResult::Stored},
    {kT, 0x0077, "02111111111111111111111111111111111111111111", SetResult::WrongLength},
    {kT, 0x0077, "01111111111111111111111111111111111111111111", SetResult::Stored},
    {kX, 0x001d, "00000007", SetResult::Stored},
    {kX, 0x001d, "00000107", SetResult::Rejected},
    {kX, 0x0013, "61620063", SetResult::Rejected},
    {kX, 0x0077, "00", SetResult::NotStored},
    {kX, 0xf001, "00", SetResult::NotStored},
    {kX, 0xf364, "00", SetResult::UnknownId},
};
// clang-format on

// Stores like the specified call (same record bytes, same lines) or refuses with the record and output untouched.
template <typename Rec, typename SetFn>
void check_set(Rec* init, uint32_t id, const std::vector<unsigned char>& v, SetResult want, SetFn specified) {
    static Rec checked, plain;
    checked = *init;
    plain = *init;
    // Room behind the value: the specified call may read a block's whole form whatever len says.
    std::vector<unsigned char> wire(256 + v.size() + 256, 0);
    if (!v.empty()) std::memcpy(wire.data() + 256, v.data(), v.size());
    SetResult got{};
    const unsigned char* value = v.empty() ? wire.data() : v.data();  // an empty value, not a null one
    const std::string said = output_of([&] { got = bbconf::set_param(&checked, id, value, v.size()); });
    EXPECT_EQ(got, want) << bbconf::to_string(got);
    if (got == SetResult::Stored) {
        const std::string lines =
            output_of([&] { specified(&plain, static_cast<int>(id), wire.data() + 256, static_cast<int>(v.size())); });
        EXPECT_EQ(said, lines);
        EXPECT_EQ(std::memcmp(&checked, &plain, sizeof plain), 0);
    } else {
        EXPECT_EQ(std::memcmp(&checked, init, sizeof checked), 0);
    }
}

TEST(Catalogue, SetStoresAsTheRecordDoesOrRefusesUntouched) {
    static tagBB_CONF_ST conf;
    static tagBBTAXI_CONF_ST taxi;
    output_of([&] {
        CMN_InitBbConfToDefault(&conf);
        BBTAXI_InitToDefault(&taxi);
    });
    for (const SetLine& s : kSets) {
        SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << s.id << " " << s.value);
        std::vector<unsigned char> v = value_of(s.value);
        if (s.kind == kT) {
            check_set(&conf, s.id, v, s.want, CMN_SetParam);
        } else {
            check_set(&taxi, s.id, v, s.want, BBTAXI_SetParam);
        }
    }
    EXPECT_EQ(bbconf::set_param(static_cast<tagBB_CONF_ST*>(nullptr), 1, hex("00000001").data(), 4),
              SetResult::UnknownId);
    EXPECT_STREQ(bbconf::to_string(SetResult::WrongLength), "wrong length");
}

// Every settable row with random values of lengths around its set length: a store matches the specified call.
TEST(Catalogue, EverySettableRowAgreesWithTheSpecifiedSet) {
    static tagBB_CONF_ST conf;
    static tagBBTAXI_CONF_ST taxi;
    output_of([&] {
        CMN_InitBbConfToDefault(&conf);
        BBTAXI_InitToDefault(&taxi);
    });
    std::mt19937 rng(13);
    for (RecordKind kind : {kT, kX}) {
        for (const ParamInfo& p : rows_of(kind)) {
            for (int delta : {-1, 0, 1}) {
                if (!p.settable || p.set_len + delta < 0) continue;
                SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << p.id << " len " << std::dec
                                                << p.set_len + delta);
                std::vector<unsigned char> v(p.set_len + delta);
                for (auto& b : v) b = static_cast<unsigned char>(rng() % 0x5f + 0x20);
                if (p.id == 0x0077 && kind == kT && !v.empty()) v[0] = 12;
                // 0x0077's count byte of 12 asks for all 253 bytes.
                const bool exact = delta == 0 || (!p.fixed_set && delta < 0 && !(kind == kT && p.id == 0x0077));
                const SetResult want = exact                      ? SetResult::Stored
                                       : delta > 0 && !p.fixed_set ? SetResult::TooLong
                                                                   : SetResult::WrongLength;
                if (kind == kT) {
                    check_set(&conf, p.id, v, want, CMN_SetParam);
                } else if (p.id != 0x001d) {  // its value must fit one byte
                    check_set(&taxi, p.id, v, want, BBTAXI_SetParam);
                }
            }
        }
    }
}

// 0x0026: the address reads on past its 64-byte field when it holds no terminator, up to the record's end.
TEST(Catalogue, SlaveServerEndpointReadsOnToTheRecordEnd) {
    bbtest::Conf c;
    const size_t at = offsetof(tagBB_CONF_ST, szSlaveAddr);
    std::memset(c.bytes() + at, 'a', sizeof c.rec - at);
    c.rec.uiTcpPort = 7008;
    const std::string want = std::string(sizeof c.rec - at, 'a') + ":7008";
    std::vector<char> buf(want.size() + 1 + kGuard, kFill);
    EXPECT_EQ(CMN_GetParam(&c.rec, 0x0026, reinterpret_cast<unsigned char*>(buf.data()), static_cast<int>(want.size() + 1)), -1);
    EXPECT_EQ(std::string(buf.data()), want);
    EXPECT_EQ(static_cast<unsigned char>(buf[want.size() + 1]), kFill);
}

}  // namespace
