/* bbconf_store.h - record files that lose nothing: load with size and CRC
 * checks, durable save, and a read-modify-write under an exclusive lock.
 *
 * A record file holds the packed record followed by its CRC-CCITT (initial
 * value 0xABCD) as a little-endian u16: 3388 bytes for a terminal record,
 * 1039 for a taxi record; the size tells the kind.
 *
 * Load refuses a file that is not a regular file without blocking on it
 * (a FIFO or device is looked at, never read), checks the size and the CRC
 * and names the fault (StoreStatus, store_message).  Readers take no lock:
 * a record file is only ever replaced whole by a rename, so a reader sees
 * the old file or the new one.
 *
 * Save writes FILE.tmp beside the record, syncs it, renames it over FILE
 * and syncs the directory.  A symbolic link is followed: its target is
 * replaced and the link kept; a link to a missing file is refused
 * (StoreStatus::dangling_link) rather than replaced by a regular file.  An
 * existing file keeps its owner, group and mode (root editing a 0600 file
 * of the application's user leaves it theirs); a new file gets 0666 less
 * the umask.  A file the caller may not write is refused: for root that
 * means a file without any write bit (0444), which root could otherwise
 * replace at will.  A writer that cannot give the new file the old owner
 * (a user editing a group-writable file of another user) is refused too,
 * rather than taking the file over.
 *
 * Every write (save and update) holds an exclusive flock() on the record's
 * directory from before the read to after the rename.  The directory and
 * not the record is locked because the rename swaps the record's inode: a
 * lock on the old inode would let a second writer read a file that is
 * already stale.  A lock file beside the record would be one more file to
 * own, clean up and keep the right owner on; the directory is always there.
 * The cost is that writers of different records in one directory wait for
 * each other, for the few milliseconds of a save.  Every process that
 * writes record files must go through these functions (the bbconf tool
 * does); a plain write() of the file bypasses the lock.
 *
 * A writer killed before its rename leaves FILE.tmp behind.  Only the lock
 * holder creates FILE.tmp, so the next writer, holding the lock, knows any
 * FILE.tmp it finds is such a leftover and removes it first.  The name
 * FILE.tmp therefore belongs to the store.
 *
 * A process that runs under a file-size limit (RLIMIT_FSIZE) should ignore
 * SIGXFSZ; the save then fails with EFBIG and the original stays intact.
 *
 * No heap, no exceptions, no C++ runtime: POSIX calls and libc only.  Paths
 * are bounded by PATH_MAX.  Do not call the store from inside an update's
 * edit function (the lock is held: a nested write would wait for itself). */
#ifndef BBCONF_STORE_H
#define BBCONF_STORE_H

#include <stddef.h>
#include <stdint.h>

#include "bbconf_catalogue.h"

#if defined(BBCONF_STORE_BUILDING)
#define BBCONF_STORE_API __attribute__((visibility("default")))
#else
#define BBCONF_STORE_API
#endif

namespace bbconf {

constexpr uint16_t kRecordCrcInit = 0xABCD;
constexpr size_t kRecordCrcSize = 2;

constexpr size_t record_size(RecordKind kind) {
    return kind == RecordKind::Terminal ? sizeof(tagBB_CONF_ST) : sizeof(tagBBTAXI_CONF_ST);
}
constexpr size_t record_file_size(RecordKind kind) { return record_size(kind) + kRecordCrcSize; }

/* A record of either kind; a load sets the kind from the file size. */
struct AnyRecord {
    RecordKind kind = RecordKind::Terminal;
    union {
        tagBB_CONF_ST terminal;
        tagBBTAXI_CONF_ST taxi;
    };
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(&terminal); }
    const unsigned char* bytes() const { return reinterpret_cast<const unsigned char*>(&terminal); }
    size_t size() const { return record_size(kind); }
};

/* The CRC the file stores after the record. */
BBCONF_STORE_API uint16_t record_crc(const AnyRecord& rec);

enum class StoreStatus : unsigned char {
    ok,
    missing,        // no such file (or a directory on the path missing)
    dangling_link,  // a write through a symbolic link whose target is missing
    not_regular,    // a directory, FIFO, device or socket: refused unread
    bad_size,       // neither a terminal nor a taxi record file
    wrong_kind,     // a record file of the other kind than the one asked for
    bad_crc,        // the size is right, the CRC is not
    permission,     // the caller may not read or write it (or keep its owner)
    io,             // a read, write, sync or rename failed (full disk, file size limit, ...)
};

/* What a store call found.  sys_errno is the errno of the failed call (0
 * for size and CRC faults); the CRCs are set whenever a record was read
 * (they differ when a mismatch was let through with kStoreAcceptBadCrc). */
