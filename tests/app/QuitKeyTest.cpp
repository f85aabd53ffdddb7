#include "app/QuitKey.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeMenuView.h"
#include "fakes/FakeRunLoop.h"
#include "panels/PanelWindow.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/ProcessIconSource.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QWidget>
#include <QWindow>

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

TEST(QuitKey, ControlQThatTheDesktopGivesToTheWindowEndsTheProgram) {
    const QuitKey quitKey;
    Window window;
    window.show();
    QTimer::singleShot(0, &window, [&] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Q, Qt::ControlModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &press);
    });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST(QuitKey, ControlQInATextFieldEndsTheProgramToo) {
    QuitKey quitKey;
    QWidget window;
    QLineEdit field(&window);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(quitKey.eventFilter(&field, &press));
}

TEST(QuitKey, APanelHasNoQuitKey) {
    struct NoIcons final : ProcessIconSource {
        std::optional<std::string> iconOf(std::int32_t) override { return std::nullopt; }
    };
    QuitKey quitKey;
    FakeMenuView::Log log;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    const Published<Scheme> scheme{Scheme::dark};
    NoIcons iconSource;
    ProcessIcons icons{iconSource};
    for (const auto kind : {PanelWindow::Kind::popup, PanelWindow::Kind::tool, PanelWindow::Kind::unmanaged,
                            PanelWindow::Kind::plain}) {
        PanelWindow panel(std::make_unique<FakeMenuView>(StatsModule::cpu, log), scheme, icons, runLoop,
                          {.kind = kind});
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Q, Qt::ControlModifier);
        EXPECT_FALSE(quitKey.eventFilter(&panel, &press)) << static_cast<int>(kind);
        for (QWidget* const part : panel.findChildren<QWidget*>()) {
            EXPECT_FALSE(quitKey.eventFilter(part, &press)) << static_cast<int>(kind);
        }
    }
}

}  // namespace
}  // namespace velmora
