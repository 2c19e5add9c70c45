// form_check.h - one driver for the Subiao-style block forms, each typed in
// its test as a row table from the form's description: the ADAS and DSM forms
// (converted first, judged by length after) and the checked fixed-length
// blocks (tyre pressure, intense driving, muck truck).
#ifndef BBCONF_TESTS_FORM_CHECK_H
#define BBCONF_TESTS_FORM_CHECK_H

#include <algorithm>
#include <string>
#include <vector>

#include "test_util.h"

namespace formcheck {


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

// Wire 0..18 of the ADAS, DSM and muck-truck forms: speed, volume, photo
// strategy, two u16 intervals, four photo settings, two u32 enable masks.
inline const Table kGeneral = {{0, 0, 1, 3, K}, {3, 3, 2, 2, K}, {7, 7, 1, 4, K}, {11, 11, 4, 2, K}};

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

inline std::string hx(const Bytes& b) { return to_hex(b.data(), b.size()); }

// Record bytes 0x01..0x7f; never 0xFF and never equal to a block byte.
inline Bytes local_pattern(size_t n) {
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
inline void fill_block(const Form& c, unsigned char* w, Kind kind) {
    for (int i = 0; i <= c.length; i++) w[i] = kind == kDistinct ? static_cast<unsigned char>(0x80 + i % 0x7f) : 0xff;
    if (kind < kLastNotOnes) return;
    each_field(c.rows, [&](int wo, int, int width, bool) { w[kind == kLastNotOnes ? wo + width - 1 : wo] = 0xfe; });
}

// What a set should leave: big-endian fields reversed into the record, skipped where the row keeps on all-ones.
inline Bytes expect_local(const Form& c, const unsigned char* w, Bytes local) {
    each_field(c.rows, [&](int wo, int lo, int width, bool keep) {
        if (keep && std::all_of(w + wo, w + wo + width, [](unsigned char b) { return b == 0xff; })) return;
        for (int k = 0; k < width; k++) local[lo + k] = w[wo + width - 1 - k];
    });
    return local;
}

// What a get should write: mapped fields big-endian, everything else 0.
inline Bytes expect_wire(const Form& c, const Bytes& local) {
    Bytes w(c.length, 0);
    each_field(c.rows, [&](int wo, int lo, int width, bool) {
        for (int k = 0; k < width; k++) w[wo + k] = local[lo + width - 1 - k];
    });
    return w;
}

// What a set (of DataLen b) or a get (of BufLen b) prints when it returns r, 0 when it refuses the length; w is the
// wire and l the record as they are after the call.
inline std::string said(const Form& c, bool set, int b, const unsigned char* w, const unsigned char* l, int r) {
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
inline void check(const Form& c) {
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

}  // namespace formcheck

// Form rows for the codecs of record type T: a named pair, the generic
// overloads under a given name, or a fixed block's CMN pair.
// clang-format off
#define FORM(T, fn) #fn, \
    [](unsigned char* w, unsigned char n, unsigned char* l) { return fn##_B2LStruct(w, n, reinterpret_cast<T*>(l)); }, \
    [](unsigned char* l, unsigned char* w, unsigned n) { return fn##_LStruct2B(reinterpret_cast<T*>(l), w, n); }, sizeof(T)
#define GENERIC(T, name) name, bbtest::set_as<T>, bbtest::get_as<T>, sizeof(T)
#define FIXED(T) GENERIC(T, "CMN"), sizeof(T), formcheck::kAtWire
// clang-format on

#endif
