// taxi_test.cpp - the taxi record's checksum entry points, every taxi ID in
// both directions, argument checks and the typed stubs (its reset is
// checked with the terminal's in defaults_test.cpp).
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

struct Taxi {
    tagBBTAXI_CONF_ST rec;
    explicit Taxi(unsigned char fill, bool reset = false) {
        std::memset(&rec, fill, sizeof rec);
        if (reset) output_of([&] { BBTAXI_InitToDefault(&rec); });
    }
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(&rec); }
    bool operator==(const Taxi& o) const { return std::memcmp(&rec, &o.rec, sizeof rec) == 0; }
};

unsigned char kWire[4] = {0x12, 0x34, 0x56, 0x78};

// The update computes nothing and touches nothing; the verify accepts.
TEST(Taxi, ChecksumEntryPoints) {
    Taxi t(0, true), before = t;
    EXPECT_EQ(BBTAXI_UpdateCheckSum(&t.rec), 0);
    EXPECT_EQ(BBTAXI_UpdateCheckSum(nullptr), 0);
    EXPECT_TRUE(t == before);
    t.bytes()[100] ^= 0xff;
    EXPECT_EQ(BBTAXI_VerifyCheckSum(&t.rec), 1);
    int r = -7;
    EXPECT_EQ(output_of([&] { r = BBTAXI_VerifyCheckSum(nullptr); }),
              "[ASSERT][BBTAXI_VerifyCheckSum:N]: NULL != pTAXIConf\n");
    EXPECT_EQ(r, 0);
}

// Runs of IDs over consecutive fields, set from wire 12 34 56 78 with len 1
// (never compared with the width) and read with bufLen 0 (not consulted):
// the bytes stored in record order and the wire bytes read ("": silent -1).
TEST(Taxi, EveryNumericId) {
    struct Kind {
        const char *stored, *got;
    };
    const Kind U32 = {"78 56 34 12", "12 34 56 78"}, W16 = {"34 12 00 00", "00 00 12 34"}, U16 = {"34 12", "12 34"},
               U8 = {"12", "12"}, LOW = {"78", ""};
    // clang-format off
    const struct {
        int first, last, off;
        Kind k;
    } runs[] = {
        {0x0001, 0x0005, 0, U32},   {0x0018, 0x0019, 340, U32}, {0x001b, 0x001b, 380, U32},
        {0x001d, 0x001d, 416, LOW}, {0x0020, 0x0030, 417, U32}, {0x0045, 0x0048, 565, U32},
        {0x004b, 0x004b, 613, U8},  {0x0050, 0x0053, 614, U32}, {0x0055, 0x005a, 630, U32},
        {0x0070, 0x0072, 654, U32}, {0x0073, 0x0073, 666, W16}, {0x0074, 0x0074, 670, U32},
        {0x0080, 0x0080, 674, U32}, {0x0081, 0x0082, 678, W16}, {0x00a0, 0x00a3, 763, U8},
        {0x00af, 0x00af, 767, U16}, {0x00b0, 0x00b0, 769, U8},  {0x00b5, 0x00b5, 930, U32},
    };
    // clang-format on
    for (const auto& run : runs) {
        const size_t width = hex(run.k.stored).size(), n = hex(run.k.got).size();
        for (int id = run.first; id <= run.last; id++) {
            SCOPED_TRACE(id);
            Taxi t(0x5a);
            unsigned char out[6];
            std::memset(out, 0xee, sizeof out);
            int r = 0, g = 0;
            EXPECT_EQ(output_of([&] {
                          r = BBTAXI_SetParam(&t.rec, id, kWire, 1);
                          g = BBTAXI_GetParam(&t.rec, id, out, 0);
                      }),
                      "");
            EXPECT_EQ(r, 1);
            EXPECT_EQ(to_hex(t.bytes() + run.off + (width == 1 ? 1 : 4) * (id - run.first), width), run.k.stored);
            EXPECT_EQ(g, n ? static_cast<int>(n) : -1);
            EXPECT_EQ(to_hex(out, n + 1), n ? std::string(run.k.got) + " ee" : "ee");
        }
    }
}

