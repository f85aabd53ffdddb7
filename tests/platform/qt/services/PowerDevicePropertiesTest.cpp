#include "platform/qt/services/PowerDeviceProperties.h"

#include <gtest/gtest.h>

#include <QString>

#include <limits>

namespace velmora {
namespace {

PowerDevice deviceOf(const QVariantMap& properties) {
    PowerDevice device;
    takePowerDeviceProperties(device, properties);
    return device;
}

TEST(PowerDevicePropertiesTest, AllPropertiesAreTaken) {
    EXPECT_EQ(deviceOf({{"Type", 5U},
                        {"Model", "Mouse"},
                        {"PowerSupply", true},
                        {"IsPresent", true},
                        {"Percentage", 12.5},
                        {"BatteryLevel", 6U},
                        {"TimeToEmpty", qlonglong{5}},
                        {"TimeToFull", qlonglong{6}}}),
              (PowerDevice{.type = 5,
                           .model = "Mouse",
                           .powerSupply = true,
                           .isPresent = true,
                           .percentage = 12.5,
                           .batteryLevel = 6,
                           .timeToEmpty = 5,
                           .timeToFull = 6}));
}

TEST(PowerDevicePropertiesTest, PropertiesOfAnotherTypeArePassedOver) {
    EXPECT_EQ(deviceOf({{"Type", "5"},
                        {"Model", 5},
                        {"PowerSupply", 1},
                        {"IsPresent", "yes"},
                        {"Percentage", 12},
                        {"BatteryLevel", -1},
                        {"TimeToEmpty", 5},
                        {"TimeToFull", QVariant()}}),
              PowerDevice{});
}

TEST(PowerDevicePropertiesTest, MissingPropertiesStayAsTheyWere) {
    PowerDevice device{.type = 5, .model = "Mouse", .percentage = 50};
    takePowerDeviceProperties(device, {{"Percentage", 49.0}});
    EXPECT_EQ(device.model, "Mouse");
    EXPECT_EQ(device.percentage, 49.0);
}

TEST(PowerDevicePropertiesTest, PercentageThatIsNoNumberIsNone) {
    PowerDevice device{.percentage = 50};
    takePowerDeviceProperties(device, {{"Percentage", std::numeric_limits<double>::quiet_NaN()}});
    EXPECT_EQ(device.percentage, std::nullopt);
}

TEST(PowerDevicePropertiesTest, NameIsCutAndOneWithControlCharactersIsNone) {
    EXPECT_EQ(deviceOf({{"Model", QString(5000, QLatin1Char('M'))}}).model.size(), 128U);
    EXPECT_EQ(deviceOf({{"Model", QStringLiteral("  M650 ")}}).model, "M650");
    EXPECT_EQ(deviceOf({{"Model", QStringLiteral("M\n650")}}).model, "");
    EXPECT_EQ(deviceOf({{"Model", QString(QChar(u'\0'))}}).model, "");
}

}  // namespace
}  // namespace velmora
