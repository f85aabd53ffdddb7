#include "settings/sidebars/IconChip.h"

#include "look/Symbol.h"

#include <QLinearGradient>
#include <QPainter>

namespace velmora {
namespace {

constexpr double kCornerRadius = 6;
constexpr double kBorder = 0.5;
constexpr float kBorderOpacity = 0.18F;
constexpr double kSymbolSide = 17;

}  // namespace

IconChip IconChip::of(SettingsTab tab) {
    switch (tab) {
        case SettingsTab::general:
            return {"gearshape.fill", QColor(142, 142, 147), QColor(110, 110, 115)};
        case SettingsTab::modules:
            return {"gauge.with.dots.needle.67percent", QColor(74, 163, 255), QColor(10, 132, 255)};
        case SettingsTab::account:
            return {"person.crop.circle.fill", QColor(102, 212, 207), QColor(0, 163, 163)};
        case SettingsTab::about:
            return {"info.circle.fill", QColor(142, 142, 240), QColor(94, 92, 230)};
    }
    return {};
}

void IconChip::paint(QPainter& painter, const QRectF& tile) const {
    QLinearGradient gradient(tile.topLeft(), tile.bottomLeft());
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(tile, kCornerRadius, kCornerRadius);

    constexpr double kMiddleOfLine = kBorder / 2;
    const QRectF line = tile.adjusted(kMiddleOfLine, kMiddleOfLine, -kMiddleOfLine, -kMiddleOfLine);
    painter.setPen(QPen(QColor::fromRgbF(1, 1, 1, kBorderOpacity), kBorder));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(line, kCornerRadius - kMiddleOfLine, kCornerRadius - kMiddleOfLine);

    QRectF box(0, 0, kSymbolSide, kSymbolSide);
    box.moveCenter(tile.center());
    Symbol::paint(painter, symbol, box, Qt::white);
}

}  // namespace velmora
