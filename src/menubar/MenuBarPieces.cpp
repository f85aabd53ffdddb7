#include "menubar/MenuBarPieces.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>
#include <vector>

namespace velmora::MenuBarPieces {
namespace {

namespace Geometry = MenuBarGeometry;

constexpr float kBarAlpha = 0.85F;
constexpr float kSecondSeriesAlpha = 0.4F;
constexpr float kOutlineAlpha = 0.4F;
constexpr float kFrameAlpha = 0.28F;

/// Keep the items from changing their width as figures gain or lose digits.
const QString kValueSample = QStringLiteral("100%");
const QString kRateSample = QStringLiteral("↓ 99.9M");
constexpr qsizetype kColumnLetters = 3;

QColor faded(QColor color, float alpha) {
    color.setAlphaF(alpha);
    return color;
}

Piece graphImage(const Ink& ink, const Geometry::GraphFormat& format,
                 std::function<void(MenuBarCanvas&, const Geometry::Rect& plot)> draw) {
    return {format.width, [ink, format, draw = std::move(draw)](MenuBarCanvas& canvas) {
                const Geometry::Rect plot = canvas.aligned(Geometry::plot(format));
                canvas.strokeRounded(Geometry::frame(plot), Geometry::kFrameRadius, Geometry::kFrameLine,
                                     faded(ink.primary, kFrameAlpha));
                draw(canvas, plot);
            }};
}

void fillBars(MenuBarCanvas& canvas, const std::vector<double>& values, const Geometry::Rect& plot,
              std::size_t barCount, const QColor& color) {
    const Geometry::BarGrid grid = Geometry::sharpBarGrid(plot, barCount, canvas.ratio());
    for (const Geometry::Rect& bar : Geometry::barRects(values, grid)) canvas.fill(bar, color);
}

/// The values that can show.
std::vector<double> lastOf(std::span<const double> values, std::size_t barCount) {
    const auto kept = values.last(std::min(values.size(), barCount));
    return {kept.begin(), kept.end()};
}

std::vector<double> lastOverScale(std::span<const double> values, double scale, std::size_t barCount) {
    return Geometry::normalize(lastOf(values, barCount), scale);
}

/// Those that a column has room for. A letter with its marks is one.
QStringList firstLetters(const QString& label) {
    QStringList letters;
    QTextBoundaryFinder boundaries(QTextBoundaryFinder::Grapheme, label);
    qsizetype start = 0;
    while (letters.size() < kColumnLetters && boundaries.toNextBoundary() > start) {
        letters.append(label.sliced(start, boundaries.position() - start));
        start = boundaries.position();
    }
    return letters;
}

/// An outline and its filling on whole pixels.
void drawVessel(MenuBarCanvas& canvas, const Geometry::Vessel& vessel, double fraction, const Ink& ink,
                Geometry::Rect (*fillOf)(const Geometry::Rect&, double)) {
    Geometry::Vessel sharp = vessel;
    sharp.outline = canvas.alignedOutline(vessel.outline, Geometry::kOutlineLine);
    canvas.strokeRounded(sharp.outline, sharp.outlineRadius, Geometry::kOutlineLine,
                         faded(ink.primary, kOutlineAlpha));
    canvas.fillWithin(sharp.inner(), sharp.innerRadius, fillOf(sharp.inner(), fraction), ink.primary);
}

}  // namespace

Piece barGraph(std::span<const double> values, const Ink& ink, const Geometry::GraphFormat& format) {
    return graphImage(ink, format,
                      [ink, format, kept = lastOf(values, format.barCount)](MenuBarCanvas& canvas,
                                                                            const Geometry::Rect& plot) {
                          fillBars(canvas, kept, plot, format.barCount, faded(ink.primary, kBarAlpha));
                      });
}

Piece dualGraph(std::span<const double> primary, std::span<const double> secondary, double floor,
                const Ink& ink, const Geometry::GraphFormat& format) {
    const double scale = Geometry::sharedScale(primary, secondary, floor);
    return graphImage(ink, format,
                      [ink, format, first = lastOverScale(primary, scale, format.barCount),
                       second = lastOverScale(secondary, scale, format.barCount)](
                          MenuBarCanvas& canvas, const Geometry::Rect& plot) {
                          fillBars(canvas, first, plot, format.barCount, faded(ink.primary, kBarAlpha));
                          fillBars(canvas, second, plot, format.barCount,
                                   faded(ink.primary, kSecondSeriesAlpha));
                      });
}

Piece stacked(const QString& label, const QString& value, const Ink& ink) {
    if (label.isEmpty()) return single(value, ink);
    const double labelWidth = MenuBarText::width(labelFont, label);
    const double valueWidth = MenuBarText::width(valueFont, value);
    const double width =
        Geometry::stackedWidth(labelWidth, valueWidth, MenuBarText::width(valueFont, kValueSample));
    return {width, [=](MenuBarCanvas& canvas) {
                canvas.drawText(labelFont, label, Geometry::stackedLabel(width, labelWidth, labelFont.size),
                                faded(ink.text, kLabelAlpha));
                canvas.drawText(valueFont, value, Geometry::stackedValue(width, valueWidth, valueFont.size),
                                ink.text);
            }};
}

Piece twoLines(const QString& top, const QString& bottom, const Ink& ink) {
    const double topWidth = MenuBarText::width(twoLineFont, top);
    const double bottomWidth = MenuBarText::width(twoLineFont, bottom);
    const double width =
        Geometry::twoLinesWidth(topWidth, bottomWidth, MenuBarText::width(twoLineFont, kRateSample));
    return {width, [=](MenuBarCanvas& canvas) {
                canvas.drawText(twoLineFont, top, Geometry::topLine(width, topWidth, twoLineFont.size),
                                ink.text);
                canvas.drawText(twoLineFont, bottom,
                                Geometry::bottomLine(width, bottomWidth, twoLineFont.size), ink.text);
            }};
}

Piece single(const QString& text, const Ink& ink) {
    return {Geometry::singleWidth(MenuBarText::width(singleFont, text)), [=](MenuBarCanvas& canvas) {
                canvas.drawText(singleFont, text, Geometry::singleLine(singleFont.size), ink.text);
            }};
}

Piece vial(double fraction, const Ink& ink) {
    return {Geometry::kVialWidth, [=](MenuBarCanvas& canvas) {
                drawVessel(canvas, Geometry::vial(), fraction, ink, Geometry::vialFill);
            }};
}

Piece pie(double fraction, const Ink& ink) {
    return {Geometry::kPieWidth, [=](MenuBarCanvas& canvas) {
                canvas.strokeOval(Geometry::pieOutline(), Geometry::kOutlineLine,
                                  faded(ink.primary, kOutlineAlpha));
                if (const auto wedge = Geometry::pieWedge(fraction)) canvas.fillWedge(*wedge, ink.primary);
            }};
}

Piece labeledBar(const QString& label, double fraction, const Ink& ink) {
    const double labelWidth = MenuBarText::width(labelFont, label);
    const double width = Geometry::labeledBarWidth(labelWidth);
    return {width, [=](MenuBarCanvas& canvas) {
                if (!label.isEmpty()) {
                    canvas.drawText(labelFont, label,
                                    Geometry::stackedLabel(width, labelWidth, labelFont.size),
                                    faded(ink.text, kLabelAlpha));
                }
                drawVessel(canvas, Geometry::labeledBar(width, !label.isEmpty()), fraction, ink,
                           Geometry::barFill);
            }};
}

Piece combine(Piece graph, Piece text) {
    const double textX = graph.width + Geometry::kGap;
    return {textX + text.width,
            [textX, graph = std::move(graph.draw), text = std::move(text.draw)](MenuBarCanvas& canvas) {
                const double origin = canvas.origin();
                graph(canvas);
                canvas.setOrigin(origin + textX);
                text(canvas);
                canvas.setOrigin(origin);
            }};
}

Piece withVerticalLabel(const QString& label, Piece shape, const Ink& ink) {
    const QStringList letters = firstLetters(label);
    std::vector<double> widths;
    for (const QString& letter : letters) {
        widths.push_back(MenuBarText::width(verticalLabelFont, letter));
    }
    const double column = Geometry::letterColumn(widths);
    const double shapeX = column + Geometry::kColumnGap;
    return {shapeX + shape.width, [=, draw = std::move(shape.draw)](MenuBarCanvas& canvas) {
                for (std::size_t index = 0; index < widths.size(); ++index) {
                    canvas.drawText(verticalLabelFont, letters[static_cast<qsizetype>(index)],
                                    Geometry::columnLetter(index, widths.size(), column, widths[index],
                                                           verticalLabelFont.size),
                                    faded(ink.text, kLabelAlpha));
                }
                const double origin = canvas.origin();
                canvas.setOrigin(origin + shapeX);
                draw(canvas);
                canvas.setOrigin(origin);
            }};
}

}  // namespace velmora::MenuBarPieces
