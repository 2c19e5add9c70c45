// adas_test.cpp - the ADAS block and the wire-form checks shared by all ten
// ADAS and DSM forms: each form's row table is typed here from the form's
// description, and one set of checks runs over every form.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;
using Bytes = std::vector<unsigned char>;

namespace {

// One run of fields: wire offset, local offset, width, count, all-ones keeps.
struct Row {
    int wire, local, width, count;
    bool keep;
};
using Rows = std::vector<Row>;
constexpr bool K = true;   // all-ones keeps the local field
constexpr bool A = false;  // copied always

using SetFn = int (*)(unsigned char*, unsigned char, unsigned char*);
using GetFn = int (*)(unsigned char*, unsigned char*, unsigned);

template <typename T, int (*F)(unsigned char*, unsigned char, T*)>
int set_as(unsigned char* w, unsigned char n, unsigned char* l) { return F(w, n, reinterpret_cast<T*>(l)); }
template <typename T, int (*F)(T*, unsigned char*, unsigned)>
int get_as(unsigned char* l, unsigned char* w, unsigned n) { return F(reinterpret_cast<T*>(l), w, n); }

struct FormCase {
    const char* set_name;  // function name in the set lines
    const char* get_name;
    SetFn set;
    GetFn get;
    int length;
    size_t local_size;
    const char* wording;
    bool dump_before;    // dumps the length's worth of bytes in front of wire
    bool logs_received;  // set logs the received bytes before converting
    Rows rows;
};

template <typename T>
unsigned char* raw(T& rec) { return reinterpret_cast<unsigned char*>(&rec); }

Rows operator+(Rows a, const Rows& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// A wire buffer with 128 known bytes in front of the block and room behind.
struct WireBuf {
    Bytes mem = Bytes(128 + 384, 0xee);
    WireBuf() {
        for (int i = 0; i < 128; i++) mem[i] = static_cast<unsigned char>(i * 13 + 5);
    }
    unsigned char* wire() { return mem.data() + 128; }
};

std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }

// Record bytes 0x01..0x7f; never 0xFF and never equal to a block byte.
Bytes local_pattern(size_t n) {
    Bytes b(n);
    for (size_t i = 0; i < n; i++) b[i] = static_cast<unsigned char>(1 + i % 0x7f);
    return b;
}

// Blocks of three kinds: distinct bytes 0x80..0xfe; all ones; all ones but
// the last byte of every field (the marker is per field, not per byte).
enum Kind { kDistinct, kAllOnes, kNearAllOnes };
void fill_block(const FormCase& c, unsigned char* w, Kind kind) {
    for (int i = 0; i <= c.length; i++) w[i] = kind == kDistinct ? static_cast<unsigned char>(0x80 + i % 0x7f) : 0xff;
    if (kind != kNearAllOnes) return;
    for (const Row& r : c.rows) {
        for (int n = 0; n < r.count; n++) w[r.wire + (n + 1) * r.width - 1] = 0xfe;
    }
}

// What a set should leave: big-endian fields reversed into the record,
// skipped where the row keeps on all-ones.
Bytes expect_local(const FormCase& c, const unsigned char* w, Bytes local) {
    for (const Row& r : c.rows) {
        for (int n = 0; n < r.count; n++) {
            const unsigned char* src = w + r.wire + n * r.width;
            bool ones = true;
            for (int k = 0; k < r.width; k++) ones = ones && src[k] == 0xff;
            if (r.keep && ones) continue;
            for (int k = 0; k < r.width; k++) local[r.local + n * r.width + k] = src[r.width - 1 - k];
        }
    }
    return local;
}

// What a get should write: mapped fields big-endian, everything else 0.
Bytes expect_wire(const FormCase& c, const Bytes& local) {
    Bytes w(c.length, 0);
    for (const Row& r : c.rows) {
        for (int n = 0; n < r.count; n++) {
            for (int k = 0; k < r.width; k++) {
                w[r.wire + n * r.width + k] = local[r.local + n * r.width + r.width - 1 - k];
            }
        }
    }
    return w;
}

std::string inf(const char* fn, const FormCase& c, const char* dir, int a, const char* b_name, int b) {
    return std::string("Inf [") + fn + "():N] " + c.wording + " Param " + dir + " Len:" + std::to_string(a) +
           ", " + b_name + ":" + std::to_string(b) + "\n";
}

// Every kind of block at the right length and one off either way: the
// conversion always happens; the lines, dump and result follow the length.
void check_set(const FormCase& c) {
    SCOPED_TRACE(c.set_name);
    for (Kind kind : {kDistinct, kAllOnes, kNearAllOnes}) {
        for (int len : {c.length, c.length - 1, c.length + 1}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " len " << len);
            WireBuf in;
            fill_block(c, in.wire(), kind);
            Bytes local = local_pattern(c.local_size);
            const Bytes want = expect_local(c, in.wire(), local);
            int r = -1;
            const std::string log =
                output_of([&] { r = c.set(in.wire(), static_cast<unsigned char>(len), local.data()); });
            EXPECT_EQ(hx(local), hx(want));
            const unsigned char* origin = c.dump_before ? in.wire() - c.length : in.wire();
            std::string lines = c.logs_received ? inf(c.set_name, c, "Set", 0, "DataLen", len) + dump_text(in.wire(), len)
                                                : "";
            lines += len == c.length ? inf(c.set_name, c, "Set", len, "DataLen", len) + dump_text(origin, len)
                                     : std::string("[ASSERT][") + c.set_name + ":N]: DataLen == Cnt\n";
            EXPECT_EQ(log, lines);
            EXPECT_EQ(r, len == c.length ? c.length : 0);
        }
    }
}

