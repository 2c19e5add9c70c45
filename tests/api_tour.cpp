// api_tour.cpp - the workloads of api_tour.h.
#include "api_tour.h"

#include <cstring>
#include <initializer_list>

#include "bbconf.h"

namespace bbtest {
namespace {

// Reproducible bytes per seed (xorshift32).
class Bytes {
  public:
    explicit Bytes(unsigned seed) : s_(seed * 2654435761u + 0x9e3779b9u) {}
    unsigned char next() {
        s_ ^= s_ << 13;
        s_ ^= s_ >> 17;
        s_ ^= s_ << 5;
        return static_cast<unsigned char>(s_ >> 24);
    }
    unsigned short next16() { return static_cast<unsigned short>(next() << 8 | next()); }
    void fill(unsigned char* p, size_t n) {
        for (size_t i = 0; i < n; i++) p[i] = next();
    }
    // n capital letters, NUL-terminated.
    void text(unsigned char* p, size_t n) {
        for (size_t i = 0; i < n; i++) p[i] = static_cast<unsigned char>('A' + next() % 26);
        p[n] = 0;
    }

  private:
    uint32_t s_;
};

// Initialised room on both sides of the wire pointer: the ADAS codecs log
// the form's length of bytes in front of it, the trusting codecs move up to
// L + 7 bytes behind it.
struct Wire {
    unsigned char mem[1024];
    static constexpr int kFront = 256;
    static constexpr int kRoom = 1024 - kFront;
    explicit Wire(unsigned char fill = 0x5a) { std::memset(mem, fill, sizeof mem); }
    unsigned char* at() { return mem + kFront; }
};

// Text IDs get values shorter than their field, so every string in the
// record stays terminated.
struct IdCase {
    int id;
    int len;
    bool text;
};

template <typename Rec, typename Get>
void get_one(Digest& d, Rec* rec, int id, Get get) {
    Wire w(0);
    d.value(get(rec, id, w.at(), Wire::kRoom));
    d.bytes(w.mem, sizeof w.mem);
}

template <typename Rec, size_t N, typename Set, typename Get>
void set_get_all(Digest& d, Bytes& src, Rec* rec, const IdCase (&ids)[N], Set set, Get get) {
    for (const IdCase& c : ids) {
        Wire w;
        const auto n = static_cast<size_t>(c.len);
        c.text ? src.text(w.at(), n) : src.fill(w.at(), n);
        d.value(set(rec, c.id, w.at(), c.len));
    }
    d.record(*rec);
    for (const IdCase& c : ids) get_one(d, rec, c.id, get);
}

// --- The terminal record ------------------------------------------------------

template <typename T>
void copy_in_out(Digest& d, Bytes& src, tagBB_CONF_ST* conf, int (*set)(tagBB_CONF_ST*, T*),
                 int (*get)(tagBB_CONF_ST*, T*)) {
    T in{};
    T out{};
    src.fill(reinterpret_cast<unsigned char*>(&in), sizeof in);
    d.values({set(conf, &in), get(conf, &out), set(nullptr, &in), get(conf, nullptr)});
    d.record(out);
}

// Defaults, profiles and the block accessors of the record.
void record_defaults(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    Bytes src(seed);
    src.fill(reinterpret_cast<unsigned char*>(&conf), sizeof conf);  // the reset must wipe this
    CMN_InitBbConfToDefault(&conf);
    d.record(conf);
    d.values({CMN_UpdateCheckSum(&conf), CMN_VerifyCheckSum(&conf)});
    for (auto profile : {InitShenZhenPurnoBBParam, InitKelvoZtBBParam, InitShenZhenTamsaBBParam, InitZhaTuBbParam,
                         InitGzZtBbParam, InitKelvoZtShanXiBBParam}) {
        tagBB_CONF_ST copy = conf;
        profile(&copy);
        d.value(CMN_UpdateCheckSum(&copy));
    }
    copy_in_out(d, src, &conf, CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam);
    copy_in_out(d, src, &conf, CMN_SetAVChLookUpList, CMN_GetAVChLookUpList);
    copy_in_out(d, src, &conf, CMN_SetAVIndSetting, CMN_GetAVIndSetting);
    copy_in_out(d, src, &conf, CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam);
    copy_in_out(d, src, &conf, CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam);
    copy_in_out(d, src, &conf, CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam);
    copy_in_out(d, src, &conf, CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt);
    copy_in_out(d, src, &conf, CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove);
    copy_in_out(d, src, &conf, CMN_SetNightTiredSetting, CMN_GetNightTiredSetting);
    d.record(conf);
    CMN_InitBbConfToDefault(nullptr);
    d.value(CMN_UpdateCheckSum(nullptr));
}

// One ID per value kind and per block that the dictionary routes, at the
// wire length a platform sends.
constexpr IdCase kTerminalIds[] = {
    {0x0001, 4, false},  {0x0013, 40, true},  {0x0018, 4, false},   {0x0031, 2, false},   {0x0040, 12, true},
    {0x0055, 4, false},  {0x0075, 21, false}, {0x0076, 151, false}, {0x0077, 253, false}, {0x0083, 7, true},
    {0x0084, 1, false},  {0x0110, 8, false},  {0x101a, 2, false},   {0x101e, 1, false},   {0x8620, 128, false},
    {0x8f21, 46, false}, {0xc223, 4, false},  {0xf001, 8, false},   {0xf002, 8, false},   {0xf0e9, 4, false},
    {0xf0ef, 18, false}, {0xf114, 8, false},  {0xf120, 20, true},   {0xf123, 30, true},   {0xf364, 56, false},
    {0xf365, 49, false}, {0xf366, 36, false}, {0xf367, 2, false},   {0xf368, 50, false},  {0xf370, 56, false},
    {0xf372, 18, false}, {0xf373, 4, false},  {0xfe05, 20, true},   {0xfe10, 16, false}};
constexpr int kGetOnlyIds[] = {0x0026, 0xe138, 0xe139, 0xe140, 0xe141, 0xf3f0, 0xf400, 0xff01, 0xff02, 0xf441};
constexpr IdCase kRefused[] = {{0x0000, 4, false}, {0xffff, 4, false},  {0x0008, 4, false},   {0x10000, 4, false},
                               {0x0010, 32, true}, {0x0010, -1, false}, {0xf365, 131, false}, {0x0010, 0, false}};

// The dictionary, then the typed accessors, then their refusals: too wide
// for the variable, unknown ID, no record, read-only ID, no room.
void record_set_get(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    CMN_InitBbConfToDefault(&conf);
    Bytes src(seed);
    set_get_all(d, src, &conf, kTerminalIds, CMN_SetParam, CMN_GetParam);
    for (int id : kGetOnlyIds) get_one(d, &conf, id, CMN_GetParam);
    Wire wire;
    for (const IdCase& c : kRefused) {
        d.values({CMN_SetParam(&conf, c.id, wire.at(), c.len), CMN_GetParam(&conf, c.id, wire.at(), c.len)});
    }
    d.values({CMN_SetParam(&conf, 0x0001, nullptr, 4), CMN_SetParam(nullptr, 0x0001, wire.at(), 4),
              CMN_GetParam(&conf, 0x0001, nullptr, 4), CMN_GetParam(nullptr, 0x0001, wire.at(), 4)});
    unsigned char b = 0;
    unsigned short w = 0;
    unsigned int dw = 0;
    unsigned char text[64] = {};
    src.text(text, 12);
    d.values({CMN_SetByteParam(&conf, 0x0084, src.next()), CMN_SetWordParam(&conf, 0x0031, src.next16()),
              CMN_SetDWordParam(&conf, 0x0029, static_cast<unsigned int>(src.next16()) << 16 | 0x1234u),
              CMN_SetStrParam(&conf, 0x0010, text, 12), CMN_GetByteParam(&conf, 0x0084, &b),
              CMN_GetWordParam(&conf, 0x0031, &w), CMN_GetDWordParam(&conf, 0x0029, &dw), b, w, dw});
    d.values({CMN_GetDWordParam(&conf, 0x0031, &dw), CMN_GetByteParam(&conf, 0x0001, &b),
              CMN_GetWordParam(&conf, 0x0008, &w), CMN_GetDWordParam(nullptr, 0x0001, &dw),
              CMN_SetByteParam(&conf, 0x0001, 1), CMN_GetStrParam(&conf, 0x0010, text, sizeof text),
              CMN_GetStrParam(&conf, 0x0010, text, 0), b, w, dw});
    d.bytes(text, sizeof text);
    d.record(conf);
}

// --- Block codecs ----------------------------------------------------------------

// Wire to local into a block that starts from its defaults (or from zero),
// then local to wire, at the form's length and at one byte less (refused).
template <typename T, typename R1, typename R2, typename I = int>
void codec(Digest& d, Bytes& src, R1 (*b2l)(unsigned char*, unsigned char, T*),
           R2 (*l2b)(T*, unsigned char*, unsigned int), unsigned char len, I (*init)(T*) = nullptr) {
    for (unsigned char n : {len, static_cast<unsigned char>(len - 1)}) {
        T local{};
        if (init != nullptr) init(&local);
        Wire in;
        src.fill(in.at(), n);
        d.value(static_cast<long long>(b2l(in.at(), n, &local)));
        d.record(local);
        Wire out(0);
        d.value(static_cast<long long>(l2b(&local, out.at(), n)));
        d.bytes(out.mem, sizeof out.mem);
    }
}

template <typename T>
struct FormPair {
    int (*b2l)(unsigned char*, unsigned char, T*);
    int (*l2b)(T*, unsigned char*, unsigned int);
};

// The Subiao form, its CMN overload and the four regional forms, each at
// several lengths.
template <typename T, size_t N>
void forms(Digest& d, unsigned seed, const FormPair<T> (&pairs)[N], std::initializer_list<unsigned char> lens,
           int (*init)(T*)) {
    Bytes src(seed);
    for (unsigned char n : lens) {
        for (const FormPair<T>& f : pairs) codec<T>(d, src, f.b2l, f.l2b, n, init);
    }
    d.value(init(nullptr));
}

// clang-format off
constexpr FormPair<tagBB_PARAM_ADAS_SUBIAO_ST> kAdasForms[] = {
    {SubiaoAdas_B2LStruct, SubiaoAdas_LStruct2B}, {CMN_B2LStruct, CMN_LStruct2B},
    {SiChuan_B2LStruct, SiChuan_LStruct2B}, {GuangDongAdas_B2LStruct, GuangDongAdas_LStruct2B},
    {HunanAdas_B2LStruct, HunanAdas_LStruct2B}, {JiLingAdas_B2LStruct, JiLingAdas_LStruct2B}};
constexpr FormPair<tagBB_PARAM_DSM_SUBIAO_ST> kDsmForms[] = {
    {SubiaoDsm_B2LStruct, SubiaoDsm_LStruct2B}, {CMN_B2LStruct, CMN_LStruct2B},
    {SiChuan_B2LStruct, SiChuan_LStruct2B}, {GuangDongDsm_B2LStruct, GuangDongDsm_LStruct2B},
    {HunanDsm_B2LStruct, HunanDsm_LStruct2B}, {JiLingDsm_B2LStruct, JiLingDsm_LStruct2B}};
// clang-format on

void blocks_forms(unsigned seed, Digest& d) {
    forms(d, seed, kAdasForms, {56, 61, 64, 70, 72, 80}, __InitSubiaoAdasParam);
    forms(d, seed, kDsmForms, {49, 56, 64, 80, 100}, __InitSubiaoDsmParam);
}

void blocks(unsigned seed, Digest& d) {
    Bytes src(seed);
    codec<tagAV_ENC_PARAM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 21);
    codec<tagAV_INDIVIDUAL_SETTING_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 253);
    codec<tagBB_PARAM_NIGHT_SPEED_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightSpeedLmt);
    codec<tagBB_PARAM_NIGHT_MOVE_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightAbnormalMove);
    codec<tagBB_PARAM_NIGHT_TIRED_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 16, __InitNightTiredSetting);
    codec<tagBB_PARAM_DRIVER_IDENTIFY_ST>(d, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 22, __InitHljDriverIdentifyParam);
    codec<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST>(d, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 33, __InitHljAdasParam);
    codec<tagBB_PARAM_DSM_HEIBIAO_ST>(d, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 33, __InitHljDsmParam);
    codec<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST>(d, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 45, __InitHljDevFailParam);
    codec<tagBB_PARAM_VDS_XIANGBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 50, __InitXiangbiaoVdsParam);
    codec<tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 18,
                                                   __InitXiangbiaoDriverCaptureParam);
    tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST cmp{};
    d.value(__InitXiangbiaoDriverCmpParam(&cmp));
    d.record(cmp);
    codec<tagBB_PARAM_TPMS_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 36, __InitSubiaoTpmsParam);
    codec<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 56,
                                                 __InitSubiaoIntenseDriveParam);
    codec<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 18);
    codec<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 4);
    codec<tagBB_PARAM_ZT_ALARM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 42, __InitZhatuAlarmParam);
    codec<BB_DPX_ADAS_PARM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 16, CMN_Init_DPX_ADAS_Setting);
    codec<BB_DPX_DSM_PARAM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 32, CMN_Init_DPX_DSM_Setting);
    codec<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 37);
    tagBB_PARAM_BSD_SUBIAO_ST bsd{};
    _tagBB_PARAM_485AllDataFA_ST rs485{};
    d.values({CMN_Init_DPX_DSM_Setting(nullptr), __InitSubiaoBsdParam(&bsd), __InitQ8RS485InqureParam(&rs485)});
    d.record(bsd);
    d.record(rs485);

    // The alarm media codecs trust the length byte: keep it inside the
    // block's 64-byte data area.
    tagBB_ALARM_VIDEO_PHOTO_ST media{};
    Wire in;
    Wire out(0);
    src.fill(in.at(), 71);
    in.at()[4] = static_cast<unsigned char>(src.next() % 65);
    d.values({CMN_B2LStruct(in.at(), 71, &media), CMN_LStruct2B(&media, out.at(), 71)});
    d.record(media);
    d.bytes(out.mem, sizeof out.mem);
}

