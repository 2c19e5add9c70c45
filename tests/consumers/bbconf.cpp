// A terminal application as an integrator writes it against libbbconf:
// factory defaults, the heartbeat interval set and read back in its wire
// form, the record checksummed for persisting.  Built by scripts/consumer-test
// through every way the README gives; exits 0 when each answer is right.
#include <bbconf.h>
#include <stdio.h>
#include <string.h>

int main() {
    static tagBB_CONF_ST conf;
    CMN_InitBbConfToDefault(&conf);

    unsigned char wire[4] = {0x00, 0x00, 0x00, 0x1e};  // heartbeat 30 s, big-endian
    CMN_SetParam(&conf, 0x0001, wire, sizeof wire);
    unsigned char buf[8] = {0};
    const int n = CMN_GetParam(&conf, 0x0001, buf, sizeof buf);
    unsigned int heartbeat = 0;
    CMN_GetDWordParam(&conf, 0x0001, &heartbeat);

    // strlcpy is the library's, or the C library's where it has one.
    char name[8];
    const unsigned long len = strlcpy(name, "terminal", sizeof name);

    const int crc = CMN_UpdateCheckSum(&conf);
    if (n != 4 || memcmp(buf, wire, 4) != 0 || heartbeat != 30 || len != 8 || strcmp(name, "termina") != 0 ||
        crc != CMN_UpdateCheckSum(&conf)) {
        fprintf(stderr, "bbconf consumer: wrong answer (get %d bytes, heartbeat %u, strlcpy %lu)\n", n, heartbeat,
                len);
        return 1;
    }
    printf("bbconf consumer: heartbeat %u s, record checksum 0x%04x\n", heartbeat, (unsigned)crc);
    return 0;
}
