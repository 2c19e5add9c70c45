/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

void BBTAXI_InitToDefault(tagBBTAXI_CONF_ST*) { }
int BBTAXI_UpdateCheckSum(tagBBTAXI_CONF_ST*) { return 0; }
int BBTAXI_VerifyCheckSum(tagBBTAXI_CONF_ST*) { return 0; }
int BBTAXI_SetParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
int BBTAXI_GetParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
int BBTAXI_SetByteParam(tagBBTAXI_CONF_ST*, int, unsigned char) { return 0; }
int BBTAXI_GetByteParam(tagBBTAXI_CONF_ST*, int, unsigned char*) { return 0; }
int BBTAXI_SetWordParam(tagBBTAXI_CONF_ST*, int, unsigned short) { return 0; }
int BBTAXI_GetWordParam(tagBBTAXI_CONF_ST*, int, unsigned short*) { return 0; }
int BBTAXI_SetDWordParam(tagBBTAXI_CONF_ST*, int, unsigned int) { return 0; }
int BBTAXI_GetDWordParam(tagBBTAXI_CONF_ST*, int, unsigned int*) { return 0; }
int BBTAXI_SetStrParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
int BBTAXI_GetStrParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
