// taxi_test.cpp - the taxi record's dictionary: every taxi ID in both
// directions, argument checks, unknown IDs, the checksum entry points and
// the typed stubs (its reset is checked in defaults_test.cpp).
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;

// A taxi record of 0x5a.
Bytes record() { return Bytes(sizeof(tagBBTAXI_CONF_ST), 0x5a); }
tagBBTAXI_CONF_ST* taxi(Bytes& b) { return reinterpret_cast<tagBBTAXI_CONF_ST*>(b.data()); }

unsigned char kWire[4] = {0x12, 0x34, 0x56, 0x78};

// Sets then gets one ID: "<set result> <get result> <what they printed>".
std::string set_get(tagBBTAXI_CONF_ST* rec, int id, unsigned char* in, int len, unsigned char* out, int buflen) {
    int r = 0, g = 0;
    const std::string said = output_of([&] {
        r = BBTAXI_SetParam(rec, id, in, len);
        g = BBTAXI_GetParam(rec, id, out, buflen);
    });
    return std::to_string(r) + " " + std::to_string(g) + " " + said;
}

// Runs of IDs over consecutive fields, set from wire 12 34 56 78 with len 1
// (never compared with the width) and read with bufLen 0 (not consulted):
// the bytes stored in record order and the wire bytes read ("": silent -1).
TEST(Taxi, EveryNumericId) {
    using Kind = std::pair<const char*, const char*>;
    const Kind U32 = {"78 56 34 12", "12 34 56 78"}, W16 = {"34 12 00 00", "00 00 12 34"}, U16 = {"34 12", "12 34"},
               U8 = {"12", "12"}, LOW = {"78", ""};
    // clang-format off
    const struct { int first, last, off; Kind k; } runs[] = {
        {0x0001, 0x0005, 0, U32},   {0x0018, 0x0019, 340, U32}, {0x001b, 0x001b, 380, U32},
        {0x001d, 0x001d, 416, LOW}, {0x0020, 0x0030, 417, U32}, {0x0045, 0x0048, 565, U32},
        {0x004b, 0x004b, 613, U8},  {0x0050, 0x0053, 614, U32}, {0x0055, 0x005a, 630, U32},
        {0x0070, 0x0072, 654, U32}, {0x0073, 0x0073, 666, W16}, {0x0074, 0x0074, 670, U32},
        {0x0080, 0x0080, 674, U32}, {0x0081, 0x0082, 678, W16}, {0x00a0, 0x00a3, 763, U8},
        {0x00af, 0x00af, 767, U16}, {0x00b0, 0x00b0, 769, U8},  {0x00b5, 0x00b5, 930, U32},
    };
    // clang-format on
    for (const auto& run : runs) {
        const size_t width = hex(run.k.first).size(), n = hex(run.k.second).size();
        for (int id = run.first; id <= run.last; id++) {
            SCOPED_TRACE(id);
            Bytes t = record();
            unsigned char out[6] = {0xee, 0xee, 0xee, 0xee, 0xee, 0xee};
            EXPECT_EQ(set_get(taxi(t), id, kWire, 1, out, 0), n ? "1 " + std::to_string(n) + " " : "1 -1 ");
            EXPECT_EQ(to_hex(t.data() + run.off + (width == 1 ? 1 : 4) * (id - run.first), width), run.k.first);
            EXPECT_EQ(to_hex(out, n + 1), n ? std::string(run.k.second) + " ee" : "ee");
        }
    }
}

// Text IDs, quiet throughout.  r: raw bytes without a terminator, the old
// tail stays; t: terminated; s: raw and set only; f: terminated, and a value
// as long as the field is admitted with its last byte cut.
TEST(Taxi, EveryTextId) {
    // clang-format off
    const struct { int id, off, width; char kind; } cases[] = {
        {0x0010, 20, 32, 'r'},  {0x0011, 52, 32, 'r'},  {0x0012, 84, 32, 'r'},  {0x0013, 116, 64, 't'},
        {0x0014, 180, 32, 'r'}, {0x0015, 212, 32, 'r'}, {0x0016, 244, 32, 'r'}, {0x0017, 276, 64, 't'},
        {0x001a, 348, 32, 'r'}, {0x001c, 384, 32, 's'}, {0x0040, 485, 16, 't'}, {0x0041, 501, 16, 't'},
        {0x0042, 517, 16, 't'}, {0x0043, 533, 16, 't'}, {0x0044, 549, 16, 't'}, {0x0049, 581, 16, 'r'},
        {0x004a, 597, 16, 'r'}, {0x0090, 686, 2, 'r'},  {0x0091, 688, 5, 'r'},  {0x0092, 693, 32, 'r'},
        {0x0093, 725, 32, 'r'}, {0x0094, 757, 6, 'f'},  {0x00b1, 770, 32, 'r'}, {0x00b2, 802, 32, 'r'},
        {0x00b3, 834, 32, 'r'}, {0x00b4, 866, 64, 'r'},
    };
    // clang-format on
    unsigned char text[70], xyz[] = {'X', 'Y', 'Z'};
    for (int i = 0; i < 70; i++) text[i] = static_cast<unsigned char>('a' + i % 26);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        const bool term = c.kind == 't' || c.kind == 'f';
        const int lim = c.kind == 'f' ? c.width : c.width - 1, kept = c.width - 1;
        Bytes t = record(), before = t;
        const std::string said = output_of([&] {
            // One over the limit, or negative: nothing stored.
            EXPECT_EQ(BBTAXI_SetParam(taxi(t), c.id, text, lim + 1), lim + 1);
            EXPECT_EQ(BBTAXI_SetParam(taxi(t), c.id, text, -1), -1);
            EXPECT_EQ(t, before);
            EXPECT_EQ(BBTAXI_SetParam(taxi(t), c.id, text, lim), lim);
            EXPECT_EQ(to_hex(t.data() + c.off, c.width), to_hex(text, kept) + (term ? " 00" : " 5a"));
            t[c.off + kept] = 0;  // as a reset leaves it, so that the get ends there
            for (int buflen : {c.width + 5, 3, 1, 0}) {
                unsigned char out[70];
                const int n = c.kind == 's' || buflen < 1 ? -1 : std::min(kept, buflen - 1);
                EXPECT_EQ(BBTAXI_GetParam(taxi(t), c.id, out, buflen), n) << buflen;
                EXPECT_EQ(std::memcmp(out, text, std::max(n, 0)), 0);
            }
            BBTAXI_SetParam(taxi(t), c.id, xyz, 1);
            EXPECT_EQ(to_hex(t.data() + c.off, kept > 1 ? 3 : 1), kept == 1 ? "58" : term ? "58 00 63" : "58 62 63");
        });
        EXPECT_EQ(said, "");
    }
}

