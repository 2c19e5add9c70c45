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
#include "conf/blocks/codec.h"
#include "conf/field_defaults.h"

using ZtAlarm = tagBB_PARAM_ZT_ALARM_ST;
using Rs485 = _tagBB_PARAM_485AllDataFA_ST;
using DpxAdas = BB_DPX_ADAS_PARM_ST;
using DpxDsm = BB_DPX_DSM_PARAM_ST;
using AlarmMedia = tagBB_ALARM_VIDEO_PHOTO_ST;
using Pump = _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST;

namespace bbconf {
namespace {

/* --- Muck truck ---------------------------------------------------------- */

constexpr WireField kZtAlarmRows[] = {
    {19, 19, 1, 23, kKeep}, /* per-alarm settings, behind the general settings */
};

constexpr BlockCodec kZtAlarm = checked_block(kGeneralSettings, rows_of(kZtAlarmRows), sizeof(ZtAlarm),
                                              "ZhatuAlarm After Set:", "ZhatuAlarm Before Get:",
                                              "ZhatuAlarm After Get:");
static_assert(codec_covers(kZtAlarm), "the muck-truck table covers 42 bytes");

/* Every byte of the block is named, zeros included. */
constexpr FieldDefault kZtAlarmValues[] = {
    BB_NUM(ZtAlarm, ucAlarmSpeed, 30),
    BB_NUM(ZtAlarm, ucVolume, 6),
    BB_NUM(ZtAlarm, ucPhotoStrategy, 0),
    BB_NUM(ZtAlarm, usTimedPhotoItv, 60),
    BB_NUM(ZtAlarm, usDistPhotoItv, 200),
    BB_NUM(ZtAlarm, ucPhotoNum, 3),
    BB_NUM(ZtAlarm, ucPhotoItv, 2),
    BB_NUM(ZtAlarm, ucPhotoResolution, 1),
    BB_NUM(ZtAlarm, ucVideoResolution, 1),
    BB_NUM(ZtAlarm, uiAlarmEnable, 63),
    BB_NUM(ZtAlarm, uiEventEnable, 1),
    BB_RUN(ZtAlarm, aucParam, 0, 11, "\x32\x05\x03\x02\x05\x03\x02\x1e\x05\x03\x02"), /* 50, (5, 3, 2) x 2, 30, (5, 3, 2) */
    BB_RUN(ZtAlarm, aucParam, 11, 12, "\0"), /* reserved */
};
constexpr Defaults kZtAlarmDefaults = defaults_of(kZtAlarmValues);
static_assert(defaults_extent(kZtAlarmDefaults) == sizeof(ZtAlarm), "the muck-truck defaults cover the block");

/* --- RS485 inquiry --------------------------------------------------------- */

/* The leading 20 bytes; the rest of the block keeps what it holds. */
constexpr FieldDefault kRs485Values[] = {
    BB_RUN(Rs485, aucData, 0, 20, "\x04\x00\x00\x00" "A\x02\x0a\x02" "B\x02\x08\x02" "\x80\x02\x06\x06" "Q\x02\x04\x0c"),
};
constexpr Defaults kRs485Defaults = defaults_of(kRs485Values);

/* --- DPX modules ----------------------------------------------------------- */

/* Both DPX codecs convert before they look at a length and leave the bytes
 * of the wire form they do not carry alone. */
constexpr Direction dpx(int len, Check check, const char* check_text) {
    return Direction{len, check, check_text, {kQuietWire, kQuietRecord}, Image::Direct, kSilent, kSilent, kSilent,
                     Num::Len};
}

/* The ADAS form is 16 bytes long, of which the first ten carry settings. */
constexpr WireField kDpxAdasRows[] = {
    {0, 0, 4, 1, kAlways}, /* enable mask */
    {4, 4, 1, 6, kAlways}, /* settings */
};
constexpr BlockCodec kDpxAdas{{rows_of(kDpxAdasRows)}, sizeof(DpxAdas), dpx(16, Check::After, "DataLen == Cnt"), dpx(16, Check::After, "BufLen >= Cnt")};
static_assert(codec_wire_extent(kDpxAdas) == sizeof(DpxAdas) && codec_fits(kDpxAdas), "ten bytes move");

constexpr FieldDefault kDpxAdasValues[] = {
    BB_NUM(DpxAdas, uiEnable, 31),
    BB_BYTES(DpxAdas, aucParam, "\x1b\x06\x0f\x0f\x0f\x0f"), /* 27, 6, 15, 15, 15, 15 */
};
constexpr Defaults kDpxAdasDefaults = defaults_of(kDpxAdasValues);

/* The DSM form moves 25 bytes; a set reports 31 without a length test, a
 * get needs and reports 32, as the module counts them. */
constexpr WireField kDpxDsmRows[] = {
    {0, 0, 4, 1, kAlways},  /* enable mask */
    {4, 4, 1, 21, kAlways}, /* settings */
};
constexpr BlockCodec kDpxDsm{{rows_of(kDpxDsmRows)}, sizeof(DpxDsm), dpx(31, Check::None, nullptr), dpx(32, Check::After, "BufLen >= Cnt")};
static_assert(codec_wire_extent(kDpxDsm) == sizeof(DpxDsm) && codec_fits(kDpxDsm), "25 bytes move");

/* The last setting is not written. */
constexpr FieldDefault kDpxDsmValues[] = {
    BB_NUM(DpxDsm, uiEnable, 31),
    BB_RUN(DpxDsm, aucParam, 0, 5, "\x14"),  /* 20 */
    BB_ITEM(DpxDsm, aucParam, 5, 10),
    BB_RUN(DpxDsm, aucParam, 6, 14, "\x0f"), /* 15 */
};
constexpr Defaults kDpxDsmDefaults = defaults_of(kDpxDsmValues);
static_assert(defaults_extent(kDpxDsmDefaults) == sizeof(DpxDsm) - 1, "the last setting is left alone");

/* --- Pump truck --------------------------------------------------------------- */

constexpr WireField kPumpRows[] = {
    {0, 0, 1, 3, kAlways},   /* leading bytes */
    {3, 3, 4, 1, kAlways},   /* value */
    {7, 7, 1, 26, kAlways},  /* settings */
    {33, 33, 1, 4, kAlways}, /* tail */
};

/* Only the get is a table walk (the set is the stop-at-0xFF walk below);
 * it returns 0 even on success, as the module expects. */
constexpr BlockCodec kPump{{rows_of(kPumpRows)},
                           sizeof(Pump),
                           Direction{},
                           Direction{sizeof(Pump), Check::None, nullptr, {kQuietWire, kQuietRecord}, Image::Direct,
                                     kSilent, kSilent,
                                     Report{"PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_LStruct2B Before Get:",
                                            Num::Zero, Num::Zero, Bytes::Wire, Num::Len},
                                     Num::Zero}};
static_assert(codec_covers(kPump), "37 bytes");

constexpr unsigned char kPumpStop = 0xff;

/* Stores wire bytes from position p into record offsets [from, to) until
 * the first 0xFF, which is neither stored nor passed; returns the wire
 * position reached. */
size_t store_until_stop(const unsigned char* wire, size_t p, unsigned char* rec, size_t from, size_t to) {
    for (size_t off = from; off < to && wire[p] != kPumpStop; off++, p++) {
        rec[off] = wire[p];
    }
    return p;
}

/* The pump-truck set: the leading bytes stop at the first 0xFF, which then
 * opens the value; the settings behind the first one stop at the next
 * 0xFF, and the tail follows wherever they stopped.  Returns 0. */
int pump_set(const char* fn, const unsigned char* wire, unsigned char len, Pump* local) {
    if (wire == NULL || local == NULL || len == 0) {
        return 0;
    }
    BB_INF_FN(fn, "PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST CMN_B2LStruct Before Get:");
    hex_dump(wire, len);
    unsigned char* rec = bytes_of(local);
    size_t k = store_until_stop(wire, 0, rec, 0, offsetof(Pump, uiValue));
    local->uiValue = load_be32(wire + k);
    local->ucSetting0 = wire[k + 4];
    size_t p = store_until_stop(wire, k + 5, rec, offsetof(Pump, aucSetting), offsetof(Pump, aucTail));
    memcpy(local->aucTail, wire + p, sizeof local->aucTail);
    return 0;
}

/* --- Alarm video/photo ------------------------------------------------------ */

/* Head, length byte L, L data bytes, then the word right behind the data:
 * L + 7 bytes on the wire.  An L beyond the data area is refused. */
constexpr int kMediaOverhead = sizeof(AlarmMedia) - BB_ALARM_MEDIA_DATA_MAX;

int media_set(const unsigned char* wire, AlarmMedia* local) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    const size_t n = wire[offsetof(AlarmMedia, ucLen)];
    if (n > sizeof local->aucData) {
        return 0;
    }
    memcpy(bytes_of(local), wire, offsetof(AlarmMedia, aucData) + n);
    local->usTail = load_be16(wire + offsetof(AlarmMedia, aucData) + n);
    return static_cast<int>(n) + kMediaOverhead;
}

int media_get(const AlarmMedia* local, unsigned char* wire) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    const size_t n = local->ucLen;
    if (n > sizeof local->aucData) {
        return 0;
    }
    memcpy(wire, local, offsetof(AlarmMedia, aucData) + n);
    store_be16(wire + offsetof(AlarmMedia, aucData) + n, local->usTail);
    return static_cast<int>(n) + kMediaOverhead;
}

}  // namespace
}  // namespace bbconf

