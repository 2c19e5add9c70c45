// vehicle_test.cpp - the DPX initialisers and codecs with their deliberate
// lengths, the alarm media block and where the pump-truck set stops.
#include <algorithm>
#include <cstring>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "form_check.h"

using bbtest::dump_text;
using bbtest::get_as;
using bbtest::hex;
using bbtest::output_of;
using bbtest::set_as;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;
using Pump = _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST;
using Media = tagBB_ALARM_VIDEO_PHOTO_ST;

std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }

// Quiet and 0 on a record of a5; DSM byte 24 is left alone.
TEST(Dpx, Initialisers) {
    Bytes adas(10, 0xa5), dsm(25, 0xa5);
    int r[4];
    EXPECT_EQ(output_of([&] {
                  r[0] = CMN_Init_DPX_ADAS_Setting(reinterpret_cast<BB_DPX_ADAS_PARM_ST*>(adas.data()));
                  r[1] = CMN_Init_DPX_DSM_Setting(reinterpret_cast<BB_DPX_DSM_PARAM_ST*>(dsm.data()));
                  r[2] = CMN_Init_DPX_ADAS_Setting(nullptr);
                  r[3] = CMN_Init_DPX_DSM_Setting(nullptr);
              }),
              "[ASSERT][CMN_Init_DPX_ADAS_Setting:N]: NULL != pDpxAdasSet\n"
              "[ASSERT][CMN_Init_DPX_DSM_Setting:N]: NULL != pDpxDsmSet\n");
    EXPECT_EQ(hx(adas), "1f 00 00 00 1b 06 0f 0f 0f 0f");
    EXPECT_EQ(hx(dsm), "1f 00 00 00 14 14 14 14 14 0a 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f 0f a5");
    EXPECT_EQ(std::vector<int>(r, r + 4), (std::vector<int>{0, 0, -1, -1}));
}

// Both directions convert first; the length only decides the result.  ADAS
// moves 10 of 16 wire bytes and wants len 16; the DSM set moves 25 of 32,
// answers 31 whatever len says, and its get wants 32 bytes of room.
TEST(Dpx, ConvertsBeforeTheLengthTest) {
    // The same len goes to the set and, as buflen, to the get.
    // clang-format off
    const struct { bool dsm; int len, set_ret, get_ret; } cases[] = {
        {false, 16, 16, 16}, {false, 10, 0, 0}, {false, 15, 0, 0}, {false, 17, 0, 16}, {true, 32, 31, 32},
        {true, 25, 31, 0}, {true, 31, 31, 0}, {true, 255, 31, 32}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.dsm << " len " << c.len);
        const std::string body = c.dsm ? "404142434445464748494a4b4c4d4e4f5051525354" : "0a0b0c0d0e0f";
        Bytes wire = hex((c.dsm ? "a1a2a3a4" : "01020304") + body), rec(wire.size(), 0x5a), buf(c.dsm ? 32 : 16, 0xee);
        int r = -1, g = -1;
        const auto n = static_cast<unsigned char>(c.len);
        EXPECT_EQ(
            output_of([&] {
                r = (c.dsm ? set_as<BB_DPX_DSM_PARAM_ST> : set_as<BB_DPX_ADAS_PARM_ST>)(wire.data(), n, rec.data());
                g = (c.dsm ? get_as<BB_DPX_DSM_PARAM_ST> : get_as<BB_DPX_ADAS_PARM_ST>)(rec.data(), buf.data(), c.len);
            }),
            std::string(c.set_ret ? "" : "[ASSERT][CMN_B2LStruct:N]: DataLen == Cnt\n") +
                (c.get_ret ? "" : "[ASSERT][CMN_LStruct2B:N]: BufLen >= Cnt\n"));
        EXPECT_EQ(std::make_pair(r, g), std::make_pair(c.set_ret, c.get_ret));
        EXPECT_EQ(hx(rec), hx(hex((c.dsm ? "a4a3a2a1" : "04030201") + body)));
        wire.resize(buf.size(), 0xee);
        EXPECT_EQ(hx(buf), hx(wire));
    }
}

