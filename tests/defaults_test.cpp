// defaults_test.cpp - the factory reset: the whole 3386-byte image built
// here field by field from the terminal's factory values, the block initialisers
// one by one against that image, their order, and the taxi record's reset.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "conf/field_defaults.h"
#include "test_util.h"

using bbtest::Conf;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;

constexpr size_t kServerA = 356, kServerB = 396;  // 0x001a and 0x001d, 32 bytes each

// U16 / U32: little-endian numbers in a row; TXT: a terminated text; HEX: bytes.
enum Kind { U16, U32, TXT, HEX };
struct Field {
    size_t off;
    Kind kind;
    const char* v;
};

template <size_t N>
Bytes image(size_t len, const Field (&fields)[N]) {
    Bytes b(len, 0);
    for (const Field& f : fields) {
        Bytes v = f.kind == HEX ? hex(f.v) : Bytes(f.v, f.v + (f.kind == TXT ? std::strlen(f.v) : 0));
        std::istringstream in(f.kind == U16 || f.kind == U32 ? f.v : "");
        for (unsigned long x; in >> std::setbase(0) >> x;)
            for (int i = 0; i < (f.kind == U16 ? 2 : 4); i++) v.push_back(static_cast<unsigned char>(x >> (8 * i)));
        for (size_t i = 0; i < v.size(); i++) b.at(f.off + i) = v[i];
    }
    return b;
}

// Every non-zero byte of the factory record but the two server fields.
// clang-format off
const Field kTerminal[] = {
    {0, U32, "20 60 3 60 3 60 3"}, {28, TXT, "3gnet"}, {60, TXT, "ptxk"}, {92, TXT, "ptxk"},  // communication, servers
    {124, TXT, "192.168.168.168"}, {188, TXT, "3gnet"}, {220, TXT, "ptxk"}, {252, TXT, "ptxk"},
    {284, TXT, "192.168.168.168"}, {348, U32, "7008 7008"}, {388, U32, "11001 11001"},
    {436, U32, "30 120 10 30 500 500 500 200 45"}, {472, U16, "500"},  // reporting, telephony, alarms, image
    {554, U32, "1 0xffffffff 0xffffffff"}, {622, U32, "10 14400"}, {634, U32, "1200"},
    {642, U16, "50 1800 0x0a32 30"}, {662, U32, "5 128 64 64 128"},
    // Encoding block; look-up list of 4 channels (k, k, 0, 0); 4 channel settings.
    {686, HEX, "00 01 19 00 0c 80 00 00 00  00 03 19 00 19 00 04 00 00  1b 00  00"},
    {707, HEX, "04 00 00  01 01 00 00  02 02 00 00  03 03 00 00  04 04 00 00"},
    {858, HEX, "04  01 00 01 19 00 0c 80 00 00 00  00 03 19 00 19 19 00 00 00  1b 00"},
    {880, HEX, "02 00 01 19 00 0c 80 00 00 00  00 03 19 00 19 19 00 00 00  1b 00"},
    {901, HEX, "03 00 01 19 00 0c 80 00 00 00  00 03 19 00 19 19 00 00 00  1b 00"},
    {922, HEX, "04 00 01 19 00 0c 80 00 00 00  00 03 19 00 19 19 00 00 00  1b 00"},
    // Alarm record, wake-up mode 4 with periods 00:00-23:59, and on.
    {1111, HEX, "14 05 01"}, {1116, HEX, "04 00 00 00  0000 2359  0000 2359  0000 2359  0000 2359"},
    {1176, HEX, "09 03 01 01"}, {1180, U32, "1"},
    {1241, HEX, "00 50 22 00 00 06 00 00  00 02 00 00 05 00 00 00"},  // night rules
    {1257, HEX, "00 22 00 00 05 00 00 20 1c 00 00 b0 04 00 00 00"}, {1437, HEX, "3c 05"},
    {1443, HEX, "02 c0 a8 00 00 1e"}, {1469, HEX, "05"}, {1473, HEX, "c0 a8 00 00"},
    // Subiao ADAS (104 bytes; 63 to 103 zero) and DSM (132 bytes; 84 to 131 zero).
    {1487, HEX, "1e 06 00 3c 00 c8 00 03 02 03 03 ff 1f 01 00 03 00 00 00 00"
                "1e 32 05 03 02  3c 05 32 05 03 02  32 05 03 02  1b 32 05 03 02  1e 32 05 03 02"
                "0a 32 05 03 02  03 02  05 03 02  32 05 03 02  32 05 03 02"},
    {1591, HEX, "1e 06 00 10 0e c8 00 03 02 03 03 ff c3 ff 00 03 00 00 00 b4 00 78 00"
                "32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  01"
                "00 00 00 00 00 00  05 03 02 2c 01  05 03 02 2c 01"
                "32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02  32 05 03 02"},
    // TPMS ("Unknown"), BSD and the Heibiao blocks.
    {1723, TXT, "Unknown"}, {1735, HEX, "03 00 8c 00 14 00 05 00 6e 00 bd 00 50 00 0a 00 3c 00"}, {1759, HEX, "05 05"},
    {1761, HEX, "05 06 01 01 b0 04 05 03 02 05 03 02"},
    {1783, HEX, "1e 06 01 01 32 1b 1b 05 03 02 05 05 03 02 05 03 02 05 03 02 05 03 02"},
    {1816, HEX, "05 06 01 01 3c 00 3c 00  05 03 02 05 03 02 05 03 02 05 03 02 05 03 02"},
    {1849, HEX, "05 06 01 01 2c 01 2c 01  05 03 02 05 03 02 05 03 02 05 03 02 05 03 02"
                "05 03 02 05 03 02 05 03 02 05 03 02"},
    {1931, HEX, "01 00 00 00 01"}, {1952, HEX, "05 03 02"}, {1981, HEX, "01 32 32 02"},  // Xiangbiao blocks
    {1985, HEX, "01 14 05 00 01 14 05 00 01 14 05 00 b0 04 01 14 05 00"},
    // Intense driving (2003-2056) stays zero.  RS485 inquiry, muck truck and its profile.
    {2059, HEX, "04 00 00 00 41 02 0a 02 42 02 08 02 80 02 06 06 51 02 04 0c"},
    {2127, HEX, "1e 06 00 3c 00 c8 00 03 02 01 01 3f 00 00 00 01 00 00 00  32 05 03 02 05 03 02 1e 05 03 02"},
    {2273, HEX, "00 03 2c 01 58 02 00 00 bc 02 00 00 00 00 00 00  01 01 01 01 01 01 01 01 00 01"},
    {2473, U16, "5 10 600 1600 10 600 600 600 29 25 1600 1000"},  // terminal-local settings
    {2561, HEX, "0a"}, {2570, HEX, "01"}, {2572, HEX, "80 03 03 50"}, {2579, U32, "7200"},
    {2583, HEX, "20 00 06 00"}, {2588, U16, "2000"}, {2590, HEX, "08"},  // u32 32, then the byte 6 written into it
    {2592, U16, "16000"}, {2594, HEX, "04 01"}, {2632, U16, "1987"}, {2639, HEX, "01"},
    {2641, HEX, "b4 f3 d0 cd c6 fb b3 b5 00"}, {3221, HEX, "0a"}, {3354, U16, "10000"}, {3374, U16, "1750 1850"},
};

