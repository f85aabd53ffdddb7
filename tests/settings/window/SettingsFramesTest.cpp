#include "settings/window/SettingsFrames.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using namespace SettingsFrames;

const QRect kScreen(0, 0, 1440, 900);
const QMargins kTitleBar(2, 28, 2, 2);
const QMargins kPlain(0, 0, 0, 0);

TEST(SettingsFramesTest, TheModulesAreWiderThanTheOtherTabs) {
    EXPECT_EQ(tabWidth(SettingsTab::modules), 940);
    for (const SettingsTab tab : {SettingsTab::general, SettingsTab::account, SettingsTab::about}) {
        EXPECT_EQ(tabWidth(tab), 720);
    }
}

TEST(SettingsFramesTest, TheModulesNeedAWiderMinimum) {
    EXPECT_EQ(minimumSize(SettingsTab::modules, kScreen, kPlain), QSize(880, 480));
    EXPECT_EQ(minimumSize(SettingsTab::general, kScreen, kPlain), QSize(680, 480));
}

TEST(SettingsFramesTest, AScreenSmallerThanTheMinimumLowersItToWhatFitsBesideTheDecoration) {
    const QRect small(0, 0, 640, 360);
    EXPECT_EQ(minimumSize(SettingsTab::modules, small, kTitleBar), QSize(636, 330));
    EXPECT_EQ(minimumSize(SettingsTab::modules, QRect(), kTitleBar), QSize(880, 480)) << "no screen";
    EXPECT_EQ(minimumSize(SettingsTab::modules, std::nullopt, kTitleBar), QSize(880, 480));
    EXPECT_EQ(minimumSize(SettingsTab::general, QRect(0, 0, 3, 3), kTitleBar), QSize(1, 1));
}

TEST(SettingsFramesTest, AnOpeningWindowStandsInTheMiddleOfTheFreePartOfTheScreen) {
    const QRect belowABar(0, 40, 1440, 860);
    const QRect frame = centredFrame(SettingsTab::modules, belowABar, kPlain);
    EXPECT_EQ(frame.size(), QSize(940, 560));
    EXPECT_EQ(frame.left(), 250);
    EXPECT_EQ(frame.top(), 190);
    EXPECT_EQ(centredFrame(SettingsTab::about, belowABar, kPlain).size(), QSize(720, 560));
}

TEST(SettingsFramesTest, AnOpeningWindowIsNoLargerThanItsScreen) {
    const QRect small(100, 50, 640, 360);
    const QRect frame = centredFrame(SettingsTab::modules, small, kTitleBar);
    EXPECT_TRUE(small.contains(frame.marginsAdded(kTitleBar)));
    EXPECT_EQ(frame.size(), QSize(636, 330));
}

TEST(SettingsFramesTest, AnOpeningWindowWithoutAScreenHasItsFullSize) {
    EXPECT_EQ(centredFrame(SettingsTab::modules, std::nullopt, kTitleBar).size(), QSize(940, 560));
}

TEST(SettingsFramesTest, AWidthWithinAPointOfTheTabsStays) {
    for (const int width : {939, 940, 941}) {
        const QRect frame(10, 20, width, 600);
        EXPECT_EQ(frameForTab(SettingsTab::modules, frame, kScreen, kPlain), frame);
    }
    EXPECT_EQ(frameForTab(SettingsTab::modules, QRect(10, 20, 942, 600), kScreen, kPlain).width(), 940);
}

TEST(SettingsFramesTest, AWidenedWindowIsBroughtBackAndKeepsItsCornerAndHeight) {
    const QRect frame(30, 40, 1200, 777);
    EXPECT_EQ(frameForTab(SettingsTab::modules, frame, kScreen, kPlain), QRect(30, 40, 940, 777));
    EXPECT_EQ(frameForTab(SettingsTab::general, frame, kScreen, kPlain), QRect(30, 40, 720, 777));
}

TEST(SettingsFramesTest, NearTheRightEdgeTheWindowMovesLeftSoThatItStaysOnTheScreen) {
    const QRect frame(700, 40, 720, 560);
    const QRect moved = frameForTab(SettingsTab::modules, frame, kScreen, kPlain);
    EXPECT_EQ(moved, QRect(500, 40, 940, 560));
    EXPECT_EQ(moved.right(), kScreen.right());
}

TEST(SettingsFramesTest, TheDecorationCountsAtTheRightEdge) {
    const QRect moved = frameForTab(SettingsTab::modules, QRect(700, 40, 720, 560), kScreen, kTitleBar);
    EXPECT_EQ(moved.marginsAdded(kTitleBar).right(), kScreen.right());
}

TEST(SettingsFramesTest, AWindowThatJustTouchesTheRightEdgeDoesNotMove) {
    const QRect frame(500, 40, 720, 560);
    EXPECT_EQ(frameForTab(SettingsTab::modules, frame, kScreen, kPlain).left(), 500);
    EXPECT_EQ(frameForTab(SettingsTab::modules, frame.translated(1, 0), kScreen, kPlain).left(), 500);
}

TEST(SettingsFramesTest, AWindowNeverMovesPastTheLeftEdgeOfTheScreen) {
    const QRect secondScreen(1440, 0, 800, 600);
    const QRect moved =
        frameForTab(SettingsTab::modules, QRect(1500, 10, 720, 500), secondScreen, QMargins(0, 0, 0, 0));
    EXPECT_EQ(moved.left(), 1440);
    EXPECT_EQ(moved.width(), 800) << "and is no wider than the screen";
}

TEST(SettingsFramesTest, WithoutAScreenOnlyTheWidthChanges) {
    const QRect frame(5000, 40, 720, 560);
    EXPECT_EQ(frameForTab(SettingsTab::modules, frame, std::nullopt, kPlain), QRect(5000, 40, 940, 560));
    EXPECT_EQ(frameForTab(SettingsTab::modules, frame, QRect(), kPlain), QRect(5000, 40, 940, 560));
}

TEST(SettingsFramesTest, TheColumnsShareTheWidth) {
    const Columns modules = columns(SettingsTab::modules, QSize(940, 560));
    EXPECT_EQ(modules.level1, QRect(0, 0, 220, 560));
    EXPECT_EQ(modules.level2, QRect(220, 0, 198, 560));
    EXPECT_EQ(modules.detail, QRect(418, 0, 522, 560));
    const Columns general = columns(SettingsTab::general, QSize(720, 560));
    EXPECT_TRUE(general.level2.isEmpty());
    EXPECT_EQ(general.detail, QRect(220, 0, 500, 560));
}

TEST(SettingsFramesTest, NoColumnIsNegativeInATinyWindow) {
    for (const SettingsTab tab : kAllSettingsTabs) {
        const Columns tiny = columns(tab, QSize(10, 10));
        EXPECT_EQ(tiny.detail.width(), 0);
        EXPECT_GE(tiny.detail.left(), 0);
    }
}

}  // namespace
}  // namespace velmora