// The whole form is written (and nothing past it) whatever buflen says.
void check_get(const FormCase& c) {
    SCOPED_TRACE(c.get_name);
    const Bytes local = local_pattern(c.local_size);
    const Bytes image = expect_wire(c, local);
    for (unsigned buflen : {c.length - 1u, c.length + 0u, c.length + 100u}) {
        SCOPED_TRACE(buflen);
        Bytes rec = local;
        WireBuf out;
        int r = -1;
        const std::string log = output_of([&] { r = c.get(rec.data(), out.wire(), buflen); });
        EXPECT_EQ(to_hex(out.wire(), c.length), hx(image));
        EXPECT_EQ(out.wire()[c.length], 0xee) << "wrote past the form";
        EXPECT_EQ(hx(rec), hx(local));
        const unsigned char* origin = c.dump_before ? out.wire() - c.length : out.wire();
        const bool fits = buflen >= static_cast<unsigned>(c.length);
        EXPECT_EQ(log, fits ? inf(c.get_name, c, "Get", c.length, "BufLen", static_cast<int>(buflen)) +
                                  dump_text(origin, c.length)
                            : std::string("[ASSERT][") + c.get_name + ":N]: BufLen >= Cnt\n");
        EXPECT_EQ(r, fits ? c.length : 0);
    }
}

using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;
using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;

// Wire 0..51 onto local 0..51; the reserved byte 19 has no all-ones marker.
const Rows kAdasHead = {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K},
                        {19, 19, 1, 1, A}, {20, 20, 1, 32, K}};

const std::vector<FormCase> kAdasForms = {
    {"SubiaoAdas_B2LStruct", "SubiaoAdas_LStruct2B", set_as<Adas, SubiaoAdas_B2LStruct>,
     get_as<Adas, SubiaoAdas_LStruct2B>, 56, sizeof(Adas), "Subiao Adas", true, false, kAdasHead},
    // The generic overloads forward to the Subiao codecs, names included.
    {"SubiaoAdas_B2LStruct", "SubiaoAdas_LStruct2B", set_as<Adas, CMN_B2LStruct>, get_as<Adas, CMN_LStruct2B>, 56,
     sizeof(Adas), "Subiao Adas", true, false, kAdasHead},
    {"SiChuan_B2LStruct", "SiChuan_LStruct2B", set_as<Adas, SiChuan_B2LStruct>, get_as<Adas, SiChuan_LStruct2B>, 61,
     sizeof(Adas), "Subiao Adas", true, false, kAdasHead + Rows{{52, 63, 1, 5, K}}},
    {"GuangDongAdas_B2LStruct", "GuangDongAdas_LStruct2B", set_as<Adas, GuangDongAdas_B2LStruct>,
     get_as<Adas, GuangDongAdas_LStruct2B>, 64, sizeof(Adas), "Guangdong Adas", true, false,
     kAdasHead + Rows{{52, 55, 1, 8, K}}},
    {"HunanAdas_B2LStruct", "HunanAdas_LStruct2B", set_as<Adas, HunanAdas_B2LStruct>,
     get_as<Adas, HunanAdas_LStruct2B>, 96, sizeof(Adas), "Hunan Adas", true, false,
     {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}, {32, 32, 1, 4, K},
      {37, 37, 1, 9, K}, {47, 47, 1, 4, K}, {72, 80, 2, 12, K}}},
    {"JiLingAdas_B2LStruct", "JiLingAdas_LStruct2B", set_as<Adas, JiLingAdas_B2LStruct>,
     get_as<Adas, JiLingAdas_LStruct2B>, 112, sizeof(Adas), "JiLing Adas", true, false,
     kAdasHead + Rows{{56, 55, 1, 4, K}, {60, 68, 2, 18, K}}},
};

