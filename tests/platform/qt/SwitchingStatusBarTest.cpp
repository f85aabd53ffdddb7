#include "platform/qt/SwitchingStatusBar.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/qt/services/FakeDesktopServices.h"
#include "platform/qt/session/PrivateBus.h"
#include "platform/qt/strip/StripCell.h"
#include "platform/qt/strip/StripStatusBar.h"
#include "platform/qt/tray/FakeTrayHost.h"
#include "platform/qt/tray/NotifierStatusBar.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMouseEvent>

namespace velmora {
namespace {

using Place = StatusBarPlace;

// The strip's window is made on the offscreen platform; the choice is that of a real display.
const Session kX11{Session::WindowSystem::x11, Session::Desktop::other};
const Session kWayland{Session::WindowSystem::wayland, Session::Desktop::other};
const StatusItem kCpu{"Velmora.cpu", "CPU", "Velmora — CPU", false, false};
const StatusItem kMemory{"Velmora.memory", "MEM", "Velmora — MEM", false, false};
const StatusItem kFallback{"Velmora.fallback", "Velmora", "Velmora", true, true};

ItemImage imageOf(std::uint32_t color) {
    return {{{60, 22, 1, std::vector<std::uint32_t>(60U * 22U, color)}}, "42%"};
}

class SwitchingStatusBarTest : public testing::Test {
protected:
    void start(const Session& session, StatusBarPreferences preferences = {}) {
        m_bar.emplace(m_loop, session, preferences, m_sessionBus, [this](unsigned) { return m_hostName; });
        m_bar->setItems({kCpu, kMemory});
        m_bar->setImage(kCpu.id, imageOf(0xFF112233));
        m_bar->setImage(kMemory.id, imageOf(0xFF445566));
        m_subscription = m_bar->appearanceChanged.subscribe([this] { ++m_changes; });
    }
    void showHost() {
        m_host.emplace(m_sessionBus);
        m_host->appear();
    }
    bool waitForPlace(Place place) {
        return waitUntil([&] { return m_bar->place() == place; });
    }
    /// Waits until the bar has heard of the host's coming or going and lets its time for thought begin.
    bool waitForTimer(double seconds) {
        return waitUntil([&] {
            const std::vector<double> timers = m_loop.timerSeconds();
            return std::ranges::find(timers, seconds) != timers.end();
        });
    }
    bool waitForRegistrations(int count) {
        return waitUntil([&] {
            m_loop.advance(NotifierStatusBar::kStepSeconds);
            QCoreApplication::processEvents();
            return m_host->registrations >= count;
        });
    }

    PrivateBus m_bus;
    SessionBus m_sessionBus = m_bus.sessionBus();
    FakeClock m_clock;
    FakeRunLoop m_loop{m_clock};
    std::string m_hostName = "waybar";
    std::optional<FakeTrayHost> m_host;
    std::optional<SwitchingStatusBar> m_bar;
    int m_changes = 0;
    Subscription m_subscription;
};

TEST_F(SwitchingStatusBarTest, HostThatKeepsWidthIsTakenAtTheStart) {
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::tray));
    EXPECT_FALSE(m_bar->appearance().square);
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_loop.elapsed(), 0);
}

TEST_F(SwitchingStatusBarTest, HostOfSquaresLeavesX11ToTheStrip) {
    m_hostName = "kded5";
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    EXPECT_TRUE(m_bar->strip()->window().isVisible());
}

TEST_F(SwitchingStatusBarTest, HostOfSquaresIsTakenWhereTheStripCannotBe) {
    m_hostName = "kded5";
    showHost();
    start(kWayland);
    ASSERT_TRUE(waitForPlace(Place::tray));
    EXPECT_TRUE(m_bar->appearance().square);
    EXPECT_EQ(m_bar->appearance().ratios, (std::vector<double>{1, 2, 3}));
}

TEST_F(SwitchingStatusBarTest, WithoutAHostTheStripIsShownAtOnce) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    EXPECT_EQ(m_loop.elapsed(), 0);
    EXPECT_TRUE(m_bar->isVisible());
}

TEST_F(SwitchingStatusBarTest, WhereNothingCanBeShownItSaysSoAndGoesOnWatching) {
    start(kWayland);
    EXPECT_TRUE(m_bar->isVisible()) << "before the choice";
    ASSERT_TRUE(waitUntil([&] { return !m_bar->isVisible(); }));
    EXPECT_EQ(m_bar->place(), Place::nowhere);
    EXPECT_EQ(m_changes, 1);
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.5);
    EXPECT_EQ(m_bar->place(), Place::tray);
    EXPECT_TRUE(m_bar->isVisible());
}

