#include "panels/kit/HistorySlots.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace velmora {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(HistorySlots, NewestValueIsInTheLastSlot) {
    EXPECT_EQ(slotIndex(59, 60), 59U);
    EXPECT_EQ(slotIndex(59, 1), 0U);
    EXPECT_EQ(slotIndex(59, 5), 4U);
}

TEST(HistorySlots, SlotsLeftOfAShortSeriesAreEmpty) {
    EXPECT_EQ(slotIndex(55, 5), 0U);
    EXPECT_EQ(slotIndex(54, 5), std::nullopt);
    EXPECT_EQ(slotIndex(0, 5), std::nullopt);
}

TEST(HistorySlots, OfALongSeriesTheLastSixtyShow) {
    EXPECT_EQ(slotIndex(0, 100), 40U);
    EXPECT_EQ(slotIndex(59, 100), 99U);
}

TEST(HistorySlots, EmptySeriesHasNoSlot) {
    for (int slot = 0; slot < kHistorySlots; ++slot) EXPECT_EQ(slotIndex(slot, 0), std::nullopt);
}

TEST(HistorySlots, SlotOutsideOfTheGraphHasNoValue) {
    EXPECT_EQ(slotIndex(-1, 60), std::nullopt);
    EXPECT_EQ(slotIndex(60, 60), std::nullopt);
}

TEST(HistorySlots, PointerMeansTheSlotThatItIsIn) {
    EXPECT_EQ(slotAt(0, 240), 0);
    EXPECT_EQ(slotAt(3.9, 240), 0);
    EXPECT_EQ(slotAt(4, 240), 1);
    EXPECT_EQ(slotAt(239.9, 240), 59);
}

TEST(HistorySlots, PointerOutsideIsHeldWithinTheGraph) {
    EXPECT_EQ(slotAt(-20, 240), 0);
    EXPECT_EQ(slotAt(240, 240), 59);
    EXPECT_EQ(slotAt(1e12, 240), 59);
}

TEST(HistorySlots, GraphWithoutWidthHasOneSlot) {
    EXPECT_EQ(slotAt(0, 0), 0);
    EXPECT_EQ(slotAt(kNoNumber, 240), 0);
}

TEST(HistorySlots, FigureThatCannotBeDrawnIsZero) {
    const std::vector<double> values = {-3, kNoNumber, kInfinity, -kInfinity, 0.5};
    EXPECT_EQ(slotValue(values, 54), 0);
    EXPECT_EQ(slotValue(values, 55), 0);
    EXPECT_EQ(slotValue(values, 56), 0);
    EXPECT_EQ(slotValue(values, 57), 0);
    EXPECT_EQ(slotValue(values, 58), 0);
    EXPECT_EQ(slotValue(values, 59), 0.5);
}

}  // namespace
}  // namespace velmora
