// concurrency_test.cpp - calls on distinct records from several threads at
// once give exactly what the same calls give one after another: the library
// keeps no state of its own between calls (no static scratch buffers, no
// lazily filled tables).  Built with -DBBCONF_TSAN=ON, ThreadSanitizer also
// reports any shared write these workloads reach.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "bbconf.h"

namespace {

// Everything a workload produced, in call order: return values and the bytes
// of every buffer and record it touched.
class Trace {
  public:
    void value(long v) { bytes(&v, sizeof v); }
    void bytes(const void* p, size_t n) {
        const auto* b = static_cast<const unsigned char*>(p);
        data_.insert(data_.end(), b, b + n);
    }
    template <typename T>
    void record(const T& rec) {
        bytes(&rec, sizeof rec);
    }
    bool operator==(const Trace& o) const { return data_ == o.data_; }
    size_t size() const { return data_.size(); }

  private:
    std::vector<unsigned char> data_;
};

// Reproducible bytes per seed (xorshift32).
class Bytes {
  public:
    explicit Bytes(unsigned seed) : s_(seed * 2654435761u + 0x9e3779b9u) {}
    unsigned short next16() {
        const unsigned char high = next();
        return static_cast<unsigned short>(high << 8 | next());
    }
    unsigned char next() {
        s_ ^= s_ << 13;
        s_ ^= s_ >> 17;
        s_ ^= s_ << 5;
        return static_cast<unsigned char>(s_ >> 24);
    }
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

// Standard output goes to /dev/null while the object lives: the workloads
// print many diagnostic lines, from many threads.
class QuietStdout {
  public:
    QuietStdout() {
        std::fflush(stdout);
        saved_ = dup(STDOUT_FILENO);
        int null_fd = open("/dev/null", O_WRONLY);
        if (null_fd >= 0) {
            dup2(null_fd, STDOUT_FILENO);
            close(null_fd);
        }
    }
    ~QuietStdout() {
        std::fflush(stdout);
        if (saved_ >= 0) {
            dup2(saved_, STDOUT_FILENO);
            close(saved_);
        }
    }
    QuietStdout(const QuietStdout&) = delete;
    QuietStdout& operator=(const QuietStdout&) = delete;

