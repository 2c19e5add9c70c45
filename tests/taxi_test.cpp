// taxi_test.cpp - the taxi record: factory image, checksum entry points,
// every taxi ID in both directions, argument checks and the typed stubs.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::output_of;

namespace {

struct Taxi {
    tagBBTAXI_CONF_ST rec{};
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(&rec); }
    bool same_as(const Taxi& o) const { return std::memcmp(&rec, &o.rec, sizeof rec) == 0; }
};

Taxi filled(unsigned char v) {
    Taxi t;
    std::memset(&t.rec, v, sizeof t.rec);
    return t;
}

Taxi defaults() {
    Taxi t = filled(0xa5);
    output_of([&] { BBTAXI_InitToDefault(&t.rec); });
    return t;
}

unsigned char kWire[4] = {0x12, 0x34, 0x56, 0x78};

TEST(TaxiDefaults, WholeImage) {
    struct { int off, width; unsigned value; } const rows[] = {
        {0, 4, 20},     {4, 4, 60},     {8, 4, 3},      {12, 4, 60},    {16, 4, 3},     {380, 4, 11001},
        {425, 4, 30},   {429, 4, 30},   {433, 4, 30},   {437, 4, 60},   {441, 4, 30},   {445, 4, 120},
        {449, 4, 10},   {453, 4, 500},  {457, 4, 500},  {461, 4, 500},  {465, 4, 200},  {469, 4, 200},
        {473, 4, 500},  {477, 4, 200},  {481, 4, 45},   {577, 4, 16},   {613, 1, 4},    {654, 4, 5},
        {658, 4, 128},  {662, 4, 64},   {666, 4, 64},   {670, 4, 128},  {763, 1, 1},    {930, 4, 7008},
        {943, 1, 2},    {944, 1, 15},   {945, 1, 1},    {946, 1, 2},    {947, 1, 15},   {948, 1, 1},
        {950, 1, 30},   {951, 1, 150},  {952, 1, 50},   {962, 1, 60},   {1034, 1, 60},
    };
    unsigned char expect[1037] = {};
    for (const auto& r : rows)
        for (int i = 0; i < r.width; i++) expect[r.off + i] = static_cast<unsigned char>(r.value >> (8 * i));
    Taxi t = filled(0xa5);
    EXPECT_EQ(output_of([&] { BBTAXI_InitToDefault(&t.rec); }),
              "Inf [BBTAXI_InitToDefault():N] Init TAXI Param Len:1037\n");
    for (int i = 0; i < 1037; i++) EXPECT_EQ(t.bytes()[i], expect[i]) << "offset " << i;

    EXPECT_EQ(output_of([] { BBTAXI_InitToDefault(nullptr); }),
              "[ASSERT][BBTAXI_InitToDefault:N]: NULL != pTAXIConf\n");
}

TEST(TaxiChecksum, EntryPoints) {
    Taxi t = defaults(), before = t;
    EXPECT_EQ(BBTAXI_UpdateCheckSum(&t.rec), 0);
    t.bytes()[100] ^= 0xff;  // a changed record still gets 0 and is accepted
    EXPECT_EQ(BBTAXI_UpdateCheckSum(&t.rec), 0);
    EXPECT_EQ(BBTAXI_UpdateCheckSum(nullptr), 0);
    t.bytes()[100] ^= 0xff;
    EXPECT_TRUE(t.same_as(before));
    EXPECT_EQ(BBTAXI_VerifyCheckSum(&t.rec), 1);
    int r = -7;
    EXPECT_EQ(output_of([&] { r = BBTAXI_VerifyCheckSum(nullptr); }),
              "[ASSERT][BBTAXI_VerifyCheckSum:N]: NULL != pTAXIConf\n");
    EXPECT_EQ(r, 0);
}

// Number kinds, from wire 12 34 56 78: bytes stored at the offset (record
// order) and the get's wire bytes ("" = silent -1).
struct NumKind { const char* stored; const char* got; };
const NumKind U32 = {"78 56 34 12", "12 34 56 78"}, W16 = {"34 12 00 00", "00 00 12 34"},
              U16 = {"34 12", "12 34"}, U8 = {"12", "12"}, LOW = {"78", ""};

