/* profiles.cpp - vehicle and customer profile hooks.  The factory reset
 * calls them at fixed points; the empty ones keep their call points for
 * profiles that currently change nothing. */
#include <stddef.h>
#include <string.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "conf/field_defaults.h"

namespace {

/* Muck-truck (construction-waste truck) profile values. */

#define OFF(f) static_cast<uint16_t>(offsetof(tagBB_CONF_ST, f))
constexpr bbconf::FieldDefault kZhaTuProfile[] = {
    {OFF(ucVendor00a2), 1, 0},   {OFF(ucVendor00a1), 1, 3},   {OFF(usVendor101a), 2, 300},
    {OFF(usVendor101b), 2, 600}, {OFF(usVendor101c), 2, 0},   {OFF(usVendor101d), 2, 700},
    {OFF(ucVendor101e), 1, 0},   {OFF(ucVendor101f), 1, 0},   {OFF(ucVendor1031), 1, 0},
    {OFF(ucVendorF108), 1, 0},   {OFF(ucVendorF110), 1, 0},   {OFF(ucVendorF113), 1, 0},
    {OFF(usVendorF106), 2, 256},
};
#undef OFF
static_assert(bbconf::field_defaults_fit(kZhaTuProfile, sizeof(tagBB_CONF_ST)), "profile rows lie inside the record");

}  // namespace

void InitShenZhenPurnoBBParam(tagBB_CONF_ST*) {}
void InitKelvoZtBBParam(tagBB_CONF_ST*) {}
void InitShenZhenTamsaBBParam(tagBB_CONF_ST*) {}
void InitGzZtBbParam(tagBB_CONF_ST*) {}
void InitKelvoZtShanXiBBParam(tagBB_CONF_ST*) {}

/* Writes the muck-truck fields; the pointer is not checked. */
void InitZhaTuBbParam(tagBB_CONF_ST* pbbConf) {
    unsigned char* rec = bbconf::bytes_of(pbbConf);
    bbconf::put_field_defaults(rec, kZhaTuProfile);
    memset(pbbConf->aucVendorF114, 1, sizeof pbbConf->aucVendorF114);
}
