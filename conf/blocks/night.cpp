/* night.cpp - the night-time rule blocks: night speed limit, night
 * abnormal-movement watch and night fatigue rule, with their codecs and
 * factory defaults.
 *
 * Each block carries its own night period as two BCD times of day (hour,
 * minute, second).  Wire and local forms share offsets; only the two u32 of
 * the fatigue block change byte order.  These blocks have no keep-unchanged
 * marker: an 0xFF byte is stored like any other value. */
#include "bbconf.h"
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using NightSpeed = tagBB_PARAM_NIGHT_SPEED_ST;
using NightMove = tagBB_PARAM_NIGHT_MOVE_ST;
using NightTired = tagBB_PARAM_NIGHT_TIRED_ST;

namespace bbconf {
namespace {

/* Speed and movement blocks: eight single bytes, identical on the wire. */
constexpr WireField kNightByteRows[] = {
    {0, 0, 1, 8, kAlways},
};

constexpr WireField kNightTiredRows[] = {
    {0, 0, 1, 7, kAlways},   /* enable, period start, period end */
    {7, 7, 4, 2, kAlways},   /* driving limit, minimum rest (s) */
    {15, 15, 1, 1, kAlways}, /* setting byte */
};

/* The three blocks log under the same plain headers. */
constexpr BlockCodec night_block(WireTable rows, int len) {
    return checked_block(rows, kNoRows, len, "After Set:", "Before Get:", "After Get:");
}

constexpr BlockCodec kNightSpeed = night_block(rows_of(kNightByteRows), sizeof(NightSpeed));
constexpr BlockCodec kNightMove = night_block(rows_of(kNightByteRows), sizeof(NightMove));
constexpr BlockCodec kNightTired = night_block(rows_of(kNightTiredRows), sizeof(NightTired));

static_assert(codec_covers(kNightSpeed) && codec_covers(kNightMove) && codec_covers(kNightTired),
              "each night table names every byte of its block");

/* Defaults: every field is written, zeros included. */
constexpr FieldDefault kNightSpeedValues[] = {
    BB_NUM(NightSpeed, ucEnable, 0),
    BB_NUM(NightSpeed, ucSpeedLmt, 80),
    BB_BYTES(NightSpeed, aucStart, "\x22\x00\x00"), /* 22:00:00 */
    BB_BYTES(NightSpeed, aucEnd, "\x06\x00\x00"),   /* 06:00:00 */
};

constexpr FieldDefault kNightMoveValues[] = {
    BB_NUM(NightMove, ucEnable, 0),
    BB_BYTES(NightMove, aucStart, "\x02\x00\x00"), /* 02:00:00 */
    BB_BYTES(NightMove, aucEnd, "\x05\x00\x00"),   /* 05:00:00 */
    BB_NUM(NightMove, ucSetting, 0),
};

constexpr FieldDefault kNightTiredValues[] = {
    BB_NUM(NightTired, ucEnable, 0),
    BB_BYTES(NightTired, aucStart, "\x22\x00\x00"), /* 22:00:00 */
    BB_BYTES(NightTired, aucEnd, "\x05\x00\x00"),   /* 05:00:00 */
    BB_NUM(NightTired, uiDriveLmt, 7200),           /* two hours of driving */
    BB_NUM(NightTired, uiMinRest, 1200),            /* twenty minutes of rest */
    BB_NUM(NightTired, ucSetting, 0),
};

constexpr Defaults kNightSpeedDefaults = defaults_of(kNightSpeedValues);
constexpr Defaults kNightMoveDefaults = defaults_of(kNightMoveValues);
constexpr Defaults kNightTiredDefaults = defaults_of(kNightTiredValues);

static_assert(defaults_extent(kNightSpeedDefaults) == sizeof(NightSpeed) &&
                  defaults_extent(kNightMoveDefaults) == sizeof(NightMove) &&
                  defaults_extent(kNightTiredDefaults) == sizeof(NightTired),
              "the night defaults write whole blocks");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::bytes_of;
using bbconf::packed;
using bbconf::put_field_defaults;

// clang-format off
int CMN_B2LStruct(unsigned char* wire, unsigned char len, NightSpeed* local) { return block_set(packed<bbconf::kNightSpeed>, __func__, wire, len, local); }
int CMN_LStruct2B(NightSpeed* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kNightSpeed>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, NightMove* local) { return block_set(packed<bbconf::kNightMove>, __func__, wire, len, local); }
int CMN_LStruct2B(NightMove* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kNightMove>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, NightTired* local) { return block_set(packed<bbconf::kNightTired>, __func__, wire, len, local); }
int CMN_LStruct2B(NightTired* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kNightTired>, __func__, local, wire, buflen); }

/* The initialisers trust their caller: no pointer test, nothing printed. */
void __InitNightSpeedLmt(NightSpeed* pstNightSpeedLmt) { put_field_defaults(bytes_of(pstNightSpeedLmt), bbconf::packed_defaults<bbconf::kNightSpeedDefaults>); }
void __InitNightAbnormalMove(NightMove* pstNightAbnormalMove) { put_field_defaults(bytes_of(pstNightAbnormalMove), bbconf::packed_defaults<bbconf::kNightMoveDefaults>); }
void __InitNightTiredSetting(NightTired* pstNightTiredSetting) { put_field_defaults(bytes_of(pstNightTiredSetting), bbconf::packed_defaults<bbconf::kNightTiredDefaults>); }
// clang-format on
