// device_test.cpp - device identity and the bounded copies.
#include <cstring>
#include <string>

#include "device/identity.h"
#include "test_util.h"

using bbtest::output_of;

namespace {

std::string data(const char* name) { return std::string(BBCONF_TEST_DATA_DIR) + "/" + name; }

TEST(Mac, ReadsFixtureFiles) {
    struct {
        const char* file;
        int result;
        const char* bytes;  // expected mac[0..5], "" when untouched
        const char* text;
    } cases[] = {
        {"mac_normal", 6, "00 1a 2b 3c 4d 5e", ""},
        // A truncated file repeats the last byte that scanned.
        {"mac_truncated", 6, "00 1a 2b 2b 2b 2b", ""},
        {"mac_garbage", 6, "00 00 00 00 00 00", ""},
        {"mac_empty", 0, "", "Err [GetMacFormFile():N] Read MAC Fail:0\n"},
        {"no_such_file", 0, "", "Err [GetMacFormFile():N] Open MAC File Err:-1\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        unsigned char mac[8];
        std::memset(mac, 0xee, sizeof mac);
        int r = 0;
        EXPECT_EQ(output_of([&] { r = bbconf::read_mac_file(data(c.file).c_str(), mac, 7); }), c.text);
        EXPECT_EQ(r, c.result);
        if (*c.bytes) {
            EXPECT_EQ(bbtest::to_hex(mac, 6), c.bytes);
        } else {
            EXPECT_EQ(bbtest::to_hex(mac, 6), "ee ee ee ee ee ee");
        }
        EXPECT_EQ(mac[6], 0xee);
    }
}

TEST(Mac, RefusesSmallBuffers) {
    unsigned char mac[8] = {0};
    for (int size : {6, 0, -1}) {
        int r = 1;
        EXPECT_EQ(output_of([&] { r = bbconf::read_mac_file(data("mac_normal").c_str(), mac, size); }),
                  "Err [GetMacFormFile():N] MAC Size less than 6\n");
        EXPECT_EQ(r, 0);
        EXPECT_EQ(output_of([&] { r = GetMacFormFile(mac, size); }),
                  "Err [GetMacFormFile():N] MAC Size less than 6\n");
    }
}

TEST(Identity, FixedTexts) {
    struct {
        char* (*fn)(char*, int);
        const char* label;
        int size;
        const char* want;
    } cases[] = {
        {GetDeviceTerminalType, "GetDeviceTerminalType():N] TerminalType", 64, "MDVR"},
        {GetDeviceTerminalType, "GetDeviceTerminalType():N] TerminalType", 3, "MD"},
        {GetDeviceTerminalType, "GetDeviceTerminalType():N] TerminalType", 1, ""},
        {GetDeviceFactoryId, "GetDeviceFactoryId():N] FactoryId", 64, "40917"},
        {GetDeviceFactoryId, "GetDeviceFactoryId():N] FactoryId", 5, "4091"},
    };
    for (const auto& c : cases) {
        char buf[80];
        std::memset(buf, 0x7f, sizeof buf);
        char* r = nullptr;
        EXPECT_EQ(output_of([&] { r = c.fn(buf, c.size); }), std::string("Inf [") + c.label + ":" + c.want + "\n");
        EXPECT_EQ(r, buf);
        EXPECT_STREQ(buf, c.want);
        EXPECT_EQ(buf[std::strlen(c.want) + 1], 0x7f);
    }
    char buf[4] = {'x', 'y', 'z', 'w'};
    EXPECT_EQ(output_of([&] { GetDeviceTerminalType(buf, 0); }),
              "Inf [GetDeviceTerminalType():N] TerminalType:\n");
    EXPECT_EQ(std::string(buf, 4), "xyzw");
    EXPECT_EQ(output_of([&] { EXPECT_EQ(GetDeviceFactoryId(nullptr, 8), nullptr); }),
              "Inf [GetDeviceFactoryId():N] FactoryId:(null)\n");
}

TEST(Copies, Strlcpy) {
    struct {
        const char* src;
        unsigned size;
        const char* want;
        unsigned ret;
    } cases[] = {{"abcdef", 4, "abc", 6}, {"abcdef", 7, "abcdef", 6}, {"abcdef", 1, "", 6}, {"", 5, "", 0}};
    for (const auto& c : cases) {
        char dst[16];
        std::memset(dst, 0x7f, sizeof dst);
        EXPECT_EQ(strlcpy(dst, c.src, c.size), c.ret);
        EXPECT_STREQ(dst, c.want);
        EXPECT_EQ(dst[std::strlen(c.want) + 1], 0x7f);
    }
    char dst[2] = {'q', 'q'};
    EXPECT_EQ(strlcpy(dst, "abc", 0), 3u);
    EXPECT_EQ(dst[0], 'q');
}

TEST(Copies, StringCopy) {
    char src[48];
    for (int i = 0; i < 48; i++) src[i] = static_cast<char>('a' + i % 26);
    src[3] = '\0';  // not a stop: String_copy copies srcLen bytes
    struct {
        int srcLen, dstSize, copied;
    } cases[] = {{5, 32, 5}, {40, 32, 31}, {32, 32, 31}, {0, 32, 0}, {6, 6, 5}};
    for (const auto& c : cases) {
        char dst[40];
        std::memset(dst, 0x7f, sizeof dst);
        EXPECT_EQ(String_copy(src, c.srcLen, dst, c.dstSize), dst);
        EXPECT_EQ(std::memcmp(dst, src, c.copied), 0);
        EXPECT_EQ(dst[c.copied], '\0');
        EXPECT_EQ(dst[c.copied + 1], 0x7f);
    }
}

}  // namespace
