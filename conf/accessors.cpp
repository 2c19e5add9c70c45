/* accessors.cpp - whole-block accessors of the video and night-rule
 * blocks: plain byte copies between a caller's local structure and its
 * member of the terminal record, with no check or conversion of fields. */
#include <stddef.h>
#include <string.h>

#include "bbconf.h"
#include "common/log.h"

namespace bbconf {
namespace {

/* Checks the block pointer (under the caller's parameter name), then the
 * record, and copies the member in or out. */
template <typename T>
int copy_block(const char* fn, const char* block_text, tagBB_CONF_ST* pbbConf, T* block, T tagBB_CONF_ST::*member,
               bool into_record) {
    if (block == NULL) {
        BB_ASSERT_LINE_FN(fn, block_text);
        return -1;
    }
    BB_CHECK_FN(fn, NULL != pbbConf, -1);
    T* in_record = &(pbbConf->*member);
    if (into_record) {
        memcpy(in_record, block, sizeof(T));
    } else {
        memcpy(block, in_record, sizeof(T));
    }
    return 0;
}

constexpr bool kIn = true;
constexpr bool kOut = false;

}  // namespace
}  // namespace bbconf

using bbconf::copy_block;
using bbconf::kIn;
using bbconf::kOut;
using C = tagBB_CONF_ST;

// clang-format off
int CMN_SetGeneralAVEncParam(C* pbbConf, tagAV_ENC_PARAM_ST* p) { return copy_block(__func__, "NULL != pstGeneralAVEncParam", pbbConf, p, &C::stAVEnc, kIn); }
int CMN_GetGeneralAVEncParam(C* pbbConf, tagAV_ENC_PARAM_ST* p) { return copy_block(__func__, "NULL != pstGeneralAVEncParam", pbbConf, p, &C::stAVEnc, kOut); }
int CMN_SetAVChLookUpList(C* pbbConf, tagAV_CHANEL_LOOK_UP_ST* p) { return copy_block(__func__, "NULL != pstAVChLookUpList", pbbConf, p, &C::stAVChLookUp, kIn); }
int CMN_GetAVChLookUpList(C* pbbConf, tagAV_CHANEL_LOOK_UP_ST* p) { return copy_block(__func__, "NULL != pstAVChLookUpList", pbbConf, p, &C::stAVChLookUp, kOut); }
int CMN_SetAVIndSetting(C* pbbConf, tagAV_INDIVIDUAL_SETTING_ST* p) { return copy_block(__func__, "NULL != pstAVIndSetting", pbbConf, p, &C::stAVIndSetting, kIn); }
int CMN_GetAVIndSetting(C* pbbConf, tagAV_INDIVIDUAL_SETTING_ST* p) { return copy_block(__func__, "NULL != pstAVIndSetting", pbbConf, p, &C::stAVIndSetting, kOut); }
int CMN_SetSpecialAlarmParam(C* pbbConf, tagSPECIAL_ALARM_REC_PARAM_ST* p) { return copy_block(__func__, "NULL != pstSpecialAlmRecParam", pbbConf, p, &C::stSpecialAlarmRec, kIn); }
int CMN_GetSpecialAlarmParam(C* pbbConf, tagSPECIAL_ALARM_REC_PARAM_ST* p) { return copy_block(__func__, "NULL != pstSpecialAlmRecParam", pbbConf, p, &C::stSpecialAlarmRec, kOut); }
int CMN_SetVideoAlnalyseParam(C* pbbConf, tagVIDEO_ANALYSE_PARAM_ST* p) { return copy_block(__func__, "NULL != pstVideoAnalyseParam", pbbConf, p, &C::stVideoAnalyse, kIn); }
int CMN_GetVideoAlnalyseParam(C* pbbConf, tagVIDEO_ANALYSE_PARAM_ST* p) { return copy_block(__func__, "NULL != pstVideoAnalyseParam", pbbConf, p, &C::stVideoAnalyse, kOut); }
int CMN_SetWakeUpModeParam(C* pbbConf, tagWAKEUP_MODE_PARAM_ST* p) { return copy_block(__func__, "NULL != pstWakeUpModeParam", pbbConf, p, &C::stWakeUpMode, kIn); }
int CMN_GetWakeUpModeParam(C* pbbConf, tagWAKEUP_MODE_PARAM_ST* p) { return copy_block(__func__, "NULL != pstWakeUpModeParam", pbbConf, p, &C::stWakeUpMode, kOut); }
int CMN_SetNightSpeedLmt(C* pbbConf, tagBB_PARAM_NIGHT_SPEED_ST* p) { return copy_block(__func__, "NULL != pstNightSpeedLmt", pbbConf, p, &C::stNightSpeed, kIn); }
int CMN_GetNightSpeedLmt(C* pbbConf, tagBB_PARAM_NIGHT_SPEED_ST* p) { return copy_block(__func__, "NULL != pstNightSpeedLmt", pbbConf, p, &C::stNightSpeed, kOut); }
int CMN_SetNightAbnormalMove(C* pbbConf, tagBB_PARAM_NIGHT_MOVE_ST* p) { return copy_block(__func__, "NULL != pstNightAbnormalMove", pbbConf, p, &C::stNightMove, kIn); }
int CMN_GetNightAbnormalMove(C* pbbConf, tagBB_PARAM_NIGHT_MOVE_ST* p) { return copy_block(__func__, "NULL != pstNightAbnormalMove", pbbConf, p, &C::stNightMove, kOut); }
int CMN_SetNightTiredSetting(C* pbbConf, tagBB_PARAM_NIGHT_TIRED_ST* p) { return copy_block(__func__, "NULL != pstNightTiredSetting", pbbConf, p, &C::stNightTired, kIn); }
int CMN_GetNightTiredSetting(C* pbbConf, tagBB_PARAM_NIGHT_TIRED_ST* p) { return copy_block(__func__, "NULL != pstNightTiredSetting", pbbConf, p, &C::stNightTired, kOut); }
// clang-format on
