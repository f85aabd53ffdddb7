#include "panels/kit/GraphGeometry.h"

#include "panels/kit/HistorySlots.h"

#include <algorithm>
#include <cmath>

namespace velmora::GraphGeometry {
namespace {

constexpr double kSpacing = 1;
constexpr double kThinnest = 1;
constexpr double kLowestPeak = 1;

double orZero(double value) {
    return std::isfinite(value) ? value : 0;
}

void append(std::vector<QRectF>& bars, Span span, double top, double height) {
    if (height > 0) bars.emplace_back(span.left, top, span.width, height);
}

double largest(std::span<const double> values) {
    double largest = 0;
    for (int slot = 0; slot < kHistorySlots; ++slot) largest = std::max(largest, slotValue(values, slot));
    return largest;
}

}  // namespace

Span bar(int slot, double width) {
    const double slotWidth = width / kHistorySlots;
    return {slot * slotWidth, std::max(slotWidth - kSpacing, kThinnest)};
}

double lineFraction(int slot) {
    return (slot + 0.5) / kHistorySlots;
}

StackedBars stackedBars(std::span<const double> user, std::span<const double> system, QSizeF size) {
    StackedBars bars;
    for (int slot = 0; slot < kHistorySlots; ++slot) {
        const Span span = bar(slot, size.width());
        const double userHeight = std::min(slotValue(user, slot), 1.0) * size.height();
        const double room = size.height() - userHeight;
        const double systemHeight = std::min(slotValue(system, slot) * size.height(), room);
        append(bars.user, span, room, userHeight);
        append(bars.system, span, room - systemHeight, systemHeight);
    }
    return bars;
}

MirroredBars mirroredBars(std::span<const double> top, std::span<const double> bottom, QSizeF size) {
    MirroredBars bars;
    bars.peak = std::max({kLowestPeak, largest(top), largest(bottom)});
    const double half = size.height() / 2;
    for (int slot = 0; slot < kHistorySlots; ++slot) {
        const Span span = bar(slot, size.width());
        const double up = slotValue(top, slot) / bars.peak * half;
        append(bars.top, span, half - up, up);
        append(bars.bottom, span, half, slotValue(bottom, slot) / bars.peak * half);
    }
    return bars;
}

QPolygonF temperatureLine(std::span<const double> values, double low, double high, QSizeF size) {
    const double bottom = orZero(low);
    const double span = std::max(orZero(high) - bottom, 1.0);
    const double step = size.width() / (kHistorySlots - 1);
    QPolygonF line;
    for (int slot = 0; slot < kHistorySlots; ++slot) {
        const std::optional<std::size_t> index = slotIndex(slot, values.size());
        if (!index) continue;
        const double value = std::isfinite(values[*index]) ? values[*index] : bottom;
        const double share = std::clamp((value - bottom) / span, 0.0, 1.0);
        line.append({step * slot, size.height() * (1 - share)});
    }
    return line;
}

std::vector<BatteryBar> batteryBars(std::span<const double> levels, const std::vector<bool>& plugged,
                                    QSizeF size) {
    constexpr double kLowest = 1;
    std::vector<BatteryBar> bars;
    for (int slot = 0; slot < kHistorySlots; ++slot) {
        const std::optional<std::size_t> index = slotIndex(slot, levels.size());
        if (!index) continue;
        const Span span = bar(slot, size.width());
        const double level = std::min(slotValue(levels, slot), 1.0);
        const double height = std::min(std::max(level * size.height(), kLowest), size.height());
        bars.push_back({{span.left, size.height() - height, span.width, height},
                        *index < plugged.size() && plugged[*index]});
    }
    return bars;
}

}  // namespace velmora::GraphGeometry
