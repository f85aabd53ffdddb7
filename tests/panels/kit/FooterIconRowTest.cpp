#include "panels/kit/FooterIconRowWidget.h"

#include "look/Theme.h"
#include "panels/kit/FooterButton.h"
#include "panels/kit/KitFixture.h"

#include <gtest/gtest.h>

#include <QEnterEvent>
#include <QKeyEvent>

namespace velmora {
namespace {

void enter(QWidget& widget) {
    QEnterEvent event(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QApplication::sendEvent(&widget, &event);
}

void press(QWidget& widget, Qt::Key key) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &up);
}

class FooterIconRowTest : public testing::Test {
protected:
    FooterIconRowTest() {
        row.setRow(shortcuts({"one", "two", "velmora.settings"}));
        row.setPlace({0, 0, 284, row.heightForWidth(284)});
    }
    FooterIconRow shortcuts(const std::vector<std::string>& ids) {
        FooterIconRow shown;
        for (const std::string& id : ids) {
            shown.shortcuts.push_back({id, "doc.text", "Help of " + id, id == "velmora.settings",
                                       [this, id] { pressed.push_back(id); }});
        }
        return shown;
    }
    FooterButton& button(std::size_t index) { return *row.buttons()[index]; }

    std::vector<std::string> pressed;
    FooterIconRowWidget row{Scheme::dark, nullptr};
};

TEST_F(FooterIconRowTest, ButtonsStandInOneRow) {
    EXPECT_EQ(row.height(), FooterButton::kSide);
    ASSERT_EQ(row.buttons().size(), 3U);
    EXPECT_EQ(button(0).y(), 0);
    EXPECT_GT(button(1).x(), button(0).geometry().right());
    EXPECT_GT(button(2).x(), button(1).geometry().right());
}

TEST_F(FooterIconRowTest, ClickRunsTheAction) {
    button(1).click();
    EXPECT_EQ(pressed, std::vector<std::string>{"two"});
}

TEST_F(FooterIconRowTest, KeysPressTheFocusedButton) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) press(button(0), key);
    EXPECT_EQ(pressed, (std::vector<std::string>{"one", "one", "one"}));
}

TEST_F(FooterIconRowTest, HeldKeyPressesOnce) {
    press(button(0), Qt::Key_Return);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&button(0), &repeat);
    EXPECT_EQ(pressed.size(), 1U);
}

TEST_F(FooterIconRowTest, TabReachesEachButtonInOrder) {
    for (FooterButton* const each : row.buttons()) EXPECT_TRUE(each->focusPolicy() & Qt::TabFocus);
    EXPECT_EQ(button(0).nextInFocusChain(), &button(1));
    EXPECT_EQ(button(1).nextInFocusChain(), &button(2));
}

TEST_F(FooterIconRowTest, HelpIsToolTipAndName) {
    EXPECT_EQ(button(0).toolTip(), QStringLiteral("Help of one"));
    EXPECT_EQ(button(0).accessibleName(), QStringLiteral("Help of one"));
}

TEST_F(FooterIconRowTest, ButtonUnderThePointerAloneHasItsGround) {
    enter(button(1));
    EXPECT_EQ(row.hoveredID(), "two");
    EXPECT_FALSE(button(0).isHovered());
    EXPECT_TRUE(button(1).isHovered());
    // Beside the symbol there is nothing but the ground.
    EXPECT_GT(pictureOf(button(1)).pixelColor(14, 2).alpha(), 0);
    EXPECT_EQ(pictureOf(button(0)).pixelColor(14, 2).alpha(), 0);
}

TEST_F(FooterIconRowTest, PointerThatLeavesTakesTheGroundAway) {
    enter(button(1));
    leave(button(1));
    EXPECT_EQ(row.hoveredID(), std::nullopt);
    EXPECT_FALSE(button(1).isHovered());
}

TEST_F(FooterIconRowTest, LateLeaveOfAnotherButtonChangesNothing) {
    enter(button(0));
    enter(button(1));
    leave(button(0));
    EXPECT_EQ(row.hoveredID(), "two");
}

TEST_F(FooterIconRowTest, FocusShowsARing) {
    row.show();
    QApplication::setActiveWindow(&row);
    button(0).setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(button(0).hasFocus());
    EXPECT_EQ(pictureOf(button(0)).pixelColor(14, 1), Theme::accent);
    EXPECT_EQ(pictureOf(button(1)).pixelColor(14, 1).alpha(), 0);
}

TEST_F(FooterIconRowTest, ShortcutOfTheSameIdKeepsItsButtonAndItsFocus) {
    row.show();
    QApplication::setActiveWindow(&row);
    FooterButton* const settings = &button(2);
    settings->setFocus(Qt::TabFocusReason);
    row.setRow(shortcuts({"two", "velmora.settings"}));
    ASSERT_EQ(row.buttons().size(), 2U);
    EXPECT_EQ(&button(1), settings);
    EXPECT_TRUE(settings->hasFocus());
}

TEST_F(FooterIconRowTest, ButtonRunsItsNewestAction) {
    FooterIconRow next = shortcuts({"one"});
    next.shortcuts[0].action = [this] { pressed.emplace_back("new"); };
    row.setRow(next);
    button(0).click();
    EXPECT_EQ(pressed, std::vector<std::string>{"new"});
}

TEST_F(FooterIconRowTest, HoveredButtonThatGoesIsForgotten) {
    enter(button(0));
    row.setRow(shortcuts({"two"}));
    EXPECT_EQ(row.hoveredID(), std::nullopt);
}

TEST_F(FooterIconRowTest, ActionMayTakeItsOwnButtonAway) {
    FooterIconRow next = shortcuts({"one"});
    next.shortcuts[0].action = [this] {
        row.setRow({});
        pressed.emplace_back("gone");
    };
    row.setRow(next);
    press(button(0), Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(pressed, std::vector<std::string>{"gone"});
    EXPECT_TRUE(row.buttons().empty());
}

TEST_F(FooterIconRowTest, ShortcutWithoutAnActionDoesNothing) {
    FooterIconRow silent;
    silent.shortcuts.push_back({"x", "no.such.symbol", "", false, {}});
    row.setRow(silent);
    button(0).click();
    pictureOf(button(0));
    EXPECT_TRUE(pressed.empty());
}

TEST_F(FooterIconRowTest, WithoutShortcutsItTakesNoRoom) {
    row.setRow({});
    EXPECT_EQ(row.heightForWidth(284), 0);
}

}  // namespace
}  // namespace velmora
