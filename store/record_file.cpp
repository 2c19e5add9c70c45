// record_file.cpp - load, durable save and locked update of record files.
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "bbconf_store.h"
#include "common/byteorder.h"

namespace bbconf {

namespace {

constexpr char kTempSuffix[] = ".tmp";

// The file a write replaces, its directory and the temporary file beside it.
struct WritePaths {
    char target[PATH_MAX];
    char dir[PATH_MAX];
    char tmp[PATH_MAX];
};

StoreResult fault(StoreStatus status, int err, bool writing, const char* note = nullptr) {
    StoreResult res;
    res.status = status;
    res.sys_errno = err;
    res.writing = writing;
    res.note = note;
    return res;
}

// The status of a failed system call.
StoreResult from_errno(int err, bool writing) {
    StoreStatus status = StoreStatus::io;
    if (err == EACCES || err == EPERM) {
        status = StoreStatus::permission;
    } else if (err == ENOENT || err == ENOTDIR) {
        status = StoreStatus::missing;
    }
    return fault(status, err, writing);
}

bool copy_path(char* dst, const char* src, size_t n) {
    if (n >= PATH_MAX) return false;
    memcpy(dst, src, n);
    dst[n] = '\0';
    return true;
}

// Follows a symbolic link to the file it names; a link to nothing is
// refused, so that a write never turns a link into a regular file.
bool resolve(const char* path, WritePaths& p, StoreResult& res) {
    struct stat lst;
    if (::lstat(path, &lst) == 0 && S_ISLNK(lst.st_mode)) {
        if (::realpath(path, p.target) == nullptr) {
            res = errno == ENOENT ? fault(StoreStatus::dangling_link, ENOENT, true) : from_errno(errno, true);
            return false;
        }
    } else if (!copy_path(p.target, path, strlen(path))) {
        res = fault(StoreStatus::io, ENAMETOOLONG, true);
        return false;
    }
    const char* slash = strrchr(p.target, '/');
    const bool ok = slash == nullptr    ? copy_path(p.dir, ".", 1)
                    : slash == p.target ? copy_path(p.dir, "/", 1)
                                        : copy_path(p.dir, p.target, static_cast<size_t>(slash - p.target));
    const size_t n = strlen(p.target);
    if (!ok || n + sizeof kTempSuffix > PATH_MAX) {
        res = fault(StoreStatus::io, ENAMETOOLONG, true);
        return false;
    }
    memcpy(p.tmp, p.target, n);
    memcpy(p.tmp + n, kTempSuffix, sizeof kTempSuffix);
    return true;
}

// Whether the caller may replace an existing file.  Root passes every
// permission check, so for root a file without any write bit counts as
// refused: it was made read-only on purpose.
bool may_write(const char* path, const struct stat& st) {
    if (::geteuid() == 0) return (st.st_mode & 0222) != 0;
    return ::faccessat(AT_FDCWD, path, W_OK, AT_EACCESS) == 0;
}

StoreStatus size_status(uint64_t size, unsigned flags, RecordKind& kind) {
    if (size == record_file_size(RecordKind::Terminal)) {
        kind = RecordKind::Terminal;
    } else if (size == record_file_size(RecordKind::Taxi)) {
        kind = RecordKind::Taxi;
    } else {
        return StoreStatus::bad_size;
    }
    if ((flags & kStoreTerminalOnly) && kind != RecordKind::Terminal) return StoreStatus::wrong_kind;
    if ((flags & kStoreTaxiOnly) && kind != RecordKind::Taxi) return StoreStatus::wrong_kind;
    return StoreStatus::ok;
}

// Reads exactly n bytes; false with errno set, or with errno 0 at an early end.
bool read_exact(int fd, unsigned char* p, size_t n) {
    while (n > 0) {
        const ssize_t r = ::read(fd, p, n);
        if (r < 0 && errno == EINTR) continue;
        if (r <= 0) {
            if (r == 0) errno = 0;
            return false;
        }
        p += r;
        n -= static_cast<size_t>(r);
    }
    return true;
}

bool write_all(int fd, const unsigned char* p, size_t n) {
    while (n > 0) {
        const ssize_t w = ::write(fd, p, n);
        if (w < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        p += w;
        n -= static_cast<size_t>(w);
    }
    return true;
}

StoreResult read_open_file(int fd, AnyRecord& rec, unsigned flags) {
    struct stat st;
    if (::fstat(fd, &st) != 0) return from_errno(errno, false);
    if (!S_ISREG(st.st_mode)) return fault(StoreStatus::not_regular, 0, false);
    RecordKind kind = RecordKind::Terminal;
    const uint64_t size = static_cast<uint64_t>(st.st_size);
    const StoreStatus sized = size_status(size, flags, kind);
    if (sized != StoreStatus::ok) {
        StoreResult res = fault(sized, 0, false);
        res.file_size = size;
        res.kind = (flags & kStoreTaxiOnly) ? RecordKind::Taxi : RecordKind::Terminal;
        return res;
    }
    static const char kChanged[] = "it changed size while being read";
    const RecordKind asked = rec.kind;
    rec.kind = kind;
    unsigned char crc[kRecordCrcSize + 1];
    // One byte more than the CRC: a file that grew since fstat shows here.
    if (!read_exact(fd, rec.bytes(), rec.size()) || !read_exact(fd, crc, kRecordCrcSize)) {
        rec.kind = asked;
        return errno != 0 ? from_errno(errno, false) : fault(StoreStatus::io, 0, false, kChanged);
    }
    ssize_t extra;
    while ((extra = ::read(fd, crc + kRecordCrcSize, 1)) < 0 && errno == EINTR) {
    }
    if (extra != 0) {
        rec.kind = asked;
        return extra < 0 ? from_errno(errno, false) : fault(StoreStatus::io, 0, false, kChanged);
    }
    StoreResult res;
    res.kind = kind;
    res.stored_crc = load_ne16(crc);
    res.computed_crc = record_crc(rec);
    if (res.crc_mismatch() && !(flags & kStoreAcceptBadCrc)) res.status = StoreStatus::bad_crc;
    return res;
}

// Removes the temporary file and reports the failed step.
StoreResult abandon(const WritePaths& p, int fd, int err) {
    if (fd >= 0) ::close(fd);
    ::unlink(p.tmp);
    return from_errno(err, true);
}

// Writes rec to FILE.tmp and renames it over FILE.  The directory lock is
// held; `old` is the file being replaced, if any.
StoreResult commit(const WritePaths& p, int dir_fd, const AnyRecord& rec, const struct stat* old) {
    // Any FILE.tmp here is a leftover of a writer killed while it held the lock.
    if (::unlink(p.tmp) != 0 && errno != ENOENT) return from_errno(errno, true);
    const int fd = ::open(p.tmp, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (fd < 0) return from_errno(errno, true);

    unsigned char crc[kRecordCrcSize];
    store_ne16(crc, record_crc(rec));
    if (!write_all(fd, rec.bytes(), rec.size()) || !write_all(fd, crc, sizeof crc)) return abandon(p, fd, errno);
    if (old != nullptr) {
        struct stat mine;
        if (::fstat(fd, &mine) != 0) return abandon(p, fd, errno);
        // The owner first: chown clears the set-ID bits that fchmod then restores.
        if ((mine.st_uid != old->st_uid || mine.st_gid != old->st_gid) && ::fchown(fd, old->st_uid, old->st_gid) != 0) {
            StoreResult res = abandon(p, fd, errno);
            res.note = "cannot keep its owner";
            return res;
        }
        if (::fchmod(fd, old->st_mode & 07777) != 0) return abandon(p, fd, errno);
    }
    if (::fsync(fd) != 0) return abandon(p, fd, errno);
    if (::close(fd) != 0) return abandon(p, -1, errno);
    if (::rename(p.tmp, p.target) != 0) return abandon(p, -1, errno);
    // The rename is durable once the directory is.
    if (::fsync(dir_fd) != 0) {
        StoreResult res = from_errno(errno, true);
        res.written = true;
        return res;
    }
    StoreResult res;
    res.written = true;
    return res;
}

// The locked part of save and update.
StoreResult locked_update(const WritePaths& p, int dir_fd, AnyRecord& rec, RecordEdit edit, void* ctx, unsigned flags) {
    struct stat st;
    const bool exists = ::stat(p.target, &st) == 0;
    if (!exists && errno != ENOENT) return from_errno(errno, true);
    if (exists && !S_ISREG(st.st_mode)) return fault(StoreStatus::not_regular, 0, true);
    if (exists && !may_write(p.target, st)) {
        StoreResult res = fault(StoreStatus::permission, EACCES, true, "no write permission");
        res.file_mode = st.st_mode & 07777;
        return res;
    }
    StoreResult loaded;
    loaded.existed = exists;
    if (!exists) {
        if (!(flags & (kStoreCreate | kStoreReplace))) return fault(StoreStatus::missing, ENOENT, false);
        loaded.status = StoreStatus::missing;
        loaded.kind = rec.kind;
    } else if (!(flags & kStoreReplace)) {
        const int fd = ::open(p.target, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (fd < 0) return from_errno(errno, false);
        loaded = read_open_file(fd, rec, flags);
        ::close(fd);
        if (!loaded.ok()) return loaded;
        loaded.existed = true;
    }
    if (!edit(rec, loaded, ctx)) {
        StoreResult res = loaded;
        res.status = StoreStatus::ok;
        return res;
    }
    StoreResult res = commit(p, dir_fd, rec, exists ? &st : nullptr);
    res.existed = exists;
    res.stored_crc = loaded.stored_crc;
    res.computed_crc = loaded.computed_crc;
    return res;
}

}  // namespace

uint16_t record_crc(const AnyRecord& rec) {
    // The CRC routines take a non-const buffer but only read it.
    unsigned char* p = const_cast<unsigned char*>(rec.bytes());
    if (rec.kind == RecordKind::Terminal) return CMN_Get_CRC_CCITT(kRecordCrcInit, p, BB_CONF_LEN);
    return BBTAXI_Get_CRC_CCITT(kRecordCrcInit, p, BBTAXI_CONF_LEN);
}

StoreResult load_record(const char* path, AnyRecord& rec, unsigned flags) {
    // Look before opening: a FIFO or a device is refused without an open()
    // that could block or have side effects.  fstat repeats the check on
    // what was actually opened.
    struct stat st;
    if (::stat(path, &st) != 0) return from_errno(errno, false);
    if (!S_ISREG(st.st_mode)) return fault(StoreStatus::not_regular, 0, false);
    const int fd = ::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return from_errno(errno, false);
    const StoreResult res = read_open_file(fd, rec, flags);
    ::close(fd);
    return res;
}

StoreResult update_record(const char* path, AnyRecord& rec, RecordEdit edit, void* ctx, unsigned flags) {
    WritePaths p;
    StoreResult res;
    if (!resolve(path, p, res)) return res;
    const int dir_fd = ::open(p.dir, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir_fd < 0) return from_errno(errno, true);
    int locked;
    while ((locked = ::flock(dir_fd, LOCK_EX)) != 0 && errno == EINTR) {
    }
    if (locked != 0) {
        res = from_errno(errno, true);
    } else {
        res = locked_update(p, dir_fd, rec, edit, ctx, flags);
    }
    ::close(dir_fd);  // releases the lock
    return res;
}

StoreResult save_record(const char* path, const AnyRecord& rec) {
    AnyRecord copy = rec;
    return update_record(
        path, copy, [](AnyRecord&, const StoreResult&, void*) { return true; }, nullptr, kStoreReplace);
}

int store_message(const StoreResult& res, const char* path, char* buf, size_t size) {
    const char* verb = res.writing ? "write" : "read";
    const unsigned long long found = res.file_size;
    const size_t terminal = record_file_size(RecordKind::Terminal), taxi = record_file_size(RecordKind::Taxi);
    switch (res.status) {
        case StoreStatus::ok:
            return snprintf(buf, size, "%s: ok", path);
        case StoreStatus::dangling_link:
            return snprintf(buf, size, "cannot write %s: it is a symbolic link to a missing file", path);
        case StoreStatus::not_regular:
            return snprintf(buf, size, "%s is not a regular file", path);
        case StoreStatus::bad_size:
            return snprintf(buf, size,
                            "%s: %llu bytes is not a record file (a terminal record file has %zu bytes, a taxi "
                            "record file %zu)",
                            path, found, terminal, taxi);
        case StoreStatus::wrong_kind:
            return snprintf(buf, size, "%s: %llu bytes is not a %s record file (%zu bytes)", path, found,
                            res.kind == RecordKind::Terminal ? "terminal" : "taxi", record_file_size(res.kind));
        case StoreStatus::bad_crc:
            return snprintf(buf, size,
                            "%s: checksum mismatch (stored 0x%04x, computed 0x%04x): the file is damaged or was "
                            "edited",
                            path, res.stored_crc, res.computed_crc);
        case StoreStatus::missing:
        case StoreStatus::permission:
        case StoreStatus::io:
            break;
    }
    if (res.file_mode != 0 || (res.note != nullptr && res.sys_errno == EACCES)) {
        return snprintf(buf, size, "cannot %s %s: %s (mode %04o)", verb, path, res.note, res.file_mode);
    }
    if (res.note != nullptr && res.sys_errno != 0) {
        return snprintf(buf, size, "cannot %s %s: %s: %s", verb, path, res.note, strerror(res.sys_errno));
    }
    return snprintf(buf, size, "cannot %s %s: %s", verb, path,
                    res.note != nullptr ? res.note : strerror(res.sys_errno));
}

}  // namespace bbconf
