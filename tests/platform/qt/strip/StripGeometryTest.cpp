#include "platform/qt/strip/StripGeometry.h"

#include <gtest/gtest.h>

#include <ostream>

namespace velmora {

void PrintTo(const Strut& strut, std::ostream* out) {
    *out << "top " << strut.top << ", columns " << strut.startX << " to " << strut.endX;
}

namespace {

using StripGeometry::kHeight;

const QRect kScreen(0, 0, 1920, 1080);

TEST(StripGeometry, StripIsAsHighAsAnImageAndTwoMargins) {
    EXPECT_EQ(kHeight, 26);
}

TEST(StripGeometry, CellIsSixWiderThanItsImage) {
    const auto cells = StripGeometry::cells({60, 35});
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[0], QRect(0, 0, 66, 26));
    EXPECT_EQ(cells[1], QRect(66, 0, 41, 26));
    EXPECT_EQ(StripGeometry::totalWidth({60, 35}), 107);
}

TEST(StripGeometry, DockIsRightAlignedAtTheTop) {
    EXPECT_EQ(StripGeometry::dock(107, kScreen, kScreen, std::nullopt), QRect(1813, 0, 107, 26));
}

TEST(StripGeometry, DockGoesBelowAPanelAtTheTopAndBesideOneAtTheRight) {
    EXPECT_EQ(StripGeometry::dock(107, kScreen, QRect(0, 30, 1880, 1050), std::nullopt),
              QRect(1773, 30, 107, 26));
}

TEST(StripGeometry, RoomThatTheDockItselfTookDoesNotPushItDown) {
    const QRect present(1813, 0, 107, 26);
    EXPECT_EQ(StripGeometry::dock(107, kScreen, QRect(0, 26, 1920, 1054), present), present);
}

TEST(StripGeometry, DockThatOthersPutBelowDoesNotPushItDown) {
    const QRect present(1813, 0, 107, 26);
    const QRect available(0, 56, 1920, 1024);
    EXPECT_EQ(StripGeometry::dock(107, kScreen, available, present, {QRect(0, 26, 1920, 30)}), present);
}

TEST(StripGeometry, PanelThatLiesOverTheDockPushesItDown) {
    const QRect present(1813, 0, 107, 26);
    const QRect available(0, 30, 1920, 1050);
    EXPECT_EQ(StripGeometry::dock(107, kScreen, available, present, {QRect(0, 0, 1920, 30)}),
              QRect(1813, 30, 107, 26));
    EXPECT_EQ(StripGeometry::dock(107, kScreen, available, present), QRect(1813, 30, 107, 26));
}

TEST(StripGeometry, DockThatGrowsStaysAtItsHeightAndAtTheRight) {
    EXPECT_EQ(StripGeometry::dock(173, kScreen, QRect(0, 26, 1920, 1054), QRect(1813, 0, 107, 26)),
              QRect(1747, 0, 173, 26));
}

TEST(StripGeometry, DockOfAnotherScreenIsNoReasonToStay) {
    const QRect second(1920, 0, 1280, 1024);
    EXPECT_EQ(StripGeometry::dock(107, second, QRect(1920, 26, 1280, 998), QRect(1813, 0, 107, 26)),
              QRect(3093, 26, 107, 26));
}

TEST(StripGeometry, DockWiderThanTheScreenBeginsAtItsLeftEdge) {
    EXPECT_EQ(StripGeometry::dock(2000, kScreen, kScreen, std::nullopt).x(), 0);
}

TEST(StripGeometry, TopBarStripLiesRightOfTheClock) {
    const QRect strip = StripGeometry::topBar(400, kScreen, QRect(0, 32, 1920, 1048));
    EXPECT_EQ(strip, QRect(1096, 3, 400, 26));
}

TEST(StripGeometry, TopBarStripKeepsOffTheIndicators) {
    const QRect screen(0, 0, 1280, 800);
    const QRect strip = StripGeometry::topBar(400, screen, QRect(0, 27, 1280, 773));
    EXPECT_EQ(strip, QRect(680, 0, 400, 26));
}

TEST(StripGeometry, StrutAtRatioOneIsTheDockItself) {
    EXPECT_EQ(StripGeometry::strut(QRect(1813, 0, 107, 26), kScreen, 1), (Strut{26, 1813, 1919}));
}

TEST(StripGeometry, StrutCountsDevicePixels) {
    EXPECT_EQ(StripGeometry::strut(QRect(853, 0, 107, 26), QRect(0, 0, 960, 540), 2),
              (Strut{52, 1706, 1919}));
    EXPECT_EQ(StripGeometry::strut(QRect(1173, 0, 107, 26), QRect(0, 0, 1280, 720), 1.5),
              (Strut{39, 1759, 1919}));
}

TEST(StripGeometry, StrutBelowAPanelReservesTheRoomOfBoth) {
    EXPECT_EQ(StripGeometry::strut(QRect(1813, 30, 107, 26), kScreen, 1), (Strut{56, 1813, 1919}));
}

TEST(StripGeometry, StrutOnASecondScreenCountsFromTheDesktopsEdge) {
    const QRect second(1920, 100, 1280, 1024);
    EXPECT_EQ(StripGeometry::strut(QRect(3093, 100, 107, 26), second, 1), (Strut{126, 3093, 3199}));
    EXPECT_EQ(StripGeometry::strut(QRect(2453, 100, 107, 26), QRect(1920, 100, 640, 512), 2),
              (Strut{152, 2986, 3199}));
}

}  // namespace
}  // namespace velmora
