/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_TPMS_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_TPMS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_OVERLOAD_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_OVERLOAD_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_OVERSIZE_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_OVERSIZE_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int __InitSubiaoTpmsParam(tagBB_PARAM_TPMS_SUBIAO_ST*) { return 0; }
int __InitSubiaoBsdParam(tagBB_PARAM_BSD_SUBIAO_ST*) { return 0; }
int __InitSubiaoIntenseDriveParam(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST*) { return 0; }
