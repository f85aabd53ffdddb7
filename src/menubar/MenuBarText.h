#pragma once

#include <QFont>
#include <QString>
#include <QStringView>

class QColor;
class QPainter;
class QPointF;

namespace velmora {

enum class DigitWidth { proportional, monospaced };

/// A font of an item's image. The size is in points, which are pixels at a ratio of 1.
struct TextFont {
    double size = 0;
    QFont::Weight weight = QFont::Normal;
    DigitWidth digits = DigitWidth::proportional;
};

inline constexpr TextFont labelFont = {7, QFont::Bold};
inline constexpr TextFont valueFont = {9.5, QFont::DemiBold, DigitWidth::monospaced};
inline constexpr TextFont singleFont = {12, QFont::Medium, DigitWidth::monospaced};
inline constexpr TextFont twoLineFont = {9, QFont::Medium, DigitWidth::monospaced};
inline constexpr TextFont verticalLabelFont = {5.5, QFont::Bold};

/// Measures and draws the short texts of the items. Widths are those of the fonts' outlines, so they scale
/// and are the same at every ratio; monospaced digits each take a cell of the widest digit. What was shaped
/// once is kept: the texts are made of a few dozen pieces. Main thread only.
namespace MenuBarText {

/// In points.
double width(const TextFont& font, QStringView text);
/// The largest size at which the text is no wider than `room`, at most that of `font`.
double fittingSize(const TextFont& font, QStringView text, double room);
/// Draws with the painter's device coordinates; `start` is the text's left edge on its baseline, and `ratio`
/// the device pixels per point. The baseline is moved to the nearest pixel row.
void draw(QPainter& painter, const TextFont& font, QStringView text, QPointF start, double ratio,
          const QColor& color);

}  // namespace MenuBarText
}  // namespace velmora
