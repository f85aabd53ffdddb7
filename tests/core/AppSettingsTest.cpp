#include "core/AppSettings.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakeSystemLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using enum StatsModule;

class AppSettingsTest : public testing::Test {
protected:
    AppSettingsTest() { defaults.stored["launchAtLogin"] = true; }

    AppSettings& settings() {
        if (!m_settings) m_settings = std::make_unique<AppSettings>(defaults, bundle, loginItem, log);
        return *m_settings;
    }

    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;

private:
    std::unique_ptr<AppSettings> m_settings;
};

// What an empty store means.

TEST_F(AppSettingsTest, EmptyStoreGivesTheDefaults) {
    EXPECT_FALSE(settings().onboardingCompleted().get());
    EXPECT_TRUE(settings().launchAtLogin().get());
    EXPECT_EQ(settings().languageCode().get(), std::nullopt);
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, memory, network));
    EXPECT_EQ(settings().sampleInterval().get(), 2.0);
    EXPECT_THAT(settings().moduleStyles().get(), IsEmpty());
    EXPECT_THAT(settings().moduleColors().get(), IsEmpty());
    EXPECT_THAT(settings().moduleIntervals().get(), IsEmpty());
    EXPECT_THAT(settings().moduleMetrics().get(), IsEmpty());
    EXPECT_TRUE(settings().crashReportingEnabled().get());
    EXPECT_TRUE(settings().improveDataSharing().get());
}

TEST_F(AppSettingsTest, ConstructionWritesNothingIfTheLoginItemWasDecidedOn) {
    settings();
    EXPECT_THAT(defaults.writes, IsEmpty());
    EXPECT_EQ(loginItem.registerCount, 0);
}

TEST_F(AppSettingsTest, StoredValuesAreRestored) {
    defaults.stored["onboardingCompleted"] = true;
    defaults.stored["launchAtLogin"] = false;
    defaults.stored["languageCode"] = "pt-BR";
    defaults.stored["sampleInterval"] = 5;
    defaults.stored["moduleStyles"] = {{"disk", "pieOnly"}};
    defaults.stored["moduleColors"] = {{"cpu", "FF0000"}};
    defaults.stored["moduleIntervals"] = {{"sensors", 7.5}};
    defaults.stored["moduleHiddenMetrics"] = {{"cpu", {"top", "gpu", "top"}}};
    defaults.stored["crashReportingEnabled"] = false;
    defaults.stored["improveDataSharing"] = false;
    EXPECT_TRUE(settings().onboardingCompleted().get());
    EXPECT_FALSE(settings().launchAtLogin().get());
    EXPECT_EQ(settings().languageCode().get(), "pt-BR");
    EXPECT_EQ(settings().sampleInterval().get(), 5.0);
    EXPECT_THAT(settings().moduleStyles().get(), ElementsAre(Pair(disk, ModuleStyle::pieOnly)));
    EXPECT_THAT(settings().moduleColors().get(), ElementsAre(Pair(cpu, "FF0000")));
    EXPECT_THAT(settings().moduleIntervals().get(), ElementsAre(Pair(sensors, 7.5)));
    EXPECT_THAT(settings().moduleMetrics().get(), ElementsAre(Pair(cpu, ElementsAre("gpu", "top"))));
    EXPECT_FALSE(settings().crashReportingEnabled().get());
    EXPECT_FALSE(settings().improveDataSharing().get());
}

TEST_F(AppSettingsTest, ValuesOfTheWrongTypeFallBackToTheDefaults) {
    for (const char* key : {"onboardingCompleted", "languageCode", "enabledModules", "sampleInterval",
                            "moduleStyles", "moduleColors", "moduleIntervals", "moduleHiddenMetrics",
                            "crashReportingEnabled", "improveDataSharing"}) {
        defaults.stored[key] = key == std::string("languageCode") ? json(3) : json("nonsense");
    }
    EXPECT_FALSE(settings().onboardingCompleted().get());
    EXPECT_EQ(settings().languageCode().get(), std::nullopt);
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, memory, network));
    EXPECT_EQ(settings().sampleInterval().get(), 2.0);
    EXPECT_THAT(settings().moduleStyles().get(), IsEmpty());
    EXPECT_THAT(settings().moduleColors().get(), IsEmpty());
    EXPECT_THAT(settings().moduleIntervals().get(), IsEmpty());
    EXPECT_THAT(settings().moduleMetrics().get(), IsEmpty());
    EXPECT_TRUE(settings().crashReportingEnabled().get());
    EXPECT_TRUE(settings().improveDataSharing().get());
    EXPECT_THAT(defaults.writes, IsEmpty());
}