// Wire 0..46 of the DSM forms; wire 23..25 are reserved.
const Rows kDsmHead = {{0, 0, 1, 3, K},    {3, 3, 2, 2, K},   {7, 7, 1, 4, K},
                       {11, 11, 4, 2, K}, {19, 19, 2, 2, K}, {26, 23, 1, 21, K}};

const std::vector<FormCase> kDsmForms = {
    {"SubiaoDsm_B2LStruct", "SubiaoDsm_LStruct2B", set_as<Dsm, SubiaoDsm_B2LStruct>,
     get_as<Dsm, SubiaoDsm_LStruct2B>, 49, sizeof(Dsm), "Subiao Dsm", false, false, kDsmHead},
    {"SubiaoDsm_B2LStruct", "SubiaoDsm_LStruct2B", set_as<Dsm, CMN_B2LStruct>, get_as<Dsm, CMN_LStruct2B>, 49,
     sizeof(Dsm), "Subiao Dsm", false, false, kDsmHead},
    {"SiChuan_B2LStruct", "SiChuan_LStruct2B", set_as<Dsm, SiChuan_B2LStruct>, get_as<Dsm, SiChuan_LStruct2B>, 65,
     sizeof(Dsm), "Subiao Dsm", false, true,
     kDsmHead + Rows{{47, 44, 1, 6, A}, {53, 50, 1, 3, K}, {56, 53, 2, 1, K}, {58, 55, 1, 3, K}, {61, 58, 2, 1, K}}},
    {"GuangDongDsm_B2LStruct", "GuangDongDsm_LStruct2B", set_as<Dsm, GuangDongDsm_B2LStruct>,
     get_as<Dsm, GuangDongDsm_LStruct2B>, 66, sizeof(Dsm), "Guangdong Dsm", true, false,
     kDsmHead + Rows{{47, 60, 1, 1, K}, {48, 68, 1, 4, K}, {52, 64, 1, 4, K}, {56, 72, 1, 8, K}}},
    {"HunanDsm_B2LStruct", "HunanDsm_LStruct2B", set_as<Dsm, HunanDsm_B2LStruct>, get_as<Dsm, HunanDsm_LStruct2B>,
     110, sizeof(Dsm), "Hunan Dsm", true, false,
     {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}, {19, 19, 2, 2, K}, {27, 24, 1, 3, K},
      {31, 28, 1, 3, K}, {35, 32, 1, 3, K}, {39, 36, 1, 3, K}, {43, 40, 1, 4, K}, {61, 69, 1, 3, K},
      {68, 84, 2, 15, K}, {98, 126, 2, 3, K}, {104, 114, 2, 3, K}}},
    {"JiLingDsm_B2LStruct", "JiLingDsm_LStruct2B", set_as<Dsm, JiLingDsm_B2LStruct>,
     get_as<Dsm, JiLingDsm_LStruct2B>, 126, sizeof(Dsm), "JiLing Dsm", true, false,
     kDsmHead + Rows{{60, 68, 1, 8, K}, {68, 84, 2, 15, K}, {104, 114, 2, 6, K}}},
};

TEST(AdasForms, SetConvertsThenChecksLength) { for (const auto& c : kAdasForms) check_set(c); }
TEST(AdasForms, GetWritesWholeFormThenChecksBuffer) { for (const auto& c : kAdasForms) check_get(c); }
TEST(DsmForms, SetConvertsThenChecksLength) { for (const auto& c : kDsmForms) check_set(c); }
TEST(DsmForms, GetWritesWholeFormThenChecksBuffer) { for (const auto& c : kDsmForms) check_get(c); }

