/* night.cpp - the night-time rule blocks: night speed limit, night
 * abnormal-movement watch and night fatigue rule, with their codecs and
 * factory defaults.
 *
 * Each block carries its own night period as two BCD times of day (hour,
 * minute, second).  Wire and local forms share offsets; only the two u32 of
 * the fatigue block change byte order.  These blocks have no keep-unchanged
 * marker: an 0xFF byte is stored like any other value. */
#include "bbconf.h"
#include "conf/blocks/fixed_form.h"

namespace bbconf {
namespace {

/* Speed and movement blocks: eight single bytes, identical on the wire. */
constexpr WireField kNightBytes[] = {
    {0, 0, 1, 8, false},
};

constexpr WireField kNightTired[] = {
    {0, 0, 1, 7, false},   /* enable, period start, period end */
    {7, 7, 4, 2, false},   /* driving limit, minimum rest (s) */
    {15, 15, 1, 1, false}, /* setting byte */
};

/* The three blocks log under the same plain headers. */
constexpr FixedForm night_form(int len, WireTable t) {
    return FixedForm{t, len, "After Set:", "Before Get:", "After Get:", false, nullptr};
}

constexpr FixedForm kSpeedForm =
    night_form(sizeof(tagBB_PARAM_NIGHT_SPEED_ST), rows_of(kNightBytes));
constexpr FixedForm kMoveForm =
    night_form(sizeof(tagBB_PARAM_NIGHT_MOVE_ST), rows_of(kNightBytes));
constexpr FixedForm kTiredForm =
    night_form(sizeof(tagBB_PARAM_NIGHT_TIRED_ST), rows_of(kNightTired));

/* Each table names every byte of its block. */
static_assert(covers_block(kSpeedForm), "night speed table must cover 8 bytes");
static_assert(covers_block(kMoveForm), "night movement table must cover 8 bytes");
static_assert(covers_block(kTiredForm), "night fatigue table must cover 16 bytes");

/* Defaults: every field is written, zeros included. */
constexpr DefaultRun kSpeedRuns[] = {
    {0, 1, 1, 0},                              /* rule off */
    {1, 1, 1, 80},                             /* speed limit */
    {2, 1, 1, 0x22}, {3, 1, 1, 0}, {4, 1, 1, 0}, /* from 22:00:00 */
    {5, 1, 1, 0x06}, {6, 1, 1, 0}, {7, 1, 1, 0}, /* to 06:00:00 */
};

constexpr DefaultRun kMoveRuns[] = {
    {0, 1, 1, 0},                              /* rule off */
    {1, 1, 1, 0x02}, {2, 1, 1, 0}, {3, 1, 1, 0}, /* from 02:00:00 */
    {4, 1, 1, 0x05}, {5, 1, 1, 0}, {6, 1, 1, 0}, /* to 05:00:00 */
    {7, 1, 1, 0},                              /* setting byte */
};

constexpr DefaultRun kTiredRuns[] = {
    {0, 1, 1, 0},                              /* rule off */
    {1, 1, 1, 0x22}, {2, 1, 1, 0}, {3, 1, 1, 0}, /* from 22:00:00 */
    {4, 1, 1, 0x05}, {5, 1, 1, 0}, {6, 1, 1, 0}, /* to 05:00:00 */
    {7, 4, 1, 7200},                           /* two hours of driving */
    {11, 4, 1, 1200},                          /* twenty minutes of rest */
    {15, 1, 1, 0},                             /* setting byte */
};

constexpr DefaultTable kSpeedDefaults = rows_of(kSpeedRuns);
constexpr DefaultTable kMoveDefaults = rows_of(kMoveRuns);
constexpr DefaultTable kTiredDefaults = rows_of(kTiredRuns);

static_assert(defaults_extent(kSpeedDefaults) == sizeof(tagBB_PARAM_NIGHT_SPEED_ST),
              "speed defaults");
static_assert(defaults_extent(kMoveDefaults) == sizeof(tagBB_PARAM_NIGHT_MOVE_ST), "move defaults");
static_assert(defaults_extent(kTiredDefaults) == sizeof(tagBB_PARAM_NIGHT_TIRED_ST),
              "tired defaults");

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_NIGHT_SPEED_ST, bbconf::kSpeedForm)

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_NIGHT_MOVE_ST, bbconf::kMoveForm)

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_NIGHT_TIRED_ST, bbconf::kTiredForm)

/* The initialisers trust their caller: no pointer test, nothing printed. */
void __InitNightSpeedLmt(tagBB_PARAM_NIGHT_SPEED_ST* pstNightSpeedLmt) {
    bbconf::put_defaults(bbconf::kSpeedDefaults, bytes_of(pstNightSpeedLmt));
}

void __InitNightAbnormalMove(tagBB_PARAM_NIGHT_MOVE_ST* pstNightAbnormalMove) {
    bbconf::put_defaults(bbconf::kMoveDefaults, bytes_of(pstNightAbnormalMove));
}

void __InitNightTiredSetting(tagBB_PARAM_NIGHT_TIRED_ST* pstNightTiredSetting) {
    bbconf::put_defaults(bbconf::kTiredDefaults, bytes_of(pstNightTiredSetting));
}
