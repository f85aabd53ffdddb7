#include "panels/kit/RowGeometry.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using RowGeometry::ButtonRows;
using RowGeometry::Span;

TEST(RowEnds, FigureStandsAtTheRightEdge) {
    const auto ends = RowGeometry::ends(200, 60, 40, 8);
    EXPECT_DOUBLE_EQ(ends.trailing.left, 160);
    EXPECT_DOUBLE_EQ(ends.trailing.width, 40);
    EXPECT_DOUBLE_EQ(ends.leading.left, 0);
    EXPECT_DOUBLE_EQ(ends.leading.right(), 152);
}

TEST(RowEnds, LongLabelEndsBeforeTheFigure) {
    const auto ends = RowGeometry::ends(200, 900, 40, 8);
    EXPECT_DOUBLE_EQ(ends.leading.right(), 152);
    EXPECT_DOUBLE_EQ(ends.trailing.width, 40);
}

TEST(RowEnds, LongFigureMayUseWhatTheLabelLeaves) {
    const auto ends = RowGeometry::ends(200, 20, 900, 8);
    EXPECT_DOUBLE_EQ(ends.trailing.width, 172);
    EXPECT_DOUBLE_EQ(ends.leading.right(), 20);
}

TEST(RowEnds, OfTwoLongTextsTheFigureGetsTwoThirds) {
    const auto ends = RowGeometry::ends(210, 900, 900, 8);
    EXPECT_DOUBLE_EQ(ends.trailing.width, 140);
    EXPECT_DOUBLE_EQ(ends.leading.right(), 62);
}

TEST(RowEnds, WithoutAFigureTheLabelHasTheWholeRow) {
    EXPECT_DOUBLE_EQ(RowGeometry::ends(200, 900, 0, 8).leading.width, 200);
}

TEST(RowEnds, RowWithoutWidthHasNothing) {
    const auto ends = RowGeometry::ends(0, 10, 10, 8);
    EXPECT_DOUBLE_EQ(ends.leading.width, 0);
    EXPECT_DOUBLE_EQ(ends.trailing.width, 0);
}

TEST(TwoColumns, AreTenApartAndEquallyWide) {
    const auto spans = RowGeometry::twoColumns(268);
    ASSERT_EQ(spans.size(), 2U);
    EXPECT_DOUBLE_EQ(spans[0].left, 0);
    EXPECT_DOUBLE_EQ(spans[0].width, 129);
    EXPECT_DOUBLE_EQ(spans[1].left, 139);
    EXPECT_DOUBLE_EQ(spans[1].right(), 268);
}

TEST(TwoColumns, AreAtLeastTenWideEach) {
    const auto spans = RowGeometry::twoColumns(5);
    EXPECT_DOUBLE_EQ(spans[0].width, 10);
    EXPECT_DOUBLE_EQ(spans[1].width, 10);
}

TEST(LabelledColumns, FiguresShareWhatTheLabelsLeave) {
    const auto spans = RowGeometry::labelledColumns({60, 80}, 268, 5);
    ASSERT_EQ(spans.size(), 2U);
    // 268 less both labels and three gaps leaves 113.
    EXPECT_DOUBLE_EQ(spans[0].width, 60 + 5 + 56.5);
    EXPECT_DOUBLE_EQ(spans[1].left, spans[0].right() + 5);
    EXPECT_DOUBLE_EQ(spans[1].right(), 268);
}

TEST(LabelledColumns, LabelsThatAreTooLongGetEqualColumns) {
    const auto spans = RowGeometry::labelledColumns({900, 10}, 205, 5);
    EXPECT_DOUBLE_EQ(spans[0].width, 100);
    EXPECT_DOUBLE_EQ(spans[1].left, 105);
}

TEST(LabelledColumns, NoPairsHaveNoColumns) {
    EXPECT_TRUE(RowGeometry::labelledColumns({}, 268, 5).empty());
}

TEST(BarRow, BarFillsTheRoomBetweenLabelAndFigure) {
    const auto places = RowGeometry::barRow(268, 24, 32);
    EXPECT_DOUBLE_EQ(places.label.width, 24);
    EXPECT_DOUBLE_EQ(places.bar.left, 32);
    EXPECT_DOUBLE_EQ(places.bar.right(), 268 - 32 - 8);
    EXPECT_DOUBLE_EQ(places.value.right(), 268);
}

TEST(BarRow, LongTextsLeaveAnEighthToTheBar) {
    for (const double label : {10.0, 500.0}) {
        for (const double value : {10.0, 500.0}) {
            const auto places = RowGeometry::barRow(240, label, value);
            EXPECT_GE(places.bar.width, 30 - 1e-9);
            EXPECT_LE(places.label.right() + 8, places.bar.left + 1e-9);
            EXPECT_LE(places.bar.right() + 8, places.value.left + 1e-9);
        }
    }
}

TEST(BarRow, WithoutTextsTheBarHasTheWholeRow) {
    const auto places = RowGeometry::barRow(240, 0, 0);
    EXPECT_DOUBLE_EQ(places.bar.left, 0);
    EXPECT_DOUBLE_EQ(places.bar.width, 240);
}

TEST(ProcessPlaces, NameStandsBetweenIconAndFigure) {
    const auto places = RowGeometry::processRow(268, {40});
    EXPECT_DOUBLE_EQ(places.icon.width, 13);
    EXPECT_DOUBLE_EQ(places.name.left, 19);
    EXPECT_DOUBLE_EQ(places.name.right(), 268 - 40 - 6);
    EXPECT_DOUBLE_EQ(places.values[0].left, 228);
}

TEST(ProcessPlaces, BoxesStandSixApartAtTheRightEdge) {
    const auto places = RowGeometry::processRow(268, {44, 44});
    EXPECT_DOUBLE_EQ(places.values[1].left, 224);
    EXPECT_DOUBLE_EQ(places.values[0].left, 174);
    EXPECT_DOUBLE_EQ(places.name.right(), 168);
}

TEST(ProcessPlaces, FiguresNeverTakeTheWholeRow) {
    const auto places = RowGeometry::processRow(240, {500, 500});
    EXPECT_GE(places.values[0].left, 80 - 1e-9);
    EXPECT_LE(places.values[0].right(), places.values[1].left);
    EXPECT_DOUBLE_EQ(places.values[1].right(), 240);
}

TEST(ProcessPlaces, NarrowRowHasNoName) {
    EXPECT_DOUBLE_EQ(RowGeometry::processRow(15, {44}).name.width, 0);
    EXPECT_DOUBLE_EQ(RowGeometry::processRow(0, {44}).name.width, 0);
}

TEST(ButtonRows, RowStandsInTheMiddle) {
    const ButtonRows rows(4, 284, 28, 8);
    EXPECT_EQ(rows.corner(0).x, (284 - 4 * 28 - 3 * 8) / 2);
    EXPECT_EQ(rows.corner(3).x, rows.corner(0).x + 3 * 36);
    EXPECT_EQ(rows.corner(3).y, 0);
    EXPECT_EQ(rows.height(), 28);
}

TEST(ButtonRows, WhatDoesNotFitGoesIntoAnotherRow) {
    const ButtonRows rows(10, 284, 28, 8);
    EXPECT_EQ(rows.corner(7).y, 0);
    EXPECT_EQ(rows.corner(8).y, 36);
    EXPECT_EQ(rows.height(), 64);
    EXPECT_LE(rows.corner(7).x + 28, 284);
}

TEST(ButtonRows, NoButtonsTakeNoRoom) {
    EXPECT_EQ(ButtonRows(0, 284, 28, 8).height(), 0);
}

}  // namespace
}  // namespace velmora
