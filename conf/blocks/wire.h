/* wire.h - the field-table walk shared by the block codecs.
 *
 * A wire form is a constant array of WireField rows: where a run of fields
 * sits on the wire and in the local record, how wide each field is (1, 2
 * or 4 bytes), how many follow one another, and whether an all-ones wire
 * value keeps the local field unchanged.  One routine walks the table from
 * wire to local and one from local to wire; bytes a table does not name
 * are not touched (callers that send reserved bytes as 0 clear the form
 * first). */
#ifndef BBCONF_CONF_BLOCKS_WIRE_H
#define BBCONF_CONF_BLOCKS_WIRE_H

#include <stddef.h>

namespace bbconf {

struct WireField {
    unsigned char wire;    /* offset of the first field on the wire */
    unsigned char local;   /* offset of the first field in the local record */
    unsigned char width;   /* 1, 2 or 4 bytes; big-endian on the wire */
    unsigned char count;   /* consecutive fields of that width */
    bool keep;             /* an all-ones wire value leaves the field as it is */
};

struct WireTable {
    const WireField* fields;
    int count;
};

template <size_t N>
constexpr WireTable table_of(const WireField (&f)[N]) {
    return WireTable{f, static_cast<int>(N)};
}

/* Bytes a table reaches on the wire (the end of its last field). */
constexpr int wire_extent(const WireTable& t) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        int e = t.fields[i].wire + t.fields[i].width * t.fields[i].count;
        end = e > end ? e : end;
    }
    return end;
}

/* Same for the local record. */
constexpr int local_extent(const WireTable& t) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        int e = t.fields[i].local + t.fields[i].width * t.fields[i].count;
        end = e > end ? e : end;
    }
    return end;
}

/* Wire (big-endian) to local (native), honouring the keep markers. */
void wire_to_local(const WireTable& t, const unsigned char* wire, unsigned char* local);
/* Local (native) to wire (big-endian); unnamed wire bytes are left alone. */
void local_to_wire(const WireTable& t, const unsigned char* local, unsigned char* wire);

}  // namespace bbconf

#endif
