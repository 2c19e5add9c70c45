// adas_test.cpp - the ADAS block: its Subiao, SiChuan, GuangDong, Hunan and
// JiLing wire forms, each typed as a row table from the form's description
// (its defaults: defaults_test.cpp, against the reset image).

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

}  // namespace
