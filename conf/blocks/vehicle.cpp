/* vehicle.cpp - blocks of particular vehicle kinds and add-on modules: the
 * muck-truck alarm block, the RS485 inquiry defaults, the DPX ADAS and DSM
 * module settings, the alarm video/photo block and the pump-truck
 * monitoring block.
 *
 * Only the muck-truck block is a checked fixed form with keep-unchanged
 * markers.  The others are moved as their modules expect them: the DPX
 * codecs convert before they look at the length, the alarm media block is
 * as long as its own length byte says, and the pump-truck set is a
 * sequence that stops at the first 0xFF. */
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

/* --- Muck truck ---------------------------------------------------------- */

constexpr WireField kZhatuFields[] = {
    {0, 0, 1, 3, true},    /* alarm speed, volume, photo strategy */
    {3, 3, 2, 2, true},    /* timed and distance photo intervals */
    {7, 7, 1, 4, true},    /* photo count and interval, photo and video resolution */
    {11, 11, 4, 2, true},  /* alarm and event enable masks */
    {19, 19, 1, 23, true}, /* per-alarm settings */
};

constexpr FixedForm kZhatuForm = {
    rows_of(kZhatuFields), sizeof(tagBB_PARAM_ZT_ALARM_ST),
    "ZhatuAlarm After Set:", "ZhatuAlarm Before Get:", "ZhatuAlarm After Get:", false, nullptr};
static_assert(covers_block(kZhatuForm), "the muck-truck table covers 42 bytes");

/* Every byte of the block is named, zeros included. */
constexpr DefaultRun kZhatuRuns[] = {
    {0, 1, 1, 30},  /* alarm speed */
    {1, 1, 1, 6},   /* volume */
    {2, 1, 1, 0},   /* photo strategy */
    {3, 2, 1, 60},  /* timed photo interval */
    {5, 2, 1, 200}, /* distance photo interval */
    {7, 1, 1, 3},   /* photo count */
    {8, 1, 1, 2},   /* photo interval */
    {9, 1, 2, 1},   /* photo and video resolution */
    {11, 4, 1, 63}, /* alarm enable mask */
    {15, 4, 1, 1},  /* event enable mask */
    {19, 1, 1, 50},
    {20, 1, 1, 5}, {21, 1, 1, 3}, {22, 1, 1, 2},
    {23, 1, 1, 5}, {24, 1, 1, 3}, {25, 1, 1, 2},
    {26, 1, 1, 30},
    {27, 1, 1, 5}, {28, 1, 1, 3}, {29, 1, 1, 2},
    {30, 1, 12, 0}, /* reserved */
};
constexpr DefaultTable kZhatuDefaults = rows_of(kZhatuRuns);
static_assert(defaults_extent(kZhatuDefaults) == sizeof(tagBB_PARAM_ZT_ALARM_ST),
              "the muck-truck defaults cover the block");

/* --- RS485 inquiry --------------------------------------------------------- */

/* The leading 20 bytes; the rest of the block keeps what it holds. */
constexpr unsigned char kRs485Head[] = {
    4, 0, 0, 0,
    'A', 2, 10, 2,
    'B', 2, 8, 2,
    128, 2, 6, 6,
    'Q', 2, 4, 12,
};
static_assert(sizeof kRs485Head == 20, "20 leading bytes");

/* --- DPX modules ----------------------------------------------------------- */

/* The ADAS form is 16 bytes long, of which the first ten carry settings. */
constexpr WireField kDpxAdasFields[] = {
    {0, 0, 4, 1, false}, /* enable mask */
    {4, 4, 1, 6, false}, /* settings */
};
constexpr WireTable kDpxAdas = rows_of(kDpxAdasFields);
constexpr int kDpxAdasFormLen = 16;
static_assert(wire_extent(kDpxAdas) == sizeof(BB_DPX_ADAS_PARM_ST), "ten bytes move");

constexpr DefaultRun kDpxAdasRuns[] = {
    {0, 4, 1, 31}, /* enable mask */
    {4, 1, 1, 27},
    {5, 1, 1, 6},
    {6, 1, 4, 15},
};
constexpr DefaultTable kDpxAdasDefaults = rows_of(kDpxAdasRuns);
static_assert(defaults_extent(kDpxAdasDefaults) == sizeof(BB_DPX_ADAS_PARM_ST), "whole record");

