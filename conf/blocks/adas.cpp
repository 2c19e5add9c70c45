/* adas.cpp - the driver-assistance (ADAS) block: factory defaults and the
 * Subiao, SiChuan, GuangDong, Hunan and JiLing wire forms. */
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;

namespace bbconf {
namespace {

/* Wire 19..51 onto local 19..51, behind the general settings, shared by
 * every form but Hunan.  The reserved byte 19 is carried as it comes, 0xFF
 * included. */
constexpr WireField kAlarmRows[] = {
    {19, 19, 1, 1, kAlways}, /* reserved byte */
    {20, 20, 1, 32, kKeep},  /* obstacle .. road sign photo interval */
};
constexpr WireTable kAlarms = rows_of(kAlarmRows);

constexpr WireField kSiChuanRows[] = {
    {52, 63, 1, 5, kKeep}, /* SiChuan extension bytes */
};

constexpr WireField kGuangDongRows[] = {
    {52, 55, 1, 8, kKeep}, /* extension groups A and B */
};

constexpr WireField kJiLingRows[] = {
    {56, 55, 1, 4, kKeep},  /* extension group A */
    {60, 68, 2, 18, kKeep}, /* extension words */
};

/* Hunan keeps only part of the alarm settings: no reserved byte, no
 * obstacle or lane change fields, no forward-collision or headway speed
 * thresholds and no road sign photo interval.  Those local fields are left
 * as they are. */
constexpr WireField kHunanRows[] = {
    {32, 32, 1, 4, kKeep},  /* lane departure video..interval, forward collision time */
    {37, 37, 1, 9, kKeep},  /* forward collision video .. headway threshold */
    {47, 47, 1, 4, kKeep},  /* headway video..interval, road sign photo count */
    {72, 80, 2, 12, kKeep}, /* Hunan extension words */
};

/* The SiChuan form logs with the Subiao wording; every ADAS form dumps the
 * bytes in front of the wire pointer. */
constexpr int kAdasSize = sizeof(tagBB_PARAM_ADAS_SUBIAO_ST);
constexpr BlockCodec kSubiaoAdas =
    regional_form(kGeneralSettings, kAlarms, kNoRows, 56, kAdasSize, "Subiao Adas Param Set Len:%d, DataLen:%d\n",
                  "Subiao Adas Param Get Len:%d, BufLen:%d\n", Bytes::InFrontOfWire);
constexpr BlockCodec kSiChuanAdas = regional_form(
    kGeneralSettings, kAlarms, rows_of(kSiChuanRows), 61, kAdasSize, "Subiao Adas Param Set Len:%d, DataLen:%d\n",
    "Subiao Adas Param Get Len:%d, BufLen:%d\n", Bytes::InFrontOfWire);
constexpr BlockCodec kGuangDongAdas = regional_form(
    kGeneralSettings, kAlarms, rows_of(kGuangDongRows), 64, kAdasSize,
    "Guangdong Adas Param Set Len:%d, DataLen:%d\n", "Guangdong Adas Param Get Len:%d, BufLen:%d\n",
    Bytes::InFrontOfWire);
constexpr BlockCodec kHunanAdas =
    regional_form(kGeneralSettings, rows_of(kHunanRows), kNoRows, 96, kAdasSize,
                  "Hunan Adas Param Set Len:%d, DataLen:%d\n", "Hunan Adas Param Get Len:%d, BufLen:%d\n",
                  Bytes::InFrontOfWire);
constexpr BlockCodec kJiLingAdas = regional_form(
    kGeneralSettings, kAlarms, rows_of(kJiLingRows), 112, kAdasSize, "JiLing Adas Param Set Len:%d, DataLen:%d\n",
    "JiLing Adas Param Get Len:%d, BufLen:%d\n", Bytes::InFrontOfWire);

static_assert(codec_fits(kSubiaoAdas) && codec_fits(kSiChuanAdas) && codec_fits(kGuangDongAdas) &&
                  codec_fits(kHunanAdas) && codec_fits(kJiLingAdas),
              "every ADAS form lies inside its length and the record");

/* Factory defaults.  Times in tenths of a second, speeds in km/h, video
 * lengths in seconds.  The SiChuan bytes keep what the record held. */
constexpr FieldDefault kAdasValues[] = {
    BB_NUM(Adas, ucAlarmSpeed, 30),
    BB_NUM(Adas, ucVolume, 6),
    BB_NUM(Adas, ucPhotoStrategy, 0), /* off */
    BB_NUM(Adas, usTimedPhotoItv, 60),
    BB_NUM(Adas, usDistPhotoItv, 200),
    BB_NUM(Adas, ucPhotoNum, 3),
    BB_NUM(Adas, ucPhotoItv, 2),
    BB_NUM(Adas, ucPhotoResolution, 3),
    BB_NUM(Adas, ucVideoResolution, 3),
    BB_NUM(Adas, uiAlarmEnable, 0x00011FFF),
    BB_NUM(Adas, uiEventEnable, 0x00000003),
    BB_NUM(Adas, ucReserved, 0),
    /* distance or time, speed, video, photos, interval */
    BB_SPAN(Adas, ucObstacleDist, ucObstaclePhotoItv, "\x1e\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucLaneChangePeriod, ucLaneChangePhotoItv, "\x3c\x05\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucLaneDepartSpeed, ucLaneDepartPhotoItv, "\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucFcwTime, ucFcwPhotoItv, "\x1b\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucPcwTime, ucPcwPhotoItv, "\x1e\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucHmwTime, ucHmwPhotoItv, "\x0a\x32\x05\x03\x02"),
    BB_SPAN(Adas, ucRoadSignPhotoNum, ucRoadSignPhotoItv, "\x03\x02"),
    BB_BYTES(Adas, aucExt, "\x05\x03\x02"),
    BB_SPAN(Adas, stGroupA, stGroupB, "\x32\x05\x03\x02"),
    BB_BYTES(Adas, ausExtWord, "\0"),
};
constexpr Defaults kAdasDefaults = defaults_of(kAdasValues);
static_assert(defaults_fit(kAdasDefaults, sizeof(Adas)), "ADAS defaults lie inside the block");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::packed;

// clang-format off
int __InitSubiaoAdasParam(Adas* pstSubiaoAdas) { return bbconf::init_block(__func__, "NULL != pstSubiaoAdas", pstSubiaoAdas, bbconf::packed_defaults<bbconf::kAdasDefaults>); }
int SubiaoAdas_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return block_set(packed<bbconf::kSubiaoAdas>, __func__, wire, len, local); }
int SubiaoAdas_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kSubiaoAdas>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return SubiaoAdas_B2LStruct(wire, len, local); }
int CMN_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return SubiaoAdas_LStruct2B(local, wire, buflen); }
int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return block_set(packed<bbconf::kSiChuanAdas>, __func__, wire, len, local); }
int SiChuan_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kSiChuanAdas>, __func__, local, wire, buflen); }
int GuangDongAdas_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return block_set(packed<bbconf::kGuangDongAdas>, __func__, wire, len, local); }
int GuangDongAdas_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kGuangDongAdas>, __func__, local, wire, buflen); }
int HunanAdas_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return block_set(packed<bbconf::kHunanAdas>, __func__, wire, len, local); }
int HunanAdas_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kHunanAdas>, __func__, local, wire, buflen); }
int JiLingAdas_B2LStruct(unsigned char* wire, unsigned char len, Adas* local) { return block_set(packed<bbconf::kJiLingAdas>, __func__, wire, len, local); }
int JiLingAdas_LStruct2B(Adas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kJiLingAdas>, __func__, local, wire, buflen); }
// clang-format on
