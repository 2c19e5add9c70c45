// device_test.cpp - device identity and String_copy (strlcpy: libc_strlcpy_test.cpp).
#include <cstring>
#include <string>

#include "device/identity.h"
#include "test_util.h"

using bbtest::output_of;

namespace {

TEST(Mac, ReadsFixtureFiles) {
    const std::string small = "Err [GetMacFormFile():N] MAC Size less than 6\n", none = "ee ee ee ee ee ee ee";
    // clang-format off
    const struct { const char* file; int size, result; std::string mac, text; } cases[] = {
        {"mac_normal", 7, 6, "00 1a 2b 3c 4d 5e ee", ""},
        {"mac_truncated", 7, 6, "00 1a 2b 2b 2b 2b ee", ""},  // repeats the last byte that scanned
        {"mac_garbage", 7, 6, "00 00 00 00 00 00 ee", ""},
        {"mac_empty", 7, 0, none, "Err [GetMacFormFile():N] Read MAC Fail:0\n"},
        {"no_such_file", 7, 0, none, "Err [GetMacFormFile():N] Open MAC File Err:-1\n"},
        {"mac_normal", 6, 0, none, small},
        {"mac_normal", -1, 0, none, small},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.file << " size " << c.size);
        const std::string path = std::string(BBCONF_TEST_DATA_DIR) + "/" + c.file;
        unsigned char mac[8];
        std::memset(mac, 0xee, sizeof mac);
        int r = 1;
        EXPECT_EQ(output_of([&] { r = bbconf::read_mac_file(path.c_str(), mac, c.size); }), c.text);
        EXPECT_EQ(r, c.result);
        EXPECT_EQ(bbtest::to_hex(mac, 7), c.mac);
    }
}

// A size of 0 leaves the buffer alone; a null buffer is printed as such.
TEST(Identity, FixedTexts) {
    // clang-format off
    const struct { char* (*fn)(char*, int); const char* label; int size; std::string want; } cases[] = {
        {GetDeviceTerminalType, "GetDeviceTerminalType():N] TerminalType", 3, "MD"},
        {GetDeviceTerminalType, "GetDeviceTerminalType():N] TerminalType", 1, ""},
        {GetDeviceFactoryId, "GetDeviceFactoryId():N] FactoryId", 64, "40917"},
        {GetDeviceFactoryId, "GetDeviceFactoryId():N] FactoryId", 5, "4091"},
    };
    // clang-format on
    for (const auto& c : cases) {
        char buf[8];
        std::memset(buf, 0x7f, sizeof buf);
        char* r = nullptr;
        EXPECT_EQ(output_of([&] { r = c.fn(buf, c.size); }), std::string("Inf [") + c.label + ":" + c.want + "\n");
        EXPECT_EQ(r, buf);
        EXPECT_EQ(std::string(buf, c.want.size() + 2), c.want + '\0' + '\x7f');
    }
    char buf[4] = {'x', 'y', 'z', 'w'};
    EXPECT_EQ(output_of([&] { GetDeviceTerminalType(buf, 0); }), "Inf [GetDeviceTerminalType():N] TerminalType:\n");
    EXPECT_EQ(std::string(buf, 4), "xyzw");
    EXPECT_EQ(output_of([&] { EXPECT_EQ(GetDeviceFactoryId(nullptr, 8), nullptr); }),
              "Inf [GetDeviceFactoryId():N] FactoryId:(null)\n");
}

// srcLen bytes are copied, NULs included, up to dstSize - 1.
TEST(Copies, StringCopy) {
    char src[48];
    for (int i = 0; i < 48; i++) src[i] = static_cast<char>('a' + i % 26);
    src[3] = '\0';
    const struct { int srcLen, dstSize, copied; } cases[] = {{5, 32, 5}, {40, 32, 31}, {0, 32, 0}, {6, 6, 5}};
    for (const auto& c : cases) {
        char dst[40];
        std::memset(dst, 0x7f, sizeof dst);
        EXPECT_EQ(String_copy(src, c.srcLen, dst, c.dstSize), dst);
        EXPECT_EQ(std::string(dst, c.copied + 2), std::string(src, c.copied) + '\0' + '\x7f');
    }
}

}  // namespace
