#include "RunningProgram.h"
#include "TrayHost.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

#include <algorithm>

namespace velmora {
namespace {

/// The real program beside a tray host of the test's own, with its items in the tray.
class TrayItemsTest : public testing::Test {
protected:
    TrayItemsTest() {
        storeDefault(session, "statusBar.backend", "\"tray\"");
        storeDefault(session, "sampleInterval", "0.5");
        storeDefault(session, "onboardingCompleted", "true");
    }
    bool waitForItems(const QStringList& ids, int limitMs = 15000) {
        return waitUntil([&] { return shown() == ids; }, limitMs);
    }
    /// The items' Ids from left to right.
    QStringList shown() const {
        if (host.items().size() != lastCount) {
            lastCount = host.items().size();
            lastIds = host.properties("Id");
        }
        return lastIds;
    }
    static bool hasColour(const QImage& image, QRgb colour) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == colour) return true;
            }
        }
        return false;
    }

    /// How many windows are on the screen: all are the program's, for nothing else runs there.
    int shownWindows() const {
        int shown = 0;
        const QString tree = session.output("xwininfo", {"-root", "-children"});
        for (QString line : tree.split('\n')) {
            line = line.trimmed();
            if (!line.startsWith("0x")) continue;
            shown += session.output("xwininfo", {"-id", line.section(' ', 0, 0)}).contains("IsViewable");
        }
        return shown;
    }

    PrivateSession session;
    TrayHost host{session.busAddress()};

private:
    mutable qsizetype lastCount = -1;
    mutable QStringList lastIds;
};

const QStringList kDefaultItems{"Velmora.cpu", "Velmora.memory", "Velmora.network"};

TEST_F(TrayItemsTest, TheDefaultItemsAppearInOrderWithTheirNames) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    EXPECT_EQ(host.properties("Title"), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM", "Velmora 4 NET"}));
    const auto icons = host.icons(host.items().first());
    ASSERT_FALSE(icons.empty());
    for (const QImage& icon : icons) EXPECT_EQ(icon.height() % 22, 0);
}

TEST_F(TrayItemsTest, ItemsChangeWithTheFigures) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    storeDefault(session, "moduleStyles", R"({"cpu":"graph"})");
    const QString cpu = host.items().first();
    const int before = host.newIconCount(cpu);
    // Load on every core, until the graph shows it: each new point moves the bars.
    for (int core = 0; core < 2; ++core) session.start("sh", {"-c", "while :; do :; done"});
    EXPECT_TRUE(waitUntil([&] { return host.newIconCount(cpu) >= before + 3; }));
}

TEST_F(TrayItemsTest, AChangeOfTheEnabledModulesIsFollowedWithinASecond) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    storeDefault(session, "enabledModules", R"(["cpu","memory","network","battery"])");
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(waitUntil([&] { return !host.itemNamed("Velmora.battery").isEmpty(); }));
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_EQ(shown(), (QStringList{"Velmora.cpu", "Velmora.memory", "Velmora.network", "Velmora.battery"}));
}

TEST_F(TrayItemsTest, AColourChangeIsFollowedWithinASecond) {
    storeDefault(session, "moduleStyles", R"({"memory":"barOnly"})");
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    const QString memory = host.itemNamed("Velmora.memory");
    constexpr QRgb kRed = 0xffff0000;
    ASSERT_FALSE(hasColour(host.icons(memory).back(), kRed));
    storeDefault(session, "moduleColors", R"({"memory":"FF0000"})");
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(waitUntil([&] { return hasColour(host.icons(memory).back(), kRed); }));
    EXPECT_LT(timer.elapsed(), 1000);
}

TEST_F(TrayItemsTest, WithEveryModuleOffTheFallbackShowsItsMenuAndQuitEndsTheProgram) {
    RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    storeDefault(session, "enabledModules", "[]");
    ASSERT_TRUE(waitForItems({"Velmora.fallback"}));
    const QString fallback = host.items().first();
    EXPECT_TRUE(host.property(fallback, "ItemIsMenu").toBool());
    const QStringList titles = host.menuTitles(fallback);
    EXPECT_EQ(titles.first(), QString::fromUtf8("Settings…"));
    EXPECT_TRUE(titles.contains("About Velmora"));
    EXPECT_EQ(titles.last(), "Quit Velmora");
    host.chooseFromMenu(fallback, "Quit Velmora");
    EXPECT_EQ(program.waitForExit(), 0);
}

TEST_F(TrayItemsTest, TheSettingsEntryOfTheFallbackOpensTheWindow) {
    storeDefault(session, "enabledModules", "[]");
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems({"Velmora.fallback"}));
    ASSERT_EQ(shownWindows(), 0);
    host.chooseFromMenu(host.items().first(), QString::fromUtf8("Settings…"));
    EXPECT_TRUE(waitUntil([&] { return shownWindows() == 1; }));
}

TEST_F(TrayItemsTest, TheFallbackLeavesWhenAModuleComesBack) {
    storeDefault(session, "enabledModules", "[]");
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems({"Velmora.fallback"}));
    storeDefault(session, "enabledModules", R"(["disk"])");
    EXPECT_TRUE(waitForItems({"Velmora.disk"}));
}

TEST_F(TrayItemsTest, TheStoredPlaceOfTheItemsIsFollowedWithoutARestart) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    storeDefault(session, "statusBar.backend", "\"strip\"");
    ASSERT_TRUE(waitUntil([&] { return host.items().isEmpty(); }));
    EXPECT_TRUE(waitUntil([&] { return shownWindows() == 1; })) << "the strip";
    storeDefault(session, "statusBar.backend", "\"tray\"");
    EXPECT_TRUE(waitForItems(kDefaultItems));
    EXPECT_TRUE(waitUntil([&] { return shownWindows() == 0; }));
}

TEST_F(TrayItemsTest, TheStoredInkIsFollowedWithoutARestart) {
    storeDefault(session, "moduleStyles", R"({"memory":"value"})");
    storeDefault(session, "statusBar.ink", "\"dark\"");
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    const QString memory = host.itemNamed("Velmora.memory");
    constexpr QRgb kBlack = 0xff000000;
    constexpr QRgb kWhite = 0xffffffff;
    ASSERT_TRUE(hasColour(host.icons(memory).back(), kBlack));
    ASSERT_FALSE(hasColour(host.icons(memory).back(), kWhite));
    storeDefault(session, "statusBar.ink", "\"light\"");
    EXPECT_TRUE(waitUntil([&] { return hasColour(host.icons(memory).back(), kWhite); }));
    EXPECT_FALSE(hasColour(host.icons(memory).back(), kBlack));
}

TEST_F(TrayItemsTest, WithTheFirstRunBehindItNoWindowAppears) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitForItems(kDefaultItems));
    EXPECT_EQ(shownWindows(), 0);
}

TEST_F(TrayItemsTest, ItemsReturnInOrderToAHostThatComesLate) {
    PrivateSession lateSession;
    storeDefault(lateSession, "statusBar.backend", "\"tray\"");
    const RunningProgram program(lateSession);
    ASSERT_TRUE(waitUntil([&] { return storedDefault(lateSession, "launchAtLogin") == "true"; }))
        << "the program has started without a host";
    const TrayHost late(lateSession.busAddress());
    EXPECT_TRUE(
        waitUntil([&] { return late.items().size() == 3 && late.properties("Id") == kDefaultItems; }));
}

}  // namespace
}  // namespace velmora
