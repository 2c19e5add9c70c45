/*
 * bbconf.h - public interface of libbbconf, the parameter store of an
 * in-vehicle video terminal.
 *
 * The library keeps every configurable value of the terminal in one packed
 * record (tagBB_CONF_ST, 3386 bytes), answers the platform's JT/T 808 /
 * JT/T 1078 "set/query terminal parameter" messages by 16-bit parameter ID
 * (values big-endian on the wire), converts the regional driver-assistance
 * parameter blocks between their wire forms and local records, resets
 * records to factory defaults and checksums them before they are persisted.
 *
 * It owns no threads, files (but one short-lived descriptor for the MAC
 * address) or sockets and never allocates.  Results are reported through
 * return values and diagnostic lines on standard output.  Calls on distinct
 * records may run concurrently; callers serialise calls on one record.
 *
 * Records are packed: multi-byte fields sit at unaligned offsets and hold
 * native little-endian values.  Do not take the address of a multi-byte
 * field; copy it with memcpy or read the member directly.
 */
#ifndef BBCONF_H
#define BBCONF_H

#if defined(__BYTE_ORDER__) && (__BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__)
#error "libbbconf keeps its records in little-endian order and supports little-endian hosts only"
#endif

#include <stddef.h>
#include <string.h>

/* glibc 2.38 and later declare strlcpy in <string.h> themselves, with C
 * linkage and a size_t size.  Beside that declaration the library's
 * strlcpy below would make every call with an int size ambiguous on 64-bit
 * targets and clash outright on 32-bit ones, where size_t is unsigned int.
 * Where the C library has its own, this header leaves the name strlcpy to
 * it (same copy, same result for every call the library's allows); the
 * library still exports its own under the same C++ symbol.  Define
 * BBCONF_LIBC_HAS_STRLCPY to 1 or 0 to override the detection, e.g. for
 * other C libraries that declare strlcpy. */
#ifndef BBCONF_LIBC_HAS_STRLCPY
#if defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 38)) && \
    (defined(__USE_MISC) || defined(__USE_XOPEN2K8))
#define BBCONF_LIBC_HAS_STRLCPY 1
#else
#define BBCONF_LIBC_HAS_STRLCPY 0
#endif
#endif

#if defined(BBCONF_BUILDING)
#define BBCONF_API __attribute__((visibility("default")))
#else
#define BBCONF_API
#endif

/* The reserved parameter ID that the terminal dictionary refuses (the taxi
 * dictionary reports it as unknown). */
#define BB_PARAM_ID_RESERVED 0xffff

/* Size of the terminal record as persisted and checksummed. */
#define BB_CONF_LEN 3386
/* Size of the taxi record. */
#define BBTAXI_CONF_LEN 1037

#pragma pack(push, 1)

/* ------------------------------------------------------------------------
 * JT/T 1078 video blocks (parameter IDs 0x0075, 0x0076, 0x0077, 0x0079,
 * 0x007b, 0x007c).
 * ---------------------------------------------------------------------- */

/* Audio/video encoding parameters, ID 0x0075 (21 bytes). */
struct tagAV_ENC_PARAM_ST {
    unsigned char ucRtEncMode;       /* live stream encoding mode */
    unsigned char ucRtResolution;    /* live stream resolution */
    unsigned short usRtKeyFrameItv;  /* live stream key-frame interval, frames */
    unsigned char ucRtFrameRate;     /* live stream target frame rate, fps */
    unsigned int uiRtBitRate;        /* live stream target bit rate, kbit/s */
    unsigned char ucStEncMode;       /* storage stream encoding mode */
    unsigned char ucStResolution;    /* storage stream resolution */
    unsigned short usStKeyFrameItv;  /* storage stream key-frame interval */
    unsigned char ucStFrameRate;     /* storage stream target frame rate */
    unsigned int uiStBitRate;        /* storage stream target bit rate */
    unsigned short usOsdSetting;     /* OSD overlay bit mask */
    unsigned char ucAudioOutput;     /* audio output enabled (0 off, 1 on) */
};

/* One channel of the individual channel settings (21 bytes). */
struct tagAV_CH_ENC_PARAM_ST {
    unsigned char ucLogicCh;         /* logical channel number */
    unsigned char ucRtEncMode;
    unsigned char ucRtResolution;
    unsigned short usRtKeyFrameItv;
    unsigned char ucRtFrameRate;
    unsigned int uiRtBitRate;
    unsigned char ucStEncMode;
    unsigned char ucStResolution;
    unsigned short usStKeyFrameItv;
    unsigned char ucStFrameRate;
    unsigned int uiStBitRate;
    unsigned short usOsdSetting;
};

#define BB_AV_IND_SETTING_MAX 12

/* Individual channel settings, ID 0x0077 (253 bytes = 1 + 12 x 21). */
struct tagAV_INDIVIDUAL_SETTING_ST {
    unsigned char ucChNum;           /* number of valid entries, 0 to 12 */
    tagAV_CH_ENC_PARAM_ST astCh[BB_AV_IND_SETTING_MAX];
};

/* One entry of the channel look-up list (4 bytes). */
struct tagAV_CHANEL_ENTRY_ST {
    unsigned char ucPhyCh;           /* physical channel number */
    unsigned char ucLogicCh;         /* logical channel number */
    unsigned char ucChType;          /* channel type */
    unsigned char ucPtzFlag;         /* pan-tilt connected */
};

#define BB_AV_CH_LOOK_UP_MAX 37

/* Audio/video channel look-up list, ID 0x0076 (151 bytes). */
struct tagAV_CHANEL_LOOK_UP_ST {
    unsigned char ucTotalChNum;
    unsigned char ucAudioChNum;
    unsigned char ucVideoChNum;
    tagAV_CHANEL_ENTRY_ST astCh[BB_AV_CH_LOOK_UP_MAX];
};

/* Special alarm recording parameters, ID 0x0079 (3 bytes). */
struct tagSPECIAL_ALARM_REC_PARAM_ST {
    unsigned char ucStorageThreshold;
    unsigned char ucRecDuration;
    unsigned char ucRecStartTime;
};

/* Video analysis alarm parameters, ID 0x007b (2 bytes). */
struct tagVIDEO_ANALYSE_PARAM_ST {
    unsigned char ucPassengerLimit;
    unsigned char ucFatigueThreshold;
};

/* One wake-up period: start and end time as BCD hour, minute. */
struct tagWAKEUP_PERIOD_ST {
    unsigned char aucStart[2];
    unsigned char aucEnd[2];
};

/* Terminal sleep wake-up mode, ID 0x007c (20 bytes). */
struct tagWAKEUP_MODE_PARAM_ST {
    unsigned char ucWakeUpMode;
    unsigned char ucCondType;
    unsigned char ucTimedDays;
    unsigned char ucTimedEnable;
    tagWAKEUP_PERIOD_ST astPeriod[4];
};

/* ------------------------------------------------------------------------
 * Night-time rule blocks (IDs 0xf001, 0xf002, 0xfe10).  Times are three
 * BCD bytes: hour, minute, second.
 * ---------------------------------------------------------------------- */

struct tagBB_PARAM_NIGHT_SPEED_ST {        /* 8 bytes */
    unsigned char ucEnable;
    unsigned char ucSpeedLmt;
    unsigned char aucStart[3];
    unsigned char aucEnd[3];
};

struct tagBB_PARAM_NIGHT_MOVE_ST {         /* 8 bytes */
    unsigned char ucEnable;
    unsigned char aucStart[3];
    unsigned char aucEnd[3];
    unsigned char ucSetting;
};

struct tagBB_PARAM_NIGHT_TIRED_ST {        /* 16 bytes */
    unsigned char ucEnable;
    unsigned char aucStart[3];
    unsigned char aucEnd[3];
    unsigned int uiDriveLmt;               /* continuous driving limit, s */
    unsigned int uiMinRest;                /* minimum rest, s */
    unsigned char ucSetting;
};

/* ------------------------------------------------------------------------
 * ADAS and DSM blocks (IDs 0xf364, 0xf365) with their regional extensions.
 * ---------------------------------------------------------------------- */

/* Per-alarm grading: speed threshold, video length, photo count, interval. */
struct tagBB_ALARM_GRADE_ST {
    unsigned char ucSpeed;
    unsigned char ucVideoLen;
    unsigned char ucPhotoNum;
    unsigned char ucPhotoItv;
};

