// adas_test.cpp - the Subiao wire forms, each typed here as a row table from the form's description: the ten ADAS
// and DSM forms and the checked fixed-length blocks (tyre pressure, intense driving, muck truck).  One driver runs
// them all, also through their dictionary IDs.
#include <algorithm>
#include <string>
#include <vector>

#include "test_util.h"

namespace {

using bbtest::dump_text;
using bbtest::to_hex;
using Bytes = std::vector<unsigned char>;

// One run of fields: wire offset, local offset, width, count, all-ones keeps.
struct Row {
    int wire, local, width, count;
    bool keep;
};
using Table = std::vector<Row>;
using Rows = std::vector<Table>;     // a form's tables, shared ones first
constexpr bool K = true, A = false;  // A: copied even when all ones

// Where the dump of an ADAS or DSM form starts: at the wire, the length's worth of bytes in front of it, or at the
// wire after the set has logged the block as received.
enum Dump { kAtWire, kBefore, kReceived };

// ADAS and DSM forms convert first and judge the length after; their text is the wording of the Param lines.
// Fixed blocks refuse a wrong length or a short buffer whole; their text is the dump titles of a set and of a get
// (before, after), then what a get says of a null wire.
struct Form {
    std::string name;  // the codecs are <name>_B2LStruct and <name>_LStruct2B
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    int local_size, length;
    Dump dump;
    std::vector<std::string> text;
    Rows rows;
    bool fixed() const { return text.size() > 1; }
};

// Calls f(wire offset, local offset, width, keep) for every field of a form.
template <typename F>
void each_field(const Rows& rows, F f) {
    for (const auto& table : rows) {
        for (const Row& r : table) {
            for (int n = 0; n < r.count; n++) f(r.wire + n * r.width, r.local + n * r.width, r.width, r.keep);
        }
    }
}

std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }

// Record bytes 0x01..0x7f; never 0xFF and never equal to a block byte.
Bytes local_pattern(size_t n) {
    Bytes b(n);
    for (size_t i = 0; i < n; i++) b[i] = static_cast<unsigned char>(1 + i % 0x7f);
    return b;
}

// A wire buffer with 128 known bytes in front of the block and room behind.
struct WireBuf {
    Bytes mem = local_pattern(128);
    WireBuf() { mem.resize(512, 0xee); }
    unsigned char* wire() { return mem.data() + 128; }
};

// What a call printed, then what it returned.
template <typename F>
std::string run(F&& call) {
    int r = 0;
    const std::string out = bbtest::output_of([&] { r = call(); });
    return out + "=" + std::to_string(r);
}

// Blocks (and the byte behind them) of four kinds: distinct bytes 0x80..0xfe; all ones; all ones but the last, or
// the first, byte of every field (the marker is per field, not per byte).
enum Kind { kDistinct, kAllOnes, kLastNotOnes, kFirstNotOnes };
void fill_block(const Form& c, unsigned char* w, Kind kind) {
    for (int i = 0; i <= c.length; i++) w[i] = kind == kDistinct ? static_cast<unsigned char>(0x80 + i % 0x7f) : 0xff;
    if (kind < kLastNotOnes) return;
    each_field(c.rows, [&](int wo, int, int width, bool) { w[kind == kLastNotOnes ? wo + width - 1 : wo] = 0xfe; });
}

// What a set should leave: big-endian fields reversed into the record, skipped where the row keeps on all-ones.
Bytes expect_local(const Form& c, const unsigned char* w, Bytes local) {
    each_field(c.rows, [&](int wo, int lo, int width, bool keep) {
        if (keep && std::all_of(w + wo, w + wo + width, [](unsigned char b) { return b == 0xff; })) return;
        for (int k = 0; k < width; k++) local[lo + k] = w[wo + width - 1 - k];
    });
    return local;
}

// What a get should write: mapped fields big-endian, everything else 0.
Bytes expect_wire(const Form& c, const Bytes& local) {
    Bytes w(c.length, 0);
    each_field(c.rows, [&](int wo, int lo, int width, bool) {
        for (int k = 0; k < width; k++) w[wo + k] = local[lo + width - 1 - k];
    });
    return w;
}