const Field kTaxi[] = {
    {0, U32, "20 60 3 60 3"}, {380, U32, "11001"},
    {425, U32, "30 30 30 60 30 120 10 500 500 500 200 200 500 200 45"},
    {577, U32, "16"}, {613, HEX, "04"}, {654, U32, "5 128 64 64 128"}, {763, HEX, "01"}, {930, U32, "7008"},
    {943, HEX, "02 0f 01 02 0f 01 00 1e 96 32"}, {962, HEX, "3c"}, {1034, HEX, "3c"},
};
// clang-format on

// A record of 0xFF between guard bytes ends as a zeroed one does, with the
// same checksum.
TEST(Defaults, WholeImageByteForByte) {
    Bytes buf(16 + 3386 + 16, 0xa5);
    std::fill(buf.begin() + 16, buf.end() - 16, 0xff);
    auto* prefilled = reinterpret_cast<tagBB_CONF_ST*>(&buf[16]);
    Conf zeroed;
    int sums[2];
    output_of([&] {
        CMN_InitBbConfToDefault(prefilled);
        CMN_InitBbConfToDefault(&zeroed.rec);
        sums[0] = CMN_UpdateCheckSum(prefilled);
        sums[1] = CMN_UpdateCheckSum(&zeroed.rec);
    });
    EXPECT_EQ(sums[0], sums[1]);
    EXPECT_EQ(std::memcmp(&buf[16], zeroed.bytes(), 3386), 0);
    EXPECT_EQ(to_hex(buf.data(), 16) + " " + to_hex(&buf[3402], 16), to_hex(Bytes(32, 0xa5).data(), 32));
    Bytes got(&buf[16], &buf[16 + 3386]), want = image(3386, kTerminal);
    unsigned char server[32] = "192.168.168.168";  // the platform server, in both fields
    for (size_t off : {kServerA, kServerB}) {
        EXPECT_EQ(to_hex(&got[off], 32), to_hex(server, 32));
        std::fill_n(&got[off], 32, 0);
    }
    for (size_t i = 0, n = 32; i < got.size(); i += n, n = std::min<size_t>(32, got.size() - i))
        EXPECT_EQ(to_hex(&got[i], n), to_hex(&want[i], n)) << "offset " << i;
}

