/* defaults.cpp - the factory configuration of the terminal record.
 *
 * The reset clears the whole record, writes the plain fields from constant
 * tables keyed by member name (numbers in native order, strings bounded by
 * their field; a zeroed field needs no row), lets every parameter block
 * write its own defaults and runs the profile hooks at their two call
 * points.  The order of the steps matters where a later step overwrites an
 * earlier one and is kept as is. */
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/field_defaults.h"

using Conf = tagBB_CONF_ST;

namespace bbconf {
namespace {

/* The platform server of a terminal that has never been configured. */
constexpr char kDefaultServer[] = "192.168.168.168";
/* Vehicle-class text "large vehicle" in GBK. */
constexpr char kVehicleClassLarge[] = "\xb4\xf3\xd0\xcd\xc6\xfb\xb3\xb5";
/* Channels set up in the video blocks. */
constexpr int kVideoChannels = 4;
/* An IPv4 address 192.168.0.0 in byte order. */
constexpr char kLocalNet[] = "\xc0\xa8\x00\x00";

// clang-format off
/* Plain fields in front of the regional blocks, except the two vendor
 * bytes 0xf200 and 0xf201, which are written after the block initialisers. */
constexpr FieldDefault kPlainValues[] = {
    /* Communication. */
    BB_NUM(Conf, uiHeartBeatItv, 20),           /* 0x0001, s */
    BB_NUM(Conf, uiTcpTimeout, 60),             /* 0x0002, s */
    BB_NUM(Conf, uiTcpRetry, 3),                /* 0x0003 */
    BB_NUM(Conf, uiUdpTimeout, 60),             /* 0x0004, s */
    BB_NUM(Conf, uiUdpRetry, 3),                /* 0x0005 */
    BB_NUM(Conf, uiSmsTimeout, 60),             /* 0x0006, s */
    BB_NUM(Conf, uiSmsRetry, 3),                /* 0x0007 */
    BB_TEXT(Conf, szMainApn, "3gnet"),          /* 0x0010 */
    BB_TEXT(Conf, szMainUser, "ptxk"),          /* 0x0011 */
    BB_TEXT(Conf, szMainPwd, "ptxk"),           /* 0x0012 */
    BB_TEXT(Conf, szMainAddr, "192.168.168.168"),   /* 0x0013 */
    BB_TEXT(Conf, szBackupApn, "3gnet"),        /* 0x0014 */
    BB_TEXT(Conf, szBackupUser, "ptxk"),        /* 0x0015 */
    BB_TEXT(Conf, szBackupPwd, "ptxk"),         /* 0x0016 */
    BB_TEXT(Conf, szBackupAddr, "192.168.168.168"), /* 0x0017 */
    BB_NUM(Conf, uiTcpPort, 7008),              /* 0x0018 */
    BB_NUM(Conf, uiUdpPort, 7008),              /* 0x0019 */
    BB_TEXT(Conf, szIcMainAddr, kDefaultServer),    /* 0x001a driver-identity server */
    BB_NUM(Conf, uiIcTcpPort, 11001),           /* 0x001b */
    BB_NUM(Conf, uiIcUdpPort, 11001),           /* 0x001c */
    BB_TEXT(Conf, szIcBackupAddr, kDefaultServer),  /* 0x001d */
    /* Position reporting: intervals in s, distances in m. */
    BB_NUM(Conf, uiReportItvNoDriver, 30),      /* 0x0022 */
    BB_NUM(Conf, uiReportItvSleep, 120),        /* 0x0027 */
    BB_NUM(Conf, uiReportItvAlarm, 10),         /* 0x0028 */
    BB_NUM(Conf, uiReportItvDefault, 30),       /* 0x0029 */
    BB_NUM(Conf, uiReportDistDefault, 500),     /* 0x002c */
    BB_NUM(Conf, uiReportDistNoDriver, 500),    /* 0x002d */
    BB_NUM(Conf, uiReportDistSleep, 500),       /* 0x002e */
    BB_NUM(Conf, uiReportDistAlarm, 200),       /* 0x002f */
    BB_NUM(Conf, uiCornerAngle, 45),            /* 0x0030 */
    BB_NUM(Conf, usFenceRadius, 500),           /* 0x0031 */
    /* Telephony. */
    BB_NUM(Conf, uiAnswerStrategy, 1),          /* 0x0045 */
    BB_NUM(Conf, uiMaxCallTime, 0xffffffff),    /* 0x0046 */
    BB_NUM(Conf, uiMaxCallTimeMonth, 0xffffffff), /* 0x0047 */
    /* Alarms and driving limits. */
    BB_NUM(Conf, uiOverSpeedTime, 10),          /* 0x0056, s */
    BB_NUM(Conf, uiContDriveLmt, 14400),        /* 0x0057, s */
    BB_NUM(Conf, uiMinRest, 1200),              /* 0x0059, s */
    BB_NUM(Conf, usOverSpeedWarnDiff, 50),      /* 0x005b, 0.1 km/h */
    BB_NUM(Conf, usFatigueWarnDiff, 1800),      /* 0x005c, s */
    BB_NUM(Conf, usCollision, 0x0a32),          /* 0x005d: time 50, acceleration 10 */
    BB_NUM(Conf, usRollover, 30),               /* 0x005e, degrees */
    /* Image. */
    BB_NUM(Conf, uiImageQuality, 5),            /* 0x0070 */
    BB_NUM(Conf, uiBrightness, 128),            /* 0x0071 */
    BB_NUM(Conf, uiContrast, 64),               /* 0x0072 */
    BB_NUM(Conf, uiSaturation, 64),             /* 0x0073 */
    BB_NUM(Conf, uiChroma, 128),                /* 0x0074 */
    /* 0x0075 audio/video encoding. */
    BB_NUM(Conf, stAVEnc.ucRtResolution, 1),
    BB_NUM(Conf, stAVEnc.usRtKeyFrameItv, 25),
    BB_NUM(Conf, stAVEnc.ucRtFrameRate, 12),
    BB_NUM(Conf, stAVEnc.uiRtBitRate, 128),
    BB_NUM(Conf, stAVEnc.ucStResolution, 3),
    BB_NUM(Conf, stAVEnc.usStKeyFrameItv, 25),
    BB_NUM(Conf, stAVEnc.ucStFrameRate, 25),
    BB_NUM(Conf, stAVEnc.uiStBitRate, 1024),
    BB_NUM(Conf, stAVEnc.usOsdSetting, 27),
    /* Heads of 0x0076 and 0x0077; their entries are written per channel. */
    BB_NUM(Conf, stAVChLookUp.ucTotalChNum, kVideoChannels),
    BB_NUM(Conf, stAVIndSetting.ucChNum, kVideoChannels),
    /* 0x0079 special alarm recording. */
    BB_NUM(Conf, stSpecialAlarmRec.ucStorageThreshold, 20),
    BB_NUM(Conf, stSpecialAlarmRec.ucRecDuration, 5),
    BB_NUM(Conf, stSpecialAlarmRec.ucRecStartTime, 1),
    /* 0x007c wake-up mode; its periods are written one by one. */
    BB_NUM(Conf, stWakeUpMode.ucWakeUpMode, 4),
    /* Vehicle and GNSS. */
    BB_NUM(Conf, ucPlateColor, 9),              /* 0x0084 */
    BB_NUM(Conf, ucGnssMode, 3),                /* 0x0090 */
    BB_NUM(Conf, ucGnssBaud, 1),                /* 0x0091 */
    BB_NUM(Conf, ucGnssOutFreq, 1),             /* 0x0092 */
    BB_NUM(Conf, uiGnssSampleFreq, 1),          /* 0x0093 */
    /* Local network settings, reached by no ID. */
    BB_NUM(Conf, ucNetMode, 2),
    BB_BYTES(Conf, aucNetIp, kLocalNet),
    BB_NUM(Conf, ucNetParam1448, 30),
    BB_NUM(Conf, ucNetParam1469, 5),
    BB_BYTES(Conf, aucNetIp2, kLocalNet),
};

/* One entry of the 0x0076 look-up list and of the 0x0077 settings; the
 * channel numbers are the entry's own.  The per-channel storage bit rate is
 * 25 while the general block's is 1024: intended. */
constexpr FieldDefault kChannelValues[] = {
    BB_NUM(tagAV_CH_ENC_PARAM_ST, ucRtResolution, 1),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, usRtKeyFrameItv, 25),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, ucRtFrameRate, 12),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, uiRtBitRate, 128),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, ucStResolution, 3),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, usStKeyFrameItv, 25),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, ucStFrameRate, 25),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, uiStBitRate, 25),
    BB_NUM(tagAV_CH_ENC_PARAM_ST, usOsdSetting, 27),
};

