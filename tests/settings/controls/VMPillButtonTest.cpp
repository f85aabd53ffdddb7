#include "settings/controls/VMPillButton.h"

#include "settings/Input.h"

#include <gtest/gtest.h>

#include <QWidget>

namespace velmora {
namespace {

TEST(VMPillButtonTest, TapCallsTheNewestAction) {
    QWidget window;
    int first = 0;
    int second = 0;
    VMPillButton button(
        QStringLiteral("Sign in"), PillFill::filled, [&first] { ++first; }, &window);
    button.resize(80, 26);
    Input::click(button);
    button.setAction([&second] { ++second; });
    Input::click(button);
    button.setAction(nullptr);
    Input::click(button);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

TEST(VMPillButtonTest, NaturalWidthFollowsTheTitle) {
    VMPillButton button(QStringLiteral("OK"), PillFill::unfilled, [] {});
    button.setFixedHeight(26);
    const int before = button.sizeHint().width();
    button.setTitle(QStringLiteral("Nach Updates suchen"));
    EXPECT_GT(button.sizeHint().width(), before);
    EXPECT_EQ(button.button().buttonTitle(), "Nach Updates suchen");
}

}  // namespace
}  // namespace velmora
