/* defaults.cpp - the factory configuration of the terminal record.
 *
 * The reset clears the whole record, writes the plain fields from constant
 * tables keyed by record offset (numbers in native order, strings bounded
 * by their field), lets every parameter block write its own defaults and
 * runs the profile hooks at their two call points.  The order of the steps
 * matters where a later step overwrites an earlier one and is kept as is. */
#include <stddef.h>
#include <stdint.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "common/strcopy.h"
#include "conf/field_defaults.h"

namespace {

using bbconf::FieldDefault;
using bbconf::num;
using bbconf::str;

/* A run of bytes cleared to zero. */
struct ZeroRun {
    uint16_t offset;
    uint16_t size;
};

/* The platform server of a terminal that has never been configured. */
constexpr char kDefaultServer[] = "192.168.168.168";
/* Vehicle-class text "large vehicle" in GBK. */
constexpr char kVehicleClassLarge[] = "\xb4\xf3\xd0\xcd\xc6\xfb\xb3\xb5";

/* Plain fields of offsets 0 to 1486, except the two vendor bytes at 1437
 * and 1438 which are written after the block initialisers. */
constexpr FieldDefault kPlainDefaults[] = {
    /* Communication. */
    num(0, 4, 20),                  /* 0x0001 heartbeat interval, s */
    num(4, 4, 60),                  /* 0x0002 TCP reply time-out, s */
    num(8, 4, 3),                   /* 0x0003 TCP retransmissions */
    num(12, 4, 60),                 /* 0x0004 UDP reply time-out, s */
    num(16, 4, 3),                  /* 0x0005 UDP retransmissions */
    num(20, 4, 60),                 /* 0x0006 SMS reply time-out, s */
    num(24, 4, 3),                  /* 0x0007 SMS retransmissions */
    str(28, 32, "3gnet"),           /* 0x0010 main server APN */
    str(60, 32, "ptxk"),            /* 0x0011 dial-up user name */
    str(92, 32, "ptxk"),            /* 0x0012 dial-up password */
    str(124, 64, "192.168.168.168"),/* 0x0013 main server address */
    str(188, 32, "3gnet"),          /* 0x0014 backup server APN */
    str(220, 32, "ptxk"),           /* 0x0015 backup dial-up user name */
    str(252, 32, "ptxk"),           /* 0x0016 backup dial-up password */
    str(284, 64, "192.168.168.168"),/* 0x0017 backup server address */
    num(348, 4, 7008),              /* 0x0018 server TCP port */
    num(352, 4, 7008),              /* 0x0019 server UDP port */
    str(356, 32, kDefaultServer),   /* 0x001a driver-identity server */
    num(388, 4, 11001),             /* 0x001b driver-identity server TCP port */
    num(392, 4, 11001),             /* 0x001c driver-identity server UDP port */
    str(396, 32, kDefaultServer),   /* 0x001d driver-identity backup server */
    /* Position reporting. */
    num(428, 4, 0),                 /* 0x0020 reporting strategy */
    num(432, 4, 0),                 /* 0x0021 reporting scheme */
    num(436, 4, 30),                /* 0x0022 interval, no driver logged in, s */
    num(440, 4, 120),               /* 0x0027 interval while asleep, s */
    num(444, 4, 10),                /* 0x0028 interval in an emergency alarm, s */
    num(448, 4, 30),                /* 0x0029 default interval, s */
    num(452, 4, 500),               /* 0x002c default distance, m */
    num(456, 4, 500),               /* 0x002d distance, no driver logged in, m */
    num(460, 4, 500),               /* 0x002e distance while asleep, m */
    num(464, 4, 200),               /* 0x002f distance in an emergency alarm, m */
    num(468, 4, 45),                /* 0x0030 corner retransmission angle */
    num(472, 2, 500),               /* 0x0031 electronic fence radius, m */
    /* Telephony. */
    str(474, 16, ""),               /* 0x0040 */
    str(490, 16, ""),               /* 0x0041 */
    str(506, 16, ""),               /* 0x0042 */
    str(522, 16, ""),               /* 0x0043 */
    str(538, 16, ""),               /* 0x0044 */
    num(554, 4, 1),                 /* 0x0045 answering strategy */
    num(558, 4, 0xffffffff),        /* 0x0046 longest call */
    num(562, 4, 0xffffffff),        /* 0x0047 longest call time per month */
    str(566, 16, ""),               /* 0x0048 */
    str(582, 16, ""),               /* 0x0049 */
    /* Alarms and driving limits. */
    num(598, 4, 0),                 /* 0x0050 alarm mask */
    num(602, 4, 0),                 /* 0x0051 */
    num(606, 4, 0),                 /* 0x0052 */
    num(610, 4, 0),                 /* 0x0053 */
    num(614, 4, 0),                 /* 0x0054 */
    num(618, 4, 0),                 /* 0x0055 */
    num(622, 4, 10),                /* 0x0056 overspeed duration, s */
    num(626, 4, 14400),             /* 0x0057 continuous driving threshold, s */
    num(630, 4, 0),                 /* 0x0058 */
    num(634, 4, 1200),              /* 0x0059 minimum rest, s */
    num(638, 4, 0),                 /* 0x005a */
    num(642, 2, 50),                /* 0x005b overspeed pre-warning, 0.1 km/h */
    num(644, 2, 1800),              /* 0x005c fatigue pre-warning, s */
    num(646, 2, 0x0a32),            /* 0x005d collision: time 50, acceleration 10 */
    num(648, 2, 30),                /* 0x005e rollover angle */
    num(650, 4, 0),                 /* 0x0064 timed photo control */
    num(654, 4, 0),                 /* 0x0065 distance photo control */
    /* Image. */
    num(662, 4, 5),                 /* 0x0070 image quality */
    num(666, 4, 128),               /* 0x0071 brightness */
    num(670, 4, 64),                /* 0x0072 contrast */
    num(674, 4, 64),                /* 0x0073 saturation */
    num(678, 4, 128),               /* 0x0074 chroma */
    num(682, 4, 0),                 /* 0x007a video alarm mask */
    /* 0x0075 audio/video encoding block. */
    num(686, 1, 0),                 /* live encoding mode */
    num(687, 1, 1),                 /* live resolution */
    num(688, 2, 25),                /* live key-frame interval */
    num(690, 1, 12),                /* live frame rate */
    num(691, 4, 128),               /* live bit rate */
    num(695, 1, 0),                 /* storage encoding mode */
    num(696, 1, 3),                 /* storage resolution */
    num(697, 2, 25),                /* storage key-frame interval */
    num(699, 1, 25),                /* storage frame rate */
    num(700, 4, 1024),              /* storage bit rate */
    num(704, 2, 27),                /* overlay flags */
    num(706, 1, 0),                 /* audio output */
    /* 0x0076 channel look-up list head; entries below. */
    num(707, 1, 4),                 /* total channels */
    num(708, 1, 0),                 /* audio channels */
    num(709, 1, 0),                 /* video channels */
    /* 0x0077 individual channel settings head; entries below. */
    num(858, 1, 4),                 /* entry count */
    /* 0x0079 special alarm recording. */
    num(1111, 1, 20),               /* storage threshold */
    num(1112, 1, 5),                /* duration */
    num(1113, 1, 1),                /* start time */
    num(1114, 2, 0),                /* 0x007b video analysis */
    /* 0x007c wake-up mode head; periods below. */
    num(1116, 1, 4),                /* wake-up mode */
    num(1117, 1, 0),                /* condition type */
    num(1118, 1, 0),                /* timed wake-up days */
    num(1119, 1, 0),                /* timed wake-up enable flags */
    /* Vehicle, GNSS, CAN. */
    num(1136, 4, 0),                /* 0x0080 odometer */
    num(1140, 2, 0),                /* 0x0081 province */
    num(1142, 2, 0),                /* 0x0082 city */
    str(1144, 32, ""),              /* 0x0083 plate number */
    num(1176, 1, 9),                /* 0x0084 plate colour */
    num(1177, 1, 3),                /* 0x0090 GNSS positioning mode */
    num(1178, 1, 1),                /* 0x0091 GNSS baud rate code */
    num(1179, 1, 1),                /* 0x0092 GNSS output frequency code */
    num(1180, 4, 1),                /* 0x0093 GNSS sampling frequency */
    num(1184, 1, 0),                /* 0x0094 */
    num(1185, 4, 0),                /* 0x0095 */
    num(1189, 4, 0),                /* 0x0100 */
    num(1193, 2, 0),                /* 0x0101 */
    num(1195, 4, 0),                /* 0x0102 */
    num(1199, 2, 0),                /* 0x0103 */
    /* Vendor strings and values. */
    str(1273, 32, ""),              /* 0xfe05 */
    str(1305, 64, ""),              /* 0xfe06 */
    str(1369, 32, ""),              /* 0xfe09 */
    str(1401, 32, ""),              /* 0xfe0a */
    num(1433, 4, 0),                /* 0xf011 */
    num(1439, 4, 0),                /* 0xf202 */
    /* Local network settings, reached by no ID. */
    num(1443, 1, 2),
    num(1444, 1, 192),
    num(1445, 1, 168),
    num(1446, 1, 0),
    num(1447, 1, 0),
    num(1448, 1, 30),
    num(1469, 1, 5),
    num(1473, 1, 192),
    num(1474, 1, 168),
    num(1475, 1, 0),
    num(1476, 1, 0),
};

/* One entry of the 0x0076 look-up list (4 bytes from 710) for channel k:
 * physical channel k, logical channel k, type 0, no pan-tilt. */
constexpr uint16_t kLookUpEntries = 710;
constexpr int kLookUpEntrySize = 4;

/* One entry of the 0x0077 settings (21 bytes from 859) for channel k, at
 * entry-relative offsets; the logical channel at 0 is k.  The per-channel
 * storage bit rate is 25 while the general block's is 1024: intended. */
constexpr uint16_t kChannelEntries = 859;
constexpr int kChannelEntrySize = 21;
constexpr FieldDefault kChannelEntry[] = {
    num(1, 1, 0),                   /* live encoding mode */
    num(2, 1, 1),                   /* live resolution */
    num(3, 2, 25),                  /* live key-frame interval */
    num(5, 1, 12),                  /* live frame rate */
    num(6, 4, 128),                 /* live bit rate */
    num(10, 1, 0),                  /* storage encoding mode */
    num(11, 1, 3),                  /* storage resolution */
    num(12, 2, 25),                 /* storage key-frame interval */
    num(14, 1, 25),                 /* storage frame rate */
    num(15, 4, 25),                 /* storage bit rate */
    num(19, 2, 27),                 /* overlay flags */
};

/* The four wake-up periods (4 bytes each from 1120): 00:00 to 23:59 BCD. */
constexpr uint16_t kWakeUpPeriods = 1120;
constexpr int kWakeUpPeriodSize = 4;
constexpr FieldDefault kWakeUpPeriod[] = {
    num(0, 1, 0x00), num(1, 1, 0x00),   /* start hour, minute */
    num(2, 1, 0x23), num(3, 1, 0x59),   /* end hour, minute */
};

constexpr int kVideoChannels = 4;
constexpr int kWakeUpPeriodCount = 4;

/* Cleared again after the first profile hook: the vendor strings and the
 * two vendor words around the bytes at 1437 and 1438. */
constexpr ZeroRun kVendorClears[] = {
    {1273, 32}, /* 0xfe05 */
    {1305, 64}, /* 0xfe06 */
    {1369, 32}, /* 0xfe09 */
    {1401, 32}, /* 0xfe0a */
    {1433, 4},  /* 0xf011 */
    {1439, 4},  /* 0xf202 */
};

constexpr FieldDefault kVendorBytes[] = {
    num(1437, 1, 60),               /* 0xf200 */
    num(1438, 1, 5),                /* 0xf201 */
};

/* Terminal-local settings of offsets 2473 to 2595 (no ID reaches them).
 * 2583 is written as a 32-bit value and 2585 then as a byte inside it. */
constexpr FieldDefault kLocalDefaults[] = {
    num(2473, 2, 5),
    num(2475, 2, 10),
    num(2477, 2, 600),
    num(2479, 2, 1600),
    num(2481, 2, 10),
    num(2483, 2, 600),
    num(2485, 2, 600),
    num(2487, 2, 600),
    num(2489, 2, 29),
    num(2491, 2, 25),
    num(2493, 2, 1600),
    num(2495, 2, 1000),
    str(2497, 32, ""),
    str(2529, 32, ""),
    num(2561, 1, 10),
    num(2570, 1, 1),
    num(2572, 1, 128),
    num(2573, 1, 3),
    num(2574, 1, 3),
    num(2575, 1, 80),
    num(2579, 4, 7200),
    num(2583, 4, 32),
    num(2585, 1, 6),
    num(2588, 2, 2000),
    num(2590, 1, 8),
    num(2592, 2, 16000),
    num(2594, 1, 4),
    num(2595, 1, 1),
};

/* Cleared on its own after the local settings. */
constexpr ZeroRun kLocalClear = {2596, 32};

/* Offsets 2628 to 3377: vehicle class, slave and vendor servers, the load
 * and size blocks' first fields. */
constexpr FieldDefault kTailDefaults[] = {
    num(2632, 2, 1987),
    num(2639, 1, 1),
    str(2641, 16, kVehicleClassLarge),
    str(2657, 32, ""),
    str(2689, 32, ""),
    str(2721, 32, ""),
    str(2753, 32, ""),
    str(2785, 32, ""),
    num(2849, 4, 0),
    str(2893, 32, ""),              /* 0xf120 = 0x0023 */
    str(2925, 32, ""),              /* 0xf121 = 0x0024 */
    str(2957, 32, ""),              /* 0xf122 = 0x0025 */
    str(2989, 32, ""),              /* 0xf123 */
    str(3053, 32, ""),              /* 0xf124 */
    str(3085, 32, ""),              /* 0xf125 */
    str(3117, 32, ""),              /* 0xf126 */
    str(3149, 32, ""),              /* 0xf127 */
    num(3213, 4, 0),                /* 0xf128 */
    num(3217, 4, 0),                /* 0xf129 */
    num(3221, 1, 10),               /* 0xf12a */
    num(3354, 2, 10000),            /* 0xf372 load value A */
    num(3374, 2, 1750),             /* 0xf373 size value A */
    num(3376, 2, 1850),             /* 0xf373 size value B */
};

/* Every row lies inside the record (entry tables inside their entry). */
static_assert(bbconf::field_defaults_fit(kPlainDefaults, 1487), "plain defaults end before the regional blocks");
static_assert(bbconf::field_defaults_fit(kLocalDefaults, 2596), "local defaults end before the separate clear");
static_assert(bbconf::field_defaults_fit(kTailDefaults, BB_CONF_LEN), "tail defaults lie inside the record");
static_assert(bbconf::field_defaults_fit(kChannelEntry, kChannelEntrySize), "channel rows lie inside an entry");
static_assert(bbconf::field_defaults_fit(kWakeUpPeriod, kWakeUpPeriodSize), "period rows lie inside a period");
static_assert(kChannelEntries + kVideoChannels * kChannelEntrySize <= 1111, "channel entries fit 0x0077");
static_assert(kLookUpEntries + kVideoChannels * kLookUpEntrySize <= 858, "look-up entries fit 0x0076");

void clear(unsigned char* rec, const ZeroRun& run) { memset(rec + run.offset, 0, run.size); }

/* The per-channel parts of the three video blocks and the wake-up periods. */
void write_video_entries(unsigned char* rec) {
    for (int k = 1; k <= kVideoChannels; k++) {
        unsigned char* look_up = rec + kLookUpEntries + static_cast<size_t>(k - 1) * kLookUpEntrySize;
        look_up[0] = static_cast<unsigned char>(k); /* physical channel */
        look_up[1] = static_cast<unsigned char>(k); /* logical channel */
        unsigned char* entry = rec + kChannelEntries + static_cast<size_t>(k - 1) * kChannelEntrySize;
        entry[0] = static_cast<unsigned char>(k);   /* logical channel */
        bbconf::put_field_defaults(entry, kChannelEntry);
    }
    for (int i = 0; i < kWakeUpPeriodCount; i++) {
        bbconf::put_field_defaults(rec + kWakeUpPeriods + static_cast<size_t>(i) * kWakeUpPeriodSize, kWakeUpPeriod);
    }
}

/* The regional blocks' own defaults, in the order they are laid down.  The
 * intense-driving block stays zero: its initialiser is not part of the
 * factory reset. */
void init_blocks(tagBB_CONF_ST* c) {
    __InitNightSpeedLmt(&c->stNightSpeed);                           /* 1241, 0xf001 */
    __InitNightAbnormalMove(&c->stNightMove);                        /* 1249, 0xf002 */
    __InitSubiaoAdasParam(&c->stSubiaoAdas);                         /* 1487, 0xf364 */
    __InitSubiaoDsmParam(&c->stSubiaoDsm);                           /* 1591, 0xf365 */
    __InitSubiaoTpmsParam(&c->stSubiaoTpms);                         /* 1723, 0xf366 */
    __InitSubiaoBsdParam(&c->stSubiaoBsd);                           /* 1759, 0xf367 */
    __InitHljDriverIdentifyParam(&c->stHljDriverIdentify);           /* 1761, 0xe138 */
    __InitHljAdasParam(&c->stHljAdas);                               /* 1783, 0xe139 */
    __InitHljDsmParam(&c->stHljDsm);                                 /* 1816, 0xe140 */
    __InitHljDevFailParam(&c->stHljDevFail);                         /* 1849, 0xe141 */
    __InitXiangbiaoVdsParam(&c->stXiangbiaoVds);                     /* 1931, 0xf368 */
    __InitXiangbiaoDriverCmpParam(&c->stXiangbiaoDriverCmp);         /* 1981, 0xf0e9 */
    __InitXiangbiaoDriverCaptureParam(&c->stXiangbiaoDriverCapture); /* 1985, 0xf0ef */
    __InitQ8RS485InqureParam(&c->stRs485Inqure);                     /* 2059, 0xf3f0 */
    __InitZhatuAlarmParam(&c->stZhatuAlarm);                         /* 2127, 0xf400 */
}

}  // namespace

void CMN_InitBbConfToDefault(tagBB_CONF_ST* pbbConf) {
    BB_CHECK(NULL != pbbConf, );
    unsigned char* rec = bbconf::bytes_of(pbbConf);

    memset(rec, 0, BB_CONF_LEN);
    bbconf::put_field_defaults(rec, kPlainDefaults);
    write_video_entries(rec);

    init_blocks(pbbConf);
    InitShenZhenPurnoBBParam(pbbConf);

    bbconf::put_field_defaults(rec, kVendorBytes);
    for (const ZeroRun& run : kVendorClears) {
        clear(rec, run);
    }

    __InitNightTiredSetting(&pbbConf->stNightTired); /* 1257, 0xfe10 */

    InitKelvoZtBBParam(pbbConf);
    InitShenZhenTamsaBBParam(pbbConf);
    InitZhaTuBbParam(pbbConf);
    InitGzZtBbParam(pbbConf);

    bbconf::put_field_defaults(rec, kLocalDefaults);
    clear(rec, kLocalClear);
    bbconf::put_field_defaults(rec, kTailDefaults);

    BB_INF("Init Param Len:%d\n", BB_CONF_LEN);
}
