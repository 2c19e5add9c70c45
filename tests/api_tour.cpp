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
    // n printable characters, NUL-terminated.
    void text(unsigned char* p, size_t n) {
        for (size_t i = 0; i < n; i++) p[i] = static_cast<unsigned char>('A' + next() % 26);
        p[n] = 0;
    }

  private:
    uint32_t s_;
};

// A wire buffer with readable, initialised room on both sides of the wire
// pointer: the ADAS codecs log the form's length of bytes in front of it,
// and the trusting codecs move up to L + 7 bytes behind it.
struct Wire {
    unsigned char mem[1024];
    static constexpr int kFront = 256;
    static constexpr int kRoom = 1024 - kFront;
    explicit Wire(unsigned char fill = 0x5a) { std::memset(mem, fill, sizeof mem); }
    unsigned char* at() { return mem + kFront; }
};

// A wire value of a dictionary ID: text IDs get printable values shorter
// than their field, so every string in the record stays terminated.
struct IdCase {
    int id;
    int len;
    bool text;
};

template <typename Rec, typename Set>
void set_all(Digest& d, Bytes& src, Rec* rec, const IdCase* ids, size_t n, Set set) {
    for (size_t i = 0; i < n; i++) {
        Wire w;
        if (ids[i].text) {
            src.text(w.at(), static_cast<size_t>(ids[i].len));
        } else {
            src.fill(w.at(), static_cast<size_t>(ids[i].len));
        }
        d.value(set(rec, ids[i].id, w.at(), ids[i].len));
    }
}

template <typename Rec, typename Get>
void get_one(Digest& d, Rec* rec, int id, Get get) {
    Wire w(0);
    d.value(get(rec, id, w.at(), Wire::kRoom));
    d.bytes(w.mem, sizeof w.mem);
}

// --- The terminal record ------------------------------------------------------

void record_defaults(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    Bytes(seed).fill(reinterpret_cast<unsigned char*>(&conf), sizeof conf);  // the reset must wipe this
    CMN_InitBbConfToDefault(&conf);
    d.record(conf);
    d.values({CMN_UpdateCheckSum(&conf), CMN_VerifyCheckSum(&conf)});
    void (*const profiles[])(tagBB_CONF_ST*) = {InitShenZhenPurnoBBParam, InitKelvoZtBBParam, InitShenZhenTamsaBBParam,
                                                InitZhaTuBbParam,         InitGzZtBbParam,    InitKelvoZtShanXiBBParam};
    for (auto profile : profiles) {
        tagBB_CONF_ST copy = conf;
        profile(&copy);
        d.value(CMN_UpdateCheckSum(&copy));
    }
    CMN_InitBbConfToDefault(nullptr);
    d.value(CMN_UpdateCheckSum(nullptr));
}

// One ID per value kind and per block that the dictionary routes, with the
// wire length a platform sends.
constexpr IdCase kTerminalIds[] = {
    {0x0001, 4, false},  {0x0013, 40, true},  {0x0018, 4, false},   {0x0031, 2, false},   {0x0040, 12, true},
    {0x0055, 4, false},  {0x0075, 21, false}, {0x0076, 151, false}, {0x0077, 253, false}, {0x0083, 7, true},
    {0x0084, 1, false},  {0x0110, 8, false},  {0x101a, 2, false},   {0x101e, 1, false},   {0x8620, 128, false},
    {0x8f21, 46, false}, {0xc223, 4, false},  {0xf001, 8, false},   {0xf002, 8, false},   {0xf0e9, 4, false},
    {0xf0ef, 18, false}, {0xf114, 8, false},  {0xf120, 20, true},   {0xf123, 30, true},   {0xf364, 56, false},
    {0xf365, 49, false}, {0xf366, 36, false}, {0xf367, 2, false},   {0xf368, 50, false},  {0xf370, 56, false},
    {0xf372, 18, false}, {0xf373, 4, false},  {0xfe05, 20, true},   {0xfe10, 16, false},
};

// Get-only IDs, and IDs and lengths that are refused.
constexpr int kGetOnlyIds[] = {0x0026, 0xe138, 0xe139, 0xe140, 0xe141, 0xf3f0, 0xf400, 0xff01, 0xff02, 0xf441};
constexpr IdCase kRefused[] = {
    {0x0000, 4, false}, {0xffff, 4, false},  {0x0008, 4, false},   {0x10000, 4, false},
    {0x0010, 32, true}, {0x0010, -1, false}, {0xf365, 131, false}, {0x0010, 0, false},
};

