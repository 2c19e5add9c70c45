/* xiangbiao.cpp - the Xiangbiao (Hunan) blocks: video driver-state (VDS),
 * driver comparison and driver capture, with the VDS and capture codecs and
 * the factory defaults of all three.
 *
 * The VDS block keeps a local field when the platform sends all ones; the
 * driver capture block has no such marker and no length test: its caller
 * (the parameter dictionary) guarantees the 18 bytes on both sides.  The
 * driver comparison block has no codec; the dictionary copies it raw. */
#include "bbconf.h"
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using Vds = tagBB_PARAM_VDS_XIANGBIAO_ST;
using DriverCmp = tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST;
using DriverCapture = tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST;

namespace bbconf {
namespace {

constexpr WireField kVdsRows[] = {
    {0, 0, 4, 1, kKeep}, /* enable mask */
    {4, 4, 1, 24, kKeep},
    {28, 28, 2, 3, kKeep}, /* three u16 words */
    {34, 34, 1, 16, kKeep},
};

/* Three (mode, value, interval) groups, the comparison interval, then the
 * fourth group. */
constexpr WireField kCaptureRows[] = {
    {0, 0, 1, 2, kAlways},   {2, 2, 2, 1, kAlways},
    {4, 4, 1, 2, kAlways},   {6, 6, 2, 1, kAlways},
    {8, 8, 1, 2, kAlways},   {10, 10, 2, 2, kAlways}, /* group 3 interval, comparison interval */
    {14, 14, 1, 2, kAlways}, {16, 16, 2, 1, kAlways},
};

/* The VDS set logs under a "Dsm" label; that text is kept as it is. */
constexpr BlockCodec kVds = checked_block(rows_of(kVdsRows), kNoRows, sizeof(Vds), "Dsm After Set:",
                                          "BB_PARAM_VDS_XIANGBIAO_ST Before Get:",
                                          "BB_PARAM_VDS_XIANGBIAO_ST After Get:");

/* The capture codecs trust their caller: no length test either way, and
 * the set converts quietly. */
constexpr BlockCodec kCapture = [] {
    BlockCodec c = checked_block(rows_of(kCaptureRows), kNoRows, sizeof(DriverCapture), nullptr,
                                 "DRIVER_CAPTURE_XIANGBIAO Before Get:", "DRIVER_CAPTURE_XIANGBIAO After Get:");
    c.set.check = Check::None;
    c.get.check = Check::None;
    return c;
}();

static_assert(codec_covers(kVds), "VDS table must cover 50 bytes");
static_assert(codec_covers(kCapture), "driver capture table must cover 18 bytes");

/* VDS defaults.  Offsets 6 and 13 to 20 are zero by default but not
 * written: the initialiser relies on a zeroed record for them. */
constexpr FieldDefault kVdsValues[] = {
    BB_NUM(Vds, uiEnable, 1),
    BB_RUN(Vds, aucParam1, 0, 2, "\x01\x00"),
    BB_RUN(Vds, aucParam1, 3, 6, "\0"),
    BB_RUN(Vds, aucParam1, 17, 3, "\x05\x03\x02"),
    BB_RUN(Vds, aucParam1, 20, 4, "\0"),
    BB_NUM(Vds, usWord1, 0),
    BB_NUM(Vds, usWord2, 0),
    BB_NUM(Vds, usWord3, 0),
    BB_BYTES(Vds, aucParam2, "\0"),
};

constexpr FieldDefault kDriverCmpValues[] = {
    BB_BYTES(DriverCmp, aucParam, "\x01\x32\x32\x02"), /* 1, 50, 50, 2 */
};

/* Four (mode 1, value 20, interval 5) groups around the comparison
 * interval. */
constexpr FieldDefault kCaptureValues[] = {
    BB_NUM(DriverCapture, astGroup[0].ucMode, 1), BB_NUM(DriverCapture, astGroup[0].ucValue, 20),
    BB_NUM(DriverCapture, astGroup[0].usItv, 5),  BB_NUM(DriverCapture, astGroup[1].ucMode, 1),
    BB_NUM(DriverCapture, astGroup[1].ucValue, 20), BB_NUM(DriverCapture, astGroup[1].usItv, 5),
    BB_NUM(DriverCapture, astGroup[2].ucMode, 1), BB_NUM(DriverCapture, astGroup[2].ucValue, 20),
    BB_NUM(DriverCapture, astGroup[2].usItv, 5),  BB_NUM(DriverCapture, usCmpItv, 1200),
    BB_NUM(DriverCapture, stGroup4.ucMode, 1),    BB_NUM(DriverCapture, stGroup4.ucValue, 20),
    BB_NUM(DriverCapture, stGroup4.usItv, 5),
};

constexpr Defaults kVdsDefaults = defaults_of(kVdsValues);
constexpr Defaults kDriverCmpDefaults = defaults_of(kDriverCmpValues);
constexpr Defaults kCaptureDefaults = defaults_of(kCaptureValues);

static_assert(defaults_extent(kVdsDefaults) == sizeof(Vds) && defaults_fit(kVdsDefaults, sizeof(Vds)), "VDS defaults");
static_assert(defaults_extent(kDriverCmpDefaults) == sizeof(DriverCmp), "driver comparison defaults");
static_assert(defaults_extent(kCaptureDefaults) == sizeof(DriverCapture), "driver capture defaults");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::init_block;
using bbconf::packed;

// clang-format off
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Vds* local) { return block_set(packed<bbconf::kVds>, __func__, wire, len, local); }
int CMN_LStruct2B(Vds* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kVds>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, DriverCapture* local) { return block_set(packed<bbconf::kCapture>, __func__, wire, len, local); }
int CMN_LStruct2B(DriverCapture* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kCapture>, __func__, local, wire, buflen); }

int __InitXiangbiaoVdsParam(Vds* pstXiangbiaoVds) { return init_block(__func__, "NULL != pstXiangbiaoVds", pstXiangbiaoVds, bbconf::packed_defaults<bbconf::kVdsDefaults>); }
int __InitXiangbiaoDriverCmpParam(DriverCmp* pstXiangbiaoDriverCmp) { return init_block(__func__, "NULL != pstXiangbiaoDriverCmp", pstXiangbiaoDriverCmp, bbconf::packed_defaults<bbconf::kDriverCmpDefaults>); }
int __InitXiangbiaoDriverCaptureParam(DriverCapture* pstXiangbiaoDriverCapt) { return init_block(__func__, "NULL != pstXiangbiaoDriverCapt", pstXiangbiaoDriverCapt, bbconf::packed_defaults<bbconf::kCaptureDefaults>); }
// clang-format on
