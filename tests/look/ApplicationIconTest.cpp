#include "look/ApplicationIcon.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <limits>

namespace velmora {
namespace {

QImage ofIcon(int pixels) {
    return ApplicationIcon::icon()
        .pixmap(QSize(pixels, pixels), 1.0)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

/// The artwork in `box` of a picture of 140 by 140 points.
QImage artworkIn(const QRectF& box, double ratio = 1) {
    QImage picture(QSize(140, 140) * ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    ApplicationIcon::paintArtwork(painter, box);
    painter.end();
    picture.setDevicePixelRatio(1);
    return picture;
}

/// The smallest rectangle around everything that has any colour, however faint, or at least so much.
QRect paintedBox(const QImage& picture, int faintest = 1) {
    QRect box;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) >= faintest) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

bool isWhite(const QImage& picture, int x, int y) {
    return QColor(picture.pixel(x, y)).saturation() < 100 && QColor(picture.pixel(x, y)).value() > 220;
}

TEST(ApplicationIcon, HasTheSizesThatDesktopsAskFor) {
    EXPECT_THAT(
        ApplicationIcon::icon().availableSizes(),
        testing::UnorderedElementsAre(QSize(16, 16), QSize(22, 22), QSize(24, 24), QSize(32, 32),
                                      QSize(48, 48), QSize(64, 64), QSize(128, 128), QSize(256, 256)));
}

TEST(ApplicationIcon, ArtworkFillsItsShareAndTheMarginIsEmpty) {
    // 103 of 128 at 256 pixels are 206 with 25 on every side.
    const QImage picture = ofIcon(256);
    EXPECT_EQ(paintedBox(picture), QRect(25, 25, 206, 206));
    EXPECT_EQ(qAlpha(picture.pixel(128, 25)), 255);
    EXPECT_EQ(qAlpha(picture.pixel(25, 128)), 255);
    EXPECT_EQ(qAlpha(picture.pixel(128, 230)), 255);
    EXPECT_EQ(qAlpha(picture.pixel(230, 128)), 255);
}

TEST(ApplicationIcon, MarginIsEmptyAtEverySize) {
    // Where the artwork's edge falls into a pixel, smoothing may round into the next one: nobody sees so
    // little.
    constexpr int kFaintest = 8;
    for (const QSize& size : ApplicationIcon::icon().availableSizes()) {
        const int margin = static_cast<int>(size.width() * 12.5 / 128);
        const QRect artwork = QRect(QPoint(), size).adjusted(margin, margin, -margin, -margin);
        EXPECT_TRUE(artwork.contains(paintedBox(ofIcon(size.width()), kFaintest))) << size.width();
    }
}

TEST(ApplicationIcon, GroundBelongsToTheAccentsFamily) {
    const QImage picture = ofIcon(256);
    const int accent = QColor(10, 132, 255).hsvHue();
    for (const int y : {40, 128, 215}) EXPECT_NEAR(QColor(picture.pixel(40, y)).hsvHue(), accent, 8);
}

TEST(ApplicationIcon, BarsStayApartAtSixteenPixels) {
    const QImage picture = ofIcon(16);
    for (const int x : {4, 5, 7, 8, 10, 11}) EXPECT_TRUE(isWhite(picture, x, 11)) << x;
    for (const int x : {3, 6, 9, 12}) EXPECT_FALSE(isWhite(picture, x, 11)) << x;
}

TEST(ApplicationIcon, BarsReadShortTallMiddling) {
    const QImage picture = ofIcon(128);
    EXPECT_FALSE(isWhite(picture, 40, 64));
    EXPECT_TRUE(isWhite(picture, 64, 48));
    EXPECT_FALSE(isWhite(picture, 88, 48));
    EXPECT_TRUE(isWhite(picture, 88, 64));
    for (const int x : {40, 64, 88}) EXPECT_TRUE(isWhite(picture, x, 90)) << x;
}

TEST(ApplicationIcon, ArtworkFillsTheBoxAndTheMarginFallsOutside) {
    for (const int side : {13, 72, 92}) {
        const QRect box(20, 20, side, side);
        EXPECT_EQ(paintedBox(artworkIn(box)), box);
        EXPECT_EQ(paintedBox(artworkIn(box, 2)), QRect(40, 40, 2 * side, 2 * side));
    }
}

TEST(ApplicationIcon, ArtworksCornersAreRounded) {
    // A corner of 0.225 of the side leaves out 0.225 · (1 − √½) of the diagonal's way: here 6.6 pixels.
    const QImage picture = artworkIn(QRectF(20, 20, 100, 100));
    EXPECT_EQ(qAlpha(picture.pixel(25, 25)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(28, 28)), 255);
    EXPECT_DOUBLE_EQ(ApplicationIcon::kCornerOverArtwork, 0.225);
}

TEST(ApplicationIcon, ArtworkStandsInTheMiddleOfAWideBox) {
    EXPECT_EQ(paintedBox(artworkIn(QRectF(10, 20, 113, 13))), QRect(60, 20, 13, 13));
}

TEST(ApplicationIcon, BoxWithoutRoomDrawsNothing) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const QRectF& box : {QRectF(), QRectF(20, 20, -13, 13), QRectF(20, 20, kNaN, kNaN)})
        EXPECT_TRUE(paintedBox(artworkIn(box)).isNull());
}

}  // namespace
}  // namespace velmora