void record_set_get(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    CMN_InitBbConfToDefault(&conf);
    Bytes src(seed);
    set_all(d, src, &conf, kTerminalIds, sizeof kTerminalIds / sizeof kTerminalIds[0], CMN_SetParam);
    d.record(conf);
    for (const IdCase& c : kTerminalIds) get_one(d, &conf, c.id, CMN_GetParam);
    for (int id : kGetOnlyIds) get_one(d, &conf, id, CMN_GetParam);
    d.value(CMN_UpdateCheckSum(&conf));

    Wire w;
    for (const IdCase& c : kRefused) {
        d.value(CMN_SetParam(&conf, c.id, w.at(), c.len));
        d.value(CMN_GetParam(&conf, c.id, w.at(), c.len));
    }
    d.values({CMN_SetParam(&conf, 0x0001, nullptr, 4), CMN_SetParam(nullptr, 0x0001, w.at(), 4),
              CMN_GetParam(&conf, 0x0001, nullptr, 4), CMN_GetParam(nullptr, 0x0001, w.at(), 4)});
    d.record(conf);
}

void record_typed(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    CMN_InitBbConfToDefault(&conf);
    Bytes src(seed);
    unsigned char b = 0;
    unsigned short w = 0;
    unsigned int dw = 0;
    unsigned char text[32];
    src.text(text, 12);
    d.values({CMN_SetByteParam(&conf, 0x0084, src.next()), CMN_SetWordParam(&conf, 0x0031, src.next16()),
              CMN_SetDWordParam(&conf, 0x0029, static_cast<unsigned int>(src.next16()) << 16 | 0x1234u),
              CMN_SetStrParam(&conf, 0x0010, text, 12), CMN_GetByteParam(&conf, 0x0084, &b),
              CMN_GetWordParam(&conf, 0x0031, &w), CMN_GetDWordParam(&conf, 0x0029, &dw), b, w, dw});
    // Failures: too wide for the variable, unknown, no record, no room.
    d.values({CMN_GetDWordParam(&conf, 0x0031, &dw), CMN_GetByteParam(&conf, 0x0001, &b),
              CMN_GetWordParam(&conf, 0x0008, &w), CMN_GetDWordParam(nullptr, 0x0001, &dw),
              CMN_SetByteParam(&conf, 0x0001, 1)});
    unsigned char out[64] = {};
    d.values({CMN_GetStrParam(&conf, 0x0010, out, sizeof out), CMN_GetStrParam(&conf, 0x0010, out, 0), b, w, dw});
    d.bytes(out, sizeof out);
    d.record(conf);
}

template <typename T>
void copy_in_out(Digest& d, Bytes& src, tagBB_CONF_ST* conf, int (*set)(tagBB_CONF_ST*, T*),
                 int (*get)(tagBB_CONF_ST*, T*)) {
    T in{};
    T out{};
    src.fill(reinterpret_cast<unsigned char*>(&in), sizeof in);
    d.values({set(conf, &in), get(conf, &out), set(nullptr, &in), get(conf, nullptr)});
    d.record(out);
}

void record_block_accessors(unsigned seed, Digest& d) {
    tagBB_CONF_ST conf{};
    Bytes src(seed);
    copy_in_out<tagAV_ENC_PARAM_ST>(d, src, &conf, CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam);
    copy_in_out<tagAV_CHANEL_LOOK_UP_ST>(d, src, &conf, CMN_SetAVChLookUpList, CMN_GetAVChLookUpList);
    copy_in_out<tagAV_INDIVIDUAL_SETTING_ST>(d, src, &conf, CMN_SetAVIndSetting, CMN_GetAVIndSetting);
    copy_in_out<tagSPECIAL_ALARM_REC_PARAM_ST>(d, src, &conf, CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam);
    copy_in_out<tagVIDEO_ANALYSE_PARAM_ST>(d, src, &conf, CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam);
    copy_in_out<tagWAKEUP_MODE_PARAM_ST>(d, src, &conf, CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam);
    copy_in_out<tagBB_PARAM_NIGHT_SPEED_ST>(d, src, &conf, CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt);
    copy_in_out<tagBB_PARAM_NIGHT_MOVE_ST>(d, src, &conf, CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove);
    copy_in_out<tagBB_PARAM_NIGHT_TIRED_ST>(d, src, &conf, CMN_SetNightTiredSetting, CMN_GetNightTiredSetting);
    d.record(conf);
}

// --- Block codecs ----------------------------------------------------------------

// Wire to local into a block that starts from its defaults (or from zero),
// then local to wire; len is the form's length and the buffer length.  The
// same with one byte less runs the refusing paths.
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

void blocks_video_night(unsigned seed, Digest& d) {
    Bytes src(seed);
    codec<tagAV_ENC_PARAM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 21);
    codec<tagAV_INDIVIDUAL_SETTING_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 253);
    codec<tagBB_PARAM_NIGHT_SPEED_ST, int, int, void>(d, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightSpeedLmt);
    codec<tagBB_PARAM_NIGHT_MOVE_ST, int, int, void>(d, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightAbnormalMove);
    codec<tagBB_PARAM_NIGHT_TIRED_ST, int, int, void>(d, src, CMN_B2LStruct, CMN_LStruct2B, 16,
                                                      __InitNightTiredSetting);
}

