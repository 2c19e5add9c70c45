// dsm_test.cpp - the DSM block: its Subiao, SiChuan, GuangDong, Hunan and
// JiLing wire forms, each typed as a row table from the form's description,
// and its factory defaults as the bytes a get sends.
#include <cstring>
#include <string>

#include "form_check.h"

namespace {

using formcheck::A;
using formcheck::Form;
using formcheck::K;
using formcheck::kAtWire;
using formcheck::kBefore;
using formcheck::kGeneral;
using formcheck::kReceived;
using formcheck::Table;
using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;

TEST(Dsm, SetAndGetEveryForm) {
    // Wire 23..25 are reserved: the alarm groups sit three bytes further on the wire.
    const Table kDsm = {{19, 19, 2, 2, K}, {26, 23, 1, 21, K}};
    // clang-format off
    const Form forms[] = {
        {FORM(Dsm, SubiaoDsm), 49, kAtWire, {"Subiao Dsm"}, {kGeneral, kDsm}},
        {GENERIC(Dsm, "SubiaoDsm"), 49, kAtWire, {"Subiao Dsm"}, {kGeneral, kDsm}},
        {FORM(Dsm, SiChuan), 65, kReceived, {"Subiao Dsm"}, {kGeneral, kDsm, {{47, 44, 1, 6, A}, {53, 50, 1, 3, K},
         {56, 53, 2, 1, K}, {58, 55, 1, 3, K}, {61, 58, 2, 1, K}}}},
        {FORM(Dsm, GuangDongDsm), 66, kBefore, {"Guangdong Dsm"},
         {kGeneral, kDsm, {{47, 60, 1, 1, K}, {48, 68, 1, 4, K}, {52, 64, 1, 4, K}, {56, 72, 1, 8, K}}}},
        {FORM(Dsm, HunanDsm), 110, kBefore, {"Hunan Dsm"},
         {kGeneral, {{19, 19, 2, 2, K}, {27, 24, 1, 3, K}, {31, 28, 1, 3, K}, {35, 32, 1, 3, K}, {39, 36, 1, 3, K},
          {43, 40, 1, 4, K}, {61, 69, 1, 3, K}, {68, 84, 2, 15, K}, {98, 126, 2, 3, K}, {104, 114, 2, 3, K}}}},
        {FORM(Dsm, JiLingDsm), 126, kBefore, {"JiLing Dsm"},
         {kGeneral, kDsm, {{60, 68, 1, 8, K}, {68, 84, 2, 15, K}, {104, 114, 2, 6, K}}}},
    };
    // clang-format on
    for (const Form& c : forms) formcheck::check(c);
}

// The defaults write all 132 bytes; a get of them sends the head, five alarm
// groups (50, 5, 3, 2), the driver identification trigger and two zeros.
TEST(Dsm, DefaultsAndTheirWireForm) {
    std::string grades;
    for (int i = 0; i < 5; i++) grades += " 32 05 03 02";
    std::string record = "1e 06 00 10 0e c8 00 03 02 03 03 ff c3 ff 00 03 00 00 00 b4 00 78 00" + grades +
                         " 01 00 00 00 00 00 00 05 03 02 2c 01 05 03 02 2c 01" + grades + " 32 05 03 02";
    for (int i = 0; i < 48; i++) record += " 00";
    Dsm rec;
    std::memset(&rec, 0xa5, sizeof rec);
    bbtest::output_of([&] { __InitSubiaoDsmParam(&rec); });
    EXPECT_EQ(bbtest::to_hex(reinterpret_cast<unsigned char*>(&rec), sizeof rec), record);

    unsigned char buf[50];
    std::memset(buf, 0xee, sizeof buf);
    int r = 0;
    bbtest::output_of([&] { r = CMN_LStruct2B(&rec, buf, 49); });
    EXPECT_EQ(r, 49);
    EXPECT_EQ(bbtest::to_hex(buf, 50),
              "1e 06 00 0e 10 00 c8 03 02 03 03 00 ff c3 ff 00 00 00 03 00 b4 00 78 00 00 00" + grades + " 01 00 00 ee");
}

}  // namespace
