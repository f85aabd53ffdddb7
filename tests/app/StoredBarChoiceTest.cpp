#include "app/StoredBarChoice.h"

#include "fakes/FakeDefaults.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

TEST(StoredBarChoice, NothingStoredOrSomethingUnknownIsAutomatic) {
    FakeDefaults defaults;
    EXPECT_EQ(storedBarChoice(defaults), StatusBarPreferences{});
    defaults.stored["statusBar.backend"] = "dock";
    defaults.stored["statusBar.ink"] = 3;
    EXPECT_EQ(storedBarChoice(defaults), StatusBarPreferences{});
}

TEST(StoredBarChoice, StoredTextsAreTheChoice) {
    FakeDefaults defaults;
    defaults.stored["statusBar.backend"] = "strip";
    defaults.stored["statusBar.ink"] = "light";
    EXPECT_EQ(storedBarChoice(defaults),
              (StatusBarPreferences{.backend = BackendPreference::strip, .ink = InkPreference::light}));
}

TEST(StoredBarChoice, ChangeByAnotherProcessIsToldUntilTheSubscriptionEnds) {
    FakeDefaults defaults;
    std::vector<StatusBarPreferences> told;
    Subscription subscription = followStoredBarChoice(
        defaults, [&told](const StatusBarPreferences& preferences) { told.push_back(preferences); });
    EXPECT_TRUE(told.empty());
    defaults.stored["statusBar.backend"] = "tray";
    defaults.changedOutside.fire();
    EXPECT_EQ(told, (std::vector{StatusBarPreferences{.backend = BackendPreference::tray}}));
    subscription.reset();
    defaults.changedOutside.fire();
    EXPECT_EQ(told.size(), 1U);
}

}  // namespace
}  // namespace velmora
