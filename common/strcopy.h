/* strcopy.h - bounded copies shared by the dictionaries. */
#ifndef BBCONF_COMMON_STRCOPY_H
#define BBCONF_COMMON_STRCOPY_H

#include <stddef.h>

namespace bbconf {

/* strlcpy without the length of src: copies up to size - 1 characters,
 * stopping at a NUL, terminates dst (nothing for size 0) and returns the
 * count copied.  Never reads src beyond size - 1 bytes, so it is safe on
 * wire bytes that carry no terminator. */
size_t copy_bounded(char* dst, const char* src, size_t size);

}  // namespace bbconf

#endif
