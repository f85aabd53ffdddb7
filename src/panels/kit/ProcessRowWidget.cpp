#include "panels/kit/ProcessRowWidget.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/PixelGrid.h"
#include "panels/kit/ProcessIcons.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/SkeletonProcessRow.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr PanelFont kName = {11};
constexpr PanelFont kFigure = {11, QFont::Medium, DigitWidth::monospaced};
constexpr int kNaturalHeight = 15;
constexpr int kBoxedHeight = 17;

}  // namespace

ProcessRowWidget::ProcessRowWidget(Figures figures, ProcessIcons& icons, Scheme scheme, QWidget* parent)
    : KitWidget(scheme, parent), m_figures(figures), m_icons(icons) {}

void ProcessRowWidget::setContent(std::optional<Content> content) {
    if (m_content == content) return;
    const bool isOther =
        !m_content || !content || m_content->pid != content->pid || m_content->name != content->name;
    if (isOther) m_iconRatio = 0;
    m_content = std::move(content);
    refresh();
}

int ProcessRowWidget::heightNeeded() const {
    const int least = m_figures == Figures::boxed ? kBoxedHeight : kNaturalHeight;
    return std::max(least, PanelText::lineHeight(kName));
}

KitWidget::Spoken ProcessRowWidget::spoken() const {
    // A skeleton is nothing to speak of.
    if (!m_content) return {QAccessible::Whitespace, {}, {}};
    return {QAccessible::StaticText, PanelText::plain(m_content->name),
            PanelText::plain(m_content->spokenFigures)};
}

void ProcessRowWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!m_content) {
        SkeletonProcessRow::draw(painter, rect(), scheme());
        return;
    }
    std::vector<QString> figures;
    std::vector<double> widths;
    for (const std::string& figure : m_content->figures) {
        figures.push_back(PanelText::plain(figure));
        widths.push_back(m_figures == Figures::boxed ? kBox : PanelText::width(kFigure, figures.back()));
    }
    const RowGeometry::ProcessPlaces places = RowGeometry::processRow(width(), widths);
    drawIcon(painter, places.icon.width);
    PanelText::draw(painter, kName, PanelText::plain(m_content->name),
                    QRectF(places.name.left, 0, places.name.width, height()), PanelText::Side::leading,
                    Ink::primary(scheme()));
    for (std::size_t index = 0; index < figures.size(); ++index) {
        const RowGeometry::Span box = places.values[index];
        PanelText::draw(painter, PanelText::fitting(kFigure, figures[index], box.width), figures[index],
                        QRectF(box.left, 0, box.width, height()), PanelText::Side::trailing,
                        Ink::primary(scheme()));
    }
}

void ProcessRowWidget::drawIcon(QPainter& painter, double room) {
    if (room < ProcessIcons::kSide) return;
    const double ratio = painter.device()->devicePixelRatioF();
    if (m_iconRatio != ratio) {
        m_icon = m_icons.processIcon(m_content->pid, ratio);
        m_iconRatio = ratio;
    }
    const QSizeF size = m_icon.deviceIndependentSize();
    const PixelGrid grid(painter);
    const QPointF corner(grid.x((ProcessIcons::kSide - size.width()) / 2),
                         grid.y((height() - size.height()) / 2));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(corner, m_icon);
}

}  // namespace velmora