// The intense-driving initialiser is not called.
TEST(Defaults, InitialisersRunInOrderAndTheLengthClosesTheOutput) {
    std::string want;
    for (const char* fn :
         {"__InitSubiaoAdasParam", "__InitSubiaoDsmParam", "__InitSubiaoTpmsParam", "__InitSubiaoBsdParam",
          "__InitHljDriverIdentifyParam", "__InitHljAdasParam", "__InitHljDsmParam", "__InitHljDevFailParam",
          "__InitXiangbiaoVdsParam", "__InitXiangbiaoDriverCmpParam", "__InitXiangbiaoDriverCaptureParam",
          "__InitQ8RS485InqureParam", "__InitZhatuAlarmParam"})
        want += std::string("War [") + fn + "():N] Param Inited!\n";
    Conf conf;
    EXPECT_EQ(output_of([&] {
                  CMN_InitBbConfToDefault(&conf.rec);
                  CMN_InitBbConfToDefault(nullptr);
              }),
              want + "Inf [CMN_InitBbConfToDefault():N] Init Param Len:3386\n" +
                  "[ASSERT][CMN_InitBbConfToDefault:N]: NULL != pbbConf\n");
}

// clang-format off
#define INIT(fn, m) #fn, [](unsigned char* p) { return fn(reinterpret_cast<decltype(tagBB_CONF_ST::m)*>(p)); }, \
    offsetof(tagBB_CONF_ST, m), sizeof(tagBB_CONF_ST::m)
// clang-format on

// Each initialiser alone, on a block of 0x5a: the image's bytes but those it
// leaves alone ([from, to) kept); the intense-driving block, left zero by the
// reset, is given whole (words 2, 5, 8 untouched).  It returns printf's count
// for its line, and on a null block the assertion line's count.
TEST(Defaults, BlockInitialisersAlone) {
    using Spans = std::vector<std::pair<size_t, size_t>>;
    // clang-format off
    const struct { const char* fn; int (*init)(unsigned char*); size_t off, len; Spans kept; const char* null_text;
                   const char* block = nullptr; } cases[] = {
        {INIT(__InitSubiaoAdasParam, stSubiaoAdas), {{63, 68}}, "NULL != pstSubiaoAdas"},
        {INIT(__InitSubiaoDsmParam, stSubiaoDsm), {}, "NULL != pstSubiaoDsm"},
        {INIT(__InitSubiaoTpmsParam, stSubiaoTpms), {}, "NULL != pstSubiaoTpms"},
        {INIT(__InitSubiaoBsdParam, stSubiaoBsd), {}, "NULL != pstSubiaoBsd"},
        {INIT(__InitSubiaoIntenseDriveParam, stSubiaoIntense), {}, "NULL != pstSubiaoIntense",
         "07 00 00 00 05 00 32 00 5a 5a 05 00 14 00 5a 5a 05 00 14 00 5a 5a 32 00 14 00 dc 05 14 00 64 00 f4 01"
         " 14 00 64 00 f4 01 14 00 64 00 dc 05 5a 5a 5a 5a 5a 5a 5a 5a"},
        {INIT(__InitHljDriverIdentifyParam, stHljDriverIdentify), {{12, 22}}, "NULL != pstHeibiaoDriverIdentify"},
        {INIT(__InitHljAdasParam, stHljAdas), {}, "NULL != pstHeibiaoAdas"},
        {INIT(__InitHljDsmParam, stHljDsm), {}, "NULL != pstHeibiaoDsm"},
        {INIT(__InitHljDevFailParam, stHljDevFail), {{35, 45}}, "NULL != pstHeibiaoDevFail"},
        {INIT(__InitXiangbiaoVdsParam, stXiangbiaoVds), {{6, 7}, {13, 21}}, "NULL != pstXiangbiaoVds"},
        {INIT(__InitXiangbiaoDriverCmpParam, stXiangbiaoDriverCmp), {}, "NULL != pstXiangbiaoDriverCmp"},
        {INIT(__InitXiangbiaoDriverCaptureParam, stXiangbiaoDriverCapture), {}, "NULL != pstXiangbiaoDriverCapt"},
        {INIT(__InitQ8RS485InqureParam, stRs485Inqure), {{20, 68}}, "NULL != pstRs485Inqure"},
        {INIT(__InitZhatuAlarmParam, stZhatuAlarm), {}, "NULL != pstZhatuAlarm"},
    };
    // clang-format on
    const Bytes all = image(3386, kTerminal);
    // What a call printed (lines masked) and returned, and printf's count for what it printed.
    const auto run = [](auto call) {
        std::fflush(stdout);
        testing::internal::CaptureStdout();
        const int r = call();
        std::fflush(stdout);
        const std::string out = testing::internal::GetCapturedStdout();
        return std::make_pair(bbtest::mask_lines(out) + "=" + std::to_string(r), static_cast<int>(out.size()));
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fn);
        Bytes rec(c.len + 1, 0x5a), want = c.block ? hex(c.block) : Bytes(&all[c.off], &all[c.off + c.len]);
        want.push_back(0x5a);
        for (const auto& k : c.kept) std::fill(want.begin() + k.first, want.begin() + k.second, 0x5a);
        const std::string message = c.block ? "Param Intense Drive!\n" : "Param Inited!\n";
        auto got = run([&] { return c.init(rec.data()); });
        EXPECT_EQ(got.first, std::string("War [") + c.fn + "():N] " + message + "=" + std::to_string(got.second));
        EXPECT_EQ(to_hex(rec.data(), rec.size()), to_hex(want.data(), want.size()));
        got = run([&] { return c.init(nullptr); });
        EXPECT_EQ(got.first, std::string("[ASSERT][") + c.fn + ":N]: " + c.null_text + "\n=" + std::to_string(got.second));
    }
}

