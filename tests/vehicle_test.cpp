// vehicle_test.cpp - the DPX initialisers and codecs with their deliberate
// lengths, the alarm media block and where the pump-truck set stops.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using bbtest::get_as;
using bbtest::set_as;

using Bytes = std::vector<unsigned char>;
using Pump = _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST;

std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }


// The initialisers are quiet and give 0; on a record of a5.
TEST(Dpx, Initialisers) {
    Bytes adas(10, 0xa5), dsm(25, 0xa5);
    int r = -1;
    EXPECT_EQ(output_of([&] { r = CMN_Init_DPX_ADAS_Setting(reinterpret_cast<BB_DPX_ADAS_PARM_ST*>(adas.data())); }),
              "");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(output_of([&] { r = CMN_Init_DPX_DSM_Setting(reinterpret_cast<BB_DPX_DSM_PARAM_ST*>(dsm.data())); }), "");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(adas), "1f 00 00 00 1b 06 0f 0f 0f 0f");
    EXPECT_EQ(hx(dsm), "1f 00 00 00 14 14 14 14 14 0a 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f a5");  // 24 kept
    EXPECT_EQ(output_of([&] { r = CMN_Init_DPX_ADAS_Setting(nullptr); }),
              "[ASSERT][CMN_Init_DPX_ADAS_Setting:N]: NULL != pDpxAdasSet\n");
    EXPECT_EQ(r, -1);
    EXPECT_EQ(output_of([&] { r = CMN_Init_DPX_DSM_Setting(nullptr); }),
              "[ASSERT][CMN_Init_DPX_DSM_Setting:N]: NULL != pDpxDsmSet\n");
    EXPECT_EQ(r, -1);
}

// The record or buffer is converted first; the length only decides the
// result.  ADAS moves 10 of its 16 wire bytes, DSM 25 of 32.
TEST(Dpx, ConvertsBeforeTheLengthTest) {
    // clang-format off
    const struct {
        bool dsm, get;
        unsigned len;
        int ret;
        const char* text;  // assert condition, or empty
    } cases[] = {
        {false, false, 16, 16, ""}, {false, false, 10, 0, "DataLen == Cnt"}, {false, false, 17, 0, "DataLen == Cnt"},
        {false, true, 16, 16, ""},  {false, true, 15, 0, "BufLen >= Cnt"},   {true, false, 0, 31, ""},
        {true, false, 32, 31, ""},  {true, false, 255, 31, ""},              {true, true, 32, 32, ""},
        {true, true, 31, 0, "BufLen >= Cnt"}, {true, true, 25, 0, "BufLen >= Cnt"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.dsm << c.get << " " << c.len);
        const Bytes wire = hex(c.dsm ? "a1 a2 a3 a4 40 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f 50 51 52 53 54"
                                     : "01 02 03 04 0a 0b 0c 0d 0e 0f");
        Bytes local = wire, buf(c.dsm ? 32 : 16, 0xee);
        std::reverse(local.begin(), local.begin() + 4);
        Bytes rec = c.get ? local : Bytes(wire.size(), 0x5a), want = buf;
        std::copy(wire.begin(), wire.end(), (c.get ? want : buf).begin());  // the rest of a set's wire is unread
        if (!c.get) want = buf;
        int r = -1;
        const auto n = static_cast<unsigned char>(c.len);
        std::string out = output_of([&] {
            r = c.get
                    ? (c.dsm ? get_as<BB_DPX_DSM_PARAM_ST> : get_as<BB_DPX_ADAS_PARM_ST>)(rec.data(), buf.data(), c.len)
                    : (c.dsm ? set_as<BB_DPX_DSM_PARAM_ST> : set_as<BB_DPX_ADAS_PARM_ST>)(buf.data(), n, rec.data());
        });
        EXPECT_EQ(out, *c.text ? std::string("[ASSERT][") + (c.get ? "CMN_LStruct2B" : "CMN_B2LStruct") +
                                     ":N]: " + c.text + "\n"
                               : "");
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(rec), hx(local));
        EXPECT_EQ(hx(buf), hx(want));
    }
}

