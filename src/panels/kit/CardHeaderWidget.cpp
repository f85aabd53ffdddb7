#include "panels/kit/CardHeaderWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Series.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kTitle = {11, QFont::DemiBold};
constexpr PanelFont kValue = {13, QFont::DemiBold, DigitWidth::monospaced};
constexpr PanelFont kNote = {10};
constexpr double kGap = 8;

int firstLineHeight(const CardHeader& header) {
    const int title = header.title.empty() ? 0 : PanelText::lineHeight(kTitle);
    const int value = header.value.empty() ? 0 : PanelText::lineHeight(kValue);
    return std::max(title, value);
}

}  // namespace

int CardHeaderWidget::heightForWidth(int) const {
    return firstLineHeight(value()) + (value().note.empty() ? 0 : PanelText::lineHeight(kNote));
}

KitWidget::Spoken CardHeaderWidget::spoken() const {
    QString figures = PanelText::plain(value().value);
    const QString note = PanelText::plain(value().note);
    if (!figures.isEmpty() && !note.isEmpty()) figures += QStringLiteral(", ");
    return {QAccessible::Heading, PanelText::plain(value().title), figures + note};
}

void CardHeaderWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString title = PanelText::plain(value().title);
    const QString figure = PanelText::plain(value().value);
    const double first = firstLineHeight(value());
    const RowGeometry::Ends ends =
        RowGeometry::ends(width(), PanelText::width(kTitle, title), PanelText::width(kValue, figure), kGap);
    PanelText::draw(painter, kTitle, title, {ends.leading.left, 0, ends.leading.width, first},
                    PanelText::Side::leading, Series::primary);
    PanelText::draw(painter, kValue, figure, {ends.trailing.left, 0, ends.trailing.width, first},
                    PanelText::Side::trailing, Ink::primary(scheme()));
    PanelText::draw(painter, kNote, PanelText::plain(value().note),
                    QRectF(0, first, width(), height() - first), PanelText::Side::leading,
                    Ink::secondary(scheme()));
}

}  // namespace velmora
