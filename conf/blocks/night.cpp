/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_NIGHT_SPEED_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_NIGHT_SPEED_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_NIGHT_MOVE_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_NIGHT_MOVE_ST*, unsigned char*, unsigned int) { return 0; }
int CMN_B2LStruct(unsigned char*, unsigned char, tagBB_PARAM_NIGHT_TIRED_ST*) { return 0; }
int CMN_LStruct2B(tagBB_PARAM_NIGHT_TIRED_ST*, unsigned char*, unsigned int) { return 0; }
void __InitNightSpeedLmt(tagBB_PARAM_NIGHT_SPEED_ST*) { }
void __InitNightAbnormalMove(tagBB_PARAM_NIGHT_MOVE_ST*) { }
void __InitNightTiredSetting(tagBB_PARAM_NIGHT_TIRED_ST*) { }