// --- Checksums, taxi record, copies and identity -------------------------------

constexpr IdCase kTaxiIds[] = {{0x0001, 4, false}, {0x0010, 20, true}, {0x0013, 40, true}, {0x0018, 4, false},
                               {0x001d, 4, false}, {0x0040, 11, true}, {0x004b, 1, false}, {0x0073, 2, false},
                               {0x0090, 1, true},  {0x0094, 5, true},  {0x00af, 2, false}, {0x00b1, 20, true},
                               {0x00b5, 4, false}, {0x0077, 4, false}, {0x0054, 4, false}, {0x0013, 64, true},
                               {0x0000, 4, false}, {0xf001, 4, false}};

void taxi_record(unsigned seed, Digest& d) {
    tagBBTAXI_CONF_ST taxi{};
    BBTAXI_InitToDefault(&taxi);
    Bytes src(seed);
    set_get_all(d, src, &taxi, kTaxiIds, BBTAXI_SetParam, BBTAXI_GetParam);
    unsigned char b = 0;
    unsigned short s = 0;
    unsigned int dw = 0;
    unsigned char text[8] = "abc";
    d.values({BBTAXI_UpdateCheckSum(&taxi), BBTAXI_VerifyCheckSum(&taxi), BBTAXI_SetParam(nullptr, 0x0001, text, 4),
              BBTAXI_GetParam(&taxi, 0x0001, nullptr, 4)});
    d.values({BBTAXI_SetByteParam(&taxi, 0x004b, src.next()), BBTAXI_GetByteParam(&taxi, 0x004b, &b),
              BBTAXI_SetWordParam(&taxi, 0x00af, src.next16()), BBTAXI_GetWordParam(&taxi, 0x00af, &s),
              BBTAXI_SetDWordParam(&taxi, 0x0001, src.next16()), BBTAXI_GetDWordParam(&taxi, 0x0001, &dw),
              BBTAXI_SetStrParam(&taxi, 0x0013, text, 3), BBTAXI_GetStrParam(&taxi, 0x0013, text, sizeof text), b, s,
              dw});
    d.bytes(text, sizeof text);
}

