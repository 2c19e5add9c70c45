// Parameter messages: lists, apply, answers and whole JT/T 808 messages,
// checked against messages other platform projects and devices published
// (tests/data/peer_vectors.txt) and against bytes written from the protocol.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "bbconf_message.h"
#include "quiet_stdout.h"
#include "test_util.h"

namespace {

using bbconf::FrameError;
using bbconf::GeneralResult;
using bbconf::ListError;
using bbconf::SetResult;
using Bytes = std::vector<unsigned char>;
using bbtest::hex;

struct Vector {
    std::string name, form;
    Bytes bytes;
};

std::vector<Vector> peer_vectors() {
    std::ifstream f(BBCONF_TEST_DATA_DIR "/peer_vectors.txt");
    std::vector<Vector> out;
    for (std::string line; std::getline(f, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        Vector v;
        std::string text;
        words >> v.name >> v.form >> text;
        v.bytes = hex(text);
        out.push_back(v);
    }
    return out;
}

std::string hx(const unsigned char* p, size_t n) {
    static const char d[] = "0123456789abcdef";
    std::string s;
    for (size_t i = 0; i < n; i++) (s += d[p[i] >> 4]) += d[p[i] & 15];
    return s;
}
std::string hx(const Bytes& b) { return hx(b.data(), b.size()); }
std::string text_hex(const std::string& t) { return hx(reinterpret_cast<const unsigned char*>(t.data()), t.size()); }

// Runs f with the library's diagnostic lines sent to /dev/null.
template <typename F>
auto quiet(F&& f) {
    bbtest::QuietStdout q;
    return f();
}

struct Terminal {
    tagBB_CONF_ST rec{};
    Terminal() {
        bbtest::QuietStdout q;
        CMN_InitBbConfToDefault(&rec);
    }
    std::string get(uint16_t id) {
        unsigned char buf[64 + 300] = {};  // the ADAS get logs the 56 bytes in front of its buffer
        bbtest::QuietStdout q;
        const int n = CMN_GetParam(&rec, id, buf + 64, 256);
        return n < 0 ? "-" : hx(buf + 64, static_cast<size_t>(n));
    }
    // The value of one ID in the 0x0104 answer the terminal sends.
    std::string answered(uint32_t id) {
        const unsigned char ids[] = {1, static_cast<unsigned char>(id >> 24), static_cast<unsigned char>(id >> 16),
                                     static_cast<unsigned char>(id >> 8), static_cast<unsigned char>(id)};
        unsigned char body[300];
        bbtest::QuietStdout q;
        const bbconf::AnswerReport r = bbconf::build_answer(&rec, 0, ids, sizeof ids, body, sizeof body, nullptr, 0);
        return r.written && r.answered == 1 ? hx(body + 8, r.size - 8) : "-";
    }
};

// The parameter list a message carries: the body of 0x8103, the body of
// 0x0104 after its answer serial.
Bytes list_of(const Vector& v, uint16_t* serial) {
    Bytes body = v.bytes;
    std::string form = v.form;
    if (form == "frame") {
        Bytes work(v.bytes.size());
        bbconf::Message m;
        EXPECT_EQ(bbconf::unframe(v.bytes.data(), v.bytes.size(), work.data(), work.size(), &m), FrameError::None)
            << v.name;
        body.assign(m.body, m.body + m.body_len);
        form = m.header.msg_id == bbconf::kMsgSetParams ? "list8103" : m.header.msg_id == 0x0104 ? "body0104" : "";
    }
    if (form == "body0104") {
        *serial = static_cast<uint16_t>(body[0] << 8 | body[1]);
        return Bytes(body.begin() + 2, body.end());
    }
    return form == "list8103" ? body : Bytes();
}

// What the sources assert, written from their tests (values in wire form),
// and read-backs that differ from the value sent, with the reason.
const std::map<std::string, std::map<uint16_t, std::string>> kAsserted = {
    {"A1", {{0x0001, "0000000a"}}},
    {"A2", {{0x0001, "0000000a"}, {0x0013, text_hex("www.baidu.com")}}},
    {"A3",
     {{0x0110,
       "000003e8"
       "c000ddd5"}}},  // 1000 ms; channel 1, standard frame, raw, bus ID 56789
    {"A5a", {{0x0001, "0000000a"}}},
    {"A5b", {{0x0001, "0000000a"}, {0x0013, text_hex("www.baidu.com")}}},
    {"A10", {{0x0001, "00000063"}, {0x0012, text_hex("abcd")}}},
    {"A11",
     {{0x0001, "0000003c"},
      {0x0002, "0000001e"},
      {0x0005, "0000001e"},
      {0x0020, "00000000"},
      {0x0091, "05"},
      {0x0013, text_hex("192.168.8.78")},
      {0x0011, text_hex("JimiIOT")},
      {0x0012, text_hex("JimiIOT")}}},
    {"A15", {{0x0018, "00002266"}, {0x0083, "d4c142383838383820202020"}, {0x0011, ""}, {0x0081, "002c"}}},
    {"B4", {{0xf367, "0201"}}},
    {"C2", {{0x0079, "030201"}, {0x007a, "00000001"}, {0x007b, "0102"}}},
};
// The ADAS block writes its four reserved tail bytes as zero on a get.
const std::map<std::string, std::map<uint16_t, std::string>> kNormalised = {
    {"B1",
     {{0xf364,
       "052d030002000122231d26000000040000000a1e09152b08180f0e14291011122a16170d13280c0b1c192c1b1a24"
       "25270607202100000000"}}},
};

TEST(PeerVectors, EveryItemStoredAndReadBack) {
    std::printf("| message | items | stored | skipped | read back equal |\n");
    for (const Vector& v : peer_vectors()) {
        uint16_t serial = 0;
        const Bytes list = list_of(v, &serial);
        if (list.empty()) continue;  // queries: below
        Terminal t;
        bbconf::ItemOutcome out[255];
        const bbconf::ApplyReport r =
            quiet([&] { return bbconf::apply_list(&t.rec, list.data(), list.size(), out, 255); });
        ASSERT_EQ(r.result, GeneralResult::Success) << v.name;
        EXPECT_EQ(r.stored, r.items) << v.name;
        int equal = 0;
        size_t pos = 0;
        bbconf::ListItem item;
        while (bbconf::next_item(list.data(), list.size(), &pos, &item)) {
            std::string expect = hx(item.value, item.len);
            const auto n = kNormalised.find(v.name);
            if (n != kNormalised.end() && n->second.count(static_cast<uint16_t>(item.id))) {
                expect = n->second.at(static_cast<uint16_t>(item.id));
            }
            EXPECT_EQ(t.answered(item.id), expect) << v.name << " " << std::hex << item.id;
            equal += t.answered(item.id) == expect;
        }
        const auto a = kAsserted.find(v.name);
        if (a != kAsserted.end()) {
            for (const auto& [id, value] : a->second) EXPECT_EQ(t.answered(id), value) << v.name << " " << id;
        }
        std::printf("| %s %s | %d | %d | %d | %d of %d |\n", v.name.c_str(), v.form.c_str(), r.items, r.stored,
                    r.skipped, equal, r.items);
    }
}

TEST(PeerVectors, AnswerSerialsAndQueries) {
    std::map<std::string, uint16_t> serials;
    for (const Vector& v : peer_vectors()) {
        uint16_t s = 0xffff;
        list_of(v, &s);
        serials[v.name + v.form] = s;
    }
    EXPECT_EQ(serials["A5aframe"], 20);
    EXPECT_EQ(serials["A10frame"], 111);
    EXPECT_EQ(serials["A11body0104"], 123);

    Terminal t;
    const Bytes a7 = hex("020000000100000002");
    unsigned char body[64];
    const bbconf::AnswerReport r = bbconf::build_answer(&t.rec, 7, a7.data(), a7.size(), body, sizeof body, nullptr, 0);
    ASSERT_TRUE(r.written);
    // Factory heartbeat 20 s, TCP time-out 10 s (the record's defaults).
    EXPECT_EQ(hx(body, r.size),
              "0007"
              "02"
              "0000000104" +
                  t.get(1) + "0000000204" + t.get(2));
}

TEST(PeerVectors, WholeMessagesRebuiltFromTheirHeaders) {
    for (const Vector& v : peer_vectors()) {
        if (v.form != "frame") continue;
        Bytes work(v.bytes.size());
        bbconf::Message m;
        ASSERT_EQ(bbconf::unframe(v.bytes.data(), v.bytes.size(), work.data(), work.size(), &m), FrameError::None);
        Bytes again(v.bytes.size() + 8);
        size_t n = 0;
        ASSERT_EQ(bbconf::frame_message(m.header, m.body, m.body_len, again.data(), again.size(), &n),
                  FrameError::None);
        EXPECT_EQ(hx(again.data(), n), hx(v.bytes)) << v.name;
    }
}

TEST(Frame, HeadersOf2013And2019) {
    const Bytes a10 = hex("7E0104401501000000000001234567890064006F02000000010400000063000000120461626364A57E");
    Bytes work(a10.size());
    bbconf::Message m;
    ASSERT_EQ(bbconf::unframe(a10.data(), a10.size(), work.data(), work.size(), &m), FrameError::None);
    char phone[21];
    bbconf::phone_to_digits(m.header, phone);
    EXPECT_TRUE(m.header.v2019);
    EXPECT_EQ(m.header.version, 1);
    EXPECT_STREQ(phone, "123456789");
    EXPECT_EQ(m.header.serial, 100);
    EXPECT_EQ(m.body_len, 21u);

    // Unescaping in place, 2013 header.
    Bytes a8 = hex("7E8104000001234567890000010D7E");
    ASSERT_EQ(bbconf::unframe(a8.data(), a8.size(), a8.data(), a8.size(), &m), FrameError::None);
    bbconf::phone_to_digits(m.header, phone);
    EXPECT_EQ(m.header.msg_id, 0x8104);
    EXPECT_STREQ(phone, "12345678900");
    EXPECT_EQ(m.header.serial, 1);
    EXPECT_EQ(m.body_len, 0u);

    unsigned char bcd[10];
    ASSERT_TRUE(bbconf::phone_from_digits("12345678900", false, bcd));
    EXPECT_EQ(hx(bcd, 6), "012345678900");
    ASSERT_TRUE(bbconf::phone_from_digits("13800001111", true, bcd));
    EXPECT_EQ(hx(bcd, 10), "00000000013800001111");
    EXPECT_FALSE(bbconf::phone_from_digits("1234567890123", false, bcd));
    EXPECT_FALSE(bbconf::phone_from_digits("12a4", true, bcd));
    EXPECT_FALSE(bbconf::phone_from_digits("", true, bcd));
}

TEST(Frame, EscapesAndCheckCode) {
    // Message 0x7e7d, body 7e 7d 01: every 0x7e and 0x7d of header, body and
    // check code escaped.  Check code: 7e^7d^00^03^(phone 0)^00^05^7e^7d^01.
    bbconf::MessageHeader h{};
    h.msg_id = 0x7e7d;
    h.serial = 5;
    const Bytes body = hex("7e7d01");
    unsigned char out[64];
    size_t n = 0;
    ASSERT_EQ(bbconf::frame_message(h, body.data(), body.size(), out, sizeof out, &n), FrameError::None);
    EXPECT_EQ(hx(out, n),
              "7e"
              "7d027d01"
              "0003"
              "000000000000"
              "0005"
              "7d027d0101"
              "07"
              "7e");
    size_t need = 0;
    EXPECT_EQ(bbconf::frame_message(h, body.data(), body.size(), out, n - 1, &need), FrameError::NoRoom);
    EXPECT_EQ(need, n);
    Bytes big(1024);
    EXPECT_EQ(bbconf::frame_message(h, big.data(), big.size(), out, sizeof out, &n), FrameError::BodyTooLong);
}

TEST(Frame, CorruptFramesNamed) {
    const std::string a1 = "7E8103000A000123456789000A0100000001040000000A057E";
    const struct {
        std::string frame;
        FrameError error;
    } cases[] = {
        {a1, FrameError::None},
        {"8103000A000123456789000A0100000001040000000A057E", FrameError::NoDelimiter},
        {"7E8103000A000123456789000A0100000001040000000A05", FrameError::NoDelimiter},
        {"7E", FrameError::NoDelimiter},
        {"7E8103000A000123456789000A0100000001040000000A067E", FrameError::BadCheckCode},
        {"7E8103000B000123456789000A0100000001040000000A047E", FrameError::LengthMismatch},
        {"7E8103000A0001237E456789000A0100000001040000000A057E", FrameError::StrayDelimiter},
        {"7E8103000A0001237D03456789000A0100000001040000000A057E", FrameError::BadEscape},
        {"7E8103000A000123456789000A0100000001040000000A7D7E", FrameError::BadEscape},
        {"7E81030000000123456789000A017E", FrameError::None},
        {"7E8103000000012345678900E97E", FrameError::TooShort},
        {"7E7E", FrameError::TooShort},
        // Subpackage flag with package number 0 (count 2), and 3 of 2.
        {"7E81032000000123456789000100020000287E", FrameError::BadPackage},
        {"7E810320000001234567890001000200032B7E", FrameError::BadPackage},
    };
    for (const auto& c : cases) {
        Bytes f = hex(c.frame);
        Bytes work(f.size() + 4, 0xee);
        bbconf::Message m;
        EXPECT_EQ(bbconf::unframe(f.data(), f.size(), work.data(), f.size(), &m), c.error) << c.frame;
        EXPECT_EQ(work[f.size()], 0xee);
    }
    Bytes f = hex(a1);
    unsigned char small[8];
    bbconf::Message m;
    EXPECT_EQ(bbconf::unframe(f.data(), f.size(), small, sizeof small, &m), FrameError::NoRoom);
    EXPECT_STREQ(bbconf::to_string(FrameError::BadCheckCode), "the check code does not match");
}

// The malformed lists: the count and the items found named, nothing stored.
TEST(List, MalformedListsStoreNothing) {
    const struct {
        const char* list;
        ListError error;
        int declared, found;
        size_t offset, remaining;
        uint32_t id;
    } cases[] = {
        {"", ListError::Empty, 0, 0, 0, 0, 0},
        {"01", ListError::Truncated, 1, 0, 1, 0, 0},
        {"0100000001", ListError::Truncated, 1, 0, 1, 4, 0},
        {"010000000104000000", ListError::Truncated, 1, 0, 1, 8, 1},
        {"020000000104000000050000000204", ListError::Truncated, 2, 1, 10, 5, 2},
        {"0200000001040000000a", ListError::Truncated, 2, 1, 10, 0, 0},
        {"0100000001040000000a00", ListError::TrailingBytes, 1, 1, 10, 1, 0},
        {"00ff", ListError::TrailingBytes, 0, 0, 1, 1, 0},
        // The first bytes of a whole message read as a list of 126 items.
        {"7E8103000A000123456789000A0100000001040000000A057E", ListError::Truncated, 126, 1, 6, 19, 0x01234567},
    };
    for (const auto& c : cases) {
        const Bytes list = hex(c.list);
        Terminal t;
        const Terminal before;
        const bbconf::ApplyReport r =
            quiet([&] { return bbconf::apply_list(&t.rec, list.data(), list.size(), nullptr, 0); });
        EXPECT_EQ(r.result, GeneralResult::MessageError) << c.list;
        EXPECT_EQ(r.fault.error, c.error) << c.list;
        EXPECT_EQ(r.fault.declared, c.declared) << c.list;
        EXPECT_EQ(r.fault.found, c.found) << c.list;
        EXPECT_EQ(r.fault.offset, c.offset) << c.list;
        EXPECT_EQ(r.fault.remaining, c.remaining) << c.list;
        EXPECT_EQ(r.fault.id, c.id) << c.list;
        EXPECT_EQ(r.stored, 0);
        EXPECT_EQ(std::memcmp(&t.rec, &before.rec, sizeof t.rec), 0) << c.list;
    }
    bbconf::ListFault f;
    EXPECT_EQ(bbconf::check_id_list(hex("0200000001000000").data(), 8, &f), ListError::Truncated);
    EXPECT_EQ(f.found, 1);
    EXPECT_EQ(bbconf::check_id_list(hex("010000000100").data(), 6, &f), ListError::TrailingBytes);
}

// Items a terminal skips, each with its reason; the others are stored.
TEST(Apply, SkippedItemsNamedOthersStored) {
    const Bytes list =
        hex("07"
            "00000032"
            "04"
            "00000001"  // 2019 ID unknown to this record
            "0000011002"
            "0a0b"        // raw CAN setting of 8 bytes, 2 given
            "0000011000"  // the same, empty
            "00000026"
            "04"
            "31323334"  // get-only endpoint text
            "00012345"
            "01"
            "01"  // above 0xffff
            "0000000104"
            "0000001e"  // heartbeat 30 s: stored
            "0000000102"
            "001e");  // number of the wrong width
    Terminal t;
    const std::string can = t.get(0x0110);
    bbconf::ItemOutcome out[255];
    bbconf::ApplyReport r = quiet([&] { return bbconf::apply_list(&t.rec, list.data(), list.size(), out, 255); });
    EXPECT_EQ(r.result, GeneralResult::Failure);
    EXPECT_EQ(r.items, 7);
    EXPECT_EQ(r.stored, 1);
    EXPECT_EQ(r.skipped, 6);
    const SetResult want[] = {SetResult::UnknownId, SetResult::WrongLength, SetResult::WrongLength, SetResult::ReadOnly,
                              SetResult::UnknownId, SetResult::Stored,      SetResult::WrongLength};
    for (int i = 0; i < 7; i++) EXPECT_EQ(out[i].result, want[i]) << i;
    EXPECT_STREQ(bbconf::item_reason(out[4]), "ID above 0xFFFF");
    EXPECT_EQ(out[4].id, 0x12345u);
    EXPECT_EQ(t.get(0x0110), can);
    EXPECT_EQ(t.get(0x0001), "0000001e");

    // All or nothing: the same list changes nothing, and says which items would have been stored.
    Terminal u;
    const Terminal before;
    tagBB_CONF_ST scratch;
    r = quiet([&] { return bbconf::apply_list_all_or_nothing(&u.rec, &scratch, list.data(), list.size(), out, 255); });
    EXPECT_EQ(r.result, GeneralResult::Failure);
    EXPECT_EQ(r.stored, 0);
    EXPECT_EQ(r.skipped, 6);
    EXPECT_EQ(out[5].result, SetResult::Stored);
    EXPECT_EQ(std::memcmp(&u.rec, &before.rec, sizeof u.rec), 0);
    const Bytes good =
        hex("02"
            "0000000104"
            "0000001e"
            "00000013"
            "03"
            "616263");
    r = quiet([&] { return bbconf::apply_list_all_or_nothing(&u.rec, &scratch, good.data(), good.size(), out, 255); });
    EXPECT_EQ(r.result, GeneralResult::Success);
    EXPECT_EQ(r.stored, 2);
    EXPECT_EQ(u.get(0x0013), "616263");
    EXPECT_EQ(bbconf::apply_list_all_or_nothing(&u.rec, &u.rec, good.data(), good.size(), out, 255).result,
              GeneralResult::MessageError);
}

// Stored exactly as the specified setter would store the same items in the same order.
TEST(Apply, SameBytesAsTheSetter) {
    const Bytes list =
        hex("03"
            "0000001305"
            "6162636465"
            "0000001302"
            "7879"
            "0000f36702"
            "0102");
    Terminal a, b;
    {
        bbtest::QuietStdout q;
        bbconf::apply_list(&a.rec, list.data(), list.size(), nullptr, 0);
        CMN_SetParam(&b.rec, 0x13, const_cast<unsigned char*>(list.data() + 6), 5);
        CMN_SetParam(&b.rec, 0x13, const_cast<unsigned char*>(list.data() + 16), 2);
        CMN_SetParam(&b.rec, 0xf367, const_cast<unsigned char*>(list.data() + 23), 2);
    }
    EXPECT_EQ(std::memcmp(&a.rec, &b.rec, sizeof a.rec), 0);
}

// A block first in an exact-size answer: the ADAS get logs the bytes in
// front of its buffer, which must not be the caller's (ASan sees it).
TEST(Answer, BlockFirstInExactBuffer) {
    Terminal t;
    const Bytes ids =
        hex("01"
            "0000f364");
    std::vector<unsigned char> body(3 + 5 + 56);
    const bbconf::AnswerReport r = quiet(
        [&] { return bbconf::build_answer(&t.rec, 2, ids.data(), ids.size(), body.data(), body.size(), nullptr, 0); });
    ASSERT_TRUE(r.written);
    EXPECT_EQ(hx(body.data(), 8),
              "0002"
              "01"
              "0000f364"
              "38");
    EXPECT_EQ(hx(body.data() + 8, 56), t.get(0xf364));
}

TEST(Answer, UnknownIdsLeftOutAndNamed) {
    Terminal t;
    const Bytes ids =
        hex("04"
            "00000009"
            "00000001"
            "0000007f"
            "0000ff00");
    bbconf::LeftOut left[4];
    const bbconf::AnswerReport size = bbconf::answer_size(&t.rec, ids.data(), ids.size(), left, 4);
    EXPECT_EQ(size.answered, 1);
    EXPECT_EQ(size.left_out, 3);
    EXPECT_EQ(size.size, 3u + 5 + 4);
    EXPECT_EQ(left[0].id, 9u);
    EXPECT_EQ(left[0].reason, bbconf::LeftOutReason::UnknownId);
    EXPECT_EQ(left[2].reason, bbconf::LeftOutReason::NotReadable);

    // Exact-size buffer with a guard byte, then one byte short: nothing written.
    Bytes out(size.size + 1, 0xee);
    bbconf::AnswerReport r =
        bbconf::build_answer(&t.rec, 0x1234, ids.data(), ids.size(), out.data(), size.size, nullptr, 0);
    EXPECT_TRUE(r.written);
    EXPECT_EQ(hx(out),
              "1234"
              "01"
              "0000000104" +
                  t.get(1) + "ee");
    Bytes short_out(size.size, 0xee);
    r = bbconf::build_answer(&t.rec, 1, ids.data(), ids.size(), short_out.data(), size.size - 1, nullptr, 0);
    EXPECT_FALSE(r.written);
    EXPECT_EQ(r.size, size.size);
    EXPECT_EQ(short_out, Bytes(size.size, 0xee));

    r = bbconf::build_answer(&t.rec, 1, ids.data(), ids.size() - 1, out.data(), out.size(), nullptr, 0);
    EXPECT_FALSE(r.written);
    EXPECT_EQ(r.fault.error, ListError::Truncated);
}

// The default record through a query of all and an apply: every settable
// parameter arrives, get-only ones are skipped as such, and a query of all
// needs more than one package.
TEST(Answer, DefaultRecordRoundTripAndPackages) {
    Terminal a;
    {
        bbtest::QuietStdout q;
        unsigned char v[] = {'a', 'p', 'n', 'x'};
        CMN_SetParam(&a.rec, 0x0010, v, 4);
    }
    const bbconf::AnswerReport size = bbconf::answer_size(&a.rec, nullptr, 0, nullptr, 0);
    Bytes body(size.size);
    const bbconf::AnswerReport r = bbconf::build_answer(&a.rec, 9, nullptr, 0, body.data(), body.size(), nullptr, 0);
    ASSERT_TRUE(r.written);
    EXPECT_EQ(r.answered, size.answered);
    EXPECT_GT(body.size(), 1023u);

    tagBB_CONF_ST zero{};
    bbconf::ItemOutcome out[255];
    const bbconf::ApplyReport applied =
        quiet([&] { return bbconf::apply_list(&zero, body.data() + 2, body.size() - 2, out, 255); });
    Terminal b;
    b.rec = zero;
    int settable = 0;
    for (int i = 0; i < applied.items; i++) {
        bbconf::ParamInfo p;
        ASSERT_TRUE(bbconf::find_param(bbconf::RecordKind::Terminal, out[i].id, &p));
        if (p.settable) {
            EXPECT_EQ(out[i].result, SetResult::Stored) << std::hex << out[i].id;
            EXPECT_EQ(b.get(p.id), a.get(p.id)) << std::hex << p.id;
            settable++;
        } else {
            EXPECT_EQ(out[i].result, SetResult::ReadOnly) << std::hex << out[i].id;
        }
    }
    EXPECT_GT(settable, 100);

    // Packages of at most 1023 body bytes, consecutive serials, joined back.
    bbconf::MessageHeader h{};
    h.msg_id = bbconf::kMsgQueryResponse;
    h.serial = 40;
    ASSERT_TRUE(bbconf::phone_from_digits("13800001111", false, h.phone));
    const int count = bbconf::package_count(body.size());
    EXPECT_EQ(count, static_cast<int>((body.size() + 1022) / 1023));
    Bytes joined(body.size());
    bbconf::PackageJoin j;
    bbconf::join_start(&j, joined.data(), joined.size());
    for (int i = 1; i <= count; i++) {
        Bytes frame(2 * 1100);
        size_t n = 0;
        ASSERT_EQ(bbconf::frame_package(h, body.data(), body.size(), i, frame.data(), frame.size(), &n),
                  FrameError::None);
        bbconf::Message m;
        ASSERT_EQ(bbconf::unframe(frame.data(), n, frame.data(), n, &m), FrameError::None);
        EXPECT_LE(m.body_len, 1023u);
        EXPECT_EQ(m.header.serial, 40 + i - 1);
        EXPECT_EQ(m.header.package_index, i);
        EXPECT_EQ(bbconf::join_add(&j, m), i == count ? bbconf::JoinState::Complete : bbconf::JoinState::Incomplete);
    }
    EXPECT_EQ(j.len, body.size());
    EXPECT_EQ(joined, body);
    size_t n;
    unsigned char frame[16];
    EXPECT_EQ(bbconf::frame_package(h, body.data(), body.size(), count + 1, frame, sizeof frame, &n),
              FrameError::BadPackage);
}

TEST(Answer, JoinRefusesPackagesOutOfOrder) {
    unsigned char buf[8];
    bbconf::PackageJoin j;
    bbconf::join_start(&j, buf, sizeof buf);
    const unsigned char b[] = {1, 2, 3};
    bbconf::Message m{};
    m.header.subpackage = true;
    m.header.package_count = 3;
    m.header.package_index = 2;
    m.body = b;
    m.body_len = 3;
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::OutOfOrder);
    m.header.package_index = 1;
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::Incomplete);
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::OutOfOrder);
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::Incomplete);
    m.header.package_index = 2;
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::Incomplete);
    m.header.package_index = 3;
    EXPECT_EQ(bbconf::join_add(&j, m), bbconf::JoinState::NoRoom);
}

TEST(Answer, TaxiRecordBothWays) {
    tagBBTAXI_CONF_ST x{};
    {
        bbtest::QuietStdout q;
        BBTAXI_InitToDefault(&x);
    }
    const Bytes list =
        hex("02"
            "0000000104"
            "0000003c"
            "00000054"
            "04"
            "00000001");
    bbconf::ItemOutcome out[2];
    const bbconf::ApplyReport r = quiet([&] { return bbconf::apply_list(&x, list.data(), list.size(), out, 2); });
    EXPECT_EQ(r.stored, 1);
    EXPECT_EQ(out[1].result, SetResult::UnknownId);
    const Bytes ids =
        hex("01"
            "00000001");
    unsigned char body[16];
    const bbconf::AnswerReport a = bbconf::build_answer(&x, 3, ids.data(), ids.size(), body, sizeof body, nullptr, 0);
    ASSERT_TRUE(a.written);
    EXPECT_EQ(hx(body, a.size),
              "0003"
              "01"
              "0000000104"
              "0000003c");
    EXPECT_GT(bbconf::answer_size(&x, nullptr, 0, nullptr, 0).answered, 50);
}

}  // namespace
