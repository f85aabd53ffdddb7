#include "panels/BatteryMenuView.h"

#include "model/StatsFormat.h"
#include "panels/FigureText.h"
#include "panels/kit/HistorySlots.h"
#include "panels/kit/Series.h"
#include "samplers/EnergyProcessSampler.h"

#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr double kRingSize = 46;
constexpr double kRingLineWidth = 5;
constexpr double kRingTextSize = 11;
constexpr double kGraphHeight = 26;
constexpr double kEmptySpacing = 6;
constexpr double kEmptyPadding = 9;
constexpr int kLowPercent = 20;

MetricRow row(std::string label, std::string value) {
    return {std::nullopt, std::move(label), std::move(value), true};
}

RingStat ring(double fraction, std::string caption, const QColor& tint) {
    RingStat stat;
    stat.fraction = fraction;
    stat.text = StatsFormat::percent(fraction);
    stat.caption = std::move(caption);
    stat.tint = tint;
    stat.size = kRingSize;
    stat.lineWidth = kRingLineWidth;
    stat.textSize = kRingTextSize;
    return stat;
}

std::string sourceText(bool isPluggedIn, const PanelContext& context) {
    return context.text(isPluggedIn ? "bat.power" : "bat.battery");
}

std::string powerText(double watts) {
    const double power = std::isfinite(watts) && watts > 0 ? watts : 0;
    return power >= 1 ? formatText("%.1f W", {power}) : formatText("%.0f mW", {power * 1000});
}

Graph chargeGraph(const BatteryStats& stats, const PanelContext& context) {
    BatteryHistoryGraph bars;
    bars.levels.assign(stats.history.begin(), stats.history.end());
    bars.plugged.assign(stats.pluggedHistory.begin(), stats.pluggedHistory.end());
    bars.height = kGraphHeight;
    Graph graph;
    graph.hover = context.hover([bars, levelLabel = context.name(), sourceLabel = context.text("bat.source"),
                                 power = sourceText(true, context), battery = sourceText(false, context)](
                                    int slot) -> std::vector<HoverChipRow> {
        const auto index = slotIndex(slot, bars.levels.size());
        if (!index) return {};
        const bool isPluggedIn = *index < bars.plugged.size() && bars.plugged[*index];
        return {{std::nullopt, levelLabel, StatsFormat::percent(slotValue(bars.levels, slot))},
                {std::nullopt, sourceLabel, isPluggedIn ? power : battery}};
    });
    graph.graph = std::move(bars);
    graph.name = context.name();
    graph.value = FigureText::spoken(
        {{"", StatsFormat::percent(stats.percent / 100.0)}, {"", sourceText(stats.isPluggedIn, context)}});
    return graph;
}

MenuCard chargeCard(const BatteryStats& stats, const PanelContext& context) {
    RingRow rings;
    rings.rings.push_back(ring(stats.percent / 100.0, context.name(),
                               stats.percent > kLowPercent ? Series::primary : Series::red));
    if (stats.health)
        rings.rings.push_back(ring(*stats.health, context.text("bat.healthShort"), Series::primary));
    MenuCard card;
    card.content.emplace_back(std::move(rings));
    card.content.emplace_back(chargeGraph(stats, context));
    return card;
}

MenuCard detailCard(const BatteryStats& stats, const PanelContext& context) {
    MenuCard card;
    card.content.emplace_back(row(context.text("bat.source"), sourceText(stats.isPluggedIn, context)));
    if (stats.isCharging)
        card.content.emplace_back(row(context.text("bat.state"), context.text("bat.charging")));
    if (const int minutes = stats.timeRemainingMinutes.value_or(-1); minutes >= 0) {
        card.content.emplace_back(row(context.text(stats.isCharging ? "bat.untilFull" : "bat.remaining"),
                                      formatText("%d:%02d", {minutes / 60, minutes % 60})));
    }
    card.content.emplace_back(
        row(context.text("bat.lowPower"), context.text(stats.lowPowerMode ? "common.on" : "common.off")));
    return card;
}

/// Nothing without a row.
std::optional<MenuCard> healthCard(const BatteryStats& stats, const PanelContext& context) {
    MenuCard card;
    card.content.emplace_back(CardHeader{context.text("bat.healthTitle"), "", ""});
    if (context.vis("cycles") && stats.cycleCount)
        card.content.emplace_back(row(context.text("bat.cycles"), formatText("%d", {*stats.cycleCount})));
    if (context.vis("health") && stats.health)
        card.content.emplace_back(row(context.text("bat.health"), StatsFormat::percent(*stats.health)));
    if (context.vis("temperature") && stats.temperature) {
        card.content.emplace_back(
            row(context.text("bat.temperature"), FigureText::celsius(*stats.temperature)));
    }
    if (card.content.size() == 1) return std::nullopt;
    return card;
}

MenuCard peripheralCard(const std::vector<PeripheralBattery>& peripherals, const PanelContext& context) {
    MenuCard card;
    card.content.emplace_back(CardHeader{context.text("metric.peripherals"), "", ""});
    for (const PeripheralBattery& peripheral : peripherals)
        card.content.emplace_back(row(peripheral.name, formatText("%lld%%", {peripheral.percent})));
    return card;
}

MenuCard energyCard(const PanelContext& context, const std::vector<TopProcess>& energyTop) {
    ProcessCard processes;
    processes.title = context.text("metric.energy");
    processes.note = context.text("bat.avgPower");
    processes.processes = energyTop;
    processes.format = powerText;
    processes.rowCount = kListedProcesses;
    MenuCard card;
    card.content.emplace_back(std::move(processes));
    return card;
}

MenuCard emptyCard(const PanelContext& context) {
    MenuCard card;
    card.spacing = kEmptySpacing;
    card.verticalPadding = kEmptyPadding;
    card.content.emplace_back(EmptyState{"battery.75percent", context.text("bat.none")});
    return card;
}

}  // namespace

BatteryMenuView::BatteryMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::battery, {StatsModule::battery}, with, std::move(dismiss)),
      m_energySampler(with.makeEnergyProcessSampler()),
      m_energyTop(
          with.runLoop,
          [this](RefreshedList<TopProcess>::Answer answer) {
              if (!context().vis("energy") || !m_energySampler->isSupported()) return;
              m_energySampler->sample(kListedProcesses, std::move(answer));
          },
          tellOfChange()) {}

BatteryMenuView::~BatteryMenuView() = default;

MenuPanel BatteryMenuView::panel() const {
    const PanelContext context = this->context();
    std::optional<std::vector<TopProcess>> energyTop;
    // Even the question whether there is such a list reads a counter, so a hidden section does not ask it.
    if (context.vis("energy") && m_energySampler->isSupported()) energyTop = m_energyTop.rows();
    return batteryPanel(figures().battery, context, energyTop);
}

MenuPanel batteryPanel(const BatteryStats& stats, const PanelContext& context,
                       const std::optional<std::vector<TopProcess>>& energyTop) {
    MenuPanel panel = context.panel();
    if (!stats.present) {
        panel.cards.push_back(emptyCard(context));
        return panel;
    }
    panel.cards.push_back(chargeCard(stats, context));
    panel.cards.push_back(detailCard(stats, context));
    if (auto health = healthCard(stats, context)) panel.cards.push_back(std::move(*health));
    if (context.vis("peripherals") && !stats.peripherals.empty())
        panel.cards.push_back(peripheralCard(stats.peripherals, context));
    if (context.vis("energy") && energyTop) panel.cards.push_back(energyCard(context, *energyTop));
    return panel;
}

}  // namespace velmora