// The Subiao form and its CMN overload at the form's length, then the four
// regional forms at several lengths.
template <typename T>
struct FormPair {
    int (*b2l)(unsigned char*, unsigned char, T*);
    int (*l2b)(T*, unsigned char*, unsigned int);
};

template <typename T>
void forms(Digest& d, unsigned seed, const FormPair<T> (&own)[2], const FormPair<T> (&regional)[4], unsigned char len,
           std::initializer_list<unsigned char> lens, int (*init)(T*)) {
    Bytes src(seed);
    for (const FormPair<T>& f : own) codec<T>(d, src, f.b2l, f.l2b, len, init);
    for (unsigned char n : lens) {
        for (const FormPair<T>& f : regional) codec<T>(d, src, f.b2l, f.l2b, n, init);
    }
}

void blocks_adas(unsigned seed, Digest& d) {
    forms<tagBB_PARAM_ADAS_SUBIAO_ST>(d, seed,
                                      {{SubiaoAdas_B2LStruct, SubiaoAdas_LStruct2B}, {CMN_B2LStruct, CMN_LStruct2B}},
                                      {{SiChuan_B2LStruct, SiChuan_LStruct2B},
                                       {GuangDongAdas_B2LStruct, GuangDongAdas_LStruct2B},
                                       {HunanAdas_B2LStruct, HunanAdas_LStruct2B},
                                       {JiLingAdas_B2LStruct, JiLingAdas_LStruct2B}},
                                      56, {61, 64, 70, 72, 80}, __InitSubiaoAdasParam);
    d.value(__InitSubiaoAdasParam(nullptr));
}

void blocks_dsm(unsigned seed, Digest& d) {
    forms<tagBB_PARAM_DSM_SUBIAO_ST>(d, seed,
                                     {{SubiaoDsm_B2LStruct, SubiaoDsm_LStruct2B}, {CMN_B2LStruct, CMN_LStruct2B}},
                                     {{SiChuan_B2LStruct, SiChuan_LStruct2B},
                                      {GuangDongDsm_B2LStruct, GuangDongDsm_LStruct2B},
                                      {HunanDsm_B2LStruct, HunanDsm_LStruct2B},
                                      {JiLingDsm_B2LStruct, JiLingDsm_LStruct2B}},
                                     49, {49, 56, 64, 80, 100}, __InitSubiaoDsmParam);
}

void blocks_regional(unsigned seed, Digest& d) {
    Bytes src(seed);
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
}

void blocks_vehicle(unsigned seed, Digest& d) {
    Bytes src(seed);
    codec<tagBB_PARAM_TPMS_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 36, __InitSubiaoTpmsParam);
    codec<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 56,
                                                 __InitSubiaoIntenseDriveParam);
    codec<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 18);
    codec<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 4);
    codec<tagBB_PARAM_ZT_ALARM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 42, __InitZhatuAlarmParam);
    codec<BB_DPX_ADAS_PARM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 16, CMN_Init_DPX_ADAS_Setting);
    codec<BB_DPX_DSM_PARAM_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 32, CMN_Init_DPX_DSM_Setting);
    codec<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(d, src, CMN_B2LStruct, CMN_LStruct2B, 37);
    d.value(CMN_Init_DPX_DSM_Setting(nullptr));
    tagBB_PARAM_BSD_SUBIAO_ST bsd{};
    d.value(__InitSubiaoBsdParam(&bsd));
    d.record(bsd);
    _tagBB_PARAM_485AllDataFA_ST rs485{};
    d.value(__InitQ8RS485InqureParam(&rs485));
    d.record(rs485);

    // The alarm media codecs trust the length byte: keep it inside the
    // block's 64-byte data area.
    tagBB_ALARM_VIDEO_PHOTO_ST media{};
    Wire in;
    src.fill(in.at(), 71);
    in.at()[4] = static_cast<unsigned char>(src.next() % 65);
    d.value(CMN_B2LStruct(in.at(), 71, &media));
    d.record(media);
    Wire out(0);
    d.value(CMN_LStruct2B(&media, out.at(), 71));
    d.bytes(out.mem, sizeof out.mem);
}

// --- Checksums, taxi record, copies and identity -------------------------------

