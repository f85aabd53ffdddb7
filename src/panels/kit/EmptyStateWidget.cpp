#include "panels/kit/EmptyStateWidget.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "panels/kit/PanelText.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr PanelFont kText = {11};
constexpr int kSymbol = 18;
constexpr int kSpacing = 6;

}  // namespace

int EmptyStateWidget::heightForWidth(int) const {
    return kSymbol + kSpacing + PanelText::lineHeight(kText);
}

KitWidget::Spoken EmptyStateWidget::spoken() const {
    return {QAccessible::StaticText, PanelText::plain(value().text), {}};
}

void EmptyStateWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Symbol::paint(painter, value().symbol, QRectF((width() - kSymbol) / 2.0, 0, kSymbol, kSymbol),
                  Ink::secondary(scheme()));
    PanelText::draw(painter, kText, PanelText::plain(value().text),
                    QRectF(0, kSymbol + kSpacing, width(), PanelText::lineHeight(kText)),
                    PanelText::Side::middle, Ink::secondary(scheme()));
}

}  // namespace velmora
