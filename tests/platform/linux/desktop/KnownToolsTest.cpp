#include "platform/linux/desktop/KnownTools.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace velmora {
namespace {

TEST(KnownTools, EveryKindHasSomeAndNoIdStandsForTwo) {
    std::set<std::string_view> ids;
    for (const ShortcutKind kind : kAllShortcutKinds) {
        EXPECT_FALSE(knownTools(kind).empty());
        for (const KnownTool& tool : knownTools(kind)) EXPECT_TRUE(ids.insert(tool.id).second) << tool.id;
    }
}

TEST(KnownTools, OnlyPagesOfSettingsHaveAnApplicationAroundThem) {
    for (const ShortcutKind kind : kAllShortcutKinds) {
        for (const KnownTool& tool : knownTools(kind)) {
            EXPECT_TRUE(isSettingsPane(kind) || tool.application.empty()) << tool.id;
            EXPECT_TRUE(!tool.application.empty() || tool.formerApplication.empty()) << tool.id;
        }
    }
}

TEST(KnownTools, CategoriesStandInForMonitorsAndTerminalsAlone) {
    for (const ShortcutKind kind : kAllShortcutKinds) {
        const bool hasCategories = kind == ShortcutKind::systemMonitor || kind == ShortcutKind::terminal;
        EXPECT_EQ(!categoriesOf(kind).empty(), hasCategories);
    }
}

}  // namespace
}  // namespace velmora
