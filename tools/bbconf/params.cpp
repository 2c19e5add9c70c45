// params.cpp - the parameter tables of the terminal and the taxi record.
#include "params.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bbtool {

namespace {

// A block's own codec run on a scratch copy, so that a rejected wire form
// never reaches the record (the codecs convert before they check).
template <typename T, size_t Offset>
int block_check(const tagBB_CONF_ST* rec, unsigned char* wire, unsigned char len) {
    T scratch;
    std::memcpy(&scratch, reinterpret_cast<const unsigned char*>(rec) + Offset, sizeof scratch);
    return static_cast<int>(CMN_B2LStruct(wire, len, &scratch));
}

#define BB_BLOCK_CHECK(T, member) (&block_check<T, offsetof(tagBB_CONF_ST, member)>)

ParamDef row(uint16_t id, const char* name, Kind kind, uint16_t limit = 0) {
    return ParamDef{id, name, kind, limit, nullptr, -1, 0};
}
ParamDef u8(uint16_t id, const char* name) { return row(id, name, Kind::U8); }
ParamDef u16(uint16_t id, const char* name) { return row(id, name, Kind::U16); }
ParamDef u32(uint16_t id, const char* name) { return row(id, name, Kind::U32); }
ParamDef text(uint16_t id, const char* name, uint16_t limit) { return row(id, name, Kind::Text, limit); }
ParamDef raw_text(uint16_t id, const char* name, uint16_t limit) { return row(id, name, Kind::RawText, limit); }
ParamDef raw(uint16_t id, const char* name, uint16_t limit) { return row(id, name, Kind::Raw, limit); }
ParamDef block(uint16_t id, const char* name, uint16_t form_len, BlockCheck check) {
    return ParamDef{id, name, Kind::Block, form_len, check, -1, 0};
}
ParamDef get_block(uint16_t id, const char* name, uint16_t form_len) {
    return row(id, name, Kind::GetBlock, form_len);
}
ParamDef set_only(ParamDef d, size_t offset, size_t width) {
    d.field_offset = static_cast<int16_t>(offset);
    d.field_width = static_cast<uint8_t>(width);
    return d;
}

std::vector<ParamDef> terminal_rows() {
    return {
        u32(0x0001, "heartbeat_interval"),
        u32(0x0002, "tcp_reply_timeout"),
        u32(0x0003, "tcp_retransmissions"),
        u32(0x0004, "udp_reply_timeout"),
        u32(0x0005, "udp_retransmissions"),
        u32(0x0006, "sms_reply_timeout"),
        u32(0x0007, "sms_retransmissions"),
        text(0x0010, "main_server_apn", 31),
        text(0x0011, "main_server_user", 31),
        text(0x0012, "main_server_password", 31),
        text(0x0013, "main_server_address", 63),
        text(0x0014, "backup_server_apn", 31),
        text(0x0015, "backup_server_user", 31),
        text(0x0016, "backup_server_password", 31),
        text(0x0017, "backup_server_address", 63),
        u32(0x0018, "server_tcp_port"),
        u32(0x0019, "server_udp_port"),
        text(0x001a, "ic_auth_main_address", 31),
        u32(0x001b, "ic_auth_tcp_port"),
        u32(0x001c, "ic_auth_udp_port"),
        text(0x001d, "ic_auth_backup_address", 31),
        u32(0x0020, "location_report_strategy"),
        u32(0x0021, "location_report_scheme"),
        u32(0x0022, "report_interval_no_driver"),
        text(0x0023, "slave_server_apn", 31),
        text(0x0024, "slave_server_user", 31),
        text(0x0025, "slave_server_password", 31),
        row(0x0026, "slave_server_endpoint", Kind::Endpoint),
        u32(0x0027, "report_interval_sleep"),
        u32(0x0028, "report_interval_alarm"),
        u32(0x0029, "report_interval_default"),
        u32(0x002c, "report_distance_default"),
        u32(0x002d, "report_distance_no_driver"),
        u32(0x002e, "report_distance_sleep"),
        u32(0x002f, "report_distance_alarm"),
        u32(0x0030, "corner_angle"),
        u16(0x0031, "fence_radius"),
        text(0x0040, "platform_phone", 15),
        text(0x0041, "reset_phone", 15),
        text(0x0042, "factory_reset_phone", 15),
        text(0x0043, "platform_sms_phone", 15),
        text(0x0044, "sms_alarm_phone", 15),
        u32(0x0045, "call_answer_strategy"),
        u32(0x0046, "max_call_time"),
        u32(0x0047, "max_call_time_month"),
        text(0x0048, "monitor_phone", 15),
        text(0x0049, "privileged_sms_phone", 15),
        u32(0x0050, "alarm_mask"),
        u32(0x0051, "alarm_sms_switch"),
        u32(0x0052, "alarm_photo_switch"),
        u32(0x0053, "alarm_photo_store"),
        u32(0x0054, "key_flags"),
        u32(0x0055, "max_speed"),
        u32(0x0056, "overspeed_duration"),
        u32(0x0057, "continuous_drive_limit"),
        u32(0x0058, "daily_drive_limit"),
        u32(0x0059, "min_rest_time"),
        u32(0x005a, "max_parking_time"),
        u16(0x005b, "overspeed_warn_diff"),
        u16(0x005c, "fatigue_warn_diff"),
        u16(0x005d, "collision_alarm"),
        u16(0x005e, "rollover_alarm"),
        u32(0x0064, "timed_photo_control"),
        u32(0x0065, "distance_photo_control"),
        u32(0x0070, "image_quality"),
        u32(0x0071, "brightness"),
        u32(0x0072, "contrast"),
        u32(0x0073, "saturation"),
        u32(0x0074, "chroma"),
        block(0x0075, "av_encoding", 21, BB_BLOCK_CHECK(tagAV_ENC_PARAM_ST, stAVEnc)),
        raw(0x0076, "av_channel_list", 151),
        block(0x0077, "av_channel_settings", 0, BB_BLOCK_CHECK(tagAV_INDIVIDUAL_SETTING_ST, stAVIndSetting)),
        raw(0x0079, "alarm_recording", 3),
        u32(0x007a, "video_alarm_mask"),
        raw(0x007b, "image_analysis_alarm", 2),
        raw(0x007c, "wakeup_mode", 20),
        u32(0x0080, "odometer"),
        u16(0x0081, "province_id"),
        u16(0x0082, "city_id"),
        text(0x0083, "plate_number", 31),
        u8(0x0084, "plate_color"),
        u8(0x0090, "gnss_mode"),
        u8(0x0091, "gnss_baud_rate"),
        u8(0x0092, "gnss_output_freq"),
        u32(0x0093, "gnss_sample_freq"),
        u8(0x0094, "gnss_upload_mode"),
        u32(0x0095, "gnss_upload_setting"),
        u8(0x00a1, "vendor_00a1"),
        u8(0x00a2, "vendor_00a2"),
        u32(0x0100, "can1_collect_interval"),
        u16(0x0101, "can1_upload_interval"),
        u32(0x0102, "can2_collect_interval"),
        u16(0x0103, "can2_upload_interval"),
        raw(0x0110, "can_id_setting", 8),
        u16(0x101a, "vendor_101a"),
        u16(0x101b, "vendor_101b"),
        u16(0x101c, "vendor_101c"),
        u16(0x101d, "vendor_101d"),
        u8(0x101e, "vendor_101e"),
        u8(0x101f, "vendor_101f"),
        u8(0x1031, "vendor_1031"),
        raw(0x8620, "vendor_8620", 128),
        raw(0x8f21, "vendor_8f21", 46),
        raw_text(0xc21b, "vendor_c21b", 10),
        raw_text(0xc222, "vendor_c222", 10),
        u32(0xc223, "vendor_c223"),
        raw_text(0xc255, "vendor_c255", 10),
        u32(0xc257, "vendor_c257"),
        u32(0xc258, "vendor_c258"),
        u32(0xc25b, "vendor_c25b"),
        u32(0xc25c, "vendor_c25c"),
        get_block(0xe138, "hlj_driver_identify", 22),
        get_block(0xe139, "hlj_operation_monitor", 33),
        get_block(0xe140, "hlj_dsm_params", 33),
        get_block(0xe141, "hlj_device_failure", 45),
        raw(0xf001, "night_speed_limit", 8),
        raw(0xf002, "night_abnormal_move", 8),
        u32(0xf011, "vendor_f011"),
        raw(0xf0e9, "driver_compare", 4),
        block(0xf0ef, "driver_capture", 18,
              BB_BLOCK_CHECK(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST, stXiangbiaoDriverCapture)),
        u16(0xf106, "vendor_f106"),
        u8(0xf108, "vendor_f108"),
        u8(0xf110, "vendor_f110"),
        u8(0xf113, "vendor_f113"),
        raw(0xf114, "vendor_f114", 8),
        text(0xf120, "vendor_slave_apn", 31),
        text(0xf121, "vendor_slave_user", 31),
        text(0xf122, "vendor_slave_password", 31),
        text(0xf123, "slave_server_address", 63),
        text(0xf124, "vendor_f124", 31),
        text(0xf125, "vendor_f125", 31),
        text(0xf126, "vendor_f126", 31),
        text(0xf127, "vendor_f127", 63),
        u32(0xf128, "vendor_f128"),
        u32(0xf129, "vendor_f129"),
        u8(0xf12a, "vendor_f12a"),
        u8(0xf200, "vendor_f200"),
        u8(0xf201, "vendor_f201"),
        u32(0xf202, "vendor_f202"),
        block(0xf364, "adas_params", 56, BB_BLOCK_CHECK(tagBB_PARAM_ADAS_SUBIAO_ST, stSubiaoAdas)),
        block(0xf365, "dsm_params", 49, BB_BLOCK_CHECK(tagBB_PARAM_DSM_SUBIAO_ST, stSubiaoDsm)),
        block(0xf366, "tpms_params", 36, BB_BLOCK_CHECK(tagBB_PARAM_TPMS_SUBIAO_ST, stSubiaoTpms)),
        raw(0xf367, "bsd_params", 2),
        block(0xf368, "vds_params", 50, BB_BLOCK_CHECK(tagBB_PARAM_VDS_XIANGBIAO_ST, stXiangbiaoVds)),
        block(0xf370, "intense_driving", 54,
              BB_BLOCK_CHECK(tagBB_PARAM_INTENSE_DRIVING_SUBIAO_ST, stSubiaoIntense)),
        block(0xf372, "overload_params", 18, BB_BLOCK_CHECK(tagBB_PARAM_OVERLOAD_SUBIAO_ST, stSubiaoOverload)),
        block(0xf373, "oversize_params", 4, BB_BLOCK_CHECK(tagBB_PARAM_OVERSIZE_SUBIAO_ST, stSubiaoOversize)),
        row(0xf3f0, "rs485_inquiry", Kind::GetRaw, 68),
        get_block(0xf400, "muck_truck_alarm", 42),
        row(0xf441, "debug_dump_f441", Kind::Debug),
        row(0xf641, "debug_dump_f641", Kind::Debug),
        text(0xfe05, "vendor_fe05", 31),
        text(0xfe06, "vendor_fe06", 15),
        text(0xfe09, "vendor_fe09", 31),
        text(0xfe0a, "vendor_fe0a", 31),
        block(0xfe10, "night_fatigue", 16, BB_BLOCK_CHECK(tagBB_PARAM_NIGHT_TIRED_ST, stNightTired)),
        row(0xff00, "device_mac", Kind::Device),
        row(0xff01, "factory_id", Kind::Device),
        row(0xff02, "terminal_type", Kind::Device),
    };
}

std::vector<ParamDef> taxi_rows() {
    std::vector<ParamDef> t = {
        u32(0x0001, "heartbeat_interval"),
        u32(0x0002, "tcp_reply_timeout"),
        u32(0x0003, "tcp_retransmissions"),
        u32(0x0004, "udp_reply_timeout"),
        u32(0x0005, "udp_retransmissions"),
        raw_text(0x0010, "main_server_apn", 31),
        raw_text(0x0011, "main_server_user", 31),
        raw_text(0x0012, "main_server_password", 31),
        text(0x0013, "main_server_address", 63),
        raw_text(0x0014, "backup_server_apn", 31),
        raw_text(0x0015, "backup_server_user", 31),
        raw_text(0x0016, "backup_server_password", 31),
        text(0x0017, "backup_server_address", 63),
        u32(0x0018, "server_tcp_port"),
        u32(0x0019, "server_udp_port"),
        raw_text(0x001a, "param_001a", 31),
        u32(0x001b, "param_001b"),
        set_only(raw_text(0x001c, "param_001c", 31), offsetof(tagBBTAXI_CONF_ST, aucParam001c), 32),
        set_only(row(0x001d, "param_001d", Kind::LowByte32), offsetof(tagBBTAXI_CONF_ST, ucParam001d), 1),
    };
    static const char* const names_0020[] = {
        "param_0020", "param_0021", "param_0022", "param_0023", "param_0024", "param_0025",
        "param_0026", "param_0027", "param_0028", "param_0029", "param_002a", "param_002b",
        "param_002c", "param_002d", "param_002e", "param_002f", "param_0030"};
    for (uint16_t i = 0; i < 17; i++) t.push_back(u32(static_cast<uint16_t>(0x0020 + i), names_0020[i]));
    const ParamDef rest[] = {
        text(0x0040, "phone_0040", 15),
        text(0x0041, "phone_0041", 15),
        text(0x0042, "phone_0042", 15),
        text(0x0043, "phone_0043", 15),
        text(0x0044, "phone_0044", 15),
        u32(0x0045, "param_0045"),
        u32(0x0046, "param_0046"),
        u32(0x0047, "param_0047"),
        u32(0x0048, "param_0048"),
        raw_text(0x0049, "phone_0049", 15),
        raw_text(0x004a, "phone_004a", 15),
        u8(0x004b, "param_004b"),
        u32(0x0050, "param_0050"),
        u32(0x0051, "param_0051"),
        u32(0x0052, "param_0052"),
        u32(0x0053, "param_0053"),
        u32(0x0055, "param_0055"),
        u32(0x0056, "param_0056"),
        u32(0x0057, "param_0057"),
        u32(0x0058, "param_0058"),
        u32(0x0059, "param_0059"),
        u32(0x005a, "param_005a"),
        u32(0x0070, "image_quality"),
        u32(0x0071, "brightness"),
        u32(0x0072, "contrast"),
        row(0x0073, "saturation", Kind::U16Get32),
        u32(0x0074, "chroma"),
        row(0x0077, "param_0077", Kind::Ignored),
        row(0x0078, "param_0078", Kind::Ignored),
        row(0x0079, "param_0079", Kind::Ignored),
        u32(0x0080, "param_0080"),
        row(0x0081, "param_0081", Kind::U16Get32),
        row(0x0082, "param_0082", Kind::U16Get32),
        raw_text(0x0090, "param_0090", 1),
        raw_text(0x0091, "param_0091", 4),
        raw_text(0x0092, "param_0092", 31),
        raw_text(0x0093, "param_0093", 31),
        // The six-byte field admits six bytes but keeps five and a terminator:
        // the tool offers five so that what it reports stored is what is kept.
        text(0x0094, "param_0094", 5),
        u8(0x00a0, "param_00a0"),
        u8(0x00a1, "param_00a1"),
        u8(0x00a2, "param_00a2"),
        u8(0x00a3, "param_00a3"),
        u16(0x00af, "param_00af"),
        u8(0x00b0, "param_00b0"),
        raw_text(0x00b1, "param_00b1", 31),
        raw_text(0x00b2, "param_00b2", 31),
        raw_text(0x00b3, "param_00b3", 31),
        raw_text(0x00b4, "param_00b4", 63),
        u32(0x00b5, "param_00b5"),
    };
    t.insert(t.end(), std::begin(rest), std::end(rest));
    return t;
}


}  // namespace

