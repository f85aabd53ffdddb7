#include "panels/kit/BigRateHeaderWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Shapes.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr PanelFont kValue = {15, QFont::DemiBold, DigitWidth::monospaced};
constexpr PanelFont kLabel = {11};

struct Half {
    const std::string& value;
    const std::string& label;
    const QColor& tint;
};

QString spokenHalf(const Half& half) {
    return PanelText::plain(half.label) + u' ' + PanelText::plain(half.value);
}

void draw(QPainter& painter, const Half& half, RowGeometry::Span span, Scheme scheme) {
    const QString value = PanelText::plain(half.value);
    const QRectF above(span.left, 0, span.width, PanelText::lineHeight(kValue));
    PanelText::draw(painter, PanelText::fitting(kValue, value, span.width), value, above,
                    PanelText::Side::leading, Ink::primary(scheme));
    const QRectF below(span.left, above.bottom(), span.width, PanelText::lineHeight(kLabel));
    Shapes::dot(painter, below, below.left(), half.tint);
    PanelText::draw(painter, kLabel, PanelText::plain(half.label),
                    below.adjusted(Shapes::kDotAndGap, 0, 0, 0), PanelText::Side::leading,
                    Ink::secondary(scheme));
}

}  // namespace

int BigRateHeaderWidget::heightForWidth(int) const {
    return PanelText::lineHeight(kValue) + PanelText::lineHeight(kLabel);
}

KitWidget::Spoken BigRateHeaderWidget::spoken() const {
    const BigRateHeader& header = value();
    return {
        QAccessible::StaticText,
        PanelText::plain(header.leadingLabel) + QStringLiteral(", ") + PanelText::plain(header.trailingLabel),
        spokenHalf({header.leadingValue, header.leadingLabel, header.leadingTint}) + QStringLiteral(", ") +
            spokenHalf({header.trailingValue, header.trailingLabel, header.trailingTint})};
}

void BigRateHeaderWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const BigRateHeader& header = value();
    const std::vector<RowGeometry::Span> halves = RowGeometry::twoColumns(width());
    draw(painter, {header.leadingValue, header.leadingLabel, header.leadingTint}, halves[0], scheme());
    draw(painter, {header.trailingValue, header.trailingLabel, header.trailingTint}, halves[1], scheme());
}

}  // namespace velmora
