#include "panels/MemoryMenuView.h"

#include "model/StatsFormat.h"
#include "panels/FigureText.h"
#include "panels/kit/Series.h"
#include "samplers/TopProcessSampler.h"

#include <cstdint>
#include <utility>

namespace velmora {
namespace {

constexpr double kRingSpacing = 26;
constexpr double kRingSize = 46;
constexpr double kRingLineWidth = 5;
constexpr double kRingTextSize = 11;
constexpr double kBarHeight = 4;

double share(std::uint64_t part, std::uint64_t whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

QColor pressureTint(double pressure) {
    if (pressure > 0.75) return Series::red;
    if (pressure > 0.5) return Series::orange;
    return Series::primary;
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

MenuCard overviewCard(const MemoryStats& stats, const PanelContext& context) {
    RingRow rings;
    rings.spacing = kRingSpacing;
    rings.rings = {ring(stats.pressure, context.text("mem.pressure"), pressureTint(stats.pressure)),
                   ring(share(stats.used, stats.total), context.text("mem.usage"), Series::primary)};
    MenuCard card;
    card.content = {CardHeader{context.name(), "", ""}, std::move(rings)};
    return card;
}

MenuCard breakdownCard(const MemoryStats& stats, const PanelContext& context) {
    const auto row = [&context](std::string_view labelKey, std::uint64_t size) {
        return MetricRow{std::nullopt, context.text(labelKey), context.bytes(size), true};
    };
    MenuCard card;
    card.content = {CardHeader{context.text("metric.breakdown"), "", ""}, row("mem.app", stats.app),
                    row("mem.wired", stats.wired), row("mem.compressed", stats.compressed),
                    row("mem.free", stats.free)};
    return card;
}

MenuCard processCard(const PanelContext& context, const std::vector<TopProcess>& top) {
    ProcessCard processes;
    processes.title = context.text("stats.processes");
    processes.note = context.text("mem.topNote");
    processes.processes = top;
    processes.format = [&style = context.byteStyle()](double size) { return FigureText::bytes(size, style); };
    processes.rowCount = kListedProcesses;
    MenuCard card;
    card.content.emplace_back(std::move(processes));
    return card;
}

MenuCard pagingCard(const MemoryStats& stats, const PanelContext& context) {
    const auto row = [&context](std::string_view labelKey, double perSecond) {
        return MetricRow{std::nullopt, context.text(labelKey), StatsFormat::rate(perSecond), true};
    };
    MenuCard card;
    card.content = {row("mem.pageIn", stats.pageInPerSec), row("mem.pageOut", stats.pageOutPerSec)};
    return card;
}

MenuCard swapCard(const MemoryStats& stats, const PanelContext& context) {
    BarRow row;
    row.label = context.text("mem.swapFile");
    row.bar = {share(stats.swapUsed, stats.swapTotal), Series::primary, kBarHeight};
    row.value = context.bytes(stats.swapUsed) + " / " + context.bytes(stats.swapTotal);
    // The size of the swap stays; what is used of it grows and shrinks.
    // Below a hundred gigabytes, megabytes with their four digits are the widest of it.
    constexpr std::uint64_t kLarge = 100'000'000'000;
    constexpr std::uint64_t kWide = 888'800'000;
    constexpr std::uint64_t kWidest = 888'880'000'000;
    row.valueSample =
        context.bytes(stats.swapTotal < kLarge ? kWide : kWidest) + " / " + context.bytes(stats.swapTotal);
    MenuCard card;
    card.content.emplace_back(std::move(row));
    return card;
}

}  // namespace

MemoryMenuView::MemoryMenuView(const PanelCollaborators& with, std::function<void()> dismiss)
    : ModuleMenuView(StatsModule::memory, {StatsModule::memory}, with, std::move(dismiss)),
      m_top(
          with.runLoop,
          [&lister = with.processLister](RefreshedList<TopProcess>::Answer answer) {
              TopProcessSampler::byMemory(lister, kListedProcesses, std::move(answer));
          },
          tellOfChange()) {}

MenuPanel MemoryMenuView::panel() const {
    return memoryPanel(figures().memory, context(), m_top.rows());
}

MenuPanel memoryPanel(const MemoryStats& stats, const PanelContext& context,
                      const std::vector<TopProcess>& top) {
    MenuPanel panel = context.panel();
    panel.cards.push_back(overviewCard(stats, context));
    if (context.vis("breakdown")) panel.cards.push_back(breakdownCard(stats, context));
    if (context.vis("top")) panel.cards.push_back(processCard(context, top));
    if (context.vis("pageio")) panel.cards.push_back(pagingCard(stats, context));
    if (context.vis("swap") && stats.swapTotal != 0) panel.cards.push_back(swapCard(stats, context));
    return panel;
}

}  // namespace velmora
