/* forms.h - the driver-assistance (ADAS) and driver-state (DSM) block forms:
 * one descriptor per wire form and one engine for every form.
 *
 * A form is a field table (a shared head plus the form's own rows), its
 * length on the wire, the wording of its "Param Set" / "Param Get" lines and
 * the origin of its hex dump.  The engine reports under the name of the
 * exported codec that calls it, so each codec is a one-line wrapper. */
#ifndef BBCONF_CONF_BLOCKS_FORMS_H
#define BBCONF_CONF_BLOCKS_FORMS_H

#include "conf/blocks/wire.h"

namespace bbconf {

/* Where a codec's dump starts.  Several deployed codecs log the form's length
 * of bytes that lie just in front of the wire pointer rather than the block
 * itself; platforms compare those logs, so the origin is kept per form. */
enum class DumpOrigin : unsigned char {
    BeforeWire, /* wire[-length] .. wire[-1] */
    AtWire,     /* wire[0] .. wire[length - 1] */
};

struct BlockForm {
    WireTable head;      /* rows shared with other forms (may be empty) */
    WireTable body;      /* the form's own rows (may be empty) */
    int length;          /* bytes on the wire, reserved bytes included */
    const char* wording; /* "<wording> Param Set Len:..." / "... Param Get Len:..." */
    DumpOrigin dump;
};

/* Bytes either table of a form reaches on the wire / in the local record;
 * used to check the descriptors against the record sizes at compile time. */
constexpr int form_wire_extent(const BlockForm& f) {
    return wire_extent(f.head) > wire_extent(f.body) ? wire_extent(f.head) : wire_extent(f.body);
}
constexpr int form_local_extent(const BlockForm& f) {
    return local_extent(f.head) > local_extent(f.body) ? local_extent(f.head) : local_extent(f.body);
}

/* Wire to local.  Converts every field first (all-ones keeps a field where
 * the row says so), then checks len against the form's length: a mismatch
 * reports and returns 0 without undoing the conversion.  On success prints
 * the set line under fn, dumps and returns the length.  Reads the whole
 * form whatever len says. */
int form_set(const BlockForm& form, const char* fn, const unsigned char* wire, unsigned char len,
             unsigned char* local);

/* Local to wire.  Clears the whole form, writes every field, then checks
 * buflen: below the length it reports and returns 0 (the bytes stay
 * written).  On success prints the get line under fn, dumps and returns the
 * length. */
int form_get(const BlockForm& form, const char* fn, const unsigned char* local, unsigned char* wire,
             unsigned int buflen);

/* The form's dump of a block at wire, from the form's origin. */
void form_dump(const BlockForm& form, const unsigned char* wire);

/* Logs a block as received, before it is converted: the set line with Len 0
 * and the received length, then the len bytes from the wire pointer on. */
void form_log_received(const BlockForm& form, const char* fn, const unsigned char* wire, unsigned char len);

}  // namespace bbconf

#endif