/* Each wake-up period runs from 00:00 to 23:59 (BCD). */
constexpr FieldDefault kWakeUpPeriodValues[] = {
    BB_BYTES(tagWAKEUP_PERIOD_ST, aucEnd, "\x23\x59"),
};

/* Written after the first profile hook, with the vendor strings and words
 * around them cleared again. */
constexpr FieldDefault kVendorValues[] = {
    BB_NUM(Conf, ucVendorF200, 60),
    BB_NUM(Conf, ucVendorF201, 5),
    BB_BYTES(Conf, szVendorFe05, "\0"),
    BB_BYTES(Conf, szVendorFe06, "\0"),
    BB_BYTES(Conf, szVendorFe09, "\0"),
    BB_BYTES(Conf, szVendorFe0a, "\0"),
    BB_NUM(Conf, uiVendorF011, 0),
    BB_NUM(Conf, uiVendorF202, 0),
};

/* Terminal-local settings (no ID reaches them), the vehicle class, the
 * vendor byte 0xf12a and the load and size blocks' first fields; written
 * after the profile hooks. */
constexpr FieldDefault kLocalValues[] = {
    BB_ITEM(Conf, ausLocalWord, 0, 5),
    BB_ITEM(Conf, ausLocalWord, 1, 10),
    BB_ITEM(Conf, ausLocalWord, 2, 600),
    BB_ITEM(Conf, ausLocalWord, 3, 1600),
    BB_ITEM(Conf, ausLocalWord, 4, 10),
    BB_ITEM(Conf, ausLocalWord, 5, 600),
    BB_ITEM(Conf, ausLocalWord, 6, 600),
    BB_ITEM(Conf, ausLocalWord, 7, 600),
    BB_ITEM(Conf, ausLocalWord, 8, 29),
    BB_ITEM(Conf, ausLocalWord, 9, 25),
    BB_ITEM(Conf, ausLocalWord, 10, 1600),
    BB_ITEM(Conf, ausLocalWord, 11, 1000),
    BB_NUM(Conf, ucLocal2561, 10),
    BB_NUM(Conf, ucLocal2570, 1),
    BB_NUM(Conf, ucLocal2572, 128),
    BB_NUM(Conf, ucLocal2573, 3),
    BB_NUM(Conf, ucLocal2574, 3),
    BB_NUM(Conf, ucLocal2575, 80),
    BB_NUM(Conf, uiLocal2579, 7200),
    BB_NUM(Conf, usLocal2583, 32),
    BB_NUM(Conf, ucLocal2585, 6),
    BB_NUM(Conf, usLocal2588, 2000),
    BB_NUM(Conf, ucLocal2590, 8),
    BB_NUM(Conf, usLocal2592, 16000),
    BB_NUM(Conf, ucLocal2594, 4),
    BB_NUM(Conf, ucLocal2595, 1),
    BB_NUM(Conf, usLocal2632, 1987),
    BB_NUM(Conf, ucLocal2639, 1),
    BB_TEXT(Conf, szVehicleClass, kVehicleClassLarge),
    BB_NUM(Conf, ucVendorF12a, 10),                  /* 0xf12a */
    BB_NUM(Conf, stSubiaoOverload.usLoadA, 10000),   /* 0xf372 */
    BB_NUM(Conf, stSubiaoOversize.usSizeA, 1750),    /* 0xf373 */
    BB_NUM(Conf, stSubiaoOversize.usSizeB, 1850),
};
// clang-format on