// The ID is checked first, then the buffer, then the record; 0xffff is not
// refused here.
TEST(Taxi, ArgumentChecksInOrder) {
    // clang-format off
    const struct { int id; unsigned char* buf; const char *set_text, *get_text; } cases[] = {
        {0x0000, nullptr, "0x0000 != ParamId", "0x0000 != ParamId"}, {0x0001, nullptr, "NULL != pStr", "NULL != pBuf"},
        {0xffff, nullptr, "NULL != pStr", "NULL != pBuf"}, {0x0001, kWire, "NULL != pTAXIConf", "NULL != pTAXIConf"},
    };
    // clang-format on
    for (const auto& c : cases) {
        EXPECT_EQ(set_get(nullptr, c.id, c.buf, 4, c.buf, 4),
                  std::string("-1 -1 [ASSERT][BBTAXI_SetParam:N]: ") + c.set_text +
                      "\n[ASSERT][BBTAXI_GetParam:N]: " + c.get_text + "\n");
    }
}

// Unknown on both sides, or a silent -1 on get with "Not Find" or an
// accepted set.  The set answers len either way and nothing changes.
TEST(Taxi, UnknownAndSilentIds) {
    // clang-format off
    const struct { std::vector<int> ids; bool set_known, get_silent; } groups[] = {
        {{0x0054, 0x0006, 0x0031, 0x0075, 0x0076, 0x0083, 0x00b6, 0xf000, 0xf009, 0xf00f, 0xf016, 0xffff, 0x10000, -5},
         false, false},
        {{0x0077, 0x0078, 0x0079}, true, true},
        {{0xf001, 0xf004, 0xf008, 0xf010, 0xf013, 0xf015}, false, true},
    };
    // clang-format on
    Bytes t = record(), before = t;
    for (const auto& g : groups) {
        for (int id : g.ids) {
            SCOPED_TRACE(id);
            unsigned char out[8] = {};
            char set_line[64] = "", get_line[64] = "";
            if (!g.set_known) std::snprintf(set_line, 64, "Err [BBTAXI_SetParam():N] Not Find ID:%x \n", unsigned(id));
            if (!g.get_silent) std::snprintf(get_line, 64, "Err [BBTAXI_GetParam():N] Not Find ID:%#x\n", unsigned(id));
            EXPECT_EQ(set_get(taxi(t), id, kWire, 3, out, 8), std::string("3 -1 ") + set_line + get_line);
            EXPECT_EQ(to_hex(out, 8), "00 00 00 00 00 00 00 00");
        }
    }
    EXPECT_EQ(t, before);
}

// The update computes nothing and the verify accepts any record; the typed
// accessors are stubs that answer 0 and touch nothing.
TEST(Taxi, ChecksumAndTypedStubs) {
    Bytes t = record(), before = t;
    unsigned char b = 7, s[4] = {1, 2, 3, 4};
    unsigned short w = 7;
    unsigned u = 7;
    // clang-format off
    const int rs[] = {BBTAXI_SetByteParam(taxi(t), 0x004b, 9),   BBTAXI_GetByteParam(taxi(t), 0x004b, &b),
                      BBTAXI_SetWordParam(taxi(t), 0x00af, 9),   BBTAXI_GetWordParam(taxi(t), 0x00af, &w),
                      BBTAXI_SetDWordParam(taxi(t), 0x0001, 9),  BBTAXI_GetDWordParam(taxi(t), 0x0001, &u),
                      BBTAXI_SetStrParam(taxi(t), 0x0010, s, 4), BBTAXI_GetStrParam(taxi(t), 0x0010, s, 4),
                      BBTAXI_UpdateCheckSum(taxi(t)),            BBTAXI_UpdateCheckSum(nullptr)};
    // clang-format on
    for (int r : rs) EXPECT_EQ(r, 0);
    EXPECT_EQ(t, before);
    EXPECT_EQ(b + w + u, 21u);
    EXPECT_EQ(to_hex(s, 4), "01 02 03 04");
    int v = -7, r = -7;
    EXPECT_EQ(output_of([&] { v = BBTAXI_VerifyCheckSum(taxi(t)), r = BBTAXI_VerifyCheckSum(nullptr); }),
              "[ASSERT][BBTAXI_VerifyCheckSum:N]: NULL != pTAXIConf\n");
    EXPECT_EQ(std::make_pair(v, r), std::make_pair(1, 0));
}

}  // namespace
