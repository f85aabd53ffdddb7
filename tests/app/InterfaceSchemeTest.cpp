#include "app/InterfaceScheme.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/qt/desktop/DesktopColors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPalette>

#include <vector>

namespace velmora {
namespace {

/// A desktop without a portal: what the toolkit's windows look like decides.
class InterfaceSchemeTest : public testing::Test {
protected:
    InterfaceSchemeTest() { paintWindows(Qt::white); }
    ~InterfaceSchemeTest() override { QApplication::setPalette(m_before); }
    static void paintWindows(const QColor& color) {
        QApplication::setPalette(QPalette(color));
        QCoreApplication::processEvents();
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    DesktopColors colors{runLoop,
                         SessionBus(QStringLiteral("unix:path=/nonexistent")),
                         {Session::WindowSystem::offscreen, Session::Desktop::other},
                         {}};

private:
    const QPalette m_before = QApplication::palette();
};

TEST_F(InterfaceSchemeTest, SchemeIsThatOfTheDesktopAtTheStart) {
    EXPECT_EQ(InterfaceScheme(colors).scheme().get(), Scheme::light);
    paintWindows(QColor(30, 30, 30));
    EXPECT_EQ(InterfaceScheme(colors).scheme().get(), Scheme::dark);
}

TEST_F(InterfaceSchemeTest, ChangeOfTheDesktopIsFollowedAtOnce) {
    const InterfaceScheme follower(colors);
    std::vector<Scheme> told;
    const Subscription subscription =
        follower.scheme().subscribe([&](Scheme scheme) { told.push_back(scheme); });
    paintWindows(QColor(30, 30, 30));
    paintWindows(QColor(250, 250, 250));
    EXPECT_EQ(told, (std::vector<Scheme>{Scheme::light, Scheme::dark, Scheme::light}));
}

TEST_F(InterfaceSchemeTest, OtherColoursOfTheSameSchemeTellNothing) {
    const InterfaceScheme follower(colors);
    int told = 0;
    const Subscription subscription = follower.scheme().subscribe([&](Scheme) { ++told; });
    paintWindows(QColor(200, 200, 200));
    EXPECT_EQ(told, 1) << "at the subscription alone";
}

}  // namespace
}  // namespace velmora
