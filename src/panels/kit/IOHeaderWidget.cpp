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
    PanelText::draw(painter, kTitle, PanelText::plain(m_title), QRectF(0, 0, places.name.right(), height()),
                    PanelText::Side::leading, Series::primary);
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        const QString label = PanelText::plain(m_columns[index]);
        const RowGeometry::Span box = places.values[index];
        PanelText::draw(painter, PanelText::fitting(kColumn, label, box.width), label,
                        QRectF(box.left, 0, box.width, height()), PanelText::Side::trailing,
                        Ink::secondary(scheme()));
    }
}

}  // namespace velmora
