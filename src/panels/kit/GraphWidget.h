#pragma once

#include "panels/kit/ViewWidget.h"

#include <functional>
#include <memory>
#include <optional>

namespace velmora {

class HoverTracker;

/// A history graph, and the line of the slot under the pointer. The slot stays hovered while values arrive.
class GraphWidget final : public ViewWidget {
public:
    /// `hoverChanged` is called when `hoverInfo` answers anew because the pointer moved.
    GraphWidget(const Graph& graph, std::function<void()> hoverChanged, Scheme scheme, QWidget* parent);
    ~GraphWidget() override;

    int heightForWidth(int width) const override;
    void setView(const PanelView& view) override;
    std::optional<GraphHoverInfo> hoverInfo() const override;
    Spoken spoken() const override;

    std::optional<int> hoveredSlot() const { return m_hoveredSlot; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF plot() const;
    void pointerMoved(std::optional<QPointF> place);

    Graph m_graph;
    const std::function<void()> m_hoverChanged;
    std::optional<int> m_hoveredSlot;
    /// Goes with this part of the object: a widget that is shown hears of the pointer's leaving while it is
    /// being destroyed.
    std::unique_ptr<HoverTracker> m_tracker;
};

}  // namespace velmora
