/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ZT_ALARM_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_ZT_ALARM_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, BB_DPX_ADAS_PARM_ST*) { return 0; }
int CMN_LStruct2B(BB_DPX_ADAS_PARM_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, BB_DPX_DSM_PARAM_ST*) { return 0; }
int CMN_LStruct2B(BB_DPX_DSM_PARAM_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_ALARM_VIDEO_PHOTO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_ALARM_VIDEO_PHOTO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST*) { return 0; }
int CMN_LStruct2B(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST*, unsigned char*, unsigned int) { return 0; }
int __InitZhatuAlarmParam(tagBB_PARAM_ZT_ALARM_ST*) { return 0; }
int __InitQ8RS485InqureParam(_tagBB_PARAM_485AllDataFA_ST*) { return 0; }
int CMN_Init_DPX_ADAS_Setting(BB_DPX_ADAS_PARM_ST*) { return 0; }
int CMN_Init_DPX_DSM_Setting(BB_DPX_DSM_PARAM_ST*) { return 0; }
