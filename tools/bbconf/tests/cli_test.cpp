// End-to-end runs of the built bbconf binary on record files in a scratch
// directory: round trips, message bodies, JSON, and bad input that must
// leave the file byte for byte as it was.
#include <dirent.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "test_util.h"

extern char** environ;

namespace {

struct Outcome {
    int status = -1;
    std::string out;
    std::string err;
};

std::string slurp(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    std::stringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

void spit(const std::string& path, const std::string& data) {
    std::ofstream f(path, std::ios::binary | std::ios::trunc);
    f << data;
}

// CRC-CCITT, polynomial 0x1021, MSB first, no final XOR: written here from
// the file format's description, not taken from the library.
uint16_t crc_ccitt(uint16_t crc, const std::string& data, size_t n) {
    for (size_t i = 0; i < n; i++) {
        crc ^= static_cast<uint16_t>(static_cast<unsigned char>(data[i]) << 8);
        for (int b = 0; b < 8; b++) crc = static_cast<uint16_t>(crc & 0x8000 ? (crc << 1) ^ 0x1021 : crc << 1);
    }
    return crc;
}

class Tool : public ::testing::Test {
  protected:
    void SetUp() override {
        char tmpl[] = "/tmp/bbconf_cli_XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
    }
    void TearDown() override {
        for (const std::string& n : entries()) std::remove((dir_ + "/" + n).c_str());
        rmdir(dir_.c_str());
    }

    std::string path(const std::string& name) const { return dir_ + "/" + name; }

    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        if (DIR* d = opendir(dir_.c_str())) {
            while (dirent* e = readdir(d)) {
                std::string n = e->d_name;
                if (n != "." && n != ".." && n != "in" && n != "out" && n != "err") names.push_back(n);
            }
            closedir(d);
        }
        return names;
    }

    // Runs the tool with the arguments (a leading "@name" is replaced by the
    // scratch path of that file) and the given standard input.
    Outcome run(std::vector<std::string> args, const std::string& input = "") {
        for (std::string& a : args) {
            if (!a.empty() && a[0] == '@') a = path(a.substr(1));
        }
        args.insert(args.begin(), BBCONF_TOOL_PATH);
        spit(path("in"), input);
        posix_spawn_file_actions_t fa;
        posix_spawn_file_actions_init(&fa);
        posix_spawn_file_actions_addopen(&fa, 0, path("in").c_str(), O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&fa, 1, path("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        posix_spawn_file_actions_addopen(&fa, 2, path("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        std::vector<char*> argv;
        for (std::string& a : args) argv.push_back(&a[0]);
        argv.push_back(nullptr);
        pid_t pid;
        Outcome r;
        if (posix_spawn(&pid, argv[0], &fa, nullptr, argv.data(), environ) == 0) {
            int st = 0;
            waitpid(pid, &st, 0);
            r.status = WIFEXITED(st) ? WEXITSTATUS(st) : 128 + WTERMSIG(st);
        }
        posix_spawn_file_actions_destroy(&fa);
        r.out = slurp(path("out"));
        r.err = slurp(path("err"));
        std::remove(path("out").c_str());
        std::remove(path("err").c_str());
        std::remove(path("in").c_str());
        return r;
    }

    // Error text with the scratch directory replaced by "D".
    std::string masked(const std::string& s) const {
        std::string out = s;
        for (size_t p; (p = out.find(dir_)) != std::string::npos;) out.replace(p, dir_.size(), "D");
        return out;
    }

    void init(const std::string& name, bool taxi = false) {
        Outcome r = taxi ? run({"init", "--taxi", "@" + name}) : run({"init", "@" + name});
        ASSERT_EQ(r.status, 0) << r.err;
    }

    std::string dir_;
};

TEST_F(Tool, InitWritesRecordAndLittleEndianCrc) {
    struct Case {
        bool taxi;
        size_t record;
        const char* reply;
    };
    const Case cases[] = {
        {false, 3386, "D/r.bbc: factory defaults written (terminal record, 3388 bytes)\n"},
        {true, 1037, "D/r.bbc: factory defaults written (taxi record, 1039 bytes)\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.taxi ? "taxi" : "terminal");
        std::remove(path("r.bbc").c_str());
        Outcome r = c.taxi ? run({"init", "--taxi", "@r.bbc"}) : run({"init", "@r.bbc"});
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(masked(r.out), c.reply);
        EXPECT_EQ(r.err, "");
        const std::string file = slurp(path("r.bbc"));
        ASSERT_EQ(file.size(), c.record + 2);
        const uint16_t crc = crc_ccitt(0xABCD, file, c.record);
        EXPECT_EQ(static_cast<unsigned char>(file[c.record]), crc & 0xff);
        EXPECT_EQ(static_cast<unsigned char>(file[c.record + 1]), crc >> 8);
        EXPECT_EQ(run({"check", "@r.bbc"}).status, 0);
    }
    // The test's own CRC against the published check value of this CRC.
    EXPECT_EQ(crc_ccitt(0xFFFF, "123456789", 9), 0x29B1);
}

TEST_F(Tool, ShowListsFactoryDefaults) {
    init("t.bbc");
    init("x.bbc", true);
    const std::string t = run({"show", "@t.bbc"}).out;
    const std::string x = run({"show", "@x.bbc"}).out;
    const char* terminal_lines[] = {
        "0x0001  heartbeat_interval          u32         20\n",
        "0x0010  main_server_apn             text(31)    \"3gnet\"\n",
        "0x0018  server_tcp_port             u32         7008\n",
        "0x0031  fence_radius                u16         500\n",
        "0x0079  alarm_recording             raw(3)      140501\n",
        "0xfe10  night_fatigue               block(16)   0022000005000000001c20000004b000\n",
    };
    for (const char* l : terminal_lines) EXPECT_NE(t.find(l), std::string::npos) << l;
    const char* taxi_lines[] = {
        "0x0001  heartbeat_interval          u32         20\n",
        "0x0018  server_tcp_port             u32         0\n",
        "0x001b  param_001b                  u32         11001\n",
        "0x0070  image_quality               u32         5\n",
        "0x00b5  param_00b5                  u32         7008\n",
    };
    for (const char* l : taxi_lines) EXPECT_NE(x.find(l), std::string::npos) << l;
    // Nothing the record does not hold: no device or debug IDs.
    EXPECT_EQ(t.find("device_mac"), std::string::npos);
    EXPECT_EQ(t.find("debug_dump"), std::string::npos);
}

TEST_F(Tool, SetThenGetRoundTrips) {
    struct Case {
        bool taxi;
        const char* assignment;
        const char* param;
        const char* shown;
    };
    const Case cases[] = {
        {false, "heartbeat_interval=0x1e", "0x0001", "30"},
        {false, "0x0081=44", "province_id", "44"},
        {false, "plate_color=255", "0x0084", "255"},
        {false, "main_server_apn=cmnet", "0x0010", "\"cmnet\""},
        {false, "main_server_apn=", "0x0010", "\"\""},
        {false, "plate_number=hex:41e40a22", "0x0083", "\"A\\xe4\\n\\\"\""},
        {false, "plate_number=text:hex:41", "0x0083", "\"hex:41\""},
        {false, "night_speed_limit=hex:0150220000060000", "0xf001", "0150220000060000"},
        {false, "0xf0e9=01020304", "driver_compare", "01020304"},
        {false, "oversize_params=hex:07d00834", "0xf373", "07d00834"},
        {false, "vendor_c21b=AB", "0xc21b", "\"AB\""},
        {false, "0xf120=slave", "slave_server_apn", "\"slave\""},
        {true, "saturation=258", "0x0073", "258"},
        {true, "param_001d=7", "0x001d", "7"},
        {true, "param_0094=abcde", "0x0094", "\"abcde\""},
        {true, "0x004b=4", "param_004b", "4"},
    };
    init("t.bbc");
    init("x.bbc", true);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.assignment);
        const std::string file = c.taxi ? "@x.bbc" : "@t.bbc";
        Outcome s = run({"set", file, c.assignment});
        EXPECT_EQ(s.status, 0) << s.err;
        EXPECT_NE(s.out.find(": stored\n"), std::string::npos);
        Outcome g = run({"get", file, c.param});
        EXPECT_EQ(g.status, 0) << g.err;
        const size_t at = g.out.rfind("  ");
        ASSERT_NE(at, std::string::npos);
        EXPECT_EQ(g.out.substr(at + 2), std::string(c.shown) + "\n");
        EXPECT_EQ(run({"check", file}).status, 0);
    }
}

// A field the taxi record copies without a terminator: a shorter text over
// a longer one must not leave the old tail visible.
TEST_F(Tool, TaxiTextOverLongerTextLeavesNoTail) {
    init("x.bbc", true);
    ASSERT_EQ(run({"set", "@x.bbc", "main_server_apn=internet"}).status, 0);
    ASSERT_EQ(run({"set", "@x.bbc", "main_server_apn=abc"}).status, 0);
    EXPECT_EQ(run({"get", "@x.bbc", "main_server_apn"}).out,
              "0x0010  main_server_apn             text(31)    \"abc\"\n");
}

TEST_F(Tool, SetRepliesPerValueAndWritesOnce) {
    init("t.bbc");
    Outcome r = run({"set", "@t.bbc", "heartbeat_interval=45", "0x0013=10.0.0.1", "city_id=0x0102"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "0x0001 heartbeat_interval: stored\n"
              "0x0013 main_server_address: stored\n"
              "0x0082 city_id: stored\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(Tool, DiffNamesTheParametersThatDiffer) {
    init("a.bbc");
    init("b.bbc");
    init("x.bbc", true);
    Outcome same = run({"diff", "@a.bbc", "@b.bbc"});
    EXPECT_EQ(same.status, 0);
    EXPECT_EQ(same.out, "");
    ASSERT_EQ(run({"set", "@b.bbc", "heartbeat_interval=45", "main_server_apn=cmnet"}).status, 0);
    Outcome d = run({"diff", "@a.bbc", "@b.bbc"});
    EXPECT_EQ(d.status, 1);
    EXPECT_EQ(d.out,
              "0x0001 heartbeat_interval: 20 -> 45\n"
              "0x0010 main_server_apn: \"3gnet\" -> \"cmnet\"\n");
    Outcome kinds = run({"diff", "@a.bbc", "@x.bbc"});
    EXPECT_EQ(kinds.status, 2);
    EXPECT_EQ(masked(kinds.err), "bbconf: diff: D/a.bbc is a terminal record, D/x.bbc a taxi record\n");
}

TEST_F(Tool, DiffReportsBytesNoParameterReaches) {
    init("a.bbc");
    std::string b = slurp(path("a.bbc"));
    b[1209] = 1;  // a region of the terminal record reached by no ID
    const uint16_t crc = crc_ccitt(0xABCD, b, 3386);
    b[3386] = static_cast<char>(crc & 0xff);
    b[3387] = static_cast<char>(crc >> 8);
    spit(path("b.bbc"), b);
    Outcome d = run({"diff", "@a.bbc", "@b.bbc"});
    EXPECT_EQ(d.status, 1);
    EXPECT_EQ(d.out, "(the records differ only in bytes that no parameter ID reaches)\n");
}

// A 0x8103 body with numbers, text and the ADAS block; the query of the same
// IDs must give back the same parameter list.
TEST_F(Tool, ApplyThenQueryGivesTheSameList) {
    init("t.bbc");
    std::string adas;
    for (int i = 0; i < 52; i++) {
        char b[3];
        std::snprintf(b, sizeof b, "%02x", 0x10 + i);
        adas += b;
    }
    adas += "00000000";  // reserved tail
    const std::string body = "04"
                             "00000001" "04" "0000003c"
                             "00000013" "08" "31302e302e302e39"
                             "00000081" "02" "002c"
                             "0000f364" "38" + adas;
    Outcome a = run({"apply", "@t.bbc", body});
    EXPECT_EQ(a.status, 0) << a.err;
    EXPECT_EQ(a.out,
              "0x0001 heartbeat_interval: stored\n"
              "0x0013 main_server_address: stored\n"
              "0x0081 province_id: stored\n"
              "0xf364 adas_params: stored\n");
    Outcome q = run({"query", "@t.bbc", "0x0001", "main_server_address", "0x0081", "adas_params"});
    EXPECT_EQ(q.status, 0) << q.err;
    EXPECT_EQ(q.out, body + "\n");
    EXPECT_EQ(run({"get", "@t.bbc", "0x0013"}).out,
              "0x0013  main_server_address         text(63)    \"10.0.0.9\"\n");
}

TEST_F(Tool, ApplyReadsTheBodyFromFileOrStandardInput) {
    init("t.bbc");
    spit(path("body.hex"), "01 00000001 04 00000021\n");
    EXPECT_EQ(run({"apply", "@t.bbc", "@body.hex"}).status, 0);
    EXPECT_EQ(run({"query", "@t.bbc", "1"}).out, "0100000001040000002" "1\n");
    EXPECT_EQ(run({"apply", "@t.bbc", "-"}, "0100000001040000002a").status, 0);
    EXPECT_EQ(run({"apply", "@t.bbc"}, "01000000010400000007\n").status, 0);
    EXPECT_EQ(run({"query", "@t.bbc", "heartbeat_interval"}).out, "01000000010400000007\n");
}

TEST_F(Tool, QueryOfTaxiWidensSixteenBitValues) {
    init("x.bbc", true);
    ASSERT_EQ(run({"apply", "@x.bbc", "01000000730201" "02"}).status, 0);
    EXPECT_EQ(run({"query", "@x.bbc", "0x0073"}).out, "01000000730400000102\n");
}

TEST_F(Tool, QueryWithoutIdsListsEveryReadableParameter) {
    init("t.bbc");
    Outcome q = run({"query", "@t.bbc"});
    ASSERT_EQ(q.status, 0) << q.err;
    const std::vector<unsigned char> body = bbtest::hex(q.out);
    ASSERT_GT(body.size(), 1u);
    // Walk the list: the count must match and the body must end exactly.
    size_t pos = 1, n = 0;
    bool has_heartbeat = false, has_set_only_or_device = false;
    while (pos + 5 <= body.size()) {
        const unsigned id = body[pos] << 24 | body[pos + 1] << 16 | body[pos + 2] << 8 | body[pos + 3];
        has_heartbeat |= id == 0x0001;
        has_set_only_or_device |= id >= 0xff00 || id == 0xf441;
        pos += 5 + body[pos + 4];
        n++;
    }
    EXPECT_EQ(pos, body.size());
    EXPECT_EQ(n, body[0]);
    EXPECT_TRUE(has_heartbeat);
    EXPECT_FALSE(has_set_only_or_device);
}

// Every refusal: one message naming the fault, a non-zero status, nothing on
// standard output and the file exactly as it was.
TEST_F(Tool, BadInputLeavesTheFileUntouched) {
    struct Case {
        const char* what;
        std::vector<std::string> args;
        const char* input;
        int status;
        const char* err;
    };
    const Case cases[] = {
        {"malformed hex", {"apply", "@t.bbc", "01zz"}, "", 1,
         "bbconf: apply: malformed hex: 'z' at position 3 is not a hex digit; D/t.bbc left unchanged\n"},
        {"odd hex digits", {"apply", "@t.bbc", "010"}, "", 1,
         "bbconf: apply: malformed hex: the digit at position 3 has no partner (hex needs two digits per byte); "
         "D/t.bbc left unchanged\n"},
        {"truncated body", {"apply", "@t.bbc", "0200000001040000001e000000"}, "", 1,
         "bbconf: apply: truncated body: parameter 2 of 2 at byte 10 needs a 4-byte ID and a length byte, "
         "only 3 bytes remain; D/t.bbc left unchanged\n"},
        {"truncated value", {"apply", "@t.bbc", "0100000013056162"}, "", 1,
         "bbconf: apply: truncated body: parameter 1 of 1 (ID 0x0013) declares 5 value bytes, only 2 remain; "
         "D/t.bbc left unchanged\n"},
        {"over-long body", {"apply", "@t.bbc", "0100000001040000001e00"}, "", 1,
         "bbconf: apply: over-long body: 1 byte follows the last of the 1 parameter the count announces; "
         "D/t.bbc left unchanged\n"},
        {"empty body", {"apply", "@t.bbc", "-"}, "", 1,
         "bbconf: apply: truncated body: it is empty (the first byte is the parameter count); "
         "D/t.bbc left unchanged\n"},
        {"unknown ID in a body", {"apply", "@t.bbc", "02000000010400000005000000080100"}, "", 1,
         "bbconf: apply: 0x0008: unknown ID for a terminal record\n"
         "bbconf: apply: D/t.bbc left unchanged: 1 of 2 values refused\n"},
        {"ID beyond 16 bits", {"apply", "@t.bbc", "01000100010100"}, "", 1,
         "bbconf: apply: 0x10001: unknown ID for a terminal record\n"
         "bbconf: apply: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"number of the wrong width", {"apply", "@t.bbc", "0100000001020005"}, "", 1,
         "bbconf: apply: 0x0001 heartbeat_interval: wrong length: the value takes 4 bytes, got 2\n"
         "bbconf: apply: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"get-only ID in a body", {"apply", "@t.bbc", "01000000260100"}, "", 1,
         "bbconf: apply: 0x0026 slave_server_endpoint: get-only: the record's dictionary does not set it\n"
         "bbconf: apply: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"unknown name", {"set", "@t.bbc", "heartbeat=1"}, "", 1,
         "bbconf: set: 'heartbeat': unknown parameter name 'heartbeat' for a terminal record "
         "(bbconf list shows the names)\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"not an assignment", {"set", "@t.bbc", "heartbeat_interval"}, "", 1,
         "bbconf: set: 'heartbeat_interval': not of the form ID=VALUE or NAME=VALUE\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"text for a number", {"set", "@t.bbc", "heartbeat_interval=ten"}, "", 1,
         "bbconf: set: 0x0001 heartbeat_interval: 'ten' is not a number (decimal or 0x-hex)\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"number out of range", {"set", "@t.bbc", "plate_color=256"}, "", 1,
         "bbconf: set: 0x0084 plate_color: 256 is out of range for a u8 value (0 to 255)\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"text too long", {"set", "@t.bbc", "main_server_apn=" + std::string(32, 'a')}, "", 1,
         "bbconf: set: 0x0010 main_server_apn: too long for its field: 32 bytes, room for 31\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"raw too long", {"set", "@t.bbc", "alarm_recording=01020304"}, "", 1,
         "bbconf: set: 0x0079 alarm_recording: too long for its field: 4 bytes, room for 3\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"block one byte short", {"set", "@t.bbc", "night_fatigue=" + std::string(30, '0')}, "", 1,
         "bbconf: set: 0xfe10 night_fatigue: wrong length for the block: 15 bytes, its wire form has 16\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"channel settings shorter than its count", {"set", "@t.bbc", "av_channel_settings=01"}, "", 1,
         "bbconf: set: 0x0077 av_channel_settings: wrong length for the block: 1 byte, its wire form has 22\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"get-only block", {"set", "@t.bbc", "0xe138=00"}, "", 1,
         "bbconf: set: 0xe138 hlj_driver_identify: get-only: the record's dictionary does not set it\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 1 value refused\n"},
        {"one bad value among good ones", {"set", "@t.bbc", "heartbeat_interval=9", "0xf364=00"}, "", 1,
         "bbconf: set: 0xf364 adas_params: wrong length for the block: 1 byte, its wire form has 56\n"
         "bbconf: set: D/t.bbc left unchanged: 1 of 2 values refused\n"},
        {"init over an existing file", {"init", "@t.bbc"}, "", 1,
         "bbconf: init: D/t.bbc exists; --force replaces it with factory defaults\n"},
        {"unknown ID on get", {"get", "@t.bbc", "0x0008"}, "", 1,
         "bbconf: get: unknown ID 0x0008 for a terminal record\n"},
        {"device ID on query", {"query", "@t.bbc", "0xff00"}, "", 1,
         "bbconf: query: 0xff00 device_mac: answered by the device, not stored in the record\n"},
    };
    init("t.bbc");
    const std::string before = slurp(path("t.bbc"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Outcome r = run(c.args, c.input);
        EXPECT_EQ(r.status, c.status);
        EXPECT_EQ(masked(r.err), c.err);
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(slurp(path("t.bbc")), before);
        EXPECT_EQ(entries(), std::vector<std::string>{"t.bbc"});  // no temporary file left behind
    }
}

TEST_F(Tool, DamagedFilesAreRefused) {
    init("t.bbc");
    std::string damaged = slurp(path("t.bbc"));
    damaged[5] ^= 0x01;
    spit(path("crc.bbc"), damaged);
    spit(path("short.bbc"), damaged.substr(0, 3387));
    struct Case {
        const char* what;
        std::vector<std::string> args;
        const char* err;
    };
    const Case cases[] = {
        {"checksum", {"set", "@crc.bbc", "heartbeat_interval=1"},
         "bbconf: set: D/crc.bbc: checksum mismatch (stored 0x%04x, computed 0x%04x): the file is damaged or "
         "was edited; --force reads it anyway\n"},
        {"checksum on check", {"check", "@crc.bbc"},
         "bbconf: check: D/crc.bbc: checksum mismatch (stored 0x%04x, computed 0x%04x): the file is damaged or "
         "was edited\n"},
        {"size", {"apply", "@short.bbc", "00"},
         "bbconf: apply: D/short.bbc: 3387 bytes is not a record file (a terminal record file has 3388 bytes, "
         "a taxi record file 1039)\n"},
        {"missing", {"show", "@none.bbc"},
         "bbconf: show: cannot read D/none.bbc: No such file or directory\n"},
    };
    const uint16_t stored = static_cast<uint16_t>(static_cast<unsigned char>(damaged[3386]) |
                                                  static_cast<unsigned char>(damaged[3387]) << 8);
    const uint16_t computed = crc_ccitt(0xABCD, damaged, 3386);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        char expect[512];
        std::snprintf(expect, sizeof expect, c.err, stored, computed);
        Outcome r = run(c.args);
        EXPECT_EQ(r.status, 1);
        EXPECT_EQ(masked(r.err), expect);
        EXPECT_EQ(r.out, "");
    }
    EXPECT_EQ(slurp(path("crc.bbc")), damaged);
    EXPECT_EQ(slurp(path("short.bbc")), damaged.substr(0, 3387));
    struct stat st;
    EXPECT_NE(stat(path("none.bbc").c_str(), &st), 0);

    // --force reads it, and a write stores a fresh checksum.
    Outcome forced = run({"set", "--force", "@crc.bbc", "heartbeat_interval=1"});
    EXPECT_EQ(forced.status, 0);
    EXPECT_NE(forced.err.find("read anyway (--force)"), std::string::npos);
    EXPECT_EQ(run({"check", "@crc.bbc"}).status, 0);
}

TEST_F(Tool, WritesKeepTheFileMode) {
    init("t.bbc");
    ASSERT_EQ(chmod(path("t.bbc").c_str(), 0640), 0);
    ASSERT_EQ(run({"set", "@t.bbc", "heartbeat_interval=9"}).status, 0);
    struct stat st;
    ASSERT_EQ(stat(path("t.bbc").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0640u);
    EXPECT_EQ(entries(), std::vector<std::string>{"t.bbc"});

    // Through a symbolic link the target is replaced and the link stays.
    ASSERT_EQ(symlink("t.bbc", path("link.bbc").c_str()), 0);
    ASSERT_EQ(run({"set", "@link.bbc", "heartbeat_interval=77"}).status, 0);
    ASSERT_EQ(lstat(path("link.bbc").c_str(), &st), 0);
    EXPECT_TRUE(S_ISLNK(st.st_mode));
    EXPECT_EQ(run({"get", "@t.bbc", "1"}).out, "0x0001  heartbeat_interval          u32         77\n");
}

TEST_F(Tool, ShowJsonParses) {
    init("t.bbc");
    init("x.bbc", true);
    ASSERT_EQ(run({"set", "@t.bbc", "plate_number=hex:41e4"}).status, 0);
    Outcome t = run({"show", "@t.bbc", "--json"});
    ASSERT_EQ(t.status, 0);
    EXPECT_EQ(t.err, "");
    const nlohmann::json j = nlohmann::json::parse(t.out);
    EXPECT_EQ(j.at("0x0001").at("value"), 20);
    EXPECT_EQ(j.at("0x0001").at("name"), "heartbeat_interval");
    EXPECT_EQ(j.at("0x0001").at("kind"), "u32");
    EXPECT_EQ(j.at("0x0010").at("value"), "3gnet");
    EXPECT_EQ(j.at("0x0083").at("hex"), "41e4");  // not UTF-8: the bytes ride along
    EXPECT_EQ(j.at("0xf364").at("value").get<std::string>().size(), 112u);
    EXPECT_FALSE(j.contains("0xff00"));
    const nlohmann::json x = nlohmann::json::parse(run({"show", "--json", "@x.bbc"}).out);
    EXPECT_EQ(x.at("0x00b5").at("value"), 7008);
    EXPECT_EQ(x.at("0x001d").at("kind"), "u8");
    const nlohmann::json g = nlohmann::json::parse(run({"get", "@t.bbc", "0x0018", "--json"}).out);
    EXPECT_EQ(g.size(), 1u);
    EXPECT_EQ(g.at("0x0018").at("value"), 7008);
}

TEST_F(Tool, LibraryLinesOnlyWithVerbose) {
    Outcome quiet = run({"init", "--taxi", "@q.bbc"});
    EXPECT_EQ(quiet.err, "");
    Outcome loud = run({"-v", "init", "--taxi", "@v.bbc"});
    EXPECT_EQ(loud.status, 0);
    EXPECT_EQ(bbtest::mask_lines(loud.err), "Inf [BBTAXI_InitToDefault():N] Init TAXI Param Len:1037\n");
    EXPECT_EQ(masked(loud.out), "D/v.bbc: factory defaults written (taxi record, 1039 bytes)\n");
    EXPECT_EQ(slurp(path("q.bbc")), slurp(path("v.bbc")));
}

TEST_F(Tool, HelpAndUsage) {
    Outcome help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* cmd : {"init", "show", "get", "set", "apply", "query", "check", "diff", "Examples:"}) {
        EXPECT_NE(help.out.find(cmd), std::string::npos) << cmd;
    }
    for (const char* cmd : {"init", "show", "get", "set", "apply", "query", "check", "diff", "list"}) {
        Outcome sub = run({cmd, "--help"});
        EXPECT_EQ(sub.status, 0) << cmd;
        EXPECT_NE(sub.out.find("Example"), std::string::npos) << cmd;
    }
    EXPECT_EQ(run({"frobnicate"}).status, 2);
    EXPECT_EQ(run({"get"}).status, 2);
    EXPECT_EQ(run({}).status, 2);
}

}  // namespace
