#include "panels/FooterShortcuts.h"

#include "panels/PanelFixture.h"

#include <gmock/gmock.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Texts = std::vector<std::string>;

class FooterShortcutsTest : public PanelFixture {
protected:
    FooterShortcutsTest() {
        shortcutTargets.installed = {
            {ShortcutKind::systemMonitor, {"/apps/monitor.desktop", "Moniteur système"}},
            {ShortcutKind::terminal, {"/apps/terminal.desktop", "Terminal"}},
            {ShortcutKind::logs, {"/apps/logs.desktop", "Journaux"}},
            {ShortcutKind::disks, {"/apps/disks.desktop", "Disques"}},
            {ShortcutKind::cleaner, {"/apps/cleaner.desktop", "Nettoyeur"}},
            {ShortcutKind::networkSettings, {"/apps/network.desktop", "Réseau"}},
            {ShortcutKind::powerSettings, {"/apps/power.desktop", "Énergie"}},
        };
    }

    FooterShortcuts footer() {
        return {shortcutTargets, router,
                [this](std::optional<SettingsTab> tab) {
                    events.emplace_back("settings");
                    shownTabs.push_back(tab);
                },
                l10n};
    }
    std::vector<FooterShortcut> shortcuts(StatsModule module) {
        return footer().forModule(module, [this] { events.emplace_back("dismiss"); });
    }
    Texts ids(StatsModule module) {
        Texts ids;
        for (const FooterShortcut& shortcut : shortcuts(module)) ids.push_back(shortcut.id);
        return ids;
    }
    Texts symbols(StatsModule module) {
        Texts symbols;
        for (const FooterShortcut& shortcut : shortcuts(module)) symbols.push_back(shortcut.symbol);
        return symbols;
    }

    Texts events;
};

