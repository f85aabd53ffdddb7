#include "settings/module/SymbolTile.h"

#include "look/Ink.h"
#include "look/Symbol.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

namespace velmora {

SymbolTile::SymbolTile(std::string_view symbol, QWidget* parent) : QWidget(parent), m_symbol(symbol) {
    constexpr int kSide = 32;
    setFixedSize(kSide, kSide);
}

void SymbolTile::setColor(const QColor& color) {
    m_color = color;
    update();
}

void SymbolTile::paintEvent(QPaintEvent*) {
    constexpr double kCornerRadius = 8;
    constexpr double kOpacity = 0.06;
    constexpr double kSymbolSide = 20;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Ink::primary(schemeOf(this), kOpacity));
    painter.drawRoundedRect(QRectF(rect()), kCornerRadius, kCornerRadius);
    QRectF box(0, 0, kSymbolSide, kSymbolSide);
    box.moveCenter(QRectF(rect()).center());
    Symbol::paint(painter, m_symbol, box, m_color);
}

}  // namespace velmora
