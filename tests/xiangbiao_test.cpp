// xiangbiao_test.cpp - the Xiangbiao blocks: the VDS block (checked, with
// keep markers) and the driver capture block (trusting its caller).

#include "fixed_block_check.h"

namespace {

using bbtest::get_as;
using bbtest::set_as;
using fixedblock::Block;
using fixedblock::OnesCase;
using Vds = tagBB_PARAM_VDS_XIANGBIAO_ST;
using Capture = tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST;

const Block kVds = {50, {28, 30, 32}, {0}, set_as<Vds>, get_as<Vds>, "CMN_", "Dsm ", "BB_PARAM_VDS_XIANGBIAO_ST ",
                    true};
const Block kCapture = {18,      {2, 6, 10, 12, 16}, {}, set_as<Capture>, get_as<Capture>, "CMN_", nullptr,
                        "DRIVER_CAPTURE_XIANGBIAO ", false};

TEST(Xiangbiao, RoundTripWithDumpsAndRefusals) {
    fixedblock::round_trip(kVds);
    fixedblock::round_trip(kCapture);
}

TEST(Xiangbiao, AllOnesOnTheWire) {
    // clang-format off
    const struct { const Block& b; OnesCase c; } cases[] = {
        {kVds, {0, "", ""}}, {kCapture, {0, "", ""}},
        {kVds, {0, "ff ff ff fe", "fe ff ff ff"}}, {kVds, {0, "00 00 00 ff", "ff 00 00 00"}}, {kVds, {4, "00", "00"}},
        {kVds, {27, "09", "09"}}, {kVds, {28, "00 ff ff ff", "ff 00 9e 9f"}}, {kVds, {32, "12 34", "34 12"}},
        {kVds, {49, "0b", "0b"}},
    };
    // clang-format on
    for (const auto& k : cases) fixedblock::all_ones(k.b, k.c);
}

}  // namespace
