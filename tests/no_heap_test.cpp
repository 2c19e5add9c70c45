// no_heap_test.cpp - no library call allocates.  Every exported function runs
// under an allocation counter, on its normal paths and on the failing paths
// that print diagnostic lines.
//
// The counter: in a plain build this test program defines malloc, calloc,
// realloc, free and the aligned allocators itself, forwarding to glibc's
// __libc_* entry points, so every allocation of the process (operator new,
// stdio, the library) passes through here.  Under AddressSanitizer or
// ThreadSanitizer the sanitizer owns malloc; the counter is then a malloc
// hook of the sanitizer runtime instead.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <stddef.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bbconf.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define BBTEST_SANITIZER_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || __has_feature(memory_sanitizer)
#define BBTEST_SANITIZER_ALLOCATOR 1
#endif
#endif

namespace {

std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};

inline void note_allocation() {
    if (g_counting.load(std::memory_order_relaxed)) g_allocations.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace

#ifdef BBTEST_SANITIZER_ALLOCATOR

extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc_hook)(const volatile void*, size_t),
                                                         void (*free_hook)(const volatile void*));

namespace {
void on_malloc(const volatile void*, size_t) { note_allocation(); }
void on_free(const volatile void*) {}

bool counter_ready() {
    static const bool installed = __sanitizer_install_malloc_and_free_hooks(on_malloc, on_free) != 0;
    return installed;
}
}  // namespace

#else

