#include "panels/kit/BarRowWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Shapes.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kLabel = {11};
constexpr PanelFont kValue = {11, QFont::Normal, DigitWidth::monospaced};
constexpr int kHeight = 16;

}  // namespace

int BarRowWidget::heightForWidth(int) const {
    return kHeight;
}

KitWidget::Spoken BarRowWidget::spoken() const {
    return {QAccessible::Indicator, PanelText::plain(value().label), PanelText::plain(value().value)};
}

void BarRowWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString label = PanelText::plain(value().label);
    const QString figure = PanelText::plain(value().value);
    const double column = std::max({Points::held(value().valueMinWidth), PanelText::width(kValue, figure),
                                    PanelText::width(kValue, PanelText::plain(value().valueSample))});
    const RowGeometry::BarRowPlaces places =
        RowGeometry::barRow(width(), PanelText::width(kLabel, label), column);
    const double barHeight = std::min(Points::held(value().bar.height), static_cast<double>(height()));
    // Some languages have no short word; it is read rather small than cut.
    PanelText::draw(painter, PanelText::fitting(kLabel, label, places.label.width), label,
                    QRectF(places.label.left, 0, places.label.width, height()), PanelText::Side::leading,
                    Ink::secondary(scheme()));
    Shapes::bar(painter, QRectF(places.bar.left, (height() - barHeight) / 2, places.bar.width, barHeight),
                value().bar.fraction, value().bar.tint, scheme());
    PanelText::draw(painter, kValue, figure, QRectF(places.value.left, 0, places.value.width, height()),
                    PanelText::Side::trailing, Ink::primary(scheme()));
}

}  // namespace velmora
