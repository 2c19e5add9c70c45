/*
 * bbconf_catalogue.h - what libbbconf knows about each parameter ID of the
 * terminal record and of the taxi record, and a checked set.
 *
 * The catalogue is the one table CMN_SetParam / CMN_GetParam and
 * BBTAXI_SetParam / BBTAXI_GetParam run on; this header lets a caller read
 * it: look an ID up, walk every ID of a record kind in ascending order, and
 * learn how a value of that ID travels on the wire.  Nothing here allocates
 * or keeps state; every function may run concurrently with any other.
 *
 * Example: answer a platform query for every readable terminal parameter.
 *
 *     for (int i = 0; i < bbconf::param_count(bbconf::RecordKind::Terminal); i++) {
 *         bbconf::ParamInfo p = bbconf::param_at(bbconf::RecordKind::Terminal, i);
 *         if (!p.readable) continue;
 *         unsigned char buf[512];                // p.min_get_buf <= 256 for every row
 *         int n = CMN_GetParam(rec, p.id, buf, sizeof buf);
 *         ...
 *     }
 *
 * and store one value from a 0x8103 message, refusing what the record would
 * not keep whole:
 *
 *     bbconf::SetResult r = bbconf::set_param(rec, id, value, len);
 *     if (r != bbconf::SetResult::Stored)
 *         printf("%#x refused: %s\n", id, bbconf::to_string(r));
 */
#ifndef BBCONF_CATALOGUE_H
#define BBCONF_CATALOGUE_H

#include <stddef.h>
#include <stdint.h>

#include "bbconf.h"

