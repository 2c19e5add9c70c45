// store_test.cpp - loading, saving and updating record files.
#include <sys/stat.h>

#include "store_support.h"

namespace {

using bbconf::AnyRecord;
using bbconf::StoreResult;
using bbconf::StoreStatus;
using namespace storetest;

class Store : public ScratchDir {};

// Every way a load fails, with its status and the line that names it.
TEST_F(Store, LoadNamesEachFault) {
    const std::string terminal = sealed(pattern(kTerminal, 1));
    std::string bad_crc = terminal;
    bad_crc[kTerminal] ^= 0x5a;
    spit(path("short"), terminal.substr(0, kTerminal + 1));
    spit(path("long"), terminal + '\0');
    spit(path("empty"), "");
    spit(path("crc"), bad_crc);
    spit(path("taxi"), sealed(pattern(kTaxi, 2)));
    ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0644), 0);
    ASSERT_EQ(::mkdir(path("dir").c_str(), 0755), 0);
    char crc_line[128];
    std::snprintf(
        crc_line, sizeof crc_line,
        "D/crc: checksum mismatch (stored 0x%02x%02x, computed 0x%02x%02x): the file is damaged or was edited",
        static_cast<unsigned char>(bad_crc[kTerminal + 1]), static_cast<unsigned char>(bad_crc[kTerminal]),
        static_cast<unsigned char>(terminal[kTerminal + 1]), static_cast<unsigned char>(terminal[kTerminal]));
    const std::string sizes = " is not a record file (a terminal record file has 3388 bytes, a taxi record file 1039)";
    const struct {
        const char* name;
        unsigned flags;
        StoreStatus status;
        std::string line;
    } cases[] = {
        {"none", 0, StoreStatus::missing, "cannot read D/none: No such file or directory"},
        {"none/x", 0, StoreStatus::missing, "cannot read D/none/x: No such file or directory"},
        {"fifo", 0, StoreStatus::not_regular, "D/fifo is not a regular file"},
        {"dir", 0, StoreStatus::not_regular, "D/dir is not a regular file"},
        {"short", 0, StoreStatus::bad_size, "D/short: 3387 bytes" + sizes},
        {"long", 0, StoreStatus::bad_size, "D/long: 3389 bytes" + sizes},
        {"empty", 0, StoreStatus::bad_size, "D/empty: 0 bytes" + sizes},
        {"crc", 0, StoreStatus::bad_crc, crc_line},
        {"taxi", bbconf::kStoreTerminalOnly, StoreStatus::wrong_kind,
         "D/taxi: 1039 bytes is not a terminal record file (3388 bytes)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        AnyRecord rec{};
        const StoreResult res = bbconf::load_record(path(c.name).c_str(), rec, c.flags);
        EXPECT_EQ(res.status, c.status);
        EXPECT_EQ(message(res, path(c.name)), c.line);
    }
    AnyRecord rec{};
    // Read anyway on request: the bytes as stored, the mismatch reported.
    const StoreResult forced = bbconf::load_record(path("crc").c_str(), rec, bbconf::kStoreAcceptBadCrc);
    EXPECT_TRUE(forced.ok() && forced.crc_mismatch());
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(rec.bytes()), kTerminal), terminal.substr(0, kTerminal));

    // A reader the file's mode shuts out.
    ASSERT_EQ(::chmod(path("taxi").c_str(), 0600), 0);
    EXPECT_EQ(in_child([&] {
                  if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 2;  // not root: nothing to drop
                  AnyRecord r{};
                  return bbconf::load_record(path("taxi").c_str(), r).status == StoreStatus::permission ? 0 : 1;
              }) % 2,
              0);
}

TEST_F(Store, LoadTakesTheKindFromTheSize) {
    for (const auto& [size, kind] :
         {std::pair{kTerminal, bbconf::RecordKind::Terminal}, std::pair{kTaxi, bbconf::RecordKind::Taxi}}) {
        const std::string bytes = pattern(size, 3);
        spit(path("f"), sealed(bytes));
        AnyRecord rec{};
        const StoreResult res = bbconf::load_record(path("f").c_str(), rec);
        EXPECT_TRUE(res.ok() && !res.crc_mismatch() && rec.kind == kind);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(rec.bytes()), rec.size()), bytes);
    }
}

