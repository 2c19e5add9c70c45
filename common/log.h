/* log.h - the diagnostic lines of the library, all on standard output.
 *
 * Four shapes: "[ASSERT][fn:line]: condition" and lines that begin
 * "Err [fn():line] ", "War [fn():line] " or "Inf [fn():line] ".  The _FN
 * forms take the function name from the caller, for shared engines that
 * report on behalf of an exported function. */
#ifndef BBCONF_COMMON_LOG_H
#define BBCONF_COMMON_LOG_H

#include <stdio.h>

#define BB_ASSERT_LINE_FN(fn, text) printf("[ASSERT][%s:%d]: %s\n", (fn), __LINE__, (text))

/* Prints the assert line with the condition's own text and returns ret
 * (leave ret empty in a void function) when cond does not hold.  The text
 * is taken before macro expansion, so "NULL != p" stays as written.  The
 * platform side matches these lines, so the names in a condition are part
 * of the output: locals such as DataLen, Cnt or SuBiaoLen exist to give the
 * line its words, and renaming one changes what the terminal prints. */
#define BB_CHECK_IMPL(fn, ok, text, ret)           \
    do {                                           \
        if (!(ok)) {                               \
            BB_ASSERT_LINE_FN((fn), (text));       \
            return ret;                            \
        }                                          \
    } while (0)

#define BB_CHECK_FN(fn, cond, ret) BB_CHECK_IMPL(fn, (cond), #cond, ret)
#define BB_CHECK(cond, ret) BB_CHECK_IMPL(__func__, (cond), #cond, ret)

#define BB_ERR_FN(fn, fmt, ...) printf("Err [%s():%d] " fmt, (fn), __LINE__, ##__VA_ARGS__)
#define BB_WAR_FN(fn, fmt, ...) printf("War [%s():%d] " fmt, (fn), __LINE__, ##__VA_ARGS__)
#define BB_INF_FN(fn, fmt, ...) printf("Inf [%s():%d] " fmt, (fn), __LINE__, ##__VA_ARGS__)

#define BB_ERR(fmt, ...) BB_ERR_FN(__func__, fmt, ##__VA_ARGS__)
#define BB_WAR(fmt, ...) BB_WAR_FN(__func__, fmt, ##__VA_ARGS__)
#define BB_INF(fmt, ...) BB_INF_FN(__func__, fmt, ##__VA_ARGS__)

#endif
