#include "panels/kit/RowGeometry.h"

#include <algorithm>

namespace velmora::RowGeometry {

Ends ends(double width, double leadingWidth, double trailingWidth, double gap) {
    const double most = std::max({width * 2 / 3, width - gap - leadingWidth, 0.0});
    const double trailing = std::min({trailingWidth, most, width});
    const double room = trailing > 0 ? width - trailing - gap : width;
    return {{0, std::max(room, 0.0)}, {width - trailing, trailing}};
}

std::vector<Span> columns(int count, double width, double spacing) {
    std::vector<Span> spans;
    if (count <= 0) return spans;
    const double each = std::max((width - spacing * (count - 1)) / count, 0.0);
    for (int column = 0; column < count; ++column) spans.push_back({column * (each + spacing), each});
    return spans;
}

std::vector<Span> labelledColumns(const std::vector<double>& labelWidths, double width, double spacing) {
    constexpr double kLeastFigure = 50;
    const auto count = static_cast<int>(labelWidths.size());
    double left = width - spacing * (2 * count - 1);
    for (const double labelWidth : labelWidths) left -= labelWidth;
    if (left < kLeastFigure * count) return columns(count, width, spacing);
    std::vector<Span> spans;
    double at = 0;
    for (const double labelWidth : labelWidths) {
        spans.push_back({at, labelWidth + spacing + left / count});
        at = spans.back().right() + spacing;
    }
    return spans;
}

std::vector<Span> twoColumns(double width) {
    constexpr double kSpacing = 10;
    constexpr double kLeast = 10;
    return columns(2, std::max(width, 2 * kLeast + kSpacing), kSpacing);
}

BarRowPlaces barRow(double width, double labelWidth, double valueWidth) {
    constexpr double kSpacing = 8;
    const double texts = std::max(width * 7 / 8 - 2 * kSpacing, 0.0);
    const double value = std::min(valueWidth, std::max(texts * 2 / 3, texts - labelWidth));
    const double label = std::min(labelWidth, texts - value);
    const double barLeft = label > 0 ? label + kSpacing : 0;
    const double barRight = value > 0 ? width - value - kSpacing : width;
    return {{0, label}, {barLeft, std::max(barRight - barLeft, 0.0)}, {width - value, value}};
}

ProcessPlaces processRow(double width, const std::vector<double>& valueWidths) {
    constexpr double kSpacing = 6;
    constexpr double kIcon = 13;
    double wanted = 0;
    for (const double valueWidth : valueWidths) wanted += valueWidth + kSpacing;
    const double most = width * 2 / 3;
    const double scale = wanted > most ? most / wanted : 1;

    ProcessPlaces places;
    double right = width;
    for (auto valueWidth = valueWidths.rbegin(); valueWidth != valueWidths.rend(); ++valueWidth) {
        const double box = *valueWidth * scale;
        places.values.push_back({right - box, box});
        right -= box + kSpacing * scale;
    }
    std::ranges::reverse(places.values);
    places.icon = {0, std::min(kIcon, std::max(right, 0.0))};
    const double nameLeft = kIcon + kSpacing;
    places.name = {nameLeft, std::max(right - nameLeft, 0.0)};
    return places;
}

ButtonRows::ButtonRows(int count, int width, int side, int spacing)
    : m_count(count),
      m_width(width),
      m_side(side),
      m_spacing(spacing),
      m_perRow(std::max(1, (width + spacing) / (side + spacing))) {}

ButtonRows::Corner ButtonRows::corner(int index) const {
    const int row = index / m_perRow;
    const int inRow = std::min(m_perRow, m_count - row * m_perRow);
    const int rowWidth = inRow * m_side + (inRow - 1) * m_spacing;
    const int left = (m_width - rowWidth) / 2;
    return {left + index % m_perRow * (m_side + m_spacing), row * (m_side + m_spacing)};
}

int ButtonRows::height() const {
    if (m_count <= 0) return 0;
    const int rows = (m_count + m_perRow - 1) / m_perRow;
    return rows * m_side + (rows - 1) * m_spacing;
}

}  // namespace velmora::RowGeometry
