// fault_test.cpp - the record store under concurrent writers, killed
// writers, a full disk, FIFOs, root editing another user's file and a
// full standard output.  Each prints what it counted.
#include <signal.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "store_support.h"

namespace {

using bbconf::AnyRecord;
using bbconf::StoreStatus;
using namespace storetest;
using Clock = std::chrono::steady_clock;

class Fault : public ScratchDir {
  protected:
    void make_record(const std::string& name) { spit(path(name), sealed(pattern(kTerminal, 9))); }

    uint32_t u32_in(const std::string& name, size_t offset) {
        AnyRecord rec{};
        EXPECT_TRUE(bbconf::load_record(path(name).c_str(), rec).ok());
        uint32_t v;
        std::memcpy(&v, rec.bytes() + offset, sizeof v);
        return v;
    }
};

#ifdef BBCONF_TOOL_PATH
const std::string kTool = BBCONF_TOOL_PATH;
constexpr uid_t kOtherUser = 65534;
#endif

// Sets heartbeat_interval: through the tool where it is built, else as a second application.
bool set_heartbeat(const std::string& file, uint32_t value) {
#ifdef BBCONF_TOOL_PATH
    return finish(spawn({kTool, "set", file, "heartbeat_interval=" + std::to_string(value)})) == 0;
#else
    tagBB_CONF_ST c{};
    return bbconf::update_record(file.c_str(), c,
                                 [value](tagBB_CONF_ST& r) {
                                     r.uiHeartBeatItv = value;
                                     return true;
                                 })
        .written;
#endif
}

// An application adds 1 to tcp_reply_timeout 200 times while the tool sets
// heartbeat_interval to 1..200: an increment is lost whenever a write was
// based on a record read before the other writer's rename.
TEST_F(Fault, ConcurrentWritersLoseNoUpdate) {
    constexpr uint32_t kRounds = 200;
    spit(path("f"), sealed(std::string(8, '\0') + pattern(kTerminal - 8, 9)));
    const pid_t app = ::fork();
    if (app == 0) {
        int failed = 0;
        for (uint32_t i = 0; i < kRounds; i++) {
            tagBB_CONF_ST c{};
            failed += !bbconf::update_record(path("f").c_str(), c, [](tagBB_CONF_ST& r) {
                           r.uiTcpTimeout = r.uiTcpTimeout + 1;
                           return true;
                       }).written;
        }
        ::_exit(failed != 0);
    }
    int failed = 0;
    for (uint32_t i = 1; i <= kRounds; i++) failed += !set_heartbeat(path("f"), i);
    EXPECT_EQ(finish(app), 0);
    EXPECT_EQ(failed, 0);
    const uint32_t lost = (kRounds - u32_in("f", 4)) + (u32_in("f", 0) != kRounds);
    std::printf("[  counts  ] writes %u, lost updates %u, stray files %zu\n", 2 * kRounds, lost, names().size() - 1);
    EXPECT_EQ(lost, 0u);
    EXPECT_EQ(names(), std::vector<std::string>{"f"});
}

#ifdef BBCONF_TOOL_PATH

// SIGKILL at random moments of a set: the file is whole with a good CRC
// after every kill, and the next write leaves no other file behind.
TEST_F(Fault, KilledWritersLeaveAWholeFileAndNoStrayFiles) {
    constexpr int kKills = 200;
    make_record("f");
    const auto start = Clock::now();
    for (int i = 0; i < 5; i++) ASSERT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=1"})), 0);
    const auto run_us = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count() / 5;
    std::mt19937 rng(16);
    int writes = 0, kills = 0, completed = 0, damaged = 0, leftovers = 0, strays = 0;
    while (kills < kKills && writes < 10 * kKills) {
        const pid_t pid = spawn({kTool, "set", path("f"), "heartbeat_interval=" + std::to_string(++writes)});
        ::usleep(static_cast<useconds_t>(rng() % (run_us + 1)));
        ::kill(pid, SIGKILL);
        (finish(pid) == -SIGKILL ? kills : completed)++;
        AnyRecord rec{};
        damaged += !bbconf::load_record(path("f").c_str(), rec).ok();
        for (const std::string& n : names()) (n == "f.tmp" ? leftovers : strays) += n != "f";
    }
    ASSERT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=7"})), 0);
    const size_t after = names().size() - 1;
    std::printf(
        "[  counts  ] writes %d, kills %d, completed %d, damaged %d, FILE.tmp left by a kill %d, "
        "stray files %d, stray files after the next write %zu\n",
        writes, kills, completed, damaged, leftovers, strays, after);
    EXPECT_GE(kills, kKills);
    EXPECT_EQ(damaged + strays, 0);
    EXPECT_EQ(after, 0u);
    EXPECT_EQ(u32_in("f", 0), 7u);
}

// A file-size limit below the record: the write fails, the original stays.
TEST_F(Fault, FullDiskLeavesTheOriginalIntact) {
    make_record("f");
    const std::string original = slurp(path("f"));
    for (rlim_t bytes : {rlim_t{0}, rlim_t{1000}, rlim_t{3387}}) {
        SCOPED_TRACE(bytes);
        const rlimit lim{bytes, bytes};
        const auto limited = [&] {
            return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &lim) == 0;
        };
        EXPECT_EQ(in_child([&] {
                      AnyRecord rec{};
                      if (!limited()) return 2;
                      const auto res = bbconf::save_record(path("f").c_str(), rec);
                      return res.status == StoreStatus::io && res.sys_errno == EFBIG && !res.written ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(in_child([&] {
                      if (!limited() || ::freopen("/dev/null", "w", stderr) == nullptr) return 2;
                      ::execl(kTool.c_str(), kTool.c_str(), "set", path("f").c_str(), "heartbeat_interval=3",
                              static_cast<char*>(nullptr));
                      return 127;
                  }),
                  1);
        EXPECT_EQ(slurp(path("f")), original);
        EXPECT_EQ(names(), std::vector<std::string>{"f"});
    }
    std::printf("[  counts  ] writes 6 past the limit, original intact, stray files %zu\n", names().size() - 1);
}

// A FIFO with no writer is refused at once, by the store and the tool.
TEST_F(Fault, FifoRefusedWithinASecond) {
    ASSERT_EQ(::mkfifo(path("fifo").c_str(), 0644), 0);
    const auto start = Clock::now();
    AnyRecord rec{};
    EXPECT_EQ(bbconf::load_record(path("fifo").c_str(), rec).status, StoreStatus::not_regular);
    EXPECT_EQ(bbconf::save_record(path("fifo").c_str(), rec).status, StoreStatus::not_regular);
    const std::vector<std::string> commands[] = {{kTool, "get", path("fifo"), "heartbeat_interval"},
                                                 {kTool, "set", path("fifo"), "heartbeat_interval=1"},
                                                 {kTool, "init", "--force", path("fifo")}};
    for (const auto& argv : commands) {
        const pid_t pid = spawn(argv);
        const auto end = Clock::now() + std::chrono::seconds(1);
        int st = 0;
        while (::waitpid(pid, &st, WNOHANG) == 0 && Clock::now() < end) ::usleep(2000);
        const bool in_time = Clock::now() < end || (::kill(pid, SIGKILL), finish(pid), false);
        EXPECT_TRUE(in_time && WIFEXITED(st) && WEXITSTATUS(st) == 1) << argv[1] << (in_time ? "" : ": hangs");
    }
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    std::printf("[  counts  ] FIFO refused 5 times in %lld ms\n", static_cast<long long>(ms));
}

// Root editing a 0600 file of the application's user leaves it theirs.
TEST_F(Fault, RootEditKeepsOwnerAndMode) {
    if (::geteuid() != 0) GTEST_SKIP() << "needs root: runs the tool as root on another user's file";
    make_record("f");
    ASSERT_EQ(::chown(path("f").c_str(), kOtherUser, kOtherUser), 0);
    ASSERT_EQ(::chmod(path("f").c_str(), 0600), 0);
    ASSERT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=42"})), 0);
    struct stat st;
    ASSERT_EQ(::stat(path("f").c_str(), &st), 0);
    EXPECT_EQ(st.st_uid, kOtherUser);
    EXPECT_EQ(st.st_gid, kOtherUser);
    EXPECT_EQ(st.st_mode & 07777, 0600u);
    EXPECT_EQ(u32_in("f", 0), 42u);

    // The user still reads it; and may not replace root's file.
    make_record("root");
    EXPECT_EQ(in_child([&] {
                  if (::setgid(kOtherUser) != 0 || ::setuid(kOtherUser) != 0) return 2;
                  AnyRecord rec{};
                  if (!bbconf::load_record(path("f").c_str(), rec).ok()) return 3;
                  return bbconf::save_record(path("root").c_str(), rec).status == StoreStatus::permission ? 0 : 4;
              }),
              0);
    std::printf("[  counts  ] owner %u:%u and mode %04o kept\n", static_cast<unsigned>(st.st_uid),
                static_cast<unsigned>(st.st_gid), static_cast<unsigned>(st.st_mode & 07777));
}

// Answers that cannot be printed: the status still tells whether the file changed.
TEST_F(Fault, StdoutToDevFull) {
    make_record("f");
    const std::string err = path("f.err");
    EXPECT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=9"}, "/dev/full", err)), 4);
    EXPECT_NE(slurp(err).find("was written, but the answers could not be printed: No space left on device"),
              std::string::npos);
    EXPECT_EQ(u32_in("f", 0), 9u);
    const std::string written = slurp(path("f"));
    EXPECT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=x"}, "/dev/full", err)), 1);
    EXPECT_EQ(slurp(path("f")), written);
    EXPECT_EQ(finish(spawn({kTool, "get", path("f"), "heartbeat_interval"}, "/dev/full", err)), 1);
    EXPECT_EQ(slurp(err), "bbconf: cannot print the answers: No space left on device\n");
    std::printf("[  counts  ] set to /dev/full: written, status 4; refused set and get: status 1\n");
}

#endif  // BBCONF_TOOL_PATH

}  // namespace
