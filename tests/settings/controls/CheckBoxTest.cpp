#include "settings/controls/CheckBox.h"

#include "look/Theme.h"
#include "settings/Ground.h"
#include "settings/Input.h"
#include "settings/controls/SettingsScheme.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QWidget>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CheckBoxTest : public testing::Test {
protected:
    CheckBoxTest() {
        box.setLabel(QStringLiteral("Load average"));
        box.resize(200, box.heightForWidth(200));
        box.onToggle([this](bool on) { wishes.push_back(on); });
    }

    QWidget window;
    CheckBox box{12, &window};
    std::vector<bool> wishes;
};

TEST_F(CheckBoxTest, ClickOnBoxOrLabelAsksForTheOtherStateAndWaitsToBeTold) {
    Input::click(box, QPoint(8, 8));
    Input::click(box, QPoint(50, 8));
    EXPECT_THAT(wishes, ElementsAre(true, true));
    EXPECT_FALSE(box.isOn());
}

TEST_F(CheckBoxTest, ClickBehindTheLabelDoesNothing) {
    Input::click(box, QPoint(195, 8));
    EXPECT_THAT(wishes, IsEmpty());
}

TEST_F(CheckBoxTest, SpaceAndEnterPressIt) {
    box.setOn(true);
    Input::key(box, Qt::Key_Space);
    Input::key(box, Qt::Key_Return);
    EXPECT_THAT(wishes, ElementsAre(false, false));
}

TEST_F(CheckBoxTest, CheckedBoxIsInTheAccentColor) {
    setScheme(window, Scheme::dark);
    box.setOn(true);
    EXPECT_TRUE(isColor(paintedOver(box, Qt::black).pixelColor(3, 4), Theme::accent));
    box.setOn(false);
    EXPECT_EQ(paintedOver(box, Qt::black).pixelColor(3, 4).hsvSaturation(), 0);
}

TEST_F(CheckBoxTest, LabelWithoutRoomWrapsAndTheBoxStaysAtItsFirstLine) {
    box.setLabel(QStringLiteral("Anzahl der Verbindungen je Schnittstelle und Richtung"));
    const int oneLine = box.heightForWidth(box.sizeHint().width());
    EXPECT_GE(box.heightForWidth(140), 2 * oneLine - 4);
    const QRectF before = box.boxFrame();
    box.resize(140, box.heightForWidth(140));
    EXPECT_EQ(box.boxFrame(), before);
}

TEST_F(CheckBoxTest, OddLabelsDoNoHarm) {
    for (const QString& label : {QString(), QString(200, 'W'), QStringLiteral("שפה 🙂")}) {
        box.setLabel(label);
        for (const int width : {1, 10, 100}) {
            EXPECT_GE(box.heightForWidth(width), 16);
            box.resize(width, 40);
            paintedOver(box, Qt::white);
        }
    }
}

TEST_F(CheckBoxTest, ScreenReaderFindsACheckBoxNamedByItsLabel) {
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&box);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::CheckBox);
    EXPECT_EQ(interface->text(QAccessible::Name), "Load average");
}

}  // namespace
}  // namespace velmora
