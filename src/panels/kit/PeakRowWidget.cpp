#include "panels/kit/PeakRowWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"

#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kLabel = {10};
constexpr PanelFont kValue = {10, QFont::Medium, DigitWidth::monospaced};
constexpr double kSpacing = 5;

/// Two pairs stand below the halves of a header of two rates, if their labels leave the figures enough room.
std::vector<RowGeometry::Span> places(const std::vector<double>& labelWidths, double width) {
    constexpr double kFigure = 54;
    std::vector<RowGeometry::Span> halves = RowGeometry::twoColumns(width);
    const bool areTwo = labelWidths.size() == halves.size();
    if (areTwo && std::ranges::max(labelWidths) + kSpacing + kFigure <= halves.front().width &&
        halves.back().right() <= width) {
        return halves;
    }
    return RowGeometry::labelledColumns(labelWidths, width, kSpacing);
}

}  // namespace

int PeakRowWidget::heightForWidth(int) const {
    return value().items.empty() ? 0 : PanelText::lineHeight(kLabel);
}

KitWidget::Spoken PeakRowWidget::spoken() const {
    QStringList labels;
    QStringList pairs;
    for (const PeakRow::Item& item : value().items) {
        const QString label = PanelText::plain(item.label);
        labels.append(label);
        pairs.append(label + u' ' + PanelText::plain(item.value));
    }
    labels.removeDuplicates();
    return {QAccessible::StaticText, labels.join(QStringLiteral(", ")), pairs.join(QStringLiteral(", "))};
}

void PeakRowWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    std::vector<double> labelWidths;
    for (const PeakRow::Item& item : value().items) {
        labelWidths.push_back(PanelText::width(kLabel, PanelText::plain(item.label)));
    }
    const auto spans = places(labelWidths, width());
    for (std::size_t index = 0; index < spans.size(); ++index) {
        const QString label = PanelText::plain(value().items[index].label);
        const QString figure = PanelText::plain(value().items[index].value);
        const double figureWidth = PanelText::width(kValue, figure);
        const RowGeometry::Ends ends =
            RowGeometry::ends(spans[index].width, labelWidths[index], figureWidth, kSpacing);
        const double labelRoom = std::min(ends.leading.width, labelWidths[index]);
        const double figureLeft = labelRoom > 0 ? labelRoom + kSpacing : 0;
        PanelText::draw(painter, kLabel, label, QRectF(spans[index].left, 0, labelRoom, height()),
                        PanelText::Side::leading, Ink::secondary(scheme()));
        PanelText::draw(painter, kValue, figure,
                        QRectF(spans[index].left + figureLeft, 0, ends.trailing.width, height()),
                        PanelText::Side::leading, Ink::primary(scheme()));
    }
}

}  // namespace velmora
