/* accessors.cpp - whole-block accessors of the video and night-rule
 * blocks: plain byte copies between a caller's local structure and its
 * region of the terminal record, with no check or conversion of fields. */
#include <stddef.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"

/* Defines the Set/Get pair of one block: a copy of the record's member
 * (whose offset the public header pins).  The block pointer is checked
 * first, under the parameter's own name, then the record pointer.  Its
 * arguments are function names, a type and a parameter name, which cannot
 * be parenthesised. */
// NOLINTBEGIN(bugprone-macro-parentheses)
#define BB_BLOCK_ACCESSORS(SetFn, GetFn, Type, pstBlock, Member)                                     \
    static_assert(sizeof(tagBB_CONF_ST::Member) == sizeof(Type), #Member " resized");                \
    int SetFn(tagBB_CONF_ST* pbbConf, Type* pstBlock) {                                              \
        BB_CHECK(NULL != pstBlock, -1);                                                              \
        BB_CHECK(NULL != pbbConf, -1);                                                               \
        memcpy(bbconf::bytes_of(pbbConf) + offsetof(tagBB_CONF_ST, Member), pstBlock, sizeof(Type)); \
        return 0;                                                                                    \
    }                                                                                                \
    int GetFn(tagBB_CONF_ST* pbbConf, Type* pstBlock) {                                              \
        BB_CHECK(NULL != pstBlock, -1);                                                              \
        BB_CHECK(NULL != pbbConf, -1);                                                               \
        memcpy(pstBlock, bbconf::bytes_of(pbbConf) + offsetof(tagBB_CONF_ST, Member), sizeof(Type)); \
        return 0;                                                                                    \
    }
// NOLINTEND(bugprone-macro-parentheses)

BB_BLOCK_ACCESSORS(CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam, tagAV_ENC_PARAM_ST, pstGeneralAVEncParam,
                   stAVEnc)
BB_BLOCK_ACCESSORS(CMN_SetAVChLookUpList, CMN_GetAVChLookUpList, tagAV_CHANEL_LOOK_UP_ST, pstAVChLookUpList,
                   stAVChLookUp)
BB_BLOCK_ACCESSORS(CMN_SetAVIndSetting, CMN_GetAVIndSetting, tagAV_INDIVIDUAL_SETTING_ST, pstAVIndSetting,
                   stAVIndSetting)
BB_BLOCK_ACCESSORS(CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam, tagSPECIAL_ALARM_REC_PARAM_ST,
                   pstSpecialAlmRecParam, stSpecialAlarmRec)
BB_BLOCK_ACCESSORS(CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam, tagVIDEO_ANALYSE_PARAM_ST,
                   pstVideoAnalyseParam, stVideoAnalyse)
BB_BLOCK_ACCESSORS(CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam, tagWAKEUP_MODE_PARAM_ST, pstWakeUpModeParam,
                   stWakeUpMode)
BB_BLOCK_ACCESSORS(CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt, tagBB_PARAM_NIGHT_SPEED_ST, pstNightSpeedLmt,
                   stNightSpeed)
BB_BLOCK_ACCESSORS(CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove, tagBB_PARAM_NIGHT_MOVE_ST, pstNightAbnormalMove,
                   stNightMove)
BB_BLOCK_ACCESSORS(CMN_SetNightTiredSetting, CMN_GetNightTiredSetting, tagBB_PARAM_NIGHT_TIRED_ST, pstNightTiredSetting,
                   stNightTired)

#undef BB_BLOCK_ACCESSORS
