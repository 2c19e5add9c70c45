/* codec.h - the one engine behind the parameter-block codecs.
 *
 * Adding a block
 * --------------
 * A block is one constant BlockCodec: its field rows, its lengths and how
 * each direction behaves.  Write the rows (where a run of fields sits on
 * the wire and in the record, how wide each field is, how many follow each
 * other and what an all-ones wire value means), fill in a Direction for
 * the set (wire to local) and one for the get (local to wire), and define
 * the two exported functions as one line each:
 *
 *   int CMN_B2LStruct(unsigned char* wire, unsigned char len, T* local) { return block_set(packed<kMine>, __func__, wire, len, local); }
 *   int CMN_LStruct2B(T* local, unsigned char* wire, unsigned int buflen) { return block_get(packed<kMine>, __func__, local, wire, buflen); }
 *
 * A Direction says, as data:
 *  - when its length is checked: not at all, first (the block is refused
 *    whole and nothing is touched) or after the conversion (what was
 *    converted stays), and the assertion text printed when it fails;
 *  - which pointers are checked, in which order, and the assertion text of
 *    each (none: refused quietly);
 *  - how a get builds the wire image: cleared first (unmapped bytes go out
 *    as 0), in a scratch copy of the record (unmapped bytes go out as the
 *    record holds them) or straight into the buffer (unmapped bytes are
 *    left alone);
 *  - up to three "Inf" reports (a title that may carry two numbers, then a
 *    hex dump of the record, of the wire, or of the bytes just in front of
 *    the wire pointer): one of the block as it arrived, before the pointer
 *    checks; one before the conversion; one after it;
 *  - the result on success: the direction's length, the length the caller
 *    gave, or 0.
 * Most blocks take one of two ready shapes below: checked_block (refused
 * whole on a wrong length, built in a scratch copy, dumped under three
 * titles) and regional_form (the ADAS and DSM forms: converted first,
 * judged after).  A block that differs in one point starts from a shape
 * and changes that field.  The deployed platforms read these lines, so
 * titles and assertion texts are copied as they are, odd labels included.
 * A dump of the record never reads past it.
 *
 * The descriptor is only read while compiling: the exported functions pass
 * packed<kMine>, which holds the rows and the texts inside one constant
 * object (texts as offsets into its own characters), so a block costs no
 * relocation and its table lies in the shared read-only pages.
 *
 * The exceptions
 * --------------
 * Three codecs cannot be written as rows and stay small named functions in
 * their block's source:
 *  - the channel settings (0x0077, video.cpp): the entry count on the wire
 *    decides how many entries follow, is clamped to twelve, and a get
 *    repairs the record's count;
 *  - the alarm video/photo block (vehicle.cpp): its own length byte decides
 *    where the trailing word sits;
 *  - the pump-truck set (vehicle.cpp): a walk that stops at the first 0xFF
 *    and moves the fields behind it.
 */
#ifndef BBCONF_CONF_BLOCKS_CODEC_H
#define BBCONF_CONF_BLOCKS_CODEC_H

#include <stddef.h>
#include <stdint.h>

#include "common/byteorder.h"
#include "conf/packed_text.h"