bool parse_number(std::string_view s, uint64_t& out) {
    int base = 10;
    if (s.size() > 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
        base = 16;
        s.remove_prefix(2);
    }
    if (s.empty()) return false;
    uint64_t v = 0;
    for (char c : s) {
        int d;
        if (c >= '0' && c <= '9') {
            d = c - '0';
        } else if (base == 16 && c >= 'a' && c <= 'f') {
            d = c - 'a' + 10;
        } else if (base == 16 && c >= 'A' && c <= 'F') {
            d = c - 'A' + 10;
        } else {
            return false;
        }
        v = v * static_cast<uint64_t>(base) + static_cast<uint64_t>(d);
        if (v > 0xffffffffull) {
            v = 0x100000000ull;  // saturate: out of every range
        }
    }
    out = v;
    return true;
}

const std::vector<ParamDef>& param_table(RecordKind kind) {
    static const std::vector<ParamDef> terminal = terminal_rows();
    static const std::vector<ParamDef> taxi = taxi_rows();
    return kind == RecordKind::Terminal ? terminal : taxi;
}

const ParamDef* find_param(RecordKind kind, uint32_t id) {
    const auto& t = param_table(kind);
    auto it = std::lower_bound(t.begin(), t.end(), id,
                               [](const ParamDef& d, uint32_t key) { return d.id < key; });
    return it != t.end() && it->id == id ? &*it : nullptr;
}

