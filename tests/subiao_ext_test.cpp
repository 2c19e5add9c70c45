// subiao_ext_test.cpp - the checked fixed-length blocks (tyre pressure,
// intense driving, muck truck), the load and size blocks, the Subiao
// initialisers, and the dictionary IDs that reach these codecs.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

using Bytes = std::vector<unsigned char>;

std::string hx(const Bytes& b, size_t from = 0, size_t to = std::string::npos) {
    return to_hex(b.data() + from, std::min(to, b.size()) - from);
}
std::string hx(const char* text) { return hx(hex(text)); }
std::string dump(const char* text) {
    Bytes b = hex(text);
    return dump_text(b.data(), static_cast<int>(b.size()));
}
std::string assert_line(const char* fn, const char* text) {
    return std::string("[ASSERT][") + fn + ":N]: " + text + "\n";
}
std::string inf(const char* fn, const std::string& text) { return std::string("Inf [") + fn + "():N] " + text; }

// Overwrites bytes at an offset: patch(b, 12, "ff fe").
void patch(Bytes& b, size_t off, const char* text) {
    Bytes p = hex(text);
    std::copy(p.begin(), p.end(), b.begin() + static_cast<std::ptrdiff_t>(off));
}

template <typename T>
int set_as(unsigned char* w, unsigned char n, unsigned char* l) { return CMN_B2LStruct(w, n, reinterpret_cast<T*>(l)); }
template <typename T>
int get_as(unsigned char* l, unsigned char* w, unsigned n) { return CMN_LStruct2B(reinterpret_cast<T*>(l), w, n); }

// --- Checked fixed-length blocks -----------------------------------------------

struct Patch {
    size_t wire_off;
    const char* wire;   // written over an all-0xFF wire
    size_t local_off;
    const char* local;  // expected change against the all-0xFF result
};

struct FixedCase {
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    std::string wire, local;                    // distinct values, hex
    std::string set_title, before, after;       // dump titles
    std::vector<Patch> all_ones;                // what an all-0xFF wire still changes
    std::vector<Patch> values;                  // near-markers that are values
};

void check_fixed(const FixedCase& c) {
    const Bytes wire = hex(c.wire.c_str()), local = hex(c.local.c_str());
    const size_t n = wire.size();
    ASSERT_EQ(local.size(), n);

    Bytes rec(n, 0x5a);
    Bytes w = wire;
    int r = 0;
    EXPECT_EQ(output_of([&] { r = c.set(w.data(), static_cast<unsigned char>(n), rec.data()); }),
              inf("CMN_B2LStruct", c.set_title) + dump_text(local.data(), static_cast<int>(n)));
    EXPECT_EQ(r, static_cast<int>(n));
    EXPECT_EQ(hx(rec), hx(local));

    Bytes buf(n + 3, 0xee);
    EXPECT_EQ(output_of([&] { r = c.get(rec.data(), buf.data(), static_cast<unsigned>(n)); }),
              inf("CMN_LStruct2B", c.before) + dump_text(local.data(), static_cast<int>(n)) +
                  inf("CMN_LStruct2B", c.after) + dump_text(wire.data(), static_cast<int>(n)));
    EXPECT_EQ(r, static_cast<int>(n));
    EXPECT_EQ(hx(buf, 0, n), hx(wire));
    EXPECT_EQ(hx(buf, n), "ee ee ee");

    // All ones keep every field but the listed exceptions; the near-marker
    // values are stored.
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
        EXPECT_EQ(r, static_cast<int>(n));
        EXPECT_EQ(hx(rec), hx(expect));
    }

    // One byte off either way, and zero, is refused whole.
    for (size_t len : {n - 1, n + 1, size_t{0}}) {
        SCOPED_TRACE(len);
        Bytes big = wire;
        big.resize(n + 1, 0x11);
        rec.assign(n, 0x5a);
        EXPECT_EQ(output_of([&] { r = c.set(big.data(), static_cast<unsigned char>(len), rec.data()); }),
                  assert_line("CMN_B2LStruct", "(DataLen == Len)"));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(rec), hx(Bytes(n, 0x5a)));
    }
    for (size_t len : {n - 1, size_t{0}}) {
        buf.assign(n, 0xee);
        EXPECT_EQ(output_of([&] { r = c.get(rec.data(), buf.data(), static_cast<unsigned>(len)); }),
                  assert_line("CMN_LStruct2B", "(BufLen >= Len)"));
        EXPECT_EQ(r, 0);
        EXPECT_EQ(hx(buf), hx(Bytes(n, 0xee)));
    }
}

