#pragma once

#include "menubar/MenuBarText.h"

#include <QFont>
#include <QRectF>
#include <QString>

#include <string_view>

class QColor;
class QPainter;

namespace velmora {

/// A font of a panel; the size is in points, which are logical pixels.
struct PanelFont {
    int size = 11;
    QFont::Weight weight = QFont::Normal;
    DigitWidth digits = DigitWidth::proportional;
};

/// Measures and draws a panel's texts, each in one line. Monospaced digits each take a cell of the widest
/// digit. Main thread only.
namespace PanelText {

/// A text that may have come from anywhere, ready for one line: broken UTF-8 is replaced, control characters
/// and line ends become blanks, marks that turn the writing direction of their surroundings go, and nobody
/// reads on after 500 characters.
QString plain(std::string_view utf8);

/// In points.
double width(const PanelFont& font, const QString& text);
/// The height of a line, whatever characters it has.
int lineHeight(const PanelFont& font);

/// The text, cut at its end with an ellipsis where it is wider than `room`; nothing where not even that fits.
QString elided(const PanelFont& font, const QString& text, double room);
/// The font at the largest size at which the text is no wider than `room`, not below `kSmallest`.
inline constexpr int kSmallest = 7;
PanelFont fitting(const PanelFont& font, const QString& text, double room);

enum class Side { leading, middle, trailing };
/// Draws within `box`, in its vertical middle, cut at the end where it is too narrow.
void draw(QPainter& painter, const PanelFont& font, const QString& text, const QRectF& box, Side side,
          const QColor& color);

}  // namespace PanelText
}  // namespace velmora
