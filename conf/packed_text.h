/* packed_text.h - texts of a constant table gathered into the table's own
 * characters at compile time, named by offset.
 *
 * A constant object of the shared library that holds a pointer needs a
 * relocation, and with it a private copy of its page in every process.  The
 * block codecs and the defaults tables are therefore written with plain
 * string literals but stored packed: a table of rows with small offsets and
 * one character array behind them, built by a constexpr pass that never
 * reaches the library image. */
#ifndef BBCONF_CONF_PACKED_TEXT_H
#define BBCONF_CONF_PACKED_TEXT_H

#include <stdint.h>

namespace bbconf {

constexpr uint16_t kNoText = 0xFFFF; /* a null text */

/* Characters a sizing pass may use; a table needing more fails to compile. */
constexpr int kTextScratch = 1024;

/* Offset of the n bytes at s, followed by a terminator, among the used
 * characters of pool (an earlier text or the tail of one, if equal), or
 * after them, appended.  Null stays null. */
constexpr uint16_t intern_bytes(char* pool, int& used, const char* s, int n) {
    if (s == nullptr) {
        return kNoText;
    }
    for (int at = 0; at + n < used; at++) {
        int i = 0;
        while (i < n && pool[at + i] == s[i]) {
            i++;
        }
        if (i == n && pool[at + n] == '\0') {
            return static_cast<uint16_t>(at);
        }
    }
    const int at = used;
    for (int i = 0; i < n; i++) {
        pool[at + i] = s[i];
    }
    pool[at + n] = '\0';
    used += n + 1;
    return static_cast<uint16_t>(at);
}

/* The same for a terminated text. */
constexpr uint16_t intern(char* pool, int& used, const char* s) {
    int n = 0;
    while (s != nullptr && s[n] != '\0') {
        n++;
    }
    return intern_bytes(pool, used, s, n);
}

constexpr int at_least_one(int n) { return n > 0 ? n : 1; }

}  // namespace bbconf

#endif