TEST_F(AppSettingsTest, UnknownModulesAndStylesAreSkippedEntryByEntry) {
    defaults.stored["moduleStyles"] = {{"cpu", "bar"}, {"gpu", "bar"}, {"disk", "spiral"}, {"CPU", "pie"}};
    defaults.stored["moduleColors"] = {{"gpu", "0A84FF"}, {"memory", "00FF00"}};
    defaults.stored["moduleIntervals"] = {{"gpu", 3}, {"memory", 4}};
    defaults.stored["moduleHiddenMetrics"] = {{"gpu", {"top"}}, {"memory", {"swap"}}};
    EXPECT_THAT(settings().moduleStyles().get(), ElementsAre(Pair(cpu, ModuleStyle::bar)));
    EXPECT_THAT(settings().moduleColors().get(), ElementsAre(Pair(memory, "00FF00")));
    EXPECT_THAT(settings().moduleIntervals().get(), ElementsAre(Pair(memory, 4.0)));
    EXPECT_THAT(settings().moduleMetrics().get(), ElementsAre(Pair(memory, ElementsAre("swap"))));
}

TEST_F(AppSettingsTest, MapsOfMixedTypesKeepTheirGoodEntries) {
    defaults.stored["moduleStyles"] = {{"cpu", "bar"}, {"disk", 4}, {"memory", nullptr}};
    defaults.stored["moduleColors"] = {{"cpu", 255}, {"memory", "00FF00"}};
    defaults.stored["moduleIntervals"] = {{"cpu", "3"}, {"disk", true}, {"memory", 4}};
    defaults.stored["moduleHiddenMetrics"] = {{"cpu", "top"}, {"disk", {"top", 1}}};
    EXPECT_THAT(settings().moduleStyles().get(), ElementsAre(Pair(cpu, ModuleStyle::bar)));
    EXPECT_THAT(settings().moduleColors().get(), ElementsAre(Pair(memory, "00FF00")));
    EXPECT_THAT(settings().moduleIntervals().get(), ElementsAre(Pair(memory, 4.0)));
    EXPECT_THAT(settings().moduleMetrics().get(), ElementsAre(Pair(disk, ElementsAre("top"))));
}

TEST_F(AppSettingsTest, StoredMapWithModuleGpuYieldsNoEntry) {
    defaults.stored["moduleIntervals"] = {{"gpu", 3}};
    EXPECT_THAT(settings().moduleIntervals().get(), IsEmpty());
}

TEST_F(AppSettingsTest, UnknownMetricKeysAreKept) {
    defaults.stored["moduleHiddenMetrics"] = {{"cpu", {"astrology"}}};
    EXPECT_FALSE(settings().isMetricVisible("astrology", cpu));
}

// The list of enabled modules.

TEST_F(AppSettingsTest, StoredModulesLoadInModuleOrderWithoutTheUnknown) {
    defaults.stored["enabledModules"] = {"network", "cpu", "gpu"};
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, network));
}

TEST_F(AppSettingsTest, StoredDuplicatesLoadOnce) {
    defaults.stored["enabledModules"] = {"disk", "disk", "cpu", "disk"};
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, disk));
}

TEST_F(AppSettingsTest, StoredEmptyListMeansNoModules) {
    defaults.stored["enabledModules"] = json::array();
    EXPECT_THAT(settings().enabledModules().get(), IsEmpty());
}

