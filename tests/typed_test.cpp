// typed_test.cpp - the byte, word, dword and string wrappers: the wire
// value they build, what each leaves in the output on failure, and the
// refusal of IDs wider than the variable.
#include <cstring>
#include <string>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

TEST(Typed, RoundTripsAtTheRightOffset) {
    Conf conf;
    EXPECT_EQ(CMN_SetDWordParam(&conf.rec, 0x0001, 30), 4);
    unsigned int v = 0;
    EXPECT_EQ(CMN_GetDWordParam(&conf.rec, 0x0001, &v), 4);
    EXPECT_EQ(v, 30u);
    EXPECT_EQ(to_hex(conf.bytes(), 4), "1e 00 00 00");

    EXPECT_EQ(CMN_SetWordParam(&conf.rec, 0x0031, 0x1234), 2);
    EXPECT_EQ(to_hex(conf.bytes() + 472, 2), "34 12");
    unsigned short w = 0;
    EXPECT_EQ(CMN_GetWordParam(&conf.rec, 0x0031, &w), 2);
    EXPECT_EQ(w, 0x1234);

    EXPECT_EQ(CMN_SetByteParam(&conf.rec, 0x0084, 0xa7), 1);
    EXPECT_EQ(conf.bytes()[1176], 0xa7);
    unsigned char b = 0;
    EXPECT_EQ(CMN_GetByteParam(&conf.rec, 0x0084, &b), 1);
    EXPECT_EQ(b, 0xa7);
}

// Province and city report 4 while carrying their 16-bit value.
TEST(Typed, ProvinceReportsFour) {
    Conf conf;
    EXPECT_EQ(CMN_SetWordParam(&conf.rec, 0x0081, 0x002c), 2);
    unsigned short w = 0;
    EXPECT_EQ(CMN_GetWordParam(&conf.rec, 0x0081, &w), 4);
    EXPECT_EQ(w, 0x002c);
}

// Unknown IDs: the word and dword outputs become 0, the byte keeps its value.
TEST(Typed, UnknownIdOutputs) {
    Conf conf;
    unsigned char b = 0x5a;
    unsigned short w = 0xbeef;
    unsigned int d = 0xdeadbeef;
    int rb = 0, rw = 0, rd = 0;
    std::string out = output_of([&] {
        rb = CMN_GetByteParam(&conf.rec, 0x0008, &b);
        rw = CMN_GetWordParam(&conf.rec, 0x0008, &w);
        rd = CMN_GetDWordParam(&conf.rec, 0x0008, &d);
    });
    EXPECT_EQ(rb, -1);
    EXPECT_EQ(rw, -1);
    EXPECT_EQ(rd, -1);
    EXPECT_EQ(b, 0x5a);
    EXPECT_EQ(w, 0);
    EXPECT_EQ(d, 0u);
    const std::string line = "Err [CMN_GetParam():N] Not Find ID:0x8\n";
    EXPECT_EQ(out, line + line + line);
}

// A null record is refused by the dictionary; the word getter still stores 0.
TEST(Typed, NullRecordAndNullOutput) {
    unsigned short w = 0x1111;
    int r = 0;
    EXPECT_EQ(output_of([&] { r = CMN_GetWordParam(nullptr, 0x0031, &w); }),
              "[ASSERT][CMN_GetParam:N]: NULL != pbbConf\n");
    EXPECT_EQ(r, -1);
    EXPECT_EQ(w, 0);
    Conf conf;
    EXPECT_EQ(output_of([&] { r = CMN_GetWordParam(&conf.rec, 0x0031, nullptr); }),
              "[ASSERT][CMN_GetWordParam:N]: NULL != out\n");
    EXPECT_EQ(r, -1);
    EXPECT_EQ(output_of([&] { r = CMN_GetDWordParam(&conf.rec, 0x0001, nullptr); }),
              "[ASSERT][CMN_GetDWordParam:N]: NULL != out\n");
    EXPECT_EQ(r, -1);
    EXPECT_EQ(output_of([&] { r = CMN_GetByteParam(&conf.rec, 0x0084, nullptr); }),
              "[ASSERT][CMN_GetParam:N]: NULL != pBuf\n");
    EXPECT_EQ(r, -1);
}