TEST(TaxiParam, EveryNumericId) {
    struct { int id, off; NumKind k; } const cases[] = {
        {0x0001, 0, U32},   {0x0002, 4, U32},   {0x0003, 8, U32},   {0x0004, 12, U32},  {0x0005, 16, U32},
        {0x0018, 340, U32}, {0x0019, 344, U32}, {0x001b, 380, U32}, {0x001d, 416, LOW}, {0x0020, 417, U32},
        {0x0021, 421, U32}, {0x0022, 425, U32}, {0x0023, 429, U32}, {0x0024, 433, U32}, {0x0025, 437, U32},
        {0x0026, 441, U32}, {0x0027, 445, U32}, {0x0028, 449, U32}, {0x0029, 453, U32}, {0x002a, 457, U32},
        {0x002b, 461, U32}, {0x002c, 465, U32}, {0x002d, 469, U32}, {0x002e, 473, U32}, {0x002f, 477, U32},
        {0x0030, 481, U32}, {0x0045, 565, U32}, {0x0046, 569, U32}, {0x0047, 573, U32}, {0x0048, 577, U32},
        {0x004b, 613, U8},  {0x0050, 614, U32}, {0x0051, 618, U32}, {0x0052, 622, U32}, {0x0053, 626, U32},
        {0x0055, 630, U32}, {0x0056, 634, U32}, {0x0057, 638, U32}, {0x0058, 642, U32}, {0x0059, 646, U32},
        {0x005a, 650, U32}, {0x0070, 654, U32}, {0x0071, 658, U32}, {0x0072, 662, U32}, {0x0073, 666, W16},
        {0x0074, 670, U32}, {0x0080, 674, U32}, {0x0081, 678, W16}, {0x0082, 682, W16}, {0x00a0, 763, U8},
        {0x00a1, 764, U8},  {0x00a2, 765, U8},  {0x00a3, 766, U8},  {0x00af, 767, U16}, {0x00b0, 769, U8},
        {0x00b5, 930, U32},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Taxi t = filled(0x5a), before = t;
        int r = 0;
        // len is never compared with the width: len 1 still reads the value.
        EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(&t.rec, c.id, kWire, 1); }), "");
        EXPECT_EQ(r, 1);
        std::vector<unsigned char> stored = bbtest::hex(c.k.stored);
        EXPECT_EQ(bbtest::to_hex(t.bytes() + c.off, stored.size()), c.k.stored);
        std::memcpy(t.bytes() + c.off, before.bytes() + c.off, stored.size());
        EXPECT_TRUE(t.same_as(before));

        BBTAXI_SetParam(&t.rec, c.id, kWire, 4);
        unsigned char out[6];
        std::memset(out, 0xee, sizeof out);
        size_t n = bbtest::hex(c.k.got).size();
        EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(&t.rec, c.id, out, 0); }), "");  // bufLen not consulted
        EXPECT_EQ(r, n ? static_cast<int>(n) : -1);
        EXPECT_EQ(bbtest::to_hex(out, n), c.k.got);
        EXPECT_EQ(out[n], 0xee);
    }
}

