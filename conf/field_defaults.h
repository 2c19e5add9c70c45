/* field_defaults.h - factory values written by member name: the one
 * notation of the terminal reset, the profiles, the taxi reset and every
 * block initialiser.
 *
 * A row names a member of the record (or a run of elements of an array
 * member) and what goes into it:
 *   BB_NUM(T, member, value)            a number of 1, 2 or 4 bytes, native order
 *   BB_ITEM(T, array, i, value)         the same for element i of an array member
 *   BB_TEXT(T, member, "text")          a string, cut to fit and terminated
 *   BB_BYTES(T, member, "\x05\x03\x02") a byte pattern repeated over the member
 *   BB_RUN(T, array, first, n, pattern) the pattern over n elements from `first`
 *   BB_SPAN(T, first, last, pattern)    the pattern over the members first..last
 * Rows are written in table order, so a later row may overwrite an earlier
 * one; bytes no row names are left as they are.  A row holds its text or
 * pattern itself (at most kDefaultChars bytes with the terminator), so a
 * table of rows holds no pointer and needs no relocation. */
#ifndef BBCONF_CONF_FIELD_DEFAULTS_H
#define BBCONF_CONF_FIELD_DEFAULTS_H

#include <stddef.h>
#include <stdint.h>

#include "common/byteorder.h"
#include "common/log.h"
#include "common/strcopy.h"

namespace bbconf {

enum class Fill : unsigned char {
    Number, /* value in width (1, 2 or 4) bytes */
    Text,   /* text, at most width - 1 characters and a terminator */
    Bytes,  /* the pattern's bytes repeated over width bytes */
};

/* The longest text or pattern of a row, its terminator included: room for
 * the RS485 inquiry's 20 bytes, and a row of 32 bytes. */
constexpr size_t kDefaultChars = 22;

struct DefaultChars {
    char c[kDefaultChars];
};

/* The characters of a literal (or a constant array) for a row. */
template <size_t N>
constexpr DefaultChars chars_of(const char (&s)[N]) {
    static_assert(N <= kDefaultChars, "a default's text or pattern fits inside its row");
    DefaultChars d{};
    for (size_t i = 0; i < N; i++) {
        d.c[i] = s[i];
    }
    return d;
}

struct FieldDefault {
    uint16_t offset;
    uint16_t width;
    Fill kind;
    uint8_t pattern_len; /* Bytes */
    DefaultChars text;   /* Text: the string; Bytes: the pattern */
    uint32_t value;      /* Number */
};
static_assert(sizeof(FieldDefault) == 32, "a row is 32 bytes");

/* A table of rows made from a constant array. */
struct Defaults {
    const FieldDefault* rows;
    int count;
};

template <size_t N>
constexpr Defaults defaults_of(const FieldDefault (&r)[N]) {
    return Defaults{r, static_cast<int>(N)};
}

/* Every row lies inside `room` bytes; a number is 1, 2 or 4 bytes wide and
 * its value fits that width; a pattern is not empty. */
constexpr bool defaults_fit(const Defaults& t, size_t room) {
    for (int i = 0; i < t.count; i++) {
        const FieldDefault& d = t.rows[i];
        if (d.offset + d.width > room) {
            return false;
        }
        if (d.kind == Fill::Number && ((d.width != 1 && d.width != 2 && d.width != 4) || d.value > all_ones(d.width))) {
            return false;
        }
        if (d.kind == Fill::Bytes && d.pattern_len == 0) {
            return false;
        }
    }
    return true;
}

/* The end of the furthest row. */
constexpr int defaults_extent(const Defaults& t) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        int e = t.rows[i].offset + t.rows[i].width;
        end = e > end ? e : end;
    }
    return end;
}

inline void put_field_defaults(unsigned char* base, const Defaults& t) {
    for (int i = 0; i < t.count; i++) {
        const FieldDefault& d = t.rows[i];
        unsigned char* to = base + d.offset;
        switch (d.kind) {
            case Fill::Number:
                store_ne(to, d.width, d.value);
                break;
            case Fill::Text:
                copy_bounded(reinterpret_cast<char*>(to), d.text.c, d.width);
                break;
            case Fill::Bytes:
                for (unsigned n = 0; n < d.width; n++) {
                    to[n] = static_cast<unsigned char>(d.text.c[n % d.pattern_len]);
                }
                break;
        }
    }
}

/* The common shape of a block initialiser: on a null record the assertion
 * line (its printf result is returned); otherwise the defaults and the
 * closing "War" line, whose printf result is returned. */
inline int init_block(const char* fn, const char* null_text, unsigned char* rec, const Defaults& t,
                      const char* done = "Param Inited!\n") {
    if (rec == nullptr) {
        return BB_ASSERT_LINE_FN(fn, null_text);
    }
    put_field_defaults(rec, t);
    return BB_WAR_FN(fn, "%s", done);
}

template <typename T>
inline int init_block(const char* fn, const char* null_text, T* rec, const Defaults& t,
                      const char* done = "Param Inited!\n") {
    return init_block(fn, null_text, reinterpret_cast<unsigned char*>(rec), t, done);
}

}  // namespace bbconf

/* Row builders (member designators need offsetof, hence macros). */
#define BB_NUM(T, m, v) \
    bbconf::FieldDefault { static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Number, 0, {}, (v) }
#define BB_ITEM(T, a, i, v)                                                                                          \
    bbconf::FieldDefault {                                                                                           \
        static_cast<uint16_t>(offsetof(T, a) + (i) * sizeof(T::a[0])), sizeof(T::a[0]), bbconf::Fill::Number, 0, {}, \
            (v)                                                                                                      \
    }
#define BB_TEXT(T, m, s)                                                                                   \
    bbconf::FieldDefault {                                                                                 \
        static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Text, 0, bbconf::chars_of(s), 0 \
    }
#define BB_BYTES(T, m, p)                                                                                             \
    bbconf::FieldDefault {                                                                                            \
        static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Bytes, sizeof(p) - 1, bbconf::chars_of(p), \
            0                                                                                                         \
    }
#define BB_RUN(T, a, first, n, p)                                                                                    \
    bbconf::FieldDefault {                                                                                           \
        static_cast<uint16_t>(offsetof(T, a) + (first) * sizeof(T::a[0])),                                           \
            static_cast<uint16_t>((n) * sizeof(T::a[0])), bbconf::Fill::Bytes, sizeof(p) - 1, bbconf::chars_of(p), 0 \
    }
#define BB_SPAN(T, first, last, p)                                                                                \
    bbconf::FieldDefault {                                                                                        \
        static_cast<uint16_t>(offsetof(T, first)),                                                                \
            static_cast<uint16_t>(offsetof(T, last) + sizeof(T::last) - offsetof(T, first)), bbconf::Fill::Bytes, \
            sizeof(p) - 1, bbconf::chars_of(p), 0                                                                 \
    }

#endif
