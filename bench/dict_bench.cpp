// dict_bench.cpp - the terminal parameter dictionary: set and get of every
// known ID in random order, and CMN_GetParam against the same get found by
// a linear scan of the same table.  Prints the speed-up of the sorted
// search over the scan after the runs and fails below 5x.
//
// The library reports on standard output; while a benchmark runs, the
// process's standard output is sent to /dev/null and restored after it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>
#include <vector>

#include "bbconf.h"
#include "common/byteorder.h"
#include "conf/dict.h"
#include "conf/params.h"
#include "quiet_stdout.h"

namespace {

using bbconf::ParamDef;

using bbtest::QuietStdout;

// Plain rows: numbers, strings and raw values, which print nothing.
bool is_plain(const ParamDef& d) {
    return d.set == bbconf::set_number || d.set == bbconf::set_str || d.set == bbconf::set_raw;
}

std::vector<const ParamDef*> number_rows() {
    const bbconf::Dictionary& dict = bbconf::terminal_dictionary();
    std::vector<const ParamDef*> rows;
    for (int i = 0; i < dict.count; i++) {
        if (bbconf::is_number(dict.rows[i])) rows.push_back(&dict.rows[i]);
    }
    return rows;
}

std::vector<const ParamDef*> rows_where(bool plain_only) {
    const bbconf::Dictionary& dict = bbconf::terminal_dictionary();
    std::vector<const ParamDef*> rows;
    for (int i = 0; i < dict.count; i++) {
        if (!plain_only || is_plain(dict.rows[i])) rows.push_back(&dict.rows[i]);
    }
    return rows;
}

// A long random sequence of rows, so that the branch predictor cannot
// learn the order.
std::vector<const ParamDef*> random_sequence(const std::vector<const ParamDef*>& rows, size_t n) {
    std::mt19937 rng(20240611u);
    std::uniform_int_distribution<size_t> pick(0, rows.size() - 1);
    std::vector<const ParamDef*> seq(n);
    for (auto& r : seq) r = rows[pick(rng)];
    return seq;
}

struct Fixture {
    tagBB_CONF_ST rec{};
    // Wire values: ones (channel counts of 1 for the channel list).  Both
    // buffers have room ahead for the codecs that log bytes before them.
    std::vector<unsigned char> frame = std::vector<unsigned char>(1024, 0x01);
    unsigned char* wire() { return frame.data() + 256; }
    std::vector<unsigned char> out_frame = std::vector<unsigned char>(1024, 0);
    unsigned char* out() { return out_frame.data() + 256; }
    Fixture() {
        QuietStdout quiet;
        CMN_InitBbConfToDefault(&rec);
    }
};

void set_and_get(benchmark::State& state, bool plain_only) {
    const std::vector<const ParamDef*> rows = rows_where(plain_only);
    std::vector<const ParamDef*> order = rows;
    std::shuffle(order.begin(), order.end(), std::mt19937(7u));
    Fixture f;
    QuietStdout quiet;
    // The limit is the width of a number and the room of a string or raw
    // value (short of a block's minimum, which then reports a mismatch).
    size_t i = 0;
    for (auto _ : state) {
        const ParamDef& d = *order[i];
        benchmark::DoNotOptimize(CMN_SetParam(&f.rec, d.id, f.wire(), d.limit));
        benchmark::DoNotOptimize(CMN_GetParam(&f.rec, d.id, f.out(), 512));
        i = (i + 1 == order.size()) ? 0 : i + 1;
    }
    benchmark::ClobberMemory();
    const double calls = 2.0 * static_cast<double>(state.iterations());
    state.counters["ids"] = static_cast<double>(rows.size());
    state.counters["ns_per_call"] =
        benchmark::Counter(calls, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_SetGetPlainIds(benchmark::State& state) { set_and_get(state, true); }
BENCHMARK(BM_SetGetPlainIds);

// Every known ID, the printing ones included (blocks, identity, debug).
void BM_SetGetAllIds(benchmark::State& state) { set_and_get(state, false); }
BENCHMARK(BM_SetGetAllIds);

// The same get found by walking the table from the front.
int scan_get(const bbconf::Dictionary& dict, const bbconf::DictCall& c, int id, unsigned char* buf, int buflen) {
    for (int i = 0; i < dict.count; i++) {
        if (dict.rows[i].id == id) {
            return bbconf::get_value(dict.rows[i], c, buf, buflen);
        }
    }
    return -1;
}

const std::vector<const ParamDef*>& plain_sequence() {
    static const std::vector<const ParamDef*> seq = random_sequence(number_rows(), 1 << 16);
    return seq;
}

unsigned run_dictionary(Fixture& f, const std::vector<const ParamDef*>& seq) {
    unsigned sum = 0;
    for (const ParamDef* d : seq) sum += static_cast<unsigned>(CMN_GetParam(&f.rec, d->id, f.out(), 512));
    return sum;
}

unsigned run_scan(Fixture& f, const std::vector<const ParamDef*>& seq) {
    const bbconf::Dictionary& dict = bbconf::terminal_dictionary();
    const bbconf::DictCall c{"CMN_GetParam", bbconf::bytes_of(&f.rec), sizeof f.rec};
    unsigned sum = 0;
    for (const ParamDef* d : seq) sum += static_cast<unsigned>(scan_get(dict, c, d->id, f.out(), 512));
    return sum;
}

void BM_GetParamPlain(benchmark::State& state) {
    Fixture f;
    const auto& seq = plain_sequence();
    for (auto _ : state) benchmark::DoNotOptimize(run_dictionary(f, seq));
    state.counters["ns_per_call"] = benchmark::Counter(static_cast<double>(state.iterations() * seq.size()),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_GetParamPlain);

void BM_LinearScanGetPlain(benchmark::State& state) {
    Fixture f;
    const auto& seq = plain_sequence();
    for (auto _ : state) benchmark::DoNotOptimize(run_scan(f, seq));
    state.counters["ns_per_call"] = benchmark::Counter(static_cast<double>(state.iterations() * seq.size()),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_LinearScanGetPlain);

double thread_cpu_ns() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// Best CPU nanoseconds per get of each side over many rounds (CPU time, so
// that other load on the machine counts less).  The rounds alternate the
// two sides, so both see the same clock and caches, and start after a
// second of the same work: a processor coming out of idle runs slower.
struct PerGet {
    double dict;
    double scan;
};

PerGet best_per_get(Fixture& f, const std::vector<const ParamDef*>& seq) {
    constexpr double kWarmUpNs = 1e9;
    constexpr int kRounds = 40;
    const double n = static_cast<double>(seq.size());
    PerGet best{1e18, 1e18};
    const double start = thread_cpu_ns();
    for (int round = 0; round < kRounds;) {
        const double t0 = thread_cpu_ns();
        benchmark::DoNotOptimize(run_dictionary(f, seq));
        const double t1 = thread_cpu_ns();
        benchmark::DoNotOptimize(run_scan(f, seq));
        const double t2 = thread_cpu_ns();
        if (t0 - start >= kWarmUpNs) {
            best.dict = std::min(best.dict, (t1 - t0) / n);
            best.scan = std::min(best.scan, (t2 - t1) / n);
            round++;
        }
    }
    return best;
}

}  // namespace

int main(int argc, char** argv) {
    Fixture f;
    const auto& seq = plain_sequence();
    if (run_dictionary(f, seq) != run_scan(f, seq)) {
        std::fprintf(stderr, "the scan and CMN_GetParam disagree\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    const PerGet t = best_per_get(f, seq);
    const double dict = t.dict;
    const double scan = t.scan;
    std::printf("get of %zu plain IDs: CMN_GetParam %.1f ns, linear scan %.1f ns -> %.1fx faster than the scan\n",
                rows_where(true).size(), dict, scan, scan / dict);
    if (scan / dict < 5.0) {
        std::printf("FAIL: CMN_GetParam must be at least 5x faster than a linear scan\n");
        return 1;
    }
    return 0;
}
