#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;

/// A text in lines of a given width. Lines break between words, and inside a word that is wider than a line.
namespace velmora::WrappedText {

/// The height and the widest line of the text in this width; one line's height for an empty text.
QSizeF size(const QString& text, const QFont& font, double width);
/// The width of the text in one line, rounded up.
int naturalWidth(const QString& text, const QFont& font);
/// Draws the lines from the top of `box`, each placed as `alignment` says.
void draw(QPainter& painter, const QString& text, const QFont& font, const QColor& color, const QRectF& box,
          Qt::Alignment alignment = Qt::AlignLeft);
/// Draws one line at the top of `box`, in the same place as the first one above, cut at its end with an
/// ellipsis where it is wider than the box.
void drawLine(QPainter& painter, const QString& text, const QFont& font, const QColor& color,
              const QRectF& box, Qt::Alignment alignment = Qt::AlignLeft);

}  // namespace velmora::WrappedText
