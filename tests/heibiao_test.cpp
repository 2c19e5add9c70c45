// heibiao_test.cpp - the four Heibiao blocks: round trips and dumps (get
// through 0xe138 - 0xe141), keep markers, refusals and defaults.
#include <algorithm>
#include <string>
#include <vector>

#include "test_util.h"

namespace {

using bbtest::dump_text;
using bbtest::hex;
using bbtest::output_of;
using Bytes = std::vector<unsigned char>;

struct Block {
    int len;
    std::vector<int> u16;  // offsets of the big-endian u16 fields
    std::string after_set, before_get, after_get;
    int (*set)(unsigned char*, unsigned char, unsigned char*);
    int (*get)(unsigned char*, unsigned char*, unsigned);
    int (*init)(unsigned char*);
    std::string init_fn, null_text, defaults;  // defaults over a record of 0x5a
    int id;
    size_t offset;
};

template <typename T, int (*Init)(T*)>
Block block(std::vector<int> u16, const char* set, const char* get, const char* init_fn, const char* null_text,
            std::string defaults, int id, size_t offset) {
    return {static_cast<int>(sizeof(T)), u16, std::string(set) + " After Set:", std::string(get) + " Before Get:",
            std::string(get) + " After Get:",
            [](unsigned char* w, unsigned char n, unsigned char* r) { return CMN_HljB2LStruct(w, n, reinterpret_cast<T*>(r)); },
            [](unsigned char* r, unsigned char* w, unsigned n) { return CMN_HljLStruct2B(reinterpret_cast<T*>(r), w, n); },
            [](unsigned char* r) { return Init(reinterpret_cast<T*>(r)); }, init_fn, null_text, defaults, id, offset};
}

std::string rep(const char* bytes, int n) {
    std::string s;
    while (n-- > 0) s += std::string(" ") + bytes;
    return s;
}

// The vehicle operation block's set logs under the driver identification header.
const Block kBlocks[] = {
    block<tagBB_PARAM_DRIVER_IDENTIFY_ST, __InitHljDriverIdentifyParam>(
        {4}, "Driver Identify", "Driver Identify", "__InitHljDriverIdentifyParam", "NULL != pstHeibiaoDriverIdentify",
        "05 06 01 01 b0 04 05 03 02 05 03 02" + rep("5a", 10), 0xe138, 1761),
    block<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST, __InitHljAdasParam>(
        {}, "Driver Identify", "HLJ ADAS", "__InitHljAdasParam", "NULL != pstHeibiaoAdas",
        "1e 06 01 01 32 1b 1b 05 03 02 05" + rep("05 03 02", 4) + rep("00", 10), 0xe139, 1783),
    block<tagBB_PARAM_DSM_HEIBIAO_ST, __InitHljDsmParam>({4, 6}, "HLJ DSM", "HLJ DSM", "__InitHljDsmParam",
                                                        "NULL != pstHeibiaoDsm",
                                                        "05 06 01 01 3c 00 3c 00" + rep("05 03 02", 5) + rep("00", 10),
                                                        0xe140, 1816),
    block<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, __InitHljDevFailParam>(
        {4, 6}, "HLJ DEV FAIL", "HLJ DEV FAIL", "__InitHljDevFailParam", "NULL != pstHeibiaoDevFail",
        "05 06 01 01 2c 01 2c 01" + rep("05 03 02", 9) + rep("5a", 10), 0xe141, 1849),
};

// Local image of a wire image and back: the u16 fields swap their bytes.
Bytes swapped(const Block& b, Bytes v) {
    for (int off : b.u16) std::swap(v[off], v[off + 1]);
    return v;
}

// Set through the codec, get through the dictionary (0xe138 - 0xe141),
// which refuses a buffer below the block itself, silently.
TEST(HeibiaoCodec, DistinctValuesRoundTripWithTheirHeaders) {
    for (const auto& b : kBlocks) {
        SCOPED_TRACE(b.after_get);
        bbtest::Conf conf;
        unsigned char* rec = conf.bytes() + b.offset;
        Bytes wire(b.len), out(b.len + 2, 0xee);
        for (int i = 0; i < b.len; i++) wire[i] = static_cast<unsigned char>(0x10 + 3 * i);
        const Bytes want = swapped(b, wire);
        int r = 0;
        EXPECT_EQ(output_of([&] { r = b.set(wire.data(), static_cast<unsigned char>(b.len), rec); }),
                  "Inf [CMN_HljB2LStruct():N] " + b.after_set + dump_text(want.data(), b.len));
        EXPECT_EQ(r, b.len);
        EXPECT_EQ(Bytes(rec, rec + b.len), want);
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, b.id, out.data(), b.len - 1); }), "");
        EXPECT_EQ(r, -1);
        EXPECT_EQ(out, Bytes(b.len + 2, 0xee));
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, b.id, out.data(), b.len + 2); }),
                  "Inf [CMN_HljLStruct2B():N] " + b.before_get + dump_text(want.data(), b.len) +
                      "Inf [CMN_HljLStruct2B():N] " + b.after_get + dump_text(wire.data(), b.len));
        EXPECT_EQ(r, b.len);
        wire.insert(wire.end(), {0xee, 0xee});  // u16 high byte first, nothing past the block
        EXPECT_EQ(out, wire);
    }
}

