// dsm_test.cpp - the DSM block: its Subiao, SiChuan, GuangDong, Hunan and
// JiLing wire forms, each typed as a row table from the form's description
// (its defaults: defaults_test.cpp, against the reset image).

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

}  // namespace