struct tagBB_PARAM_ADAS_SUBIAO_ST {        /* 104 bytes */
    unsigned char ucAlarmSpeed;            /* 0 */
    unsigned char ucVolume;                /* 1 */
    unsigned char ucPhotoStrategy;         /* 2 */
    unsigned short usTimedPhotoItv;        /* 3 */
    unsigned short usDistPhotoItv;         /* 5 */
    unsigned char ucPhotoNum;              /* 7 */
    unsigned char ucPhotoItv;              /* 8 */
    unsigned char ucPhotoResolution;       /* 9 */
    unsigned char ucVideoResolution;       /* 10 */
    unsigned int uiAlarmEnable;            /* 11 */
    unsigned int uiEventEnable;            /* 15 */
    unsigned char ucReserved;              /* 19 */
    unsigned char ucObstacleDist;          /* 20 */
    unsigned char ucObstacleSpeed;         /* 21 */
    unsigned char ucObstacleVideoLen;      /* 22 */
    unsigned char ucObstaclePhotoNum;      /* 23 */
    unsigned char ucObstaclePhotoItv;      /* 24 */
    unsigned char ucLaneChangePeriod;      /* 25 */
    unsigned char ucLaneChangeNum;         /* 26 */
    unsigned char ucLaneChangeSpeed;       /* 27 */
    unsigned char ucLaneChangeVideoLen;    /* 28 */
    unsigned char ucLaneChangePhotoNum;    /* 29 */
    unsigned char ucLaneChangePhotoItv;    /* 30 */
    unsigned char ucLaneDepartSpeed;       /* 31 */
    unsigned char ucLaneDepartVideoLen;    /* 32 */
    unsigned char ucLaneDepartPhotoNum;    /* 33 */
    unsigned char ucLaneDepartPhotoItv;    /* 34 */
    unsigned char ucFcwTime;               /* 35 */
    unsigned char ucFcwSpeed;              /* 36 */
    unsigned char ucFcwVideoLen;           /* 37 */
    unsigned char ucFcwPhotoNum;           /* 38 */
    unsigned char ucFcwPhotoItv;           /* 39 */
    unsigned char ucPcwTime;               /* 40 */
    unsigned char ucPcwSpeed;              /* 41 */
    unsigned char ucPcwVideoLen;           /* 42 */
    unsigned char ucPcwPhotoNum;           /* 43 */
    unsigned char ucPcwPhotoItv;           /* 44 */
    unsigned char ucHmwTime;               /* 45 */
    unsigned char ucHmwSpeed;              /* 46 */
    unsigned char ucHmwVideoLen;           /* 47 */
    unsigned char ucHmwPhotoNum;           /* 48 */
    unsigned char ucHmwPhotoItv;           /* 49 */
    unsigned char ucRoadSignPhotoNum;      /* 50 */
    unsigned char ucRoadSignPhotoItv;      /* 51 */
    unsigned char aucExt[3];               /* 52: regional extension bytes */
    tagBB_ALARM_GRADE_ST stGroupA;         /* 55: regional group A */
    tagBB_ALARM_GRADE_ST stGroupB;         /* 59: regional group B */
    unsigned char aucSiChuanExt[5];        /* 63: SiChuan extension bytes */
    unsigned short ausExtWord[18];         /* 68: JiLing / Hunan words */
};

/* DSM regional group: video length, photo count, interval, judging time. */
struct tagBB_DSM_EXT_GROUP_ST {
    unsigned char ucVideoLen;
    unsigned char ucPhotoNum;
    unsigned char ucPhotoItv;
    unsigned short usJudgeItv;
};

struct tagBB_PARAM_DSM_SUBIAO_ST {         /* 132 bytes */
    unsigned char ucAlarmSpeed;            /* 0 */
    unsigned char ucVolume;                /* 1 */
    unsigned char ucPhotoStrategy;         /* 2 */
    unsigned short usTimedPhotoItv;        /* 3 */
    unsigned short usDistPhotoItv;         /* 5 */
    unsigned char ucPhotoNum;              /* 7 */
    unsigned char ucPhotoItv;              /* 8 */
    unsigned char ucPhotoResolution;       /* 9 */
    unsigned char ucVideoResolution;       /* 10 */
    unsigned int uiAlarmEnable;            /* 11 */
    unsigned int uiEventEnable;            /* 15 */
    unsigned short usSmokeJudgeItv;        /* 19 */
    unsigned short usCallJudgeItv;         /* 21 */
    tagBB_ALARM_GRADE_ST stFatigue;        /* 23 */
    tagBB_ALARM_GRADE_ST stCall;           /* 27 */
    tagBB_ALARM_GRADE_ST stSmoke;          /* 31 */
    tagBB_ALARM_GRADE_ST stDistract;       /* 35 */
    tagBB_ALARM_GRADE_ST stAbnormal;       /* 39 */
    unsigned char ucDriverIdTrigger;       /* 43 */
    unsigned char aucExt[6];               /* 44 */
    tagBB_DSM_EXT_GROUP_ST stGroupA;       /* 50 */
    tagBB_DSM_EXT_GROUP_ST stGroupB;       /* 55 */
    tagBB_ALARM_GRADE_ST astRegion[6];     /* 60 */
    unsigned char aucExtArea[48];          /* 84 */
};

/* ------------------------------------------------------------------------
 * Subiao tyre pressure, blind spot, intense driving, load and size blocks.
 * ---------------------------------------------------------------------- */

struct tagBB_PARAM_TPMS_SUBIAO_ST {        /* 36 bytes, ID 0xf366 */
    char szTyreSpec[12];
    unsigned short usPressureUnit;
    unsigned short usNormalPressure;
    unsigned short usImbalance;
    unsigned short usSlowLeak;
    unsigned short usLowPressure;
    unsigned short usHighPressure;
    unsigned short usHighTemp;
    unsigned short usVoltage;
    unsigned short usReportItv;
    unsigned char aucReserved[6];
};

struct tagBB_PARAM_BSD_SUBIAO_ST {         /* 2 bytes, ID 0xf367 */
    unsigned char ucRearThreshold;
    unsigned char ucSideRearThreshold;
};

#define BB_INTENSE_WORD_NUM 21

struct tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST { /* 54 bytes, ID 0xf370 */
    unsigned int uiAlarmEnable;
    unsigned short ausThreshold[BB_INTENSE_WORD_NUM];
    unsigned char aucReserved[8];
};

struct tagBB_PARAM_OVERLOAD_SUBIAO_ST {    /* 20 bytes, ID 0xf372 */
    unsigned short usLoadA;
    unsigned short usLoadB;
    unsigned int uiLoadC;
    unsigned int uiLoadD;
    unsigned char ucLoadE;
    unsigned char ucLoadF;
    unsigned short usLoadG;
    unsigned short usLoadH;
    unsigned short usLocal;                /* local only, cleared on set */
};

struct tagBB_PARAM_OVERSIZE_SUBIAO_ST {    /* 4 bytes, ID 0xf373 */
    unsigned short usSizeA;
    unsigned short usSizeB;
};

/* ------------------------------------------------------------------------
 * Heibiao blocks (IDs 0xe138 to 0xe141).
 * ---------------------------------------------------------------------- */

struct tagBB_PARAM_DRIVER_IDENTIFY_ST {    /* 22 bytes */
    unsigned char aucHead[4];
    unsigned short usInterval;             /* 4 */
    unsigned char aucParam[16];            /* 6 */
};

struct tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST { /* 33 bytes */
    unsigned char aucParam[33];
};

struct tagBB_PARAM_DSM_HEIBIAO_ST {        /* 33 bytes */
    unsigned char aucHead[4];
    unsigned short usThreshold1;           /* 4 */
    unsigned short usThreshold2;           /* 6 */
    unsigned char aucParam[25];            /* 8 */
};

struct tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST { /* 45 bytes */
    unsigned char aucHead[4];
    unsigned short usThreshold1;           /* 4 */
    unsigned short usThreshold2;           /* 6 */
    unsigned char aucParam[37];            /* 8 */
};

/* ------------------------------------------------------------------------
 * Xiangbiao blocks (IDs 0xf368, 0xf0e9, 0xf0ef).
 * ---------------------------------------------------------------------- */

struct tagBB_PARAM_VDS_XIANGBIAO_ST {      /* 50 bytes */
    unsigned int uiEnable;                 /* 0 */
    unsigned char aucParam1[24];           /* 4 */
    unsigned short usWord1;                /* 28 */
    unsigned short usWord2;                /* 30 */
    unsigned short usWord3;                /* 32 */
    unsigned char aucParam2[16];           /* 34 */
};

struct tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST { /* 4 bytes */
    unsigned char aucParam[4];
};

struct tagBB_CAPTURE_GROUP_ST {            /* 4 bytes */
    unsigned char ucMode;
    unsigned char ucValue;
    unsigned short usItv;
};

struct tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST { /* 18 bytes */
    tagBB_CAPTURE_GROUP_ST astGroup[3];    /* 0, 4, 8 */
    unsigned short usCmpItv;               /* 12 */
    tagBB_CAPTURE_GROUP_ST stGroup4;       /* 14 */
};

/* ------------------------------------------------------------------------
 * Muck-truck, RS485, DPX, alarm media and pump-truck blocks.
 * ---------------------------------------------------------------------- */

struct tagBB_PARAM_ZT_ALARM_ST {           /* 42 bytes, ID 0xf400 */
    unsigned char ucAlarmSpeed;            /* 0 */
    unsigned char ucVolume;                /* 1 */
    unsigned char ucPhotoStrategy;         /* 2 */
    unsigned short usTimedPhotoItv;        /* 3 */
    unsigned short usDistPhotoItv;         /* 5 */
    unsigned char ucPhotoNum;              /* 7 */
    unsigned char ucPhotoItv;              /* 8 */
    unsigned char ucPhotoResolution;       /* 9 */
    unsigned char ucVideoResolution;       /* 10 */
    unsigned int uiAlarmEnable;            /* 11 */
    unsigned int uiEventEnable;            /* 15 */
    unsigned char aucParam[23];            /* 19 */
};

struct _tagBB_PARAM_485AllDataFA_ST {      /* 68 bytes, ID 0xf3f0 */
    unsigned char aucData[68];
};

struct BB_DPX_ADAS_PARM_ST {               /* 10 bytes; 16 on the wire */
    unsigned int uiEnable;
    unsigned char aucParam[6];
};

struct BB_DPX_DSM_PARAM_ST {               /* 25 bytes; 31/32 on the wire */
    unsigned int uiEnable;
    unsigned char aucParam[21];
};

