/* list.cpp - parameter lists of the platform's messages: strict parsing,
 * applying a 0x8103 list to a record and answering a query with a 0x0104
 * body, for the terminal and the taxi record alike. */
#include <string.h>

#include "bbconf_message.h"
#include "common/byteorder.h"

namespace bbconf {

namespace {

constexpr size_t kItemHead = 5; /* DWORD ID, BYTE length */
constexpr size_t kIdSize = 4;
constexpr size_t kAnswerHead = 3; /* WORD serial, BYTE count */
/* The buffer every answered value is read with: the longest value an item
 * carries and one byte more, so that a text get (at most BufLen - 1
 * characters) is never cut by the buffer. */
constexpr int kValueBuf = kMaxItemValue + 1;
/* Room the reads need in front of the buffer: the Subiao ADAS get logs the
 * 56 bytes in front of it. */
constexpr size_t kFront = 64;

ListFault fault_of(ListError e, int declared, int found, size_t offset, size_t needed, size_t remaining, uint32_t id) {
    return ListFault{e, declared, found, offset, needed, remaining, id};
}

void report(ListFault* out, const ListFault& f) {
    if (out != nullptr) {
        *out = f;
    }
}

/* The per-record calls the engine needs. */
RecordKind kind_of(const tagBB_CONF_ST*) { return RecordKind::Terminal; }
RecordKind kind_of(const tagBBTAXI_CONF_ST*) { return RecordKind::Taxi; }
int get_value(tagBB_CONF_ST* rec, uint16_t id, unsigned char* buf) { return CMN_GetParam(rec, id, buf, kValueBuf); }
int get_value(tagBBTAXI_CONF_ST* rec, uint16_t id, unsigned char* buf) {
    return BBTAXI_GetParam(rec, id, buf, kValueBuf);
}

template <typename Rec>
ApplyReport apply_items(Rec* rec, const unsigned char* list, size_t size, ItemOutcome* outcomes, int max_outcomes) {
    ApplyReport r{};
    if (check_list(list, size, &r.fault) != ListError::None || rec == nullptr) {
        r.result = GeneralResult::MessageError;
        return r;
    }
    /* The list is whole: walk it without further checks. */
    const unsigned char* p = list + 1;
    for (int i = 0; i < r.fault.declared; i++) {
        const uint32_t id = load_be32(p);
        const uint8_t len = p[4];
        const SetResult res = set_param(rec, id, p + kItemHead, len);
        p += kItemHead + len;
        if (outcomes != nullptr && i < max_outcomes) {
            outcomes[i] = ItemOutcome{id, len, res};
        }
        (res == SetResult::Stored ? r.stored : r.skipped)++;
    }
    r.items = r.fault.declared;
    r.result = r.skipped == 0 ? GeneralResult::Success : GeneralResult::Failure;
    return r;
}

template <typename Rec>
ApplyReport apply_all_or_nothing(Rec* rec, Rec* scratch, const unsigned char* list, size_t size, ItemOutcome* outcomes,
                                 int max_outcomes) {
    if (rec == nullptr || scratch == nullptr || scratch == rec) {
        ApplyReport r{};
        r.result = GeneralResult::MessageError;
        return r;
    }
    if (check_list(list, size, nullptr) == ListError::None) {
        memcpy(scratch, rec, sizeof *rec);
    }
    ApplyReport r = apply_items(scratch, list, size, outcomes, max_outcomes);
    if (r.result == GeneralResult::Success) {
        memcpy(rec, scratch, sizeof *rec);
    } else if (r.result == GeneralResult::Failure) {
        r.stored = 0;
    }
    return r;
}

/* Whether a get of the row answers from the record: not the device's
 * identity (which reads the system) nor a diagnostic dump. */
bool holds_record_value(const ParamInfo& p) {
    return p.readable && p.kind != ValueKind::Identity && p.kind != ValueKind::Debug;
}

/* One pass over the asked IDs (or over the catalogue for a query of all):
 * reads each value and, while the body fits `out`, writes it.  With `out`
 * null it only counts. */
template <typename Rec>
AnswerReport walk_answer(Rec* rec, uint16_t serial, const unsigned char* ids, size_t ids_size, unsigned char* out,
                         size_t out_size, LeftOut* left, int max_left) {
    AnswerReport r{};
    if (rec == nullptr) {
        return r;
    }
    const bool all = ids == nullptr;
    int asked = 0;
    if (!all) {
        if (check_id_list(ids, ids_size, &r.fault) != ListError::None) {
            return r;
        }
        asked = ids[0];
    } else {
        asked = param_count(kind_of(rec));
    }
    bool fits = out != nullptr && out_size >= kAnswerHead;
    size_t pos = kAnswerHead;
    /* Values are read straight into `out` where it has the room on both
     * sides, else into `scratch` and copied. */
    unsigned char scratch[kFront + kValueBuf];
    memset(scratch, 0, kFront);
    for (int i = 0; i < asked && r.answered < kMaxListItems; i++) {
        uint32_t id;
        ParamInfo info;
        LeftOutReason why = LeftOutReason::UnknownId;
        bool known;
        if (all) {
            info = param_at(kind_of(rec), i);
            id = info.id;
            if (!holds_record_value(info)) {
                continue;
            }
            known = true;
        } else {
            id = load_be32(ids + 1 + kIdSize * static_cast<size_t>(i));
            known = find_param(kind_of(rec), id, &info);
            if (known && !holds_record_value(info)) {
                why = LeftOutReason::NotReadable;
                known = false;
            }
        }
        if (known) {
            const bool direct = fits && pos >= kFront && out_size - pos >= kItemHead + kValueBuf;
            unsigned char* dst = direct ? out + pos + kItemHead : scratch + kFront;
            int n = get_value(rec, static_cast<uint16_t>(id), dst);
            if (info.get_max > 0 && n > info.get_max) {
                n = info.get_max; /* 0x0081 / 0x0082 answer 4 but write the two bytes of their WORD */
            }
            if (n >= 0 && n <= kMaxItemValue) {
                if (fits && out_size - pos >= kItemHead + static_cast<size_t>(n)) {
                    store_be32(out + pos, id);
                    out[pos + 4] = static_cast<unsigned char>(n);
                    if (!direct) {
                        memcpy(out + pos + kItemHead, scratch + kFront, static_cast<size_t>(n));
                    }
                } else {
                    fits = false;
                }
                pos += kItemHead + static_cast<size_t>(n);
                r.answered++;
                continue;
            }
            why = LeftOutReason::NoValue;
            if (all) {
                continue; /* a row without a value in this record is simply not part of "all" */
            }
        }
        if (left != nullptr && r.left_out < max_left) {
            left[r.left_out] = LeftOut{id, why};
        }
        r.left_out++;
    }
    r.size = pos;
    if (fits) {
        store_be16(out, serial);
        out[2] = static_cast<unsigned char>(r.answered);
        r.written = true;
    }
    return r;
}

}  // namespace

const char* to_string(ListError e) {
    switch (e) {
        case ListError::None:
            return "well-formed";
        case ListError::Empty:
            return "empty list";
        case ListError::Truncated:
            return "truncated list";
        case ListError::TrailingBytes:
            return "bytes after the last item";
    }
    return "?";
}

ListError check_list(const unsigned char* list, size_t size, ListFault* fault) {
    if (list == nullptr || size == 0) {
        report(fault, fault_of(ListError::Empty, 0, 0, 0, 1, 0, 0));
        return ListError::Empty;
    }
    const int count = list[0];
    size_t pos = 1;
    for (int n = 0; n < count; n++) {
        const size_t left = size - pos;
        if (left < kItemHead) {
            report(fault, fault_of(ListError::Truncated, count, n, pos, kItemHead, left, 0));
            return ListError::Truncated;
        }
        const size_t len = list[pos + 4];
        if (left - kItemHead < len) {
            report(fault, fault_of(ListError::Truncated, count, n, pos, kItemHead + len, left, load_be32(list + pos)));
            return ListError::Truncated;
        }
        pos += kItemHead + len;
    }
    if (pos != size) {
        report(fault, fault_of(ListError::TrailingBytes, count, count, pos, 0, size - pos, 0));
        return ListError::TrailingBytes;
    }
    report(fault, fault_of(ListError::None, count, count, pos, 0, 0, 0));
    return ListError::None;
}

bool next_item(const unsigned char* list, size_t size, size_t* pos, ListItem* out) {
    size_t p = *pos == 0 ? 1 : *pos;
    if (list == nullptr || size < p || size - p < kItemHead) {
        return false;
    }
    const uint8_t len = list[p + 4];
    if (size - p - kItemHead < len) {
        return false;
    }
    *out = ListItem{load_be32(list + p), len, list + p + kItemHead};
    *pos = p + kItemHead + len;
    return true;
}

ListError check_id_list(const unsigned char* ids, size_t size, ListFault* fault) {
    if (ids == nullptr || size == 0) {
        report(fault, fault_of(ListError::Empty, 0, 0, 0, 1, 0, 0));
        return ListError::Empty;
    }
    const int count = ids[0];
    const size_t whole = (size - 1) / kIdSize;
    if (whole < static_cast<size_t>(count)) {
        const size_t at = 1 + kIdSize * whole;
        report(fault, fault_of(ListError::Truncated, count, static_cast<int>(whole), at, kIdSize, size - at, 0));
        return ListError::Truncated;
    }
    const size_t end = 1 + kIdSize * static_cast<size_t>(count);
    if (end != size) {
        report(fault, fault_of(ListError::TrailingBytes, count, count, end, 0, size - end, 0));
        return ListError::TrailingBytes;
    }
    report(fault, fault_of(ListError::None, count, count, end, 0, 0, 0));
    return ListError::None;
}

const char* item_reason(const ItemOutcome& o) {
    if (o.result == SetResult::UnknownId && o.id > 0xffff) {
        return "ID above 0xFFFF";
    }
    return to_string(o.result);
}

ApplyReport apply_list(tagBB_CONF_ST* rec, const unsigned char* list, size_t size, ItemOutcome* outcomes,
                       int max_outcomes) {
    return apply_items(rec, list, size, outcomes, max_outcomes);
}

ApplyReport apply_list(tagBBTAXI_CONF_ST* rec, const unsigned char* list, size_t size, ItemOutcome* outcomes,
                       int max_outcomes) {
    return apply_items(rec, list, size, outcomes, max_outcomes);
}

ApplyReport apply_list_all_or_nothing(tagBB_CONF_ST* rec, tagBB_CONF_ST* scratch, const unsigned char* list,
                                      size_t size, ItemOutcome* outcomes, int max_outcomes) {
    return apply_all_or_nothing(rec, scratch, list, size, outcomes, max_outcomes);
}

ApplyReport apply_list_all_or_nothing(tagBBTAXI_CONF_ST* rec, tagBBTAXI_CONF_ST* scratch, const unsigned char* list,
                                      size_t size, ItemOutcome* outcomes, int max_outcomes) {
    return apply_all_or_nothing(rec, scratch, list, size, outcomes, max_outcomes);
}

const char* to_string(LeftOutReason r) {
    switch (r) {
        case LeftOutReason::UnknownId:
            return "unknown ID";
        case LeftOutReason::NotReadable:
            return "not a value of the record";
        case LeftOutReason::NoValue:
            return "no value in this record";
    }
    return "?";
}

AnswerReport answer_size(tagBB_CONF_ST* rec, const unsigned char* ids, size_t ids_size, LeftOut* left, int max_left) {
    return walk_answer(rec, 0, ids, ids_size, nullptr, 0, left, max_left);
}

AnswerReport answer_size(tagBBTAXI_CONF_ST* rec, const unsigned char* ids, size_t ids_size, LeftOut* left,
                         int max_left) {
    return walk_answer(rec, 0, ids, ids_size, nullptr, 0, left, max_left);
}

AnswerReport build_answer(tagBB_CONF_ST* rec, uint16_t serial, const unsigned char* ids, size_t ids_size,
                          unsigned char* out, size_t out_size, LeftOut* left, int max_left) {
    return walk_answer(rec, serial, ids, ids_size, out, out_size, left, max_left);
}

AnswerReport build_answer(tagBBTAXI_CONF_ST* rec, uint16_t serial, const unsigned char* ids, size_t ids_size,
                          unsigned char* out, size_t out_size, LeftOut* left, int max_left) {
    return walk_answer(rec, serial, ids, ids_size, out, out_size, left, max_left);
}

}  // namespace bbconf