constexpr Defaults kPlainDefaults = defaults_of(kPlainValues);
constexpr Defaults kChannelDefaults = defaults_of(kChannelValues);
constexpr Defaults kWakeUpPeriodDefaults = defaults_of(kWakeUpPeriodValues);
constexpr Defaults kVendorDefaults = defaults_of(kVendorValues);
constexpr Defaults kLocalDefaults = defaults_of(kLocalValues);

static_assert(defaults_fit(kPlainDefaults, offsetof(Conf, stSubiaoAdas)), "plain defaults end before the blocks");
static_assert(defaults_fit(kChannelDefaults, sizeof(tagAV_CH_ENC_PARAM_ST)), "channel rows lie inside an entry");
static_assert(defaults_fit(kWakeUpPeriodDefaults, sizeof(tagWAKEUP_PERIOD_ST)), "period rows lie inside a period");
static_assert(defaults_fit(kVendorDefaults, sizeof(Conf)) && defaults_fit(kLocalDefaults, sizeof(Conf)),
              "the late rows lie inside the record");
static_assert(kVideoChannels <= BB_AV_IND_SETTING_MAX, "the default channels fit 0x0077");

/* The per-channel parts of the video blocks and the wake-up periods. */
void write_video_entries(Conf* c) {
    for (int k = 0; k < kVideoChannels; k++) {
        tagAV_CHANEL_ENTRY_ST& look_up = c->stAVChLookUp.astCh[k];
        look_up.ucPhyCh = static_cast<unsigned char>(k + 1);
        look_up.ucLogicCh = static_cast<unsigned char>(k + 1);
        tagAV_CH_ENC_PARAM_ST& entry = c->stAVIndSetting.astCh[k];
        entry.ucLogicCh = static_cast<unsigned char>(k + 1);
        put_field_defaults(bytes_of(&entry), packed_defaults<kChannelDefaults>);
    }
    for (tagWAKEUP_PERIOD_ST& period : c->stWakeUpMode.astPeriod) {
        put_field_defaults(bytes_of(&period), packed_defaults<kWakeUpPeriodDefaults>);
    }
}

