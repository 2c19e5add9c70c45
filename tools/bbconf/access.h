// access.h - reading, parsing, checking and storing one parameter through
// the library's dictionary, with the tool's own checks around it.
#ifndef BBCONF_TOOL_ACCESS_H
#define BBCONF_TOOL_ACCESS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "params.h"
#include "record.h"

namespace bbtool {

// A value as the terminal would report it: its wire bytes.
struct Readout {
    bool ok = false;
    std::vector<uint8_t> wire;
    std::string error;
};

// Reads one parameter.  Set-only parameters are read from their field
// directly (the dictionary does not report them); kinds that hold no value
// fail with a reason.
Readout read_param(Record& rec, const ParamDef& d);

// The big-endian number of a numeric value.
uint32_t decode_number(const std::vector<uint8_t>& wire);

// Human-readable value: decimal numbers, quoted text with non-printable
// bytes escaped (\n, \t, \", \\, \xNN), hex for raw bytes and blocks.
std::string display_value(const ParamDef& d, const std::vector<uint8_t>& wire);

// Quoted, escaped text.
std::string quote_text(const std::vector<uint8_t>& bytes);

// Turns a value typed by a user into wire bytes for the parameter's kind:
// numbers in decimal or 0x-hex; text as given ("text:" forces literal
// text, "hex:" gives bytes); raw and block values as hex, with or without
// "hex:".  Text for a field the record copies without a terminator is
// padded with zero bytes to the field's room, so that no tail of an older,
// longer value survives.  Returns an empty string or the reason it failed.
std::string parse_user_value(const ParamDef& d, std::string_view text, std::vector<uint8_t>& wire);

// Checks wire bytes against the parameter's kind and limit before anything
// is stored: exact width for numbers, room for text and raw values, the
// block's wire length and its codec's verdict.  Returns "" or the reason.
std::string check_wire(const Record& rec, const ParamDef& d, const std::vector<uint8_t>& wire);

// Checks, stores through the library and reads the value back where the
// kind allows.  Returns "" when stored, else the reason (record unchanged
// unless the library itself misbehaved).
std::string store_param(Record& rec, const ParamDef& d, const std::vector<uint8_t>& wire);

}  // namespace bbtool

#endif  // BBCONF_TOOL_ACCESS_H
