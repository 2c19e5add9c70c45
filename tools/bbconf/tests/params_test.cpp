// The tool's names against the library's catalogue: one name for every catalogue ID, no name without one.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "params.h"

namespace {

using bbtool::RecordKind;

TEST(ToolNames, NameExactlyTheCataloguesIds) {
    for (RecordKind kind : {RecordKind::Terminal, RecordKind::Taxi}) {
        SCOPED_TRACE(bbtool::record_name(kind));
        const auto& names = bbtool::param_names(kind);
        ASSERT_EQ(static_cast<int>(names.size()), bbconf::param_count(kind));
        std::set<std::string> seen;
        for (size_t i = 0; i < names.size(); i++) {
            EXPECT_EQ(names[i].id, bbconf::param_at(kind, static_cast<int>(i)).id) << i;
            const std::string name = names[i].name;
            EXPECT_TRUE(seen.insert(name).second) << name << " twice";
            EXPECT_EQ(name.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_"), std::string::npos) << name;
            EXPECT_FALSE(name.empty() || name[0] == '_' || (name[0] >= '0' && name[0] <= '9')) << name;
        }
    }
}

}  // namespace
