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

/* Values of the keep column. */
constexpr bool kKeep = true;    /* all-ones on the wire keeps the field */
constexpr bool kAlways = false; /* stored whatever the wire holds */

/* The rows of a table made from a constant array. */
template <typename Row>
struct Rows {
    const Row* rows;
    int count;
};

template <typename Row, size_t N>
constexpr Rows<Row> rows_of(const Row (&r)[N]) {
    return Rows<Row>{r, static_cast<int>(N)};
}

/* The end of the furthest run of a table, its runs starting where `at`
 * says (a run is count fields of width bytes). */
template <typename Row, typename At>
constexpr int extent(const Rows<Row>& t, At at) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        int e = at(t.rows[i]) + t.rows[i].width * t.rows[i].count;
        end = e > end ? e : end;
    }
    return end;
}

using WireTable = Rows<WireField>;

/* Bytes a table reaches on the wire, and in the local record. */
constexpr int wire_extent(const WireTable& t) {
    return extent(t, [](const WireField& f) { return static_cast<int>(f.wire); });
}
constexpr int local_extent(const WireTable& t) {
    return extent(t, [](const WireField& f) { return static_cast<int>(f.local); });
}

/* Wire (big-endian) to local (native), honouring the keep markers. */
void wire_to_local(const WireTable& t, const unsigned char* wire, unsigned char* local);
/* Local (native) to wire (big-endian); unnamed wire bytes are left alone. */
void local_to_wire(const WireTable& t, const unsigned char* local, unsigned char* wire);

}  // namespace bbconf

#endif
