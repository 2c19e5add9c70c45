// record.h - a parameter record in memory and in its file: the record's
// bytes followed by their CRC-CCITT (initial value 0xABCD) as a
// little-endian u16.  The file size tells the record kind.
#ifndef BBCONF_TOOL_RECORD_H
#define BBCONF_TOOL_RECORD_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "bbconf.h"
#include "params.h"

namespace bbtool {

constexpr uint16_t kCrcInit = 0xABCD;
constexpr size_t kCrcSize = 2;

inline size_t file_size_of(RecordKind kind) { return record_size(kind) + kCrcSize; }

class Record {
  public:
    explicit Record(RecordKind kind = RecordKind::Terminal) : kind_(kind) {}

    RecordKind kind() const { return kind_; }
    size_t size() const { return record_size(kind_); }
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(&mem_.u.terminal); }
    const unsigned char* bytes() const { return reinterpret_cast<const unsigned char*>(&mem_.u.terminal); }
    tagBB_CONF_ST* terminal() { return &mem_.u.terminal; }
    const tagBB_CONF_ST* terminal() const { return &mem_.u.terminal; }
    tagBBTAXI_CONF_ST* taxi() { return &mem_.u.taxi; }

    // The record's CRC as the file stores it.
    uint16_t crc() const;
    // Factory defaults of the record's kind.
    void reset_to_defaults();

  private:
    RecordKind kind_;
    // The record is followed by zero bytes, so that a text field that lost
    // its terminator cannot lead a reader beyond the object.
    struct Storage {
        union {
            tagBB_CONF_ST terminal;
            tagBBTAXI_CONF_ST taxi;
        } u;
        unsigned char guard[64];
    } mem_{};
};

// Result of reading a record file.
struct LoadResult {
    bool ok = false;
    std::string error;          // one line, names the file and the fault
    bool crc_mismatch = false;  // set when the size was right but the CRC was not
    uint16_t stored_crc = 0;
    uint16_t computed_crc = 0;
};

// Reads FILE into `rec` (whose kind is taken from the file size).  A CRC
// mismatch fails unless `force`.
LoadResult load_record(const std::string& path, bool force, Record& rec);

// Writes the record and its CRC to a temporary file in FILE's directory,
// syncs it and renames it over FILE.  An existing file keeps its mode.
// Returns false with a reason; FILE is then untouched.
bool save_record(const std::string& path, const Record& rec, std::string& error);

bool file_exists(const std::string& path);

}  // namespace bbtool

#endif  // BBCONF_TOOL_RECORD_H
