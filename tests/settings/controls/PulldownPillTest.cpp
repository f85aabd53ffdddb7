#include "settings/controls/PulldownPill.h"

#include "look/Ink.h"
#include "settings/Ground.h"
#include "settings/Input.h"
#include "settings/PaintCounter.h"
#include "settings/controls/PillTheme.h"
#include "settings/controls/SettingsScheme.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QGraphicsOpacityEffect>
#include <QWidget>

namespace velmora {
namespace {

class PulldownPillTest : public testing::Test {
protected:
    PulldownPillTest() {
        window.resize(300, 100);
        pill.setGeometry(20, 30, 200, 28);
    }

    QWidget window;
    int presses = 0;
    PulldownPill pill{QStringLiteral("English"), [this] { ++presses; }, &window};
};

TEST_F(PulldownPillTest, LabelStandsBetweenTheInsetAndTheChevron) {
    const auto places = PulldownPill::places(QSizeF(200, 28));
    EXPECT_EQ(places.label.left(), 10);
    EXPECT_EQ(places.chevron.left() - places.label.right(), 5);
    EXPECT_EQ(200 - places.chevron.right(), 9);
    EXPECT_EQ(places.label.center().y(), 14);
    EXPECT_EQ(places.chevron.center().y(), 14);
    EXPECT_EQ(places.chevron.size(), QSizeF(9, 9));
}

TEST_F(PulldownPillTest, LabelGivesWayFirstInANarrowPill) {
    for (int width = 0; width < 60; ++width) {
        const auto places = PulldownPill::places(QSizeF(width, 28));
        EXPECT_GE(places.label.width(), 0);
        EXPECT_EQ(places.chevron.width(), 9);
        if (places.label.width() > 0) {
            EXPECT_LT(places.label.right(), places.chevron.left());
        }
    }
}

TEST_F(PulldownPillTest, ClickOnTheLabelAndOnTheChevronPressesIt) {
    Input::click(pill, QPoint(60, 14));
    Input::click(pill, QPoint(187, 14));
    EXPECT_EQ(presses, 2);
}

TEST_F(PulldownPillTest, ClickIntoACornerPressesItToo) {
    Input::click(pill, QPoint(0, 0));
    Input::click(pill, QPoint(199, 27));
    EXPECT_EQ(presses, 2);
}

TEST_F(PulldownPillTest, PillWithAlphaZeroTakesNoClicks) {
    auto* const effect = new QGraphicsOpacityEffect;
    effect->setOpacity(0);
    pill.setGraphicsEffect(effect);
    EXPECT_FALSE(pill.hitTest(pill.geometry().center()));
    Input::click(pill);
    EXPECT_EQ(presses, 0);
    effect->setOpacity(0.5);
    EXPECT_TRUE(pill.hitTest(pill.geometry().center()));
    Input::click(pill);
    EXPECT_EQ(presses, 1);
}

TEST_F(PulldownPillTest, HiddenPillIsNotHit) {
    EXPECT_TRUE(pill.hitTest(pill.geometry().center()));
    pill.hide();
    EXPECT_FALSE(pill.hitTest(pill.geometry().center()));
}

TEST_F(PulldownPillTest, PointsOutsideAreNotHit) {
    EXPECT_FALSE(pill.hitTest(QPoint(19, 40)));
    EXPECT_FALSE(pill.hitTest(QPoint(220, 40)));
    EXPECT_FALSE(pill.hitTest(QPoint(100, 58)));
}

TEST_F(PulldownPillTest, SpaceEnterAndTheVerticalArrowsPressIt) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Down, Qt::Key_Up}) Input::key(pill, key);
    EXPECT_EQ(presses, 4);
}

TEST_F(PulldownPillTest, FieldAndBorderAreThoseOfTheScheme) {
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        setScheme(window, scheme);
        const QColor ground = Ink::windowBackground(scheme);
        const QImage picture = paintedOver(pill, ground);
        const QColor field = blended(PillTheme::field(scheme), ground);
        EXPECT_TRUE(isColor(picture.pixelColor(100, 3), field));
        EXPECT_TRUE(isColor(picture.pixelColor(100, 0), blended(PillTheme::fieldBorder(scheme), field)));
        EXPECT_TRUE(isColor(picture.pixelColor(0, 0), ground)) << "the corner is round";
    }
}

TEST_F(PulldownPillTest, ChangeOfSchemeRepaintsAShownPillAtOnce) {
    setScheme(window, Scheme::light);
    window.show();
    PaintCounter paints(pill);
    setScheme(window, Scheme::dark);
    EXPECT_GT(paints.count(), 0);
}

TEST_F(PulldownPillTest, LongLabelLeavesTheGapBeforeTheChevronFree) {
    pill.setLabel(QString(200, 'W'));
    const QImage picture = paintedOver(pill, Qt::white);
    const QColor field = blended(PillTheme::field(Scheme::light), Qt::white);
    const auto places = PulldownPill::places(QSizeF(pill.size()));
    for (int x = static_cast<int>(places.label.right()) + 1; x < static_cast<int>(places.chevron.left()) - 1;
         ++x) {
        for (int y = 4; y < 24; ++y) EXPECT_TRUE(isColor(picture.pixelColor(x, y), field)) << x << " " << y;
    }
}

TEST_F(PulldownPillTest, OddLabelsAreDrawnWithoutHarm) {
    for (const QString& label : {QString(), QStringLiteral("🧭 компас"), QStringLiteral("שפה"),
                                 QString(200, QChar(0x65e5)), QStringLiteral("a\nb")}) {
        pill.setLabel(label);
        EXPECT_EQ(paintedOver(pill, Qt::white).size(), pill.size());
    }
    pill.resize(1, 1);
    EXPECT_EQ(paintedOver(pill, Qt::white).size(), QSize(1, 1));
}

TEST_F(PulldownPillTest, ScreenReaderFindsAMenuButtonWithItsValue) {
    pill.setAccessibleName(QStringLiteral("Language"));
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&pill);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::ComboBox);
    EXPECT_TRUE(interface->state().hasPopup);
    EXPECT_EQ(interface->text(QAccessible::Name), "Language");
    EXPECT_EQ(interface->text(QAccessible::Value), "English");
    ASSERT_NE(interface->actionInterface(), nullptr);
    interface->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_EQ(presses, 1);
}

}  // namespace
}  // namespace velmora
