// api_tour.h - workloads that together call every exported function, on its
// normal paths and on the failing paths that print diagnostic lines, with
// inputs drawn from a seed.  The concurrency test runs them from several
// threads at once, the no-heap test under an allocation counter.
//
// What a workload produced (return values, buffers, records) is folded into
// a Digest, which allocates nothing.
#ifndef BBCONF_TESTS_API_TOUR_H
#define BBCONF_TESTS_API_TOUR_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace bbtest {

// FNV-1a over every byte a workload reported, and their count.
class Digest {
  public:
    void bytes(const void* p, size_t n) {
        const auto* b = static_cast<const unsigned char*>(p);
        for (size_t i = 0; i < n; i++) hash_ = (hash_ ^ b[i]) * 0x100000001b3ull;
        count_ += n;
    }
    void value(long long v) { bytes(&v, sizeof v); }
    // A braced list evaluates in order, so the calls in it run in order.
    void values(std::initializer_list<long long> vs) {
        for (long long v : vs) value(v);
    }
    template <typename T>
    void record(const T& rec) {
        bytes(&rec, sizeof rec);
    }
    bool operator!=(const Digest& o) const { return hash_ != o.hash_ || count_ != o.count_; }

  private:
    uint64_t hash_ = 0xcbf29ce484222325ull;
    size_t count_ = 0;
};

struct Workload {
    const char* name;
    void (*run)(unsigned seed, Digest& d);
};

extern const Workload kWorkloads[];
extern const size_t kWorkloadCount;

}  // namespace bbtest

#endif
