/* placeholder bodies, replaced as the family is built */
#include "bbconf.h"

void CMN_InitBbConfToDefault(tagBB_CONF_ST*) { }