using bbconf::block_get;
using bbconf::block_set;
using bbconf::init_block;
using bbconf::packed;

// clang-format off
int CMN_B2LStruct(unsigned char* wire, unsigned char len, ZtAlarm* local) { return block_set(packed<bbconf::kZtAlarm>, __func__, wire, len, local); }
int CMN_LStruct2B(ZtAlarm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kZtAlarm>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, DpxAdas* local) { return block_set(packed<bbconf::kDpxAdas>, __func__, wire, len, local); }
int CMN_LStruct2B(DpxAdas* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kDpxAdas>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, DpxDsm* local) { return block_set(packed<bbconf::kDpxDsm>, __func__, wire, len, local); }
int CMN_LStruct2B(DpxDsm* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kDpxDsm>, __func__, local, wire, buflen); }
int CMN_B2LStruct(unsigned char* wire, unsigned char, AlarmMedia* local) { return bbconf::media_set(wire, local); }
int CMN_LStruct2B(AlarmMedia* local, unsigned char* wire, unsigned int) { return bbconf::media_get(local, wire); }
int CMN_B2LStruct(unsigned char* wire, unsigned char len, Pump* local) { return bbconf::pump_set(__func__, wire, len, local); }
int CMN_LStruct2B(Pump* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<bbconf::kPump>, __func__, local, wire, buflen); }

