// dict_bench.cpp - the terminal parameter catalogue: set and get of every
// known ID in random order, and CMN_GetParam / CMN_SetParam on the number
// IDs beside the same rules reached through a direct index of all 65,536
// IDs.  Prints both sides of get and set after the runs and fails when the
// catalogue's search costs more than 4x the direct index.
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
#include "bbconf_catalogue.h"
#include "common/byteorder.h"
#include "conf/dict.h"
#include "quiet_stdout.h"

namespace {

using bbconf::ParamInfo;
using bbconf::RecordKind;
using bbconf::ValueKind;
using bbtest::QuietStdout;

// Plain rows: numbers, texts and raw values, which print nothing.
bool is_plain(const ParamInfo& p) {
    return p.settable && p.readable &&
           (p.kind == ValueKind::Number || p.kind == ValueKind::Text || p.kind == ValueKind::Raw);
}

std::vector<ParamInfo> rows_where(bool (*keep)(const ParamInfo&)) {
    std::vector<ParamInfo> rows;
    for (int i = 0; i < bbconf::param_count(RecordKind::Terminal); i++) {
        const ParamInfo p = bbconf::param_at(RecordKind::Terminal, i);
        if (keep(p)) rows.push_back(p);
    }
    return rows;
}

bool any(const ParamInfo&) { return true; }
bool is_number(const ParamInfo& p) { return p.kind == ValueKind::Number; }

// A long random sequence of rows, so that the branch predictor cannot
// learn the order.
std::vector<ParamInfo> random_sequence(const std::vector<ParamInfo>& rows, size_t n) {
    std::mt19937 rng(20240611u);
    std::uniform_int_distribution<size_t> pick(0, rows.size() - 1);
    std::vector<ParamInfo> seq(n);
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
    const std::vector<ParamInfo> rows = rows_where(plain_only ? is_plain : any);
    std::vector<ParamInfo> order = rows;
    std::shuffle(order.begin(), order.end(), std::mt19937(7u));
    Fixture f;
    QuietStdout quiet;
    size_t i = 0;
    for (auto _ : state) {
        const ParamInfo& p = order[i];
        benchmark::DoNotOptimize(CMN_SetParam(&f.rec, p.id, f.wire(), p.set_len));
        benchmark::DoNotOptimize(CMN_GetParam(&f.rec, p.id, f.out(), 512));
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

// The reference: a direct index of every 16-bit ID (row + 1, 0 for none),
// 64 KiB per record kind, then the same rules as the catalogue runs.
struct DirectIndex {
    std::vector<uint8_t> row_of = std::vector<uint8_t>(0x10000, 0);
    DirectIndex() {
        const bbconf::Dictionary& dict = bbconf::terminal_dictionary();
        for (int i = 0; i < dict.count; i++) row_of[dict.rows[i].id] = static_cast<uint8_t>(i + 1);
    }
    const bbconf::ParamDef* find(int id) const {
        const int r = id >= 0 && id <= 0xffff ? row_of[static_cast<size_t>(id)] : 0;
        return r != 0 ? &bbconf::terminal_dictionary().rows[r - 1] : nullptr;
    }
};

const DirectIndex& direct_index() {
    static const DirectIndex index;
    return index;
}

// The argument checks of CMN_GetParam / CMN_SetParam, then the direct index.
int direct_get(tagBB_CONF_ST* rec, int id, unsigned char* buf, int buflen) {
    if (id == 0 || id == BB_PARAM_ID_RESERVED || buf == nullptr || rec == nullptr) return -1;
    const bbconf::ParamDef* d = direct_index().find(id);
    if (d == nullptr) return -1;
    return bbconf::get_value(*d, bbconf::DictCall{"CMN_GetParam", bbconf::bytes_of(rec), sizeof *rec}, buf, buflen);
}

int direct_set(tagBB_CONF_ST* rec, int id, unsigned char* src, int len) {
    if (id == 0 || id == BB_PARAM_ID_RESERVED || src == nullptr || rec == nullptr) return -1;
    const bbconf::ParamDef* d = direct_index().find(id);
    if (d == nullptr) return len;
    bbconf::set_value(*d, bbconf::DictCall{"CMN_SetParam", bbconf::bytes_of(rec), sizeof *rec}, src, len);
    return len;
}

const std::vector<ParamInfo>& number_sequence() {
    static const std::vector<ParamInfo> seq = random_sequence(rows_where(is_number), 1 << 16);
    return seq;
}

using GetFn = int (*)(tagBB_CONF_ST*, int, unsigned char*, int);
using SetFn = int (*)(tagBB_CONF_ST*, int, unsigned char*, int);

unsigned run_get(GetFn get, Fixture& f, const std::vector<ParamInfo>& seq) {
    unsigned sum = 0;
    for (const ParamInfo& p : seq) sum += static_cast<unsigned>(get(&f.rec, p.id, f.out(), 512));
    return sum;
}

unsigned run_set(SetFn set, Fixture& f, const std::vector<ParamInfo>& seq) {
    unsigned sum = 0;
    for (const ParamInfo& p : seq) sum += static_cast<unsigned>(set(&f.rec, p.id, f.wire(), p.set_len));
    return sum;
}

void BM_GetNumberIds(benchmark::State& state) {
    Fixture f;
    const auto& seq = number_sequence();
    for (auto _ : state) benchmark::DoNotOptimize(run_get(CMN_GetParam, f, seq));
    state.counters["ns_per_call"] = benchmark::Counter(static_cast<double>(state.iterations() * seq.size()),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_GetNumberIds);

void BM_DirectIndexGetNumberIds(benchmark::State& state) {
    Fixture f;
    const auto& seq = number_sequence();
    for (auto _ : state) benchmark::DoNotOptimize(run_get(direct_get, f, seq));
    state.counters["ns_per_call"] = benchmark::Counter(static_cast<double>(state.iterations() * seq.size()),
                                                       benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_DirectIndexGetNumberIds);

double thread_cpu_ns() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// Best CPU nanoseconds per call of each side over many rounds (CPU time,
// so that other load on the machine counts less).  The rounds alternate the
// sides, so all see the same clock and caches, and start after a second of
// the same work: a processor coming out of idle runs slower.
struct PerCall {
    double get = 1e18, direct_get = 1e18, set = 1e18, direct_set = 1e18;
};

PerCall best_per_call(Fixture& f, const std::vector<ParamInfo>& seq) {
    constexpr double kWarmUpNs = 1e9;
    constexpr int kRounds = 40;
    const double n = static_cast<double>(seq.size());
    PerCall best;
    const double start = thread_cpu_ns();
    for (int round = 0; round < kRounds;) {
        double t[5];
        t[0] = thread_cpu_ns();
        benchmark::DoNotOptimize(run_get(CMN_GetParam, f, seq));
        t[1] = thread_cpu_ns();
        benchmark::DoNotOptimize(run_get(direct_get, f, seq));
        t[2] = thread_cpu_ns();
        benchmark::DoNotOptimize(run_set(CMN_SetParam, f, seq));
        t[3] = thread_cpu_ns();
        benchmark::DoNotOptimize(run_set(direct_set, f, seq));
        t[4] = thread_cpu_ns();
        if (t[0] - start >= kWarmUpNs) {
            best.get = std::min(best.get, (t[1] - t[0]) / n);
            best.direct_get = std::min(best.direct_get, (t[2] - t[1]) / n);
            best.set = std::min(best.set, (t[3] - t[2]) / n);
            best.direct_set = std::min(best.direct_set, (t[4] - t[3]) / n);
            round++;
        }
    }
    return best;
}

// Bytes the catalogue's search keeps beside the rows: the key array.
size_t search_bytes(const bbconf::Dictionary& d) { return static_cast<size_t>(d.count) * sizeof(uint16_t); }

}  // namespace

int main(int argc, char** argv) {
    Fixture f;
    const auto& seq = number_sequence();
    if (run_get(CMN_GetParam, f, seq) != run_get(direct_get, f, seq)) {
        std::fprintf(stderr, "the direct index and CMN_GetParam disagree\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    const PerCall t = best_per_call(f, seq);
    std::printf("%zu number IDs, random order, ns per call:\n", rows_where(is_number).size());
    std::printf("  get: CMN_GetParam %.1f, direct 64K index %.1f -> %.2fx\n", t.get, t.direct_get,
                t.get / t.direct_get);
    std::printf("  set: CMN_SetParam %.1f, direct 64K index %.1f -> %.2fx\n", t.set, t.direct_set,
                t.set / t.direct_set);
    std::printf("search index: %zu bytes (terminal) + %zu bytes (taxi); the direct index: %zu bytes per kind\n",
                search_bytes(bbconf::terminal_dictionary()), search_bytes(bbconf::taxi_dictionary()),
                direct_index().row_of.size());
    if (t.get / t.direct_get > 4.0 || t.set / t.direct_set > 4.0) {
        std::printf("FAIL: CMN_GetParam / CMN_SetParam must stay within 4x of a direct index\n");
        return 1;
    }
    return 0;
}
