/* dict.cpp - search, rules and messages of the parameter catalogues. */
#include "conf/dict.h"

#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/hexdump.h"
#include "common/log.h"
#include "common/strcopy.h"

namespace bbconf {

const ParamDef* find_param(const Dictionary& dict, int id) {
    if (id < 0 || id > 0xffff) {
        return nullptr;
    }
    const uint16_t key = static_cast<uint16_t>(id);
    const uint16_t* base = dict.keys;
    for (int n = dict.count; n > 1;) {
        const int half = n / 2;
        base = base[half] <= key ? base + half : base;
        n -= half;
    }
    return *base == key ? &dict.rows[base - dict.keys] : nullptr;
}

namespace {

/* Whether a rule stores anything on a set (the others report "Not Find"). */
bool has_set(Rule r) {
    switch (r) {
        case Rule::GetBlock:
        case Rule::GetRaw:
        case Rule::Endpoint:
        case Rule::Mac:
        case Rule::FactoryId:
        case Rule::TerminalType:
        case Rule::Debug:
        case Rule::Silent: return false;
        default: return true;
    }
}

unsigned char* field(const ParamDef& d, const DictCall& c) { return c.rec + d.offset; }

/* --- Blocks --------------------------------------------------------------- */

/* The Heibiao blocks go through their own codec names. */
template <typename T>
int to_wire(T* b, unsigned char* w, unsigned n) {
    return static_cast<int>(CMN_LStruct2B(b, w, n));
}
int to_wire(tagBB_PARAM_DRIVER_IDENTIFY_ST* b, unsigned char* w, unsigned n) { return CMN_HljLStruct2B(b, w, n); }
int to_wire(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* b, unsigned char* w, unsigned n) {
    return CMN_HljLStruct2B(b, w, n);
}
int to_wire(tagBB_PARAM_DSM_HEIBIAO_ST* b, unsigned char* w, unsigned n) { return CMN_HljLStruct2B(b, w, n); }
int to_wire(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* b, unsigned char* w, unsigned n) {
    return CMN_HljLStruct2B(b, w, n);
}

template <typename T>
int from_wire(T* b, unsigned char* w, unsigned char n) {
    return static_cast<int>(CMN_B2LStruct(w, n, b));
}
int from_wire(tagBB_PARAM_DRIVER_IDENTIFY_ST* b, unsigned char* w, unsigned char n) { return CMN_HljB2LStruct(w, n, b); }
int from_wire(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* b, unsigned char* w, unsigned char n) {
    return CMN_HljB2LStruct(w, n, b);
}
int from_wire(tagBB_PARAM_DSM_HEIBIAO_ST* b, unsigned char* w, unsigned char n) { return CMN_HljB2LStruct(w, n, b); }
int from_wire(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* b, unsigned char* w, unsigned char n) {
    return CMN_HljB2LStruct(w, n, b);
}

/* Calls fn with a null pointer of the block's type. */
template <typename Fn>
int with_block(BlockType t, Fn fn) {
    switch (t) {
        case BlockType::AvEnc: return fn(static_cast<tagAV_ENC_PARAM_ST*>(nullptr));
        case BlockType::AvChannels: return fn(static_cast<tagAV_INDIVIDUAL_SETTING_ST*>(nullptr));
        case BlockType::DriverCapture: return fn(static_cast<tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST*>(nullptr));
        case BlockType::Adas: return fn(static_cast<tagBB_PARAM_ADAS_SUBIAO_ST*>(nullptr));
        case BlockType::Dsm: return fn(static_cast<tagBB_PARAM_DSM_SUBIAO_ST*>(nullptr));
        case BlockType::Tpms: return fn(static_cast<tagBB_PARAM_TPMS_SUBIAO_ST*>(nullptr));
        case BlockType::Vds: return fn(static_cast<tagBB_PARAM_VDS_XIANGBIAO_ST*>(nullptr));
        case BlockType::Intense: return fn(static_cast<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST*>(nullptr));
        case BlockType::Overload: return fn(static_cast<tagBB_PARAM_OVERLOAD_SUBIAO_ST*>(nullptr));
        case BlockType::Oversize: return fn(static_cast<tagBB_PARAM_OVERSIZE_SUBIAO_ST*>(nullptr));
        case BlockType::NightTired: return fn(static_cast<tagBB_PARAM_NIGHT_TIRED_ST*>(nullptr));
        case BlockType::ZtAlarm: return fn(static_cast<tagBB_PARAM_ZT_ALARM_ST*>(nullptr));
        case BlockType::HljDriver: return fn(static_cast<tagBB_PARAM_DRIVER_IDENTIFY_ST*>(nullptr));
        case BlockType::HljMonitor: return fn(static_cast<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST*>(nullptr));
        case BlockType::HljDsm: return fn(static_cast<tagBB_PARAM_DSM_HEIBIAO_ST*>(nullptr));
        case BlockType::HljDevFail: return fn(static_cast<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST*>(nullptr));
        case BlockType::None: break;
    }
    return 0;
}

/* --- Rules of single IDs -------------------------------------------------- */

/* 0x0076: the channel list carries 3 + 4n bytes for n = the three per-type
 * counts added up (modulo 256); a sum above the 37 entries of the list
 * reports and sends the whole list.  BufLen is not consulted. */
constexpr int kChListMax = BB_AV_CH_LOOK_UP_MAX;

int get_channel_list(const ParamDef& d, const DictCall& c, unsigned char* dst) {
    const unsigned char* f = field(d, c);
    int n = (f[0] + f[1] + f[2]) % 256;
    if (n > kChListMax) {
        BB_ERR_FN(c.fn, "Total Ch Num:%d=%d+%d+%d Over:%d\n", n, f[0], f[1], f[2], kChListMax);
        memcpy(dst, f, d.limit);
        return d.limit;
    }
    int k = 3 + 4 * n;
    memcpy(dst, f, static_cast<size_t>(k));
    return k;
}

/* 0x0026: the slave server address (0xf123's text) and the server TCP port
 * (0x0018) as "addr:port".  The text is written but the result is -1: the
 * ID is text-only.  The address may run on past its field, never past the
 * record; the write is bounded by BufLen. */
constexpr unsigned kSlaveAddrOffset = offsetof(tagBB_CONF_ST, szSlaveAddr);
constexpr unsigned kTcpPortOffset = offsetof(tagBB_CONF_ST, uiTcpPort);

int get_slave_server_text(const DictCall& c, unsigned char* dst, int buflen) {
    if (buflen > 0) {
        snprintf(reinterpret_cast<char*>(dst), static_cast<size_t>(buflen), "%.*s:%d",
                 static_cast<int>(c.rec_size - kSlaveAddrOffset),
                 reinterpret_cast<const char*>(c.rec + kSlaveAddrOffset),
                 static_cast<int>(load_ne32(c.rec + kTcpPortOffset)));
    }
    return -1;
}

/* 0xff00 - 0xff02: the device identity, reported and dumped. */
int report_identity(const ParamDef& d, const DictCall& c, unsigned char* dst, int r) {
    BB_WAR_FN(c.fn, "Get ID:%x Len:%d_", static_cast<unsigned>(d.id), r);
    if (r < 1) {
        printf("\n");
        return r;
    }
    hex_dump(dst, r);
    return r;
}

int identity_text_len(const unsigned char* dst, int buflen) {
    return buflen > 0 ? static_cast<int>(strnlen(reinterpret_cast<const char*>(dst),
                                                 static_cast<size_t>(buflen)))
                      : 0;
}

/* 0xf441 / 0xf641: dump what the caller passed in; nothing is written. */
int get_debug_dump(const DictCall& c, unsigned char* dst, int buflen) {
    printf("%s,%d,BufLen=%d\n", c.fn, __LINE__, buflen);
    if (buflen > 0) {
        hex_dump(dst, buflen);
    }
    printf("\n");
    return -1;
}

/* Text without terminator: min(strlen, buflen - 1) bytes; -1 for buflen < 1.
 * The text may run on past its field (never past the record). */
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

}  // namespace

int block_from_wire(BlockType t, unsigned char* wire, unsigned char len, unsigned char* local) {
    return with_block(t, [&](auto* type) { return from_wire(reinterpret_cast<decltype(type)>(local), wire, len); });
}

int block_to_wire(BlockType t, unsigned char* local, unsigned char* wire, unsigned buflen) {
    return with_block(t, [&](auto* type) { return to_wire(reinterpret_cast<decltype(type)>(local), wire, buflen); });
}

/* len above the limit (unsigned, so negative too) stores nothing for
 * texts, raw values and the list; numbers do not consult len. */
void set_value(const ParamDef& d, const DictCall& c, unsigned char* src, int len) {
    unsigned char* f = field(d, c);
    const bool fits = static_cast<unsigned>(len) <= d.limit;
    switch (d.rule) {
        case Rule::Number:
        case Rule::NumberAns4: reverse_number(f, src, d.limit); return;
        case Rule::U16IntoU32: store_ne32(f, load_be16(src)); return;
        case Rule::LowByteOfU32: *f = src[3]; return;
        case Rule::Text:
            if (fits) {
                copy_bounded(reinterpret_cast<char*>(f), reinterpret_cast<const char*>(src),
                             static_cast<size_t>(len) + 1);
            }
            return;
        case Rule::CountedText:
        case Rule::TextAdmitFull:
            /* The admit-full form gives the field's last byte to the
             * terminator, so a value as long as the field loses its last. */
            if (fits) {
                const int room = d.limit + (d.rule == Rule::CountedText ? 1 : 0);
                String_copy(reinterpret_cast<const char*>(src), len, reinterpret_cast<char*>(f), room);
            }
            return;
        case Rule::RawText:
        case Rule::RawSetOnly:
        case Rule::RawFixed:
        case Rule::RawAlways:
        case Rule::RawShort:
        case Rule::List:
            if (fits) {
                memcpy(f, src, static_cast<size_t>(len));
            }
            return;
        case Rule::Block:
            /* The codec gets len cut to 8 bits; its result is ignored. */
            block_from_wire(d.block, src, static_cast<unsigned char>(len), f);
            return;
        default: return;
    }
}

int get_value(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    unsigned char* f = field(d, c);
    switch (d.rule) {
        case Rule::Number:
        case Rule::U16IntoU32:
            reverse_number(dst, f, d.limit);
            return d.limit;
        case Rule::NumberAns4: reverse_number(dst, f, d.limit); return 4;
        case Rule::Text:
        case Rule::CountedText:
        case Rule::TextAdmitFull:
        case Rule::RawText: return get_str(d, c, dst, buflen);
        case Rule::RawFixed:
        case Rule::GetRaw:
            /* A short buffer gets the size back and nothing written. */
            if (buflen >= d.limit) {
                memcpy(dst, f, d.limit);
            }
            return d.limit;
        case Rule::RawAlways: memcpy(dst, f, d.limit); return d.limit;
        case Rule::RawShort: {
            if (buflen < 1) {
                return -1;
            }
            const int n = buflen - 1 < d.limit ? buflen - 1 : d.limit;
            memcpy(dst, f, static_cast<size_t>(n));
            return n;
        }
        case Rule::List: return get_channel_list(d, c, dst);
        case Rule::Block:
        case Rule::GetBlock:
            /* A buffer below the block's minimum (unsigned) is refused first. */
            if (static_cast<unsigned>(buflen) < d.limit) {
                return -1;
            }
            return block_to_wire(d.block, f, dst, static_cast<unsigned>(buflen));
        case Rule::Endpoint: return get_slave_server_text(c, dst, buflen);
        case Rule::Mac: return report_identity(d, c, dst, GetMacFormFile(dst, buflen));
        case Rule::FactoryId:
            GetDeviceFactoryId(reinterpret_cast<char*>(dst), buflen);
            return report_identity(d, c, dst, identity_text_len(dst, buflen));
        case Rule::TerminalType:
            GetDeviceTerminalType(reinterpret_cast<char*>(dst), buflen);
            return report_identity(d, c, dst, identity_text_len(dst, buflen));
        case Rule::Debug: return get_debug_dump(c, dst, buflen);
        default: return -1;
    }
}

int dict_set(const Dictionary& dict, const DictCall& c, int id, unsigned char* src, int len) {
    const ParamDef* d = find_param(dict, id);
    if (d == nullptr || !has_set(d->rule)) {
        BB_ERR_FN(c.fn, "Not Find ID:%x \n", static_cast<unsigned>(id));
        return len;
    }
    set_value(*d, c, src, len);
    return len;
}

int dict_get(const Dictionary& dict, const DictCall& c, int id, unsigned char* dst, int buflen) {
    const ParamDef* d = find_param(dict, id);
    if (d == nullptr) {
        BB_ERR_FN(c.fn, "Not Find ID:%#x\n", static_cast<unsigned>(id));
        return -1;
    }
    return get_value(*d, c, dst, buflen);
}

}  // namespace bbconf