int __InitZhatuAlarmParam(ZtAlarm* pstZhatuAlarm) { return init_block(__func__, "NULL != pstZhatuAlarm", pstZhatuAlarm, bbconf::packed_defaults<bbconf::kZtAlarmDefaults>); }
int __InitQ8RS485InqureParam(Rs485* pstRs485Inqure) { return init_block(__func__, "NULL != pstRs485Inqure", pstRs485Inqure, bbconf::packed_defaults<bbconf::kRs485Defaults>); }
// clang-format on

/* The DPX initialisers keep their own shape: -1 after the assertion line on
 * a null record, otherwise 0, quietly. */
int CMN_Init_DPX_ADAS_Setting(DpxAdas* pDpxAdasSet) {
    BB_CHECK(NULL != pDpxAdasSet, -1);
    bbconf::put_field_defaults(bbconf::bytes_of(pDpxAdasSet), bbconf::packed_defaults<bbconf::kDpxAdasDefaults>);
    return 0;
}

int CMN_Init_DPX_DSM_Setting(DpxDsm* pDpxDsmSet) {
    BB_CHECK(NULL != pDpxDsmSet, -1);
    bbconf::put_field_defaults(bbconf::bytes_of(pDpxDsmSet), bbconf::packed_defaults<bbconf::kDpxDsmDefaults>);
    return 0;
}
