// concurrency_test.cpp - calls on distinct records from several threads at
// once give exactly what the same calls give one after another: the library
// keeps no state of its own between calls (no static scratch buffers, no
// lazily filled tables).  Built with -DBBCONF_TSAN=ON, ThreadSanitizer also
// reports any shared write these workloads reach.  (gtest assertions are
// thread-safe where pthreads are available.)
#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "api_tour.h"
#include "quiet_stdout.h"

namespace {

using bbtest::kWorkloadCount;
using bbtest::kWorkloads;

constexpr unsigned kThreads = 4;
constexpr unsigned kSeeds = 8;
constexpr unsigned kRounds = 6;

bbtest::Digest run_once(size_t workload, unsigned seed) {
    bbtest::Digest d;
    kWorkloads[workload].run(seed, d);
    return d;
}

TEST(Concurrency, ThreadsOnDistinctRecordsMatchSingleThreaded) {
    bbtest::QuietStdout quiet;
    std::vector<bbtest::Digest> expected;  // workload * kSeeds + seed
    for (size_t w = 0; w < kWorkloadCount; w++) {
        for (unsigned s = 0; s < kSeeds; s++) expected.push_back(run_once(w, s));
        // Meaningful only if one thread alone gets the same result twice.
        ASSERT_FALSE(run_once(w, 3) != expected[w * kSeeds + 3]) << kWorkloads[w].name;
    }

    std::atomic<unsigned> ready{0};
    std::vector<std::thread> threads;
    for (unsigned id = 0; id < kThreads; id++) {
        threads.emplace_back([&, id] {
            ready.fetch_add(1);
            while (ready.load() < kThreads) std::this_thread::yield();
            // Each thread starts from a different workload and shifts each round, so different codecs overlap.
            for (size_t i = 0; i < kRounds * kWorkloadCount; i++) {
                const size_t w = (i + i / kWorkloadCount + id * kWorkloadCount / kThreads) % kWorkloadCount;
                for (unsigned s = id; s < kSeeds; s += kThreads) {
                    EXPECT_FALSE(run_once(w, s) != expected[w * kSeeds + s]) << kWorkloads[w].name << " seed " << s;
                }
            }
        });
    }
    for (auto& th : threads) th.join();
}

}  // namespace
