#include "panels/kit/GraphGeometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace velmora {
namespace {

constexpr QSizeF kSize(240, 30);
constexpr double kSlot = 4;
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

void expectRect(const QRectF& rect, double left, double top, double width, double height) {
    EXPECT_NEAR(rect.left(), left, 1e-9);
    EXPECT_NEAR(rect.top(), top, 1e-9);
    EXPECT_NEAR(rect.width(), width, 1e-9);
    EXPECT_NEAR(rect.height(), height, 1e-9);
}

void expectInside(const QRectF& rect) {
    EXPECT_GE(rect.left(), 0);
    EXPECT_GE(rect.top(), -1e-9);
    EXPECT_LE(rect.right(), kSize.width() + 1e-9);
    EXPECT_LE(rect.bottom(), kSize.height() + 1e-9);
}

TEST(GraphGeometry, BarLeavesOneOfItsSlotFree) {
    EXPECT_DOUBLE_EQ(GraphGeometry::bar(0, 240).left, 0);
    EXPECT_DOUBLE_EQ(GraphGeometry::bar(0, 240).width, 3);
    EXPECT_DOUBLE_EQ(GraphGeometry::bar(59, 240).left, 236);
}

TEST(GraphGeometry, BarIsAtLeastOneWide) {
    EXPECT_DOUBLE_EQ(GraphGeometry::bar(0, 90).width, 1);
    EXPECT_DOUBLE_EQ(GraphGeometry::bar(0, 0).width, 1);
}

TEST(GraphGeometry, HoverLineStandsInTheMiddleOfItsSlot) {
    EXPECT_DOUBLE_EQ(GraphGeometry::lineFraction(0), 0.5 / 60);
    EXPECT_DOUBLE_EQ(GraphGeometry::lineFraction(59), 59.5 / 60);
}

TEST(StackedBars, SystemStandsOnTopOfUser) {
    const std::vector<double> user = {0.5};
    const std::vector<double> system = {0.2};
    const auto bars = GraphGeometry::stackedBars(user, system, kSize);
    ASSERT_EQ(bars.user.size(), 1U);
    ASSERT_EQ(bars.system.size(), 1U);
    expectRect(bars.user[0], 236, 15, 3, 15);
    expectRect(bars.system[0], 236, 9, 3, 6);
}

TEST(StackedBars, FewerThanSixtyValuesStandAtTheRightEdge) {
    const std::vector<double> values(5, 0.5);
    const auto bars = GraphGeometry::stackedBars(values, values, kSize);
    ASSERT_EQ(bars.user.size(), 5U);
    for (std::size_t index = 0; index < 5; ++index) {
        EXPECT_DOUBLE_EQ(bars.user[index].left(), (55 + static_cast<double>(index)) * kSlot);
        EXPECT_DOUBLE_EQ(bars.system[index].left(), bars.user[index].left());
    }
}

TEST(StackedBars, MissingValueCountsAsZero) {
    const std::vector<double> user = {0.5, 0.5};
    const std::vector<double> system = {0.2};
    const auto bars = GraphGeometry::stackedBars(user, system, kSize);
    EXPECT_EQ(bars.user.size(), 2U);
    ASSERT_EQ(bars.system.size(), 1U);
    EXPECT_DOUBLE_EQ(bars.system[0].left(), 59 * kSlot);
}

TEST(StackedBars, NoValuesGiveNoBars) {
    const auto bars = GraphGeometry::stackedBars({}, {}, kSize);
    EXPECT_TRUE(bars.user.empty());
    EXPECT_TRUE(bars.system.empty());
}

TEST(StackedBars, LoadBeyondTheWholeStaysInside) {
    const std::vector<double> user = {0.8, 7, kInfinity, kNoNumber, -1};
    const std::vector<double> system = {0.8, 7, 0.5, kNoNumber, -1};
    const auto bars = GraphGeometry::stackedBars(user, system, kSize);
    for (const QRectF& bar : bars.user) expectInside(bar);
    for (const QRectF& bar : bars.system) expectInside(bar);
    expectRect(bars.user[0], 55 * kSlot, 6, 3, 24);
    expectRect(bars.system[0], 55 * kSlot, 0, 3, 6);
}

TEST(MirroredBars, BothDirectionsShareOneScale) {
    const std::vector<double> top = {1000};
    const std::vector<double> bottom = {4000};
    const auto bars = GraphGeometry::mirroredBars(top, bottom, kSize);
    EXPECT_EQ(bars.peak, 4000);
    ASSERT_EQ(bars.top.size(), 1U);
    ASSERT_EQ(bars.bottom.size(), 1U);
    expectRect(bars.top[0], 236, 11.25, 3, 3.75);
    expectRect(bars.bottom[0], 236, 15, 3, 15);
}

TEST(MirroredBars, AllZerosHaveAPeakOfOneAndNoBars) {
    const std::vector<double> zeros(60, 0.0);
    const auto bars = GraphGeometry::mirroredBars(zeros, zeros, kSize);
    EXPECT_EQ(bars.peak, 1);
    EXPECT_TRUE(bars.top.empty());
    EXPECT_TRUE(bars.bottom.empty());
}

TEST(MirroredBars, FewerThanSixtyValuesStandAtTheRightEdge) {
    const std::vector<double> values(3, 10.0);
    const auto bars = GraphGeometry::mirroredBars(values, {}, kSize);
    ASSERT_EQ(bars.top.size(), 3U);
    EXPECT_DOUBLE_EQ(bars.top[0].left(), 57 * kSlot);
    EXPECT_DOUBLE_EQ(bars.top[2].left(), 59 * kSlot);
    EXPECT_TRUE(bars.bottom.empty());
}

TEST(MirroredBars, BadFiguresNeitherScaleNorShow) {
    const std::vector<double> top = {kInfinity, kNoNumber, -9e9, 50};
    const auto bars = GraphGeometry::mirroredBars(top, {}, kSize);
    EXPECT_EQ(bars.peak, 50);
    ASSERT_EQ(bars.top.size(), 1U);
    expectRect(bars.top[0], 236, 0, 3, 15);
}

TEST(TemperatureLine, LowLiesAtTheBottomAndHighAtTheTop) {
    std::vector<double> values(60, 40.0);
    values.front() = 30;
    values.back() = 50;
    const QPolygonF line = GraphGeometry::temperatureLine(values, 30, 50, kSize);
    ASSERT_EQ(line.size(), 60);
    EXPECT_EQ(line.front(), QPointF(0, 30));
    EXPECT_EQ(line.back(), QPointF(240, 0));
    EXPECT_DOUBLE_EQ(line[30].y(), 15);
    EXPECT_DOUBLE_EQ(line[30].x(), 240.0 / 59 * 30);
}

TEST(TemperatureLine, ShortSeriesEndsAtTheRightEdge) {
    const std::vector<double> values = {40, 40};
    const QPolygonF line = GraphGeometry::temperatureLine(values, 30, 50, kSize);
    ASSERT_EQ(line.size(), 2);
    EXPECT_DOUBLE_EQ(line[0].x(), 240.0 / 59 * 58);
    EXPECT_DOUBLE_EQ(line[1].x(), 240);
}

TEST(TemperatureLine, RangeStandsForAtLeastOneDegree) {
    const std::vector<double> values = {40.5};
    const QPolygonF line = GraphGeometry::temperatureLine(values, 40, 40, kSize);
    EXPECT_DOUBLE_EQ(line.front().y(), 15);
}

TEST(TemperatureLine, FrostIsDrawnWithinItsRange) {
    const std::vector<double> values = {-10};
    const QPolygonF line = GraphGeometry::temperatureLine(values, -20, 0, kSize);
    EXPECT_DOUBLE_EQ(line.front().y(), 15);
}

TEST(TemperatureLine, BadFiguresStayInside) {
    const std::vector<double> values = {kNoNumber, kInfinity, -kInfinity, 1e9, -1e9};
    for (const QPointF point : GraphGeometry::temperatureLine(values, 30, 50, kSize)) {
        EXPECT_GE(point.y(), 0);
        EXPECT_LE(point.y(), 30);
    }
    for (const QPointF point : GraphGeometry::temperatureLine(values, kNoNumber, kInfinity, kSize)) {
        EXPECT_GE(point.y(), 0);
        EXPECT_LE(point.y(), 30);
    }
}

TEST(BatteryBars, LevelIsTheShareOfTheHeight) {
    const std::vector<double> levels = {0.5};
    const auto bars = GraphGeometry::batteryBars(levels, {true}, kSize);
    ASSERT_EQ(bars.size(), 1U);
    expectRect(bars[0].rect, 236, 15, 3, 15);
    EXPECT_TRUE(bars[0].plugged);
}

TEST(BatteryBars, EmptyBatteryIsOneTall) {
    const std::vector<double> levels = {0, kNoNumber, -4};
    for (const auto& bar : GraphGeometry::batteryBars(levels, {}, kSize)) {
        EXPECT_DOUBLE_EQ(bar.rect.height(), 1);
        EXPECT_DOUBLE_EQ(bar.rect.bottom(), 30);
    }
}

TEST(BatteryBars, LevelPastTheEndOfPluggedWasNotPlugged) {
    const std::vector<double> levels = {1, 1, 1};
    const auto bars = GraphGeometry::batteryBars(levels, {true, true}, kSize);
    ASSERT_EQ(bars.size(), 3U);
    EXPECT_TRUE(bars[0].plugged);
    EXPECT_TRUE(bars[1].plugged);
    EXPECT_FALSE(bars[2].plugged);
}

TEST(BatteryBars, FewerThanSixtyLevelsStandAtTheRightEdge) {
    const std::vector<double> levels(2, 1.0);
    const auto bars = GraphGeometry::batteryBars(levels, {}, kSize);
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_DOUBLE_EQ(bars[0].rect.left(), 58 * kSlot);
}

TEST(BatteryBars, OverfullBatteryStaysInside) {
    const std::vector<double> levels = {1.4, kInfinity};
    for (const auto& bar : GraphGeometry::batteryBars(levels, {}, kSize)) expectInside(bar.rect);
}

}  // namespace
}  // namespace velmora
