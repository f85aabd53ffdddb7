#include "panels/RateCard.h"

#include "model/StatsFormat.h"
#include "panels/FigureText.h"
#include "panels/kit/HistorySlots.h"
#include "panels/kit/Series.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr double kGraphHeight = 30;

double peakOf(const ShortSeries& history) {
    double peak = 0;
    for (const double rate : history) {
        if (std::isfinite(rate)) peak = std::max(peak, rate);
    }
    return peak;
}

GraphHover hoverOf(const MirroredHistoryGraph& graph, const std::string& topLabel,
                   const std::string& bottomLabel, const PanelContext& context) {
    return context.hover([graph, topLabel, bottomLabel](int slot) -> std::vector<HoverChipRow> {
        if (!slotIndex(slot, std::max(graph.top.size(), graph.bottom.size()))) return {};
        return {{graph.topTint, topLabel, StatsFormat::rate(slotValue(graph.top, slot))},
                {graph.bottomTint, bottomLabel, StatsFormat::rate(slotValue(graph.bottom, slot))}};
    });
}

}  // namespace

MenuCard rateCard(const RateDirection& leading, const RateDirection& trailing, const PanelContext& context) {
    const BigRateHeader header{
        .leadingValue = StatsFormat::rate(leading.rate),
        .leadingLabel = context.text(leading.labelKey),
        .leadingTint = Series::primary,
        .trailingValue = StatsFormat::rate(trailing.rate),
        .trailingLabel = context.text(trailing.labelKey),
        .trailingTint = Series::secondary,
    };

    MirroredHistoryGraph mirrored;
    mirrored.top.assign(leading.history.begin(), leading.history.end());
    mirrored.bottom.assign(trailing.history.begin(), trailing.history.end());
    mirrored.topTint = header.leadingTint;
    mirrored.bottomTint = header.trailingTint;
    mirrored.height = kGraphHeight;
    Graph graph;
    graph.hover = hoverOf(mirrored, header.leadingLabel, header.trailingLabel, context);
    graph.graph = std::move(mirrored);
    graph.name = context.name();
    graph.value = FigureText::spoken(
        {{header.leadingLabel, header.leadingValue}, {header.trailingLabel, header.trailingValue}});

    // Each stands below the header's half of its direction.
    const std::string peak = context.text("stats.peak");
    PeakRow peaks;
    peaks.items = {{peak, StatsFormat::rate(peakOf(leading.history))},
                   {peak, StatsFormat::rate(peakOf(trailing.history))}};

    MenuCard card;
    card.content = {header, std::move(graph), std::move(peaks)};
    return card;
}

}  // namespace velmora
