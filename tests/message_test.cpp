// Parameter messages: lists, apply, answers and whole JT/T 808 messages,
// checked against messages other platform projects and devices published
// (tests/data/peer_vectors.txt) and against bytes written from the protocol.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <tuple>
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

std::string hx(const unsigned char* p, size_t n) {
    static const char d[] = "0123456789abcdef";
    std::string s;
    for (size_t i = 0; i < n; i++) (s += d[p[i] >> 4]) += d[p[i] & 15];
    return s;
}
std::string hx(const Bytes& b) { return hx(b.data(), b.size()); }
std::string text_hex(const std::string& t) { return hx(reinterpret_cast<const unsigned char*>(t.data()), t.size()); }

std::string reasons_of(const bbconf::ItemOutcome* out, int n) {
    std::string s;
    for (int i = 0; i < n; i++) s += std::string(i ? "," : "") + bbconf::item_reason(out[i]);
    return s;
}

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
// 0x0104 after its answer serial.  A whole message must frame back from its
// header and body to the bytes published.
Bytes list_of(const std::string& name, std::string form, Bytes body, std::map<std::string, int>* serials) {
    if (form == "frame") {
        Bytes work(body.size()), again(body.size() + 8);
        bbconf::Message m;
        size_t n = 0;
        if (bbconf::unframe(body.data(), body.size(), work.data(), work.size(), &m) != FrameError::None) {
            ADD_FAILURE() << name;
            return {};
        }
        EXPECT_EQ(bbconf::frame_message(m.header, m.body, m.body_len, again.data(), again.size(), &n),
                  FrameError::None);
        EXPECT_EQ(hx(again.data(), n), hx(body)) << name;
        form = m.header.msg_id == bbconf::kMsgSetParams ? "list8103" : m.header.msg_id == 0x0104 ? "body0104" : "";
        body.assign(m.body, m.body + m.body_len);
    }
    if (form == "body0104") {
        (*serials)[name] = body[0] << 8 | body[1];
        body.erase(body.begin(), body.begin() + 2);
    }
    return form == "list8103" || form == "body0104" ? body : Bytes();
}

// What the sources assert, written from their tests (values in wire form),
// and read-backs that differ from the value sent, with the reason.
// clang-format off
const std::map<std::string, std::map<uint16_t, std::string>> kReadBack = {
    {"A1", {{0x0001, "0000000a"}}},
    {"A2", {{0x0001, "0000000a"}, {0x0013, text_hex("www.baidu.com")}}},
    {"A3", {{0x0110, "000003e8c000ddd5"}}},  // 1000 ms; channel 1, standard frame, raw, bus ID 56789
    {"A5a", {{0x0001, "0000000a"}}},
    {"A5b", {{0x0001, "0000000a"}, {0x0013, text_hex("www.baidu.com")}}},
    {"A10", {{0x0001, "00000063"}, {0x0012, text_hex("abcd")}}},
    {"A11", {{0x0001, "0000003c"}, {0x0002, "0000001e"}, {0x0005, "0000001e"}, {0x0020, "00000000"}, {0x0091, "05"},
             {0x0013, text_hex("192.168.8.78")}, {0x0011, text_hex("JimiIOT")}, {0x0012, text_hex("JimiIOT")}}},
    {"A15", {{0x0018, "00002266"}, {0x0083, "d4c142383838383820202020"}, {0x0011, ""}, {0x0081, "002c"}}},
    {"B4", {{0xf367, "0201"}}},
    {"C2", {{0x0079, "030201"}, {0x007a, "00000001"}, {0x007b, "0102"}}},
    // The ADAS block writes its four reserved tail bytes as zero on a get.
    {"B1", {{0xf364, "052d030002000122231d26000000040000000a1e09152b08180f0e14291011122a16170d13280c0b1c192c1b1a24"
                     "25270607202100000000"}}},
};
// clang-format on

