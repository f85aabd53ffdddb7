#include "app/QuitKey.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

namespace velmora {
namespace {

constexpr int kWentOn = 7;

struct Window : QWidget {
    void keyPressEvent(QKeyEvent*) override { QCoreApplication::exit(kWentOn); }
};

/// The program's exit status after the key: that of a quit, or `kWentOn` if the window got the key.
int statusAfter(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Window window;
    QTimer::singleShot(0, &window, [&] {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(&window, &press);
    });
    return QApplication::exec();
}

TEST(QuitKey, ControlQInAWindowEndsTheProgramOnEveryDesktop) {
    const QuitKey quitKey;
    EXPECT_EQ(statusAfter(Qt::Key_Q, Qt::ControlModifier), 0);
}

TEST(QuitKey, OtherKeysDoNotEndTheProgram) {
    const QuitKey quitKey;
    EXPECT_EQ(statusAfter(Qt::Key_Q, Qt::NoModifier), kWentOn);
    EXPECT_EQ(statusAfter(Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier), kWentOn);
    EXPECT_EQ(statusAfter(Qt::Key_W, Qt::ControlModifier), kWentOn);
}

}  // namespace
}  // namespace velmora
