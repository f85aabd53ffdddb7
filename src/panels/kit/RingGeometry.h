#pragma once

#include <QPointF>
#include <QRectF>

#include <span>
#include <vector>

/// Where rings stand, in points from the top left corner of their row or grid.
namespace velmora::RingGeometry {

/// A circle's part, as painters take it: degrees from three o'clock, counter-clockwise.
struct Arc {
    double startDegrees = 90;
    double spanDegrees = 0;
};
/// From the top, clockwise. The fraction is held within 0.002...1, so that a zero still shows a dot.
Arc statArc(double fraction);
/// The same within 0.02...1, for the small ring of a core.
Arc coreArc(double fraction);

/// What a ring of a row asks for. The stroke runs along the circle of the diameter `size`, half of it
/// outside.
struct RingNeed {
    double size = 0;
    double lineWidth = 0;
    double captionWidth = 0;  ///< 0 without a caption.
};
struct RingPlace {
    double centreX = 0;
    double width = 0;  ///< What the ring and its caption may fill.
};
/// Rings side by side in the middle of the row. Where they are too wide, the spacing gives way first, then
/// the captions; a ring for which there is no room at all is left out, from the end. What the rings show in
/// their middles plays no part, so that nothing moves with a figure.
std::vector<RingPlace> placeRings(std::span<const RingNeed> rings, double spacing, double width);

inline constexpr double kCoreDiameter = 16;
inline constexpr double kCoreLineWidth = 3;

/// A grid of core rings: columns as many as fit, sharing the width, filled row by row.
class CoreGridLayout {
public:
    CoreGridLayout(double width, double spacing);

    int columns() const { return m_columns; }
    QPointF centre(std::size_t index) const;
    double height(std::size_t count) const;

private:
    double m_spacing;
    int m_columns;
    double m_columnWidth;
};

}  // namespace velmora::RingGeometry
