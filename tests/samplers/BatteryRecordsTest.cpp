#include "samplers/BatteryRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>

namespace velmora {
namespace {

using namespace BatteryRecords;
using nlohmann::json;

TEST(BatteryRecordsTest, DescriptionWithAllEntriesIsTakenWhole) {
    const json description = {
        {"Type", "InternalBattery"}, {"Current Capacity", 4321},         {"Max Capacity", 5000},
        {"Is Charging", true},       {"Power Source State", "AC Power"}, {"Time to Empty", 0},
        {"Time to Full Charge", 34}};
    EXPECT_EQ(decodePowerSource(description), (PowerSource{.isInternalBattery = true,
                                                           .currentCapacity = 4321,
                                                           .maxCapacity = 5000,
                                                           .isCharging = true,
                                                           .isOnACPower = true,
                                                           .timeToEmpty = 0,
                                                           .timeToFullCharge = 34}));
}

TEST(BatteryRecordsTest, EmptyDescriptionHasNothing) {
    EXPECT_EQ(decodePowerSource(json::object()), PowerSource{});
}

TEST(BatteryRecordsTest, DescriptionThatIsNoDictionaryIsNone) {
    EXPECT_EQ(decodePowerSource(json::array({1})), std::nullopt);
    EXPECT_EQ(decodePowerSource(json("InternalBattery")), std::nullopt);
    EXPECT_EQ(decodePowerSource(json()), std::nullopt);
}

TEST(BatteryRecordsTest, TypeMustBeExact) {
    EXPECT_FALSE(decodePowerSource({{"Type", "internalbattery"}})->isInternalBattery);
    EXPECT_FALSE(decodePowerSource({{"Type", "InternalBattery "}})->isInternalBattery);
    EXPECT_FALSE(decodePowerSource({{"Type", "UPS"}})->isInternalBattery);
    EXPECT_FALSE(decodePowerSource({{"Type", 1}})->isInternalBattery);
}

TEST(BatteryRecordsTest, OnlyTheExactStateMeansMains) {
    EXPECT_FALSE(decodePowerSource({{"Power Source State", "Battery Power"}})->isOnACPower);
    EXPECT_FALSE(decodePowerSource({{"Power Source State", "ac power"}})->isOnACPower);
}

TEST(BatteryRecordsTest, EntriesOfAnotherTypeAreMissing) {
    const json description = {{"Current Capacity", "50"},
                              {"Max Capacity", 100.5},
                              {"Is Charging", 1},
                              {"Time to Empty", json()},
                              {"Time to Full Charge", true}};
    EXPECT_EQ(decodePowerSource(description), PowerSource{});
}

TEST(BatteryRecordsTest, NumberBeyondSixtyFourBitsWithSignIsMissing) {
    EXPECT_EQ(decodePowerSource({{"Current Capacity", std::uint64_t{1} << 63}}), PowerSource{});
    EXPECT_EQ(decodePowerSource({{"Current Capacity", INT64_MIN}})->currentCapacity, INT64_MIN);
}

TEST(BatteryRecordsTest, SmartBatteryWithAllPropertiesIsTakenWhole) {
    const json properties = {{"CycleCount", 210},      {"NominalChargeCapacity", 4600},
                             {"DesignCapacity", 5103}, {"InstantAmperage", -912},
                             {"Amperage", -900},       {"Voltage", 12345},
                             {"Temperature", 3011},    {"Serial", "ignored"}};
    EXPECT_EQ(decodeSmartBattery(properties), (SmartBattery{.cycleCount = 210,
                                                            .nominalChargeCapacity = 4600,
                                                            .designCapacity = 5103,
                                                            .instantAmperage = -912,
                                                            .amperage = -900,
                                                            .voltage = 12345,
                                                            .temperature = 3011}));
}

TEST(BatteryRecordsTest, SmartBatteryThatIsNoDictionaryIsNone) {
    EXPECT_EQ(decodeSmartBattery(json()), std::nullopt);
    EXPECT_EQ(decodeSmartBattery(json::object()), SmartBattery{});
}

TEST(BatteryRecordsTest, PeripheralIsTakenWhole) {
    EXPECT_EQ(decodePeripheral({{"BatteryPercent", 80}, {"Product", "Mouse"}}),
              (PeripheralService{80, "Mouse"}));
}

TEST(BatteryRecordsTest, PeripheralWithEntriesOfAnotherTypeHasNeither) {
    EXPECT_EQ(decodePeripheral({{"BatteryPercent", "80"}, {"Product", 7}}), PeripheralService{});
}

TEST(BatteryRecordsTest, PeripheralThatIsNoDictionaryIsNone) {
    EXPECT_EQ(decodePeripheral(json(80)), std::nullopt);
}

}  // namespace
}  // namespace velmora
