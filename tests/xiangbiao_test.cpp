// xiangbiao_test.cpp - the VDS block (keep markers, refusals, dumps), the
// driver capture block (no length tests), the initialisers and the 0xf368 /
// 0xf0ef routes.
#include <algorithm>
#include <string>
#include <vector>

#include "test_util.h"

namespace {

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using Bytes = std::vector<unsigned char>;
using Vds = tagBB_PARAM_VDS_XIANGBIAO_ST;
using Capture = tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST;

template <typename T>
T* as(Bytes& b) {
    return reinterpret_cast<T*>(b.data());
}

// VDS wire image -> local: the u32 at 0 and the u16 at 28, 30, 32 turn round.
Bytes vds_local(Bytes w) {
    std::reverse(w.begin(), w.begin() + 4);
    for (int off : {28, 30, 32}) std::swap(w[off], w[off + 1]);
    return w;
}

Bytes distinct(int n) {
    Bytes w(n);
    for (int i = 0; i < n; i++) w[i] = static_cast<unsigned char>(0x10 + 3 * i);
    return w;
}

std::string get_text(const char* label, const Bytes& local, const Bytes& wire) {
    const int n = static_cast<int>(local.size());
    return std::string("Inf [CMN_LStruct2B():N] ") + label + " Before Get:" + dump_text(local.data(), n) +
           "Inf [CMN_LStruct2B():N] " + label + " After Get:" + dump_text(wire.data(), n);
}

const char kCaptureWire[] = "01 14 00 05 02 15 01 06 03 16 02 07 04 b0 04 17 03 08";
const char kCaptureLocal[] = "01 14 05 00 02 15 06 01 03 16 07 02 b0 04 04 17 08 03";

// Set and get through the dictionary, which is how the terminal reaches the
// two codecs; the get refuses a buffer below 50 / 18 bytes itself.
TEST(XiangbiaoDictionary, VdsAndCaptureRoundTrip) {
    bbtest::Conf conf;
    Bytes vds = distinct(50), cap = hex(kCaptureWire), buf(50, 0xee);
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, 0xf368, vds.data(), 50), 50); }),
              "Inf [CMN_B2LStruct():N] Dsm After Set:" + dump_text(vds_local(vds).data(), 50));
    EXPECT_EQ(Bytes(conf.bytes() + 1931, conf.bytes() + 1981), vds_local(vds));
    // The capture set converts all 18 bytes whatever the length, quietly.
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, 0xf0ef, cap.data(), 5), 5); }), "");
    EXPECT_EQ(Bytes(conf.bytes() + 1985, conf.bytes() + 2003), hex(kCaptureLocal));

    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xf368, buf.data(), 49), -1); }), "");
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xf0ef, buf.data(), 17), -1); }), "");
    EXPECT_EQ(buf, Bytes(50, 0xee));
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xf368, buf.data(), 50), 50); }),
              get_text("BB_PARAM_VDS_XIANGBIAO_ST", vds_local(vds), vds));
    EXPECT_EQ(buf, vds);
    EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_GetParam(&conf.rec, 0xf0ef, buf.data(), 18), 18); }),
              get_text("DRIVER_CAPTURE_XIANGBIAO", hex(kCaptureLocal), cap));
    EXPECT_EQ(Bytes(buf.begin(), buf.begin() + 18), cap);
}

// All ones keeps a field at its own width: a u32 or u16 that is not all
// ones as a whole is stored even when some of its bytes are 0xff.
TEST(XiangbiaoVds, AllOnesKeepsTheField) {
    const struct {
        int offset;
        const char *wire, *local;  // patched over an all-0xff wire / the record as it was
    } cases[] = {
        {0, "", ""},          {0, "ff ff ff fe", "fe ff ff ff"}, {0, "00 00 00 ff", "ff 00 00 00"},
        {4, "00", "00"},      {27, "09", "09"},                  {28, "00 ff ff ff", "ff 00 9e 9f"},
        {32, "12 34", "34 12"}, {49, "0b", "0b"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.offset) + ": " + c.wire);
        Bytes rec(50), wire(50, 0xff), w = hex(c.wire), l = hex(c.local);
        for (int i = 0; i < 50; i++) rec[i] = static_cast<unsigned char>(0x80 + i);
        Bytes want = rec;
        std::copy(w.begin(), w.end(), wire.begin() + c.offset);
        std::copy(l.begin(), l.end(), want.begin() + c.offset);
        output_of([&] { EXPECT_EQ(CMN_B2LStruct(wire.data(), 50, as<Vds>(rec)), 50); });
        EXPECT_EQ(rec, want);
    }
}

