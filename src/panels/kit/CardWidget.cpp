#include "panels/kit/CardWidget.h"

#include "look/Ink.h"
#include "panels/kit/Points.h"
#include "panels/kit/Shapes.h"
#include "panels/kit/ViewFactory.h"
#include "panels/kit/ViewWidget.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

QColor groundOf(Scheme scheme) {
    return scheme == Scheme::dark ? Ink::primary(scheme, 0.075) : Ink::primary(scheme, 0.055);
}

}  // namespace

CardWidget::CardWidget(const MenuCard& card, const ViewFactory& factory, Scheme scheme, QWidget* parent)
    : KitWidget(scheme, parent), m_factory(factory) {
    setCard(card);
}

void CardWidget::setCard(const MenuCard& card) {
    m_spacing = Points::whole(card.spacing);
    m_verticalPadding = Points::whole(card.verticalPadding);
    while (m_views.size() > card.content.size()) {
        m_views.back()->hide();
        m_views.back()->deleteLater();
        m_views.pop_back();
        m_kinds.pop_back();
    }
    for (std::size_t index = 0; index < card.content.size(); ++index) {
        const PanelView& view = card.content[index];
        if (index < m_views.size() && m_kinds[index] == view.index()) {
            m_views[index]->setView(view);
            continue;
        }
        ViewWidget* const made = m_factory.make(view, scheme(), this);
        made->show();
        if (index < m_views.size()) {
            m_views[index]->hide();
            m_views[index]->deleteLater();
            m_views[index] = made;
            m_kinds[index] = view.index();
        } else {
            m_views.push_back(made);
            m_kinds.push_back(view.index());
        }
    }
}

int CardWidget::heightForWidth(int width) const {
    const int inner = std::max(width - 2 * kSidePadding, 0);
    int content = 0;
    for (const ViewWidget* const view : m_views) {
        const int height = view->heightForWidth(inner);
        if (height > 0) content += (content > 0 ? m_spacing : 0) + height;
    }
    return content + 2 * m_verticalPadding;
}

std::optional<GraphHoverInfo> CardWidget::hoverInfo() const {
    std::optional<GraphHoverInfo> reported;
    for (const ViewWidget* const view : m_views) {
        std::optional<GraphHoverInfo> next = view->hoverInfo();
        if (next) next->anchor.translate(view->pos());
        GraphHoverKey::reduce(reported, std::move(next));
    }
    return reported;
}

KitWidget::Spoken CardWidget::spoken() const {
    for (const ViewWidget* const view : m_views) {
        const Spoken first = view->spoken();
        if (!first.name.isEmpty()) return {QAccessible::Grouping, first.name, {}};
    }
    return {QAccessible::Grouping, {}, {}};
}

void CardWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Shapes::roundedRect(painter, rect(), kRadius, groundOf(scheme()));
}

void CardWidget::layOut() {
    const int inner = std::max(width() - 2 * kSidePadding, 0);
    int top = m_verticalPadding;
    for (ViewWidget* const view : m_views) {
        const int height = view->heightForWidth(inner);
        view->setPlace({kSidePadding, top, inner, height});
        if (height > 0) top += height + m_spacing;
    }
}

}  // namespace velmora
