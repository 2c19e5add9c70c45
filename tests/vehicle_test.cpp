// vehicle_test.cpp - the muck-truck, RS485 and DPX initialisers, the DPX
// codecs with their deliberate lengths, the alarm media block and where the
// pump-truck set stops.  (The muck-truck codecs are checked with the other
// fixed-length blocks in subiao_ext_test.cpp.)
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;

std::string hx(const Bytes& b, size_t from = 0, size_t to = std::string::npos) {
    return to_hex(b.data() + from, std::min(to, b.size()) - from);
}
std::string hx(const char* text) { return hx(hex(text)); }
std::string inf(const char* fn, const std::string& text) { return std::string("Inf [") + fn + "():N] " + text; }

template <typename T>
int set_as(unsigned char* w, unsigned char n, unsigned char* l) { return CMN_B2LStruct(w, n, reinterpret_cast<T*>(l)); }
template <typename T>
int get_as(unsigned char* l, unsigned char* w, unsigned n) { return CMN_LStruct2B(reinterpret_cast<T*>(l), w, n); }
template <typename T, int (*F)(T*)>
int init_as(unsigned char* p) { return F(reinterpret_cast<T*>(p)); }

// --- Initialisers ------------------------------------------------------------------

struct InitCase {
    const char* fn;
    int (*init)(unsigned char*);
    const char* expect;  // on a record filled with a5
    bool quiet;          // DPX: no line, result 0
    const char* null_text;
};

TEST(Rs485, VehicleInitialisers) {
    const InitCase cases[] = {
        {"__InitZhatuAlarmParam", init_as<tagBB_PARAM_ZT_ALARM_ST, __InitZhatuAlarmParam>,
         "1e 06 00 3c 00 c8 00 03 02 01 01 3f 00 00 00 01 00 00 00"  // 30, 6, 0, 60, 200, 3, 2, 1, 1, 63, 1
         "32 05 03 02 05 03 02 1e 05 03 02 00 00 00 00 00 00 00 00 00 00 00 00",
         false, "NULL != pstZhatuAlarm"},
        {"__InitQ8RS485InqureParam", init_as<_tagBB_PARAM_485AllDataFA_ST, __InitQ8RS485InqureParam>,
         "04 00 00 00 41 02 0a 02 42 02 08 02 80 02 06 06 51 02 04 0c"  // 'A', 'B', 'Q'; the rest untouched
         "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5"
         "a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5 a5",
         false, "NULL != pstRs485Inqure"},
        {"CMN_Init_DPX_ADAS_Setting", init_as<BB_DPX_ADAS_PARM_ST, CMN_Init_DPX_ADAS_Setting>,
         "1f 00 00 00 1b 06 0f 0f 0f 0f", true, "NULL != pDpxAdasSet"},
        {"CMN_Init_DPX_DSM_Setting", init_as<BB_DPX_DSM_PARAM_ST, CMN_Init_DPX_DSM_Setting>,
         "1f 00 00 00 14 14 14 14 14 0a 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f a5",  // offset 24 kept
         true, "NULL != pDpxDsmSet"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fn);
        Bytes rec(hex(c.expect).size(), 0xa5);
        int r = 0;
        std::string out = output_of([&] { r = c.init(rec.data()); });
        if (c.quiet) {
            EXPECT_EQ(out, "");
            EXPECT_EQ(r, 0);
        } else {
            EXPECT_EQ(out, std::string("War [") + c.fn + "():N] Param Inited!\n");
            EXPECT_GE(r, static_cast<int>(out.size()));
        }
        EXPECT_EQ(hx(rec), hx(c.expect));
        EXPECT_EQ(output_of([&] { r = c.init(nullptr); }),
                  std::string("[ASSERT][") + c.fn + ":N]: " + c.null_text + "\n");
        EXPECT_EQ(r, -1);
    }
}

// --- DPX ---------------------------------------------------------------------------

// The record or buffer is converted first; the length only decides the result.
struct DpxCase {
    const char* name;
    bool dsm, get;
    unsigned len;
    int ret;
    const char* text;  // assert condition, or empty
};

