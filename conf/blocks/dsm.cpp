/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int __InitSubiaoDsmParam(tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int SubiaoDsm_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int SubiaoDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int SiChuan_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int SiChuan_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int GuangDongDsm_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int GuangDongDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int HunanDsm_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int HunanDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
int JiLingDsm_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_DSM_SUBIAO_ST*) { return 0; }
int JiLingDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST*, unsigned char*, unsigned int) { return 0; }