namespace bbconf {

enum class RecordKind : uint8_t { Terminal, Taxi };

/* How a value travels.  Number, Text, Raw and Block are the common kinds;
 * the others are rules of single IDs. */
enum class ValueKind : uint8_t {
    Number,   /* big-endian unsigned number; set_len bytes on a set,
                 get_width bytes on a get (they differ for the taxi's 16-bit
                 values kept in 32-bit fields and its 0x001d low byte; the
                 terminal's 0x0081 / 0x0082 write 2 bytes and answer 4) */
    Text,     /* text without terminator on the wire; at most set_len bytes
                 on a set.  `verbatim` rows copy the bytes as given and rely
                 on the field's last byte staying 0; the others terminate */
    Raw,      /* bytes copied as they are; `fixed_set` rows take exactly
                 set_len bytes (a shorter value would leave old bytes behind) */
    Block,    /* a parameter block converted by its codec; `fixed_set` rows
                 take exactly their wire form, 0x0077 takes a count byte and
                 21 bytes per channel (at most twelve) */
    List,     /* 0x0076: the channel list; a set copies up to 151 bytes, a
                 get answers 3 + 4n bytes for the n channels it counts */
    Endpoint, /* 0x0026: "address:port" built from 0xf123 and 0x0018; a get
                 writes the text and answers -1 */
    Identity, /* 0xff00 - 0xff02: answered by the device, not the record */
    Debug,    /* 0xf441 / 0xf641: dumps the caller's buffer, no value */
    Ignored,  /* taxi 0x0077 - 0x0079: a set is accepted and stores nothing */
    Silent,   /* taxi vendor IDs without a field: a set reports an unknown ID,
                 a get answers -1 without a message */
};

/* How many bytes a get writes into the caller's buffer. */
enum class GetBound : uint8_t {
    None,         /* nothing */
    Always,       /* up to get_max whatever BufLen says (numbers, 0x0110,
                     0x0076): the buffer must hold get_max bytes */
    Whole,        /* get_max bytes when BufLen >= min_get_buf, else nothing;
                     blocks take BufLen as unsigned, so a negative BufLen
                     counts as large there */
    BufLen,       /* at most min(BufLen, get_max) */
    BufLenLess1,  /* at most min(BufLen - 1, get_max): texts, 0xf114 */
};

struct ParamInfo {
    uint16_t id;
    ValueKind kind;
    GetBound get_bound;
    uint16_t set_len;      /* numbers: the exact wire width a set takes (1, 2, 4);
                              text / raw / list / block: the most bytes a set takes;
                              0 if not settable */
    uint16_t min_get_buf;  /* smallest BufLen for which a get answers the whole
                              value (a text: its room and one byte for the
                              library's bound); 0 when a get answers no value */
    uint16_t get_width;    /* bytes a get writes whatever BufLen says; 0 when
                              BufLen bounds the write */
    uint16_t get_max;      /* the most bytes a get writes for any BufLen (a text
                              whose field lacks a terminator runs on to the
                              record's end) */
    uint16_t offset;       /* the field inside the record; 0 when none */
    uint16_t field_size;   /* bytes the record keeps for the value; 0 when none */
    bool settable;         /* a set may store a value */
    bool readable;         /* a get answers a value (from the record or device) */
    bool fixed_set;        /* a set takes exactly set_len bytes */
    bool verbatim;         /* Text: the set copies bytes without adding a terminator */
};

/* Looks an ID up; false (out untouched) when the record kind has no such ID
 * (IDs above 0xFFFF never match). */
BBCONF_API bool find_param(RecordKind kind, uint32_t id, ParamInfo* out);
/* Rows of the catalogue: 159 terminal, 99 taxi. */
BBCONF_API int param_count(RecordKind kind);
/* Row index (0 .. param_count - 1) in ascending ID order; an index outside
 * that range gives a row with id 0 and nothing settable or readable. */
BBCONF_API ParamInfo param_at(RecordKind kind, int index);

/* What a set did.
 *
 * set_param stores exactly as CMN_SetParam / BBTAXI_SetParam with the same
 * arguments would (same bytes, same diagnostic lines), except that it
 * refuses, changing nothing, what that call would drop, misread or only
 * partially apply:
 *   UnknownId    the record has no such ID, or the ID is above 0xFFFF (the
 *                int parameter of the specified call would cut it);
 *   ReadOnly     a get-only ID (0x0026, device identity, debug dumps,
 *                Heibiao and muck-truck blocks, 0xf3f0);
 *   WrongLength  a number whose len is not its wire width; a fixed-size raw
 *                value (0x0079, 0x007b, 0x007c, 0x0110, 0x8620, 0x8f21,
 *                0xf001, 0xf002, 0xf0e9, 0xf367) or a block whose len is not
 *                its size (a short raw value would keep old bytes behind it);
 *                0x0077 unless len = 1 + 21 * min(count, 12); len 0 for a
 *                block;
 *   TooLong      a text, raw value or list longer than its room (taxi
 *                0x0094: longer than 5, since its sixth byte would give way
 *                to the terminator);
 *   Rejected     the block codec refused the value (the codec runs on a copy
 *                of the block, so the record stays as it was); a text with a
 *                NUL followed by more text (a terminated text would stop at
 *                it; trailing NUL padding is fine); a taxi 0x001d value above
 *                255 (only the low byte has a field);
 *   NotStored    an ID the record accepts but keeps nowhere (taxi 0x0077 -
 *                0x0079) or knows without a field (taxi 0xf001 - 0xf015).
 * A null record or value gives UnknownId without a line.  Codecs that dump
 * the bytes in front of the wire (the Subiao ADAS form) see zeros there:
 * set_param hands them a copy of the value, not the caller's memory.
 * Stack use stays below 512 bytes. */
enum class SetResult : uint8_t { Stored, UnknownId, ReadOnly, WrongLength, TooLong, Rejected, NotStored };

BBCONF_API SetResult set_param(tagBB_CONF_ST* rec, uint32_t id, const unsigned char* value, size_t len);
BBCONF_API SetResult set_param(tagBBTAXI_CONF_ST* rec, uint32_t id, const unsigned char* value, size_t len);

/* Short reason text: "stored", "unknown ID", "get-only", "wrong length",
 * "too long", "rejected", "not stored". */
BBCONF_API const char* to_string(SetResult r);

}  // namespace bbconf

#endif /* BBCONF_CATALOGUE_H */
