#include "panels/CPUMenuView.h"

#include "model/StatsFormat.h"
#include "panels/FigureText.h"
#include "panels/kit/HistorySlots.h"
#include "panels/kit/Series.h"
#include "samplers/TopProcessSampler.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>
#include <utility>

namespace velmora {
namespace {

constexpr double kGraphHeight = 32;
constexpr double kCoreSpacing = 4;
constexpr double kBarHeight = 4;
constexpr double kBarValueWidth = 32;

double average(std::span<const double> values) {
    if (values.empty()) return 0;
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

double finite(double value) {
    return std::isfinite(value) ? value : 0;
}

MetricRow shareRow(std::optional<QColor> tint, std::string label, double fraction) {
    return {tint, std::move(label), StatsFormat::percent(fraction), true};
}

MenuCard usageCard(const CPUStats& stats, const PanelContext& context) {
    const MetricRow user = shareRow(Series::primary, context.text("cpu.user"), stats.user);
    const MetricRow system = shareRow(Series::secondary, context.text("cpu.system"), stats.system);

    StackedHistoryGraph stacked;
    stacked.user.assign(stats.userHistory.begin(), stats.userHistory.end());
    stacked.system.assign(stats.systemHistory.begin(), stats.systemHistory.end());
    stacked.height = kGraphHeight;
    Graph graph;
    graph.hover = context.hover(
        [stacked, userLabel = user.label, systemLabel = system.label](int slot) -> std::vector<HoverChipRow> {
            if (!slotIndex(slot, std::max(stacked.user.size(), stacked.system.size()))) return {};
            return {{Series::primary, userLabel, StatsFormat::percent(slotValue(stacked.user, slot))},
                    {Series::secondary, systemLabel, StatsFormat::percent(slotValue(stacked.system, slot))}};
        });
    graph.graph = std::move(stacked);
    graph.name = context.name();
    graph.value = FigureText::spoken({{user.label, user.value}, {system.label, system.value}});

    MenuCard card;
    card.content = {CardHeader{context.name(), StatsFormat::percent(stats.usage), ""}, std::move(graph), user,
                    system};
    return card;
}

MenuCard coresCard(const CPUStats& stats, const PanelContext& context) {
    CoreGrid grid;
    grid.spacing = kCoreSpacing;
    grid.name = context.text("metric.cores");
    for (const double fraction : stats.perCore) {
        grid.rings.push_back({fraction, Series::primary});
        if (!grid.value.empty()) grid.value += ", ";
        grid.value += StatsFormat::percent(fraction);
    }
    MenuCard card;
    card.content = {CardHeader{grid.name, "", context.text("cpu.coresCount", {stats.perCore.size()})}};
    card.content.emplace_back(std::move(grid));
    if (stats.efficiencyCoreCount > 0) {
        const std::span<const double> cores = stats.perCore;
        const std::size_t efficient =
            std::min(static_cast<std::size_t>(stats.efficiencyCoreCount), cores.size());
        card.content.emplace_back(
            shareRow(std::nullopt, context.text("cpu.eCores"), average(cores.first(efficient))));
        card.content.emplace_back(
            shareRow(std::nullopt, context.text("cpu.pCores"), average(cores.subspan(efficient))));
    }
    return card;
}

BarRow gpuRow(std::optional<double> usage) {
    return {"GPU", UsageBar{finite(usage.value_or(0)), Series::primary, kBarHeight},
            usage ? StatsFormat::percent(*usage) : std::string(StatsFormat::kAbsent), kBarValueWidth};
}

MenuCard gpuAndLoadCard(const CPUStats& stats, const PanelContext& context) {
    MenuCard card;
    if (context.vis("gpu")) card.content.emplace_back(gpuRow(stats.gpuUsage));
    if (context.vis("load")) {
        const LoadAverage& load = stats.loadAvg;
        const std::string averages =
            formatText("%.2f  %.2f  %.2f", {finite(load.one), finite(load.five), finite(load.fifteen)});
        card.content.emplace_back(MetricRow{std::nullopt, context.text("cpu.load"), averages, true});
        card.content.emplace_back(
            MetricRow{std::nullopt, context.text("cpu.uptime"), StatsFormat::uptime(stats.uptime), true});
    }
    return card;
}

MenuCard processCard(const PanelContext& context, const std::vector<TopProcess>& top) {
    ProcessCard processes;
    processes.title = context.text("stats.processes");
    processes.note = context.text("cpu.perCoreNote");
    processes.processes = top;
    processes.format = [](double percent) { return formatText("%.1f%%", {finite(percent)}); };
    processes.rowCount = kListedProcesses;
    MenuCard card;
    card.content.emplace_back(std::move(processes));
    return card;
}

}  // namespace

CPUMenuView::CPUMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::cpu, {StatsModule::cpu}, with, std::move(dismiss)),
      m_top(
          with.runLoop,
          [&lister = with.processLister](RefreshedList<TopProcess>::Answer answer) {
              TopProcessSampler::byCPU(lister, kListedProcesses, std::move(answer));
          },
          tellOfChange()) {}

MenuPanel CPUMenuView::panel() const {
    return cpuPanel(figures().cpu, context(), m_top.rows());
}

MenuPanel cpuPanel(const CPUStats& stats, const PanelContext& context, const std::vector<TopProcess>& top) {
    MenuPanel panel = context.panel();
    panel.cards.push_back(usageCard(stats, context));
    if (!stats.perCore.empty() && context.vis("cores")) panel.cards.push_back(coresCard(stats, context));
    if (context.vis("gpu") || context.vis("load")) panel.cards.push_back(gpuAndLoadCard(stats, context));
    if (context.vis("top")) panel.cards.push_back(processCard(context, top));
    return panel;
}

}  // namespace velmora