  private:
    int saved_ = -1;
};

// --- Workloads on the terminal record ---------------------------------------

void record_defaults(unsigned seed, Trace& t) {
    tagBB_CONF_ST conf{};
    Bytes(seed).fill(reinterpret_cast<unsigned char*>(&conf), sizeof conf);  // the reset must wipe this
    CMN_InitBbConfToDefault(&conf);
    t.record(conf);
    t.value(CMN_UpdateCheckSum(&conf));
    t.value(CMN_VerifyCheckSum(&conf));
    void (*const profiles[])(tagBB_CONF_ST*) = {InitShenZhenPurnoBBParam, InitKelvoZtBBParam,
                                                 InitShenZhenTamsaBBParam, InitZhaTuBbParam,
                                                 InitGzZtBbParam,          InitKelvoZtShanXiBBParam};
    for (auto profile : profiles) {
        tagBB_CONF_ST copy = conf;
        profile(&copy);
        t.value(CMN_UpdateCheckSum(&copy));
    }
}

// One ID per value kind and per block that the dictionary routes, with the
// wire length a platform sends.  Text IDs get printable values shorter than
// their field, so every string in the record stays terminated.
struct IdCase {
    int id;
    int len;
    bool text;
};

constexpr IdCase kTerminalIds[] = {
    {0x0001, 4, false},   {0x0013, 40, true},   {0x0018, 4, false},   {0x0031, 2, false},
    {0x0040, 12, true},   {0x0055, 4, false},   {0x0075, 21, false},  {0x0076, 151, false},
    {0x0077, 253, false}, {0x0083, 7, true},    {0x0084, 1, false},   {0x0110, 8, false},
    {0x101a, 2, false},   {0x101e, 1, false},   {0x8620, 128, false}, {0x8f21, 46, false},
    {0xc223, 4, false},   {0xf001, 8, false},   {0xf002, 8, false},   {0xf0e9, 4, false},
    {0xf0ef, 18, false},  {0xf114, 8, false},   {0xf120, 20, true},   {0xf123, 30, true},
    {0xf364, 56, false},  {0xf365, 49, false},  {0xf366, 36, false},  {0xf367, 2, false},
    {0xf368, 50, false},  {0xf370, 56, false},  {0xf372, 18, false},  {0xf373, 4, false},
    {0xfe05, 20, true},   {0xfe10, 16, false},
};

// Get-only and text IDs on top of the ones above.
constexpr int kGetOnlyIds[] = {0x0026, 0xe138, 0xe139, 0xe140, 0xe141, 0xf3f0, 0xf400, 0xff01, 0xff02, 0xf441};

void record_set_get(unsigned seed, Trace& t) {
    tagBB_CONF_ST conf{};
    CMN_InitBbConfToDefault(&conf);
    Bytes src(seed);
    for (const IdCase& c : kTerminalIds) {
        Wire w;
        if (c.text) {
            src.text(w.at(), static_cast<size_t>(c.len));
        } else {
            src.fill(w.at(), static_cast<size_t>(c.len));
        }
        t.value(CMN_SetParam(&conf, c.id, w.at(), c.len));
    }
    t.record(conf);
    auto get = [&](int id) {
        Wire w(0);
        t.value(CMN_GetParam(&conf, id, w.at(), Wire::kRoom));
        t.bytes(w.mem, sizeof w.mem);
    };
    for (const IdCase& c : kTerminalIds) get(c.id);
    for (int id : kGetOnlyIds) get(id);
    t.value(CMN_UpdateCheckSum(&conf));
}

void record_typed(unsigned seed, Trace& t) {
    tagBB_CONF_ST conf{};
    CMN_InitBbConfToDefault(&conf);
    Bytes src(seed);
    unsigned char b = 0;
    unsigned short w = 0;
    unsigned int d = 0;
    t.value(CMN_SetByteParam(&conf, 0x0084, src.next()));
    t.value(CMN_SetWordParam(&conf, 0x0031, src.next16()));
    t.value(CMN_SetDWordParam(&conf, 0x0029, static_cast<unsigned int>(src.next16()) << 16 | 0x1234u));
    unsigned char text[32];
    src.text(text, 12);
    t.value(CMN_SetStrParam(&conf, 0x0010, text, 12));
    t.value(CMN_GetByteParam(&conf, 0x0084, &b));
    t.value(CMN_GetWordParam(&conf, 0x0031, &w));
    t.value(CMN_GetDWordParam(&conf, 0x0029, &d));
    t.value(CMN_GetDWordParam(&conf, 0x0031, &d));
    t.value(CMN_GetByteParam(&conf, 0x0001, &b));
    unsigned char out[64] = {};
    t.value(CMN_GetStrParam(&conf, 0x0010, out, sizeof out));
    t.value(b);
    t.value(w);
    t.value(d);
    t.bytes(out, sizeof out);
    t.record(conf);
}

template <typename T>
void copy_in_out(Trace& t, Bytes& src, tagBB_CONF_ST* conf, int (*set)(tagBB_CONF_ST*, T*),
                 int (*get)(tagBB_CONF_ST*, T*)) {
    T in{};
    T out{};
    src.fill(reinterpret_cast<unsigned char*>(&in), sizeof in);
    t.value(set(conf, &in));
    t.value(get(conf, &out));
    t.record(out);
}

void record_block_accessors(unsigned seed, Trace& t) {
    tagBB_CONF_ST conf{};
    Bytes src(seed);
    copy_in_out<tagAV_ENC_PARAM_ST>(t, src, &conf, CMN_SetGeneralAVEncParam, CMN_GetGeneralAVEncParam);
    copy_in_out<tagAV_CHANEL_LOOK_UP_ST>(t, src, &conf, CMN_SetAVChLookUpList, CMN_GetAVChLookUpList);
    copy_in_out<tagAV_INDIVIDUAL_SETTING_ST>(t, src, &conf, CMN_SetAVIndSetting, CMN_GetAVIndSetting);
    copy_in_out<tagSPECIAL_ALARM_REC_PARAM_ST>(t, src, &conf, CMN_SetSpecialAlarmParam, CMN_GetSpecialAlarmParam);
    copy_in_out<tagVIDEO_ANALYSE_PARAM_ST>(t, src, &conf, CMN_SetVideoAlnalyseParam, CMN_GetVideoAlnalyseParam);
    copy_in_out<tagWAKEUP_MODE_PARAM_ST>(t, src, &conf, CMN_SetWakeUpModeParam, CMN_GetWakeUpModeParam);
    copy_in_out<tagBB_PARAM_NIGHT_SPEED_ST>(t, src, &conf, CMN_SetNightSpeedLmt, CMN_GetNightSpeedLmt);
    copy_in_out<tagBB_PARAM_NIGHT_MOVE_ST>(t, src, &conf, CMN_SetNightAbnormalMove, CMN_GetNightAbnormalMove);
    copy_in_out<tagBB_PARAM_NIGHT_TIRED_ST>(t, src, &conf, CMN_SetNightTiredSetting, CMN_GetNightTiredSetting);
    t.record(conf);
}

// --- Block codecs ------------------------------------------------------------

// Wire to local into a record that starts from its defaults (or from zero),
// then local to wire; len is the form's length and also the buffer length.
template <typename T, typename R1, typename R2, typename I>
void codec(Trace& t, Bytes& src, R1 (*b2l)(unsigned char*, unsigned char, T*),
           R2 (*l2b)(T*, unsigned char*, unsigned int), unsigned char len, I (*init)(T*) = nullptr) {
    T local{};
    if (init != nullptr) init(&local);
    Wire in;
    src.fill(in.at(), len);
    t.value(static_cast<long>(b2l(in.at(), len, &local)));
    t.record(local);
    Wire out(0);
    t.value(static_cast<long>(l2b(&local, out.at(), len)));
    t.bytes(out.mem, sizeof out.mem);
}

template <typename T, typename R1, typename R2>
void codec(Trace& t, Bytes& src, R1 (*b2l)(unsigned char*, unsigned char, T*),
           R2 (*l2b)(T*, unsigned char*, unsigned int), unsigned char len) {
    codec<T, R1, R2, int>(t, src, b2l, l2b, len, nullptr);
}

void blocks_video_night(unsigned seed, Trace& t) {
    Bytes src(seed);
    codec<tagAV_ENC_PARAM_ST>(t, src, CMN_B2LStruct, CMN_LStruct2B, 21);
    codec<tagAV_INDIVIDUAL_SETTING_ST>(t, src, CMN_B2LStruct, CMN_LStruct2B, 253);
    codec<tagBB_PARAM_NIGHT_SPEED_ST, int, int, void>(t, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightSpeedLmt);
    codec<tagBB_PARAM_NIGHT_MOVE_ST, int, int, void>(t, src, CMN_B2LStruct, CMN_LStruct2B, 8, __InitNightAbnormalMove);
    codec<tagBB_PARAM_NIGHT_TIRED_ST, int, int, void>(t, src, CMN_B2LStruct, CMN_LStruct2B, 16,
                                                      __InitNightTiredSetting);
}

void blocks_adas(unsigned seed, Trace& t) {
    using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;
    Bytes src(seed);
    codec<Adas, int, int, int>(t, src, SubiaoAdas_B2LStruct, SubiaoAdas_LStruct2B, 56, __InitSubiaoAdasParam);
    codec<Adas, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 56, __InitSubiaoAdasParam);
    for (unsigned char len : {61, 64, 70, 72, 80}) {
        codec<Adas, int, int, int>(t, src, SiChuan_B2LStruct, SiChuan_LStruct2B, len, __InitSubiaoAdasParam);
        codec<Adas, int, int, int>(t, src, GuangDongAdas_B2LStruct, GuangDongAdas_LStruct2B, len,
                                   __InitSubiaoAdasParam);
        codec<Adas, int, int, int>(t, src, HunanAdas_B2LStruct, HunanAdas_LStruct2B, len, __InitSubiaoAdasParam);
        codec<Adas, int, int, int>(t, src, JiLingAdas_B2LStruct, JiLingAdas_LStruct2B, len, __InitSubiaoAdasParam);
    }
}

void blocks_dsm(unsigned seed, Trace& t) {
    using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;
    Bytes src(seed);
    codec<Dsm, int, int, int>(t, src, SubiaoDsm_B2LStruct, SubiaoDsm_LStruct2B, 49, __InitSubiaoDsmParam);
    codec<Dsm, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 49, __InitSubiaoDsmParam);
    for (unsigned char len : {49, 56, 64, 80, 100}) {
        codec<Dsm, int, int, int>(t, src, SiChuan_B2LStruct, SiChuan_LStruct2B, len, __InitSubiaoDsmParam);
        codec<Dsm, int, int, int>(t, src, GuangDongDsm_B2LStruct, GuangDongDsm_LStruct2B, len, __InitSubiaoDsmParam);
        codec<Dsm, int, int, int>(t, src, HunanDsm_B2LStruct, HunanDsm_LStruct2B, len, __InitSubiaoDsmParam);
        codec<Dsm, int, int, int>(t, src, JiLingDsm_B2LStruct, JiLingDsm_LStruct2B, len, __InitSubiaoDsmParam);
    }
}

