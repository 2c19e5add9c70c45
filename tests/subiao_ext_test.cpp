// subiao_ext_test.cpp - the Subiao blocks beside ADAS and DSM: the tyre pressure and intense-driving forms, the
// load and size blocks (the initialisers: defaults_test.cpp).
#include <algorithm>
#include <string>
#include <vector>

#include "form_check.h"

namespace {

using bbtest::dump_text;
using bbtest::hex;
using Bytes = std::vector<unsigned char>;

using formcheck::hx;
using formcheck::run;
std::string inf(const char* fn, const std::string& text) { return std::string("Inf [") + fn + "():N] " + text; }

// Load and size have no all-ones marker and a set checks no length: it converts whatever len says and returns it,
// dumping len bytes but never past the record.  The load block's local-only word is cleared by a set, never sent.
TEST(SubiaoExt, LoadAndSize) {
    const struct {
        int (*set)(unsigned char*, unsigned char, unsigned char*);
        int (*get)(unsigned char*, unsigned char*, unsigned);
        const char *wire, *local, *name, *before, *after;
    } blocks[] = {
        {bbtest::set_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>, bbtest::get_as<tagBB_PARAM_OVERLOAD_SUBIAO_ST>,
         "12 34 56 78 9a bc de f0 01 02 03 04 05 06 07 08 09 0a",
         "34 12 78 56 f0 de bc 9a 04 03 02 01 05 06 08 07 0a 09 00 00", "load sensor param",
         "load sensor param Before Get:", "load sensor param After Get len:18/20 \n"},
        {bbtest::set_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>, bbtest::get_as<tagBB_PARAM_OVERSIZE_SUBIAO_ST>, "06 d6 07 3a",
         "d6 06 3a 07", "load size param", "", "size param After Get len:4/4 ..\n"},
    };
    const struct {
        int block, len, dumped;
    } sets[] = {{0, 18, 18}, {0, 0, 0}, {0, 5, 5}, {0, 21, 20}, {0, 255, 20}, {1, 4, 4}, {1, 5, 4}};
    for (const auto& c : sets) {
        const auto& b = blocks[c.block];
        Bytes wire = hex(b.wire), local = hex(b.local), rec(local.size(), 0xa5);
        wire.resize(255, 0x77);
        const std::string title = " After Set:" + std::to_string(c.len) + "/" + std::to_string(local.size()) + " ..\n";
        const std::string got = run([&] { return b.set(wire.data(), static_cast<unsigned char>(c.len), rec.data()); });
        EXPECT_EQ(got + hx(rec),
                  inf("CMN_B2LStruct", b.name + title) + dump_text(local.data(), c.dumped) + "=" +
                      std::to_string(c.len) + hx(local));
    }
    const struct {
        int block, buflen, null_wire, ret;
    } gets[] = {{0, 18, 0, 18}, {0, 17, 0, 0}, {0, 0, 1, 0}, {0, 18, 1, 0}, {1, 4, 0, 4}, {1, 3, 0, 0}, {1, 4, 1, 0}};
    for (const auto& c : gets) {
        SCOPED_TRACE(testing::Message() << c.block << "/" << c.buflen);
        const auto& b = blocks[c.block];
        const Bytes wire = hex(b.wire);
        const int n = static_cast<int>(wire.size());
        Bytes rec = hex(b.local), buf(22, 0xee), want = c.ret ? wire : Bytes{};
        std::fill(rec.begin() + n, rec.end(), 0x33);
        want.resize(buf.size(), 0xee);
        const std::string sent = (*b.before ? inf("CMN_LStruct2B", b.before) + dump_text(rec.data(), n) : "") +
                                 inf("CMN_LStruct2B", b.after) + dump_text(wire.data(), n);
        const char* refusal = c.buflen < n ? "(BufLen >= SuBiaoLen)" : "(pinDst != NULL)";
        const std::string got = run([&] { return b.get(rec.data(), c.null_wire ? nullptr : buf.data(), c.buflen); });
        EXPECT_EQ(got + hx(buf),
                  (c.ret ? sent : std::string("[ASSERT][CMN_LStruct2B:N]: ") + refusal + "\n") + "=" +
                      std::to_string(c.ret) + hx(want));
    }
}

// The checked fixed-length blocks: tyre pressure (nine words behind the
// tyre text) and intense driving (words 2, 5, 8 and the reserved tail have no
// marker; the get's title carries the length and a null wire is asserted).
TEST(SubiaoExt, TyrePressureAndIntenseDrivingForms) {
    using formcheck::A;
    using formcheck::K;
    // clang-format off
    const formcheck::Form forms[] = {
        {FIXED(tagBB_PARAM_TPMS_SUBIAO_ST), {"Tpms After Set:", "Bsd Before Get:", "Bsd After Get:", ""},
         {{{0, 0, 1, 12, K}, {12, 12, 2, 9, K}, {30, 30, 1, 6, K}}}},
        {FIXED(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST), {"intense driving After Set:", "intense driving Before Get:",
          "intense driving After Get len:54", "[ASSERT][CMN_LStruct2B:N]: (pDst != NULL)\n"},
         {{{0, 0, 4, 1, K}, {4, 4, 2, 2, K}, {8, 8, 2, 1, A}, {10, 10, 2, 2, K}, {14, 14, 2, 1, A}, {16, 16, 2, 2, K},
           {20, 20, 2, 1, A}, {22, 22, 2, 12, K}, {46, 46, 1, 8, A}}}},
    };
    // clang-format on
    for (const auto& c : forms) formcheck::check(c);
}

}  // namespace
