// heibiao_test.cpp - the Heibiao blocks: byte order, dumps, keep markers,
// refusals, and the defaults their initialisers write.
#include <cstring>
#include <string>

#include "fixed_block_check.h"

namespace {

using bbtest::hlj_get_as;
using bbtest::hlj_set_as;
using fixedblock::Block;
using fixedblock::OnesCase;

#define H(T) hlj_set_as<T>, hlj_get_as<T>, "CMN_Hlj"
// The vehicle operation block's set logs under the driver identification title.
// clang-format off
const Block kDriverIdentify = {22, {4}, {}, H(tagBB_PARAM_DRIVER_IDENTIFY_ST), "Driver Identify ", "Driver Identify ", true};
const Block kVehicleOperate = {33, {}, {}, H(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST), "Driver Identify ", "HLJ ADAS ", true};
const Block kDsm = {33, {4, 6}, {}, H(tagBB_PARAM_DSM_HEIBIAO_ST), "HLJ DSM ", "HLJ DSM ", true};
const Block kDevFail = {45, {4, 6}, {}, H(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST), "HLJ DEV FAIL ", "HLJ DEV FAIL ", true};
// clang-format on
#undef H

TEST(Heibiao, RoundTripWithDumpsAndRefusals) {
    for (const Block* b : {&kDriverIdentify, &kVehicleOperate, &kDsm, &kDevFail}) fixedblock::round_trip(*b);
}

TEST(Heibiao, AllOnesOnTheWire) {
    // clang-format off
    const struct { const Block& b; OnesCase c; } cases[] = {
        {kDriverIdentify, {0, "", ""}}, {kVehicleOperate, {0, "", ""}}, {kDsm, {0, "", ""}}, {kDevFail, {0, "", ""}},
        {kDriverIdentify, {4, "00 ff", "ff 00"}}, {kDriverIdentify, {6, "00", "00"}},
        {kVehicleOperate, {4, "ff 00", "84 00"}}, {kVehicleOperate, {32, "00", "00"}},
        {kDsm, {4, "ff ff 00 3c", "84 85 3c 00"}}, {kDsm, {4, "ff 00", "00 ff"}},
        {kDevFail, {6, "ff fe", "fe ff"}}, {kDevFail, {44, "07", "07"}},
    };
    // clang-format on
    for (const auto& k : cases) fixedblock::all_ones(k.b, k.c);
}

// The defaults on blocks of a5: the bytes the initialisers name, the rest
// kept (driver identification 12 to 21, device failure 35 to 44).
TEST(Heibiao, Defaults) {
    const std::string grade = " 05 03 02";
    std::string grades5, grades9, zeros10, kept10;
    for (int i = 0; i < 5; i++) grades5 += grade;
    for (int i = 0; i < 9; i++) grades9 += grade;
    for (int i = 0; i < 10; i++) zeros10 += " 00", kept10 += " a5";
    unsigned char di[22], vo[33], dsm[33], df[45];
    std::memset(di, 0xa5, sizeof di);
    std::memset(vo, 0xa5, sizeof vo);
    std::memset(dsm, 0xa5, sizeof dsm);
    std::memset(df, 0xa5, sizeof df);
    bbtest::output_of([&] {
        __InitHljDriverIdentifyParam(reinterpret_cast<tagBB_PARAM_DRIVER_IDENTIFY_ST*>(di));
        __InitHljAdasParam(reinterpret_cast<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST*>(vo));
        __InitHljDsmParam(reinterpret_cast<tagBB_PARAM_DSM_HEIBIAO_ST*>(dsm));
        __InitHljDevFailParam(reinterpret_cast<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST*>(df));
    });
    EXPECT_EQ(bbtest::to_hex(di, sizeof di), "05 06 01 01 b0 04" + grade + grade + kept10);
    EXPECT_EQ(bbtest::to_hex(vo, sizeof vo),
              "1e 06 01 01 32 1b 1b 05 03 02 05" + grade + grade + grade + grade + zeros10);
    EXPECT_EQ(bbtest::to_hex(dsm, sizeof dsm), "05 06 01 01 3c 00 3c 00" + grades5 + zeros10);
    EXPECT_EQ(bbtest::to_hex(df, sizeof df), "05 06 01 01 2c 01 2c 01" + grades9 + kept10);
}

}  // namespace
