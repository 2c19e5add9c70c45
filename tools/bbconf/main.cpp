// main.cpp - bbconf, a command-line tool for persisted parameter records and
// the platform's parameter messages.
//
// Standard output carries only the answers.  The library prints its own
// diagnostic lines on file descriptor 1, so once the command line is parsed
// the answers get a private duplicate of the original descriptor and fd 1
// is pointed at /dev/null (or at standard error with -v) for the library.
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "access.h"
#include "body.h"
#include "params.h"
#include "record.h"
#include "text.h"

namespace bbtool {
namespace {

// Where answers go once the library's descriptor has been redirected.
FILE* g_out = stdout;

void error_line(const std::string& command, const std::string& msg) {
    std::fflush(stdout);  // library lines (with -v) before ours
    std::fprintf(stderr, "bbconf: %s%s%s\n", command.c_str(), command.empty() ? "" : ": ", msg.c_str());
}

// Points fd 1 at /dev/null or at standard error and keeps the original for
// the answers.  Returns false when the descriptors cannot be set up.
bool divert_library_output(bool verbose) {
    std::fflush(stdout);
    const int answers = ::dup(STDOUT_FILENO);
    if (answers < 0) return false;
    const int sink = verbose ? ::dup(STDERR_FILENO) : ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (sink < 0 || ::dup2(sink, STDOUT_FILENO) < 0) {
        ::close(answers);
        if (sink >= 0) ::close(sink);
        return false;
    }
    ::close(sink);
    ::fcntl(answers, F_SETFD, FD_CLOEXEC);
    FILE* out = ::fdopen(answers, "w");
    if (out == nullptr) return false;
    g_out = out;
    return true;
}

void answer(const std::string& line) {
    std::fputs(line.c_str(), g_out);
    std::fputc('\n', g_out);
}

// Reports a failed read, or warns of a checksum mismatch read anyway;
// returns whether the record was read.
bool report_load(const std::string& command, const std::string& path, const LoadResult& res) {
    if (!res.ok) {
        error_line(command, res.error + (res.crc_mismatch ? "; --force reads it anyway" : ""));
        return false;
    }
    if (res.crc_mismatch) {
        char buf[96];
        std::snprintf(buf, sizeof buf, "checksum mismatch (stored 0x%04x, computed 0x%04x), read anyway (--force)",
                      res.stored_crc, res.computed_crc);
        error_line(command, "warning: " + path + ": " + buf);
    }
    return true;
}

// Loads a record for a command; reports and returns false on failure.
bool load_for(const std::string& command, const std::string& path, bool force, Record& rec) {
    return report_load(command, path, load_record(path, force, rec));
}

// Exit status of a command done in part: apply skipped items, query left
// IDs out.
constexpr int kDoneInPart = 3;
// Exit status of a command that wrote the file but could not print its
// answers: neither "done" nor "unchanged".
constexpr int kWrittenUnanswered = 4;

// Runs a command's change to FILE as one locked update; the edit reports
// its own refusals.  Prints the answers after a write and returns the exit
// status: 0 written, 1 unchanged, 4 written but the answers not printed.
int update_for(const std::string& command, const std::string& path, bool force, const RecordEdit& edit,
               const std::vector<std::string>& answers, bool create = false, bool replace = false) {
    Record rec;
    const UpdateResult res =
        update_record(path, force, create, replace, rec, [&](Record& r, const UpdateResult& found) {
            return report_load(command, path, found.loaded) && edit(r, found);
        });
    if (!res.written) {
        if (!res.loaded.ok) {
            report_load(command, path, res.loaded);
        } else if (!res.error.empty()) {
            error_line(command, res.error);
        }
        return 1;
    }
    if (!res.error.empty()) error_line(command, "warning: " + res.error);
    for (const std::string& a : answers) answer(a);
    if (std::fflush(g_out) != 0 || std::ferror(g_out)) {
        error_line(command, path + " was written, but the answers could not be printed: " + std::strerror(errno));
        return kWrittenUnanswered;
    }
    return 0;
}

std::string param_head(const ParamDef& d) { return id_text(d.id) + " " + d.name; }

std::string table_line(const ParamDef& d, const std::string& value) {
    char buf[96];
    std::snprintf(buf, sizeof buf, "%-6s  %-26s  %-10s  ", id_text(d.id).c_str(), d.name, kind_label(d).c_str());
    return buf + value;
}

// A value as the terminal shows it: text from GBK to UTF-8, the rest as the
// parameter tables print it.
std::string shown(const ParamDef& d, const std::vector<uint8_t>& wire) {
    return is_text(d) ? display_text(wire) : display_value(d, wire);
}

nlohmann::json json_entry(const ParamDef& d, const Readout& r) {
    nlohmann::json e;
    e["name"] = d.name;
    e["kind"] = kind_label(d);
    if (!r.ok) {
        e["value"] = nullptr;
        e["error"] = r.error;
    } else if (is_number(d)) {
        e["value"] = decode_number(r.wire);
    } else if (is_text(d)) {
        std::string text;
        const bool whole = gbk_to_utf8(r.wire, text, [](std::string& out, uint8_t) { out += "\xef\xbf\xbd"; });
        e["value"] = text;
        if (!whole) e["hex"] = to_hex(r.wire);
    } else {
        e["value"] = to_hex(r.wire);
    }
    return e;
}

void print_json(const nlohmann::json& j) {
    answer(j.dump(2, ' ', false, nlohmann::json::error_handler_t::replace));
}

// --- init -------------------------------------------------------------------

// A symbolic link to a missing file is refused (the store does not turn
// the link into a regular file, nor create a target somewhere else).
int cmd_init(const std::string& path, bool taxi, bool force) {
    const RecordKind kind = taxi ? RecordKind::Taxi : RecordKind::Terminal;
    auto edit = [&](Record& rec, const UpdateResult& found) {
        if (found.existed && !force) {
            error_line("init", path + " exists; --force replaces it with factory defaults");
            return false;
        }
        rec.set_kind(kind);
        rec.reset_to_defaults();
        return true;
    };
    return update_for("init", path, false, edit,
                      {path + ": factory defaults written (" + record_name(kind) + " record, " +
                       std::to_string(bbconf::record_file_size(kind)) + " bytes)"},
                      true, true);
}

// --- show / get -------------------------------------------------------------

int print_params(const std::string& command, Record& rec, const std::vector<const ParamDef*>& defs, bool json) {
    nlohmann::json j = nlohmann::json::object();
    std::vector<std::string> lines;
    for (const ParamDef* d : defs) {
        const Readout r = read_param(rec, *d);
        if (!r.ok) error_line(command, "warning: " + param_head(*d) + ": " + r.error);
        if (json) {
            j[id_text(d->id)] = json_entry(*d, r);
        } else {
            lines.push_back(table_line(*d, r.ok ? shown(*d, r.wire) : "?"));
        }
    }
    if (json) {
        print_json(j);
    } else {
        for (const std::string& l : lines) answer(l);
    }
    return 0;
}

int cmd_show(const std::string& path, bool json, bool force) {
    Record rec;
    if (!load_for("show", path, force, rec)) return 1;
    std::vector<const ParamDef*> defs;
    for (const ParamDef& d : param_table(rec.kind())) {
        if (is_readable(d)) defs.push_back(&d);
    }
    return print_params("show", rec, defs, json);
}

int cmd_get(const std::string& path, const std::vector<std::string>& names, bool json, bool force) {
    Record rec;
    if (!load_for("get", path, force, rec)) return 1;
    std::vector<const ParamDef*> defs;
    bool bad = false;
    for (const std::string& n : names) {
        std::string err;
        const ParamDef* d = resolve_param(rec.kind(), n, err);
        if (d != nullptr && !is_readable(*d)) {
            err = param_head(*d) + ": " + read_param(rec, *d).error;
            d = nullptr;
        }
        if (d == nullptr) {
            error_line("get", err);
            bad = true;
        } else {
            defs.push_back(d);
        }
    }
    if (bad) return 1;
    return print_params("get", rec, defs, json);
}

// --- set / apply ------------------------------------------------------------

struct Pending {
    std::string head;    // "0x0013 main_server_address", or the raw text when unresolved
    std::string error;   // empty when stored
};

// Names every refusal of a batch of values; true when all were stored, so
// that the file may be written.
bool batch_stored(const std::string& command, const std::string& path, const std::vector<Pending>& results,
                  std::vector<std::string>& answers) {
    size_t refused = 0;
    for (const Pending& p : results) {
        if (!p.error.empty()) {
            error_line(command, p.head + ": " + p.error);
            refused++;
        }
    }
    if (refused > 0) {
        error_line(command, path + " left unchanged: " + std::to_string(refused) + " of " +
                                std::to_string(results.size()) + " value" + (results.size() > 1 ? "s" : "") +
                                " refused");
        return false;
    }
    for (const Pending& p : results) answers.push_back(p.head + ": stored");
    return !results.empty();
}

std::vector<Pending> set_values(Record& rec, const std::vector<std::string>& assignments);

int cmd_set(const std::string& path, const std::vector<std::string>& assignments, bool force) {
    std::vector<std::string> answers;
    return update_for(
        "set", path, force,
        [&](Record& rec, const UpdateResult&) {
            return batch_stored("set", path, set_values(rec, assignments), answers);
        },
        answers);
}

std::vector<Pending> set_values(Record& rec, const std::vector<std::string>& assignments) {
    std::vector<Pending> results;
    for (const std::string& a : assignments) {
        Pending p;
        const size_t eq = a.find('=');
        if (eq == std::string::npos) {
            p.head = "'" + a + "'";
            p.error = "not of the form ID=VALUE or NAME=VALUE";
            results.push_back(p);
            continue;
        }
        const std::string key = a.substr(0, eq);
        const ParamDef* d = resolve_param(rec.kind(), key, p.error);
        if (d == nullptr) {
            p.head = "'" + key + "'";
            results.push_back(p);
            continue;
        }
        p.head = param_head(*d);
        std::vector<uint8_t> wire;
        std::string value = a.substr(eq + 1);
        if (is_text(*d) && value.rfind("hex:", 0) != 0) {
            // Typed as UTF-8, kept as GBK; "text:" keeps a text that starts with "hex:".
            const std::string plain = value.rfind("text:", 0) == 0 ? value.substr(5) : value;
            std::vector<uint8_t> gbk;
            if (!utf8_to_gbk(plain, gbk, p.error)) {
                results.push_back(p);
                continue;
            }
            value = "text:" + std::string(gbk.begin(), gbk.end());
        }
        p.error = parse_user_value(*d, value, wire);
        if (p.error.empty()) p.error = store_param(rec, *d, wire);
        results.push_back(p);
    }
    return results;
}

bool read_stream(FILE* f, std::string& text, std::string& error) {
    constexpr size_t kMaxText = 1 << 20;
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) {
        text.append(buf, n);
        if (text.size() > kMaxText) {
            error = "over-long body: more than 1 MiB of hex text";
            return false;
        }
    }
    if (std::ferror(f)) {
        error = std::string("cannot read the body: ") + std::strerror(errno);
        return false;
    }
    return true;
}

// "0x0013 main_server_address", or the bare ID when the tool has no name for it.
std::string item_head(const Record& rec, uint32_t id) {
    const ParamDef* d = id <= 0xffff ? find_param(rec.kind(), id) : nullptr;
    return d != nullptr ? param_head(*d) : id_text(id);
}

// Why an item was skipped, with the field's size where the length was at fault.
std::string skip_reason(const Record& rec, const bbconf::ItemOutcome& o) {
    std::string why = bbconf::item_reason(o);
    bbconf::ParamInfo p;
    if ((o.result == bbconf::SetResult::WrongLength || o.result == bbconf::SetResult::TooLong) &&
        bbconf::find_param(rec.kind(), o.id, &p) && p.set_len > 0) {
        why += ": " + counted(o.len, "byte") + ", " +
               (o.result == bbconf::SetResult::TooLong ? "room for " + std::to_string(p.set_len)
                : p.fixed_set || p.kind == bbconf::ValueKind::Number ? "the value takes " + std::to_string(p.set_len)
                                                                       : "the value takes at most " + std::to_string(p.set_len));
    }
    return why;
}

// A parameter list that arrived, and where it came from.
struct Incoming {
    std::vector<uint8_t> list;
    std::string what;
};

// One or more whole messages, packages joined: the lists of the 0x8103
// messages and of the 0x0104 answers (after their serial).
bool read_messages(const std::vector<uint8_t>& bytes, std::vector<Incoming>& out, std::string& error) {
    std::vector<uint8_t> joined(bytes.size()), work(bytes.size());
    bbconf::PackageJoin join;
    bbconf::join_start(&join, joined.data(), joined.size());
    size_t at = 0;
    for (int n = 1; at < bytes.size(); n++) {
        const unsigned char* frame = nullptr;
        size_t len = 0;
        const size_t used = bbconf::next_frame(bytes.data() + at, bytes.size() - at, &frame, &len);
        const std::string which = "message " + std::to_string(n);
        if (used == 0 || frame != bytes.data() + at) {
            error = "byte " + std::to_string(at) + " is not the start of a message (0x7e)";
            return false;
        }
        at += used;
        bbconf::Message m;
        const bbconf::FrameError e = bbconf::unframe(frame, len, work.data(), work.size(), &m);
        if (e != bbconf::FrameError::None) {
            error = which + ": " + bbconf::to_string(e);
            return false;
        }
        const bbconf::JoinState s = bbconf::join_add(&join, m);
        if (s == bbconf::JoinState::OutOfOrder || s == bbconf::JoinState::NoRoom) {
            error = which + " (package " + std::to_string(m.header.package_index) + " of " +
                    std::to_string(m.header.package_count) + "): " + bbconf::to_string(s);
            return false;
        }
        if (s != bbconf::JoinState::Complete) continue;
        char id[8];
        std::snprintf(id, sizeof id, "0x%04x", m.header.msg_id);
        Incoming in;
        if (m.header.msg_id == bbconf::kMsgSetParams) {
            in.list.assign(joined.begin(), joined.begin() + static_cast<long>(join.len));
        } else if (m.header.msg_id == bbconf::kMsgQueryResponse && join.len >= 2) {
            in.list.assign(joined.begin() + 2, joined.begin() + static_cast<long>(join.len));
        } else {
            error = which + ": " + id + " carries no parameter values (0x8103 and 0x0104 do)";
            return false;
        }
        in.what = which + " " + id;
        out.push_back(std::move(in));
    }
    if (join.count != 0) {
        error = "the last message lacks packages " + std::to_string(join.next + 1) + " to " + std::to_string(join.count);
        return false;
    }
    return true;
}

// The lists of the input: whole messages when the bytes are framed, else a
// 0x8103 body, else a 0x0104 body (answer serial first).
bool read_lists(const std::vector<uint8_t>& bytes, std::vector<Incoming>& out, std::string& error) {
    std::string framed;
    if (bytes.size() >= 2 && bytes.front() == 0x7e && bytes.back() == 0x7e) {
        if (read_messages(bytes, out, framed)) return true;
        out.clear();
    }
    bbconf::ListFault fault;
    if (bbconf::check_list(bytes.data(), bytes.size(), &fault) == bbconf::ListError::None) {
        out.push_back(Incoming{bytes, "0x8103 body"});
        return true;
    }
    if (bytes.size() >= 3 && bbconf::check_list(bytes.data() + 2, bytes.size() - 2, nullptr) == bbconf::ListError::None) {
        out.push_back(Incoming{std::vector<uint8_t>(bytes.begin() + 2, bytes.end()),
                               "0x0104 body (answer serial " + std::to_string(bytes[0] << 8 | bytes[1]) + ")"});
        return true;
    }
    error = framed.empty() ? list_fault_text(fault, "list") : framed;
    return false;
}

bbconf::ApplyReport apply_to(Record& rec, Record* scratch, const Incoming& in, bbconf::ItemOutcome* out) {
    const unsigned char* l = in.list.data();
    if (rec.kind() == RecordKind::Terminal) {
        return scratch ? bbconf::apply_list_all_or_nothing(rec.terminal(), scratch->terminal(), l, in.list.size(), out, 255)
                       : bbconf::apply_list(rec.terminal(), l, in.list.size(), out, 255);
    }
    return scratch ? bbconf::apply_list_all_or_nothing(rec.taxi(), scratch->taxi(), l, in.list.size(), out, 255)
                   : bbconf::apply_list(rec.taxi(), l, in.list.size(), out, 255);
}

// The input is read and parsed before the record file is locked; its faults
// are reported after the record's own, as the record is read first.
int cmd_apply(const std::string& path, const std::string& source, bool strict, bool force) {
    std::string text, err;
    bool read_ok = true;
    if (source.empty() || source == "-") {
        read_ok = read_stream(stdin, text, err);
    } else if (file_exists(source)) {
        FILE* f = std::fopen(source.c_str(), "rb");
        if (f == nullptr) {
            err = "cannot read " + source + ": " + std::strerror(errno);
            read_ok = false;
        } else {
            read_ok = read_stream(f, text, err);
            std::fclose(f);
        }
    } else {
        text = source;
    }
    std::vector<uint8_t> bytes;
    std::vector<Incoming> lists;
    const bool parsed = read_ok && parse_hex(text, bytes, err) && read_lists(bytes, lists, err);
    std::vector<std::string> answers;
    size_t items = 0, skipped = 0;
    bool nothing_to_do = false;  // a list of no items: the record read, nothing written
    const int rc = update_for(
        "apply", path, force,
        [&](Record& rec, const UpdateResult&) {
            if (!parsed) {
                error_line("apply", read_ok ? err + "; " + path + " left unchanged" : err);
                return false;
            }
            // All or nothing checks each list on a scratch record first;
            // best effort stores item by item.
            std::unique_ptr<Record> scratch(strict ? new Record(rec.kind()) : nullptr);
            for (const Incoming& in : lists) {
                bbconf::ItemOutcome out[255];
                const bbconf::ApplyReport r = apply_to(rec, scratch.get(), in, out);
                items += static_cast<size_t>(r.items);
                for (int i = 0; i < r.items; i++) {
                    const std::string head = item_head(rec, out[i].id);
                    if (out[i].result == bbconf::SetResult::Stored) {
                        answers.push_back(head + ": stored");
                    } else {
                        error_line("apply", head + ": skipped: " + skip_reason(rec, out[i]));
                        skipped++;
                    }
                }
            }
            if (strict && skipped > 0) {
                error_line("apply", path + " left unchanged: " + std::to_string(skipped) + " of " +
                                        counted(items, "item") + " would be skipped (--strict)");
                return false;
            }
            nothing_to_do = items == 0;
            return !nothing_to_do;
        },
        answers);
    if (nothing_to_do) return 0;
    return rc == 0 && skipped > 0 ? kDoneInPart : rc;
}

// --- query ------------------------------------------------------------------

struct QueryOptions {
    bool answer = false;     // print the 0x0104 body with its answer serial
    uint16_t answer_serial = 0;
    bool frame = false;      // print whole 0x0104 messages
    std::string phone = "0";
    uint16_t serial = 0;
    int version = 2013;
};

int cmd_query(const std::string& path, const std::vector<std::string>& names, const QueryOptions& o, bool force) {
    Record rec;
    if (!load_for("query", path, force, rec)) return 1;
    bbconf::MessageHeader h{};
    h.msg_id = bbconf::kMsgQueryResponse;
    h.v2019 = o.version == 2019;
    h.version = 1;
    h.serial = o.serial;
    if (o.frame && !bbconf::phone_from_digits(o.phone.c_str(), h.v2019, h.phone)) {
        error_line("query", "--phone takes 1 to " + std::to_string(h.v2019 ? 20 : 12) + " digits, not '" + o.phone + "'");
        return 1;
    }
    // The IDs asked, as an 0x8106 body; names the tool does not know are left out here.
    std::vector<uint8_t> ids;
    bool left_out = false;
    if (!names.empty()) {
        ids.push_back(0);
        for (const std::string& n : names) {
            uint64_t v = 0;
            std::string err;
            uint32_t id;
            if (parse_number(n, v) && v <= 0xffffffffu) {
                id = static_cast<uint32_t>(v);
            } else if (const ParamDef* d = resolve_param(rec.kind(), n, err)) {
                id = d->id;
            } else {
                error_line("query", err + ": left out");
                left_out = true;
                continue;
            }
            if (ids[0] == bbconf::kMaxListItems) {
                error_line("query", "a query names at most 255 IDs");
                return 1;
            }
            ids.push_back(0), ids.push_back(0), ids.push_back(0), ids.push_back(0);
            for (int k = 0; k < 4; k++) ids[ids.size() - 4 + static_cast<size_t>(k)] = static_cast<uint8_t>(id >> (24 - 8 * k));
            ids[0]++;
        }
    }
    const unsigned char* asked = names.empty() ? nullptr : ids.data();
    bbconf::LeftOut left[bbconf::kMaxListItems];
    bbconf::AnswerReport r;
    std::vector<uint8_t> body;
    if (rec.kind() == RecordKind::Terminal) {
        body.resize(bbconf::answer_size(rec.terminal(), asked, ids.size(), nullptr, 0).size);
        r = bbconf::build_answer(rec.terminal(), o.answer_serial, asked, ids.size(), body.data(), body.size(), left, 255);
    } else {
        body.resize(bbconf::answer_size(rec.taxi(), asked, ids.size(), nullptr, 0).size);
        r = bbconf::build_answer(rec.taxi(), o.answer_serial, asked, ids.size(), body.data(), body.size(), left, 255);
    }
    for (int i = 0; i < r.left_out && i < bbconf::kMaxListItems; i++) {
        error_line("query", item_head(rec, left[i].id) + ": left out: " + bbconf::to_string(left[i].reason));
        left_out = true;
    }
    if (!r.written) {
        error_line("query", "the answer could not be built");
        return 1;
    }
    if (o.frame) {
        for (int i = 1; i <= bbconf::package_count(body.size()); i++) {
            std::vector<uint8_t> frame(2 * (bbconf::kMaxPackageBody + 32));
            size_t n = 0;
            bbconf::frame_package(h, body.data(), body.size(), i, frame.data(), frame.size(), &n);
            answer(to_hex(frame.data(), n));
        }
    } else {
        const size_t skip = o.answer ? 0 : 2;
        answer(to_hex(body.data() + skip, body.size() - skip));
    }
    return left_out ? kDoneInPart : 0;
}

// --- check / diff / list ----------------------------------------------------

int cmd_check(const std::string& path) {
    Record rec;
    LoadResult res = load_record(path, false, rec);
    if (!res.ok) {
        error_line("check", res.error);
        return 1;
    }
    char buf[64];
    std::snprintf(buf, sizeof buf, "CRC 0x%04x", res.computed_crc);
    answer(path + ": ok (" + record_name(rec.kind()) + " record, " + buf + ")");
    return 0;
}

int cmd_diff(const std::string& a_path, const std::string& b_path, bool force) {
    Record a, b;
    if (!load_for("diff", a_path, force, a) || !load_for("diff", b_path, force, b)) return 2;
    if (a.kind() != b.kind()) {
        error_line("diff", a_path + " is a " + record_name(a.kind()) + " record, " + b_path + " a " +
                               record_name(b.kind()) + " record");
        return 2;
    }
    size_t differ = 0;
    for (const ParamDef& d : param_table(a.kind())) {
        if (!is_readable(d)) continue;
        const Readout ra = read_param(a, d);
        const Readout rb = read_param(b, d);
        const std::string va = ra.ok ? shown(d, ra.wire) : "?";
        const std::string vb = rb.ok ? shown(d, rb.wire) : "?";
        if (ra.ok == rb.ok && ra.wire == rb.wire) continue;
        answer(param_head(d) + ": " + va + " -> " + vb);
        differ++;
    }
    if (differ == 0 && std::memcmp(a.bytes(), b.bytes(), a.size()) != 0) {
        answer("(the records differ only in bytes that no parameter ID reaches)");
        differ++;
    }
    return differ ? 1 : 0;
}

int cmd_list(bool taxi) {
    const RecordKind kind = taxi ? RecordKind::Taxi : RecordKind::Terminal;
    for (const ParamDef& d : param_table(kind)) answer(table_line(d, access_label(d)));
    return 0;
}

}  // namespace
}  // namespace bbtool