#define BB_ALARM_MEDIA_DATA_MAX 64

struct tagBB_ALARM_VIDEO_PHOTO_ST {        /* 71 bytes; L + 7 on the wire */
    unsigned char aucHead[4];
    unsigned char ucLen;
    unsigned char aucData[BB_ALARM_MEDIA_DATA_MAX];
    unsigned short usTail;
};

struct _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST { /* 37 bytes */
    unsigned char aucHead[3];
    unsigned int uiValue;                  /* 3 */
    unsigned char ucSetting0;              /* 7 */
    unsigned char aucSetting[25];          /* 8 */
    unsigned char aucTail[4];              /* 33 */
};

/* ------------------------------------------------------------------------
 * The terminal record.
 * ---------------------------------------------------------------------- */

struct tagBB_CONF_ST {
    /* 0: communication (0x0001 - 0x0007) */
    unsigned int uiHeartBeatItv;           /* 0x0001 */
    unsigned int uiTcpTimeout;             /* 0x0002 */
    unsigned int uiTcpRetry;               /* 0x0003 */
    unsigned int uiUdpTimeout;             /* 0x0004 */
    unsigned int uiUdpRetry;               /* 0x0005 */
    unsigned int uiSmsTimeout;             /* 0x0006 */
    unsigned int uiSmsRetry;               /* 0x0007 */
    /* 28: servers (0x0010 - 0x0017) */
    char szMainApn[32];                    /* 0x0010 */
    char szMainUser[32];                   /* 0x0011 */
    char szMainPwd[32];                    /* 0x0012 */
    char szMainAddr[64];                   /* 0x0013 */
    char szBackupApn[32];                  /* 0x0014 */
    char szBackupUser[32];                 /* 0x0015 */
    char szBackupPwd[32];                  /* 0x0016 */
    char szBackupAddr[64];                 /* 0x0017 */
    /* 348 */
    unsigned int uiTcpPort;                /* 0x0018 */
    unsigned int uiUdpPort;                /* 0x0019 */
    char szIcMainAddr[32];                 /* 0x001a */
    unsigned int uiIcTcpPort;              /* 0x001b */
    unsigned int uiIcUdpPort;              /* 0x001c */
    char szIcBackupAddr[32];               /* 0x001d */
    /* 428: location reporting */
    unsigned int uiReportStrategy;         /* 0x0020 */
    unsigned int uiReportScheme;           /* 0x0021 */
    unsigned int uiReportItvNoDriver;      /* 0x0022 */
    unsigned int uiReportItvSleep;         /* 0x0027 */
    unsigned int uiReportItvAlarm;         /* 0x0028 */
    unsigned int uiReportItvDefault;       /* 0x0029 */
    unsigned int uiReportDistDefault;      /* 0x002c */
    unsigned int uiReportDistNoDriver;     /* 0x002d */
    unsigned int uiReportDistSleep;        /* 0x002e */
    unsigned int uiReportDistAlarm;        /* 0x002f */
    unsigned int uiCornerAngle;            /* 0x0030 */
    unsigned short usFenceRadius;          /* 0x0031 */
    /* 474: telephony */
    char szMonitorPhone[16];               /* 0x0040 */
    char szResetPhone[16];                 /* 0x0041 */
    char szFactoryResetPhone[16];          /* 0x0042 */
    char szSmsPhone[16];                   /* 0x0043 */
    char szSmsAlarmPhone[16];              /* 0x0044 */
    unsigned int uiAnswerStrategy;         /* 0x0045 */
    unsigned int uiMaxCallTime;            /* 0x0046 */
    unsigned int uiMaxCallTimeMonth;       /* 0x0047 */
    char szListenPhone[16];                /* 0x0048 */
    char szPrivilegeSmsPhone[16];          /* 0x0049 */
    /* 598: alarms and driving limits */
    unsigned int uiAlarmMask;              /* 0x0050 */
    unsigned int uiAlarmSms;               /* 0x0051 */
    unsigned int uiAlarmPhoto;             /* 0x0052 */
    unsigned int uiAlarmPhotoStore;        /* 0x0053 */
    unsigned int uiKeyFlag;                /* 0x0054 */
    unsigned int uiMaxSpeed;               /* 0x0055 */
    unsigned int uiOverSpeedTime;          /* 0x0056 */
    unsigned int uiContDriveLmt;           /* 0x0057 */
    unsigned int uiDayDriveLmt;            /* 0x0058 */
    unsigned int uiMinRest;                /* 0x0059 */
    unsigned int uiMaxPark;                /* 0x005a */
    unsigned short usOverSpeedWarnDiff;    /* 0x005b */
    unsigned short usFatigueWarnDiff;      /* 0x005c */
    unsigned short usCollision;            /* 0x005d */
    unsigned short usRollover;             /* 0x005e */
    unsigned int uiTimedPhoto;             /* 0x0064 */
    unsigned int uiDistPhoto;              /* 0x0065 */
    unsigned char aucReserved658[4];
    unsigned int uiImageQuality;           /* 0x0070 */
    unsigned int uiBrightness;             /* 0x0071 */
    unsigned int uiContrast;               /* 0x0072 */
    unsigned int uiSaturation;             /* 0x0073 */
    unsigned int uiChroma;                 /* 0x0074 */
    unsigned int uiVideoAlarmMask;         /* 0x007a */
    /* 686: JT/T 1078 video */
    tagAV_ENC_PARAM_ST stAVEnc;            /* 0x0075 */
    tagAV_CHANEL_LOOK_UP_ST stAVChLookUp;  /* 0x0076 */
    tagAV_INDIVIDUAL_SETTING_ST stAVIndSetting; /* 0x0077 */
    tagSPECIAL_ALARM_REC_PARAM_ST stSpecialAlarmRec; /* 0x0079 */
    tagVIDEO_ANALYSE_PARAM_ST stVideoAnalyse;        /* 0x007b */
    tagWAKEUP_MODE_PARAM_ST stWakeUpMode;            /* 0x007c */
    /* 1136: vehicle, GNSS, CAN */
    unsigned int uiOdometer;               /* 0x0080 */
    unsigned short usProvinceId;           /* 0x0081 */
    unsigned short usCityId;               /* 0x0082 */
    char szPlate[32];                      /* 0x0083 */
    unsigned char ucPlateColor;            /* 0x0084 */
    unsigned char ucGnssMode;              /* 0x0090 */
    unsigned char ucGnssBaud;              /* 0x0091 */
    unsigned char ucGnssOutFreq;           /* 0x0092 */
    unsigned int uiGnssSampleFreq;         /* 0x0093 */
    unsigned char ucGnssUploadMode;        /* 0x0094 */
    unsigned int uiGnssUploadSetting;      /* 0x0095 */
    unsigned int uiCan1CollectItv;         /* 0x0100 */
    unsigned short usCan1UploadItv;        /* 0x0101 */
    unsigned int uiCan2CollectItv;         /* 0x0102 */
    unsigned short usCan2UploadItv;        /* 0x0103 */
    unsigned char aucCanIdSetting[5][8];   /* 0x0110: the first of five */
    /* 1241: night rules */
    tagBB_PARAM_NIGHT_SPEED_ST stNightSpeed;   /* 0xf001 */
    tagBB_PARAM_NIGHT_MOVE_ST stNightMove;     /* 0xf002 */
    tagBB_PARAM_NIGHT_TIRED_ST stNightTired;   /* 0xfe10 */
    /* 1273: vendor strings and values */
    char szVendorFe05[32];                 /* 0xfe05 */
    char szVendorFe06[64];                 /* 0xfe06 */
    char szVendorFe09[32];                 /* 0xfe09 */
    char szVendorFe0a[32];                 /* 0xfe0a */
    unsigned int uiVendorF011;             /* 0xf011 */
    unsigned char ucVendorF200;            /* 0xf200 */
    unsigned char ucVendorF201;            /* 0xf201 */
    unsigned int uiVendorF202;             /* 0xf202 */
    /* 1443: local network settings, reached by no ID */
    unsigned char ucNetMode;               /* 1443 */
    unsigned char aucNetIp[4];             /* 1444 */
    unsigned char ucNetParam1448;          /* 1448 */
    unsigned char aucReserved1449[20];
    unsigned char ucNetParam1469;          /* 1469 */
    unsigned char aucReserved1470[3];
    unsigned char aucNetIp2[4];            /* 1473 */
    unsigned char aucReserved1477[10];
    /* 1487: regional blocks */
    tagBB_PARAM_ADAS_SUBIAO_ST stSubiaoAdas;               /* 0xf364 */
    tagBB_PARAM_DSM_SUBIAO_ST stSubiaoDsm;                 /* 0xf365 */
    tagBB_PARAM_TPMS_SUBIAO_ST stSubiaoTpms;               /* 0xf366 */
    tagBB_PARAM_BSD_SUBIAO_ST stSubiaoBsd;                 /* 0xf367 */
    tagBB_PARAM_DRIVER_IDENTIFY_ST stHljDriverIdentify;    /* 0xe138 */
    tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST stHljAdas;      /* 0xe139 */
    tagBB_PARAM_DSM_HEIBIAO_ST stHljDsm;                   /* 0xe140 */
    tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST stHljDevFail;    /* 0xe141 */
    unsigned char aucReserved1894[37];
    tagBB_PARAM_VDS_XIANGBIAO_ST stXiangbiaoVds;           /* 0xf368 */
    tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST stXiangbiaoDriverCmp; /* 0xf0e9 */
    tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST stXiangbiaoDriverCapture; /* 0xf0ef */
    tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST stSubiaoIntense; /* 0xf370 */
    unsigned char aucReserved2057[2];
    _tagBB_PARAM_485AllDataFA_ST stRs485Inqure;            /* 0xf3f0 */
    tagBB_PARAM_ZT_ALARM_ST stZhatuAlarm;                  /* 0xf400 */
    /* 2169: vendor values */
    unsigned char aucVendorC21b[10];       /* 0xc21b */
    unsigned char aucVendorC222[10];       /* 0xc222 */
    unsigned int uiVendorC223;             /* 0xc223 */
    unsigned char aucVendorC255[10];       /* 0xc255 */
    unsigned int uiVendorC257;             /* 0xc257 */
    unsigned int uiVendorC258;             /* 0xc258 */
    unsigned int uiVendorC25b;             /* 0xc25b */
    unsigned int uiVendorC25c;             /* 0xc25c */
    unsigned char aucReserved2219[54];
    /* 2273: muck-truck profile values */
    unsigned char ucVendor00a2;            /* 0x00a2 */
    unsigned char ucVendor00a1;            /* 0x00a1 */
    unsigned short usVendor101a;           /* 0x101a */
    unsigned short usVendor101b;           /* 0x101b */
    unsigned short usVendor101c;           /* 0x101c */
    unsigned short usVendor101d;           /* 0x101d */
    unsigned char ucVendor101e;            /* 0x101e */
    unsigned char ucVendor101f;            /* 0x101f */
    unsigned char ucVendor1031;            /* 0x1031 */
    unsigned char ucVendorF108;            /* 0xf108 */
    unsigned char ucVendorF110;            /* 0xf110 */
    unsigned char ucVendorF113;            /* 0xf113 */
    unsigned char aucVendorF114[8];        /* 0xf114 */
    unsigned short usVendorF106;           /* 0xf106 */
    unsigned char aucVendor8f21[46];       /* 0x8f21 */
    unsigned char aucVendor8620[128];      /* 0x8620 */
    /* 2473: terminal-local settings, reached by no ID */
    unsigned short ausLocalWord[12];       /* 2473 */
    char szLocalStr2497[32];               /* 2497 */
    char szLocalStr2529[32];               /* 2529 */
    unsigned char ucLocal2561;             /* 2561 */
    unsigned char aucReserved2562[8];
    unsigned char ucLocal2570;             /* 2570 */
    unsigned char ucReserved2571;
    unsigned char ucLocal2572;             /* 2572 */
    unsigned char ucLocal2573;             /* 2573 */
    unsigned char ucLocal2574;             /* 2574 */
    unsigned char ucLocal2575;             /* 2575 */
    unsigned char aucReserved2576[3];
    unsigned int uiLocal2579;              /* 2579 */
    unsigned short usLocal2583;            /* 2583 */
    unsigned char ucLocal2585;             /* 2585 */
    unsigned char aucReserved2586[2];
    unsigned short usLocal2588;            /* 2588 */
    unsigned char ucLocal2590;             /* 2590 */
    unsigned char ucReserved2591;
    unsigned short usLocal2592;            /* 2592 */
    unsigned char ucLocal2594;             /* 2594 */
    unsigned char ucLocal2595;             /* 2595 */
    unsigned char aucLocal2596[32];        /* 2596: cleared by the reset */
    unsigned char aucReserved2628[4];
    unsigned short usLocal2632;            /* 2632 */
    unsigned char aucReserved2634[5];
    unsigned char ucLocal2639;             /* 2639 */
    unsigned char ucReserved2640;
    char szVehicleClass[16];               /* 2641 */
    char aszLocalStr2657[5][32];           /* 2657 */
    unsigned char aucReserved2817[32];
    unsigned char aucLocal2849[4];         /* 2849 */
    unsigned char aucReserved2853[40];
    /* 2893: slave and vendor servers */
    char szSlaveApn[32];                   /* 0x0023 = 0xf120 */
    char szSlaveUser[32];                  /* 0x0024 = 0xf121 */
    char szSlavePwd[32];                   /* 0x0025 = 0xf122 */
    char szSlaveAddr[64];                  /* 0xf123 */
    char szVendorF124[32];                 /* 0xf124 */
    char szVendorF125[32];                 /* 0xf125 */
    char szVendorF126[32];                 /* 0xf126 */
    char szVendorF127[64];                 /* 0xf127 */
    unsigned int uiVendorF128;             /* 0xf128 */
    unsigned int uiVendorF129;             /* 0xf129 */
    unsigned char ucVendorF12a;            /* 0xf12a */
    unsigned char aucReserved3222[132];
    /* 3354: Subiao load and size sensing */
    tagBB_PARAM_OVERLOAD_SUBIAO_ST stSubiaoOverload;       /* 0xf372 */
    tagBB_PARAM_OVERSIZE_SUBIAO_ST stSubiaoOversize;       /* 0xf373 */
    unsigned char aucReserved3378[8];
};

