/* heibiao.cpp - the Heibiao (Heilongjiang) blocks: driver identification,
 * vehicle operation monitoring, driver state monitoring and device failure
 * monitoring, with their codecs and factory defaults.
 *
 * The four records are byte strings with a few u16 thresholds; the wire
 * form has the same offsets with the u16 big-endian.  Every field keeps its
 * local value when the platform sends all ones (0xFF, 0xFFFF), so a
 * platform can change single fields of a block. */
#include "bbconf.h"
#include "conf/blocks/fixed_form.h"

namespace bbconf {
namespace {

constexpr WireField kDriverIdentify[] = {
    {0, 0, 1, 4, true},
    {4, 4, 2, 1, true},  /* interval */
    {6, 6, 1, 16, true},
};

constexpr WireField kVehicleOperate[] = {
    {0, 0, 1, 33, true},
};

/* DSM and device failure: two u16 thresholds behind four head bytes. */
constexpr WireField kHljDsm[] = {
    {0, 0, 1, 4, true},
    {4, 4, 2, 2, true},
    {8, 8, 1, 25, true},
};

constexpr WireField kHljDevFail[] = {
    {0, 0, 1, 4, true},
    {4, 4, 2, 2, true},
    {8, 8, 1, 37, true},
};

/* The vehicle operation block logs its set under the driver identification
 * header; that shared text is kept on purpose. */
constexpr FixedForm kDriverIdentifyForm = {
    rows_of(kDriverIdentify), sizeof(tagBB_PARAM_DRIVER_IDENTIFY_ST), "Driver Identify After Set:",
    "Driver Identify Before Get:", "Driver Identify After Get:", false, nullptr};
constexpr FixedForm kVehicleOperateForm = {
    rows_of(kVehicleOperate), sizeof(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST),
    "Driver Identify After Set:", "HLJ ADAS Before Get:", "HLJ ADAS After Get:", false, nullptr};
constexpr FixedForm kHljDsmForm = {
    rows_of(kHljDsm), sizeof(tagBB_PARAM_DSM_HEIBIAO_ST), "HLJ DSM After Set:",
    "HLJ DSM Before Get:", "HLJ DSM After Get:", false, nullptr};
constexpr FixedForm kHljDevFailForm = {
    rows_of(kHljDevFail), sizeof(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST), "HLJ DEV FAIL After Set:",
    "HLJ DEV FAIL Before Get:", "HLJ DEV FAIL After Get:", false, nullptr};

/* Each table names every byte of its block. */
static_assert(covers_block(kDriverIdentifyForm), "driver identification: 22 bytes");
static_assert(covers_block(kVehicleOperateForm), "vehicle operation: 33 bytes");
static_assert(covers_block(kHljDsmForm), "DSM: 33 bytes");
static_assert(covers_block(kHljDevFailForm), "device failure: 45 bytes");

/* Defaults.  Most alarms share the triple (5, 3, 2); the initialisers name
 * exactly the bytes they write, zeros included, and leave the rest alone. */
constexpr DefaultRun kDriverIdentifyRuns[] = {
    {0, 1, 1, 5}, {1, 1, 1, 6}, {2, 1, 1, 1}, {3, 1, 1, 1},
    {4, 2, 1, 1200},
    {6, 1, 1, 5}, {7, 1, 1, 3}, {8, 1, 1, 2},
    {9, 1, 1, 5}, {10, 1, 1, 3}, {11, 1, 1, 2},
    /* 12 to 21 are not written */
};

constexpr DefaultRun kVehicleOperateRuns[] = {
    {0, 1, 1, 30}, {1, 1, 1, 6}, {2, 1, 1, 1}, {3, 1, 1, 1},
    {4, 1, 1, 50}, {5, 1, 1, 27}, {6, 1, 1, 27},
    {7, 1, 1, 5}, {8, 1, 1, 3}, {9, 1, 1, 2},
    {10, 1, 1, 5}, {11, 1, 1, 5}, {12, 1, 1, 3}, {13, 1, 1, 2},
    {14, 1, 1, 5}, {15, 1, 1, 3}, {16, 1, 1, 2},
    {17, 1, 1, 5}, {18, 1, 1, 3}, {19, 1, 1, 2},
    {20, 1, 1, 5}, {21, 1, 1, 3}, {22, 1, 1, 2},
    {23, 1, 10, 0}, /* reserved tail cleared */
};

constexpr DefaultRun kHljDsmRuns[] = {
    {0, 1, 1, 5}, {1, 1, 1, 6}, {2, 1, 1, 1}, {3, 1, 1, 1},
    {4, 2, 2, 60},
    {8, 1, 1, 5}, {9, 1, 1, 3}, {10, 1, 1, 2},
    {11, 1, 1, 5}, {12, 1, 1, 3}, {13, 1, 1, 2},
    {14, 1, 1, 5}, {15, 1, 1, 3}, {16, 1, 1, 2},
    {17, 1, 1, 5}, {18, 1, 1, 3}, {19, 1, 1, 2},
    {20, 1, 1, 5}, {21, 1, 1, 3}, {22, 1, 1, 2},
    {23, 4, 1, 0}, {27, 1, 6, 0}, /* reserved tail cleared */
};

constexpr DefaultRun kHljDevFailRuns[] = {
    {0, 1, 1, 5}, {1, 1, 1, 6}, {2, 1, 1, 1}, {3, 1, 1, 1},
    {4, 2, 2, 300},
    {8, 1, 1, 5}, {9, 1, 1, 3}, {10, 1, 1, 2},
    {11, 1, 1, 5}, {12, 1, 1, 3}, {13, 1, 1, 2},
    {14, 1, 1, 5}, {15, 1, 1, 3}, {16, 1, 1, 2},
    {17, 1, 1, 5}, {18, 1, 1, 3}, {19, 1, 1, 2},
    {20, 1, 1, 5}, {21, 1, 1, 3}, {22, 1, 1, 2},
    {23, 1, 1, 5}, {24, 1, 1, 3}, {25, 1, 1, 2},
    {26, 1, 1, 5}, {27, 1, 1, 3}, {28, 1, 1, 2},
    {29, 1, 1, 5}, {30, 1, 1, 3}, {31, 1, 1, 2},
    {32, 1, 1, 5}, {33, 1, 1, 3}, {34, 1, 1, 2},
    /* 35 to 44 are not written */
};

constexpr DefaultTable kDriverIdentifyDefaults = rows_of(kDriverIdentifyRuns);
constexpr DefaultTable kVehicleOperateDefaults = rows_of(kVehicleOperateRuns);
constexpr DefaultTable kHljDsmDefaults = rows_of(kHljDsmRuns);
constexpr DefaultTable kHljDevFailDefaults = rows_of(kHljDevFailRuns);

static_assert(defaults_extent(kDriverIdentifyDefaults) == 12,
              "driver identification defaults end at 12");
static_assert(defaults_extent(kVehicleOperateDefaults) == 33,
              "vehicle operation: whole block");
static_assert(defaults_extent(kHljDsmDefaults) == 33, "DSM: whole block");
static_assert(defaults_extent(kHljDevFailDefaults) == 35, "device failure: 0 to 34");

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

BB_FIXED_FORM_CODECS(CMN_HljB2LStruct, CMN_HljLStruct2B, tagBB_PARAM_DRIVER_IDENTIFY_ST, bbconf::kDriverIdentifyForm)

BB_FIXED_FORM_CODECS(CMN_HljB2LStruct, CMN_HljLStruct2B, tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST, bbconf::kVehicleOperateForm)

BB_FIXED_FORM_CODECS(CMN_HljB2LStruct, CMN_HljLStruct2B, tagBB_PARAM_DSM_HEIBIAO_ST, bbconf::kHljDsmForm)

BB_FIXED_FORM_CODECS(CMN_HljB2LStruct, CMN_HljLStruct2B, tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, bbconf::kHljDevFailForm)

/* Initialisers: -1 after the assertion line on a null record, otherwise the
 * result of the closing "Param Inited!" line. */
int __InitHljDriverIdentifyParam(tagBB_PARAM_DRIVER_IDENTIFY_ST* pstHeibiaoDriverIdentify) {
    BB_CHECK(NULL != pstHeibiaoDriverIdentify, -1);
    bbconf::put_defaults(bbconf::kDriverIdentifyDefaults,
                         bytes_of(pstHeibiaoDriverIdentify));
    return BB_WAR("Param Inited!\n");
}

int __InitHljAdasParam(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* pstHeibiaoAdas) {
    BB_CHECK(NULL != pstHeibiaoAdas, -1);
    bbconf::put_defaults(bbconf::kVehicleOperateDefaults, bytes_of(pstHeibiaoAdas));
    return BB_WAR("Param Inited!\n");
}

int __InitHljDsmParam(tagBB_PARAM_DSM_HEIBIAO_ST* pstHeibiaoDsm) {
    BB_CHECK(NULL != pstHeibiaoDsm, -1);
    bbconf::put_defaults(bbconf::kHljDsmDefaults, bytes_of(pstHeibiaoDsm));
    return BB_WAR("Param Inited!\n");
}

int __InitHljDevFailParam(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* pstHeibiaoDevFail) {
    BB_CHECK(NULL != pstHeibiaoDevFail, -1);
    bbconf::put_defaults(bbconf::kHljDevFailDefaults, bytes_of(pstHeibiaoDevFail));
    return BB_WAR("Param Inited!\n");
}
