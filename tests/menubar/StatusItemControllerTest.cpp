#include "menubar/StatusItemController.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakePreferredLanguages.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeStatusBar.h"
#include "fakes/FakeSystemLog.h"
#include "l10n/L10n.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Ids = std::vector<std::string>;

class RecordingPanels final : public PanelHost {
public:
    void toggle(StatsModule module, const Anchor& anchor) override { toggled.emplace_back(module, anchor); }
    std::vector<std::pair<StatsModule, Anchor>> toggled;
};

class StatusItemControllerTest : public testing::Test {
protected:
    StatusItemControllerTest() { bar.setAppearance({false, false, {1.0, 2.0}}); }

    StatusItemController& controller() {
        if (!m_controller) {
            StatusItemController::Actions actions;
            actions.showAbout = [this] { ++aboutCount; };
            actions.quit = [this] { ++quitCount; };
            m_controller = std::make_unique<StatusItemController>(snapshot, settings, l10n, runLoop, bar,
                                                                  panels, std::move(actions));
        }
        return *m_controller;
    }
    void publish(ModuleSet updated) {
        StatsSnapshot next = snapshot.get();
        next.updated = updated;
        snapshot.set(next);
    }
    /// How many pixels of the item's first image are drawn in exactly this opaque colour.
    std::size_t pixelsOf(const std::string& id, std::uint32_t rgb) const {
        const auto& pixels = bar.current.at(id).pixels.at(0).argb;
        return static_cast<std::size_t>(std::ranges::count(pixels, 0xff000000u | rgb));
    }
    /// The mean brightness of what is drawn, 0 to 255.
    double inkBrightness(const std::string& id) const {
        double sum = 0;
        double weight = 0;
        for (const std::uint32_t pixel : bar.current.at(id).pixels.at(0).argb) {
            const double alpha = pixel >> 24;
            sum += alpha * ((pixel >> 16 & 0xff) + (pixel >> 8 & 0xff) + (pixel & 0xff)) / 3.0;
            weight += alpha;
        }
        return weight > 0 ? sum / weight : -1;
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    FakePreferredLanguages preferredLanguages;
    FakeFrameworkLanguage framework;
    AppSettings settings{defaults, bundle, loginItem, log};
    L10n l10n{defaults, preferredLanguages, framework};
    Published<StatsSnapshot> snapshot;
    FakeStatusBar bar;
    RecordingPanels panels;
    int aboutCount = 0;
    int quitCount = 0;

private:
    std::unique_ptr<StatusItemController> m_controller;
};

TEST_F(StatusItemControllerTest, OneItemPerEnabledModuleInModuleOrder) {
    settings.setEnabledModules({StatsModule::battery, StatsModule::cpu, StatsModule::network});
    controller();
    EXPECT_EQ(bar.itemIds(), (Ids{"Velmora.cpu", "Velmora.network", "Velmora.battery"}));
    for (const StatusItem& item : bar.items) {
        EXPECT_FALSE(item.hasMenu);
        EXPECT_FALSE(item.isSquare);
    }
    EXPECT_EQ(bar.items[0].toolTip, "Velmora — CPU");
    EXPECT_EQ(bar.items[1].toolTip, "Velmora — NET");
    EXPECT_EQ(bar.items[2].toolTip, "Velmora — BAT");
}

TEST_F(StatusItemControllerTest, TheFirstRebuildAlreadyDrawsEveryItem) {
    controller();
    EXPECT_EQ(bar.current.size(), 3u);
    const auto& pixels = bar.current.at("Velmora.cpu").pixels;
    ASSERT_EQ(pixels.size(), 2u);
    EXPECT_EQ(pixels[0].height, 22);
    EXPECT_EQ(pixels[1].height, 44);
    EXPECT_EQ(pixels[1].ratio, 2.0);
    EXPECT_EQ(pixels[0].argb.size(), static_cast<std::size_t>(pixels[0].width) * 22);
}

TEST_F(StatusItemControllerTest, ASnapshotRedrawsOnlyTheModulesThatItUpdated) {
    controller();
    const std::size_t cpu = bar.imageCount("Velmora.cpu");
    const std::size_t memory = bar.imageCount("Velmora.memory");
    publish({StatsModule::memory});
    EXPECT_EQ(bar.imageCount("Velmora.cpu"), cpu);
    EXPECT_EQ(bar.imageCount("Velmora.memory"), memory + 1);
    publish({});
    EXPECT_EQ(bar.imageCount("Velmora.memory"), memory + 1);
}

TEST_F(StatusItemControllerTest, DisablingTheLastModuleShowsTheFallbackWithTheCommonEntries) {
    controller();
    settings.setEnabledModules({});
    runLoop.runPosted();
    ASSERT_EQ(bar.itemIds(), Ids{"Velmora.fallback"});
    EXPECT_TRUE(bar.items[0].hasMenu);
    EXPECT_TRUE(bar.items[0].isSquare);
    EXPECT_EQ(bar.items[0].toolTip, "Velmora");
    EXPECT_EQ(bar.current.at("Velmora.fallback").pixels.at(0).width, 16);

    const auto entries = bar.menuEntries("Velmora.fallback");
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0], (StatusMenuEntry{"menu.about", "About Velmora", ""}));
    EXPECT_EQ(entries[1], StatusMenuEntry{});
    EXPECT_EQ(entries[2], (StatusMenuEntry{"menu.quit", "Quit Velmora", "q"}));
}