void checksums(unsigned seed, Digest& d) {
    Bytes src(seed);
    unsigned char buf[600];
    src.fill(buf, sizeof buf);
    const unsigned int len = 100 + seed % 500;
    const unsigned short init = src.next16();
    d.values({CMN_Get_CRC_CCITT(init, buf, len), BBTAXI_Get_CRC_CCITT(init, buf, len)});
    unsigned short crc = init;
    unsigned short taxi_crc = init;
    for (unsigned int i = 0; i < len; i++) {
        crc = __Cal_CRC_CCITT(crc, buf[i]);
        taxi_crc = BBTAXI_Cal_CRC_CCITT(taxi_crc, buf[i]);
    }
    d.values({crc, taxi_crc});
}

constexpr IdCase kTaxiIds[] = {
    {0x0001, 4, false}, {0x0010, 20, true}, {0x0013, 40, true}, {0x0018, 4, false}, {0x001d, 4, false},
    {0x0040, 11, true}, {0x004b, 1, false}, {0x0073, 2, false}, {0x0090, 1, true},  {0x0094, 5, true},
    {0x00af, 2, false}, {0x00b1, 20, true}, {0x00b5, 4, false}, {0x0077, 4, false}, {0x0054, 4, false},
    {0x0013, 64, true}, {0x0000, 4, false}, {0xf001, 4, false},
};

void taxi_record(unsigned seed, Digest& d) {
    tagBBTAXI_CONF_ST taxi{};
    BBTAXI_InitToDefault(&taxi);
    Bytes src(seed);
    set_all(d, src, &taxi, kTaxiIds, sizeof kTaxiIds / sizeof kTaxiIds[0], BBTAXI_SetParam);
    for (const IdCase& c : kTaxiIds) get_one(d, &taxi, c.id, BBTAXI_GetParam);
    d.record(taxi);
    Wire w;
    d.values({BBTAXI_UpdateCheckSum(&taxi), BBTAXI_VerifyCheckSum(&taxi),
              BBTAXI_Get_CRC_CCITT(0xffff, reinterpret_cast<unsigned char*>(&taxi), sizeof taxi),
              BBTAXI_SetParam(nullptr, 0x0001, w.at(), 4), BBTAXI_GetParam(&taxi, 0x0001, nullptr, 4)});

    unsigned char b = 0;
    unsigned short s = 0;
    unsigned int dw = 0;
    unsigned char text[8] = "abc";
    d.values({BBTAXI_SetByteParam(&taxi, 0x004b, src.next()), BBTAXI_GetByteParam(&taxi, 0x004b, &b),
              BBTAXI_SetWordParam(&taxi, 0x00af, src.next16()), BBTAXI_GetWordParam(&taxi, 0x00af, &s),
              BBTAXI_SetDWordParam(&taxi, 0x0001, src.next16()), BBTAXI_GetDWordParam(&taxi, 0x0001, &dw),
              BBTAXI_SetStrParam(&taxi, 0x0013, text, 3), BBTAXI_GetStrParam(&taxi, 0x0013, text, sizeof text), b, s,
              dw});
    d.bytes(text, sizeof text);
}

void copies_and_identity(unsigned seed, Digest& d) {
    Bytes src(seed);
    unsigned char text[64];
    src.text(text, 40);
    for (int size : {0, 1, 8, 41, 64}) {
        char dst[64];
        std::memset(dst, 0x7e, sizeof dst);
        d.value(strlcpy(dst, reinterpret_cast<const char*>(text), static_cast<unsigned int>(size)));
        d.bytes(dst, sizeof dst);
        std::memset(dst, 0x7e, sizeof dst);
        String_copy(reinterpret_cast<const char*>(text), static_cast<int>(seed % 40), dst, size);
        d.bytes(dst, sizeof dst);
    }
    for (int size : {64, 2}) {
        char id[64] = {};
        GetDeviceTerminalType(id, size);
        d.bytes(id, sizeof id);
        std::memset(id, 0, sizeof id);
        GetDeviceFactoryId(id, size);
        d.bytes(id, sizeof id);
    }
    GetDeviceFactoryId(nullptr, 8);
    for (int size : {16, 6}) {
        unsigned char mac[16] = {};
        d.value(GetMacFormFile(mac, size));
        d.bytes(mac, sizeof mac);
    }
}

}  // namespace

const Workload kWorkloads[] = {
    {"record_defaults", record_defaults},
    {"record_set_get", record_set_get},
    {"record_typed", record_typed},
    {"record_block_accessors", record_block_accessors},
    {"blocks_video_night", blocks_video_night},
    {"blocks_adas", blocks_adas},
    {"blocks_dsm", blocks_dsm},
    {"blocks_regional", blocks_regional},
    {"blocks_vehicle", blocks_vehicle},
    {"checksums", checksums},
    {"taxi_record", taxi_record},
    {"copies_and_identity", copies_and_identity},
};
const size_t kWorkloadCount = sizeof kWorkloads / sizeof kWorkloads[0];

}  // namespace bbtest