FixedCase tpms_case() {
    return {set_as<tagBB_PARAM_TPMS_SUBIAO_ST>, get_as<tagBB_PARAM_TPMS_SUBIAO_ST>,
            "54 59 52 45 2d 31 31 52 32 32 2e 35"  // "TYRE-11R22.5"
            "00 02 01 2c 00 19 00 07 00 64 01 0e 00 5a 00 0b 00 1e 01 02 03 04 05 06",
            "54 59 52 45 2d 31 31 52 32 32 2e 35"
            "02 00 2c 01 19 00 07 00 64 00 0e 01 5a 00 0b 00 1e 00 01 02 03 04 05 06",
            "Tpms After Set:", "Bsd Before Get:", "Bsd After Get:",
            {},
            {{3, "78", 3, "78"}, {11, "00", 11, "00"}, {12, "ff fe", 12, "fe ff"},
             {28, "00 ff", 28, "ff 00"}, {31, "00", 31, "00"}}};
}

FixedCase intense_case() {
    // Mask a1b2c3d4, word i = (0x20 + i, 0x40 + i), reserved 80..87.
    std::string wire = "a1 b2 c3 d4", local = "d4 c3 b2 a1";
    char b[8];
    for (int i = 0; i < 21; i++) {
        std::snprintf(b, sizeof b, "%02x%02x", 0x20 + i, 0x40 + i);
        wire += b;
        std::snprintf(b, sizeof b, "%02x%02x", 0x40 + i, 0x20 + i);
        local += b;
    }
    wire += "8081828384858687";
    local += "8081828384858687";
    return {set_as<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>, get_as<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>,
            wire, local, "intense driving After Set:", "intense driving Before Get:",
            "intense driving After Get len:54",  // the dump follows on the same line
            {{0, "", 8, "ff ff"}, {0, "", 14, "ff ff"}, {0, "", 20, "ff ff"},
             {0, "", 46, "ff ff ff ff ff ff ff ff"}},
            {{0, "ff ff ff fe", 0, "fe ff ff ff"}, {0, "7f ff ff ff", 0, "ff ff ff 7f"},
             {4, "ff fe", 4, "fe ff"}, {44, "00 00", 44, "00 00"}, {8, "00 01", 8, "01 00"}}};
}

FixedCase zhatu_case() {
    return {set_as<tagBB_PARAM_ZT_ALARM_ST>, get_as<tagBB_PARAM_ZT_ALARM_ST>,
            "0a 0b 0c 01 02 03 04 0d 0e 0f 10 11 12 13 14 21 22 23 24"
            "30 31 32 33 34 35 36 37 38 39 3a 3b 3c 3d 3e 3f 40 41 42 43 44 45 46",
            "0a 0b 0c 02 01 04 03 0d 0e 0f 10 14 13 12 11 24 23 22 21"
            "30 31 32 33 34 35 36 37 38 39 3a 3b 3c 3d 3e 3f 40 41 42 43 44 45 46",
            "ZhatuAlarm After Set:", "ZhatuAlarm Before Get:", "ZhatuAlarm After Get:",
            {},
            {{2, "00", 2, "00"}, {3, "ff 00", 3, "00 ff"}, {5, "00 ff", 5, "ff 00"},
             {11, "ff ff ff fe", 11, "fe ff ff ff"}, {15, "00 ff ff ff", 15, "ff ff ff 00"},
             {19, "fe", 19, "fe"}, {41, "01", 41, "01"}}};
}

TEST(Tpms, FixedForm) { check_fixed(tpms_case()); }
TEST(Intense, FixedForm) { check_fixed(intense_case()); }
TEST(Zhatu, FixedForm) { check_fixed(zhatu_case()); }

TEST(Intense, NullWireAfterTheLengthTest) {
    tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST rec{};
    int r = 1;
    EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&rec, nullptr, 53); }),
              assert_line("CMN_LStruct2B", "(BufLen >= Len)"));
    EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(&rec, nullptr, 54); }),
              assert_line("CMN_LStruct2B", "(pDst != NULL)"));
    EXPECT_EQ(r, 0);
}

