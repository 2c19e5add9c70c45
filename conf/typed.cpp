/* typed.cpp - set and get a terminal parameter as a native number or a
 * string, without building the big-endian wire value by hand.
 *
 * Each wrapper builds the wire value on its own stack and calls
 * CMN_SetParam / CMN_GetParam with a fixed length.  The getters never let
 * a get write past the variable they fill: an ID whose get writes more
 * bytes than the variable holds, whatever BufLen says, is refused with -1.
 * The setters refuse a number ID wider than the value they carry, and hand
 * block IDs a zero-padded buffer, because a block's codec reads its whole
 * wire form whatever the length says. */
#include <stdint.h>
#include <string.h>

#include "bbconf.h"
#include "bbconf_catalogue.h"
#include "common/byteorder.h"
#include "common/log.h"

namespace {

/* Room for the longest wire form a block set reads whatever its length
 * (the 253-byte channel settings), rounded up. */
constexpr int kSetRoom = 256;

bbconf::ParamInfo terminal_param(int id) {
    bbconf::ParamInfo p{};
    bbconf::find_param(bbconf::RecordKind::Terminal, static_cast<uint32_t>(id), &p);
    return p;
}

/* Sets a number of `width` bytes, big-endian, as a wire value of that
 * length; the buffer behind it is zero for codecs that read on.  A number
 * ID whose set reads more bytes than the value has is refused. */
int set_typed(tagBB_CONF_ST* pbbConf, int id, uint32_t value, int width) {
    const bbconf::ParamInfo p = terminal_param(id);
    if (p.kind == bbconf::ValueKind::Number && p.set_len > width) {
        return -1;
    }
    unsigned char wire[kSetRoom];
    memset(wire, 0, sizeof wire);
    bbconf::store_be(wire, static_cast<unsigned>(width), value);
    return CMN_SetParam(pbbConf, id, wire, width);
}

/* Whether the get of an ID fits a variable of `room` bytes: the bytes it
 * writes whatever BufLen says (0 for unknown IDs and bounded gets). */
bool get_fits(int id, int room) { return terminal_param(id).get_width <= room; }

}  // namespace

int CMN_SetByteParam(tagBB_CONF_ST* pbbConf, int id, unsigned char value) {
    return set_typed(pbbConf, id, value, 1);
}

int CMN_SetWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned short value) {
    return set_typed(pbbConf, id, value, 2);
}

int CMN_SetDWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned int value) {
    return set_typed(pbbConf, id, value, 4);
}

int CMN_SetStrParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* str, int len) {
    return CMN_SetParam(pbbConf, id, str, len);
}

/* The caller's byte is the wire buffer: on failure it keeps its value. */
int CMN_GetByteParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* out) {
    if (!get_fits(id, 1)) {
        return -1;
    }
    return CMN_GetParam(pbbConf, id, out, 1);
}

/* The output always receives the zeroed local, also on failure. */
int CMN_GetWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned short* out) {
    BB_CHECK(NULL != out, -1);
    if (!get_fits(id, 2)) {
        return -1;
    }
    unsigned char wire[2] = {0, 0};
    int r = CMN_GetParam(pbbConf, id, wire, 2);
    *out = bbconf::load_be16(wire);
    return r;
}

int CMN_GetDWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned int* out) {
    BB_CHECK(NULL != out, -1);
    if (!get_fits(id, 4)) {
        return -1;
    }
    unsigned char wire[4] = {0, 0, 0, 0};
    int r = CMN_GetParam(pbbConf, id, wire, 4);
    *out = bbconf::load_be32(wire);
    return r;
}

int CMN_GetStrParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* buf, int buflen) {
    return CMN_GetParam(pbbConf, id, buf, buflen);
}
