/* catalogue.cpp - the public view of the parameter catalogues and the
 * checked set. */
#include <string.h>

#include "bbconf.h"
#include "bbconf_catalogue.h"
#include "common/byteorder.h"
#include "conf/dict.h"

namespace bbconf {
namespace {

/* "address:port": the address field's 63 characters, ':' and an int of at
 * most 11 characters, terminated. */
constexpr uint16_t kEndpointRoom = sizeof(tagBB_CONF_ST::szSlaveAddr) + 1 + 11;
/* The MAC address: 6 bytes, answered only when the buffer has a 7th. */
constexpr uint16_t kMacLen = 6;
/* Room for the device's factory ID and terminal type texts. */
constexpr uint16_t kIdentityTextRoom = 32;

ParamInfo number(ParamInfo p, unsigned set_len, unsigned get_width) {
    p.kind = ValueKind::Number;
    p.set_len = static_cast<uint16_t>(set_len);
    p.fixed_set = true;
    p.settable = true;
    p.readable = get_width != 0;
    p.get_bound = get_width != 0 ? GetBound::Always : GetBound::None;
    p.get_width = p.get_max = p.min_get_buf = static_cast<uint16_t>(get_width);
    return p;
}

/* A text that may run on past its field to the record's end. */
ParamInfo text(ParamInfo p, unsigned set_len, unsigned room, bool verbatim, bool readable, unsigned run_on) {
    p.kind = ValueKind::Text;
    p.set_len = static_cast<uint16_t>(set_len);
    p.settable = true;
    p.verbatim = verbatim;
    p.readable = readable;
    if (readable) {
        p.get_bound = GetBound::BufLenLess1;
        p.min_get_buf = static_cast<uint16_t>(room + 1);
        p.get_max = static_cast<uint16_t>(run_on);
    }
    return p;
}

ParamInfo get_only(ParamInfo p, ValueKind k, GetBound b, unsigned max, unsigned min_buf) {
    p.kind = k;
    p.readable = true;
    p.get_bound = b;
    p.get_max = static_cast<uint16_t>(max);
    p.min_get_buf = static_cast<uint16_t>(min_buf);
    if (b == GetBound::Always) {
        p.get_width = p.get_max;
    }
    return p;
}

ParamInfo settable(ParamInfo p, unsigned set_len, bool fixed) {
    p.settable = true;
    p.set_len = static_cast<uint16_t>(set_len);
    p.fixed_set = fixed;
    return p;
}

/* 0x0077: a count byte and 21 bytes per channel, at most twelve. */
size_t channel_settings_len(const unsigned char* v) {
    const size_t count = v[0] < BB_AV_IND_SETTING_MAX ? v[0] : BB_AV_IND_SETTING_MAX;
    return 1 + count * sizeof(tagAV_CH_ENC_PARAM_ST);
}

/* A terminated text would stop at a NUL: refuse one with text behind it. */
bool text_behind_nul(const unsigned char* v, size_t len) {
    const void* nul = memchr(v, 0, len);
    if (nul == nullptr) {
        return false;
    }
    for (const unsigned char* p = static_cast<const unsigned char*>(nul); p < v + len; p++) {
        if (*p != 0) {
            return true;
        }
    }
    return false;
}

/* The settable fixed-form blocks: the largest wire form and record. */
constexpr unsigned largest(unsigned (*of)(BlockType)) {
    unsigned most = 0;
    for (int t = 0; t <= static_cast<int>(BlockType::HljDevFail); t++) {
        const BlockType b = static_cast<BlockType>(t);
        if (block_set_len(b) != 0 && of(b) > most) {
            most = of(b);
        }
    }
    return most;
}
constexpr unsigned kFormMax = largest(block_set_len);
constexpr unsigned kBlockMax = largest(block_size);
static_assert(kFormMax <= 64 && kBlockMax <= 160, "a checked block set keeps its frame small");

/* Runs the block's codec on a copy of the block and keeps the result only
 * when the codec accepts it.  The value is copied behind kFormMax zero bytes
 * for the codecs that dump the bytes in front of the wire. */
SetResult set_block_on_copy(const ParamDef& d, unsigned char* rec, const unsigned char* v, size_t len) {
    unsigned char wire[2 * kFormMax];
    unsigned char copy[kBlockMax];
    const unsigned size = block_size(d.block);
    memset(wire, 0, sizeof wire);
    memcpy(wire + kFormMax, v, len);
    memcpy(copy, rec + d.offset, size);
    if (block_from_wire(d.block, wire + kFormMax, static_cast<unsigned char>(len), copy) == 0) {
        return SetResult::Rejected;
    }
    memcpy(rec + d.offset, copy, size);
    return SetResult::Stored;
}

/* What the record would not keep whole, judged from the row and the value. */
SetResult judge(const ParamDef& d, const ParamInfo& p, const unsigned char* v, size_t len) {
    if (p.kind == ValueKind::Ignored || p.kind == ValueKind::Silent) {
        return SetResult::NotStored;
    }
    if (!p.settable) {
        return SetResult::ReadOnly;
    }
    if (p.fixed_set ? len != p.set_len : len > p.set_len) {
        return p.fixed_set ? SetResult::WrongLength : SetResult::TooLong;
    }
    if (p.kind == ValueKind::Text && text_behind_nul(v, len)) {
        return SetResult::Rejected;
    }
    if (d.rule == Rule::LowByteOfU32 && load_be32(v) > 0xff) {
        return SetResult::Rejected;
    }
    if (d.block == BlockType::AvChannels && (len == 0 || len != channel_settings_len(v))) {
        return SetResult::WrongLength;
    }
    return SetResult::Stored;
}

SetResult checked_set(const Dictionary& dict, const char* fn, unsigned char* rec, uint32_t id,
                      const unsigned char* v, size_t len) {
    const ParamDef* d = rec != nullptr && v != nullptr && id <= 0xffff ? find_param(dict, static_cast<int>(id))
                                                                        : nullptr;
    if (d == nullptr) {
        return SetResult::UnknownId;
    }
    const SetResult verdict = judge(*d, describe(*d, dict.rec_size), v, len);
    if (verdict != SetResult::Stored) {
        return verdict;
    }
    if (d->rule == Rule::Block && block_set_len(d->block) != 0) {
        return set_block_on_copy(*d, rec, v, len);
    }
    /* The rules only read the value. */
    set_value(*d, DictCall{fn, rec, dict.rec_size}, const_cast<unsigned char*>(v), static_cast<int>(len));
    return SetResult::Stored;
}

const Dictionary& dictionary_of(RecordKind kind) {
    return kind == RecordKind::Terminal ? terminal_dictionary() : taxi_dictionary();
}

}  // namespace

ParamInfo describe(const ParamDef& d, unsigned rec_size) {
    ParamInfo p{};
    p.id = d.id;
    p.offset = d.offset;
    p.field_size = static_cast<uint16_t>(kept_bytes(d));
    const unsigned n = d.limit;
    const unsigned run_on = rec_size - d.offset;
    switch (d.rule) {
        case Rule::Number:
        case Rule::NumberAns4: return number(p, n, n);
        case Rule::U16IntoU32: return number(p, 2, 4);
        case Rule::LowByteOfU32: return number(p, 4, 0);
        case Rule::Text:
        case Rule::CountedText: return text(p, n, n, false, true, run_on);
        case Rule::TextAdmitFull: return text(p, n - 1, n - 1, false, true, run_on);
        case Rule::RawText: return text(p, n, n, true, true, run_on);
        case Rule::RawSetOnly: return text(p, n, n, true, false, 0);
        case Rule::RawFixed: return settable(get_only(p, ValueKind::Raw, GetBound::Whole, n, n), n, true);
        case Rule::RawAlways: return settable(get_only(p, ValueKind::Raw, GetBound::Always, n, n), n, true);
        case Rule::RawShort: return settable(get_only(p, ValueKind::Raw, GetBound::BufLenLess1, n, n + 1), n, true);
        case Rule::List: return settable(get_only(p, ValueKind::List, GetBound::Always, n, n), n, false);
        case Rule::Block: {
            const unsigned form = block_set_len(d.block);
            p = get_only(p, ValueKind::Block, GetBound::Whole, form != 0 ? form : n, n);
            return settable(p, form != 0 ? form : kAvChannelsMaxSet, form != 0);
        }
        case Rule::GetBlock: return get_only(p, ValueKind::Block, GetBound::Whole, n, n);
        case Rule::GetRaw: return get_only(p, ValueKind::Raw, GetBound::Whole, n, n);
        case Rule::Endpoint:
            return get_only(p, ValueKind::Endpoint, GetBound::BufLen, run_on + 1 + 11 + 1, kEndpointRoom);
        case Rule::Mac: return get_only(p, ValueKind::Identity, GetBound::Whole, kMacLen, kMacLen + 1);
        case Rule::FactoryId:
        case Rule::TerminalType:
            return get_only(p, ValueKind::Identity, GetBound::BufLen, kIdentityTextRoom, kIdentityTextRoom);
        case Rule::Debug: p.kind = ValueKind::Debug; return p;
        case Rule::Ignored: p.kind = ValueKind::Ignored; return p;
        case Rule::Silent: p.kind = ValueKind::Silent; return p;
    }
    return p;
}

bool find_param(RecordKind kind, uint32_t id, ParamInfo* out) {
    const Dictionary& dict = dictionary_of(kind);
    const ParamDef* d = id <= 0xffff ? find_param(dict, static_cast<int>(id)) : nullptr;
    if (d == nullptr || out == nullptr) {
        return false;
    }
    *out = describe(*d, dict.rec_size);
    return true;
}

int param_count(RecordKind kind) { return dictionary_of(kind).count; }

ParamInfo param_at(RecordKind kind, int index) {
    const Dictionary& dict = dictionary_of(kind);
    if (index < 0 || index >= dict.count) {
        return ParamInfo{};
    }
    return describe(dict.rows[index], dict.rec_size);
}

SetResult set_param(tagBB_CONF_ST* rec, uint32_t id, const unsigned char* value, size_t len) {
    return checked_set(terminal_dictionary(), "CMN_SetParam", bytes_of(rec), id, value, len);
}

SetResult set_param(tagBBTAXI_CONF_ST* rec, uint32_t id, const unsigned char* value, size_t len) {
    return checked_set(taxi_dictionary(), "BBTAXI_SetParam", bytes_of(rec), id, value, len);
}

const char* to_string(SetResult r) {
    switch (r) {
        case SetResult::Stored: return "stored";
        case SetResult::UnknownId: return "unknown ID";
        case SetResult::ReadOnly: return "get-only";
        case SetResult::WrongLength: return "wrong length";
        case SetResult::TooLong: return "too long";
        case SetResult::Rejected: return "rejected";
        case SetResult::NotStored: return "not stored";
    }
    return "?";
}

}  // namespace bbconf
