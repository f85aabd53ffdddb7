#include "menubar/MenuBarIcon.h"

#include <gtest/gtest.h>

#include <QColor>

namespace velmora {
namespace {

int alphaAt(const QImage& image, double x, double y, double ratio) {
    return qAlpha(image.pixel(static_cast<int>(x * ratio), static_cast<int>(y * ratio)));
}

TEST(MenuBarIcon, GaugeIsABlackTemplateOfSixteenPoints) {
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        const MenuBarImage gauge = MenuBarIcon::gauge(ratio);
        EXPECT_TRUE(gauge.isTemplate);
        EXPECT_EQ(gauge.image.width(), 16 * ratio);
        EXPECT_EQ(gauge.image.height(), 16 * ratio);
        EXPECT_EQ(gauge.image.devicePixelRatio(), ratio);
        for (int y = 0; y < gauge.image.height(); ++y) {
            for (int x = 0; x < gauge.image.width(); ++x) EXPECT_EQ(gauge.image.pixel(x, y) & 0xFFFFFF, 0U);
        }
    }
}

TEST(MenuBarIcon, BarsReadShortTallMiddlingOnOneBaseline) {
    constexpr double kRatio = 10;
    const QImage image = MenuBarIcon::gauge(kRatio).image;
    // In the middle of each bar, at its top, just above it, and at the baseline that all share.
    const double tops[] = {10.0, 2.5, 6.5};
    const double middles[] = {4.0, 10.0, 16.0};
    for (int bar = 0; bar < 3; ++bar) {
        const double x = middles[bar] * 0.8;
        EXPECT_EQ(alphaAt(image, x, tops[bar] * 0.8, kRatio), 255);
        EXPECT_EQ(alphaAt(image, x, (tops[bar] - 1) * 0.8, kRatio), 0);
        EXPECT_EQ(alphaAt(image, x, 17.5 * 0.8, kRatio), 255);
        EXPECT_EQ(alphaAt(image, x, 18.5 * 0.8, kRatio), 0);
    }
}

TEST(MenuBarIcon, BarsAreOutlinesOfOneAndAHalf) {
    constexpr double kRatio = 10;
    const QImage image = MenuBarIcon::gauge(kRatio).image;
    EXPECT_EQ(alphaAt(image, 10 * 0.8, 10 * 0.8, kRatio), 0);
    EXPECT_EQ(alphaAt(image, 8.5 * 0.8, 10 * 0.8, kRatio), 255);
    EXPECT_EQ(alphaAt(image, (8.5 - 0.6) * 0.8, 10 * 0.8, kRatio), 255);
    EXPECT_EQ(alphaAt(image, (8.5 - 0.9) * 0.8, 10 * 0.8, kRatio), 0);
}

TEST(MenuBarIcon, CornersAreRounded) {
    constexpr double kRatio = 10;
    const QImage image = MenuBarIcon::gauge(kRatio).image;
    EXPECT_EQ(alphaAt(image, (8.5 - 0.6) * 0.8, (2.5 - 0.6) * 0.8, kRatio), 0);
}

}  // namespace
}  // namespace velmora
