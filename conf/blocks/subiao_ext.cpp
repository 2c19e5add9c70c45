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
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using Tpms = tagBB_PARAM_TPMS_SUBIAO_ST;
using Bsd = tagBB_PARAM_BSD_SUBIAO_ST;
using Intense = tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST;
using Load = tagBB_PARAM_OVERLOAD_SUBIAO_ST;
using Size = tagBB_PARAM_OVERSIZE_SUBIAO_ST;

namespace bbconf {
namespace {

/* --- Tyre pressure ------------------------------------------------------ */

constexpr WireField kTpmsRows[] = {
    {0, 0, 1, 12, kKeep},  /* tyre size designation text, byte by byte */
    {12, 12, 2, 9, kKeep}, /* unit, normal pressure, imbalance, slow leak, low,
                              high, temperature, voltage, report interval */
    {30, 30, 1, 6, kKeep}, /* reserved */
};

/* The TPMS get logs under "Bsd" titles; that text is what the terminal's
 * log readers know, so it stays. */
constexpr BlockCodec kTpms = checked_block(rows_of(kTpmsRows), kNoRows, sizeof(Tpms), "Tpms After Set:",
                                           "Bsd Before Get:", "Bsd After Get:");
static_assert(codec_covers(kTpms), "the TPMS table covers 36 bytes");

constexpr FieldDefault kTpmsValues[] = {
    BB_BYTES(Tpms, szTyreSpec, "Unknown\0\0\0\0\0"), /* the text, NUL-padded */
    BB_NUM(Tpms, usPressureUnit, 3),
    BB_NUM(Tpms, usNormalPressure, 140),
    BB_NUM(Tpms, usImbalance, 20),
    BB_NUM(Tpms, usSlowLeak, 5),
    BB_NUM(Tpms, usLowPressure, 110),
    BB_NUM(Tpms, usHighPressure, 189),
    BB_NUM(Tpms, usHighTemp, 80),
    BB_NUM(Tpms, usVoltage, 10),
    BB_NUM(Tpms, usReportItv, 60),
    BB_BYTES(Tpms, aucReserved, "\0"),
};
constexpr Defaults kTpmsDefaults = defaults_of(kTpmsValues);
static_assert(defaults_extent(kTpmsDefaults) == sizeof(Tpms) && defaults_fit(kTpmsDefaults, sizeof(Tpms)),
              "the TPMS defaults write the whole block");

/* --- Blind spot ---------------------------------------------------------- */

constexpr FieldDefault kBsdValues[] = {
    BB_NUM(Bsd, ucRearThreshold, 5),
    BB_NUM(Bsd, ucSideRearThreshold, 5),
};
constexpr Defaults kBsdDefaults = defaults_of(kBsdValues);

/* --- Intense driving ------------------------------------------------------ */

/* Threshold words 2, 5 and 8 (offsets 8, 14, 20) take any value, all ones
 * included; the reserved tail is copied as it comes. */
constexpr WireField kIntenseRows[] = {
    {0, 0, 4, 1, kKeep},     /* alarm enable mask */
    {4, 4, 2, 2, kKeep},     /* words 0, 1 */
    {8, 8, 2, 1, kAlways},   /* word 2 */
    {10, 10, 2, 2, kKeep},   /* words 3, 4 */
    {14, 14, 2, 1, kAlways}, /* word 5 */
    {16, 16, 2, 2, kKeep},   /* words 6, 7 */
    {20, 20, 2, 1, kAlways}, /* word 8 */
    {22, 22, 2, 12, kKeep},  /* words 9 to 20 */
    {46, 46, 1, 8, kAlways}, /* reserved */
};

/* The get states the length on its title line and asserts a null wire. */
constexpr BlockCodec kIntense = [] {
    BlockCodec c = checked_block(rows_of(kIntenseRows), kNoRows, sizeof(Intense), "intense driving After Set:",
                                 "intense driving Before Get:", "intense driving After Get len:%d");
    c.get.ptrs[0].text = "(pDst != NULL)";
    return c;
}();
static_assert(codec_covers(kIntense), "the intense-driving table covers 54 bytes");

/* Words 2, 5 and 8 and the reserved tail are not written. */
constexpr FieldDefault kIntenseValues[] = {
    BB_NUM(Intense, uiAlarmEnable, 7),
    BB_ITEM(Intense, ausThreshold, 0, 5),    BB_ITEM(Intense, ausThreshold, 1, 50),
    BB_ITEM(Intense, ausThreshold, 3, 5),    BB_ITEM(Intense, ausThreshold, 4, 20),
    BB_ITEM(Intense, ausThreshold, 6, 5),    BB_ITEM(Intense, ausThreshold, 7, 20),
    BB_ITEM(Intense, ausThreshold, 9, 50),   BB_ITEM(Intense, ausThreshold, 10, 20),
    BB_ITEM(Intense, ausThreshold, 11, 1500), BB_ITEM(Intense, ausThreshold, 12, 20),
    BB_ITEM(Intense, ausThreshold, 13, 100), BB_ITEM(Intense, ausThreshold, 14, 500),
    BB_ITEM(Intense, ausThreshold, 15, 20),  BB_ITEM(Intense, ausThreshold, 16, 100),
    BB_ITEM(Intense, ausThreshold, 17, 500), BB_ITEM(Intense, ausThreshold, 18, 20),
    BB_ITEM(Intense, ausThreshold, 19, 100), BB_ITEM(Intense, ausThreshold, 20, 1500),
};
constexpr Defaults kIntenseDefaults = defaults_of(kIntenseValues);
static_assert(defaults_fit(kIntenseDefaults, sizeof(Intense)), "the intense-driving defaults fit the block");

/* --- Load and size ---------------------------------------------------------- */

/* Neither block is judged by its length on a set: the set converts, then
 * reports and returns the length it was given.  The load record keeps a
 * word of its own behind the 18 wire bytes, cleared by every set. */
constexpr WireField kLoadRows[] = {
    {0, 0, 2, 2, kAlways},      /* values A, B */
    {4, 4, 4, 2, kAlways},      /* values C, D */
    {12, 12, 1, 2, kAlways},    /* settings E, F */
    {14, 14, 2, 2, kAlways},    /* values G, H */
    {0, 18, 2, 1, kLocalOnly},  /* the record's own word */
};

constexpr WireField kSizeRows[] = {
    {0, 0, 2, 2, kAlways}, /* size values A, B */
};

constexpr Direction sensor_set(int len, const char* title) {
    return Direction{len, Check::None, nullptr, {kQuietWire, kQuietRecord}, Image::Direct, kSilent, kSilent,
                     Report{title, Num::Given, Num::LocalLen, Bytes::Record, Num::Given}, Num::Given};
}
constexpr Direction sensor_get(int len, Report before, const char* title) {
    return Direction{len, Check::First, "(BufLen >= SuBiaoLen)", {{Ptr::Wire, "(pinDst != NULL)"}, kQuietRecord},
                     Image::Direct, kSilent, before, Report{title, Num::Len, Num::LocalLen, Bytes::Wire, Num::Len},
                     Num::Len};
}

constexpr BlockCodec kLoad{{rows_of(kLoadRows)},
                           sizeof(Load),
                           sensor_set(18, "load sensor param After Set:%d/%d ..\n"),
                           sensor_get(18, Report{"load sensor param Before Get:", Num::Zero, Num::Zero, Bytes::Record, Num::Len},
                                      "load sensor param After Get len:%d/%d \n")};
constexpr BlockCodec kSize{{rows_of(kSizeRows)},
                           sizeof(Size),
                           sensor_set(4, "load size param After Set:%d/%d ..\n"),
                           sensor_get(4, kSilent, "size param After Get len:%d/%d ..\n")};
static_assert(codec_wire_extent(kLoad) == 18 && codec_fits(kLoad), "18 wire bytes, then the record's own word");
static_assert(codec_covers(kSize), "two words");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::init_block;
using bbconf::packed;

// clang-format off
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Tpms* local) { return block_set(packed<bbconf::kTpms>, __func__, wire, len, local); }
int CMN_LStruct2B(Tpms* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kTpms>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Intense* local) { return block_set(packed<bbconf::kIntense>, __func__, wire, len, local); }
int CMN_LStruct2B(Intense* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kIntense>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Load* local) { return block_set(packed<bbconf::kLoad>, __func__, wire, len, local); }
int CMN_LStruct2B(Load* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kLoad>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Size* local) { return block_set(packed<bbconf::kSize>, __func__, wire, len, local); }
int CMN_LStruct2B(Size* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kSize>, __func__, local, wire, buflen); }

int __InitSubiaoTpmsParam(Tpms* pstSubiaoTpms) { return init_block(__func__, "NULL != pstSubiaoTpms", pstSubiaoTpms, bbconf::packed_defaults<bbconf::kTpmsDefaults>); }
int __InitSubiaoBsdParam(Bsd* pstSubiaoBsd) { return init_block(__func__, "NULL != pstSubiaoBsd", pstSubiaoBsd, bbconf::packed_defaults<bbconf::kBsdDefaults>); }
int __InitSubiaoIntenseDriveParam(Intense* pstSubiaoIntense) { return init_block(__func__, "NULL != pstSubiaoIntense", pstSubiaoIntense, bbconf::packed_defaults<bbconf::kIntenseDefaults>, "Param Intense Drive!\n"); }
// clang-format on
