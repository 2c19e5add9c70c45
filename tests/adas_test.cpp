// adas_test.cpp - the ten ADAS and DSM wire forms: each form's row table is typed here from the form's
// description, and one set of checks runs over every form.
#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::dump_text;
using bbtest::output_of;
using bbtest::to_hex;
using Bytes = std::vector<unsigned char>;
using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;
using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;

namespace {

// One run of fields: wire offset, local offset, width, count, all-ones keeps.
struct Row {
    int wire, local, width, count;
    bool keep;
};
using Rows = std::vector<Row>;
constexpr bool K = true, A = false;  // A: copied even when all ones
Rows operator+(Rows a, const Rows& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

template <typename T, int (*F)(unsigned char*, unsigned char, T*)>
int set_as(unsigned char* w, unsigned char n, unsigned char* l) { return F(w, n, reinterpret_cast<T*>(l)); }
template <typename T, int (*F)(T*, unsigned char*, unsigned)>
int get_as(unsigned char* l, unsigned char* w, unsigned n) { return F(reinterpret_cast<T*>(l), w, n); }

struct FormCase {
    std::string name;  // the log lines name <name>_B2LStruct and <name>_LStruct2B
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    size_t local_size;
    int length;
    const char* wording;
    bool dump_before;    // dumps the length's worth of bytes in front of wire
    bool logs_received;  // set logs the received bytes before converting
    Rows rows;
    int id = 0;  // the dictionary ID that reaches the form, its record offset and the smallest buffer it takes
    size_t offset = 0;
    unsigned min_buf = 0;
};
#define FORM(T, name, fn, ...) {name, set_as<T, fn##_B2LStruct>, get_as<T, fn##_LStruct2B>, sizeof(T), __VA_ARGS__}

// Calls f(wire offset, local offset, width, keep) for every field of the form.
template <typename F>
void each_field(const FormCase& c, F f) {
    for (const Row& r : c.rows) {
        for (int n = 0; n < r.count; n++) f(r.wire + n * r.width, r.local + n * r.width, r.width, r.keep);
    }
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

// Blocks of three kinds: distinct bytes 0x80..0xfe; all ones; all ones but the last byte of every field (the
// marker is per field, not per byte).
enum Kind { kDistinct, kAllOnes, kNearAllOnes };
void fill_block(const FormCase& c, unsigned char* w, Kind kind) {
    for (int i = 0; i <= c.length; i++) w[i] = kind == kDistinct ? static_cast<unsigned char>(0x80 + i % 0x7f) : 0xff;
    if (kind == kNearAllOnes) each_field(c, [&](int wo, int, int width, bool) { w[wo + width - 1] = 0xfe; });
}

// What a set should leave: big-endian fields reversed into the record, skipped where the row keeps on all-ones.
Bytes expect_local(const FormCase& c, const unsigned char* w, Bytes local) {
    each_field(c, [&](int wo, int lo, int width, bool keep) {
        if (keep && std::all_of(w + wo, w + wo + width, [](unsigned char b) { return b == 0xff; })) return;
        for (int k = 0; k < width; k++) local[lo + k] = w[wo + width - 1 - k];
    });
    return local;
}

// What a get should write: mapped fields big-endian, everything else 0.
Bytes expect_wire(const FormCase& c, const Bytes& local) {
    Bytes w(c.length, 0);
    each_field(c, [&](int wo, int lo, int width, bool) {
        for (int k = 0; k < width; k++) w[wo + k] = local[lo + width - 1 - k];
    });
    return w;
}

// The Inf line of a set (Len, DataLen) or a get (Len, BufLen).
std::string inf(const FormCase& c, bool set, int len, int b) {
    return "Inf [" + c.name + (set ? "_B2LStruct():N] " : "_LStruct2B():N] ") + c.wording +
           (set ? " Param Set Len:" : " Param Get Len:") + std::to_string(len) + (set ? ", DataLen:" : ", BufLen:") +
           std::to_string(b) + "\n";
}
// What a set or get prints when the length passes or fails its test.
std::string lines(const FormCase& c, bool set, bool ok, int b, const unsigned char* w) {
    if (!ok) return "[ASSERT][" + c.name + (set ? "_B2LStruct:N]: DataLen == Cnt\n" : "_LStruct2B:N]: BufLen >= Cnt\n");
    return inf(c, set, c.length, b) + dump_text(c.dump_before ? w - c.length : w, c.length);
}

// Every kind of block at the right length, one off either way, 0 and 255: the conversion always happens; the
// lines, dump and result follow the length.  A get writes the whole form (and nothing past it) whatever buflen says.
void check_form(const FormCase& c) {
    SCOPED_TRACE(c.name + " " + c.wording);
    for (Kind kind : {kDistinct, kAllOnes, kNearAllOnes}) {
        for (int len : {c.length, c.length - 1, c.length + 1, 0, 255}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " len " << len);
            WireBuf in;
            fill_block(c, in.wire(), kind);
            Bytes local = local_pattern(c.local_size);
            const Bytes want = expect_local(c, in.wire(), local);
            int r = -1;
            const std::string log =
                output_of([&] { r = c.set(in.wire(), static_cast<unsigned char>(len), local.data()); });
            EXPECT_EQ(hx(local), hx(want));
            EXPECT_EQ(log, (c.logs_received ? inf(c, true, 0, len) + dump_text(in.wire(), len) : "") +
                               lines(c, true, len == c.length, len, in.wire()));
            EXPECT_EQ(r, len == c.length ? c.length : 0);
        }
    }
    const Bytes local = local_pattern(c.local_size);
    for (unsigned buflen : {c.length - 1u, c.length + 0u, c.length + 100u}) {
        SCOPED_TRACE(buflen);
        Bytes rec = local;
        WireBuf out;
        int r = -1;
        const bool fits = buflen >= static_cast<unsigned>(c.length);
        const std::string log = output_of([&] { r = c.get(rec.data(), out.wire(), buflen); });
        EXPECT_EQ(log, lines(c, false, fits, static_cast<int>(buflen), out.wire()));
        EXPECT_EQ(to_hex(out.wire(), c.length + 1), hx(expect_wire(c, local)) + " ee");
        EXPECT_EQ(hx(rec), hx(local));
        EXPECT_EQ(r, fits ? c.length : 0);
    }
    if (!c.id) return;
    // The dictionary hands the codecs the caller's BufLen, and the set length cut to 8 bits.
    bbtest::Conf conf;
    WireBuf in, out;
    fill_block(c, in.wire(), kDistinct);
    int r = 0;
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, in.wire(), c.length + 256); }),
              lines(c, true, true, c.length, in.wire()));
    EXPECT_EQ(r, c.length + 256);
    const Bytes stored = expect_local(c, in.wire(), Bytes(c.local_size, 0));
    EXPECT_EQ(to_hex(conf.bytes() + c.offset, stored.size()), hx(stored));
    const std::string log = output_of([&] { r = CMN_GetParam(&conf.rec, c.id, out.wire(), c.min_buf); });
    EXPECT_EQ(log, lines(c, false, true, static_cast<int>(c.min_buf), out.wire()));
    EXPECT_EQ(r, c.length);
    EXPECT_EQ(to_hex(out.wire(), c.length), hx(expect_wire(c, stored)));
}