// Text IDs: raw ones copy len bytes and keep the old tail, terminated ones
// end with a zero; the limit is the field width minus 1.
TEST(TaxiParam, EveryTextId) {
    struct { int id, off, width; bool terminated, readable; } const cases[] = {
        {0x0010, 20, 32, false, true},   {0x0011, 52, 32, false, true},  {0x0012, 84, 32, false, true},
        {0x0013, 116, 64, true, true},   {0x0014, 180, 32, false, true}, {0x0015, 212, 32, false, true},
        {0x0016, 244, 32, false, true},  {0x0017, 276, 64, true, true},  {0x001a, 348, 32, false, true},
        {0x001c, 384, 32, false, false}, {0x0040, 485, 16, true, true},  {0x0041, 501, 16, true, true},
        {0x0042, 517, 16, true, true},   {0x0043, 533, 16, true, true},  {0x0044, 549, 16, true, true},
        {0x0049, 581, 16, false, true},  {0x004a, 597, 16, false, true}, {0x0090, 686, 2, false, true},
        {0x0091, 688, 5, false, true},   {0x0092, 693, 32, false, true}, {0x0093, 725, 32, false, true},
        {0x00b1, 770, 32, false, true},  {0x00b2, 802, 32, false, true}, {0x00b3, 834, 32, false, true},
        {0x00b4, 866, 64, false, true},
    };
    unsigned char text[70], xyz[] = {'X', 'Y', 'Z'};
    for (int i = 0; i < 70; i++) text[i] = static_cast<unsigned char>('a' + i % 26);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        const int lim = c.width - 1;
        Taxi t = filled(0x5a), before = t;
        for (int len : {c.width, -1}) {  // one over the limit, negative: nothing stored
            int r = 0;
            EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(&t.rec, c.id, text, len); }), "");
            EXPECT_EQ(r, len);
            EXPECT_TRUE(t.same_as(before));
        }
        EXPECT_EQ(BBTAXI_SetParam(&t.rec, c.id, text, lim), lim);
        EXPECT_EQ(std::memcmp(t.bytes() + c.off, text, lim), 0);
        EXPECT_EQ(t.bytes()[c.off + lim], c.terminated ? 0x00 : 0x5a);
        // A shorter value: the old tail stays behind raw bytes.
        BBTAXI_SetParam(&t.rec, c.id, xyz, 1);
        EXPECT_EQ(t.bytes()[c.off], 'X');
        if (lim > 1) {
            EXPECT_EQ(t.bytes()[c.off + 1], c.terminated ? 0 : text[1]);
        }
        std::memcpy(t.bytes() + c.off, before.bytes() + c.off, c.width);
        EXPECT_TRUE(t.same_as(before));

        Taxi d = defaults();
        BBTAXI_SetParam(&d.rec, c.id, text, lim);
        unsigned char out[70];
        for (int buflen : {c.width + 5, 3, 1, 0, -4}) {
            SCOPED_TRACE(buflen);
            std::memset(out, 0xee, sizeof out);
            int n = !c.readable || buflen < 1 ? -1 : std::min(lim, buflen - 1);
            int r = 0;
            EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(&d.rec, c.id, out, buflen); }), "");
            EXPECT_EQ(r, n);
            if (n >= 0) {
                EXPECT_EQ(std::memcmp(out, text, n), 0);
            }
            EXPECT_EQ(out[std::max(n, 0)], 0xee);
        }
    }
}

TEST(TaxiParam, TextQuirks) {
    Taxi t = defaults();
    unsigned char apn[] = "abcdefghij", five[] = "12345", addr[64], out[70];
    // Five bytes over a ten-character APN leave characters 6 to 10.
    BBTAXI_SetParam(&t.rec, 0x0010, apn, 10);
    BBTAXI_SetParam(&t.rec, 0x0010, five, 5);
    EXPECT_STREQ(t.rec.szMainApn, "12345fghij");
    EXPECT_EQ(BBTAXI_GetParam(&t.rec, 0x0010, out, 4), 3);
    // 0x0094 admits 6 bytes into its 6-byte field and keeps 5 of them.
    Taxi before = t;
    unsigned char six[] = "ABCDEFG";
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0094, six, 7), 7);
    EXPECT_TRUE(t.same_as(before));
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0094, six, 6), 6);
    EXPECT_EQ(bbtest::to_hex(t.bytes() + 756, 8), "00 41 42 43 44 45 00 01");  // 0x00a0 keeps its 1
    EXPECT_EQ(BBTAXI_GetParam(&t.rec, 0x0094, out, sizeof out), 5);
    BBTAXI_SetParam(&t.rec, 0x0094, five, 2);
    EXPECT_EQ(bbtest::to_hex(t.bytes() + 757, 4), "31 32 00 44");
    // 0x0013: 63 stored and terminated, 64 refused.
    std::memset(addr, 'q', sizeof addr);
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0013, addr, 63), 63);
    EXPECT_EQ(std::strlen(t.rec.szMainAddr), 63u);
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0013, five, 64), 64);
    EXPECT_EQ(t.rec.szMainAddr[0], 'q');
}

TEST(TaxiParam, SixteenBitsIntoThirtyTwo) {
    Taxi t = filled(0xff);
    unsigned char wire[] = {0x01, 0x02}, out[4];
    BBTAXI_SetParam(&t.rec, 0x0073, wire, 2);
    unsigned v;
    std::memcpy(&v, t.bytes() + 666, 4);
    EXPECT_EQ(v, 258u);
    EXPECT_EQ(BBTAXI_GetParam(&t.rec, 0x0073, out, 4), 4);
    EXPECT_EQ(bbtest::to_hex(out, 4), "00 00 01 02");
}