// L + 7 bytes each way (head, L, L data bytes, u16 tail), len and buflen not
// consulted; an L above 64 is refused and writes nothing.
TEST(AlarmMedia, BlockIsLPlusSevenBytes) {
    for (int n : {0, 1, 64, 65}) {
        SCOPED_TRACE(n);
        const int len = n <= 64 ? n + 7 : 0;
        Bytes wire = hex("b1 b2 b3 b4"), rec(sizeof(Media), 0x5a), buf(300, 0xee);
        wire.push_back(static_cast<unsigned char>(n));
        for (int i = 0; i < n; i++) wire.push_back(static_cast<unsigned char>(0x70 + i));
        wire.insert(wire.end(), {0xab, 0xcd});
        rec[4] = static_cast<unsigned char>(n);  // the get then sees L where the set refuses
        Bytes want = rec;
        if (len) {
            std::copy(wire.begin(), wire.end() - 2, want.begin());
            std::copy(wire.rbegin(), wire.rbegin() + 2, want.begin() + 69);  // the tail, native at 69 whatever L is
        }
        auto* block = reinterpret_cast<Media*>(rec.data());
        int r = -1, g = -1;
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), 1, block), g = CMN_LStruct2B(block, buf.data(), 0); }),
                  "");
        EXPECT_EQ(std::make_pair(r, g), std::make_pair(len, len));
        EXPECT_EQ(hx(rec), hx(want));
        if (!len) wire.clear();
        wire.resize(300, 0xee);
        EXPECT_EQ(hx(buf), hx(wire));
    }
}

// Wire 10 11 12 ... with 0xFF at the given positions, into a record of a5:
// head(3) u32(3, high byte first) settings(7) tail(33).  A 0xFF in the head
// or in the settings behind the first stops that run unread; the value, the
// first setting and the tail take whatever comes next.  The dump shows len
// bytes but the whole block is read; len 0 is refused quietly.  The get then
// writes all 37 bytes back whatever buflen says.  Both return 0.
TEST(Pump, SetStopsAtTheFirstFfAndTheGetWritesAll) {
    // clang-format off
    const struct { std::vector<size_t> ff; int len; const char* rec; } cases[] = {
        {{}, 37, "101112 16151413 1718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f30 31323334"},
        {{}, 5, "101112 16151413 1718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f30 31323334"},
        {{}, 0, "a5a5a5 a5a5a5a5 a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5 a5a5a5a5"},
        {{0}, 37, "a5a5a5 131211ff 1415161718191a1b1c1d1e1f202122232425262728292a2b2c2d 2e2f3031"},
        {{2}, 37, "1011a5 151413ff 161718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f 30313233"},
        {{4, 7}, 37, "101112 1615ff13 ff18191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f30 31323334"},
        {{8}, 37, "101112 16151413 17a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5a5 ff191a1b"},
        {{32}, 37, "101112 16151413 1718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2fa5 ff313233"},
        {{34, 36}, 37, "101112 16151413 1718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f30 31ff33ff"},
    };
    // clang-format on
    auto title = [](const std::string& fn) {
        return "Inf [" + fn + "():N] PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST " + fn + " Before Get:";
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.rec);
        Bytes wire(37), rec(37, 0xa5), back = hex(c.rec), buf(40, 0xee);  // wire: all the set may read
        std::iota(wire.begin(), wire.end(), 0x10);
        for (size_t p : c.ff) wire[p] = 0xff;
        std::reverse(back.begin() + 3, back.begin() + 7);
        int r = -1, g = -1;
        EXPECT_EQ(output_of([&] {
                      r = set_as<Pump>(wire.data(), static_cast<unsigned char>(c.len), rec.data());
                      g = get_as<Pump>(rec.data(), buf.data(), 1);
                  }),
                  (c.len ? title("CMN_B2LStruct") + dump_text(wire.data(), c.len) : "") + title("CMN_LStruct2B") +
                      dump_text(back.data(), 37));
        EXPECT_EQ(std::make_pair(r, g), std::make_pair(0, 0));
        EXPECT_EQ(hx(rec), hx(hex(c.rec)));
        back.resize(40, 0xee);
        EXPECT_EQ(hx(buf), hx(back));
    }
}

// The muck-truck block: the general settings, then 23 bytes, every field
// with the all-ones marker; refused whole on a wrong length.
TEST(MuckTruck, CheckedFixedForm) {
    using formcheck::K;
    const formcheck::Form form = {FIXED(tagBB_PARAM_ZT_ALARM_ST),
                                  {"ZhatuAlarm After Set:", "ZhatuAlarm Before Get:", "ZhatuAlarm After Get:", ""},
                                  {formcheck::kGeneral, {{19, 19, 1, 23, K}}}};
    formcheck::check(form);
}

}  // namespace