enum Getter { kByte, kWord, kDWord };

struct WideCase {
    const char* name;
    Getter getter;
    int id;
};

// IDs whose get writes more than the variable holds are refused silently
// and leave the variable as it was.
TEST(Typed, GettersRefuseWiderIds) {
    const WideCase cases[] = {
        {"u32 via byte", kByte, 0x0001},       {"u16 via byte", kByte, 0x0031},
        {"u16 ret 4 via byte", kByte, 0x0081}, {"can id via byte", kByte, 0x0110},
        {"ch list via byte", kByte, 0x0076},   {"vendor u32 via byte", kByte, 0xf202},
        {"u32 via word", kWord, 0x0001},       {"can id via word", kWord, 0x0110},
        {"ch list via word", kWord, 0x0076},   {"vendor u32 via word", kWord, 0xc223},
        {"can id via dword", kDWord, 0x0110},  {"ch list via dword", kDWord, 0x0076},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Conf conf;
        std::memset(conf.bytes(), 0x77, sizeof conf.rec);
        Conf before = conf;
        unsigned char b = 0x5a;
        unsigned short w = 0xbeef;
        unsigned int d = 0xdeadbeef;
        int r = 0;
        std::string out = output_of([&] {
            if (c.getter == kByte) r = CMN_GetByteParam(&conf.rec, c.id, &b);
            if (c.getter == kWord) r = CMN_GetWordParam(&conf.rec, c.id, &w);
            if (c.getter == kDWord) r = CMN_GetDWordParam(&conf.rec, c.id, &d);
        });
        EXPECT_EQ(r, -1);
        EXPECT_EQ(out, "");
        EXPECT_EQ(b, 0x5a);
        EXPECT_EQ(w, 0xbeef);
        EXPECT_EQ(d, 0xdeadbeefu);
        EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0);
    }
}

// IDs that fit are served: narrower numbers land in the high bytes, and
// values whose length BufLen bounds are cut to the variable.
TEST(Typed, GettersServeIdsThatFit) {
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    struct Case {
        const char* name;
        Getter getter;
        int id;
        int result;
        unsigned value;
    };
    const Case cases[] = {
        {"u8 via word", kWord, 0x0084, 1, 0x0900},          // plate colour 9
        {"u8 via dword", kDWord, 0x0084, 1, 0x09000000},
        {"u16 via dword", kDWord, 0x0031, 2, 0x01f40000},  // fence radius 500
        {"raw 2 via word", kWord, 0xf367, 2, 0x0505},      // blind-spot thresholds
        {"raw 4 via dword", kDWord, 0xf0e9, 4, 0x01323202},
        {"raw 8 short via word", kWord, 0xf114, 1, 0x0100},  // BufLen - 1 bytes
        {"string via dword", kDWord, 0x0010, 3, 0x33676e00},  // "3gn"
        {"raw 8 fixed via word", kWord, 0xf001, 8, 0},      // short buffer: size, nothing
        {"block via dword", kDWord, 0xf364, -1, 0},         // below its minimum
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        unsigned short w = 0xbeef;
        unsigned int d = 0xdeadbeef;
        int r = 0;
        output_of([&] {
            if (c.getter == kWord) r = CMN_GetWordParam(&conf.rec, c.id, &w);
            if (c.getter == kDWord) r = CMN_GetDWordParam(&conf.rec, c.id, &d);
        });
        EXPECT_EQ(r, c.result);
        EXPECT_EQ(c.getter == kWord ? w : d, c.value);
    }
    unsigned char b = 0;
    EXPECT_EQ(CMN_GetByteParam(&conf.rec, 0x0010, &b), 0);  // no room for a character
    EXPECT_EQ(b, 0);
}

