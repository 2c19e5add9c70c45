/* identity.h - device identity internals. */
#ifndef BBCONF_DEVICE_IDENTITY_H
#define BBCONF_DEVICE_IDENTITY_H

namespace bbconf {

/* GetMacFormFile on an arbitrary file (the exported function reads the
 * eth0 address file of sysfs); reported under the exported name. */
int read_mac_file(const char* path, unsigned char* mac, int size);

}  // namespace bbconf

#endif
