// subiao_ext_test.cpp - the checked fixed-length blocks (tyre pressure, intense driving, muck truck) also through
// their dictionary IDs, the load and size blocks, and the Subiao initialisers.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using bbtest::get_as;
using bbtest::set_as;

using Bytes = std::vector<unsigned char>;
using SetFn = int (*)(unsigned char*, unsigned char, unsigned char*);
using GetFn = int (*)(unsigned char*, unsigned char*, unsigned);

std::string hx(const Bytes& b, size_t n = std::string::npos) { return to_hex(b.data(), std::min(n, b.size())); }
std::string dump(const std::string& text) {
    Bytes b = hex(text);
    return dump_text(b.data(), static_cast<int>(b.size()));
}
std::string assert_line(const std::string& fn, const char* text) { return "[ASSERT][" + fn + ":N]: " + text + "\n"; }
std::string rep(const char* text, int n) { return n ? text + rep(text, n - 1) : ""; }
std::string inf(const char* fn, const std::string& text) { return std::string("Inf [") + fn + "():N] " + text; }

// Overwrites bytes at an offset: patch(b, 12, "ff fe").
void patch(Bytes& b, size_t off, const char* text) {
    Bytes p = hex(text);
    std::copy(p.begin(), p.end(), b.begin() + static_cast<std::ptrdiff_t>(off));
}


// --- Checked fixed-length blocks ---------------------------------------------

struct Patch {
    size_t wire_off;
    const char* wire;  // written over an all-0xFF wire; "" for what all ones still change
    size_t local_off;
    const char* local;  // expected change against the all-0xFF result
};

struct FixedCase {
    int id;  // in the dictionary, with the block's offset in the record and whether it takes a set
    size_t offset;
    bool settable;
    SetFn set;
    GetFn get;
    std::string wire, local;               // distinct values, hex
    std::string set_title, before, after;  // dump titles
    std::vector<Patch> all_ones, values;   // values: near-markers that are stored
};

void check_fixed(const FixedCase& c) {
    SCOPED_TRACE(c.set_title);
    const Bytes wire = hex(c.wire), local = hex(c.local);
    const size_t n = wire.size();
    const int in = static_cast<int>(n);
    ASSERT_EQ(local.size(), n);
    Bytes rec(n, 0x5a), buf(n + 3, 0xee), w = wire;
    int r = 0;
    EXPECT_EQ(output_of([&] { r = c.set(w.data(), static_cast<unsigned char>(n), rec.data()); }),
              inf("CMN_B2LStruct", c.set_title) + dump_text(local.data(), in));
    EXPECT_EQ(r, in);
    EXPECT_EQ(hx(rec), hx(local));
    EXPECT_EQ(output_of([&] { r = c.get(rec.data(), buf.data(), static_cast<unsigned>(n)); }),
              inf("CMN_LStruct2B", c.before) + dump_text(local.data(), in) + inf("CMN_LStruct2B", c.after) +
                  dump_text(wire.data(), in));
    EXPECT_EQ(r, in);
    EXPECT_EQ(hx(buf), hx(wire) + " ee ee ee");

    // All ones keep every field but the listed exceptions; the near-marker values are stored.
    Bytes kept = local;
    for (const Patch& p : c.all_ones) patch(kept, p.local_off, p.local);
    std::vector<Patch> rows = c.values;
    rows.insert(rows.begin(), Patch{0, "", 0, ""});
    for (const Patch& p : rows) {
        SCOPED_TRACE(p.wire_off);
        Bytes ff(n, 0xff), expect = kept;
        patch(ff, p.wire_off, p.wire);
        patch(expect, p.local_off, p.local);
        rec = local;
        output_of([&] { r = c.set(ff.data(), static_cast<unsigned char>(n), rec.data()); });
        EXPECT_EQ(r, in);
        EXPECT_EQ(hx(rec), hx(expect));
    }

    // One byte off either way, and zero, is refused whole; so is a short buffer.
    for (size_t len : {n - 1, n + 1, size_t{0}}) {
        SCOPED_TRACE(len);
        Bytes big = wire;
        big.resize(n + 1, 0x11);
        rec.assign(n, 0x5a);
        EXPECT_EQ(output_of([&] { r = c.set(big.data(), static_cast<unsigned char>(len), rec.data()); }),
                  assert_line("CMN_B2LStruct", "(DataLen == Len)"));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(rec), hx(Bytes(n, 0x5a)));
        if (len > n) continue;
        buf.assign(n, 0xee);
        r = 1;
        EXPECT_EQ(output_of([&] { r = c.get(rec.data(), buf.data(), static_cast<unsigned>(len)); }),
                  assert_line("CMN_LStruct2B", "(BufLen >= Len)"));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(buf), hx(Bytes(n, 0xee)));
    }

    // Through the dictionary, with the set length cut to 8 bits.
    bbtest::Conf conf;
    if (c.settable) {
        Bytes big = wire;
        big.resize(300, 0x77);
        output_of([&] { r = CMN_SetParam(&conf.rec, c.id, big.data(), in + 256); });
        EXPECT_EQ(r, in + 256);
        EXPECT_EQ(to_hex(conf.bytes() + c.offset, n), hx(local));
    } else {
        std::memcpy(conf.bytes() + c.offset, local.data(), n);
    }
    buf.assign(n + 3, 0xee);
    output_of([&] { r = CMN_GetParam(&conf.rec, c.id, buf.data(), in + 2); });
    EXPECT_EQ(r, in);
    EXPECT_EQ(hx(buf), hx(wire) + " ee ee ee");
}

