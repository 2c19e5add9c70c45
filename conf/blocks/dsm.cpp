/* dsm.cpp - the driver-state monitoring (DSM) block: factory defaults and
 * the Subiao, SiChuan, GuangDong, Hunan and JiLing wire forms. */
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/blocks/forms.h"

namespace bbconf {
namespace {

/* Wire 0..46, shared by every form but Hunan.  Wire 23..25 are reserved and
 * have no place in the local record, so the alarm groups shift by three. */
constexpr WireField kDsmHead[] = {
    {0, 0, 1, 3, kKeep},    /* speed threshold, volume, photo strategy */
    {3, 3, 2, 2, kKeep},    /* timed and distance photo intervals */
    {7, 7, 1, 4, kKeep},    /* photo count and interval, photo and video resolution */
    {11, 11, 4, 2, kKeep},  /* alarm and event enable bits */
    {19, 19, 2, 2, kKeep},  /* smoking and phone call judging intervals */
    {26, 23, 1, 21, kKeep}, /* five alarm groups, driver identification trigger */
};

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
    {0, 0, 1, 3, kKeep},
    {3, 3, 2, 2, kKeep},
    {7, 7, 1, 4, kKeep},
    {11, 11, 4, 2, kKeep},
    {19, 19, 2, 2, kKeep},
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

constexpr WireTable kNone{nullptr, 0};

/* The Subiao and SiChuan forms dump the block itself; the others dump the
 * bytes in front of the wire pointer.  SiChuan logs with the Subiao wording. */
constexpr BlockForm kSubiaoDsm{rows_of(kDsmHead), kNone, 49, "Subiao Dsm", DumpOrigin::AtWire};
constexpr BlockForm kSiChuanDsm{rows_of(kDsmHead), rows_of(kSiChuanRows), 65, "Subiao Dsm", DumpOrigin::AtWire};
constexpr BlockForm kGuangDongDsm{rows_of(kDsmHead), rows_of(kGuangDongRows), 66, "Guangdong Dsm",
                                  DumpOrigin::BeforeWire};
constexpr BlockForm kHunanDsm{rows_of(kHunanRows), kNone, 110, "Hunan Dsm", DumpOrigin::BeforeWire};
constexpr BlockForm kJiLingDsm{rows_of(kDsmHead), rows_of(kJiLingRows), 126, "JiLing Dsm",
                               DumpOrigin::BeforeWire};

constexpr int kDsmSize = static_cast<int>(sizeof(tagBB_PARAM_DSM_SUBIAO_ST));
static_assert(form_wire_extent(kSubiaoDsm) <= kSubiaoDsm.length, "Subiao DSM rows overrun the form");
static_assert(form_wire_extent(kSiChuanDsm) <= kSiChuanDsm.length, "SiChuan DSM rows overrun the form");
static_assert(form_wire_extent(kGuangDongDsm) <= kGuangDongDsm.length, "GuangDong DSM rows overrun");
static_assert(form_wire_extent(kHunanDsm) <= kHunanDsm.length, "Hunan DSM rows overrun the form");
static_assert(form_wire_extent(kJiLingDsm) <= kJiLingDsm.length, "JiLing DSM rows overrun the form");
static_assert(form_local_extent(kSiChuanDsm) <= kDsmSize && form_local_extent(kGuangDongDsm) <= kDsmSize &&
                  form_local_extent(kHunanDsm) <= kDsmSize && form_local_extent(kJiLingDsm) <= kDsmSize,
              "DSM rows overrun the local record");

/* Factory defaults.  Speeds in km/h, video lengths and judging intervals in
 * seconds, photo intervals in tenths of a second. */
constexpr tagBB_ALARM_GRADE_ST kGrade = {50, 5, 3, 2};
constexpr tagBB_DSM_EXT_GROUP_ST kExtGroup = {5, 3, 2, 300};

constexpr tagBB_PARAM_DSM_SUBIAO_ST kDsmDefaults = {
    30,         /* 0: alarm speed threshold */
    6,          /* 1: prompt volume */
    0,          /* 2: active photo strategy: off */
    3600,       /* 3: timed photo interval, s */
    200,        /* 5: distance photo interval, m */
    3,          /* 7: photos per capture */
    2,          /* 8: interval between photos */
    3,          /* 9: photo resolution */
    3,          /* 10: video resolution */
    0x00FFC3FF, /* 11: alarm enable bits */
    0x00000003, /* 15: event enable bits */
    180,        /* 19: smoking judging interval, s */
    120,        /* 21: phone call judging interval, s */
    kGrade,     /* 23: fatigue */
    kGrade,     /* 27: phone call */
    kGrade,     /* 31: smoking */
    kGrade,     /* 35: distraction */
    kGrade,     /* 39: abnormal driving */
    1,          /* 43: driver identification trigger */
    {},         /* 44: extension bytes */
    kExtGroup,  /* 50: group A */
    kExtGroup,  /* 55: group B */
    {kGrade, kGrade, kGrade, kGrade, kGrade, kGrade}, /* 60: regional groups */
    {},         /* 84: extension area */
};

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

int __InitSubiaoDsmParam(tagBB_PARAM_DSM_SUBIAO_ST* pstSubiaoDsm) {
    BB_CHECK(NULL != pstSubiaoDsm, -1);
    memcpy(bytes_of(pstSubiaoDsm), &bbconf::kDsmDefaults, sizeof(tagBB_PARAM_DSM_SUBIAO_ST));
    return BB_WAR("Param Inited!\n");
}

int SubiaoDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kSubiaoDsm, __func__, wire, len, bytes_of(local));
}

int SubiaoDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kSubiaoDsm, __func__, bytes_of(local), wire, buflen);
}

int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    return SubiaoDsm_B2LStruct(wire, len, local);
}

int CMN_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return SubiaoDsm_LStruct2B(local, wire, buflen);
}

/* The SiChuan set logs the block as it arrived before converting it. */
int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    bbconf::form_log_received(bbconf::kSiChuanDsm, __func__, wire, len);
    return bbconf::form_set(bbconf::kSiChuanDsm, __func__, wire, len, bytes_of(local));
}

int SiChuan_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kSiChuanDsm, __func__, bytes_of(local), wire, buflen);
}

int GuangDongDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kGuangDongDsm, __func__, wire, len, bytes_of(local));
}

int GuangDongDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kGuangDongDsm, __func__, bytes_of(local), wire, buflen);
}

int HunanDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kHunanDsm, __func__, wire, len, bytes_of(local));
}

int HunanDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kHunanDsm, __func__, bytes_of(local), wire, buflen);
}

int JiLingDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local) {
    return bbconf::form_set(bbconf::kJiLingDsm, __func__, wire, len, bytes_of(local));
}

int JiLingDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen) {
    return bbconf::form_get(bbconf::kJiLingDsm, __func__, bytes_of(local), wire, buflen);
}
