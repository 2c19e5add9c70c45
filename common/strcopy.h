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

/* The exported strlcpy(char*, const char*, unsigned int) under a name of its
 * own: the assembler label is that function's C++ symbol.  The library
 * defines it here, so that the definition never meets the C library's
 * strlcpy (glibc 2.38 and later declare one with C linkage, which on 32-bit
 * targets has the same parameter types). */
unsigned int exported_strlcpy(char* dst, const char* src, unsigned int size) __asm__("_Z7strlcpyPcPKcj");

}  // namespace bbconf

#endif
