#include "panels/kit/RingGeometry.h"

#include "panels/kit/Points.h"

#include <algorithm>
#include <cmath>

namespace velmora::RingGeometry {
namespace {

constexpr double kLeastSpacing = 8;
constexpr double kCoreCell = kCoreDiameter + kCoreLineWidth;

Arc fromTheTop(double fraction) {
    return {90, -360 * fraction};
}

double bareWidth(const RingNeed& ring) {
    return ring.size + ring.lineWidth;
}

}  // namespace

Arc statArc(double fraction) {
    return fromTheTop(Points::fraction(fraction, 0.002));
}

Arc coreArc(double fraction) {
    return fromTheTop(Points::fraction(fraction, 0.02));
}

std::vector<RingPlace> placeRings(std::span<const RingNeed> rings, double spacing, double width) {
    // The circles are `spacing` apart, so their strokes are a stroke closer.
    double stroke = 0;
    for (const RingNeed& ring : rings) stroke = std::max(stroke, ring.lineWidth);
    const double wantedGap = std::max(Points::held(spacing) - stroke, 0.0);
    const double leastGap = std::min(wantedGap, kLeastSpacing);

    std::size_t count = 0;
    double bare = 0;
    for (const RingNeed& ring : rings) {
        if (bare + bareWidth(ring) + leastGap * static_cast<double>(count) > width) break;
        bare += bareWidth(ring);
        ++count;
    }
    if (count == 0) return {};
    const auto gaps = static_cast<double>(count - 1);

    double wanted = 0;
    for (const RingNeed& ring : rings.first(count)) wanted += std::max(bareWidth(ring), ring.captionWidth);
    const double gap = gaps > 0 ? std::clamp((width - wanted) / gaps, leastGap, wantedGap) : 0;
    // Each caption may be this much wider than its ring.
    const double share = (width - gap * gaps - bare) / static_cast<double>(count);

    std::vector<RingPlace> places;
    double total = gap * gaps;
    for (const RingNeed& ring : rings.first(count)) {
        const double wider = std::max(ring.captionWidth - bareWidth(ring), 0.0);
        const bool allFit = wanted + gap * gaps <= width;
        places.push_back({0, bareWidth(ring) + (allFit ? wider : std::min(wider, share))});
        total += places.back().width;
    }
    double left = (width - total) / 2;
    for (RingPlace& place : places) {
        place.centreX = left + place.width / 2;
        left += place.width + gap;
    }
    return places;
}

CoreGridLayout::CoreGridLayout(double width, double spacing) : m_spacing(Points::held(spacing)) {
    const double fitting = std::floor((Points::held(width) + m_spacing) / (kCoreCell + m_spacing));
    m_columns = std::max(1, static_cast<int>(fitting));
    m_columnWidth = (Points::held(width) - m_spacing * (m_columns - 1)) / m_columns;
}

QPointF CoreGridLayout::centre(std::size_t index) const {
    const auto columns = static_cast<std::size_t>(m_columns);
    const std::size_t column = index % columns;
    const std::size_t row = index / columns;
    return {static_cast<double>(column) * (m_columnWidth + m_spacing) + m_columnWidth / 2,
            static_cast<double>(row) * (kCoreCell + m_spacing) + kCoreCell / 2};
}

double CoreGridLayout::height(std::size_t count) const {
    if (count == 0) return 0;
    const auto columns = static_cast<std::size_t>(m_columns);
    const std::size_t rows = (count + columns - 1) / columns;
    return static_cast<double>(rows) * (kCoreCell + m_spacing) - m_spacing;
}

}  // namespace velmora::RingGeometry
