#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

#include <string_view>
#include <vector>

class QPainter;

/// The program's own symbols: one vector drawing per name, in one stroke weight and one corner style,
/// readable at 13 points. A name that is not among them draws nothing. For the main thread only.
///
/// A drawing is `resources/symbols/<name>.svg`, a square of 24 units in which black is ink and white takes
/// ink away again: a filled disc with a white letter is a disc with a hole. Main strokes stand on the middles
/// of a grid of 13 by 13 cells, so that at 13 points they fill whole pixels.
namespace velmora::Symbol {

bool exists(std::string_view name);
/// Every name, in alphabetical order.
std::vector<std::string_view> names();

/// Draws the symbol in one colour, as large as fits into `box` and in its middle, moved to whole pixels.
/// Nothing for an unknown name, an invalid colour, or a box without room for a pixel.
void paint(QPainter& painter, std::string_view name, const QRectF& box, const QColor& color);

/// The symbol in a square of `points` sides, with `ratio` pixels to the point. Null for an unknown name or an
/// invalid colour, and for a picture of no pixel or of more than 1024 along a side.
QImage image(std::string_view name, double points, const QColor& color, double ratio);

}  // namespace velmora::Symbol