extern "C" {
void* __libc_malloc(size_t size) noexcept;
void* __libc_calloc(size_t count, size_t size) noexcept;
void* __libc_realloc(void* ptr, size_t size) noexcept;
void* __libc_memalign(size_t alignment, size_t size) noexcept;
void __libc_free(void* ptr) noexcept;

void* malloc(size_t size) noexcept {
    note_allocation();
    return __libc_malloc(size);
}
void* calloc(size_t count, size_t size) noexcept {
    note_allocation();
    return __libc_calloc(count, size);
}
void* realloc(void* ptr, size_t size) noexcept {
    note_allocation();
    return __libc_realloc(ptr, size);
}
void* memalign(size_t alignment, size_t size) noexcept {
    note_allocation();
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(size_t alignment, size_t size) noexcept {
    note_allocation();
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** out, size_t alignment, size_t size) noexcept {
    note_allocation();
    if (alignment < sizeof(void*) || (alignment & (alignment - 1)) != 0) return 22;  // EINVAL
    void* p = __libc_memalign(alignment, size);
    if (p == nullptr) return 12;  // ENOMEM
    *out = p;
    return 0;
}
void free(void* ptr) noexcept { __libc_free(ptr); }
}

namespace {
bool counter_ready() { return true; }
}  // namespace

#endif

namespace {

// Standard output goes to /dev/null while the object lives.  Its buffer is
// allocated here, once, by a first line: stdio allocates on first use, and
// that is not the library's doing.
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
        std::printf("stdout in use: %d %s %#x\n", 1, "x", 2u);
        std::fflush(stdout);
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

template <typename F>
long allocations_in(F&& f) {
    g_allocations.store(0);
    g_counting.store(true);
    f();
    g_counting.store(false);
    return g_allocations.load();
}

TEST(NoHeap, CounterSeesAllocations) {
    ASSERT_TRUE(counter_ready());
    // volatile keeps the compiler from pairing and removing the calls.
    EXPECT_GE(allocations_in([] {
                  void* volatile p = std::malloc(24);
                  std::free(p);
              }),
              1);
    EXPECT_GE(allocations_in([] {
                  int* volatile p = new int(7);
                  delete p;
              }),
              1);
    // Allocations inside libc count too: fopen allocates its FILE.
    EXPECT_GE(allocations_in([] {
                  FILE* f = std::fopen("/dev/null", "r");
                  if (f != nullptr) std::fclose(f);
              }),
              1);
    EXPECT_EQ(allocations_in([] {}), 0);
}

// A wire buffer with readable room on both sides of the pointer: the ADAS
// codecs log the form's length of bytes in front of it.
struct Wire {
    unsigned char mem[1024];
    Wire() { std::memset(mem, 0x11, sizeof mem); }
    unsigned char* at() { return mem + 256; }
    static constexpr int kRoom = 768;
};

void terminal_defaults_and_checksum() {
    tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    CMN_UpdateCheckSum(&conf);
    CMN_VerifyCheckSum(&conf);
    CMN_Get_CRC_CCITT(0xffff, reinterpret_cast<unsigned char*>(&conf), sizeof conf);
    __Cal_CRC_CCITT(0, 0x31);
    InitShenZhenPurnoBBParam(&conf);
    InitKelvoZtBBParam(&conf);
    InitShenZhenTamsaBBParam(&conf);
    InitZhaTuBbParam(&conf);
    InitGzZtBbParam(&conf);
    InitKelvoZtShanXiBBParam(&conf);
    CMN_InitBbConfToDefault(nullptr);
    CMN_UpdateCheckSum(nullptr);
}

// Every kind of value the dictionary routes, both directions, with buffers
// large enough for each.
void terminal_set_and_get() {
    static const int ids[] = {0x0001, 0x0010, 0x0013, 0x0026, 0x0031, 0x0040, 0x0075, 0x0076, 0x0077, 0x0084,
                              0x0110, 0x101a, 0x8620, 0x8f21, 0xc21b, 0xe138, 0xe141, 0xf001, 0xf0e9, 0xf0ef,
                              0xf114, 0xf123, 0xf364, 0xf365, 0xf366, 0xf367, 0xf368, 0xf370, 0xf372, 0xf373,
                              0xf3f0, 0xf400, 0xf441, 0xf641, 0xfe10, 0xff00, 0xff01, 0xff02};
    tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    for (int id : ids) {
        Wire w;
        CMN_SetParam(&conf, id, w.at(), 8);
        CMN_GetParam(&conf, id, w.at(), Wire::kRoom);
    }
    Wire w;
    std::memcpy(w.at(), "apn.example", 12);
    CMN_SetParam(&conf, 0x0010, w.at(), 11);
    CMN_SetParam(&conf, 0xf364, w.at(), 56);
    CMN_SetParam(&conf, 0xf365, w.at(), 49);
    CMN_SetParam(&conf, 0x0077, w.at(), 253);
    CMN_GetParam(&conf, 0x0010, w.at(), 4);
}

// The failing paths: these print the assert, "Not Find" and refusal lines.
void terminal_refusals() {
    tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    Wire w;
    CMN_SetParam(&conf, 0, w.at(), 4);
    CMN_SetParam(&conf, 0xffff, w.at(), 4);
    CMN_SetParam(&conf, 0x0001, nullptr, 4);
    CMN_SetParam(nullptr, 0x0001, w.at(), 4);
    CMN_SetParam(&conf, 0x0008, w.at(), 4);
    CMN_SetParam(&conf, 0x10000, w.at(), 4);
    CMN_SetParam(&conf, 0x0010, w.at(), 32);
    CMN_SetParam(&conf, 0x0010, w.at(), -1);
    CMN_GetParam(&conf, 0, w.at(), 4);
    CMN_GetParam(&conf, 0xffff, w.at(), 4);
    CMN_GetParam(&conf, 0x0001, nullptr, 4);
    CMN_GetParam(nullptr, 0x0001, w.at(), 4);
    CMN_GetParam(&conf, 0x0008, w.at(), 4);
    CMN_GetParam(&conf, 0xf365, w.at(), 131);
    CMN_GetParam(&conf, 0x0010, w.at(), 0);
    CMN_GetParam(&conf, 0xf441, w.at(), 0);
}

void typed_accessors() {
    tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    unsigned char b = 0;
    unsigned short s = 0;
    unsigned int d = 0;
    unsigned char text[32] = "server.example";
    CMN_SetByteParam(&conf, 0x0084, 2);
    CMN_SetWordParam(&conf, 0x0031, 500);
    CMN_SetDWordParam(&conf, 0x0001, 30);
    CMN_SetStrParam(&conf, 0x0013, text, 14);
    CMN_GetByteParam(&conf, 0x0084, &b);
    CMN_GetWordParam(&conf, 0x0031, &s);
    CMN_GetDWordParam(&conf, 0x0001, &d);
    CMN_GetStrParam(&conf, 0x0013, text, sizeof text);
    CMN_GetByteParam(&conf, 0x0001, &b);
    CMN_GetWordParam(&conf, 0x0008, &s);
    CMN_GetDWordParam(nullptr, 0x0001, &d);
    CMN_GetStrParam(&conf, 0x0013, text, 0);
}

void block_accessors() {
    tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    tagAV_ENC_PARAM_ST enc{};
    tagAV_CHANEL_LOOK_UP_ST lookup{};
    tagAV_INDIVIDUAL_SETTING_ST ind{};
    tagSPECIAL_ALARM_REC_PARAM_ST special{};
    tagVIDEO_ANALYSE_PARAM_ST analyse{};
    tagWAKEUP_MODE_PARAM_ST wake{};
    tagBB_PARAM_NIGHT_SPEED_ST speed{};
    tagBB_PARAM_NIGHT_MOVE_ST move{};
    tagBB_PARAM_NIGHT_TIRED_ST tired{};
    CMN_GetGeneralAVEncParam(&conf, &enc);
    CMN_SetGeneralAVEncParam(&conf, &enc);
    CMN_GetAVChLookUpList(&conf, &lookup);
    CMN_SetAVChLookUpList(&conf, &lookup);
    CMN_GetAVIndSetting(&conf, &ind);
    CMN_SetAVIndSetting(&conf, &ind);
    CMN_GetSpecialAlarmParam(&conf, &special);
    CMN_SetSpecialAlarmParam(&conf, &special);
    CMN_GetVideoAlnalyseParam(&conf, &analyse);
    CMN_SetVideoAlnalyseParam(&conf, &analyse);
    CMN_GetWakeUpModeParam(&conf, &wake);
    CMN_SetWakeUpModeParam(&conf, &wake);
    CMN_GetNightSpeedLmt(&conf, &speed);
    CMN_SetNightSpeedLmt(&conf, &speed);
    CMN_GetNightAbnormalMove(&conf, &move);
    CMN_SetNightAbnormalMove(&conf, &move);
    CMN_GetNightTiredSetting(&conf, &tired);
    CMN_SetNightTiredSetting(&conf, &tired);
    CMN_SetGeneralAVEncParam(nullptr, &enc);
    CMN_GetNightTiredSetting(&conf, nullptr);
}

// Wire to local then local to wire, once with the form's length and once
// with a length one short, so both the converting and the refusing paths run.
template <typename T, typename R1, typename R2>
void both_ways(R1 (*b2l)(unsigned char*, unsigned char, T*), R2 (*l2b)(T*, unsigned char*, unsigned int),
               unsigned char len) {
    T local{};
    Wire w;
    for (unsigned char n : {len, static_cast<unsigned char>(len - 1)}) {
        b2l(w.at(), n, &local);
        l2b(&local, w.at(), n);
    }
}

void video_night_adas_dsm_codecs() {
    both_ways<tagAV_ENC_PARAM_ST>(CMN_B2LStruct, CMN_LStruct2B, 21);
    both_ways<tagAV_INDIVIDUAL_SETTING_ST>(CMN_B2LStruct, CMN_LStruct2B, 253);
    both_ways<tagBB_PARAM_NIGHT_SPEED_ST>(CMN_B2LStruct, CMN_LStruct2B, 8);
    both_ways<tagBB_PARAM_NIGHT_MOVE_ST>(CMN_B2LStruct, CMN_LStruct2B, 8);
    both_ways<tagBB_PARAM_NIGHT_TIRED_ST>(CMN_B2LStruct, CMN_LStruct2B, 16);
    using Adas = tagBB_PARAM_ADAS_SUBIAO_ST;
    using Dsm = tagBB_PARAM_DSM_SUBIAO_ST;
    both_ways<Adas>(SubiaoAdas_B2LStruct, SubiaoAdas_LStruct2B, 56);
    both_ways<Adas>(CMN_B2LStruct, CMN_LStruct2B, 56);
    both_ways<Dsm>(SubiaoDsm_B2LStruct, SubiaoDsm_LStruct2B, 49);
    both_ways<Dsm>(CMN_B2LStruct, CMN_LStruct2B, 49);
    for (unsigned char len : {49, 56, 61, 64, 72, 80}) {
        both_ways<Adas>(SiChuan_B2LStruct, SiChuan_LStruct2B, len);
        both_ways<Adas>(GuangDongAdas_B2LStruct, GuangDongAdas_LStruct2B, len);
        both_ways<Adas>(HunanAdas_B2LStruct, HunanAdas_LStruct2B, len);
        both_ways<Adas>(JiLingAdas_B2LStruct, JiLingAdas_LStruct2B, len);
        both_ways<Dsm>(SiChuan_B2LStruct, SiChuan_LStruct2B, len);
        both_ways<Dsm>(GuangDongDsm_B2LStruct, GuangDongDsm_LStruct2B, len);
        both_ways<Dsm>(HunanDsm_B2LStruct, HunanDsm_LStruct2B, len);
        both_ways<Dsm>(JiLingDsm_B2LStruct, JiLingDsm_LStruct2B, len);
    }
    Adas adas{};
    Dsm dsm{};
    __InitSubiaoAdasParam(&adas);
    __InitSubiaoDsmParam(&dsm);
    tagBB_PARAM_NIGHT_SPEED_ST speed{};
    tagBB_PARAM_NIGHT_MOVE_ST move{};
    tagBB_PARAM_NIGHT_TIRED_ST tired{};
    __InitNightSpeedLmt(&speed);
    __InitNightAbnormalMove(&move);
    __InitNightTiredSetting(&tired);
}

void other_block_codecs() {
    both_ways<tagBB_PARAM_DRIVER_IDENTIFY_ST>(CMN_HljB2LStruct, CMN_HljLStruct2B, 22);
    both_ways<tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST>(CMN_HljB2LStruct, CMN_HljLStruct2B, 33);
    both_ways<tagBB_PARAM_DSM_HEIBIAO_ST>(CMN_HljB2LStruct, CMN_HljLStruct2B, 33);
    both_ways<tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST>(CMN_HljB2LStruct, CMN_HljLStruct2B, 45);
    both_ways<tagBB_PARAM_VDS_XIANGBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 50);
    both_ways<tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 18);
    both_ways<tagBB_PARAM_TPMS_SUBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 36);
    both_ways<tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 56);
    both_ways<tagBB_PARAM_OVERLOAD_SUBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 18);
    both_ways<tagBB_PARAM_OVERSIZE_SUBIAO_ST>(CMN_B2LStruct, CMN_LStruct2B, 4);
    both_ways<tagBB_PARAM_ZT_ALARM_ST>(CMN_B2LStruct, CMN_LStruct2B, 42);
    both_ways<BB_DPX_ADAS_PARM_ST>(CMN_B2LStruct, CMN_LStruct2B, 16);
    both_ways<BB_DPX_DSM_PARAM_ST>(CMN_B2LStruct, CMN_LStruct2B, 32);
    both_ways<_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST>(CMN_B2LStruct, CMN_LStruct2B, 37);
    // The alarm media codecs take their length from the block and look at
    // nothing else, so they get a well-formed block only.
    tagBB_ALARM_VIDEO_PHOTO_ST media{};
    Wire w;
    w.at()[4] = 10;
    CMN_B2LStruct(w.at(), 17, &media);
    CMN_LStruct2B(&media, w.at(), 17);

    tagBB_PARAM_DRIVER_IDENTIFY_ST ident{};
    tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST monitor{};
    tagBB_PARAM_DSM_HEIBIAO_ST hlj_dsm{};
    tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST fail{};
    tagBB_PARAM_VDS_XIANGBIAO_ST vds{};
    tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST cmp{};
    tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST capture{};
    tagBB_PARAM_TPMS_SUBIAO_ST tpms{};
    tagBB_PARAM_BSD_SUBIAO_ST bsd{};
    tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST intense{};
    tagBB_PARAM_ZT_ALARM_ST zt{};
    _tagBB_PARAM_485AllDataFA_ST rs485{};
    BB_DPX_ADAS_PARM_ST dpx_adas{};
    BB_DPX_DSM_PARAM_ST dpx_dsm{};
    __InitHljDriverIdentifyParam(&ident);
    __InitHljAdasParam(&monitor);
    __InitHljDsmParam(&hlj_dsm);
    __InitHljDevFailParam(&fail);
    __InitXiangbiaoVdsParam(&vds);
    __InitXiangbiaoDriverCmpParam(&cmp);
    __InitXiangbiaoDriverCaptureParam(&capture);
    __InitSubiaoTpmsParam(&tpms);
    __InitSubiaoBsdParam(&bsd);
    __InitSubiaoIntenseDriveParam(&intense);
    __InitZhatuAlarmParam(&zt);
    __InitQ8RS485InqureParam(&rs485);
    CMN_Init_DPX_ADAS_Setting(&dpx_adas);
    CMN_Init_DPX_DSM_Setting(&dpx_dsm);
    __InitSubiaoAdasParam(nullptr);
    CMN_Init_DPX_DSM_Setting(nullptr);
}

