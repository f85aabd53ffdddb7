#include "panels/kit/TextLineWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"

#include <QPainter>

namespace velmora {
namespace {

PanelFont fontOf(const TextLine& line) {
    return {Points::whole(line.size)};
}

}  // namespace

int TextLineWidget::heightForWidth(int) const {
    return value().text.empty() ? 0 : PanelText::lineHeight(fontOf(value()));
}

KitWidget::Spoken TextLineWidget::spoken() const {
    return {QAccessible::StaticText, PanelText::plain(value().text), {}};
}

void TextLineWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool isPrimary = value().rank == TextLine::Rank::primary;
    PanelText::draw(painter, fontOf(value()), PanelText::plain(value().text), rect(),
                    PanelText::Side::leading, isPrimary ? Ink::primary(scheme()) : Ink::secondary(scheme()));
}

}  // namespace velmora
