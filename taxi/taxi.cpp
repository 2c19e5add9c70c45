/* taxi.cpp - the taxi record: factory defaults and checksum entry points.
 *
 * The taxi terminal keeps its own 1037-byte record beside the terminal
 * record.  Its defaults are all numbers (no string field has a factory
 * value), so a reset is a zero fill followed by one walk of the constant
 * table below. */
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/field_defaults.h"

namespace bbconf {
namespace {


#define OFF(f) static_cast<uint16_t>(offsetof(tagBBTAXI_CONF_ST, f))
#define ELEM(a, i) \
    static_cast<uint16_t>(offsetof(tagBBTAXI_CONF_ST, a) + (i) * sizeof(tagBBTAXI_CONF_ST::a[0]))

/* The non-zero factory values. */
constexpr FieldDefault kDefaults[] = {
    /* Link supervision. */
    {OFF(uiHeartBeatItv), 4, 20},
    {OFF(uiTcpTimeout), 4, 60},
    {OFF(uiTcpRetry), 4, 3},
    {OFF(uiUdpTimeout), 4, 60},
    {OFF(uiUdpRetry), 4, 3},
    {OFF(uiParam001b), 4, 11001},
    /* Reporting intervals, distances and corner angle (0x0022 - 0x0030). */
    {ELEM(auiParam0020, 2), 4, 30},
    {ELEM(auiParam0020, 3), 4, 30},
    {ELEM(auiParam0020, 4), 4, 30},
    {ELEM(auiParam0020, 5), 4, 60},
    {ELEM(auiParam0020, 6), 4, 30},
    {ELEM(auiParam0020, 7), 4, 120},
    {ELEM(auiParam0020, 8), 4, 10},
    {ELEM(auiParam0020, 9), 4, 500},
    {ELEM(auiParam0020, 10), 4, 500},
    {ELEM(auiParam0020, 11), 4, 500},
    {ELEM(auiParam0020, 12), 4, 200},
    {ELEM(auiParam0020, 13), 4, 200},
    {ELEM(auiParam0020, 14), 4, 500},
    {ELEM(auiParam0020, 15), 4, 200},
    {ELEM(auiParam0020, 16), 4, 45},
    /* Telephony and camera. */
    {ELEM(auiParam0045, 3), 4, 16},
    {OFF(ucParam004b), 1, 4},
    {ELEM(auiParam0070, 0), 4, 5},   /* image quality */
    {ELEM(auiParam0070, 1), 4, 128}, /* brightness */
    {ELEM(auiParam0070, 2), 4, 64},  /* contrast */
    {ELEM(auiParam0070, 3), 4, 64},  /* saturation */
    {ELEM(auiParam0070, 4), 4, 128}, /* chroma */
    {ELEM(aucParam00a0, 0), 1, 1},
    {OFF(uiParam00b5), 4, 7008},
    /* The tail, reached by no parameter ID; the groups at 943 and 946 hold
     * the same triple. */
    {943, 1, 2},
    {944, 1, 15},
    {945, 1, 1},
    {946, 1, 2},
    {947, 1, 15},
    {948, 1, 1},
    {950, 1, 30},
    {951, 1, 150},
    {952, 1, 50},
    {962, 1, 60},
    {1034, 1, 60},
};

#undef ELEM
#undef OFF

static_assert(field_defaults_fit(kDefaults, sizeof(tagBBTAXI_CONF_ST)), "every taxi default must fit its field inside the record");

}  // namespace
}  // namespace bbconf

void BBTAXI_InitToDefault(tagBBTAXI_CONF_ST* pTAXIConf) {
    BB_CHECK(NULL != pTAXIConf, );
    unsigned char* rec = bbconf::bytes_of(pTAXIConf);
    memset(rec, 0, sizeof(tagBBTAXI_CONF_ST));
    bbconf::put_field_defaults(rec, bbconf::kDefaults);
    BB_INF("Init TAXI Param Len:%d\n", static_cast<int>(sizeof(tagBBTAXI_CONF_ST)));
}

/* The taxi record carries no checksum of its own: callers that persist it
 * checksum it with BBTAXI_Get_CRC_CCITT. */
int BBTAXI_UpdateCheckSum(tagBBTAXI_CONF_ST*) { return 0; }

int BBTAXI_VerifyCheckSum(tagBBTAXI_CONF_ST* pTAXIConf) {
    BB_CHECK(NULL != pTAXIConf, 0);
    return 1;
}
