// message_fuzz.cpp - the parameter message layer on fuzzer bytes: the list
// parser, apply (best effort and all or nothing) on a terminal and a taxi
// record, the answer to an ID list, and the unframer.  Buffers are exact
// heap copies, so AddressSanitizer sees any byte read or written past them.
// Invariants: an item walk finds exactly the count a well-formed list
// announces; a malformed list changes no record; all or nothing leaves the
// record as it was or as best effort leaves it; an answer's size is the
// same counted and written; a frame that unframes frames back to a message
// that unframes to the same header and body.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "bbconf_message.h"
#include "fuzz_support.h"

namespace {

void check(bool ok) {
    if (!ok) std::abort();
}

template <typename Rec>
void apply_both_ways(const Rec& start, const uint8_t* data, size_t size, bool well_formed) {
    static Rec best, whole, scratch;
    best = start;
    whole = start;
    bbconf::ItemOutcome out[bbconf::kMaxListItems];
    const bbconf::ApplyReport b = bbconf::apply_list(&best, data, size, out, bbconf::kMaxListItems);
    const bbconf::ApplyReport w = bbconf::apply_list_all_or_nothing(&whole, &scratch, data, size, out, 255);
    check((b.result == bbconf::GeneralResult::MessageError) == !well_formed);
    check(b.result == w.result && b.items == w.items && b.stored + b.skipped == b.items);
    if (!well_formed) check(std::memcmp(&best, &start, sizeof start) == 0);
    const Rec& expect = w.result == bbconf::GeneralResult::Success ? best : start;
    check(std::memcmp(&whole, &expect, sizeof whole) == 0);
}

template <typename Rec>
void answer(Rec* rec, const uint8_t* data, size_t size) {
    const bbconf::AnswerReport need = bbconf::answer_size(rec, data, size, nullptr, 0);
    check(need.fault.error == bbconf::check_id_list(data, size, nullptr));
    if (need.fault.error != bbconf::ListError::None) return;
    bbfuzz::ExactBuffer body(0, need.size, {});
    const bbconf::AnswerReport got = bbconf::build_answer(rec, 1, data, size, body.data(), need.size, nullptr, 0);
    check(got.written && got.size == need.size && got.answered == need.answered);
    check(bbconf::check_list(body.data() + 2, need.size - 2, nullptr) == bbconf::ListError::None);
}

void unframe_and_reframe(const uint8_t* data, size_t size) {
    bbfuzz::ExactBuffer work(0, size, {});
    bbconf::Message m;
    if (bbconf::unframe(data, size, work.data(), size, &m) != bbconf::FrameError::None) return;
    size_t need = 0;
    check(bbconf::frame_message(m.header, m.body, m.body_len, nullptr, 0, &need) == bbconf::FrameError::NoRoom);
    bbfuzz::ExactBuffer again(0, need, {});
    size_t n = 0;
    check(bbconf::frame_message(m.header, m.body, m.body_len, again.data(), need, &n) == bbconf::FrameError::None);
    bbconf::Message m2;
    check(bbconf::unframe(again.data(), n, again.data(), n, &m2) == bbconf::FrameError::None);
    check(m2.body_len == m.body_len && std::memcmp(m2.body, m.body, m.body_len) == 0);
    check(m2.header.msg_id == m.header.msg_id && m2.header.serial == m.header.serial &&
          std::memcmp(m2.header.phone, m.header.phone, sizeof m.header.phone) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    bbfuzz::silence_stdout();
    static tagBB_CONF_ST terminal;
    static tagBBTAXI_CONF_ST taxi;
    static const bool ready = (CMN_InitBbConfToDefault(&terminal), BBTAXI_InitToDefault(&taxi), true);
    (void)ready;
    bbfuzz::ExactBuffer in(0, size, std::vector<uint8_t>(data, data + size));

    bbconf::ListFault f;
    const bool well_formed = bbconf::check_list(in.data(), size, &f) == bbconf::ListError::None;
    size_t pos = 0;
    int items = 0;
    for (bbconf::ListItem item; well_formed && bbconf::next_item(in.data(), size, &pos, &item);) items++;
    check(!well_formed || (items == f.declared && pos == (items ? size : 0)));
    apply_both_ways(terminal, in.data(), size, well_formed);
    apply_both_ways(taxi, in.data(), size, well_formed);
    static tagBB_CONF_ST asked;
    asked = terminal;
    answer(&asked, in.data(), size);
    unframe_and_reframe(in.data(), size);
    return 0;
}
