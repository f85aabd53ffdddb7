#include "settings/controls/WrappedText.h"

#include "look/SystemFont.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace velmora::WrappedText {
namespace {

QSizeF layOut(QTextLayout& layout, double width, Qt::Alignment alignment,
              QTextOption::WrapMode mode = QTextOption::WrapAtWordBoundaryOrAnywhere) {
    // Always from the left, also for a text whose own direction is the other one.
    QTextOption option(alignment | Qt::AlignAbsolute);
    option.setWrapMode(mode);
    layout.setTextOption(option);
    layout.setCacheEnabled(true);
    const SystemFont::LineExtent least = SystemFont::lineExtent(layout.font());
    double height = 0;
    double widest = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(std::max(width, 1.0));
        const double ascent = std::max(line.ascent(), least.ascent);
        line.setPosition(QPointF(0, height + ascent - line.ascent()));
        height += ascent + std::max(line.descent(), least.descent);
        widest = std::max(widest, line.naturalTextWidth());
    }
    layout.endLayout();
    return {widest, height};
}

}  // namespace

QSizeF size(const QString& text, const QFont& font, double width) {
    QTextLayout layout(text, font);
    const QSizeF size = layOut(layout, width, Qt::AlignLeft);
    return {std::ceil(size.width()),
            std::ceil(std::max(size.height(), SystemFont::lineExtent(font).height()))};
}

int naturalWidth(const QString& text, const QFont& font) {
    // Wider than any text that is shown.
    constexpr double kUnbroken = 1e6;
    // A little more than the glyphs, so that a line of exactly this width never wraps for a rounded fraction.
    constexpr double kSlack = 0.5;
    if (text.isEmpty()) return 0;
    QTextLayout layout(text, font);
    return static_cast<int>(std::ceil(layOut(layout, kUnbroken, Qt::AlignLeft).width() + kSlack));
}

void draw(QPainter& painter, const QString& text, const QFont& font, const QColor& color, const QRectF& box,
          Qt::Alignment alignment) {
    QTextLayout layout(text, font);
    layOut(layout, box.width(), alignment);
    painter.setPen(color);
    layout.draw(&painter, box.topLeft());
}

void drawLine(QPainter& painter, const QString& text, const QFont& font, const QColor& color,
              const QRectF& box, Qt::Alignment alignment) {
    QTextLayout layout(QFontMetricsF(font).elidedText(text, Qt::ElideRight, box.width(), Qt::TextSingleLine),
                       font);
    layOut(layout, box.width(), alignment, QTextOption::NoWrap);
    painter.setPen(color);
    layout.draw(&painter, box.topLeft());
}

}  // namespace velmora::WrappedText