/* ------------------------------------------------------------------------
 * The taxi record (1037 bytes).
 * ---------------------------------------------------------------------- */

struct tagBBTAXI_CONF_ST {
    unsigned int uiHeartBeatItv;           /* 0x0001 */
    unsigned int uiTcpTimeout;             /* 0x0002 */
    unsigned int uiTcpRetry;               /* 0x0003 */
    unsigned int uiUdpTimeout;             /* 0x0004 */
    unsigned int uiUdpRetry;               /* 0x0005 */
    char szMainApn[32];                    /* 0x0010 */
    char szMainUser[32];                   /* 0x0011 */
    char szMainPwd[32];                    /* 0x0012 */
    char szMainAddr[64];                   /* 0x0013 */
    char szBackupApn[32];                  /* 0x0014 */
    char szBackupUser[32];                 /* 0x0015 */
    char szBackupPwd[32];                  /* 0x0016 */
    char szBackupAddr[64];                 /* 0x0017 */
    unsigned int uiTcpPort;                /* 0x0018 */
    unsigned int uiUdpPort;                /* 0x0019 */
    char szParam001a[32];                  /* 0x001a */
    unsigned int uiParam001b;              /* 0x001b */
    unsigned char aucParam001c[32];        /* 0x001c */
    unsigned char ucParam001d;             /* 0x001d */
    unsigned int auiParam0020[17];         /* 0x0020 - 0x0030 */
    char aszPhone0040[5][16];              /* 0x0040 - 0x0044 */
    unsigned int auiParam0045[4];          /* 0x0045 - 0x0048 */
    char szPhone0049[16];                  /* 0x0049 */
    char szPhone004a[16];                  /* 0x004a */
    unsigned char ucParam004b;             /* 0x004b */
    unsigned int auiParam0050[4];          /* 0x0050 - 0x0053 */
    unsigned int auiParam0055[6];          /* 0x0055 - 0x005a */
    unsigned int auiParam0070[5];          /* 0x0070 - 0x0074 */
    unsigned int auiParam0080[3];          /* 0x0080 - 0x0082 */
    char szParam0090[2];                   /* 0x0090 */
    char szParam0091[5];                   /* 0x0091 */
    char szParam0092[32];                  /* 0x0092 */
    char szParam0093[32];                  /* 0x0093 */
    char szParam0094[6];                   /* 0x0094 */
    unsigned char aucParam00a0[4];         /* 0x00a0 - 0x00a3 */
    unsigned short usParam00af;            /* 0x00af */
    unsigned char ucParam00b0;             /* 0x00b0 */
    char aszParam00b1[3][32];              /* 0x00b1 - 0x00b3 */
    char szParam00b4[64];                  /* 0x00b4 */
    unsigned int uiParam00b5;              /* 0x00b5 */
    unsigned char aucTail[103];            /* 934: reached by no ID */
};

#pragma pack(pop)

/* ------------------------------------------------------------------------
 * Layout checks: sizes of every record, offsets of every block and of every
 * field a parameter ID reaches.
 * ---------------------------------------------------------------------- */
#define BB_CHECK_SIZE(T, n) static_assert(sizeof(T) == (n), #T " must be " #n " bytes")
#define BB_CHECK_OFF(T, f, n) static_assert(offsetof(T, f) == (n), #T "." #f " must sit at " #n)