TEST_F(AppSettingsTest, AllModulesMayBeDisabled) {
    for (const StatsModule module : kAllModules) settings().setEnabled(module, false);
    EXPECT_THAT(settings().enabledModules().get(), IsEmpty());
    EXPECT_EQ(defaults.stored["enabledModules"], json::array());
}

TEST_F(AppSettingsTest, EnablingKeepsModuleOrder) {
    settings().setEnabled(battery, true);
    settings().setEnabled(disk, true);
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, memory, disk, network, battery));
    EXPECT_EQ(defaults.stored["enabledModules"], json({"cpu", "memory", "disk", "network", "battery"}));
    EXPECT_TRUE(settings().isEnabled(disk));
    EXPECT_FALSE(settings().isEnabled(sensors));
}

TEST_F(AppSettingsTest, EnablingTwiceAddsOnce) {
    settings().setEnabled(cpu, true);
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, memory, network));
}

TEST_F(AppSettingsTest, AssignedModulesAreSortedAndWithoutDuplicates) {
    settings().setEnabledModules({battery, cpu, battery});
    EXPECT_THAT(settings().enabledModules().get(), ElementsAre(cpu, battery));
}

// Intervals.

TEST_F(AppSettingsTest, InheritedBatteryIntervalIsAtLeastTenSeconds) {
    settings().setSampleInterval(2);
    EXPECT_EQ(settings().interval(battery), 10.0);
    EXPECT_EQ(settings().interval(cpu), 2.0);
}

TEST_F(AppSettingsTest, LongerSampleIntervalIsInheritedByTheBattery) {
    settings().setSampleInterval(15);
    EXPECT_EQ(settings().interval(battery), 15.0);
}

TEST_F(AppSettingsTest, OwnBatteryIntervalMayBeShorterThanTenSeconds) {
    settings().setInterval(1, battery);
    EXPECT_EQ(settings().interval(battery), 1.0);
}

TEST_F(AppSettingsTest, IntervalsAreNotClamped) {
    settings().setInterval(0.001, cpu);
    settings().setSampleInterval(-3);
    EXPECT_EQ(settings().interval(cpu), 0.001);
    EXPECT_EQ(settings().interval(memory), -3.0);
}

TEST_F(AppSettingsTest, SettingOneIntervalStoresTheWholeMap) {
    defaults.stored["moduleIntervals"] = {{"cpu", 3.0}};
    settings().setInterval(4, disk);
    EXPECT_EQ(defaults.stored["moduleIntervals"], json({{"cpu", 3.0}, {"disk", 4.0}}));
}

// Styles and the older switches.

TEST_F(AppSettingsTest, ModuleWithoutStyleDrawsGraphValue) {
    EXPECT_EQ(settings().style(cpu), ModuleStyle::graphValue);
    settings().setStyle(ModuleStyle::gauge, cpu);
    EXPECT_EQ(settings().style(cpu), ModuleStyle::gauge);
    EXPECT_EQ(defaults.stored["moduleStyles"], json({{"cpu", "gauge"}}));
}

TEST_F(AppSettingsTest, MenubarGraphsOffMakesAllModulesShowValueAndStoresNothingUntilAChange) {
    defaults.stored["menubarGraphs"] = false;
    for (const StatsModule module : kAllModules) EXPECT_EQ(settings().style(module), ModuleStyle::value);
    EXPECT_FALSE(defaults.contains("moduleStyles"));

    settings().setStyle(ModuleStyle::pie, disk);
    EXPECT_EQ(defaults.stored["moduleStyles"], json({{"cpu", "value"},
                                                     {"memory", "value"},
                                                     {"disk", "pie"},
                                                     {"network", "value"},
                                                     {"sensors", "value"},
                                                     {"battery", "value"}}));
    EXPECT_EQ(defaults.stored["menubarGraphs"], json(false));
}

TEST_F(AppSettingsTest, MenubarGraphsOnMeansNoStyles) {
    defaults.stored["menubarGraphs"] = true;
    defaults.stored["cpuShowsGraph"] = false;
    EXPECT_THAT(settings().moduleStyles().get(), IsEmpty());
}

