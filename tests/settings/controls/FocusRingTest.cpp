#include "settings/controls/FocusRing.h"

#include "look/Theme.h"
#include "settings/Ground.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace velmora {
namespace {

constexpr QRectF kBounds(10, 10, 80, 30);

QImage ringOver(const QColor& ground, RingGround kind) {
    QImage picture(100, 50, QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    QPainter painter(&picture);
    paintFocusRing(painter, kBounds, 7, kind);
    return picture;
}

TEST(FocusRingTest, RingIsTwoPointsOfTheAccentColorInsideTheEdge) {
    const QImage picture = ringOver(Qt::white, RingGround::field);
    for (const int y : {10, 11}) EXPECT_TRUE(isColor(picture.pixelColor(50, y), Theme::accent));
    for (const int y : {9, 12}) EXPECT_TRUE(isColor(picture.pixelColor(50, y), Qt::white));
}

TEST(FocusRingTest, OnTheAccentColorItIsLightAndLeavesTheEdge) {
    const QImage picture = ringOver(Theme::accent, RingGround::accent);
    EXPECT_TRUE(isColor(picture.pixelColor(50, 10), Theme::accent));
    EXPECT_TRUE(isColor(picture.pixelColor(50, 11), Qt::white));
    EXPECT_TRUE(isColor(picture.pixelColor(50, 13), Theme::accent));
}

TEST(FocusRingTest, NothingIsDrawnOutsideTheBounds) {
    const QImage picture = ringOver(Qt::white, RingGround::field);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (kBounds.contains(QPointF(x + 0.5, y + 0.5))) continue;
            EXPECT_TRUE(isColor(picture.pixelColor(x, y), Qt::white)) << x << " " << y;
        }
    }
}

TEST(FocusRingTest, BoundsWithoutRoomDoNoHarm) {
    QImage picture(10, 10, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    paintFocusRing(painter, QRectF(0, 0, 1, 1), 40, RingGround::accent);
    paintFocusRing(painter, QRectF(), -3, RingGround::field);
}

TEST(FocusRingTest, FocusShowsToTheKeyboardOnly) {
    for (const auto reason : {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason}) {
        EXPECT_TRUE(focusShows(reason, false));
    }
    for (const auto reason : {Qt::MouseFocusReason, Qt::OtherFocusReason}) {
        EXPECT_FALSE(focusShows(reason, true));
    }
    for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
        EXPECT_TRUE(focusShows(reason, true));
        EXPECT_FALSE(focusShows(reason, false));
    }
}

}  // namespace
}  // namespace velmora
