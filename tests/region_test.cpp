// region_test.cpp - region confinement of both dictionaries: a set of any known ID, with random values of random
// lengths (0, negative, the limit, over it), changes no record byte outside that ID's own field, and a get writes no
// byte beyond what its rule allows (guard bytes around the buffer).  The regions come from the record layout, not
// from the dictionary's table.
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <random>
#include <vector>

#include "test_util.h"

namespace {

// How much of the caller's buffer a get may write: at most `n` whatever BufLen says; BufLen - 1 (text); at most
// BufLen and at most `n`; nothing.
enum class Write { Fixed, BelowBuf, UpToBuf, Nothing };

struct Region {
    int id;
    size_t offset, size;  // the bytes a set may change
    Write write;
    size_t n;
    bool settable;
    int ids = 1;  // an array member: one ID per element, each `size` bytes
};

constexpr size_t kGuard = 64;

template <typename Rec, size_t N, typename SetFn, typename GetFn>
void check_regions(const Region (&regions)[N], void (*init)(Rec*), SetFn set, GetFn get) {
    std::mt19937 rng(2024);
    std::vector<unsigned char> value(400 + 2 * kGuard), buf(400 + 2 * kGuard);
    for (const Region& run : regions) {
        for (int k = 0; k < run.ids; k++) {
            const Region r = {run.id + k, run.offset + k * run.size, run.size, run.write, run.n, run.settable};
            SCOPED_TRACE(testing::Message() << "ID 0x" << std::hex << r.id);
            const int size = static_cast<int>(r.size);
            for (int round = 0; round < 40; round++) {
                static Rec rec, before;
                bbtest::output_of([&] { init(&rec); });
                auto* bytes = reinterpret_cast<unsigned char*>(&rec);
                // Random content everywhere, so a stray write of a default shows.
                for (size_t i = 0; i < sizeof rec; i++) bytes[i] = static_cast<unsigned char>(rng());
                std::memcpy(&before, &rec, sizeof rec);

                const int lengths[] = {
                    0, -1, -300, 1, 2, 4, size - 1, size, size + 1, 255, 256, 300, static_cast<int>(rng() % 400)};
                const int len = lengths[round % (sizeof lengths / sizeof lengths[0])];
                for (auto& b : value) b = static_cast<unsigned char>(rng() % 4 ? rng() : 0xff);
                bbtest::output_of([&] { set(&rec, r.id, value.data() + kGuard, len); });
                const auto* orig = reinterpret_cast<const unsigned char*>(&before);
                for (size_t i = 0; i < sizeof rec; i++) {
                    if (r.settable && i >= r.offset && i < r.offset + r.size) continue;
                    ASSERT_EQ(bytes[i], orig[i]) << "set len " << len << " changed byte " << i;
                }

                const int buflen = std::max(0, round % 3 ? static_cast<int>(r.n) + round % 5 - 2 : int(rng() % 300));
                std::memset(buf.data(), 0xcd, buf.size());
                bbtest::output_of([&] { get(&rec, r.id, buf.data() + kGuard, buflen); });
                const size_t allowed = r.write == Write::Fixed      ? r.n
                                       : r.write == Write::BelowBuf ? static_cast<size_t>(std::max(buflen - 1, 0))
                                       : r.write == Write::UpToBuf  ? std::min<size_t>(buflen, r.n)
                                                                    : 0;
                for (size_t i = 0; i < buf.size(); i++) {
                    if (i >= kGuard && i < kGuard + allowed) continue;
                    ASSERT_EQ(buf[i], 0xcd) << "get with BufLen " << buflen << " wrote byte " << int(i - kGuard);
                }
            }
        }
    }
}

void terminal_init(tagBB_CONF_ST* rec) { CMN_InitBbConfToDefault(rec); }

// 0x0026: "address:port", the address running on to the record's end when its field holds no terminator, ':', an
// int of up to 11 characters and the terminator.
constexpr size_t kEndpointMost = sizeof(tagBB_CONF_ST) - offsetof(tagBB_CONF_ST, szSlaveAddr) + 1 + 11 + 1;

// clang-format off
#define F(m) offsetof(tagBB_CONF_ST, m), sizeof(tagBB_CONF_ST::m)
#define N(id, m) {id, F(m), Write::Fixed, sizeof(tagBB_CONF_ST::m), true}
#define S(id, m) {id, F(m), Write::BelowBuf, 0, true}
#define R(id, m) {id, F(m), Write::UpToBuf, sizeof(tagBB_CONF_ST::m), true}
#define B(id, m, form) {id, F(m), Write::UpToBuf, form, true}
#define G(id, m, form) {id, F(m), Write::UpToBuf, form, false}

const Region kTerminal[] = {
    N(0x0001, uiHeartBeatItv), N(0x0002, uiTcpTimeout), N(0x0003, uiTcpRetry), N(0x0004, uiUdpTimeout),
    N(0x0005, uiUdpRetry), N(0x0006, uiSmsTimeout), N(0x0007, uiSmsRetry), S(0x0010, szMainApn),
    S(0x0011, szMainUser), S(0x0012, szMainPwd), S(0x0013, szMainAddr), S(0x0014, szBackupApn),
    S(0x0015, szBackupUser), S(0x0016, szBackupPwd), S(0x0017, szBackupAddr), N(0x0018, uiTcpPort),
    N(0x0019, uiUdpPort), S(0x001a, szIcMainAddr), N(0x001b, uiIcTcpPort), N(0x001c, uiIcUdpPort),
    S(0x001d, szIcBackupAddr), N(0x0020, uiReportStrategy), N(0x0021, uiReportScheme), N(0x0022, uiReportItvNoDriver),
    S(0x0023, szSlaveApn), S(0x0024, szSlaveUser), S(0x0025, szSlavePwd), G(0x0026, szSlaveAddr, kEndpointMost),
    N(0x0027, uiReportItvSleep), N(0x0028, uiReportItvAlarm), N(0x0029, uiReportItvDefault),
    N(0x002c, uiReportDistDefault), N(0x002d, uiReportDistNoDriver), N(0x002e, uiReportDistSleep),
    N(0x002f, uiReportDistAlarm), N(0x0030, uiCornerAngle), N(0x0031, usFenceRadius), S(0x0040, szMonitorPhone),
    S(0x0041, szResetPhone), S(0x0042, szFactoryResetPhone), S(0x0043, szSmsPhone), S(0x0044, szSmsAlarmPhone),
    N(0x0045, uiAnswerStrategy), N(0x0046, uiMaxCallTime), N(0x0047, uiMaxCallTimeMonth), S(0x0048, szListenPhone),
    S(0x0049, szPrivilegeSmsPhone), N(0x0050, uiAlarmMask), N(0x0051, uiAlarmSms), N(0x0052, uiAlarmPhoto),
    N(0x0053, uiAlarmPhotoStore), N(0x0054, uiKeyFlag), N(0x0055, uiMaxSpeed), N(0x0056, uiOverSpeedTime),
    N(0x0057, uiContDriveLmt), N(0x0058, uiDayDriveLmt), N(0x0059, uiMinRest), N(0x005a, uiMaxPark),
    N(0x005b, usOverSpeedWarnDiff), N(0x005c, usFatigueWarnDiff), N(0x005d, usCollision), N(0x005e, usRollover),
    N(0x0064, uiTimedPhoto), N(0x0065, uiDistPhoto), N(0x0070, uiImageQuality), N(0x0071, uiBrightness),
    N(0x0072, uiContrast), N(0x0073, uiSaturation), N(0x0074, uiChroma), B(0x0075, stAVEnc, 21),
    N(0x0076, stAVChLookUp), B(0x0077, stAVIndSetting, 253), R(0x0079, stSpecialAlarmRec),
    N(0x007a, uiVideoAlarmMask), R(0x007b, stVideoAnalyse), R(0x007c, stWakeUpMode), N(0x0080, uiOdometer),
    N(0x0081, usProvinceId), N(0x0082, usCityId), S(0x0083, szPlate), N(0x0084, ucPlateColor), N(0x0090, ucGnssMode),
    N(0x0091, ucGnssBaud), N(0x0092, ucGnssOutFreq), N(0x0093, uiGnssSampleFreq), N(0x0094, ucGnssUploadMode),
    N(0x0095, uiGnssUploadSetting), N(0x00a1, ucVendor00a1), N(0x00a2, ucVendor00a2), N(0x0100, uiCan1CollectItv),
    N(0x0101, usCan1UploadItv), N(0x0102, uiCan2CollectItv), N(0x0103, usCan2UploadItv),
    N(0x0110, aucCanIdSetting[0]), N(0x101a, usVendor101a), N(0x101b, usVendor101b), N(0x101c, usVendor101c),
    N(0x101d, usVendor101d), N(0x101e, ucVendor101e), N(0x101f, ucVendor101f), N(0x1031, ucVendor1031),
    R(0x8620, aucVendor8620), R(0x8f21, aucVendor8f21), S(0xc21b, aucVendorC21b), S(0xc222, aucVendorC222),
    N(0xc223, uiVendorC223), S(0xc255, aucVendorC255), N(0xc257, uiVendorC257), N(0xc258, uiVendorC258),
    N(0xc25b, uiVendorC25b), N(0xc25c, uiVendorC25c), G(0xe138, stHljDriverIdentify, 22), G(0xe139, stHljAdas, 33),
    G(0xe140, stHljDsm, 33), G(0xe141, stHljDevFail, 45), R(0xf001, stNightSpeed), R(0xf002, stNightMove),
    N(0xf011, uiVendorF011), R(0xf0e9, stXiangbiaoDriverCmp), B(0xf0ef, stXiangbiaoDriverCapture, 18),
    N(0xf106, usVendorF106), N(0xf108, ucVendorF108), N(0xf110, ucVendorF110), N(0xf113, ucVendorF113),
    R(0xf114, aucVendorF114), S(0xf120, szSlaveApn), S(0xf121, szSlaveUser), S(0xf122, szSlavePwd),
    S(0xf123, szSlaveAddr), S(0xf124, szVendorF124), S(0xf125, szVendorF125), S(0xf126, szVendorF126),
    S(0xf127, szVendorF127), N(0xf128, uiVendorF128), N(0xf129, uiVendorF129), N(0xf12a, ucVendorF12a),
    N(0xf200, ucVendorF200), N(0xf201, ucVendorF201), N(0xf202, uiVendorF202), B(0xf364, stSubiaoAdas, 56),
    B(0xf365, stSubiaoDsm, 49), B(0xf366, stSubiaoTpms, 36), R(0xf367, stSubiaoBsd), B(0xf368, stXiangbiaoVds, 50),
    B(0xf370, stSubiaoIntense, 54), B(0xf372, stSubiaoOverload, 18), B(0xf373, stSubiaoOversize, 4),
    G(0xf3f0, stRs485Inqure, 68), G(0xf400, stZhatuAlarm, 42), S(0xfe05, szVendorFe05), S(0xfe09, szVendorFe09),
    {0xfe06, offsetof(tagBB_CONF_ST, szVendorFe06), 16, Write::BelowBuf, 0, true}, S(0xfe0a, szVendorFe0a),
    B(0xfe10, stNightTired, 16), {0xf441, 0, 0, Write::Nothing, 0, false}, {0xf641, 0, 0, Write::Nothing, 0, false},
    {0xff01, 0, 0, Write::UpToBuf, 64, false}, {0xff02, 0, 0, Write::UpToBuf, 64, false},
};

#define T(m) offsetof(tagBBTAXI_CONF_ST, m), sizeof(tagBBTAXI_CONF_ST::m)
#define TN(id, m) {id, T(m), Write::Fixed, sizeof(tagBBTAXI_CONF_ST::m), true}
#define TS(id, m) {id, T(m), Write::BelowBuf, 0, true}
#define TA(id, m) {id, offsetof(tagBBTAXI_CONF_ST, m), sizeof(*tagBBTAXI_CONF_ST::m), Write::Fixed, \
                   sizeof(*tagBBTAXI_CONF_ST::m), true, sizeof(tagBBTAXI_CONF_ST::m) / sizeof(*tagBBTAXI_CONF_ST::m)}