TEST(XiangbiaoVds, WrongLengthOrShortBufferChangesNothing) {
    Bytes wire(256, 0x11), rec(50, 0x5a), out(50, 0xee);
    int r = -1;
    for (int len : {49, 51, 0, 18}) {
        EXPECT_EQ(output_of([&] { r = CMN_B2LStruct(wire.data(), static_cast<unsigned char>(len), as<Vds>(rec)); }),
                  "[ASSERT][CMN_B2LStruct:N]: (DataLen == Len)\n");
        EXPECT_EQ(r, 0);
    }
    for (unsigned buflen : {0u, 49u}) {
        EXPECT_EQ(output_of([&] { r = CMN_LStruct2B(as<Vds>(rec), out.data(), buflen); }),
                  "[ASSERT][CMN_LStruct2B:N]: (BufLen >= Len)\n");
        EXPECT_EQ(r, 0);
    }
    EXPECT_EQ(rec, Bytes(50, 0x5a));
    EXPECT_EQ(out, Bytes(50, 0xee));
}

// The capture codecs trust their caller: exactly 18 bytes each way whatever
// len or buflen says, and 0xff is an ordinary value.
TEST(XiangbiaoCapture, IgnoresLenAndBufLen) {
    for (int n : {0, 1, 17, 18, 255}) {
        SCOPED_TRACE(n);
        Bytes wire(18, 0xff), rec(20, 0x5a), out(20, 0xee);
        wire[0] = static_cast<unsigned char>(n);
        EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_B2LStruct(wire.data(), static_cast<unsigned char>(n), as<Capture>(rec)), 18); }),
                  "");
        Bytes want = wire;
        want.insert(want.end(), {0x5a, 0x5a});
        EXPECT_EQ(rec, want);
        output_of([&] { EXPECT_EQ(CMN_LStruct2B(as<Capture>(rec), out.data(), static_cast<unsigned>(n)), 18); });
        wire.insert(wire.end(), {0xee, 0xee});
        EXPECT_EQ(out, wire);
    }
}

// On a record of 0x5a: the VDS initialiser leaves 6 and 13 to 20 alone; the
// other two write every byte.  Results: the printed count, -1 for null.
TEST(XiangbiaoDefaults, InitialisersWriteTheirBytesOnly) {
    auto rep = [](const char* b, int n) {
        std::string s;
        while (n-- > 0) s += std::string(" ") + b;
        return s;
    };
    const struct {
        std::string fn, null_text, want;
        int (*init)(unsigned char*);
    } cases[] = {
        {"__InitXiangbiaoVdsParam", "NULL != pstXiangbiaoVds",
         "01 00 00 00 01 00 5a" + rep("00", 6) + rep("5a", 8) + " 05 03 02" + rep("00", 26),
         [](unsigned char* p) { return __InitXiangbiaoVdsParam(reinterpret_cast<Vds*>(p)); }},
        {"__InitXiangbiaoDriverCmpParam", "NULL != pstXiangbiaoDriverCmp", "01 32 32 02",
         [](unsigned char* p) {
             return __InitXiangbiaoDriverCmpParam(reinterpret_cast<tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST*>(p));
         }},
        {"__InitXiangbiaoDriverCaptureParam", "NULL != pstXiangbiaoDriverCapt",
         "01 14 05 00 01 14 05 00 01 14 05 00 b0 04 01 14 05 00",
         [](unsigned char* p) { return __InitXiangbiaoDriverCaptureParam(reinterpret_cast<Capture*>(p)); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fn);
        Bytes want = hex(c.want), rec(want.size() + 1, 0x5a);
        want.push_back(0x5a);
        std::fflush(stdout);
        testing::internal::CaptureStdout();
        int r = c.init(rec.data());
        std::fflush(stdout);
        const std::string raw = testing::internal::GetCapturedStdout();
        EXPECT_EQ(bbtest::mask_lines(raw), "War [" + c.fn + "():N] Param Inited!\n");
        EXPECT_EQ(r, static_cast<int>(raw.size()));
        EXPECT_EQ(rec, want);
        EXPECT_EQ(output_of([&] { r = c.init(nullptr); }), "[ASSERT][" + c.fn + ":N]: " + c.null_text + "\n");
        EXPECT_EQ(r, -1);
    }
    Bytes cap(18), out(18);
    output_of([&] { __InitXiangbiaoDriverCaptureParam(as<Capture>(cap)); });
    output_of([&] { CMN_LStruct2B(as<Capture>(cap), out.data(), 18); });
    EXPECT_EQ(out, hex("01 14 00 05 01 14 00 05 01 14 00 05 04 B0 01 14 00 05"));
}

}  // namespace