/* The regional blocks' own defaults, in the order they are laid down.  The
 * intense-driving block stays zero: its initialiser is not part of the
 * factory reset. */
void init_blocks(Conf* c) {
    __InitNightSpeedLmt(&c->stNightSpeed);
    __InitNightAbnormalMove(&c->stNightMove);
    __InitSubiaoAdasParam(&c->stSubiaoAdas);
    __InitSubiaoDsmParam(&c->stSubiaoDsm);
    __InitSubiaoTpmsParam(&c->stSubiaoTpms);
    __InitSubiaoBsdParam(&c->stSubiaoBsd);
    __InitHljDriverIdentifyParam(&c->stHljDriverIdentify);
    __InitHljAdasParam(&c->stHljAdas);
    __InitHljDsmParam(&c->stHljDsm);
    __InitHljDevFailParam(&c->stHljDevFail);
    __InitXiangbiaoVdsParam(&c->stXiangbiaoVds);
    __InitXiangbiaoDriverCmpParam(&c->stXiangbiaoDriverCmp);
    __InitXiangbiaoDriverCaptureParam(&c->stXiangbiaoDriverCapture);
    __InitQ8RS485InqureParam(&c->stRs485Inqure);
    __InitZhatuAlarmParam(&c->stZhatuAlarm);
}

}  // namespace
}  // namespace bbconf

void CMN_InitBbConfToDefault(tagBB_CONF_ST* pbbConf) {
    BB_CHECK(NULL != pbbConf, );
    unsigned char* rec = bbconf::bytes_of(pbbConf);

    memset(rec, 0, BB_CONF_LEN);
    bbconf::put_field_defaults(rec, bbconf::packed_defaults<bbconf::kPlainDefaults>);
    bbconf::write_video_entries(pbbConf);

    bbconf::init_blocks(pbbConf);
    InitShenZhenPurnoBBParam(pbbConf);

    bbconf::put_field_defaults(rec, bbconf::packed_defaults<bbconf::kVendorDefaults>);
    __InitNightTiredSetting(&pbbConf->stNightTired);

    InitKelvoZtBBParam(pbbConf);
    InitShenZhenTamsaBBParam(pbbConf);
    InitZhaTuBbParam(pbbConf);
    InitGzZtBbParam(pbbConf);

    bbconf::put_field_defaults(rec, bbconf::packed_defaults<bbconf::kLocalDefaults>);
    /* A separate clear of the 32 local bytes behind the local settings. */
    memset(pbbConf->aucLocal2596, 0, sizeof pbbConf->aucLocal2596);

    BB_INF("Init Param Len:%d\n", BB_CONF_LEN);
}
