/* taxi_dict.cpp - BBTAXI_SetParam / BBTAXI_GetParam: the taxi record's
 * parameter dictionary, and the typed taxi accessors (placeholders).
 *
 * The taxi IDs run on the terminal catalogue's engine (search, rules and
 * the "Not Find" lines); the rules only the taxi record has are named in
 * conf/dict.h. */
#include <stddef.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/dict.h"

namespace bbconf {
namespace {

#define OFF(f) offsetof(tagBBTAXI_CONF_ST, f)
#define ELEM(a, i) (offsetof(tagBBTAXI_CONF_ST, a) + (i) * sizeof(tagBBTAXI_CONF_ST::a[0]))
#define WIDTH(f) sizeof(tagBBTAXI_CONF_ST::f)
#define ELEM_WIDTH(a) sizeof(tagBBTAXI_CONF_ST::a[0])

/* A 16-bit wire value widened into a 4-byte field, read back as 32 bits. */
constexpr ParamDef U16_IN_U32(uint16_t id, size_t off) { return row(id, off, 4, Rule::U16IntoU32); }
/* Raw bytes copied without a terminator into a field of width bytes; the
 * set never writes the field's last byte, so the zero the reset left there
 * ends the text that the get reads back. */
constexpr ParamDef RAW_TEXT(uint16_t id, size_t off, size_t width) { return row(id, off, width - 1, Rule::RawText); }
/* Terminated text of at most width - 1 bytes. */
constexpr ParamDef TEXT(uint16_t id, size_t off, size_t width) { return row(id, off, width - 1, Rule::CountedText); }
/* Neither stored nor read: a set reports "Not Find", a get answers -1
 * without a message. */
constexpr ParamDef SILENT(uint16_t id) { return row(id, 0, 0, Rule::Silent); }
/* The platform may send them; the taxi record has no room. */
constexpr ParamDef IGNORED(uint16_t id) { return row(id, 0, 0, Rule::Ignored); }

constexpr ParamDef kRows[] = {
    /* Link supervision. */
    U32(0x0001, OFF(uiHeartBeatItv)),
    U32(0x0002, OFF(uiTcpTimeout)),
    U32(0x0003, OFF(uiTcpRetry)),
    U32(0x0004, OFF(uiUdpTimeout)),
    U32(0x0005, OFF(uiUdpRetry)),
    /* Servers: APNs, dial-up credentials and addresses. */
    RAW_TEXT(0x0010, OFF(szMainApn), WIDTH(szMainApn)),
    RAW_TEXT(0x0011, OFF(szMainUser), WIDTH(szMainUser)),
    RAW_TEXT(0x0012, OFF(szMainPwd), WIDTH(szMainPwd)),
    TEXT(0x0013, OFF(szMainAddr), WIDTH(szMainAddr)),
    RAW_TEXT(0x0014, OFF(szBackupApn), WIDTH(szBackupApn)),
    RAW_TEXT(0x0015, OFF(szBackupUser), WIDTH(szBackupUser)),
    RAW_TEXT(0x0016, OFF(szBackupPwd), WIDTH(szBackupPwd)),
    TEXT(0x0017, OFF(szBackupAddr), WIDTH(szBackupAddr)),
    U32(0x0018, OFF(uiTcpPort)),
    U32(0x0019, OFF(uiUdpPort)),
    RAW_TEXT(0x001a, OFF(szParam001a), WIDTH(szParam001a)),
    U32(0x001b, OFF(uiParam001b)),
    row(0x001c, OFF(aucParam001c), WIDTH(aucParam001c) - 1, Rule::RawSetOnly),
    row(0x001d, OFF(ucParam001d), 1, Rule::LowByteOfU32),
    /* Reporting strategy, intervals, distances and corner angle. */
    U32(0x0020, ELEM(auiParam0020, 0)),
    U32(0x0021, ELEM(auiParam0020, 1)),
    U32(0x0022, ELEM(auiParam0020, 2)),
    U32(0x0023, ELEM(auiParam0020, 3)),
    U32(0x0024, ELEM(auiParam0020, 4)),
    U32(0x0025, ELEM(auiParam0020, 5)),
    U32(0x0026, ELEM(auiParam0020, 6)),
    U32(0x0027, ELEM(auiParam0020, 7)),
    U32(0x0028, ELEM(auiParam0020, 8)),
    U32(0x0029, ELEM(auiParam0020, 9)),
    U32(0x002a, ELEM(auiParam0020, 10)),
    U32(0x002b, ELEM(auiParam0020, 11)),
    U32(0x002c, ELEM(auiParam0020, 12)),
    U32(0x002d, ELEM(auiParam0020, 13)),
    U32(0x002e, ELEM(auiParam0020, 14)),
    U32(0x002f, ELEM(auiParam0020, 15)),
    U32(0x0030, ELEM(auiParam0020, 16)),
    /* Telephony. */
    TEXT(0x0040, ELEM(aszPhone0040, 0), ELEM_WIDTH(aszPhone0040)),
    TEXT(0x0041, ELEM(aszPhone0040, 1), ELEM_WIDTH(aszPhone0040)),
    TEXT(0x0042, ELEM(aszPhone0040, 2), ELEM_WIDTH(aszPhone0040)),
    TEXT(0x0043, ELEM(aszPhone0040, 3), ELEM_WIDTH(aszPhone0040)),
    TEXT(0x0044, ELEM(aszPhone0040, 4), ELEM_WIDTH(aszPhone0040)),
    U32(0x0045, ELEM(auiParam0045, 0)),
    U32(0x0046, ELEM(auiParam0045, 1)),
    U32(0x0047, ELEM(auiParam0045, 2)),
    U32(0x0048, ELEM(auiParam0045, 3)),
    RAW_TEXT(0x0049, OFF(szPhone0049), WIDTH(szPhone0049)),
    RAW_TEXT(0x004a, OFF(szPhone004a), WIDTH(szPhone004a)),
    U8(0x004b, OFF(ucParam004b)),
    /* Alarm masks and driving limits (0x0054 has no field). */
    U32(0x0050, ELEM(auiParam0050, 0)),
    U32(0x0051, ELEM(auiParam0050, 1)),
    U32(0x0052, ELEM(auiParam0050, 2)),
    U32(0x0053, ELEM(auiParam0050, 3)),
    U32(0x0055, ELEM(auiParam0055, 0)),
    U32(0x0056, ELEM(auiParam0055, 1)),
    U32(0x0057, ELEM(auiParam0055, 2)),
    U32(0x0058, ELEM(auiParam0055, 3)),
    U32(0x0059, ELEM(auiParam0055, 4)),
    U32(0x005a, ELEM(auiParam0055, 5)),
    /* Camera image settings; saturation arrives as 16 bits. */
    U32(0x0070, ELEM(auiParam0070, 0)),
    U32(0x0071, ELEM(auiParam0070, 1)),
    U32(0x0072, ELEM(auiParam0070, 2)),
    U16_IN_U32(0x0073, ELEM(auiParam0070, 3)),
    U32(0x0074, ELEM(auiParam0070, 4)),
    IGNORED(0x0077),
    IGNORED(0x0078),
    IGNORED(0x0079),
    /* Vehicle: odometer, province and city. */
    U32(0x0080, ELEM(auiParam0080, 0)),
    U16_IN_U32(0x0081, ELEM(auiParam0080, 1)),
    U16_IN_U32(0x0082, ELEM(auiParam0080, 2)),
    /* Vehicle identification texts. */
    RAW_TEXT(0x0090, OFF(szParam0090), WIDTH(szParam0090)),
    RAW_TEXT(0x0091, OFF(szParam0091), WIDTH(szParam0091)),
    RAW_TEXT(0x0092, OFF(szParam0092), WIDTH(szParam0092)),
    RAW_TEXT(0x0093, OFF(szParam0093), WIDTH(szParam0093)),
    row(0x0094, OFF(szParam0094), WIDTH(szParam0094), Rule::TextAdmitFull),
    /* Meter and service values. */
    U8(0x00a0, ELEM(aucParam00a0, 0)),
    U8(0x00a1, ELEM(aucParam00a0, 1)),
    U8(0x00a2, ELEM(aucParam00a0, 2)),
    U8(0x00a3, ELEM(aucParam00a0, 3)),
    U16(0x00af, OFF(usParam00af)),
    U8(0x00b0, OFF(ucParam00b0)),
    RAW_TEXT(0x00b1, ELEM(aszParam00b1, 0), ELEM_WIDTH(aszParam00b1)),
    RAW_TEXT(0x00b2, ELEM(aszParam00b1, 1), ELEM_WIDTH(aszParam00b1)),
    RAW_TEXT(0x00b3, ELEM(aszParam00b1, 2), ELEM_WIDTH(aszParam00b1)),
    RAW_TEXT(0x00b4, OFF(szParam00b4), WIDTH(szParam00b4)),
    U32(0x00b5, OFF(uiParam00b5)),
    /* Vendor IDs a taxi record does not keep: queried silently. */
    SILENT(0xf001),
    SILENT(0xf002),
    SILENT(0xf003),
    SILENT(0xf004),
    SILENT(0xf005),
    SILENT(0xf006),
    SILENT(0xf007),
    SILENT(0xf008),
    SILENT(0xf010),
    SILENT(0xf011),
    SILENT(0xf012),
    SILENT(0xf013),
    SILENT(0xf014),
    SILENT(0xf015),
};

#undef ELEM_WIDTH
#undef WIDTH
#undef ELEM
#undef OFF

static_assert(sorted_unique(kRows), "the taxi dictionary must be sorted by ID");

static_assert(rows_fit(kRows, sizeof(tagBBTAXI_CONF_ST)), "every taxi field must lie inside the record");

constexpr auto kKeys = make_keys(kRows);
constexpr Dictionary kDict{kRows, kKeys.k, static_cast<int>(sizeof kRows / sizeof kRows[0]),
                           sizeof(tagBBTAXI_CONF_ST)};

DictCall call_on(const char* fn, tagBBTAXI_CONF_ST* rec) {
    return DictCall{fn, bytes_of(rec), sizeof(tagBBTAXI_CONF_ST)};
}

}  // namespace

const Dictionary& taxi_dictionary() { return kDict; }

}  // namespace bbconf