TEST_F(StatusItemControllerTest, SnapshotsDoNotRedrawTheFallbackAndAChangeOfSettingsDoes) {
    settings.setEnabledModules({});
    controller();
    const std::size_t drawn = bar.imageCount("Velmora.fallback");
    publish({StatsModule::cpu});
    EXPECT_EQ(bar.imageCount("Velmora.fallback"), drawn);
    settings.setModuleColors({{StatsModule::cpu, "FF0000"}});
    runLoop.runPosted();
    EXPECT_EQ(bar.imageCount("Velmora.fallback"), drawn + 1);
}

TEST_F(StatusItemControllerTest, TheFallbackIsTintedForItsBar) {
    settings.setEnabledModules({});
    controller();
    EXPECT_LT(inkBrightness("Velmora.fallback"), 10);
    bar.setAppearance({true, false, {1.0}});
    runLoop.runPosted();
    EXPECT_GT(inkBrightness("Velmora.fallback"), 245);
}

TEST_F(StatusItemControllerTest, EnablingAModuleRemovesTheFallback) {
    settings.setEnabledModules({});
    controller();
    ASSERT_EQ(bar.itemIds(), Ids{"Velmora.fallback"});
    settings.setEnabled(StatsModule::disk, true);
    runLoop.runPosted();
    EXPECT_EQ(bar.itemIds(), Ids{"Velmora.disk"});
}

TEST_F(StatusItemControllerTest, EnablingAModuleWhileOthersAreShownAddsItInItsPlace) {
    settings.setEnabledModules({StatsModule::cpu, StatsModule::network});
    controller();
    settings.setEnabled(StatsModule::memory, true);
    EXPECT_EQ(bar.itemIds().size(), 2u) << "the rebuild waits for one hop";
    runLoop.runPosted();
    EXPECT_EQ(bar.itemIds(), (Ids{"Velmora.cpu", "Velmora.memory", "Velmora.network"}));
    EXPECT_TRUE(bar.current.contains("Velmora.memory"));
}

TEST_F(StatusItemControllerTest, TheSameEnabledModulesAgainRebuildNothing) {
    controller();
    runLoop.runPosted();
    const std::size_t rebuilds = bar.itemSets.size();
    settings.setEnabledModules(settings.enabledModules().get());
    runLoop.runPosted();
    EXPECT_EQ(bar.itemSets.size(), rebuilds);
}

TEST_F(StatusItemControllerTest, AColourChangeRedrawsEveryItemWithinOneHop) {
    controller();
    const std::size_t cpu = bar.imageCount("Velmora.cpu");
    const std::size_t network = bar.imageCount("Velmora.network");
    settings.setModuleColors({{StatsModule::cpu, "FF0000"}});
    EXPECT_EQ(bar.imageCount("Velmora.cpu"), cpu);
    runLoop.runPostedRound();
    EXPECT_EQ(bar.imageCount("Velmora.cpu"), cpu + 1);
    EXPECT_EQ(bar.imageCount("Velmora.network"), network + 1);
}

TEST_F(StatusItemControllerTest, RemovingAColourReturnsToTheAutomaticInk) {
    constexpr std::uint32_t kRed = 0xFF0000;
    settings.setStyle(ModuleStyle::pieOnly, StatsModule::cpu);
    settings.setModuleColors({{StatsModule::cpu, "FF0000"}});
    StatsSnapshot busy;
    busy.cpu.usage = 1;
    snapshot.set(busy);
    bar.setAppearance({true, false, {1.0}});
    controller();
    EXPECT_GT(pixelsOf("Velmora.cpu", kRed), 0u);
    settings.setModuleColors({});
    runLoop.runPostedRound();
    EXPECT_EQ(pixelsOf("Velmora.cpu", kRed), 0u);
    EXPECT_GT(pixelsOf("Velmora.cpu", 0xFFFFFF), 0u) << "tinted for the dark bar";
}