namespace bbconf {

/* What an all-ones wire value means for a run of fields. */
enum class Rule : unsigned char {
    Keep,      /* all-ones leaves the record's field as it is */
    Always,    /* stored whatever the wire holds */
    LocalOnly, /* record only: never sent, cleared by a set (wire offset unused) */
};
constexpr Rule kKeep = Rule::Keep;
constexpr Rule kAlways = Rule::Always;
constexpr Rule kLocalOnly = Rule::LocalOnly;

/* A run of count fields of width (1, 2 or 4) bytes, big-endian on the wire
 * and native in the record. */
struct WireField {
    unsigned char wire;  /* offset of the first field on the wire */
    unsigned char local; /* offset of the first field in the record */
    unsigned char width;
    unsigned char count;
    Rule rule;
};

/* The rows of a table made from a constant array. */
struct WireTable {
    const WireField* rows;
    int count;
};

template <size_t N>
constexpr WireTable rows_of(const WireField (&r)[N]) {
    return WireTable{r, static_cast<int>(N)};
}

constexpr WireTable kNoRows{nullptr, 0};

/* Bytes a table reaches on the wire, and in the record. */
constexpr int wire_extent(const WireTable& t) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        const WireField& f = t.rows[i];
        int e = f.rule == Rule::LocalOnly ? 0 : f.wire + f.width * f.count;
        end = e > end ? e : end;
    }
    return end;
}
constexpr int local_extent(const WireTable& t) {
    int end = 0;
    for (int i = 0; i < t.count; i++) {
        int e = t.rows[i].local + t.rows[i].width * t.rows[i].count;
        end = e > end ? e : end;
    }
    return end;
}

/* The walks themselves, for the exceptions.  The table is taken by value:
 * made in code from a constant array, it needs no stored pointer. */
void wire_to_local(WireTable t, const unsigned char* wire, unsigned char* local);
void local_to_wire(WireTable t, const unsigned char* local, unsigned char* wire);

/* When a direction compares the length. */
enum class Check : unsigned char { None, First, After };

/* Which pointer a check looks at. */
enum class Ptr : unsigned char { None, Wire, Record };

struct PtrCheck {
    Ptr ptr;
    const char* text; /* assertion text, or null: refused without a line */
};

/* Numbers a report or a result can name. */
enum class Num : unsigned char {
    Zero,
    Len,      /* the direction's length */
    LocalLen, /* the record's length */
    Given,    /* len (set) or buflen (get) as the caller passed it */
};

/* Which bytes a report dumps. */
enum class Bytes : unsigned char { Record, Wire, InFrontOfWire };

/* An "Inf" line (title printed with the numbers n1 and n2 for its
 * placeholders), then a dump of `count` bytes; no title, no report. */
struct Report {
    const char* title;
    Num n1, n2;
    Bytes bytes;
    Num count;
};

constexpr Report kSilent{nullptr, Num::Zero, Num::Zero, Bytes::Record, Num::Zero};

/* How a get lays the wire image down. */
enum class Image : unsigned char { Direct, Cleared, Scratch };

struct Direction {
    int len;
    Check check;
    const char* check_text;
    PtrCheck ptrs[2];
    Image image;     /* get only */
    Report arrived;  /* set only: the block as it came, before anything else */
    Report before;
    Report after;
    Num result;
};

/* Pointer checks of most blocks: refused quietly. */
constexpr PtrCheck kQuietWire{Ptr::Wire, nullptr};
constexpr PtrCheck kQuietRecord{Ptr::Record, nullptr};

/* Tables of a codec, walked in order: shared heads first, the block's own
 * rows last; unused slots are empty. */
constexpr int kCodecTables = 4;

struct BlockCodec {
    WireTable tables[kCodecTables];
    int local_len; /* bytes of the record */
    Direction set;
    Direction get;
};

/* The longest record a get may build in a scratch copy. */
constexpr int kScratchMax = 64;

/* Bytes the codec's rows reach on the wire and in the record. */
constexpr int codec_wire_extent(const BlockCodec& c) {
    int end = 0;
    for (const WireTable& t : c.tables) {
        end = wire_extent(t) > end ? wire_extent(t) : end;
    }
    return end;
}
constexpr int codec_local_extent(const BlockCodec& c) {
    int end = 0;
    for (const WireTable& t : c.tables) {
        end = local_extent(t) > end ? local_extent(t) : end;
    }
    return end;
}

/* The rows lie inside the record and inside the wire each direction moves
 * (a direction of length 0 moves nothing), and a scratch image fits. */
