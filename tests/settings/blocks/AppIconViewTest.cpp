#include "settings/blocks/AppIconView.h"

#include "settings/Ground.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(AppIconViewTest, SizeIsTheGivenOne) {
    AppIconView view(72);
    EXPECT_EQ(view.minimumSize(), QSize(72, 72));
    EXPECT_EQ(view.maximumSize(), QSize(72, 72));
}

TEST(AppIconViewTest, ArtworkReachesEverySideOfTheFrame) {
    AppIconView view(72);
    // A colour that no icon has.
    const QColor ground(255, 0, 255);
    const QImage picture = paintedOver(view, ground);
    for (const QPoint& side : {QPoint(36, 0), QPoint(36, 71), QPoint(0, 36), QPoint(71, 36)}) {
        EXPECT_FALSE(isColor(picture.pixelColor(side), ground)) << side.x() << " " << side.y();
    }
    EXPECT_TRUE(isColor(picture.pixelColor(0, 0), ground)) << "the artwork's corners are round";
}

TEST(AppIconViewTest, NoSizeDoesNoHarm) {
    AppIconView view(0);
    view.grab();
}

}  // namespace
}  // namespace velmora
