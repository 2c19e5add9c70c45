// The hex parser, the words for list faults and the GBK text conversion.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "body.h"
#include "text.h"

namespace {

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
        {"0x01", "", "malformed hex: 'x' at position 2 is not a hex digit"},
        {"01\x01", "", "malformed hex: byte 0x01 at position 3 is not a hex digit"},
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

// The library's list faults in the tool's words: the count, the items found and where it broke.
TEST(ToolBody, NamesTheFaultsOfLists) {
    const char* cases[][2] = {
        {"", "empty list: the first byte is the count"},
        {"01 00000001", "truncated list: the count announces 1 item, 0 found whole; item 1 at byte 1 needs 5 bytes, 4 remain"},
        {"01 00000013 04 010203",
         "truncated list: the count announces 1 item, 0 found whole; item 1 (ID 0x0013) at byte 1 needs 9 bytes, 8 remain"},
        {"7E8103000A000123456789000A0100000001040000000A057E",
         "truncated list: the count announces 126 items, 1 found whole; item 2 (ID 0x1234567) at byte 6 needs 142 "
         "bytes, 19 remain"},
        {"01 00000001 01 09 00", "over-long list: 1 byte follows the last of the 1 item the count announces"},
        {"00 0000", "over-long list: 2 bytes follow the last of the 0 items the count announces"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        Bytes list;
        std::string err;
        ASSERT_TRUE(bbtool::parse_hex(c[0], list, err));
        bbconf::ListFault f;
        ASSERT_NE(bbconf::check_list(list.data(), list.size(), &f), bbconf::ListError::None);
        EXPECT_EQ(bbtool::list_fault_text(f, "list"), c[1]);
    }
}

// GBK on the wire, UTF-8 on the terminal; bytes that do not convert shown escaped.
TEST(ToolText, GbkShownAsUtf8AndTypedBack) {
    const char* cases[][2] = {
        {"d4c142383838383820202020", "\"粤B88888    \""},
        {"bea941313233343520", "\"京A12345 \""},
        {"41e40a22", "\"A\\xe4\\n\\\"\""},
        {"41e4", "\"A\\xe4\""},
        {"ff41", "\"\\xffA\""},
        {"", "\"\""},
    };
    for (const auto& c : cases) {
        Bytes gbk;
        std::string err;
        ASSERT_TRUE(bbtool::parse_hex(c[0], gbk, err));
        EXPECT_EQ(bbtool::display_text(gbk), c[1]) << c[0];
    }
    Bytes out;
    std::string err;
    ASSERT_TRUE(bbtool::utf8_to_gbk("京A12345", out, err));
    EXPECT_EQ(bbtool::to_hex(out), "bea9413132333435");
    EXPECT_FALSE(bbtool::utf8_to_gbk("\xe4\xba", out, err));         // cut UTF-8
    EXPECT_FALSE(bbtool::utf8_to_gbk("\xf0\x9f\x98\x80", out, err));  // no GBK form
    EXPECT_EQ(err, "the text is not UTF-8 or has a character GBK cannot write");
}

}  // namespace