TEST(Dpx, ConvertsBeforeTheLengthTest) {
    const DpxCase cases[] = {
        {"adas set 16", false, false, 16, 16, ""},
        {"adas set 10", false, false, 10, 0, "DataLen == Cnt"},
        {"adas set 17", false, false, 17, 0, "DataLen == Cnt"},
        {"adas get 16", false, true, 16, 16, ""},
        {"adas get 15", false, true, 15, 0, "BufLen >= Cnt"},
        {"dsm set 0", true, false, 0, 31, ""},
        {"dsm set 32", true, false, 32, 31, ""},
        {"dsm set 255", true, false, 255, 31, ""},
        {"dsm get 32", true, true, 32, 32, ""},
        {"dsm get 31", true, true, 31, 0, "BufLen >= Cnt"},
        {"dsm get 25", true, true, 25, 0, "BufLen >= Cnt"},
    };
    const char* adas_wire = "01 02 03 04 0a 0b 0c 0d 0e 0f";
    const char* adas_local = "04 03 02 01 0a 0b 0c 0d 0e 0f";
    const char* dsm_wire = "a1 a2 a3 a4 40 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f 50 51 52 53 54";
    const char* dsm_local = "a4 a3 a2 a1 40 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f 50 51 52 53 54";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Bytes wire = hex(c.dsm ? dsm_wire : adas_wire), local = hex(c.dsm ? dsm_local : adas_local);
        const size_t moved = wire.size(), form = c.dsm ? 32 : 16;
        Bytes rec(moved, 0x5a), buf(form, 0xee);
        if (c.get) rec = local;
        if (!c.get) std::copy(wire.begin(), wire.end(), buf.begin());  // 10 to 15 / 25 to 31 unread
        int r = -1;
        std::string out = output_of([&] {
            unsigned char n = static_cast<unsigned char>(c.len);
            if (c.dsm)
                r = c.get ? get_as<BB_DPX_DSM_PARAM_ST>(rec.data(), buf.data(), c.len)
                          : set_as<BB_DPX_DSM_PARAM_ST>(buf.data(), n, rec.data());
            else
                r = c.get ? get_as<BB_DPX_ADAS_PARM_ST>(rec.data(), buf.data(), c.len)
                          : set_as<BB_DPX_ADAS_PARM_ST>(buf.data(), n, rec.data());
        });
        EXPECT_EQ(out, *c.text ? std::string("[ASSERT][") + (c.get ? "CMN_LStruct2B" : "CMN_B2LStruct") + ":N]: " +
                                     c.text + "\n"
                               : "");
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(rec), hx(local));
        EXPECT_EQ(hx(buf, 0, moved), hx(wire));
        if (c.get) {
            EXPECT_EQ(hx(buf, moved), hx(Bytes(form - moved, 0xee)));  // never written
        }
    }
}

// --- Alarm video/photo ------------------------------------------------------------------

TEST(AlarmMedia, BlockIsLPlusSevenBytes) {
    for (int n : {0, 1, 3, 64, 65, 255}) {
        SCOPED_TRACE(n);
        const bool fits = n <= 64;
        // Wire: head b1..b4, L, L data bytes 70.., tail ab cd.
        Bytes wire = hex("b1 b2 b3 b4");
        wire.push_back(static_cast<unsigned char>(n));
        for (int i = 0; i < n; i++) wire.push_back(static_cast<unsigned char>(0x70 + i));
        wire.push_back(0xab);
        wire.push_back(0xcd);
        tagBB_ALARM_VIDEO_PHOTO_ST rec;
        std::memset(&rec, 0x5a, sizeof rec);
        int r = -1;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), 1, &rec); }), "");  // len not consulted
        EXPECT_EQ(r, fits ? n + 7 : 0);
        Bytes got(reinterpret_cast<unsigned char*>(&rec), reinterpret_cast<unsigned char*>(&rec) + sizeof rec);
        Bytes expect(sizeof rec, 0x5a);
        if (fits) {
            std::copy(wire.begin(), wire.end() - 2, expect.begin());
            expect[69] = 0xcd;  // the tail lands native at 69
            expect[70] = 0xab;
        }
        EXPECT_EQ(hx(got), hx(expect));

        // Back out again, buflen not consulted; a too long L writes nothing.
        rec.ucLen = static_cast<unsigned char>(n);
        Bytes buf(300, 0xee);
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&rec, buf.data(), 0); }), "");
        EXPECT_EQ(r, fits ? n + 7 : 0);
        EXPECT_EQ(hx(buf, 0, fits ? wire.size() : 0), fits ? hx(wire) : "");
        EXPECT_EQ(hx(buf, fits ? wire.size() : 0), hx(Bytes(300 - (fits ? wire.size() : 0), 0xee)));
    }
}

