/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int __InitSubiaoAdasParam(tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int SubiaoAdas_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int SubiaoAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int SiChuan_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int SiChuan_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int GuangDongAdas_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int GuangDongAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int HunanAdas_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int HunanAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int JiLingAdas_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_ADAS_SUBIAO_ST*) { return 0; }
int JiLingAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
