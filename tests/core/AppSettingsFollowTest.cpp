// What another process stores while the program runs.

#include "core/AppSettings.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeSystemLog.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class AppSettingsFollowTest : public testing::Test {
protected:
    AppSettingsFollowTest() { defaults.stored["launchAtLogin"] = true; }

    /// Another process stores a value.
    void storeOutside(const std::string& key, nlohmann::json value) {
        defaults.stored[key] = std::move(value);
        defaults.changedOutside.fire();
    }

    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    AppSettings settings{defaults, bundle, loginItem, log};
};

TEST_F(AppSettingsFollowTest, AValueStoredOutsideIsTakenOverAndNotStoredAgain) {
    int willChange = 0;
    std::vector<double> seen;
    const Subscription signal = settings.willChange().subscribe([&] { ++willChange; });
    const Subscription interval =
        settings.sampleInterval().subscribe([&](double seconds) { seen.push_back(seconds); });
    const auto writes = defaults.writes.size();
    storeOutside("sampleInterval", 5.0);
    EXPECT_EQ(seen, (std::vector<double>{2.0, 5.0}));
    EXPECT_EQ(willChange, 1);
    EXPECT_EQ(defaults.writes.size(), writes);
}

TEST_F(AppSettingsFollowTest, OnlyWhatReallyChangedNotifies) {
    int notified = 0;
    const Subscription modules = settings.enabledModules().subscribe([&](const auto&) { ++notified; });
    notified = 0;
    storeOutside("enabledModules", {"network", "memory", "cpu"});
    EXPECT_EQ(notified, 0) << "the same modules in another order";
    storeOutside("enabledModules", {"disk"});
    EXPECT_EQ(notified, 1);
    EXPECT_TRUE(settings.isEnabled(StatsModule::disk));
}

TEST_F(AppSettingsFollowTest, AForeignValueStoredOutsideFallsBackAsAtTheStart) {
    settings.setSampleInterval(5);
    storeOutside("sampleInterval", "soon");
    EXPECT_EQ(settings.sampleInterval().get(), 2.0);
}

TEST_F(AppSettingsFollowTest, SharingTurnedOffOutsideClearsTheImproveQueueOnce) {
    int cleared = 0;
    settings.setImproveQueueClearer([&] { ++cleared; });
    storeOutside("sampleInterval", 5.0);
    EXPECT_EQ(cleared, 0);
    storeOutside("improveDataSharing", false);
    EXPECT_EQ(cleared, 1);
    storeOutside("sampleInterval", 2.0);
    EXPECT_EQ(cleared, 1);
}

TEST_F(AppSettingsFollowTest, AValueRemovedOutsideFallsBackToItsDefault) {
    settings.setLanguageCode("de");
    settings.setEnabledModules({StatsModule::battery});
    defaults.stored.erase("languageCode");
    defaults.stored.erase("enabledModules");
    defaults.changedOutside.fire();
    EXPECT_EQ(settings.languageCode().get(), std::nullopt);
    EXPECT_TRUE(settings.isEnabled(StatsModule::network));
    EXPECT_FALSE(settings.isEnabled(StatsModule::battery));
}

TEST_F(AppSettingsFollowTest, EveryPropertyFollows) {
    defaults.stored["onboardingCompleted"] = true;
    defaults.stored["languageCode"] = "fr";
    defaults.stored["moduleStyles"] = {{"cpu", "pie"}};
    defaults.stored["moduleColors"] = {{"cpu", "0A84FF"}};
    defaults.stored["moduleIntervals"] = {{"cpu", 7}};
    defaults.stored["moduleHiddenMetrics"] = {{"cpu", {"top"}}};
    defaults.stored["crashReportingEnabled"] = false;
    defaults.changedOutside.fire();
    EXPECT_TRUE(settings.onboardingCompleted().get());
    EXPECT_EQ(settings.languageCode().get(), "fr");
    EXPECT_EQ(settings.style(StatsModule::cpu), ModuleStyle::pie);
    EXPECT_EQ(settings.color(StatsModule::cpu), (RGBColor{0x0A, 0x84, 0xFF}));
    EXPECT_EQ(settings.interval(StatsModule::cpu), 7);
    EXPECT_FALSE(settings.isMetricVisible("top", StatsModule::cpu));
    EXPECT_FALSE(settings.crashReportingEnabled().get());
}

TEST_F(AppSettingsFollowTest, TheLoginItemIsNotTouchedByAnOutsideChange) {
    storeOutside("launchAtLogin", false);
    EXPECT_FALSE(settings.launchAtLogin().get());
    EXPECT_EQ(loginItem.unregisterCount, 0);
}

}  // namespace
}  // namespace velmora
