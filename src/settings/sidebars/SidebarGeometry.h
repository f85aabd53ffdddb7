#pragma once

#include <QRect>
#include <QSize>

/// Where the parts of the sidebars' rows lie. A text's rectangle is as high as the row, and 0 wide where
/// there is no room for it.
namespace velmora::SidebarGeometry {

struct Level1 {
    QRect chip;
    QRect title;
    QRect count;  ///< Empty for a row without one.
};
Level1 level1(const QSize& row, int countWidth);
inline constexpr int kLevel1Height = 36;

struct Level2 {
    QRect symbol;
    QRect label;
    QRect dot;
};
Level2 level2(const QSize& row);
inline constexpr int kLevel2Height = 30;

}  // namespace velmora::SidebarGeometry