// --- Pump truck ---------------------------------------------------------------------------

const char kPumpGet[] = "PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_LStruct2B Before Get:";
const char kPumpSet[] = "PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_B2LStruct Before Get:";

Bytes counting(unsigned char first) {
    Bytes b(37);
    for (size_t i = 0; i < b.size(); i++) b[i] = static_cast<unsigned char>(first + i);
    return b;
}

TEST(Pump, GetWritesThirtySevenBytesAndReturnsZero) {
    Bytes rec = counting(0x10), buf(40, 0xee), wire = rec;
    wire[3] = 0x16, wire[4] = 0x15, wire[5] = 0x14, wire[6] = 0x13;  // the u32 high byte first
    int r = -1;
    EXPECT_EQ(output_of([&] { r = get_as<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(rec.data(), buf.data(), 1); }),
              inf("CMN_LStruct2B", kPumpGet) + dump_text(wire.data(), 37));
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(buf, 0, 37), hx(wire));
    EXPECT_EQ(hx(buf, 37), "ee ee ee");
}

// Record offsets [from, to) come from wire positions src...; the u32 at
// record offset 3 arrives high byte first.
struct Seg {
    size_t from, to, src;
};

struct StopCase {
    const char* name;
    std::vector<size_t> ff;  // wire positions holding 0xFF
    std::vector<Seg> segs;   // every other record byte keeps a5
};

TEST(Pump, SetStopsAtTheFirstFf) {
    const StopCase cases[] = {
        {"no 0xFF", {}, {{0, 3, 0}, {3, 7, 3}, {7, 33, 7}, {33, 37, 33}}},
        {"position 10", {10}, {{0, 3, 0}, {3, 7, 3}, {7, 10, 7}, {33, 37, 10}}},
        {"first byte", {0}, {{3, 7, 0}, {7, 8, 4}, {8, 33, 5}, {33, 37, 30}}},
        {"second byte", {1}, {{0, 1, 0}, {3, 7, 1}, {7, 8, 5}, {8, 33, 6}, {33, 37, 31}}},
        {"third byte", {2}, {{0, 2, 0}, {3, 7, 2}, {7, 8, 6}, {8, 33, 7}, {33, 37, 32}}},
        {"value and offset 7 are data", {4, 7}, {{0, 3, 0}, {3, 7, 3}, {7, 33, 7}, {33, 37, 33}}},
        {"first setting", {8}, {{0, 3, 0}, {3, 7, 3}, {7, 8, 7}, {33, 37, 8}}},
        {"last setting", {32}, {{0, 3, 0}, {3, 7, 3}, {7, 32, 7}, {33, 37, 32}}},
        {"tail is data", {34, 36}, {{0, 3, 0}, {3, 7, 3}, {7, 33, 7}, {33, 37, 33}}},
        {"first of two stops", {1, 12}, {{0, 1, 0}, {3, 7, 1}, {7, 8, 5}, {8, 14, 6}, {33, 37, 12}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Bytes wire = counting(0x10);  // exactly the 37 bytes the set may read
        for (size_t p : c.ff) wire[p] = 0xff;
        Bytes expect(37, 0xa5), rec(37, 0xa5);
        for (const Seg& s : c.segs)
            for (size_t off = s.from; off < s.to; off++)
                expect[off] = s.from == 3 ? wire[s.src + 6 - off] : wire[s.src + off - s.from];
        int r = -1;
        EXPECT_EQ(output_of([&] { r = set_as<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(wire.data(), 37, rec.data()); }),
                  inf("CMN_B2LStruct", kPumpSet) + dump_text(wire.data(), 37));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(rec), hx(expect));
    }
}

TEST(Pump, SetDumpsLenBytesAndNeedsALength) {
    Bytes wire = counting(0x10), rec(37, 0xa5);
    int r = -1;
    EXPECT_EQ(output_of([&] { r = set_as<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(wire.data(), 5, rec.data()); }),
              inf("CMN_B2LStruct", kPumpSet) + " 1011121314\n\n");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(rec, 33), "31 32 33 34");  // the whole block read all the same

    rec.assign(37, 0xa5);
    EXPECT_EQ(output_of([&] { r = set_as<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(wire.data(), 0, rec.data()); }), "");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(rec), hx(Bytes(37, 0xa5)));
}

}  // namespace
