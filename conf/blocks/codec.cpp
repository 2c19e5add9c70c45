/* codec.cpp - the block codec engine: the row walks and the two directions. */
#include "conf/blocks/codec.h"

#include <stdio.h>
#include <string.h>

#include "common/hexdump.h"
#include "common/log.h"

namespace bbconf {

void wire_to_local(const WireTable& t, const unsigned char* wire, unsigned char* local) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        for (unsigned n = 0; n < f.count; n++) {
            unsigned char* to = local + f.local + n * f.width;
            if (f.rule == Rule::LocalOnly) {
                store_ne(to, f.width, 0);
                continue;
            }
            uint32_t v = load_be(wire + f.wire + n * f.width, f.width);
            if (f.rule == Rule::Keep && v == all_ones(f.width)) {
                continue;
            }
            store_ne(to, f.width, v);
        }
    }
}

void local_to_wire(const WireTable& t, const unsigned char* local, unsigned char* wire) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        if (f.rule == Rule::LocalOnly) {
            continue;
        }
        for (unsigned n = 0; n < f.count; n++) {
            store_be(wire + f.wire + n * f.width, f.width, load_ne(local + f.local + n * f.width, f.width));
        }
    }
}

namespace {

/* One call of a direction: the block, the caller's buffers and number. */
struct Call {
    const BlockCodec& c;
    const Direction& d;
    const char* fn;
    const unsigned char* record;
    const unsigned char* wire;
    unsigned given;
};

int number(const Call& k, Num n) {
    switch (n) {
        case Num::Len:
            return k.d.len;
        case Num::LocalLen:
            return k.c.local_len;
        case Num::Given:
            return static_cast<int>(k.given);
        case Num::Zero:
            break;
    }
    return 0;
}

void report(const Call& k, const Report& r) {
    if (r.title == nullptr) {
        return;
    }
    char line[128];
    snprintf(line, sizeof line, r.title, number(k, r.n1), number(k, r.n2));
    BB_INF_FN(k.fn, "%s", line);
    int count = number(k, r.count);
    switch (r.bytes) {
        case Bytes::Record:
            hex_dump(k.record, count < k.c.local_len ? count : k.c.local_len);
            break;
        case Bytes::Wire:
            hex_dump(k.wire, count);
            break;
        case Bytes::InFrontOfWire:
            hex_dump(k.wire - count, count);
            break;
    }
}

/* The direction's pointer checks in their order; false when one fails. */
bool pointers_present(const Call& k) {
    for (const PtrCheck& p : k.d.ptrs) {
        if (p.ptr == Ptr::None) {
            continue;
        }
        const unsigned char* v = p.ptr == Ptr::Wire ? k.wire : k.record;
        if (v == nullptr) {
            if (p.text != nullptr) {
                BB_ASSERT_LINE_FN(k.fn, p.text);
            }
            return false;
        }
    }
    return k.wire != nullptr && k.record != nullptr;
}

void convert_in(const BlockCodec& c, const unsigned char* wire, unsigned char* local) {
    for (const WireTable& t : c.tables) {
        wire_to_local(t, wire, local);
    }
}

void convert_out(const BlockCodec& c, const unsigned char* local, unsigned char* wire) {
    for (const WireTable& t : c.tables) {
        local_to_wire(t, local, wire);
    }
}

}  // namespace

int block_set_bytes(const BlockCodec& c, const char* fn, const unsigned char* wire, unsigned char len,
                    unsigned char* local) {
    const Call k{c, c.set, fn, local, wire, len};
    if (wire != nullptr) {
        report(k, c.set.arrived);
    }
    const bool ok = len == c.set.len;
    if (c.set.check == Check::First) {
        BB_CHECK_IMPL(fn, ok, c.set.check_text, 0);
    }
    if (!pointers_present(k)) {
        return 0;
    }
    report(k, c.set.before);
    convert_in(c, wire, local);
    if (c.set.check == Check::After) {
        BB_CHECK_IMPL(fn, ok, c.set.check_text, 0);
    }
    report(k, c.set.after);
    return number(k, c.set.result);
}

int block_get_bytes(const BlockCodec& c, const char* fn, const unsigned char* local, unsigned char* wire,
                    unsigned int buflen) {
    const Call k{c, c.get, fn, local, wire, buflen};
    const bool ok = buflen >= static_cast<unsigned>(c.get.len);
    if (c.get.check == Check::First) {
        BB_CHECK_IMPL(fn, ok, c.get.check_text, 0);
    }
    if (!pointers_present(k)) {
        return 0;
    }
    report(k, c.get.before);
    switch (c.get.image) {
        case Image::Cleared:
            memset(wire, 0, static_cast<size_t>(c.get.len));
            convert_out(c, local, wire);
            break;
        case Image::Scratch: {
            unsigned char image[kScratchMax];
            memcpy(image, local, static_cast<size_t>(c.local_len));
            convert_out(c, local, image);
            memcpy(wire, image, static_cast<size_t>(c.get.len));
            break;
        }
        case Image::Direct:
            convert_out(c, local, wire);
            break;
    }
    if (c.get.check == Check::After) {
        BB_CHECK_IMPL(fn, ok, c.get.check_text, 0);
    }
    report(k, c.get.after);
    return number(k, c.get.result);
}

}  // namespace bbconf