TEST_F(FooterShortcutsTest, ProcessorLeadsToMonitorTerminalAndLogs) {
    EXPECT_THAT(ids(StatsModule::cpu), ElementsAre("/apps/monitor.desktop", "/apps/terminal.desktop",
                                                   "/apps/logs.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::cpu),
                ElementsAre("waveform.path.ecg", "apple.terminal", "doc.text", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, MemoryLeadsToTheMonitor) {
    EXPECT_THAT(ids(StatsModule::memory), ElementsAre("/apps/monitor.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::memory), ElementsAre("waveform.path.ecg", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, DiskLeadsToTheDisksAndTheCleaner) {
    EXPECT_THAT(ids(StatsModule::disk),
                ElementsAre("/apps/disks.desktop", "/apps/cleaner.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::disk), ElementsAre("internaldrive", "sparkles", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, NetworkLeadsToItsSettingsAndTheMonitor) {
    EXPECT_THAT(ids(StatsModule::network),
                ElementsAre("/apps/network.desktop", "/apps/monitor.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::network), ElementsAre("wifi", "waveform.path.ecg", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, SensorsLeadToTheMonitor) {
    EXPECT_THAT(ids(StatsModule::sensors), ElementsAre("/apps/monitor.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::sensors), ElementsAre("waveform.path.ecg", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, BatteryLeadsToItsSettingsAndNotToTheMonitor) {
    EXPECT_THAT(ids(StatsModule::battery), ElementsAre("/apps/power.desktop", "velmora.settings"));
    EXPECT_THAT(symbols(StatsModule::battery), ElementsAre("battery.100percent.bolt", "chart.bar.xaxis"));
}

TEST_F(FooterShortcutsTest, AToolThatIsNotInstalledIsLeftOut) {
    shortcutTargets.installed.erase(ShortcutKind::cleaner);
    EXPECT_THAT(ids(StatsModule::disk), ElementsAre("/apps/disks.desktop", "velmora.settings"));
}

TEST_F(FooterShortcutsTest, WhereNothingIsInstalledTheOwnSettingsRemain) {
    shortcutTargets.installed.clear();
    for (const StatsModule module : kAllModules) EXPECT_EQ(ids(module), Texts{"velmora.settings"});
}

TEST_F(FooterShortcutsTest, AppIsNothingWithoutItsTarget) {
    EXPECT_TRUE(footer().app(ShortcutKind::logs, "doc.text"));
    shortcutTargets.installed.clear();
    EXPECT_FALSE(footer().app(ShortcutKind::logs, "doc.text"));
    EXPECT_FALSE(footer().settingsPane(ShortcutKind::powerSettings, "wifi"));
}

TEST_F(FooterShortcutsTest, HelpOfAToolFollowsTheSystemAndTheOwnButtonTheProgram) {
    l10n.apply("de");
    const auto buttons = shortcuts(StatsModule::memory);
    EXPECT_EQ(buttons[0].help, "Moniteur système");
    EXPECT_EQ(buttons[1].help, l10n.string("menu.settings"));
    EXPECT_NE(buttons[1].help, "Settings…");
}

TEST_F(FooterShortcutsTest, OnlyTheOwnButtonIsAccented) {
    for (const FooterShortcut& button : shortcuts(StatsModule::cpu))
        EXPECT_EQ(button.accent, button.id == "velmora.settings");
}

TEST_F(FooterShortcutsTest, ThePanelClosesBeforeTheToolOpens) {
    shortcutTargets.onOpen = [this] { events.emplace_back("open"); };
    shortcuts(StatsModule::cpu)[1].action();
    EXPECT_THAT(events, ElementsAre("dismiss", "open"));
    EXPECT_THAT(shortcutTargets.opened, ElementsAre(ShortcutTarget{"/apps/terminal.desktop", "Terminal"}));
}

TEST_F(FooterShortcutsTest, ThePanelClosesBeforeTheSettingsShow) {
    shortcuts(StatsModule::cpu).back().action();
    EXPECT_THAT(events, ElementsAre("dismiss", "settings"));
}

TEST_F(FooterShortcutsTest, OwnSettingsShowThePageOfTheModule) {
    shortcuts(StatsModule::sensors).back().action();
    EXPECT_EQ(router.selectedModule.get(), StatsModule::sensors);
    EXPECT_THAT(shownTabs, ElementsAre(std::optional(SettingsTab::modules)));
}

TEST_F(FooterShortcutsTest, TheModuleIsSelectedWhenTheWindowIsAskedFor) {
    std::optional<StatsModule> selected;
    const FooterShortcuts footer(
        shortcutTargets, router, [&](std::optional<SettingsTab>) { selected = router.selectedModule.get(); },
        l10n);
    footer.ownSettings(StatsModule::battery).action();
    EXPECT_EQ(selected, StatsModule::battery);
}

TEST_F(FooterShortcutsTest, OpeningAPanelDoesNotSelectItsModule) {
    shortcuts(StatsModule::battery);
    EXPECT_EQ(router.selectedModule.get(), StatsModule::cpu);
    EXPECT_THAT(shortcutTargets.opened, IsEmpty());
}

TEST_F(FooterShortcutsTest, AClosingThatDestroysTheButtonsStillOpensTheTarget) {
    for (const std::size_t position : {std::size_t{0}, std::size_t{3}}) {
        auto owner = std::make_unique<std::vector<FooterShortcut>>();
        const auto witness = std::make_shared<int>(0);
        *owner = footer().forModule(StatsModule::cpu, [&owner, witness] { owner.reset(); });
        (*owner)[position].action();
        EXPECT_FALSE(owner);
    }
    EXPECT_THAT(shortcutTargets.opened, SizeIs(1));
    EXPECT_THAT(shownTabs, SizeIs(1));
}

TEST_F(FooterShortcutsTest, WithoutAnyoneToCloseTheTargetStillOpens) {
    footer().forModule(StatsModule::cpu, nullptr).front().action();
    EXPECT_THAT(shortcutTargets.opened, SizeIs(1));
}

}  // namespace
}  // namespace velmora
