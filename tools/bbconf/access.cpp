// access.cpp - one parameter through the library's dictionary.
#include "access.h"

#include <cstdio>
#include <cstring>

#include "body.h"

namespace bbtool {

namespace {

// A zeroed buffer handed to the library with generous room on both sides:
// some codecs log the bytes in front of the wire pointer, others read or
// write a whole form whatever length they are told.
class WireBuffer {
  public:
    static constexpr size_t kFront = 512;
    static constexpr size_t kRoom = 1024;
    WireBuffer() { std::memset(mem_, 0, sizeof mem_); }
    unsigned char* data() { return mem_ + kFront; }
    int room() const { return static_cast<int>(kRoom); }

  private:
    unsigned char mem_[kFront + kRoom + 64];
};

int lib_set(Record& rec, uint16_t id, const std::vector<uint8_t>& wire) {
    WireBuffer buf;
    if (!wire.empty()) std::memcpy(buf.data(), wire.data(), wire.size());
    const int len = static_cast<int>(wire.size());
    if (rec.kind() == RecordKind::Terminal) return CMN_SetParam(rec.terminal(), id, buf.data(), len);
    return BBTAXI_SetParam(rec.taxi(), id, buf.data(), len);
}

std::string number_range(const ParamDef& d) {
    switch (value_width(d)) {
        case 1: return "a u8 value (0 to 255)";
        case 2: return "a u16 value (0 to 65535)";
        default: return "a u32 value (0 to 4294967295)";
    }
}

uint32_t number_max(const ParamDef& d) {
    const size_t w = value_width(d);
    return w >= 4 ? 0xffffffffu : (1u << (8 * w)) - 1;
}

bool starts_with(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && s.substr(0, prefix.size()) == prefix;
}

// Wire length of the channel settings block: a count byte and one entry per
// channel, at most the record's twelve taken.
size_t channel_settings_len(const std::vector<uint8_t>& wire) {
    const size_t count = wire.empty() ? 0 : wire[0];
    const size_t most = BB_AV_IND_SETTING_MAX;
    return 1 + sizeof(tagAV_CH_ENC_PARAM_ST) * (count > most ? most : count);
}

// Why a parameter that the record does not store is refused, or not shown.
std::string unstored_reason(const ParamDef& d) {
    switch (d.info.kind) {
        case ValueKind::Identity: return "answered by the device, not stored in the record";
        case ValueKind::Debug: return "a diagnostic dump, not a stored value";
        case ValueKind::Ignored:
        case ValueKind::Silent: return "not stored: the record keeps no field for it";
        default: return "";
    }
}

// Why a parameter that cannot be set is refused.
std::string unsettable_reason(const ParamDef& d) {
    const std::string why = unstored_reason(d);
    if (d.info.kind == ValueKind::Ignored || d.info.kind == ValueKind::Silent) return why;
    return "get-only: " + (why.empty() ? std::string("the record's dictionary does not set it") : why);
}

// Big-endian bytes of a number.
std::vector<uint8_t> be_bytes(uint32_t v, size_t width) {
    std::vector<uint8_t> out;
    for (size_t i = 0; i < width; i++) out.push_back(static_cast<uint8_t>(v >> (8 * (width - 1 - i))));
    return out;
}

std::vector<uint8_t> up_to_nul(const std::vector<uint8_t>& v) {
    std::vector<uint8_t> out;
    for (uint8_t b : v) {
        if (b == 0) break;
        out.push_back(b);
    }
    return out;
}

// What a read-back must give after a successful store, for the kinds whose
// read-back is fully determined by the stored wire bytes.
bool expected_readback(const ParamDef& d, const std::vector<uint8_t>& wire, std::vector<uint8_t>& expect) {
    if (is_number(d)) {
        // The number as the record keeps it: a 16-bit value widened, a low byte kept alone.
        const size_t width = d.info.readable ? d.info.get_width : value_width(d);
        expect = be_bytes(decode_number(wire), width);
        return true;
    }
    if (d.info.kind == ValueKind::Text && !d.info.verbatim) {
        expect = up_to_nul(wire);
        return true;
    }
    return false;
}

}  // namespace

Readout read_param(Record& rec, const ParamDef& d) {
    Readout out;
    if (!is_readable(d)) {
        out.error = unstored_reason(d);
        return out;
    }
    if (is_set_only(d)) {
        const unsigned char* f = rec.bytes() + d.info.offset;
        if (is_number(d)) {
            out.wire.assign(f, f + d.info.field_size);
        } else {
            out.wire = up_to_nul(std::vector<uint8_t>(f, f + d.info.field_size));
        }
        out.ok = true;
        return out;
    }
    WireBuffer buf;
    const int r = rec.kind() == RecordKind::Terminal ? CMN_GetParam(rec.terminal(), d.id, buf.data(), buf.room())
                                                     : BBTAXI_GetParam(rec.taxi(), d.id, buf.data(), buf.room());
    if (d.info.kind == ValueKind::Endpoint) {
        // Rendered as text although the library answers -1.
        const size_t n = strnlen(reinterpret_cast<const char*>(buf.data()), static_cast<size_t>(buf.room()));
        out.wire.assign(buf.data(), buf.data() + n);
        out.ok = true;
        return out;
    }
    if (is_number(d)) {
        // The bytes the get writes; 0x0081 / 0x0082 answer 4 for 2 written.
        const size_t width = d.info.get_width;
        if (r < static_cast<int>(width)) {
            out.error = "the library gave no value (it answered " + std::to_string(r) + ")";
            return out;
        }
        out.wire.assign(buf.data(), buf.data() + width);
        out.ok = true;
        return out;
    }
    const bool may_be_empty = d.info.kind == ValueKind::Text || d.info.kind == ValueKind::Raw ||
                              d.info.kind == ValueKind::List;
    if (r < 0 || (r == 0 && !may_be_empty) || r > buf.room()) {
        out.error = "the library gave no value (it answered " + std::to_string(r) + ")";
        return out;
    }
    out.wire.assign(buf.data(), buf.data() + r);
    out.ok = true;
    return out;
}

uint32_t decode_number(const std::vector<uint8_t>& wire) {
    uint32_t v = 0;
    for (uint8_t b : wire) v = v << 8 | b;
    return v;
}

std::string quote_text(const std::vector<uint8_t>& bytes) {
    std::string s = "\"";
    for (uint8_t b : bytes) {
        switch (b) {
            case '"': s += "\\\""; break;
            case '\\': s += "\\\\"; break;
            case '\n': s += "\\n"; break;
            case '\r': s += "\\r"; break;
            case '\t': s += "\\t"; break;
            default:
                if (b >= 0x20 && b < 0x7f) {
                    s += static_cast<char>(b);
                } else {
                    char esc[8];
                    std::snprintf(esc, sizeof esc, "\\x%02x", b);
                    s += esc;
                }
        }
    }
    return s + "\"";
}

std::string display_value(const ParamDef& d, const std::vector<uint8_t>& wire) {
    if (is_number(d)) return std::to_string(decode_number(wire));
    if (is_text(d)) return quote_text(wire);
    return to_hex(wire);
}

std::string parse_user_value(const ParamDef& d, std::string_view text, std::vector<uint8_t>& wire) {
    wire.clear();
    if (!is_settable(d)) return unsettable_reason(d);
    std::string err;
    if (is_number(d)) {
        uint64_t v = 0;
        if (!parse_number(text, v)) {
            return "'" + std::string(text) + "' is not a number (decimal or 0x-hex)";
        }
        if (v > number_max(d)) {
            return std::string(text) + " is out of range for " + number_range(d);
        }
        wire = be_bytes(static_cast<uint32_t>(v), number_width(d));
        return "";
    }
    if (is_text(d)) {
        if (starts_with(text, "hex:")) {
            if (!parse_hex(text.substr(4), wire, err)) return err;
            return "";
        }
        if (starts_with(text, "text:")) text.remove_prefix(5);
        wire.assign(text.begin(), text.end());
        if (d.info.verbatim && wire.size() < d.info.set_len) wire.resize(d.info.set_len, 0);
        return "";
    }
    // Raw bytes and blocks.
    if (starts_with(text, "hex:")) text.remove_prefix(4);
    if (!parse_hex(text, wire, err)) return err;
    if (wire.empty()) return "empty value: give the bytes as hex, e.g. hex:0102";
    return "";
}

std::string check_wire(const Record& rec, const ParamDef& d, const std::vector<uint8_t>& wire) {
    const size_t n = wire.size();
    const bbconf::ParamInfo& p = d.info;
    if (!p.settable) return unsettable_reason(d);
    if (is_number(d)) {
        if (n != p.set_len) {
            return "wrong length: the value takes " + counted(p.set_len, "byte") + ", got " + std::to_string(n);
        }
        if (decode_number(wire) > number_max(d)) {
            return "value " + std::to_string(decode_number(wire)) + " does not fit its " +
                   (value_width(d) == 1 ? "one" : "two") + "-byte field";
        }
        return "";
    }
    if (p.kind != ValueKind::Block) {
        if (n > p.set_len) {
            return "too long for its field: " + counted(n, "byte") + ", room for " + std::to_string(p.set_len);
        }
        if (p.fixed_set && n != p.set_len) {
            // A shorter value would leave the field's old bytes behind it.
            return "too short for its field: " + counted(n, "byte") + ", the value takes " + std::to_string(p.set_len);
        }
        return "";
    }
    const size_t form = p.fixed_set ? p.set_len : channel_settings_len(wire);
    if (n != form) {
        if (!p.fixed_set && n == 0) return "wrong length for the block: it needs at least its count byte";
        return "wrong length for the block: " + counted(n, "byte") + ", its wire form has " + std::to_string(form);
    }
    // The library's checked set on a copy of the record runs the block's codec without touching the record.
    tagBB_CONF_ST copy = *rec.terminal();
    if (bbconf::set_param(&copy, d.id, wire.data(), n) == bbconf::SetResult::Rejected) {
        return "rejected by the block codec";
    }
    return "";
}

std::string store_param(Record& rec, const ParamDef& d, const std::vector<uint8_t>& wire) {
    std::string err = check_wire(rec, d, wire);
    if (!err.empty()) return err;
    lib_set(rec, d.id, wire);
    std::vector<uint8_t> expect;
    if (expected_readback(d, wire, expect)) {
        const Readout back = read_param(rec, d);
        if (!back.ok || back.wire != expect) {
            return "not stored: the record does not hold the value afterwards" +
                   (back.ok ? " (it reads " + display_value(d, back.wire) + ")" : std::string());
        }
    }
    return "";
}

}  // namespace bbtool