const Region kTaxi[] = {
    TN(0x0001, uiHeartBeatItv), TN(0x0002, uiTcpTimeout), TN(0x0003, uiTcpRetry), TN(0x0004, uiUdpTimeout),
    TN(0x0005, uiUdpRetry), TS(0x0010, szMainApn), TS(0x0011, szMainUser), TS(0x0012, szMainPwd),
    TS(0x0013, szMainAddr), TS(0x0014, szBackupApn), TS(0x0015, szBackupUser), TS(0x0016, szBackupPwd),
    TS(0x0017, szBackupAddr), TN(0x0018, uiTcpPort), TN(0x0019, uiUdpPort), TS(0x001a, szParam001a),
    TN(0x001b, uiParam001b), {0x001c, T(aucParam001c), Write::Nothing, 0, true},
    {0x001d, T(ucParam001d), Write::Nothing, 0, true}, TS(0x0040, aszPhone0040[0]), TS(0x0041, aszPhone0040[1]),
    TS(0x0042, aszPhone0040[2]), TS(0x0043, aszPhone0040[3]), TS(0x0044, aszPhone0040[4]), TS(0x0049, szPhone0049),
    TS(0x004a, szPhone004a), TN(0x004b, ucParam004b), TN(0x00af, usParam00af), TN(0x00b0, ucParam00b0),
    TS(0x0090, szParam0090), TS(0x0091, szParam0091), TS(0x0092, szParam0092), TS(0x0093, szParam0093),
    TS(0x0094, szParam0094), TS(0x00b1, aszParam00b1[0]), TS(0x00b2, aszParam00b1[1]), TS(0x00b3, aszParam00b1[2]),
    TS(0x00b4, szParam00b4), TN(0x00b5, uiParam00b5), {0x0077, 0, 0, Write::Nothing, 0, true},
    {0x0078, 0, 0, Write::Nothing, 0, true}, {0x0079, 0, 0, Write::Nothing, 0, true}, TA(0x0020, auiParam0020),
    TA(0x0045, auiParam0045), TA(0x0050, auiParam0050), TA(0x0055, auiParam0055), TA(0x0070, auiParam0070),
    TA(0x0080, auiParam0080), TA(0x00a0, aucParam00a0),
};
// clang-format on

TEST(Region, SetsStayInTheirFieldAndGetsInTheirBuffer) {
    // The ADAS codecs log the bytes in front of the wire, so the guard there is checked too.
    check_regions(kTerminal, terminal_init, CMN_SetParam, CMN_GetParam);
    check_regions(kTaxi, BBTAXI_InitToDefault, BBTAXI_SetParam, BBTAXI_GetParam);
}

}  // namespace
