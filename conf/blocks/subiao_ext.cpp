/* subiao_ext.cpp - the Subiao blocks beside ADAS and DSM: tyre pressure
 * monitoring (TPMS), blind-spot detection (BSD, defaults only), intense
 * driving, load sensing and vehicle size sensing.
 *
 * Wire and local forms share offsets; multi-byte values are big-endian on
 * the wire and native in the record.  In the TPMS and intense-driving
 * blocks an all-ones wire value keeps the local field, so a platform can
 * change single fields; the load and size blocks have no such marker. */
#include <stddef.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/hexdump.h"
#include "common/log.h"
#include "conf/blocks/fixed_form.h"
#include "conf/blocks/wire.h"

namespace bbconf {
namespace {

/* --- Tyre pressure ------------------------------------------------------ */

constexpr WireField kTpmsFields[] = {
    {0, 0, 1, 12, true},  /* tyre size designation text, byte by byte */
    {12, 12, 2, 9, true}, /* unit, normal pressure, imbalance, slow leak, low,
                             high, temperature, voltage, report interval */
    {30, 30, 1, 6, true}, /* reserved */
};

/* The TPMS get logs under "Bsd" titles; that text is what the terminal's
 * log readers know, so it stays. */
constexpr FixedForm kTpmsForm = {
    rows_of(kTpmsFields), sizeof(tagBB_PARAM_TPMS_SUBIAO_ST),
    "Tpms After Set:", "Bsd Before Get:", "Bsd After Get:", false, nullptr};
static_assert(covers_block(kTpmsForm), "the TPMS table covers 36 bytes");

constexpr char kTyreSpecDefault[sizeof(tagBB_PARAM_TPMS_SUBIAO_ST::szTyreSpec)] = "Unknown";

constexpr DefaultRun kTpmsRuns[] = {
    {12, 2, 1, 3},   /* pressure unit code */
    {14, 2, 1, 140}, /* normal pressure */
    {16, 2, 1, 20},  /* imbalance threshold */
    {18, 2, 1, 5},   /* slow leak threshold */
    {20, 2, 1, 110}, /* low pressure threshold */
    {22, 2, 1, 189}, /* high pressure threshold */
    {24, 2, 1, 80},  /* high temperature threshold */
    {26, 2, 1, 10},  /* voltage threshold */
    {28, 2, 1, 60},  /* report interval */
    {30, 1, 6, 0},   /* reserved */
};
constexpr DefaultTable kTpmsDefaults = rows_of(kTpmsRuns);
static_assert(defaults_extent(kTpmsDefaults) == sizeof(tagBB_PARAM_TPMS_SUBIAO_ST),
              "the TPMS defaults end with the block");

/* --- Blind spot ---------------------------------------------------------- */

constexpr DefaultRun kBsdRuns[] = {
    {0, 1, 2, 5}, /* rear and side-rear approach thresholds */
};
constexpr DefaultTable kBsdDefaults = rows_of(kBsdRuns);
static_assert(defaults_extent(kBsdDefaults) == sizeof(tagBB_PARAM_BSD_SUBIAO_ST),
              "both BSD thresholds");

/* --- Intense driving ------------------------------------------------------ */

/* Threshold words 2, 5 and 8 (offsets 8, 14, 20) take any value, all ones
 * included; the reserved tail is copied as it comes. */
constexpr WireField kIntenseFields[] = {
    {0, 0, 4, 1, true},    /* alarm enable mask */
    {4, 4, 2, 2, true},    /* words 0, 1 */
    {8, 8, 2, 1, false},   /* word 2 */
    {10, 10, 2, 2, true},  /* words 3, 4 */
    {14, 14, 2, 1, false}, /* word 5 */
    {16, 16, 2, 2, true},  /* words 6, 7 */
    {20, 20, 2, 1, false}, /* word 8 */
    {22, 22, 2, 12, true}, /* words 9 to 20 */
    {46, 46, 1, 8, false}, /* reserved */
};

/* The get states the length on its title line and asserts a null wire. */
constexpr FixedForm kIntenseForm = {
    rows_of(kIntenseFields), sizeof(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST),
    "intense driving After Set:", "intense driving Before Get:",
    "intense driving After Get len:", true, "(pDst != NULL)"};
static_assert(covers_block(kIntenseForm), "the intense-driving table covers 54 bytes");

/* Words 2, 5 and 8 and the reserved tail are not written. */
constexpr DefaultRun kIntenseRuns[] = {
    {0, 4, 1, 7},     /* alarm enable mask */
    {4, 2, 1, 5},     /* word 0 */
    {6, 2, 1, 50},    /* word 1 */
    {10, 2, 1, 5},    /* word 3 */
    {12, 2, 1, 20},   /* word 4 */
    {16, 2, 1, 5},    /* word 6 */
    {18, 2, 1, 20},   /* word 7 */
    {22, 2, 1, 50},   /* word 9 */
    {24, 2, 1, 20},   /* word 10 */
    {26, 2, 1, 1500}, /* word 11 */
    {28, 2, 1, 20},   /* word 12 */
    {30, 2, 1, 100},  /* word 13 */
    {32, 2, 1, 500},  /* word 14 */
    {34, 2, 1, 20},   /* word 15 */
    {36, 2, 1, 100},  /* word 16 */
    {38, 2, 1, 500},  /* word 17 */
    {40, 2, 1, 20},   /* word 18 */
    {42, 2, 1, 100},  /* word 19 */
    {44, 2, 1, 1500}, /* word 20 */
};
constexpr DefaultTable kIntenseDefaults = rows_of(kIntenseRuns);
static_assert(defaults_extent(kIntenseDefaults) == 46, "the intense-driving defaults end at word 20");

/* --- Load and size ---------------------------------------------------------- */

constexpr WireField kLoadFields[] = {
    {0, 0, 2, 2, false},   /* values A, B */
    {4, 4, 4, 2, false},   /* values C, D */
    {12, 12, 1, 2, false}, /* settings E, F */
    {14, 14, 2, 2, false}, /* values G, H */
};
constexpr WireTable kLoad = rows_of(kLoadFields);
constexpr int kLoadWireLen = 18;
constexpr int kLoadLocalLen = sizeof(tagBB_PARAM_OVERLOAD_SUBIAO_ST);
static_assert(wire_extent(kLoad) == kLoadWireLen && offsetof(tagBB_PARAM_OVERLOAD_SUBIAO_ST, usLocal) == 18,
              "18 wire bytes, then the local-only word");

constexpr WireField kSizeFields[] = {
    {0, 0, 2, 2, false}, /* size values A, B */
};
constexpr WireTable kSize = rows_of(kSizeFields);
constexpr int kSizeLen = sizeof(tagBB_PARAM_OVERSIZE_SUBIAO_ST);
static_assert(wire_extent(kSize) == kSizeLen, "two words");

/* The set dumps as many record bytes as the caller announced, but never
 * past the record. */
int dump_announced(const unsigned char* local, unsigned char len, int record_len) {
    hex_dump(local, len < record_len ? len : record_len);
    return len;
}

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_TPMS_SUBIAO_ST, bbconf::kTpmsForm)

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, bbconf::kIntenseForm)

