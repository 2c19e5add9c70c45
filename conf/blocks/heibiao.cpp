/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_HljB2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DRIVER_IDENTIFY_ST*) { return 0; }
int CMN_HljLStruct2B(tagBB_PARAM_DRIVER_IDENTIFY_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_HljB2LStruct(unsigned char*, unsigned char, tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST*) { return 0; }
int CMN_HljLStruct2B(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_HljB2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_HEIBIAO_ST*) { return 0; }
int CMN_HljLStruct2B(tagBB_PARAM_DSM_HEIBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_HljB2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST*) { return 0; }
int CMN_HljLStruct2B(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int __InitHljDriverIdentifyParam(tagBB_PARAM_DRIVER_IDENTIFY_ST*) { return 0; }
int __InitHljAdasParam(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST*) { return 0; }
int __InitHljDsmParam(tagBB_PARAM_DSM_HEIBIAO_ST*) { return 0; }
int __InitHljDevFailParam(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST*) { return 0; }