TEST(TaxiParam, ArgumentChecksInOrder) {
    struct { int id; bool null_buf, null_rec; const char *set_text, *get_text; } const cases[] = {
        {0x0000, true, true, "0x0000 != ParamId", "0x0000 != ParamId"},
        {0x0001, true, true, "NULL != pStr", "NULL != pBuf"},
        {0xffff, true, true, "NULL != pStr", "NULL != pBuf"},  // no reserved-ID check here
        {0x0001, false, true, "NULL != pTAXIConf", "NULL != pTAXIConf"},
    };
    for (const auto& c : cases) {
        Taxi t;
        tagBBTAXI_CONF_ST* rec = c.null_rec ? nullptr : &t.rec;
        unsigned char* buf = c.null_buf ? nullptr : kWire;
        int r = 0;
        EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(rec, c.id, buf, 4); }),
                  std::string("[ASSERT][BBTAXI_SetParam:N]: ") + c.set_text + "\n");
        EXPECT_EQ(r, -1);
        EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(rec, c.id, buf, 4); }),
                  std::string("[ASSERT][BBTAXI_GetParam:N]: ") + c.get_text + "\n");
        EXPECT_EQ(r, -1);
    }
}

// Unknown on both sides; silent -1 on get, and "Not Find" or accepted on set.
TEST(TaxiParam, UnknownAndSilentIds) {
    Taxi t = defaults(), before = t;
    unsigned char out[8] = {};
    int r = 0;
    EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(&t.rec, 0x0054, kWire, 4); }),
              "Err [BBTAXI_SetParam():N] Not Find ID:54 \n");
    EXPECT_EQ(r, 4);
    EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(&t.rec, 0x0054, out, 8); }),
              "Err [BBTAXI_GetParam():N] Not Find ID:0x54\n");
    EXPECT_EQ(r, -1);
    struct { int id; bool set_known, get_silent; } const cases[] = {
        {0x0006, false, false}, {0x0031, false, false}, {0x0075, false, false}, {0x0076, false, false},
        {0x0083, false, false}, {0x00b6, false, false}, {0xf000, false, false}, {0xf009, false, false},
        {0xf00f, false, false}, {0xf016, false, false}, {0xffff, false, false}, {0x10000, false, false},
        {-5, false, false},     {0x0077, true, true},   {0x0078, true, true},   {0x0079, true, true},
        {0xf001, false, true},  {0xf004, false, true},  {0xf008, false, true},  {0xf010, false, true},
        {0xf013, false, true},  {0xf015, false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        char line[64];
        std::snprintf(line, sizeof line, "Err [BBTAXI_SetParam():N] Not Find ID:%x \n", unsigned(c.id));
        EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(&t.rec, c.id, kWire, 3); }), c.set_known ? "" : line);
        EXPECT_EQ(r, 3);
        std::snprintf(line, sizeof line, "Err [BBTAXI_GetParam():N] Not Find ID:%#x\n", unsigned(c.id));
        EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(&t.rec, c.id, out, 8); }), c.get_silent ? "" : line);
        EXPECT_EQ(r, -1);
        EXPECT_EQ(bbtest::to_hex(out, 8), "00 00 00 00 00 00 00 00");
        EXPECT_TRUE(t.same_as(before));
    }
}

TEST(TaxiTyped, StubsTouchNothing) {
    Taxi t = filled(0x5a), before = t;
    unsigned char b = 7, s[4] = {1, 2, 3, 4};
    unsigned short w = 7;
    unsigned u = 7;
    for (int id : {0x0001, 0x0010, 0x004b, 0x00af, 0x0054}) {
        EXPECT_EQ(BBTAXI_SetByteParam(&t.rec, id, 9), 0);
        EXPECT_EQ(BBTAXI_GetByteParam(&t.rec, id, &b), 0);
        EXPECT_EQ(BBTAXI_SetWordParam(&t.rec, id, 9), 0);
        EXPECT_EQ(BBTAXI_GetWordParam(&t.rec, id, &w), 0);
        EXPECT_EQ(BBTAXI_SetDWordParam(&t.rec, id, 9), 0);
        EXPECT_EQ(BBTAXI_GetDWordParam(&t.rec, id, &u), 0);
        EXPECT_EQ(BBTAXI_SetStrParam(&t.rec, id, s, 4), 0);
        EXPECT_EQ(BBTAXI_GetStrParam(&t.rec, id, s, 4), 0);
    }
    EXPECT_TRUE(t.same_as(before));
    EXPECT_EQ(b + w + u, 21u);
    EXPECT_EQ(bbtest::to_hex(s, 4), "01 02 03 04");
}

}  // namespace