const char* const kAdasDefaultHead =  // native order: 60 = 3c 00, 0x11fff = ff 1f 01 00
    "1e 06 00 3c 00 c8 00 03 02 03 03 ff 1f 01 00 03 00 00 00 00"
    "1e 32 05 03 02 3c 05 32 05 03 02 32 05 03 02 1b 32 05 03 02 1e 32 05 03 02 0a 32 05 03 02 03 02";

TEST(Adas, InitWritesDefaultsButLeavesSiChuanBytes) {
    Adas rec;
    std::memset(&rec, 0xa5, sizeof rec);
    int r = 0;
    testing::internal::CaptureStdout();
    r = __InitSubiaoAdasParam(&rec);
    std::fflush(stdout);
    const std::string text = testing::internal::GetCapturedStdout();
    EXPECT_EQ(bbtest::mask_lines(text), "War [__InitSubiaoAdasParam():N] Param Inited!\n");
    EXPECT_EQ(r, static_cast<int>(text.size()));  // the result of the final printf
    const Bytes want = hex(std::string(kAdasDefaultHead) + "05 03 02 32 05 03 02 32 05 03 02" + "a5 a5 a5 a5 a5" +
                           std::string(72, '0'));
    EXPECT_EQ(to_hex(raw(rec), sizeof rec), hx(want));
    // Every call reports, not only the first.
    EXPECT_EQ(output_of([&] { __InitSubiaoAdasParam(&rec); }), "War [__InitSubiaoAdasParam():N] Param Inited!\n");
    EXPECT_EQ(output_of([&] { r = __InitSubiaoAdasParam(nullptr); }),
              "[ASSERT][__InitSubiaoAdasParam:N]: NULL != pstSubiaoAdas\n");
    EXPECT_EQ(r, -1);
}

TEST(Adas, DefaultGetImages) {
    Adas rec;
    output_of([&] { __InitSubiaoAdasParam(&rec); });
    const std::string head19 = "1e 06 00 00 3c 00 c8 03 02 03 03 00 01 1f ff 00 00 00 03";
    struct {
        GetFn get;
        std::string image;
    } cases[] = {
        {get_as<Adas, SubiaoAdas_LStruct2B>,
         head19 + "00 1e 32 05 03 02 3c 05 32 05 03 02 32 05 03 02 1b 32 05 03 02 1e 32 05 03 02 0a 32 05 03 02 03 02"
                  "00 00 00 00"},
        // Hunan: gaps at 19..31, 36, 46 and 51..71; the extension words are 0.
        {get_as<Adas, HunanAdas_LStruct2B>, head19 + std::string(26, '0') + "05 03 02 1b 00 05 03 02 1e 32 05 03 02 0a"
                                                "00 05 03 02 03" + std::string(42 + 48, '0')},
    };
    for (const auto& c : cases) {
        WireBuf out;
        const Bytes want = hex(c.image);
        output_of([&] { c.get(raw(rec), out.wire(), 200); });
        EXPECT_EQ(to_hex(out.wire(), want.size()), hx(want));
    }
}

// Through the parameter dictionary: ID 0xf364 reaches the Subiao codecs; the
// set length is cut to 8 bits on the way (300 arrives as 44).
TEST(Adas, DictionaryReachesSubiaoCodecs) {
    Conf conf;
    output_of([&] { __InitSubiaoAdasParam(&conf.rec.stSubiaoAdas); });
    WireBuf in;
    std::memset(in.wire(), 0xff, 56);
    in.wire()[1] = 9;  // volume
    int r = 0;
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0xf364, in.wire(), 300); }),
              "[ASSERT][SubiaoAdas_B2LStruct:N]: DataLen == Cnt\n");
    EXPECT_EQ(r, 300);
    EXPECT_EQ(conf.rec.stSubiaoAdas.ucVolume, 9);
    EXPECT_EQ(conf.rec.stSubiaoAdas.ucAlarmSpeed, 30);

    WireBuf out;
    const std::string log = output_of([&] { r = CMN_GetParam(&conf.rec, 0xf364, out.wire(), 104); });
    EXPECT_EQ(r, 56);
    EXPECT_EQ(out.wire()[1], 9);
    EXPECT_EQ(log, "Inf [SubiaoAdas_LStruct2B():N] Subiao Adas Param Get Len:56, BufLen:104\n" +
                       dump_text(out.wire() - 56, 56));
}

}  // namespace
