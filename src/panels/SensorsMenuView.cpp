#include "panels/SensorsMenuView.h"

#include "model/StatsFormat.h"
#include "panels/FigureText.h"
#include "panels/kit/Series.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora {
namespace {

constexpr double kRingSize = 44;
constexpr double kRingLineWidth = 4.5;
constexpr double kRingTextSize = 11;
constexpr double kFanTextSize = 10;
constexpr double kGraphHeight = 38;
constexpr double kEmptySpacing = 6;
constexpr double kEmptyPadding = 9;

QColor withOpacity(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

QColor categoryTint(TempCategory category) {
    switch (category) {
        case TempCategory::cpu:
            return Series::primary;
        case TempCategory::gpu:
            return Series::secondary;
        case TempCategory::soc:
            return Series::tertiary;
        case TempCategory::ssd:
            return withOpacity(Series::tertiary, 0.75F);
        case TempCategory::enclosure:
            return withOpacity(Series::gray, 0.8F);
        case TempCategory::battery:
            return Series::gray;
        case TempCategory::other:
            return withOpacity(Series::gray, 0.55F);
    }
    return {};
}

QColor temperatureTint(double celsius) {
    if (celsius >= 85) return Series::red;
    if (celsius >= 70) return Series::orange;
    return Series::primary;
}

std::optional<double> temperatureOf(const SensorsStats& stats, TempCategory category) {
    const auto reading = std::ranges::find(stats.temperatures, category, &TemperatureReading::category);
    if (reading == stats.temperatures.end() || !std::isfinite(reading->celsius)) return std::nullopt;
    return reading->celsius;
}

std::optional<double> fastestFan(const std::vector<double>& fans) {
    std::optional<double> fastest;
    for (const double rpm : fans) {
        if (std::isfinite(rpm) && rpm > fastest.value_or(-1)) fastest = rpm;
    }
    return fastest;
}

RingStat ring(double fraction, std::string text, std::string caption, const QColor& tint) {
    RingStat stat;
    stat.fraction = std::clamp(fraction, 0.0, 1.0);
    stat.text = std::move(text);
    stat.caption = std::move(caption);
    stat.tint = tint;
    stat.size = kRingSize;
    stat.lineWidth = kRingLineWidth;
    stat.textSize = kRingTextSize;
    return stat;
}

RingStat temperatureRing(double celsius, std::string caption) {
    return ring((celsius - 30) / 70, FigureText::degrees(celsius), std::move(caption),
                temperatureTint(celsius));
}

RingStat fanRing(double rpm, std::string caption) {
    RingStat stat = ring(rpm / 5000, formatText("%.0f", {rpm}), std::move(caption), Series::primary);
    stat.textSize = kFanTextSize;
    return stat;
}

std::vector<RingStat> rings(const SensorsStats& stats, const CPUStats& cpu, const PanelContext& context) {
    std::vector<RingStat> rings;
    std::optional<double> processor = temperatureOf(stats, TempCategory::cpu);
    if (!processor && cpu.temperature && std::isfinite(*cpu.temperature)) processor = cpu.temperature;
    if (processor) rings.push_back(temperatureRing(*processor, context.text("sen.cpuTemp")));

    if (stats.gpuUsage && std::isfinite(*stats.gpuUsage)) {
        rings.push_back(ring(*stats.gpuUsage, StatsFormat::percent(*stats.gpuUsage), "GPU", Series::primary));
    } else if (const auto celsius = temperatureOf(stats, TempCategory::gpu)) {
        rings.push_back(temperatureRing(*celsius, "GPU"));
    }

    if (const auto rpm = fastestFan(stats.fans)) rings.push_back(fanRing(*rpm, context.text("sen.fans")));
    return rings;
}

struct Bounds {
    double lowest = 0;
    double highest = 0;
    bool empty = true;
};

Bounds boundsOf(const SensorsStats& stats) {
    Bounds bounds;
    for (const ShortSeries& history : stats.temperatureHistories) {
        for (const double celsius : history) {
            if (!std::isfinite(celsius)) continue;
            bounds.lowest = bounds.empty ? celsius : std::min(bounds.lowest, celsius);
            bounds.highest = bounds.empty ? celsius : std::max(bounds.highest, celsius);
            bounds.empty = false;
        }
    }
    return bounds;
}

Graph temperatureGraph(const SensorsStats& stats, std::string name, const MetricRow& peak) {
    const Bounds bounds = boundsOf(stats);
    TempHistoryGraph lines;
    for (const TempCategory category : kAllTempCategories) {
        const ShortSeries& history = stats.temperatureHistories[indexOf(category)];
        if (history.empty()) continue;
        lines.series.push_back({std::vector<double>(history.begin(), history.end()), categoryTint(category)});
    }
    lines.low = std::floor(bounds.lowest) - 1;
    lines.high = bounds.empty ? 2 : std::ceil(bounds.highest) + 1;
    lines.height = kGraphHeight;
    lines.lowLabel = formatText("%.0f", {lines.low});
    lines.highLabel = formatText("%.0f", {lines.high});

    Graph graph;
    graph.graph = std::move(lines);
    graph.name = std::move(name);
    const std::string range =
        bounds.empty ? std::string(StatsFormat::kAbsent)
                     : FigureText::celsius(bounds.lowest) + " – " + FigureText::celsius(bounds.highest);
    graph.value = FigureText::spoken({{"", range}, {peak.label, peak.value}});
    return graph;
}

MenuCard temperatureCard(const SensorsStats& stats, const PanelContext& context) {
    // A day without a reading has no highest one.
    const MetricRow peak{
        std::nullopt, context.text("sen.peak"),
        stats.maxToday > 0 ? FigureText::celsius(stats.maxToday) : std::string(StatsFormat::kAbsent), true};
    const std::string title = context.text("sen.temperatures");
    MenuCard card;
    card.content = {CardHeader{title, "", ""}, temperatureGraph(stats, title, peak), peak};
    for (const TemperatureReading& reading : stats.temperatures) {
        const std::string nameKey = std::string("temp.").append(rawValue(reading.category));
        card.content.emplace_back(MetricRow{categoryTint(reading.category), context.text(nameKey),
                                            FigureText::celsius(reading.celsius), true});
    }
    return card;
}

MenuCard fanCard(const std::vector<double>& fans, const PanelContext& context) {
    MenuCard card;
    card.content.emplace_back(
        CardHeader{context.text("sen.fans"), "", context.text("sen.fanCount", {fans.size()})});
    int number = 0;
    for (const double rpm : fans) {
        card.content.emplace_back(MetricRow{
            std::nullopt, context.text("sen.fan", {++number}),
            std::isfinite(rpm) ? formatText("%.0f rpm", {rpm}) : std::string(StatsFormat::kAbsent), true});
    }
    return card;
}

MenuCard emptyCard(const PanelContext& context) {
    MenuCard card;
    card.spacing = kEmptySpacing;
    card.verticalPadding = kEmptyPadding;
    card.content.emplace_back(EmptyState{"thermometer.medium", context.text("sen.none")});
    return card;
}

}  // namespace

SensorsMenuView::SensorsMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::sensors, {StatsModule::sensors, StatsModule::cpu}, with,
                     std::move(dismiss)) {}

MenuPanel SensorsMenuView::panel() const {
    return sensorsPanel(figures().sensors, figures().cpu, context());
}

MenuPanel sensorsPanel(const SensorsStats& stats, const CPUStats& cpu, const PanelContext& context) {
    MenuPanel panel = context.panel();
    if (stats.temperatures.empty() && stats.fans.empty()) {
        panel.cards.push_back(emptyCard(context));
        return panel;
    }
    RingRow ringRow;
    ringRow.rings = rings(stats, cpu, context);
    if (!ringRow.rings.empty()) {
        MenuCard card;
        card.content.emplace_back(std::move(ringRow));
        panel.cards.push_back(std::move(card));
    }
    if (context.vis("temperatures")) panel.cards.push_back(temperatureCard(stats, context));
    if (context.vis("fans") && !stats.fans.empty()) panel.cards.push_back(fanCard(stats.fans, context));
    return panel;
}

}  // namespace velmora
