#include "settings/module/StyleSamples.h"

#include "menubar/SampleSnapshots.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr QRgb kInk = 0xff102030;

MenuBarImage picture(int width, int height, double ratio = 1, bool isTemplate = false) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(kInk);
    image.setDevicePixelRatio(ratio);
    return {image, isTemplate};
}

/// The bounding box of what is not transparent, in pixels.
QRect drawn(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

TEST(StyleSamplesTest, EveryPictureBecomesAsLargeAsTheWidestAndTheHighest) {
    const auto uniform = StyleSamples::uniformSize({{"a", picture(40, 10)}, {"b", picture(10, 22)}});
    ASSERT_EQ(uniform.size(), 2u);
    for (const auto& [style, sample] : uniform) EXPECT_EQ(sample.image.size(), QSize(40, 22)) << style;
}

TEST(StyleSamplesTest, ThePictureLiesAtTheLeftInTheMiddleOfTheHeight) {
    const auto uniform = StyleSamples::uniformSize({{"a", picture(40, 10)}, {"b", picture(10, 22)}});
    EXPECT_EQ(drawn(uniform.at("a").image), QRect(0, 6, 40, 10));
    EXPECT_EQ(drawn(uniform.at("b").image), QRect(0, 0, 10, 22));
    EXPECT_EQ(uniform.at("a").image.pixel(0, 6), kInk) << "at full strength";
}

TEST(StyleSamplesTest, AnOddDifferenceOfHeightsIsRounded) {
    const auto uniform = StyleSamples::uniformSize({{"a", picture(4, 19)}, {"b", picture(4, 22)}});
    EXPECT_EQ(drawn(uniform.at("a").image).top(), 2);
}

TEST(StyleSamplesTest, TheOffsetIsInPointsAtAnyPixelRatio) {
    const auto uniform = StyleSamples::uniformSize({{"a", picture(80, 20, 2)}, {"b", picture(20, 44, 2)}});
    EXPECT_EQ(drawn(uniform.at("a").image), QRect(0, 12, 80, 20));
    EXPECT_EQ(uniform.at("a").image.devicePixelRatio(), 2.0);
    EXPECT_EQ(uniform.at("a").image.deviceIndependentSize(), QSizeF(40, 22));
}

TEST(StyleSamplesTest, WhetherAPictureIsATemplateIsCarriedOver) {
    const auto uniform =
        StyleSamples::uniformSize({{"a", picture(4, 4, 1, true)}, {"b", picture(4, 4, 1, false)}});
    EXPECT_TRUE(uniform.at("a").isTemplate);
    EXPECT_FALSE(uniform.at("b").isTemplate);
}

TEST(StyleSamplesTest, WithoutAnyPictureThereIsNothing) {
    EXPECT_TRUE(StyleSamples::uniformSize({}).empty());
    EXPECT_TRUE(StyleSamples::uniformSize({{"a", MenuBarImage{}}, {"b", MenuBarImage{}}}).empty());
}

TEST(StyleSamplesTest, AnEmptyPictureAmongOthersBecomesATransparentOne) {
    const auto uniform = StyleSamples::uniformSize({{"a", MenuBarImage{}}, {"b", picture(10, 22)}});
    ASSERT_EQ(uniform.size(), 2u);
    EXPECT_EQ(uniform.at("a").image.size(), QSize(10, 22));
    EXPECT_TRUE(drawn(uniform.at("a").image).isNull());
}

TEST(StyleSamplesTest, EveryStyleOfEveryModuleHasASampleOfTheModulesOneSize) {
    const StatsSnapshot snapshot = busySnapshot();
    for (const StatsModule module : kAllModules) {
        for (const double ratio : {1.0, 1.5, 2.0}) {
            const auto samples =
                StyleSamples::ofModule(module, snapshot, MenuBarRenderer::Ink::automatic(), ratio);
            ASSERT_EQ(samples.size(), 9u);
            const QSize size = samples.begin()->second.image.size();
            for (const ModuleStyle style : kAllStyles) {
                const MenuBarImage& sample = samples.at(std::string(rawValue(style)));
                EXPECT_EQ(sample.image.size(), size) << rawValue(module) << rawValue(style);
                EXPECT_FALSE(drawn(sample.image).isNull()) << rawValue(module) << rawValue(style);
                EXPECT_TRUE(sample.isTemplate);
            }
        }
    }
}

}  // namespace
}  // namespace velmora
