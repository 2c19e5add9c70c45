/* dict.h - the table-driven parameter dictionary shared by the terminal and
 * the taxi record.
 *
 * A dictionary is one constant array of ParamDef rows sorted by ID.  Each row
 * names the field's offset in the record, a limit (string or raw room, or a
 * block's minimum buffer), a set rule (wire to record) and a get rule
 * (record to wire).  A row without a set rule is get-only: a set of it
 * reports "Not Find" like an unknown ID.  Kinds shared by both records are
 * the set_* / get_* rules below; quirks of single IDs are small named rules
 * next to their table. */
#ifndef BBCONF_CONF_DICT_H
#define BBCONF_CONF_DICT_H

#include <stddef.h>
#include <stdint.h>

namespace bbconf {

struct ParamDef;

/* Context of one dictionary call: the record and the exported function that
 * reports (its name goes into every diagnostic line). */
struct DictCall {
    const char* fn;
    unsigned char* rec;
    unsigned rec_size;
};

using SetRule = void (*)(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
using GetRule = int (*)(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);

/* What a row keeps in the record, for the compile-time check of a table. */
enum class Store : uint8_t {
    Other,  /* blocks and rows with rules of their own */
    Number, /* limit bytes: 1, 2 or 4 */
    Text,   /* at most limit characters and a terminator */
    Raw,    /* at most limit bytes */
};

struct ParamDef {
    int id;
    uint16_t offset;
    uint16_t limit;
    SetRule set;
    GetRule get;
    Store store = Store::Other;
};

/* The search narrows the sorted table by the ID's upper 12 bits: bucket b
 * holds the rows whose IDs lie in [16 b, 16 b + 16) and starts at row
 * first[b].  A bucket has at most 16 rows, so the row of an ID is first[b]
 * plus the number of the 16 keys from there that lie below the ID: keys of
 * later buckets are larger, and the key array is padded with 16 keys of
 * 0xffff.  The count is the same work for every ID, without a branch the
 * processor could mispredict when IDs arrive in random order. */
constexpr int kBucketShift = 4;
constexpr int kBucketSpan = 1 << kBucketShift;
constexpr int kBucketCount = 0x10000 >> kBucketShift;

/* A dictionary: the rows, a parallel array of their IDs and the buckets. */
struct Dictionary {
    const ParamDef* rows;
    const uint16_t* keys;
    const uint8_t* first;
    int count;
};

/* Builds the padded key array of a row table at compile time. */
template <size_t N>
struct KeyArray {
    uint16_t k[N + kBucketSpan];
};

template <size_t N>
constexpr KeyArray<N> make_keys(const ParamDef (&rows)[N]) {
    KeyArray<N> keys{};
    for (size_t i = 0; i < N + kBucketSpan; i++) {
        keys.k[i] = i < N ? static_cast<uint16_t>(rows[i].id) : 0xffff;
    }
    return keys;
}

template <size_t N>
struct BucketArray {
    uint8_t first[kBucketCount];
};

template <size_t N>
constexpr BucketArray<N> make_buckets(const ParamDef (&rows)[N]) {
    static_assert(N < 256, "bucket starts are kept in one byte");
    BucketArray<N> b{};
    size_t row = 0;
    for (int bucket = 0; bucket < kBucketCount; bucket++) {
        while (row < N && rows[row].id < (bucket << kBucketShift)) {
            row++;
        }
        b.first[bucket] = static_cast<uint8_t>(row);
    }
    return b;
}

template <size_t N>
constexpr bool sorted_unique(const ParamDef (&rows)[N]) {
    for (size_t i = 1; i < N; i++) {
        if (rows[i - 1].id >= rows[i].id) {
            return false;
        }
    }
    return rows[0].id > 0 && rows[N - 1].id <= 0xffff;
}

/* The row of an ID; nullptr when the ID is not in the table. */
const ParamDef* find_param(const Dictionary& dict, int id);

/* The dictionary part of a set / get after the caller's argument checks:
 * look the ID up, run its rule, report "Not Find" in the set form
 * ("%x " and return len) or the get form ("%#x" and return -1). */
int dict_set(const Dictionary& dict, const DictCall& c, int id, unsigned char* src, int len);
int dict_get(const Dictionary& dict, const DictCall& c, int id, unsigned char* dst, int buflen);

/* Runs the get rule of a row.  Numbers, most of the IDs, are read here
 * rather than through the rule pointer: an indirect call whose target
 * changes with every ID costs more than the read itself. */
int get_value(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);

/* Field address of a row inside the call's record. */
inline unsigned char* field(const ParamDef& d, const DictCall& c) { return c.rec + d.offset; }

/* --- Set rules ---------------------------------------------------------- */
/* A number of limit (1, 2 or 4) bytes: big-endian on the wire, native in
 * the record; len is not consulted. */
void set_number(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
/* STR(limit): len above limit (unsigned) stores nothing; else at most len
 * characters up to a NUL, terminated. */
void set_str(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
/* RAW(limit): len above limit (unsigned) stores nothing; else len bytes. */
void set_raw(const ParamDef& d, const DictCall& c, unsigned char* src, int len);

/* --- Get rules ---------------------------------------------------------- */
/* A number of limit (1, 2 or 4) bytes, written big-endian; returns limit.
 * buflen is not consulted. */
int get_number(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* Text without terminator: min(strlen, buflen - 1) bytes; -1 for buflen < 1.
 * The text may run on past its field (never past the record). */
int get_str(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* Fixed-size raw value of limit bytes: a short buffer gets the size back
 * and nothing written. */
int get_raw_fixed(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* No value: answers -1 without a message. */
int get_silent(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);

/* --- Row kinds shared by both records ------------------------------------ */
constexpr ParamDef U8(int id, uint16_t off) { return {id, off, 1, set_number, get_number, Store::Number}; }
constexpr ParamDef U16(int id, uint16_t off) { return {id, off, 2, set_number, get_number, Store::Number}; }
constexpr ParamDef U32(int id, uint16_t off) { return {id, off, 4, set_number, get_number, Store::Number}; }

/* Whether a row holds a plain number (its width is the row's limit). */
constexpr bool is_number(const ParamDef& d) { return d.get == get_number; }

/* Every value a row keeps lies inside the record: numbers are 1, 2 or 4
 * bytes, and a text keeps room for its terminator after limit characters. */
template <size_t N>
constexpr bool rows_fit(const ParamDef (&rows)[N], size_t rec_size) {
    for (const ParamDef& d : rows) {
        if (d.store == Store::Number && d.limit != 1 && d.limit != 2 && d.limit != 4) {
            return false;
        }
        const size_t end = d.offset + d.limit + (d.store == Store::Text ? 1u : 0u);
        if (d.store != Store::Other && end > rec_size) {
            return false;
        }
    }
    return true;
}

}  // namespace bbconf

#endif
