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
 * one; bytes no row names are left as they are.
 *
 * A table is only read while compiling: the code that writes it passes
 * packed_defaults<kMine>, the same rows with their texts and patterns kept
 * in the table's own characters, so the table needs no relocation. */
#ifndef BBCONF_CONF_FIELD_DEFAULTS_H
#define BBCONF_CONF_FIELD_DEFAULTS_H

#include <stddef.h>
#include <stdint.h>

#include "common/byteorder.h"
#include "common/log.h"
#include "common/strcopy.h"
#include "conf/packed_text.h"

namespace bbconf {

enum class Fill : unsigned char {
    Number, /* value in width (1, 2 or 4) bytes */
    Text,   /* text, at most width - 1 characters and a terminator */
    Bytes,  /* the pattern's bytes repeated over width bytes */
};

struct FieldDefault {
    uint16_t offset;
    uint16_t width;
    Fill kind;
    uint32_t value;      /* Number */
    const char* text;    /* Text: the string; Bytes: the pattern */
    uint8_t pattern_len; /* Bytes: at most 255 */
};

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

/* --- The packed form --------------------------------------------------- */

struct PackedDefault {
    uint16_t offset;
    uint16_t width;
    Fill kind;
    uint8_t pattern_len;
    uint16_t text; /* offset among the table's characters */
    uint32_t value;
};
static_assert(sizeof(PackedDefault) == 12, "a packed row is 12 bytes");

/* N rows (a table has at least one) and T characters (at least 1). */
template <int N, int T>
struct PackedDefaults {
    PackedDefault rows[N];
    char text[T];
};

namespace pack_detail {

constexpr PackedDefault pack_default(const FieldDefault& d, char* pool, int& used) {
    const uint16_t text = d.kind == Fill::Text    ? intern(pool, used, d.text)
                          : d.kind == Fill::Bytes ? intern_bytes(pool, used, d.text, d.pattern_len)
                                                  : kNoText;
    return PackedDefault{d.offset, d.width, d.kind, d.pattern_len, text, d.value};
}

}  // namespace pack_detail

/* Characters the packed form of t needs. */
constexpr int packed_default_text(const Defaults& t) {
    char pool[kTextScratch]{};
    int used = 0;
    for (int i = 0; i < t.count; i++) {
        pack_detail::pack_default(t.rows[i], pool, used);
    }
    return at_least_one(used);
}

template <int N, int T>
constexpr PackedDefaults<N, T> pack_defaults(const Defaults& t) {
    PackedDefaults<N, T> p{};
    int used = 0;
    for (int i = 0; i < t.count; i++) {
        p.rows[i] = pack_detail::pack_default(t.rows[i], p.text, used);
    }
    return p;
}

/* The packed form of a defaults table: what the code that writes it reads. */
template <const Defaults& D>
constexpr PackedDefaults<D.count, packed_default_text(D)> packed_defaults =
    pack_defaults<D.count, packed_default_text(D)>(D);

inline void put_packed_defaults(unsigned char* base, const PackedDefault* rows, int count, const char* text) {
    for (int i = 0; i < count; i++) {
        const PackedDefault& d = rows[i];
        unsigned char* to = base + d.offset;
        switch (d.kind) {
            case Fill::Number:
                store_ne(to, d.width, d.value);
                break;
            case Fill::Text:
                copy_bounded(reinterpret_cast<char*>(to), text + d.text, d.width);
                break;
            case Fill::Bytes:
                /* The pattern repeats; no division, which 32-bit ARM
                 * would take from libgcc. */
                for (unsigned n = 0, k = 0; n < d.width; n++, k = k + 1 == d.pattern_len ? 0 : k + 1) {
                    to[n] = static_cast<unsigned char>(text[d.text + k]);
                }
                break;
        }
    }
}

/* Writes the rows of t, in order, into the record at base. */
template <int N, int T>
inline void put_field_defaults(unsigned char* base, const PackedDefaults<N, T>& t) {
    put_packed_defaults(base, t.rows, N, t.text);
}

/* The common shape of a block initialiser: on a null record the assertion
 * line (its printf result is returned); otherwise the defaults and the
 * closing "War" line, whose printf result is returned. */
template <typename R, int N, int T>
inline int init_block(const char* fn, const char* null_text, R* rec, const PackedDefaults<N, T>& t,
                      const char* done = "Param Inited!\n") {
    if (rec == nullptr) {
        return BB_ASSERT_LINE_FN(fn, null_text);
    }
    put_field_defaults(reinterpret_cast<unsigned char*>(rec), t);
    return BB_WAR_FN(fn, "%s", done);
}

}  // namespace bbconf

/* Row builders (member designators need offsetof, hence macros). */
#define BB_NUM(T, m, v) \
    bbconf::FieldDefault { static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Number, (v), nullptr, 0 }
#define BB_ITEM(T, a, i, v)                                                                                \
    bbconf::FieldDefault {                                                                                 \
        static_cast<uint16_t>(offsetof(T, a) + (i) * sizeof(T::a[0])), sizeof(T::a[0]), bbconf::Fill::Number, \
            (v), nullptr, 0                                                                                \
    }
#define BB_TEXT(T, m, s) \
    bbconf::FieldDefault { static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Text, 0, (s), 0 }
#define BB_BYTES(T, m, p)                                                                               \
    bbconf::FieldDefault {                                                                              \
        static_cast<uint16_t>(offsetof(T, m)), sizeof(T::m), bbconf::Fill::Bytes, 0, (p), sizeof(p) - 1 \
    }
#define BB_RUN(T, a, first, n, p)                                                                             \
    bbconf::FieldDefault {                                                                                    \
        static_cast<uint16_t>(offsetof(T, a) + (first) * sizeof(T::a[0])),                                    \
            static_cast<uint16_t>((n) * sizeof(T::a[0])), bbconf::Fill::Bytes, 0, (p), sizeof(p) - 1          \
    }
#define BB_SPAN(T, first, last, p)                                                                            \
    bbconf::FieldDefault {                                                                                    \
        static_cast<uint16_t>(offsetof(T, first)),                                                            \
            static_cast<uint16_t>(offsetof(T, last) + sizeof(T::last) - offsetof(T, first)), bbconf::Fill::Bytes, \
            0, (p), sizeof(p) - 1                                                                             \
    }

#endif
