// fuzz_support.h - shared pieces of the fuzz targets: a reader over the
// fuzzer's bytes, exact-size heap buffers (so AddressSanitizer sees every
// byte written or read past what the caller gave), and the caller
// obligations of the dictionary as the public header documents them.
#ifndef BBCONF_FUZZ_SUPPORT_H
#define BBCONF_FUZZ_SUPPORT_H

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace bbfuzz {

class Reader {
  public:
    Reader(const uint8_t* data, size_t size) : p_(data), end_(data + size) {}
    bool empty() const { return p_ >= end_; }
    uint8_t u8() { return p_ < end_ ? *p_++ : 0; }
    uint16_t u16() { return static_cast<uint16_t>(u8() << 8 | u8()); }
    // Up to n bytes (fewer at the end of the input), zero-padded to n.
    std::vector<uint8_t> bytes(size_t n) {
        std::vector<uint8_t> out(n, 0);
        for (size_t i = 0; i < n && p_ < end_; i++) out[i] = *p_++;
        return out;
    }

  private:
    const uint8_t* p_;
    const uint8_t* end_;
};

// A buffer of exactly `size` usable bytes that starts `before` bytes into
// its allocation (for codecs that log the bytes in front of the wire).
class ExactBuffer {
  public:
    ExactBuffer(size_t before, size_t size, const std::vector<uint8_t>& fill)
        : mem_(static_cast<uint8_t*>(std::malloc(before + size + 1))), before_(before) {
        std::memset(mem_, 0xa5, before + size + 1);
        for (size_t i = 0; i < size && i < fill.size(); i++) mem_[before + i] = fill[i];
    }
    ~ExactBuffer() { std::free(mem_); }
    ExactBuffer(const ExactBuffer&) = delete;
    ExactBuffer& operator=(const ExactBuffer&) = delete;
    uint8_t* data() { return mem_ + before_; }

  private:
    uint8_t* mem_;
    size_t before_;
};

// The library reports on standard output; a fuzz run does not need it.
inline void silence_stdout() {
    static bool done = false;
    if (!done) {
        done = std::freopen("/dev/null", "w", stdout) != nullptr;
    }
}

}  // namespace bbfuzz

#endif
