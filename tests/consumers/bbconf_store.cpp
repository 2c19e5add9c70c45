// A terminal application as an integrator writes it against the record
// store: start-up load falling back to factory defaults, a locked update
// after a platform message, and the file read back.  Built by
// scripts/consumer-test through every way the README gives; exits 0 when
// each answer is right.
#include <bbconf_store.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

int main() {
    char dir[] = "/tmp/bbconf_store_consumer.XXXXXX";
    if (mkdtemp(dir) == nullptr) return 1;
    char path[64];
    snprintf(path, sizeof path, "%s/terminal.bbc", dir);

    static tagBB_CONF_ST conf;
    const bbconf::StoreResult first = bbconf::load_record(path, conf);
    if (first.status != bbconf::StoreStatus::missing) return 1;
    CMN_InitBbConfToDefault(&conf);

    unsigned char wire[4] = {0x00, 0x00, 0x00, 0x1e};  // heartbeat 30 s, big-endian
    const bbconf::StoreResult saved = bbconf::update_record(
        path, conf, [&](tagBB_CONF_ST& rec) { return CMN_SetParam(&rec, 0x0001, wire, 4) == 4; },
        bbconf::kStoreCreate);

    static tagBB_CONF_ST back;
    const bbconf::StoreResult loaded = bbconf::load_record(path, back);
    unsigned int heartbeat = 0;
    CMN_GetDWordParam(&back, 0x0001, &heartbeat);
    unlink(path);
    rmdir(dir);
    if (!saved.written || !loaded.ok() || heartbeat != 30) {
        fprintf(stderr, "bbconf_store consumer: wrong answer (written %d, loaded %d, heartbeat %u)\n",
                saved.written, loaded.ok(), heartbeat);
        return 1;
    }
    printf("bbconf_store consumer: heartbeat %u s kept in %s\n", heartbeat, path);
    return 0;
}
