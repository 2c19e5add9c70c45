/* codec.cpp - the block codec engine: the row walks and the two directions. */
#include "conf/blocks/codec.h"

#include <stdio.h>
#include <string.h>

#include "common/hexdump.h"
#include "common/log.h"

namespace bbconf {

void wire_to_local(WireTable t, const unsigned char* wire, unsigned char* local) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        for (size_t n = 0; n < f.count; n++) {
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

void local_to_wire(WireTable t, const unsigned char* local, unsigned char* wire) {
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        if (f.rule == Rule::LocalOnly) {
            continue;
        }
        for (size_t n = 0; n < f.count; n++) {
            store_be(wire + f.wire + n * f.width, f.width, load_ne(local + f.local + n * f.width, f.width));
        }
    }
}

namespace {

/* One call of a direction: the block, the caller's buffers and number. */
struct Call {
    const CodecHead& c;
    const PackedDirection& d;
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

/* The text at offset at of the block's characters; null for none. */
const char* text_at(const Call& k, uint16_t at) {
    return at == kNoText ? nullptr : reinterpret_cast<const char*>(&k.c) + k.c.text_at + at;
}

void report(const Call& k, const PackedReport& r) {
    const char* title = text_at(k, r.title);
    if (title == nullptr) {
        return;
    }
    char line[128];
    snprintf(line, sizeof line, title, number(k, r.n1), number(k, r.n2));
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
    for (const PackedPtrCheck& p : k.d.ptrs) {
        if (p.ptr == Ptr::None) {
            continue;
        }
        const unsigned char* v = p.ptr == Ptr::Wire ? k.wire : k.record;
        if (v == nullptr) {
            const char* text = text_at(k, p.text);
            if (text != nullptr) {
                BB_ASSERT_LINE_FN(k.fn, text);
            }
            return false;
        }
    }
    return k.wire != nullptr && k.record != nullptr;
}

/* All rows of the block, shared heads first. */
WireTable rows(const CodecHead& c) {
    return WireTable{reinterpret_cast<const WireField*>(reinterpret_cast<const unsigned char*>(&c) + c.rows_at),
                     c.rows};
}

}  // namespace

int block_set_bytes(const CodecHead& c, const char* fn, const unsigned char* wire, unsigned char len,
                    unsigned char* local) {
    const PackedDirection& d = c.set;
    const Call k{c, d, fn, local, wire, len};
    if (wire != nullptr) {
        report(k, d.arrived);
    }
    const bool ok = len == d.len;
    if (d.check == Check::First) {
        BB_CHECK_IMPL(fn, ok, text_at(k, d.check_text), 0);
    }
    if (!pointers_present(k)) {
        return 0;
    }
    report(k, d.before);
    wire_to_local(rows(c), wire, local);
    if (d.check == Check::After) {
        BB_CHECK_IMPL(fn, ok, text_at(k, d.check_text), 0);
    }
    report(k, d.after);
    return number(k, d.result);
}

int block_get_bytes(const CodecHead& c, const char* fn, const unsigned char* local, unsigned char* wire,
                    unsigned int buflen) {
    const PackedDirection& d = c.get;
    const Call k{c, d, fn, local, wire, buflen};
    const bool ok = buflen >= static_cast<unsigned>(d.len);
    if (d.check == Check::First) {
        BB_CHECK_IMPL(fn, ok, text_at(k, d.check_text), 0);
    }
    if (!pointers_present(k)) {
        return 0;
    }
    report(k, d.before);
    switch (d.image) {
        case Image::Cleared:
            memset(wire, 0, static_cast<size_t>(d.len));
            local_to_wire(rows(c), local, wire);
            break;
        case Image::Scratch: {
            unsigned char image[kScratchMax];
            memcpy(image, local, static_cast<size_t>(c.local_len));
            local_to_wire(rows(c), local, image);
            memcpy(wire, image, static_cast<size_t>(d.len));
            break;
        }
        case Image::Direct:
            local_to_wire(rows(c), local, wire);
            break;
    }
    if (d.check == Check::After) {
        BB_CHECK_IMPL(fn, ok, text_at(k, d.check_text), 0);
    }
    report(k, d.after);
    return number(k, d.result);
}

}  // namespace bbconf
