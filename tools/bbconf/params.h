// params.h - the tool's own table of parameter IDs for both record kinds:
// ID, short name, value kind and limit.  The library answers by ID only and
// has no introspection, so the tool keeps what it needs to parse, check and
// print a value here.
#ifndef BBCONF_TOOL_PARAMS_H
#define BBCONF_TOOL_PARAMS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bbconf.h"
#include "body.h"

namespace bbtool {

enum class RecordKind { Terminal, Taxi };

enum class Kind : uint8_t {
    U8,         // one byte
    U16,        // big-endian 16 bits
    U32,        // big-endian 32 bits
    U16Get32,   // set takes 16 bits, the field and the get answer are 32 bits
    LowByte32,  // set takes 32 bits and keeps the low byte in a one-byte field
    Text,       // bounded text, stored terminated; limit = most bytes
    RawText,    // text copied verbatim without a terminator; limit = most bytes
    Raw,        // bytes copied verbatim; limit = most bytes
    Block,      // converted by a block codec; limit = its wire form (0: channel settings)
    Endpoint,   // get only: "address:port" rendered from two other fields
    GetRaw,     // get only: bytes
    GetBlock,   // get only: a block's wire form; limit = its length
    Ignored,    // accepted by the record's dictionary, stored nowhere
    Device,     // answered by the device itself, not by the record
    Debug,      // diagnostic dump of the caller's buffer, no value
};

// Runs a block's wire-to-local codec on a scratch copy of the block taken
// from the record; returns the codec's result (0 = rejected).  The wire
// pointer must have room in front of it (some codecs log bytes before it).
using BlockCheck = int (*)(const tagBB_CONF_ST* rec, unsigned char* wire, unsigned char len);

struct ParamDef {
    uint16_t id;
    const char* name;
    Kind kind;
    uint16_t limit;
    BlockCheck check;       // Block only
    int16_t field_offset;   // set-only IDs: the field the tool reads itself, else -1
    uint8_t field_width;
};

// The table of a record kind, sorted by ID.
const std::vector<ParamDef>& param_table(RecordKind kind);

// Looks a parameter up by ID or by name; nullptr when the record kind has none.
const ParamDef* find_param(RecordKind kind, uint32_t id);
const ParamDef* find_param(RecordKind kind, std::string_view name);

// Resolves "0x0013", "19" or "main_server_address".  On failure returns
// nullptr and a one-line reason.
const ParamDef* resolve_param(RecordKind kind, std::string_view text, std::string& error);

// What the tool can do with a kind.
bool is_settable(const ParamDef& d);
bool is_set_only(const ParamDef& d);
bool is_readable(const ParamDef& d);     // the record holds a value the tool can show
bool is_queryable(const ParamDef& d);    // the terminal answers it in a query response
bool is_number(Kind k);
bool is_text(Kind k);
size_t number_width(Kind k);             // wire bytes a set takes

// Short kind label for listings: "u32", "text(31)", "block(56)" ...
std::string kind_label(const ParamDef& d);
// Access label: "rw", "ro" (get only), "wo" (set only) or "-".
const char* access_label(const ParamDef& d);

const char* record_name(RecordKind kind);   // "terminal" / "taxi"
size_t record_size(RecordKind kind);        // 3386 / 1037

// Decimal or 0x-prefixed hexadecimal; values above 32 bits come out as
// 0x100000000, outside every range.
bool parse_number(std::string_view s, uint64_t& out);

}  // namespace bbtool

#endif  // BBCONF_TOOL_PARAMS_H