BB_CHECK_SIZE(tagAV_ENC_PARAM_ST, 21);
BB_CHECK_SIZE(tagAV_CH_ENC_PARAM_ST, 21);
BB_CHECK_SIZE(tagAV_INDIVIDUAL_SETTING_ST, 253);
BB_CHECK_SIZE(tagAV_CHANEL_LOOK_UP_ST, 151);
BB_CHECK_SIZE(tagSPECIAL_ALARM_REC_PARAM_ST, 3);
BB_CHECK_SIZE(tagVIDEO_ANALYSE_PARAM_ST, 2);
BB_CHECK_SIZE(tagWAKEUP_MODE_PARAM_ST, 20);
BB_CHECK_SIZE(tagBB_PARAM_NIGHT_SPEED_ST, 8);
BB_CHECK_SIZE(tagBB_PARAM_NIGHT_MOVE_ST, 8);
BB_CHECK_SIZE(tagBB_PARAM_NIGHT_TIRED_ST, 16);
BB_CHECK_SIZE(tagBB_PARAM_ADAS_SUBIAO_ST, 104);
BB_CHECK_SIZE(tagBB_PARAM_DSM_SUBIAO_ST, 132);
BB_CHECK_SIZE(tagBB_PARAM_TPMS_SUBIAO_ST, 36);
BB_CHECK_SIZE(tagBB_PARAM_BSD_SUBIAO_ST, 2);
BB_CHECK_SIZE(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, 54);
BB_CHECK_SIZE(tagBB_PARAM_OVERLOAD_SUBIAO_ST, 20);
BB_CHECK_SIZE(tagBB_PARAM_OVERSIZE_SUBIAO_ST, 4);
BB_CHECK_SIZE(tagBB_PARAM_DRIVER_IDENTIFY_ST, 22);
BB_CHECK_SIZE(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST, 33);
BB_CHECK_SIZE(tagBB_PARAM_DSM_HEIBIAO_ST, 33);
BB_CHECK_SIZE(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, 45);
BB_CHECK_SIZE(tagBB_PARAM_VDS_XIANGBIAO_ST, 50);
BB_CHECK_SIZE(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST, 4);
BB_CHECK_SIZE(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, 18);
BB_CHECK_SIZE(tagBB_PARAM_ZT_ALARM_ST, 42);
BB_CHECK_SIZE(_tagBB_PARAM_485AllDataFA_ST, 68);
BB_CHECK_SIZE(BB_DPX_ADAS_PARM_ST, 10);
BB_CHECK_SIZE(BB_DPX_DSM_PARAM_ST, 25);
BB_CHECK_SIZE(tagBB_ALARM_VIDEO_PHOTO_ST, 71);
BB_CHECK_SIZE(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, 37);
BB_CHECK_SIZE(tagBB_CONF_ST, 3386);
BB_CHECK_SIZE(tagBBTAXI_CONF_ST, 1037);

/* Field offsets inside the blocks that their wire forms rely on. */
BB_CHECK_OFF(tagAV_ENC_PARAM_ST, uiRtBitRate, 5);
BB_CHECK_OFF(tagAV_ENC_PARAM_ST, usOsdSetting, 18);
BB_CHECK_OFF(tagAV_CH_ENC_PARAM_ST, uiStBitRate, 15);
BB_CHECK_OFF(tagAV_INDIVIDUAL_SETTING_ST, astCh, 1);
BB_CHECK_OFF(tagAV_CHANEL_LOOK_UP_ST, astCh, 3);
BB_CHECK_OFF(tagWAKEUP_MODE_PARAM_ST, astPeriod, 4);
BB_CHECK_OFF(tagBB_PARAM_NIGHT_TIRED_ST, uiDriveLmt, 7);
BB_CHECK_OFF(tagBB_PARAM_NIGHT_TIRED_ST, uiMinRest, 11);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, uiAlarmEnable, 11);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, ucReserved, 19);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, ucRoadSignPhotoItv, 51);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, stGroupA, 55);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, stGroupB, 59);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, aucSiChuanExt, 63);
BB_CHECK_OFF(tagBB_PARAM_ADAS_SUBIAO_ST, ausExtWord, 68);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, usSmokeJudgeItv, 19);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, stFatigue, 23);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, ucDriverIdTrigger, 43);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, stGroupA, 50);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, stGroupB, 55);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, astRegion, 60);
BB_CHECK_OFF(tagBB_PARAM_DSM_SUBIAO_ST, aucExtArea, 84);
BB_CHECK_OFF(tagBB_PARAM_TPMS_SUBIAO_ST, usPressureUnit, 12);
BB_CHECK_OFF(tagBB_PARAM_TPMS_SUBIAO_ST, aucReserved, 30);
BB_CHECK_OFF(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, aucReserved, 46);
BB_CHECK_OFF(tagBB_PARAM_OVERLOAD_SUBIAO_ST, ucLoadE, 12);
BB_CHECK_OFF(tagBB_PARAM_OVERLOAD_SUBIAO_ST, usLocal, 18);
BB_CHECK_OFF(tagBB_PARAM_DSM_HEIBIAO_ST, usThreshold2, 6);
BB_CHECK_OFF(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, usThreshold2, 6);
BB_CHECK_OFF(tagBB_PARAM_VDS_XIANGBIAO_ST, usWord1, 28);
BB_CHECK_OFF(tagBB_PARAM_VDS_XIANGBIAO_ST, aucParam2, 34);
BB_CHECK_OFF(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, usCmpItv, 12);
BB_CHECK_OFF(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, stGroup4, 14);
BB_CHECK_OFF(tagBB_PARAM_ZT_ALARM_ST, uiEventEnable, 15);
BB_CHECK_OFF(tagBB_PARAM_ZT_ALARM_ST, aucParam, 19);
BB_CHECK_OFF(tagBB_ALARM_VIDEO_PHOTO_ST, ucLen, 4);
BB_CHECK_OFF(tagBB_ALARM_VIDEO_PHOTO_ST, usTail, 69);
BB_CHECK_OFF(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, uiValue, 3);
BB_CHECK_OFF(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, aucTail, 33);

