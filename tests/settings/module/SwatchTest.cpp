#include "settings/module/Swatch.h"

#include "look/Ink.h"
#include "look/Theme.h"
#include "settings/Input.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// How much the colours differ in the channel in which they differ most.
int difference(const QColor& first, const QColor& second) {
    return std::max({std::abs(first.red() - second.red()), std::abs(first.green() - second.green()),
                     std::abs(first.blue() - second.blue())});
}

class SwatchTest : public testing::Test {
protected:
    SwatchTest() {
        setScheme(window, Scheme::light);
        window.resize(24, 24);
    }
    Swatch& swatch(const std::string& hex) {
        m_swatch = std::make_unique<Swatch>(
            hex, [this] { ++presses; }, &window);
        m_swatch->show();
        return *m_swatch;
    }
    QImage picture() {
        QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        m_swatch->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    QWidget window;
    int presses = 0;

private:
    std::unique_ptr<Swatch> m_swatch;
};

TEST_F(SwatchTest, TheDiscStandsInTheMiddleOfTheFrame) {
    EXPECT_EQ(Swatch::discFrame(), QRectF(3, 3, 18, 18));
    EXPECT_EQ(swatch("34C759").size(), QSize(24, 24));
}

TEST_F(SwatchTest, TheDiscIsInItsColourRedFirst) {
    swatch("34C759");
    EXPECT_EQ(picture().pixelColor(12, 12), QColor(0x34, 0xC7, 0x59));
    EXPECT_EQ(picture().pixelColor(1, 1).alpha(), 0);
}

TEST_F(SwatchTest, OnlyAChosenOneHasTheRingOfTheAccentColour) {
    Swatch& green = swatch("34C759");
    EXPECT_EQ(picture().pixelColor(12, 0).alpha(), 0);
    green.setChosen(true);
    EXPECT_LE(difference(picture().pixelColor(12, 0), Theme::accent), 3);
    EXPECT_LE(difference(picture().pixelColor(12, 1), Theme::accent), 3) << "two points wide";
    EXPECT_EQ(picture().pixelColor(12, 12), QColor(0x34, 0xC7, 0x59));
    green.setChosen(false);
    EXPECT_EQ(picture().pixelColor(12, 0).alpha(), 0);
}

TEST_F(SwatchTest, TheAutoSwatchIsHalfLightAndHalfDarkOnEitherGround) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        swatch("");
        const QColor left = picture().pixelColor(7, 12);
        const QColor right = picture().pixelColor(17, 12);
        EXPECT_EQ(left, Ink::windowBackground(scheme));
        EXPECT_GT(std::abs(left.lightness() - right.lightness()), 90);
        EXPECT_EQ(right.alpha(), 255);
    }
}

TEST_F(SwatchTest, TheHitAreaIsTheCircle) {
    swatch("34C759");
    for (const QPoint corner : {QPoint(0, 0), QPoint(23, 0), QPoint(0, 23), QPoint(23, 23), QPoint(2, 2)}) {
        Input::click(window, corner);
    }
    EXPECT_EQ(presses, 0);
    for (const QPoint inside : {QPoint(12, 12), QPoint(12, 0), QPoint(0, 12), QPoint(23, 12)}) {
        Input::click(window, inside);
    }
    EXPECT_EQ(presses, 4);
}

TEST_F(SwatchTest, SpaceAndReturnPressIt) {
    Swatch& green = swatch("34C759");
    Input::key(green, Qt::Key_Space, " ");
    Input::key(green, Qt::Key_Return, "\r");
    EXPECT_EQ(presses, 2);
}

TEST_F(SwatchTest, ItIsNamedByItsToolTip) {
    EXPECT_EQ(swatch("34C759").accessibleName(), "#34C759");
    Swatch& automatic = swatch("");
    automatic.setAutoTitle("Auto");
    EXPECT_EQ(automatic.accessibleName(), "Auto");
    EXPECT_EQ(automatic.toolTip(), "Auto");
    Swatch& green = swatch("34C759");
    green.setAutoTitle("Auto");
    EXPECT_EQ(green.toolTip(), "#34C759");
}

}  // namespace
}  // namespace velmora
