#include "RunningProgram.h"
#include "ScreenPicture.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace velmora {
namespace {

/// The real program on a screen with a window manager and without a tray host.
class StripTest : public testing::Test {
protected:
    StripTest() {
        storeDefault(session, "sampleInterval", "0.5");
        storeDefault(session, "moduleStyles", R"({"cpu":"graph","memory":"value","network":"value"})");
        startWindowManager(session);
    }
    /// The strip once it has come to rest.
    ShownWindow strip() {
        constexpr int kEqualLooks = 5;
        ShownWindow window;
        int equal = 0;
        waitUntil([&] {
            const ShownWindow now = dockWindow(session);
            equal = !now.id.isEmpty() && now.geometry == window.geometry ? equal + 1 : 0;
            window = now;
            return equal >= kEqualLooks;
        });
        return window;
    }

    PrivateSession session;
};

TEST_F(StripTest, TheStripIsADockAtTheTopRightThatReservesItsHeight) {
    const RunningProgram program(session);
    const ShownWindow window = strip();
    ASSERT_FALSE(window.id.isEmpty());
    EXPECT_EQ(window.geometry.height(), 26);
    EXPECT_EQ(window.geometry.top(), 0);
    EXPECT_EQ(window.geometry.right(), 1279);
    const QList<int> strut = windowNumbers(session, window.id, "_NET_WM_STRUT_PARTIAL");
    ASSERT_EQ(strut.size(), 12);
    EXPECT_EQ(strut[2], 26) << "from the top";
    EXPECT_EQ(strut[0] + strut[1] + strut[3], 0);
    EXPECT_TRUE(waitUntil([&] {
        const QList<int> area = windowNumbers(session, {}, "_NET_WORKAREA");
        return area.size() >= 4 && area[1] == 26 && area[3] == 720 - 26;
    })) << "windows are kept off the strip";
}

TEST_F(StripTest, TheStripHasNoTaskBarEntry) {
    const RunningProgram program(session);
    const ShownWindow window = strip();
    ASSERT_FALSE(window.id.isEmpty());
    const QByteArray state = session.output("xprop", {"-id", window.id, "_NET_WM_STATE"});
    const QByteArray type = session.output("xprop", {"-id", window.id, "_NET_WM_WINDOW_TYPE"});
    EXPECT_EQ(type.count("_NET_WM_WINDOW_TYPE_"), 1) << type.constData() << state.constData();
}

TEST_F(StripTest, TheStripChangesWithTheFigures) {
    const RunningProgram program(session);
    const ShownWindow window = strip();
    ASSERT_FALSE(window.id.isEmpty());
    const QImage before = screenPicture(session).copy(window.geometry);
    ASSERT_FALSE(before.isNull());
    session.start("sh", {"-c", "while :; do :; done"});
    EXPECT_TRUE(waitUntil([&] { return screenPicture(session).copy(window.geometry) != before; }));
}

TEST_F(StripTest, AModuleThatIsTurnedOnWidensTheStripWithinASecond) {
    const RunningProgram program(session);
    const ShownWindow window = strip();
    ASSERT_FALSE(window.id.isEmpty());
    storeDefault(session, "enabledModules", R"(["cpu","memory","network","battery"])");
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(waitUntil([&] { return dockWindow(session).geometry.width() > window.geometry.width(); }));
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(dockWindow(session).geometry.right(), 1279);
}

TEST_F(StripTest, AColourIsOnTheScreenWithinASecond) {
    storeDefault(session, "moduleStyles", R"({"memory":"barOnly"})");
    const RunningProgram program(session);
    const ShownWindow window = strip();
    ASSERT_FALSE(window.id.isEmpty());
    ASSERT_EQ(reddishPixels(screenPicture(session), window.geometry), 0);
    storeDefault(session, "moduleColors", R"({"memory":"FF0000"})");
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(
        waitUntil([&] { return reddishPixels(screenPicture(session), dockWindow(session).geometry) > 0; }));
    EXPECT_LT(timer.elapsed(), 1000);
}

}  // namespace
}  // namespace velmora
