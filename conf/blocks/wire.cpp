/* wire.cpp - the field-table walk shared by the block codecs. */
#include "conf/blocks/wire.h"

#include "common/byteorder.h"

namespace bbconf {

void wire_to_local(const WireTable& t, const unsigned char* wire, unsigned char* local) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        for (unsigned n = 0; n < f.count; n++) {
            unsigned w = f.wire + n * f.width;
            unsigned l = f.local + n * f.width;
            uint32_t v = load_be(wire + w, f.width);
            if (f.keep && v == all_ones(f.width)) {
                continue;
            }
            store_ne(local + l, f.width, v);
        }
    }
}

void local_to_wire(const WireTable& t, const unsigned char* local, unsigned char* wire) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        for (unsigned n = 0; n < f.count; n++) {
            unsigned w = f.wire + n * f.width;
            unsigned l = f.local + n * f.width;
            store_be(wire + w, f.width, load_ne(local + l, f.width));
        }
    }
}

}  // namespace bbconf
