/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

unsigned int CMN_B2LStruct(unsigned char*, unsigned char, tagAV_ENC_PARAM_ST*) { return 0; }
int CMN_LStruct2B(tagAV_ENC_PARAM_ST*, unsigned char*, unsigned int) { return 0; }
unsigned int CMN_B2LStruct(unsigned char*, unsigned char, tagAV_INDIVIDUAL_SETTING_ST*) { return 0; }
int CMN_LStruct2B(tagAV_INDIVIDUAL_SETTING_ST*, unsigned char*, unsigned int) { return 0; }
