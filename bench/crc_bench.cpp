// crc_bench.cpp - the record checksum's CRC against a bit-by-bit reference
// and, where the Boost headers are installed, against boost::crc_optimal.
// Prints the speed-up of the library over each after the runs.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bbconf.h"

#if defined(BBCONF_HAVE_BOOST_CRC)
#include <boost/crc.hpp>
#endif

namespace {

// The bitwise definition: eight rounds a byte, no table.
unsigned short reference_crc(unsigned short crc, const unsigned char* p, size_t n) {
    for (size_t i = 0; i < n; i++) {
        unsigned index = (p[i] ^ (crc >> 8)) & 0xffu;
        unsigned short t = 0;
        for (int b = 0; b < 8; b++) {
            t = static_cast<unsigned short>((t & 0x8000u) ? ((t << 1) ^ 0x1021u) : (t << 1));
            if (index & 0x80u) t ^= 0x1021u;
            index = (index << 1) & 0xffu;
        }
        crc = static_cast<unsigned short>((crc << 8) ^ t);
    }
    return crc;
}

std::vector<unsigned char> record_bytes() {
    std::vector<unsigned char> rec(BB_CONF_LEN);
    unsigned seed = 12345;
    for (auto& b : rec) {
        seed = seed * 1103515245u + 12345u;
        b = static_cast<unsigned char>(seed >> 16);
    }
    return rec;
}

const std::vector<unsigned char> kRecord = record_bytes();

void BM_Library(benchmark::State& state) {
    std::vector<unsigned char> rec = kRecord;
    for (auto _ : state) {
        benchmark::DoNotOptimize(CMN_Get_CRC_CCITT(0xabcd, rec.data(), BB_CONF_LEN));
    }
}
BENCHMARK(BM_Library);

void BM_Bitwise(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(reference_crc(0xabcd, kRecord.data(), BB_CONF_LEN));
    }
}
BENCHMARK(BM_Bitwise);

#if defined(BBCONF_HAVE_BOOST_CRC)
unsigned short boost_crc(const unsigned char* p, size_t n) {
    boost::crc_optimal<16, 0x1021, 0xabcd, 0, false, false> crc;
    crc.process_bytes(p, n);
    return static_cast<unsigned short>(crc.checksum());
}

void BM_Boost(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(boost_crc(kRecord.data(), BB_CONF_LEN));
    }
}
BENCHMARK(BM_Boost);
#endif

// Nanoseconds per record of f, best of several timed batches.
template <typename F>
double ns_per_record(F f) {
    // Inputs escape once so that the compiler must assume every call reads them anew.
    benchmark::DoNotOptimize(kRecord.data());
    double best = 1e18;
    for (int round = 0; round < 7; round++) {
        const int iters = 2000;
        auto t0 = std::chrono::steady_clock::now();
        unsigned sink = 0;
        for (int i = 0; i < iters; i++) {
            benchmark::ClobberMemory();  // the record may have changed: no hoisting
            sink += f();
        }
        auto t1 = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(sink);
        double ns = std::chrono::duration<double, std::nano>(t1 - t0).count() / iters;
        if (ns < best) best = ns;
    }
    return best;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<unsigned char> rec = kRecord;
    if (CMN_Get_CRC_CCITT(0xabcd, rec.data(), BB_CONF_LEN) != reference_crc(0xabcd, rec.data(), BB_CONF_LEN)) {
        std::fprintf(stderr, "library CRC differs from the reference\n");
        return 1;
    }
    benchmark::DoNotOptimize(rec.data());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    double lib = ns_per_record([&] { return CMN_Get_CRC_CCITT(0xabcd, rec.data(), BB_CONF_LEN); });
    double bit = ns_per_record([&] { return reference_crc(0xabcd, rec.data(), BB_CONF_LEN); });
    std::printf("CRC over %d bytes: library %.0f ns, bitwise %.0f ns -> library is %.1fx faster than bitwise\n",
                BB_CONF_LEN, lib, bit, bit / lib);
#if defined(BBCONF_HAVE_BOOST_CRC)
    double bst = ns_per_record([&] { return boost_crc(rec.data(), BB_CONF_LEN); });
    std::printf("CRC over %d bytes: boost::crc_optimal %.0f ns -> library is %.1fx faster than Boost\n",
                BB_CONF_LEN, bst, bst / lib);
    if (bst / lib < 4.0) {
        std::printf("FAIL: the library must be at least 4x faster than Boost\n");
        return 1;
    }
#else
    std::printf("Boost headers not installed (libboost-dev): Boost comparison skipped\n");
#endif
    return 0;
}