/* The DSM form moves 25 bytes; a set reports 31, a get needs and reports
 * 32, as the module counts them. */
constexpr WireField kDpxDsmFields[] = {
    {0, 0, 4, 1, false},  /* enable mask */
    {4, 4, 1, 21, false}, /* settings */
};
constexpr WireTable kDpxDsm = rows_of(kDpxDsmFields);
constexpr int kDpxDsmSetLen = 31;
constexpr int kDpxDsmGetLen = 32;
static_assert(wire_extent(kDpxDsm) == sizeof(BB_DPX_DSM_PARAM_ST), "25 bytes move");

/* The last setting (offset 24) is not written. */
constexpr DefaultRun kDpxDsmRuns[] = {
    {0, 4, 1, 31}, /* enable mask */
    {4, 1, 5, 20},
    {9, 1, 1, 10},
    {10, 1, 14, 15},
};
constexpr DefaultTable kDpxDsmDefaults = rows_of(kDpxDsmRuns);
static_assert(defaults_extent(kDpxDsmDefaults) == 24, "offset 24 is left alone");

/* --- Alarm video/photo ------------------------------------------------------ */

/* Head, length byte, L data bytes, then the u16 right behind the data. */
constexpr size_t kMediaHeadLen = offsetof(tagBB_ALARM_VIDEO_PHOTO_ST, ucLen);
constexpr size_t kMediaData = offsetof(tagBB_ALARM_VIDEO_PHOTO_ST, aucData);
constexpr size_t kMediaTail = offsetof(tagBB_ALARM_VIDEO_PHOTO_ST, usTail);
constexpr int kMediaOverhead = 7;

/* --- Pump truck --------------------------------------------------------------- */

constexpr WireField kPumpFields[] = {
    {0, 0, 1, 3, false},   /* leading bytes */
    {3, 3, 4, 1, false},   /* value */
    {7, 7, 1, 26, false},  /* settings */
    {33, 33, 1, 4, false}, /* tail */
};
constexpr WireTable kPump = rows_of(kPumpFields);
constexpr int kPumpLen = sizeof(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST);
static_assert(wire_extent(kPump) == kPumpLen, "37 bytes");

constexpr size_t kPumpValue = offsetof(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, uiValue);
constexpr size_t kPumpFirstSetting = offsetof(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, ucSetting0);
constexpr size_t kPumpTail = offsetof(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, aucTail);
constexpr unsigned char kPumpStop = 0xff;

/* Stores wire bytes from position p into record offsets [from, to) until
 * the first 0xFF, which is neither stored nor passed; returns the wire
 * position reached. */
size_t store_until_stop(const unsigned char* wire, size_t p, unsigned char* rec, size_t from,
                        size_t to) {
    for (size_t off = from; off < to && wire[p] != kPumpStop; off++, p++) {
        rec[off] = wire[p];
    }
    return p;
}

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_ZT_ALARM_ST, bbconf::kZhatuForm)

int CMN_B2LStruct(unsigned char* wire, unsigned char DataLen, BB_DPX_ADAS_PARM_ST* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::wire_to_local(bbconf::kDpxAdas, wire, bytes_of(local));
    const int Cnt = bbconf::kDpxAdasFormLen;
    BB_CHECK(DataLen == Cnt, 0);
    return Cnt;
}

int CMN_LStruct2B(BB_DPX_ADAS_PARM_ST* local, unsigned char* wire, unsigned int BufLen) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::local_to_wire(bbconf::kDpxAdas, bytes_of(local), wire);
    const unsigned int Cnt = bbconf::kDpxAdasFormLen;
    BB_CHECK(BufLen >= Cnt, 0);
    return static_cast<int>(Cnt);
}

int CMN_B2LStruct(unsigned char* wire, unsigned char, BB_DPX_DSM_PARAM_ST* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::wire_to_local(bbconf::kDpxDsm, wire, bytes_of(local));
    return bbconf::kDpxDsmSetLen;
}

