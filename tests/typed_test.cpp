// typed_test.cpp - the byte, word, dword and string wrappers (the wire value
// they build, what each leaves in its output on failure, the refusal of IDs
// wider than the variable) and the whole-block accessors.
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

enum Width { kByte = 1, kWord = 2, kDWord = 4 };

enum Nulls { kNone, kNullRec, kNullOut };

// The getter's result; *value is the variable afterwards, which starts as
// 0x5a, 0xbeef or 0xdeadbeef.
int get_typed(Conf& c, Width w, int id, unsigned* value, Nulls nulls) {
    tagBB_CONF_ST* rec = nulls == kNullRec ? nullptr : &c.rec;
    const bool out = nulls != kNullOut;
    unsigned char b = 0x5a;
    unsigned short s = 0xbeef;
    unsigned d = 0xdeadbeef;
    int r = w == kByte   ? CMN_GetByteParam(rec, id, out ? &b : nullptr)
            : w == kWord ? CMN_GetWordParam(rec, id, out ? &s : nullptr)
                         : CMN_GetDWordParam(rec, id, out ? &d : nullptr);
    *value = w == kByte ? b : w == kWord ? s : d;
    return r;
}

// On the factory record (province 0x2c).  Unknown IDs: word and dword become
// 0, the byte keeps its value.  IDs whose get writes more than the variable
// holds are refused silently and leave it alone.  Narrower values land in
// the high bytes; text and short raw gets are cut to the variable.  A null
// record is refused by the dictionary (the word getter still stores 0), a
// null output by the wrapper or by the dictionary.
TEST(Typed, Getters) {
    const std::string nf = "Err [CMN_GetParam():N] Not Find ID:0x8\n";
    // clang-format off
    const struct { Width w; int id, ret; unsigned value; std::string out; Nulls nulls = kNone; } cases[] = {
        {kByte, 0x0008, -1, 0x5a, nf},       {kWord, 0x0008, -1, 0, nf},           {kDWord, 0x0008, -1, 0, nf},
        {kByte, 0x0031, -1, 0x5a, ""},       {kByte, 0x0081, -1, 0x5a, ""},        {kWord, 0x0001, -1, 0xbeef, ""},
        {kWord, 0x0110, -1, 0xbeef, ""},     {kDWord, 0x0076, -1, 0xdeadbeef, ""}, {kDWord, 0x0001, 4, 20, ""},
        {kByte, 0x0084, 1, 9, ""},           {kWord, 0x0081, 4, 0x2c, ""},         {kWord, 0x0084, 1, 0x0900, ""},
        {kDWord, 0x0031, 2, 0x01f40000, ""}, {kWord, 0xf367, 2, 0x0505, ""},       {kWord, 0xf114, 1, 0x0100, ""},
        {kDWord, 0x0010, 3, 0x33676e00, ""}, {kByte, 0x0010, 0, 0x5a, ""},         {kWord, 0xf001, 8, 0, ""},
        {kDWord, 0xf364, -1, 0, ""},
        {kWord, 0x0031, -1, 0, "[ASSERT][CMN_GetParam:N]: NULL != pbbConf\n", kNullRec},
        {kWord, 0x0031, -1, 0xbeef, "[ASSERT][CMN_GetWordParam:N]: NULL != out\n", kNullOut},
        {kDWord, 0x0001, -1, 0xdeadbeef, "[ASSERT][CMN_GetDWordParam:N]: NULL != out\n", kNullOut},
        {kByte, 0x0084, -1, 0x5a, "[ASSERT][CMN_GetParam:N]: NULL != pBuf\n", kNullOut},
    };
    // clang-format on
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    CMN_SetWordParam(&conf.rec, 0x0081, 0x002c);
    const Conf before = conf;
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "width " << c.w << " ID 0x" << std::hex << c.id);
        unsigned value = 0;
        int r = 0;
        EXPECT_EQ(output_of([&] { r = get_typed(conf, c.w, c.id, &value, c.nulls); }), c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(value, c.value);
    }
    EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0);
}

