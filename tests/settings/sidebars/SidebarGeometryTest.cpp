#include "settings/sidebars/SidebarGeometry.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SidebarGeometryTest, ATabsRowHasItsChipEightPointsFromTheEdge) {
    const auto parts = SidebarGeometry::level1(QSize(200, 36), 0);
    EXPECT_EQ(parts.chip, QRect(8, 5, 26, 26));
    EXPECT_EQ(parts.title.left(), 8 + 26 + 10);
    EXPECT_EQ(parts.title.right() + 1, 192);
    EXPECT_TRUE(parts.count.isEmpty());
}

TEST(SidebarGeometryTest, ACountStandsAtTheRightAndTheTitleEndsBeforeIt) {
    const auto parts = SidebarGeometry::level1(QSize(200, 36), 25);
    EXPECT_EQ(parts.count.right() + 1, 192);
    EXPECT_EQ(parts.count.width(), 25);
    EXPECT_EQ(parts.title.right() + 1, parts.count.left() - 10);
}

TEST(SidebarGeometryTest, AModulesRowHasSymbolLabelAndDotInOneLine) {
    const auto parts = SidebarGeometry::level2(QSize(182, 30));
    EXPECT_EQ(parts.symbol, QRect(9, 7, 16, 16));
    EXPECT_EQ(parts.label.left(), 9 + 16 + 8);
    EXPECT_EQ(parts.dot, QRect(182 - 9 - 6, 12, 6, 6));
    EXPECT_EQ(parts.label.right() + 1, parts.dot.left() - 8);
}

TEST(SidebarGeometryTest, ARowThatIsTooNarrowHasNoTextAndNothingNegative) {
    for (const int width : {0, 10, 40}) {
        EXPECT_GE(SidebarGeometry::level1(QSize(width, 36), 25).title.width(), 0);
        EXPECT_GE(SidebarGeometry::level2(QSize(width, 30)).label.width(), 0);
    }
}

}  // namespace
}  // namespace velmora
