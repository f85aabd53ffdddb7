#include "look/Symbol.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <limits>
#include <string>

namespace velmora {
namespace {

const QColor kRed(200, 40, 40);
const QColor kBlue(30, 60, 220);
constexpr std::string_view kAnyName = "wifi";

QImage canvas(int points, double ratio) {
    QImage canvas(QSize(points, points) * ratio, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    return canvas;
}

QImage painted(int points, double ratio, std::string_view name, const QRectF& box, const QColor& color) {
    QImage picture = canvas(points, ratio);
    QPainter painter(&picture);
    Symbol::paint(painter, name, box, color);
    return picture;
}

bool isBlank(const QImage& picture) {
    QImage blank(picture.size(), picture.format());
    blank.setDevicePixelRatio(picture.devicePixelRatio());
    blank.fill(Qt::transparent);
    return picture == blank;
}

/// How much of the picture is covered, in whole pixels.
double coveredPixels(const QImage& picture) {
    double covered = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) covered += qAlpha(picture.pixel(x, y)) / 255.0;
    }
    return covered;
}

TEST(Symbol, EveryOneDrawsAtThirteenPointsInsideItsBox) {
    const QRect box(20, 20, 13, 13);
    for (const double ratio : {1.0, 2.0}) {
        for (const std::string_view name : Symbol::names()) {
            QImage picture = painted(60, ratio, name, box, Qt::black);
            picture.setDevicePixelRatio(1);
            const QRect inside = QRect(box.topLeft() * ratio, box.size() * ratio);
            // A single stroke from side to side covers a twelfth of the box: less could not be read.
            EXPECT_GE(coveredPixels(picture.copy(inside)), inside.width() * inside.height() / 12.0) << name;
            QPainter painter(&picture);
            painter.setCompositionMode(QPainter::CompositionMode_Clear);
            painter.fillRect(inside, Qt::black);
            painter.end();
            EXPECT_TRUE(isBlank(picture)) << name << " at " << ratio;
        }
    }
}

TEST(Symbol, TintChangesNothingButTheColour) {
    for (const std::string_view name : Symbol::names()) {
        const QImage red = Symbol::image(name, 13, kRed, 2);
        const QImage blue = Symbol::image(name, 13, kBlue, 2);
        EXPECT_NE(red, blue) << name;
        EXPECT_EQ(red.convertToFormat(QImage::Format_Alpha8), blue.convertToFormat(QImage::Format_Alpha8))
            << name;
    }
}

TEST(Symbol, InkHasTheColourThatWasAskedFor) {
    for (const std::string_view name : Symbol::names()) {
        const QImage picture = Symbol::image(name, 24, kRed, 4);
        int solid = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (qAlpha(picture.pixel(x, y)) != 255) continue;
                ++solid;
                ASSERT_EQ(picture.pixel(x, y), kRed.rgba()) << name;
            }
        }
        EXPECT_GT(solid, 0) << name;
    }
}

TEST(Symbol, TranslucentColourGivesTheSameTranslucencyWhereStrokesCross) {
    const QImage solid = Symbol::image("globe", 24, QColor(0, 0, 0, 255), 4);
    const QImage weak = Symbol::image("globe", 24, QColor(0, 0, 0, 100), 4);
    for (int y = 0; y < solid.height(); ++y) {
        for (int x = 0; x < solid.width(); ++x) {
            EXPECT_NEAR(qAlpha(weak.pixel(x, y)), qAlpha(solid.pixel(x, y)) * 100 / 255.0, 1);
        }
    }
}

TEST(Symbol, LetterInAFilledDiscIsAHole) {
    const QImage picture = Symbol::image("info.circle.fill", 24, Qt::black, 1);
    EXPECT_EQ(qAlpha(picture.pixel(12, 14)), 0);
    EXPECT_EQ(qAlpha(picture.pixel(6, 14)), 255);
}

TEST(Symbol, StandsInTheMiddleOfAWideBox) {
    const QImage wide = painted(60, 1, kAnyName, QRectF(10, 10, 33, 13), kRed);
    const QImage square = painted(60, 1, kAnyName, QRectF(20, 10, 13, 13), kRed);
    EXPECT_EQ(wide, square);
    EXPECT_FALSE(isBlank(wide));
}

