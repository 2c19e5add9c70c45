// crc_test.cpp - CRC-CCITT and the record checksum.
#include <cstring>
#include <random>
#include <vector>

#include "common/crc.h"
#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;

namespace {

// The bitwise definition, independent of the library's tables.
unsigned short bitwise(unsigned short crc, const unsigned char* p, size_t n) {
    for (size_t i = 0; i < n; i++) {
        crc ^= static_cast<unsigned short>(p[i] << 8);
        for (int b = 0; b < 8; b++) {
            crc = static_cast<unsigned short>((crc & 0x8000) ? (crc << 1) ^ 0x1021 : crc << 1);
        }
    }
    return crc;
}

TEST(Crc, SingleStepMatchesDefinitionForEveryStateAndByte) {
    for (unsigned crc = 0; crc < 0x10000; crc += 0x101) {
        for (unsigned b = 0; b < 256; b++) {
            unsigned char byte = static_cast<unsigned char>(b);
            unsigned short want = bitwise(static_cast<unsigned short>(crc), &byte, 1);
            ASSERT_EQ(__Cal_CRC_CCITT(static_cast<unsigned short>(crc), byte), want);
            ASSERT_EQ(BBTAXI_Cal_CRC_CCITT(static_cast<unsigned short>(crc), byte), want);
        }
    }
}

TEST(Crc, BulkMatchesDefinitionForEveryLengthAndAlignment) {
    unsigned char check[] = "123456789";
    EXPECT_EQ(bitwise(0xffff, check, 9), 0x29b1);  // the standard check value of CRC-CCITT
    EXPECT_EQ(CMN_Get_CRC_CCITT(0xabcd, nullptr, 0), 0xabcd);
    EXPECT_EQ(BBTAXI_Get_CRC_CCITT(0xabcd, nullptr, 0), 0xabcd);
    std::mt19937 rng(7);
    std::vector<unsigned char> buf(BB_CONF_LEN + 16);
    for (auto& b : buf) b = static_cast<unsigned char>(rng());
    for (size_t start = 0; start < 8; start++) {
        for (unsigned len = 0; len < 80; len++) {
            const unsigned short init = static_cast<unsigned short>(rng());
            const unsigned short want = bitwise(init, buf.data() + start, len);
            ASSERT_EQ(CMN_Get_CRC_CCITT(init, buf.data() + start, len), want);
            ASSERT_EQ(BBTAXI_Get_CRC_CCITT(init, buf.data() + start, len), want);
        }
    }
    EXPECT_EQ(CMN_Get_CRC_CCITT(0xabcd, buf.data() + 3, BB_CONF_LEN), bitwise(0xabcd, buf.data() + 3, BB_CONF_LEN));
}

// Update reports and returns the record's CRC without touching it; verify
// accepts anything, silently.
TEST(CheckSum, UpdateAndVerify) {
    Conf conf;
    for (size_t i = 0; i < sizeof conf.rec; i++) conf.bytes()[i] = static_cast<unsigned char>(i * 7);
    const Conf before = conf;
    const unsigned short want = bitwise(0xabcd, conf.bytes(), BB_CONF_LEN);
    int r = 0;
    char line[80];
    std::snprintf(line, sizeof line, "Inf [CMN_UpdateCheckSum():N] Check Len:3386/3386 Sum:%x\n", want);
    EXPECT_EQ(output_of([&] { r = CMN_UpdateCheckSum(&conf.rec); }), line);
    EXPECT_EQ(r, want);
    EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
    EXPECT_EQ(output_of([&] { r = CMN_UpdateCheckSum(nullptr); }), "[ASSERT][CMN_UpdateCheckSum:N]: NULL != pbbConf\n");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(output_of([&] { r = CMN_VerifyCheckSum(nullptr) + CMN_VerifyCheckSum(&conf.rec); }), "");
    EXPECT_EQ(r, 2);
}

}  // namespace
