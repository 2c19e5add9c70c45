/* dsm.cpp - the driver-state monitoring (DSM) block: factory defaults and
 * the Subiao, SiChuan, GuangDong, Hunan and JiLing wire forms. */
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;

namespace bbconf {
namespace {

/* Behind the general settings: the smoking and phone call judging
 * intervals, shared by every form. */
constexpr WireField kJudgingRows[] = {
    {19, 19, 2, 2, kKeep},
};
constexpr WireTable kJudging = rows_of(kJudgingRows);

/* Wire 26..46, shared by every form but Hunan.  Wire 23..25 are reserved
 * and have no place in the local record, so the alarm groups shift by
 * three. */
constexpr WireField kAlarmGroupRows[] = {
    {26, 23, 1, 21, kKeep}, /* five alarm groups, driver identification trigger */
};
constexpr WireTable kAlarmGroups = rows_of(kAlarmGroupRows);

/* SiChuan carries the six extension bytes as they come, 0xFF included. */
constexpr WireField kSiChuanRows[] = {
    {47, 44, 1, 6, kAlways}, /* extension bytes */
    {53, 50, 1, 3, kKeep},   /* group A video, photos, interval */
    {56, 53, 2, 1, kKeep},   /* group A judging interval */
    {58, 55, 1, 3, kKeep},   /* group B video, photos, interval */
    {61, 58, 2, 1, kKeep},   /* group B judging interval */
};

/* GuangDong sends the third regional group before the second. */
constexpr WireField kGuangDongRows[] = {
    {47, 60, 1, 1, kKeep}, /* first group: speed threshold only */
    {48, 68, 1, 4, kKeep}, /* third group */
    {52, 64, 1, 4, kKeep}, /* second group */
    {56, 72, 1, 8, kKeep}, /* fourth and fifth groups */
};

/* Hunan drops the speed thresholds of the five alarm groups and keeps its
 * last three extension words in front of the three before them. */
constexpr WireField kHunanRows[] = {
    {27, 24, 1, 3, kKeep},    /* fatigue video, photos, interval */
    {31, 28, 1, 3, kKeep},    /* phone call */
    {35, 32, 1, 3, kKeep},    /* smoking */
    {39, 36, 1, 3, kKeep},    /* distraction */
    {43, 40, 1, 4, kKeep},    /* abnormal driving; driver identification trigger */
    {61, 69, 1, 3, kKeep},    /* third regional group: video, photos, interval */
    {68, 84, 2, 15, kKeep},   /* extension words */
    {98, 126, 2, 3, kKeep},   /* extension words, stored last */
    {104, 114, 2, 3, kKeep},  /* extension words, stored before the previous three */
};

constexpr WireField kJiLingRows[] = {
    {60, 68, 1, 8, kKeep},   /* third and fourth regional groups */
    {68, 84, 2, 15, kKeep},  /* extension words */
    {104, 114, 2, 6, kKeep}, /* extension words */
};

/* A form that carries the Subiao head (general settings, judging
 * intervals, alarm groups) and then its own rows. */
constexpr BlockCodec with_subiao_head(WireTable own, int len, const char* set_line, const char* get_line,
                                      Bytes dumped) {
    BlockCodec c = regional_form(kGeneralSettings, kJudging, kAlarmGroups, len, sizeof(Dsm),
                                 set_line, get_line, dumped);
    c.tables[3] = own;
    return c;
}

/* The Subiao and SiChuan forms dump the block itself, the others the bytes
 * in front of the wire pointer.  SiChuan logs with the Subiao wording and
 * first logs the block as it arrived. */
constexpr BlockCodec kSubiaoDsm = with_subiao_head(kNoRows, 49, "Subiao Dsm Param Set Len:%d, DataLen:%d\n",
                                                   "Subiao Dsm Param Get Len:%d, BufLen:%d\n", Bytes::Wire);
constexpr BlockCodec kSiChuanDsm = [] {
    BlockCodec c = with_subiao_head(rows_of(kSiChuanRows), 65, "Subiao Dsm Param Set Len:%d, DataLen:%d\n",
                                    "Subiao Dsm Param Get Len:%d, BufLen:%d\n", Bytes::Wire);
    c.set.arrived = Report{"Subiao Dsm Param Set Len:%d, DataLen:%d\n", Num::Zero, Num::Given, Bytes::Wire, Num::Given};
    return c;
}();
constexpr BlockCodec kGuangDongDsm =
    with_subiao_head(rows_of(kGuangDongRows), 66, "Guangdong Dsm Param Set Len:%d, DataLen:%d\n",
                     "Guangdong Dsm Param Get Len:%d, BufLen:%d\n", Bytes::InFrontOfWire);
constexpr BlockCodec kHunanDsm =
    regional_form(kGeneralSettings, kJudging, rows_of(kHunanRows), 110, sizeof(Dsm),
                  "Hunan Dsm Param Set Len:%d, DataLen:%d\n", "Hunan Dsm Param Get Len:%d, BufLen:%d\n",
                  Bytes::InFrontOfWire);
constexpr BlockCodec kJiLingDsm =
    with_subiao_head(rows_of(kJiLingRows), 126, "JiLing Dsm Param Set Len:%d, DataLen:%d\n",
                     "JiLing Dsm Param Get Len:%d, BufLen:%d\n", Bytes::InFrontOfWire);

static_assert(codec_fits(kSubiaoDsm) && codec_fits(kSiChuanDsm) && codec_fits(kGuangDongDsm) &&
                  codec_fits(kHunanDsm) && codec_fits(kJiLingDsm),
              "every DSM form lies inside its length and the record");

/* Factory defaults.  Speeds in km/h, video lengths and judging intervals in
 * seconds, photo intervals in tenths of a second.  Every byte is written. */
constexpr char kGrade[] = "\x32\x05\x03\x02";           /* speed 50, video 5, photos 3, interval 2 */
constexpr char kExtGroup[] = "\x05\x03\x02\x2c\x01";   /* video 5, photos 3, interval 2, judging 300 */

constexpr FieldDefault kDsmValues[] = {
    BB_NUM(Dsm, ucAlarmSpeed, 30),
    BB_NUM(Dsm, ucVolume, 6),
    BB_NUM(Dsm, ucPhotoStrategy, 0), /* off */
    BB_NUM(Dsm, usTimedPhotoItv, 3600),
    BB_NUM(Dsm, usDistPhotoItv, 200),
    BB_NUM(Dsm, ucPhotoNum, 3),
    BB_NUM(Dsm, ucPhotoItv, 2),
    BB_NUM(Dsm, ucPhotoResolution, 3),
    BB_NUM(Dsm, ucVideoResolution, 3),
    BB_NUM(Dsm, uiAlarmEnable, 0x00FFC3FF),
    BB_NUM(Dsm, uiEventEnable, 0x00000003),
    BB_NUM(Dsm, usSmokeJudgeItv, 180),
    BB_NUM(Dsm, usCallJudgeItv, 120),
    BB_SPAN(Dsm, stFatigue, stAbnormal, kGrade),
    BB_NUM(Dsm, ucDriverIdTrigger, 1),
    BB_BYTES(Dsm, aucExt, "\0"),
    BB_SPAN(Dsm, stGroupA, stGroupB, kExtGroup),
    BB_BYTES(Dsm, astRegion, kGrade),
    BB_BYTES(Dsm, aucExtArea, "\0"),
};
constexpr Defaults kDsmDefaults = defaults_of(kDsmValues);
static_assert(defaults_extent(kDsmDefaults) == sizeof(Dsm) && defaults_fit(kDsmDefaults, sizeof(Dsm)),
              "the DSM defaults write the whole block");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::packed;

// clang-format off
int __InitSubiaoDsmParam(Dsm* pstSubiaoDsm) { return bbconf::init_block(__func__, "NULL != pstSubiaoDsm", pstSubiaoDsm, bbconf::packed_defaults<bbconf::kDsmDefaults>); }
int SubiaoDsm_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return block_set(packed<bbconf::kSubiaoDsm>, __func__, wire, len, local); }
int SubiaoDsm_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kSubiaoDsm>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return SubiaoDsm_B2LStruct(wire, len, local); }
int CMN_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return SubiaoDsm_LStruct2B(local, wire, buflen); }
int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return block_set(packed<bbconf::kSiChuanDsm>, __func__, wire, len, local); }
int SiChuan_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kSiChuanDsm>, __func__, local, wire, buflen); }
int GuangDongDsm_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return block_set(packed<bbconf::kGuangDongDsm>, __func__, wire, len, local); }
int GuangDongDsm_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kGuangDongDsm>, __func__, local, wire, buflen); }
int HunanDsm_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return block_set(packed<bbconf::kHunanDsm>, __func__, wire, len, local); }
int HunanDsm_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kHunanDsm>, __func__, local, wire, buflen); }
int JiLingDsm_B2LStruct(unsigned char* wire, unsigned char len, Dsm* local) { return block_set(packed<bbconf::kJiLingDsm>, __func__, wire, len, local); }
int JiLingDsm_LStruct2B(Dsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kJiLingDsm>, __func__, local, wire, buflen); }
// clang-format on
