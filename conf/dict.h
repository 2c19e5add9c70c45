/* dict.h - the parameter catalogue shared by the terminal and the taxi
 * record.
 *
 * A catalogue is one constant array of plain rows sorted by ID: the field's
 * offset in the record (by member name), a limit, the rule that moves the
 * value between wire and record, and for blocks the block's type.  The
 * engine dispatches on the rule column (one switch for sets, one for gets);
 * quirks of single IDs are rules of their own, named after what they do.
 * Nothing in a row is a pointer, so the tables stay in read-only pages. */
#ifndef BBCONF_CONF_DICT_H
#define BBCONF_CONF_DICT_H

#include <stddef.h>
#include <stdint.h>

#include "bbconf_catalogue.h"

namespace bbconf {

/* How a row moves its value.  `limit` is the number's width, the text's or
 * raw value's room, or a block's minimum get buffer. */
enum class Rule : uint8_t {
    Number,        /* limit (1, 2, 4) bytes: big-endian on the wire, native in
                      the record; neither len nor BufLen is consulted */
    NumberAns4,    /* 0x0081 / 0x0082: a 16-bit number whose get answers 4 */
    U16IntoU32,    /* taxi: a 16-bit wire value widened into a 4-byte field */
    LowByteOfU32,  /* taxi 0x001d: wire byte 3 of a 32-bit value; set only */
    Text,          /* at most limit characters up to a NUL, terminated */
    CountedText,   /* taxi: len bytes (NULs included) into limit + 1, terminated */
    TextAdmitFull, /* taxi 0x0094: len up to the field width, terminated inside it */
    RawText,       /* set: len bytes as given; get: the text up to its NUL */
    RawSetOnly,    /* taxi 0x001c: len bytes as given; a get answers -1 quietly */
    RawFixed,      /* set: len bytes; get: limit bytes when BufLen holds them */
    RawAlways,     /* 0x0110: the get writes limit bytes whatever BufLen says */
    RawShort,      /* 0xf114: the get writes min(limit, BufLen - 1) bytes */
    List,          /* 0x0076: set as raw, get 3 + 4n bytes (BufLen not consulted) */
    Block,         /* the block's codec both ways */
    GetBlock,      /* get only, through the block's codec */
    GetRaw,        /* get only, raw fixed */
    Endpoint,      /* 0x0026: "addr:port" from 0xf123 and 0x0018; answers -1 */
    Mac,           /* 0xff00 */
    FactoryId,     /* 0xff01 */
    TerminalType,  /* 0xff02 */
    Debug,         /* 0xf441 / 0xf641: dumps the caller's buffer */
    Ignored,       /* taxi 0x0077 - 0x0079: set accepted, nothing kept */
    Silent,        /* no set; a get answers -1 without a message */
};

/* The blocks a terminal row converts through a codec. */
enum class BlockType : uint8_t {
    None,
    AvEnc,           /* 0x0075 */
    AvChannels,      /* 0x0077 */
    DriverCapture,   /* 0xf0ef */
    Adas,            /* 0xf364 */
    Dsm,             /* 0xf365 */
    Tpms,            /* 0xf366 */
    Vds,             /* 0xf368 */
    Intense,         /* 0xf370 */
    Overload,        /* 0xf372 */
    Oversize,        /* 0xf373 */
    NightTired,      /* 0xfe10 */
    ZtAlarm,         /* 0xf400, get only */
    HljDriver,       /* 0xe138 .. 0xe141: get only, Heibiao codec names */
    HljMonitor,
    HljDsm,
    HljDevFail,
};

struct ParamDef {
    uint16_t id;
    uint16_t offset;
    uint16_t limit;
    Rule rule;
    BlockType block;
};

/* Context of one catalogue call: the record and the exported function that
 * reports (its name goes into every diagnostic line). */
struct DictCall {
    const char* fn;
    unsigned char* rec;
    unsigned rec_size;
};

/* A catalogue: the rows and a parallel array of their IDs, which the search
 * halves without a branch (the processor cannot mispredict a comparison
 * when IDs arrive in random order, and the keys of a record kind fit in a
 * few cache lines). */
struct Dictionary {
    const ParamDef* rows;
    const uint16_t* keys;
    int count;
    unsigned rec_size;
};

template <size_t N>
struct KeyArray {
    uint16_t k[N];
};

template <size_t N>
constexpr KeyArray<N> make_keys(const ParamDef (&rows)[N]) {
    KeyArray<N> keys{};
    for (size_t i = 0; i < N; i++) {
        keys.k[i] = rows[i].id;
    }
    return keys;
}

template <size_t N>
constexpr bool sorted_unique(const ParamDef (&rows)[N]) {
    for (size_t i = 1; i < N; i++) {
        if (rows[i - 1].id >= rows[i].id) {
            return false;
        }
    }
    return rows[0].id > 0;
}

/* The row of an ID; nullptr when the ID is not in the table. */
const ParamDef* find_param(const Dictionary& dict, int id);

/* The catalogue part of a set / get after the caller's argument checks:
 * look the ID up, run its rule, report "Not Find" in the set form
 * ("%x " and return len) or the get form ("%#x" and return -1). */
int dict_set(const Dictionary& dict, const DictCall& c, int id, unsigned char* src, int len);
int dict_get(const Dictionary& dict, const DictCall& c, int id, unsigned char* dst, int buflen);

/* Runs the set / get rule of a row. */
void set_value(const ParamDef& d, const DictCall& c, unsigned char* src, int len);
int get_value(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen);

/* The catalogue of a record kind (terminal in params.cpp, taxi in
 * taxi_dict.cpp). */
const Dictionary& terminal_dictionary();
const Dictionary& taxi_dictionary();

/* What the public catalogue tells about a row (catalogue.cpp). */
ParamInfo describe(const ParamDef& d, unsigned rec_size);

/* --- Blocks, by type ----------------------------------------------------- */
/* Bytes the block keeps in the record. */
constexpr unsigned block_size(BlockType t) {
    switch (t) {
        case BlockType::AvEnc: return sizeof(tagAV_ENC_PARAM_ST);
        case BlockType::AvChannels: return sizeof(tagAV_INDIVIDUAL_SETTING_ST);
        case BlockType::DriverCapture: return sizeof(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST);
        case BlockType::Adas: return sizeof(tagBB_PARAM_ADAS_SUBIAO_ST);
        case BlockType::Dsm: return sizeof(tagBB_PARAM_DSM_SUBIAO_ST);
        case BlockType::Tpms: return sizeof(tagBB_PARAM_TPMS_SUBIAO_ST);
        case BlockType::Vds: return sizeof(tagBB_PARAM_VDS_XIANGBIAO_ST);
        case BlockType::Intense: return sizeof(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST);
        case BlockType::Overload: return sizeof(tagBB_PARAM_OVERLOAD_SUBIAO_ST);
        case BlockType::Oversize: return sizeof(tagBB_PARAM_OVERSIZE_SUBIAO_ST);
        case BlockType::NightTired: return sizeof(tagBB_PARAM_NIGHT_TIRED_ST);
        case BlockType::ZtAlarm: return sizeof(tagBB_PARAM_ZT_ALARM_ST);
        case BlockType::HljDriver: return sizeof(tagBB_PARAM_DRIVER_IDENTIFY_ST);
        case BlockType::HljMonitor: return sizeof(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST);
        case BlockType::HljDsm: return sizeof(tagBB_PARAM_DSM_HEIBIAO_ST);
        case BlockType::HljDevFail: return sizeof(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST);
        case BlockType::None: break;
    }
    return 0;
}

/* The wire form a set of the block takes, as its codec counts it: the
 * exact length, or 0 when the form varies with its count byte (0x0077) or
 * the block is get only. */
constexpr unsigned block_set_len(BlockType t) {
    switch (t) {
        case BlockType::AvEnc: return 21;
        case BlockType::DriverCapture: return 18;
        case BlockType::Adas: return 56;
        case BlockType::Dsm: return 49;
        case BlockType::Tpms: return 36;
        case BlockType::Vds: return 50;
        case BlockType::Intense: return 54;
        case BlockType::Overload: return 18;
        case BlockType::Oversize: return 4;
        case BlockType::NightTired: return 16;
        default: return 0;
    }
}

/* The most bytes a set of 0x0077 takes: the count byte and twelve entries. */
constexpr unsigned kAvChannelsMaxSet = sizeof(tagAV_INDIVIDUAL_SETTING_ST);

/* The codec's wire-to-local / local-to-wire call on a block at `local`
 * (dict.cpp). */
int block_from_wire(BlockType t, unsigned char* wire, unsigned char len, unsigned char* local);
int block_to_wire(BlockType t, unsigned char* local, unsigned char* wire, unsigned buflen);

/* --- Row makers shared by both records ---------------------------------- */
constexpr ParamDef row(uint16_t id, size_t off, size_t limit, Rule r, BlockType b = BlockType::None) {
    return {id, static_cast<uint16_t>(off), static_cast<uint16_t>(limit), r, b};
}
constexpr ParamDef U8(uint16_t id, size_t off) { return row(id, off, 1, Rule::Number); }
constexpr ParamDef U16(uint16_t id, size_t off) { return row(id, off, 2, Rule::Number); }
constexpr ParamDef U32(uint16_t id, size_t off) { return row(id, off, 4, Rule::Number); }

/* Bytes of the record a row keeps (0: none). */
constexpr unsigned kept_bytes(const ParamDef& d) {
    switch (d.rule) {
        case Rule::Number:
        case Rule::NumberAns4: return d.limit;
        case Rule::U16IntoU32: return 4;
        case Rule::LowByteOfU32: return 1;
        case Rule::Text:
        case Rule::CountedText:
        case Rule::RawSetOnly: return d.limit + 1u; /* the last byte stays 0 */
        case Rule::TextAdmitFull:
        case Rule::RawText:
        case Rule::RawFixed:
        case Rule::RawAlways:
        case Rule::RawShort:
        case Rule::List:
        case Rule::GetRaw: return d.limit;
        case Rule::Block:
        case Rule::GetBlock: return block_size(d.block);
        default: return 0;
    }
}

/* Every value a row keeps lies inside the record, and numbers are 1, 2 or
 * 4 bytes wide. */
template <size_t N>
constexpr bool rows_fit(const ParamDef (&rows)[N], size_t rec_size) {
    for (const ParamDef& d : rows) {
        if (d.rule == Rule::Number && d.limit != 1 && d.limit != 2 && d.limit != 4) {
            return false;
        }
        if (d.offset + kept_bytes(d) > rec_size) {
            return false;
        }
    }
    return true;
}

}  // namespace bbconf

#endif
