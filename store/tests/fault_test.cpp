// fault_test.cpp - the record store under concurrent writers, killed
// writers, a full disk, FIFOs, root editing another user's file and a
// full standard output.  Each prints what it counted.
#include <signal.h>
#include <sys/resource.h>
#include <time.h>

#include <chrono>
#include <cstdio>
#include <random>

#include "store_support.h"

namespace {

using bbconf::AnyRecord;
using bbconf::StoreStatus;
using namespace storetest;
using Clock = std::chrono::steady_clock;

[[maybe_unused]] constexpr uid_t kOtherUser = 65534;  // used by the tests that drive the tool

class Fault : public ScratchDir {
  protected:
    // A record file with factory-like contents: a pattern, sealed.
    void make_record(const std::string& name) { spit(path(name), sealed(pattern(3386, 9))); }

    bool intact(const std::string& name) {
        AnyRecord rec{};
        return bbconf::load_record(path(name).c_str(), rec).ok();
    }

    uint32_t u32_in(const std::string& name, size_t offset) {
        AnyRecord rec{};
        EXPECT_TRUE(bbconf::load_record(path(name).c_str(), rec).ok());
        return u32_at(rec, offset);
    }
};

// Two processes each add 1 to their own field 200 times: every increment
// reads the other's latest value, or the other's count falls short.
TEST_F(Fault, ConcurrentUpdatersLoseNoUpdate) {
    constexpr uint32_t kRounds = 200;
    make_record("f");
    for (size_t offset : {0u, 4u}) {
        AnyRecord zero{};
        ASSERT_TRUE(bbconf::update_record(
                        path("f").c_str(), zero,
                        [](AnyRecord& r, const bbconf::StoreResult&, void* o) {
                            set_u32_at(r, *static_cast<size_t*>(o), 0);
                            return true;
                        },
                        &offset)
                        .written);
    }
    pid_t writers[2];
    for (size_t w = 0; w < 2; w++) {
        writers[w] = ::fork();
        if (writers[w] != 0) continue;
        size_t offset = 4 * w;
        int failed = 0;
        for (uint32_t i = 0; i < kRounds; i++) {
            AnyRecord rec{};
            const auto res = bbconf::update_record(
                path("f").c_str(), rec,
                [](AnyRecord& r, const bbconf::StoreResult&, void* o) {
                    const size_t at = *static_cast<size_t*>(o);
                    set_u32_at(r, at, u32_at(r, at) + 1);
                    return true;
                },
                &offset);
            failed += !res.written;
        }
        ::_exit(failed == 0 ? 0 : 1);
    }
    EXPECT_EQ(finish(writers[0]), 0);
    EXPECT_EQ(finish(writers[1]), 0);
    const uint32_t counted = u32_in("f", 0) + u32_in("f", 4);
    std::printf("[  counts  ] writes %u, lost updates %u\n", 2 * kRounds, 2 * kRounds - counted);
    EXPECT_EQ(counted, 2 * kRounds);
}

#ifdef BBCONF_TOOL_PATH

const std::string kTool = BBCONF_TOOL_PATH;

// Waits at most `limit` for a child; kills it when it overstays.
int finish_within(pid_t pid, std::chrono::milliseconds limit, bool& in_time) {
    const auto end = Clock::now() + limit;
    int st = 0;
    while (::waitpid(pid, &st, WNOHANG) == 0) {
        if (Clock::now() > end) {
            ::kill(pid, SIGKILL);
            in_time = false;
            return finish(pid);
        }
        ::usleep(2000);
    }
    in_time = true;
    return WIFEXITED(st) ? WEXITSTATUS(st) : -WTERMSIG(st);
}

// The tool's set from two loops at once: each loop's last value survives.
TEST_F(Fault, ConcurrentToolWritersLoseNoUpdate) {
    constexpr int kRounds = 100;
    make_record("f");
    const char* params[] = {"heartbeat_interval", "tcp_reply_timeout"};
    pid_t loops[2];
    for (int w = 0; w < 2; w++) {
        loops[w] = ::fork();
        if (loops[w] != 0) continue;
        int failed = 0;
        for (int i = 1; i <= kRounds; i++) {
            failed += finish(spawn({kTool, "set", path("f"), params[w] + ("=" + std::to_string(i))})) != 0;
        }
        ::_exit(failed == 0 ? 0 : 1);
    }
    EXPECT_EQ(finish(loops[0]), 0);
    EXPECT_EQ(finish(loops[1]), 0);
    const int lost = (u32_in("f", 0) != kRounds) + (u32_in("f", 4) != kRounds);
    std::printf("[  counts  ] tool writes %d, last updates lost %d, stray files %zu\n", 2 * kRounds, lost,
                names().size() - 1);
    EXPECT_EQ(lost, 0);
    EXPECT_EQ(names(), std::vector<std::string>{"f"});
}

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
        damaged += !intact("f");
        for (const std::string& n : names()) {
            if (n == "f.tmp") {
                leftovers++;
            } else if (n != "f") {
                strays++;
            }
        }
    }
    ASSERT_EQ(finish(spawn({kTool, "set", path("f"), "heartbeat_interval=7"})), 0);
    const size_t after = names().size() - 1;
    std::printf(
        "[  counts  ] writes %d, kills %d, completed %d, damaged %d, FILE.tmp left by a kill %d, "
        "stray files %d, stray files after the next write %zu\n",
        writes, kills, completed, damaged, leftovers, strays, after);
    EXPECT_GE(kills, kKills);
    EXPECT_EQ(damaged, 0);
    EXPECT_EQ(strays, 0);
    EXPECT_EQ(after, 0u);
    EXPECT_EQ(u32_in("f", 0), 7u);
}

// A file-size limit below the record: the write fails, the original stays.
TEST_F(Fault, FullDiskLeavesTheOriginalIntact) {
    make_record("f");
    const std::string original = slurp(path("f"));
    const auto limited = [](rlim_t bytes) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit lim{bytes, bytes};
        return ::setrlimit(RLIMIT_FSIZE, &lim) == 0;
    };
    for (rlim_t bytes : {rlim_t{0}, rlim_t{1000}, rlim_t{3387}}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(in_child([&] {
                      AnyRecord rec{};
                      if (!limited(bytes)) return 2;
                      const auto res = bbconf::save_record(path("f").c_str(), rec);
                      return res.status == StoreStatus::io && res.sys_errno == EFBIG && !res.written ? 0 : 1;
                  }),
                  0);
        EXPECT_EQ(in_child([&] {
                      if (!limited(bytes) || ::freopen("/dev/null", "w", stderr) == nullptr) return 2;
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
    const std::vector<std::string> commands[] = {
        {"get", path("fifo"), "heartbeat_interval"},
        {"set", path("fifo"), "heartbeat_interval=1"},
        {"init", "--force", path("fifo")},
    };
    for (const auto& args : commands) {
        std::vector<std::string> argv{kTool};
        argv.insert(argv.end(), args.begin(), args.end());
        bool in_time = false;
        const int rc = finish_within(spawn(argv), std::chrono::milliseconds(1000), in_time);
        EXPECT_TRUE(in_time) << args[0];
        EXPECT_EQ(rc, 1) << args[0];
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