// L + 7 bytes each way, len and buflen not consulted; an L above 64 is
// refused and writes nothing.
TEST(AlarmMedia, BlockIsLPlusSevenBytes) {
    for (int n : {0, 1, 3, 64, 65, 255}) {
        SCOPED_TRACE(n);
        const bool fits = n <= 64;
        // Wire: head b1..b4, L, L data bytes 70.., tail ab cd.
        Bytes wire = hex("b1 b2 b3 b4");
        wire.push_back(static_cast<unsigned char>(n));
        for (int i = 0; i < n; i++) wire.push_back(static_cast<unsigned char>(0x70 + i));
        wire.insert(wire.end(), {0xab, 0xcd});
        Bytes rec(sizeof(tagBB_ALARM_VIDEO_PHOTO_ST), 0x5a), want = rec, buf(300, 0xee);
        auto* block = reinterpret_cast<tagBB_ALARM_VIDEO_PHOTO_ST*>(rec.data());
        if (fits) {
            std::copy(wire.begin(), wire.end() - 2, want.begin());
            want[69] = 0xcd;  // the tail lands native at 69
            want[70] = 0xab;
        }
        int r = -1;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), 1, block); }), "");
        EXPECT_EQ(r, fits ? n + 7 : 0);
        EXPECT_EQ(hx(rec), hx(want));
        block->ucLen = static_cast<unsigned char>(n);
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(block, buf.data(), 0); }), "");
        EXPECT_EQ(r, fits ? n + 7 : 0);
        if (!fits) wire.clear();
        wire.resize(300, 0xee);
        EXPECT_EQ(hx(buf), hx(wire));
    }
}

Bytes counting() {
    Bytes b(37);
    for (size_t i = 0; i < b.size(); i++) b[i] = static_cast<unsigned char>(0x10 + i);
    return b;
}

// The get writes its 37 bytes whatever buflen says, the u32 at 3 high byte
// first, and returns 0.
TEST(Pump, GetWritesThirtySevenBytesAndReturnsZero) {
    Bytes rec = counting(), buf(40, 0xee), wire = rec;
    std::reverse(wire.begin() + 3, wire.begin() + 7);
    int r = -1;
    EXPECT_EQ(output_of([&] { r = get_as<Pump>(rec.data(), buf.data(), 1); }),
              "Inf [CMN_LStruct2B():N] PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_LStruct2B Before Get:" +
                  dump_text(wire.data(), 37));
    EXPECT_EQ(r, 0);
    wire.insert(wire.end(), {0xee, 0xee, 0xee});
    EXPECT_EQ(hx(buf), hx(wire));
}

// Record offsets [from, to) come from wire positions src...; the u32 at
// record offset 3 arrives high byte first.
TEST(Pump, SetStopsAtTheFirstFf) {
    struct Seg {
        size_t from, to, src;
    };
    // clang-format off
    const struct {
        const char* name;
        std::vector<size_t> ff;  // wire positions holding 0xFF
        std::vector<Seg> segs;   // every other record byte keeps a5
    } cases[] = {
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
    // clang-format on
    const std::string title = "Inf [CMN_B2LStruct():N] PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_B2LStruct Before Get:";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Bytes wire = counting();  // exactly the 37 bytes the set may read
        for (size_t p : c.ff) wire[p] = 0xff;
        Bytes want(37, 0xa5), rec(37, 0xa5);
        for (const Seg& s : c.segs)
            for (size_t off = s.from; off < s.to; off++)
                want[off] = s.from == 3 ? wire[s.src + 6 - off] : wire[s.src + off - s.from];
        int r = -1;
        EXPECT_EQ(output_of([&] { r = set_as<Pump>(wire.data(), 37, rec.data()); }),
                  title + dump_text(wire.data(), 37));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(rec), hx(want));
    }
    // The dump shows len bytes, the whole block is read all the same; len 0
    // is refused quietly.
    Bytes wire = counting(), rec(37, 0xa5);
    int r = -1;
    EXPECT_EQ(output_of([&] { r = set_as<Pump>(wire.data(), 5, rec.data()); }), title + " 1011121314\n\n");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(Bytes(rec.begin() + 33, rec.end())), "31 32 33 34");
    rec.assign(37, 0xa5);
    EXPECT_EQ(output_of([&] { r = set_as<Pump>(wire.data(), 0, rec.data()); }), "");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(hx(rec), hx(Bytes(37, 0xa5)));
}

}  // namespace
