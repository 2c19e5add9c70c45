// region_test.cpp - region confinement of both dictionaries: a set of any
// known ID, with random values of random lengths (0, negative, the limit,
// over it), changes no record byte outside that ID's own field, and a get
// writes no byte beyond what its rule allows (guard bytes around the
// buffer).  The regions come from the record layout, not from the
// dictionary's table.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <random>
#include <vector>

#include "test_util.h"

namespace {

// How much of the caller's buffer a get may write.
enum class Write {
    Fixed,     // at most `n` bytes whatever BufLen says
    BelowBuf,  // at most BufLen - 1 bytes (text)
    UpToBuf,   // at most BufLen bytes, and at most `n`
    Nothing,   // writes nothing
};

struct Region {
    int id;
    size_t offset;
    size_t size;    // bytes a set may change
    Write write;
    size_t n;       // see Write
    bool settable;
};

#define F(m) offsetof(tagBB_CONF_ST, m), sizeof(tagBB_CONF_ST::m)
#define NUM(id, m) {id, F(m), Write::Fixed, sizeof(tagBB_CONF_ST::m), true}
#define TXT(id, m) {id, F(m), Write::BelowBuf, 0, true}
#define RAWF(id, m) {id, F(m), Write::UpToBuf, sizeof(tagBB_CONF_ST::m), true}
#define BLK(id, m, form) {id, F(m), Write::UpToBuf, form, true}
#define GETONLY(id, m, form) {id, F(m), Write::UpToBuf, form, false}

const Region kTerminal[] = {
    NUM(0x0001, uiHeartBeatItv), NUM(0x0002, uiTcpTimeout), NUM(0x0003, uiTcpRetry), NUM(0x0004, uiUdpTimeout),
    NUM(0x0005, uiUdpRetry), NUM(0x0006, uiSmsTimeout), NUM(0x0007, uiSmsRetry), TXT(0x0010, szMainApn),
    TXT(0x0011, szMainUser), TXT(0x0012, szMainPwd), TXT(0x0013, szMainAddr), TXT(0x0014, szBackupApn),
    TXT(0x0015, szBackupUser), TXT(0x0016, szBackupPwd), TXT(0x0017, szBackupAddr), NUM(0x0018, uiTcpPort),
    NUM(0x0019, uiUdpPort), TXT(0x001a, szIcMainAddr), NUM(0x001b, uiIcTcpPort), NUM(0x001c, uiIcUdpPort),
    TXT(0x001d, szIcBackupAddr), NUM(0x0020, uiReportStrategy), NUM(0x0021, uiReportScheme),
    NUM(0x0022, uiReportItvNoDriver), TXT(0x0023, szSlaveApn), TXT(0x0024, szSlaveUser), TXT(0x0025, szSlavePwd),
    {0x0026, F(szSlaveAddr), Write::UpToBuf, 80, false}, NUM(0x0027, uiReportItvSleep),
    NUM(0x0028, uiReportItvAlarm), NUM(0x0029, uiReportItvDefault), NUM(0x002c, uiReportDistDefault),
    NUM(0x002d, uiReportDistNoDriver), NUM(0x002e, uiReportDistSleep), NUM(0x002f, uiReportDistAlarm),
    NUM(0x0030, uiCornerAngle), NUM(0x0031, usFenceRadius), TXT(0x0040, szMonitorPhone), TXT(0x0041, szResetPhone),
    TXT(0x0042, szFactoryResetPhone), TXT(0x0043, szSmsPhone), TXT(0x0044, szSmsAlarmPhone),
    NUM(0x0045, uiAnswerStrategy), NUM(0x0046, uiMaxCallTime), NUM(0x0047, uiMaxCallTimeMonth),
    TXT(0x0048, szListenPhone), TXT(0x0049, szPrivilegeSmsPhone), NUM(0x0050, uiAlarmMask), NUM(0x0051, uiAlarmSms),
    NUM(0x0052, uiAlarmPhoto), NUM(0x0053, uiAlarmPhotoStore), NUM(0x0054, uiKeyFlag), NUM(0x0055, uiMaxSpeed),
    NUM(0x0056, uiOverSpeedTime), NUM(0x0057, uiContDriveLmt), NUM(0x0058, uiDayDriveLmt), NUM(0x0059, uiMinRest),
    NUM(0x005a, uiMaxPark), NUM(0x005b, usOverSpeedWarnDiff), NUM(0x005c, usFatigueWarnDiff),
    NUM(0x005d, usCollision), NUM(0x005e, usRollover), NUM(0x0064, uiTimedPhoto), NUM(0x0065, uiDistPhoto),
    NUM(0x0070, uiImageQuality), NUM(0x0071, uiBrightness), NUM(0x0072, uiContrast), NUM(0x0073, uiSaturation),
    NUM(0x0074, uiChroma), BLK(0x0075, stAVEnc, 21), {0x0076, F(stAVChLookUp), Write::Fixed, 151, true},
    BLK(0x0077, stAVIndSetting, 253), RAWF(0x0079, stSpecialAlarmRec), NUM(0x007a, uiVideoAlarmMask),
    RAWF(0x007b, stVideoAnalyse), RAWF(0x007c, stWakeUpMode), NUM(0x0080, uiOdometer), NUM(0x0081, usProvinceId),
    NUM(0x0082, usCityId), TXT(0x0083, szPlate), NUM(0x0084, ucPlateColor), NUM(0x0090, ucGnssMode),
    NUM(0x0091, ucGnssBaud), NUM(0x0092, ucGnssOutFreq), NUM(0x0093, uiGnssSampleFreq),
    NUM(0x0094, ucGnssUploadMode), NUM(0x0095, uiGnssUploadSetting), NUM(0x00a1, ucVendor00a1),
    NUM(0x00a2, ucVendor00a2), NUM(0x0100, uiCan1CollectItv), NUM(0x0101, usCan1UploadItv),
    NUM(0x0102, uiCan2CollectItv), NUM(0x0103, usCan2UploadItv),
    {0x0110, offsetof(tagBB_CONF_ST, aucCanIdSetting), 8, Write::Fixed, 8, true}, NUM(0x101a, usVendor101a),
    NUM(0x101b, usVendor101b), NUM(0x101c, usVendor101c), NUM(0x101d, usVendor101d), NUM(0x101e, ucVendor101e),
    NUM(0x101f, ucVendor101f), NUM(0x1031, ucVendor1031), RAWF(0x8620, aucVendor8620),
    RAWF(0x8f21, aucVendor8f21), {0xc21b, F(aucVendorC21b), Write::BelowBuf, 0, true},
    {0xc222, F(aucVendorC222), Write::BelowBuf, 0, true}, NUM(0xc223, uiVendorC223),
    {0xc255, F(aucVendorC255), Write::BelowBuf, 0, true}, NUM(0xc257, uiVendorC257), NUM(0xc258, uiVendorC258),
    NUM(0xc25b, uiVendorC25b), NUM(0xc25c, uiVendorC25c), GETONLY(0xe138, stHljDriverIdentify, 22),
    GETONLY(0xe139, stHljAdas, 33), GETONLY(0xe140, stHljDsm, 33), GETONLY(0xe141, stHljDevFail, 45),
    RAWF(0xf001, stNightSpeed), RAWF(0xf002, stNightMove), NUM(0xf011, uiVendorF011),
    RAWF(0xf0e9, stXiangbiaoDriverCmp), BLK(0xf0ef, stXiangbiaoDriverCapture, 18), NUM(0xf106, usVendorF106),
    NUM(0xf108, ucVendorF108), NUM(0xf110, ucVendorF110), NUM(0xf113, ucVendorF113),
    {0xf114, F(aucVendorF114), Write::UpToBuf, 8, true}, TXT(0xf120, szSlaveApn), TXT(0xf121, szSlaveUser),
    TXT(0xf122, szSlavePwd), TXT(0xf123, szSlaveAddr), TXT(0xf124, szVendorF124), TXT(0xf125, szVendorF125),
    TXT(0xf126, szVendorF126), TXT(0xf127, szVendorF127), NUM(0xf128, uiVendorF128), NUM(0xf129, uiVendorF129),
    NUM(0xf12a, ucVendorF12a), NUM(0xf200, ucVendorF200), NUM(0xf201, ucVendorF201), NUM(0xf202, uiVendorF202),
    BLK(0xf364, stSubiaoAdas, 56), BLK(0xf365, stSubiaoDsm, 49), BLK(0xf366, stSubiaoTpms, 36),
    RAWF(0xf367, stSubiaoBsd), BLK(0xf368, stXiangbiaoVds, 50), BLK(0xf370, stSubiaoIntense, 54),
    BLK(0xf372, stSubiaoOverload, 18), BLK(0xf373, stSubiaoOversize, 4), GETONLY(0xf3f0, stRs485Inqure, 68),
    GETONLY(0xf400, stZhatuAlarm, 42), {0xf441, 0, 0, Write::Nothing, 0, false},
    {0xf641, 0, 0, Write::Nothing, 0, false}, {0xfe05, offsetof(tagBB_CONF_ST, szVendorFe05), 32, Write::BelowBuf, 0, true},
    {0xfe06, offsetof(tagBB_CONF_ST, szVendorFe06), 16, Write::BelowBuf, 0, true}, TXT(0xfe09, szVendorFe09),
    TXT(0xfe0a, szVendorFe0a), BLK(0xfe10, stNightTired, 16), {0xff01, 0, 0, Write::UpToBuf, 64, false},
    {0xff02, 0, 0, Write::UpToBuf, 64, false},
};

#undef F
#undef NUM
#undef TXT
#undef RAWF
#undef BLK
#undef GETONLY

#define T(m) offsetof(tagBBTAXI_CONF_ST, m)
#define TS(m) sizeof(tagBBTAXI_CONF_ST::m)
#define TNUM(id, off, w) {id, off, w, Write::Fixed, w, true}
#define TTXT(id, off, w) {id, off, w, Write::BelowBuf, 0, true}
#define TSET(id, off, w) {id, off, w, Write::Nothing, 0, true}

const Region kTaxi[] = {
    TNUM(0x0001, T(uiHeartBeatItv), 4), TNUM(0x0002, T(uiTcpTimeout), 4), TNUM(0x0003, T(uiTcpRetry), 4),
    TNUM(0x0004, T(uiUdpTimeout), 4), TNUM(0x0005, T(uiUdpRetry), 4), TTXT(0x0010, T(szMainApn), 32),
    TTXT(0x0011, T(szMainUser), 32), TTXT(0x0012, T(szMainPwd), 32), TTXT(0x0013, T(szMainAddr), 64),
    TTXT(0x0014, T(szBackupApn), 32), TTXT(0x0015, T(szBackupUser), 32), TTXT(0x0016, T(szBackupPwd), 32),
    TTXT(0x0017, T(szBackupAddr), 64), TNUM(0x0018, T(uiTcpPort), 4), TNUM(0x0019, T(uiUdpPort), 4),
    TTXT(0x001a, T(szParam001a), 32), TNUM(0x001b, T(uiParam001b), 4), TSET(0x001c, T(aucParam001c), 32),
    TSET(0x001d, T(ucParam001d), 1),
    TTXT(0x0040, T(aszPhone0040) + 0, 16), TTXT(0x0041, T(aszPhone0040) + 16, 16),
    TTXT(0x0042, T(aszPhone0040) + 32, 16), TTXT(0x0043, T(aszPhone0040) + 48, 16),
    TTXT(0x0044, T(aszPhone0040) + 64, 16), TTXT(0x0049, T(szPhone0049), 16), TTXT(0x004a, T(szPhone004a), 16),
    TNUM(0x004b, T(ucParam004b), 1), TNUM(0x0073, T(auiParam0070) + 12, 4), TNUM(0x00af, T(usParam00af), 2),
    TNUM(0x00b0, T(ucParam00b0), 1), TTXT(0x0090, T(szParam0090), 2), TTXT(0x0091, T(szParam0091), 5),
    TTXT(0x0092, T(szParam0092), 32), TTXT(0x0093, T(szParam0093), 32), TTXT(0x0094, T(szParam0094), 6),
    TTXT(0x00b1, T(aszParam00b1) + 0, 32), TTXT(0x00b2, T(aszParam00b1) + 32, 32),
    TTXT(0x00b3, T(aszParam00b1) + 64, 32), TTXT(0x00b4, T(szParam00b4), 64), TNUM(0x00b5, T(uiParam00b5), 4),
    TSET(0x0077, 0, 0), TSET(0x0078, 0, 0), TSET(0x0079, 0, 0),
};

#undef T
#undef TS
#undef TNUM
#undef TTXT
#undef TSET

// The taxi's numeric runs: 0x0020-0x0030, 0x0045-0x0048, 0x0050-0x0053,
// 0x0055-0x005a, 0x0070-0x0074 (0x0073 above), 0x0080-0x0082, 0x00a0-0x00a3.
std::vector<Region> taxi_regions() {
    std::vector<Region> r(std::begin(kTaxi), std::end(kTaxi));
    auto run = [&](int first, int last, size_t off, size_t width) {
        for (int id = first; id <= last; id++, off += width) {
            if (id == 0x0073) continue;
            r.push_back({id, off, width, Write::Fixed, width, true});
        }
    };
    run(0x0020, 0x0030, offsetof(tagBBTAXI_CONF_ST, auiParam0020), 4);
    run(0x0045, 0x0048, offsetof(tagBBTAXI_CONF_ST, auiParam0045), 4);
    run(0x0050, 0x0053, offsetof(tagBBTAXI_CONF_ST, auiParam0050), 4);
    run(0x0055, 0x005a, offsetof(tagBBTAXI_CONF_ST, auiParam0055), 4);
    run(0x0070, 0x0074, offsetof(tagBBTAXI_CONF_ST, auiParam0070), 4);
    run(0x0080, 0x0082, offsetof(tagBBTAXI_CONF_ST, auiParam0080), 4);
    run(0x00a0, 0x00a3, offsetof(tagBBTAXI_CONF_ST, aucParam00a0), 1);
    return r;
}

constexpr size_t kGuard = 64;

template <typename Rec, typename SetFn, typename GetFn>
void check_regions(const std::vector<Region>& regions, void (*init)(Rec*), SetFn set, GetFn get) {
    std::mt19937 rng(2024);
    std::vector<unsigned char> value(400 + 2 * kGuard);
    std::vector<unsigned char> buf(400 + 2 * kGuard);
    for (const Region& r : regions) {
        SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << r.id);
        for (int round = 0; round < 40; round++) {
            static Rec rec, before;
            bbtest::output_of([&] { init(&rec); });
            auto* bytes = reinterpret_cast<unsigned char*>(&rec);
            // Random content everywhere, so a stray write of a default shows.
            for (size_t i = 0; i < sizeof rec; i++) bytes[i] = static_cast<unsigned char>(rng());
            std::memcpy(&before, &rec, sizeof rec);

            const int lengths[] = {0, -1, -300, 1, 2, 4, static_cast<int>(r.size) - 1, static_cast<int>(r.size),
                                   static_cast<int>(r.size) + 1, 255, 256, 300, static_cast<int>(rng() % 400)};
            int len = lengths[round % (sizeof lengths / sizeof lengths[0])];
            for (auto& b : value) b = static_cast<unsigned char>(rng() % 4 ? rng() : 0xff);
            bbtest::output_of([&] { set(&rec, r.id, value.data() + kGuard, len); });
            auto* after = reinterpret_cast<const unsigned char*>(&rec);
            auto* orig = reinterpret_cast<const unsigned char*>(&before);
            for (size_t i = 0; i < sizeof rec; i++) {
                if (r.settable && i >= r.offset && i < r.offset + r.size) continue;
                ASSERT_EQ(after[i], orig[i]) << "set len " << len << " changed byte " << i;
            }

            int buflen = round % 3 == 0 ? static_cast<int>(rng() % 300) : static_cast<int>(r.n) + round % 5 - 2;
            if (buflen < 0) buflen = 0;
            std::memset(buf.data(), 0xcd, buf.size());
            bbtest::output_of([&] { get(&rec, r.id, buf.data() + kGuard, buflen); });
            size_t allowed = 0;
            switch (r.write) {
                case Write::Fixed: allowed = r.n; break;
                case Write::BelowBuf: allowed = buflen > 0 ? static_cast<size_t>(buflen - 1) : 0; break;
                case Write::UpToBuf: allowed = std::min(static_cast<size_t>(buflen), r.n); break;
                case Write::Nothing: allowed = 0; break;
            }
            for (size_t i = 0; i < kGuard; i++) ASSERT_EQ(buf[i], 0xcd) << "get wrote before the buffer";
            for (size_t i = kGuard + allowed; i < buf.size(); i++) {
                ASSERT_EQ(buf[i], 0xcd) << "get with BufLen " << buflen << " wrote byte " << i - kGuard;
            }
        }
    }
}

void terminal_init(tagBB_CONF_ST* rec) { CMN_InitBbConfToDefault(rec); }

TEST(Region, TerminalSetsStayInTheirFieldAndGetsInTheirBuffer) {
    std::vector<Region> regions(std::begin(kTerminal), std::end(kTerminal));
    // The ADAS codecs log the bytes in front of the wire: the buffers keep a
    // guard area there, which the test also checks stays untouched.
    check_regions<tagBB_CONF_ST>(regions, terminal_init, CMN_SetParam, CMN_GetParam);
}

TEST(Region, TaxiSetsStayInTheirFieldAndGetsInTheirBuffer) {
    check_regions<tagBBTAXI_CONF_ST>(taxi_regions(), BBTAXI_InitToDefault, BBTAXI_SetParam, BBTAXI_GetParam);
}

}  // namespace
