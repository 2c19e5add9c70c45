// dictionary_ids_test.cpp - which of the 65536 parameter IDs the terminal
// dictionary knows: every ID is tried on get and on set, and the IDs that do
// not report "Not Find" must be exactly the terminal's parameter IDs; then the exact
// "Not Find" lines and results.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;

namespace {

// clang-format off
// The communication, alarm/video/vehicle and vendor ID tables.
const int kKnown[][2] = {
    {0x0001, 0x0007}, {0x0010, 0x001d}, {0x0020, 0x0029}, {0x002c, 0x0031}, {0x0040, 0x0049}, {0x0050, 0x005e},
    {0x0064, 0x0065}, {0x0070, 0x0077}, {0x0079, 0x007c}, {0x0080, 0x0084}, {0x0090, 0x0095}, {0x00a1, 0x00a2},
    {0x0100, 0x0103}, {0x0110, 0x0110}, {0x101a, 0x101f}, {0x1031, 0x1031}, {0x8620, 0x8620}, {0x8f21, 0x8f21},
    {0xc21b, 0xc21b}, {0xc222, 0xc223}, {0xc255, 0xc255}, {0xc257, 0xc258}, {0xc25b, 0xc25c},
    // Heibiao blocks: four IDs named like decimals, not a hexadecimal range.
    {0xe138, 0xe139}, {0xe140, 0xe141}, {0xf001, 0xf002}, {0xf011, 0xf011}, {0xf0e9, 0xf0e9}, {0xf0ef, 0xf0ef},
    {0xf106, 0xf106}, {0xf108, 0xf108}, {0xf110, 0xf110}, {0xf113, 0xf114}, {0xf120, 0xf12a}, {0xf200, 0xf202},
    {0xf364, 0xf368}, {0xf370, 0xf370}, {0xf372, 0xf373}, {0xf3f0, 0xf3f0}, {0xf400, 0xf400}, {0xf441, 0xf441},
    {0xf641, 0xf641}, {0xfe05, 0xfe06}, {0xfe09, 0xfe0a}, {0xfe10, 0xfe10}, {0xff00, 0xff02},
};
// clang-format on

// Known on get but absent on set.
const int kGetOnly[] = {0x0026, 0xe138, 0xe139, 0xe140, 0xe141, 0xf3f0, 0xf400, 0xf441, 0xf641, 0xff00, 0xff01, 0xff02};

// Calls call(id) for 0x0001..0xfffe with the output captured (unmasked:
// megabytes of it) and lists the IDs whose finding differs from want: "+id"
// known but not wanted, "-id" wanted but reported "Not Find".
template <typename F>
std::string found_vs(const std::vector<bool>& want, F&& call) {
    std::fflush(stdout);
    testing::internal::CaptureStdout();
    for (int id = 0x0001; id <= 0xfffe; id++) call(id);
    std::fflush(stdout);
    const std::string out = testing::internal::GetCapturedStdout(), key = "Not Find ID:";
    std::vector<bool> found(0x10000, true);
    // strtoul, not sscanf: sscanf measures the whole rest of the text.
    for (size_t at = out.find(key); at != std::string::npos; at = out.find(key, at + 1)) {
        found[std::strtoul(out.c_str() + at + key.size(), nullptr, 16) & 0xffff] = false;
    }
    testing::Message s;
    for (int id = 0x0001; id <= 0xfffe; id++) {
        if (found[id] != want[id]) s << (found[id] ? " +0x" : " -0x") << std::hex << id;
    }
    return s.GetString();
}

TEST(DictionaryIds, ExactlyTheTerminalIdsAreKnown) {
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    std::vector<bool> want(0x10000);
    for (const auto& r : kKnown) {
        for (int id = r[0]; id <= r[1]; id++) want[id] = true;
    }
    // Zeros with room on both sides: block codecs read a whole form and the
    // ADAS codec logs the bytes ahead of the buffer.
    std::vector<unsigned char> frame(1024, 0);
    EXPECT_EQ(found_vs(want, [&](int id) { CMN_GetParam(&conf.rec, id, frame.data() + 256, 512); }), "");
    for (int id : kGetOnly) want[id] = false;
    std::fill(frame.begin(), frame.end(), 0);
    EXPECT_EQ(found_vs(want, [&](int id) { CMN_SetParam(&conf.rec, id, frame.data() + 256, 0); }), "");
}

// Unknown IDs (and get-only ones on set): one line, len back on set, -1 on
// get, the record untouched.
TEST(DictionaryIds, NotFindLinesAndResults) {
    // clang-format off
    const struct { int id; const char *set_id, *get_id; } cases[] = {
        {0x0008, "8", "0x8"}, {0x10000, "10000", "0x10000"}, {-5, "fffffffb", "0xfffffffb"}, {0x0026, "26", nullptr}};
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf, before;
        unsigned char wire[64] = {1, 2, 3, 4, 5, 6, 7, 8};
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, wire, 7); }),
                  std::string("Err [CMN_SetParam():N] Not Find ID:") + c.set_id + " \n");
        EXPECT_EQ(r, 7);
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
        if (!c.get_id) continue;
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, wire, sizeof wire); }),
                  std::string("Err [CMN_GetParam():N] Not Find ID:") + c.get_id + "\n");
        EXPECT_EQ(r, -1);
    }
}

}  // namespace
