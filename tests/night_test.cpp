// night_test.cpp - the night-time rule blocks: byte order, dumps, 0xff as
// plain data and refusals (the defaults: the reset image in defaults_test.cpp).
#include "fixed_block_check.h"

namespace {

using bbtest::get_as;
using bbtest::set_as;
using fixedblock::Block;
using Speed = tagBB_PARAM_NIGHT_SPEED_ST;
using Move = tagBB_PARAM_NIGHT_MOVE_ST;
using Tired = tagBB_PARAM_NIGHT_TIRED_ST;

const Block kSpeed = {8, {}, {}, set_as<Speed>, get_as<Speed>, "CMN_", "", "", false};
const Block kMove = {8, {}, {}, set_as<Move>, get_as<Move>, "CMN_", "", "", false};
const Block kTired = {16, {}, {7, 11}, set_as<Tired>, get_as<Tired>, "CMN_", "", "", false};

TEST(Night, RoundTripWithDumpsAndRefusals) {
    for (const Block* b : {&kSpeed, &kMove, &kTired}) fixedblock::round_trip(*b);
}

TEST(Night, AllOnesAreData) {
    for (const Block* b : {&kSpeed, &kMove, &kTired}) fixedblock::all_ones(*b, {0, "", ""});
}

}  // namespace
