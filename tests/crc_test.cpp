// crc_test.cpp - CRC-CCITT, the record checksum and the profile hooks.
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

TEST(Crc, KnownValues) {
    unsigned char check[] = "123456789";
    struct {
        unsigned short init;
        unsigned short want;
    } cases[] = {{0xffff, 0x29b1}, {0xabcd, 0x7003}, {0x0000, 0x31c3}};
    for (auto c : cases) {
        EXPECT_EQ(CMN_Get_CRC_CCITT(c.init, check, 9), c.want);
        EXPECT_EQ(BBTAXI_Get_CRC_CCITT(c.init, check, 9), c.want);
    }
    EXPECT_EQ(CMN_Get_CRC_CCITT(0xabcd, nullptr, 0), 0xabcd);
    EXPECT_EQ(BBTAXI_Get_CRC_CCITT(0xabcd, nullptr, 0), 0xabcd);
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
    std::mt19937 rng(7);
    std::vector<unsigned char> buf(BB_CONF_LEN + 16);
    for (auto& b : buf) b = static_cast<unsigned char>(rng());
    for (size_t start = 0; start < 8; start++) {
        for (size_t len = 0; len < 80; len++) {
            unsigned short init = static_cast<unsigned short>(rng());
            ASSERT_EQ(CMN_Get_CRC_CCITT(init, buf.data() + start, static_cast<unsigned>(len)),
                      bitwise(init, buf.data() + start, len));
        }
    }
    EXPECT_EQ(CMN_Get_CRC_CCITT(0xabcd, buf.data() + 3, BB_CONF_LEN), bitwise(0xabcd, buf.data() + 3, BB_CONF_LEN));
}

TEST(CheckSum, UpdateReportsAndReturnsTheRecordCrc) {
    Conf conf;
    for (size_t i = 0; i < sizeof conf.rec; i++) conf.bytes()[i] = static_cast<unsigned char>(i * 7);
    Conf before = conf;
    unsigned short want = bitwise(0xabcd, conf.bytes(), BB_CONF_LEN);
    int r = 0;
    char line[80];
    std::snprintf(line, sizeof line, "Inf [CMN_UpdateCheckSum():N] Check Len:3386/3386 Sum:%x\n", want);
    EXPECT_EQ(output_of([&] { r = CMN_UpdateCheckSum(&conf.rec); }), line);
    EXPECT_EQ(r, want);
    EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);

    EXPECT_EQ(output_of([&] { r = CMN_UpdateCheckSum(nullptr); }),
              "[ASSERT][CMN_UpdateCheckSum:N]: NULL != pbbConf\n");
    EXPECT_EQ(r, 0);
}

TEST(CheckSum, VerifyAcceptsEverything) {
    Conf conf;
    EXPECT_EQ(output_of([&] {
                  EXPECT_EQ(CMN_VerifyCheckSum(nullptr), 1);
                  conf.bytes()[100] ^= 0xff;
                  EXPECT_EQ(CMN_VerifyCheckSum(&conf.rec), 1);
              }),
              "");
}

TEST(Profiles, EmptyHooksChangeNothing) {
    void (*hooks[])(tagBB_CONF_ST*) = {InitShenZhenPurnoBBParam, InitKelvoZtBBParam, InitShenZhenTamsaBBParam,
                                       InitGzZtBbParam, InitKelvoZtShanXiBBParam};
    for (auto hook : hooks) {
        Conf conf;
        std::memset(&conf.rec, 0xa5, sizeof conf.rec);
        Conf before = conf;
        EXPECT_EQ(output_of([&] { hook(&conf.rec); }), "");
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
    }
}

TEST(Profiles, MuckTruckProfileWritesItsFieldsOnly) {
    Conf conf;
    std::memset(&conf.rec, 0xa5, sizeof conf.rec);
    Conf before = conf;
    InitZhaTuBbParam(&conf.rec);
    // 2273 .. 2298, little-endian words.
    const unsigned char want[26] = {0, 3, 0x2c, 0x01, 0x58, 0x02, 0, 0, 0xbc, 0x02, 0, 0, 0,
                                    0, 0, 0, 1,    1,    1,    1,    1, 1, 1,    1,    0x00, 0x01};
    EXPECT_EQ(std::memcmp(conf.bytes() + 2273, want, sizeof want), 0);
    std::memcpy(conf.bytes() + 2273, before.bytes() + 2273, sizeof want);
    EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);

    Conf once, twice;
    InitZhaTuBbParam(&once.rec);
    InitZhaTuBbParam(&twice.rec);
    InitZhaTuBbParam(&twice.rec);
    EXPECT_EQ(std::memcmp(&once.rec, &twice.rec, sizeof once.rec), 0);
}

}  // namespace
