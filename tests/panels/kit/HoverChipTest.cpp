#include "panels/kit/HoverChip.h"

#include "panels/kit/KitFixture.h"
#include "panels/kit/Series.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

const std::vector<HoverChipRow> kRows = {{Series::primary, "User", "31%"},
                                         {Series::secondary, "System", "4%"}};

TEST(HoverChip, WidgetIsLargerByTheShadowsReach) {
    HoverChip chip(Scheme::dark, nullptr);
    chip.setContent("2s ago", kRows, 296);
    chip.centreOn({100, 80});
    EXPECT_EQ(chip.size(), chip.measured() + QSize(20, 20));
    EXPECT_NEAR(chip.geometry().center().x(), 100, 1);
    EXPECT_NEAR(chip.geometry().center().y(), 80, 1);
}

TEST(HoverChip, LetsThePointerThrough) {
    EXPECT_TRUE(HoverChip(Scheme::dark, nullptr).testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST(HoverChip, PlateHasTheGroundOfItsScheme) {
    for (const Scheme scheme : {Scheme::dark, Scheme::light}) {
        HoverChip chip(scheme, nullptr);
        chip.setContent("2s ago", kRows, 296);
        chip.centreOn({100, 80});
        const QColor ground = pictureOf(chip).pixelColor(10 + 3, chip.height() / 2);
        EXPECT_EQ(ground, scheme == Scheme::dark ? QColor(50, 50, 54) : QColor(255, 255, 255));
    }
}

TEST(HoverChip, ShadowFallsAroundThePlateAndEndsWithTheWidget) {
    HoverChip chip(Scheme::light, nullptr);
    chip.setContent("2s ago", kRows, 296);
    chip.centreOn({100, 80});
    const QImage picture = pictureOf(chip);
    const int middle = chip.height() / 2;
    EXPECT_GT(picture.pixelColor(8, middle).alpha(), 10);
    EXPECT_GT(picture.pixelColor(8, middle).alpha(), picture.pixelColor(3, middle).alpha());
    EXPECT_LE(picture.pixelColor(0, middle).alpha(), 3);
}

TEST(HoverChip, NeverWiderThanItMayBe) {
    HoverChip chip(Scheme::dark, nullptr);
    chip.setContent(std::string(200, 'W'), {{Series::red, std::string(200, 'W'), std::string(200, '8')}},
                    296);
    EXPECT_EQ(chip.measured().width(), 296);
    chip.centreOn({150, 80});
    pictureOf(chip);
}

TEST(HoverChip, EachRowAddsToItsHeight) {
    HoverChip chip(Scheme::dark, nullptr);
    chip.setContent("Now", {}, 296);
    const int none = chip.measured().height();
    chip.setContent("Now", kRows, 296);
    EXPECT_GE(chip.measured().height(), none + 2 * (10 + 2));
}

TEST(HoverChip, ShadowFollowsTheScheme) {
    HoverChip chip(Scheme::light, nullptr);
    chip.setContent("2s ago", kRows, 296);
    chip.centreOn({100, 80});
    const int light = pictureOf(chip).pixelColor(8, chip.height() / 2).alpha();
    chip.setScheme(Scheme::dark);
    EXPECT_GT(pictureOf(chip).pixelColor(8, chip.height() / 2).alpha(), light);
}

}  // namespace
}  // namespace velmora
