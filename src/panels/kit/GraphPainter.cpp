#include "panels/kit/GraphPainter.h"

#include "look/Ink.h"
#include "panels/kit/GraphGeometry.h"
#include "panels/kit/HLine.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/PixelGrid.h"
#include "panels/kit/Series.h"

#include <QPen>

#include <algorithm>

namespace velmora::GraphPainter {
namespace {

constexpr PanelFont kRangeLabel = {10};
constexpr double kRangeGap = 6;

void fillBars(QPainter& painter, const std::vector<QRectF>& bars, QPointF corner, const QColor& color) {
    const PixelGrid grid(painter);
    for (const QRectF& bar : bars) painter.fillRect(grid.withSharpSides(bar.translated(corner)), color);
}

void paintGraph(QPainter& painter, const StackedHistoryGraph& graph, const QRectF& plot, Scheme) {
    const auto bars = GraphGeometry::stackedBars(graph.user, graph.system, plot.size());
    fillBars(painter, bars.user, plot.topLeft(), Series::primary);
    fillBars(painter, bars.system, plot.topLeft(), Series::secondary);
}

void paintGraph(QPainter& painter, const MirroredHistoryGraph& graph, const QRectF& plot, Scheme scheme) {
    const auto bars = GraphGeometry::mirroredBars(graph.top, graph.bottom, plot.size());
    HLine::draw(painter, plot, 1, {2, 2}, Tokens::guide(scheme));
    fillBars(painter, bars.top, plot.topLeft(), graph.topTint);
    fillBars(painter, bars.bottom, plot.topLeft(), graph.bottomTint);
}

void paintGraph(QPainter& painter, const TempHistoryGraph& graph, const QRectF& plot, Scheme scheme) {
    constexpr double kHair = 0.5;
    constexpr double kLineWidth = 1.2;
    painter.fillRect(QRectF(plot.left(), plot.top(), plot.width(), kHair), Tokens::track(scheme));
    painter.fillRect(QRectF(plot.left(), plot.bottom() - kHair, plot.width(), kHair), Tokens::track(scheme));
    for (const TempHistoryGraph::Line& series : graph.series) {
        const QPolygonF line =
            GraphGeometry::temperatureLine(series.values, graph.low, graph.high, plot.size())
                .translated(plot.topLeft());
        painter.setPen(QPen(series.tint, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        // The first value has nothing to be joined to, and shows as a dot.
        if (line.size() == 1) painter.drawPoint(line.front());
        if (line.size() > 1) painter.drawPolyline(line);
    }
}

void paintGraph(QPainter& painter, const BatteryHistoryGraph& graph, const QRectF& plot, Scheme) {
    const PixelGrid grid(painter);
    for (const auto& bar : GraphGeometry::batteryBars(graph.levels, graph.plugged, plot.size())) {
        painter.fillRect(grid.withSharpSides(bar.rect.translated(plot.topLeft())),
                         bar.plugged ? Series::primary : Series::secondary);
    }
}

void paintRange(QPainter& painter, const TempHistoryGraph& graph, const QRectF& box, const QRectF& plot,
                Scheme scheme) {
    const double line = PanelText::lineHeight(kRangeLabel);
    const double room = std::max(plot.left() - box.left() - kRangeGap, 0.0);
    const QRectF high(box.left(), box.top(), room, std::min(line, box.height() / 2));
    const QRectF low(box.left(), box.bottom() - high.height(), room, high.height());
    for (const auto& [label, place] : {std::pair(graph.highLabel, high), std::pair(graph.lowLabel, low)}) {
        PanelText::draw(painter, kRangeLabel, PanelText::plain(label), place, PanelText::Side::trailing,
                        Ink::secondary(scheme));
    }
}

}  // namespace

QRectF plot(const Graph& graph, const QRectF& box) {
    const auto* const temperatures = std::get_if<TempHistoryGraph>(&graph.graph);
    if (!temperatures || (temperatures->lowLabel.empty() && temperatures->highLabel.empty())) return box;
    const double wanted =
        std::max({PanelText::width(kRangeLabel, QStringLiteral("888")),
                  PanelText::width(kRangeLabel, PanelText::plain(temperatures->lowLabel)),
                  PanelText::width(kRangeLabel, PanelText::plain(temperatures->highLabel))});
    return box.adjusted(std::min(wanted + kRangeGap, box.width() / 4), 0, 0, 0);
}

void paint(QPainter& painter, const Graph& graph, const QRectF& box, Scheme scheme) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF inner = plot(graph, box);
    if (inner.isEmpty()) return;
    std::visit([&](const auto& kind) { paintGraph(painter, kind, inner, scheme); }, graph.graph);
    if (const auto* const temperatures = std::get_if<TempHistoryGraph>(&graph.graph)) {
        paintRange(painter, *temperatures, box, inner, scheme);
    }
}

void paintHoverLine(QPainter& painter, const QRectF& plot, int slot, Scheme scheme) {
    constexpr double kLineWidth = 1;
    const double middle = plot.left() + plot.width() * GraphGeometry::lineFraction(slot);
    const double left = PixelGrid(painter).x(middle - kLineWidth / 2);
    painter.fillRect(QRectF(left, plot.top(), kLineWidth, plot.height()), Tokens::guide(scheme));
}

}  // namespace velmora::GraphPainter
