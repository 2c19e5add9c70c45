/* crc.cpp - CRC-CCITT for the record checksums.
 *
 * Eight tables of 256 entries (4 KiB) let the loop fold eight bytes per
 * step: table k holds the CRC of a byte followed by k zero bytes.  Table 0
 * is the plain byte step, so every entry point gives the same result as
 * the bit-by-bit definition. */
#include "common/crc.h"

#include "bbconf.h"

namespace bbconf {
namespace {

constexpr uint16_t kPoly = 0x1021;

/* CRC of one byte shifted through a zero register, bit by bit. */
constexpr uint16_t byte_step(unsigned index) {
    uint16_t t = 0;
    for (int bit = 0; bit < 8; bit++) {
        t = static_cast<uint16_t>((t & 0x8000u) ? ((t << 1) ^ kPoly) : (t << 1));
        if (index & 0x80u) {
            t ^= kPoly;
        }
        index = (index << 1) & 0xffu;
    }
    return t;
}

struct CrcTables {
    uint16_t t[8][256];
};

constexpr CrcTables make_tables() {
    CrcTables tab{};
    for (unsigned b = 0; b < 256; b++) {
        tab.t[0][b] = byte_step(b);
    }
    for (unsigned k = 1; k < 8; k++) {
        for (unsigned b = 0; b < 256; b++) {
            uint16_t prev = tab.t[k - 1][b];
            tab.t[k][b] = static_cast<uint16_t>((prev << 8) ^ tab.t[0][prev >> 8]);
        }
    }
    return tab;
}

constexpr CrcTables kTables = make_tables();
static_assert(sizeof(kTables) <= 4096, "CRC tables must stay within 4 KiB");
static_assert(kTables.t[0][1] == kPoly, "table 0 starts with the polynomial");

inline uint16_t step(uint16_t crc, unsigned char byte) {
    return static_cast<uint16_t>((crc << 8) ^ kTables.t[0][((crc >> 8) ^ byte) & 0xffu]);
}

}  // namespace

uint16_t crc_ccitt_byte(uint16_t crc, unsigned char byte) { return step(crc, byte); }

uint16_t crc_ccitt(uint16_t init, const unsigned char* buf, size_t len) {
    uint16_t crc = init;
    const auto& t = kTables.t;
    while (len >= 8) {
        crc = static_cast<uint16_t>(
            t[7][(buf[0] ^ (crc >> 8)) & 0xffu] ^ t[6][(buf[1] ^ crc) & 0xffu] ^ t[5][buf[2]] ^
            t[4][buf[3]] ^ t[3][buf[4]] ^ t[2][buf[5]] ^ t[1][buf[6]] ^ t[0][buf[7]]);
        buf += 8;
        len -= 8;
    }
    while (len-- > 0) {
        crc = step(crc, *buf++);
    }
    return crc;
}

}  // namespace bbconf

unsigned short __Cal_CRC_CCITT(unsigned short crc, unsigned char byte) {
    return bbconf::crc_ccitt_byte(crc, byte);
}

unsigned short CMN_Get_CRC_CCITT(unsigned short init, unsigned char* buf, unsigned int len) {
    return bbconf::crc_ccitt(init, buf, len);
}

/* The taxi record keeps its own entry points to the same routine. */
unsigned short BBTAXI_Cal_CRC_CCITT(unsigned short crc, unsigned char byte) {
    return bbconf::crc_ccitt_byte(crc, byte);
}

unsigned short BBTAXI_Get_CRC_CCITT(unsigned short init, unsigned char* buf, unsigned int len) {
    return bbconf::crc_ccitt(init, buf, len);
}