TEST_F(StatusItemControllerTest, AStyleChangeShowsWithoutATick) {
    controller();
    settings.setStyle(ModuleStyle::graph, StatsModule::cpu);
    runLoop.runPosted();
    EXPECT_EQ(bar.current.at("Velmora.cpu").pixels.at(0).width, 32);
}

TEST_F(StatusItemControllerTest, AThemeChangeTurnsTheAutomaticInkAtOnce) {
    controller();
    EXPECT_LT(inkBrightness("Velmora.cpu"), 10);
    bar.setAppearance({true, false, {1.0}});
    runLoop.runPostedRound();
    EXPECT_GT(inkBrightness("Velmora.cpu"), 245);
}

TEST_F(StatusItemControllerTest, AThemeChangeWithACustomColourTurnsTheText) {
    settings.setStyle(ModuleStyle::value, StatsModule::cpu);
    settings.setModuleColors({{StatsModule::cpu, "FF0000"}});
    controller();
    EXPECT_LT(inkBrightness("Velmora.cpu"), 10);
    bar.setAppearance({true, false, {1.0}});
    runLoop.runPostedRound();
    EXPECT_GT(inkBrightness("Velmora.cpu"), 245);
    bar.setAppearance({false, false, {1.0}});
    runLoop.runPostedRound();
    EXPECT_LT(inkBrightness("Velmora.cpu"), 10);
}

TEST_F(StatusItemControllerTest, AModuleThatWasNotSampledIsDrawnFromWhatIsKnown) {
    settings.setStyle(ModuleStyle::barOnly, StatsModule::cpu);
    StatsSnapshot busy;
    busy.cpu.usage = 1;
    snapshot.set(busy);
    controller();
    const auto full = bar.current.at("Velmora.cpu").pixels;
    // Another module's tick carries the old figures along; only a change of settings draws them.
    StatsSnapshot idle;
    idle.updated = {StatsModule::memory};
    snapshot.set(idle);
    EXPECT_EQ(bar.current.at("Velmora.cpu").pixels, full);
    settings.setStyle(ModuleStyle::pieOnly, StatsModule::memory);
    runLoop.runPosted();
    EXPECT_NE(bar.current.at("Velmora.cpu").pixels, full);
}

TEST_F(StatusItemControllerTest, ASquareBarGetsSquares) {
    bar.setAppearance({false, true, {1.0, 2.0, 3.0}});
    controller();
    const auto& pixels = bar.current.at("Velmora.memory").pixels;
    ASSERT_EQ(pixels.size(), 3u);
    EXPECT_EQ(pixels[0].width, 22);
    EXPECT_EQ(pixels[2].width, 66);
    EXPECT_EQ(bar.current.at("Velmora.memory").label, "0%");
}

TEST_F(StatusItemControllerTest, AClickTogglesThePanelOfItsModule) {
    controller();
    bar.click("Velmora.network", {10, 20, 30, 22});
    ASSERT_EQ(panels.toggled.size(), 1u);
    EXPECT_EQ(panels.toggled[0].first, StatsModule::network);
    EXPECT_EQ(panels.toggled[0].second, (Anchor{10, 20, 30, 22}));
    bar.click("Velmora.unknown");
    EXPECT_EQ(panels.toggled.size(), 1u);
}

TEST_F(StatusItemControllerTest, OpeningAnItemTwiceAsksForItsPanelAnewEachTime) {
    controller();
    bar.click("Velmora.cpu", {1, 0, 30, 22});
    bar.click("Velmora.cpu", {1, 0, 30, 22});
    ASSERT_EQ(panels.toggled.size(), 2u);
    EXPECT_EQ(panels.toggled[0], panels.toggled[1]);
}

TEST_F(StatusItemControllerTest, MenuEntriesRunTheirActionsAndForeignOnesNothing) {
    controller();
    bar.choose("menu.about");
    bar.choose("menu.quit");
    bar.choose("menu.settings");
    bar.choose("anything");
    EXPECT_EQ(aboutCount, 1);
    EXPECT_EQ(quitCount, 1);
}

