// params.cpp - the library's parameter catalogue with the tool's names.
#include "params.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bbtool {

namespace {

// clang-format off
const std::vector<ParamName> kTerminalNames = {
    {0x0001, "heartbeat_interval"}, {0x0002, "tcp_reply_timeout"}, {0x0003, "tcp_retransmissions"},
    {0x0004, "udp_reply_timeout"}, {0x0005, "udp_retransmissions"}, {0x0006, "sms_reply_timeout"},
    {0x0007, "sms_retransmissions"}, {0x0010, "main_server_apn"}, {0x0011, "main_server_user"},
    {0x0012, "main_server_password"}, {0x0013, "main_server_address"}, {0x0014, "backup_server_apn"},
    {0x0015, "backup_server_user"}, {0x0016, "backup_server_password"}, {0x0017, "backup_server_address"},
    {0x0018, "server_tcp_port"}, {0x0019, "server_udp_port"}, {0x001a, "ic_auth_main_address"},
    {0x001b, "ic_auth_tcp_port"}, {0x001c, "ic_auth_udp_port"}, {0x001d, "ic_auth_backup_address"},
    {0x0020, "location_report_strategy"}, {0x0021, "location_report_scheme"}, {0x0022, "report_interval_no_driver"},
    {0x0023, "slave_server_apn"}, {0x0024, "slave_server_user"}, {0x0025, "slave_server_password"},
    {0x0026, "slave_server_endpoint"}, {0x0027, "report_interval_sleep"}, {0x0028, "report_interval_alarm"},
    {0x0029, "report_interval_default"}, {0x002c, "report_distance_default"}, {0x002d, "report_distance_no_driver"},
    {0x002e, "report_distance_sleep"}, {0x002f, "report_distance_alarm"}, {0x0030, "corner_angle"},
    {0x0031, "fence_radius"}, {0x0040, "platform_phone"}, {0x0041, "reset_phone"}, {0x0042, "factory_reset_phone"},
    {0x0043, "platform_sms_phone"}, {0x0044, "sms_alarm_phone"}, {0x0045, "call_answer_strategy"},
    {0x0046, "max_call_time"}, {0x0047, "max_call_time_month"}, {0x0048, "monitor_phone"},
    {0x0049, "privileged_sms_phone"}, {0x0050, "alarm_mask"}, {0x0051, "alarm_sms_switch"},
    {0x0052, "alarm_photo_switch"}, {0x0053, "alarm_photo_store"}, {0x0054, "key_flags"}, {0x0055, "max_speed"},
    {0x0056, "overspeed_duration"}, {0x0057, "continuous_drive_limit"}, {0x0058, "daily_drive_limit"},
    {0x0059, "min_rest_time"}, {0x005a, "max_parking_time"}, {0x005b, "overspeed_warn_diff"},
    {0x005c, "fatigue_warn_diff"}, {0x005d, "collision_alarm"}, {0x005e, "rollover_alarm"},
    {0x0064, "timed_photo_control"}, {0x0065, "distance_photo_control"}, {0x0070, "image_quality"},
    {0x0071, "brightness"}, {0x0072, "contrast"}, {0x0073, "saturation"}, {0x0074, "chroma"}, {0x0075, "av_encoding"},
    {0x0076, "av_channel_list"}, {0x0077, "av_channel_settings"}, {0x0079, "alarm_recording"},
    {0x007a, "video_alarm_mask"}, {0x007b, "image_analysis_alarm"}, {0x007c, "wakeup_mode"}, {0x0080, "odometer"},
    {0x0081, "province_id"}, {0x0082, "city_id"}, {0x0083, "plate_number"}, {0x0084, "plate_color"},
    {0x0090, "gnss_mode"}, {0x0091, "gnss_baud_rate"}, {0x0092, "gnss_output_freq"}, {0x0093, "gnss_sample_freq"},
    {0x0094, "gnss_upload_mode"}, {0x0095, "gnss_upload_setting"}, {0x00a1, "vendor_00a1"}, {0x00a2, "vendor_00a2"},
    {0x0100, "can1_collect_interval"}, {0x0101, "can1_upload_interval"}, {0x0102, "can2_collect_interval"},
    {0x0103, "can2_upload_interval"}, {0x0110, "can_id_setting"}, {0x101a, "vendor_101a"}, {0x101b, "vendor_101b"},
    {0x101c, "vendor_101c"}, {0x101d, "vendor_101d"}, {0x101e, "vendor_101e"}, {0x101f, "vendor_101f"},
    {0x1031, "vendor_1031"}, {0x8620, "vendor_8620"}, {0x8f21, "vendor_8f21"}, {0xc21b, "vendor_c21b"},
    {0xc222, "vendor_c222"}, {0xc223, "vendor_c223"}, {0xc255, "vendor_c255"}, {0xc257, "vendor_c257"},
    {0xc258, "vendor_c258"}, {0xc25b, "vendor_c25b"}, {0xc25c, "vendor_c25c"}, {0xe138, "hlj_driver_identify"},
    {0xe139, "hlj_operation_monitor"}, {0xe140, "hlj_dsm_params"}, {0xe141, "hlj_device_failure"},
    {0xf001, "night_speed_limit"}, {0xf002, "night_abnormal_move"}, {0xf011, "vendor_f011"},
    {0xf0e9, "driver_compare"}, {0xf0ef, "driver_capture"}, {0xf106, "vendor_f106"}, {0xf108, "vendor_f108"},
    {0xf110, "vendor_f110"}, {0xf113, "vendor_f113"}, {0xf114, "vendor_f114"}, {0xf120, "vendor_slave_apn"},
    {0xf121, "vendor_slave_user"}, {0xf122, "vendor_slave_password"}, {0xf123, "slave_server_address"},
    {0xf124, "vendor_f124"}, {0xf125, "vendor_f125"}, {0xf126, "vendor_f126"}, {0xf127, "vendor_f127"},
    {0xf128, "vendor_f128"}, {0xf129, "vendor_f129"}, {0xf12a, "vendor_f12a"}, {0xf200, "vendor_f200"},
    {0xf201, "vendor_f201"}, {0xf202, "vendor_f202"}, {0xf364, "adas_params"}, {0xf365, "dsm_params"},
    {0xf366, "tpms_params"}, {0xf367, "bsd_params"}, {0xf368, "vds_params"}, {0xf370, "intense_driving"},
    {0xf372, "overload_params"}, {0xf373, "oversize_params"}, {0xf3f0, "rs485_inquiry"}, {0xf400, "muck_truck_alarm"},
    {0xf441, "debug_dump_f441"}, {0xf641, "debug_dump_f641"}, {0xfe05, "vendor_fe05"}, {0xfe06, "vendor_fe06"},
    {0xfe09, "vendor_fe09"}, {0xfe0a, "vendor_fe0a"}, {0xfe10, "night_fatigue"}, {0xff00, "device_mac"},
    {0xff01, "factory_id"}, {0xff02, "terminal_type"},
};

const std::vector<ParamName> kTaxiNames = {
    {0x0001, "heartbeat_interval"}, {0x0002, "tcp_reply_timeout"}, {0x0003, "tcp_retransmissions"},
    {0x0004, "udp_reply_timeout"}, {0x0005, "udp_retransmissions"}, {0x0010, "main_server_apn"},
    {0x0011, "main_server_user"}, {0x0012, "main_server_password"}, {0x0013, "main_server_address"},
    {0x0014, "backup_server_apn"}, {0x0015, "backup_server_user"}, {0x0016, "backup_server_password"},
    {0x0017, "backup_server_address"}, {0x0018, "server_tcp_port"}, {0x0019, "server_udp_port"},
    {0x001a, "param_001a"}, {0x001b, "param_001b"}, {0x001c, "param_001c"}, {0x001d, "param_001d"},
    {0x0020, "param_0020"}, {0x0021, "param_0021"}, {0x0022, "param_0022"}, {0x0023, "param_0023"},
    {0x0024, "param_0024"}, {0x0025, "param_0025"}, {0x0026, "param_0026"}, {0x0027, "param_0027"},
    {0x0028, "param_0028"}, {0x0029, "param_0029"}, {0x002a, "param_002a"}, {0x002b, "param_002b"},
    {0x002c, "param_002c"}, {0x002d, "param_002d"}, {0x002e, "param_002e"}, {0x002f, "param_002f"},
    {0x0030, "param_0030"}, {0x0040, "phone_0040"}, {0x0041, "phone_0041"}, {0x0042, "phone_0042"},
    {0x0043, "phone_0043"}, {0x0044, "phone_0044"}, {0x0045, "param_0045"}, {0x0046, "param_0046"},
    {0x0047, "param_0047"}, {0x0048, "param_0048"}, {0x0049, "phone_0049"}, {0x004a, "phone_004a"},
    {0x004b, "param_004b"}, {0x0050, "param_0050"}, {0x0051, "param_0051"}, {0x0052, "param_0052"},
    {0x0053, "param_0053"}, {0x0055, "param_0055"}, {0x0056, "param_0056"}, {0x0057, "param_0057"},
    {0x0058, "param_0058"}, {0x0059, "param_0059"}, {0x005a, "param_005a"}, {0x0070, "image_quality"},
    {0x0071, "brightness"}, {0x0072, "contrast"}, {0x0073, "saturation"}, {0x0074, "chroma"}, {0x0077, "param_0077"},
    {0x0078, "param_0078"}, {0x0079, "param_0079"}, {0x0080, "param_0080"}, {0x0081, "param_0081"},
    {0x0082, "param_0082"}, {0x0090, "param_0090"}, {0x0091, "param_0091"}, {0x0092, "param_0092"},
    {0x0093, "param_0093"}, {0x0094, "param_0094"}, {0x00a0, "param_00a0"}, {0x00a1, "param_00a1"},
    {0x00a2, "param_00a2"}, {0x00a3, "param_00a3"}, {0x00af, "param_00af"}, {0x00b0, "param_00b0"},
    {0x00b1, "param_00b1"}, {0x00b2, "param_00b2"}, {0x00b3, "param_00b3"}, {0x00b4, "param_00b4"},
    {0x00b5, "param_00b5"}, {0xf001, "param_f001"}, {0xf002, "param_f002"}, {0xf003, "param_f003"},
    {0xf004, "param_f004"}, {0xf005, "param_f005"}, {0xf006, "param_f006"}, {0xf007, "param_f007"},
    {0xf008, "param_f008"}, {0xf010, "param_f010"}, {0xf011, "param_f011"}, {0xf012, "param_f012"},
    {0xf013, "param_f013"}, {0xf014, "param_f014"}, {0xf015, "param_f015"},
};
// clang-format on

std::vector<ParamDef> catalogue_with_names(RecordKind kind) {
    const std::vector<ParamName>& names = param_names(kind);
    std::vector<ParamDef> t;
    for (int i = 0; i < bbconf::param_count(kind); i++) {
        const bbconf::ParamInfo info = bbconf::param_at(kind, i);
        auto it = std::lower_bound(names.begin(), names.end(), info.id,
                                   [](const ParamName& n, uint16_t id) { return n.id < id; });
        t.push_back(ParamDef{info.id, it != names.end() && it->id == info.id ? it->name : "", info});
    }
    return t;
}

}  // namespace

