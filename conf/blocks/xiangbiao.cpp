/* xiangbiao.cpp - the Xiangbiao (Hunan) blocks: video driver-state (VDS),
 * driver comparison and driver capture, with the VDS and capture codecs and
 * the factory defaults of all three.
 *
 * The VDS block keeps a local field when the platform sends all ones; the
 * driver capture block has no such marker and no length test: its caller
 * (the parameter dictionary) guarantees the 18 bytes on both sides.  The
 * driver comparison block has no codec; the dictionary copies it raw. */
#include "bbconf.h"
#include "conf/blocks/fixed_form.h"

namespace bbconf {
namespace {

constexpr WireField kVds[] = {
    {0, 0, 4, 1, true},   /* enable mask */
    {4, 4, 1, 24, true},
    {28, 28, 2, 3, true}, /* three u16 words */
    {34, 34, 1, 16, true},
};

/* Three (mode, value, interval) groups, the comparison interval, then the
 * fourth group. */
constexpr WireField kCapture[] = {
    {0, 0, 1, 2, false},   {2, 2, 2, 1, false},
    {4, 4, 1, 2, false},   {6, 6, 2, 1, false},
    {8, 8, 1, 2, false},   {10, 10, 2, 2, false}, /* group 3 interval, comparison interval */
    {14, 14, 1, 2, false}, {16, 16, 2, 1, false},
};

/* The VDS set logs under a "Dsm" label; that text is kept as it is. */
constexpr FixedForm kVdsForm = {
    rows_of(kVds), sizeof(tagBB_PARAM_VDS_XIANGBIAO_ST), "Dsm After Set:",
    "BB_PARAM_VDS_XIANGBIAO_ST Before Get:", "BB_PARAM_VDS_XIANGBIAO_ST After Get:", false,
    nullptr};

/* The capture set prints nothing, so it has no set header. */
constexpr FixedForm kCaptureForm = {
    rows_of(kCapture), sizeof(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST), "",
    "DRIVER_CAPTURE_XIANGBIAO Before Get:", "DRIVER_CAPTURE_XIANGBIAO After Get:", false, nullptr};

/* Each table names every byte of its block. */
static_assert(covers_block(kVdsForm), "VDS table must cover 50 bytes");
static_assert(covers_block(kCaptureForm), "driver capture table must cover 18 bytes");

/* VDS defaults.  Offsets 6 and 13 to 20 are zero by default but not
 * written: the initialiser relies on a zeroed record for them. */
constexpr DefaultRun kVdsRuns[] = {
    {0, 4, 1, 1},          /* enable mask */
    {4, 1, 1, 1},
    {5, 1, 1, 0},
    {7, 1, 6, 0},          /* 7 to 12 */
    {21, 1, 1, 5}, {22, 1, 1, 3}, {23, 1, 1, 2},
    {24, 1, 4, 0},
    {28, 2, 3, 0},         /* the three words */
    {34, 1, 16, 0},
};

constexpr DefaultRun kDriverCmpRuns[] = {
    {0, 1, 1, 1}, {1, 1, 2, 50}, {3, 1, 1, 2},
};

constexpr DefaultRun kCaptureRuns[] = {
    {0, 1, 1, 1}, {1, 1, 1, 20}, {2, 2, 1, 5},
    {4, 1, 1, 1}, {5, 1, 1, 20}, {6, 2, 1, 5},
    {8, 1, 1, 1}, {9, 1, 1, 20}, {10, 2, 1, 5},
    {12, 2, 1, 1200},      /* comparison interval */
    {14, 1, 1, 1}, {15, 1, 1, 20}, {16, 2, 1, 5},
};

constexpr DefaultTable kVdsDefaults = rows_of(kVdsRuns);
constexpr DefaultTable kDriverCmpDefaults = rows_of(kDriverCmpRuns);
constexpr DefaultTable kCaptureDefaults = rows_of(kCaptureRuns);

static_assert(defaults_extent(kVdsDefaults) == sizeof(tagBB_PARAM_VDS_XIANGBIAO_ST),
              "VDS defaults");
static_assert(defaults_extent(kDriverCmpDefaults) == sizeof(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST),
              "driver comparison defaults");
static_assert(defaults_extent(kCaptureDefaults) == sizeof(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST),
              "driver capture defaults");

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

BB_FIXED_FORM_CODECS(CMN_B2LStruct, CMN_LStruct2B, tagBB_PARAM_VDS_XIANGBIAO_ST, bbconf::kVdsForm)

/* Trusts its caller: 18 bytes are converted whatever len says, quietly.
 * Only a missing block or record is turned away (0), as in the shared
 * walk. */
int CMN_B2LStruct(unsigned char* wire, unsigned char,
                  tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* local) {
    if (wire == nullptr || local == nullptr) {
        return 0;
    }
    bbconf::wire_to_local(bbconf::kCaptureForm.table, wire, bytes_of(local));
    return bbconf::kCaptureForm.len;
}

/* Trusts its caller: 18 bytes are written whatever buflen says (the
 * dictionary checks the buffer before it calls), so the form's own length
 * stands in for the buffer's. */
int CMN_LStruct2B(tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* local, unsigned char* wire,
                  unsigned int) {
    return bbconf::fixed_form_get(bbconf::kCaptureForm, __func__, bytes_of(local), wire,
                                  static_cast<unsigned int>(bbconf::kCaptureForm.len));
}

/* Initialisers: -1 after the assertion line on a null record, otherwise the
 * result of the closing "Param Inited!" line. */
int __InitXiangbiaoVdsParam(tagBB_PARAM_VDS_XIANGBIAO_ST* pstXiangbiaoVds) {
    BB_CHECK(NULL != pstXiangbiaoVds, -1);
    bbconf::put_defaults(bbconf::kVdsDefaults, bytes_of(pstXiangbiaoVds));
    return BB_WAR("Param Inited!\n");
}

int __InitXiangbiaoDriverCmpParam(tagBB_PARAM_DRIVER_CMP_XIANGBIAO_ST* pstXiangbiaoDriverCmp) {
    BB_CHECK(NULL != pstXiangbiaoDriverCmp, -1);
    bbconf::put_defaults(bbconf::kDriverCmpDefaults, bytes_of(pstXiangbiaoDriverCmp));
    return BB_WAR("Param Inited!\n");
}

int __InitXiangbiaoDriverCaptureParam(
    tagBB_PARAM_DRIVER_CAPTURE_XIANGBIAO_ST* pstXiangbiaoDriverCapt) {
    BB_CHECK(NULL != pstXiangbiaoDriverCapt, -1);
    bbconf::put_defaults(bbconf::kCaptureDefaults, bytes_of(pstXiangbiaoDriverCapt));
    return BB_WAR("Param Inited!\n");
}
