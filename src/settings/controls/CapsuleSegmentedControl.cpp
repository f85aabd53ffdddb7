#include "settings/controls/CapsuleSegmentedControl.h"

#include "settings/controls/FocusRing.h"
#include "settings/controls/PillTheme.h"
#include "settings/controls/SegmentIcon.h"
#include "settings/controls/SettingsScheme.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr double kSeparatorShare = 0.6;

/// The radius as a rounded rectangle of this size can have it.
double fitting(double radius, const QRectF& bounds) {
    return std::clamp(radius, 0.0, std::max(std::min(bounds.width(), bounds.height()) / 2, 0.0));
}

}  // namespace

CapsuleSegmentedControl::CapsuleSegmentedControl(const std::vector<QImage>& images,
                                                 const std::vector<QString>& tooltips, int width, int height,
                                                 std::optional<double> cornerRadius, QWidget* parent)
    : QWidget(parent), m_cornerRadius(cornerRadius) {
    setFixedSize(std::max(width, 0), std::max(height, 0));
    setFocusPolicy(Qt::TabFocus);
    for (std::size_t index = 0; index < images.size(); ++index) {
        const QString tooltip = index < tooltips.size() ? tooltips[index] : QString();
        auto* const icon = new SegmentIcon(images[index], tooltip, this);
        connect(icon, &QAbstractButton::clicked, this, [this, index] { select(static_cast<int>(index)); });
        m_iconViews.push_back(icon);
    }
    for (int index = 0; index < segmentCount(); ++index) {
        m_iconViews[static_cast<std::size_t>(index)]->setGeometry(iconFrame(index).toAlignedRect());
    }
    if (!m_iconViews.empty()) m_iconViews.front()->setChecked(true);
}

void CapsuleSegmentedControl::setSelectedIndex(int index) {
    if (m_iconViews.empty()) return;
    m_selectedIndex = std::clamp(index, 0, segmentCount() - 1);
    m_iconViews[static_cast<std::size_t>(m_selectedIndex)]->setChecked(true);
    update();
}

double CapsuleSegmentedControl::cornerRadius() const {
    return m_cornerRadius.value_or(height() / 2.0);
}

double CapsuleSegmentedControl::segmentWidth() const {
    return m_iconViews.empty() ? width() : static_cast<double>(width()) / segmentCount();
}

int CapsuleSegmentedControl::segmentAt(double x) const {
    if (m_iconViews.empty() || width() <= 0 || !std::isfinite(x)) return 0;
    return static_cast<int>(std::clamp(std::trunc(x / segmentWidth()), 0.0, segmentCount() - 1.0));
}

QRectF CapsuleSegmentedControl::selectionFrame() const {
    return m_iconViews.empty() ? QRectF()
                               : QRectF(segmentWidth() * m_selectedIndex, 0, segmentWidth(), height());
}

std::vector<QRectF> CapsuleSegmentedControl::separatorFrames() const {
    std::vector<QRectF> frames;
    const double separatorHeight = kSeparatorShare * height();
    for (int boundary = 1; boundary < segmentCount(); ++boundary) {
        frames.emplace_back(segmentWidth() * boundary - 0.5, (height() - separatorHeight) / 2, 1,
                            separatorHeight);
    }
    return frames;
}

QRectF CapsuleSegmentedControl::iconFrame(int index) const {
    if (index < 0 || index >= segmentCount()) return {};
    const QSizeF size = m_iconViews[static_cast<std::size_t>(index)]->imageSize();
    const QPointF center((index + 0.5) * segmentWidth(), height() / 2.0);
    return {center - QPointF(size.width() / 2, size.height() / 2), size};
}

void CapsuleSegmentedControl::select(int index) {
    if (index == m_selectedIndex || index < 0 || index >= segmentCount()) return;
    setSelectedIndex(index);
    if (m_onSelect) m_onSelect(index);
}

bool CapsuleSegmentedControl::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || m_iconViews.empty()) return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const auto index = static_cast<std::size_t>(segmentAt(help->pos().x()));
    QToolTip::showText(help->globalPos(), m_iconViews[index]->toolTip(), this);
    return true;
}

void CapsuleSegmentedControl::focusInEvent(QFocusEvent* event) {
    m_showsFocus = focusShows(event->reason(), m_showsFocus);
    update();
}

void CapsuleSegmentedControl::focusOutEvent(QFocusEvent* event) {
    if (event->reason() != Qt::ActiveWindowFocusReason) m_showsFocus = false;
    update();
}

void CapsuleSegmentedControl::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            return select(m_selectedIndex - 1);
        case Qt::Key_Right:
            return select(m_selectedIndex + 1);
        default:
            QWidget::keyPressEvent(event);
    }
}

void CapsuleSegmentedControl::mousePressEvent(QMouseEvent* event) {
    // The toolkit hands no presses to a disabled widget.
    if (event->button() != Qt::LeftButton) return event->ignore();
    select(segmentAt(event->position().x()));
}

void CapsuleSegmentedControl::paintEvent(QPaintEvent*) {
    const QColor overlay = PillTheme::segOverlay(schemeOf(this));
    const QRectF bounds(rect());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    const QRectF outline = bounds.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(overlay);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(outline, fitting(cornerRadius(), outline), fitting(cornerRadius(), outline));

    painter.save();
    const QRectF inside = bounds.adjusted(1, 1, -1, -1);
    const double insideRadius = fitting(cornerRadius() - 1, inside);
    QPainterPath clip;
    clip.addRoundedRect(inside, insideRadius, insideRadius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(overlay);
    // What is inside the clip is drawn as paths, whose edges stay smooth; a painter's clip has jagged ones.
    std::vector<QRectF> frames = separatorFrames();
    frames.insert(frames.begin(), selectionFrame());
    for (const QRectF& frame : frames) {
        QPainterPath path;
        path.addRect(frame);
        painter.drawPath(path.intersected(clip));
    }
    painter.restore();

    if (m_showsFocus) paintFocusRing(painter, bounds, fitting(cornerRadius(), bounds), RingGround::field);
}

}  // namespace velmora
