/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_SetGeneralAVEncParam(tagBB_CONF_ST*, tagAV_ENC_PARAM_ST*) { return 0; }
int CMN_GetGeneralAVEncParam(tagBB_CONF_ST*, tagAV_ENC_PARAM_ST*) { return 0; }
int CMN_SetAVChLookUpList(tagBB_CONF_ST*, tagAV_CHANEL_LOOK_UP_ST*) { return 0; }
int CMN_GetAVChLookUpList(tagBB_CONF_ST*, tagAV_CHANEL_LOOK_UP_ST*) { return 0; }
int CMN_SetAVIndSetting(tagBB_CONF_ST*, tagAV_INDIVIDUAL_SETTING_ST*) { return 0; }
int CMN_GetAVIndSetting(tagBB_CONF_ST*, tagAV_INDIVIDUAL_SETTING_ST*) { return 0; }
int CMN_SetSpecialAlarmParam(tagBB_CONF_ST*, tagSPECIAL_ALARM_REC_PARAM_ST*) { return 0; }
int CMN_GetSpecialAlarmParam(tagBB_CONF_ST*, tagSPECIAL_ALARM_REC_PARAM_ST*) { return 0; }
int CMN_SetVideoAlnalyseParam(tagBB_CONF_ST*, tagVIDEO_ANALYSE_PARAM_ST*) { return 0; }
int CMN_GetVideoAlnalyseParam(tagBB_CONF_ST*, tagVIDEO_ANALYSE_PARAM_ST*) { return 0; }
int CMN_SetWakeUpModeParam(tagBB_CONF_ST*, tagWAKEUP_MODE_PARAM_ST*) { return 0; }
int CMN_GetWakeUpModeParam(tagBB_CONF_ST*, tagWAKEUP_MODE_PARAM_ST*) { return 0; }
int CMN_SetNightSpeedLmt(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_SPEED_ST*) { return 0; }
int CMN_GetNightSpeedLmt(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_SPEED_ST*) { return 0; }
int CMN_SetNightAbnormalMove(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_MOVE_ST*) { return 0; }
int CMN_GetNightAbnormalMove(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_MOVE_ST*) { return 0; }
int CMN_SetNightTiredSetting(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_TIRED_ST*) { return 0; }
int CMN_GetNightTiredSetting(tagBB_CONF_ST*, tagBB_PARAM_NIGHT_TIRED_ST*) { return 0; }
