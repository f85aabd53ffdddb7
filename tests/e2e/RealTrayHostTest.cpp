// The program beside a tray host that users have: the panel of Xfce, with its own configuration daemon.

#include "RunningProgram.h"
#include "ScreenPicture.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDir>
#include <QFile>
#include <QSet>

namespace velmora {
namespace {

constexpr auto kPanelConfiguration = R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="p=8;x=640;y=700"/>
      <property name="length" type="uint" value="100"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="size" type="uint" value="30"/>
      <property name="plugin-ids" type="array"><value type="int" value="1"/></property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="systray">
      <property name="square-icons" type="bool" value="true"/>
    </property>
  </property>
</channel>
)";

class RealTrayHostTest : public testing::Test {
protected:
    RealTrayHostTest() : bus(QDBusConnection::connectToBus(session.busAddress(), "real-tray-host-test")) {
        const QString folder = session.configFolder() + "/xfce4/xfconf/xfce-perchannel-xml";
        QDir().mkpath(folder);
        QFile file(folder + "/xfce4-panel.xml");
        if (file.open(QFile::WriteOnly)) file.write(kPanelConfiguration);
        file.close();
        storeDefault(session, "statusBar.backend", "\"tray\"");
        storeDefault(session, "sampleInterval", "0.5");
        startWindowManager(session);
        session.start("xfce4-panel", {"--disable-wm-check"});
    }
    ~RealTrayHostTest() override {
        bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus("real-tray-host-test");
    }

    QVariant get(const QString& service, const QString& path, const QString& interface,
                 const QString& name) const {
        QDBusMessage call =
            QDBusMessage::createMethodCall(service, path, "org.freedesktop.DBus.Properties", "Get");
        call.setAutoStartService(false);
        call.setArguments({interface, name});
        const QDBusMessage reply = bus.call(call, QDBus::Block, 5000);
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return {};
        return reply.arguments().first().value<QDBusVariant>().variant();
    }
    /// The Ids of what the panel's tray has registered.
    QSet<QString> registeredIds() const {
        QSet<QString> ids;
        const QStringList items = get("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                      "org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems")
                                      .toStringList();
        for (const QString& item : items) {
            ids.insert(get(item.section('/', 0, 0), "/StatusNotifierItem", "org.kde.StatusNotifierItem", "Id")
                           .toString());
        }
        return ids;
    }

    PrivateSession session;
    QDBusConnection bus;
    const QRect panel{0, 680, 1280, 40};
};

TEST_F(RealTrayHostTest, ThePanelRegistersEveryItemAndShowsTheirColours) {
    storeDefault(session, "moduleStyles", R"({"cpu":"bar","memory":"barOnly","network":"graph"})");
    const RunningProgram program(session);
    ASSERT_TRUE(waitUntil(
        [&] {
            return registeredIds() == QSet<QString>{"Velmora.cpu", "Velmora.memory", "Velmora.network"};
        },
        30000));
    storeDefault(session, "moduleColors", R"({"memory":"FF0000"})");
    EXPECT_TRUE(waitUntil([&] { return reddishPixels(screenPicture(session), panel) > 0; }));
}

TEST_F(RealTrayHostTest, AnItemThatIsTurnedOffLeavesThePanel) {
    const RunningProgram program(session);
    ASSERT_TRUE(waitUntil([&] { return registeredIds().size() == 3; }, 30000));
    storeDefault(session, "enabledModules", R"(["memory"])");
    EXPECT_TRUE(waitUntil([&] { return registeredIds() == QSet<QString>{"Velmora.memory"}; }));
}

}  // namespace
}  // namespace velmora
