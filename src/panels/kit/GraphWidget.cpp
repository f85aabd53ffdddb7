#include "panels/kit/GraphWidget.h"

#include "panels/kit/GraphPainter.h"
#include "panels/kit/HistorySlots.h"
#include "panels/kit/HoverTracker.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"

#include <QPainter>

namespace velmora {

GraphWidget::GraphWidget(const Graph& graph, std::function<void()> hoverChanged, Scheme scheme,
                         QWidget* parent)
    : ViewWidget(scheme, parent),
      m_graph(graph),
      m_hoverChanged(std::move(hoverChanged)),
      m_tracker(std::make_unique<HoverTracker>(*this)) {
    m_tracker->onMove = [this](std::optional<QPointF> place) { pointerMoved(place); };
}

GraphWidget::~GraphWidget() = default;

int GraphWidget::heightForWidth(int) const {
    return std::visit([](const auto& graph) { return Points::whole(graph.height); }, m_graph.graph);
}

void GraphWidget::setView(const PanelView& view) {
    const Graph& next = std::get<Graph>(view);
    const bool looksTheSame = m_graph.graph == next.graph && m_graph.name == next.name &&
                              m_graph.value == next.value &&
                              m_graph.hover.has_value() == next.hover.has_value();
    // What the rows of a slot are cannot be compared, so it is always taken.
    m_graph = next;
    if (!m_graph.hover) m_hoveredSlot.reset();
    if (!looksTheSame) refresh();
}

std::optional<GraphHoverInfo> GraphWidget::hoverInfo() const {
    if (!m_hoveredSlot || !m_graph.hover) return std::nullopt;
    return velmora::hoverInfo(*m_graph.hover, *m_hoveredSlot, plot());
}

KitWidget::Spoken GraphWidget::spoken() const {
    return {QAccessible::Chart, PanelText::plain(m_graph.name), PanelText::plain(m_graph.value)};
}

void GraphWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    GraphPainter::paint(painter, m_graph, rect(), scheme());
    if (m_hoveredSlot) GraphPainter::paintHoverLine(painter, plot(), *m_hoveredSlot, scheme());
}

QRectF GraphWidget::plot() const {
    return GraphPainter::plot(m_graph, rect());
}

void GraphWidget::pointerMoved(std::optional<QPointF> place) {
    std::optional<int> slot;
    const QRectF within = plot();
    if (place && m_graph.hover && place->x() >= within.left()) {
        slot = slotAt(place->x() - within.left(), within.width());
    }
    if (slot == m_hoveredSlot) return;
    m_hoveredSlot = slot;
    update();
    if (m_hoverChanged) m_hoverChanged();
}

}  // namespace velmora
