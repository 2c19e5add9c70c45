/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

int CMN_SetByteParam(tagBB_CONF_ST*, int, unsigned char) { return 0; }
int CMN_GetByteParam(tagBB_CONF_ST*, int, unsigned char*) { return 0; }
int CMN_SetWordParam(tagBB_CONF_ST*, int, unsigned short) { return 0; }
int CMN_GetWordParam(tagBB_CONF_ST*, int, unsigned short*) { return 0; }
int CMN_SetDWordParam(tagBB_CONF_ST*, int, unsigned int) { return 0; }
int CMN_GetDWordParam(tagBB_CONF_ST*, int, unsigned int*) { return 0; }
int CMN_SetStrParam(tagBB_CONF_ST*, int, unsigned char*, int) { return 0; }
int CMN_GetStrParam(tagBB_CONF_ST*, int, unsigned char*, int) { return 0; }
