// accessors_test.cpp - the whole-block accessors: which region each pair
// copies, the order of the null checks and the names in their lines, and
// agreement with the parameter ID of the same region.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Accessor = int (*)(tagBB_CONF_ST*, unsigned char*);

struct Pair {
    const char* set_name;
    const char* get_name;
    const char* block;  // the block pointer's name in the assert line
    Accessor set;
    Accessor get;
    size_t offset;
    size_t size;
    int id;             // parameter ID whose get sends the region verbatim, 0 if none
};

// One accessor seen through a byte pointer to its block.
template <typename T>
T* block_type(int (*)(tagBB_CONF_ST*, T*));

template <auto Fn>
int erased(tagBB_CONF_ST* rec, unsigned char* p) {
    return Fn(rec, reinterpret_cast<decltype(block_type(Fn))>(p));
}

#define PAIR(S, G, block, offset, size, id) {#S, #G, block, erased<S>, erased<G>, offset, size, id}

const std::vector<Pair>& pairs() {
    static const std::vector<Pair> p = {
        PAIR(CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam, "pstGeneralAVEncParam", 686, 21, 0),
        PAIR(CMN_SetAVChLookUpList, CMN_GetAVChLookUpList, "pstAVChLookUpList", 707, 151, 0),
        PAIR(CMN_SetAVIndSetting, CMN_GetAVIndSetting, "pstAVIndSetting", 858, 253, 0),
        PAIR(CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam, "pstSpecialAlmRecParam", 1111, 3, 0x0079),
        PAIR(CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam, "pstVideoAnalyseParam", 1114, 2, 0x007b),
        PAIR(CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam, "pstWakeUpModeParam", 1116, 20, 0x007c),
        PAIR(CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt, "pstNightSpeedLmt", 1241, 8, 0xf001),
        PAIR(CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove, "pstNightAbnormalMove", 1249, 8, 0xf002),
        PAIR(CMN_SetNightTiredSetting, CMN_GetNightTiredSetting, "pstNightTiredSetting", 1257, 16, 0),
    };
    return p;
}

#undef PAIR

TEST(Accessors, NullPointers) {
    for (const Pair& p : pairs()) {
        for (bool is_set : {true, false}) {
            const char* fn = is_set ? p.set_name : p.get_name;
            Accessor call = is_set ? p.set : p.get;
            SCOPED_TRACE(fn);
            Conf conf;
            unsigned char block[256] = {0};
            const std::string block_line = std::string("[ASSERT][") + fn + ":N]: NULL != " + p.block + "\n";
            const struct {
                tagBB_CONF_ST* rec;
                unsigned char* blk;
                std::string out;
            } cases[] = {
                {&conf.rec, nullptr, block_line},
                {nullptr, nullptr, block_line},  // the block pointer is checked first
                {nullptr, block, std::string("[ASSERT][") + fn + ":N]: NULL != pbbConf\n"},
            };
            for (const auto& c : cases) {
                int r = 0;
                EXPECT_EQ(output_of([&] { r = call(c.rec, c.blk); }), c.out);
                EXPECT_EQ(r, -1);
            }
        }
    }
}

// Set copies exactly the region, Get gives the same bytes back and writes
// no byte past the structure.
TEST(Accessors, RoundTripTouchesOnlyTheRegion) {
    for (const Pair& p : pairs()) {
        SCOPED_TRACE(p.set_name);
        Conf conf;
        std::memset(&conf.rec, 0x5a, sizeof conf.rec);
        Conf expect = conf;
        unsigned char block[256];
        for (size_t i = 0; i < sizeof block; i++) block[i] = static_cast<unsigned char>(0x80 + i);
        std::memcpy(expect.bytes() + p.offset, block, p.size);

        int r = 99;
        EXPECT_EQ(output_of([&] { r = p.set(&conf.rec, block); }), "");
        EXPECT_EQ(r, 0);
        EXPECT_EQ(std::memcmp(&conf.rec, &expect.rec, sizeof conf.rec), 0);

        unsigned char back[260];
        std::memset(back, 0xee, sizeof back);
        EXPECT_EQ(output_of([&] { r = p.get(&conf.rec, back); }), "");
        EXPECT_EQ(r, 0);
        EXPECT_EQ(to_hex(back, p.size), to_hex(block, p.size));
        EXPECT_EQ(back[p.size], 0xee);
    }
}

