// region_test.cpp - a set of any known ID, with random values of random lengths (0, negative, the limit, over
// it), changes no record byte outside that row's field.  The fields are the catalogue's columns, checked against
// the record layout in catalogue_test.cpp; what a get writes is checked there too, for every row and BufLen.
#include <cstring>
#include <random>
#include <vector>

#include "bbconf_catalogue.h"
#include "quiet_stdout.h"
#include "test_util.h"

namespace {

template <typename Rec, typename SetFn>
void check_regions(bbconf::RecordKind kind, void (*init)(Rec*), SetFn set) {
    std::mt19937 rng(2024);
    std::vector<unsigned char> value(400 + 128);
    for (int row = 0; row < bbconf::param_count(kind); row++) {
        const bbconf::ParamInfo p = bbconf::param_at(kind, row);
        SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << p.id);
        const int size = p.field_size;
        const int lengths[] = {0, -1, -300, 1, 2, 4, size - 1, size, size + 1, 255, 256, 300, 0};
        for (int round = 0; round < 26; round++) {
            static Rec rec, before;
            init(&rec);
            auto* bytes = reinterpret_cast<unsigned char*>(&rec);
            // Random content everywhere, so a stray write of a default shows.
            for (size_t i = 0; i < sizeof rec; i++) bytes[i] = static_cast<unsigned char>(rng());
            std::memcpy(&before, &rec, sizeof rec);
            const int len = round == 12 ? static_cast<int>(rng() % 400) : lengths[round % 13];
            for (auto& b : value) b = static_cast<unsigned char>(rng() % 4 ? rng() : 0xff);
            // Room in front: the ADAS codecs log the bytes ahead of the wire.
            set(&rec, p.id, value.data() + 64, len);
            const auto* orig = reinterpret_cast<const unsigned char*>(&before);
            for (size_t i = 0; i < sizeof rec; i++) {
                if (p.settable && i >= p.offset && i < p.offset + p.field_size) continue;
                ASSERT_EQ(bytes[i], orig[i]) << "set len " << len << " changed byte " << i;
            }
        }
    }
}

void terminal_init(tagBB_CONF_ST* rec) { CMN_InitBbConfToDefault(rec); }

TEST(Region, SetsStayInTheirField) {
    bbtest::QuietStdout quiet;
    check_regions(bbconf::RecordKind::Terminal, terminal_init, CMN_SetParam);
    check_regions(bbconf::RecordKind::Taxi, BBTAXI_InitToDefault, BBTAXI_SetParam);
}

}  // namespace
