#pragma once

#include "panels/kit/GraphHoverInfo.h"
#include "panels/kit/KitWidget.h"
#include "panels/kit/Views.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace velmora {

class ViewFactory;
class ViewWidget;

/// A column of views on a rounded ground.
class CardWidget final : public KitWidget {
public:
    CardWidget(const MenuCard& card, const ViewFactory& factory, Scheme scheme, QWidget* parent);

    /// A view of the same kind at the same place goes on with its new value; another kind replaces it.
    void setCard(const MenuCard& card);
    int heightForWidth(int width) const override;
    const std::vector<ViewWidget*>& views() const { return m_views; }
    /// The report of the card's graphs, in the card's coordinates.
    std::optional<GraphHoverInfo> hoverInfo() const;
    /// Named by its header.
    Spoken spoken() const override;

    static constexpr int kSidePadding = 8;
    static constexpr double kRadius = 7;

protected:
    void paintEvent(QPaintEvent* event) override;
    void layOut() override;

private:
    const ViewFactory& m_factory;
    int m_spacing = 0;
    int m_verticalPadding = 0;
    std::vector<ViewWidget*> m_views;
    std::vector<std::size_t> m_kinds;  ///< Of each view.
};

}  // namespace velmora