/* Terminal record: every field reached by an ID and every block. */
BB_CHECK_OFF(tagBB_CONF_ST, uiSmsRetry, 24);
BB_CHECK_OFF(tagBB_CONF_ST, szMainApn, 28);
BB_CHECK_OFF(tagBB_CONF_ST, szMainUser, 60);
BB_CHECK_OFF(tagBB_CONF_ST, szMainPwd, 92);
BB_CHECK_OFF(tagBB_CONF_ST, szMainAddr, 124);
BB_CHECK_OFF(tagBB_CONF_ST, szBackupApn, 188);
BB_CHECK_OFF(tagBB_CONF_ST, szBackupUser, 220);
BB_CHECK_OFF(tagBB_CONF_ST, szBackupPwd, 252);
BB_CHECK_OFF(tagBB_CONF_ST, szBackupAddr, 284);
BB_CHECK_OFF(tagBB_CONF_ST, uiTcpPort, 348);
BB_CHECK_OFF(tagBB_CONF_ST, uiUdpPort, 352);
BB_CHECK_OFF(tagBB_CONF_ST, szIcMainAddr, 356);
BB_CHECK_OFF(tagBB_CONF_ST, uiIcTcpPort, 388);
BB_CHECK_OFF(tagBB_CONF_ST, uiIcUdpPort, 392);
BB_CHECK_OFF(tagBB_CONF_ST, szIcBackupAddr, 396);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportStrategy, 428);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportItvNoDriver, 436);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportItvSleep, 440);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportItvDefault, 448);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportDistDefault, 452);
BB_CHECK_OFF(tagBB_CONF_ST, uiReportDistAlarm, 464);
BB_CHECK_OFF(tagBB_CONF_ST, uiCornerAngle, 468);
BB_CHECK_OFF(tagBB_CONF_ST, usFenceRadius, 472);
BB_CHECK_OFF(tagBB_CONF_ST, szMonitorPhone, 474);
BB_CHECK_OFF(tagBB_CONF_ST, szSmsAlarmPhone, 538);
BB_CHECK_OFF(tagBB_CONF_ST, uiAnswerStrategy, 554);
BB_CHECK_OFF(tagBB_CONF_ST, uiMaxCallTimeMonth, 562);
BB_CHECK_OFF(tagBB_CONF_ST, szListenPhone, 566);
BB_CHECK_OFF(tagBB_CONF_ST, szPrivilegeSmsPhone, 582);
BB_CHECK_OFF(tagBB_CONF_ST, uiAlarmMask, 598);
BB_CHECK_OFF(tagBB_CONF_ST, uiMaxSpeed, 618);
BB_CHECK_OFF(tagBB_CONF_ST, uiMaxPark, 638);
BB_CHECK_OFF(tagBB_CONF_ST, usOverSpeedWarnDiff, 642);
BB_CHECK_OFF(tagBB_CONF_ST, usRollover, 648);
BB_CHECK_OFF(tagBB_CONF_ST, uiTimedPhoto, 650);
BB_CHECK_OFF(tagBB_CONF_ST, uiDistPhoto, 654);
BB_CHECK_OFF(tagBB_CONF_ST, uiImageQuality, 662);
BB_CHECK_OFF(tagBB_CONF_ST, uiChroma, 678);
BB_CHECK_OFF(tagBB_CONF_ST, uiVideoAlarmMask, 682);
BB_CHECK_OFF(tagBB_CONF_ST, stAVEnc, 686);
BB_CHECK_OFF(tagBB_CONF_ST, stAVChLookUp, 707);
BB_CHECK_OFF(tagBB_CONF_ST, stAVIndSetting, 858);
BB_CHECK_OFF(tagBB_CONF_ST, stSpecialAlarmRec, 1111);
BB_CHECK_OFF(tagBB_CONF_ST, stVideoAnalyse, 1114);
BB_CHECK_OFF(tagBB_CONF_ST, stWakeUpMode, 1116);
BB_CHECK_OFF(tagBB_CONF_ST, uiOdometer, 1136);
BB_CHECK_OFF(tagBB_CONF_ST, usProvinceId, 1140);
BB_CHECK_OFF(tagBB_CONF_ST, usCityId, 1142);
BB_CHECK_OFF(tagBB_CONF_ST, szPlate, 1144);
BB_CHECK_OFF(tagBB_CONF_ST, ucPlateColor, 1176);
BB_CHECK_OFF(tagBB_CONF_ST, ucGnssMode, 1177);
BB_CHECK_OFF(tagBB_CONF_ST, ucGnssOutFreq, 1179);
BB_CHECK_OFF(tagBB_CONF_ST, uiGnssSampleFreq, 1180);
BB_CHECK_OFF(tagBB_CONF_ST, ucGnssUploadMode, 1184);
BB_CHECK_OFF(tagBB_CONF_ST, uiGnssUploadSetting, 1185);
BB_CHECK_OFF(tagBB_CONF_ST, uiCan1CollectItv, 1189);
BB_CHECK_OFF(tagBB_CONF_ST, usCan1UploadItv, 1193);
BB_CHECK_OFF(tagBB_CONF_ST, uiCan2CollectItv, 1195);
BB_CHECK_OFF(tagBB_CONF_ST, usCan2UploadItv, 1199);
BB_CHECK_OFF(tagBB_CONF_ST, aucCanIdSetting, 1201);
BB_CHECK_OFF(tagBB_CONF_ST, stNightSpeed, 1241);
BB_CHECK_OFF(tagBB_CONF_ST, stNightMove, 1249);
BB_CHECK_OFF(tagBB_CONF_ST, stNightTired, 1257);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorFe05, 1273);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorFe06, 1305);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorFe09, 1369);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorFe0a, 1401);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorF011, 1433);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendorF200, 1437);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendorF201, 1438);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorF202, 1439);
BB_CHECK_OFF(tagBB_CONF_ST, ucNetMode, 1443);
BB_CHECK_OFF(tagBB_CONF_ST, ucNetParam1469, 1469);
BB_CHECK_OFF(tagBB_CONF_ST, aucNetIp2, 1473);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoAdas, 1487);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoDsm, 1591);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoTpms, 1723);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoBsd, 1759);
BB_CHECK_OFF(tagBB_CONF_ST, stHljDriverIdentify, 1761);
BB_CHECK_OFF(tagBB_CONF_ST, stHljAdas, 1783);
BB_CHECK_OFF(tagBB_CONF_ST, stHljDsm, 1816);
BB_CHECK_OFF(tagBB_CONF_ST, stHljDevFail, 1849);
BB_CHECK_OFF(tagBB_CONF_ST, stXiangbiaoVds, 1931);
BB_CHECK_OFF(tagBB_CONF_ST, stXiangbiaoDriverCmp, 1981);
BB_CHECK_OFF(tagBB_CONF_ST, stXiangbiaoDriverCapture, 1985);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoIntense, 2003);
BB_CHECK_OFF(tagBB_CONF_ST, stRs485Inqure, 2059);
BB_CHECK_OFF(tagBB_CONF_ST, stZhatuAlarm, 2127);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendorC21b, 2169);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendorC222, 2179);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorC223, 2189);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendorC255, 2193);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorC257, 2203);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorC258, 2207);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorC25b, 2211);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorC25c, 2215);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendor00a2, 2273);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendor00a1, 2274);
BB_CHECK_OFF(tagBB_CONF_ST, usVendor101a, 2275);
BB_CHECK_OFF(tagBB_CONF_ST, usVendor101d, 2281);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendor101e, 2283);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendor1031, 2285);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendorF108, 2286);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendorF113, 2288);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendorF114, 2289);
BB_CHECK_OFF(tagBB_CONF_ST, usVendorF106, 2297);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendor8f21, 2299);
BB_CHECK_OFF(tagBB_CONF_ST, aucVendor8620, 2345);
BB_CHECK_OFF(tagBB_CONF_ST, ausLocalWord, 2473);
BB_CHECK_OFF(tagBB_CONF_ST, szLocalStr2497, 2497);
BB_CHECK_OFF(tagBB_CONF_ST, ucLocal2561, 2561);
BB_CHECK_OFF(tagBB_CONF_ST, uiLocal2579, 2579);
BB_CHECK_OFF(tagBB_CONF_ST, usLocal2588, 2588);
BB_CHECK_OFF(tagBB_CONF_ST, ucLocal2595, 2595);
BB_CHECK_OFF(tagBB_CONF_ST, aucLocal2596, 2596);
BB_CHECK_OFF(tagBB_CONF_ST, usLocal2632, 2632);
BB_CHECK_OFF(tagBB_CONF_ST, ucLocal2639, 2639);
BB_CHECK_OFF(tagBB_CONF_ST, szVehicleClass, 2641);
BB_CHECK_OFF(tagBB_CONF_ST, aszLocalStr2657, 2657);
BB_CHECK_OFF(tagBB_CONF_ST, aucLocal2849, 2849);
BB_CHECK_OFF(tagBB_CONF_ST, szSlaveApn, 2893);
BB_CHECK_OFF(tagBB_CONF_ST, szSlaveUser, 2925);
BB_CHECK_OFF(tagBB_CONF_ST, szSlavePwd, 2957);
BB_CHECK_OFF(tagBB_CONF_ST, szSlaveAddr, 2989);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorF124, 3053);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorF125, 3085);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorF126, 3117);
BB_CHECK_OFF(tagBB_CONF_ST, szVendorF127, 3149);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorF128, 3213);
BB_CHECK_OFF(tagBB_CONF_ST, uiVendorF129, 3217);
BB_CHECK_OFF(tagBB_CONF_ST, ucVendorF12a, 3221);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoOverload, 3354);
BB_CHECK_OFF(tagBB_CONF_ST, stSubiaoOversize, 3374);

/* Taxi record: every field reached by a taxi parameter ID. */
BB_CHECK_OFF(tagBBTAXI_CONF_ST, uiUdpRetry, 16);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szMainApn, 20);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szMainUser, 52);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szMainPwd, 84);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szMainAddr, 116);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szBackupApn, 180);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szBackupUser, 212);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szBackupPwd, 244);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szBackupAddr, 276);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, uiTcpPort, 340);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, uiUdpPort, 344);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam001a, 348);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, uiParam001b, 380);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, aucParam001c, 384);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, ucParam001d, 416);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0020, 417);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, aszPhone0040, 485);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0045, 565);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szPhone0049, 581);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szPhone004a, 597);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, ucParam004b, 613);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0050, 614);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0055, 630);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0070, 654);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, auiParam0080, 674);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam0090, 686);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam0091, 688);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam0092, 693);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam0093, 725);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam0094, 757);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, aucParam00a0, 763);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, usParam00af, 767);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, ucParam00b0, 769);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, aszParam00b1, 770);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, szParam00b4, 866);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, uiParam00b5, 930);
BB_CHECK_OFF(tagBBTAXI_CONF_ST, aucTail, 934);

#undef BB_CHECK_SIZE
#undef BB_CHECK_OFF

/* ========================================================================
 * Functions.  Every diagnostic line goes to standard output.
 * ====================================================================== */

/* --- Parameter access by ID (terminal record) -------------------------- */

/*
 * Store one wire value (big-endian) into the record.
 * Returns -1 when an argument check fails (ParamId 0 or 0xffff, pStr or
 * pbbConf NULL); in every other case - stored, dropped as too long, unknown
 * ID - returns len unchanged.
 * Caller obligations: pStr holds at least the bytes the ID's kind reads
 * (1, 2 or 4 for numbers, len for text and raw values, the block's full
 * wire length for block IDs, whatever len says).  Block IDs 0xf364 (ADAS)
 * log the 56 bytes in front of pStr, so those must be readable too.
 */
BBCONF_API int CMN_SetParam(tagBB_CONF_ST* pbbConf, int ParamId, unsigned char* pStr, int len);

/*
 * Render one record value as its wire form into pBuf.
 * Returns the number of wire bytes, or -1 for a failed argument check, an
 * unknown ID, a block buffer below the block's minimum, and the text-only
 * IDs 0x0026, 0xf441 and 0xf641.  Numbers are written without looking at
 * BufLen; 0x0076 may write up to 151 bytes and 0x0110 always 8, so size
 * pBuf for the ID.  A string get with BufLen below 1 returns -1.  A get of
 * 0xf364 logs the 56 bytes in front of pBuf, so those must be readable too.
 */
BBCONF_API int CMN_GetParam(tagBB_CONF_ST* pbbConf, int ParamId, unsigned char* pBuf, int BufLen);

/* Typed wrappers over CMN_SetParam / CMN_GetParam; each returns that
 * call's result.  The number setters send the value high byte first with
 * len 1, 2 or 4; they refuse (-1, nothing stored) a number ID wider than
 * the value, and block IDs read zeros behind the value.
 * The getters refuse (-1, nothing written) an ID whose get writes more
 * bytes than the output variable holds whatever BufLen says: a 16- or
 * 32-bit ID through the byte getter, 0x0110 (8 bytes) and 0x0076 (up to
 * 151) through any of them.  A narrower ID is read into the high bytes
 * (0x0084 through the word getter gives value << 8).  Otherwise the word
 * and dword getters always store their result, 0 when the get failed (an
 * unknown ID gives 0 and -1); the byte getter hands out its byte as the
 * buffer, so a failed get leaves it as it was.  0x0081/0x0082 return 4. */
BBCONF_API int CMN_SetByteParam(tagBB_CONF_ST* pbbConf, int id, unsigned char value);
BBCONF_API int CMN_GetByteParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* out);
BBCONF_API int CMN_SetWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned short value);
BBCONF_API int CMN_GetWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned short* out);
BBCONF_API int CMN_SetDWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned int value);
BBCONF_API int CMN_GetDWordParam(tagBB_CONF_ST* pbbConf, int id, unsigned int* out);
BBCONF_API int CMN_SetStrParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* str, int len);
BBCONF_API int CMN_GetStrParam(tagBB_CONF_ST* pbbConf, int id, unsigned char* buf, int buflen);

/* --- Defaults, checksum, profiles ------------------------------------- */

BBCONF_API void CMN_InitBbConfToDefault(tagBB_CONF_ST* pbbConf);

