/* adas.cpp - the driver-assistance (ADAS) block: factory defaults and the
 * Subiao, SiChuan, GuangDong, Hunan and JiLing wire forms. */
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/blocks/forms.h"

namespace bbconf {
namespace {

/* Wire 0..51 onto local 0..51, shared by every form but Hunan.  The reserved
 * byte 19 is carried as it comes, 0xFF included. */
constexpr WireField kAdasHead[] = {
    {0, 0, 1, 3, kKeep},     /* speed threshold, volume, photo strategy */
    {3, 3, 2, 2, kKeep},     /* timed and distance photo intervals */
    {7, 7, 1, 4, kKeep},     /* photo count and interval, photo and video resolution */
    {11, 11, 4, 2, kKeep},   /* alarm and event enable bits */
    {19, 19, 1, 1, kAlways}, /* reserved byte */
    {20, 20, 1, 32, kKeep},  /* obstacle .. road sign photo interval */
};

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

/* Hunan keeps only part of the head: no reserved byte, no obstacle or lane
 * change fields, no forward-collision or headway speed thresholds and no
 * road sign photo interval.  Those local fields are left as they are. */
constexpr WireField kHunanRows[] = {
    {0, 0, 1, 3, kKeep},
    {3, 3, 2, 2, kKeep},
    {7, 7, 1, 4, kKeep},
    {11, 11, 4, 2, kKeep},
    {32, 32, 1, 4, kKeep},  /* lane departure video..interval, forward collision time */
    {37, 37, 1, 9, kKeep},  /* forward collision video .. headway threshold */
    {47, 47, 1, 4, kKeep},  /* headway video..interval, road sign photo count */
    {72, 80, 2, 12, kKeep}, /* Hunan extension words */
};

constexpr WireTable kNone{nullptr, 0};

/* The SiChuan form logs with the Subiao wording; every ADAS form dumps the
 * bytes in front of the wire pointer. */
constexpr BlockForm kSubiaoAdas{rows_of(kAdasHead), kNone, 56, "Subiao Adas", DumpOrigin::BeforeWire};
constexpr BlockForm kSiChuanAdas{rows_of(kAdasHead), rows_of(kSiChuanRows), 61, "Subiao Adas",
                                 DumpOrigin::BeforeWire};
constexpr BlockForm kGuangDongAdas{rows_of(kAdasHead), rows_of(kGuangDongRows), 64, "Guangdong Adas",
                                   DumpOrigin::BeforeWire};
constexpr BlockForm kHunanAdas{rows_of(kHunanRows), kNone, 96, "Hunan Adas", DumpOrigin::BeforeWire};
constexpr BlockForm kJiLingAdas{rows_of(kAdasHead), rows_of(kJiLingRows), 112, "JiLing Adas",
                                DumpOrigin::BeforeWire};

constexpr int kAdasSize = static_cast<int>(sizeof(tagBB_PARAM_ADAS_SUBIAO_ST));
static_assert(form_wire_extent(kSubiaoAdas) <= kSubiaoAdas.length, "Subiao ADAS rows overrun the form");
static_assert(form_wire_extent(kSiChuanAdas) <= kSiChuanAdas.length, "SiChuan ADAS rows overrun the form");
static_assert(form_wire_extent(kGuangDongAdas) <= kGuangDongAdas.length, "GuangDong ADAS rows overrun");
static_assert(form_wire_extent(kHunanAdas) <= kHunanAdas.length, "Hunan ADAS rows overrun the form");
static_assert(form_wire_extent(kJiLingAdas) <= kJiLingAdas.length, "JiLing ADAS rows overrun the form");
static_assert(form_local_extent(kSiChuanAdas) <= kAdasSize && form_local_extent(kGuangDongAdas) <= kAdasSize &&
                  form_local_extent(kHunanAdas) <= kAdasSize && form_local_extent(kJiLingAdas) <= kAdasSize,
              "ADAS rows overrun the local record");

/* Factory defaults.  Times in tenths of a second, speeds in km/h, video
 * lengths in seconds. */
constexpr tagBB_PARAM_ADAS_SUBIAO_ST kAdasDefaults = {
    30,         /* 0: alarm speed threshold */
    6,          /* 1: prompt volume */
    0,          /* 2: active photo strategy: off */
    60,         /* 3: timed photo interval, s */
    200,        /* 5: distance photo interval, m */
    3,          /* 7: photos per capture */
    2,          /* 8: interval between photos */
    3,          /* 9: photo resolution */
    3,          /* 10: video resolution */
    0x00011FFF, /* 11: alarm enable bits */
    0x00000003, /* 15: event enable bits */
    0,          /* 19: reserved */
    30, 50, 5, 3, 2,    /* 20: obstacle: distance, speed, video, photos, interval */
    60, 5, 50, 5, 3, 2, /* 25: lane change: period, count, speed, video, photos, interval */
    50, 5, 3, 2,        /* 31: lane departure: speed, video, photos, interval */
    27, 50, 5, 3, 2,    /* 35: forward collision: time, speed, video, photos, interval */
    30, 50, 5, 3, 2,    /* 40: pedestrian collision */
    10, 50, 5, 3, 2,    /* 45: headway */
    3, 2,               /* 50: road sign photos, interval */
    {5, 3, 2},          /* 52: regional extension bytes */
    {50, 5, 3, 2},      /* 55: group A */
    {50, 5, 3, 2},      /* 59: group B */
    {0, 0, 0, 0, 0},    /* 63: SiChuan bytes, never written by the initialiser */
    {},                 /* 68: extension words */
};

/* The SiChuan bytes keep what the record held before. */
constexpr size_t kSiChuanExtAt = offsetof(tagBB_PARAM_ADAS_SUBIAO_ST, aucSiChuanExt);
constexpr size_t kExtWordsAt = offsetof(tagBB_PARAM_ADAS_SUBIAO_ST, ausExtWord);

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

int __InitSubiaoAdasParam(tagBB_PARAM_ADAS_SUBIAO_ST* pstSubiaoAdas) {
    BB_CHECK(NULL != pstSubiaoAdas, -1);
    const unsigned char* from = reinterpret_cast<const unsigned char*>(&bbconf::kAdasDefaults);
    unsigned char* to = bytes_of(pstSubiaoAdas);
    memcpy(to, from, bbconf::kSiChuanExtAt);
    memcpy(to + bbconf::kExtWordsAt, from + bbconf::kExtWordsAt,
           sizeof(tagBB_PARAM_ADAS_SUBIAO_ST) - bbconf::kExtWordsAt);
    return BB_WAR("Param Inited!\n");
}

int SubiaoAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kSubiaoAdas, __func__, wire, len, bytes_of(local));
}

int SubiaoAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kSubiaoAdas, __func__, bytes_of(local), wire, buflen);
}

int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return SubiaoAdas_B2LStruct(wire, len, local);
}

int CMN_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return SubiaoAdas_LStruct2B(local, wire, buflen);
}

int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kSiChuanAdas, __func__, wire, len, bytes_of(local));
}

int SiChuan_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kSiChuanAdas, __func__, bytes_of(local), wire, buflen);
}

int GuangDongAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kGuangDongAdas, __func__, wire, len, bytes_of(local));
}

int GuangDongAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kGuangDongAdas, __func__, bytes_of(local), wire, buflen);
}

int HunanAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kHunanAdas, __func__, wire, len, bytes_of(local));
}

int HunanAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kHunanAdas, __func__, bytes_of(local), wire, buflen);
}

int JiLingAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kJiLingAdas, __func__, wire, len, bytes_of(local));
}

int JiLingAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kJiLingAdas, __func__, bytes_of(local), wire, buflen);
}