TEST_F(AppSettingsTest, CpuShowsGraphCountsWithoutMenubarGraphs) {
    defaults.stored["cpuShowsGraph"] = false;
    EXPECT_EQ(settings().moduleStyles().get().size(), kModuleCount);
    EXPECT_EQ(settings().style(network), ModuleStyle::value);
}

TEST_F(AppSettingsTest, CpuShowsGraphOnMeansNoStyles) {
    defaults.stored["cpuShowsGraph"] = true;
    EXPECT_THAT(settings().moduleStyles().get(), IsEmpty());
}

TEST_F(AppSettingsTest, OlderSwitchOfAnotherTypeIsNotASwitch) {
    defaults.stored["menubarGraphs"] = "no";
    defaults.stored["cpuShowsGraph"] = false;
    EXPECT_EQ(settings().style(cpu), ModuleStyle::value);
}

TEST_F(AppSettingsTest, StoredStylesWinOverOlderSwitches) {
    defaults.stored["menubarGraphs"] = false;
    defaults.stored["moduleStyles"] = json::object();
    EXPECT_THAT(settings().moduleStyles().get(), IsEmpty());
}

// Colours.

TEST_F(AppSettingsTest, HexadecimalTextGivesItsColor) {
    settings().setModuleColors({{cpu, "0A84FF"}, {disk, "0a84ff"}, {memory, "1"}});
    EXPECT_EQ(settings().color(cpu), (RGBColor{0x0A, 0x84, 0xFF}));
    EXPECT_EQ(settings().color(disk), (RGBColor{0x0A, 0x84, 0xFF}));
    EXPECT_EQ(settings().color(memory), (RGBColor{0, 0, 1}));
}

TEST_F(AppSettingsTest, HigherBitsOfAColorAreIgnored) {
    settings().setModuleColors({{cpu, "FF0A84FF"}});
    EXPECT_EQ(settings().color(cpu), (RGBColor{0x0A, 0x84, 0xFF}));
}

TEST_F(AppSettingsTest, TextThatIsNoHexadecimalNumberGivesNoColor) {
    settings().setModuleColors({{cpu, "zz"}, {memory, "#0A84FF"}, {disk, "0x12"}, {network, "12 "}});
    for (const StatsModule module : {cpu, memory, disk, network, sensors}) {
        EXPECT_EQ(settings().color(module), std::nullopt) << rawValue(module);
    }
}

TEST_F(AppSettingsTest, EmptyTextGivesNoColor) {
    settings().setModuleColors({{cpu, ""}});
    EXPECT_EQ(settings().color(cpu), std::nullopt);
}

TEST_F(AppSettingsTest, NineDigitsGiveNoColor) {
    settings().setModuleColors({{cpu, "10A84FF00"}, {memory, "000A84FF0"}});
    EXPECT_EQ(settings().color(cpu), std::nullopt);
    EXPECT_EQ(settings().color(memory), std::nullopt);
}

// Hidden sections.

TEST_F(AppSettingsTest, HidingAndShowingAMetricLeavesAnEmptyEntry) {
    settings().setMetric("top", false, cpu);
    EXPECT_FALSE(settings().isMetricVisible("top", cpu));
    EXPECT_TRUE(settings().isMetricVisible("top", memory));
    EXPECT_EQ(defaults.stored["moduleHiddenMetrics"], json({{"cpu", {"top"}}}));

    settings().setMetric("top", true, cpu);
    EXPECT_TRUE(settings().isMetricVisible("top", cpu));
    EXPECT_THAT(settings().moduleMetrics().get(), ElementsAre(Pair(cpu, IsEmpty())));
    EXPECT_EQ(defaults.stored["moduleHiddenMetrics"], json({{"cpu", json::array()}}));
}

// Writes and notifications.