TEST(Symbol, PaintedPixelsAreThoseOfThePicture) {
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        QImage on = painted(30, ratio, kAnyName, QRectF(4, 4, 20, 20), kRed);
        on.setDevicePixelRatio(1);
        QImage picture = Symbol::image(kAnyName, 20, kRed, ratio);
        picture.setDevicePixelRatio(1);
        EXPECT_EQ(on.copy(QRect(QPoint(4, 4) * ratio, QSize(20, 20) * ratio)), picture) << ratio;
    }
}

TEST(Symbol, PartOfAPixelDoesNotBlur) {
    EXPECT_EQ(painted(30, 1, kAnyName, QRectF(4.3, 4.3, 13, 13), kRed),
              painted(30, 1, kAnyName, QRectF(4, 4, 13, 13), kRed));
}

TEST(Symbol, UprightStrokeFillsWholePixelsAtThirteenPoints) {
    const QImage picture = Symbol::image("arrow.up.arrow.down", 13, Qt::black, 1);
    // The shaft of the left arrow: a full pixel, and next to nothing beside it.
    EXPECT_EQ(qAlpha(picture.pixel(3, 7)), 255);
    EXPECT_LT(qAlpha(picture.pixel(2, 7)), 25);
    EXPECT_LT(qAlpha(picture.pixel(4, 7)), 25);
}

TEST(Symbol, PictureHasTheSizeAndRatioThatWereAskedFor) {
    const QImage picture = Symbol::image(kAnyName, 13, kRed, 2);
    EXPECT_EQ(picture.size(), QSize(26, 26));
    EXPECT_EQ(picture.devicePixelRatio(), 2);
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(13, 13));
}

TEST(Symbol, UnknownNameDrawsNothingAndGivesNull) {
    for (const std::string_view name :
         {"", "wifi.", "Wifi", "no.such.symbol", "../icon/velmora", "الشبكة", "📶"}) {
        EXPECT_FALSE(Symbol::exists(name)) << name;
        EXPECT_TRUE(Symbol::image(name, 13, kRed, 1).isNull()) << name;
        EXPECT_TRUE(isBlank(painted(30, 1, name, QRectF(4, 4, 13, 13), kRed))) << name;
    }
    EXPECT_TRUE(Symbol::image(std::string(200, 'w'), 13, kRed, 1).isNull());
}

TEST(Symbol, InvalidColourDrawsNothing) {
    EXPECT_TRUE(Symbol::image(kAnyName, 13, QColor(), 1).isNull());
    EXPECT_TRUE(isBlank(painted(30, 1, kAnyName, QRectF(4, 4, 13, 13), QColor())));
}

TEST(Symbol, BoxWithoutRoomDrawsNothing) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const QRectF& box : {QRectF(), QRectF(4, 4, 0, 13), QRectF(4, 4, -13, -13), QRectF(4, 4, kNaN, kNaN),
                              QRectF(4, 4, kInfinity, kInfinity), QRectF(kNaN, 4, 13, 13)}) {
        EXPECT_TRUE(isBlank(painted(30, 1, kAnyName, box, kRed)));
    }
}

TEST(Symbol, PictureOfNoOrEndlessSizeIsNull) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double size : {0.0, 0.3, -13.0, kNaN, kInfinity, 1e6}) {
        EXPECT_TRUE(Symbol::image(kAnyName, size, kRed, 1).isNull()) << size;
        EXPECT_TRUE(Symbol::image(kAnyName, 1, kRed, size).isNull()) << size;
    }
    EXPECT_TRUE(Symbol::image(kAnyName, -13, kRed, -1).isNull());
}

TEST(Symbol, PictureIsKeptForTheNextTime) {
    const QImage first = Symbol::image(kAnyName, 13, kRed, 1);
    EXPECT_EQ(Symbol::image(kAnyName, 13, kRed, 1).cacheKey(), first.cacheKey());
}

TEST(Symbol, ChangingAPictureDoesNotChangeTheKeptOne) {
    QImage mine = Symbol::image(kAnyName, 14, kRed, 1);
    const QImage before = mine.copy();
    mine.fill(Qt::green);
    EXPECT_EQ(Symbol::image(kAnyName, 14, kRed, 1), before);
}

TEST(Symbol, KeptPicturesAreBounded) {
    const QImage first = Symbol::image(kAnyName, 13, kRed, 1);
    // Two million bytes of others, which is more than is kept.
    for (int blue = 0; blue < 200; ++blue) Symbol::image(kAnyName, 50, QColor(0, 0, blue), 1);
    EXPECT_NE(Symbol::image(kAnyName, 13, kRed, 1).cacheKey(), first.cacheKey());
}

}  // namespace
}  // namespace velmora
