// record.cpp - the tool's records on the record store.
#include "record.h"

#include <sys/stat.h>

#include <climits>

namespace bbtool {

namespace {

std::string message(const bbconf::StoreResult& res, const std::string& path) {
    char buf[PATH_MAX + 256];
    bbconf::store_message(res, path.c_str(), buf, sizeof buf);
    return buf;
}

LoadResult load_result(const bbconf::StoreResult& res, const std::string& path) {
    LoadResult out;
    out.ok = res.ok();
    if (!out.ok) out.error = message(res, path);
    out.crc_mismatch = res.crc_mismatch();
    out.stored_crc = res.stored_crc;
    out.computed_crc = res.computed_crc;
    return out;
}

}  // namespace

void Record::reset_to_defaults() {
    if (kind() == RecordKind::Terminal) {
        CMN_InitBbConfToDefault(terminal());
    } else {
        BBTAXI_InitToDefault(taxi());
    }
}

bool file_exists(const std::string& path) {
    struct stat st;
    return ::stat(path.c_str(), &st) == 0;
}

LoadResult load_record(const std::string& path, bool force, Record& rec) {
    const unsigned flags = force ? bbconf::kStoreAcceptBadCrc : 0;
    return load_result(bbconf::load_record(path.c_str(), rec.stored(), flags), path);
}

UpdateResult update_record(const std::string& path, bool force, bool create, bool replace, Record& rec,
                           const RecordEdit& edit) {
    struct Context {
        Record& rec;
        const RecordEdit& edit;
        const std::string& path;
        UpdateResult out;
    } ctx{rec, edit, path, {}};
    const unsigned flags = (force ? bbconf::kStoreAcceptBadCrc : 0) | (create ? bbconf::kStoreCreate : 0) |
                           (replace ? bbconf::kStoreReplace : 0);
    const bbconf::StoreResult res = bbconf::update_record(
        path.c_str(), rec.stored(),
        [](bbconf::AnyRecord&, const bbconf::StoreResult& loaded, void* p) {
            Context& c = *static_cast<Context*>(p);
            c.out.loaded = load_result(loaded, c.path);
            c.out.loaded.ok = true;
            c.out.existed = loaded.existed;
            return c.edit(c.rec, c.out);
        },
        &ctx, flags);
    UpdateResult& out = ctx.out;
    out.written = res.written;
    out.existed = res.existed || out.existed;
    if (!res.ok()) {
        out.error = message(res, path);
        if (!out.loaded.ok) out.loaded = load_result(res, path);
    }
    return out;
}

}  // namespace bbtool
