#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

// Where everything in an item's image lies, as numbers. Points, with the origin at the bottom left and y
// growing upwards; only the canvas turns them into the rows of an image, which grow downwards.

namespace velmora::MenuBarGeometry {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double right() const { return x + width; }
    double top() const { return y + height; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// Every image is this high.
inline constexpr double kHeight = 22;
/// Between the graph and the figure.
inline constexpr double kGap = 3;
/// Around the widest text, both sides together.
inline constexpr double kTextMargin = 2;

Rect inset(const Rect& rect, double amount);
/// 0 for what is not a number.
double clampedFraction(double value);

/// The rectangle moved and sized to whole device pixels, so that a line along its edge stays sharp. Edges
/// that lie halfway go upwards.
Rect alignedToPixels(const Rect& rect, double ratio);

// Graphs

struct GraphFormat {
    double width;
    std::size_t barCount;  ///< How many bars fit.
};
inline constexpr GraphFormat kGraph = {32, 16};
/// For bars whose cells are squares: the pitch of the bars stays nearly the same.
inline constexpr GraphFormat kSquareGraph = {22, 10};
inline constexpr double kFrameRadius = 2;
inline constexpr double kFrameLine = 0.5;

Rect plot(const GraphFormat& format);
/// The centre line of the frame around a plot.
Rect frame(const Rect& plot);

/// Where the bars of a graph stand: each in its slot, counted from the left.
struct BarGrid {
    std::size_t count = 0;
    double left = 0;  ///< Of the first slot.
    double pitch = 0;
    double barWidth = 0;
    double bottom = 0;
    double height = 0;  ///< Of a bar at 1.
    friend bool operator==(const BarGrid&, const BarGrid&) = default;
};
BarGrid barGrid(const Rect& plot, std::size_t barCount);
/// Coarse pixels would make some bars sharp and others grey. Below two pixels per point the grid is moved to
/// whole pixels, where that changes the pitch by no more than a tenth and the bars stay within the plot.
BarGrid sharpBarGrid(const Rect& plot, std::size_t barCount, double ratio);
/// One bar per value for the last values that fit, the newest rightmost.
std::vector<Rect> barRects(std::span<const double> values, const BarGrid& grid);
/// Every value over the greater of the largest and `floor`, at most 1.
std::vector<double> normalize(std::span<const double> values, double floor);
/// What two series that share a scale are divided by.
double sharedScale(std::span<const double> primary, std::span<const double> secondary, double floor);

// Shapes that fill

/// A rounded outline with a filling that keeps a distance from it.
struct Vessel {
    Rect outline;
    double outlineRadius = 0;
    double innerRadius = 0;
    Rect inner() const;
    friend bool operator==(const Vessel&, const Vessel&) = default;
};
inline constexpr double kOutlineLine = 1;
inline constexpr double kVialWidth = 10;
inline constexpr double kPieWidth = 18;

Vessel vial();
/// From the bottom of the vial's inner rectangle; an empty one shows a sliver.
Rect vialFill(const Rect& inner, double fraction);

Rect pieOutline();
struct Wedge {
    Point centre;
    double radius = 0;
    double startDegrees = 0;  ///< Counter-clockwise from three o'clock.
    double spanDegrees = 0;   ///< Negative: clockwise.
    friend bool operator==(const Wedge&, const Wedge&) = default;
};
/// Nothing up to one percent.
std::optional<Wedge> pieWedge(double fraction);

/// Wide enough for the bar and, above it, a label of that width.
double labeledBarWidth(double labelWidth);
Vessel labeledBar(double imageWidth, bool hasLabel);
/// From the left of the bar's inner rectangle; an empty one shows a sliver.
Rect barFill(const Rect& inner, double fraction);

// Text

/// Where a text starts: its left edge on its baseline.
using TextPlace = Point;

/// The height of a line of the system font at that size.
double lineHeight(double fontSize);
/// The baseline of capitals and digits in a line box that stands at `bottom`.
double baseline(double bottom, double fontSize);
/// The baseline that puts capitals and digits in the middle of a line box that stands at `bottom`.
double centredBaseline(double bottom, double fontSize);

/// The baseline that keeps the middle of capitals and digits where it is when a text is set in a smaller
/// size.
double shrunkBaseline(double baseline, double fontSize, double smallerSize);

double stackedWidth(double labelWidth, double valueWidth, double sampleWidth);
TextPlace stackedLabel(double imageWidth, double labelWidth, double fontSize);
TextPlace stackedValue(double imageWidth, double valueWidth, double fontSize);

double twoLinesWidth(double topWidth, double bottomWidth, double sampleWidth);
TextPlace topLine(double imageWidth, double textWidth, double fontSize);
TextPlace bottomLine(double imageWidth, double textWidth, double fontSize);

double singleWidth(double textWidth);
TextPlace singleLine(double fontSize);

/// Letters below each other, left of a shape.
inline constexpr double kEmptyColumn = 4;
inline constexpr double kColumnGap = 2;
double letterColumn(std::span<const double> letterWidths);
/// `index` counts from 0 at the top.
TextPlace columnLetter(std::size_t index, std::size_t count, double column, double letterWidth,
                       double fontSize);

}  // namespace velmora::MenuBarGeometry