BBCONF_API unsigned short __Cal_CRC_CCITT(unsigned short crc, unsigned char byte);
BBCONF_API unsigned short CMN_Get_CRC_CCITT(unsigned short init, unsigned char* buf, unsigned int len);
BBCONF_API int CMN_UpdateCheckSum(tagBB_CONF_ST* pbbConf);
BBCONF_API int CMN_VerifyCheckSum(tagBB_CONF_ST* pbbConf);

BBCONF_API void InitShenZhenPurnoBBParam(tagBB_CONF_ST* pbbConf);
BBCONF_API void InitKelvoZtBBParam(tagBB_CONF_ST* pbbConf);
BBCONF_API void InitShenZhenTamsaBBParam(tagBB_CONF_ST* pbbConf);
BBCONF_API void InitZhaTuBbParam(tagBB_CONF_ST* pbbConf);
BBCONF_API void InitGzZtBbParam(tagBB_CONF_ST* pbbConf);
BBCONF_API void InitKelvoZtShanXiBBParam(tagBB_CONF_ST* pbbConf);

/* --- Whole-block accessors: plain copies, 0 or -1 on a NULL pointer ---- */

BBCONF_API int CMN_SetGeneralAVEncParam(tagBB_CONF_ST* pbbConf, tagAV_ENC_PARAM_ST* pstGeneralAVEncParam);
BBCONF_API int CMN_GetGeneralAVEncParam(tagBB_CONF_ST* pbbConf, tagAV_ENC_PARAM_ST* pstGeneralAVEncParam);
BBCONF_API int CMN_SetAVChLookUpList(tagBB_CONF_ST* pbbConf, tagAV_CHANEL_LOOK_UP_ST* pstAVChLookUpList);
BBCONF_API int CMN_GetAVChLookUpList(tagBB_CONF_ST* pbbConf, tagAV_CHANEL_LOOK_UP_ST* pstAVChLookUpList);
BBCONF_API int CMN_SetAVIndSetting(tagBB_CONF_ST* pbbConf, tagAV_INDIVIDUAL_SETTING_ST* pstAVIndSetting);
BBCONF_API int CMN_GetAVIndSetting(tagBB_CONF_ST* pbbConf, tagAV_INDIVIDUAL_SETTING_ST* pstAVIndSetting);
BBCONF_API int CMN_SetSpecialAlarmParam(tagBB_CONF_ST* pbbConf, tagSPECIAL_ALARM_REC_PARAM_ST* pstSpecialAlmRecParam);
BBCONF_API int CMN_GetSpecialAlarmParam(tagBB_CONF_ST* pbbConf, tagSPECIAL_ALARM_REC_PARAM_ST* pstSpecialAlmRecParam);
BBCONF_API int CMN_SetVideoAlnalyseParam(tagBB_CONF_ST* pbbConf, tagVIDEO_ANALYSE_PARAM_ST* pstVideoAnalyseParam);
BBCONF_API int CMN_GetVideoAlnalyseParam(tagBB_CONF_ST* pbbConf, tagVIDEO_ANALYSE_PARAM_ST* pstVideoAnalyseParam);
BBCONF_API int CMN_SetWakeUpModeParam(tagBB_CONF_ST* pbbConf, tagWAKEUP_MODE_PARAM_ST* pstWakeUpModeParam);
BBCONF_API int CMN_GetWakeUpModeParam(tagBB_CONF_ST* pbbConf, tagWAKEUP_MODE_PARAM_ST* pstWakeUpModeParam);
BBCONF_API int CMN_SetNightSpeedLmt(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_SPEED_ST* pstNightSpeedLmt);
BBCONF_API int CMN_GetNightSpeedLmt(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_SPEED_ST* pstNightSpeedLmt);
BBCONF_API int CMN_SetNightAbnormalMove(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_MOVE_ST* pstNightAbnormalMove);
BBCONF_API int CMN_GetNightAbnormalMove(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_MOVE_ST* pstNightAbnormalMove);
BBCONF_API int CMN_SetNightTiredSetting(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_TIRED_ST* pstNightTiredSetting);
BBCONF_API int CMN_GetNightTiredSetting(tagBB_CONF_ST* pbbConf, tagBB_PARAM_NIGHT_TIRED_ST* pstNightTiredSetting);

/* --- Block codecs --------------------------------------------------------
 * CMN_B2LStruct: wire (big-endian) to local record; CMN_LStruct2B: local
 * record to wire.  Success returns the form's length, failure 0, unless a
 * block says otherwise below.  Unless stated, a set converts before it
 * checks len (the wire must hold the whole form) and a get writes the whole
 * form before it checks buflen (the buffer must hold the whole form).
 * ---------------------------------------------------------------------- */

/* Video blocks.  Encoding parameters: 21 bytes are read from the wire
 * whatever len says and 21 bytes are written whatever buflen says; a len
 * other than 21, or a buflen below 21, then yields 0. */
BBCONF_API unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_ENC_PARAM_ST* local);
BBCONF_API int CMN_LStruct2B(tagAV_ENC_PARAM_ST* local, unsigned char* wire, unsigned int buflen);
/* Channel settings.  Set: the wire must hold 1 + 21 x min(count, 12) bytes
 * (count = wire byte 0) whatever len says; a count above 12 is clamped to
 * 12 silently.  Get: only whole entries that fit in buflen are written and
 * their length returned (1, the count byte alone, when not one fits); a
 * count above 12 goes out as it stands, is reported and is repaired to 12
 * in the record.  A buflen of 0 is refused up front: 0 is returned and
 * nothing is written. */
BBCONF_API unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_INDIVIDUAL_SETTING_ST* local);
BBCONF_API int CMN_LStruct2B(tagAV_INDIVIDUAL_SETTING_ST* local, unsigned char* wire, unsigned int buflen);

/* Night-time rules (8, 8 and 16 bytes; only the fatigue block's two u32
 * change byte order).  A len other than the block's, or a buflen below
 * it, returns 0 and changes nothing; 0xff is an ordinary value here, not
 * a keep-unchanged marker.  The initialisers write every byte, print
 * nothing and test no pointer: the record must exist. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_NIGHT_SPEED_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_NIGHT_SPEED_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_NIGHT_MOVE_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_NIGHT_MOVE_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_NIGHT_TIRED_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_NIGHT_TIRED_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API void __InitNightSpeedLmt(tagBB_PARAM_NIGHT_SPEED_ST* pstNightSpeedLmt);
BBCONF_API void __InitNightAbnormalMove(tagBB_PARAM_NIGHT_MOVE_ST* pstNightAbnormalMove);
BBCONF_API void __InitNightTiredSetting(tagBB_PARAM_NIGHT_TIRED_ST* pstNightTiredSetting);

/* ADAS block, Subiao form (56 bytes) and the regional forms SiChuan (61),
 * GuangDong (64), Hunan (96) and JiLing (112); CMN_B2LStruct /
 * CMN_LStruct2B forward to the Subiao pair and return its result.
 * Set reads the whole form from wire whatever len says, stores every field
 * whose wire value is not all ones (reserved byte 19 is stored always),
 * then returns the form's length, or 0 when len differs (the fields stay
 * converted).  Get writes the whole form (unmapped bytes 0) whatever
 * buflen says, then returns the length, or 0 when buflen is short.  A
 * NULL wire or record returns 0 and prints nothing (all ten forms).
 * Every ADAS codec logs the form's length of bytes that lie immediately
 * BEFORE the wire pointer: the caller must have that many readable bytes
 * in front of wire (56 for the Subiao pair, hence also in front of the
 * buffers given to CMN_SetParam / CMN_GetParam for ID 0xf364).
 * __InitSubiaoAdasParam leaves bytes 63 to 67 as they were and returns the
 * result of its printf; a NULL record prints the assertion line and returns
 * that line's printf result. */
BBCONF_API int __InitSubiaoAdasParam(tagBB_PARAM_ADAS_SUBIAO_ST* pstSubiaoAdas);
BBCONF_API int SubiaoAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int SubiaoAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int SiChuan_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int GuangDongAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int GuangDongAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int HunanAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int HunanAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int JiLingAdas_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ADAS_SUBIAO_ST* local);
BBCONF_API int JiLingAdas_LStruct2B(tagBB_PARAM_ADAS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);

/* DSM block, Subiao form (49 bytes) and the regional forms SiChuan (65),
 * GuangDong (66), Hunan (110) and JiLing (126); CMN_B2LStruct /
 * CMN_LStruct2B forward to the Subiao pair.  Set and get follow the ADAS
 * codecs: the whole form is read or written whatever len / buflen say,
 * all-ones keeps a field (the SiChuan extension bytes at wire 47 to 52 are
 * stored always), a wrong len still converts and returns 0.  The Subiao
 * and SiChuan DSM codecs log the block from the wire pointer onward; the
 * SiChuan set first logs the len received bytes, so its wire must hold
 * max(len, 65) readable bytes.  The GuangDong, Hunan and JiLing DSM codecs
 * log the form's length of bytes immediately BEFORE the wire pointer
 * (which must be readable).  __InitSubiaoDsmParam writes all 132 bytes and
 * returns the result of its printf; a NULL record prints the assertion
 * line and returns that line's printf result. */
BBCONF_API int __InitSubiaoDsmParam(tagBB_PARAM_DSM_SUBIAO_ST* pstSubiaoDsm);
BBCONF_API int SubiaoDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int SubiaoDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int SiChuan_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int SiChuan_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int GuangDongDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int GuangDongDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int HunanDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int HunanDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int JiLingDsm_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_SUBIAO_ST* local);
BBCONF_API int JiLingDsm_LStruct2B(tagBB_PARAM_DSM_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);

