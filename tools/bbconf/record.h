// record.h - a parameter record in memory and in its file, on the record
// store: the record's bytes followed by their CRC-CCITT (initial value
// 0xABCD) as a little-endian u16.  The file size tells the record kind.
#ifndef BBCONF_TOOL_RECORD_H
#define BBCONF_TOOL_RECORD_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "bbconf.h"
#include "bbconf_store.h"
#include "params.h"

namespace bbtool {


class Record {
  public:
    explicit Record(RecordKind kind = RecordKind::Terminal) { set_kind(kind); }

    RecordKind kind() const { return mem_.rec.kind; }
    void set_kind(RecordKind kind) { mem_.rec.kind = kind; }
    size_t size() const { return mem_.rec.size(); }
    unsigned char* bytes() { return mem_.rec.bytes(); }
    const unsigned char* bytes() const { return mem_.rec.bytes(); }
    tagBB_CONF_ST* terminal() { return &mem_.rec.terminal; }
    const tagBB_CONF_ST* terminal() const { return &mem_.rec.terminal; }
    tagBBTAXI_CONF_ST* taxi() { return &mem_.rec.taxi; }
    bbconf::AnyRecord& stored() { return mem_.rec; }

    // Factory defaults of the record's kind.
    void reset_to_defaults();

  private:
    // The record is followed by zero bytes, so that a text field that lost
    // its terminator cannot lead a reader beyond the object.
    struct Storage {
        bbconf::AnyRecord rec;
        unsigned char guard[64];
    } mem_{};
    static_assert(sizeof(Storage) == 1 + sizeof(tagBB_CONF_ST) + 64, "the guard follows the record directly");
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

// Result of a locked read-modify-write.
struct UpdateResult {
    LoadResult loaded;     // what the read found (ok false: the edit never ran)
    bool existed = false;  // there was a file before
    bool written = false;  // the file was replaced
    std::string error;     // a read or write fault, one line
};

// Called with the record read (or, for a missing file with `create`, as
// passed in); returns true to write it.
using RecordEdit = std::function<bool(Record& rec, const UpdateResult& found)>;

// Locks FILE's directory, reads FILE, runs the edit and writes the record
// if it asks, all under the lock.  `create` lets the edit run on a missing
// file, `replace` does not read the old file at all.
UpdateResult update_record(const std::string& path, bool force, bool create, bool replace, Record& rec,
                           const RecordEdit& edit);

bool file_exists(const std::string& path);

}  // namespace bbtool

#endif  // BBCONF_TOOL_RECORD_H
