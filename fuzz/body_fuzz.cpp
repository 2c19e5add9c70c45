// body_fuzz.cpp - the bbconf tool's parsers of hex text and of 0x8103 /
// 0x0104 parameter lists.  A list that parses must build back to the same
// bytes, and hex that parses must round-trip through to_hex.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "body.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string error;
    std::vector<bbtool::BodyParam> params;
    if (bbtool::parse_param_body(data, size, params, error)) {
        std::vector<uint8_t> rebuilt;
        if (!bbtool::build_param_body(params, rebuilt, error) || rebuilt != std::vector<uint8_t>(data, data + size)) {
            std::abort();
        }
    } else if (!params.empty() || error.empty()) {
        std::abort();
    }

    std::string text(reinterpret_cast<const char*>(data), size);
    std::vector<uint8_t> bytes;
    if (bbtool::parse_hex(text, bytes, error)) {
        std::vector<uint8_t> again;
        if (!bbtool::parse_hex(bbtool::to_hex(bytes), again, error) || again != bytes) {
            std::abort();
        }
    } else if (!bytes.empty() || error.empty()) {
        std::abort();
    }
    return 0;
}