void blocks_regional(unsigned seed, Trace& t) {
    Bytes src(seed);
    codec<tagBB_PARAM_DRIVER_IDENTIFY_ST, int, int, int>(t, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 22,
                                                         __InitHljDriverIdentifyParam);
    codec<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST, int, int, int>(t, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 33,
                                                                 __InitHljAdasParam);
    codec<tagBB_PARAM_DSM_HEIBIAO_ST, int, int, int>(t, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 33,
                                                     __InitHljDsmParam);
    codec<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, int, int, int>(t, src, CMN_HljB2LStruct, CMN_HljLStruct2B, 45,
                                                                __InitHljDevFailParam);
    codec<tagBB_PARAM_VDS_XIANGBIAO_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 50,
                                                       __InitXiangbiaoVdsParam);
    codec<tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 18,
                                                                  __InitXiangbiaoDriverCaptureParam);
    tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST cmp{};
    t.value(__InitXiangbiaoDriverCmpParam(&cmp));
    t.record(cmp);
}

void blocks_vehicle(unsigned seed, Trace& t) {
    Bytes src(seed);
    codec<tagBB_PARAM_TPMS_SUBIAO_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 36,
                                                     __InitSubiaoTpmsParam);
    codec<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 56,
                                                                __InitSubiaoIntenseDriveParam);
    codec<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(t, src, CMN_B2LStruct, CMN_LStruct2B, 18);
    codec<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(t, src, CMN_B2LStruct, CMN_LStruct2B, 4);
    codec<tagBB_PARAM_ZT_ALARM_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 42, __InitZhatuAlarmParam);
    codec<BB_DPX_ADAS_PARM_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 16, CMN_Init_DPX_ADAS_Setting);
    codec<BB_DPX_DSM_PARAM_ST, int, int, int>(t, src, CMN_B2LStruct, CMN_LStruct2B, 32, CMN_Init_DPX_DSM_Setting);
    codec<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(t, src, CMN_B2LStruct, CMN_LStruct2B, 37);
    tagBB_PARAM_BSD_SUBIAO_ST bsd{};
    t.value(__InitSubiaoBsdParam(&bsd));
    t.record(bsd);
    _tagBB_PARAM_485AllDataFA_ST rs485{};
    t.value(__InitQ8RS485InqureParam(&rs485));
    t.record(rs485);

    // The alarm media codecs trust the length byte: keep it inside the
    // block's 64-byte data area.
    tagBB_ALARM_VIDEO_PHOTO_ST media{};
    Wire in;
    src.fill(in.at(), 71);
    in.at()[4] = static_cast<unsigned char>(src.next() % 65);
    t.value(CMN_B2LStruct(in.at(), 71, &media));
    t.record(media);
    Wire out(0);
    t.value(CMN_LStruct2B(&media, out.at(), 71));
    t.bytes(out.mem, sizeof out.mem);
}

