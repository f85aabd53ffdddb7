#include "settings/module/PreviewStrip.h"

#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

MenuBarImage blackItem(double ratio) {
    QImage image(static_cast<int>(40 * ratio), static_cast<int>(22 * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    image.setDevicePixelRatio(ratio);
    return {image, true};
}

TEST(PreviewStripTest, EverythingStandsAtTheRightWithTheItemLeftmost) {
    const PreviewStrip::Frames frames = PreviewStrip::frames(400, QSizeF(40, 22), QSizeF(24, 14));
    EXPECT_EQ(frames.clock.right(), 389) << "eleven points from the edge";
    EXPECT_LT(frames.battery.right(), frames.clock.left());
    EXPECT_LT(frames.wifi.right(), frames.battery.left());
    EXPECT_LT(frames.item.right(), frames.wifi.left());
    EXPECT_EQ(frames.item.size(), QSizeF(40, 22));
}

TEST(PreviewStripTest, EverythingStandsInTheVerticalMiddle) {
    const PreviewStrip::Frames frames = PreviewStrip::frames(400, QSizeF(40, 22), QSizeF(24, 14));
    for (const QRectF& frame : {frames.item, frames.wifi, frames.battery, frames.clock}) {
        EXPECT_EQ(frame.center().y(), 15);
    }
}

TEST(PreviewStripTest, AnItemThatGrowsLeavesWhatIsToItsRight) {
    const auto narrow = PreviewStrip::frames(400, QSizeF(20, 22), QSizeF(24, 14));
    const auto wide = PreviewStrip::frames(400, QSizeF(90, 22), QSizeF(24, 14));
    EXPECT_EQ(narrow.wifi, wide.wifi);
    EXPECT_EQ(narrow.clock, wide.clock);
    EXPECT_EQ(narrow.item.right(), wide.item.right());
}

TEST(PreviewStripTest, TheItemIsDrawnAtTheScreensRatioAndInTheInkOfTheScheme) {
    std::vector<double> ratios;
    PreviewStrip strip([&](double ratio) {
        ratios.push_back(ratio);
        return blackItem(ratio);
    });
    strip.resize(400, PreviewStrip::kHeight);
    const QPoint inItem = QPoint(
        static_cast<int>(PreviewStrip::frames(400, QSizeF(40, 22), QSizeF(24, 14)).item.center().x()), 15);
    setScheme(strip, Scheme::light);
    EXPECT_LT(strip.grab().toImage().pixelColor(inItem).lightness(), 10);
    setScheme(strip, Scheme::dark);
    EXPECT_GT(strip.grab().toImage().pixelColor(inItem).lightness(), 245);
    for (const double ratio : ratios) EXPECT_EQ(ratio, strip.devicePixelRatioF());
}

TEST(PreviewStripTest, AnItemWithoutAPictureLeavesItsPlaceEmpty) {
    PreviewStrip strip([](double) { return MenuBarImage{}; });
    strip.resize(10, PreviewStrip::kHeight);
    EXPECT_FALSE(strip.grab().isNull()) << "also in a strip that is too narrow for anything";
}

}  // namespace
}  // namespace velmora
