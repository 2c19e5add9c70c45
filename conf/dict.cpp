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
    const uint16_t key = static_cast<uint16_t>(id);
    const int start = dict.first[key >> kBucketShift];
    const uint16_t* window = dict.keys + start;
    int below = 0;
    for (int j = 0; j < kBucketSpan; j++) {
        below += window[j] < key;
    }
    const int i = start + below;
    return i < dict.count && dict.keys[i] == id ? &dict.rows[i] : nullptr;
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
    return get_value(*d, c, dst, buflen);
}

int get_value(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    if (is_number(d)) {
        return get_number(d, c, dst, buflen);
    }
    return d.get(d, c, dst, buflen);
}

void set_number(const ParamDef& d, const DictCall& c, unsigned char* src, int) {
    reverse_number(field(d, c), src, d.limit);
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

int get_number(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    reverse_number(dst, field(d, c), d.limit);
    return d.limit;
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
