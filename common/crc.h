/* crc.h - CRC-CCITT (polynomial 0x1021, MSB first, caller's initial value,
 * no final XOR), slicing by 8 over tables built at compile time. */
#ifndef BBCONF_COMMON_CRC_H
#define BBCONF_COMMON_CRC_H

#include <stddef.h>
#include <stdint.h>

namespace bbconf {

/* CRC after one more byte. */
uint16_t crc_ccitt_byte(uint16_t crc, unsigned char byte);
/* CRC of len bytes from init; len 0 returns init without reading buf. */
uint16_t crc_ccitt(uint16_t init, const unsigned char* buf, size_t len);

}  // namespace bbconf

#endif
