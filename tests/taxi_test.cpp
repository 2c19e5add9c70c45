// taxi_test.cpp - the taxi record's dictionary: argument checks, unknown IDs,
// the checksum entry points and the typed stubs (its numbers and texts are
// checked in frame_test.cpp, its reset in defaults_test.cpp).
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