// --- Load and size ------------------------------------------------------------------

const char kLoadWire[] = "12 34 56 78 9a bc de f0 01 02 03 04 05 06 07 08 09 0a";

struct AnyLenCase {
    bool size_block;
    int len;
    int dumped;  // never past the record
};

TEST(Load, SetAcceptsAnyLength) {
    const AnyLenCase cases[] = {{false, 18, 18}, {false, 0, 0}, {false, 5, 5}, {false, 21, 20}, {false, 255, 20},
                                {true, 4, 4},    {true, 0, 0},  {true, 2, 2},  {true, 5, 4},    {true, 200, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.size_block) + "/" + std::to_string(c.len));
        Bytes wire = hex(c.size_block ? "06 d6 07 3a" : kLoadWire);
        Bytes local = hex(c.size_block ? "d6 06 3a 07" : "34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09 00 00");
        wire.resize(255, 0x77);
        Bytes rec(local.size(), 0xa5);
        int r = -1;
        const unsigned char n = static_cast<unsigned char>(c.len);
        std::string out = output_of([&] {
            r = c.size_block ? set_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(wire.data(), n, rec.data())
                             : set_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(wire.data(), n, rec.data());
        });
        EXPECT_EQ(r, c.len);
        EXPECT_EQ(hx(rec), hx(local));  // converted whatever len says; the load's local word cleared
        std::string title = c.size_block ? "load size param After Set:" + std::to_string(c.len) + "/4 ..\n"
                                         : "load sensor param After Set:" + std::to_string(c.len) + "/20 ..\n";
        EXPECT_EQ(out, inf("CMN_B2LStruct", title) + dump_text(local.data(), c.dumped));
    }
}

TEST(Size, GetAndItsRefusalsInOrder) {
    const std::string load_out = inf("CMN_LStruct2B", "load sensor param Before Get:") +
                                 dump("34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09") +
                                 inf("CMN_LStruct2B", "load sensor param After Get len:18/20 \n") + dump(kLoadWire);
    const std::string size_out = inf("CMN_LStruct2B", "size param After Get len:4/4 ..\n") + dump("06 d6 07 3a");
    struct Case {
        bool size_block;
        unsigned buflen;
        bool null_wire;
        std::string out;
        int ret;
    } cases[] = {
        {false, 18, false, load_out, 18},
        {false, 17, false, assert_line("CMN_LStruct2B", "(BufLen >= SuBiaoLen)"), 0},
        {false, 0, true, assert_line("CMN_LStruct2B", "(BufLen >= SuBiaoLen)"), 0},
        {false, 18, true, assert_line("CMN_LStruct2B", "(pinDst != NULL)"), 0},
        {true, 4, false, size_out, 4},
        {true, 3, false, assert_line("CMN_LStruct2B", "(BufLen >= SuBiaoLen)"), 0},
        {true, 4, true, assert_line("CMN_LStruct2B", "(pinDst != NULL)"), 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.size_block) + "/" + std::to_string(c.buflen));
        // The load's local-only word (33 44) never goes out.
        Bytes rec = hex(c.size_block ? "d6 06 3a 07" : "34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09 33 44");
        Bytes buf(22, 0xee), expect(22, 0xee);
        if (c.ret) patch(expect, 0, c.size_block ? "06 d6 07 3a" : kLoadWire);
        unsigned char* dst = c.null_wire ? nullptr : buf.data();
        int r = -1;
        EXPECT_EQ(output_of([&] {
                      r = c.size_block ? get_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(rec.data(), dst, c.buflen)
                                       : get_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(rec.data(), dst, c.buflen);
                  }),
                  c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(buf), hx(expect));
    }
}

// --- Initialisers ---------------------------------------------------------------------

template <typename T, int (*F)(T*)>
int init_as(unsigned char* p) { return F(reinterpret_cast<T*>(p)); }

struct InitCase {
    const char* fn;
    int (*init)(unsigned char*);
    const char* expect;  // on a record filled with a5
    const char* message;
    const char* null_text;
};

