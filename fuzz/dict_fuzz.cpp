// dict_fuzz.cpp - the terminal catalogue: a default record, then a
// sequence of sets, checked sets and gets with fuzzer-chosen IDs, lengths
// and bytes.
//
// Each call honours the caller obligations of CMN_SetParam / CMN_GetParam:
// the value buffer holds what the ID reads (a block's whole wire form,
// and the 56 logged bytes in front of an ADAS block), and the get buffer is
// BufLen bytes but never smaller than what the ID writes regardless of
// BufLen.  Buffers are exact heap allocations, so any byte beyond them is
// a finding.
#include <cstdint>

#include "bbconf.h"
#include "bbconf_catalogue.h"
#include "fuzz_support.h"

namespace {

// Interesting IDs get picked often; any 16-bit value can occur.
const uint16_t kIds[] = {
    0x0001, 0x0010, 0x0013, 0x0026, 0x0031, 0x0040, 0x0075, 0x0076, 0x0077, 0x0079, 0x007b, 0x007c,
    0x0081, 0x0083, 0x0084, 0x00a1, 0x0110, 0x101a, 0x8620, 0x8f21, 0xc21b, 0xc222, 0xc255, 0xe138,
    0xe139, 0xe140, 0xe141, 0xf001, 0xf002, 0xf0e9, 0xf0ef, 0xf114, 0xf123, 0xf364, 0xf365, 0xf366,
    0xf367, 0xf368, 0xf370, 0xf372, 0xf373, 0xf3f0, 0xf400, 0xf441, 0xf641, 0xfe06, 0xfe10, 0xff01,
    0xff02, 0x0000, 0xffff};

bbconf::ParamInfo info_of(int id) {
    bbconf::ParamInfo p{};
    bbconf::find_param(bbconf::RecordKind::Terminal, static_cast<uint32_t>(id), &p);
    return p;
}

// Wire bytes a set of the ID reads whatever len says: a number's width, a
// block's whole wire form (0x0077: all twelve channels).
size_t set_reads(int id) {
    const bbconf::ParamInfo p = info_of(id);
    return p.kind == bbconf::ValueKind::Number || p.kind == bbconf::ValueKind::Block ? p.set_len : 0;
}

// Bytes a get writes whatever BufLen says.
size_t get_writes(int id) { return info_of(id).get_width; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bbfuzz::silence_stdout();
    static tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);
    bbfuzz::Reader in(data, size);
    for (int step = 0; step < 32 && !in.empty(); step++) {
        uint8_t op = in.u8();
        int id = (op & 0x40) ? in.u16() : kIds[in.u8() % (sizeof kIds / sizeof kIds[0])];
        int len = static_cast<int8_t>(in.u8()) * ((op & 0x20) ? 3 : 1);  // negative and >255 too
        if ((op & 0x90) == 0x90) {
            // The checked set reads len bytes and no more.
            std::vector<uint8_t> value = in.bytes(static_cast<size_t>(len > 0 ? len : 0));
            bbfuzz::ExactBuffer buf(0, value.size(), value);
            bbconf::set_param(&conf, static_cast<uint32_t>(id), buf.data(), value.size());
        } else if (op & 0x80) {
            size_t room = static_cast<size_t>(len > 0 ? len : 0);
            size_t need = set_reads(id);
            std::vector<uint8_t> value = in.bytes(room > need ? room : need);
            bbfuzz::ExactBuffer buf(id == 0xf364 ? 56 : 0, value.size(), value);
            CMN_SetParam(&conf, id, buf.data(), len);
        } else {
            // BufLen is the real size of the buffer, never negative.
            int buflen = len < 0 ? -len : len;
            size_t need = get_writes(id);
            size_t room = static_cast<size_t>(buflen) > need ? static_cast<size_t>(buflen) : need;
            bbfuzz::ExactBuffer buf(id == 0xf364 ? 56 : 0, room, in.bytes(0));
            CMN_GetParam(&conf, id, buf.data(), buflen);
        }
    }
    CMN_UpdateCheckSum(&conf);
    return 0;
}