struct StoreResult {
    StoreStatus status = StoreStatus::ok;
    bool writing = false;  // the fault happened while writing, not reading
    bool written = false;  // the file was replaced
    bool existed = false;  // update: there was a file before
    int sys_errno = 0;
    const char* note = nullptr;              // a fixed reason where no errno tells it
    uint64_t file_size = 0;                  // bad_size / wrong_kind: the size found
    uint32_t file_mode = 0;                  // permission: the mode of the refused file
    RecordKind kind = RecordKind::Terminal;  // wrong_kind: the kind asked for
    uint16_t stored_crc = 0;
    uint16_t computed_crc = 0;

    bool ok() const { return status == StoreStatus::ok; }
    bool crc_mismatch() const { return stored_crc != computed_crc; }
};

/* Flags of load_record and update_record. */
constexpr unsigned kStoreAcceptBadCrc = 1u << 0;  // a CRC mismatch is read anyway (status ok, crc_mismatch())
constexpr unsigned kStoreCreate = 1u << 1;        // update: a missing file is created (the edit sees missing)
constexpr unsigned kStoreReplace = 1u << 2;       // update: the old contents are not read (implies kStoreCreate)
constexpr unsigned kStoreTerminalOnly = 1u << 3;  // anything but a terminal record file is wrong_kind
constexpr unsigned kStoreTaxiOnly = 1u << 4;      // anything but a taxi record file is wrong_kind

/* One line naming the file and the fault, without a line feed, such as
 * "cannot read conf.bbc: No such file or directory" or "conf.bbc: checksum
 * mismatch (stored 0x1234, computed 0xbeef): the file is damaged or was
 * edited".  Always terminated; returns what snprintf returns. */
BBCONF_STORE_API int store_message(const StoreResult& res, const char* path, char* buf, size_t size);

/* Reads FILE into rec.  On any failure but an accepted CRC mismatch the
 * record's bytes are unspecified. */
BBCONF_STORE_API StoreResult load_record(const char* path, AnyRecord& rec, unsigned flags = 0);

/* Writes rec durably over FILE (see the top of this header). */
BBCONF_STORE_API StoreResult save_record(const char* path, const AnyRecord& rec);

/* The edit of an update: changes rec and returns true to write it, or
 * returns false to leave the file as it is.  `loaded` tells what the read
 * found: ok (possibly with a CRC mismatch let through), or missing with
 * kStoreCreate / kStoreReplace, rec then holding what the caller passed in
 * (kStoreReplace never reads the file: loaded.existed tells whether there
 * was one). */
using RecordEdit = bool (*)(AnyRecord& rec, const StoreResult& loaded, void* ctx);

/* Locks FILE's directory, reads FILE, runs the edit and, if it returns
 * true, saves the record before unlocking.  `written` tells whether the
 * file was replaced; a failed read never calls the edit. */
BBCONF_STORE_API StoreResult update_record(const char* path, AnyRecord& rec, RecordEdit edit, void* ctx,
                                           unsigned flags = 0);

/* The same for an application that keeps one record kind.  The edit is any
 * callable taking the record and returning bool; a file of the other kind
 * is wrong_kind.  With kStoreCreate a missing file starts from rec as passed
 * in (factory defaults, say).  rec receives what was read (and edited) on
 * success. */
template <class Rec>
struct RecordKindOf;
template <>
struct RecordKindOf<tagBB_CONF_ST> {
    static constexpr RecordKind kind = RecordKind::Terminal;
    static constexpr unsigned only = kStoreTerminalOnly;
    static tagBB_CONF_ST& in(AnyRecord& a) { return a.terminal; }
};
template <>
struct RecordKindOf<tagBBTAXI_CONF_ST> {
    static constexpr RecordKind kind = RecordKind::Taxi;
    static constexpr unsigned only = kStoreTaxiOnly;
    static tagBBTAXI_CONF_ST& in(AnyRecord& a) { return a.taxi; }
};

template <class Rec>
StoreResult load_record(const char* path, Rec& rec, unsigned flags = 0) {
    AnyRecord any{};
    const StoreResult res = load_record(path, any, flags | RecordKindOf<Rec>::only);
    if (res.ok()) rec = RecordKindOf<Rec>::in(any);
    return res;
}

template <class Rec>
StoreResult save_record(const char* path, const Rec& rec) {
    AnyRecord any{};
    any.kind = RecordKindOf<Rec>::kind;
    RecordKindOf<Rec>::in(any) = rec;
    return save_record(path, any);
}

template <class Rec, class Edit>
StoreResult update_record(const char* path, Rec& rec, Edit edit, unsigned flags = 0) {
    AnyRecord any{};
    any.kind = RecordKindOf<Rec>::kind;
    RecordKindOf<Rec>::in(any) = rec;
    const RecordEdit call = [](AnyRecord& a, const StoreResult&, void* ctx) -> bool {
        return (*static_cast<Edit*>(ctx))(RecordKindOf<Rec>::in(a));
    };
    const StoreResult res = update_record(path, any, call, &edit, flags | RecordKindOf<Rec>::only);
    if (res.ok()) rec = RecordKindOf<Rec>::in(any);
    return res;
}

}  // namespace bbconf

#endif
