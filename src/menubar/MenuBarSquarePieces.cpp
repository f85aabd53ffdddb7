// The layouts for bars whose cells are squares. Nothing may be lost that the wide images say, so the figures
// shrink until they fit.

#include "menubar/MenuBarPieces.h"

#include <algorithm>
#include <utility>

namespace velmora::MenuBarPieces {
namespace {

namespace Geometry = MenuBarGeometry;

constexpr double kSide = Geometry::kHeight;
/// Texts may use nearly the whole width: the bar keeps its own distance between the cells.
constexpr double kMargin = 0.5;

/// What decides the size of rates, so that it is the same for nearly all of them.
const QString kRateSample = QStringLiteral("↓999K");

TextFont fitted(const TextFont& font, const QString& text) {
    TextFont smaller = font;
    smaller.size = MenuBarText::fittingSize(font, text, kSide - 2 * kMargin);
    return smaller;
}

}  // namespace

Piece squareStacked(const QString& label, const QString& value, const Ink& ink) {
    const TextFont font = fitted(valueFont, value);
    const double labelWidth = MenuBarText::width(labelFont, label);
    const double valueWidth = MenuBarText::width(font, value);
    return {kSide, [=](MenuBarCanvas& canvas) {
                QColor faded = ink.text;
                faded.setAlphaF(kLabelAlpha);
                canvas.drawText(labelFont, label, Geometry::stackedLabel(kSide, labelWidth, labelFont.size),
                                faded);
                canvas.drawText(font, value, Geometry::stackedValue(kSide, valueWidth, valueFont.size),
                                ink.text);
            }};
}

Piece squareTwoLines(const QString& top, const QString& bottom, const Ink& ink) {
    TextFont font = fitted(twoLineFont, kRateSample);
    font.size = std::min({font.size, fitted(twoLineFont, top).size, fitted(twoLineFont, bottom).size});
    return {kSide, [=](MenuBarCanvas& canvas) {
                const auto drawLine = [&](const QString& text, double fullBaseline) {
                    const double baseline =
                        Geometry::shrunkBaseline(fullBaseline, twoLineFont.size, font.size);
                    const QString arrow = text.left(1);
                    const QString figure = text.mid(1);
                    canvas.drawText(font, arrow, {kMargin, baseline}, ink.text);
                    canvas.drawText(font, figure,
                                    {kSide - kMargin - MenuBarText::width(font, figure), baseline}, ink.text);
                };
                drawLine(top, Geometry::topLine(kSide, 0, twoLineFont.size).y);
                drawLine(bottom, Geometry::bottomLine(kSide, 0, twoLineFont.size).y);
            }};
}

Piece squareCentred(Piece piece) {
    const double x = (kSide - piece.width) / 2;
    return {kSide, [x, draw = std::move(piece.draw)](MenuBarCanvas& canvas) {
                const double origin = canvas.origin();
                canvas.setOrigin(origin + x);
                draw(canvas);
                canvas.setOrigin(origin);
            }};
}

}  // namespace velmora::MenuBarPieces
