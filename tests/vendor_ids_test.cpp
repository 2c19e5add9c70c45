// vendor_ids_test.cpp - the vendor and block parameter IDs, grouped by the
// way their value goes out: numbers, strings, text read from raw bytes,
// fixed-size raw values, blocks behind a minimum buffer, get-only IDs, the
// device identity and the debug dumps.
#include <cstring>
#include <string>
#include <vector>

#include "test_util.h"

using bbtest::Conf;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;

namespace {

unsigned long load_le(const unsigned char* p, int width) {
    unsigned long v = 0;
    for (int i = width - 1; i >= 0; i--) v = (v << 8) | p[i];
    return v;
}

struct NumCase {
    int id;
    size_t offset;
    int width;
};

// Numbers: big-endian on the wire, native at their offset, nothing else
// touched, the same bytes back on get.
TEST(VendorIds, NumbersLandAtTheirOffsets) {
    const NumCase cases[] = {
        {0x101a, 2275, 2}, {0x101b, 2277, 2}, {0x101c, 2279, 2}, {0x101d, 2281, 2}, {0x101e, 2283, 1},
        {0x101f, 2284, 1}, {0x1031, 2285, 1}, {0xc223, 2189, 4}, {0xc257, 2203, 4}, {0xc258, 2207, 4},
        {0xc25b, 2211, 4}, {0xc25c, 2215, 4}, {0xf011, 1433, 4}, {0xf106, 2297, 2}, {0xf108, 2286, 1},
        {0xf110, 2287, 1}, {0xf113, 2288, 1}, {0xf128, 3213, 4}, {0xf129, 3217, 4}, {0xf12a, 3221, 1},
        {0xf200, 1437, 1}, {0xf201, 1438, 1}, {0xf202, 1439, 4},
    };
    unsigned char wire[4] = {0x81, 0x92, 0xa3, 0xb4};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        Conf before = conf;
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, wire, c.width), c.width);
        unsigned long want = 0;
        for (int i = 0; i < c.width; i++) want = (want << 8) | wire[i];
        EXPECT_EQ(load_le(conf.bytes() + c.offset, c.width), want);
        std::memcpy(before.bytes() + c.offset, conf.bytes() + c.offset, c.width);
        EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0) << "bytes outside the field";
        unsigned char out[8] = {};
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 1), c.width) << "numbers ignore BufLen";
        EXPECT_EQ(to_hex(out, c.width), to_hex(wire, c.width));
    }
}

struct StrCase {
    int id;
    size_t offset;
    int limit;
};

// Strings: limit characters accepted and terminated, one more dropped.
TEST(VendorIds, StringLimits) {
    const StrCase cases[] = {
        {0xfe05, 1273, 31}, {0xfe06, 1305, 15}, {0xfe09, 1369, 31}, {0xfe0a, 1401, 31},
        {0xf120, 2893, 31}, {0xf121, 2925, 31}, {0xf122, 2957, 31}, {0xf123, 2989, 63},
        {0xf124, 3053, 31}, {0xf125, 3085, 31}, {0xf126, 3117, 31}, {0xf127, 3149, 63},
    };
    unsigned char text[80];
    for (int i = 0; i < 80; i++) text[i] = static_cast<unsigned char>('A' + i % 26);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        std::memset(conf.bytes() + c.offset, 0x55, c.limit + 1);
        Conf before = conf;
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, text, c.limit + 1), c.limit + 1);
        EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0) << "over-long value stored";
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, text, c.limit), c.limit);
        EXPECT_EQ(std::memcmp(conf.bytes() + c.offset, text, c.limit), 0);
        EXPECT_EQ(conf.bytes()[c.offset + c.limit], 0);
        unsigned char out[80] = {};
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, sizeof out), c.limit);
        EXPECT_EQ(std::memcmp(out, text, c.limit), 0);
    }
}

// 0xf120-0xf122 and 0x0023-0x0025 are one field each.
TEST(VendorIds, SlaveServerStringsAreShared) {
    const int pairs[][2] = {{0xf120, 0x0023}, {0xf121, 0x0024}, {0xf122, 0x0025}};
    for (const auto& p : pairs) {
        for (int dir = 0; dir < 2; dir++) {
            SCOPED_TRACE(p[dir]);
            Conf conf;
            unsigned char v[] = "cmnet";
            CMN_SetParam(&conf.rec, p[dir], v, 5);
            unsigned char out[32] = {};
            EXPECT_EQ(CMN_GetParam(&conf.rec, p[1 - dir], out, sizeof out), 5);
            EXPECT_STREQ(reinterpret_cast<char*>(out), "cmnet");
        }
    }
}