constexpr bool codec_fits(const BlockCodec& c) {
    return codec_local_extent(c) <= c.local_len && codec_wire_extent(c) <= (c.set.len > c.get.len ? c.set.len : c.get.len) &&
           (c.get.image != Image::Scratch || c.local_len <= kScratchMax);
}
/* The rows name every byte of a block whose wire and record are alike. */
constexpr bool codec_covers(const BlockCodec& c) {
    return codec_fits(c) && codec_wire_extent(c) == c.local_len && codec_local_extent(c) == c.local_len;
}

/* --- Shapes shared by several blocks ----------------------------------- */

/* A block whose wire form is its record with big-endian numbers: refused
 * whole on a wrong length, built in a scratch copy on the way out, dumped
 * under a title after a set and before and after a get.  The get's title
 * may show the length. */
constexpr BlockCodec checked_block(WireTable a, WireTable b, int len, const char* set_after, const char* get_before,
                                   const char* get_after) {
    return BlockCodec{
        {a, b, kNoRows, kNoRows},
        len,
        Direction{len, Check::First, "(DataLen == Len)", {kQuietWire, kQuietRecord}, Image::Direct, kSilent,
                  kSilent, Report{set_after, Num::Zero, Num::Zero, Bytes::Record, Num::Len}, Num::Len},
        Direction{len, Check::First, "(BufLen >= Len)", {kQuietWire, kQuietRecord}, Image::Scratch, kSilent,
                  Report{get_before, Num::Zero, Num::Zero, Bytes::Record, Num::Len},
                  Report{get_after, Num::Len, Num::Zero, Bytes::Wire, Num::Len}, Num::Len}};
}

/* An ADAS or DSM wire form: converted first and judged by its length
 * afterwards (what was converted stays), sent with unmapped bytes 0, and
 * logged with a "Param Set" / "Param Get" line and a dump of the form's
 * length of bytes from where the form says. */
constexpr BlockCodec regional_form(WireTable a, WireTable b, WireTable c, int len, int local_len,
                                   const char* set_line, const char* get_line, Bytes dumped) {
    return BlockCodec{
        {a, b, c, kNoRows},
        local_len,
        Direction{len, Check::After, "DataLen == Cnt", {kQuietWire, kQuietRecord}, Image::Direct, kSilent, kSilent,
                  Report{set_line, Num::Given, Num::Given, dumped, Num::Len}, Num::Len},
        Direction{len, Check::After, "BufLen >= Cnt", {kQuietWire, kQuietRecord}, Image::Cleared, kSilent, kSilent,
                  Report{get_line, Num::Len, Num::Given, dumped, Num::Len}, Num::Len}};
}

/* The general settings that open the Subiao ADAS and DSM blocks and the
 * muck-truck block: speed threshold, volume, photo strategy, the timed and
 * distance photo intervals, photo count and interval, photo and video
 * resolution, the alarm and event enable masks. */
constexpr WireField kGeneralSettingRows[] = {
    {0, 0, 1, 3, kKeep},
    {3, 3, 2, 2, kKeep},
    {7, 7, 1, 4, kKeep},
    {11, 11, 4, 2, kKeep},
};
constexpr WireTable kGeneralSettings = rows_of(kGeneralSettingRows);

/* --- The packed form --------------------------------------------------- */

/* A BlockCodec holds pointers (to its rows and texts), and every pointer in
 * a constant object of a shared library costs a relocation and a private
 * page.  What the engine reads is therefore a packed copy made at compile
 * time: the rows of all tables one after the other, the texts as offsets
 * into the copy's own characters. */
struct PackedPtrCheck {
    Ptr ptr;
    uint16_t text;
};

struct PackedReport {
    uint16_t title;
    Num n1, n2;
    Bytes bytes;
    Num count;
};

struct PackedDirection {
    int len;
    Check check;
    uint16_t check_text;
    PackedPtrCheck ptrs[2];
    Image image;
    PackedReport arrived;
    PackedReport before;
    PackedReport after;
    Num result;
};

/* The head of a packed block; the engine finds the rows and characters
 * behind it by their distance from the head. */