TEST_F(Store, SaveWritesTheFileFormatAndKeepsTheMode) {
    AnyRecord rec{};
    rec.kind = bbconf::RecordKind::Taxi;
    const std::string bytes = pattern(kTaxi, 4);
    std::memcpy(rec.bytes(), bytes.data(), kTaxi);
    const mode_t mask = ::umask(022);
    ASSERT_TRUE(bbconf::save_record(path("x").c_str(), rec).written);
    ::umask(mask);
    EXPECT_EQ(slurp(path("x")), sealed(bytes));
    const auto mode = [&] { return static_cast<unsigned>(std::filesystem::status(path("x")).permissions()); };
    EXPECT_EQ(mode(), 0644u);

    ASSERT_EQ(::chmod(path("x").c_str(), 0640), 0);
    ASSERT_EQ(::symlink("x", path("link").c_str()), 0);
    rec.taxi.uiHeartBeatItv = 77;
    ASSERT_TRUE(bbconf::save_record(path("link").c_str(), rec).written);
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(mode(), 0640u);
    EXPECT_EQ(slurp(path("x")).substr(0, 4), std::string("\x4d\0\0\0", 4));
    EXPECT_EQ(names(), (std::vector<std::string>{"link", "x"}));
}

// Refused writes leave every file as it was and nothing beside them.
TEST_F(Store, SaveRefusesReadOnlyFilesAndLinksToNothing) {
    AnyRecord rec{};
    const std::string original = sealed(pattern(kTerminal, 5));
    spit(path("ro"), original);
    ASSERT_EQ(::chmod(path("ro").c_str(), 0444), 0);
    ASSERT_EQ(::symlink("nothing", path("dangling").c_str()), 0);
    ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0644), 0);
    const struct {
        const char* name;
        StoreStatus status;
        const char* line;
    } cases[] = {
        {"ro", StoreStatus::permission, "cannot write D/ro: no write permission (mode 0444)"},
        {"dangling", StoreStatus::dangling_link, "cannot write D/dangling: it is a symbolic link to a missing file"},
        {"fifo", StoreStatus::not_regular, "D/fifo is not a regular file"},
        {"none/x", StoreStatus::missing, "cannot write D/none/x: No such file or directory"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const StoreResult res = bbconf::save_record(path(c.name).c_str(), rec);
        EXPECT_EQ(res.status, c.status);
        EXPECT_FALSE(res.written);
        EXPECT_EQ(message(res, path(c.name)), c.line);
    }
    EXPECT_EQ(slurp(path("ro")), original);
    EXPECT_EQ(names(), (std::vector<std::string>{"dangling", "fifo", "ro"}));
}

TEST_F(Store, UpdateWritesOnlyWhatTheEditAsksFor) {
    tagBB_CONF_ST conf{};
    // Missing: refused, or created from the record passed in.
    EXPECT_EQ(bbconf::update_record(path("t").c_str(), conf, [](tagBB_CONF_ST&) { return true; }).status,
              StoreStatus::missing);
    std::memset(&conf, 0x11, sizeof conf);
    ASSERT_TRUE(bbconf::update_record(
                    path("t").c_str(), conf, [](tagBB_CONF_ST&) { return true; }, bbconf::kStoreCreate)
                    .written);
    EXPECT_EQ(slurp(path("t")), sealed(std::string(kTerminal, '\x11')));

    // Read, changed, written; then an edit that declines leaves the file alone.
    const StoreResult res = bbconf::update_record(path("t").c_str(), conf, [](tagBB_CONF_ST& c) {
        c.uiHeartBeatItv = 30;
        return true;
    });
    EXPECT_TRUE(res.written && res.existed);
    struct stat before, after;
    ASSERT_EQ(::stat(path("t").c_str(), &before), 0);
    EXPECT_FALSE(bbconf::update_record(path("t").c_str(), conf, [](tagBB_CONF_ST&) { return false; }).written);
    ASSERT_EQ(::stat(path("t").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);

    tagBBTAXI_CONF_ST taxi{};
    EXPECT_EQ(bbconf::load_record(path("t").c_str(), taxi).status, StoreStatus::wrong_kind);
    tagBB_CONF_ST back{};
    ASSERT_TRUE(bbconf::load_record(path("t").c_str(), back).ok());
    const unsigned heartbeat = back.uiHeartBeatItv;
    EXPECT_EQ(heartbeat, 30u);
}

// A writer killed before its rename leaves FILE.tmp; the next write removes it.
TEST_F(Store, NextWriteRemovesAKilledWritersTemporaryFile) {
    AnyRecord rec{};
    spit(path("t.tmp"), "half a rec");
    ASSERT_TRUE(bbconf::save_record(path("t").c_str(), rec).written);
    EXPECT_EQ(names(), std::vector<std::string>{"t"});
}

}  // namespace
