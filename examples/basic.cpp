// basic.cpp - fill a terminal record with factory defaults, set and read
// parameters by ID in their big-endian wire form, and checksum the record.
#include <cstdio>
#include <cstring>

#include "bbconf.h"

int main() {
    static tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);

    // Heartbeat interval 0x0001: a U32, big-endian on the wire.
    unsigned char heartbeat[4] = {0x00, 0x00, 0x00, 0x1e};
    CMN_SetParam(&conf, 0x0001, heartbeat, sizeof heartbeat);

    // Main server APN 0x0010: text of at most 31 characters.
    const char apn[] = "cmnet";
    CMN_SetParam(&conf, 0x0010, (unsigned char*)apn, (int)strlen(apn));

    unsigned char buf[64] = {0};
    int n = CMN_GetParam(&conf, 0x0001, buf, sizeof buf);
    std::printf("0x0001 -> %d bytes: %02x %02x %02x %02x\n", n, buf[0], buf[1], buf[2], buf[3]);

    std::memset(buf, 0, sizeof buf);
    n = CMN_GetParam(&conf, 0x0010, buf, sizeof buf);
    std::printf("0x0010 -> %d bytes: \"%.*s\"\n", n, n, (const char*)buf);

    unsigned int port = 0;
    CMN_GetDWordParam(&conf, 0x0018, &port);
    std::printf("0x0018 server TCP port: %u\n", port);

    int crc = CMN_UpdateCheckSum(&conf);
    std::printf("record checksum: 0x%04x\n", crc);
    return 0;
}
