// frame_test.cpp - the parameter access frame: argument checks in their
// order, both "Not Find" forms, and every value kind on the communication
// IDs 0x0001 - 0x0031.
#include <cstring>
#include <string>

#include "test_util.h"

using bbtest::Conf;
using bbtest::output_of;

namespace {

unsigned char kWire[8] = {0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc, 0xde, 0xf0};

struct ArgCase {
    const char* name;
    int id;
    bool null_buf;
    bool null_rec;
    const char* set_text;
    const char* get_text;
};

TEST(Frame, ArgumentChecksInOrder) {
    const ArgCase cases[] = {
        {"id 0 before buffer", 0x0000, true, true, "0x0000 != ParamId", "0x0000 != ParamId"},
        {"reserved before buffer", 0xffff, true, true, "BB_PARAM_ID_RESERVED != ParamId",
         "BB_PARAM_ID_RESERVED != ParamId"},
        {"buffer before record", 0x0001, true, true, "NULL != pStr", "NULL != pBuf"},
        {"record", 0x0001, false, true, "NULL != pbbConf", "NULL != pbbConf"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Conf conf;
        tagBB_CONF_ST* rec = c.null_rec ? nullptr : &conf.rec;
        unsigned char* buf = c.null_buf ? nullptr : kWire;
        int r = 0;
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(rec, c.id, buf, 4); }),
                  std::string("[ASSERT][CMN_SetParam:N]: ") + c.set_text + "\n");
        EXPECT_EQ(r, -1);
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(rec, c.id, buf, 4); }),
                  std::string("[ASSERT][CMN_GetParam:N]: ") + c.get_text + "\n");
        EXPECT_EQ(r, -1);
    }
}

TEST(Frame, UnknownIdsOnBothSides) {
    const int unknown[] = {0x0008, 0x000f, 0x001e, 0x001f, 0x002a, 0x002b, 0x0032, 0x003f, 0x0026 /* set only */,
                           0x10000, -5};
    for (int id : unknown) {
        SCOPED_TRACE(id);
        Conf conf;
        Conf before = conf;
        unsigned char wire[8] = {1, 2, 3, 4, 5, 6, 7, 8};
        int r = 0;
        char expect[64];
        std::snprintf(expect, sizeof expect, "Err [CMN_SetParam():N] Not Find ID:%x \n", static_cast<unsigned>(id));
        EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, id, wire, 7); }), expect);
        EXPECT_EQ(r, 7);
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
        if (id == 0x0026) continue;
        std::snprintf(expect, sizeof expect, "Err [CMN_GetParam():N] Not Find ID:%#x\n", static_cast<unsigned>(id));
        EXPECT_EQ(output_of([&] { r = CMN_GetParam(&conf.rec, id, wire, 8); }), expect);
        EXPECT_EQ(r, -1);
    }
    // The forms differ: "8" on set, "0x8" on get.
    Conf conf;
    EXPECT_EQ(output_of([&] { CMN_GetParam(&conf.rec, 0x0008, kWire, 4); }),
              "Err [CMN_GetParam():N] Not Find ID:0x8\n");
}

struct NumCase {
    int id;
    size_t offset;
    int width;
};

// Every numeric communication ID: the wire value lands native at its offset,
// nothing else changes, and the get gives the same big-endian bytes back.
TEST(Frame, NumericCommunicationIds) {
    const NumCase cases[] = {
        {0x0001, 0, 4},   {0x0002, 4, 4},   {0x0003, 8, 4},   {0x0004, 12, 4},  {0x0005, 16, 4},
        {0x0006, 20, 4},  {0x0007, 24, 4},  {0x0018, 348, 4}, {0x0019, 352, 4}, {0x001b, 388, 4},
        {0x001c, 392, 4}, {0x0020, 428, 4}, {0x0021, 432, 4}, {0x0022, 436, 4}, {0x0027, 440, 4},
        {0x0028, 444, 4}, {0x0029, 448, 4}, {0x002c, 452, 4}, {0x002d, 456, 4}, {0x002e, 460, 4},
        {0x002f, 464, 4}, {0x0030, 468, 4}, {0x0031, 472, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        std::memset(&conf.rec, 0x5a, sizeof conf.rec);
        Conf before = conf;
        // The set reads exactly the kind's bytes and never compares len.
        EXPECT_EQ(output_of([&] { EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, kWire, 1), 1); }), "");
        for (int i = 0; i < c.width; i++) {
            EXPECT_EQ(conf.bytes()[c.offset + i], kWire[c.width - 1 - i]) << "byte " << i;
            conf.bytes()[c.offset + i] = 0x5a;
        }
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
        CMN_SetParam(&conf.rec, c.id, kWire, 4);
        unsigned char out[8] = {0};
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 0), c.width);  // BufLen not consulted
        EXPECT_EQ(std::memcmp(out, kWire, c.width), 0);
        EXPECT_EQ(out[c.width], 0);
    }
}

