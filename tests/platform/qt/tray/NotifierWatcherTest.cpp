#include "platform/qt/tray/NotifierWatcher.h"

#include "platform/qt/session/PrivateBus.h"
#include "platform/qt/tray/FakeTrayHost.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

namespace velmora {
namespace {

class NotifierWatcherTest : public testing::Test {
protected:
    void start() {
        m_watcher.emplace(m_sessionBus, [this](unsigned processId) {
            m_askedProcess = processId;
            return m_processName;
        });
    }
    bool waitForHost() {
        return waitUntil([this] { return m_watcher->host().has_value(); });
    }

    PrivateBus m_bus;
    SessionBus m_sessionBus = m_bus.sessionBus();
    FakeTrayHost m_host{m_sessionBus};
    std::string m_processName = "waybar";
    unsigned m_askedProcess = 0;
    std::optional<NotifierWatcher> m_watcher;
};

TEST_F(NotifierWatcherTest, BusWithoutAHostIsSettledAndHasNone) {
    start();
    EXPECT_FALSE(m_watcher->isSettled());
    ASSERT_TRUE(waitUntil([&] { return m_watcher->isSettled(); }));
    EXPECT_EQ(m_watcher->host(), std::nullopt);
}

TEST_F(NotifierWatcherTest, HostThatIsThereIsKnownByItsProcess) {
    m_host.appear();
    start();
    ASSERT_TRUE(waitForHost());
    EXPECT_EQ(m_watcher->host()->profile, HostProfile::forProcess("waybar"));
    EXPECT_EQ(m_askedProcess, QCoreApplication::applicationPid());
}

TEST_F(NotifierWatcherTest, HostThatComesLaterIsNoticed) {
    start();
    ASSERT_TRUE(waitUntil([&] { return m_watcher->isSettled(); }));
    int changes = 0;
    const Subscription subscription = m_watcher->hostChanged.subscribe([&] { ++changes; });
    m_host.appear();
    ASSERT_TRUE(waitForHost());
    EXPECT_EQ(changes, 1);
}

TEST_F(NotifierWatcherTest, WatcherWithoutADrawingHostIsNoHost) {
    m_host.setHasHost(false);
    m_host.appear();
    start();
    ASSERT_TRUE(waitUntil([&] { return m_watcher->isSettled(); }));
    EXPECT_EQ(m_watcher->host(), std::nullopt);
    m_host.setHasHost(true);
    ASSERT_TRUE(waitForHost());
    m_host.setHasHost(false);
    EXPECT_TRUE(waitUntil([&] { return !m_watcher->host(); }));
}

TEST_F(NotifierWatcherTest, SecondDrawingHostIsNoChange) {
    m_host.appear();
    start();
    ASSERT_TRUE(waitForHost());
    int changes = 0;
    const Subscription subscription = m_watcher->hostChanged.subscribe([&] { ++changes; });
    m_host.setHasHost(true);
    m_host.setHasHost(false);
    ASSERT_TRUE(waitUntil([&] { return !m_watcher->host(); }));
    m_host.setHasHost(true);
    ASSERT_TRUE(waitForHost());
    EXPECT_EQ(changes, 2) << "only the going and the coming";
}

TEST_F(NotifierWatcherTest, HostThatGoesIsNoticed) {
    std::optional<FakeTrayHost> other(m_sessionBus);
    other->appear();
    start();
    ASSERT_TRUE(waitForHost());
    other.reset();
    EXPECT_TRUE(waitUntil([&] { return !m_watcher->host(); }));
}

TEST_F(NotifierWatcherTest, OwnProcessHasAName) {
    EXPECT_FALSE(
        NotifierWatcher::nameFromSystem(static_cast<unsigned>(QCoreApplication::applicationPid())).empty());
    EXPECT_EQ(NotifierWatcher::nameFromSystem(0), "");
}

TEST(NotifierWatcherWithoutABus, ThereIsNoHostFromTheStart) {
    const SessionBus none;
    ASSERT_FALSE(none.isPresent());
    const NotifierWatcher watcher(none);
    EXPECT_TRUE(watcher.isSettled());
    EXPECT_EQ(watcher.host(), std::nullopt);
}

}  // namespace
}  // namespace velmora
