// no_heap_test.cpp - no library call allocates.  The workloads of
// api_tour.h, which call every exported function on its normal paths and on
// the failing paths that print diagnostic lines, run under an allocation
// counter.
//
// The counter: in a plain build this test program defines malloc, calloc,
// realloc, free, aligned_alloc and posix_memalign itself, forwarding to
// glibc's __libc_* entry points, so every allocation of the process
// (operator new, stdio, the library) passes through here.  Under
// AddressSanitizer or ThreadSanitizer the sanitizer owns malloc; the counter
// is then a malloc hook of the sanitizer runtime instead.
#include <gtest/gtest.h>

#include <stddef.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include "api_tour.h"
#include "quiet_stdout.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define BBTEST_SANITIZER_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define BBTEST_SANITIZER_ALLOCATOR 1
#endif
#endif

namespace {

std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};

inline void note_allocation() {
    if (g_counting.load(std::memory_order_relaxed)) g_allocations.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace

#ifdef BBTEST_SANITIZER_ALLOCATOR

extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc_hook)(const volatile void*, size_t),
                                                         void (*free_hook)(const volatile void*));

namespace {
bool counter_ready() {
    static const bool installed =
        __sanitizer_install_malloc_and_free_hooks([](const volatile void*, size_t) { note_allocation(); },
                                                  [](const volatile void*) {}) != 0;
    return installed;
}
}  // namespace

#else

extern "C" {
void* __libc_malloc(size_t size) noexcept;
void* __libc_calloc(size_t count, size_t size) noexcept;
void* __libc_realloc(void* ptr, size_t size) noexcept;
void* __libc_memalign(size_t alignment, size_t size) noexcept;
void __libc_free(void* ptr) noexcept;

void* malloc(size_t size) noexcept {
    note_allocation();
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size) noexcept {
    note_allocation();
    return __libc_calloc(count, size);
}
void* realloc(void* ptr, size_t size) noexcept {
    note_allocation();
    return __libc_realloc(ptr, size);
}
void* aligned_alloc(size_t alignment, size_t size) noexcept {
    note_allocation();
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
    note_allocation();
    if (alignment < sizeof(void*) || (alignment & (alignment - 1)) != 0) return 22;  // EINVAL
    void* p = __libc_memalign(alignment, size);
    if (p != nullptr) *out = p;
    return p != nullptr ? 0 : 12;  // ENOMEM
}
void free(void* ptr) noexcept { __libc_free(ptr); }
}

namespace {
bool counter_ready() { return true; }
}  // namespace

#endif

namespace {

template <typename F>
long allocations_in(F&& f) {
    g_allocations.store(0);
    g_counting.store(true);
    f();
    g_counting.store(false);
    return g_allocations.load();
}

TEST(NoHeap, NoApiCallAllocates) {
    ASSERT_TRUE(counter_ready());
    // The counter sees allocations made inside libc: fopen allocates its FILE.
    ASSERT_GE(allocations_in([] {
                  FILE* f = std::fopen("/dev/null", "r");
                  if (f != nullptr) std::fclose(f);
              }),
              1);
    bbtest::QuietStdout quiet;
    // stdio allocates its buffer on first use, which is not the library's doing.
    std::printf("stdout in use: %d %s %#x\n", 1, "x", 2u);
    std::fflush(stdout);
    for (size_t w = 0; w < bbtest::kWorkloadCount; w++) {
        bbtest::Digest d;
        EXPECT_EQ(allocations_in([&] { bbtest::kWorkloads[w].run(1, d); }), 0) << bbtest::kWorkloads[w].name;
    }
}

}  // namespace