void tools(unsigned seed, Digest& d) {
    Bytes src(seed);
    unsigned char buf[600];
    src.fill(buf, sizeof buf);
    const unsigned int len = 100 + seed % 500;
    unsigned short crc = src.next16();
    unsigned short taxi_crc = crc;
    d.values({CMN_Get_CRC_CCITT(crc, buf, len), BBTAXI_Get_CRC_CCITT(crc, buf, len)});
    for (unsigned int i = 0; i < len; i++) {
        crc = __Cal_CRC_CCITT(crc, buf[i]);
        taxi_crc = BBTAXI_Cal_CRC_CCITT(taxi_crc, buf[i]);
    }
    d.values({crc, taxi_crc});
    unsigned char text[64];
    src.text(text, 40);
    const char* from = reinterpret_cast<const char*>(text);
    for (int size : {0, 1, 8, 41, 64}) {
        char dst[2][64];
        std::memset(dst, 0x7e, sizeof dst);
        d.value(strlcpy(dst[0], from, static_cast<unsigned int>(size)));
        String_copy(from, static_cast<int>(seed % 40), dst[1], size);
        d.bytes(dst, sizeof dst);
    }
    for (int size : {64, 2}) {
        char id[2][64] = {};
        GetDeviceTerminalType(id[0], size);
        GetDeviceFactoryId(id[1], size);
        d.bytes(id, sizeof id);
        unsigned char mac[16] = {};
        d.value(GetMacFormFile(mac, size == 2 ? 6 : 16));
        d.bytes(mac, sizeof mac);
    }
    GetDeviceFactoryId(nullptr, 8);
}

}  // namespace

// clang-format off
const Workload kWorkloads[] = {
    {"record_defaults", record_defaults}, {"record_set_get", record_set_get}, {"blocks_forms", blocks_forms},
    {"blocks", blocks}, {"taxi_record", taxi_record}, {"tools", tools}};
// clang-format on
const size_t kWorkloadCount = sizeof kWorkloads / sizeof kWorkloads[0];

}  // namespace bbtest