// All ones keeps a field at its own width: a u16 with one 0xff byte is stored.
TEST(HeibiaoCodec, AllOnesKeepsTheField) {
    const struct {
        int block, offset;
        const char *wire, *local;  // patched over an all-0xff wire / the record as it was
    } cases[] = {
        {0, 0, "", ""},           {1, 0, "", ""},           {2, 0, "", ""},       {3, 0, "", ""},
        {0, 4, "00 ff", "ff 00"}, {0, 6, "00", "00"},       {1, 4, "ff 00", "84 00"}, {1, 32, "00", "00"},
        {2, 4, "ff ff 00 3c", "84 85 3c 00"},               {2, 4, "ff 00", "00 ff"}, {3, 6, "ff fe", "fe ff"},
        {3, 44, "07", "07"},
    };
    for (const auto& c : cases) {
        const Block& b = kBlocks[c.block];
        SCOPED_TRACE(std::to_string(c.block) + " @" + std::to_string(c.offset) + ": " + c.wire);
        Bytes rec(b.len), wire(b.len, 0xff), w = hex(c.wire), l = hex(c.local);
        for (int i = 0; i < b.len; i++) rec[i] = static_cast<unsigned char>(0x80 + i);
        Bytes want = rec;
        std::copy(w.begin(), w.end(), wire.begin() + c.offset);
        std::copy(l.begin(), l.end(), want.begin() + c.offset);
        output_of([&] { EXPECT_EQ(b.set(wire.data(), static_cast<unsigned char>(b.len), rec.data()), b.len); });
        EXPECT_EQ(rec, want);
    }
}

TEST(HeibiaoCodec, WrongLengthOrShortBufferChangesNothing) {
    for (const auto& b : kBlocks) {
        SCOPED_TRACE(b.len);
        Bytes wire(256, 0x11), rec(b.len, 0x5a), out(b.len, 0xee);
        int r = -1;
        for (int len : {b.len - 1, b.len + 1, 0, 255}) {
            EXPECT_EQ(output_of([&] { r = b.set(wire.data(), static_cast<unsigned char>(len), rec.data()); }),
                      "[ASSERT][CMN_HljB2LStruct:N]: (DataLen == Len)\n");
            EXPECT_EQ(r, 0);
        }
        for (int buflen : {0, b.len - 1}) {
            EXPECT_EQ(output_of([&] { r = b.get(rec.data(), out.data(), static_cast<unsigned>(buflen)); }),
                      "[ASSERT][CMN_HljLStruct2B:N]: (BufLen >= Len)\n");
            EXPECT_EQ(r, 0);
        }
        EXPECT_EQ(rec, Bytes(b.len, 0x5a));
        EXPECT_EQ(out, Bytes(b.len, 0xee));
    }
}

// On a record of 0x5a the bytes an initialiser does not list keep 0x5a; the
// result is the count printed by the closing line, -1 for a null record.
TEST(HeibiaoDefaults, InitialisersWriteTheirBytesOnly) {
    for (const auto& b : kBlocks) {
        SCOPED_TRACE(b.init_fn);
        Bytes rec(b.len + 1, 0x5a), want = hex(b.defaults);
        want.push_back(0x5a);
        std::fflush(stdout);
        testing::internal::CaptureStdout();
        int r = b.init(rec.data());
        std::fflush(stdout);
        const std::string raw = testing::internal::GetCapturedStdout();
        EXPECT_EQ(bbtest::mask_lines(raw), "War [" + b.init_fn + "():N] Param Inited!\n");
        EXPECT_EQ(r, static_cast<int>(raw.size()));
        EXPECT_EQ(rec, want);
        EXPECT_EQ(output_of([&] { r = b.init(nullptr); }), "[ASSERT][" + b.init_fn + ":N]: " + b.null_text + "\n");
        EXPECT_EQ(r, -1);
    }
}

}  // namespace
