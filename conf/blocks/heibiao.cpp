/* heibiao.cpp - the Heibiao (Heilongjiang) blocks: driver identification,
 * vehicle operation monitoring, driver state monitoring and device failure
 * monitoring, with their codecs and factory defaults.
 *
 * The four records are byte strings with a few u16 thresholds; the wire
 * form has the same offsets with the u16 big-endian.  Every field keeps its
 * local value when the platform sends all ones (0xFF, 0xFFFF), so a
 * platform can change single fields of a block. */
#include "bbconf.h"
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using DriverIdentify = tagBB_PARAM_DRIVER_IDENTIFY_ST;
using VehicleOperate = tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST;
using HljDsm = tagBB_PARAM_DSM_HEIBIAO_ST;
using HljDevFail = tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST;

namespace bbconf {
namespace {

/* Four head bytes, then the block's thresholds (u16) and its bytes. */
constexpr WireField kHeadRows[] = {
    {0, 0, 1, 4, kKeep},
};
constexpr WireTable kHead = rows_of(kHeadRows);

constexpr WireField kDriverIdentifyRows[] = {
    {4, 4, 2, 1, kKeep}, /* interval */
    {6, 6, 1, 16, kKeep},
};

constexpr WireField kVehicleOperateRows[] = {
    {4, 4, 1, 29, kKeep},
};

/* DSM and device failure: two u16 thresholds behind the head. */
constexpr WireField kHljDsmRows[] = {
    {4, 4, 2, 2, kKeep},
    {8, 8, 1, 25, kKeep},
};

constexpr WireField kHljDevFailRows[] = {
    {4, 4, 2, 2, kKeep},
    {8, 8, 1, 37, kKeep},
};

/* The vehicle operation block logs its set under the driver identification
 * header; that shared text is kept on purpose. */
constexpr BlockCodec kDriverIdentify =
    checked_block(kHead, rows_of(kDriverIdentifyRows), sizeof(DriverIdentify), "Driver Identify After Set:",
                  "Driver Identify Before Get:", "Driver Identify After Get:");
constexpr BlockCodec kVehicleOperate =
    checked_block(kHead, rows_of(kVehicleOperateRows), sizeof(VehicleOperate), "Driver Identify After Set:",
                  "HLJ ADAS Before Get:", "HLJ ADAS After Get:");
constexpr BlockCodec kHljDsm = checked_block(kHead, rows_of(kHljDsmRows), sizeof(HljDsm), "HLJ DSM After Set:",
                                             "HLJ DSM Before Get:", "HLJ DSM After Get:");
constexpr BlockCodec kHljDevFail =
    checked_block(kHead, rows_of(kHljDevFailRows), sizeof(HljDevFail), "HLJ DEV FAIL After Set:",
                  "HLJ DEV FAIL Before Get:", "HLJ DEV FAIL After Get:");

static_assert(codec_covers(kDriverIdentify), "driver identification: 22 bytes");
static_assert(codec_covers(kVehicleOperate), "vehicle operation: 33 bytes");
static_assert(codec_covers(kHljDsm), "DSM: 33 bytes");
static_assert(codec_covers(kHljDevFail), "device failure: 45 bytes");

/* Defaults.  Most alarms share the triple (video length 5, photo count 3,
 * photo interval 2); the initialisers name exactly the bytes they write,
 * zeros included, and leave the rest alone. */
constexpr char kGrade[] = "\x05\x03\x02";

constexpr FieldDefault kDriverIdentifyValues[] = {
    BB_BYTES(DriverIdentify, aucHead, "\x05\x06\x01\x01"),
    BB_NUM(DriverIdentify, usInterval, 1200),
    BB_RUN(DriverIdentify, aucParam, 0, 6, kGrade), /* the rest is not written */
};

constexpr FieldDefault kVehicleOperateValues[] = {
    BB_RUN(VehicleOperate, aucParam, 0, 4, "\x1e\x06\x01\x01"), /* speed 30, volume 6, 1, 1 */
    BB_RUN(VehicleOperate, aucParam, 4, 3, "\x32\x1b\x1b"),     /* 50, 27, 27 */
    BB_RUN(VehicleOperate, aucParam, 7, 3, kGrade),
    BB_ITEM(VehicleOperate, aucParam, 10, 5),
    BB_RUN(VehicleOperate, aucParam, 11, 12, kGrade),
    BB_RUN(VehicleOperate, aucParam, 23, 10, "\0"), /* reserved tail cleared */
};

constexpr FieldDefault kHljDsmValues[] = {
    BB_BYTES(HljDsm, aucHead, "\x05\x06\x01\x01"),
    BB_NUM(HljDsm, usThreshold1, 60),
    BB_NUM(HljDsm, usThreshold2, 60),
    BB_RUN(HljDsm, aucParam, 0, 15, kGrade),
    BB_RUN(HljDsm, aucParam, 15, 10, "\0"), /* reserved tail cleared */
};

constexpr FieldDefault kHljDevFailValues[] = {
    BB_BYTES(HljDevFail, aucHead, "\x05\x06\x01\x01"),
    BB_NUM(HljDevFail, usThreshold1, 300),
    BB_NUM(HljDevFail, usThreshold2, 300),
    BB_RUN(HljDevFail, aucParam, 0, 27, kGrade), /* the rest is not written */
};

constexpr Defaults kDriverIdentifyDefaults = defaults_of(kDriverIdentifyValues);
constexpr Defaults kVehicleOperateDefaults = defaults_of(kVehicleOperateValues);
constexpr Defaults kHljDsmDefaults = defaults_of(kHljDsmValues);
constexpr Defaults kHljDevFailDefaults = defaults_of(kHljDevFailValues);

static_assert(defaults_fit(kDriverIdentifyDefaults, sizeof(DriverIdentify)) &&
                  defaults_fit(kVehicleOperateDefaults, sizeof(VehicleOperate)) &&
                  defaults_fit(kHljDsmDefaults, sizeof(HljDsm)) && defaults_fit(kHljDevFailDefaults, sizeof(HljDevFail)),
              "Heibiao defaults lie inside their blocks");

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::init_block;
using bbconf::packed;

// clang-format off
int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, DriverIdentify* local) { return block_set(packed<bbconf::kDriverIdentify>, __func__, wire, len, local); }
int CMN_HljLStruct2B(DriverIdentify* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kDriverIdentify>, __func__, local, wire, buflen); }
int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, VehicleOperate* local) { return block_set(packed<bbconf::kVehicleOperate>, __func__, wire, len, local); }
int CMN_HljLStruct2B(VehicleOperate* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kVehicleOperate>, __func__, local, wire, buflen); }
int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, HljDsm* local) { return block_set(packed<bbconf::kHljDsm>, __func__, wire, len, local); }
int CMN_HljLStruct2B(HljDsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kHljDsm>, __func__, local, wire, buflen); }
int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, HljDevFail* local) { return block_set(packed<bbconf::kHljDevFail>, __func__, wire, len, local); }
int CMN_HljLStruct2B(HljDevFail* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kHljDevFail>, __func__, local, wire, buflen); }

int __InitHljDriverIdentifyParam(DriverIdentify* pstHeibiaoDriverIdentify) { return init_block(__func__, "NULL != pstHeibiaoDriverIdentify", pstHeibiaoDriverIdentify, bbconf::packed_defaults<bbconf::kDriverIdentifyDefaults>); }
int __InitHljAdasParam(VehicleOperate* pstHeibiaoAdas) { return init_block(__func__, "NULL != pstHeibiaoAdas", pstHeibiaoAdas, bbconf::packed_defaults<bbconf::kVehicleOperateDefaults>); }
int __InitHljDsmParam(HljDsm* pstHeibiaoDsm) { return init_block(__func__, "NULL != pstHeibiaoDsm", pstHeibiaoDsm, bbconf::packed_defaults<bbconf::kHljDsmDefaults>); }
int __InitHljDevFailParam(HljDevFail* pstHeibiaoDevFail) { return init_block(__func__, "NULL != pstHeibiaoDevFail", pstHeibiaoDevFail, bbconf::packed_defaults<bbconf::kHljDevFailDefaults>); }
// clang-format on