// --- Checksums, taxi record, copies and identity -------------------------------

void checksums(unsigned seed, Trace& t) {
    Bytes src(seed);
    unsigned char buf[600];
    src.fill(buf, sizeof buf);
    const unsigned int len = 100 + seed % 500;
    const unsigned short init = src.next16();
    t.value(CMN_Get_CRC_CCITT(init, buf, len));
    t.value(BBTAXI_Get_CRC_CCITT(init, buf, len));
    unsigned short crc = init;
    unsigned short taxi_crc = init;
    for (unsigned int i = 0; i < len; i++) {
        crc = __Cal_CRC_CCITT(crc, buf[i]);
        taxi_crc = BBTAXI_Cal_CRC_CCITT(taxi_crc, buf[i]);
    }
    t.value(crc);
    t.value(taxi_crc);
}

constexpr IdCase kTaxiIds[] = {
    {0x0001, 4, false}, {0x0010, 20, true}, {0x0013, 40, true}, {0x0018, 4, false}, {0x001d, 4, false},
    {0x0040, 11, true}, {0x004b, 1, false}, {0x0073, 2, false}, {0x0090, 1, true},  {0x0094, 5, true},
    {0x00af, 2, false}, {0x00b1, 20, true}, {0x00b5, 4, false}, {0x0077, 4, false}, {0x0054, 4, false},
};