TEST_F(StatusItemControllerTest, MenuTitlesAreOfTheLanguageAtTheMomentOfOpening) {
    settings.setEnabledModules({});
    controller();
    l10n.apply("de");
    EXPECT_EQ(bar.menuEntries("Velmora.fallback").back().title, l10n.string("menu.quit"));
    EXPECT_NE(bar.menuEntries("Velmora.fallback").back().title, "Quit Velmora");
}

TEST_F(StatusItemControllerTest, TheGuideEntryAppearsOnceItHasATarget) {
    settings.setEnabledModules({});
    int shown = 0;
    controller().setOnShowOnboarding([&shown] { ++shown; });
    EXPECT_EQ(bar.menuEntries("Velmora.fallback").front().action, "menu.guide");
    bar.choose("menu.guide");
    EXPECT_EQ(shown, 1);
}

TEST_F(StatusItemControllerTest, TheMenuOfAModuleOpensItsPanelAndHasTheSettingsOnceTheyHaveATarget) {
    // Only some hosts have a menu for it: those on which a click never reaches the item.
    controller();
    const StatusMenuEntry opening{std::string(kActivateAction), "Memory", ""};
    EXPECT_EQ(bar.menuEntries("Velmora.memory"), std::vector<StatusMenuEntry>{opening});
    EXPECT_TRUE(bar.menuEntries("Velmora.disk").empty()) << "is not shown";
    int shown = 0;
    StatusItemController::Actions actions;
    actions.showSettings = [&shown] { ++shown; };
    FakeStatusBar other;
    const StatusItemController withSettings(snapshot, settings, l10n, runLoop, other, panels, actions);
    EXPECT_EQ(other.menuEntries("Velmora.memory"),
              (std::vector<StatusMenuEntry>{opening, {"menu.settings", "Settings…", ","}}));
    other.choose("menu.settings");
    EXPECT_EQ(shown, 1);
}

TEST_F(StatusItemControllerTest, EveryEntryThatHasATargetStandsInTheFallbacksMenuInItsOrder) {
    settings.setEnabledModules({});
    std::vector<std::string> run;
    const auto note = [&run](const char* name) { return [&run, name] { run.emplace_back(name); }; };
    const StatusItemController all(
        snapshot, settings, l10n, runLoop, bar, panels,
        {note("settings"), note("guide"), note("updates"), note("about"), note("quit")});
    std::vector<std::string> keys;
    for (const StatusMenuEntry& entry : bar.menuEntries("Velmora.fallback")) {
        keys.push_back(entry.key);
        bar.choose(entry.action);
    }
    EXPECT_EQ(run, (std::vector<std::string>{"settings", "guide", "updates", "about", "quit"}));
    EXPECT_EQ(keys, (std::vector<std::string>{",", "", "", "", "", "q"})) << "a separator before the last";
}

TEST_F(StatusItemControllerTest, AHopThatComesAfterTheControllerIsGoneDoesNothing) {
    {
        StatusItemController brief(snapshot, settings, l10n, runLoop, bar, panels, {});
        settings.setModuleColors({{StatsModule::cpu, "00FF00"}});
    }
    const std::size_t images = bar.images.size();
    runLoop.runPosted();
    EXPECT_EQ(bar.images.size(), images);
    EXPECT_EQ(snapshot.subscriberCount(), 0u);
}

TEST_F(StatusItemControllerTest, PanelThatIsAskedForWithoutAClickOpensBesideItsItem) {
    bar.places["Velmora.cpu"] = {900, 0, 66, 26};
    controller().togglePanel(StatsModule::cpu, {5, 5, 1, 1});
    ASSERT_EQ(panels.toggled.size(), 1u);
    EXPECT_EQ(panels.toggled[0], std::pair(StatsModule::cpu, Anchor{900, 0, 66, 26}));
}

TEST_F(StatusItemControllerTest, PanelOfAnItemWithoutAKnownPlaceOpensAtTheGivenOne) {
    controller().togglePanel(StatsModule::memory, {5, 5, 1, 1});
    ASSERT_EQ(panels.toggled.size(), 1u);
    EXPECT_EQ(panels.toggled[0], std::pair(StatsModule::memory, Anchor{5, 5, 1, 1}));
}

TEST_F(StatusItemControllerTest, PanelOfAModuleWithoutAnItemDoesNotOpen) {
    controller().togglePanel(StatsModule::battery, {5, 5, 1, 1});
    EXPECT_TRUE(panels.toggled.empty());
}

}  // namespace
}  // namespace velmora
