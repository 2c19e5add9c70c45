// codec_fuzz.cpp - every block codec overload and every regional codec, in
// both directions, on fuzzer-chosen local records, wire bytes and lengths.
//
// Each codec is called within the caller obligations its declaration
// documents: the wire holds every byte the codec reads or writes whatever
// len / buflen say, and the codecs that log the bytes in front of the wire
// get that many readable bytes there.  Everything else is exact.
#include <algorithm>
#include <cstdint>

#include "bbconf.h"
#include "fuzz_support.h"

namespace {

struct Codec {
    size_t local_size;
    size_t set_reads;   // wire bytes a set may read whatever len says
    size_t get_writes;  // wire bytes a get may write whatever buflen says
    size_t before;      // logged bytes in front of the wire pointer
    int (*set)(uint8_t* wire, uint8_t len, void* local);
    int (*get)(void* local, uint8_t* wire, unsigned buflen);
};

// clang-format off
#define CODEC(T, SET, GET, reads, writes, before) Codec{sizeof(T), reads, writes, before, \
    [](uint8_t* w, uint8_t l, void* p) { return static_cast<int>(SET(w, l, static_cast<T*>(p))); }, \
    [](void* p, uint8_t* w, unsigned b) { return static_cast<int>(GET(static_cast<T*>(p), w, b)); }}
// clang-format on

const Codec kCodecs[] = {
    CODEC(tagAV_ENC_PARAM_ST, CMN_B2LStruct, CMN_LStruct2B, 21, 21, 0),
    CODEC(tagAV_INDIVIDUAL_SETTING_ST, CMN_B2LStruct, CMN_LStruct2B, 253, 1, 0),
    CODEC(tagBB_PARAM_NIGHT_SPEED_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_NIGHT_MOVE_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_NIGHT_TIRED_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 56, 56, 56),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, SubiaoAdas_B2LStruct, SubiaoAdas_LStruct2B, 56, 56, 56),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, SiChuan_B2LStruct, SiChuan_LStruct2B, 61, 61, 61),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, GuangDongAdas_B2LStruct, GuangDongAdas_LStruct2B, 64, 64, 64),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, HunanAdas_B2LStruct, HunanAdas_LStruct2B, 96, 96, 96),
    CODEC(tagBB_PARAM_ADAS_SUBIAO_ST, JiLingAdas_B2LStruct, JiLingAdas_LStruct2B, 112, 112, 112),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 49, 49, 0),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, SubiaoDsm_B2LStruct, SubiaoDsm_LStruct2B, 49, 49, 0),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, SiChuan_B2LStruct, SiChuan_LStruct2B, 65, 65, 0),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, GuangDongDsm_B2LStruct, GuangDongDsm_LStruct2B, 66, 66, 66),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, HunanDsm_B2LStruct, HunanDsm_LStruct2B, 110, 110, 110),
    CODEC(tagBB_PARAM_DSM_SUBIAO_ST, JiLingDsm_B2LStruct, JiLingDsm_LStruct2B, 126, 126, 126),
    CODEC(tagBB_PARAM_DRIVER_IDENTIFY_ST, CMN_HljB2LStruct, CMN_HljLStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_VEHICLE_OPERATE_MONITOR_ST, CMN_HljB2LStruct, CMN_HljLStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_DSM_HEIBIAO_ST, CMN_HljB2LStruct, CMN_HljLStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_DEVICE_FAILURE_HEIBIAO_ST, CMN_HljB2LStruct, CMN_HljLStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_VDS_XIANGBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 18, 18, 0),
    CODEC(tagBB_PARAM_TPMS_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(tagBB_PARAM_OVERLOAD_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 18, 0, 0),
    CODEC(tagBB_PARAM_OVERSIZE_SUBIAO_ST, CMN_B2LStruct, CMN_LStruct2B, 4, 0, 0),
    CODEC(tagBB_PARAM_ZT_ALARM_ST, CMN_B2LStruct, CMN_LStruct2B, 0, 0, 0),
    CODEC(BB_DPX_ADAS_PARM_ST, CMN_B2LStruct, CMN_LStruct2B, 10, 10, 0),
    CODEC(BB_DPX_DSM_PARAM_ST, CMN_B2LStruct, CMN_LStruct2B, 25, 25, 0),
    CODEC(tagBB_ALARM_VIDEO_PHOTO_ST, CMN_B2LStruct, CMN_LStruct2B, 71, 71, 0),
    CODEC(_PUMP_TRUCK_MONITORING_SYSTEM_PATA_ST, CMN_B2LStruct, CMN_LStruct2B, 37, 37, 0),
};

#undef CODEC

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bbfuzz::silence_stdout();
    bbfuzz::Reader in(data, size);
    const Codec& c = kCodecs[in.u8() % (sizeof kCodecs / sizeof kCodecs[0])];
    bool set = in.u8() & 1;
    unsigned len = in.u8();
    if (!set && (in.u8() & 1)) len = len * 17 + 1;  // larger and odd buffer lengths too

    std::vector<uint8_t> local_init = in.bytes(c.local_size);
    bbfuzz::ExactBuffer local(0, c.local_size, local_init);

    // The wire holds what the codec may touch and len bytes (a set logs them; a get may fill them).
    const size_t room = std::max<size_t>(set ? c.set_reads : c.get_writes, len);
    std::vector<uint8_t> wire_init = in.bytes(room);
    bbfuzz::ExactBuffer wire(c.before, room, wire_init);
    if (set) {
        c.set(wire.data(), static_cast<uint8_t>(len), local.data());
    } else {
        c.get(local.data(), wire.data(), len);
    }
    return 0;
}
