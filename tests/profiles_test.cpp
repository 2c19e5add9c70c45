// profiles_test.cpp - the vehicle and customer profile hooks.
#include <cstring>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;

namespace {

// Only the muck-truck profile writes anything: 2273..2298, words little-endian.
TEST(Profiles, OnlyTheMuckTruckProfileWrites) {
    void (*hooks[])(tagBB_CONF_ST*) = {InitShenZhenPurnoBBParam, InitKelvoZtBBParam,       InitShenZhenTamsaBBParam,
                                       InitGzZtBbParam,          InitKelvoZtShanXiBBParam, InitZhaTuBbParam};
    for (auto hook : hooks) {
        Conf conf;
        std::memset(&conf.rec, 0xa5, sizeof conf.rec);
        Conf want = conf;
        if (hook == InitZhaTuBbParam) {
            const auto fields = bbtest::hex("00 03 2c01 5802 0000 bc02 000000000000 0101010101010101 0001");
            std::memcpy(want.bytes() + 2273, fields.data(), fields.size());
        }
        EXPECT_EQ(output_of([&] { hook(&conf.rec); }), "");
        EXPECT_EQ(std::memcmp(&conf.rec, &want.rec, sizeof conf.rec), 0) << bbtest::to_hex(conf.bytes() + 2273, 26);
    }
}

}  // namespace
