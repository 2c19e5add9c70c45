// body.h - hex text, and the words the tool uses for the faults of
// parameter lists and whole messages that the library's message layer
// reports.  Pure functions over caller-given bytes: no files, no output, no
// exceptions other than std::bad_alloc.
#ifndef BBCONF_TOOL_BODY_H
#define BBCONF_TOOL_BODY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bbconf_message.h"

namespace bbtool {

// Parses hex text into bytes: pairs of hex digits (either case), with
// blanks, tabs and line ends allowed between pairs but not inside one.
// Empty text gives no bytes.  On malformed text returns false, leaves `out`
// empty and puts a one-line reason naming the 1-based character position
// into `error`.
bool parse_hex(std::string_view text, std::vector<uint8_t>& out, std::string& error);

// "1 byte", "3 bytes": a count with its noun.
inline std::string counted(size_t n, const char* noun) { return std::to_string(n) + " " + noun + (n == 1 ? "" : "s"); }

// Lower-case hex digits of the bytes, no separators.
std::string to_hex(const uint8_t* data, size_t size);
inline std::string to_hex(const std::vector<uint8_t>& bytes) { return to_hex(bytes.data(), bytes.size()); }

// A parameter ID as the tool prints it: "0x0013".
std::string id_text(uint32_t id);

// One line about a malformed list: "truncated list: the count announces 126
// items, 1 found whole; item 2 (ID 0x1234567) at byte 6 needs 142 bytes, 19
// remain".  `what` names the list ("list", "ID list").
std::string list_fault_text(const bbconf::ListFault& f, const char* what);

}  // namespace bbtool

#endif  // BBCONF_TOOL_BODY_H