void taxi_record() {
    tagBBTAXI_CONF_ST taxi;
    BBTAXI_InitToDefault(&taxi);
    Wire w;
    static const int ids[] = {0x0001, 0x0010, 0x0013, 0x001d, 0x0040, 0x004b, 0x0073, 0x0094,
                              0x00af, 0x00b1, 0x0077, 0x001c, 0xf001, 0x0054, 0};
    for (int id : ids) {
        BBTAXI_SetParam(&taxi, id, w.at(), 4);
        BBTAXI_GetParam(&taxi, id, w.at(), Wire::kRoom);
    }
    BBTAXI_SetParam(&taxi, 0x0013, w.at(), 64);
    BBTAXI_SetParam(nullptr, 0x0001, w.at(), 4);
    BBTAXI_GetParam(&taxi, 0x0001, nullptr, 4);
    BBTAXI_UpdateCheckSum(&taxi);
    BBTAXI_VerifyCheckSum(&taxi);
    BBTAXI_Get_CRC_CCITT(0, reinterpret_cast<unsigned char*>(&taxi), sizeof taxi);
    BBTAXI_Cal_CRC_CCITT(0, 0x31);
    unsigned char b = 0;
    unsigned short s = 0;
    unsigned int d = 0;
    unsigned char text[8] = "abc";
    BBTAXI_SetByteParam(&taxi, 0x004b, 1);
    BBTAXI_GetByteParam(&taxi, 0x004b, &b);
    BBTAXI_SetWordParam(&taxi, 0x00af, 2);
    BBTAXI_GetWordParam(&taxi, 0x00af, &s);
    BBTAXI_SetDWordParam(&taxi, 0x0001, 3);
    BBTAXI_GetDWordParam(&taxi, 0x0001, &d);
    BBTAXI_SetStrParam(&taxi, 0x0013, text, 3);
    BBTAXI_GetStrParam(&taxi, 0x0013, text, sizeof text);
}

