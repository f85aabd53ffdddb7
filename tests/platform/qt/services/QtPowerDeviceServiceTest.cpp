#include "platform/qt/services/QtPowerDeviceService.h"

#include "platform/qt/services/FakePowerBus.h"
#include "platform/qt/session/PrivateBus.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using State = PowerDeviceService::State;

const QString kDeviceInterface = QStringLiteral("org.freedesktop.UPower.Device");
const QString kDisplay = QStringLiteral("/org/freedesktop/UPower/devices/DisplayDevice");
const QString kMouse = QStringLiteral("/org/freedesktop/UPower/devices/mouse_0");
const QString kHeadset = QStringLiteral("/org/freedesktop/UPower/devices/headset_0");

class QtPowerDeviceServiceTest : public testing::Test {
protected:
    QtPowerDeviceServiceTest() {
        fake.properties[kDisplay] = {{"Type", 2U},
                                     {"PowerSupply", true},
                                     {"IsPresent", true},
                                     {"TimeToEmpty", qlonglong{7200}},
                                     {"TimeToFull", qlonglong{0}}};
        fake.properties[kMouse] = {{"Type", 5U},        {"Model", "Mouse"},   {"PowerSupply", false},
                                   {"IsPresent", true}, {"Percentage", 54.5}, {"BatteryLevel", 1U}};
        fake.devices = {QDBusObjectPath(kMouse)};
    }
    ~QtPowerDeviceServiceTest() override {
        for (const QString& name : names) SessionBus::close(name);
    }

    QDBusConnection connect() {
        names.push_back(SessionBus::newName());
        return bus.sessionBus().open(names.back());
    }
    void appear() { ASSERT_TRUE(fake.bus.registerService(QStringLiteral("org.freedesktop.UPower"))); }
    void vanish() { fake.bus.unregisterService(QStringLiteral("org.freedesktop.UPower")); }
    bool waitForState(State state) {
        return waitUntil([&] { return service.state() == state; });
    }
    /// The mouse as the service knows it; nothing while there is not exactly one device.
    std::optional<PowerDevice> onlyDevice() {
        const auto& devices = service.devices().devices;
        return devices.size() == 1 ? std::optional(devices.front()) : std::nullopt;
    }

    std::vector<QString> names;
    PrivateBus bus;
    FakePowerBus fake{connect()};
    QtPowerDeviceService service{[this] { return connect(); }};
};

TEST_F(QtPowerDeviceServiceTest, NothingIsConnectedBeforeTheFirstQuestion) {
    const std::size_t connections = names.size();
    EXPECT_EQ(service.state(), State::asking);
    EXPECT_EQ(names.size(), connections + 1);
    service.state();
    EXPECT_EQ(names.size(), connections + 1);
}

TEST_F(QtPowerDeviceServiceTest, WithoutABusThereIsNoService) {
    QtPowerDeviceService none([] { return QDBusConnection(QStringLiteral("no such connection")); });
    EXPECT_EQ(none.state(), State::absent);
    EXPECT_EQ(none.devices(), PowerDevices{});
}

TEST_F(QtPowerDeviceServiceTest, BusWithoutTheServiceHasNone) {
    EXPECT_TRUE(waitForState(State::absent));
    EXPECT_EQ(service.devices(), PowerDevices{});
    EXPECT_TRUE(fake.calls.empty());
}

TEST_F(QtPowerDeviceServiceTest, DevicesAreKnownOnceAllHaveTold) {
    appear();
    EXPECT_TRUE(waitForState(State::known));
    ASSERT_TRUE(service.devices().display);
    EXPECT_EQ(service.devices().display->timeToEmpty, 7200);
    EXPECT_EQ(service.devices().display->type, PowerDevice::battery);
    EXPECT_EQ(onlyDevice(),
              (PowerDevice{
                  .type = 5, .model = "Mouse", .powerSupply = false, .isPresent = true, .percentage = 54.5}));
}

TEST_F(QtPowerDeviceServiceTest, ServiceThatComesLaterIsMet) {
    EXPECT_TRUE(waitForState(State::absent));
    appear();
    EXPECT_TRUE(waitForState(State::known));
    EXPECT_TRUE(onlyDevice());
}

TEST_F(QtPowerDeviceServiceTest, ServiceThatGoesTakesEverythingAway) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    vanish();
    EXPECT_TRUE(waitForState(State::absent));
    EXPECT_EQ(service.devices(), PowerDevices{});
}

TEST_F(QtPowerDeviceServiceTest, ServiceThatComesAgainIsAskedAnew) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    vanish();
    ASSERT_TRUE(waitForState(State::absent));
    fake.properties[kMouse]["Percentage"] = 20.0;
    appear();
    ASSERT_TRUE(waitForState(State::known));
    EXPECT_EQ(onlyDevice()->percentage, 20.0);
}

TEST_F(QtPowerDeviceServiceTest, ChangesAreTakenIn) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    fake.tell(kMouse, kDeviceInterface, {{"Percentage", 40.0}});
    EXPECT_TRUE(waitUntil([&] { return onlyDevice()->percentage == 40.0; }));
    EXPECT_EQ(onlyDevice()->model, "Mouse");
    fake.tell(kDisplay, kDeviceInterface, {{"TimeToEmpty", qlonglong{60}}});
    EXPECT_TRUE(waitUntil([&] { return service.devices().display->timeToEmpty == 60; }));
}

