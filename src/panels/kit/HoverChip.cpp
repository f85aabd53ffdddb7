#include "panels/kit/HoverChip.h"

#include "look/Ink.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/RowGeometry.h"
#include "panels/kit/Shapes.h"
#include "panels/kit/SoftShadow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr PanelFont kTitle = {9};
constexpr PanelFont kLabel = {10};
constexpr PanelFont kValue = {10, QFont::Medium, DigitWidth::monospaced};
constexpr int kSidePadding = 7;
constexpr int kVerticalPadding = 5;
constexpr int kRowSpacing = 2;
constexpr double kGap = 8;
constexpr double kRadius = 4;
constexpr double kBorder = 0.5;

QColor groundOf(Scheme scheme) {
    return scheme == Scheme::dark ? QColor(50, 50, 54) : QColor(255, 255, 255);
}

double shadowOpacity(Scheme scheme) {
    return scheme == Scheme::dark ? 0.4 : 0.2;
}

double rowWidth(const HoverChipRow& row) {
    const double dot = row.tint ? Shapes::kDotAndGap : 0;
    return dot + PanelText::width(kLabel, PanelText::plain(row.label)) + kGap +
           PanelText::width(kValue, PanelText::plain(row.value));
}

int rowHeight() {
    return std::max(PanelText::lineHeight(kLabel), PanelText::lineHeight(kValue));
}

}  // namespace

HoverChip::HoverChip(Scheme scheme, QWidget* parent) : KitWidget(scheme, parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void HoverChip::setContent(const std::string& title, const std::vector<HoverChipRow>& rows, int mostWidth) {
    const bool isTheSame = m_title == title && m_rows == rows;
    if (!isTheSame) {
        m_title = title;
        m_rows = rows;
    }
    measure(mostWidth);
    if (!isTheSame) refresh();
}

void HoverChip::centreOn(QPointF middle) {
    const QSize outer = m_measured + QSize(2 * kShadowRadius, 2 * kShadowRadius);
    setGeometry(static_cast<int>(std::lround(middle.x() - outer.width() / 2.0)),
                static_cast<int>(std::lround(middle.y() - outer.height() / 2.0)), outer.width(),
                outer.height());
}

KitWidget::Spoken HoverChip::spoken() const {
    QString figures;
    for (const HoverChipRow& row : m_rows) {
        if (!figures.isEmpty()) figures += QStringLiteral(", ");
        figures += PanelText::plain(row.label) + u' ' + PanelText::plain(row.value);
    }
    return {QAccessible::ToolTip, PanelText::plain(m_title), figures};
}

void HoverChip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    const QRectF plate(QPointF(kShadowRadius, kShadowRadius), QSizeF(m_measured));
    const QSize shadowPixels = (QSizeF(size()) * ratio).toSize();
    if (m_shadow.size() != shadowPixels || m_shadowScheme != scheme()) {
        m_shadow = SoftShadow::image(plate.size(), kShadowRadius, shadowOpacity(scheme()), ratio);
        m_shadowScheme = scheme();
    }
    painter.drawImage(QRectF(rect()), m_shadow);

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Ink::primary(scheme(), 0.12), kBorder));
    painter.setBrush(groundOf(scheme()));
    const double inset = kBorder / 2;
    painter.drawRoundedRect(plate.adjusted(inset, inset, -inset, -inset), kRadius, kRadius);

    const QRectF inner = plate.adjusted(kSidePadding, kVerticalPadding, -kSidePadding, -kVerticalPadding);
    double top = inner.top();
    if (!m_title.empty()) {
        const QRectF line(inner.left(), top, inner.width(), PanelText::lineHeight(kTitle));
        PanelText::draw(painter, kTitle, PanelText::plain(m_title), line, PanelText::Side::leading,
                        Ink::secondary(scheme()));
        top = line.bottom() + kRowSpacing;
    }
    for (const HoverChipRow& row : m_rows) {
        drawRow(painter, row, {inner.left(), top, inner.width(), static_cast<double>(rowHeight())});
        top += rowHeight() + kRowSpacing;
    }
}

void HoverChip::measure(int mostWidth) {
    double width = PanelText::width(kTitle, PanelText::plain(m_title));
    for (const HoverChipRow& row : m_rows) width = std::max(width, rowWidth(row));
    const int lines = static_cast<int>(m_rows.size()) + (m_title.empty() ? 0 : 1);
    const int title = m_title.empty() ? 0 : PanelText::lineHeight(kTitle);
    const int height = title + static_cast<int>(m_rows.size()) * rowHeight() +
                       std::max(lines - 1, 0) * kRowSpacing + 2 * kVerticalPadding;
    const int wanted = static_cast<int>(std::ceil(width)) + 2 * kSidePadding;
    m_measured = {std::min(wanted, mostWidth), height};
}

void HoverChip::drawRow(QPainter& painter, const HoverChipRow& row, const QRectF& place) const {
    double left = place.left();
    if (row.tint) {
        Shapes::dot(painter, place, left, *row.tint);
        left += Shapes::kDotAndGap;
    }
    const QString label = PanelText::plain(row.label);
    const QString value = PanelText::plain(row.value);
    const RowGeometry::Ends ends = RowGeometry::ends(place.right() - left, PanelText::width(kLabel, label),
                                                     PanelText::width(kValue, value), kGap);
    PanelText::draw(painter, kLabel, label, {left, place.top(), ends.leading.width, place.height()},
                    PanelText::Side::leading, Ink::primary(scheme()));
    PanelText::draw(painter, kValue, value,
                    {left + ends.trailing.left, place.top(), ends.trailing.width, place.height()},
                    PanelText::Side::trailing, Ink::primary(scheme()));
}

}  // namespace velmora
