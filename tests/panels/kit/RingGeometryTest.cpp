#include "panels/kit/RingGeometry.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace velmora {
namespace {

using RingGeometry::CoreGridLayout;
using RingGeometry::RingNeed;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

TEST(RingGeometry, ArcStartsAtTheTopAndRunsClockwise) {
    EXPECT_DOUBLE_EQ(RingGeometry::statArc(0.25).startDegrees, 90);
    EXPECT_DOUBLE_EQ(RingGeometry::statArc(0.25).spanDegrees, -90);
}

TEST(RingGeometry, ZeroStillShowsADot) {
    EXPECT_DOUBLE_EQ(RingGeometry::statArc(0).spanDegrees, -360 * 0.002);
}

TEST(RingGeometry, MoreThanTheWholeIsAFullCircle) {
    EXPECT_DOUBLE_EQ(RingGeometry::statArc(1.5).spanDegrees, -360);
    EXPECT_DOUBLE_EQ(RingGeometry::coreArc(1.5).spanDegrees, -360);
}

TEST(RingGeometry, DotOfACoreIsLonger) {
    EXPECT_DOUBLE_EQ(RingGeometry::coreArc(0).spanDegrees, -360 * 0.02);
}

TEST(RingGeometry, FigureThatIsNoShareShowsTheDot) {
    for (const double fraction : {kNoNumber, -1.0, -std::numeric_limits<double>::infinity()}) {
        EXPECT_DOUBLE_EQ(RingGeometry::statArc(fraction).spanDegrees, -360 * 0.002);
        EXPECT_DOUBLE_EQ(RingGeometry::coreArc(fraction).spanDegrees, -360 * 0.02);
    }
}

/// Every ring and caption lies in the row and none touches its neighbour.
void expectApartAndInside(const std::vector<RingGeometry::RingPlace>& places, double width) {
    double before = 0;
    for (const auto& place : places) {
        EXPECT_GE(place.centreX - place.width / 2, before - 1e-9);
        before = place.centreX + place.width / 2;
    }
    EXPECT_LE(before, width + 1e-9);
}

TEST(RingRowGeometry, CirclesAreTheSpacingApartAndCentred) {
    const std::vector<RingNeed> rings = {{46, 5, 30}, {46, 5, 30}};
    const auto places = RingGeometry::placeRings(rings, 26, 268);
    ASSERT_EQ(places.size(), 2U);
    EXPECT_DOUBLE_EQ(places[1].centreX - places[0].centreX, 46 + 26);
    EXPECT_DOUBLE_EQ((places[0].centreX + places[1].centreX) / 2, 134);
}

TEST(RingRowGeometry, OneRingStandsInTheMiddle) {
    const std::vector<RingNeed> rings = {{46, 5, 80}};
    EXPECT_DOUBLE_EQ(RingGeometry::placeRings(rings, 26, 268)[0].centreX, 134);
    EXPECT_DOUBLE_EQ(RingGeometry::placeRings(rings, 26, 268)[0].width, 80);
}

TEST(RingRowGeometry, SpacingGivesWayBeforeACaptionIsCut) {
    const std::vector<RingNeed> rings = {{44, 4.5, 80}, {44, 4.5, 60}, {44, 4.5, 90}};
    const auto places = RingGeometry::placeRings(rings, 26, 268);
    ASSERT_EQ(places.size(), 3U);
    EXPECT_DOUBLE_EQ(places[0].width, 80);
    EXPECT_DOUBLE_EQ(places[1].width, 60);
    EXPECT_DOUBLE_EQ(places[2].width, 90);
    expectApartAndInside(places, 268);
}

TEST(RingRowGeometry, CaptionsThatAreFarTooLongAreCut) {
    const std::vector<RingNeed> rings = {{44, 4.5, 900}, {44, 4.5, 900}, {44, 4.5, 900}};
    const auto places = RingGeometry::placeRings(rings, 26, 268);
    ASSERT_EQ(places.size(), 3U);
    expectApartAndInside(places, 268);
    for (const auto& place : places) EXPECT_GE(place.width, 48.5);
}

TEST(RingRowGeometry, RingsWithoutRoomAreLeftOut) {
    const std::vector<RingNeed> rings(20, RingNeed{46, 5, 30});
    const auto places = RingGeometry::placeRings(rings, 26, 268);
    // Four rings of 51 and three gaps of 8 fit, five of them do not.
    EXPECT_EQ(places.size(), 4U);
    expectApartAndInside(places, 268);
}

TEST(RingRowGeometry, NoRingsAndNoRoomGiveNoPlaces) {
    EXPECT_TRUE(RingGeometry::placeRings({}, 26, 268).empty());
    const std::vector<RingNeed> rings = {{46, 5, 30}};
    EXPECT_TRUE(RingGeometry::placeRings(rings, 26, 0).empty());
}

TEST(CoreGridLayout, AsManyColumnsAsFit) {
    // A core's ring is 19 wide with its stroke: 11 of them and ten gaps of 4 are 249, 12 would be 272.
    EXPECT_EQ(CoreGridLayout(268, 4).columns(), 11);
    EXPECT_EQ(CoreGridLayout(272, 4).columns(), 12);
}

TEST(CoreGridLayout, ColumnsShareTheWidth) {
    const CoreGridLayout layout(268, 4);
    const double column = (268 - 10 * 4) / 11.0;
    EXPECT_NEAR(layout.centre(0).x(), column / 2, 1e-9);
    EXPECT_NEAR(layout.centre(10).x(), 268 - column / 2, 1e-9);
}

TEST(CoreGridLayout, RowsAreFilledFromLeftToRight) {
    const CoreGridLayout layout(268, 4);
    EXPECT_NEAR(layout.centre(11).x(), layout.centre(0).x(), 1e-9);
    EXPECT_NEAR(layout.centre(11).y() - layout.centre(0).y(), 19 + 4, 1e-9);
}

TEST(CoreGridLayout, HeightIsThatOfItsRows) {
    const CoreGridLayout layout(268, 4);
    EXPECT_DOUBLE_EQ(layout.height(0), 0);
    EXPECT_DOUBLE_EQ(layout.height(1), 19);
    EXPECT_DOUBLE_EQ(layout.height(11), 19);
    EXPECT_DOUBLE_EQ(layout.height(12), 19 + 4 + 19);
    EXPECT_DOUBLE_EQ(layout.height(256), 24 * 19 + 23 * 4);
}

TEST(CoreGridLayout, BadWidthsAndSpacingsStillHaveAColumn) {
    for (const double width : {0.0, -5.0, kNoNumber}) {
        for (const double spacing : {0.0, -5.0, kNoNumber}) {
            EXPECT_EQ(CoreGridLayout(width, spacing).columns(), 1);
        }
    }
}

}  // namespace
}  // namespace velmora
