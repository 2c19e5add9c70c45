/* dict.cpp - search, value kinds and messages of the parameter dictionaries. */
#include "conf/dict.h"

#include <string.h>

#include "common/byteorder.h"
#include "common/log.h"
#include "common/strcopy.h"

namespace bbconf {

const ParamDef* find_param(const Dictionary& dict, int id) {
    if (id < 0 || id > 0xffff) {
        return nullptr;
    }
    int bucket = id >> kBucketShift;
    for (int i = dict.first[bucket], end = dict.first[bucket + 1]; i < end; i++) {
        if (dict.keys[i] == id) {
            return &dict.rows[i];
        }
    }
    return nullptr;
}

int dict_set(const Dictionary& dict, const DictCall& c, int id, unsigned char* src, int len) {
    const ParamDef* d = find_param(dict, id);
    if (d == nullptr || d->set == nullptr) {
        BB_ERR_FN(c.fn, "Not Find ID:%x \n", static_cast<unsigned>(id));
        return len;
    }
    d->set(*d, c, src, len);
    return len;
}

int dict_get(const Dictionary& dict, const DictCall& c, int id, unsigned char* dst, int buflen) {
    const ParamDef* d = find_param(dict, id);
    if (d == nullptr || d->get == nullptr) {
        BB_ERR_FN(c.fn, "Not Find ID:%#x\n", static_cast<unsigned>(id));
        return -1;
    }
    return d->get(*d, c, dst, buflen);
}

void set_u8(const ParamDef& d, const DictCall& c, unsigned char* src, int) { *field(d, c) = src[0]; }

void set_u16(const ParamDef& d, const DictCall& c, unsigned char* src, int) {
    store_ne16(field(d, c), load_be16(src));
}

void set_u32(const ParamDef& d, const DictCall& c, unsigned char* src, int) {
    store_ne32(field(d, c), load_be32(src));
}

void set_str(const ParamDef& d, const DictCall& c, unsigned char* src, int len) {
    if (static_cast<unsigned>(len) > d.limit) {
        return;
    }
    copy_bounded(reinterpret_cast<char*>(field(d, c)), reinterpret_cast<const char*>(src),
                 static_cast<size_t>(len) + 1);
}

void set_raw(const ParamDef& d, const DictCall& c, unsigned char* src, int len) {
    if (static_cast<unsigned>(len) > d.limit) {
        return;
    }
    memcpy(field(d, c), src, static_cast<size_t>(len));
}

int get_u8(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    dst[0] = *field(d, c);
    return 1;
}

int get_u16(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    store_be16(dst, load_ne16(field(d, c)));
    return 2;
}

int get_u32(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    store_be32(dst, load_ne32(field(d, c)));
    return 4;
}

int get_str(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    if (buflen < 1) {
        return -1;
    }
    size_t room = c.rec_size - d.offset;
    size_t most = static_cast<size_t>(buflen) - 1;
    size_t k = strnlen(reinterpret_cast<const char*>(field(d, c)), most < room ? most : room);
    memcpy(dst, field(d, c), k);
    return static_cast<int>(k);
}

int get_raw_fixed(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    if (buflen < d.limit) {
        return d.limit;
    }
    memcpy(dst, field(d, c), d.limit);
    return d.limit;
}

int get_silent(const ParamDef&, const DictCall&, unsigned char*, int) { return -1; }

}  // namespace bbconf