#define FIXED(T, id, m, settable) id, offsetof(tagBB_CONF_ST, m), settable, set_as<T>, get_as<T>

// clang-format off
const FixedCase kTpms = {FIXED(tagBB_PARAM_TPMS_SUBIAO_ST, 0xf366, stSubiaoTpms, true),
    "54 59 52 45 2d 31 31 52 32 32 2e 35  00 02 01 2c 00 19 00 07 00 64 01 0e 00 5a 00 0b 00 1e 01 02 03 04 05 06",
    "54 59 52 45 2d 31 31 52 32 32 2e 35  02 00 2c 01 19 00 07 00 64 00 0e 01 5a 00 0b 00 1e 00 01 02 03 04 05 06",
    "Tpms After Set:", "Bsd Before Get:", "Bsd After Get:", {},
    {{3, "78", 3, "78"}, {11, "00", 11, "00"}, {12, "ff fe", 12, "fe ff"}, {28, "00 ff", 28, "ff 00"},
     {31, "00", 31, "00"}}};
// Mask a1b2c3d4, word i = (0x20 + i, 0x40 + i), reserved 80..87.
const FixedCase kIntense = {FIXED(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, 0xf370, stSubiaoIntense, true),
    "a1b2c3d4 20402141224223432444254526462747284829492a4a2b4b2c4c2d4d2e4e2f4f30503151325233533454 8081828384858687",
    "d4c3b2a1 40204121422243234424452546264727482849294a2a4b2b4c2c4d2d4e2e4f2f50305131523253335434 8081828384858687",
    "intense driving After Set:", "intense driving Before Get:",
    "intense driving After Get len:54",  // the dump follows on the same line
    {{0, "", 8, "ff ff"}, {0, "", 14, "ff ff"}, {0, "", 20, "ff ff"}, {0, "", 46, "ff ff ff ff ff ff ff ff"}},
    {{0, "ff ff ff fe", 0, "fe ff ff ff"}, {0, "7f ff ff ff", 0, "ff ff ff 7f"}, {4, "ff fe", 4, "fe ff"},
     {44, "00 00", 44, "00 00"}, {8, "00 01", 8, "01 00"}}};
const FixedCase kZhatu = {FIXED(tagBB_PARAM_ZT_ALARM_ST, 0xf400, stZhatuAlarm, false),  // get-only
    "0a 0b 0c 01 02 03 04 0d 0e 0f 10 11 12 13 14 21 22 23 24  303132333435363738393a3b3c3d3e3f40414243444546",
    "0a 0b 0c 02 01 04 03 0d 0e 0f 10 14 13 12 11 24 23 22 21  303132333435363738393a3b3c3d3e3f40414243444546",
    "ZhatuAlarm After Set:", "ZhatuAlarm Before Get:", "ZhatuAlarm After Get:", {},
    {{2, "00", 2, "00"}, {3, "ff 00", 3, "00 ff"}, {5, "00 ff", 5, "ff 00"}, {11, "ff ff ff fe", 11, "fe ff ff ff"},
     {15, "00 ff ff ff", 15, "ff ff ff 00"}, {19, "fe", 19, "fe"}, {41, "01", 41, "01"}}};
