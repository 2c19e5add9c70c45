// The hex parser and the 0x8103 / 0x0104 parameter lists.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "body.h"

namespace {

using bbtool::BodyParam;
using Bytes = std::vector<uint8_t>;

TEST(ToolHex, ParsesPairsAndNamesTheFirstFault) {
    struct Case {
        const char* text;
        bool ok;
        Bytes bytes;
        const char* error;
    };
    const Case cases[] = {
        {"", true, {}, ""},
        {"00ff7F", true, {0x00, 0xff, 0x7f}, ""},
        {" 0a\tBc\r\n01 ", true, {0x0a, 0xbc, 0x01}, ""},
        {"0 1", false, {}, "malformed hex: the digit at position 1 has no partner (hex needs two digits per byte)"},
        {"abc", false, {}, "malformed hex: the digit at position 3 has no partner (hex needs two digits per byte)"},
        {"0g", false, {}, "malformed hex: 'g' at position 2 is not a hex digit"},
        {"hex:01", false, {}, "malformed hex: 'h' at position 1 is not a hex digit"},
        {"0x01", false, {}, "malformed hex: 'x' at position 2 is not a hex digit"},
        {"01\x01", false, {}, "malformed hex: byte 0x01 at position 3 is not a hex digit"},
        {"01,02", false, {}, "malformed hex: ',' at position 3 is not a hex digit"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Bytes out = {0xee};  // must be replaced, also on failure
        std::string err;
        EXPECT_EQ(bbtool::parse_hex(c.text, out, err), c.ok);
        EXPECT_EQ(out, c.bytes);
        EXPECT_EQ(err, c.error);
    }
}

TEST(ToolHex, FormatsLowerCase) {
    const Bytes b = {0x00, 0x0f, 0xa0, 0xff};
    EXPECT_EQ(bbtool::to_hex(b), "000fa0ff");
    EXPECT_EQ(bbtool::to_hex(Bytes{}), "");
}

TEST(ToolBody, ParsesParameterLists) {
    struct Case {
        const char* what;
        Bytes body;
        std::vector<BodyParam> params;
    };
    const Case cases[] = {
        {"no parameters", {0x00}, {}},
        {"one u32", {0x01, 0, 0, 0, 0x01, 4, 0, 0, 0, 0x1e}, {{0x0001, {0, 0, 0, 0x1e}}}},
        {"an empty value", {0x01, 0, 0, 0xf3, 0x64, 0}, {{0xf364, {}}}},
        {"two values, high ID bytes kept",
         {0x02, 0x12, 0x34, 0x56, 0x78, 1, 0xaa, 0, 0, 0, 0x10, 2, 'a', 'b'},
         {{0x12345678, {0xaa}}, {0x0010, {'a', 'b'}}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<BodyParam> out;
        std::string err;
        ASSERT_TRUE(bbtool::parse_param_body(c.body.data(), c.body.size(), out, err)) << err;
        ASSERT_EQ(out.size(), c.params.size());
        for (size_t i = 0; i < out.size(); i++) {
            EXPECT_EQ(out[i].id, c.params[i].id);
            EXPECT_EQ(out[i].value, c.params[i].value);
        }
    }
}

TEST(ToolBody, RefusesTruncatedAndOverLongBodies) {
    struct Case {
        const char* what;
        Bytes body;
        const char* error;
    };
    const Case cases[] = {
        {"empty", {}, "truncated body: it is empty (the first byte is the parameter count)"},
        {"count without parameters", {0x01},
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 0 bytes remain"},
        {"ID cut short", {0x01, 0, 0, 0},
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 3 bytes remain"},
        {"length byte missing", {0x01, 0, 0, 0, 1},
         "truncated body: parameter 1 of 1 at byte 1 needs a 4-byte ID and a length byte, only 4 bytes remain"},
        {"value one byte short", {0x01, 0, 0, 0, 1, 4, 1, 2, 3},
         "truncated body: parameter 1 of 1 (ID 0x0001) declares 4 value bytes, only 3 remain"},
        {"second parameter missing", {0x02, 0, 0, 0, 1, 1, 9},
         "truncated body: parameter 2 of 2 at byte 7 needs a 4-byte ID and a length byte, only 0 bytes remain"},
        {"one byte too many", {0x01, 0, 0, 0, 1, 1, 9, 0},
         "over-long body: 1 byte follows the last of the 1 parameter the count announces"},
        {"count zero with data", {0x00, 0, 0},
         "over-long body: 2 bytes follow the last of the 0 parameters the count announces"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<BodyParam> out = {{1, {1}}};
        std::string err;
        EXPECT_FALSE(bbtool::parse_param_body(c.body.data(), c.body.size(), out, err));
        EXPECT_TRUE(out.empty());
        EXPECT_EQ(err, c.error);
    }
}

TEST(ToolBody, BuildsWhatItParses) {
    const std::vector<BodyParam> params = {{0x0001, {0, 0, 0, 0x14}}, {0xf364, Bytes(255, 0x5a)}, {0x0013, {}}};
    Bytes body;
    std::string err;
    ASSERT_TRUE(bbtool::build_param_body(params, body, err));
    ASSERT_EQ(body.size(), 1u + 3 * 5 + 4 + 255);
    EXPECT_EQ(body[0], 3);
    EXPECT_EQ(Bytes(body.begin() + 1, body.begin() + 10), (Bytes{0, 0, 0, 1, 4, 0, 0, 0, 0x14}));
    std::vector<BodyParam> back;
    ASSERT_TRUE(bbtool::parse_param_body(body.data(), body.size(), back, err));
    ASSERT_EQ(back.size(), 3u);
    EXPECT_EQ(back[1].id, 0xf364u);
    EXPECT_EQ(back[1].value, Bytes(255, 0x5a));
}

TEST(ToolBody, BuildRefusesWhatOneByteCannotCount) {
    Bytes body = {0x77};
    std::string err;
    EXPECT_FALSE(bbtool::build_param_body({{0x0001, Bytes(256, 0)}}, body, err));
    EXPECT_EQ(err, "the value of 0x0001 is 256 bytes, a body value holds at most 255");
    EXPECT_TRUE(body.empty());
    EXPECT_FALSE(bbtool::build_param_body(std::vector<BodyParam>(256, BodyParam{1, {}}), body, err));
    EXPECT_EQ(err, "a body carries at most 255 parameters, 256 were asked for");
    EXPECT_TRUE(bbtool::build_param_body(std::vector<BodyParam>(255, BodyParam{1, {}}), body, err));
    EXPECT_EQ(body[0], 255);
}

}  // namespace
