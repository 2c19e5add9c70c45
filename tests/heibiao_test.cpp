// heibiao_test.cpp - the Heibiao blocks: byte order, dumps, keep markers,
// and refusals (the defaults: defaults_test.cpp).

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
        {kDriverIdentify, {4, "00 ff", "ff 00"}}, {kDriverIdentify, {6, "00", "00"}},
        {kVehicleOperate, {4, "ff 00", "84 00"}}, {kVehicleOperate, {32, "00", "00"}},
        {kDsm, {4, "ff ff 00 3c", "84 85 3c 00"}}, {kDsm, {4, "ff 00", "00 ff"}},
        {kDevFail, {6, "ff fe", "fe ff"}}, {kDevFail, {44, "07", "07"}},
    };
    // clang-format on
    for (const auto& k : cases) fixedblock::all_ones(k.b, k.c);
    for (const Block* b : {&kDriverIdentify, &kVehicleOperate, &kDsm, &kDevFail}) fixedblock::all_ones(*b, {0, "", ""});
}

}  // namespace
