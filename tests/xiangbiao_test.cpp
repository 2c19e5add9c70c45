// xiangbiao_test.cpp - the Xiangbiao blocks: the VDS block (checked, with
// keep markers), the driver capture block (trusting its caller) and the
// defaults of all three.
#include <cstring>
#include <string>

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

// The defaults on blocks of a5 (VDS bytes 6 and 13 to 20 kept), and the
// capture block as a get sends it.
TEST(Xiangbiao, Defaults) {
    unsigned char vds[50], cmp[4], capt[18], wire[19];
    std::memset(vds, 0xa5, sizeof vds);
    std::memset(cmp, 0xa5, sizeof cmp);
    std::memset(capt, 0xa5, sizeof capt);
    std::memset(wire, 0xee, sizeof wire);
    bbtest::output_of([&] {
        __InitXiangbiaoVdsParam(reinterpret_cast<Vds*>(vds));
        __InitXiangbiaoDriverCmpParam(reinterpret_cast<tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST*>(cmp));
        __InitXiangbiaoDriverCaptureParam(reinterpret_cast<Capture*>(capt));
        CMN_LStruct2B(reinterpret_cast<Capture*>(capt), wire, 18);
    });
    std::string tail;
    for (int i = 0; i < 6 + 16; i++) tail += " 00";  // the three words, then 34 to 49
    EXPECT_EQ(bbtest::to_hex(vds, sizeof vds), "01 00 00 00 01 00 a5 00 00 00 00 00 00 a5 a5 a5 a5 a5 a5 a5 a5"
                                               " 05 03 02 00 00 00 00" + tail);
    EXPECT_EQ(bbtest::to_hex(cmp, sizeof cmp), "01 32 32 02");
    EXPECT_EQ(bbtest::to_hex(wire, sizeof wire), "01 14 00 05 01 14 00 05 01 14 00 05 04 b0 01 14 00 05 ee");
}

}  // namespace