void copies_and_identity() {
    char dst[16];
    String_copy("terminal", 8, dst, sizeof dst);
    String_copy("terminal", 8, dst, 4);
    strlcpy(dst, "manufacturer-id-long", sizeof dst);
    strlcpy(dst, "x", 0);
    unsigned char mac[16];
    GetMacFormFile(mac, sizeof mac);
    GetMacFormFile(mac, 6);
    char id[32];
    GetDeviceTerminalType(id, sizeof id);
    GetDeviceFactoryId(id, sizeof id);
    GetDeviceTerminalType(id, 2);
    GetDeviceFactoryId(nullptr, 8);
}

struct ApiGroup {
    const char* name;
    void (*run)();
};

constexpr ApiGroup kGroups[] = {
    {"terminal_defaults_and_checksum", terminal_defaults_and_checksum},
    {"terminal_set_and_get", terminal_set_and_get},
    {"terminal_refusals", terminal_refusals},
    {"typed_accessors", typed_accessors},
    {"block_accessors", block_accessors},
    {"video_night_adas_dsm_codecs", video_night_adas_dsm_codecs},
    {"other_block_codecs", other_block_codecs},
    {"taxi_record", taxi_record},
    {"copies_and_identity", copies_and_identity},
};

TEST(NoHeap, NoApiCallAllocates) {
    ASSERT_TRUE(counter_ready());
    QuietStdout quiet;
    for (const ApiGroup& g : kGroups) {
        EXPECT_EQ(allocations_in(g.run), 0) << g.name;
    }
}

}  // namespace