// clang-format on
#undef FIXED

TEST(SubiaoExt, FixedForms) {
    for (const FixedCase* c : {&kTpms, &kIntense, &kZhatu}) check_fixed(*c);
    tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST rec{};  // the null wire is caught after the length
    int r = 1;
    EXPECT_EQ(output_of([&] { CMN_LStruct2B(&rec, nullptr, 53); }), assert_line("CMN_LStruct2B", "(BufLen >= Len)"));
    EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&rec, nullptr, 54); }), assert_line("CMN_LStruct2B", "(pDst != NULL)"));
    EXPECT_EQ(r, 0);
}

// --- Load and size -----------------------------------------------------------

const char kLoadWire[] = "12 34 56 78 9a bc de f0 01 02 03 04 05 06 07 08 09 0a";
const char kLoadLocal[] = "34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09";
const struct {
    SetFn set;
    GetFn get;
    std::string wire, local, name;
} kLoadSize[] = {{set_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>, get_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>, kLoadWire,
                  kLoadLocal + std::string(" 00 00"), "load sensor param After Set:"},  // local-only word cleared
                 {set_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>, get_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>, "06 d6 07 3a",
                  "d6 06 3a 07", "load size param After Set:"}};

// Converted whatever len says; len is returned and the dump never passes the record.
TEST(SubiaoExt, LoadSizeSetAcceptsAnyLength) {
    const struct {
        int block, len, dumped;
    } cases[] = {{0, 18, 18}, {0, 0, 0}, {0, 5, 5}, {0, 21, 20}, {0, 255, 20},
                 {1, 4, 4},   {1, 0, 0}, {1, 2, 2}, {1, 5, 4},   {1, 200, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.block) + "/" + std::to_string(c.len));
        const auto& b = kLoadSize[c.block];
        Bytes wire = hex(b.wire), local = hex(b.local), rec(local.size(), 0xa5);
        wire.resize(255, 0x77);
        int r = -1;
        const std::string out =
            output_of([&] { r = b.set(wire.data(), static_cast<unsigned char>(c.len), rec.data()); });
        EXPECT_EQ(r, c.len);
        EXPECT_EQ(hx(rec), hx(local));
        const std::string title = b.name + std::to_string(c.len) + "/" + std::to_string(local.size()) + " ..\n";
        EXPECT_EQ(out, inf("CMN_B2LStruct", title) + dump_text(local.data(), c.dumped));
    }
}

TEST(SubiaoExt, LoadSizeGetAndItsRefusalsInOrder) {
    const std::string load = inf("CMN_LStruct2B", "load sensor param Before Get:") + dump(kLoadLocal) +
                             inf("CMN_LStruct2B", "load sensor param After Get len:18/20 \n") + dump(kLoadWire);
    const std::string size = inf("CMN_LStruct2B", "size param After Get len:4/4 ..\n") + dump("06 d6 07 3a");
    const std::string short_buf = assert_line("CMN_LStruct2B", "(BufLen >= SuBiaoLen)");
    const std::string null_wire = assert_line("CMN_LStruct2B", "(pinDst != NULL)");
    const struct {
        int block;
        unsigned buflen;
        bool null_wire;
        const std::string& out;
        int ret;
    } cases[] = {{0, 18, false, load, 18},    {0, 17, false, short_buf, 0}, {0, 0, true, short_buf, 0},
                 {0, 18, true, null_wire, 0}, {1, 4, false, size, 4},       {1, 3, false, short_buf, 0},
                 {1, 4, true, null_wire, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.block) + "/" + std::to_string(c.buflen));
        const auto& b = kLoadSize[c.block];
        Bytes rec = hex(b.local), buf(22, 0xee), expect(22, 0xee);
        if (c.block == 0) patch(rec, 18, "33 44");  // the local-only word never goes out
        if (c.ret) patch(expect, 0, b.wire.c_str());
        int r = -1;
        EXPECT_EQ(output_of([&] { r = b.get(rec.data(), c.null_wire ? nullptr : buf.data(), c.buflen); }), c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(buf), hx(expect));
    }
}