void taxi_record(unsigned seed, Trace& t) {
    tagBBTAXI_CONF_ST taxi{};
    BBTAXI_InitToDefault(&taxi);
    Bytes src(seed);
    for (const IdCase& c : kTaxiIds) {
        Wire w;
        if (c.text) {
            src.text(w.at(), static_cast<size_t>(c.len));
        } else {
            src.fill(w.at(), static_cast<size_t>(c.len));
        }
        t.value(BBTAXI_SetParam(&taxi, c.id, w.at(), c.len));
    }
    for (const IdCase& c : kTaxiIds) {
        Wire w(0);
        t.value(BBTAXI_GetParam(&taxi, c.id, w.at(), Wire::kRoom));
        t.bytes(w.mem, sizeof w.mem);
    }
    t.record(taxi);
    t.value(BBTAXI_UpdateCheckSum(&taxi));
    t.value(BBTAXI_VerifyCheckSum(&taxi));
    t.value(BBTAXI_Get_CRC_CCITT(0xffff, reinterpret_cast<unsigned char*>(&taxi), sizeof taxi));
}

void copies_and_identity(unsigned seed, Trace& t) {
    Bytes src(seed);
    unsigned char text[64];
    src.text(text, 40);
    for (int size : {1, 8, 41, 64}) {
        char dst[64];
        std::memset(dst, 0x7e, sizeof dst);
        t.value(strlcpy(dst, reinterpret_cast<const char*>(text), static_cast<unsigned int>(size)));
        t.bytes(dst, sizeof dst);
        std::memset(dst, 0x7e, sizeof dst);
        String_copy(reinterpret_cast<const char*>(text), static_cast<int>(seed % 40), dst, size);
        t.bytes(dst, sizeof dst);
    }
    char id[64] = {};
    GetDeviceTerminalType(id, sizeof id);
    t.bytes(id, sizeof id);
    std::memset(id, 0, sizeof id);
    GetDeviceFactoryId(id, sizeof id);
    t.bytes(id, sizeof id);
    unsigned char mac[16] = {};
    t.value(GetMacFormFile(mac, sizeof mac));
    t.bytes(mac, sizeof mac);
}

struct Workload {
    const char* name;
    void (*run)(unsigned seed, Trace& t);
};

constexpr Workload kWorkloads[] = {
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
constexpr size_t kWorkloadCount = sizeof kWorkloads / sizeof kWorkloads[0];

constexpr unsigned kThreads = 4;
constexpr unsigned kSeeds = 8;
constexpr unsigned kRounds = 6;

Trace run_once(size_t workload, unsigned seed) {
    Trace t;
    kWorkloads[workload].run(seed, t);
    return t;
}

TEST(Concurrency, WorkloadsAreReproducible) {
    // The comparison below is only meaningful if one thread alone gets the
    // same trace twice and different seeds give different inputs.
    QuietStdout quiet;
    for (size_t w = 0; w < kWorkloadCount; w++) {
        SCOPED_TRACE(kWorkloads[w].name);
        const Trace first = run_once(w, 3);
        EXPECT_GT(first.size(), 0u);
        EXPECT_TRUE(first == run_once(w, 3));
    }
}

TEST(Concurrency, ThreadsOnDistinctRecordsMatchSingleThreaded) {
    QuietStdout quiet;
    std::vector<std::vector<Trace>> expected(kWorkloadCount);
    for (size_t w = 0; w < kWorkloadCount; w++) {
        for (unsigned s = 0; s < kSeeds; s++) expected[w].push_back(run_once(w, s));
    }

    std::atomic<unsigned> ready{0};
    std::vector<std::vector<std::string>> mismatches(kThreads);
    std::vector<std::thread> threads;
    for (unsigned id = 0; id < kThreads; id++) {
        threads.emplace_back([&, id] {
            ready.fetch_add(1);
            while (ready.load() < kThreads) std::this_thread::yield();
            // Each thread walks the workloads from a different starting
            // point, so different codecs overlap in time.
            for (unsigned round = 0; round < kRounds; round++) {
                for (size_t i = 0; i < kWorkloadCount; i++) {
                    const size_t w = (i + id * 3 + round) % kWorkloadCount;
                    for (unsigned s = id; s < kSeeds; s += kThreads) {
                        if (!(run_once(w, s) == expected[w][s])) {
                            mismatches[id].push_back(std::string(kWorkloads[w].name) + " seed " + std::to_string(s));
                        }
                    }
                }
            }
        });
    }
    for (auto& th : threads) th.join();

    for (unsigned id = 0; id < kThreads; id++) {
        EXPECT_TRUE(mismatches[id].empty()) << "thread " << id << " first differs in " << mismatches[id].front();
    }
}

}  // namespace
