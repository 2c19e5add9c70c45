// message_bench.cpp - the parameter message layer beside the bare calls it
// makes: applying a 100-item 0x8103 list against 100 CMN_SetParam calls
// with the same items, and answering "query all" (0x8104) on the default
// record against one CMN_GetParam per answered ID.  Prints the ratios after
// the runs and fails when the layer adds more than half.
//
// The library reports on standard output; while the timed work runs, the
// process's standard output is sent to /dev/null and restored after it.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "bbconf.h"
#include "bbconf_message.h"
#include "quiet_stdout.h"

namespace {

using bbtest::QuietStdout;
constexpr int kItems = 100;
constexpr int kValueBuf = 256;

struct Fixture {
    tagBB_CONF_ST defaults{};
    tagBB_CONF_ST rec{};
    std::vector<unsigned char> list;    // the 0x8103 list
    std::vector<size_t> value_at;       // offset of each item's value in the list
    std::vector<uint16_t> answer_ids;   // the IDs a query of all answers
    std::vector<unsigned char> answer;  // room for the 0x0104 body

    Fixture() {
        QuietStdout q;
        CMN_InitBbConfToDefault(&defaults);
        rec = defaults;
        // Settable numbers, texts and raw values in ID order, each with its
        // factory value, repeated until there are 100.
        std::vector<bbconf::ParamInfo> rows;
        for (int i = 0; i < bbconf::param_count(bbconf::RecordKind::Terminal); i++) {
            const bbconf::ParamInfo p = bbconf::param_at(bbconf::RecordKind::Terminal, i);
            if (p.settable && p.readable &&
                (p.kind == bbconf::ValueKind::Number || p.kind == bbconf::ValueKind::Text ||
                 p.kind == bbconf::ValueKind::Raw)) {
                rows.push_back(p);
            }
        }
        list.push_back(kItems);
        for (int n = 0; n < kItems; n++) {
            const bbconf::ParamInfo& p = rows[static_cast<size_t>(n) % rows.size()];
            const uint16_t id = p.id;
            unsigned char v[kValueBuf];
            const int got = CMN_GetParam(&defaults, id, v, kValueBuf);
            // A number takes its set width (0x0081 / 0x0082 answer 4 for their WORD).
            const int len = p.kind == bbconf::ValueKind::Number ? p.set_len : got;
            const unsigned char head[] = {0, 0, static_cast<unsigned char>(id >> 8), static_cast<unsigned char>(id),
                                          static_cast<unsigned char>(len)};
            list.insert(list.end(), head, head + 5);
            value_at.push_back(list.size());
            list.insert(list.end(), v, v + len);
        }
        const bbconf::AnswerReport size = bbconf::answer_size(&rec, nullptr, 0, nullptr, 0);
        answer.resize(size.size);
        bbconf::build_answer(&rec, 0, nullptr, 0, answer.data(), answer.size(), nullptr, 0);
        size_t pos = 0;
        bbconf::ListItem item;
        while (bbconf::next_item(answer.data() + 2, answer.size() - 2, &pos, &item)) {
            answer_ids.push_back(static_cast<uint16_t>(item.id));
        }
    }
};

int apply_layer(Fixture& f) { return bbconf::apply_list(&f.rec, f.list.data(), f.list.size(), nullptr, 0).stored; }

int apply_bare(Fixture& f) {
    int sum = 0;
    for (int n = 0; n < kItems; n++) {
        unsigned char* item = f.list.data() + f.value_at[static_cast<size_t>(n)] - 5;
        sum += CMN_SetParam(&f.rec, item[2] << 8 | item[3], item + 5, item[4]);
    }
    return sum;
}

// The catalogue's checked set alone, for where the layer's time goes.
int apply_checked(Fixture& f) {
    int sum = 0;
    for (int n = 0; n < kItems; n++) {
        unsigned char* item = f.list.data() + f.value_at[static_cast<size_t>(n)] - 5;
        sum += static_cast<int>(
            bbconf::set_param(&f.rec, static_cast<uint32_t>(item[2] << 8 | item[3]), item + 5, item[4]));
    }
    return sum;
}

int answer_layer(Fixture& f) {
    return static_cast<int>(
        bbconf::build_answer(&f.rec, 0, nullptr, 0, f.answer.data(), f.answer.size(), nullptr, 0).size);
}

int answer_size_then_build(Fixture& f) {
    return static_cast<int>(bbconf::answer_size(&f.rec, nullptr, 0, nullptr, 0).size) + answer_layer(f);
}

int answer_bare(Fixture& f) {
    unsigned char buf[kValueBuf];
    int sum = 0;
    for (uint16_t id : f.answer_ids) sum += CMN_GetParam(&f.rec, id, buf, kValueBuf);
    return sum;
}

Fixture& fixture() {
    static Fixture f;
    return f;
}

template <int (*Work)(Fixture&)>
void BM_Run(benchmark::State& state) {
    Fixture& f = fixture();
    QuietStdout q;
    for (auto _ : state) benchmark::DoNotOptimize(Work(f));
}
BENCHMARK(BM_Run<apply_layer>)->Name("apply_100_items/layer");
BENCHMARK(BM_Run<apply_bare>)->Name("apply_100_items/CMN_SetParam");
BENCHMARK(BM_Run<apply_checked>)->Name("apply_100_items/set_param");
BENCHMARK(BM_Run<answer_layer>)->Name("answer_query_all/layer");
BENCHMARK(BM_Run<answer_size_then_build>)->Name("answer_query_all/size_then_layer");
BENCHMARK(BM_Run<answer_bare>)->Name("answer_query_all/CMN_GetParam");

double thread_cpu_ns() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// Best CPU time of each side over alternating rounds, after half a second
// of warm-up, so that both sides see the same clock and caches.
double best_ratio(int (*layer)(Fixture&), int (*bare)(Fixture&)) {
    constexpr double kWarmUpNs = 5e8;
    constexpr int kRounds = 200;
    Fixture& f = fixture();
    QuietStdout q;
    double best_layer = 1e18, best_bare = 1e18;
    const double start = thread_cpu_ns();
    for (int round = 0; round < kRounds;) {
        const double t0 = thread_cpu_ns();
        benchmark::DoNotOptimize(layer(f));
        const double t1 = thread_cpu_ns();
        benchmark::DoNotOptimize(bare(f));
        const double t2 = thread_cpu_ns();
        if (t0 - start >= kWarmUpNs) {
            best_layer = std::min(best_layer, t1 - t0);
            best_bare = std::min(best_bare, t2 - t1);
            round++;
        }
    }
    return best_layer / best_bare;
}

}  // namespace

int main(int argc, char** argv) {
    Fixture& f = fixture();
    {
        QuietStdout q;
        if (apply_layer(f) != kItems) {
            std::fprintf(stderr, "the 100-item list did not store every item\n");
            return 1;
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    const double apply = best_ratio(apply_layer, apply_bare);
    const double checked = best_ratio(apply_checked, apply_bare);
    const double answer = best_ratio(answer_layer, answer_bare);
    const double sized = best_ratio(answer_size_then_build, answer_bare);
    std::printf(
        "apply of a %d-item 0x8103 list: %.2fx the bare CMN_SetParam calls (the catalogue's set_param "
        "alone: %.2fx)\n",
        kItems, apply, checked);
    std::printf(
        "answer to query all (%zu items, %zu bytes): %.2fx the bare CMN_GetParam calls "
        "(%.2fx with answer_size first)\n",
        f.answer_ids.size(), f.answer.size(), answer, sized);
    if (apply > 1.5 || answer > 1.5) {
        std::printf("FAIL: the message layer may add at most 50%% to the calls it makes\n");
        return 1;
    }
    return 0;
}