TEST_F(SwitchingStatusBarTest, LateHostIsTakenAfterHalfASecondWithTheLastImages) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.49);
    EXPECT_EQ(m_bar->place(), Place::dock);
    m_loop.advance(0.01);
    EXPECT_EQ(m_bar->place(), Place::tray);
    EXPECT_EQ(m_bar->strip(), nullptr);
    ASSERT_TRUE(waitForRegistrations(2));
    EXPECT_EQ(m_host->titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM"}));
    const auto icons =
        qdbus_cast<QList<IconImage>>(m_host->properties(m_host->registered.value(0)).value("IconPixmap"));
    ASSERT_EQ(icons.size(), 1);
    EXPECT_EQ(icons[0].bytes.left(4), QByteArray("\xFF\x11\x22\x33", 4));
}

TEST_F(SwitchingStatusBarTest, LostHostIsReplacedByTheStripAfterTwoSeconds) {
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::tray));
    ASSERT_TRUE(waitForRegistrations(2));
    m_host.reset();
    ASSERT_TRUE(waitForTimer(2.0));
    m_loop.advance(1.99);
    EXPECT_EQ(m_bar->place(), Place::tray);
    m_loop.advance(0.01);
    ASSERT_EQ(m_bar->place(), Place::dock);
    const auto cells = m_bar->strip()->window().findChildren<StripCell*>();
    ASSERT_EQ(cells.size(), 2);
    EXPECT_EQ(cells[0]->image().pixels, imageOf(0xFF112233).pixels);
}

TEST_F(SwitchingStatusBarTest, HostThatRestartsGetsItsItemsBackWithoutTheStrip) {
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::tray));
    ASSERT_TRUE(waitForRegistrations(2));
    const NotifierStatusBar* const before = m_bar->tray();
    m_host.reset();
    ASSERT_TRUE(waitForTimer(2.0));
    m_loop.advance(1);
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.5);
    EXPECT_EQ(m_bar->tray(), before);
    ASSERT_TRUE(waitForRegistrations(2));
    EXPECT_EQ(m_host->titles(), (QStringList{"Velmora 1 CPU", "Velmora 2 MEM"}));
}

TEST_F(SwitchingStatusBarTest, DrawingHostThatComesBackUnderTheSameWatcherStillKnowsTheItems) {
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::tray));
    ASSERT_TRUE(waitForRegistrations(2));
    m_host->setHasHost(false);
    ASSERT_TRUE(waitForTimer(2.0));
    m_host->setHasHost(true);
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(3);
    m_host->roundTrip(m_host->registered.value(0));
    EXPECT_EQ(m_host->registrations, 2);
    EXPECT_EQ(m_bar->place(), Place::tray);
}

TEST_F(SwitchingStatusBarTest, HostOfAnotherKindGetsItemsOfItsKind) {
    showHost();
    start(kWayland);
    ASSERT_TRUE(waitForPlace(Place::tray));
    ASSERT_TRUE(waitForRegistrations(2));
    m_host.reset();
    ASSERT_TRUE(waitForTimer(2.0));
    m_hostName = "lxqt-panel";
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.5);
    EXPECT_TRUE(m_bar->appearance().square);
    EXPECT_TRUE(waitForRegistrations(2));
}

TEST_F(SwitchingStatusBarTest, PreferenceIsFollowedAtOnceAndLeavesASecondBeforeTheTrayIsEnteredAgain) {
    showHost();
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::tray));
    ASSERT_TRUE(waitForRegistrations(2));
    m_bar->setPreferences({.backend = BackendPreference::strip});
    m_loop.advance(0);
    EXPECT_EQ(m_bar->place(), Place::dock);
    ASSERT_TRUE(waitUntil([&] { return m_host->registered.isEmpty(); }));
    m_bar->setPreferences({.backend = BackendPreference::tray});
    m_loop.advance(0.5);
    EXPECT_EQ(m_bar->place(), Place::dock);
    m_loop.advance(0.5);
    EXPECT_EQ(m_bar->place(), Place::tray);
    EXPECT_TRUE(waitForRegistrations(4));
}

TEST_F(SwitchingStatusBarTest, TrayThatIsPreferredIsWaitedFor) {
    start(kX11, {.backend = BackendPreference::tray});
    ASSERT_TRUE(waitUntil([&] { return !m_bar->isVisible(); }));
    EXPECT_EQ(m_bar->strip(), nullptr);
}

TEST_F(SwitchingStatusBarTest, InkOfTheUserDecidesAtOnce) {
    start(kX11, {.ink = InkPreference::dark});
    ASSERT_TRUE(waitForPlace(Place::dock));
    EXPECT_FALSE(m_bar->appearance().dark);
    m_changes = 0;
    m_bar->setPreferences({.ink = InkPreference::light});
    m_loop.advance(0);
    EXPECT_TRUE(m_bar->appearance().dark);
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_bar->place(), Place::dock);
}