// Text IDs: raw ones copy len bytes and keep the old tail, terminated ones
// end with a zero; the limit is the field width minus 1.  Quiet throughout.
TEST(Taxi, EveryTextId) {
    // r: raw, t: terminated, s: raw and set only.
    // clang-format off
    const struct {
        int id, off, width;
        char kind;
    } cases[] = {
        {0x0010, 20, 32, 'r'},  {0x0011, 52, 32, 'r'},  {0x0012, 84, 32, 'r'},  {0x0013, 116, 64, 't'},
        {0x0014, 180, 32, 'r'}, {0x0015, 212, 32, 'r'}, {0x0016, 244, 32, 'r'}, {0x0017, 276, 64, 't'},
        {0x001a, 348, 32, 'r'}, {0x001c, 384, 32, 's'}, {0x0040, 485, 16, 't'}, {0x0041, 501, 16, 't'},
        {0x0042, 517, 16, 't'}, {0x0043, 533, 16, 't'}, {0x0044, 549, 16, 't'}, {0x0049, 581, 16, 'r'},
        {0x004a, 597, 16, 'r'}, {0x0090, 686, 2, 'r'},  {0x0091, 688, 5, 'r'},  {0x0092, 693, 32, 'r'},
        {0x0093, 725, 32, 'r'}, {0x00b1, 770, 32, 'r'}, {0x00b2, 802, 32, 'r'}, {0x00b3, 834, 32, 'r'},
        {0x00b4, 866, 64, 'r'},
    };
    // clang-format on
    unsigned char text[70], xyz[] = {'X', 'Y', 'Z'};
    for (int i = 0; i < 70; i++) text[i] = static_cast<unsigned char>('a' + i % 26);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        const int lim = c.width - 1;
        const bool term = c.kind == 't';
        Taxi t(0x5a), before = t, d(0, true);
        std::string said = output_of([&] {
            // One over the limit, or negative: nothing stored.
            EXPECT_EQ(BBTAXI_SetParam(&t.rec, c.id, text, c.width), c.width);
            EXPECT_EQ(BBTAXI_SetParam(&t.rec, c.id, text, -1), -1);
            EXPECT_TRUE(t == before);
            EXPECT_EQ(BBTAXI_SetParam(&t.rec, c.id, text, lim), lim);
            EXPECT_EQ(std::memcmp(t.bytes() + c.off, text, lim), 0);
            EXPECT_EQ(t.bytes()[c.off + lim], term ? 0x00 : 0x5a);
            // A shorter value: the old tail stays behind raw bytes.
            BBTAXI_SetParam(&t.rec, c.id, xyz, 1);
            EXPECT_EQ(to_hex(t.bytes() + c.off, lim > 1 ? 2 : 1), lim == 1 ? "58" : term ? "58 00" : "58 62");

            BBTAXI_SetParam(&d.rec, c.id, text, lim);
            for (int buflen : {c.width + 5, 3, 1, 0, -4}) {
                unsigned char out[70];
                const int n = c.kind == 's' || buflen < 1 ? -1 : std::min(lim, buflen - 1);
                EXPECT_EQ(BBTAXI_GetParam(&d.rec, c.id, out, buflen), n) << buflen;
                EXPECT_EQ(std::memcmp(out, text, std::max(n, 0)), 0);
            }
        });
        EXPECT_EQ(said, "");
    }
}

// 0x0094 admits 6 bytes into its 6-byte field and keeps 5 of them.
TEST(Taxi, FullWidthTextKeepsRoomForTheTerminator) {
    Taxi t(0, true), before = t;
    unsigned char six[] = "ABCDEFG", out[70];
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0094, six, 7), 7);
    EXPECT_TRUE(t == before);
    EXPECT_EQ(BBTAXI_SetParam(&t.rec, 0x0094, six, 6), 6);
    EXPECT_EQ(to_hex(t.bytes() + 756, 8), "00 41 42 43 44 45 00 01");  // 0x00a0 keeps its 1
    EXPECT_EQ(BBTAXI_GetParam(&t.rec, 0x0094, out, sizeof out), 5);
    BBTAXI_SetParam(&t.rec, 0x0094, six + 4, 2);
    EXPECT_EQ(to_hex(t.bytes() + 757, 4), "45 46 00 44");
}