// Setters send the value high byte first with their own length: narrower
// numbers take its high bytes, raw IDs its bytes, text IDs its characters.
// A number ID wider than the value is refused silently with -1.  The rest
// of the record stays zero: the load block (0xf372) reads 18 bytes, zeros
// after the word, never the stack.
TEST(Typed, Setters) {
    // clang-format off
    const struct { Width w; int id; unsigned value; int ret; size_t offset; const char *stored, *out; } cases[] = {
        {kDWord, 0x0001, 30, 4, 0, "1e 00 00 00", ""},  {kWord, 0x0031, 0x1234, 2, 472, "34 12", ""},
        {kByte, 0x0084, 0xa7, 1, 1176, "a7", ""},        {kDWord, 0x0031, 0x01f4abcd, 4, 472, "f4 01", ""},
        {kWord, 0xf367, 0x0a0b, 2, 1759, "0a 0b", ""},   {kDWord, 0x0010, 0x41424344, 4, 28, "41 42 43 44 00", ""},
        {kByte, 0x0031, 0x99, -1, 0, "", ""},            {kWord, 0xf372, 10000, 2, 3354, "10 27", nullptr},
        {kDWord, 0xf373, (1750u << 16) | 1850u, 4, 3374, "d6 06 3a 07", nullptr},  // nullptr: the codec's own lines
        {kWord, 0x0008, 1, 2, 0, "", "Err [CMN_SetParam():N] Not Find ID:8 \n"},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "width " << c.w << " ID 0x" << std::hex << c.id);
        Conf conf, want;
        const std::vector<unsigned char> stored = hex(c.stored);
        if (!stored.empty()) std::memcpy(want.bytes() + c.offset, stored.data(), stored.size());
        int r = 0;
        std::string out = output_of([&] {
            r = c.w == kByte   ? CMN_SetByteParam(&conf.rec, c.id, static_cast<unsigned char>(c.value))
                : c.w == kWord ? CMN_SetWordParam(&conf.rec, c.id, static_cast<unsigned short>(c.value))
                               : CMN_SetDWordParam(&conf.rec, c.id, c.value);
        });
        EXPECT_EQ(out, c.out ? c.out : out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(std::memcmp(&want.rec, &conf.rec, sizeof conf.rec), 0)
            << to_hex(conf.bytes() + c.offset, stored.size());
    }
}

// Strings pass straight through to the dictionary.
TEST(Typed, Strings) {
    Conf conf;
    unsigned char text[] = "qqqqqqqq", out[8];
    EXPECT_EQ(CMN_SetStrParam(&conf.rec, 0x0010, text, 8), 8);
    EXPECT_EQ(CMN_GetStrParam(&conf.rec, 0x0010, out, 8), 7);
    EXPECT_EQ(to_hex(out, 7), to_hex(text, 7));
}

// One accessor pair over size bytes at offset.  The block pointer is checked
// before the record; set copies exactly the region, get gives it back and
// writes nothing past the structure.
template <typename T>
void check_pair(int (*set)(tagBB_CONF_ST*, T*), int (*get)(tagBB_CONF_ST*, T*), const std::string& set_name,
                const std::string& get_name, const char* block_name, size_t offset, size_t size) {
    SCOPED_TRACE(set_name);
    Conf conf;
    std::memset(&conf.rec, 0x5a, sizeof conf.rec);
    Conf want = conf;
    unsigned char block[256], back[260];
    for (size_t i = 0; i < sizeof block; i++) block[i] = static_cast<unsigned char>(0x80 + i);
    std::memcpy(want.bytes() + offset, block, size);
    T* blk = reinterpret_cast<T*>(block);
    for (T* b : {static_cast<T*>(nullptr), blk}) {  // the block is checked first
        const std::string arg = b ? "pbbConf" : block_name;
        int r = 0, g = 0;
        EXPECT_EQ(output_of([&] { r = set(nullptr, b); }), "[ASSERT][" + set_name + ":N]: NULL != " + arg + "\n");
        EXPECT_EQ(output_of([&] { g = get(nullptr, b); }), "[ASSERT][" + get_name + ":N]: NULL != " + arg + "\n");
        EXPECT_EQ(std::make_pair(r, g), std::make_pair(-1, -1));
    }
    int r = 99, g = 99;
    EXPECT_EQ(output_of([&] { r = set(&conf.rec, blk); }), "");
    EXPECT_EQ(std::memcmp(&conf.rec, &want.rec, sizeof conf.rec), 0);
    std::memset(back, 0xee, sizeof back);
    EXPECT_EQ(output_of([&] { g = get(&conf.rec, reinterpret_cast<T*>(back)); }), "");
    EXPECT_EQ(std::make_pair(r, g), std::make_pair(0, 0));
    EXPECT_EQ(to_hex(back, size + 1), to_hex(block, size) + " ee");
}

#define CHECK_PAIR(S, G, block, offset, size) check_pair(S, G, #S, #G, block, offset, size)

TEST(Accessors, RefuseNullsAndCopyTheirRegion) {
    CHECK_PAIR(CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam, "pstGeneralAVEncParam", 686, 21);
    CHECK_PAIR(CMN_SetAVChLookUpList, CMN_GetAVChLookUpList, "pstAVChLookUpList", 707, 151);
    CHECK_PAIR(CMN_SetAVIndSetting, CMN_GetAVIndSetting, "pstAVIndSetting", 858, 253);
    CHECK_PAIR(CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam, "pstSpecialAlmRecParam", 1111, 3);
    CHECK_PAIR(CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam, "pstVideoAnalyseParam", 1114, 2);
    CHECK_PAIR(CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam, "pstWakeUpModeParam", 1116, 20);
    CHECK_PAIR(CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt, "pstNightSpeedLmt", 1241, 8);
    CHECK_PAIR(CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove, "pstNightAbnormalMove", 1249, 8);
    CHECK_PAIR(CMN_SetNightTiredSetting, CMN_GetNightTiredSetting, "pstNightTiredSetting", 1257, 16);
}

#undef CHECK_PAIR

}  // namespace
