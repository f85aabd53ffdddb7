#pragma once

#include "core/AppSettings.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakePreferredLanguages.h"
#include "fakes/FakeProcessSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeShortcutTargets.h"
#include "fakes/FakeSystemLog.h"
#include "fakes/FakeToolLauncher.h"
#include "fakes/FakeWorkQueue.h"
#include "l10n/L10n.h"
#include "model/SnapshotJson.h"
#include "model/StatsSnapshot.h"
#include "panels/MenuView.h"
#include "panels/PanelCollaborators.h"
#include "panels/PanelContext.h"
#include "panels/PanelFactory.h"
#include "samplers/DiskProcessSampler.h"
#include "samplers/EnergyProcessSampler.h"
#include "samplers/LiveTools.h"
#include "samplers/NetTopSampler.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// Everything that a panel is made over, with figures, settings, time and processes in a test's hand.
class PanelFixture : public testing::Test {
protected:
    /// A laptop at work, as the figures tool printed it.
    static const StatsSnapshot& recordedFigures() {
        static const StatsSnapshot figures = [] {
            std::ifstream file(VELMORA_FIXTURES "/figures/busy.json");
            const std::string text(std::istreambuf_iterator<char>(file), {});
            std::string error;
            const auto read = snapshotFromJson(text, error);
            if (!read) throw std::runtime_error("the recorded figures: " + error);
            return *read;
        }();
        return figures;
    }

    /// What the pure functions get besides figures, with the settings and the language of this moment.
    PanelContext context(StatsModule module) const { return {module, settings, l10n}; }
    void hide(const std::string& metric, StatsModule module) { settings.setMetric(metric, false, module); }
    void hideAll(StatsModule module) {
        for (const ModuleMetric& metric : metrics(module)) hide(std::string(metric.key), module);
    }

    std::unique_ptr<MenuView> makeView(StatsModule module) {
        return makeMenuView(module, with, [this] { ++dismissCount; });
    }
    void publish(ModuleSet updated) {
        StatsSnapshot next = snapshot.get();
        next.updated = updated;
        snapshot.set(next);
    }
    /// Lets the samplers' work run that can run without time passing.
    void runWork() {
        do {
            runLoop.runPosted();
        } while (workQueue.runAll() > 0 || runLoop.postedCount() > 0);
    }
    /// The same while time passes.
    void advance(double seconds) {
        runWork();
        runLoop.advance(seconds);
        runWork();
    }

    /// One piece of a panel. The test fails, and a fresh piece comes, if another one stands there.
    template <typename View>
    static View at(const MenuPanel& panel, std::size_t card, std::size_t position) {
        if (card < panel.cards.size() && position < panel.cards[card].content.size()) {
            if (const auto* view = std::get_if<View>(&panel.cards[card].content[position])) return *view;
        }
        ADD_FAILURE() << "no such view in card " << card << " at " << position;
        return {};
    }
    /// The texts that tell the cards apart: each card's first title, label or symbol.
    static std::vector<std::string> outline(const MenuPanel& panel) {
        std::vector<std::string> texts;
        for (const MenuCard& card : panel.cards) {
            texts.push_back(card.content.empty() ? "" : std::visit(FirstText{}, card.content.front()));
        }
        return texts;
    }
    /// Labels and figures of all metric rows of a card.
    static std::vector<std::pair<std::string, std::string>> rows(const MenuCard& card) {
        std::vector<std::pair<std::string, std::string>> rows;
        for (const PanelView& view : card.content) {
            if (const auto* row = std::get_if<MetricRow>(&view)) rows.emplace_back(row->label, row->value);
        }
        return rows;
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue workQueue;
    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    FakePreferredLanguages preferredLanguages;
    FakeFrameworkLanguage framework;
    AppSettings settings{defaults, bundle, loginItem, log};
    L10n l10n{defaults, preferredLanguages, framework};
    Published<StatsSnapshot> snapshot;
    FakeShortcutTargets shortcutTargets;
    SettingsRouter router;
    std::vector<std::optional<SettingsTab>> shownTabs;
    FakeProcessLister lister;
    std::shared_ptr<FakeProcessCounterSource> counters = std::make_shared<FakeProcessCounterSource>();
    FakeToolLauncher launcher;
    LiveTools liveTools;
    int dismissCount = 0;

    const PanelCollaborators with{
        .snapshot = snapshot,
        .settings = settings,
        .l10n = l10n,
        .runLoop = runLoop,
        .shortcutTargets = shortcutTargets,
        .router = router,
        .showSettings = [this](std::optional<SettingsTab> tab) { shownTabs.push_back(tab); },
        .processLister = lister,
        .makeDiskProcessSampler =
            [this] { return std::make_unique<DiskProcessSampler>(counters, clock, workQueue, runLoop); },
        .makeEnergyProcessSampler =
            [this] { return std::make_unique<EnergyProcessSampler>(counters, clock, workQueue, runLoop); },
        .makeNetTopSampler =
            [this] { return std::make_unique<NetTopSampler>(launcher, liveTools, runLoop, "/tools/nettop"); },
    };

private:
    struct FirstText {
        std::string operator()(const CardHeader& view) const { return view.title; }
        std::string operator()(const MetricRow& view) const { return view.label; }
        std::string operator()(const RingRow& view) const {
            return view.rings.empty() ? "" : view.rings.front().caption;
        }
        std::string operator()(const CoreGrid& view) const { return view.name; }
        std::string operator()(const UsageBar&) const { return "bar"; }
        std::string operator()(const BarRow& view) const { return view.label; }
        std::string operator()(const TextLine& view) const { return view.text; }
        std::string operator()(const Graph& view) const { return view.name; }
        std::string operator()(const BigRateHeader& view) const { return view.leadingLabel; }
        std::string operator()(const PeakRow&) const { return "peaks"; }
        std::string operator()(const ProcessCard& view) const { return view.title; }
        std::string operator()(const IOProcessCard& view) const { return view.title; }
        std::string operator()(const EmptyState& view) const { return view.symbol; }
    };
};

}  // namespace velmora
