/* profiles.cpp - vehicle and customer profile hooks.  The factory reset
 * calls them at fixed points; the empty ones keep their call points for
 * profiles that currently change nothing. */
#include "bbconf.h"
#include "conf/field_defaults.h"

using Conf = tagBB_CONF_ST;

namespace bbconf {
namespace {

/* Muck-truck (construction-waste truck) profile values. */
constexpr FieldDefault kZhaTuValues[] = {
    BB_NUM(Conf, ucVendor00a2, 0),
    BB_NUM(Conf, ucVendor00a1, 3),
    BB_NUM(Conf, usVendor101a, 300),
    BB_NUM(Conf, usVendor101b, 600),
    BB_NUM(Conf, usVendor101c, 0),
    BB_NUM(Conf, usVendor101d, 700),
    BB_NUM(Conf, ucVendor101e, 0),
    BB_NUM(Conf, ucVendor101f, 0),
    BB_NUM(Conf, ucVendor1031, 0),
    BB_NUM(Conf, ucVendorF108, 0),
    BB_NUM(Conf, ucVendorF110, 0),
    BB_NUM(Conf, ucVendorF113, 0),
    BB_BYTES(Conf, aucVendorF114, "\x01"),
    BB_NUM(Conf, usVendorF106, 256),
};
constexpr Defaults kZhaTuProfile = defaults_of(kZhaTuValues);
static_assert(defaults_fit(kZhaTuProfile, sizeof(Conf)), "profile rows lie inside the record");

}  // namespace
}  // namespace bbconf

void InitShenZhenPurnoBBParam(tagBB_CONF_ST*) {}
void InitKelvoZtBBParam(tagBB_CONF_ST*) {}
void InitShenZhenTamsaBBParam(tagBB_CONF_ST*) {}
void InitGzZtBbParam(tagBB_CONF_ST*) {}
void InitKelvoZtShanXiBBParam(tagBB_CONF_ST*) {}

/* Writes the muck-truck fields, zeros included (the hook may be applied to
 * a configured record); the pointer is not checked. */
void InitZhaTuBbParam(tagBB_CONF_ST* pbbConf) {
    bbconf::put_field_defaults(bbconf::bytes_of(pbbConf), bbconf::packed_defaults<bbconf::kZhaTuProfile>);
}
