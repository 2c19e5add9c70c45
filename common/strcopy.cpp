/* strcopy.cpp - the library's bounded string copies. */
#include "common/strcopy.h"

#include <string.h>

#include "bbconf.h"

namespace bbconf {

size_t copy_bounded(char* dst, const char* src, size_t size) {
    if (size == 0) {
        return 0;
    }
    size_t n = 0;
    while (n + 1 < size && src[n] != '\0') {
        dst[n] = src[n];
        n++;
    }
    dst[n] = '\0';
    return n;
}

BBCONF_API unsigned int exported_strlcpy(char* dst, const char* src, unsigned int size) {
    copy_bounded(dst, src, size);
    return static_cast<unsigned int>(strlen(src));
}

}  // namespace bbconf

char* String_copy(const char* src, int srcLen, char* dst, int dstSize) {
    int n = (dstSize > srcLen) ? srcLen : dstSize - 1;
    if (n > 0) {
        memcpy(dst, src, static_cast<size_t>(n));
    }
    if (n >= 0) {
        dst[n] = '\0';
    }
    return dst;
}