// clang-format off
// Wire 0..51 onto local 0..51; the reserved byte 19 has no all-ones marker.
const Rows kAdasHead = {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K},
                        {19, 19, 1, 1, A}, {20, 20, 1, 32, K}};
// Wire 0..46 of the DSM forms; wire 23..25 are reserved.
const Rows kDsmHead = {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K},
                       {19, 19, 2, 2, K}, {26, 23, 1, 21, K}};

// The generic overloads (CMN) forward to the Subiao codecs, names included.
const std::vector<FormCase> kForms = {
    FORM(Adas, "SubiaoAdas", SubiaoAdas, 56, "Subiao Adas", true, false, kAdasHead, 0xf364,
         offsetof(tagBB_CONF_ST, stSubiaoAdas), 104),
    FORM(Adas, "SubiaoAdas", CMN, 56, "Subiao Adas", true, false, kAdasHead),
    FORM(Adas, "SiChuan", SiChuan, 61, "Subiao Adas", true, false, kAdasHead + Rows{{52, 63, 1, 5, K}}),
    FORM(Adas, "GuangDongAdas", GuangDongAdas, 64, "Guangdong Adas", true, false, kAdasHead + Rows{{52, 55, 1, 8, K}}),
    FORM(Adas, "HunanAdas", HunanAdas, 96, "Hunan Adas", true, false,
         {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}, {32, 32, 1, 4, K}, {37, 37, 1, 9, K},
          {47, 47, 1, 4, K}, {72, 80, 2, 12, K}}),
    FORM(Adas, "JiLingAdas", JiLingAdas, 112, "JiLing Adas", true, false,
         kAdasHead + Rows{{56, 55, 1, 4, K}, {60, 68, 2, 18, K}}),
    FORM(Dsm, "SubiaoDsm", SubiaoDsm, 49, "Subiao Dsm", false, false, kDsmHead, 0xf365,
         offsetof(tagBB_CONF_ST, stSubiaoDsm), 132),
    FORM(Dsm, "SubiaoDsm", CMN, 49, "Subiao Dsm", false, false, kDsmHead),
    FORM(Dsm, "SiChuan", SiChuan, 65, "Subiao Dsm", false, true,
         kDsmHead + Rows{{47, 44, 1, 6, A}, {53, 50, 1, 3, K}, {56, 53, 2, 1, K}, {58, 55, 1, 3, K},
                         {61, 58, 2, 1, K}}),
    FORM(Dsm, "GuangDongDsm", GuangDongDsm, 66, "Guangdong Dsm", true, false,
         kDsmHead + Rows{{47, 60, 1, 1, K}, {48, 68, 1, 4, K}, {52, 64, 1, 4, K}, {56, 72, 1, 8, K}}),
    FORM(Dsm, "HunanDsm", HunanDsm, 110, "Hunan Dsm", true, false,
         {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}, {19, 19, 2, 2, K}, {27, 24, 1, 3, K},
          {31, 28, 1, 3, K}, {35, 32, 1, 3, K}, {39, 36, 1, 3, K}, {43, 40, 1, 4, K}, {61, 69, 1, 3, K},
          {68, 84, 2, 15, K}, {98, 126, 2, 3, K}, {104, 114, 2, 3, K}}),
    FORM(Dsm, "JiLingDsm", JiLingDsm, 126, "JiLing Dsm", true, false,
         kDsmHead + Rows{{60, 68, 1, 8, K}, {68, 84, 2, 15, K}, {104, 114, 2, 6, K}}),
};
// clang-format on

TEST(AdasDsmForms, SetAndGetEveryForm) {
    for (const auto& c : kForms) check_form(c);
}

}  // namespace
