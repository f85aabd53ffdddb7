#include "panels/kit/Shapes.h"

#include "panels/kit/HLine.h"
#include "panels/kit/Points.h"
#include "panels/kit/Series.h"
#include "panels/kit/SkeletonProcessRow.h"
#include "panels/kit/SoftShadow.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Series, ColoursAreTheirFractions) {
    EXPECT_NEAR(Series::primary.redF(), 0.0392156862745098, 1e-4);
    EXPECT_NEAR(Series::primary.greenF(), 0.5176470588235295, 1e-4);
    EXPECT_NEAR(Series::primary.blueF(), 1.0, 1e-4);
    EXPECT_NEAR(Series::secondary.redF(), 0.34509803921568627, 1e-4);
    EXPECT_NEAR(Series::secondary.greenF(), 0.33725490196078434, 1e-4);
    EXPECT_NEAR(Series::secondary.blueF(), 0.8392156862745098, 1e-4);
    EXPECT_NEAR(Series::tertiary.redF(), 0.18823529411764706, 1e-4);
    EXPECT_NEAR(Series::tertiary.greenF(), 0.6901960784313725, 1e-4);
    EXPECT_NEAR(Series::tertiary.blueF(), 0.7803921568627451, 1e-4);
    EXPECT_NEAR(Series::gray.redF(), 0.5568627450980392, 1e-4);
    EXPECT_NEAR(Series::gray.blueF(), 0.5764705882352941, 1e-4);
    EXPECT_NEAR(Series::orange.greenF(), 0.5843137254901961, 1e-4);
    EXPECT_NEAR(Series::red.greenF(), 0.23137254901960785, 1e-4);
    EXPECT_NEAR(Series::red.blueF(), 0.18823529411764706, 1e-4);
}

TEST(Tokens, AreThePrimaryInkMadeFaint) {
    EXPECT_NEAR(Tokens::track(Scheme::dark).alphaF(), 0.13, 1e-4);
    EXPECT_EQ(Tokens::track(Scheme::dark).red(), 255);
    EXPECT_EQ(Tokens::track(Scheme::light).red(), 0);
    EXPECT_NEAR(Tokens::tint(Scheme::dark).alphaF(), 0.05, 1e-4);
}

TEST(UsageBar, FillIsTheShareOfTheWidth) {
    EXPECT_DOUBLE_EQ(Shapes::barFill(QRectF(10, 0, 200, 4), 0.25).width(), 50);
    EXPECT_DOUBLE_EQ(Shapes::barFill(QRectF(10, 0, 200, 4), 0.25).left(), 10);
}

TEST(UsageBar, NegativeFractionHasNoFill) {
    EXPECT_TRUE(Shapes::barFill(QRectF(0, 0, 200, 4), -1).isEmpty());
}

TEST(UsageBar, TwiceTheWholeIsAFullBar) {
    EXPECT_DOUBLE_EQ(Shapes::barFill(QRectF(0, 0, 200, 4), 2).width(), 200);
}

TEST(UsageBar, FractionThatIsNoNumberHasNoFill) {
    EXPECT_TRUE(Shapes::barFill(QRectF(0, 0, 200, 4), kNoNumber).isEmpty());
}

TEST(HLine, RunsAcrossTheVerticalMiddle) {
    EXPECT_EQ(HLine::path(QRectF(10, 20, 100, 30)), QLineF(10, 35, 110, 35));
}

TEST(HLine, DashesAreTwoOnAndTwoOff) {
    QImage image(8, 3, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    HLine::draw(painter, QRectF(0, 0, 8, 3), 1, {2, 2}, Qt::black);
    painter.end();
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(qAlpha(image.pixel(x, 0)), 0);
        EXPECT_EQ(qAlpha(image.pixel(x, 1)), x % 4 < 2 ? 255 : 0) << x;
        EXPECT_EQ(qAlpha(image.pixel(x, 2)), 0);
    }
}

TEST(SkeletonProcessRow, ShapesHaveTheirSizesAndPlaces) {
    const auto shapes = SkeletonProcessRow::shapes(268, 17);
    EXPECT_EQ(shapes[0].rect, QRectF(0, 2, 13, 13));
    EXPECT_EQ(shapes[0].radius, 3);
    EXPECT_EQ(shapes[1].rect, QRectF(19, 5, 96, 7));
    EXPECT_EQ(shapes[1].radius, 4);
    EXPECT_EQ(shapes[2].rect, QRectF(240, 5, 28, 7));
}

TEST(SkeletonProcessRow, ShapesStayApartInANarrowRow) {
    for (const double width : {0.0, 10.0, 40.0, 120.0, 142.0, 143.0, 150.0}) {
        const auto shapes = SkeletonProcessRow::shapes(width, 15);
        EXPECT_LE(shapes[0].rect.right(), std::max(width, 0.0));
        EXPECT_TRUE(shapes[1].rect.isEmpty() || shapes[1].rect.right() <= width);
        EXPECT_TRUE(shapes[2].rect.isEmpty() || shapes[2].rect.left() >= shapes[1].rect.right() + 6);
    }
}

TEST(SoftShadow, FallsFromTheEdgeToNothingAtItsRadius) {
    EXPECT_DOUBLE_EQ(SoftShadow::edge(10, 10), 0);
    EXPECT_DOUBLE_EQ(SoftShadow::edge(-10, 10), 1);
    EXPECT_NEAR(SoftShadow::edge(0, 10), 0.5, 1e-9);
    for (double distance = -10; distance < 10; distance += 0.5) {
        EXPECT_GE(SoftShadow::edge(distance, 10), SoftShadow::edge(distance + 0.5, 10));
    }
}

TEST(SoftShadow, PictureHasAMarginOfTheRadius) {
    const QImage shadow = SoftShadow::image({80, 40}, 10, 0.4, 2);
    EXPECT_EQ(shadow.size(), QSize(200, 120));
    EXPECT_EQ(qAlpha(shadow.pixel(0, 0)), 0);
    EXPECT_NEAR(qAlpha(shadow.pixel(100, 60)), 102, 1);
    EXPECT_NEAR(qAlpha(shadow.pixel(20, 60)), 51, 4);
}

TEST(Points, SizesThatAreNoneBecomeZero) {
    EXPECT_EQ(Points::whole(kNoNumber), 0);
    EXPECT_EQ(Points::whole(-4), 0);
    EXPECT_EQ(Points::whole(kInfinity), 0);
    EXPECT_EQ(Points::whole(1e9), 2000);
    EXPECT_EQ(Points::whole(48.5), 49);
}

}  // namespace
}  // namespace velmora