// 0xc21b, 0xc222, 0xc255: stored as raw bytes (no terminator), read as text.
TEST(VendorIds, RawSetStringGet) {
    struct Case {
        int id;
        size_t offset;
    };
    const Case cases[] = {{0xc21b, 2169}, {0xc222, 2179}, {0xc255, 2193}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        unsigned char old_value[] = "ABCDEFG";
        unsigned char short_value[] = {'a', 'b', 'c'};
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, old_value, 7), 7);
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, short_value, 3), 3);
        unsigned char out[16] = {};
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, sizeof out), 7);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(out), 7), "abcDEFG");
        // Eleven bytes do not fit the room of ten.
        unsigned char eleven[11];
        std::memset(eleven, 'z', sizeof eleven);
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, eleven, 11), 11);
        EXPECT_EQ(conf.bytes()[c.offset], 'a');
    }
}

TEST(VendorIds, FullRawTextReadsIntoTheNextField) {
    Conf conf;
    unsigned char first[10];
    std::memset(first, 'x', sizeof first);
    unsigned char second[] = "yyy";
    CMN_SetParam(&conf.rec, 0xc21b, first, 10);
    CMN_SetParam(&conf.rec, 0xc222, second, 3);
    unsigned char out[32] = {};
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0xc21b, out, sizeof out), 13);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(out), 13), "xxxxxxxxxxyyy");
    // BufLen bounds the run: at most BufLen - 1 bytes, no terminator.
    unsigned char small[8];
    std::memset(small, 0xee, sizeof small);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0xc21b, small, 6), 5);
    EXPECT_EQ(to_hex(small, 8), "78 78 78 78 78 ee ee ee");
}

struct FixedCase {
    int id;
    size_t offset;
    int size;
    bool settable;
};

// Fixed-size raw values: a short buffer gets the size back and nothing
// written; a buffer of the size gets the bytes verbatim.
TEST(VendorIds, FixedSizeRawGets) {
    const FixedCase cases[] = {
        {0x8620, 2345, 128, true}, {0x8f21, 2299, 46, true}, {0xf001, 1241, 8, true},
        {0xf002, 1249, 8, true},   {0xf0e9, 1981, 4, true},  {0xf367, 1759, 2, true},
        {0xf3f0, 2059, 68, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        for (int i = 0; i < c.size; i++) conf.bytes()[c.offset + i] = static_cast<unsigned char>(i * 7 + 1);
        std::vector<unsigned char> out(c.size + 4, 0xee);
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, out.data(), c.size - 1); }), "");
        EXPECT_EQ(r, c.size);
        for (unsigned char b : out) ASSERT_EQ(b, 0xee) << "written into a short buffer";
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out.data(), c.size), c.size);
        EXPECT_EQ(std::memcmp(out.data(), conf.bytes() + c.offset, c.size), 0) << "not verbatim";
        EXPECT_EQ(out[c.size], 0xee);

        std::vector<unsigned char> wire(c.size + 1, 0x3c);
        Conf before = conf;
        output_of([&] { CMN_SetParam(&conf.rec, c.id, wire.data(), c.size + 1); });
        EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0) << "over-long raw stored";
        output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, wire.data(), c.size), c.size); });
        EXPECT_EQ(conf.bytes()[c.offset] == 0x3c, c.settable);
    }
}

// 0xf114: min(8, BufLen - 1) bytes; no buffer room at all is refused.
TEST(VendorIds, ShortRawGetOf0xf114) {
    struct Case {
        int buflen;
        int result;
    };
    const Case cases[] = {{-1, -1}, {0, -1}, {1, 0}, {5, 4}, {8, 7}, {9, 8}, {64, 8}};
    Conf conf;
    unsigned char v[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    CMN_SetParam(&conf.rec, 0xf114, v, 8);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.buflen);
        unsigned char out[12];
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(CMN_GetParam(&conf.rec, 0xf114, out, c.buflen), c.result);
        int n = c.result > 0 ? c.result : 0;
        EXPECT_EQ(std::memcmp(out, v, n), 0);
        EXPECT_EQ(out[n], 0xee);
    }
}

