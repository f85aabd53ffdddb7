#include "panels/kit/ChipPlacement.h"

#include "panels/kit/GraphHoverInfo.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr QRectF kGraph(16, 40, 200, 32);
constexpr QSizeF kPanel(300, 400);
constexpr QSizeF kChip(80, 40);

GraphHoverInfo at(std::optional<double> lineFraction) {
    GraphHoverInfo info;
    info.lineFraction = lineFraction;
    return info;
}

TEST(ChipPlacement, ChipStandsRightOfTheLineInTheLeftHalf) {
    const QPointF middle = chipPosition(at(0.4), kGraph, kPanel, kChip);
    EXPECT_DOUBLE_EQ(middle.x(), 16 + 80 + 5 + 40);
}

TEST(ChipPlacement, ChipFlipsToTheLeftOfTheLineAtTheRight) {
    const QPointF middle = chipPosition(at(0.6), kGraph, kPanel, kChip);
    EXPECT_DOUBLE_EQ(middle.x(), 16 + 120 - 5 - 40);
}

TEST(ChipPlacement, ExactlyAtTheTurningPointItStaysRight) {
    const QPointF middle = chipPosition(at(0.55), kGraph, kPanel, kChip);
    EXPECT_DOUBLE_EQ(middle.x(), 16 + 110 + 5 + 40);
}

TEST(ChipPlacement, WithoutALineItIsCentredOnTheGraph) {
    EXPECT_DOUBLE_EQ(chipPosition(at(std::nullopt), kGraph, kPanel, kChip).x(), 116);
}

TEST(ChipPlacement, ChipStandsBelowTheGraph) {
    EXPECT_DOUBLE_EQ(chipPosition(at(0.4), kGraph, kPanel, kChip).y(), 72 + 6 + 20);
}

TEST(ChipPlacement, ChipGoesAboveWhereItWouldPassTheLowerEdge) {
    const QRectF low(16, 330, 200, 32);
    // 362 + 6 + 40 is beyond 398.
    EXPECT_DOUBLE_EQ(chipPosition(at(0.4), low, kPanel, kChip).y(), 330 - 6 - 20);
    // 350 + 6 + 40 is 396, and below the graph is room.
    EXPECT_DOUBLE_EQ(chipPosition(at(0.4), low.translated(0, -12), kPanel, kChip).y(), 350 + 6 + 20);
    // 352 + 6 + 40 touches 398 and is not beyond.
    EXPECT_DOUBLE_EQ(chipPosition(at(0.4), low.translated(0, -10), kPanel, kChip).y(), 352 + 6 + 20);
}

TEST(ChipPlacement, ChipStaysTwoFromTheSides) {
    const QRectF wide(0, 40, 300, 32);
    EXPECT_DOUBLE_EQ(chipPosition(at(0.56), wide, kPanel, {250, 40}).x(), 127);
    EXPECT_DOUBLE_EQ(chipPosition(at(0.5), wide, kPanel, {250, 40}).x(), 300 - 125 - 2);
}

TEST(ChipPlacement, UnmeasuredChipCountsAsTwentyBySixteen) {
    const QPointF middle = chipPosition(at(0.0), kGraph, kPanel, {0, 0});
    EXPECT_DOUBLE_EQ(middle.x(), 16 + 5 + 10);
    EXPECT_DOUBLE_EQ(middle.y(), 72 + 6 + 8);
}

TEST(ChipPlacement, ChipWiderThanThePanelBeginsAtItsLeftEdge) {
    EXPECT_DOUBLE_EQ(chipPosition(at(0.4), kGraph, kPanel, {400, 40}).x(), 202);
}

}  // namespace
}  // namespace velmora
