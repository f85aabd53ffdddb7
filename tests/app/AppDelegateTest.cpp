#include "app/AppDelegate.h"

#include "core/AppSettings.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakeImproveEvents.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakePreferredLanguages.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "l10n/L10n.h"
#include "menubar/StatusItemController.h"
#include "platform/ProcessMeter.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using nlohmann::json;

class InventedMeter final : public ProcessMeter {
public:
    double cpuTimeSeconds() const override { return cpu; }
    std::uint64_t residentBytes() const override { return resident; }
    std::string hardwareModel() const override { return "Maker Machine 1"; }
    double cpu = 0;
    std::uint64_t resident = 0;
};

class AppDelegateTest : public testing::Test {
protected:
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    FakePreferredLanguages preferredLanguages;
    FakeFrameworkLanguage framework;
    FakeImproveEvents events;
    InventedMeter meter;
    AppSettings settings{defaults, bundle, loginItem, log};
    L10n l10n{defaults, preferredLanguages, framework};
    Published<ModuleSet> placedModules;
    std::vector<std::string> steps;
    AppDelegate delegate{{settings, l10n, runLoop, clock, meter, events, placedModules,
                          [this] { steps.emplace_back("engine"); },
                          [this] {
                              steps.emplace_back("items");
                              return std::unique_ptr<StatusItemController>();
                          },
                          [this] { steps.emplace_back("reap"); },
                          [this] { steps.emplace_back("end tools"); }}};
};

TEST_F(AppDelegateTest, LaunchAppliesTheLanguageStartsTheEngineMakesTheItemsAndReapsOrphansInThisOrder) {
    defaults.setText("languageCode", "de");
    const Subscription language = l10n.language().subscribe([this](const AppLanguage& chosen) {
        if (chosen == AppLanguage::de) steps.emplace_back("language");
    });
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(steps, (std::vector<std::string>{"language", "engine", "items", "reap"}));
}

TEST_F(AppDelegateTest, TheEnvironmentEventComesOnceEightSecondsAfterLaunch) {
    settings.setEnabledModules({StatsModule::cpu, StatsModule::battery});
    settings.setStyle(ModuleStyle::pie, StatsModule::battery);
    settings.setMetric("top", false, StatsModule::cpu);
    settings.setMetric("gpu", false, StatsModule::cpu);
    settings.setInterval(2.9, StatsModule::cpu);
    delegate.applicationDidFinishLaunching();
    runLoop.advance(7.9);
    EXPECT_TRUE(events.events.empty());
    runLoop.advance(0.2);
    ASSERT_EQ(events.events.size(), 1u);
    EXPECT_EQ(events.events[0].name, "app.env");
    EXPECT_EQ(events.events[0].fields, (json{{"hwModel", "Maker Machine 1"},
                                             {"enabledModules", {"cpu", "battery"}},
                                             {"styles", "cpu:graphValue,battery:pie"},
                                             {"metrics", "cpu:2,battery:0"},
                                             {"intervals", "cpu:2,battery:10"},
                                             {"nestoraBridge", false}}));
    runLoop.advance(600);
    EXPECT_EQ(events.events.size(), 1u);
}

TEST_F(AppDelegateTest, IntervalsThatNoClockCouldKeepAreWholeNumbersInTheEnvironmentEvent) {
    settings.setEnabledModules({StatsModule::cpu, StatsModule::memory, StatsModule::disk,
                                StatsModule::network, StatsModule::sensors, StatsModule::battery});
    settings.setModuleIntervals({{StatsModule::cpu, 1e19},
                                 {StatsModule::memory, std::numeric_limits<double>::quiet_NaN()},
                                 {StatsModule::disk, std::numeric_limits<double>::infinity()},
                                 {StatsModule::network, -0.5},
                                 {StatsModule::sensors, -3.7},
                                 {StatsModule::battery, 0.999}});
    delegate.recordEnvironment();
    EXPECT_EQ(events.events.at(0).fields.at("intervals"),
              "cpu:10000000000000000000,memory:0,disk:0,network:0,sensors:-3,battery:0");
}

TEST_F(AppDelegateTest, TheEnvironmentEventOfAMachineWithAllModulesOffHasEmptyLists) {
    settings.setEnabledModules({});
    delegate.recordEnvironment();
    const json& fields = events.events.at(0).fields;
    EXPECT_EQ(fields.at("enabledModules"), json::array());
    EXPECT_EQ(fields.at("styles"), "");
    EXPECT_EQ(fields.at("metrics"), "");
    EXPECT_EQ(fields.at("intervals"), "");
}