TEST_F(AppSettingsTest, EveryPropertyIsStoredUnderItsKey) {
    settings().setOnboardingCompleted(true);
    settings().setLaunchAtLogin(false);
    settings().setLanguageCode("de");
    settings().setEnabledModules({disk});
    settings().setSampleInterval(3.5);
    settings().setModuleStyles({{disk, ModuleStyle::barOnly}});
    settings().setModuleColors({{disk, "123456"}});
    settings().setModuleIntervals({{disk, 60.0}});
    settings().setModuleMetrics({{disk, {"volumes", "top"}}});
    settings().setCrashReportingEnabled(false);
    settings().setImproveDataSharing(false);
    EXPECT_EQ(defaults.stored["onboardingCompleted"], json(true));
    EXPECT_EQ(defaults.stored["launchAtLogin"], json(false));
    EXPECT_EQ(defaults.stored["languageCode"], json("de"));
    EXPECT_EQ(defaults.stored["enabledModules"], json({"disk"}));
    EXPECT_EQ(defaults.stored["sampleInterval"], json(3.5));
    EXPECT_EQ(defaults.stored["moduleStyles"], json({{"disk", "barOnly"}}));
    EXPECT_EQ(defaults.stored["moduleColors"], json({{"disk", "123456"}}));
    EXPECT_EQ(defaults.stored["moduleIntervals"], json({{"disk", 60.0}}));
    EXPECT_EQ(defaults.stored["moduleHiddenMetrics"], json({{"disk", {"top", "volumes"}}}));
    EXPECT_EQ(defaults.stored["crashReportingEnabled"], json(false));
    EXPECT_EQ(defaults.stored["improveDataSharing"], json(false));
    EXPECT_FALSE(defaults.contains("moduleMetrics"));
}

TEST_F(AppSettingsTest, SettingAMapReplacesTheWholeStoredMap) {
    defaults.stored["moduleStyles"] = {{"cpu", "bar"}, {"memory", "pie"}};
    settings().setModuleStyles({{disk, ModuleStyle::graph}});
    EXPECT_EQ(defaults.stored["moduleStyles"], json({{"disk", "graph"}}));
}

TEST_F(AppSettingsTest, AbsentLanguageRemovesTheKey) {
    defaults.stored["languageCode"] = "de";
    settings().setLanguageCode(std::nullopt);
    EXPECT_FALSE(defaults.contains("languageCode"));
    EXPECT_EQ(settings().languageCode().get(), std::nullopt);
}

TEST_F(AppSettingsTest, WillChangeFiresBeforeTheNewValueAndTheStoreComesLast) {
    std::vector<std::string> order;
    const Subscription willChange = settings().willChange().subscribe(
        [&] { order.push_back("will " + std::to_string(settings().onboardingCompleted().get())); });
    const Subscription changed = settings().onboardingCompleted().subscribe([&](bool completed) {
        order.push_back("value " + std::to_string(completed) +
                        (defaults.contains("onboardingCompleted") ? " stored" : " not stored"));
    });
    defaults.onWrite = [&](std::string_view key) { order.push_back("write " + std::string(key)); };
    order.clear();
    settings().setOnboardingCompleted(true);
    EXPECT_THAT(order, ElementsAre("will 0", "value 1 not stored", "write onboardingCompleted"));
}

TEST_F(AppSettingsTest, EverySetterFiresWillChangeOnceWithTheOldValue) {
    int fired = 0;
    const Subscription willChange = settings().willChange().subscribe([&] { ++fired; });
    settings().setOnboardingCompleted(true);
    settings().setLaunchAtLogin(false);
    settings().setLanguageCode("de");
    settings().setEnabledModules({disk});
    settings().setSampleInterval(3.5);
    settings().setModuleStyles({});
    settings().setModuleColors({});
    settings().setModuleIntervals({});
    settings().setModuleMetrics({});
    settings().setCrashReportingEnabled(false);
    settings().setImproveDataSharing(false);
    EXPECT_EQ(fired, 11);
    settings().setEnabled(cpu, true);
    settings().setInterval(1, cpu);
    settings().setStyle(ModuleStyle::bar, cpu);
    settings().setMetric("top", false, cpu);
    EXPECT_EQ(fired, 15);
}

