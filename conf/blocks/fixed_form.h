/* fixed_form.h - blocks whose wire form has one fixed length equal to the
 * local record's: the checked walk in both directions, and defaults
 * written offset by offset.
 *
 * Such a block is refused whole on a wrong length before anything is
 * touched; on the way out the wire image is built in a scratch copy (bytes
 * no table row names go out as they stand) and copied to the caller's
 * buffer, so converting a record onto itself is safe.  The diagnostic lines
 * carry the exported codec's name, which the codec passes in. */
#ifndef BBCONF_CONF_BLOCKS_FIXED_FORM_H
#define BBCONF_CONF_BLOCKS_FIXED_FORM_H

#include <stdint.h>
#include <string.h>

#include "common/byteorder.h"
#include "common/hexdump.h"
#include "common/log.h"
#include "conf/blocks/wire.h"

namespace bbconf {

/* The longest fixed form kept here (the intense-driving block). */
constexpr int kFixedFormMax = 64;

struct FixedForm {
    WireTable table;
    int len;                 /* wire length = local record length */
    const char* set_after;   /* dump title of the record after a set */
    const char* get_before;  /* dump title of the record before a get */
    const char* get_after;   /* dump title of the wire after a get */
    bool get_after_len;      /* the length follows get_after on its line */
    const char* null_wire;   /* assert text for a null wire on get, or null
                                to refuse it without a line */
};

/* Every field of a form lies inside its length. */
constexpr bool fixed_form_fits(const FixedForm& f) {
    return f.len <= kFixedFormMax && wire_extent(f.table) <= f.len &&
           local_extent(f.table) <= f.len;
}

/* The rows name every byte of the form, on the wire and in the record. */
constexpr bool covers_block(const FixedForm& f) {
    return fixed_form_fits(f) && wire_extent(f.table) == f.len && local_extent(f.table) == f.len;
}

/* Wire to local; returns the form's length, or 0 when DataLen is not that
 * length (nothing changed) or a pointer is null. */
inline int fixed_form_set(const FixedForm& f, const char* fn, const unsigned char* wire,
                          unsigned char DataLen, unsigned char* local) {
    const int Len = f.len;
    BB_CHECK_FN(fn, (DataLen == Len), 0);
    if (wire == nullptr || local == nullptr) {
        return 0;
    }
    wire_to_local(f.table, wire, local);
    BB_INF_FN(fn, "%s", f.set_after);
    hex_dump(local, Len);
    return Len;
}

/* Local to wire; returns the form's length, or 0 when BufLen is short or a
 * pointer is null (nothing written). */
inline int fixed_form_get(const FixedForm& f, const char* fn, const unsigned char* local,
                          unsigned char* wire, unsigned int BufLen) {
    const unsigned int Len = static_cast<unsigned int>(f.len);
    BB_CHECK_FN(fn, (BufLen >= Len), 0);
    if (wire == nullptr) {
        if (f.null_wire != nullptr) {
            BB_ASSERT_LINE_FN(fn, f.null_wire);
        }
        return 0;
    }
    if (local == nullptr) {
        return 0;
    }
    BB_INF_FN(fn, "%s", f.get_before);
    hex_dump(local, f.len);
    unsigned char image[kFixedFormMax];
    memcpy(image, local, Len);
    local_to_wire(f.table, local, image);
    memcpy(wire, image, Len);
    if (f.get_after_len) {
        BB_INF_FN(fn, "%s%d", f.get_after, f.len);
    } else {
        BB_INF_FN(fn, "%s", f.get_after);
    }
    hex_dump(wire, f.len);
    return f.len;
}

/* One run of a block's defaults: count fields of width bytes from offset,
 * each set to value (native order). */
struct DefaultRun {
    unsigned char offset;
    unsigned char width;
    unsigned char count;
    uint32_t value;
};

using DefaultTable = Rows<DefaultRun>;

/* Bytes of the record a default table reaches. */
constexpr int defaults_extent(const DefaultTable& t) {
    return extent(t, [](const DefaultRun& r) { return static_cast<int>(r.offset); });
}

/* Writes the runs; bytes no run names are left as they are. */
inline void put_defaults(const DefaultTable& t, unsigned char* rec) {
    for (int i = 0; i < t.count; i++) {
        const DefaultRun& r = t.rows[i];
        for (unsigned n = 0; n < r.count; n++) {
            store_ne(rec + r.offset + n * r.width, r.width, r.value);
        }
    }
}

}  // namespace bbconf

/* Defines the exported codec pair of a fixed form (SetFn wire to local,
 * GetFn local to wire); the diagnostic lines carry the function's name. */
#define BB_FIXED_FORM_CODECS(SetFn, GetFn, Type, form)                                           \
    int SetFn(unsigned char* wire, unsigned char len, Type* local) {                             \
        return bbconf::fixed_form_set((form), __func__, wire, len, bbconf::bytes_of(local));     \
    }                                                                                            \
    int GetFn(Type* local, unsigned char* wire, unsigned int buflen) {                           \
        return bbconf::fixed_form_get((form), __func__, bbconf::bytes_of(local), wire, buflen);  \
    }

#endif