#undef INIT

TEST(Defaults, TaxiRecord) {
    tagBBTAXI_CONF_ST rec;
    std::memset(&rec, 0xa5, sizeof rec);
    EXPECT_EQ(output_of([&] {
                  BBTAXI_InitToDefault(&rec);
                  BBTAXI_InitToDefault(nullptr);
              }),
              "Inf [BBTAXI_InitToDefault():N] Init TAXI Param Len:1037\n"
              "[ASSERT][BBTAXI_InitToDefault:N]: NULL != pTAXIConf\n");
    EXPECT_EQ(to_hex(reinterpret_cast<unsigned char*>(&rec), sizeof rec), to_hex(image(1037, kTaxi).data(), 1037));
}

// A defaults table as the initialisers read it: texts and patterns packed
// behind the rows (a pattern's NULs kept, an equal tail shared), each row
// written over exactly its bytes.
struct Sample {
    unsigned char head[2];
    char name[6];
    uint16_t word;
    unsigned char tail[6];
};
static_assert(sizeof(Sample) == 16, "no padding");
// clang-format off
constexpr bbconf::FieldDefault kSampleRows[] = {
    BB_BYTES(Sample, head, "\x01\0"),
    BB_TEXT(Sample, name, "abcdefgh"),
    BB_NUM(Sample, word, 0x1234),
    BB_BYTES(Sample, tail, "gh"),
    BB_RUN(Sample, tail, 3, 2, "\0"),
};
// clang-format on
constexpr bbconf::Defaults kSample = bbconf::defaults_of(kSampleRows);
// "\x01\0" and "abcdefgh", each terminated; "gh" and "\0" are their tails.
static_assert(bbconf::packed_default_text(kSample) == 3 + 9, "texts and patterns packed once");

TEST(DefaultsTable, PackedRowsWriteTheirBytesOnly) {
    const auto& p = bbconf::packed_defaults<kSample>;
    Bytes mem(4 + sizeof(Sample) + 4, 0xee);
    bbconf::put_field_defaults(mem.data() + 4, p);
    Bytes want = hex("ee ee ee ee 01 00 61 62 63 64 65 00 00 00 67 68 67 00 00 68 ee ee ee ee");
    const uint16_t word = 0x1234;
    std::memcpy(want.data() + 4 + offsetof(Sample, word), &word, 2);
    EXPECT_EQ(to_hex(mem.data(), mem.size()), to_hex(want.data(), want.size()));
}

}  // namespace