// What a set (of DataLen b) or a get (of BufLen b) prints when it returns r, 0 when it refuses the length; w is the
// wire and l the record as they are after the call.
std::string said(const Form& c, bool set, int b, const unsigned char* w, const unsigned char* l, int r) {
    const std::string fn = c.name + (set ? "_B2LStruct" : "_LStruct2B"), inf = "Inf [" + fn + "():N] ";
    if (!r && c.fixed()) return "[ASSERT][" + fn + (set ? ":N]: (DataLen == Len)\n=0" : ":N]: (BufLen >= Len)\n=0");
    if (!r) return "[ASSERT][" + fn + (set ? ":N]: DataLen == Cnt\n=0" : ":N]: BufLen >= Cnt\n=0");
    const std::string ret = "=" + std::to_string(r);
    if (c.fixed() && set) return inf + c.text[0] + dump_text(l, c.length) + ret;
    if (c.fixed()) return inf + c.text[1] + dump_text(l, c.length) + inf + c.text[2] + dump_text(w, c.length) + ret;
    return inf + c.text[0] + (set ? " Param Set Len:" : " Param Get Len:") + std::to_string(c.length) +
           (set ? ", DataLen:" : ", BufLen:") + std::to_string(b) + "\n" +
           dump_text(c.dump == kBefore ? w - c.length : w, c.length) + ret;
}

// Every kind of block at the right length, one off either way, 0 and 255; a get into buffers one short, exact and
// roomy, and onto a null wire; then both through the dictionary, which hands the codecs the caller's BufLen and the
// set length cut to 8 bits.  A get never writes past the form.
void check(const Form& c) {
    SCOPED_TRACE(c.name + " " + c.text[0]);
    const int n = c.length;
    const Bytes local = local_pattern(c.local_size);
    for (Kind kind : {kDistinct, kAllOnes, kLastNotOnes, kFirstNotOnes}) {
        for (int len : {n, n - 1, n + 1, 0, 255}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " len " << len);
            WireBuf in;
            fill_block(c, in.wire(), kind);
            Bytes rec = local;
            const std::string got = run([&] { return c.set(in.wire(), static_cast<unsigned char>(len), rec.data()); });
            const Bytes want = c.fixed() && len != n ? local : expect_local(c, in.wire(), local);
            const std::string received = "Inf [" + c.name + "_B2LStruct():N] " + c.text[0] +
                                         " Param Set Len:0, DataLen:" + std::to_string(len) + "\n" +
                                         dump_text(in.wire(), len);
            EXPECT_EQ(got + hx(rec), (c.dump == kReceived ? received : "") +
                                         said(c, true, len, in.wire(), want.data(), len == n ? n : 0) + hx(want));
        }
    }
    for (unsigned buflen : {n - 1u, n + 0u, n + 100u}) {
        Bytes rec = local;
        WireBuf out;
        const int r = buflen >= static_cast<unsigned>(n) ? n : 0;
        const std::string got = run([&] { return c.get(rec.data(), out.wire(), buflen); });
        const Bytes want = c.fixed() && !r ? Bytes(n, 0xee) : expect_wire(c, local);
        EXPECT_EQ(got + to_hex(out.wire(), n + 1) + hx(rec),
                  said(c, false, static_cast<int>(buflen), out.wire(), local.data(), r) + hx(want) + " ee" + hx(local));
    }
    Bytes rec = local;  // a fixed block judges the length before the null wire
    EXPECT_EQ(run([&] { return c.get(rec.data(), nullptr, 0); }), c.fixed() ? said(c, false, 0, {}, {}, 0) : "=0");
    EXPECT_EQ(run([&] { return c.get(rec.data(), nullptr, n); }), (c.fixed() ? c.text[3] : "") + "=0");
}

