// text.h - the protocol's text encoding: text values travel and are stored
// as GBK; the tool shows and takes them as UTF-8, converting with the C
// library's iconv.
#ifndef BBCONF_TOOL_TEXT_H
#define BBCONF_TOOL_TEXT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace bbtool {

// GBK bytes as UTF-8.  ASCII stays as it is; a byte that does not start a
// convertible GBK character is handed to `bad` (which appends what stands
// for it) and the conversion goes on after it.  Returns whether every byte
// converted.
bool gbk_to_utf8(const std::vector<uint8_t>& gbk, std::string& out, void (*bad)(std::string& out, uint8_t byte));

// A text value for the terminal: quoted, GBK shown as UTF-8, control
// characters, quotes and backslashes escaped (\n, \t, \", \\), bytes that
// do not convert as \xNN.
std::string display_text(const std::vector<uint8_t>& gbk);

// UTF-8 typed by a user to GBK.  False, with a reason, for text that is not
// UTF-8 or has a character GBK cannot write.
bool utf8_to_gbk(std::string_view utf8, std::vector<uint8_t>& out, std::string& error);

}  // namespace bbtool

#endif  // BBCONF_TOOL_TEXT_H
