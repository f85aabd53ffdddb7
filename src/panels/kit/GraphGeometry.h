#pragma once

#include <QPolygonF>
#include <QRectF>
#include <QSizeF>

#include <span>
#include <vector>

/// Where the parts of the history graphs stand, in points from the graph's top left corner. Figures that are
/// negative or no number count as 0, and nothing lies outside of the graph.
namespace velmora::GraphGeometry {

/// From the left edge of a slot's bar to its right edge. A slot is a sixtieth of the width; the bar leaves 1
/// of it free, and is at least 1 wide.
struct Span {
    double left = 0;
    double width = 0;
};
Span bar(int slot, double width);

/// The middle of a slot, where the hover line stands, as a share of the width.
double lineFraction(int slot);

struct StackedBars {
    std::vector<QRectF> user;
    std::vector<QRectF> system;  ///< On top of `user`.
};
/// Bars of fractions. A series without a value in a slot counts as 0 there; bars of no height are left out.
StackedBars stackedBars(std::span<const double> user, std::span<const double> system, QSizeF size);

struct MirroredBars {
    double peak = 1;  ///< What half the height stands for: the largest figure of both series, at least 1.
    std::vector<QRectF> top;
    std::vector<QRectF> bottom;
};
/// Bars away from the middle of the height; those of no height are left out.
MirroredBars mirroredBars(std::span<const double> top, std::span<const double> bottom, QSizeF size);

/// The line of one temperature series between `low` at the bottom and `high` at the top, which stand for at
/// least one degree. A figure outside of the two lies at the edge, one that is no number at the bottom.
QPolygonF temperatureLine(std::span<const double> values, double low, double high, QSizeF size);

struct BatteryBar {
    QRectF rect;
    bool plugged = false;
};
/// A bar for each level, at least 1 tall. A level without an entry in `plugged` was not plugged in.
std::vector<BatteryBar> batteryBars(std::span<const double> levels, const std::vector<bool>& plugged,
                                    QSizeF size);

}  // namespace velmora::GraphGeometry
