/* params.h - the terminal record's parameter dictionary. */
#ifndef BBCONF_CONF_PARAMS_H
#define BBCONF_CONF_PARAMS_H

#include "conf/dict.h"

namespace bbconf {

const Dictionary& terminal_dictionary();

/* Bytes the get of an ID writes whatever BufLen says: 1, 2 or 4 for
 * numbers, 8 for 0x0110, 151 for 0x0076; 0 when BufLen bounds the write
 * or the ID is unknown. */
int terminal_get_width(int id);

}  // namespace bbconf

#endif
