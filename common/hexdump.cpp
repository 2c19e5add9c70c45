/* hexdump.cpp - the diagnostic dump of codecs and debug IDs. */
#include "common/hexdump.h"

#include <stdio.h>

namespace bbconf {

void hex_dump(const unsigned char* p, int n) {
    /* The byte's place in its group of 5 and in its line of 30, counted
     * rather than taken as i % 5 and i % 30: an -Os build for 32-bit ARM
     * would take the division from libgcc. */
    int in5 = 0;
    int in30 = 0;
    for (int i = 0; i < n; i++) {
        if (i == 0) {
            putchar(' ');
        } else {
            if (in30 == 0) {
                putchar('\n');
            }
            if (in5 == 0) {
                putchar(' ');
            }
        }
        printf("%02x", p[i]);
        in5 = in5 == 4 ? 0 : in5 + 1;
        in30 = in30 == 29 ? 0 : in30 + 1;
    }
    puts("\n");
}

}  // namespace bbconf
