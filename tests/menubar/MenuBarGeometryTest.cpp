#include "menubar/MenuBarGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace velmora::MenuBarGeometry {
namespace {

constexpr double kTiny = 1e-9;
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

void expectRect(const Rect& actual, const Rect& expected) {
    EXPECT_NEAR(actual.x, expected.x, kTiny);
    EXPECT_NEAR(actual.y, expected.y, kTiny);
    EXPECT_NEAR(actual.width, expected.width, kTiny);
    EXPECT_NEAR(actual.height, expected.height, kTiny);
}

std::vector<Rect> barsOf(const std::vector<double>& values) {
    return barRects(values, barGrid(plot(kGraph), kGraph.barCount));
}

TEST(MenuBarGeometry, GraphHasItsPlotAndAFrameInsideIt) {
    expectRect(plot(kGraph), {0, 2.5, 32, 17});
    expectRect(frame(plot(kGraph)), {0.25, 2.75, 31.5, 16.5});
}

TEST(MenuBarGeometry, SixteenBarsSharePlotWidthLessTwo) {
    const BarGrid grid = barGrid(plot(kGraph), kGraph.barCount);
    EXPECT_DOUBLE_EQ(grid.pitch, 1.875);
    EXPECT_DOUBLE_EQ(grid.barWidth, 1.375);
    EXPECT_DOUBLE_EQ(grid.left, 1);
    EXPECT_DOUBLE_EQ(grid.bottom, 3.5);
    EXPECT_DOUBLE_EQ(grid.height, 15);
}

TEST(MenuBarGeometry, NarrowPitchKeepsBarsOnePointWide) {
    EXPECT_DOUBLE_EQ(barGrid({0, 2.5, 18, 17}, 16).barWidth, 1);
}

TEST(MenuBarGeometry, FiveValuesStandInTheLastFiveSlots) {
    const std::vector<Rect> bars = barsOf({0.1, 0.2, 0.3, 0.4, 0.5});
    ASSERT_EQ(bars.size(), 5U);
    for (std::size_t index = 0; index < bars.size(); ++index) {
        EXPECT_NEAR(bars[index].x, 1 + 1.875 * static_cast<double>(11 + index), kTiny);
        EXPECT_NEAR(bars[index].height, 15 * 0.1 * static_cast<double>(index + 1), kTiny);
        EXPECT_DOUBLE_EQ(bars[index].y, 3.5);
    }
}

TEST(MenuBarGeometry, SixtyValuesShowOnlyTheLastSixteen) {
    std::vector<double> values(60);
    std::iota(values.begin(), values.end(), 0.0);
    for (double& value : values) value /= 60;
    const std::vector<Rect> bars = barsOf(values);
    ASSERT_EQ(bars.size(), 16U);
    EXPECT_NEAR(bars.front().height, 15 * 44 / 60.0, kTiny);
    EXPECT_DOUBLE_EQ(bars.front().x, 1);
    EXPECT_NEAR(bars.back().height, 15 * 59 / 60.0, kTiny);
    EXPECT_NEAR(bars.back().x, 1 + 1.875 * 15, kTiny);
}

TEST(MenuBarGeometry, ValueOfZeroStillShowsABarOfHeightOne) {
    EXPECT_DOUBLE_EQ(barsOf({0.0}).front().height, 1);
}

TEST(MenuBarGeometry, ValuesOutsideZeroToOneAreHeldThere) {
    EXPECT_DOUBLE_EQ(barsOf({7.0}).front().height, 15);
    EXPECT_DOUBLE_EQ(barsOf({-7.0}).front().height, 1);
    EXPECT_DOUBLE_EQ(barsOf({kNotANumber}).front().height, 1);
}

TEST(MenuBarGeometry, NoValuesAreNoBars) {
    EXPECT_TRUE(barsOf({}).empty());
}

TEST(MenuBarGeometry, NormalizeDividesByTheLargestAboveTheFloor) {
    EXPECT_EQ(normalize(std::vector<double>{5, 20, 10}, 10), (std::vector<double>{0.25, 1, 0.5}));
}

TEST(MenuBarGeometry, NormalizeDividesByTheFloorWhenAllAreBelowIt) {
    EXPECT_EQ(normalize(std::vector<double>{1, 2}, 10), (std::vector<double>{0.1, 0.2}));
}

TEST(MenuBarGeometry, NormalizeOfNothingIsNothing) {
    EXPECT_TRUE(normalize({}, 10).empty());
}

TEST(MenuBarGeometry, SharedScaleIsTheLargestOfBothOrTheFloor) {
    const std::vector<double> low = {1, 2};
    const std::vector<double> high = {3, 40};
    EXPECT_DOUBLE_EQ(sharedScale(low, high, 10), 40);
    EXPECT_DOUBLE_EQ(sharedScale(high, low, 10), 40);
    EXPECT_DOUBLE_EQ(sharedScale(low, low, 10), 10);
    EXPECT_DOUBLE_EQ(sharedScale({}, {}, 10), 10);
}

TEST(MenuBarGeometry, AllZeroSeriesScaleByTheFloorIntoBarsOfHeightOne) {
    const std::vector<double> zeros(16, 0.0);
    const double scale = sharedScale(zeros, zeros, 100000.0);
    EXPECT_DOUBLE_EQ(scale, 100000.0);
    for (const Rect& bar : barsOf(normalize(zeros, scale))) EXPECT_DOUBLE_EQ(bar.height, 1);
}

TEST(MenuBarGeometry, CoarsePixelsGetBarsAtWholePixels) {
    for (const double ratio : {1.0, 1.5}) {
        const BarGrid grid = sharpBarGrid(plot(kGraph), kGraph.barCount, ratio);
        for (std::size_t slot = 0; slot < grid.count; ++slot) {
            const double left = (grid.left + grid.pitch * static_cast<double>(slot)) * ratio;
            EXPECT_NEAR(left, std::round(left), kTiny) << ratio;
        }
        EXPECT_GE(grid.left, 0);
        EXPECT_LE(grid.left + grid.pitch * 15 + grid.barWidth, 32);
        EXPECT_DOUBLE_EQ(grid.pitch - grid.barWidth, 0.5);
    }
}

TEST(MenuBarGeometry, FinePixelsKeepTheExactBars) {
    for (const double ratio : {2.0, 2.5, 3.0}) {
        EXPECT_EQ(sharpBarGrid(plot(kGraph), kGraph.barCount, ratio), barGrid(plot(kGraph), kGraph.barCount));
    }
}

TEST(MenuBarGeometry, RatioThatFitsNoWholePitchKeepsTheExactBars) {
    EXPECT_EQ(sharpBarGrid(plot(kGraph), kGraph.barCount, 1.25), barGrid(plot(kGraph), kGraph.barCount));
}

TEST(MenuBarGeometry, AlignedRectanglesHaveEdgesOnPixelsAndKeepTheirSize) {
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const Rect rect = alignedToPixels(plot(kGraph), ratio);
        for (const double edge : {rect.x, rect.right(), kHeight - rect.y, kHeight - rect.top()}) {
            EXPECT_NEAR(edge * ratio, std::round(edge * ratio), 1e-6) << ratio;
        }
        EXPECT_NEAR(rect.height, 17, 0.5 / ratio + kTiny);
        EXPECT_NEAR(rect.y, 2.5, 1 / ratio);
    }
}