int CMN_LStruct2B(BB_DPX_DSM_PARAM_ST* local, unsigned char* wire, unsigned int BufLen) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::local_to_wire(bbconf::kDpxDsm, bytes_of(local), wire);
    const unsigned int Cnt = bbconf::kDpxDsmGetLen;
    BB_CHECK(BufLen >= Cnt, 0);
    return static_cast<int>(Cnt);
}

int CMN_B2LStruct(unsigned char* wire, unsigned char, tagBB_ALARM_VIDEO_PHOTO_ST* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    const size_t n = wire[bbconf::kMediaHeadLen];
    if (n > sizeof local->aucData) {
        return 0;
    }
    unsigned char* rec = bytes_of(local);
    memcpy(rec, wire, bbconf::kMediaData + n);
    bbconf::store_ne16(rec + bbconf::kMediaTail, bbconf::load_be16(wire + bbconf::kMediaData + n));
    return static_cast<int>(n) + bbconf::kMediaOverhead;
}

int CMN_LStruct2B(tagBB_ALARM_VIDEO_PHOTO_ST* local, unsigned char* wire, unsigned int) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    const unsigned char* rec = bytes_of(local);
    const size_t n = rec[bbconf::kMediaHeadLen];
    if (n > sizeof local->aucData) {
        return 0;
    }
    memcpy(wire, rec, bbconf::kMediaData + n);
    bbconf::store_be16(wire + bbconf::kMediaData + n, bbconf::load_ne16(rec + bbconf::kMediaTail));
    return static_cast<int>(n) + bbconf::kMediaOverhead;
}

int CMN_B2LStruct(unsigned char* wire, unsigned char len, _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST* local) {
    if (wire == NULL || local == NULL || len == 0) {
        return 0;
    }
    BB_INF("PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_B2LStruct Before Get:");
    bbconf::hex_dump(wire, len);
    unsigned char* rec = bytes_of(local);
    /* The leading bytes stop at the first 0xFF, which then opens the value. */
    size_t k = bbconf::store_until_stop(wire, 0, rec, 0, bbconf::kPumpValue);
    bbconf::store_ne32(rec + bbconf::kPumpValue, bbconf::load_be32(wire + k));
    rec[bbconf::kPumpFirstSetting] = wire[k + 4];
    size_t p = bbconf::store_until_stop(wire, k + 5, rec, bbconf::kPumpFirstSetting + 1,
                                        bbconf::kPumpTail);
    memcpy(rec + bbconf::kPumpTail, wire + p, sizeof local->aucTail);
    return 0;
}

int CMN_LStruct2B(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST* local, unsigned char* wire, unsigned int) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    bbconf::local_to_wire(bbconf::kPump, bytes_of(local), wire);
    BB_INF("PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_LStruct2B Before Get:");
    bbconf::hex_dump(wire, bbconf::kPumpLen);
    return 0;
}

/* Initialisers: -1 after the assert line on a null record; otherwise the
 * muck-truck and RS485 ones return the result of their closing line and the
 * DPX ones 0, quietly. */
int __InitZhatuAlarmParam(tagBB_PARAM_ZT_ALARM_ST* pstZhatuAlarm) {
    BB_CHECK(NULL != pstZhatuAlarm, -1);
    bbconf::put_defaults(bbconf::kZhatuDefaults, bytes_of(pstZhatuAlarm));
    return BB_WAR("Param Inited!\n");
}

int __InitQ8RS485InqureParam(_tagBB_PARAM_485AllDataFA_ST* pstRs485Inqure) {
    BB_CHECK(NULL != pstRs485Inqure, -1);
    memcpy(pstRs485Inqure->aucData, bbconf::kRs485Head, sizeof bbconf::kRs485Head);
    return BB_WAR("Param Inited!\n");
}

int CMN_Init_DPX_ADAS_Setting(BB_DPX_ADAS_PARM_ST* pDpxAdasSet) {
    BB_CHECK(NULL != pDpxAdasSet, -1);
    bbconf::put_defaults(bbconf::kDpxAdasDefaults, bytes_of(pDpxAdasSet));
    return 0;
}

int CMN_Init_DPX_DSM_Setting(BB_DPX_DSM_PARAM_ST* pDpxDsmSet) {
    BB_CHECK(NULL != pDpxDsmSet, -1);
    bbconf::put_defaults(bbconf::kDpxDsmDefaults, bytes_of(pDpxDsmSet));
    return 0;
}