TEST(PeerVectors, EveryItemStoredAndReadBack) {
    std::ifstream f(BBCONF_TEST_DATA_DIR "/peer_vectors.txt");
    ASSERT_TRUE(f);
    std::map<std::string, int> serials;
    int lists = 0, queries = 0;
    std::printf("| message | items | stored | skipped | read back equal |\n");
    for (std::string line, name, form, text; std::getline(f, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream(line) >> name >> form >> text;
        Terminal t;
        if (form == "ids8106") {  // answered in the order asked with the record's values
            const Bytes ids = hex(text);
            std::string want = "0007" + hx(ids.data(), 1);
            for (size_t pos = 1; pos + 4 <= ids.size(); pos += 4) {
                const std::string v = t.get(static_cast<uint16_t>(ids[pos + 2] << 8 | ids[pos + 3]));
                want += hx(&ids[pos], 4) + hx(Bytes{static_cast<unsigned char>(v.size() / 2)}) + v;
            }
            unsigned char body[512];
            const bbconf::AnswerReport r = quiet(
                [&] { return bbconf::build_answer(&t.rec, 7, ids.data(), ids.size(), body, sizeof body, nullptr, 0); });
            EXPECT_EQ(hx(body, r.written ? r.size : 0), want) << name;
            queries++;
            continue;
        }
        const Bytes list = list_of(name, form, hex(text), &serials);
        if (list.empty()) continue;  // a query of all
        lists++;
        bbconf::ItemOutcome out[255];
        const bbconf::ApplyReport r =
            quiet([&] { return bbconf::apply_list(&t.rec, list.data(), list.size(), out, 255); });
        ASSERT_EQ(r.result, GeneralResult::Success) << name;
        EXPECT_EQ(r.stored, r.items) << name;
        int equal = 0;
        size_t pos = 0;
        bbconf::ListItem item;
        const auto asserted = kReadBack.find(name);
        while (bbconf::next_item(list.data(), list.size(), &pos, &item)) {
            const std::string got = t.answered(item.id);
            std::string expect = hx(item.value, item.len);
            if (asserted != kReadBack.end() && asserted->second.count(static_cast<uint16_t>(item.id))) {
                expect = asserted->second.at(static_cast<uint16_t>(item.id));
            }
            EXPECT_EQ(got, expect) << name << " " << std::hex << item.id;
            equal += got == expect;
        }
        EXPECT_EQ(equal, r.items) << name;
        std::printf("| %s %s | %d | %d | %d | %d of %d |\n", name.c_str(), form.c_str(), r.items, r.stored, r.skipped,
                    equal, r.items);
    }
    EXPECT_EQ(lists, 14);
    EXPECT_EQ(queries, 2);
    EXPECT_EQ(serials, (std::map<std::string, int>{{"A10", 111}, {"A11", 123}, {"A15", 0}, {"A5a", 20}, {"A5b", 20}}));
}

TEST(Frame, EscapesAndCheckCode) {
    // Message 0x7e7d, body 7e 7d 01: every 0x7e and 0x7d of header, body and
    // check code escaped.  Check code: 7e^7d^00^03^(phone 0)^00^05^7e^7d^01.
    bbconf::MessageHeader h{};
    h.msg_id = 0x7e7d;
    h.serial = 5;
    const Bytes body = hex("7e7d01");
    unsigned char out[64];
    size_t n = 0, need = 0;
    ASSERT_EQ(bbconf::frame_message(h, body.data(), body.size(), out, sizeof out, &n), FrameError::None);
    EXPECT_EQ(hx(out, n), hx(hex("7e 7d027d01 0003 000000000000 0005 7d027d0101 07 7e")));
    EXPECT_EQ(bbconf::frame_message(h, body.data(), body.size(), out, n - 1, &need), FrameError::NoRoom);
    EXPECT_EQ(need, n);
    Bytes big(1024);
    EXPECT_EQ(bbconf::frame_message(h, big.data(), big.size(), out, sizeof out, &n), FrameError::BodyTooLong);
}

// Whole frames taken apart into a work buffer with a guard byte, and in
// place: the header read, or the fault named.
TEST(Frame, HeadersReadCorruptFramesNamed) {
    const std::string a1 = "7E8103000A000123456789000A0100000001040000000A057E";
    // frame; error; header: ID, 2019 flag.version, phone, serial, body length
    const std::tuple<std::string, FrameError, const char*> cases[] = {
        {a1, FrameError::None, "8103 0.0 123456789 #10 10"},
        {"7E0104401501000000000001234567890064006F02000000010400000063000000120461626364A57E", FrameError::None,
         "0104 1.1 123456789 #100 21"},
        {"7E8104000001234567890000010D7E", FrameError::None, "8104 0.0 12345678900 #1 0"},
        {"7E81030000000123456789000A017E", FrameError::None, "8103 0.0 123456789 #10 0"},
        {"8103000A000123456789000A0100000001040000000A057E", FrameError::NoDelimiter, ""},
        {"7E8103000A000123456789000A0100000001040000000A05", FrameError::NoDelimiter, ""},
        {"7E", FrameError::NoDelimiter, ""},
        {"7E8103000A000123456789000A0100000001040000000A067E", FrameError::BadCheckCode, ""},
        {"7E8103000B000123456789000A0100000001040000000A047E", FrameError::LengthMismatch, ""},
        {"7E8103000A0001237E456789000A0100000001040000000A057E", FrameError::StrayDelimiter, ""},
        {"7E8103000A0001237D03456789000A0100000001040000000A057E", FrameError::BadEscape, ""},
        {"7E8103000A000123456789000A0100000001040000000A7D7E", FrameError::BadEscape, ""},
        {"7E8103000000012345678900E97E", FrameError::TooShort, ""},
        {"7E7E", FrameError::TooShort, ""},
        // Subpackage flag with package number 0 (count 2), and 3 of 2.
        {"7E81032000000123456789000100020000287E", FrameError::BadPackage, ""},
        {"7E810320000001234567890001000200032B7E", FrameError::BadPackage, ""},
    };
    for (const auto& [frame, error, header] : cases) {
        for (bool in_place : {false, true}) {
            Bytes f = hex(frame), work(f.size() + 1, 0xee);
            bbconf::Message m;
            EXPECT_EQ(bbconf::unframe(f.data(), f.size(), in_place ? f.data() : work.data(), f.size(), &m), error)
                << frame;
            EXPECT_EQ(work[f.size()], 0xee);
            if (error != FrameError::None) continue;
            char phone[21], got[80];
            bbconf::phone_to_digits(m.header, phone);
            std::snprintf(got, sizeof got, "%04x %d.%d %s #%d %zu", m.header.msg_id, m.header.v2019, m.header.version,
                          phone, m.header.serial, m.body_len);
            EXPECT_STREQ(got, header) << frame;
        }
    }
    Bytes f = hex(a1);
    unsigned char small[8];
    bbconf::Message m;
    EXPECT_EQ(bbconf::unframe(f.data(), f.size(), small, sizeof small, &m), FrameError::NoRoom);
    EXPECT_STREQ(bbconf::to_string(FrameError::BadCheckCode), "the check code does not match");
    const std::tuple<const char*, bool, const char*> phones[] = {{"12345678900", false, "012345678900"},
                                                                 {"13800001111", true, "00000000013800001111"},
                                                                 {"1234567890123", false, "refused"},
                                                                 {"12a4", true, "refused"},
                                                                 {"", true, "refused"}};
    for (const auto& [digits, v2019, bcd] : phones) {
        unsigned char out[10];
        const bool ok = bbconf::phone_from_digits(digits, v2019, out);
        EXPECT_EQ(ok ? hx(out, v2019 ? 10 : 6) : "refused", bcd) << digits;
    }
}

// The malformed lists: the count and the items found named, nothing stored.
TEST(List, MalformedListsStoreNothing) {
    // list; error, count declared, items found, offset, bytes remaining, ID of a truncated item
    const std::tuple<const char*, ListError, int, int, size_t, size_t, uint32_t> cases[] = {
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
    for (const auto& [text, error, declared, found, offset, remaining, id] : cases) {
        const Bytes list = hex(text);
        Terminal t;
        const Terminal before;
        const bbconf::ApplyReport r =
            quiet([&] { return bbconf::apply_list(&t.rec, list.data(), list.size(), nullptr, 0); });
        EXPECT_EQ(std::make_tuple(r.result, r.stored, r.fault.error, r.fault.declared, r.fault.found, r.fault.offset,
                                  r.fault.remaining, r.fault.id),
                  std::make_tuple(GeneralResult::MessageError, 0, error, declared, found, offset, remaining, id))
            << text;
        EXPECT_EQ(std::memcmp(&t.rec, &before.rec, sizeof t.rec), 0) << text;
    }
    bbconf::ListFault f;
    EXPECT_EQ(bbconf::check_id_list(hex("0200000001000000").data(), 8, &f), ListError::Truncated);
    EXPECT_EQ(f.found, 1);
    EXPECT_EQ(bbconf::check_id_list(hex("010000000100").data(), 6, &f), ListError::TrailingBytes);
}

// Items a terminal skips, each with its reason; the others are stored
// exactly as the specified setter stores them in the same order, and a
// skipped item changes nothing.  Under all or nothing none is stored.
TEST(Apply, SkippedItemsNamedOthersStored) {
    const Bytes list =
        hex("0a"
            "00000032 04 00000001"    // 2019 ID unknown to this record
            "00000110 02 0a0b"        // raw CAN setting of 8 bytes, 2 given
            "00000110 00"             // the same, empty
            "00000026 04 31323334"    // get-only endpoint text
            "00012345 01 01"          // above 0xffff
            "00000001 04 0000001e"    // heartbeat 30 s
            "00000001 02 001e"        // number of the wrong width
            "00000013 05 6162636465"  // a text, then a shorter one over it
            "00000013 02 7879"
            "0000f367 02 0102");  // a block
    const std::string reasons =
        "unknown ID,wrong length,wrong length,get-only,ID above 0xFFFF,stored,wrong length,stored,stored,stored";
    Terminal t, u, b;
    const Terminal before;
    bbtest::QuietStdout q;
    bbconf::ItemOutcome out[255];
    bbconf::ApplyReport r = bbconf::apply_list(&t.rec, list.data(), list.size(), out, 255);
    EXPECT_EQ(std::make_tuple(r.result, r.items, r.stored, r.skipped, out[4].id),
              std::make_tuple(GeneralResult::Failure, 10, 4, 6, 0x12345u));
    EXPECT_EQ(reasons_of(out, r.items), reasons);
    size_t pos = 0;
    bbconf::ListItem item;
    for (int i = 0; bbconf::next_item(list.data(), list.size(), &pos, &item); i++) {
        if (reasons_of(&out[i], 1) != "stored") continue;
        CMN_SetParam(&b.rec, static_cast<uint16_t>(item.id), const_cast<unsigned char*>(item.value), item.len);
    }
    EXPECT_EQ(std::memcmp(&t.rec, &b.rec, sizeof b.rec), 0);

    tagBB_CONF_ST scratch;
    r = bbconf::apply_list_all_or_nothing(&u.rec, &scratch, list.data(), list.size(), out, 255);
    EXPECT_EQ(std::make_tuple(r.result, r.items, r.stored, r.skipped),
              std::make_tuple(GeneralResult::Failure, 10, 0, 6));
    EXPECT_EQ(reasons_of(out, r.items), reasons);  // "stored": would have been stored
    EXPECT_EQ(std::memcmp(&u.rec, &before.rec, sizeof u.rec), 0);
    const Bytes good = hex("02 00000001 04 0000001e 00000013 03 616263");
    r = bbconf::apply_list_all_or_nothing(&u.rec, &scratch, good.data(), good.size(), out, 255);
    EXPECT_EQ(std::make_tuple(r.result, r.stored), std::make_tuple(GeneralResult::Success, 2));
    EXPECT_EQ(u.get(0x0013), "616263");
    EXPECT_EQ(bbconf::apply_list_all_or_nothing(&u.rec, &u.rec, good.data(), good.size(), out, 255).result,
              GeneralResult::MessageError);
}

// Answers in exact-size buffers: a block first (the ADAS get logs the bytes
// in front of its buffer, which must not be the caller's: ASan sees it), and
// IDs left out, with a guard byte behind; one byte short writes nothing.
TEST(Answer, ExactBuffersAndIdsLeftOut) {
    Terminal t;
    bbtest::QuietStdout q;
    const Bytes block = hex("01 0000f364");
    Bytes body(3 + 5 + 56);
    const bbconf::AnswerReport b =
        bbconf::build_answer(&t.rec, 2, block.data(), block.size(), body.data(), body.size(), nullptr, 0);
    EXPECT_EQ(hx(body.data(), b.written ? b.size : 0), "0002010000f36438" + t.get(0xf364));

    const Bytes ids = hex("04 00000009 00000001 0000007f 0000ff00");
    bbconf::LeftOut left[4];
    const bbconf::AnswerReport size = bbconf::answer_size(&t.rec, ids.data(), ids.size(), left, 4);
    EXPECT_EQ(std::make_tuple(size.answered, size.left_out, size.size, left[0].id, left[0].reason, left[2].reason),
              std::make_tuple(1, 3, size_t{3 + 5 + 4}, 9u, bbconf::LeftOutReason::UnknownId,
                              bbconf::LeftOutReason::NotReadable));
    Bytes out(size.size + 1, 0xee);
    bbconf::AnswerReport r =
        bbconf::build_answer(&t.rec, 0x1234, ids.data(), ids.size(), out.data(), size.size, nullptr, 0);
    EXPECT_EQ(hx(out.data(), r.written ? out.size() : 0), "1234010000000104" + t.get(1) + "ee");
    Bytes short_out(size.size, 0xee);
    r = bbconf::build_answer(&t.rec, 1, ids.data(), ids.size(), short_out.data(), size.size - 1, nullptr, 0);
    EXPECT_EQ(std::make_tuple(r.written, r.size), std::make_tuple(false, size.size));
    EXPECT_EQ(short_out, Bytes(size.size, 0xee));
    r = bbconf::build_answer(&t.rec, 1, ids.data(), ids.size() - 1, out.data(), out.size(), nullptr, 0);
    EXPECT_EQ(std::make_tuple(r.written, r.fault.error), std::make_tuple(false, ListError::Truncated));
}

// The default record through a query of all and an apply: every settable
// parameter arrives, get-only ones are skipped as such, and the answer goes
// in packages of at most 1023 body bytes with consecutive serials, joined back.
TEST(Answer, DefaultRecordRoundTripAndPackages) {
    Terminal a, b;
    bbtest::QuietStdout q;
    unsigned char apn[] = {'a', 'p', 'n', 'x'};
    CMN_SetParam(&a.rec, 0x0010, apn, 4);
    const bbconf::AnswerReport size = bbconf::answer_size(&a.rec, nullptr, 0, nullptr, 0);
    Bytes body(size.size);
    const bbconf::AnswerReport r = bbconf::build_answer(&a.rec, 9, nullptr, 0, body.data(), body.size(), nullptr, 0);
    ASSERT_TRUE(r.written);
    EXPECT_EQ(r.answered, size.answered);
    EXPECT_GT(body.size(), 1023u);

    b.rec = tagBB_CONF_ST{};
    bbconf::ItemOutcome out[255];
    const bbconf::ApplyReport applied = bbconf::apply_list(&b.rec, body.data() + 2, body.size() - 2, out, 255);
    int settable = 0;
    for (int i = 0; i < applied.items; i++) {
        bbconf::ParamInfo p;
        ASSERT_TRUE(bbconf::find_param(bbconf::RecordKind::Terminal, out[i].id, &p));
        EXPECT_EQ(out[i].result, p.settable ? SetResult::Stored : SetResult::ReadOnly) << std::hex << out[i].id;
        if (p.settable) {
            EXPECT_EQ(b.get(p.id), a.get(p.id)) << std::hex << p.id;
        }
        settable += p.settable;
    }
    EXPECT_GT(settable, 100);

    bbconf::MessageHeader h{};
    h.msg_id = bbconf::kMsgQueryResponse;
    h.serial = 40;
    const int count = bbconf::package_count(body.size());
    EXPECT_EQ(count, static_cast<int>((body.size() + 1022) / 1023));
    Bytes joined(body.size()), frame(2 * 1100);
    bbconf::PackageJoin j;
    bbconf::join_start(&j, joined.data(), joined.size());
    bbconf::Message m;
    size_t n = 0;
    for (int i = 1; i <= count; i++) {
        ASSERT_EQ(bbconf::frame_package(h, body.data(), body.size(), i, frame.data(), frame.size(), &n),
                  FrameError::None);
        ASSERT_EQ(bbconf::unframe(frame.data(), n, frame.data(), n, &m), FrameError::None);
        EXPECT_LE(m.body_len, 1023u);
        EXPECT_EQ(std::make_tuple(m.header.serial, m.header.package_index), std::make_tuple(40 + i - 1, i));
        EXPECT_EQ(bbconf::join_add(&j, m), i == count ? bbconf::JoinState::Complete : bbconf::JoinState::Incomplete);
    }
    EXPECT_EQ(Bytes(joined.begin(), joined.begin() + static_cast<long>(j.len)), body);
    EXPECT_EQ(bbconf::frame_package(h, body.data(), body.size(), count + 1, frame.data(), frame.size(), &n),
              FrameError::BadPackage);

    // Packages out of order start the join over; a body beyond the buffer is refused.
    using S = bbconf::JoinState;
    const std::pair<int, S> steps[] = {{2, S::OutOfOrder}, {1, S::Incomplete}, {1, S::OutOfOrder},
                                       {1, S::Incomplete}, {2, S::Incomplete}, {3, S::NoRoom}};
    bbconf::join_start(&j, joined.data(), 8);
    m.header.package_count = 3;
    m.body_len = 3;
    for (const auto& [index, state] : steps) {
        m.header.package_index = static_cast<uint16_t>(index);
        EXPECT_EQ(bbconf::join_add(&j, m), state) << index;
    }
}

TEST(Answer, TaxiRecordBothWays) {
    tagBBTAXI_CONF_ST x{};
    bbtest::QuietStdout q;
    BBTAXI_InitToDefault(&x);
    const Bytes list = hex("02 00000001 04 0000003c 00000054 04 00000001"), ids = hex("01 00000001");
    bbconf::ItemOutcome out[2];
    const bbconf::ApplyReport r = bbconf::apply_list(&x, list.data(), list.size(), out, 2);
    EXPECT_EQ(std::make_tuple(r.stored, reasons_of(out, 2)), std::make_tuple(1, std::string("stored,unknown ID")));
    unsigned char body[16];
    const bbconf::AnswerReport a = bbconf::build_answer(&x, 3, ids.data(), ids.size(), body, sizeof body, nullptr, 0);
    EXPECT_EQ(hx(body, a.written ? a.size : 0), hx(hex("0003 01 00000001 04 0000003c")));
    EXPECT_GT(bbconf::answer_size(&x, nullptr, 0, nullptr, 0).answered, 50);
}

}  // namespace
