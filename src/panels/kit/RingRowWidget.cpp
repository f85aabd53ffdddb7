#include "panels/kit/RingRowWidget.h"

#include "panels/kit/RingWidget.h"

#include <algorithm>
#include <cmath>

namespace velmora {

RingRowWidget::RingRowWidget(const RingRow& row, Scheme scheme, QWidget* parent)
    : ViewWidget(scheme, parent) {
    setRow(row);
}

int RingRowWidget::heightForWidth(int) const {
    int height = 0;
    for (const RingWidget* const ring : m_rings) height = std::max(height, ring->heightNeeded());
    return height;
}

void RingRowWidget::setView(const PanelView& view) {
    setRow(std::get<RingRow>(view));
}

KitWidget::Spoken RingRowWidget::spoken() const {
    return {QAccessible::Grouping, {}, {}};
}

void RingRowWidget::setRow(const RingRow& row) {
    m_spacing = row.spacing;
    while (m_rings.size() > row.rings.size()) {
        m_rings.back()->hide();
        m_rings.back()->deleteLater();
        m_rings.pop_back();
    }
    for (std::size_t index = 0; index < row.rings.size(); ++index) {
        if (index < m_rings.size()) {
            m_rings[index]->setRing(row.rings[index]);
        } else {
            m_rings.push_back(new RingWidget(row.rings[index], scheme(), this));
        }
    }
}

void RingRowWidget::layOut() {
    std::vector<RingGeometry::RingNeed> needs;
    needs.reserve(m_rings.size());
    for (const RingWidget* const ring : m_rings) needs.push_back(ring->need());
    const std::vector<RingGeometry::RingPlace> places = RingGeometry::placeRings(needs, m_spacing, width());
    for (std::size_t index = 0; index < m_rings.size(); ++index) {
        RingWidget* const ring = m_rings[index];
        ring->setVisible(index < places.size());
        if (index >= places.size()) continue;
        const int left = static_cast<int>(std::lround(places[index].centreX - places[index].width / 2));
        ring->setPlace({left, 0, static_cast<int>(std::ceil(places[index].width)), ring->heightNeeded()});
    }
}

}  // namespace velmora
