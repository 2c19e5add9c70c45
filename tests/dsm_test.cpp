// dsm_test.cpp - the DSM block: defaults, the SiChuan received-block log
// and the dictionary route.  The per-form
// round trips of all ten ADAS and DSM forms are in adas_test.cpp.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;
using Bytes = std::vector<unsigned char>;
using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;

namespace {

unsigned char* raw(Dsm& rec) { return reinterpret_cast<unsigned char*>(&rec); }

// A block with 128 known bytes in front of it.
struct WireBuf {
    Bytes mem = Bytes(128 + 384, 0xee);
    WireBuf() {
        for (int i = 0; i < 128; i++) mem[i] = static_cast<unsigned char>(i * 13 + 5);
    }
    unsigned char* wire() { return mem.data() + 128; }
};

Dsm defaulted() {
    Dsm rec;
    std::memset(&rec, 0xa5, sizeof rec);
    output_of([&] { __InitSubiaoDsmParam(&rec); });
    return rec;
}

// Native order: 3600 = 10 0e, 0x00ffc3ff = ff c3 ff 00, 300 = 2c 01.
TEST(Dsm, InitWritesEveryByte) {
    const std::string grade = "32 05 03 02";
    std::string want = "1e 06 00 10 0e c8 00 03 02 03 03 ff c3 ff 00 03 00 00 00 b4 00 78 00";
    for (int i = 0; i < 5; i++) want += grade;
    want += "01 000000000000 05 03 02 2c 01 05 03 02 2c 01";
    for (int i = 0; i < 6; i++) want += grade;
    want += std::string(96, '0');
    const Bytes image = hex(want);
    Dsm rec = defaulted();
    EXPECT_EQ(to_hex(raw(rec), sizeof rec), to_hex(image.data(), image.size()));

    int r = 0;
    testing::internal::CaptureStdout();
    r = __InitSubiaoDsmParam(&rec);
    std::fflush(stdout);
    const std::string text = testing::internal::GetCapturedStdout();
    EXPECT_EQ(bbtest::mask_lines(text), "War [__InitSubiaoDsmParam():N] Param Inited!\n");
    EXPECT_EQ(r, static_cast<int>(text.size()));
    EXPECT_EQ(output_of([&] { r = __InitSubiaoDsmParam(nullptr); }),
              "[ASSERT][__InitSubiaoDsmParam:N]: NULL != pstSubiaoDsm\n");
    EXPECT_EQ(r, -1);
}

TEST(Dsm, DefaultGetImages) {
    const std::string head23 = "1e 06 00 0e 10 00 c8 03 02 03 03 00 ff c3 ff 00 00 00 03 00 b4 00 78";
    std::string subiao = head23 + "000000";
    for (int i = 0; i < 5; i++) subiao += "32 05 03 02";
    subiao += "01 00 00";
    // Hunan: no speed thresholds, gaps at 23..26, 30, 34, 38, 42, 47..60, 64..67.
    const std::string hunan = head23 + "00000000 050302 00 050302 00 050302 00 050302 00 05030201" +
                              std::string(28, '0') + "050302 00000000" + std::string(84, '0');
    struct {
        int (*get)(Dsm*, unsigned char*, unsigned);
        std::string image;
    } cases[] = {{SubiaoDsm_LStruct2B, subiao}, {HunanDsm_LStruct2B, hunan}};
    for (const auto& c : cases) {
        Dsm rec = defaulted();
        WireBuf out;
        const Bytes want = hex(c.image);
        int r = 0;
        output_of([&] { r = c.get(&rec, out.wire(), 200); });
        EXPECT_EQ(r, static_cast<int>(want.size()));
        EXPECT_EQ(to_hex(out.wire(), want.size()), to_hex(want.data(), want.size()));
    }
}

// SiChuan logs the len received bytes (with Len 0) before converting,
// however short or long the block is.
TEST(Dsm, SiChuanLogsReceivedBlockFirst) {
    const int lens[] = {0, 200, 255};
    for (int len : lens) {
        SCOPED_TRACE(len);
        Dsm rec = defaulted();
        WireBuf in;
        for (int i = 0; i < 256; i++) in.wire()[i] = static_cast<unsigned char>(i);
        int r = -1;
        const std::string log =
            output_of([&] { r = SiChuan_B2LStruct(in.wire(), static_cast<unsigned char>(len), &rec); });
        EXPECT_EQ(log, "Inf [SiChuan_B2LStruct():N] Subiao Dsm Param Set Len:0, DataLen:" + std::to_string(len) +
                           "\n" + dump_text(in.wire(), len) + "[ASSERT][SiChuan_B2LStruct:N]: DataLen == Cnt\n");
        EXPECT_EQ(r, 0);
        EXPECT_EQ(rec.stGroupB.usJudgeItv, 61 << 8 | 62);  // converted whatever the length
    }
}

// ID 0xf365 reaches the Subiao DSM codecs, which dump the block itself.
TEST(Dsm, DictionaryReachesSubiaoCodecs) {
    Conf conf;
    output_of([&] { __InitSubiaoDsmParam(&conf.rec.stSubiaoDsm); });
    WireBuf in;
    std::memset(in.wire(), 0xff, 49);
    in.wire()[21] = 0x00;
    in.wire()[22] = 0x3c;  // phone call judging interval 60 s
    int r = 0;
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0xf365, in.wire(), 49); }),
              "Inf [SubiaoDsm_B2LStruct():N] Subiao Dsm Param Set Len:49, DataLen:49\n" + dump_text(in.wire(), 49));
    EXPECT_EQ(r, 49);
    EXPECT_EQ(conf.rec.stSubiaoDsm.usCallJudgeItv, 60);
    EXPECT_EQ(conf.rec.stSubiaoDsm.usSmokeJudgeItv, 180);

    // 305 is cut to 49 on the way to the codec.
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0xf365, in.wire(), 305); }),
              "Inf [SubiaoDsm_B2LStruct():N] Subiao Dsm Param Set Len:49, DataLen:49\n" + dump_text(in.wire(), 49));
    EXPECT_EQ(r, 305);

    WireBuf out;
    const std::string log = output_of([&] { r = CMN_GetParam(&conf.rec, 0xf365, out.wire(), 132); });
    EXPECT_EQ(r, 49);
    EXPECT_EQ(to_hex(out.wire() + 21, 2), "00 3c");
    EXPECT_EQ(log, "Inf [SubiaoDsm_LStruct2B():N] Subiao Dsm Param Get Len:49, BufLen:132\n" +
                       dump_text(out.wire(), 49));
}

}  // namespace