const ParamDef* find_param(RecordKind kind, std::string_view name) {
    for (const ParamDef& d : param_table(kind)) {
        if (name == d.name) return &d;
    }
    return nullptr;
}

const ParamDef* resolve_param(RecordKind kind, std::string_view text, std::string& error) {
    const bool numeric = !text.empty() && std::isdigit(static_cast<unsigned char>(text[0]));
    if (numeric) {
        uint64_t v = 0;
        if (!parse_number(text, v) || v > 0xffffffffu) {
            error = "'" + std::string(text) + "' is neither a parameter ID (0x0013 or 19) nor a name";
            return nullptr;
        }
        const uint32_t id = static_cast<uint32_t>(v);
        const ParamDef* d = find_param(kind, id);
        if (d == nullptr) {
            error = "unknown ID " + id_text(id) + " for a " + record_name(kind) + " record";
        }
        return d;
    }
    const ParamDef* d = find_param(kind, text);
    if (d == nullptr) {
        error = "unknown parameter name '" + std::string(text) + "' for a " + record_name(kind) +
                " record (bbconf list" + (kind == RecordKind::Taxi ? " --taxi" : "") + " shows the names)";
    }
    return d;
}

bool is_number(Kind k) {
    return k == Kind::U8 || k == Kind::U16 || k == Kind::U32 || k == Kind::U16Get32 || k == Kind::LowByte32;
}

