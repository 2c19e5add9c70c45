// body.h - hex text and the parameter lists of the platform's "set terminal
// parameters" (0x8103) and "query terminal parameters" response (0x0104)
// message bodies.  Pure functions over caller-given bytes: no files, no
// output, no exceptions other than std::bad_alloc.
#ifndef BBCONF_TOOL_BODY_H
#define BBCONF_TOOL_BODY_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bbtool {

// Parses hex text into bytes: pairs of hex digits (either case), with
// blanks, tabs and line ends allowed between pairs but not inside one.
// Empty text gives no bytes.  On malformed text returns false, leaves `out`
// empty and puts a one-line reason naming the 1-based character position
// into `error`.
bool parse_hex(std::string_view text, std::vector<uint8_t>& out, std::string& error);

// "1 byte", "3 bytes": a count with its noun.
inline std::string counted(size_t n, const char* noun) {
    return std::to_string(n) + " " + noun + (n == 1 ? "" : "s");
}

// Lower-case hex digits of the bytes, no separators.
std::string to_hex(const uint8_t* data, size_t size);
inline std::string to_hex(const std::vector<uint8_t>& bytes) { return to_hex(bytes.data(), bytes.size()); }

// One parameter of a body: its DWORD ID and its value bytes.
struct BodyParam {
    uint32_t id = 0;
    std::vector<uint8_t> value;
};

// Largest number of parameters and largest value a body can carry: the
// count and each length are one byte.
constexpr size_t kBodyMaxParams = 255;
constexpr size_t kBodyMaxValue = 255;

// Parses a parameter list: a BYTE count, then per parameter a big-endian
// DWORD ID, a BYTE length and that many value bytes.  The body must end
// exactly after the last parameter.  On a truncated or over-long body
// returns false, leaves `out` empty and describes the fault in `error`
// (which parameter, what was expected, what remained).
bool parse_param_body(const uint8_t* data, size_t size, std::vector<BodyParam>& out, std::string& error);

// Builds a parameter list in the same layout.  Returns false (and leaves
// `out` empty) when there are more than 255 parameters or a value is longer
// than 255 bytes.
bool build_param_body(const std::vector<BodyParam>& params, std::vector<uint8_t>& out, std::string& error);

// A parameter ID as the tool prints it: "0x0013".
std::string id_text(uint32_t id);

}  // namespace bbtool

#endif  // BBCONF_TOOL_BODY_H
