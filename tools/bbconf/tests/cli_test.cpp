// End-to-end runs of the built bbconf binary on record files in a scratch directory.
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "bbconf_message.h"
#include "body.h"
#include "test_util.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
constexpr size_t npos = std::string::npos;

struct Outcome {
    int status;
    std::string out, err;
};

std::string slurp(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

void spit(const std::string& path, const std::string& data) { std::ofstream(path, std::ios::binary) << data; }

// A record file: the record, then its CRC-CCITT (initial value 0xABCD) little-endian.
std::string sealed(std::string rec) {
    const unsigned crc =
        CMN_Get_CRC_CCITT(0xABCD, reinterpret_cast<unsigned char*>(&rec[0]), static_cast<unsigned>(rec.size()));
    return rec + static_cast<char>(crc & 0xff) + static_cast<char>(crc >> 8);
}

class Tool : public ::testing::Test {
  protected:
    void SetUp() override {
        char tmpl[] = "/tmp/bbconf_cli_XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
    }
    void TearDown() override { fs::remove_all(dir_); }

    std::string path(const std::string& name) const { return dir_ + "/" + name; }

    // The scratch directory: every name with its contents.
    std::map<std::string, std::string> state() const {
        std::map<std::string, std::string> files;
        for (const auto& e : fs::directory_iterator(dir_)) files[e.path().filename()] = slurp(e.path());
        return files;
    }

    // Runs the tool on the blank-separated arguments; "@name" stands for that file in the scratch directory.
    Outcome run(const std::string& args, const std::string& input = "") {
        std::string cmd = BBCONF_TOOL_PATH;
        std::istringstream words(args);
        for (std::string a; words >> a;) cmd += " '" + (a[0] == '@' ? path(a.substr(1)) : a) + "'";
        spit(path("in"), input);
        const int st = std::system((cmd + " <" + path("in") + " >" + path("out") + " 2>" + path("err")).c_str());
        Outcome r{WIFEXITED(st) ? WEXITSTATUS(st) : -1, slurp(path("out")), slurp(path("err"))};
        for (const char* n : {"in", "out", "err"}) fs::remove(path(n));
        return r;
    }

    // "STATUS|OUT|ERR" of a run, the scratch directory masked: one comparison per run.
    std::string result(const std::string& args, const std::string& input = "") {
        const Outcome r = run(args, input);
        std::string s = std::to_string(r.status) + "|" + r.out + "|" + r.err;
        for (size_t p; (p = s.find(dir_)) != npos;) s.replace(p, dir_.size(), "D");
        return s;
    }

    // Records with factory defaults; a name starting with 'x' gets a taxi record.
    void init(std::initializer_list<std::string> names) {
        for (const std::string& n : names) {
            ASSERT_EQ(result(std::string("init ") + (n[0] == 'x' ? "--taxi @" : "@") + n).substr(0, 2), "0|") << n;
        }
    }

    std::string dir_;
};

TEST_F(Tool, InitWritesRecordWithLittleEndianCrc) {
    EXPECT_EQ(result("init @t.bbc"), "0|D/t.bbc: factory defaults written (terminal record, 3388 bytes)\n|");
    EXPECT_EQ(result("init --taxi @x.bbc"), "0|D/x.bbc: factory defaults written (taxi record, 1039 bytes)\n|");
    const Outcome v = run("-v init --taxi @v.bbc");  // the library's lines only with -v
    EXPECT_EQ(bbtest::mask_lines(v.err), "Inf [BBTAXI_InitToDefault():N] Init TAXI Param Len:1037\n");
    EXPECT_EQ(slurp(path("v.bbc")), slurp(path("x.bbc")));
    for (const char* name : {"t.bbc", "x.bbc"}) {
        const std::string file = slurp(path(name));
        EXPECT_EQ(file.size(), name[0] == 't' ? 3388u : 1039u);
        EXPECT_EQ(file, sealed(file.substr(0, file.size() - 2)));
    }
}

TEST_F(Tool, ShowListsFactoryDefaultsAsTableAndJson) {
    init({"t.bbc", "x.bbc"});
    const std::string t = run("show @t.bbc").out, x = run("show @x.bbc").out;
    // 't' or 'x': the record the line is shown for.
    for (const char* l : {"t0x0010  main_server_apn             text(31)    \"3gnet\"\n",
                          "t0x0079  alarm_recording             raw(3)      140501\n",
                          "t0xfe10  night_fatigue               block(16)   0022000005000000001c20000004b000\n",
                          "x0x0018  server_tcp_port             u32         0\n",
                          "x0x001b  param_001b                  u32         11001\n"}) {
        EXPECT_NE((l[0] == 't' ? t : x).find(l + 1), npos) << l;
    }
    EXPECT_EQ(t.find("debug_dump"), npos);  // no device or diagnostic IDs, as in the JSON below

    ASSERT_EQ(run("set @t.bbc plate_number=hex:41e4").status, 0);
    const Outcome js = run("show @t.bbc --json");
    EXPECT_EQ(js.status + js.err.size(), 0u);
    const json j = json::parse(js.out);
    EXPECT_EQ(j.at("0x0001"), (json{{"name", "heartbeat_interval"}, {"kind", "u32"}, {"value", 20}}));
    EXPECT_EQ(j.at("0x0083").at("hex"), "41e4");  // not UTF-8: the bytes ride along
    EXPECT_FALSE(j.contains("0xff00"));
    EXPECT_EQ(json::parse(run("show --json @x.bbc").out).at("0x001d").at("kind"), "u8");
    EXPECT_EQ(json::parse(run("get @t.bbc 0x0018 --json").out),
              (json{{"0x0018", {{"name", "server_tcp_port"}, {"kind", "u32"}, {"value", 7008}}}}));
}

TEST_F(Tool, SetThenGetRoundTrips) {
    const char* cases[][3] = {
        // set ..., get ..., the value shown
        {"@t.bbc heartbeat_interval=0x1e", "0x0001", "30"},
        {"@t.bbc plate_color=255", "0x0084", "255"},
        {"@t.bbc main_server_apn=", "0x0010", "\"\""},
        {"@t.bbc plate_number=hex:41e40a22", "0x0083", "\"A\\xe4\\n\\\"\""},
        {"@t.bbc plate_number=text:hex:41", "0x0083", "\"hex:41\""},
        {"@t.bbc night_speed_limit=hex:0150220000060000", "0xf001", "0150220000060000"},
        {"@t.bbc vendor_c21b=AB", "0xc21b", "\"AB\""},
        {"@t.bbc 0xf120=slave", "slave_server_apn", "\"slave\""},
        {"@x.bbc saturation=258", "0x0073", "258"},
        {"@x.bbc 0x004b=4", "param_004b", "4"},
        // The taxi record copies this text without a terminator: no tail of the longer one may show.
        {"@x.bbc main_server_apn=internet", "0x0010", "\"internet\""},
        {"@x.bbc main_server_apn=abc", "0x0010", "\"abc\""},
    };
    init({"t.bbc", "x.bbc"});
    for (const auto& c : cases) {
        SCOPED_TRACE(c[0]);
        const Outcome s = run(std::string("set ") + c[0]);
        EXPECT_EQ(s.status, 0) << s.err;
        const std::string got = run("get " + std::string(c[0], 7) + c[1]).out;
        EXPECT_EQ(got.substr(std::min(got.size(), got.rfind("  ") + 2)), std::string(c[2]) + "\n") << got;
    }
}

TEST_F(Tool, SetRepliesPerValueAndDiffNamesWhatDiffers) {
    init({"a.bbc", "b.bbc", "x.bbc"});
    EXPECT_EQ(result("diff @a.bbc @b.bbc"), "0||");
    EXPECT_EQ(result("set @b.bbc heartbeat_interval=45 0x0010=cmnet city_id=0x0102"),
              "0|0x0001 heartbeat_interval: stored\n0x0010 main_server_apn: stored\n0x0082 city_id: stored\n|");
    EXPECT_EQ(result("diff @a.bbc @b.bbc"),
              "1|0x0001 heartbeat_interval: 20 -> 45\n"
              "0x0010 main_server_apn: \"3gnet\" -> \"cmnet\"\n0x0082 city_id: 0 -> 258\n|");
    EXPECT_EQ(result("diff @a.bbc @x.bbc"), "2||bbconf: diff: D/a.bbc is a terminal record, D/x.bbc a taxi record\n");

    std::string b = slurp(path("a.bbc")).substr(0, 3386);
    b[1209] = 1;  // a byte no ID reaches
    spit(path("b.bbc"), sealed(b));
    EXPECT_EQ(result("diff @a.bbc @b.bbc"), "1|(the records differ only in bytes that no parameter ID reaches)\n|");
}

TEST_F(Tool, ApplyAndQuery) {
    init({"t.bbc", "x.bbc"});
    const std::string body =  // u32, text, u16 and the ADAS block
        "0400000001040000003c000000130831302e302e302e390000008102002c"
        "0000f36438101112131415161718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f"
        "303132333435363738393a3b3c3d3e3f4041424300000000";
    EXPECT_EQ(result("apply @t.bbc " + body),
              "0|0x0001 heartbeat_interval: stored\n0x0013 main_server_address: stored\n"
              "0x0081 province_id: stored\n0xf364 adas_params: stored\n|");
    EXPECT_EQ(result("query @t.bbc 0x0001 main_server_address 0x0081 adas_params"), "0|" + body + "\n|");

    // The body from a file, from standard input by "-" and by default.
    spit(path("body.hex"), "01 00000001 04 00000021\n");
    const char* sources[][3] = {
        {"@body.hex", "", "21"}, {"-", "0100000001040000002a", "2a"}, {"", "01000000010400000007\n", "07"}};
    for (const auto& [from, input, value] : sources) {
        EXPECT_EQ(result(std::string("apply @t.bbc ") + from, input), "0|0x0001 heartbeat_interval: stored\n|");
        EXPECT_EQ(result("query @t.bbc heartbeat_interval"), "0|010000000104000000" + std::string(value) + "\n|");
    }

    // A 16-bit taxi value goes out as a DWORD.
    EXPECT_EQ(result("apply @x.bbc 0100000073020102"), "0|0x0073 saturation: stored\n|");
    EXPECT_EQ(result("query @x.bbc 0x0073"), "0|01000000730400000102\n|");
}

// Whole messages and answers in, items skipped with their reasons (status 3), --strict, and answers out.
TEST_F(Tool, ApplyTakesMessagesAndSkipsWhatTheRecordDoesNotKeep) {
    init({"t.bbc", "u.bbc"});
    const std::string heartbeat = "0x0001 heartbeat_interval: stored\n";
    EXPECT_EQ(result("apply @t.bbc 7E8103000A000123456789000A0100000001040000000A057E"), "0|" + heartbeat + "|");
    EXPECT_EQ(result("query @t.bbc 1 --answer 20"), "0|00140100000001040000000a\n|");
    // A 0x0104 answer told apart by its serial; a 2019 header.
    EXPECT_EQ(result("apply @t.bbc 007B0100000001040000003C"), "0|" + heartbeat + "|");
    EXPECT_EQ(result("apply @t.bbc 7E0104401501000000000001234567890064006F02000000010400000063000000120461626364A57E"),
              "0|" + heartbeat + "0x0012 main_server_password: stored\n|");

    const auto before = state();
    EXPECT_EQ(result("apply @t.bbc 05"
                     "0000003204" "00000001"      // a 2019 ID this record lacks
                     "0000011002" "0a0b"          // 8-byte CAN setting, 2 bytes given
                     "00000026" "00"              // get-only
                     "00010001" "01" "01"         // above 0xffff
                     "0000000104" "0000001e"),
              "3|" + heartbeat +
                  "|bbconf: apply: 0x0032: skipped: unknown ID\n"
                  "bbconf: apply: 0x0110 can_id_setting: skipped: wrong length: 2 bytes, the value takes 8\n"
                  "bbconf: apply: 0x0026 slave_server_endpoint: skipped: get-only\n"
                  "bbconf: apply: 0x10001: skipped: ID above 0xFFFF\n");
    EXPECT_TRUE(state() != before);
    EXPECT_EQ(result("get @t.bbc 0x0001"), "0|0x0001  heartbeat_interval          u32         30\n|");

    // Queries: unknown IDs left out and named, status 3.
    EXPECT_EQ(result("query @t.bbc 0x0009 1 0x007f"),
              "3|0100000001040000001e\n|bbconf: query: 0x0009: left out: unknown ID\n"
              "bbconf: query: 0x007f: left out: unknown ID\n");
}

// Every peer message that carries values, as a body or whole, is applied in full.
TEST_F(Tool, AppliesThePeerMessages) {
    init({"t.bbc"});
    std::string file = __FILE__;
    std::ifstream vectors(file.substr(0, file.rfind("/tools/")) + "/tests/data/peer_vectors.txt");
    int applied = 0;
    for (std::string line; std::getline(vectors, line);) {
        std::istringstream words(line);
        std::string name, form, hex;
        if (!(words >> name >> form >> hex) || name[0] == '#' || form == "ids8106") continue;
        const Outcome r = run("apply @t.bbc " + hex);
        if (hex.substr(2, 4) == "8104") {  // a query carries no values
            EXPECT_EQ(r.status, 1) << name;
            continue;
        }
        EXPECT_EQ(r.status, 0) << name << ": " << r.err;
        EXPECT_NE(r.out.find(": stored\n"), npos) << name;
        applied++;
    }
    EXPECT_EQ(applied, 14);
}

// query A | apply B - gives B every settable parameter of A; framed, in packages of at most 1023 body bytes.
TEST_F(Tool, QueryOfOneRecordAppliedToAnother) {
    init({"a.bbc", "b.bbc", "c.bbc"});
    ASSERT_EQ(run("set @a.bbc heartbeat_interval=45 main_server_apn=cmnet plate_number=京A12345 "
                  "0xf367=0201 0x0110=000003e8c000ddd5").status, 0);
    EXPECT_EQ(result("get @a.bbc plate_number"), "0|0x0083  plate_number                text(31)    \"京A12345\"\n|");
    EXPECT_EQ(result("query @a.bbc plate_number"), "0|010000008308bea9413132333435\n|");  // GBK on the wire
    const Outcome list = run("query @a.bbc");
    ASSERT_EQ(list.status, 0) << list.err;
    const Outcome applied = run("apply @b.bbc -", list.out);
    EXPECT_EQ(applied.status, 3);
    EXPECT_NE(applied.err.find(": skipped: get-only\n"), npos);
    EXPECT_EQ(applied.err.find("skipped: wrong"), npos) << applied.err;
    EXPECT_EQ(result("diff @a.bbc @b.bbc"), "0||");

    const Outcome framed = run("query @a.bbc --frame --phone 13800001111 --serial 7 --protocol 2019");
    ASSERT_EQ(framed.status, 0) << framed.err;
    std::istringstream lines(framed.out);
    int packages = 0;
    for (std::string line; std::getline(lines, line); packages++) {
        std::vector<uint8_t> frame;
        std::string err;
        ASSERT_TRUE(bbtool::parse_hex(line, frame, err));
        bbconf::Message m;
        ASSERT_EQ(bbconf::unframe(frame.data(), frame.size(), frame.data(), frame.size(), &m), bbconf::FrameError::None);
        EXPECT_LE(m.body_len, 1023u);
        EXPECT_EQ(m.header.serial, 7 + packages);
        EXPECT_TRUE(m.header.v2019);
    }
    EXPECT_GE(packages, 2);
    EXPECT_EQ(run("apply @c.bbc -", framed.out).status, 3);
    EXPECT_EQ(result("diff @a.bbc @c.bbc"), "0||");
}

// Every refusal: a line per fault, status 1, nothing on standard output, no file changed or left behind.
TEST_F(Tool, BadInputLeavesTheFilesUntouched) {
    init({"t.bbc"});
    std::string damaged = slurp(path("t.bbc"));
    char buf[64];
    std::snprintf(buf, sizeof buf, "checksum mismatch (stored 0x0000, computed 0x%02x%02x)",
                  static_cast<unsigned char>(damaged[3387]), static_cast<unsigned char>(damaged[3386]));
    const std::string crc = buf;
    damaged[3386] = damaged[3387] = 0;
    spit(path("crc.bbc"), damaged);
    spit(path("short.bbc"), damaged.substr(0, 3387));
    const std::string mismatch = "D/crc.bbc: " + crc + ": the file is damaged or was edited";
    const std::string kept = "; D/t.bbc left unchanged", one = "\nD/t.bbc left unchanged: 1 of 1 value refused";
    const std::pair<std::string, std::string> cases[] = {
        // the command, and the lines after "bbconf: COMMAND: "
        {"apply @t.bbc 01zz", "malformed hex: 'z' at position 3 is not a hex digit" + kept},
        {"apply @t.bbc -", "empty list: the first byte is the count" + kept},
        {"apply @t.bbc 0200000001040000000500", "truncated list: the count announces 2 items, 1 found whole; item 2 "
                                                "at byte 10 needs 5 bytes, 1 remains" + kept},
        {"apply @t.bbc 7E8103000A000123456789000A0100000001040000000A067E",
         "message 1: the check code does not match" + kept},
        {"apply @t.bbc 7E8104000001234567890000010D7E",
         "message 1: 0x8104 carries no parameter values (0x8103 and 0x0104 do)" + kept},
        {"apply --strict @t.bbc 02000000010400000005000000080100",
         "0x0008: skipped: unknown ID\nD/t.bbc left unchanged: 1 of 2 items would be skipped (--strict)"},
        {"set @t.bbc heartbeat=1",
         "'heartbeat': unknown parameter name 'heartbeat' for a terminal record (bbconf list shows the names)" + one},
        {"set @t.bbc heartbeat_interval", "'heartbeat_interval': not of the form ID=VALUE or NAME=VALUE" + one},
        {"set @t.bbc heartbeat_interval=ten",
         "0x0001 heartbeat_interval: 'ten' is not a number (decimal or 0x-hex)" + one},
        {"set @t.bbc plate_color=256", "0x0084 plate_color: 256 is out of range for a u8 value (0 to 255)" + one},
        {"set @t.bbc main_server_apn=" + std::string(32, 'a'),
         "0x0010 main_server_apn: too long for its field: 32 bytes, room for 31" + one},
        {"set @t.bbc alarm_recording=01020304",
         "0x0079 alarm_recording: too long for its field: 4 bytes, room for 3" + one},
        {"set @t.bbc night_fatigue=" + std::string(30, '0'),
         "0xfe10 night_fatigue: wrong length for the block: 15 bytes, its wire form has 16" + one},
        {"set @t.bbc 0xe138=00", "0xe138 hlj_driver_identify: get-only: the record's dictionary does not set it" + one},
        {"set @t.bbc heartbeat_interval=9 0xf364=00",
         "0xf364 adas_params: wrong length for the block: 1 byte, its wire form has 56\n"
         "D/t.bbc left unchanged: 1 of 2 values refused"},
        {"init @t.bbc", "D/t.bbc exists; --force replaces it with factory defaults"},
        {"get @t.bbc 0x0008", "unknown ID 0x0008 for a terminal record"},
        {"set @crc.bbc heartbeat_interval=1", mismatch + "; --force reads it anyway"},
        {"check @crc.bbc", mismatch},
        {"apply @short.bbc 00",
         "D/short.bbc: 3387 bytes is not a record file (a terminal record file has 3388 bytes, "
         "a taxi record file 1039)"},
        {"show @none.bbc", "cannot read D/none.bbc: No such file or directory"},
    };
    const auto before = state();
    for (const auto& [args, lines] : cases) {
        SCOPED_TRACE(args);
        const std::string head = "bbconf: " + args.substr(0, args.find(' ')) + ": ";
        std::string want = head;
        for (char ch : lines) want += ch == '\n' ? "\n" + head : std::string(1, ch);
        EXPECT_EQ(result(args), "1||" + want + "\n");
        EXPECT_EQ(state(), before);
    }

    // --force reads a damaged file, and a write stores a fresh checksum.
    EXPECT_EQ(
        result("set --force @crc.bbc heartbeat_interval=1"),
        "0|0x0001 heartbeat_interval: stored\n|bbconf: set: warning: D/crc.bbc: " + crc + ", read anyway (--force)\n");
    EXPECT_EQ(run("check @crc.bbc").status, 0);
}

TEST_F(Tool, HelpUsageAndVersion) {
    EXPECT_EQ(result("--version"), "0|bbconf " BBCONF_PROJECT_VERSION "\n|");
    for (const char* cmd : {"", "init", "show", "get", "set", "apply", "query", "check", "diff", "list"}) {
        const Outcome help = run(cmd + std::string(" --help"));
        EXPECT_EQ(help.status, 0) << cmd;
        EXPECT_NE(help.out.find(*cmd ? "Example" : "Examples:"), npos) << cmd;
    }
    for (const char* usage : {"frobnicate", "get", ""}) EXPECT_EQ(run(usage).status, 2) << usage;
}

}  // namespace