int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_OVERLOAD_SUBIAO_ST* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::wire_to_local(bbconf::kLoad, wire, bytes_of(local));
    local->usLocal = 0;
    BB_INF("load sensor param After Set:%d/%d ..\n", len, bbconf::kLoadLocalLen);
    return bbconf::dump_announced(bytes_of(local), len, bbconf::kLoadLocalLen);
}

int CMN_LStruct2B(tagBB_PARAM_OVERLOAD_SUBIAO_ST* local, unsigned char* pinDst, unsigned int BufLen) {
    const unsigned int SuBiaoLen = bbconf::kLoadWireLen;
    BB_CHECK((BufLen >= SuBiaoLen), 0);
    BB_CHECK((pinDst != NULL), 0);
    if (local == NULL) {
        return 0;
    }
    BB_INF("load sensor param Before Get:");
    bbconf::hex_dump(bytes_of(local), bbconf::kLoadWireLen);
    bbconf::local_to_wire(bbconf::kLoad, bytes_of(local), pinDst);
    BB_INF("load sensor param After Get len:%d/%d \n", bbconf::kLoadWireLen, bbconf::kLoadLocalLen);
    bbconf::hex_dump(pinDst, bbconf::kLoadWireLen);
    return bbconf::kLoadWireLen;
}

int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_OVERSIZE_SUBIAO_ST* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::wire_to_local(bbconf::kSize, wire, bytes_of(local));
    BB_INF("load size param After Set:%d/%d ..\n", len, bbconf::kSizeLen);
    return bbconf::dump_announced(bytes_of(local), len, bbconf::kSizeLen);
}

int CMN_LStruct2B(tagBB_PARAM_OVERSIZE_SUBIAO_ST* local, unsigned char* pinDst, unsigned int BufLen) {
    const unsigned int SuBiaoLen = bbconf::kSizeLen;
    BB_CHECK((BufLen >= SuBiaoLen), 0);
    BB_CHECK((pinDst != NULL), 0);
    if (local == NULL) {
        return 0;
    }
    bbconf::local_to_wire(bbconf::kSize, bytes_of(local), pinDst);
    BB_INF("size param After Get len:%d/%d ..\n", bbconf::kSizeLen, bbconf::kSizeLen);
    bbconf::hex_dump(pinDst, bbconf::kSizeLen);
    return bbconf::kSizeLen;
}

/* Initialisers: -1 after the assert line on a null record, otherwise the
 * result of the closing line. */
int __InitSubiaoTpmsParam(tagBB_PARAM_TPMS_SUBIAO_ST* pstSubiaoTpms) {
    BB_CHECK(NULL != pstSubiaoTpms, -1);
    memcpy(pstSubiaoTpms->szTyreSpec, bbconf::kTyreSpecDefault, sizeof bbconf::kTyreSpecDefault);
    bbconf::put_defaults(bbconf::kTpmsDefaults, bytes_of(pstSubiaoTpms));
    return BB_WAR("Param Inited!\n");
}

int __InitSubiaoBsdParam(tagBB_PARAM_BSD_SUBIAO_ST* pstSubiaoBsd) {
    BB_CHECK(NULL != pstSubiaoBsd, -1);
    bbconf::put_defaults(bbconf::kBsdDefaults, bytes_of(pstSubiaoBsd));
    return BB_WAR("Param Inited!\n");
}

int __InitSubiaoIntenseDriveParam(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST* pstSubiaoIntense) {
    BB_CHECK(NULL != pstSubiaoIntense, -1);
    bbconf::put_defaults(bbconf::kIntenseDefaults, bytes_of(pstSubiaoIntense));
    return BB_WAR("Param Intense Drive!\n");
}
