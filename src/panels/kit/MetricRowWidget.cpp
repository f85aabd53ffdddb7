#include "panels/kit/MetricRowWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Shapes.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kLabel = {11};
constexpr int kLeastHeight = 15;
constexpr double kGap = 8;

PanelFont figureFont(const MetricRow& row) {
    return {11, QFont::Medium, row.mono ? DigitWidth::monospaced : DigitWidth::proportional};
}

}  // namespace

int MetricRowWidget::heightForWidth(int) const {
    return std::max(kLeastHeight, PanelText::lineHeight(figureFont(value())));
}

KitWidget::Spoken MetricRowWidget::spoken() const {
    return {QAccessible::StaticText, PanelText::plain(value().label), PanelText::plain(value().value)};
}

void MetricRowWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (value().tint) Shapes::dot(painter, rect(), 0, *value().tint);
    const double left = value().tint ? Shapes::kDotAndGap : 0;
    const QString label = PanelText::plain(value().label);
    const QString figure = PanelText::plain(value().value);
    const PanelFont font = figureFont(value());
    const RowGeometry::Ends ends = RowGeometry::ends(width() - left, PanelText::width(kLabel, label),
                                                     PanelText::width(font, figure), kGap);
    PanelText::draw(painter, kLabel, label, QRectF(left, 0, ends.leading.width, height()),
                    PanelText::Side::leading, Ink::secondary(scheme()));
    // An address that is too long is read rather small than cut.
    const PanelFont fitted = PanelText::fitting(font, figure, ends.trailing.width);
    PanelText::draw(painter, fitted, figure,
                    QRectF(left + ends.trailing.left, 0, ends.trailing.width, height()),
                    PanelText::Side::trailing, Ink::primary(scheme()));
}

}  // namespace velmora
