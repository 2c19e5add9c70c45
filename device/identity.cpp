/* identity.cpp - the device identity: Ethernet MAC address from sysfs, the
 * fixed terminal type and manufacturer ID. */
#include "device/identity.h"

#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include "bbconf.h"
#include "common/log.h"
#include "common/strcopy.h"

namespace bbconf {
namespace {

constexpr const char kMacFile[] = "/sys/class/net/eth0/address";
constexpr const char kTerminalType[] = "MDVR";
constexpr const char kFactoryId[] = "40917";
constexpr int kMacLen = 6;
/* "xx:xx:xx:xx:xx:xx\n" */
constexpr int kMacTextLen = 18;

/* Copies a fixed text as strlcpy does and reports it; buf may be NULL. */
char* report_fixed_text(const char* fn, const char* label, const char* text, char* buf, int size) {
    if (buf != NULL && size > 0) {
        copy_bounded(buf, text, static_cast<size_t>(size));
    }
    const char* shown = buf != NULL ? buf : "(null)";
    int most = (buf != NULL && size <= 0) ? 0 : (buf != NULL ? size : 6);
    BB_INF_FN(fn, "%s:%.*s\n", label, most, shown);
    return buf;
}

}  // namespace

int read_mac_file(const char* path, unsigned char* mac, int size) {
    static const char fn[] = "GetMacFormFile";
    if (size <= kMacLen) {
        BB_ERR_FN(fn, "MAC Size less than 6\n");
        return 0;
    }
    int fd = open(path, O_RDONLY);
    if (fd <= 0) {
        BB_ERR_FN(fn, "Open MAC File Err:%d\n", fd);
        if (fd == 0) {
            close(fd);
        }
        return 0;
    }
    /* One byte more than the text so that sscanf always meets a NUL. */
    char text[kMacTextLen + 1];
    memset(text, 0, sizeof text);
    ssize_t got = read(fd, text, kMacTextLen);
    if (got <= 0) {
        BB_ERR_FN(fn, "Read MAC Fail:%d\n", static_cast<int>(got));
        close(fd);
        return 0;
    }
    /* One value carried across the scans: a position that does not scan
     * repeats the previous byte. */
    unsigned int value = 0;
    const char* pos = text;
    for (int i = 0; i < kMacLen; i++, pos += 3) {
        sscanf(pos, "%02x", &value);
        mac[i] = static_cast<unsigned char>(value);
    }
    close(fd);
    return kMacLen;
}

}  // namespace bbconf

int GetMacFormFile(unsigned char* mac, int size) { return bbconf::read_mac_file(bbconf::kMacFile, mac, size); }

char* GetDeviceTerminalType(char* buf, int size) {
    return bbconf::report_fixed_text(__func__, "TerminalType", bbconf::kTerminalType, buf, size);
}

char* GetDeviceFactoryId(char* buf, int size) {
    return bbconf::report_fixed_text(__func__, "FactoryId", bbconf::kFactoryId, buf, size);
}
