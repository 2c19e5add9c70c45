/* byteorder.h - loads and stores of unaligned integers in wire (big-endian)
 * and record (native little-endian) order.  Every multi-byte access of the
 * library goes through these; no code casts an unaligned pointer. */
#ifndef BBCONF_COMMON_BYTEORDER_H
#define BBCONF_COMMON_BYTEORDER_H

#include <stdint.h>
#include <string.h>

namespace bbconf {

inline uint16_t load_be16(const unsigned char* p) {
    return static_cast<uint16_t>((p[0] << 8) | p[1]);
}

inline uint32_t load_be32(const unsigned char* p) {
    return (static_cast<uint32_t>(p[0]) << 24) | (static_cast<uint32_t>(p[1]) << 16) |
           (static_cast<uint32_t>(p[2]) << 8) | static_cast<uint32_t>(p[3]);
}

inline void store_be16(unsigned char* p, uint16_t v) {
    p[0] = static_cast<unsigned char>(v >> 8);
    p[1] = static_cast<unsigned char>(v);
}

inline void store_be32(unsigned char* p, uint32_t v) {
    p[0] = static_cast<unsigned char>(v >> 24);
    p[1] = static_cast<unsigned char>(v >> 16);
    p[2] = static_cast<unsigned char>(v >> 8);
    p[3] = static_cast<unsigned char>(v);
}

/* Record order is the host's, which the public header pins to little-endian. */
inline uint16_t load_ne16(const unsigned char* p) {
    uint16_t v;
    memcpy(&v, p, sizeof v);
    return v;
}

inline uint32_t load_ne32(const unsigned char* p) {
    uint32_t v;
    memcpy(&v, p, sizeof v);
    return v;
}

inline void store_ne16(unsigned char* p, uint16_t v) { memcpy(p, &v, sizeof v); }
inline void store_ne32(unsigned char* p, uint32_t v) { memcpy(p, &v, sizeof v); }

/* Width-generic forms (1, 2 or 4 bytes) for the table-driven walks. */
inline uint32_t load_be(const unsigned char* p, unsigned width) {
    return width == 4 ? load_be32(p) : width == 2 ? load_be16(p) : p[0];
}

inline uint32_t load_ne(const unsigned char* p, unsigned width) {
    return width == 4 ? load_ne32(p) : width == 2 ? load_ne16(p) : p[0];
}

inline void store_be(unsigned char* p, unsigned width, uint32_t v) {
    if (width == 4) {
        store_be32(p, v);
    } else if (width == 2) {
        store_be16(p, static_cast<uint16_t>(v));
    } else {
        p[0] = static_cast<unsigned char>(v);
    }
}

inline void store_ne(unsigned char* p, unsigned width, uint32_t v) {
    if (width == 4) {
        store_ne32(p, v);
    } else if (width == 2) {
        store_ne16(p, static_cast<uint16_t>(v));
    } else {
        p[0] = static_cast<unsigned char>(v);
    }
}

/* Converts a number of width 1, 2 or 4 bytes between wire and record order
 * (on the little-endian host, a reversal of its bytes).  The width is not
 * branched on: the four copies clamp their index to the last byte, so the
 * narrow widths rewrite that byte instead of running past it.  Table
 * walks that mix widths in unpredictable order run without stalls. */
inline void reverse_number(unsigned char* dst, const unsigned char* src, unsigned width) {
    const unsigned last = width - 1;
    for (unsigned j = 0; j < 4; j++) {
        const unsigned i = j < last ? j : last;
        dst[i] = src[last - i];
    }
}

/* The all-ones value of a field: the platform's "keep unchanged" marker. */
constexpr uint32_t all_ones(unsigned width) {
    return width >= 4 ? 0xffffffffu : (1u << (8 * width)) - 1u;
}

/* Byte view of a packed record. */
template <typename T>
inline unsigned char* bytes_of(T* rec) {
    return reinterpret_cast<unsigned char*>(rec);
}

}  // namespace bbconf

#endif
