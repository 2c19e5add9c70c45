// record.cpp - record files: size and CRC on read, write-and-rename on save.
#include "record.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace bbtool {

namespace {

std::string hex16(uint16_t v) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "0x%04x", v);
    return buf;
}

std::string directory_of(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

bool write_all(int fd, const unsigned char* p, size_t n) {
    while (n > 0) {
        ssize_t w = ::write(fd, p, n);
        if (w < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        p += w;
        n -= static_cast<size_t>(w);
    }
    return true;
}

}  // namespace

uint16_t Record::crc() const {
    // The library's CRC routines take a non-const buffer but only read it.
    unsigned char* p = const_cast<unsigned char*>(bytes());
    if (kind_ == RecordKind::Terminal) {
        return CMN_Get_CRC_CCITT(kCrcInit, p, BB_CONF_LEN);
    }
    return BBTAXI_Get_CRC_CCITT(kCrcInit, p, BBTAXI_CONF_LEN);
}

void Record::reset_to_defaults() {
    if (kind_ == RecordKind::Terminal) {
        CMN_InitBbConfToDefault(terminal());
    } else {
        BBTAXI_InitToDefault(taxi());
    }
}

bool file_exists(const std::string& path) {
    struct stat st;
    return ::stat(path.c_str(), &st) == 0;
}

LoadResult load_record(const std::string& path, bool force, Record& rec) {
    LoadResult res;
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        res.error = "cannot read " + path + ": " + std::strerror(errno);
        return res;
    }
    struct stat st;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        res.error = path + " is not a regular file";
        ::close(fd);
        return res;
    }
    const size_t size = static_cast<size_t>(st.st_size);
    RecordKind kind;
    if (size == file_size_of(RecordKind::Terminal)) {
        kind = RecordKind::Terminal;
    } else if (size == file_size_of(RecordKind::Taxi)) {
        kind = RecordKind::Taxi;
    } else {
        res.error = path + ": " + std::to_string(size) + " bytes is not a record file (a terminal record file has " +
                    std::to_string(file_size_of(RecordKind::Terminal)) + " bytes, a taxi record file " +
                    std::to_string(file_size_of(RecordKind::Taxi)) + ")";
        ::close(fd);
        return res;
    }
    std::vector<unsigned char> buf(size);
    size_t got = 0;
    while (got < size) {
        ssize_t r = ::read(fd, buf.data() + got, size - got);
        if (r < 0 && errno == EINTR) continue;
        if (r <= 0) break;
        got += static_cast<size_t>(r);
    }
    ::close(fd);
    if (got != size) {
        res.error = "cannot read " + path + ": it changed size while being read";
        return res;
    }
    rec = Record(kind);
    std::memcpy(rec.bytes(), buf.data(), rec.size());
    res.stored_crc = static_cast<uint16_t>(buf[rec.size()] | buf[rec.size() + 1] << 8);
    res.computed_crc = rec.crc();
    if (res.stored_crc != res.computed_crc) {
        res.crc_mismatch = true;
        if (!force) {
            res.error = path + ": checksum mismatch (stored " + hex16(res.stored_crc) + ", computed " +
                        hex16(res.computed_crc) + "): the file is damaged or was edited";
            return res;
        }
    }
    res.ok = true;
    return res;
}

bool save_record(const std::string& file, const Record& rec, std::string& error) {
    // Replace the file a symbolic link points at, not the link.
    std::string path = file;
    if (char* real = ::realpath(file.c_str(), nullptr)) {
        path = real;
        std::free(real);
    }
    std::vector<unsigned char> out(rec.bytes(), rec.bytes() + rec.size());
    const uint16_t crc = rec.crc();
    out.push_back(static_cast<unsigned char>(crc & 0xff));
    out.push_back(static_cast<unsigned char>(crc >> 8));

    mode_t mode;
    struct stat st;
    if (::stat(path.c_str(), &st) == 0) {
        mode = st.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }

    std::string tmp = path + ".XXXXXX";
    const int fd = ::mkstemp(&tmp[0]);
    if (fd < 0) {
        error = "cannot write " + file + ": cannot create a temporary file beside it: " + std::strerror(errno);
        return false;
    }
    const bool ok = write_all(fd, out.data(), out.size()) && ::fchmod(fd, mode) == 0 && ::fsync(fd) == 0;
    const int saved_errno = errno;
    if (::close(fd) != 0 || !ok) {
        error = "cannot write " + file + ": " + std::strerror(ok ? errno : saved_errno);
        ::unlink(tmp.c_str());
        return false;
    }
    if (::rename(tmp.c_str(), path.c_str()) != 0) {
        error = "cannot write " + file + ": " + std::strerror(errno);
        ::unlink(tmp.c_str());
        return false;
    }
    // Make the rename itself durable.
    const int dfd = ::open(directory_of(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dfd >= 0) {
        ::fsync(dfd);
        ::close(dfd);
    }
    return true;
}

}  // namespace bbtool