TEST_F(QtPowerDeviceServiceTest, InvalidatedPropertiesAreAskedForAgain) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    fake.properties[kMouse]["Percentage"] = 33.0;
    fake.tell(kMouse, kDeviceInterface, {}, {QStringLiteral("Percentage")});
    EXPECT_TRUE(waitUntil([&] { return onlyDevice()->percentage == 33.0; }));
}

TEST_F(QtPowerDeviceServiceTest, ChangesOfOtherInterfacesAndUnknownPathsArePassedOver) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    fake.tell(kMouse, QStringLiteral("org.example.Other"), {{"Percentage", 1.0}});
    fake.tell(QStringLiteral("/org/freedesktop/UPower/devices/nobody"), kDeviceInterface,
              {{"Percentage", 2.0}});
    fake.tell(kMouse, kDeviceInterface, {{"Percentage", 40.0}});
    EXPECT_TRUE(waitUntil([&] { return onlyDevice()->percentage == 40.0; }));
}

TEST_F(QtPowerDeviceServiceTest, ChangesOfAProgramThatIsNotTheServiceArePassedOver) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    FakePowerBus stranger(connect());
    stranger.tell(kMouse, kDeviceInterface, {{"Percentage", 1.0}});
    fake.tell(kMouse, kDeviceInterface, {{"Model", "Renamed"}});
    ASSERT_TRUE(waitUntil([&] { return onlyDevice()->model == "Renamed"; }));
    EXPECT_EQ(onlyDevice()->percentage, 54.5);
}

TEST_F(QtPowerDeviceServiceTest, DeviceThatComesIsAskedAndOneThatGoesIsDropped) {
    appear();
    ASSERT_TRUE(waitForState(State::known));
    fake.properties[kHeadset] = {
        {"Type", 17U}, {"Model", "Headset"}, {"IsPresent", true}, {"Percentage", 80.0}};
    fake.tellDevice("DeviceAdded", kHeadset);
    EXPECT_TRUE(waitUntil([&] { return service.devices().devices.size() == 2; }));
    EXPECT_EQ(service.devices().devices.back().model, "Headset");
    fake.tellDevice("DeviceRemoved", kMouse);
    EXPECT_TRUE(waitUntil([&] { return onlyDevice().has_value(); }));
    EXPECT_EQ(onlyDevice()->model, "Headset");
}

TEST_F(QtPowerDeviceServiceTest, DeviceThatRefusesIsLeftOutAlone) {
    fake.devices = {QDBusObjectPath(kHeadset), QDBusObjectPath(kMouse)};
    appear();
    ASSERT_TRUE(waitForState(State::known));
    EXPECT_EQ(onlyDevice()->model, "Mouse");
}

TEST_F(QtPowerDeviceServiceTest, ServiceThatCannotListItsDevicesCountsAsAbsent) {
    fake.override = [](const QDBusMessage& question, QDBusMessage& reply) {
        if (question.member() != QLatin1String("EnumerateDevices")) return false;
        reply = question.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no"));
        return true;
    };
    service.state();
    appear();
    ASSERT_TRUE(waitUntil([&] { return !fake.calls.empty(); }));
    EXPECT_TRUE(waitForState(State::absent));
}

TEST_F(QtPowerDeviceServiceTest, ListOfAnotherTypeCountsAsNone) {
    fake.override = [](const QDBusMessage& question, QDBusMessage& reply) {
        if (question.member() != QLatin1String("EnumerateDevices")) return false;
        reply = question.createReply(QStringList{kMouse});
        return true;
    };
    service.state();
    appear();
    ASSERT_TRUE(waitUntil([&] { return !fake.calls.empty(); }));
    EXPECT_TRUE(waitForState(State::absent));
}

TEST_F(QtPowerDeviceServiceTest, PropertiesOfAnotherTypeLoseTheirDevice) {
    fake.override = [](const QDBusMessage& question, QDBusMessage& reply) {
        if (question.path() != kMouse) return false;
        reply = question.createReply(QStringLiteral("nonsense"));
        return true;
    };
    appear();
    ASSERT_TRUE(waitForState(State::known));
    EXPECT_TRUE(service.devices().devices.empty());
    EXPECT_TRUE(service.devices().display);
}

TEST_F(QtPowerDeviceServiceTest, FloodOfDevicesEndsSomewhere) {
    fake.devices.clear();
    for (int device = 0; device < 500; ++device) {
        const QString path = QStringLiteral("/org/freedesktop/UPower/devices/d%1").arg(device);
        fake.devices.append(QDBusObjectPath(path));
        fake.properties[path] = fake.properties[kMouse];
    }
    appear();
    ASSERT_TRUE(waitForState(State::known));
    EXPECT_LE(service.devices().devices.size(), 64U);
}

TEST_F(QtPowerDeviceServiceTest, SilentServiceIsWaitedForByNobody) {
    fake.isSilent = true;
    service.state();
    appear();
    ASSERT_TRUE(waitUntil([&] { return fake.calls.size() >= 2; }));
    EXPECT_EQ(service.state(), State::asking);
    EXPECT_EQ(service.devices(), PowerDevices{});
}

}  // namespace
}  // namespace velmora
