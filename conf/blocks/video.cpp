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
#include "conf/blocks/wire.h"

namespace bbconf {
namespace {

/* Encoding parameters: live stream, storage stream, OSD and audio, every
 * field at the same offset on the wire and in the record. */
constexpr WireField kAvEncFields[] = {
    {0, 0, 1, 2, false},   /* live encoding mode, resolution */
    {2, 2, 2, 1, false},   /* live key-frame interval */
    {4, 4, 1, 1, false},   /* live frame rate */
    {5, 5, 4, 1, false},   /* live bit rate */
    {9, 9, 1, 2, false},   /* storage encoding mode, resolution */
    {11, 11, 2, 1, false}, /* storage key-frame interval */
    {13, 13, 1, 1, false}, /* storage frame rate */
    {14, 14, 4, 1, false}, /* storage bit rate */
    {18, 18, 2, 1, false}, /* OSD overlay mask */
    {20, 20, 1, 1, false}, /* audio output */
};
constexpr WireTable kAvEnc = rows_of(kAvEncFields);
constexpr unsigned kAvEncLen = sizeof(tagAV_ENC_PARAM_ST);
static_assert(wire_extent(kAvEnc) == kAvEncLen && local_extent(kAvEnc) == kAvEncLen,
              "the encoding form covers the whole record");

/* One channel entry, offsets relative to the entry. */
constexpr WireField kAvChFields[] = {
    {0, 0, 1, 3, false},   /* logical channel, live encoding mode, resolution */
    {3, 3, 2, 1, false},   /* live key-frame interval */
    {5, 5, 1, 1, false},   /* live frame rate */
    {6, 6, 4, 1, false},   /* live bit rate */
    {10, 10, 1, 2, false}, /* storage encoding mode, resolution */
    {12, 12, 2, 1, false}, /* storage key-frame interval */
    {14, 14, 1, 1, false}, /* storage frame rate */
    {15, 15, 4, 1, false}, /* storage bit rate */
    {19, 19, 2, 1, false}, /* OSD overlay mask */
};
constexpr WireTable kAvCh = rows_of(kAvChFields);
constexpr unsigned kAvChLen = sizeof(tagAV_CH_ENC_PARAM_ST);
static_assert(wire_extent(kAvCh) == kAvChLen && local_extent(kAvCh) == kAvChLen,
              "the channel form covers the whole entry");

/* The count byte heads both forms; entry k follows at 1 + 21k. */
constexpr unsigned kAvChHead = offsetof(tagAV_INDIVIDUAL_SETTING_ST, astCh);
constexpr unsigned kAvChMax = BB_AV_IND_SETTING_MAX;
static_assert(kAvChHead + kAvChMax * kAvChLen == sizeof(tagAV_INDIVIDUAL_SETTING_ST),
              "count byte and twelve entries");

}  // namespace
}  // namespace bbconf

using bbconf::bytes_of;

unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_ENC_PARAM_ST* local) {
    BB_CHECK(NULL != wire, 0);
    BB_CHECK(NULL != local, 0);
    const unsigned DataLen = len;
    const unsigned Cnt = bbconf::kAvEncLen;
    bbconf::wire_to_local(bbconf::kAvEnc, wire, bytes_of(local));
    BB_CHECK(DataLen == Cnt, 0);
    return Cnt;
}

int CMN_LStruct2B(tagAV_ENC_PARAM_ST* local, unsigned char* wire, unsigned int buflen) {
    BB_CHECK(NULL != local, 0);
    BB_CHECK(NULL != wire, 0);
    const unsigned BufLen = buflen;
    const unsigned Cnt = bbconf::kAvEncLen;
    bbconf::local_to_wire(bbconf::kAvEnc, bytes_of(local), wire);
    BB_CHECK(BufLen >= Cnt, 0);
    return static_cast<int>(Cnt);
}

unsigned int CMN_B2LStruct(unsigned char* wire, unsigned char len, tagAV_INDIVIDUAL_SETTING_ST* local) {
    BB_CHECK(NULL != wire, 0);
    BB_CHECK(NULL != local, 0);
    const unsigned DataLen = len;
    /* A platform announcing more channels than the record holds gets the
     * first twelve, without a word. */
    unsigned entries = wire[0];
    if (entries > bbconf::kAvChMax) {
        entries = bbconf::kAvChMax;
    }
    local->ucChNum = static_cast<unsigned char>(entries);
    unsigned Cnt = bbconf::kAvChHead;
    for (unsigned k = 0; k < entries; k++) {
        bbconf::wire_to_local(bbconf::kAvCh, wire + Cnt, bytes_of(&local->astCh[k]));
        Cnt += bbconf::kAvChLen;
    }
    BB_CHECK(DataLen == Cnt, 0);
    return Cnt;
}

int CMN_LStruct2B(tagAV_INDIVIDUAL_SETTING_ST* local, unsigned char* wire, unsigned int buflen) {
    BB_CHECK(NULL != local, 0);
    BB_CHECK(NULL != wire, 0);
    const unsigned BufLen = buflen;
    /* The count goes out as the record holds it, even above twelve; the
     * record itself is repaired so that later queries agree with the
     * entries actually sent. */
    if (BufLen != 0) {
        wire[0] = local->ucChNum;
    }
    if (local->ucChNum > bbconf::kAvChMax) {
        BB_ERR("Need Set AV Num:%d Over:%d\n", local->ucChNum, static_cast<int>(bbconf::kAvChMax));
        local->ucChNum = static_cast<unsigned char>(bbconf::kAvChMax);
    }
    unsigned Cnt = bbconf::kAvChHead;
    /* A zero-length buffer has no room even for the count byte. */
    BB_CHECK(BufLen >= Cnt, 0);
    /* Only whole entries go out; a buffer too short for the first one
     * still carries the count byte, which then announces entries it does
     * not hold. */
    for (unsigned k = 0; k < local->ucChNum && BufLen - Cnt >= bbconf::kAvChLen; k++) {
        bbconf::local_to_wire(bbconf::kAvCh, bytes_of(&local->astCh[k]), wire + Cnt);
        Cnt += bbconf::kAvChLen;
    }
    BB_CHECK(BufLen >= Cnt, 0);
    return static_cast<int>(Cnt);
}
