/* bbconf_message.h - the terminal's side of the platform's parameter
 * messages: apply a "set terminal parameters" list (0x8103), answer "query
 * all parameters" (0x8104) and "query specified parameters" (0x8106) with a
 * "query parameters response" body (0x0104), and frame / unframe whole
 * JT/T 808 messages for applications without a transport of their own.
 *
 * No heap, no I/O, no exceptions: every byte goes to or comes from a buffer
 * the caller hands over, and nothing is kept between calls.  The terminal
 * and the taxi record take the same calls (overloads).  Values are stored
 * and read through the parameter catalogue (bbconf_catalogue.h), so an item
 * lands in the record exactly as CMN_SetParam / BBTAXI_SetParam would store
 * it, and an answer carries what CMN_GetParam / BBTAXI_GetParam answers.
 *
 * Wire layouts (all numbers big-endian):
 *   parameter list (0x8103, and 0x0104 after its serial):
 *       BYTE count, then count items of DWORD ID, BYTE length, length bytes
 *   ID list (0x8106): BYTE count, then count DWORD IDs
 *   0x0104 body: WORD answer serial (the serial of the query), then a list
 *
 * Results and the JT/T 808 general response (0x0001) result byte:
 *   GeneralResult::Success (0)      the list parsed and every item was stored
 *   GeneralResult::Failure (1)      the list parsed, one item or more was
 *                                   skipped (best effort: the others are
 *                                   stored; all or nothing: none is)
 *   GeneralResult::MessageError (2) the list is malformed; nothing is stored
 *
 * Example: a terminal that receives a 0x8103 message
 *
 *     unsigned char work[1100];
 *     bbconf::Message m;
 *     if (bbconf::unframe(frame, frame_len, work, sizeof work, &m) != bbconf::FrameError::None) { ... }
 *     bbconf::ItemOutcome items[255];
 *     bbconf::ApplyReport r = bbconf::apply_list(&conf, m.body, m.body_len, items, 255);
 *     send_general_response(m.header.serial, 0x8103, static_cast<uint8_t>(r.result));
 *     if (r.stored > 0) { persist(&conf); }
 */
#ifndef BBCONF_MESSAGE_H
#define BBCONF_MESSAGE_H

#include <stddef.h>
#include <stdint.h>

#include "bbconf.h"
#include "bbconf_catalogue.h"

