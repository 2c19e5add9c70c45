// The hex parser and the 0x8103 / 0x0104 parameter lists.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "body.h"

namespace {

using bbtool::BodyParam;
using Bytes = std::vector<uint8_t>;

TEST(ToolHex, ParsesPairsFormatsLowerCaseAndNamesTheFirstFault) {
    const char* cases[][3] = {
        // text, the bytes as to_hex gives them, the error
        {"", "", ""},
        {"00ff7F", "00ff7f", ""},
        {" 0a\tBc\r\n01 ", "0abc01", ""},
        {"0 1", "", "malformed hex: the digit at position 1 has no partner (hex needs two digits per byte)"},
        {"abc", "", "malformed hex: the digit at position 3 has no partner (hex needs two digits per byte)"},
        {"0g", "", "malformed hex: 'g' at position 2 is not a hex digit"},
        {"hex:01", "", "malformed hex: 'h' at position 1 is not a hex digit"},
        {"0x01", "", "malformed hex: 'x' at position 2 is not a hex digit"},
        {"01\x01", "", "malformed hex: byte 0x01 at position 3 is not a hex digit"},
        {"01,02", "", "malformed hex: ',' at position 3 is not a hex digit"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        Bytes out = {0xee};  // must be replaced, also on failure
        std::string err;
        EXPECT_EQ(bbtool::parse_hex(c[0], out, err), *c[2] == '\0');
        EXPECT_EQ(bbtool::to_hex(out), c[1]);
        EXPECT_EQ(err, c[2]);
    }
}

TEST(ToolBody, ParsesParameterListsAndRefusesTruncatedOrOverLongOnes) {
    const char* cases[][3] = {
        // the body as hex, the parameters parsed ("ID:value ..."), the error
        {"00", "", ""},
        {"01 00000001 04 0000001e", "1:0000001e ", ""},
        {"01 0000f364 00", "f364: ", ""},
        {"02 12345678 01 aa 00000010 02 6162", "12345678:aa 10:6162 ", ""},  // high ID bytes kept
        {"", "", "truncated body: it is empty (the first byte is the parameter count)"},
        {"01", "",
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 0 bytes remain"},
        {"01 000000", "",
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 3 bytes remain"},
        {"01 00000001", "",
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 4 bytes remain"},
        {"01 00000001 04 010203", "",
         "truncated body: parameter 1 of 1 (ID 0x0001) declares 4 value bytes, only 3 remain"},
        {"02 00000001 01 09", "",
         "truncated body: parameter 2 of 2 at byte 7 needs a 4-byte ID and a length byte, only 0 bytes remain"},
        {"01 00000001 01 09 00", "", "over-long body: 1 byte follows the last of the 1 parameter the count announces"},
        {"00 0000", "", "over-long body: 2 bytes follow the last of the 0 parameters the count announces"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        Bytes body;
        std::string err;
        ASSERT_TRUE(bbtool::parse_hex(c[0], body, err));
        std::vector<BodyParam> out = {{1, {1}}};  // must be replaced, also on failure
        EXPECT_EQ(bbtool::parse_param_body(body.data(), body.size(), out, err), *c[2] == '\0');
        std::string got;
        for (const BodyParam& p : out) {
            char id[16];
            std::snprintf(id, sizeof id, "%x:", p.id);
            got += id + bbtool::to_hex(p.value) + " ";
        }
        EXPECT_EQ(got, c[1]);
        EXPECT_EQ(err, c[2]);
    }
}

TEST(ToolBody, BuildsTheSameLayoutUpToOneByteCounts) {
    Bytes body;
    std::string err;
    ASSERT_TRUE(
        bbtool::build_param_body({{0x0001, {0, 0, 0, 0x14}}, {0xf364, Bytes(255, 0x5a)}, {0x0013, {}}}, body, err));
    // count 3; 0x0001 = 20; 0xf364 with 255 bytes; 0x0013 empty
    EXPECT_EQ(bbtool::to_hex(body), "030000000104000000140000f364ff" + bbtool::to_hex(Bytes(255, 0x5a)) + "0000001300");
    EXPECT_FALSE(bbtool::build_param_body({{0x0001, Bytes(256, 0)}}, body, err));
    EXPECT_EQ(err, "the value of 0x0001 is 256 bytes, a body value holds at most 255");
    EXPECT_TRUE(body.empty());
    EXPECT_FALSE(bbtool::build_param_body(std::vector<BodyParam>(256, BodyParam{1, {}}), body, err));
    EXPECT_EQ(err, "a body carries at most 255 parameters, 256 were asked for");
    EXPECT_TRUE(bbtool::build_param_body(std::vector<BodyParam>(255, BodyParam{1, {}}), body, err));
    EXPECT_EQ(body[0], 255);
}

}  // namespace