int BBTAXI_SetParam(tagBBTAXI_CONF_ST* pTAXIConf, int ParamId, unsigned char* pStr, int len) {
    BB_CHECK(0x0000 != ParamId, -1);
    BB_CHECK(NULL != pStr, -1);
    BB_CHECK(NULL != pTAXIConf, -1);
    return bbconf::dict_set(bbconf::kDict, bbconf::call_on(__func__, pTAXIConf), ParamId, pStr, len);
}

int BBTAXI_GetParam(tagBBTAXI_CONF_ST* pTAXIConf, int ParamId, unsigned char* pBuf, int bufLen) {
    BB_CHECK(0x0000 != ParamId, -1);
    BB_CHECK(NULL != pBuf, -1);
    BB_CHECK(NULL != pTAXIConf, -1);
    return bbconf::dict_get(bbconf::kDict, bbconf::call_on(__func__, pTAXIConf), ParamId, pBuf, bufLen);
}

/* The typed taxi accessors do nothing: values go through the two functions
 * above in wire form. */
int BBTAXI_SetByteParam(tagBBTAXI_CONF_ST*, int, unsigned char) { return 0; }
int BBTAXI_GetByteParam(tagBBTAXI_CONF_ST*, int, unsigned char*) { return 0; }
int BBTAXI_SetWordParam(tagBBTAXI_CONF_ST*, int, unsigned short) { return 0; }
int BBTAXI_GetWordParam(tagBBTAXI_CONF_ST*, int, unsigned short*) { return 0; }
int BBTAXI_SetDWordParam(tagBBTAXI_CONF_ST*, int, unsigned int) { return 0; }
int BBTAXI_GetDWordParam(tagBBTAXI_CONF_ST*, int, unsigned int*) { return 0; }
int BBTAXI_SetStrParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
int BBTAXI_GetStrParam(tagBBTAXI_CONF_ST*, int, unsigned char*, int) { return 0; }