/* Heibiao blocks (22, 33, 33 and 45 bytes): checked first; a len other
 * than the block's, or a buflen below it, returns 0 and changes nothing.
 * An all-ones wire field (0xff, or 0xffff for a u16) keeps the local one.
 * The initialisers return the printf count of their closing line; a NULL
 * record prints the assertion line and they return its printf count.
 * Driver identification leaves bytes 12 to 21 and
 * device failure bytes 35 to 44 as they were. */
BBCONF_API int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DRIVER_IDENTIFY_ST* local);
BBCONF_API int CMN_HljLStruct2B(tagBB_PARAM_DRIVER_IDENTIFY_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* local);
BBCONF_API int CMN_HljLStruct2B(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DSM_HEIBIAO_ST* local);
BBCONF_API int CMN_HljLStruct2B(tagBB_PARAM_DSM_HEIBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_HljB2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* local);
BBCONF_API int CMN_HljLStruct2B(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int __InitHljDriverIdentifyParam(tagBB_PARAM_DRIVER_IDENTIFY_ST* pstHeibiaoDriverIdentify);
BBCONF_API int __InitHljAdasParam(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST* pstHeibiaoAdas);
BBCONF_API int __InitHljDsmParam(tagBB_PARAM_DSM_HEIBIAO_ST* pstHeibiaoDsm);
BBCONF_API int __InitHljDevFailParam(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST* pstHeibiaoDevFail);

/* Xiangbiao blocks.  VDS (50 bytes) is refused and keeps all-ones fields
 * as the Heibiao blocks do.  The initialisers return as the Heibiao ones;
 * __InitXiangbiaoVdsParam leaves bytes 6 and 13 to 20 as they were, so
 * call it on a zeroed record. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_VDS_XIANGBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_VDS_XIANGBIAO_ST* local, unsigned char* wire, unsigned int buflen);
/* Driver capture: trusts its caller.  The set reads 18 wire bytes whatever
 * len says and returns 18 (wire must hold 18 readable bytes); the get
 * writes 18 bytes whatever buflen says (wire must have room for 18). */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int __InitXiangbiaoVdsParam(tagBB_PARAM_VDS_XIANGBIAO_ST* pstXiangbiaoVds);
BBCONF_API int __InitXiangbiaoDriverCmpParam(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST* pstXiangbiaoDriverCmp);
BBCONF_API int __InitXiangbiaoDriverCaptureParam(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* pstXiangbiaoDriverCapt);

/* Subiao tyre pressure, intense driving, load and size blocks. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_TPMS_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_TPMS_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
/* Load and size: trust their caller.  The set reads 18 (load) or 4 (size)
 * wire bytes whatever len says, accepts any len and returns it; its dump
 * shows len bytes of the record but never more than the record holds (20
 * or 4).  The get needs buflen >= 18 (load) or 4 (size).  A null record or
 * a null wire on set gives 0 without a line. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_OVERLOAD_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_OVERLOAD_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_OVERSIZE_SUBIAO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_OVERSIZE_SUBIAO_ST* local, unsigned char* wire, unsigned int buflen);
/* The three initialisers return the printf count of their closing line; a
 * NULL record prints the assertion line and they return its printf count. */
BBCONF_API int __InitSubiaoTpmsParam(tagBB_PARAM_TPMS_SUBIAO_ST* pstSubiaoTpms);
BBCONF_API int __InitSubiaoBsdParam(tagBB_PARAM_BSD_SUBIAO_ST* pstSubiaoBsd);
BBCONF_API int __InitSubiaoIntenseDriveParam(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST* pstSubiaoIntense);

/* Muck-truck, RS485, DPX, alarm media and pump-truck blocks. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_PARAM_ZT_ALARM_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_PARAM_ZT_ALARM_ST* local, unsigned char* wire, unsigned int buflen);
/* DPX ADAS: the wire form is 16 bytes of which 10 are read or written.
 * Both directions convert before they test: the wire must hold 10 bytes
 * whatever len or buflen says; the result is 16 only for len == 16 or
 * buflen >= 16, else 0 with the record or wire already converted. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, BB_DPX_ADAS_PARM_ST* local);
BBCONF_API int CMN_LStruct2B(BB_DPX_ADAS_PARM_ST* local, unsigned char* wire, unsigned int buflen);
/* DPX DSM: the set reads 25 wire bytes and returns 31 without a length
 * test; the get writes 25 bytes and returns 32 when buflen > 31.  Trusts
 * its caller: the wire must hold 25 bytes whatever len or buflen says. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, BB_DPX_DSM_PARAM_ST* local);
BBCONF_API int CMN_LStruct2B(BB_DPX_DSM_PARAM_ST* local, unsigned char* wire, unsigned int buflen);
/* Alarm video/photo: trusts its caller.  Both directions move L + 7 bytes
 * (L taken from the block) without looking at len or buflen, so the wire
 * must hold L + 7 bytes.  An L above the 64-byte data area is refused:
 * 0, nothing written. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagBB_ALARM_VIDEO_PHOTO_ST* local);
BBCONF_API int CMN_LStruct2B(tagBB_ALARM_VIDEO_PHOTO_ST* local, unsigned char* wire, unsigned int buflen);
/* Pump truck: returns 0 on every path; the set reads up to 37 wire bytes
 * whatever len says, the get writes 37 bytes whatever buflen says. */
BBCONF_API int CMN_B2LStruct(unsigned char* wire, unsigned char len, _PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST* local);
BBCONF_API int CMN_LStruct2B(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST* local, unsigned char* wire, unsigned int buflen);
/* The muck-truck and RS485 initialisers return the printf count of their
 * closing line, or on a NULL record that of the assertion line; the DPX
 * initialisers return 0, or -1 after the assertion line on a NULL record. */
BBCONF_API int __InitZhatuAlarmParam(tagBB_PARAM_ZT_ALARM_ST* pstZhatuAlarm);
BBCONF_API int __InitQ8RS485InqureParam(_tagBB_PARAM_485AllDataFA_ST* pstRs485Inqure);
BBCONF_API int CMN_Init_DPX_ADAS_Setting(BB_DPX_ADAS_PARM_ST* pDpxAdasSet);
BBCONF_API int CMN_Init_DPX_DSM_Setting(BB_DPX_DSM_PARAM_ST* pDpxDsmSet);

/* --- Taxi record --------------------------------------------------------- */

BBCONF_API void BBTAXI_InitToDefault(tagBBTAXI_CONF_ST* pTAXIConf);
/* Computes nothing and returns 0: checksum the record with
 * BBTAXI_Get_CRC_CCITT when a real value is needed. */
BBCONF_API int BBTAXI_UpdateCheckSum(tagBBTAXI_CONF_ST* pTAXIConf);
BBCONF_API int BBTAXI_VerifyCheckSum(tagBBTAXI_CONF_ST* pTAXIConf);
BBCONF_API unsigned short BBTAXI_Cal_CRC_CCITT(unsigned short crc, unsigned char byte);
BBCONF_API unsigned short BBTAXI_Get_CRC_CCITT(unsigned short init, unsigned char* buf, unsigned int len);
BBCONF_API int BBTAXI_SetParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char* pStr, int len);
BBCONF_API int BBTAXI_GetParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char* pBuf, int bufLen);
/* The eight typed taxi accessors are placeholders: they return 0 and touch
 * neither the record nor the caller's variable.  Use BBTAXI_SetParam /
 * BBTAXI_GetParam. */
BBCONF_API int BBTAXI_SetByteParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char value);
BBCONF_API int BBTAXI_GetByteParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char* out);
BBCONF_API int BBTAXI_SetWordParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned short value);
BBCONF_API int BBTAXI_GetWordParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned short* out);
BBCONF_API int BBTAXI_SetDWordParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned int value);
BBCONF_API int BBTAXI_GetDWordParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned int* out);
BBCONF_API int BBTAXI_SetStrParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char* str, int len);
BBCONF_API int BBTAXI_GetStrParam(tagBBTAXI_CONF_ST* pTAXIConf, int id, unsigned char* buf, int buflen);

/* --- Bounded copies ------------------------------------------------------ */

/* Copies n = srcLen bytes if dstSize > srcLen, else dstSize - 1 bytes (no
 * stop at a NUL), terminates dst[n] and returns dst.  dstSize must be >= 1. */
BBCONF_API char* String_copy(const char* src, int srcLen, char* dst, int dstSize);
/* Copies at most size - 1 characters of src and terminates dst (nothing
 * written for size 0); returns strlen(src).  Declared only where the C
 * library has no strlcpy of its own (see BBCONF_LIBC_HAS_STRLCPY). */
#if !BBCONF_LIBC_HAS_STRLCPY
BBCONF_API unsigned int strlcpy(char* dst, const char* src, unsigned int size);
#endif

/* --- Device identity ----------------------------------------------------- */

/* Reads the MAC address of eth0 from sysfs into mac[0..5]; returns 6, or 0
 * with an "Err" line.  size must be at least 7. */
BBCONF_API int GetMacFormFile(unsigned char* mac, int size);
BBCONF_API char* GetDeviceTerminalType(char* buf, int size);
BBCONF_API char* GetDeviceFactoryId(char* buf, int size);

#endif /* BBCONF_H */
