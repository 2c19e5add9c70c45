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

using Taxi = tagBBTAXI_CONF_ST;

namespace bbconf {
namespace {

// clang-format off
/* The non-zero factory values. */
constexpr FieldDefault kTaxiValues[] = {
    /* Link supervision. */
    BB_NUM(Taxi, uiHeartBeatItv, 20),
    BB_NUM(Taxi, uiTcpTimeout, 60),
    BB_NUM(Taxi, uiTcpRetry, 3),
    BB_NUM(Taxi, uiUdpTimeout, 60),
    BB_NUM(Taxi, uiUdpRetry, 3),
    BB_NUM(Taxi, uiParam001b, 11001),
    /* Reporting intervals, distances and corner angle (0x0022 - 0x0030). */
    BB_ITEM(Taxi, auiParam0020, 2, 30),
    BB_ITEM(Taxi, auiParam0020, 3, 30),
    BB_ITEM(Taxi, auiParam0020, 4, 30),
    BB_ITEM(Taxi, auiParam0020, 5, 60),
    BB_ITEM(Taxi, auiParam0020, 6, 30),
    BB_ITEM(Taxi, auiParam0020, 7, 120),
    BB_ITEM(Taxi, auiParam0020, 8, 10),
    BB_ITEM(Taxi, auiParam0020, 9, 500),
    BB_ITEM(Taxi, auiParam0020, 10, 500),
    BB_ITEM(Taxi, auiParam0020, 11, 500),
    BB_ITEM(Taxi, auiParam0020, 12, 200),
    BB_ITEM(Taxi, auiParam0020, 13, 200),
    BB_ITEM(Taxi, auiParam0020, 14, 500),
    BB_ITEM(Taxi, auiParam0020, 15, 200),
    BB_ITEM(Taxi, auiParam0020, 16, 45),
    /* Telephony and camera. */
    BB_ITEM(Taxi, auiParam0045, 3, 16),
    BB_NUM(Taxi, ucParam004b, 4),
    BB_ITEM(Taxi, auiParam0070, 0, 5),   /* image quality */
    BB_ITEM(Taxi, auiParam0070, 1, 128), /* brightness */
    BB_ITEM(Taxi, auiParam0070, 2, 64),  /* contrast */
    BB_ITEM(Taxi, auiParam0070, 3, 64),  /* saturation */
    BB_ITEM(Taxi, auiParam0070, 4, 128), /* chroma */
    BB_ITEM(Taxi, aucParam00a0, 0, 1),
    BB_NUM(Taxi, uiParam00b5, 7008),
    /* The tail, reached by no parameter ID: two groups of the same triple
     * (2, 15, 1), then single settings. */
    BB_RUN(Taxi, aucTail, 9, 6, "\x02\x0f\x01"),
    BB_ITEM(Taxi, aucTail, 16, 30),
    BB_ITEM(Taxi, aucTail, 17, 150),
    BB_ITEM(Taxi, aucTail, 18, 50),
    BB_ITEM(Taxi, aucTail, 28, 60),
    BB_ITEM(Taxi, aucTail, 100, 60),
};
// clang-format on
constexpr Defaults kTaxiDefaults = defaults_of(kTaxiValues);

static_assert(defaults_fit(kTaxiDefaults, sizeof(Taxi)), "every taxi default must fit its field inside the record");

}  // namespace
}  // namespace bbconf

void BBTAXI_InitToDefault(tagBBTAXI_CONF_ST* pTAXIConf) {
    BB_CHECK(NULL != pTAXIConf, );
    unsigned char* rec = bbconf::bytes_of(pTAXIConf);
    memset(rec, 0, sizeof(tagBBTAXI_CONF_ST));
    bbconf::put_field_defaults(rec, bbconf::packed_defaults<bbconf::kTaxiDefaults>);
    BB_INF("Init TAXI Param Len:%d\n", static_cast<int>(sizeof(tagBBTAXI_CONF_ST)));
}

/* The taxi record carries no checksum of its own: callers that persist it
 * checksum it with BBTAXI_Get_CRC_CCITT. */
int BBTAXI_UpdateCheckSum(tagBBTAXI_CONF_ST*) { return 0; }

int BBTAXI_VerifyCheckSum(tagBBTAXI_CONF_ST* pTAXIConf) {
    BB_CHECK(NULL != pTAXIConf, 0);
    return 1;
}
