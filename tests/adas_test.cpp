// adas_test.cpp - the ADAS block: its Subiao, SiChuan, GuangDong, Hunan and
// JiLing wire forms, each typed as a row table from the form's description,
// and its factory defaults as the bytes a get sends.
#include <cstring>
#include <string>

#include "form_check.h"

namespace {

using formcheck::A;
using formcheck::Form;
using formcheck::K;
using formcheck::kBefore;
using formcheck::kGeneral;
using formcheck::Table;
using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;

TEST(Adas, SetAndGetEveryForm) {
    // The reserved byte 19 has no all-ones marker.
    const Table kAlarms = {{19, 19, 1, 1, A}, {20, 20, 1, 32, K}};
    // clang-format off
    const Form forms[] = {
        // The generic overloads (CMN) forward to the Subiao codecs, names included.
        {FORM(Adas, SubiaoAdas), 56, kBefore, {"Subiao Adas"}, {kGeneral, kAlarms}},
        {GENERIC(Adas, "SubiaoAdas"), 56, kBefore, {"Subiao Adas"}, {kGeneral, kAlarms}},
        {FORM(Adas, SiChuan), 61, kBefore, {"Subiao Adas"}, {kGeneral, kAlarms, {{52, 63, 1, 5, K}}}},
        {FORM(Adas, GuangDongAdas), 64, kBefore, {"Guangdong Adas"}, {kGeneral, kAlarms, {{52, 55, 1, 8, K}}}},
        {FORM(Adas, HunanAdas), 96, kBefore, {"Hunan Adas"},
         {kGeneral, {{32, 32, 1, 4, K}, {37, 37, 1, 9, K}, {47, 47, 1, 4, K}, {72, 80, 2, 12, K}}}},
        {FORM(Adas, JiLingAdas), 112, kBefore, {"JiLing Adas"},
         {kGeneral, kAlarms, {{56, 55, 1, 4, K}, {60, 68, 2, 18, K}}}},
    };
    // clang-format on
    for (const Form& c : forms) formcheck::check(c);
}

// The defaults, on a record of a5 (bytes 63 to 67 kept), and the Subiao form
// a get makes of them: the head, the alarm settings, four reserved zeros.
TEST(Adas, DefaultsAndTheirWireForm) {
    const std::string alarms = "1e 32 05 03 02 3c 05 32 05 03 02 32 05 03 02 1b 32 05 03 02 1e 32 05 03 02"
                               " 0a 32 05 03 02 03 02";
    std::string want = "1e 06 00 3c 00 c8 00 03 02 03 03 ff 1f 01 00 03 00 00 00 00 " + alarms +
                       " 05 03 02 32 05 03 02 32 05 03 02 a5 a5 a5 a5 a5";
    for (int i = 0; i < 36; i++) want += " 00";
    Adas rec;
    std::memset(&rec, 0xa5, sizeof rec);
    bbtest::output_of([&] { __InitSubiaoAdasParam(&rec); });
    EXPECT_EQ(bbtest::to_hex(reinterpret_cast<unsigned char*>(&rec), sizeof rec), want);

    unsigned char buf[56 + 56 + 1];
    std::memset(buf, 0xee, sizeof buf);
    int r = 0;
    bbtest::output_of([&] { r = CMN_LStruct2B(&rec, buf + 56, 56); });
    EXPECT_EQ(r, 56);
    EXPECT_EQ(bbtest::to_hex(buf + 56, 57),
              "1e 06 00 00 3c 00 c8 03 02 03 03 00 01 1f ff 00 00 00 03 00 " + alarms + " 00 00 00 00 ee");
}

}  // namespace
