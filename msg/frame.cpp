/* frame.cpp - whole JT/T 808 messages: 0x7E delimiters, 0x7D escapes, the
 * XOR check code, the 2013 and 2019 headers, and long bodies split into
 * packages and joined back. */
#include <string.h>

#include "bbconf_message.h"
#include "common/byteorder.h"

namespace bbconf {

namespace {

constexpr unsigned char kFlag = 0x7e;
constexpr unsigned char kEscape = 0x7d;

/* Body attributes. */
constexpr uint16_t kLengthMask = 0x03ff;
constexpr int kEncryptionShift = 10;
constexpr uint16_t kEncryptionMask = 0x7;
constexpr uint16_t kSubpackageBit = 1u << 13;
constexpr uint16_t kVersionBit = 1u << 14;

/* Header sizes: ID, attributes, phone, serial; 2019 adds the version byte
 * and four phone bytes; a package adds count and number. */
constexpr size_t kPhone2013 = 6;
constexpr size_t kPhone2019 = 10;
constexpr size_t kHeader2013 = 2 + 2 + kPhone2013 + 2;
constexpr size_t kHeader2019 = 2 + 2 + 1 + kPhone2019 + 2;
constexpr size_t kPackageFields = 4;
constexpr size_t kMaxHeader = kHeader2019 + kPackageFields;

size_t phone_bytes(bool v2019) { return v2019 ? kPhone2019 : kPhone2013; }

size_t header_size(bool v2019, bool subpackage) {
    return (v2019 ? kHeader2019 : kHeader2013) + (subpackage ? kPackageFields : 0);
}

unsigned char xor_of(const unsigned char* p, size_t n, unsigned char x) {
    for (size_t i = 0; i < n; i++) {
        x ^= p[i];
    }
    return x;
}

bool needs_escape(unsigned char b) { return b == kFlag || b == kEscape; }

size_t escaped_size(const unsigned char* p, size_t n) {
    size_t s = n;
    for (size_t i = 0; i < n; i++) {
        s += needs_escape(p[i]);
    }
    return s;
}

/* Appends bytes escaped: 0x7E as 0x7D 0x02, 0x7D as 0x7D 0x01. */
unsigned char* put_escaped(unsigned char* out, const unsigned char* p, size_t n) {
    for (size_t i = 0; i < n; i++) {
        if (needs_escape(p[i])) {
            *out++ = kEscape;
            *out++ = p[i] == kFlag ? 0x02 : 0x01;
        } else {
            *out++ = p[i];
        }
    }
    return out;
}

size_t put_header(const MessageHeader& h, size_t body_len, unsigned char* out) {
    uint16_t attr = static_cast<uint16_t>(body_len & kLengthMask);
    attr |= static_cast<uint16_t>((h.encryption & kEncryptionMask) << kEncryptionShift);
    attr |= h.subpackage ? kSubpackageBit : 0;
    attr |= h.v2019 ? kVersionBit : 0;
    unsigned char* p = out;
    store_be16(p, h.msg_id);
    store_be16(p + 2, attr);
    p += 4;
    if (h.v2019) {
        *p++ = h.version;
    }
    memcpy(p, h.phone, phone_bytes(h.v2019));
    p += phone_bytes(h.v2019);
    store_be16(p, h.serial);
    p += 2;
    if (h.subpackage) {
        store_be16(p, h.package_count);
        store_be16(p + 2, h.package_index);
        p += kPackageFields;
    }
    return static_cast<size_t>(p - out);
}

}  // namespace

const char* to_string(FrameError e) {
    switch (e) {
        case FrameError::None:
            return "well-formed";
        case FrameError::NoDelimiter:
            return "the frame does not begin and end with 0x7e";
        case FrameError::StrayDelimiter:
            return "0x7e inside the frame";
        case FrameError::BadEscape:
            return "0x7d not followed by 0x01 or 0x02";
        case FrameError::TooShort:
            return "shorter than a message header and check code";
        case FrameError::BadCheckCode:
            return "the check code does not match";
        case FrameError::LengthMismatch:
            return "the body length in the header differs from the body";
        case FrameError::BadPackage:
            return "package number 0 or above the package count";
        case FrameError::NoRoom:
            return "the buffer is too small";
        case FrameError::BodyTooLong:
            return "a body above 1023 bytes needs packages";
    }
    return "?";
}

size_t next_frame(const unsigned char* data, size_t size, const unsigned char** frame, size_t* frame_len) {
    const unsigned char* start =
        data == nullptr ? nullptr : static_cast<const unsigned char*>(memchr(data, kFlag, size));
    if (start == nullptr) {
        return 0;
    }
    const size_t from = static_cast<size_t>(start - data);
    const unsigned char* end = static_cast<const unsigned char*>(memchr(start + 1, kFlag, size - from - 1));
    if (end == nullptr) {
        return 0;
    }
    *frame = start;
    *frame_len = static_cast<size_t>(end - start) + 1;
    return static_cast<size_t>(end - data) + 1;
}

FrameError unframe(const unsigned char* frame, size_t size, unsigned char* work, size_t work_size, Message* out) {
    if (frame == nullptr || size < 2 || frame[0] != kFlag || frame[size - 1] != kFlag) {
        return FrameError::NoDelimiter;
    }
    size_t n = 0;
    for (size_t i = 1; i + 1 < size; i++) {
        unsigned char b = frame[i];
        if (b == kFlag) {
            return FrameError::StrayDelimiter;
        }
        if (b == kEscape) {
            if (i + 2 >= size || (frame[i + 1] != 0x01 && frame[i + 1] != 0x02)) {
                return FrameError::BadEscape;
            }
            b = frame[++i] == 0x01 ? kEscape : kFlag;
        }
        if (n == work_size) {
            return FrameError::NoRoom;
        }
        work[n++] = b;
    }
    if (n < kHeader2013 + 1) {
        return FrameError::TooShort;
    }
    if (xor_of(work, n - 1, 0) != work[n - 1]) {
        return FrameError::BadCheckCode;
    }
    const uint16_t attr = load_be16(work + 2);
    MessageHeader h{};
    h.msg_id = load_be16(work);
    h.encryption = static_cast<uint8_t>((attr >> kEncryptionShift) & kEncryptionMask);
    h.subpackage = (attr & kSubpackageBit) != 0;
    h.v2019 = (attr & kVersionBit) != 0;
    const size_t head = header_size(h.v2019, h.subpackage);
    if (n < head + 1) {
        return FrameError::TooShort;
    }
    const unsigned char* p = work + 4;
    if (h.v2019) {
        h.version = *p++;
    }
    memcpy(h.phone, p, phone_bytes(h.v2019));
    p += phone_bytes(h.v2019);
    h.serial = load_be16(p);
    p += 2;
    if (h.subpackage) {
        h.package_count = load_be16(p);
        h.package_index = load_be16(p + 2);
        if (h.package_index == 0 || h.package_index > h.package_count) {
            return FrameError::BadPackage;
        }
    }
    const size_t body_len = n - 1 - head;
    if (body_len != (attr & kLengthMask)) {
        return FrameError::LengthMismatch;
    }
    out->header = h;
    out->body = work + head;
    out->body_len = body_len;
    return FrameError::None;
}

FrameError frame_message(const MessageHeader& h, const unsigned char* body, size_t body_len, unsigned char* out,
                         size_t out_size, size_t* written) {
    if (body_len > kMaxPackageBody) {
        return FrameError::BodyTooLong;
    }
    unsigned char head[kMaxHeader];
    const size_t head_len = put_header(h, body_len, head);
    const unsigned char check = xor_of(body, body_len, xor_of(head, head_len, 0));
    const size_t need = 2 + escaped_size(head, head_len) + escaped_size(body, body_len) + escaped_size(&check, 1);
    *written = need;
    if (out == nullptr || out_size < need) {
        return FrameError::NoRoom;
    }
    unsigned char* p = out;
    *p++ = kFlag;
    p = put_escaped(p, head, head_len);
    p = put_escaped(p, body, body_len);
    p = put_escaped(p, &check, 1);
    *p = kFlag;
    return FrameError::None;
}

int package_count(size_t body_len) {
    /* Counted rather than divided: an -Os build for 32-bit ARM would take
     * the division from libgcc. */
    int n = 1;
    for (size_t left = body_len; left > kMaxPackageBody; left -= kMaxPackageBody) {
        n++;
    }
    return n;
}

FrameError frame_package(const MessageHeader& h, const unsigned char* body, size_t body_len, int index,
                         unsigned char* out, size_t out_size, size_t* written) {
    const int count = package_count(body_len);
    if (index < 1 || index > count || count > 0xffff) {
        return FrameError::BadPackage;
    }
    MessageHeader ph = h;
    ph.subpackage = count > 1;
    ph.package_count = count > 1 ? static_cast<uint16_t>(count) : 0;
    ph.package_index = count > 1 ? static_cast<uint16_t>(index) : 0;
    ph.serial = static_cast<uint16_t>(h.serial + index - 1);
    const size_t from = kMaxPackageBody * static_cast<size_t>(index - 1);
    const size_t len = body_len - from < kMaxPackageBody ? body_len - from : kMaxPackageBody;
    return frame_message(ph, body + from, len, out, out_size, written);
}

const char* to_string(JoinState s) {
    switch (s) {
        case JoinState::Incomplete:
            return "more packages to come";
        case JoinState::Complete:
            return "complete";
        case JoinState::OutOfOrder:
            return "a package out of order";
        case JoinState::NoRoom:
            return "the joined body does not fit the buffer";
    }
    return "?";
}

void join_start(PackageJoin* j, unsigned char* buf, size_t cap) { *j = PackageJoin{buf, cap, 0, 0, 0, 0}; }

JoinState join_add(PackageJoin* j, const Message& m) {
    const MessageHeader& h = m.header;
    const bool first = j->count == 0;
    if (!h.subpackage || first) {
        if (!first || (h.subpackage && h.package_index != 1)) {
            j->count = 0;
            return JoinState::OutOfOrder;
        }
        j->len = 0;
        j->msg_id = h.msg_id;
        j->count = h.subpackage ? h.package_count : 1;
        j->next = 1;
    } else if (h.msg_id != j->msg_id || h.package_count != j->count || h.package_index != j->next) {
        j->count = 0;
        return JoinState::OutOfOrder;
    }
    if (j->cap - j->len < m.body_len) {
        j->count = 0;
        return JoinState::NoRoom;
    }
    if (m.body_len > 0) {
        memcpy(j->buf + j->len, m.body, m.body_len);
    }
    j->len += m.body_len;
    if (j->next == j->count) {
        j->count = 0;
        return JoinState::Complete;
    }
    j->next++;
    return JoinState::Incomplete;
}

bool phone_from_digits(const char* digits, bool v2019, unsigned char phone[10]) {
    const size_t width = 2 * phone_bytes(v2019);
    const size_t n = digits == nullptr ? 0 : strlen(digits);
    if (n == 0 || n > width) {
        return false;
    }
    for (size_t i = 0; i < n; i++) {
        if (digits[i] < '0' || digits[i] > '9') {
            return false;
        }
    }
    memset(phone, 0, kPhone2019);
    for (size_t i = 0; i < n; i++) {
        const size_t at = width - n + i; /* digit position, right-aligned */
        const unsigned v = static_cast<unsigned>(digits[i] - '0');
        phone[at / 2] = static_cast<unsigned char>(phone[at / 2] | (at % 2 ? v : v << 4));
    }
    return true;
}

void phone_to_digits(const MessageHeader& h, char out[21]) {
    const size_t bytes = phone_bytes(h.v2019);
    size_t n = 0;
    for (size_t i = 0; i < 2 * bytes; i++) {
        const unsigned v = i % 2 ? h.phone[i / 2] & 0x0f : h.phone[i / 2] >> 4;
        const char c = v <= 9 ? static_cast<char>('0' + v) : '?';
        if (n == 0 && c == '0' && i + 1 < 2 * bytes) {
            continue; /* leading zeros */
        }
        out[n++] = c;
    }
    out[n] = '\0';
}

}  // namespace bbconf
