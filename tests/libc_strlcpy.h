/* libc_strlcpy.h - the declaration of a C library that has strlcpy of its
 * own (glibc 2.38 and later: C linkage, size_t size), written out so that
 * a build on an older C library meets it too.  Forced in front of the
 * library's own source by the tests' build and included by
 * libc_strlcpy_test.cpp. */
#ifndef BBCONF_TESTS_LIBC_STRLCPY_H
#define BBCONF_TESTS_LIBC_STRLCPY_H

#include <stddef.h>

extern "C" size_t strlcpy(char* dst, const char* src, size_t size);

/* What the header detects on such a C library. */
#define BBCONF_LIBC_HAS_STRLCPY 1

#endif