TEST_F(SwitchingStatusBarTest, NewPlaceIsDrawnOnceAndInItsShade) {
    start(kX11, {.ink = InkPreference::light});
    ASSERT_TRUE(waitForPlace(Place::dock));
    EXPECT_TRUE(m_bar->appearance().dark);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(SwitchingStatusBarTest, DesktopsSchemeIsFollowedAtOnce) {
    FakePortal portal(m_sessionBus, 2);
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    EXPECT_FALSE(m_bar->appearance().dark);
    m_changes = 0;
    portal.setScheme(1);
    ASSERT_TRUE(waitUntil([&] { return m_bar->appearance().dark; }));
    EXPECT_EQ(m_changes, 1);
}

TEST_F(SwitchingStatusBarTest, DesktopsSchemeIsFollowedInATrayToo) {
    FakePortal portal(m_sessionBus, 2);
    showHost();
    start(kWayland);
    ASSERT_TRUE(waitForPlace(Place::tray));
    EXPECT_FALSE(m_bar->appearance().dark);
    m_changes = 0;
    portal.setScheme(1);
    ASSERT_TRUE(waitUntil([&] { return m_bar->appearance().dark; }));
    EXPECT_EQ(m_changes, 1);
}

TEST_F(SwitchingStatusBarTest, ItemThatComesBackDoesNotShowItsOldImageInANewPlace) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    m_bar->setItems({kMemory});
    m_bar->setItems({kCpu, kMemory});
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.5);
    ASSERT_TRUE(waitForRegistrations(2));
    const auto iconsOf = [this](int item) {
        return qdbus_cast<QList<IconImage>>(
            m_host->properties(m_host->registered.value(item)).value("IconPixmap"));
    };
    EXPECT_TRUE(iconsOf(0).isEmpty());
    EXPECT_EQ(iconsOf(1).size(), 1);
}

TEST_F(SwitchingStatusBarTest, ItemsThatWereRemovedDoNotComeBackWithASwitch) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    m_bar->setItems({kMemory});
    m_bar->setImage(kCpu.id, imageOf(0xFF000000));
    showHost();
    ASSERT_TRUE(waitForTimer(0.5));
    m_loop.advance(0.5);
    ASSERT_TRUE(waitForRegistrations(1));
    EXPECT_EQ(m_host->titles(), QStringList{"Velmora 2 MEM"});
}

TEST_F(SwitchingStatusBarTest, ClicksAndMenusPassThrough) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    std::vector<std::string> clicks;
    const Subscription subscription =
        m_bar->activated.subscribe([&](const std::string& id, const Anchor&) { clicks.push_back(id); });
    StripCell* const cell = m_bar->strip()->window().findChildren<StripCell*>().value(0);
    ASSERT_NE(cell, nullptr);
    cell->pressed(*cell);
    EXPECT_EQ(clicks, std::vector<std::string>{kCpu.id});

    std::vector<std::string> asked;
    std::vector<std::string> chosen;
    m_bar->menuEntries = [&](const std::string& id) {
        asked.push_back(id);
        return std::vector<StatusMenuEntry>{{"menu.quit", "Quit", "q"}};
    };
    const Subscription choosing =
        m_bar->menuChosen.subscribe([&](const std::string& action) { chosen.push_back(action); });
    m_bar->setItems({kFallback});
    m_bar->setImage(kFallback.id, imageOf(0xFF000000));
    for (StripCell* const each : m_bar->strip()->window().findChildren<StripCell*>()) {
        if (each->item() == kFallback) each->pressed(*each);
    }
    EXPECT_EQ(asked, std::vector<std::string>{kFallback.id});
    QMenu* const menu = m_bar->strip()->menu().menu();
    ASSERT_NE(menu, nullptr);
    menu->actions().value(0)->trigger();
    ASSERT_TRUE(waitUntil([&] { return !chosen.empty(); }));
    EXPECT_EQ(chosen, std::vector<std::string>{"menu.quit"});
    EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(SwitchingStatusBarTest, NothingRunsAtRest) {
    start(kX11);
    ASSERT_TRUE(waitForPlace(Place::dock));
    m_loop.advance(10);
    EXPECT_EQ(m_loop.timerCount(), 0U);
}

TEST(SwitchingStatusBarWithoutABus, StripIsChosenAtOnce) {
    FakeClock clock;
    FakeRunLoop loop(clock);
    const SwitchingStatusBar bar(loop, kX11, {}, SessionBus());
    EXPECT_EQ(bar.place(), Place::dock);
    EXPECT_EQ(loop.timerCount(), 0U);
}

TEST(SwitchingStatusBarWithADeadBus, StripIsChosenAtOnce) {
    FakeClock clock;
    FakeRunLoop loop(clock);
    const SwitchingStatusBar bar(loop, kX11, {}, SessionBus(QStringLiteral("unix:path=/nowhere/bus")));
    EXPECT_EQ(bar.place(), Place::dock);
}

TEST_F(SwitchingStatusBarTest, StripIsChosenWhenTheBusDoesNotAnswerInASecond) {
    start(kX11);
    m_loop.advance(0.99);
    EXPECT_EQ(m_bar->strip(), nullptr);
    m_loop.advance(0.01);
    EXPECT_NE(m_bar->strip(), nullptr);
}

}  // namespace
}  // namespace velmora
