#include "platform/PanelPlacement.h"

#include <gtest/gtest.h>

#include <ostream>

namespace velmora {

void PrintTo(const DesktopRect& rect, std::ostream* out) {
    *out << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
}

namespace {

constexpr DesktopRect kScreen{0, 0, 1920, 1080};
constexpr DesktopRect kBelowTopBar{0, 26, 1920, 1054};

TEST(PanelPlacement, AnchorInTheUpperHalfHasThePanelHangingBelow) {
    EXPECT_EQ(placePanel({500, 0, 60, 40}, {300, 400}, kScreen, kBelowTopBar),
              (DesktopRect{500, 40, 300, 400}));
}

TEST(PanelPlacement, PanelKeepsFourPointsFromTheBar) {
    EXPECT_EQ(placePanel({500, 0, 60, 26}, {300, 400}, kScreen, kBelowTopBar),
              (DesktopRect{500, 30, 300, 400}));
}

TEST(PanelPlacement, AnchorInABottomPanelHasThePanelAbove) {
    const DesktopRect available{0, 0, 1920, 1040};
    EXPECT_EQ(placePanel({700, 1040, 60, 40}, {300, 400}, kScreen, available),
              (DesktopRect{700, 636, 300, 400}));
}

TEST(PanelPlacement, PanelAtTheRightEdgeMovesLeft) {
    EXPECT_EQ(placePanel({1900, 0, 20, 26}, {300, 400}, kScreen, kBelowTopBar),
              (DesktopRect{1616, 30, 300, 400}));
}

TEST(PanelPlacement, PanelAtTheLeftEdgeMovesRight) {
    EXPECT_EQ(placePanel({0, 0, 1, 1}, {300, 400}, kScreen, kBelowTopBar).x, 4);
}

TEST(PanelPlacement, PanelTallerThanTheScreenIsCut) {
    EXPECT_EQ(placePanel({500, 0, 60, 26}, {300, 5000}, kScreen, kBelowTopBar),
              (DesktopRect{500, 30, 300, 1046}));
}

TEST(PanelPlacement, PanelWiderThanTheScreenIsCut) {
    EXPECT_EQ(placePanel({500, 0, 60, 26}, {5000, 400}, kScreen, kBelowTopBar),
              (DesktopRect{4, 30, 1912, 400}));
}

TEST(PanelPlacement, SecondScreenThatIsNotAlignedKeepsThePanelOnIt) {
    const DesktopRect second{1920, 200, 1280, 1024};
    EXPECT_EQ(placePanel({3100, 200, 60, 26}, {300, 400}, second, second),
              (DesktopRect{2896, 226, 300, 400}));
}

TEST(PanelPlacement, ScreenWithANegativeOriginKeepsThePanelOnIt) {
    const DesktopRect left{-1280, -100, 1280, 1024};
    EXPECT_EQ(placePanel({-40, -100, 40, 26}, {300, 400}, left, left), (DesktopRect{-304, -74, 300, 400}));
}

TEST(PanelPlacement, AnchorWithoutASizeIsAPoint) {
    EXPECT_EQ(placePanel({500, 100, 0, 0}, {300, 400}, kScreen, kBelowTopBar),
              (DesktopRect{500, 100, 300, 400}));
}

TEST(PanelPlacement, PanelThatHangsKeepsItsTopWhenItGrowsOrShrinks) {
    const Anchor anchor{500, 0, 60, 26};
    const DesktopRect panel{500, 30, 300, 400};
    EXPECT_EQ(resizePanel(panel, 500, anchor, kScreen, kBelowTopBar), (DesktopRect{500, 30, 300, 500}));
    EXPECT_EQ(resizePanel(panel, 200, anchor, kScreen, kBelowTopBar), (DesktopRect{500, 30, 300, 200}));
}

TEST(PanelPlacement, PanelThatStandsKeepsItsBottomWhenItGrowsOrShrinks) {
    const DesktopRect available{0, 0, 1920, 1040};
    const Anchor anchor{700, 1040, 60, 40};
    const DesktopRect panel{700, 636, 300, 400};
    EXPECT_EQ(resizePanel(panel, 500, anchor, kScreen, available), (DesktopRect{700, 536, 300, 500}));
    EXPECT_EQ(resizePanel(panel, 200, anchor, kScreen, available), (DesktopRect{700, 836, 300, 200}));
}

TEST(PanelPlacement, PanelGrowsNoFurtherThanFourPointsFromTheEdge) {
    EXPECT_EQ(resizePanel({500, 30, 300, 400}, 5000, {500, 0, 60, 26}, kScreen, kBelowTopBar),
              (DesktopRect{500, 30, 300, 1046}));
    EXPECT_EQ(resizePanel({700, 636, 300, 400}, 5000, {700, 1040, 60, 40}, kScreen, {0, 0, 1920, 1040}),
              (DesktopRect{700, 4, 300, 1032}));
}

TEST(PanelPlacement, PanelOfNoOrNegativeHeightIsEmpty) {
    EXPECT_EQ(resizePanel({500, 30, 300, 400}, -5, {500, 0, 60, 26}, kScreen, kBelowTopBar).height, 0);
    // Where the available part has shrunk to nothing around an open panel.
    EXPECT_EQ(resizePanel({500, 30, 300, 400}, 100, {500, 0, 60, 26}, kScreen, {0, 0, 0, 0}).height, 0);
}

}  // namespace
}  // namespace velmora
