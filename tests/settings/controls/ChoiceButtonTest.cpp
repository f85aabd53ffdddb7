#include "settings/controls/ChoiceButton.h"

#include "settings/Input.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWidget>

namespace velmora {
namespace {

class PlainChoice final : public ChoiceButton {
public:
    using ChoiceButton::ChoiceButton;
    QSize sizeHint() const override { return {40, 20}; }

protected:
    void paintEvent(QPaintEvent*) override {}
};

/// Two choices, of which the first is chosen and a press chooses, and something else beside them.
class ChoiceButtonTest : public testing::Test {
protected:
    ChoiceButtonTest() {
        auto* const stack = new QVBoxLayout(&window);
        for (QWidget* const widget :
             {static_cast<QWidget*>(first), static_cast<QWidget*>(second), static_cast<QWidget*>(other)}) {
            stack->addWidget(widget);
        }
        QObject::connect(first, &QAbstractButton::clicked, first, [this] { choose(*first); });
        QObject::connect(second, &QAbstractButton::clicked, second, [this] { choose(*second); });
        choose(*first);
        window.show();
        window.activateWindow();
        QCoreApplication::processEvents();
        other->setFocus();
    }
    void choose(const ChoiceButton& chosen) {
        for (PlainChoice* const choice : {first, second}) choice->setChosen(choice == &chosen);
    }

    QWidget window;
    PlainChoice* first = new PlainChoice(&window);
    PlainChoice* second = new PlainChoice(&window);
    QLineEdit* other = new QLineEdit(&window);
};

TEST_F(ChoiceButtonTest, TheChosenOneIsTheGroupsOnlyStopForTheTabKey) {
    choose(*second);
    EXPECT_EQ(first->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(second->focusPolicy(), Qt::TabFocus);
}

TEST_F(ChoiceButtonTest, APressWithThePointerTakesTheFocusOfTheGroupAlongAndDoesNotShowIt) {
    first->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(first->showsFocus());
    Input::click(*second);
    QCoreApplication::processEvents();
    EXPECT_TRUE(second->hasFocus());
    EXPECT_FALSE(first->showsFocus());
    EXPECT_FALSE(second->showsFocus());
}

TEST_F(ChoiceButtonTest, ArrowKeysTakeTheFocusAlongAndShowIt) {
    first->setFocus(Qt::TabFocusReason);
    Input::key(*first, Qt::Key_Down);
    QCoreApplication::processEvents();
    EXPECT_TRUE(second->isChosen());
    EXPECT_TRUE(second->hasFocus());
    EXPECT_TRUE(second->showsFocus());
}

TEST_F(ChoiceButtonTest, AFocusOutsideTheGroupStaysWhereItIs) {
    other->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(other->hasFocus());
    Input::click(*second);
    QCoreApplication::processEvents();
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(ChoiceButtonTest, AGroupWithoutAChosenOneIsReachedAtEach) {
    first->setChosen(false);
    EXPECT_FALSE(first->isChosen());
    EXPECT_EQ(first->focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(second->focusPolicy(), Qt::TabFocus);
}

}  // namespace
}  // namespace velmora
