#include "platform/qt/services/QtUpstreamNameServers.h"

#include "fakes/FakeNetworkSources.h"
#include "platform/qt/session/PrivateBus.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <functional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Entries = QList<QVariantMap>;

/// The part of NetworkManager that answers one property. Answers as the test says, or not at all.
class FakeNetworkManager final : public QDBusVirtualObject {
public:
    explicit FakeNetworkManager(const SessionBus& bus)
        : m_name(SessionBus::newName()), m_bus(bus.open(m_name)) {
        m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/NetworkManager/DnsManager"), this);
        m_bus.registerService(QStringLiteral("org.freedesktop.NetworkManager"));
    }
    ~FakeNetworkManager() override {
        m_bus.unregisterObject(QStringLiteral("/org/freedesktop/NetworkManager/DnsManager"));
        m_bus.unregisterService(QStringLiteral("org.freedesktop.NetworkManager"));
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        ++questions;
        EXPECT_EQ(message.member(), QStringLiteral("Get"));
        EXPECT_EQ(message.arguments().at(0).toString(),
                  QStringLiteral("org.freedesktop.NetworkManager.DnsManager"));
        EXPECT_EQ(message.arguments().at(1).toString(), QStringLiteral("Configuration"));
        if (answers) connection.send(message.createReply(QVariant::fromValue(QDBusVariant(configuration))));
        return true;
    }

    QVariant configuration;
    bool answers = true;
    int questions = 0;

private:
    QString m_name;
    QDBusConnection m_bus;
};

class QtUpstreamNameServersTest : public testing::Test {
protected:
    QtUpstreamNameServersTest() { qDBusRegisterMetaType<Entries>(); }

    QtUpstreamNameServers::Connect connect() {
        return [this] { return bus.sessionBus().open(SessionBus::newName()); };
    }
    static QVariantMap entry(const QStringList& servers) {
        return {{QStringLiteral("nameservers"), servers}, {QStringLiteral("priority"), 100}};
    }

    PrivateBus bus;
    FakeMonotonicClock clock;
};

TEST_F(QtUpstreamNameServersTest, AnswerIsThereAtTheNextLook) {
    FakeNetworkManager manager(bus.sessionBus());
    manager.configuration = QVariant::fromValue(Entries{
        entry({QStringLiteral("192.0.2.1"), QStringLiteral("192.0.2.2")}), entry({QStringLiteral("::9")})});
    QtUpstreamNameServers servers(clock, connect());
    EXPECT_TRUE(servers.latest().empty()) << "the question does not wait";
    EXPECT_TRUE(waitUntil([&] { return !servers.latest().empty(); }));
    EXPECT_EQ(servers.latest(), (std::vector<std::string>{"192.0.2.1", "192.0.2.2", "::9"}));
}

TEST_F(QtUpstreamNameServersTest, OnlyOneQuestionIsUnderWay) {
    FakeNetworkManager manager(bus.sessionBus());
    manager.answers = false;
    QtUpstreamNameServers servers(clock, connect());
    servers.latest();
    EXPECT_TRUE(waitUntil([&] { return manager.questions == 1; }));
    for (int look = 0; look < 5; ++look) EXPECT_TRUE(servers.latest().empty());
    // What was asked now would come before the answer to a question of the test's own.
    QDBusConnection other = bus.sessionBus().open(SessionBus::newName());
    other.call(QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                              QStringLiteral("org.freedesktop.DBus"),
                                              QStringLiteral("GetId")));
    EXPECT_EQ(manager.questions, 1);
}

TEST_F(QtUpstreamNameServersTest, AnswerOlderThanThreeRefreshesIsAbsent) {
    FakeNetworkManager manager(bus.sessionBus());
    manager.configuration = QVariant::fromValue(Entries{entry({QStringLiteral("192.0.2.1")})});
    QtUpstreamNameServers servers(clock, connect());
    ASSERT_TRUE(waitUntil([&] { return !servers.latest().empty(); }));
    manager.answers = false;
    clock.now += 90;
    EXPECT_FALSE(servers.latest().empty());
    clock.now += 1;
    EXPECT_TRUE(servers.latest().empty());
}

TEST_F(QtUpstreamNameServersTest, ServiceThatComesLaterIsAskedThen) {
    QtUpstreamNameServers servers(clock, connect());
    EXPECT_TRUE(servers.latest().empty());
    FakeNetworkManager manager(bus.sessionBus());
    manager.configuration = QVariant::fromValue(Entries{entry({QStringLiteral("192.0.2.1")})});
    EXPECT_TRUE(waitUntil([&] { return !servers.latest().empty(); }));
}

TEST_F(QtUpstreamNameServersTest, MachineWithoutABusHasNone) {
    QtUpstreamNameServers servers(clock, [] {
        return QDBusConnection::connectToBus(QStringLiteral("unix:path=/nowhere/at/all"),
                                             SessionBus::newName());
    });
    EXPECT_TRUE(servers.latest().empty());
    EXPECT_TRUE(servers.latest().empty());
}

TEST_F(QtUpstreamNameServersTest, LateAnswerFindsNobody) {
    FakeNetworkManager manager(bus.sessionBus());
    manager.configuration = QVariant::fromValue(Entries{entry({QStringLiteral("192.0.2.1")})});
    { QtUpstreamNameServers(clock, connect()).latest(); }
    EXPECT_TRUE(waitUntil([&] { return manager.questions == 1; }));
}

TEST_F(QtUpstreamNameServersTest, AnswerOfAnotherFormHasNone) {
    const QVariant several[] = {
        QVariant(QStringLiteral("text")),
        QVariant(7),
        QVariant::fromValue(QStringList{QStringLiteral("192.0.2.1")}),
        QVariant::fromValue(Entries{}),
        QVariant::fromValue(Entries{{{QStringLiteral("nameservers"), 7}}}),
        QVariant::fromValue(Entries{{{QStringLiteral("domains"), QStringLiteral("x")}}})};
    for (const QVariant& configuration : several) {
        FakeNetworkManager manager(bus.sessionBus());
        manager.configuration = configuration;
        QtUpstreamNameServers servers(clock, connect());
        servers.latest();
        // The second question is asked when the first was answered.
        EXPECT_TRUE(waitUntil([&] {
            servers.latest();
            return manager.questions >= 2;
        }));
        EXPECT_TRUE(servers.latest().empty()) << configuration.typeName();
    }
}

}  // namespace
}  // namespace velmora
