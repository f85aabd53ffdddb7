#include "settings/controls/ToggleSwitch.h"

#include "look/Theme.h"
#include "settings/Ground.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/controls/SettingsScheme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

namespace velmora {
namespace {

using testing::ElementsAre;

class ToggleSwitchTest : public testing::Test {
protected:
    ToggleSwitchTest() {
        toggle.onToggle([this](bool on) { wishes.push_back(on); });
    }

    QWidget window;
    ToggleSwitch toggle{&window};
    std::vector<bool> wishes;
};

TEST_F(ToggleSwitchTest, PressAsksForTheOtherStateAndWaitsToBeTold) {
    Input::click(toggle);
    EXPECT_THAT(wishes, ElementsAre(true));
    EXPECT_FALSE(toggle.isOn());
    toggle.setOn(true);
    Input::click(toggle);
    EXPECT_THAT(wishes, ElementsAre(true, false));
}

TEST_F(ToggleSwitchTest, SpaceAndEnterPressIt) {
    Input::key(toggle, Qt::Key_Space);
    Input::key(toggle, Qt::Key_Return);
    EXPECT_THAT(wishes, ElementsAre(true, true));
}

TEST_F(ToggleSwitchTest, StateFromOutsideIsShownWithoutAskingBack) {
    window.show();
    PaintCounter paints(toggle);
    toggle.setOn(true);
    EXPECT_TRUE(toggle.isOn());
    EXPECT_GT(paints.count(), 0);
    EXPECT_TRUE(wishes.empty());
}

TEST_F(ToggleSwitchTest, WithoutAnActionAPressDoesNothing) {
    toggle.onToggle(nullptr);
    Input::click(toggle);
    EXPECT_FALSE(toggle.isOn());
}

TEST_F(ToggleSwitchTest, KnobStandsAtTheSideOfTheStateWithinTheTrack) {
    const QRectF off = ToggleSwitch::knobFrame(false);
    const QRectF on = ToggleSwitch::knobFrame(true);
    const QSizeF track(toggle.sizeHint());
    EXPECT_EQ(off.left(), track.width() - on.right());
    EXPECT_GT(on.left(), off.left());
    EXPECT_EQ(off.center().y(), track.height() / 2);
    EXPECT_LT(off.height(), track.height());
}

TEST_F(ToggleSwitchTest, TrackIsInTheAccentColorWhenOn) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        const QColor ground = scheme == Scheme::dark ? Qt::black : Qt::white;
        toggle.setOn(true);
        EXPECT_TRUE(isColor(paintedOver(toggle, ground).pixelColor(10, 11), Theme::accent));
        toggle.setOn(false);
        const QColor off = paintedOver(toggle, ground).pixelColor(28, 11);
        EXPECT_EQ(off.hsvSaturation(), 0);
        EXPECT_GT(std::abs(off.lightness() - ground.lightness()), 20) << "an off switch is seen";
    }
}

TEST_F(ToggleSwitchTest, ScreenReaderFindsACheckBox) {
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&toggle);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::CheckBox);
    EXPECT_FALSE(interface->state().checked);
    toggle.setOn(true);
    EXPECT_TRUE(interface->state().checked);
}

}  // namespace
}  // namespace velmora
