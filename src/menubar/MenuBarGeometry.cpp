#include "menubar/MenuBarGeometry.h"

#include <algorithm>
#include <cmath>

namespace velmora::MenuBarGeometry {
namespace {

constexpr double kPlotBottom = 2.5;
constexpr double kPlotHeight = 17;
constexpr double kBarGap = 0.5;
constexpr double kSmallestBar = 1;
constexpr double kFineRatio = 2;
constexpr double kLargestPitchChange = 0.1;
constexpr double kVesselInset = 1.5;
constexpr double kSmallestFill = 1.5;
constexpr double kPieThreshold = 0.01;
constexpr double kBarShapeWidth = 20;
constexpr double kBarShapeHeight = 6.5;

// The line boxes are those of the reference system font: 1.19 of the size, with capitals of 0.71 in the
// middle.
constexpr double kLineHeight = 1.19;
constexpr double kCapHeight = 0.71;
// A figure has nothing below its baseline, so two lines of capitals and digits look centred between the edges
// of a graph's frame when the baseline lies lower in the box than the reference font's descent.
constexpr double kBaselineDepth = 0.15;

constexpr double kLabelBottom = 13.0;
constexpr double kValueBottom = 2.5;
constexpr double kTopLineBottom = 11.0;
constexpr double kBottomLineBottom = 1.5;
constexpr double kColumnTop = 20;
constexpr double kColumnHeight = 19;

double largest(std::span<const double> values, double floor) {
    for (const double value : values) {
        if (value > floor) floor = value;
    }
    return floor;
}

/// Rounds a half down, so that an edge of the y axis that points down goes up.
double roundedHalfDown(double value) {
    return std::ceil(value - 0.5);
}

}  // namespace

Rect inset(const Rect& rect, double amount) {
    return {rect.x + amount, rect.y + amount, rect.width - 2 * amount, rect.height - 2 * amount};
}

double clampedFraction(double value) {
    return value > 0 ? std::min(value, 1.0) : 0.0;
}

Rect alignedToPixels(const Rect& rect, double ratio) {
    const double left = std::round(rect.x * ratio);
    const double top = roundedHalfDown((kHeight - rect.top()) * ratio);
    const double width = std::round(rect.width * ratio);
    const double height = std::round(rect.height * ratio);
    return {left / ratio, kHeight - (top + height) / ratio, width / ratio, height / ratio};
}

Rect plot(const GraphFormat& format) {
    return {0, kPlotBottom, format.width, kPlotHeight};
}

Rect frame(const Rect& plot) {
    return inset(plot, kFrameLine / 2);
}

BarGrid barGrid(const Rect& plot, std::size_t barCount) {
    const double pitch = (plot.width - 2) / static_cast<double>(barCount);
    return {barCount,   plot.x + 1,     pitch, std::max(pitch - kBarGap, kSmallestBar),
            plot.y + 1, plot.height - 2};
}

BarGrid sharpBarGrid(const Rect& plot, std::size_t barCount, double ratio) {
    BarGrid grid = barGrid(plot, barCount);
    const double pitch = std::round(grid.pitch * ratio);
    const double gap = kBarGap * ratio;
    const double room = plot.width * ratio - (pitch * static_cast<double>(barCount) - gap);
    const double change = std::fabs(pitch - grid.pitch * ratio) / (grid.pitch * ratio);
    if (ratio >= kFineRatio || change > kLargestPitchChange || room < 0) return grid;
    grid.left = plot.x + std::floor(room / 2) / ratio;
    grid.pitch = pitch / ratio;
    grid.barWidth = (pitch - gap) / ratio;
    grid.bottom = kHeight - std::round((kHeight - grid.bottom) * ratio) / ratio;
    return grid;
}

std::vector<Rect> barRects(std::span<const double> values, const BarGrid& grid) {
    const std::span<const double> kept = values.last(std::min(values.size(), grid.count));
    std::vector<Rect> rects;
    rects.reserve(kept.size());
    for (std::size_t index = 0; index < kept.size(); ++index) {
        const auto slot = static_cast<double>(grid.count - kept.size() + index);
        rects.push_back({grid.left + grid.pitch * slot, grid.bottom, grid.barWidth,
                         std::max(grid.height * clampedFraction(kept[index]), kSmallestBar)});
    }
    return rects;
}

std::vector<double> normalize(std::span<const double> values, double floor) {
    const double divisor = largest(values, floor);
    std::vector<double> fractions;
    fractions.reserve(values.size());
    for (const double value : values) fractions.push_back(std::min(value / divisor, 1.0));
    return fractions;
}

double sharedScale(std::span<const double> primary, std::span<const double> secondary, double floor) {
    return largest(secondary, largest(primary, floor));
}

Rect Vessel::inner() const {
    return inset(outline, kVesselInset);
}

Vessel vial() {
    return {{0.75, 2, 8.5, 18}, 3, 2};
}

Rect vialFill(const Rect& inner, double fraction) {
    return {inner.x, inner.y, inner.width, std::max(inner.height * clampedFraction(fraction), kSmallestFill)};
}

Rect pieOutline() {
    return {0.75, 2.75, 16.5, 16.5};
}

std::optional<Wedge> pieWedge(double fraction) {
    if (!(fraction > kPieThreshold)) return std::nullopt;
    const Rect oval = pieOutline();
    return Wedge{
        {oval.x + oval.width / 2, oval.y + oval.height / 2}, 6.75, 90, -360 * clampedFraction(fraction)};
}

double labeledBarWidth(double labelWidth) {
    return std::ceil(std::max(kBarShapeWidth, labelWidth)) + kTextMargin;
}

Vessel labeledBar(double imageWidth, bool hasLabel) {
    return {{(imageWidth - kBarShapeWidth) / 2, hasLabel ? 4.5 : 7.75, kBarShapeWidth, kBarShapeHeight},
            2.5,
            1.5};
}

Rect barFill(const Rect& inner, double fraction) {
    return {inner.x, inner.y, std::max(inner.width * clampedFraction(fraction), kSmallestFill), inner.height};
}

double lineHeight(double fontSize) {
    return kLineHeight * fontSize;
}

double baseline(double bottom, double fontSize) {
    return bottom + kBaselineDepth * fontSize;
}

double centredBaseline(double bottom, double fontSize) {
    return bottom + (kLineHeight - kCapHeight) / 2 * fontSize;
}

double shrunkBaseline(double baseline, double fontSize, double smallerSize) {
    return baseline + kCapHeight / 2 * (fontSize - smallerSize);
}

double stackedWidth(double labelWidth, double valueWidth, double sampleWidth) {
    return std::ceil(std::max({labelWidth, valueWidth, sampleWidth})) + kTextMargin;
}

TextPlace stackedLabel(double imageWidth, double labelWidth, double fontSize) {
    return {(imageWidth - labelWidth) / 2, baseline(kLabelBottom, fontSize)};
}

TextPlace stackedValue(double imageWidth, double valueWidth, double fontSize) {
    return {(imageWidth - valueWidth) / 2, baseline(kValueBottom, fontSize)};
}

double twoLinesWidth(double topWidth, double bottomWidth, double sampleWidth) {
    return std::ceil(std::max({topWidth, bottomWidth, sampleWidth})) + kTextMargin;
}

TextPlace topLine(double imageWidth, double textWidth, double fontSize) {
    return {imageWidth - textWidth - 1, baseline(kTopLineBottom, fontSize)};
}

TextPlace bottomLine(double imageWidth, double textWidth, double fontSize) {
    return {imageWidth - textWidth - 1, baseline(kBottomLineBottom, fontSize)};
}

double singleWidth(double textWidth) {
    return std::ceil(textWidth) + kTextMargin;
}

TextPlace singleLine(double fontSize) {
    return {1, centredBaseline((kHeight - lineHeight(fontSize)) / 2, fontSize)};
}

double letterColumn(std::span<const double> letterWidths) {
    return letterWidths.empty() ? kEmptyColumn : std::ceil(largest(letterWidths, 0));
}

TextPlace columnLetter(std::size_t index, std::size_t count, double column, double letterWidth,
                       double fontSize) {
    const double step = kColumnHeight / static_cast<double>(count);
    const double bottom =
        kColumnTop - step * static_cast<double>(index + 1) + (step - lineHeight(fontSize)) / 2;
    return {(column - letterWidth) / 2, centredBaseline(bottom, fontSize)};
}

}  // namespace velmora::MenuBarGeometry
