/* hexdump.cpp - the diagnostic dump of codecs and debug IDs. */
#include "common/hexdump.h"

#include <stdio.h>

namespace bbconf {

void hex_dump(const unsigned char* p, int n) {
    for (int i = 0; i < n; i++) {
        if (i == 0) {
            putchar(' ');
        } else {
            if (i % 30 == 0) {
                putchar('\n');
            }
            if (i % 5 == 0) {
                putchar(' ');
            }
        }
        printf("%02x", p[i]);
    }
    puts("\n");
}

}  // namespace bbconf
