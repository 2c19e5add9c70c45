// taxi_fuzz.cpp - the taxi dictionary: a default taxi record, then sets and
// gets with fuzzer-chosen IDs, lengths and bytes.  Value buffers hold at
// least the 4 bytes a number reads; get buffers are BufLen bytes but at
// least the 4 bytes a number writes.
#include <cstdint>

#include "bbconf.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bbfuzz::silence_stdout();
    static tagBBTAXI_CONF_ST taxi;
    BBTAXI_InitToDefault(&taxi);
    bbfuzz::Reader in(data, size);
    for (int step = 0; step < 32 && !in.empty(); step++) {
        uint8_t op = in.u8();
        int id = (op & 0x40) ? in.u16() : in.u8();
        int len = static_cast<int8_t>(in.u8());
        if (op & 0x80) {
            size_t room = static_cast<size_t>(len > 4 ? len : 4);
            std::vector<uint8_t> value = in.bytes(room);
            bbfuzz::ExactBuffer buf(0, room, value);
            BBTAXI_SetParam(&taxi, id, buf.data(), len);
        } else {
            int buflen = len < 0 ? -len : len;
            size_t room = static_cast<size_t>(buflen > 4 ? buflen : 4);
            bbfuzz::ExactBuffer buf(0, room, in.bytes(0));
            BBTAXI_GetParam(&taxi, id, buf.data(), buflen);
        }
    }
    BBTAXI_Get_CRC_CCITT(0xabcd, reinterpret_cast<unsigned char*>(&taxi), sizeof taxi);
    return 0;
}
