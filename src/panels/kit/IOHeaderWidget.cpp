#include "panels/kit/IOHeaderWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/ProcessRowWidget.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Series.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kTitle = {11, QFont::DemiBold};
constexpr PanelFont kColumn = {10, QFont::Medium};
constexpr double kGap = 8;

}  // namespace

IOHeaderWidget::IOHeaderWidget(Scheme scheme, QWidget* parent) : KitWidget(scheme, parent) {}

void IOHeaderWidget::setTexts(const std::string& title, const std::vector<std::string>& columns) {
    if (m_title == title && m_columns == columns) return;
    m_title = title;
    m_columns = columns;
    refresh();
}

int IOHeaderWidget::heightForWidth(int) const {
    return std::max(PanelText::lineHeight(kTitle), PanelText::lineHeight(kColumn));
}

KitWidget::Spoken IOHeaderWidget::spoken() const {
    QString columns;
    for (const std::string& column : m_columns) {
        columns += (columns.isEmpty() ? QString() : QStringLiteral(", ")) + PanelText::plain(column);
    }
    return {QAccessible::Heading, PanelText::plain(m_title), columns};
}

void IOHeaderWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const RowGeometry::ProcessPlaces places =
        RowGeometry::processRow(width(), std::vector<double>(m_columns.size(), ProcessRowWidget::kBox));
    const QString title = PanelText::plain(m_title);
    PanelText::draw(painter, kTitle, title, QRectF(0, 0, places.name.right(), height()),
                    PanelText::Side::leading, Series::primary);

    std::vector<QString> labels;
    std::vector<RowGeometry::Span> boxes = places.values;
    for (const std::string& column : m_columns) labels.push_back(PanelText::plain(column));
    if (!boxes.empty()) {
        // What a short title leaves free is the first label's.
        const double right = boxes.front().right();
        boxes.front().left = std::min(boxes.front().left, PanelText::width(kTitle, title) + kGap);
        boxes.front().width = right - boxes.front().left;
    }
    PanelFont font = kColumn;
    for (std::size_t index = 0; index < labels.size(); ++index) {
        font = PanelText::fitting(font, labels[index], boxes[index].width);
    }
    for (std::size_t index = 0; index < labels.size(); ++index) {
        PanelText::draw(painter, font, labels[index],
                        QRectF(boxes[index].left, 0, boxes[index].width, height()), PanelText::Side::trailing,
                        Ink::secondary(scheme()));
    }
}

}  // namespace velmora