struct CodecHead {
    int local_len;
    int rows;
    uint16_t rows_at; /* bytes from the head to the first row */
    uint16_t text_at; /* bytes from the head to the first character */
    PackedDirection set;
    PackedDirection get;
};

/* Head, rows and characters of one block; R and T at least 1. */
template <int R, int T>
struct PackedCodec {
    CodecHead head;
    WireField rows[R];
    char text[T];
};

namespace pack_detail {

constexpr PackedReport pack_report(const Report& r, char* pool, int& used) {
    return PackedReport{intern(pool, used, r.title), r.n1, r.n2, r.bytes, r.count};
}

constexpr PackedDirection pack_direction(const Direction& d, char* pool, int& used) {
    PackedDirection p{};
    p.len = d.len;
    p.check = d.check;
    p.check_text = intern(pool, used, d.check_text);
    for (int i = 0; i < 2; i++) {
        p.ptrs[i] = PackedPtrCheck{d.ptrs[i].ptr, intern(pool, used, d.ptrs[i].text)};
    }
    p.image = d.image;
    p.arrived = pack_report(d.arrived, pool, used);
    p.before = pack_report(d.before, pool, used);
    p.after = pack_report(d.after, pool, used);
    p.result = d.result;
    return p;
}

/* The head with its texts written into pool; the one packing pass. */
constexpr CodecHead pack_head(const BlockCodec& c, char* pool, int& used) {
    CodecHead h{};
    h.local_len = c.local_len;
    for (const WireTable& t : c.tables) {
        h.rows += t.count;
    }
    h.set = pack_direction(c.set, pool, used);
    h.get = pack_direction(c.get, pool, used);
    return h;
}

}  // namespace pack_detail

/* Rows and characters a packed copy of c needs. */
constexpr int packed_rows(const BlockCodec& c) {
    int n = 0;
    for (const WireTable& t : c.tables) {
        n += t.count;
    }
    return at_least_one(n);
}
constexpr int packed_text(const BlockCodec& c) {
    char pool[kTextScratch]{};
    int used = 0;
    pack_detail::pack_head(c, pool, used);
    return at_least_one(used);
}

/* The packed copy of c, into room for R rows and T characters. */
template <int R, int T>
constexpr PackedCodec<R, T> pack(const BlockCodec& c) {
    using Packed = PackedCodec<R, T>;
    Packed p{};
    int used = 0;
    p.head = pack_detail::pack_head(c, p.text, used);
    p.head.rows_at = offsetof(Packed, rows);
    p.head.text_at = offsetof(Packed, text);
    int n = 0;
    for (const WireTable& t : c.tables) {
        for (int i = 0; i < t.count; i++) {
            p.rows[n++] = t.rows[i];
        }
    }
    return p;
}

/* The packed copy of a block's descriptor: what its exported functions
 * hand to the engine. */
template <const BlockCodec& C>
constexpr PackedCodec<packed_rows(C), packed_text(C)> packed = pack<packed_rows(C), packed_text(C)>(C);

int block_set_bytes(const CodecHead& c, const char* fn, const unsigned char* wire, unsigned char len,
                    unsigned char* local);
int block_get_bytes(const CodecHead& c, const char* fn, const unsigned char* local, unsigned char* wire,
                    unsigned int buflen);

/* Wire to local under the exported function's name fn. */
template <int R, int T, typename U>
inline int block_set(const PackedCodec<R, T>& c, const char* fn, const unsigned char* wire, unsigned char len,
                     U* local) {
    return block_set_bytes(c.head, fn, wire, len, bytes_of(local));
}

/* Local to wire under the exported function's name fn. */
template <int R, int T, typename U>
inline int block_get(const PackedCodec<R, T>& c, const char* fn, const U* local, unsigned char* wire,
                     unsigned int buflen) {
    return block_get_bytes(c.head, fn, reinterpret_cast<const unsigned char*>(local), wire, buflen);
}

}  // namespace bbconf

#endif