// The raw-copied regions come out of their parameter ID as they went in.
TEST(Accessors, AgreeWithTheirParameterIds) {
    for (const Pair& p : pairs()) {
        if (p.id == 0) continue;
        SCOPED_TRACE(p.set_name);
        Conf conf;
        unsigned char block[32];
        for (size_t i = 0; i < sizeof block; i++) block[i] = static_cast<unsigned char>(0x31 * (i + 1));
        p.set(&conf.rec, block);
        unsigned char out[32];
        EXPECT_EQ(CMN_GetParam(&conf.rec, p.id, out, sizeof out), static_cast<int>(p.size));
        EXPECT_EQ(to_hex(out, p.size), to_hex(block, p.size));
    }
}

// The structured blocks: native fields in the accessor, big-endian on the wire.
TEST(Accessors, StructuredBlocksThroughTheirIds) {
    Conf conf;
    tagAV_ENC_PARAM_ST enc{};
    enc.usRtKeyFrameItv = 0x0102;
    enc.uiStBitRate = 0x0a0b0c0d;
    enc.ucAudioOutput = 1;
    ASSERT_EQ(CMN_SetGeneralAVEncParam(&conf.rec, &enc), 0);
    unsigned char out[256];
    ASSERT_EQ(CMN_GetParam(&conf.rec, 0x0075, out, 21), 21);
    EXPECT_EQ(to_hex(out, 21), "00 00 01 02 00 00 00 00 00 00 00 00 00 00 0a 0b 0c 0d 00 00 01");

    tagAV_INDIVIDUAL_SETTING_ST ind{};
    ind.ucChNum = 1;
    ind.astCh[0].ucLogicCh = 5;
    ind.astCh[0].usOsdSetting = 0x1234;
    ASSERT_EQ(CMN_SetAVIndSetting(&conf.rec, &ind), 0);
    ASSERT_EQ(CMN_GetParam(&conf.rec, 0x0077, out, sizeof out), 22);
    EXPECT_EQ(to_hex(out, 22), "01 05 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 12 34");

    tagAV_CHANEL_LOOK_UP_ST list{};
    list.ucTotalChNum = 1;
    list.ucVideoChNum = 1;
    list.astCh[0] = {1, 2, 3, 4};
    list.astCh[1] = {9, 9, 9, 9};
    ASSERT_EQ(CMN_SetAVChLookUpList(&conf.rec, &list), 0);
    ASSERT_EQ(CMN_GetParam(&conf.rec, 0x0076, out, sizeof out), 11);
    EXPECT_EQ(to_hex(out, 11), "01 00 01 01 02 03 04 09 09 09 09");
}

// What a freshly reset terminal hands out through the accessors.
TEST(Accessors, FactoryDefaults) {
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });

    tagAV_CHANEL_LOOK_UP_ST list;
    std::memset(&list, 0xee, sizeof list);
    ASSERT_EQ(CMN_GetAVChLookUpList(&conf.rec, &list), 0);
    EXPECT_EQ(to_hex(reinterpret_cast<unsigned char*>(&list), 19),
              "04 00 00 01 01 00 00 02 02 00 00 03 03 00 00 04 04 00 00");

    tagWAKEUP_MODE_PARAM_ST wake;
    std::memset(&wake, 0xee, sizeof wake);
    ASSERT_EQ(CMN_GetWakeUpModeParam(&conf.rec, &wake), 0);
    EXPECT_EQ(to_hex(reinterpret_cast<unsigned char*>(&wake), sizeof wake),
              "04 00 00 00 00 00 23 59 00 00 23 59 00 00 23 59 00 00 23 59");
}

}  // namespace
