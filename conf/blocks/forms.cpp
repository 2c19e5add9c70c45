/* forms.cpp - the one engine behind every ADAS and DSM wire form. */
#include "conf/blocks/forms.h"

#include <stddef.h>
#include <string.h>

#include "common/hexdump.h"
#include "common/log.h"

namespace bbconf {

int form_set(const BlockForm& form, const char* fn, const unsigned char* wire, unsigned char len,
             unsigned char* local) {
    /* No block to read or no record to fill: nothing to convert or report. */
    if (wire == NULL || local == NULL) {
        return 0;
    }
    wire_to_local(form.head, wire, local);
    wire_to_local(form.body, wire, local);

    /* The length is judged only after the conversion, and a mismatch keeps
     * what was converted: platforms rely on a partly valid block landing. */
    const int DataLen = len;
    const int Cnt = form.length;
    BB_CHECK_FN(fn, DataLen == Cnt, 0);

    BB_INF_FN(fn, "%s Param Set Len:%d, DataLen:%d\n", form.wording, DataLen, DataLen);
    form_dump(form, wire);
    return Cnt;
}

int form_get(const BlockForm& form, const char* fn, const unsigned char* local, unsigned char* wire,
             unsigned int buflen) {
    if (wire == NULL || local == NULL) {
        return 0;
    }
    /* Reserved and unmapped bytes go out as 0. */
    memset(wire, 0, static_cast<size_t>(form.length));
    local_to_wire(form.head, local, wire);
    local_to_wire(form.body, local, wire);

    const unsigned int BufLen = buflen;
    const unsigned int Cnt = static_cast<unsigned int>(form.length);
    BB_CHECK_FN(fn, BufLen >= Cnt, 0);

    BB_INF_FN(fn, "%s Param Get Len:%d, BufLen:%d\n", form.wording, form.length, static_cast<int>(BufLen));
    form_dump(form, wire);
    return form.length;
}

void form_dump(const BlockForm& form, const unsigned char* wire) {
    const unsigned char* from = form.dump == DumpOrigin::BeforeWire ? wire - form.length : wire;
    hex_dump(from, form.length);
}

void form_log_received(const BlockForm& form, const char* fn, const unsigned char* wire, unsigned char len) {
    if (wire == NULL) {
        return;
    }
    BB_INF_FN(fn, "%s Param Set Len:%d, DataLen:%d\n", form.wording, 0, static_cast<int>(len));
    hex_dump(wire, len);
}

}  // namespace bbconf