TEST(Bsd, SubiaoInitialisers) {
    const InitCase cases[] = {
        {"__InitSubiaoTpmsParam", init_as<tagBB_PARAM_TPMS_SUBIAO_ST, __InitSubiaoTpmsParam>,
         "55 6e 6b 6e 6f 77 6e 00 00 00 00 00"  // "Unknown", NUL-padded
         "03 00 8c 00 14 00 05 00 6e 00 bd 00 50 00 0a 00 3c 00 00 00 00 00 00 00",
         "Param Inited!\n", "NULL != pstSubiaoTpms"},
        {"__InitSubiaoBsdParam", init_as<tagBB_PARAM_BSD_SUBIAO_ST, __InitSubiaoBsdParam>, "05 05", "Param Inited!\n",
         "NULL != pstSubiaoBsd"},
        {"__InitSubiaoIntenseDriveParam", init_as<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, __InitSubiaoIntenseDriveParam>,
         "07 00 00 00 05 00 32 00 a5 a5 05 00 14 00 a5 a5 05 00 14 00 a5 a5"  // words 2, 5, 8 untouched
         "32 00 14 00 dc 05 14 00 64 00 f4 01 14 00 64 00 f4 01 14 00 64 00 dc 05"
         "a5 a5 a5 a5 a5 a5 a5 a5",
         "Param Intense Drive!\n", "NULL != pstSubiaoIntense"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fn);
        Bytes rec(hex(c.expect).size(), 0xa5);
        int r = 0;
        std::string out = output_of([&] { r = c.init(rec.data()); });
        EXPECT_EQ(out, std::string("War [") + c.fn + "():N] " + c.message);
        EXPECT_GE(r, static_cast<int>(out.size()));  // printf's count, line number unmasked
        EXPECT_EQ(hx(rec), hx(c.expect));
        EXPECT_EQ(output_of([&] { r = c.init(nullptr); }), assert_line(c.fn, c.null_text));
        EXPECT_EQ(r, -1);
    }
}

// --- Through the dictionary ---------------------------------------------------------------

struct DictCase {
    int id;
    size_t offset;
    std::string wire, local;
    int set_len;  // as the caller passes it; 0: the ID is get-only
    int get_min, get_ret;
};

TEST(Load, DictionaryReachesTheCodecs) {
    const DictCase cases[] = {
        {0xf366, 1723, tpms_case().wire, tpms_case().local, 292 /* reaches the codec as 36 */, 36, 36},
        {0xf370, 2003, intense_case().wire, intense_case().local, 54, 56, 54},
        {0xf372, 3354, kLoadWire, "34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09 00 00", 300, 20, 18},
        {0xf373, 3374, "06 d6 07 3a", "d6 06 3a 07", 4, 4, 4},
        {0xf400, 2127, zhatu_case().wire, zhatu_case().local, 0, 42, 42},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Bytes wire = hex(c.wire), local = hex(c.local);
        const size_t wire_len = wire.size();
        wire.resize(300, 0x77);
        Conf conf;
        int r = 0;
        const int set_len = c.set_len ? c.set_len : 42;
        std::string out = output_of([&] { r = CMN_SetParam(&conf.rec, c.id, wire.data(), set_len); });
        EXPECT_EQ(r, set_len);
        if (c.set_len) {
            EXPECT_EQ(to_hex(conf.bytes() + c.offset, local.size()), hx(local));
        } else {
            EXPECT_EQ(out, "Err [CMN_SetParam():N] Not Find ID:f400 \n");
            EXPECT_EQ(to_hex(conf.bytes() + c.offset, local.size()), hx(Bytes(local.size(), 0)));
            std::memcpy(conf.bytes() + c.offset, local.data(), local.size());
        }
        Bytes buf(c.get_min, 0xee);
        output_of([&] { r = CMN_GetParam(&conf.rec, c.id, buf.data(), c.get_min - 1); });
        EXPECT_EQ(r, -1);
        EXPECT_EQ(hx(buf), hx(Bytes(buf.size(), 0xee)));
        output_of([&] { r = CMN_GetParam(&conf.rec, c.id, buf.data(), c.get_min); });
        EXPECT_EQ(r, c.get_ret);
        EXPECT_EQ(hx(buf, 0, c.get_ret), hx(wire, 0, wire_len));
    }
}

}  // namespace