bool is_text(Kind k) { return k == Kind::Text || k == Kind::RawText || k == Kind::Endpoint; }

size_t number_width(Kind k) {
    switch (k) {
        case Kind::U8: return 1;
        case Kind::U16: return 2;
        case Kind::U16Get32: return 2;
        case Kind::U32: return 4;
        case Kind::LowByte32: return 4;
        default: return 0;
    }
}

bool is_settable(const ParamDef& d) {
    switch (d.kind) {
        case Kind::Endpoint:
        case Kind::GetRaw:
        case Kind::GetBlock:
        case Kind::Ignored:
        case Kind::Device:
        case Kind::Debug: return false;
        default: return true;
    }
}

bool is_set_only(const ParamDef& d) { return d.field_offset >= 0; }

bool is_readable(const ParamDef& d) {
    return d.kind != Kind::Ignored && d.kind != Kind::Device && d.kind != Kind::Debug;
}

bool is_queryable(const ParamDef& d) { return is_readable(d) && !is_set_only(d); }

std::string kind_label(const ParamDef& d) {
    switch (d.kind) {
        case Kind::U8: return "u8";
        case Kind::U16: return "u16";
        case Kind::U32: return "u32";
        case Kind::U16Get32: return "u16";
        case Kind::LowByte32: return "u8";
        case Kind::Text:
        case Kind::RawText: return "text(" + std::to_string(d.limit) + ")";
        case Kind::Endpoint: return "text";
        case Kind::Raw:
        case Kind::GetRaw: return "raw(" + std::to_string(d.limit) + ")";
        case Kind::Block:
        case Kind::GetBlock: return d.limit ? "block(" + std::to_string(d.limit) + ")" : "block";
        case Kind::Ignored: return "none";
        case Kind::Device: return "device";
        case Kind::Debug: return "debug";
    }
    return "?";
}

const char* access_label(const ParamDef& d) {
    if (is_set_only(d)) return "wo";
    if (is_settable(d)) return "rw";
    if (is_readable(d)) return "ro";
    return "-";
}

const char* record_name(RecordKind kind) { return kind == RecordKind::Terminal ? "terminal" : "taxi"; }

size_t record_size(RecordKind kind) { return kind == RecordKind::Terminal ? BB_CONF_LEN : BBTAXI_CONF_LEN; }


}  // namespace bbtool
