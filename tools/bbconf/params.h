// params.h - the parameters of both record kinds as the tool shows them:
// the library's catalogue (bbconf_catalogue.h) for what each ID is, and the
// tool's own short name for each ID.
#ifndef BBCONF_TOOL_PARAMS_H
#define BBCONF_TOOL_PARAMS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bbconf.h"
#include "bbconf_catalogue.h"
#include "body.h"

namespace bbtool {

using bbconf::RecordKind;
using bbconf::ValueKind;

struct ParamDef {
    uint16_t id;
    const char* name;
    bbconf::ParamInfo info;
};

// The short names, keyed by ID, in ascending ID order.
struct ParamName {
    uint16_t id;
    const char* name;
};
const std::vector<ParamName>& param_names(RecordKind kind);

// The catalogue of a record kind with the names, sorted by ID.
const std::vector<ParamDef>& param_table(RecordKind kind);

// Looks a parameter up by ID or by name; nullptr when the record kind has none.
const ParamDef* find_param(RecordKind kind, uint32_t id);
const ParamDef* find_param(RecordKind kind, std::string_view name);

// Resolves "0x0013", "19" or "main_server_address".  On failure returns
// nullptr and a one-line reason.
const ParamDef* resolve_param(RecordKind kind, std::string_view text, std::string& error);

// What the tool can do with a parameter.
bool is_settable(const ParamDef& d);
bool is_set_only(const ParamDef& d);     // stored, but the library does not report it
bool is_readable(const ParamDef& d);     // the record holds a value the tool can show
bool is_queryable(const ParamDef& d);    // the terminal answers it in a query response
bool is_number(const ParamDef& d);
bool is_text(const ParamDef& d);
size_t number_width(const ParamDef& d);  // wire bytes a set takes
size_t value_width(const ParamDef& d);   // bytes of the number the record keeps

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
