/* params.cpp - CMN_SetParam / CMN_GetParam: the terminal record's
 * parameter dictionary (JT/T 808 communication, alarm, video and vehicle
 * IDs, the vendor IDs and the regional block IDs). */
#include "conf/params.h"

#include <stdio.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/hexdump.h"
#include "common/log.h"

namespace bbconf {
namespace {

/* --- Block IDs: the record region is handed to the block's codec. ------- */

/* Set: the codec gets len cut to 8 bits; its result is ignored. */
template <typename T>
void set_block(const ParamDef& d, const DictCall& c, unsigned char* src, int len) {
    CMN_B2LStruct(src, static_cast<unsigned char>(len), reinterpret_cast<T*>(field(d, c)));
}

/* Get: a buffer below the block's minimum (unsigned) is refused first. */
template <typename T, int (*Codec)(T*, unsigned char*, unsigned int)>
int get_through(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    if (static_cast<unsigned>(buflen) < d.limit) {
        return -1;
    }
    return Codec(reinterpret_cast<T*>(field(d, c)), dst, static_cast<unsigned>(buflen));
}

template <typename T>
constexpr GetRule get_block = get_through<T, CMN_LStruct2B>;
/* The Heibiao blocks are answered through their own codec names. */
template <typename T>
constexpr GetRule get_hlj_block = get_through<T, CMN_HljLStruct2B>;

/* --- Get rules of single IDs. ------------------------------------------ */

/* 0x0081 / 0x0082: a 16-bit value whose get reports 4 bytes. */
int get_u16_ret4(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    get_number(d, c, dst, buflen);
    return 4;
}

/* 0x0076: the channel list carries 3 + 4n bytes for n = the three per-type
 * counts added up (modulo 256); a sum above the 37 entries of the list
 * reports and sends the whole list.  BufLen is not consulted. */
constexpr int kChListMax = BB_AV_CH_LOOK_UP_MAX;

int get_channel_list(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    const unsigned char* f = field(d, c);
    int n = (f[0] + f[1] + f[2]) % 256;
    if (n > kChListMax) {
        BB_ERR_FN(c.fn, "Total Ch Num:%d=%d+%d+%d Over:%d\n", n, f[0], f[1], f[2], kChListMax);
        memcpy(dst, f, d.limit);
        return d.limit;
    }
    int k = 3 + 4 * n;
    memcpy(dst, f, static_cast<size_t>(k));
    return k;
}

/* 0x0110: the CAN ID setting always goes out whole. */
int get_raw_always(const ParamDef& d, const DictCall& c, unsigned char* dst, int) {
    memcpy(dst, field(d, c), d.limit);
    return d.limit;
}

/* 0xf114: min(limit, BufLen - 1) bytes; BufLen below 1 is refused. */
int get_raw_short(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    if (buflen < 1) {
        return -1;
    }
    int n = buflen - 1 < d.limit ? buflen - 1 : d.limit;
    memcpy(dst, field(d, c), static_cast<size_t>(n));
    return n;
}

/* 0x0026: the slave server address (0xf123's text) and the server TCP port
 * (0x0018) as "addr:port".  The text is written but the result is -1: the
 * ID is text-only.  The write is bounded by BufLen. */
constexpr unsigned kSlaveAddrOffset = offsetof(tagBB_CONF_ST, szSlaveAddr);
constexpr unsigned kTcpPortOffset = offsetof(tagBB_CONF_ST, uiTcpPort);

int get_slave_server_text(const ParamDef&, const DictCall& c, unsigned char* dst, int buflen) {
    if (buflen > 0) {
        snprintf(reinterpret_cast<char*>(dst), static_cast<size_t>(buflen), "%.*s:%d",
                 static_cast<int>(sizeof(tagBB_CONF_ST::szSlaveAddr)),
                 reinterpret_cast<const char*>(c.rec + kSlaveAddrOffset),
                 static_cast<int>(load_ne32(c.rec + kTcpPortOffset)));
    }
    return -1;
}

/* 0xff00 - 0xff02: the device identity, reported and dumped. */
int report_identity(const ParamDef& d, const DictCall& c, unsigned char* dst, int r) {
    BB_WAR_FN(c.fn, "Get ID:%x Len:%d_", static_cast<unsigned>(d.id), r);
    if (r < 1) {
        printf("\n");
        return r;
    }
    hex_dump(dst, r);
    return r;
}

int get_mac(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    return report_identity(d, c, dst, GetMacFormFile(dst, buflen));
}

int identity_text_len(const unsigned char* dst, int buflen) {
    return buflen > 0 ? static_cast<int>(strnlen(reinterpret_cast<const char*>(dst),
                                                 static_cast<size_t>(buflen)))
                      : 0;
}

int get_factory_id(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    GetDeviceFactoryId(reinterpret_cast<char*>(dst), buflen);
    return report_identity(d, c, dst, identity_text_len(dst, buflen));
}

int get_terminal_type(const ParamDef& d, const DictCall& c, unsigned char* dst, int buflen) {
    GetDeviceTerminalType(reinterpret_cast<char*>(dst), buflen);
    return report_identity(d, c, dst, identity_text_len(dst, buflen));
}

/* 0xf441 / 0xf641: dump what the caller passed in; nothing is written. */
int get_debug_dump(const ParamDef&, const DictCall& c, unsigned char* dst, int buflen) {
    printf("%s,%d,BufLen=%d\n", c.fn, __LINE__, buflen);
    if (buflen > 0) {
        hex_dump(dst, buflen);
    }
    printf("\n");
    return -1;
}

/* --- The table. ---------------------------------------------------------- */

#define OFF(f) static_cast<uint16_t>(offsetof(tagBB_CONF_ST, f))

constexpr ParamDef STR(int id, uint16_t off, uint16_t n) { return {id, off, n, set_str, get_str, Store::Text}; }
constexpr ParamDef RAW(int id, uint16_t off, uint16_t n, GetRule g) { return {id, off, n, set_raw, g, Store::Raw}; }
constexpr ParamDef GET_ONLY(int id, uint16_t off, uint16_t n, GetRule g) { return {id, off, n, nullptr, g}; }
template <typename T>
constexpr ParamDef BLOCK(int id, uint16_t off, uint16_t min) {
    return {id, off, min, set_block<T>, get_block<T>};
}
template <typename T>
constexpr ParamDef HLJ_BLOCK(int id, uint16_t off, uint16_t min) {
    return {id, off, min, nullptr, get_hlj_block<T>};
}

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
    GET_ONLY(0x0026, OFF(szSlaveAddr), 0, get_slave_server_text),
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
    BLOCK<tagAV_ENC_PARAM_ST>(0x0075, OFF(stAVEnc), sizeof(tagAV_ENC_PARAM_ST)),
    RAW(0x0076, OFF(stAVChLookUp), sizeof(tagAV_CHANEL_LOOK_UP_ST), get_channel_list),
    BLOCK<tagAV_INDIVIDUAL_SETTING_ST>(0x0077, OFF(stAVIndSetting), sizeof(tagAV_INDIVIDUAL_SETTING_ST)),
    RAW(0x0079, OFF(stSpecialAlarmRec), sizeof(tagSPECIAL_ALARM_REC_PARAM_ST), get_raw_fixed),
    U32(0x007a, OFF(uiVideoAlarmMask)),
    RAW(0x007b, OFF(stVideoAnalyse), sizeof(tagVIDEO_ANALYSE_PARAM_ST), get_raw_fixed),
    RAW(0x007c, OFF(stWakeUpMode), sizeof(tagWAKEUP_MODE_PARAM_ST), get_raw_fixed),
    /* Vehicle, GNSS and CAN. */
    U32(0x0080, OFF(uiOdometer)),
    {0x0081, OFF(usProvinceId), 2, set_number, get_u16_ret4, Store::Number},
    {0x0082, OFF(usCityId), 2, set_number, get_u16_ret4, Store::Number},
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
    RAW(0x0110, OFF(aucCanIdSetting), 8, get_raw_always),
    /* Vendor values. */
    U16(0x101a, OFF(usVendor101a)),
    U16(0x101b, OFF(usVendor101b)),
    U16(0x101c, OFF(usVendor101c)),
    U16(0x101d, OFF(usVendor101d)),
    U8(0x101e, OFF(ucVendor101e)),
    U8(0x101f, OFF(ucVendor101f)),
    U8(0x1031, OFF(ucVendor1031)),
    RAW(0x8620, OFF(aucVendor8620), 128, get_raw_fixed),
    RAW(0x8f21, OFF(aucVendor8f21), 46, get_raw_fixed),
    /* Set as raw bytes (no terminator added), read back as text. */
    {0xc21b, OFF(aucVendorC21b), 10, set_raw, get_str, Store::Raw},
    {0xc222, OFF(aucVendorC222), 10, set_raw, get_str, Store::Raw},
    U32(0xc223, OFF(uiVendorC223)),
    {0xc255, OFF(aucVendorC255), 10, set_raw, get_str, Store::Raw},
    U32(0xc257, OFF(uiVendorC257)),
    U32(0xc258, OFF(uiVendorC258)),
    U32(0xc25b, OFF(uiVendorC25b)),
    U32(0xc25c, OFF(uiVendorC25c)),
    /* Heibiao blocks, get only. */
    HLJ_BLOCK<tagBB_PARAM_DRIVER_IDENTIFY_ST>(0xe138, OFF(stHljDriverIdentify), 22),
    HLJ_BLOCK<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST>(0xe139, OFF(stHljAdas), 33),
    HLJ_BLOCK<tagBB_PARAM_DSM_HEIBIAO_ST>(0xe140, OFF(stHljDsm), 33),
    HLJ_BLOCK<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST>(0xe141, OFF(stHljDevFail), 45),
    /* Night rules copied as raw bytes. */
    RAW(0xf001, OFF(stNightSpeed), sizeof(tagBB_PARAM_NIGHT_SPEED_ST), get_raw_fixed),
    RAW(0xf002, OFF(stNightMove), sizeof(tagBB_PARAM_NIGHT_MOVE_ST), get_raw_fixed),
    U32(0xf011, OFF(uiVendorF011)),
    RAW(0xf0e9, OFF(stXiangbiaoDriverCmp), sizeof(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST), get_raw_fixed),
    BLOCK<tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST>(0xf0ef, OFF(stXiangbiaoDriverCapture), 18),
    U16(0xf106, OFF(usVendorF106)),
    U8(0xf108, OFF(ucVendorF108)),
    U8(0xf110, OFF(ucVendorF110)),
    U8(0xf113, OFF(ucVendorF113)),
    RAW(0xf114, OFF(aucVendorF114), 8, get_raw_short),
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
    BLOCK<tagBB_PARAM_ADAS_SUBIAO_ST>(0xf364, OFF(stSubiaoAdas), 104),
    BLOCK<tagBB_PARAM_DSM_SUBIAO_ST>(0xf365, OFF(stSubiaoDsm), 132),
    BLOCK<tagBB_PARAM_TPMS_SUBIAO_ST>(0xf366, OFF(stSubiaoTpms), 36),
    RAW(0xf367, OFF(stSubiaoBsd), sizeof(tagBB_PARAM_BSD_SUBIAO_ST), get_raw_fixed),
    BLOCK<tagBB_PARAM_VDS_XIANGBIAO_ST>(0xf368, OFF(stXiangbiaoVds), 50),
    BLOCK<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>(0xf370, OFF(stSubiaoIntense), 56),
    BLOCK<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(0xf372, OFF(stSubiaoOverload), 20),
    BLOCK<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(0xf373, OFF(stSubiaoOversize), 4),
    GET_ONLY(0xf3f0, OFF(stRs485Inqure), sizeof(_tagBB_PARAM_485AllDataFA_ST), get_raw_fixed),
    GET_ONLY(0xf400, OFF(stZhatuAlarm), 42, get_block<tagBB_PARAM_ZT_ALARM_ST>),
    /* Debug dumps of the caller's buffer. */
    GET_ONLY(0xf441, 0, 0, get_debug_dump),
    GET_ONLY(0xf641, 0, 0, get_debug_dump),
    /* Vendor strings and the night fatigue block. */
    STR(0xfe05, OFF(szVendorFe05), 31),
    STR(0xfe06, OFF(szVendorFe06), 15),
    STR(0xfe09, OFF(szVendorFe09), 31),
    STR(0xfe0a, OFF(szVendorFe0a), 31),
    BLOCK<tagBB_PARAM_NIGHT_TIRED_ST>(0xfe10, OFF(stNightTired), 16),
    /* Device identity. */
    GET_ONLY(0xff00, 0, 0, get_mac),
    GET_ONLY(0xff01, 0, 0, get_factory_id),
    GET_ONLY(0xff02, 0, 0, get_terminal_type),
};

#undef OFF

static_assert(sorted_unique(kRows), "the terminal dictionary must be sorted by ID");
static_assert(rows_fit(kRows, sizeof(tagBB_CONF_ST)), "every terminal field must lie inside the record");

constexpr auto kKeys = make_keys(kRows);
constexpr int kRowCount = static_cast<int>(sizeof kRows / sizeof kRows[0]);
constexpr auto kBuckets = make_buckets(kRows);
constexpr Dictionary kDict{kRows, kKeys.k, kBuckets.first, kRowCount};

DictCall call_on(const char* fn, tagBB_CONF_ST* rec) {
    return DictCall{fn, bytes_of(rec), sizeof(tagBB_CONF_ST)};
}

}  // namespace

const Dictionary& terminal_dictionary() { return kDict; }

int terminal_get_width(int id) {
    const ParamDef* d = find_param(kDict, id);
    if (d == nullptr || d->get == nullptr) {
        return 0;
    }
    if (is_number(*d) || d->get == get_u16_ret4 || d->get == get_raw_always ||
        d->get == get_channel_list) {
        return d->limit;
    }
    return 0;
}

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