struct StrCase {
    int id;
    size_t offset;
    int limit;
};

TEST(Frame, StringCommunicationIds) {
    const StrCase cases[] = {
        {0x0010, 28, 31},   {0x0011, 60, 31},   {0x0012, 92, 31},   {0x0013, 124, 63},
        {0x0014, 188, 31},  {0x0015, 220, 31},  {0x0016, 252, 31},  {0x0017, 284, 63},
        {0x001a, 356, 31},  {0x001d, 396, 31},  {0x0023, 2893, 31}, {0x0024, 2925, 31},
        {0x0025, 2957, 31},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        Conf conf;
        std::memset(&conf.rec, 0x5a, sizeof conf.rec);
        Conf before = conf;
        unsigned char text[80];
        for (int i = 0; i < 80; i++) text[i] = static_cast<unsigned char>('A' + i % 26);

        // Too long (limit + 1, negative): dropped silently, len returned.
        for (int len : {c.limit + 1, -1}) {
            int r = 0;
            EXPECT_EQ(output_of([&] { r = CMN_SetParam(&conf.rec, c.id, text, len); }), "");
            EXPECT_EQ(r, len);
            EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);
        }
        // At the limit: stored and terminated, nothing else touched.
        EXPECT_EQ(CMN_SetParam(&conf.rec, c.id, text, c.limit), c.limit);
        EXPECT_EQ(std::memcmp(conf.bytes() + c.offset, text, c.limit), 0);
        EXPECT_EQ(conf.bytes()[c.offset + c.limit], 0);
        std::memcpy(conf.bytes() + c.offset, before.bytes() + c.offset, c.limit + 1);
        EXPECT_EQ(std::memcmp(&conf.rec, &before.rec, sizeof conf.rec), 0);

        // A NUL inside the value ends the stored text.
        unsigned char with_nul[] = {'a', 'b', 0, 'c'};
        CMN_SetParam(&conf.rec, c.id, with_nul, 4);
        EXPECT_STREQ(reinterpret_cast<char*>(conf.bytes() + c.offset), "ab");

        // Gets copy min(strlen, BufLen - 1) bytes without terminator.
        CMN_SetParam(&conf.rec, c.id, text, 10);
        unsigned char out[80];
        std::memset(out, 0xee, sizeof out);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 4), 3);
        EXPECT_EQ(std::memcmp(out, "ABC", 3), 0);
        EXPECT_EQ(out[3], 0xee);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 11), 10);
        EXPECT_EQ(std::memcmp(out, text, 10), 0);
        EXPECT_EQ(out[10], 0xee);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 1), 0);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, 0), -1);
        EXPECT_EQ(CMN_GetParam(&conf.rec, c.id, out, -3), -1);
    }
}

TEST(Frame, SlaveServerText) {
    Conf conf;
    const char addr[] = "10.1.2.3";
    CMN_SetParam(&conf.rec, 0xf123, (unsigned char*)addr, sizeof addr - 1);
    unsigned char port[4] = {0x00, 0x00, 0x1b, 0x60};  // 7008
    CMN_SetParam(&conf.rec, 0x0018, port, 4);
    char out[80];
    std::memset(out, 0, sizeof out);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0026, reinterpret_cast<unsigned char*>(out), sizeof out), -1);
    EXPECT_STREQ(out, "10.1.2.3:7008");
    // Bounded by the caller's buffer.
    std::memset(out, 0x7f, sizeof out);
    EXPECT_EQ(CMN_GetParam(&conf.rec, 0x0026, reinterpret_cast<unsigned char*>(out), 5), -1);
    EXPECT_STREQ(out, "10.1");
    EXPECT_EQ(out[5], 0x7f);
}

TEST(Frame, SlaveServerFieldsAreShared) {
    const int pairs[][2] = {{0x0023, 0xf120}, {0x0024, 0xf121}, {0x0025, 0xf122}};
    for (const auto& p : pairs) {
        Conf conf;
        unsigned char out[32];
        CMN_SetParam(&conf.rec, p[0], (unsigned char*)"apn1", 4);
        EXPECT_EQ(CMN_GetParam(&conf.rec, p[1], out, sizeof out), 4);
        CMN_SetParam(&conf.rec, p[1], (unsigned char*)"xy", 2);
        EXPECT_EQ(CMN_GetParam(&conf.rec, p[0], out, sizeof out), 2);
        EXPECT_EQ(std::memcmp(out, "xy", 2), 0);
    }
}

}  // namespace