struct BlockCase {
    int id;
    int minimum;
    int form;  // bytes the block's codec reports on get
};

const BlockCase kBlocks[] = {
    {0xe138, 22, 22}, {0xe139, 33, 33}, {0xe140, 33, 33}, {0xe141, 45, 45}, {0xf0ef, 18, 18},
    {0xf364, 104, 56}, {0xf365, 132, 49}, {0xf366, 36, 36}, {0xf368, 50, 50}, {0xf370, 56, 54},
    {0xf372, 20, 18}, {0xf373, 4, 4},    {0xf400, 42, 42}, {0xfe10, 16, 16},
};

// A buffer under the block's minimum is refused before the codec runs.
TEST(VendorIds, BlockMinimumBuffers) {
    for (const auto& c : kBlocks) {
        SCOPED_TRACE(c.id);
        Conf conf;
        output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
        // The ADAS codec logs the 56 bytes ahead of the buffer: give it room.
        std::vector<unsigned char> frame(64 + 300, 0xee);
        unsigned char* out = frame.data() + 64;
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, out, c.minimum - 1); }), "");
        EXPECT_EQ(r, -1);
        for (unsigned char b : frame) ASSERT_EQ(b, 0xee);
        // At the minimum the codec answers with its form's length; a
        // negative BufLen compares as a huge unsigned one and passes too.
        output_of([&] { r = CMN_GetParam(&conf.rec, c.id, out, c.minimum); });
        EXPECT_EQ(r, c.form);
        output_of([&] { r = CMN_GetParam(&conf.rec, c.id, out, -1); });
        EXPECT_EQ(r, c.form);
    }
}

// The length handed to a block codec is cut to 8 bits; Set returns the
// caller's length whatever the codec makes of it.
TEST(VendorIds, BlockLengthIsCutToEightBits) {
    Conf conf;
    output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
    std::vector<unsigned char> frame(64 + 320, 0xff);
    unsigned char* wire = frame.data() + 64;  // the ADAS codec logs the bytes before the block
    wire[0] = 40;
    int r = 0;
    // 300 reaches the codec as 44: the field is converted, then the length fails.
    EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, 0xf364, wire, 300); }),
              "[ASSERT][SubiaoAdas_B2LStruct:N]: DataLen == Cnt\n");
    EXPECT_EQ(r, 300);
    EXPECT_EQ(+conf.rec.stSubiaoAdas.ucAlarmSpeed, 40);
    // 312 reaches it as 56, the form's own length.
    std::string out = output_of([&] { r = CMN_SetParam(&conf.rec, 0xf364, wire, 312); });
    EXPECT_EQ(r, 312);
    EXPECT_EQ(out.rfind("Inf [SubiaoAdas_B2LStruct():N] Subiao Adas Param Set Len:56, DataLen:56\n", 0), 0u) << out;
    // The DSM block: 305 is 49.
    out = output_of([&] { r = CMN_SetParam(&conf.rec, 0xf365, wire, 305); });
    EXPECT_EQ(r, 305);
    EXPECT_EQ(out.rfind("Inf [SubiaoDsm_B2LStruct():N] Subiao Dsm Param Set Len:49, DataLen:49\n", 0), 0u) << out;
}

// IDs answered on get only: a set reports "Not Find", returns len and
// changes nothing.
TEST(VendorIds, GetOnlyIdsRefuseSet) {
    const int ids[] = {0xe138, 0xe139, 0xe140, 0xe141, 0xf3f0, 0xf400, 0xf441, 0xf641, 0xff00, 0xff01, 0xff02};
    std::vector<unsigned char> wire(128, 0x11);
    for (int id : ids) {
        SCOPED_TRACE(id);
        Conf conf;
        output_of([&] { CMN_InitBbConfToDefault(&conf.rec); });
        Conf before = conf;
        int r = 0;
        char want[64];
        std::snprintf(want, sizeof want, "Err [CMN_SetParam():N] Not Find ID:%x \n", static_cast<unsigned>(id));
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, id, wire.data(), 22); }), want);
        EXPECT_EQ(r, 22);
        EXPECT_EQ(std::memcmp(&before.rec, &conf.rec, sizeof conf.rec), 0);
    }
}

