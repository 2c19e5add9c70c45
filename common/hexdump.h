/* hexdump.h - the diagnostic dump of codecs and debug IDs. */
#ifndef BBCONF_COMMON_HEXDUMP_H
#define BBCONF_COMMON_HEXDUMP_H

namespace bbconf {

/* Prints n bytes as "%02x": a blank before byte 0 and before every index
 * that is a multiple of 5, a line feed before every non-zero index that is
 * a multiple of 30, then puts("\n").  n <= 0 prints only the end. */
void hex_dump(const unsigned char* p, int n);

}  // namespace bbconf

#endif
