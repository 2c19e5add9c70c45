/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_VDS_XIANGBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_VDS_XIANGBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int __InitXiangbiaoVdsParam(tagBB_PARAM_VDS_XIANGBIAO_ST*) { return 0; }
int __InitXiangbiaoDriverCmpParam(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST*) { return 0; }
int __InitXiangbiaoDriverCaptureParam(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST*) { return 0; }