namespace bbconf {

/* The result byte of the JT/T 808 general response. */
enum class GeneralResult : uint8_t { Success = 0, Failure = 1, MessageError = 2 };

/* --- Parameter and ID lists ---------------------------------------------- */

/* Largest count a list carries and largest value an item carries: both are
 * one byte on the wire. */
constexpr int kMaxListItems = 255;
constexpr int kMaxItemValue = 255;

/* What is wrong with a list.  A list is taken strictly: it must end exactly
 * after the last item its count announces. */
enum class ListError : uint8_t {
    None,
    Empty,         /* no count byte */
    Truncated,     /* the bytes end inside item `found` + 1 */
    TrailingBytes, /* bytes follow the last announced item */
};
BBCONF_API const char* to_string(ListError e);

/* A list's fault, with the figures a message needs: the count the list
 * announces, the whole items found before the fault, the offset of the
 * fault and, for Truncated / TrailingBytes, the bytes the item needed and
 * the bytes that remained.  `id` is the ID of the truncated item when its
 * ID was whole (else 0). */
struct ListFault {
    ListError error;
    int declared;
    int found;
    size_t offset;
    size_t needed;
    size_t remaining;
    uint32_t id;
};

/* One item of a parameter list; `value` points into the list. */
struct ListItem {
    uint32_t id;
    uint8_t len;
    const unsigned char* value;
};

/* Checks a parameter list; returns ListError::None and fills `fault` with
 * declared = found = the count, or the fault.  `fault` may be null. */
BBCONF_API ListError check_list(const unsigned char* list, size_t size, ListFault* fault);

/* Walks a checked list: `*pos` starts at 0; each call gives the next item
 * and advances; false after the last one. */
BBCONF_API bool next_item(const unsigned char* list, size_t size, size_t* pos, ListItem* out);

/* Checks an ID list (0x8106): BYTE count, then exactly count DWORD IDs. */
BBCONF_API ListError check_id_list(const unsigned char* ids, size_t size, ListFault* fault);

/* --- Applying a 0x8103 list --------------------------------------------- */

/* Why an item was not stored, beyond the catalogue's SetResult: an ID wider
 * than 16 bits is unknown to every record, and reported as such. */
struct ItemOutcome {
    uint32_t id;
    uint8_t len;
    SetResult result; /* Stored, or why the item was skipped */
};
/* "stored", "unknown ID", "ID above 0xFFFF", "get-only", ... */
BBCONF_API const char* item_reason(const ItemOutcome& o);

struct ApplyReport {
    GeneralResult result;
    ListFault fault; /* error None unless result is MessageError */
    int items;       /* items in the list */
    int stored;      /* items now in the record */
    int skipped;     /* items not stored (all or nothing: those that would be skipped) */
};

/* Best effort: each item in order is stored through set_param or skipped,
 * and a skipped item changes nothing.  The record changes exactly as it
 * would under CMN_SetParam / BBTAXI_SetParam called for the stored items in
 * the same order.  A malformed list stores nothing.  `outcomes` (room for
 * `max_outcomes`, may be null) receives one entry per item in list order;
 * items beyond `max_outcomes` are applied but not reported, so give 255. */
BBCONF_API ApplyReport apply_list(tagBB_CONF_ST* rec, const unsigned char* list, size_t size, ItemOutcome* outcomes,
                                  int max_outcomes);
BBCONF_API ApplyReport apply_list(tagBBTAXI_CONF_ST* rec, const unsigned char* list, size_t size, ItemOutcome* outcomes,
                                  int max_outcomes);

/* All or nothing: the list is applied to `scratch` (the caller's second
 * record, overwritten with a copy of `rec` first); only when every item was
 * stored is the result copied into `rec`.  Otherwise `rec` is unchanged,
 * `stored` is 0, and the outcomes say which items would have been stored
 * (SetResult::Stored) and why the others would be skipped.  Returns
 * MessageError without touching either record when `scratch` is null or is
 * `rec`.  The scratch record keeps the library's stack small: no record is
 * copied onto it. */
BBCONF_API ApplyReport apply_list_all_or_nothing(tagBB_CONF_ST* rec, tagBB_CONF_ST* scratch, const unsigned char* list,
                                                 size_t size, ItemOutcome* outcomes, int max_outcomes);
BBCONF_API ApplyReport apply_list_all_or_nothing(tagBBTAXI_CONF_ST* rec, tagBBTAXI_CONF_ST* scratch,
                                                 const unsigned char* list, size_t size, ItemOutcome* outcomes,
                                                 int max_outcomes);

/* --- Answering 0x8104 / 0x8106 with a 0x0104 body ------------------------ */

/* Why an asked ID is not in the answer. */
enum class LeftOutReason : uint8_t {
    UnknownId,   /* the record has no such ID (or it is above 0xFFFF) */
    NotReadable, /* known, but not a value the record holds (device identity, debug dump, ignored) */
    NoValue,     /* the get answered no value from this record (-1) */
};
BBCONF_API const char* to_string(LeftOutReason r);

struct LeftOut {
    uint32_t id;
    LeftOutReason reason;
};

struct AnswerReport {
    ListFault fault; /* of the ID list; error None for a query of all */
    int answered;    /* items in the body */
    int left_out;    /* asked IDs left out; the first max_left are in `left` */
    size_t size;     /* bytes of the whole body (serial, count, items) */
    bool written;    /* the body was written: it fit the buffer */
};

/* The answer to an ID list (`ids`, an 0x8106 body) or, with `ids` null, to
 * "query all" (0x8104): every parameter the record holds a readable value
 * for, in ascending ID order; the device's identity and the diagnostic
 * dumps are not record parameters and are left out of a query of all
 * (as are rows whose get answers no value, such as 0x0026); a body holds at
 * most 255 items, the rest are not answered.  Asked IDs are answered in the order asked.  Each value is what the
 * record's get answers with a buffer of 256 bytes, cut to the bytes the get
 * writes (0x0081 / 0x0082 answer 4 for the two bytes of their WORD: the
 * answer carries the WORD).  The value is read through a buffer of the
 * layer's own (the largest frame here, under 512 bytes) unless `out` has
 * room on both sides of it.
 *
 * answer_size gives the body's size without writing; build_answer writes
 * the body when it fits `out_size` (written = true) and otherwise writes
 * nothing (written = false) and still reports the size needed.  A body of
 * more than 1023 bytes needs more than one package (frame_package).  A
 * malformed ID list gives written = false, size 0 and the fault. */
BBCONF_API AnswerReport answer_size(tagBB_CONF_ST* rec, const unsigned char* ids, size_t ids_size, LeftOut* left,
                                    int max_left);
BBCONF_API AnswerReport answer_size(tagBBTAXI_CONF_ST* rec, const unsigned char* ids, size_t ids_size, LeftOut* left,
                                    int max_left);
BBCONF_API AnswerReport build_answer(tagBB_CONF_ST* rec, uint16_t serial, const unsigned char* ids, size_t ids_size,
                                     unsigned char* out, size_t out_size, LeftOut* left, int max_left);
BBCONF_API AnswerReport build_answer(tagBBTAXI_CONF_ST* rec, uint16_t serial, const unsigned char* ids, size_t ids_size,
                                     unsigned char* out, size_t out_size, LeftOut* left, int max_left);

/* --- Whole messages ------------------------------------------------------ */

/* Message IDs this layer deals in. */
constexpr uint16_t kMsgGeneralResponse = 0x0001;
constexpr uint16_t kMsgQueryResponse = 0x0104;
constexpr uint16_t kMsgSetParams = 0x8103;
constexpr uint16_t kMsgQueryAll = 0x8104;
constexpr uint16_t kMsgQuerySome = 0x8106;

/* Largest body of one message: the body attributes hold 10 bits of length. */
constexpr size_t kMaxPackageBody = 1023;

/* A message header.  The 2013 header is message ID, body attributes,
 * 6-byte BCD phone number and serial; the 2019 header (version flag, bit
 * 14 of the attributes) adds a version byte after the attributes and has a
 * 10-byte phone number.  With the subpackage flag (bit 13) the header ends
 * with the package count and the 1-based package number. */
struct MessageHeader {
    uint16_t msg_id;
    uint8_t encryption;      /* attribute bits 10..12 */
    bool v2019;              /* version flag */
    uint8_t version;         /* the 2019 header's protocol version */
    unsigned char phone[10]; /* BCD; a 2013 header uses phone[0..5] */
    uint16_t serial;
    bool subpackage;
    uint16_t package_count;
    uint16_t package_index;
};

/* A message taken out of its frame.  `body` points into the caller's work
 * buffer. */
struct Message {
    MessageHeader header;
    const unsigned char* body;
    size_t body_len;
};

enum class FrameError : uint8_t {
    None,
    NoDelimiter,    /* the frame does not begin and end with 0x7E */
    StrayDelimiter, /* 0x7E inside the frame */
    BadEscape,      /* 0x7D not followed by 0x01 or 0x02 */
    TooShort,       /* fewer bytes than the header and the check code */
    BadCheckCode,   /* the XOR of header and body differs from the check code */
    LengthMismatch, /* the length in the body attributes differs from the body */
    BadPackage,     /* package number 0, or above the package count */
    NoRoom,         /* the caller's buffer is too small */
    BodyTooLong,    /* a body above 1023 bytes for one package */
};
BBCONF_API const char* to_string(FrameError e);

/* Finds the next frame in a stream of bytes: skips anything before a
 * 0x7E, then takes the bytes up to and including the next 0x7E.  Returns
 * the bytes consumed (0 when no whole frame is left) and sets `frame` /
 * `frame_len`. */
BBCONF_API size_t next_frame(const unsigned char* data, size_t size, const unsigned char** frame, size_t* frame_len);

/* Takes one frame (with both 0x7E) apart: undoes the escapes into `work`
 * (which may be `frame` itself: the bytes only move forward), verifies the
 * check code and the length, and fills `out`.  A frame whose bytes need
 * more room than `work_size` gives NoRoom. */
BBCONF_API FrameError unframe(const unsigned char* frame, size_t size, unsigned char* work, size_t work_size,
                              Message* out);

/* Builds one message around `body` (at most 1023 bytes): header from `h`
 * (the subpackage fields as given), check code, escapes and delimiters.
 * `*written` receives the frame's size, or on NoRoom the size needed. */
BBCONF_API FrameError frame_message(const MessageHeader& h, const unsigned char* body, size_t body_len,
                                    unsigned char* out, size_t out_size, size_t* written);

/* Packages of a body: 1 for up to 1023 bytes, else ceil(body_len / 1023).
 * Package `index` (1-based) carries bytes [(index-1)*1023, index*1023) of
 * the body; a body of one package is framed without the subpackage flag.
 * Package i takes serial h.serial + i - 1 (each package is a message of
 * its own). */
BBCONF_API int package_count(size_t body_len);
BBCONF_API FrameError frame_package(const MessageHeader& h, const unsigned char* body, size_t body_len, int index,
                                    unsigned char* out, size_t out_size, size_t* written);

/* Joins the packages of one message back into its body in the caller's
 * buffer.  Packages must arrive in order; a message without the subpackage
 * flag is complete at once. */
struct PackageJoin {
    unsigned char* buf;
    size_t cap;
    size_t len;
    uint16_t msg_id;
    uint16_t count; /* 0 before the first package */
    uint16_t next;
};
enum class JoinState : uint8_t {
    Incomplete, /* more packages to come */
    Complete,   /* buf[0..len) holds the body */
    OutOfOrder, /* not the package expected, or another message's; the join starts over */
    NoRoom,     /* the joined body does not fit `cap`; the join starts over */
};
BBCONF_API const char* to_string(JoinState s);
BBCONF_API void join_start(PackageJoin* j, unsigned char* buf, size_t cap);
BBCONF_API JoinState join_add(PackageJoin* j, const Message& m);

/* Phone numbers: digits to BCD, right-aligned and padded with leading
 * zeros to 12 (2013) or 20 (2019) digits, and back without the leading
 * zeros ("0" for an all-zero number; `out` needs 21 bytes).  A byte that is
 * not two BCD digits prints as '?'. */
BBCONF_API bool phone_from_digits(const char* digits, bool v2019, unsigned char phone[10]);
BBCONF_API void phone_to_digits(const MessageHeader& h, char out[21]);

}  // namespace bbconf

#endif
