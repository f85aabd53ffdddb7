#include "look/PixelSquare.h"

#include <gtest/gtest.h>

#include <QPainter>

#include <cmath>
#include <limits>

namespace velmora {
namespace {

/// A painter on a picture of 100 by 100 points.
class PixelSquareOn : public testing::Test {
protected:
    explicit PixelSquareOn(double ratio = 1)
        : m_image(std::lround(100 * ratio), std::lround(100 * ratio), QImage::Format_ARGB32_Premultiplied) {
        m_image.setDevicePixelRatio(ratio);
        m_image.fill(Qt::transparent);
        m_painter.begin(&m_image);
    }

    QImage m_image;
    QPainter m_painter;
};

class PixelSquareOnePixelPerPoint : public PixelSquareOn {};

class PixelSquareTwoPixelsPerPoint : public PixelSquareOn {
protected:
    PixelSquareTwoPixelsPerPoint() : PixelSquareOn(2) {}
};

class PixelSquareThreeHalves : public PixelSquareOn {
protected:
    PixelSquareThreeHalves() : PixelSquareOn(1.5) {}
};

TEST_F(PixelSquareOnePixelPerPoint, StandsInTheMiddleOfAWideBox) {
    const auto square = PixelSquare::within(QRectF(10, 10, 33, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->box, QRectF(20, 10, 13, 13));
    EXPECT_EQ(square->pixels, 13);
    EXPECT_TRUE(square->isExact);
}

TEST_F(PixelSquareOnePixelPerPoint, StandsInTheMiddleOfATallBox) {
    const auto square = PixelSquare::within(QRectF(10, 10, 13, 33), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->box, QRectF(10, 20, 13, 13));
}

TEST_F(PixelSquareOnePixelPerPoint, MovesToWholePixels) {
    const auto square = PixelSquare::within(QRectF(10.3, 20.6, 13, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->box, QRectF(10, 21, 13, 13));
}

TEST_F(PixelSquareOnePixelPerPoint, PaintersOwnShiftIsPartOfIt) {
    m_painter.translate(0.4, 0.4);
    const auto square = PixelSquare::within(QRectF(10, 10, 13, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_DOUBLE_EQ(square->box.x(), 9.6);
    EXPECT_DOUBLE_EQ(square->box.y(), 9.6);
}

TEST_F(PixelSquareOnePixelPerPoint, FractionOfAPixelIsLeftOutOfTheSide) {
    const auto square = PixelSquare::within(QRectF(10, 10, 13.9, 13.9), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->pixels, 13);
}

TEST_F(PixelSquareTwoPixelsPerPoint, CountsPixelsNotPoints) {
    const auto square = PixelSquare::within(QRectF(10.5, 10, 13, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->box, QRectF(10.5, 10, 13, 13));
    EXPECT_EQ(square->pixels, 26);
}

TEST_F(PixelSquareThreeHalves, SideIsAWholeNumberOfPixels) {
    const auto square = PixelSquare::within(QRectF(10, 10, 13, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->pixels, 19);
    EXPECT_DOUBLE_EQ(square->box.width(), 19 / 1.5);
    EXPECT_DOUBLE_EQ(square->box.x() * 1.5, std::round(square->box.x() * 1.5));
}

TEST_F(PixelSquareOnePixelPerPoint, TurnedPainterGetsTheBoxAsItIs) {
    m_painter.rotate(30);
    const auto square = PixelSquare::within(QRectF(10.3, 10.3, 13, 13), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->box, QRectF(10.3, 10.3, 13, 13));
    EXPECT_EQ(square->pixels, 13);
    EXPECT_FALSE(square->isExact);
}

TEST_F(PixelSquareOnePixelPerPoint, HugeBoxGetsAnEnlargedPicture) {
    const auto square = PixelSquare::within(QRectF(0, 0, 1e9, 1e9), m_painter);
    ASSERT_TRUE(square);
    EXPECT_EQ(square->pixels, PixelSquare::kMostPixels);
    EXPECT_EQ(square->box, QRectF(0, 0, 1e9, 1e9));
}

TEST_F(PixelSquareOnePixelPerPoint, NothingFitsIntoLessThanAPixel) {
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, 0.9, 13), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, 13, 0), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(), m_painter));
}

TEST_F(PixelSquareOnePixelPerPoint, NothingFitsIntoANegativeBox) {
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, -13, 13), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, -13, -13), m_painter));
}

TEST_F(PixelSquareOnePixelPerPoint, NothingFitsIntoABoxWithoutFiniteNumbers) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(PixelSquare::within(QRectF(kNaN, 10, 13, 13), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(10, kInfinity, 13, 13), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, kNaN, kNaN), m_painter));
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, kInfinity, kInfinity), m_painter));
}

TEST_F(PixelSquareOnePixelPerPoint, NothingFitsWherePainterFoldsEverythingToALine) {
    m_painter.scale(1, 0);
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, 13, 13), m_painter));
}

TEST_F(PixelSquareOnePixelPerPoint, PainterThatDoesNotPaintGetsNothing) {
    m_painter.end();
    EXPECT_FALSE(PixelSquare::within(QRectF(10, 10, 13, 13), m_painter));
}

}  // namespace
}  // namespace velmora