TEST_F(AppSettingsTest, ValueThatASubscriberSetsAgainIsTheOneStored) {
    const Subscription changed = settings().sampleInterval().subscribe([&](double seconds) {
        if (seconds == 3) settings().setSampleInterval(4);
    });
    settings().setSampleInterval(3);
    EXPECT_EQ(settings().sampleInterval().get(), 4.0);
    EXPECT_EQ(defaults.stored["sampleInterval"], json(4.0));
}

TEST_F(AppSettingsTest, EqualValueNotifiesAndStoresToo) {
    int notified = 0;
    const Subscription changed = settings().sampleInterval().subscribe([&](double) { ++notified; });
    settings().setSampleInterval(2);
    EXPECT_EQ(notified, 2);
    EXPECT_EQ(defaults.writeCount("sampleInterval"), 1U);
}

TEST_F(AppSettingsTest, OnlyTurningSharingOffClearsTheImproveQueueAfterTheWrite) {
    std::vector<json> storedWhenCleared;
    settings().setImproveQueueClearer(
        [&] { storedWhenCleared.push_back(defaults.stored["improveDataSharing"]); });
    settings().setImproveDataSharing(true);
    EXPECT_THAT(storedWhenCleared, IsEmpty());
    settings().setImproveDataSharing(false);
    EXPECT_THAT(storedWhenCleared, ElementsAre(json(false)));
}

TEST_F(AppSettingsTest, SharingMayBeTurnedOffWithoutAQueue) {
    settings().setImproveDataSharing(false);
    EXPECT_FALSE(settings().improveDataSharing().get());
}

// The login item.

TEST_F(AppSettingsTest, FirstRunStoresAndRegistersTheLoginItem) {
    defaults.stored.erase("launchAtLogin");
    settings();
    EXPECT_EQ(defaults.stored["launchAtLogin"], json(true));
    EXPECT_EQ(loginItem.registerCount, 1);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(AppSettingsTest, LaterRunDoesNotTouchTheLoginItemWhateverTheKeyHolds) {
    defaults.stored["launchAtLogin"] = "nonsense";
    settings();
    EXPECT_EQ(loginItem.registerCount + loginItem.unregisterCount, 0);
    EXPECT_EQ(defaults.stored["launchAtLogin"], json("nonsense"));
    EXPECT_TRUE(settings().launchAtLogin().get());
}

TEST_F(AppSettingsTest, ChangingLaunchAtLoginStoresAndThenAppliesIt) {
    std::vector<int> registeredWhenStored;
    defaults.onWrite = [&](std::string_view) { registeredWhenStored.push_back(loginItem.unregisterCount); };
    settings().setLaunchAtLogin(false);
    EXPECT_EQ(loginItem.unregisterCount, 1);
    EXPECT_THAT(registeredWhenStored, ElementsAre(0));
    settings().setLaunchAtLogin(true);
    EXPECT_EQ(loginItem.registerCount, 1);
    EXPECT_TRUE(loginItem.isRegistered);
}

TEST_F(AppSettingsTest, FailingLoginItemIsLoggedAndTheSettingStays) {
    loginItem.failure = "Operation not permitted";
    settings().setLaunchAtLogin(false);
    EXPECT_THAT(log.lines(), ElementsAre("Velmora: launch-at-login update failed: Operation not permitted"));
    EXPECT_FALSE(settings().launchAtLogin().get());
    EXPECT_EQ(defaults.stored["launchAtLogin"], json(false));
}

TEST_F(AppSettingsTest, RunOutsideAnApplicationBundleLogsTheSkipAndGoesOn) {
    bundle.values.clear();
    defaults.stored.erase("launchAtLogin");
    EXPECT_TRUE(settings().launchAtLogin().get());
    EXPECT_THAT(log.lines(), ElementsAre("Velmora: skipping launch-at-login update (not running from an app "
                                         "bundle)"));
    EXPECT_EQ(loginItem.registerCount, 0);
    EXPECT_EQ(defaults.stored["launchAtLogin"], json(true));
}

}  // namespace
}  // namespace velmora