// Setters send the value high byte first with their own length.
TEST(Typed, SettersBuildTheWireValue) {
    Conf conf;
    unsigned char text[40];
    std::memset(text, 'q', sizeof text);
    int r = 0;
    // A narrower number ID takes the first (high) byte of the value.
    EXPECT_EQ(CMN_SetWordParam(&conf.rec, 0x0084, 0x1234), 2);
    EXPECT_EQ(conf.bytes()[1176], 0x12);
    // A raw ID takes the value's bytes as they go on the wire.
    EXPECT_EQ(CMN_SetWordParam(&conf.rec, 0xf367, 0x0a0b), 2);
    EXPECT_EQ(to_hex(conf.bytes() + 1759, 2), "0a 0b");
    // A string ID takes them as characters.
    EXPECT_EQ(CMN_SetDWordParam(&conf.rec, 0x0010, 0x41424344), 4);
    EXPECT_STREQ(conf.rec.szMainApn, "ABCD");
    // Strings pass straight through; an over-long one changes nothing.
    EXPECT_EQ(CMN_SetStrParam(&conf.rec, 0x0010, text, 32), 32);
    EXPECT_STREQ(conf.rec.szMainApn, "ABCD");
    EXPECT_EQ(CMN_SetStrParam(&conf.rec, 0x0010, text, 31), 31);
    EXPECT_EQ(std::strlen(conf.rec.szMainApn), 31u);
    unsigned char out[40] = {};
    EXPECT_EQ(CMN_GetStrParam(&conf.rec, 0x0010, out, 8), 7);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(out)), "qqqqqqq");
    // Unknown IDs report and return the setter's length.
    EXPECT_EQ(output_of([&] { r = CMN_SetWordParam(&conf.rec, 0x0008, 1); }),
              "Err [CMN_SetParam():N] Not Find ID:8 \n");
    EXPECT_EQ(r, 2);
    EXPECT_EQ(output_of([&] { r = CMN_SetByteParam(&conf.rec, 0, 1); }),
              "[ASSERT][CMN_SetParam:N]: 0x0000 != ParamId\n");
    EXPECT_EQ(r, -1);
}

// A number ID wider than the setter's value is refused and stores nothing.
TEST(Typed, SettersRefuseWiderNumberIds) {
    struct Case {
        const char* name;
        Getter setter;
        int id;
    };
    const Case cases[] = {
        {"u32 via byte", kByte, 0x0001}, {"u16 via byte", kByte, 0x0031},
        {"u32 via word", kWord, 0xf202}, {"u16 ret 4 via byte", kByte, 0x0082},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Conf conf;
        int r = 0;
        EXPECT_EQ(output_of([&] {
                      if (c.setter == kByte) r = CMN_SetByteParam(&conf.rec, c.id, 0x99);
                      if (c.setter == kWord) r = CMN_SetWordParam(&conf.rec, c.id, 0x9999);
                  }),
                  "");
        EXPECT_EQ(r, -1);
        Conf zero;
        EXPECT_EQ(std::memcmp(&zero.rec, &conf.rec, sizeof conf.rec), 0);
    }
}

// A block behind a number setter reads zeros after the value, never the
// stack: the size block takes its two words from one dword.
TEST(Typed, BlockIdThroughANumberSetter) {
    Conf conf;
    int r = 0;
    output_of([&] { r = CMN_SetDWordParam(&conf.rec, 0xf373, (1750u << 16) | 1850u); });
    EXPECT_EQ(r, 4);
    EXPECT_EQ(+conf.rec.stSubiaoOversize.usSizeA, 1750);
    EXPECT_EQ(+conf.rec.stSubiaoOversize.usSizeB, 1850);
    // The load block reads 18 bytes: the two after the word are zeros.
    std::memset(&conf.rec.stSubiaoOverload, 0x66, sizeof conf.rec.stSubiaoOverload);
    output_of([&] { r = CMN_SetWordParam(&conf.rec, 0xf372, 10000); });
    EXPECT_EQ(r, 2);
    EXPECT_EQ(+conf.rec.stSubiaoOverload.usLoadA, 10000);
    EXPECT_EQ(+conf.rec.stSubiaoOverload.usLoadB, 0);
    EXPECT_EQ(+conf.rec.stSubiaoOverload.usLoadH, 0);
}

}  // namespace
