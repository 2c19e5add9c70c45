/* field_defaults.h - factory values given record offset by record offset,
 * shared by the terminal reset, the profiles and the taxi reset.
 *
 * A row is a number of 1, 2 or 4 bytes stored in record (native) order,
 * or (text non-null) a string field of `width` bytes that receives at most
 * width - 1 characters and a terminator.  Rows are written in table order,
 * so a later row may overwrite an earlier one. */
#ifndef BBCONF_CONF_FIELD_DEFAULTS_H
#define BBCONF_CONF_FIELD_DEFAULTS_H

#include <stddef.h>
#include <stdint.h>

#include "common/byteorder.h"
#include "common/strcopy.h"

namespace bbconf {

struct FieldDefault {
    uint16_t offset;
    uint16_t width;
    uint32_t value;
    const char* text = nullptr;
};

constexpr FieldDefault num(uint16_t offset, uint16_t width, uint32_t value) { return {offset, width, value}; }
constexpr FieldDefault str(uint16_t offset, uint16_t size, const char* text) { return {offset, size, 0, text}; }

/* Every row lies inside `room` bytes; a number is 1, 2 or 4 bytes wide and
 * its value fits that width. */
template <size_t N>
constexpr bool field_defaults_fit(const FieldDefault (&rows)[N], size_t room) {
    for (const FieldDefault& d : rows) {
        if (d.offset + d.width > room) {
            return false;
        }
        if (d.text == nullptr && ((d.width != 1 && d.width != 2 && d.width != 4) || d.value > all_ones(d.width))) {
            return false;
        }
    }
    return true;
}

template <size_t N>
void put_field_defaults(unsigned char* base, const FieldDefault (&rows)[N]) {
    for (const FieldDefault& d : rows) {
        if (d.text != nullptr) {
            copy_bounded(reinterpret_cast<char*>(base + d.offset), d.text, d.width);
        } else {
            store_ne(base + d.offset, d.width, d.value);
        }
    }
}

}  // namespace bbconf

#endif