TEST(MenuBarGeometry, AlignedRectangleThatFitsPixelsStays) {
    expectRect(alignedToPixels(plot(kGraph), 2), plot(kGraph));
}

TEST(MenuBarGeometry, VialHasItsOutlineAndInside) {
    expectRect(vial().outline, {0.75, 2, 8.5, 18});
    EXPECT_DOUBLE_EQ(vial().outlineRadius, 3);
    EXPECT_DOUBLE_EQ(vial().innerRadius, 2);
    expectRect(vial().inner(), {2.25, 3.5, 5.5, 15});
}

TEST(MenuBarGeometry, VialFillsFromTheBottom) {
    const Rect inner = vial().inner();
    expectRect(vialFill(inner, 0.5), {2.25, 3.5, 5.5, 7.5});
    expectRect(vialFill(inner, 1), inner);
    expectRect(vialFill(inner, 3), inner);
}

TEST(MenuBarGeometry, EmptyVialShowsASliver) {
    expectRect(vialFill(vial().inner(), 0), {2.25, 3.5, 5.5, 1.5});
    expectRect(vialFill(vial().inner(), -1), {2.25, 3.5, 5.5, 1.5});
    expectRect(vialFill(vial().inner(), kNotANumber), {2.25, 3.5, 5.5, 1.5});
}