int main(int argc, char** argv) {
    using namespace bbtool;
    CLI::App app{"bbconf - read, change and check the parameter record files of an in-vehicle video terminal.\n"
                 "A record file holds a terminal record (3388 bytes) or a taxi record (1039 bytes): the record\n"
                 "followed by its CRC-CCITT (initial value 0xABCD) as a little-endian u16.",
                 "bbconf"};
    app.set_version_flag("--version", "bbconf " BBCONF_VERSION, "Print the version and exit");
    app.require_subcommand(1);
    app.fallthrough();
    bool verbose = false;
    app.add_flag("-v,--verbose", verbose, "Show the library's diagnostic lines on standard error");
    app.footer(
        "Parameters are named by ID (0x0013, or decimal 19) or by name (main_server_address);\n"
        "'bbconf list' shows the names.  Exit status: 0 done, 1 refused or failed (the file is then\n"
        "unchanged), 2 usage error, 3 done in part (apply: items skipped; query: IDs left out),\n"
        "4 the file was written but the answers could not be printed; diff: 0 same, 1 different,\n"
        "2 trouble.  A write holds a lock on the file's directory from reading to renaming, so\n"
        "concurrent writers never lose an update.  Text values are GBK in the record and UTF-8 on\n"
        "the terminal.\n\n"
        "Examples:\n"
        "  bbconf init terminal.bbc\n"
        "  bbconf set terminal.bbc heartbeat_interval=30 main_server_apn=cmnet 0x0081=44\n"
        "  bbconf get terminal.bbc 0x0001 main_server_apn\n"
        "  bbconf apply terminal.bbc 020000000104000000300000001005636d6e6574\n"
        "  bbconf query terminal.bbc 0x0001 0x0010\n"
        "  bbconf show terminal.bbc --json | jq '.\"0x0001\".value'");

    std::string file, file_b, body;
    std::vector<std::string> items;
    bool taxi = false, force = false, json = false;

    auto* init = app.add_subcommand("init", "Write a record file holding factory defaults");
    init->add_flag("--taxi", taxi, "A taxi record instead of a terminal record");
    init->add_flag("--force", force, "Replace an existing file");
    init->add_option("FILE", file, "Record file to create")->required();
    init->footer(
        "A FILE that is a symbolic link to a missing file is refused: create the target first\n"
        "(or remove the link).  A link to an existing file replaces the target (with --force).\n\n"
        "Examples:\n  bbconf init terminal.bbc\n  bbconf init --taxi taxi.bbc");

    auto* show = app.add_subcommand("show", "Print every parameter of a record file");
    show->add_option("FILE", file, "Record file")->required();
    show->add_flag("--json", json, "One JSON object keyed by ID: {\"0x0001\": {name, kind, value}, ...}");
    show->add_flag("--force", force, "Read the file despite a checksum mismatch");
    show->footer("Numbers print in decimal, text quoted (non-printable bytes as \\xNN), raw bytes and\n"
                 "blocks as hex.\n\nExamples:\n  bbconf show terminal.bbc\n"
                 "  bbconf show terminal.bbc --json | jq -r '.\"0x0013\".value'");

    auto* get = app.add_subcommand("get", "Print chosen parameters");
    get->add_option("FILE", file, "Record file")->required();
    get->add_option("PARAM", items, "Parameter IDs or names")->required();
    get->add_flag("--json", json, "Print JSON as show --json does");
    get->add_flag("--force", force, "Read the file despite a checksum mismatch");
    get->footer("Examples:\n  bbconf get terminal.bbc heartbeat_interval 0x0013\n"
                "  bbconf get taxi.bbc 0x0001 --json");

    auto* set = app.add_subcommand("set", "Store parameters; all or nothing");
    set->add_option("FILE", file, "Record file")->required();
    set->add_option("PARAM=VALUE", items, "Assignments by ID or name")->required();
    set->add_flag("--force", force, "Read the file despite a checksum mismatch (the file is rewritten "
                                    "with a fresh checksum)");
    set->footer(
        "Values: numbers in decimal or 0x-hex; text as given ('text:' keeps a literal text that\n"
        "starts with 'hex:', 'hex:' gives bytes); raw and block values as hex (wire form), with or\n"
        "without 'hex:'.  Each value is reported stored or refused (too long for its field, wrong\n"
        "length, unknown ID, rejected by the block codec, get-only); if any is refused nothing is\n"
        "written.\n\nExamples:\n"
        "  bbconf set terminal.bbc heartbeat_interval=30 server_tcp_port=0x1b58\n"
        "  bbconf set terminal.bbc main_server_address=10.0.0.1 night_speed_limit=hex:0150220000060000\n"
        "  bbconf set terminal.bbc 0xf364=hex:$(cat adas.hex)");

    bool strict = false;
    auto* apply = app.add_subcommand("apply", "Apply a 0x8103 set-terminal-parameters message or a 0x0104 answer");
    apply->add_option("FILE", file, "Record file")->required();
    apply->add_option("INPUT", body,
                      "Hex: a message body or whole messages; given here, in a file, or - for standard input "
                      "(the default)");
    apply->add_flag("--strict", strict, "All or nothing: store no item unless every item can be stored");
    apply->add_flag("--force", force, "Read the file despite a checksum mismatch");
    apply->footer(
        "INPUT is one of, told apart by its bytes:\n"
        "  a 0x8103 body: a BYTE count, then per item a DWORD ID, a BYTE length and the value;\n"
        "  a 0x0104 body: a WORD answer serial, then the same list;\n"
        "  one or more whole messages (0x7e ... 0x7e, 2013 or 2019 header) of 0x8103 or 0x0104,\n"
        "  packages of a split message joined in order.\n"
        "Each item is stored or skipped (unknown ID, get-only, wrong length, too long, rejected by\n"
        "the block codec); stored items are listed on standard output, skipped ones with their\n"
        "reason on standard error.  The file is written once.\n"
        "Exit status: 0 every item stored; 3 the file was written, some items skipped; 1 the input\n"
        "was refused (malformed hex, list or message; with --strict, any item skipped) and the file\n"
        "is unchanged.\n\nExamples:\n"
        "  bbconf apply terminal.bbc 0100000001040000001e\n"
        "  bbconf apply terminal.bbc 7E8103000A000123456789000A0100000001040000000A057E\n"
        "  bbconf query a.bbc | bbconf apply b.bbc -");

    QueryOptions qo;
    auto* query = app.add_subcommand("query", "Answer a parameter query: the list of a 0x0104 response as hex");
    query->add_option("FILE", file, "Record file")->required();
    query->add_option("PARAM", items, "Parameter IDs or names (default: every parameter the record holds)");
    auto* answer_opt = query->add_option("--answer", qo.answer_serial,
                                         "Print the whole 0x0104 body, this answer serial first");
    query->add_flag("--frame", qo.frame, "Print whole 0x0104 messages, one a line, in packages of at most 1023 "
                                         "body bytes");
    query->add_option("--phone", qo.phone, "--frame: the terminal's phone number (default 0)");
    query->add_option("--serial", qo.serial, "--frame: the message serial of the first package (default 0)");
    query->add_option("--protocol", qo.version, "--frame: the 2013 or 2019 header (default 2013)")
        ->check(CLI::IsMember({2013, 2019}));
    query->add_flag("--force", force, "Read the file despite a checksum mismatch");
    query->footer("The list: a BYTE count, then per parameter a DWORD ID, a BYTE length and the value.\n"
                  "IDs the record does not hold are left out and named on standard error (exit status 3).\n\n"
                  "Examples:\n  bbconf query terminal.bbc 0x0001 0x0013\n  bbconf query terminal.bbc\n"
                  "  bbconf query terminal.bbc --answer 7 --frame --phone 13800001111 --serial 100");

    auto* check = app.add_subcommand("check", "Check a record file's size and checksum (exit status 0 or 1)");
    check->add_option("FILE", file, "Record file")->required();
    check->footer("Example:\n  bbconf check terminal.bbc && echo intact");

    auto* diff = app.add_subcommand("diff", "Print the parameters that differ between two record files");
    diff->add_option("A", file, "First record file")->required();
    diff->add_option("B", file_b, "Second record file")->required();
    diff->add_flag("--force", force, "Read the files despite checksum mismatches");
    diff->footer("Each line: ID name: value-in-A -> value-in-B.\n\nExample:\n  bbconf diff old.bbc new.bbc");

    auto* list = app.add_subcommand("list", "List the parameter IDs, names and kinds the tool knows");
    list->add_flag("--taxi", taxi, "The taxi record's parameters");
    list->footer("Access: rw settable and readable, ro get-only, wo set-only, - neither.\n\n"
                 "Examples:\n  bbconf list\n  bbconf list --taxi | grep phone");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        const int rc = app.exit(e);
        return rc == 0 ? 0 : 2;
    }

    // Past a file-size limit a write fails with EFBIG and is reported,
    // instead of the signal killing the tool halfway.
    std::signal(SIGXFSZ, SIG_IGN);
    if (!divert_library_output(verbose)) {
        std::fprintf(stderr, "bbconf: cannot set up the output descriptors: %s\n", std::strerror(errno));
        return 1;
    }
    int rc = 2;
    if (init->parsed()) rc = cmd_init(file, taxi, force);
    else if (show->parsed()) rc = cmd_show(file, json, force);
    else if (get->parsed()) rc = cmd_get(file, items, json, force);
    else if (set->parsed()) rc = cmd_set(file, items, force);
    else if (apply->parsed()) rc = cmd_apply(file, body, strict, force);
    else if (query->parsed()) {
        qo.answer = answer_opt->count() > 0;
        rc = cmd_query(file, items, qo, force);
    }
    else if (check->parsed()) rc = cmd_check(file);
    else if (diff->parsed()) rc = cmd_diff(file, file_b, force);
    else if (list->parsed()) rc = cmd_list(taxi);
    std::fflush(stdout);
    if (std::fflush(g_out) != 0 && rc == 0) {
        error_line("", std::string("cannot print the answers: ") + std::strerror(errno));
        rc = 1;
    }
    return rc;
}
