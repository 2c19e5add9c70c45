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

struct ParamDef {
    int id;
    uint16_t offset;
    uint16_t limit;
    SetRule set;
    GetRule get;
};

/* The search narrows the sorted table by the ID's upper 12 bits: bucket b
 * holds the rows whose IDs lie in [16 b, 16 b + 16), starting at row
 * first[b] and ending before first[b + 1]; the few rows of a bucket are
 * then compared one by one. */
constexpr int kBucketShift = 4;
constexpr int kBucketCount = (0x10000 >> kBucketShift) + 1;

/* A dictionary: the rows, a parallel array of their IDs and the buckets. */
struct Dictionary {
    const ParamDef* rows;
    const uint16_t* keys;
    const uint8_t* first;
    int count;
};

/* Builds the key array of a row table at compile time. */
template <size_t N>
struct KeyArray {
    uint16_t k[N];
};

template <size_t N>
constexpr KeyArray<N> make_keys(const ParamDef (&rows)[N]) {
    KeyArray<N> keys{};
    for (size_t i = 0; i < N; i++) {
        keys.k[i] = static_cast<uint16_t>(rows[i].id);
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

/* Field address of a row inside the call's record. */
inline unsigned char* field(const ParamDef& d, const DictCall& c) { return c.rec + d.offset; }

/* --- Set rules ---------------------------------------------------------- */
void set_u8(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
void set_u16(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
void set_u32(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
/* STR(limit): len above limit (unsigned) stores nothing; else at most len
 * characters up to a NUL, terminated. */
void set_str(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
/* RAW(limit): len above limit (unsigned) stores nothing; else len bytes. */
void set_raw(const ParamDef& d, const DictCall& c, unsigned char* src, int len);

/* --- Get rules ---------------------------------------------------------- */
int get_u8(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
int get_u16(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
int get_u32(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* Text without terminator: min(strlen, buflen - 1) bytes; -1 for buflen < 1.
 * The text may run on past its field (never past the record). */
int get_str(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* Fixed-size raw value of limit bytes: a short buffer gets the size back
 * and nothing written. */
int get_raw_fixed(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);
/* No value on the get side, no message (IDs that are only ever set). */
int get_silent(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);

}  // namespace bbconf

#endif
