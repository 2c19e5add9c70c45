/* params.cpp - CMN_SetParam / CMN_GetParam: the terminal record's
 * parameter catalogue (JT/T 808 communication, alarm, video and vehicle
 * IDs, the vendor IDs and the regional block IDs). */
#include "conf/dict.h"

#include <stddef.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"

namespace bbconf {
namespace {

#define OFF(f) offsetof(tagBB_CONF_ST, f)
#define SIZE(f) sizeof(tagBB_CONF_ST::f)

constexpr ParamDef STR(uint16_t id, size_t off, size_t n) { return row(id, off, n, Rule::Text); }
constexpr ParamDef RAW(uint16_t id, size_t off, size_t n, Rule r = Rule::RawFixed) { return row(id, off, n, r); }
/* Set as raw bytes (no terminator added), read back as text. */
constexpr ParamDef RAW_TEXT(uint16_t id, size_t off, size_t n) { return row(id, off, n, Rule::RawText); }
/* A block converted by its codec; min is the smallest get buffer. */
constexpr ParamDef BLOCK(uint16_t id, size_t off, BlockType t, size_t min) { return row(id, off, min, Rule::Block, t); }
constexpr ParamDef GET_BLOCK(uint16_t id, size_t off, BlockType t, size_t min) {
    return row(id, off, min, Rule::GetBlock, t);
}
/* Answered without a field of the record. */
constexpr ParamDef NO_FIELD(uint16_t id, Rule r) { return row(id, 0, 0, r); }

constexpr ParamDef kRows[] = {
    /* Communication (JT/T 808). */
    U32(0x0001, OFF(uiHeartBeatItv)),
    U32(0x0002, OFF(uiTcpTimeout)),
    U32(0x0003, OFF(uiTcpRetry)),
    U32(0x0004, OFF(uiUdpTimeout)),
    U32(0x0005, OFF(uiUdpRetry)),
    U32(0x0006, OFF(uiSmsTimeout)),
    U32(0x0007, OFF(uiSmsRetry)),
    STR(0x0010, OFF(szMainApn), 31),
    STR(0x0011, OFF(szMainUser), 31),
    STR(0x0012, OFF(szMainPwd), 31),
    STR(0x0013, OFF(szMainAddr), 63),
    STR(0x0014, OFF(szBackupApn), 31),
    STR(0x0015, OFF(szBackupUser), 31),
    STR(0x0016, OFF(szBackupPwd), 31),
    STR(0x0017, OFF(szBackupAddr), 63),
    U32(0x0018, OFF(uiTcpPort)),
    U32(0x0019, OFF(uiUdpPort)),
    STR(0x001a, OFF(szIcMainAddr), 31),
    U32(0x001b, OFF(uiIcTcpPort)),
    U32(0x001c, OFF(uiIcUdpPort)),
    STR(0x001d, OFF(szIcBackupAddr), 31),
    U32(0x0020, OFF(uiReportStrategy)),
    U32(0x0021, OFF(uiReportScheme)),
    U32(0x0022, OFF(uiReportItvNoDriver)),
    STR(0x0023, OFF(szSlaveApn), 31),
    STR(0x0024, OFF(szSlaveUser), 31),
    STR(0x0025, OFF(szSlavePwd), 31),
    row(0x0026, OFF(szSlaveAddr), 0, Rule::Endpoint),
    U32(0x0027, OFF(uiReportItvSleep)),
    U32(0x0028, OFF(uiReportItvAlarm)),
    U32(0x0029, OFF(uiReportItvDefault)),
    U32(0x002c, OFF(uiReportDistDefault)),
    U32(0x002d, OFF(uiReportDistNoDriver)),
    U32(0x002e, OFF(uiReportDistSleep)),
    U32(0x002f, OFF(uiReportDistAlarm)),
    U32(0x0030, OFF(uiCornerAngle)),
    U16(0x0031, OFF(usFenceRadius)),
    /* Telephony, alarms and driving limits. */
    STR(0x0040, OFF(szMonitorPhone), 15),
    STR(0x0041, OFF(szResetPhone), 15),
    STR(0x0042, OFF(szFactoryResetPhone), 15),
    STR(0x0043, OFF(szSmsPhone), 15),
    STR(0x0044, OFF(szSmsAlarmPhone), 15),
    U32(0x0045, OFF(uiAnswerStrategy)),
    U32(0x0046, OFF(uiMaxCallTime)),
    U32(0x0047, OFF(uiMaxCallTimeMonth)),
    STR(0x0048, OFF(szListenPhone), 15),
    STR(0x0049, OFF(szPrivilegeSmsPhone), 15),
    U32(0x0050, OFF(uiAlarmMask)),
    U32(0x0051, OFF(uiAlarmSms)),
    U32(0x0052, OFF(uiAlarmPhoto)),
    U32(0x0053, OFF(uiAlarmPhotoStore)),
    U32(0x0054, OFF(uiKeyFlag)),
    U32(0x0055, OFF(uiMaxSpeed)),
    U32(0x0056, OFF(uiOverSpeedTime)),
    U32(0x0057, OFF(uiContDriveLmt)),
    U32(0x0058, OFF(uiDayDriveLmt)),
    U32(0x0059, OFF(uiMinRest)),
    U32(0x005a, OFF(uiMaxPark)),
    U16(0x005b, OFF(usOverSpeedWarnDiff)),
    U16(0x005c, OFF(usFatigueWarnDiff)),
    U16(0x005d, OFF(usCollision)),
    U16(0x005e, OFF(usRollover)),
    U32(0x0064, OFF(uiTimedPhoto)),
    U32(0x0065, OFF(uiDistPhoto)),
    /* Video (JT/T 1078). */
    U32(0x0070, OFF(uiImageQuality)),
    U32(0x0071, OFF(uiBrightness)),
    U32(0x0072, OFF(uiContrast)),
    U32(0x0073, OFF(uiSaturation)),
    U32(0x0074, OFF(uiChroma)),
    BLOCK(0x0075, OFF(stAVEnc), BlockType::AvEnc, SIZE(stAVEnc)),
    RAW(0x0076, OFF(stAVChLookUp), SIZE(stAVChLookUp), Rule::List),
    BLOCK(0x0077, OFF(stAVIndSetting), BlockType::AvChannels, SIZE(stAVIndSetting)),
    RAW(0x0079, OFF(stSpecialAlarmRec), SIZE(stSpecialAlarmRec)),
    U32(0x007a, OFF(uiVideoAlarmMask)),
    RAW(0x007b, OFF(stVideoAnalyse), SIZE(stVideoAnalyse)),
    RAW(0x007c, OFF(stWakeUpMode), SIZE(stWakeUpMode)),
    /* Vehicle, GNSS and CAN. */
    U32(0x0080, OFF(uiOdometer)),
    row(0x0081, OFF(usProvinceId), 2, Rule::NumberAns4),
    row(0x0082, OFF(usCityId), 2, Rule::NumberAns4),
    STR(0x0083, OFF(szPlate), 31),
    U8(0x0084, OFF(ucPlateColor)),
    U8(0x0090, OFF(ucGnssMode)),
    U8(0x0091, OFF(ucGnssBaud)),
    U8(0x0092, OFF(ucGnssOutFreq)),
    U32(0x0093, OFF(uiGnssSampleFreq)),
    U8(0x0094, OFF(ucGnssUploadMode)),
    U32(0x0095, OFF(uiGnssUploadSetting)),
    U8(0x00a1, OFF(ucVendor00a1)), /* 2274: the two bytes lie in reverse ID order */
    U8(0x00a2, OFF(ucVendor00a2)), /* 2273 */
    U32(0x0100, OFF(uiCan1CollectItv)),
    U16(0x0101, OFF(usCan1UploadItv)),
    U32(0x0102, OFF(uiCan2CollectItv)),
    U16(0x0103, OFF(usCan2UploadItv)),
    RAW(0x0110, OFF(aucCanIdSetting), 8, Rule::RawAlways),
    /* Vendor values. */
    U16(0x101a, OFF(usVendor101a)),
    U16(0x101b, OFF(usVendor101b)),
    U16(0x101c, OFF(usVendor101c)),
    U16(0x101d, OFF(usVendor101d)),
    U8(0x101e, OFF(ucVendor101e)),
    U8(0x101f, OFF(ucVendor101f)),
    U8(0x1031, OFF(ucVendor1031)),
    RAW(0x8620, OFF(aucVendor8620), 128),
    RAW(0x8f21, OFF(aucVendor8f21), 46),
    /* Set as raw bytes (no terminator added), read back as text. */
    RAW_TEXT(0xc21b, OFF(aucVendorC21b), 10),
    RAW_TEXT(0xc222, OFF(aucVendorC222), 10),
    U32(0xc223, OFF(uiVendorC223)),
    RAW_TEXT(0xc255, OFF(aucVendorC255), 10),
    U32(0xc257, OFF(uiVendorC257)),
    U32(0xc258, OFF(uiVendorC258)),
    U32(0xc25b, OFF(uiVendorC25b)),
    U32(0xc25c, OFF(uiVendorC25c)),
    /* Heibiao blocks, get only. */
    GET_BLOCK(0xe138, OFF(stHljDriverIdentify), BlockType::HljDriver, 22),
    GET_BLOCK(0xe139, OFF(stHljAdas), BlockType::HljMonitor, 33),
    GET_BLOCK(0xe140, OFF(stHljDsm), BlockType::HljDsm, 33),
    GET_BLOCK(0xe141, OFF(stHljDevFail), BlockType::HljDevFail, 45),
    /* Night rules copied as raw bytes. */
    RAW(0xf001, OFF(stNightSpeed), SIZE(stNightSpeed)),
    RAW(0xf002, OFF(stNightMove), SIZE(stNightMove)),
    U32(0xf011, OFF(uiVendorF011)),
    RAW(0xf0e9, OFF(stXiangbiaoDriverCmp), SIZE(stXiangbiaoDriverCmp)),
    BLOCK(0xf0ef, OFF(stXiangbiaoDriverCapture), BlockType::DriverCapture, 18),
    U16(0xf106, OFF(usVendorF106)),
    U8(0xf108, OFF(ucVendorF108)),
    U8(0xf110, OFF(ucVendorF110)),
    U8(0xf113, OFF(ucVendorF113)),
    RAW(0xf114, OFF(aucVendorF114), 8, Rule::RawShort),
    STR(0xf120, OFF(szSlaveApn), 31),
    STR(0xf121, OFF(szSlaveUser), 31),
    STR(0xf122, OFF(szSlavePwd), 31),
    STR(0xf123, OFF(szSlaveAddr), 63),
    STR(0xf124, OFF(szVendorF124), 31),
    STR(0xf125, OFF(szVendorF125), 31),
    STR(0xf126, OFF(szVendorF126), 31),
    STR(0xf127, OFF(szVendorF127), 63),
    U32(0xf128, OFF(uiVendorF128)),
    U32(0xf129, OFF(uiVendorF129)),
    U8(0xf12a, OFF(ucVendorF12a)),
    U8(0xf200, OFF(ucVendorF200)),
    U8(0xf201, OFF(ucVendorF201)),
    U32(0xf202, OFF(uiVendorF202)),
    /* Subiao and Xiangbiao blocks. */
    BLOCK(0xf364, OFF(stSubiaoAdas), BlockType::Adas, 104),
    BLOCK(0xf365, OFF(stSubiaoDsm), BlockType::Dsm, 132),
    BLOCK(0xf366, OFF(stSubiaoTpms), BlockType::Tpms, 36),
    RAW(0xf367, OFF(stSubiaoBsd), SIZE(stSubiaoBsd)),
    BLOCK(0xf368, OFF(stXiangbiaoVds), BlockType::Vds, 50),
    BLOCK(0xf370, OFF(stSubiaoIntense), BlockType::Intense, 56),
    BLOCK(0xf372, OFF(stSubiaoOverload), BlockType::Overload, 20),
    BLOCK(0xf373, OFF(stSubiaoOversize), BlockType::Oversize, 4),
    RAW(0xf3f0, OFF(stRs485Inqure), SIZE(stRs485Inqure), Rule::GetRaw),
    GET_BLOCK(0xf400, OFF(stZhatuAlarm), BlockType::ZtAlarm, 42),
    /* Debug dumps of the caller's buffer. */
    NO_FIELD(0xf441, Rule::Debug),
    NO_FIELD(0xf641, Rule::Debug),
    /* Vendor strings and the night fatigue block. */
    STR(0xfe05, OFF(szVendorFe05), 31),
    STR(0xfe06, OFF(szVendorFe06), 15),
    STR(0xfe09, OFF(szVendorFe09), 31),
    STR(0xfe0a, OFF(szVendorFe0a), 31),
    BLOCK(0xfe10, OFF(stNightTired), BlockType::NightTired, 16),
    /* Device identity. */
    NO_FIELD(0xff00, Rule::Mac),
    NO_FIELD(0xff01, Rule::FactoryId),
    NO_FIELD(0xff02, Rule::TerminalType),
};

#undef SIZE
#undef OFF

static_assert(sorted_unique(kRows), "the terminal dictionary must be sorted by ID");
static_assert(rows_fit(kRows, sizeof(tagBB_CONF_ST)), "every terminal field must lie inside the record");

constexpr auto kKeys = make_keys(kRows);
constexpr Dictionary kDict{kRows, kKeys.k, static_cast<int>(sizeof kRows / sizeof kRows[0]),
                           sizeof(tagBB_CONF_ST)};

DictCall call_on(const char* fn, tagBB_CONF_ST* rec) {
    return DictCall{fn, bytes_of(rec), sizeof(tagBB_CONF_ST)};
}

}  // namespace

const Dictionary& terminal_dictionary() { return kDict; }

}  // namespace bbconf

int CMN_SetParam(tagBB_CONF_ST* pbbConf, int ParamId, unsigned char* pStr, int len) {
    BB_CHECK(0x0000 != ParamId, -1);
    BB_CHECK(BB_PARAM_ID_RESERVED != ParamId, -1);
    BB_CHECK(NULL != pStr, -1);
    BB_CHECK(NULL != pbbConf, -1);
    return bbconf::dict_set(bbconf::kDict, bbconf::call_on(__func__, pbbConf), ParamId, pStr, len);
}

int CMN_GetParam(tagBB_CONF_ST* pbbConf, int ParamId, unsigned char* pBuf, int BufLen) {
    BB_CHECK(0x0000 != ParamId, -1);
    BB_CHECK(BB_PARAM_ID_RESERVED != ParamId, -1);
    BB_CHECK(NULL != pBuf, -1);
    BB_CHECK(NULL != pbbConf, -1);
    return bbconf::dict_get(bbconf::kDict, bbconf::call_on(__func__, pbbConf), ParamId, pBuf, BufLen);
}