TEST(Taxi, ArgumentChecksInOrder) {
    const struct {
        int id;
        bool null_buf;
        const char *set_text, *get_text;
    } cases[] = {
        {0x0000, true, "0x0000 != ParamId", "0x0000 != ParamId"},
        {0x0001, true, "NULL != pStr", "NULL != pBuf"},
        {0xffff, true, "NULL != pStr", "NULL != pBuf"},  // no reserved-ID check here
        {0x0001, false, "NULL != pTAXIConf", "NULL != pTAXIConf"},
    };
    for (const auto& c : cases) {
        unsigned char* buf = c.null_buf ? nullptr : kWire;
        int r = 0, g = 0;
        EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(nullptr, c.id, buf, 4); }),
                  std::string("[ASSERT][BBTAXI_SetParam:N]: ") + c.set_text + "\n");
        EXPECT_EQ(output_of([&] { g = BBTAXI_GetParam(nullptr, c.id, buf, 4); }),
                  std::string("[ASSERT][BBTAXI_GetParam:N]: ") + c.get_text + "\n");
        EXPECT_EQ(r, -1);
        EXPECT_EQ(g, -1);
    }
}

// Unknown on both sides, or a silent -1 on get with "Not Find" or an
// accepted set.  The set answers len either way and nothing changes.
TEST(Taxi, UnknownAndSilentIds) {
    const struct {
        std::vector<int> ids;
        bool set_known, get_silent;
    } groups[] = {
        {{0x0054, 0x0006, 0x0031, 0x0075, 0x0076, 0x0083, 0x00b6, 0xf000, 0xf009, 0xf00f, 0xf016, 0xffff, 0x10000, -5},
         false,
         false},
        {{0x0077, 0x0078, 0x0079}, true, true},
        {{0xf001, 0xf004, 0xf008, 0xf010, 0xf013, 0xf015}, false, true},
    };
    Taxi t(0, true), before = t;
    for (const auto& g : groups) {
        for (int id : g.ids) {
            SCOPED_TRACE(id);
            unsigned char out[8] = {};
            char set_line[64], get_line[64];
            std::snprintf(set_line, sizeof set_line, "Err [BBTAXI_SetParam():N] Not Find ID:%x \n", unsigned(id));
            std::snprintf(get_line, sizeof get_line, "Err [BBTAXI_GetParam():N] Not Find ID:%#x\n", unsigned(id));
            int r = 0;
            EXPECT_EQ(output_of([&] { r = BBTAXI_SetParam(&t.rec, id, kWire, 3); }), g.set_known ? "" : set_line);
            EXPECT_EQ(r, 3);
            EXPECT_EQ(output_of([&] { r = BBTAXI_GetParam(&t.rec, id, out, 8); }), g.get_silent ? "" : get_line);
            EXPECT_EQ(r, -1);
            EXPECT_EQ(to_hex(out, 8), "00 00 00 00 00 00 00 00");
            EXPECT_TRUE(t == before);
        }
    }
}

TEST(Taxi, TypedStubsTouchNothing) {
    Taxi t(0x5a), before = t;
    unsigned char b = 7, s[4] = {1, 2, 3, 4};
    unsigned short w = 7;
    unsigned u = 7;
    for (int id : {0x0001, 0x0010, 0x004b, 0x00af, 0x0054}) {
        const int rs[] = {BBTAXI_SetByteParam(&t.rec, id, 9),   BBTAXI_GetByteParam(&t.rec, id, &b),
                          BBTAXI_SetWordParam(&t.rec, id, 9),   BBTAXI_GetWordParam(&t.rec, id, &w),
                          BBTAXI_SetDWordParam(&t.rec, id, 9),  BBTAXI_GetDWordParam(&t.rec, id, &u),
                          BBTAXI_SetStrParam(&t.rec, id, s, 4), BBTAXI_GetStrParam(&t.rec, id, s, 4)};
        for (int r : rs) EXPECT_EQ(r, 0);
    }
    EXPECT_TRUE(t == before);
    EXPECT_EQ(b + w + u, 21u);
    EXPECT_EQ(to_hex(s, 4), "01 02 03 04");
}

}  // namespace