TEST(MenuBarGeometry, PieHasItsOutline) {
    expectRect(pieOutline(), {0.75, 2.75, 16.5, 16.5});
}

TEST(MenuBarGeometry, PieUpToOnePercentHasNoWedge) {
    EXPECT_FALSE(pieWedge(0.005));
    EXPECT_FALSE(pieWedge(0.01));
    EXPECT_FALSE(pieWedge(0));
    EXPECT_FALSE(pieWedge(-0.5));
    EXPECT_FALSE(pieWedge(kNotANumber));
}

TEST(MenuBarGeometry, PieRunsClockwiseFromTheTop) {
    EXPECT_EQ(pieWedge(0.25), (Wedge{{9, 11}, 6.75, 90, -90}));
    EXPECT_TRUE(pieWedge(0.011));
}

TEST(MenuBarGeometry, PieAtOneIsAFullDisc) {
    EXPECT_DOUBLE_EQ(pieWedge(1)->spanDegrees, -360);
    EXPECT_DOUBLE_EQ(pieWedge(1.7)->spanDegrees, -360);
}

TEST(MenuBarGeometry, LabeledBarIsAsWideAsTheWiderOfBarAndLabel) {
    EXPECT_DOUBLE_EQ(labeledBarWidth(0), 22);
    EXPECT_DOUBLE_EQ(labeledBarWidth(14.2), 22);
    EXPECT_DOUBLE_EQ(labeledBarWidth(24.1), 27);
}

TEST(MenuBarGeometry, LabeledBarStandsBelowItsLabel) {
    const Vessel bar = labeledBar(22, true);
    expectRect(bar.outline, {1, 4.5, 20, 6.5});
    EXPECT_DOUBLE_EQ(bar.outlineRadius, 2.5);
    EXPECT_DOUBLE_EQ(bar.innerRadius, 1.5);
    expectRect(bar.inner(), {2.5, 6, 17, 3.5});
    expectRect(labeledBar(27, true).outline, {3.5, 4.5, 20, 6.5});
}

TEST(MenuBarGeometry, BarWithoutLabelStandsInTheMiddle) {
    const Rect outline = labeledBar(22, false).outline;
    EXPECT_DOUBLE_EQ(outline.y, 7.75);
    EXPECT_DOUBLE_EQ(outline.y + outline.height / 2, kHeight / 2);
}

TEST(MenuBarGeometry, BarFillsFromTheLeft) {
    const Rect inner = labeledBar(22, false).inner();
    expectRect(barFill(inner, 0.5), {2.5, 9.25, 8.5, 3.5});
    expectRect(barFill(inner, 2), inner);
}

TEST(MenuBarGeometry, EmptyBarShowsASliver) {
    expectRect(barFill(labeledBar(22, false).inner(), 0), {2.5, 9.25, 1.5, 3.5});
}

TEST(MenuBarGeometry, StackedWidthIsTheWidestRoundedUpPlusTwo) {
    EXPECT_DOUBLE_EQ(stackedWidth(14.3, 20.1, 27.2), 30);
    EXPECT_DOUBLE_EQ(stackedWidth(14.3, 31.0, 27.2), 33);
    EXPECT_DOUBLE_EQ(stackedWidth(40.5, 31.0, 27.2), 43);
}

