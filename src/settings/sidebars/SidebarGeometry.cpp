#include "settings/sidebars/SidebarGeometry.h"

#include "settings/sidebars/IconChip.h"

#include <algorithm>

namespace velmora::SidebarGeometry {
namespace {

QRect middle(int left, int side, const QSize& row) {
    return {left, (row.height() - side) / 2, side, side};
}

QRect between(int left, int right, const QSize& row) {
    return {left, 0, std::max(0, right - left), row.height()};
}

}  // namespace

Level1 level1(const QSize& row, int countWidth) {
    constexpr int kInset = 8;
    constexpr int kSpacing = 10;
    const QRect chip = middle(kInset, IconChip::kSide, row);
    const int left = kInset + IconChip::kSide + kSpacing;
    const int right = row.width() - kInset;
    if (countWidth <= 0) return {chip, between(left, right, row), QRect()};
    return {chip, between(left, right - countWidth - kSpacing, row), between(right - countWidth, right, row)};
}

Level2 level2(const QSize& row) {
    constexpr int kInset = 9;
    constexpr int kSpacing = 8;
    constexpr int kSymbolWidth = 16;
    constexpr int kDot = 6;
    const int dotLeft = row.width() - kInset - kDot;
    return {middle(kInset, kSymbolWidth, row),
            between(kInset + kSymbolWidth + kSpacing, dotLeft - kSpacing, row), middle(dotLeft, kDot, row)};
}

}  // namespace velmora::SidebarGeometry