using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;
using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;
using U = unsigned char;
// clang-format off
#define FORM(T, fn) #fn, \
    [](U* w, U n, U* l) { return fn##_B2LStruct(w, n, reinterpret_cast<T*>(l)); }, \
    [](U* l, U* w, unsigned n) { return fn##_LStruct2B(reinterpret_cast<T*>(l), w, n); }, sizeof(T)
#define GENERIC(T, name) name, bbtest::set_as<T>, bbtest::get_as<T>, sizeof(T)
#define FIXED(T) GENERIC(T, "CMN"), sizeof(T), kAtWire

TEST(SubiaoForms, SetAndGetEveryForm) {
    // Wire 0..18 of most forms; the ADAS head carries the reserved byte 19 with no all-ones marker, DSM wire 23..25
    // are reserved.
    const Table kBase = {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}};
    const Table kAdas = {{19, 19, 1, 1, A}, {20, 20, 1, 32, K}}, kDsm = {{19, 19, 2, 2, K}, {26, 23, 1, 21, K}};
    const Form forms[] = {
        // The generic overloads (CMN) forward to the Subiao codecs, names included.
        {FORM(Adas, SubiaoAdas), 56, kBefore, {"Subiao Adas"}, {kBase, kAdas}},
        {GENERIC(Adas, "SubiaoAdas"), 56, kBefore, {"Subiao Adas"}, {kBase, kAdas}},
        {FORM(Adas, SiChuan), 61, kBefore, {"Subiao Adas"}, {kBase, kAdas, {{52, 63, 1, 5, K}}}},
        {FORM(Adas, GuangDongAdas), 64, kBefore, {"Guangdong Adas"}, {kBase, kAdas, {{52, 55, 1, 8, K}}}},
        {FORM(Adas, HunanAdas), 96, kBefore, {"Hunan Adas"},
         {kBase, {{32, 32, 1, 4, K}, {37, 37, 1, 9, K}, {47, 47, 1, 4, K}, {72, 80, 2, 12, K}}}},
        {FORM(Adas, JiLingAdas), 112, kBefore, {"JiLing Adas"},
         {kBase, kAdas, {{56, 55, 1, 4, K}, {60, 68, 2, 18, K}}}},
        {FORM(Dsm, SubiaoDsm), 49, kAtWire, {"Subiao Dsm"}, {kBase, kDsm}},
        {GENERIC(Dsm, "SubiaoDsm"), 49, kAtWire, {"Subiao Dsm"}, {kBase, kDsm}},
        {FORM(Dsm, SiChuan), 65, kReceived, {"Subiao Dsm"}, {kBase, kDsm, {{47, 44, 1, 6, A}, {53, 50, 1, 3, K},
         {56, 53, 2, 1, K}, {58, 55, 1, 3, K}, {61, 58, 2, 1, K}}}},
        {FORM(Dsm, GuangDongDsm), 66, kBefore, {"Guangdong Dsm"},
         {kBase, kDsm, {{47, 60, 1, 1, K}, {48, 68, 1, 4, K}, {52, 64, 1, 4, K}, {56, 72, 1, 8, K}}}},
        {FORM(Dsm, HunanDsm), 110, kBefore, {"Hunan Dsm"},
         {kBase, {{19, 19, 2, 2, K}, {27, 24, 1, 3, K}, {31, 28, 1, 3, K}, {35, 32, 1, 3, K}, {39, 36, 1, 3, K},
          {43, 40, 1, 4, K}, {61, 69, 1, 3, K}, {68, 84, 2, 15, K}, {98, 126, 2, 3, K}, {104, 114, 2, 3, K}}}},
        {FORM(Dsm, JiLingDsm), 126, kBefore, {"JiLing Dsm"},
         {kBase, kDsm, {{60, 68, 1, 8, K}, {68, 84, 2, 15, K}, {104, 114, 2, 6, K}}}},
        {FIXED(tagBB_PARAM_TPMS_SUBIAO_ST), {"Tpms After Set:", "Bsd Before Get:", "Bsd After Get:", ""},
         {{{0, 0, 1, 12, K}, {12, 12, 2, 9, K}, {30, 30, 1, 6, K}}}},
        // Words 2, 5, 8 and the reserved tail have no marker; the get's dump follows its title on the same line.
        {FIXED(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST), {"intense driving After Set:", "intense driving Before Get:",
          "intense driving After Get len:54",
          "[ASSERT][CMN_LStruct2B:N]: (pDst != NULL)\n"},
         {{{0, 0, 4, 1, K}, {4, 4, 2, 2, K}, {8, 8, 2, 1, A}, {10, 10, 2, 2, K}, {14, 14, 2, 1, A}, {16, 16, 2, 2, K},
           {20, 20, 2, 1, A}, {22, 22, 2, 12, K}, {46, 46, 1, 8, A}}}},
        {FIXED(tagBB_PARAM_ZT_ALARM_ST), {"ZhatuAlarm After Set:", "ZhatuAlarm Before Get:", "ZhatuAlarm After Get:",
         ""}, {kBase, {{19, 19, 1, 23, K}}}},
    };
    // clang-format on
    for (const Form& c : forms) check(c);
}

#undef GENERIC
#undef FORM
#undef FIXED

}  // namespace