// --- Initialisers --------------------------------------------------------------

template <typename T, int (*F)(T*)>
int init_as(unsigned char* p) { return F(reinterpret_cast<T*>(p)); }

// Each reports on every call and returns printf's count; a null block asserts.
TEST(SubiaoExt, Initialisers) {
    const struct {
        const char* fn;
        int (*init)(unsigned char*);
        std::string expect;  // on a block filled with a5
        const char *message, *null_text;
    } cases[] = {
        // clang-format off
        // Native order: 60 = 3c 00, 0x11fff = ff 1f 01 00; the SiChuan bytes 63..67 are left alone.
        {"__InitSubiaoAdasParam", init_as<tagBB_PARAM_ADAS_SUBIAO_ST, __InitSubiaoAdasParam>,
         "1e 06 00 3c 00 c8 00 03 02 03 03 ff 1f 01 00 03 00 00 00 00 1e 32 05 03 02 3c 05 32 05 03 02 32 05 03 02"
         "1b 32 05 03 02 1e 32 05 03 02 0a 32 05 03 02 03 02 05 03 02 32 05 03 02 32 05 03 02 a5 a5 a5 a5 a5" +
             std::string(72, '0'), "Param Inited!\n", "NULL != pstSubiaoAdas"},
        // 3600 = 10 0e, 0x00ffc3ff = ff c3 ff 00, 300 = 2c 01; every byte is written.
        {"__InitSubiaoDsmParam", init_as<tagBB_PARAM_DSM_SUBIAO_ST, __InitSubiaoDsmParam>,
         "1e 06 00 10 0e c8 00 03 02 03 03 ff c3 ff 00 03 00 00 00 b4 00 78 00" + rep("32 05 03 02", 5) +
             "01 000000000000 05 03 02 2c 01 05 03 02 2c 01" + rep("32 05 03 02", 6) + std::string(96, '0'),
         "Param Inited!\n", "NULL != pstSubiaoDsm"},
        {"__InitSubiaoTpmsParam", init_as<tagBB_PARAM_TPMS_SUBIAO_ST, __InitSubiaoTpmsParam>,
         "55 6e 6b 6e 6f 77 6e 00 00 00 00 00  03 00 8c 00 14 00 05 00 6e 00 bd 00 50 00 0a 00 3c 00 00 00 00 00 00 00",
         "Param Inited!\n", "NULL != pstSubiaoTpms"},
        {"__InitSubiaoBsdParam", init_as<tagBB_PARAM_BSD_SUBIAO_ST, __InitSubiaoBsdParam>, "05 05", "Param Inited!\n",
         "NULL != pstSubiaoBsd"},
        {"__InitSubiaoIntenseDriveParam", init_as<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, __InitSubiaoIntenseDriveParam>,
         "07 00 00 00 05 00 32 00 a5 a5 05 00 14 00 a5 a5 05 00 14 00 a5 a5"  // words 2, 5, 8 untouched
         "32 00 14 00 dc 05 14 00 64 00 f4 01 14 00 64 00 f4 01 14 00 64 00 dc 05 a5 a5 a5 a5 a5 a5 a5 a5",
         "Param Intense Drive!\n", "NULL != pstSubiaoIntense"},
        // clang-format on
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fn);
        const Bytes want = hex(c.expect);
        Bytes rec(want.size(), 0xa5);
        int r = 0;
        for (int call = 0; call < 2; call++) {
            std::fflush(stdout);
            testing::internal::CaptureStdout();
            r = c.init(rec.data());
            std::fflush(stdout);
            const std::string out = testing::internal::GetCapturedStdout();  // line number unmasked
            EXPECT_EQ(bbtest::mask_lines(out), std::string("War [") + c.fn + "():N] " + c.message);
            EXPECT_EQ(r, static_cast<int>(out.size()));
            EXPECT_EQ(hx(rec), hx(want));
        }
        EXPECT_EQ(output_of([&] { r = c.init(nullptr); }), assert_line(c.fn, c.null_text));
        EXPECT_EQ(r, -1);
    }
}

}  // namespace
