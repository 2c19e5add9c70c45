// concurrency_test.cpp - calls on distinct records from several threads at
// once give exactly what the same calls give one after another: the library
// keeps no state of its own between calls (no static scratch buffers, no
// lazily filled tables).  Built with -DBBCONF_TSAN=ON, ThreadSanitizer also
// reports any shared write these workloads reach.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "api_tour.h"
#include "quiet_stdout.h"

namespace {

using bbtest::Digest;
using bbtest::kWorkloadCount;
using bbtest::kWorkloads;

constexpr unsigned kThreads = 4;
constexpr unsigned kSeeds = 8;
constexpr unsigned kRounds = 6;

Digest run_once(size_t workload, unsigned seed) {
    Digest d;
    kWorkloads[workload].run(seed, d);
    return d;
}

TEST(Concurrency, ThreadsOnDistinctRecordsMatchSingleThreaded) {
    bbtest::QuietStdout quiet;
    std::vector<std::vector<Digest>> expected(kWorkloadCount);
    for (size_t w = 0; w < kWorkloadCount; w++) {
        for (unsigned s = 0; s < kSeeds; s++) expected[w].push_back(run_once(w, s));
        // The comparison is only meaningful if one thread alone gets the same
        // result twice.
        ASSERT_TRUE(run_once(w, 3) == expected[w][3]) << kWorkloads[w].name;
    }

    std::atomic<unsigned> ready{0};
    std::vector<std::vector<std::string>> mismatches(kThreads);
    std::vector<std::thread> threads;
    for (unsigned id = 0; id < kThreads; id++) {
        threads.emplace_back([&, id] {
            ready.fetch_add(1);
            while (ready.load() < kThreads) std::this_thread::yield();
            // Each thread walks the workloads from a different starting
            // point, so different codecs overlap in time.
            for (unsigned round = 0; round < kRounds; round++) {
                for (size_t i = 0; i < kWorkloadCount; i++) {
                    const size_t w = (i + id * 3 + round) % kWorkloadCount;
                    for (unsigned s = id; s < kSeeds; s += kThreads) {
                        if (!(run_once(w, s) == expected[w][s])) {
                            mismatches[id].push_back(std::string(kWorkloads[w].name) + " seed " + std::to_string(s));
                        }
                    }
                }
            }
        });
    }
    for (auto& th : threads) th.join();

    for (unsigned id = 0; id < kThreads; id++) {
        EXPECT_TRUE(mismatches[id].empty()) << "thread " << id << " first differs in " << mismatches[id].front();
    }
}

}  // namespace