TEST_F(AppDelegateTest, TheEnvironmentEventTellsOfAPlacedWidget) {
    placedModules.set(ModuleSet{StatsModule::disk});
    delegate.recordEnvironment();
    EXPECT_EQ(events.events.at(0).fields.at("nestoraBridge"), true);
}

TEST_F(AppDelegateTest, SelfLoadIsTheShareOfACoreSinceTheLastMeasureEveryHour) {
    settings.setEnabledModules({StatsModule::cpu, StatsModule::battery});
    settings.setInterval(1, StatsModule::cpu);
    meter.cpu = 5;
    delegate.applicationDidFinishLaunching();
    meter.cpu = 41;
    meter.resident = 31'500'000;
    runLoop.advance(3600);
    ASSERT_EQ(events.events.size(), 2u);
    EXPECT_EQ(events.events[1].name, "self.load");
    const json& fields = events.events[1].fields;
    EXPECT_NEAR(fields.at("cpuAvgPct").get<double>(), 1.0, 1e-9);
    EXPECT_EQ(fields.at("memMB"), 31.5);
    EXPECT_EQ(fields.at("enabledModules"), (json{"cpu", "battery"}));
    EXPECT_EQ(fields.at("minInterval"), 1.0);

    runLoop.advance(3600);
    EXPECT_EQ(events.events.at(2).fields.at("cpuAvgPct"), 0.0) << "measured anew from the last measure on";
}

TEST_F(AppDelegateTest, SelfLoadOfSlowModulesSendsTheirShortestIntervalAlthoughTheGlobalOneIsShorter) {
    settings.setEnabledModules({StatsModule::disk, StatsModule::battery});
    settings.setInterval(30, StatsModule::disk);
    settings.setInterval(1, StatsModule::cpu);
    delegate.recordSelfLoad();
    EXPECT_EQ(events.events.at(0).fields.at("minInterval"), 10.0);
}

TEST_F(AppDelegateTest, SelfLoadWithAllModulesOffSendsTheGlobalIntervalAndNoModules) {
    settings.setEnabledModules({});
    settings.setSampleInterval(5);
    delegate.recordSelfLoad();
    const json& fields = events.events.at(0).fields;
    EXPECT_EQ(fields.at("minInterval"), 5.0);
    EXPECT_EQ(fields.at("enabledModules"), json::array());
}

TEST_F(AppDelegateTest, SelfLoadWithoutAnEarlierMeasureOrWithoutTimePassedIsZero) {
    meter.cpu = 100;
    delegate.recordSelfLoad();
    EXPECT_EQ(events.events.at(0).fields.at("cpuAvgPct"), 0.0);
    meter.cpu = 200;
    delegate.recordSelfLoad();
    EXPECT_EQ(events.events.at(1).fields.at("cpuAvgPct"), 0.0);
}

TEST_F(AppDelegateTest, ATextThatIsNoURLReachesNobody) {
    int calls = 0;
    delegate.setCallbackHandler([&calls](const std::string&) { return ++calls > 0; });
    delegate.handleURL("not a url");
    delegate.handleURL("");
    delegate.handleURL("velmora://auth?code=%zz\x01");
    EXPECT_EQ(calls, 0);
}

TEST_F(AppDelegateTest, AURLThatIsTakenOpensTheAccountPageAndAnotherOpensNothing) {
    bool accepts = false;
    int opened = 0;
    delegate.setCallbackHandler([&accepts](const std::string&) { return accepts; });
    delegate.setAccountPageOpener([&opened] { ++opened; });
    delegate.handleURL("velmora://auth?code=1");
    EXPECT_EQ(opened, 0);
    accepts = true;
    delegate.handleURL("velmora://auth?code=1");
    EXPECT_EQ(opened, 1);
}

TEST_F(AppDelegateTest, AURLWithoutASignInIsIgnored) {
    delegate.handleURL("velmora://auth?code=1");
}

TEST_F(AppDelegateTest, TheEndEndsTheToolsOfThisRun) {
    delegate.applicationWillTerminate();
    EXPECT_EQ(steps, std::vector<std::string>{"end tools"});
}

TEST_F(AppDelegateTest, AfterTheEndNothingIsSent) {
    delegate.applicationDidFinishLaunching();
    delegate.applicationWillTerminate();
    runLoop.advance(7200);
    EXPECT_TRUE(events.events.empty());
}

}  // namespace
}  // namespace velmora