TEST(VendorIds, IdentityTexts) {
    struct Case {
        int id;
        int buflen;
        const char* provider_line;
        const char* text;
    };
    const Case cases[] = {
        {0xff01, 64, "Inf [GetDeviceFactoryId():N] FactoryId:40917\n", "40917"},
        {0xff02, 64, "Inf [GetDeviceTerminalType():N] TerminalType:MDVR\n", "MDVR"},
        {0xff02, 3, "Inf [GetDeviceTerminalType():N] TerminalType:MD\n", "MD"},
        {0xff01, 1, "Inf [GetDeviceFactoryId():N] FactoryId:\n", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.buflen);
        Conf conf;
        unsigned char buf[64];
        std::memset(buf, 0xee, sizeof buf);
        int r = 0;
        std::string out = output_of([&] { r = CMN_GetParam(&conf.rec, c.id, buf, c.buflen); });
        int n = static_cast<int>(std::strlen(c.text));
        char war[64];
        std::snprintf(war, sizeof war, "War [CMN_GetParam():N] Get ID:%x Len:%d_", static_cast<unsigned>(c.id), n);
        std::string tail = n > 0 ? bbtest::dump_text(buf, n) : std::string("\n");
        EXPECT_EQ(out, std::string(c.provider_line) + war + tail);
        EXPECT_EQ(r, n);
        EXPECT_EQ(std::string(reinterpret_cast<char*>(buf), n), c.text);
    }
}

// The MAC comes from the machine: either it was read (6 bytes dumped) or
// the reader failed (its result below 1 and a bare line end).
TEST(VendorIds, IdentityMac) {
    Conf conf;
    unsigned char buf[32] = {};
    int r = 0;
    std::string out = output_of([&] { r = CMN_GetParam(&conf.rec, 0xff00, buf, sizeof buf); });
    if (r == 6) {
        EXPECT_EQ(out, "War [CMN_GetParam():N] Get ID:ff00 Len:6_" + bbtest::dump_text(buf, 6));
    } else {
        EXPECT_EQ(r, 0);
        const std::string war = "War [CMN_GetParam():N] Get ID:ff00 Len:0_\n";
        ASSERT_GE(out.size(), war.size());
        EXPECT_EQ(out.substr(out.size() - war.size()), war);
        EXPECT_EQ(out.rfind("Err [GetMacFormFile():N] ", 0), 0u) << out;
    }
    // A buffer of 6 is too small for the reader whatever the machine.
    EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, 0xff00, buf, 6); }),
              "Err [GetMacFormFile():N] MAC Size less than 6\n"
              "War [CMN_GetParam():N] Get ID:ff00 Len:0_\n");
    EXPECT_EQ(r, 0);
}

// The debug IDs dump what the caller passed in and answer -1.
TEST(VendorIds, DebugDumps) {
    struct Case {
        int id;
        int buflen;
    };
    const Case cases[] = {{0xf441, 3}, {0xf641, 3}, {0xf441, 0}, {0xf641, -2}, {0xf441, 31}};
    unsigned char buf[40];
    for (int i = 0; i < 40; i++) buf[i] = static_cast<unsigned char>(0xa0 + i);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.buflen);
        Conf conf;
        unsigned char copy[40];
        std::memcpy(copy, buf, sizeof buf);
        int r = 0;
        std::string want = "CMN_GetParam,N,BufLen=" + std::to_string(c.buflen) + "\n";
        if (c.buflen > 0) want += bbtest::dump_text(buf, c.buflen);
        want += "\n";
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, c.id, copy, c.buflen); }), want);
        EXPECT_EQ(r, -1);
        EXPECT_EQ(std::memcmp(copy, buf, sizeof buf), 0);
    }
    Conf conf;
    unsigned char three[3] = {1, 2, 0xab};
    EXPECT_EQ(output_of([&] { CMN_GetParam(&conf.rec, 0xf641, three, 3); }),
              "CMN_GetParam,N,BufLen=3\n 0102ab\n\n\n");
}

}  // namespace
