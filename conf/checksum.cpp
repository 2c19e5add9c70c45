/* checksum.cpp - the checksum of the terminal record.  The record holds no
 * checksum field: the caller keeps the value beside the persisted record. */
#include "bbconf.h"
#include "common/crc.h"
#include "common/log.h"

namespace {
constexpr unsigned short kCheckSumInit = 0xabcd;
}

int CMN_UpdateCheckSum(tagBB_CONF_ST* pbbConf) {
    BB_CHECK(NULL != pbbConf, 0);
    unsigned short crc =
        bbconf::crc_ccitt(kCheckSumInit, reinterpret_cast<const unsigned char*>(pbbConf), BB_CONF_LEN);
    BB_INF("Check Len:%d/%d Sum:%x\n", BB_CONF_LEN, BB_CONF_LEN, crc);
    return crc;
}

/* Accepts every record: callers that verify compare CMN_UpdateCheckSum with
 * the value they stored. */
int CMN_VerifyCheckSum(tagBB_CONF_ST*) { return 1; }