const std::vector<ParamName>& param_names(RecordKind kind) {
    return kind == RecordKind::Terminal ? kTerminalNames : kTaxiNames;
}

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
    static const std::vector<ParamDef> terminal = catalogue_with_names(RecordKind::Terminal);
    static const std::vector<ParamDef> taxi = catalogue_with_names(RecordKind::Taxi);
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

bool is_number(const ParamDef& d) { return d.info.kind == ValueKind::Number; }

bool is_text(const ParamDef& d) { return d.info.kind == ValueKind::Text || d.info.kind == ValueKind::Endpoint; }

size_t number_width(const ParamDef& d) { return is_number(d) ? d.info.set_len : 0; }

size_t value_width(const ParamDef& d) {
    return is_number(d) ? std::min<size_t>(d.info.set_len, d.info.field_size) : 0;
}

bool is_settable(const ParamDef& d) { return d.info.settable; }

bool is_set_only(const ParamDef& d) { return d.info.settable && !d.info.readable && d.info.field_size != 0; }

bool is_readable(const ParamDef& d) {
    return (d.info.readable && d.info.kind != ValueKind::Identity) || is_set_only(d);
}

bool is_queryable(const ParamDef& d) { return is_readable(d) && !is_set_only(d); }

std::string kind_label(const ParamDef& d) {
    const bbconf::ParamInfo& p = d.info;
    switch (p.kind) {
        case ValueKind::Number: return "u" + std::to_string(8 * value_width(d));
        case ValueKind::Text: return "text(" + std::to_string(p.set_len) + ")";
        case ValueKind::Endpoint: return "text";
        case ValueKind::Raw:
        case ValueKind::List: return "raw(" + std::to_string(p.settable ? p.set_len : p.get_max) + ")";
        case ValueKind::Block:
            if (!p.settable) return "block(" + std::to_string(p.min_get_buf) + ")";
            return p.fixed_set ? "block(" + std::to_string(p.set_len) + ")" : "block";
        case ValueKind::Ignored:
        case ValueKind::Silent: return "none";
        case ValueKind::Identity: return "device";
        case ValueKind::Debug: return "debug";
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