TEST(MenuBarGeometry, StackedTextsAreCentredInTheirBands) {
    const TextPlace label = stackedLabel(30, 14, 7);
    const TextPlace value = stackedValue(30, 20, 9.5);
    EXPECT_DOUBLE_EQ(label.x, 8);
    EXPECT_DOUBLE_EQ(value.x, 5);
    // On a baseline inside the line box that stands at 13, or at 2.5.
    EXPECT_GT(label.y, 13);
    EXPECT_LT(label.y, 13 + lineHeight(7) / 2);
    EXPECT_GT(value.y, 2.5);
    EXPECT_LT(value.y, 2.5 + lineHeight(9.5) / 2);
}

TEST(MenuBarGeometry, TwoLinesAreRightAlignedOnePointFromTheEdge) {
    EXPECT_DOUBLE_EQ(twoLinesWidth(20, 25.5, 36.2), 39);
    EXPECT_DOUBLE_EQ(twoLinesWidth(20, 41, 36.2), 43);
    const TextPlace top = topLine(39, 20, 9);
    const TextPlace bottom = bottomLine(39, 25.5, 9);
    EXPECT_DOUBLE_EQ(top.x, 18);
    EXPECT_DOUBLE_EQ(bottom.x, 12.5);
    EXPECT_GT(top.y, 11);
    EXPECT_LT(top.y, 11 + lineHeight(9) / 2);
    EXPECT_GT(bottom.y, 1.5);
    EXPECT_LT(bottom.y, 1.5 + lineHeight(9) / 2);
}

TEST(MenuBarGeometry, SingleTextStandsInTheMiddle) {
    EXPECT_DOUBLE_EQ(singleWidth(20.2), 23);
    const TextPlace place = singleLine(12);
    EXPECT_DOUBLE_EQ(place.x, 1);
    // Capitals of 0.71 of the size have their middle at the middle of the image.
    EXPECT_NEAR(place.y + 0.71 * 12 / 2, kHeight / 2, kTiny);
}

TEST(MenuBarGeometry, SmallerTextKeepsItsMiddle) {
    EXPECT_DOUBLE_EQ(shrunkBaseline(4, 9.5, 9.5), 4);
    EXPECT_NEAR(shrunkBaseline(4, 9.5, 7.5) + 0.71 * 7.5 / 2, 4 + 0.71 * 9.5 / 2, kTiny);
}

TEST(MenuBarGeometry, LetterColumnIsTheWidestLetterRoundedUp) {
    EXPECT_DOUBLE_EQ(letterColumn(std::vector<double>{3.2, 4.1, 3.9}), 5);
}

TEST(MenuBarGeometry, LetterColumnOfAnEmptyLabelIsFour) {
    EXPECT_DOUBLE_EQ(letterColumn({}), 4);
}

TEST(MenuBarGeometry, LettersReadDownwardsInEqualSteps) {
    const TextPlace first = columnLetter(0, 3, 5, 3, 5.5);
    const TextPlace second = columnLetter(1, 3, 5, 4, 5.5);
    const TextPlace third = columnLetter(2, 3, 5, 5, 5.5);
    EXPECT_DOUBLE_EQ(first.x, 1);
    EXPECT_DOUBLE_EQ(second.x, 0.5);
    EXPECT_DOUBLE_EQ(third.x, 0);
    EXPECT_NEAR(first.y - second.y, 19 / 3.0, kTiny);
    EXPECT_NEAR(second.y - third.y, 19 / 3.0, kTiny);
    // The first letter's capitals have their middle half a step below 20.
    EXPECT_NEAR(first.y + 0.71 * 5.5 / 2, 20 - 19 / 6.0, kTiny);
}

}  // namespace
}  // namespace velmora::MenuBarGeometry
