// night_test.cpp - the night speed, movement and fatigue blocks: codecs,
// refusals, dumps, defaults and the 0xfe10 route.
#include <string>
#include <vector>

#include "test_util.h"

namespace {

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using Bytes = std::vector<unsigned char>;

struct Block {
    int len;
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    void (*init)(unsigned char*);
    const char* defaults;  // the record after its initialiser, native order
};

template <typename T, void (*Init)(T*)>
Block block(const char* defaults) {
    return {static_cast<int>(sizeof(T)),
            [](unsigned char* w, unsigned char n, unsigned char* r) { return CMN_B2LStruct(w, n, reinterpret_cast<T*>(r)); },
            [](unsigned char* r, unsigned char* w, unsigned n) { return CMN_LStruct2B(reinterpret_cast<T*>(r), w, n); },
            [](unsigned char* r) { Init(reinterpret_cast<T*>(r)); }, defaults};
}

const Block kSpeed = block<tagBB_PARAM_NIGHT_SPEED_ST, __InitNightSpeedLmt>("00 50 22 00 00 06 00 00");
const Block kMove = block<tagBB_PARAM_NIGHT_MOVE_ST, __InitNightAbnormalMove>("00 02 00 00 05 00 00 00");
const Block kTired = block<tagBB_PARAM_NIGHT_TIRED_ST, __InitNightTiredSetting>(
    "00 22 00 00 05 00 00 20 1C 00 00 B0 04 00 00 00");

// Only the fatigue block's two u32 change order; 0xff is stored like any
// other value (these blocks have no keep marker).
TEST(NightCodec, RoundTripsWithoutKeepMarkers) {
    const struct {
        const Block* b;
        const char* wire;
        const char* local;
    } cases[] = {
        {&kSpeed, "01 50 22 30 15 06 45 09", "01 50 22 30 15 06 45 09"},
        {&kMove, "ff 02 10 20 05 30 40 ff", "ff 02 10 20 05 30 40 ff"},
        {&kTired, "01 22 00 00 05 00 00 00 00 1c 20 00 00 04 b0 03", "01 22 00 00 05 00 00 20 1c 00 00 b0 04 00 00 03"},
        {&kTired, "a1 a2 a3 a4 a5 a6 a7 12 34 56 78 9a bc de f0 b1", "a1 a2 a3 a4 a5 a6 a7 78 56 34 12 f0 de bc 9a b1"},
        {&kTired, "ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff", "ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff ff"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.wire);
        const int n = c.b->len;
        Bytes wire = hex(c.wire), want = hex(c.local), rec(n, 0x5a), out(n + 2, 0xee);
        int r = 0;
        EXPECT_EQ(output_of([&] { r = c.b->set(wire.data(), static_cast<unsigned char>(n), rec.data()); }),
                  "Inf [CMN_B2LStruct():N] After Set:" + dump_text(want.data(), n));
        EXPECT_EQ(r, n);
        EXPECT_EQ(rec, want);
        EXPECT_EQ(output_of([&] { r = c.b->get(rec.data(), out.data(), n + 2); }),
                  "Inf [CMN_LStruct2B():N] Before Get:" + dump_text(want.data(), n) +
                      "Inf [CMN_LStruct2B():N] After Get:" + dump_text(wire.data(), n));
        EXPECT_EQ(r, n);
        wire.insert(wire.end(), {0xee, 0xee});  // nothing written past the block
        EXPECT_EQ(out, wire);
    }
}

TEST(NightCodec, WrongLengthOrShortBufferChangesNothing) {
    for (const Block* b : {&kSpeed, &kMove, &kTired}) {
        SCOPED_TRACE(b->len);
        Bytes wire(256, 0x11), rec(b->len, 0x5a), out(b->len, 0xee);
        int r = -1;
        for (int len : {b->len - 1, b->len + 1, 0, 255}) {
            EXPECT_EQ(output_of([&] { r = b->set(wire.data(), static_cast<unsigned char>(len), rec.data()); }),
                      "[ASSERT][CMN_B2LStruct:N]: (DataLen == Len)\n");
            EXPECT_EQ(r, 0);
        }
        for (int buflen : {0, b->len - 1}) {
            EXPECT_EQ(output_of([&] { r = b->get(rec.data(), out.data(), static_cast<unsigned>(buflen)); }),
                      "[ASSERT][CMN_LStruct2B:N]: (BufLen >= Len)\n");
            EXPECT_EQ(r, 0);
        }
        EXPECT_EQ(rec, Bytes(b->len, 0x5a));
        EXPECT_EQ(out, Bytes(b->len, 0xee));
    }
}

// Every byte is written, zeros included, and nothing is printed.
TEST(NightDefaults, InitialisersWriteEveryByteQuietly) {
    for (const Block* b : {&kSpeed, &kMove, &kTired}) {
        SCOPED_TRACE(b->defaults);
        Bytes rec(b->len + 1, 0xa5), want = hex(b->defaults);
        want.push_back(0xa5);
        EXPECT_EQ(output_of([&] { b->init(rec.data()); }), "");
        EXPECT_EQ(rec, want);
    }
}

// The dictionary hands 0xfe10 to the fatigue codecs (which refuse a wrong
// length) and refuses a get buffer under 16 bytes itself.
TEST(NightDictionary, FatigueBlockRoute) {
    bbtest::Conf conf;
    const Bytes wire = hex("01 21 30 00 04 30 00 00 00 0e 10 00 00 02 58 01");
    Bytes in = wire, buf(16, 0xee);
    output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, 0xfe10, in.data(), 15), 15); });
    EXPECT_EQ(Bytes(conf.bytes() + 1257, conf.bytes() + 1273), Bytes(16, 0));
    output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, 0xfe10, in.data(), 16), 16); });
    EXPECT_EQ(Bytes(conf.bytes() + 1257, conf.bytes() + 1273), hex("01 21 30 00 04 30 00 10 0e 00 00 58 02 00 00 01"));
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xfe10, buf.data(), 15), -1); }), "");
    EXPECT_EQ(buf, Bytes(16, 0xee));
    output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xfe10, buf.data(), 16), 16); });
    EXPECT_EQ(buf, wire);
}

}  // namespace
