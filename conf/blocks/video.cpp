/* video.cpp - the two video blocks carried as whole parameters: the
 * audio/video encoding parameters (0x0075) and the individual settings of
 * up to twelve channels (0x0077), big-endian wire form <-> local record.
 *
 * Both directions convert before they check: the wire is read (or
 * written) first and the length is compared afterwards, so a failed check
 * leaves what was converted in place. */
#include <stddef.h>

#include "bbconf.h"
#include "common/byteorder.h"
#include "common/log.h"
#include "conf/blocks/codec.h"

namespace bbconf {
namespace {

/* The live and storage streams and the OSD mask, as both blocks carry them:
 * from offset 0 of the encoding parameters and from offset 1 of a channel
 * entry (behind its logical channel number). */
constexpr WireField kStreamRows[] = {
    {0, 0, 1, 2, kAlways},   /* live encoding mode, resolution */
    {2, 2, 2, 1, kAlways},   /* live key-frame interval */
    {4, 4, 1, 1, kAlways},   /* live frame rate */
    {5, 5, 4, 1, kAlways},   /* live bit rate */
    {9, 9, 1, 2, kAlways},   /* storage encoding mode, resolution */
    {11, 11, 2, 1, kAlways}, /* storage key-frame interval */
    {13, 13, 1, 1, kAlways}, /* storage frame rate */
    {14, 14, 4, 1, kAlways}, /* storage bit rate */
    {18, 18, 2, 1, kAlways}, /* OSD overlay mask */
};
constexpr WireTable kStreams = rows_of(kStreamRows);

constexpr WireField kAudioRows[] = {
    {20, 20, 1, 1, kAlways}, /* audio output */
};

/* Encoding parameters: both directions check their pointers aloud, convert,
 * and only then judge the length. */
constexpr int kAvEncLen = sizeof(tagAV_ENC_PARAM_ST);
constexpr BlockCodec kAvEnc{
    {kStreams, rows_of(kAudioRows)},
    kAvEncLen,
    Direction{kAvEncLen, Check::After, "DataLen == Cnt", {{Ptr::Wire, "NULL != wire"}, {Ptr::Record, "NULL != local"}},
              Image::Direct, kSilent, kSilent, kSilent, Num::Len},
    Direction{kAvEncLen, Check::After, "BufLen >= Cnt", {{Ptr::Record, "NULL != local"}, {Ptr::Wire, "NULL != wire"}},
              Image::Direct, kSilent, kSilent, kSilent, Num::Len}};
static_assert(codec_covers(kAvEnc), "the encoding form covers the whole record");

/* One channel entry: the logical channel number, then the streams. */
constexpr unsigned kAvChStreams = offsetof(tagAV_CH_ENC_PARAM_ST, ucRtEncMode);
constexpr unsigned kAvChLen = sizeof(tagAV_CH_ENC_PARAM_ST);
static_assert(kAvChStreams == 1 && kAvChStreams + wire_extent(kStreams) == kAvChLen,
              "a channel entry is its number and the streams");

void entry_in(const unsigned char* wire, tagAV_CH_ENC_PARAM_ST* entry) {
    entry->ucLogicCh = wire[0];
    wire_to_local(rows_of(kStreamRows), wire + kAvChStreams, bytes_of(entry) + kAvChStreams);
}

void entry_out(const tagAV_CH_ENC_PARAM_ST* entry, unsigned char* wire) {
    wire[0] = entry->ucLogicCh;
    local_to_wire(rows_of(kStreamRows), reinterpret_cast<const unsigned char*>(entry) + kAvChStreams,
                  wire + kAvChStreams);
}

/* The count byte heads both forms; entry k follows at 1 + 21k. */
constexpr unsigned kAvChHead = offsetof(tagAV_INDIVIDUAL_SETTING_ST, astCh);
constexpr unsigned kAvChMax = BB_AV_IND_SETTING_MAX;
static_assert(kAvChHead + kAvChMax * kAvChLen == sizeof(tagAV_INDIVIDUAL_SETTING_ST),
              "count byte and twelve entries");

}  // namespace
}  // namespace bbconf


// clang-format off
unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_ENC_PARAM_ST* local) { return bbconf::block_set(bbconf::packed<bbconf::kAvEnc>, __func__, wire, len, local); }
int CMN_LStruct2B(tagAV_ENC_PARAM_ST* local, unsigned char* wire, unsigned int buflen) { return bbconf::block_get(bbconf::packed<bbconf::kAvEnc>, __func__, local, wire, buflen); }
// clang-format on

/* The channel settings are one of the engine's exceptions: the count byte
 * decides how many entries follow. */

namespace bbconf {
namespace {

constexpr char kSetShort[] = "DataLen == Cnt";
constexpr char kGetShort[] = "BufLen >= Cnt";

unsigned channels_set(const char* fn, const unsigned char* wire, unsigned char len, tagAV_INDIVIDUAL_SETTING_ST* local) {
    BB_CHECK_FN(fn, NULL != wire, 0);
    BB_CHECK_FN(fn, NULL != local, 0);
    /* A platform announcing more channels than the record holds gets the
     * first twelve, without a word. */
    unsigned entries = wire[0];
    if (entries > kAvChMax) {
        entries = kAvChMax;
    }
    local->ucChNum = static_cast<unsigned char>(entries);
    unsigned n = kAvChHead;
    for (unsigned k = 0; k < entries; k++) {
        entry_in(wire + n, &local->astCh[k]);
        n += kAvChLen;
    }
    BB_CHECK_IMPL(fn, len == n, kSetShort, 0);
    return n;
}

int channels_get(const char* fn, tagAV_INDIVIDUAL_SETTING_ST* local, unsigned char* wire, unsigned int buflen) {
    BB_CHECK_FN(fn, NULL != local, 0);
    BB_CHECK_FN(fn, NULL != wire, 0);
    /* The count goes out as the record holds it, even above twelve; the
     * record itself is repaired so that later queries agree with the
     * entries actually sent. */
    if (buflen != 0) {
        wire[0] = local->ucChNum;
    }
    if (local->ucChNum > kAvChMax) {
        BB_ERR_FN(fn, "Need Set AV Num:%d Over:%d\n", local->ucChNum, static_cast<int>(kAvChMax));
        local->ucChNum = static_cast<unsigned char>(kAvChMax);
    }
    unsigned n = kAvChHead;
    /* A zero-length buffer has no room even for the count byte. */
    BB_CHECK_IMPL(fn, buflen >= n, kGetShort, 0);
    /* Only whole entries go out; a buffer too short for the first one
     * still carries the count byte, which then announces entries it does
     * not hold. */
    for (unsigned k = 0; k < local->ucChNum && buflen - n >= kAvChLen; k++) {
        entry_out(&local->astCh[k], wire + n);
        n += kAvChLen;
    }
    BB_CHECK_IMPL(fn, buflen >= n, kGetShort, 0);
    return static_cast<int>(n);
}

}  // namespace
}  // namespace bbconf

// clang-format off
unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_INDIVIDUAL_SETTING_ST* local) { return bbconf::channels_set(__func__, wire, len, local); }
int CMN_LStruct2B(tagAV_INDIVIDUAL_SETTING_ST* local, unsigned char* wire, unsigned int buflen) { return bbconf::channels_get(__func__, local, wire, buflen); }
// clang-format on
