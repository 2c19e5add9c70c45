// block_and_device_ids_test.cpp - the block IDs behind their minimum buffers and the
// 8-bit length on the way to their codecs, the device identity IDs and the
// debug dumps.
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

// A buffer under the block's minimum is refused silently before the codec
// runs; at the minimum, and at -1 (a huge unsigned length), the codec
// answers with its form's length.
TEST(BlockAndDeviceIds, BlockMinimumBuffers) {
    // clang-format off
    const struct { int id, minimum, form; } cases[] = {
        {0x0075, 21, 21}, {0x0077, 253, 85}, {0xe138, 22, 22},  {0xe139, 33, 33}, {0xe140, 33, 33}, {0xe141, 45, 45},
        {0xf0ef, 18, 18}, {0xf364, 104, 56}, {0xf365, 132, 49}, {0xf366, 36, 36}, {0xf368, 50, 50}, {0xf370, 56, 54},
        {0xf372, 20, 18}, {0xf373, 4, 4},    {0xf400, 42, 42},  {0xfe10, 16, 16},
    };
    // clang-format on
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        // The ADAS codec logs the 56 bytes ahead of the buffer: give it room.
        std::vector<unsigned char> frame(64 + 300, 0xee);
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, frame.data() + 64, c.minimum - 1); }), "");
        EXPECT_EQ(r, -1);
        EXPECT_EQ(frame, std::vector<unsigned char>(frame.size(), 0xee));
        for (int buflen : {c.minimum, -1}) {
            output_of([&] { r = CMN_GetParam(&conf.rec, c.id, frame.data() + 64, buflen); });
            EXPECT_EQ(r, c.form) << buflen;
        }
    }
}

// The length handed to a block codec is cut to 8 bits (277 reaches it as
// 21); the set returns the caller's len whatever the codec makes of it.
TEST(BlockAndDeviceIds, BlockLengthIsCutToEightBits) {
    Conf conf;
    std::vector<unsigned char> wire = hex("01 02 0019 1e 11223344 03 04 0032 0f a1b2c3d4 0123 01"), out(32, 0xee);
    const std::string enc = to_hex(wire.data(), wire.size());
    wire.resize(300, 0x77);
    int r = 0;
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0x0075, wire.data(), 277); }), "");
    EXPECT_EQ(r, 277);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0075, out.data(), 32), 21);
    EXPECT_EQ(to_hex(out.data(), 22), enc + " ee");
    // 300 reaches the ADAS codec as 44: the field is converted, then the
    // length fails.  The codec logs the bytes before the block.
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    std::vector<unsigned char> frame(64 + 320, 0xff);
    frame[64] = 40;
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0xf364, frame.data() + 64, 300); }),
              "[ASSERT][SubiaoAdas_B2LStruct:N]: DataLen == Cnt\n");
    EXPECT_EQ(r, 300);
    EXPECT_EQ(+conf.rec.stSubiaoAdas.ucAlarmSpeed, 40);
}

// The provider's line, then the get's line with a dump of what was written.
TEST(BlockAndDeviceIds, Identity) {
    // clang-format off
    const struct { int id, buflen; const char *provider_line, *text; } cases[] = {
        {0xff01, 64, "Inf [GetDeviceFactoryId():N] FactoryId:40917\n", "40917"},
        {0xff02, 64, "Inf [GetDeviceTerminalType():N] TerminalType:MDVR\n", "MDVR"},
        {0xff01, 1, "Inf [GetDeviceFactoryId():N] FactoryId:\n", ""},
        {0xff00, 6, "Err [GetMacFormFile():N] MAC Size less than 6\n", ""},  // too small on any machine
    };
    // clang-format on
    Conf conf;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.buflen);
        unsigned char buf[64];
        std::memset(buf, 0xee, sizeof buf);
        int r = 0;
        std::string out = output_of([&] { r = CMN_GetParam(&conf.rec, c.id, buf, c.buflen); });
        int n = static_cast<int>(std::strlen(c.text));
        char war[64];
        std::snprintf(war, sizeof war, "War [CMN_GetParam():N] Get ID:%x Len:%d_", static_cast<unsigned>(c.id), n);
        EXPECT_EQ(out, c.provider_line + std::string(war) + (n > 0 ? dump_text(buf, n) : "\n"));
        EXPECT_EQ(r, n);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(buf), n), c.text);
    }
}

// The debug IDs dump what the caller passed in and answer -1.
TEST(BlockAndDeviceIds, DebugDumps) {
    unsigned char buf[40];
    for (int i = 0; i < 40; i++) buf[i] = static_cast<unsigned char>(0xa0 + i);
    Conf conf;
    for (const auto& c : {std::make_pair(0xf441, 31), {0xf441, 0}, {0xf641, -2}}) {
        SCOPED_TRACE(c.second);
        int r = 0;
        std::string want = "CMN_GetParam,N,BufLen=" + std::to_string(c.second) + "\n";
        if (c.second > 0) want += dump_text(buf, c.second);
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.first, buf, c.second); }), want + "\n");
        EXPECT_EQ(r, -1);
    }
    unsigned char three[3] = {1, 2, 0xab};
    EXPECT_EQ(output_of([&] { CMN_GetParam(&conf.rec, 0xf641, three, 3); }), "CMN_GetParam,N,BufLen=3\n 0102ab\n\n\n");
}

}  // namespace
