#include "platform/qt/services/QtPowerProfileService.h"

#include "platform/qt/services/FakePowerBus.h"
#include "platform/qt/session/PrivateBus.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

const QString kPresent = QStringLiteral("org.freedesktop.UPower.PowerProfiles");
const QString kPresentPath = QStringLiteral("/org/freedesktop/UPower/PowerProfiles");
const QString kFormer = QStringLiteral("net.hadess.PowerProfiles");
const QString kFormerPath = QStringLiteral("/net/hadess/PowerProfiles");

class QtPowerProfileServiceTest : public testing::Test {
protected:
    ~QtPowerProfileServiceTest() override {
        for (const QString& name : names) SessionBus::close(name);
    }
    QDBusConnection connect() {
        names.push_back(SessionBus::newName());
        return bus.sessionBus().open(names.back());
    }
    bool waitForProfile(std::optional<std::string_view> profile) {
        return waitUntil([&] { return service.activeProfile() == profile; });
    }

    std::vector<QString> names;
    PrivateBus bus;
    FakePowerBus fake{connect()};
    QtPowerProfileService service{[this] { return connect(); }};
};

TEST_F(QtPowerProfileServiceTest, WithoutABusThereIsNoProfile) {
    QtPowerProfileService none([] { return QDBusConnection(QStringLiteral("no such connection")); });
    EXPECT_EQ(none.activeProfile(), std::nullopt);
}

TEST_F(QtPowerProfileServiceTest, ProfileOfThePresentNameIsKnown) {
    fake.properties[kPresentPath] = {{"ActiveProfile", "power-saver"}};
    fake.bus.registerService(kPresent);
    EXPECT_TRUE(waitForProfile("power-saver"));
}

TEST_F(QtPowerProfileServiceTest, FormerNameServesAlone) {
    fake.properties[kFormerPath] = {{"ActiveProfile", "balanced"}};
    fake.bus.registerService(kFormer);
    EXPECT_TRUE(waitForProfile("balanced"));
}

TEST_F(QtPowerProfileServiceTest, PresentNameCountsMoreThanTheFormerOne) {
    fake.properties[kPresentPath] = {{"ActiveProfile", "performance"}};
    fake.properties[kFormerPath] = {{"ActiveProfile", "balanced"}};
    fake.bus.registerService(kFormer);
    EXPECT_TRUE(waitForProfile("balanced"));
    fake.bus.registerService(kPresent);
    EXPECT_TRUE(waitForProfile("performance"));
}

TEST_F(QtPowerProfileServiceTest, ChangeIsTakenIn) {
    fake.properties[kFormerPath] = {{"ActiveProfile", "balanced"}};
    fake.bus.registerService(kFormer);
    ASSERT_TRUE(waitForProfile("balanced"));
    fake.tell(kFormerPath, kFormer, {{"ActiveProfile", "power-saver"}});
    EXPECT_TRUE(waitForProfile("power-saver"));
}

TEST_F(QtPowerProfileServiceTest, InvalidatedProfileIsAskedForAgain) {
    fake.properties[kFormerPath] = {{"ActiveProfile", "balanced"}};
    fake.bus.registerService(kFormer);
    ASSERT_TRUE(waitForProfile("balanced"));
    fake.properties[kFormerPath] = {{"ActiveProfile", "power-saver"}};
    fake.tell(kFormerPath, kFormer, {}, {QStringLiteral("ActiveProfile")});
    EXPECT_TRUE(waitForProfile("power-saver"));
}

TEST_F(QtPowerProfileServiceTest, ProfileOfAnotherTypeIsNone) {
    fake.properties[kFormerPath] = {{"ActiveProfile", "balanced"}};
    fake.bus.registerService(kFormer);
    ASSERT_TRUE(waitForProfile("balanced"));
    fake.tell(kFormerPath, kFormer, {{"ActiveProfile", 7}});
    EXPECT_TRUE(waitForProfile(std::nullopt));
}

TEST_F(QtPowerProfileServiceTest, ServiceThatGoesTakesItsProfileAway) {
    fake.properties[kFormerPath] = {{"ActiveProfile", "power-saver"}};
    fake.bus.registerService(kFormer);
    ASSERT_TRUE(waitForProfile("power-saver"));
    fake.bus.unregisterService(kFormer);
    EXPECT_TRUE(waitForProfile(std::nullopt));
}

TEST_F(QtPowerProfileServiceTest, ServiceThatRefusesHasNoProfile) {
    service.activeProfile();
    fake.bus.registerService(kFormer);
    ASSERT_TRUE(waitUntil([&] { return !fake.calls.empty(); }));
    EXPECT_EQ(service.activeProfile(), std::nullopt);
}

}  // namespace
}  // namespace velmora
