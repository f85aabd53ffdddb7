#include "settings/controls/SettingsButton.h"

#include "settings/Input.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QWidget>

namespace velmora {
namespace {

class PlainButton final : public SettingsButton {
public:
    using SettingsButton::SettingsButton;
    using SettingsButton::wash;

protected:
    void paintEvent(QPaintEvent*) override {}
};

class SettingsButtonTest : public testing::Test {
protected:
    SettingsButtonTest() {
        button.resize(60, 20);
        QObject::connect(&button, &QAbstractButton::clicked, &window, [this] { ++clicks; });
    }

    void focus(QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&button, &event);
    }

    QWidget window;
    PlainButton button{&window};
    int clicks = 0;
};

TEST_F(SettingsButtonTest, SpaceEnterAndReturnPressIt) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) Input::key(button, key);
    EXPECT_EQ(clicks, 3);
}

TEST_F(SettingsButtonTest, PointerPressesItWithoutTakingTheFocus) {
    window.show();
    Input::click(button);
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(button.showsFocus());
    EXPECT_EQ(button.focusPolicy() & Qt::ClickFocus, 0);
}

TEST_F(SettingsButtonTest, DisabledOneIsNotPressed) {
    button.setEnabled(false);
    Input::key(button, Qt::Key_Return);
    Input::click(button);
    EXPECT_EQ(clicks, 0);
}

TEST_F(SettingsButtonTest, FocusShowsWhenItCameByTab) {
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    EXPECT_TRUE(button.showsFocus());
    focus(QEvent::FocusOut, Qt::TabFocusReason);
    EXPECT_FALSE(button.showsFocus());
    focus(QEvent::FocusIn, Qt::BacktabFocusReason);
    EXPECT_TRUE(button.showsFocus());
}

// The toolkit gives the first button of a new window the focus, which nobody asked for.
TEST_F(SettingsButtonTest, FocusDoesNotShowInAWindowThatJustOpened) {
    focus(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    EXPECT_FALSE(button.showsFocus());
}

TEST_F(SettingsButtonTest, FocusThatComesBackFromAMenuLooksAsBefore) {
    focus(QEvent::FocusIn, Qt::TabFocusReason);
    focus(QEvent::FocusOut, Qt::PopupFocusReason);
    focus(QEvent::FocusIn, Qt::PopupFocusReason);
    EXPECT_TRUE(button.showsFocus());
}

TEST_F(SettingsButtonTest, PressedButtonIsWashedMoreThanAHoveredOne) {
    EXPECT_EQ(button.wash().alpha(), 0);
    button.setAttribute(Qt::WA_UnderMouse);
    const int hovered = button.wash().alpha();
    EXPECT_GT(hovered, 0);
    button.setDown(true);
    EXPECT_GT(button.wash().alpha(), hovered);
}

}  // namespace
}  // namespace velmora
