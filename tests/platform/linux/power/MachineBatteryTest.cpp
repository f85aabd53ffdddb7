#include "platform/linux/power/MachineBattery.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

PowerSupply energyBattery() {
    return {.type = "Battery",
            .status = "Discharging",
            .energyNow = 20'000'000,
            .energyFull = 40'000'000,
            .energyFullDesign = 50'000'000,
            .voltageNow = 10'000'000,
            .powerNow = 10'000'000};
}

PowerSupply chargeBattery() {
    return {.type = "Battery",
            .status = "Discharging",
            .chargeNow = 1'000'000,
            .chargeFull = 4'000'000,
            .chargeFullDesign = 5'000'000,
            .voltageNow = 12'000'000,
            .voltageMinDesign = 10'000'000,
            .currentNow = 1'500'000};
}

PowerSupply mains(std::int64_t online) {
    return {.type = "Mains", .online = online};
}

using Supplies = std::vector<PowerSupply>;

double watts(const SmartBattery& smart) {
    return static_cast<double>(*smart.instantAmperage) * static_cast<double>(*smart.voltage) / 1e6;
}

TEST(MachineBatteryTest, NoSupplyNoBattery) {
    EXPECT_EQ(machineBattery({}), std::nullopt);
    EXPECT_EQ(machineBattery({mains(1)}), std::nullopt);
}

TEST(MachineBatteryTest, EmptyBayAndDeviceBatteryAreNone) {
    PowerSupply empty = energyBattery();
    empty.present = 0;
    PowerSupply mouse = energyBattery();
    mouse.scope = "Device";
    EXPECT_EQ(machineBattery({empty, mouse}), std::nullopt);
}

TEST(MachineBatteryTest, BatteryThatCountsEnergy) {
    const auto battery = machineBattery({energyBattery()});
    ASSERT_TRUE(battery);
    EXPECT_TRUE(battery->source.isInternalBattery);
    EXPECT_EQ(battery->source.currentCapacity, 20'000'000);
    EXPECT_EQ(battery->source.maxCapacity, 40'000'000);
    EXPECT_EQ(battery->source.isCharging, false);
    EXPECT_FALSE(battery->source.isOnACPower);
    EXPECT_EQ(battery->source.timeToEmpty, 120);
    EXPECT_EQ(battery->smart.nominalChargeCapacity, 40'000'000);
    EXPECT_EQ(battery->smart.designCapacity, 50'000'000);
    EXPECT_EQ(battery->smart.instantAmperage, -1000);
    EXPECT_EQ(battery->smart.voltage, 10'000);
}

TEST(MachineBatteryTest, BatteryThatCountsCharge) {
    const auto battery = machineBattery({chargeBattery()});
    ASSERT_TRUE(battery);
    EXPECT_EQ(battery->source.currentCapacity, 1'000'000);
    EXPECT_EQ(battery->source.maxCapacity, 4'000'000);
    EXPECT_EQ(battery->source.timeToEmpty, 40);  // 1 Ah at 1.5 A.
    EXPECT_EQ(battery->smart.instantAmperage, -1500);
    EXPECT_EQ(battery->smart.voltage, 12'000);
}

TEST(MachineBatteryTest, MixedUnitsAddUpAsEnergies) {
    const auto battery = machineBattery({energyBattery(), chargeBattery()});
    ASSERT_TRUE(battery);
    EXPECT_EQ(battery->source.currentCapacity, 20'000'000 + 10'000'000);
    EXPECT_EQ(battery->source.maxCapacity, 40'000'000 + 40'000'000);
    EXPECT_EQ(battery->smart.designCapacity, 50'000'000 + 50'000'000);
    EXPECT_NEAR(watts(battery->smart), -28, 0.01);  // 10 W and 1.5 A at 12 V.
}

TEST(MachineBatteryTest, MixedUnitsWithoutAVoltageGiveTheMeanPercentage) {
    PowerSupply charge = chargeBattery();
    charge.voltageNow.reset();
    charge.voltageMinDesign.reset();
    const auto battery = machineBattery({energyBattery(), charge});
    EXPECT_EQ(battery->source.currentCapacity, 50 + 25);
    EXPECT_EQ(battery->source.maxCapacity, 200);
}

TEST(MachineBatteryTest, WithoutAPairTheCapacityCounts) {
    PowerSupply supply = energyBattery();
    supply.energyFull.reset();
    supply.capacity = 73;
    const auto battery = machineBattery({supply});
    EXPECT_EQ(battery->source.currentCapacity, 73);
    EXPECT_EQ(battery->source.maxCapacity, 100);
}

TEST(MachineBatteryTest, FullEnergyOfNothingIsNoPair) {
    PowerSupply supply = energyBattery();
    supply.energyFull = 0;
    supply.capacity = 73;
    EXPECT_EQ(machineBattery({supply})->source.currentCapacity, 73);
}

TEST(MachineBatteryTest, BatteryThatTellsNothingIsThereWithoutCharge) {
    const auto battery = machineBattery({{.type = "Battery"}});
    ASSERT_TRUE(battery);
    EXPECT_EQ(battery->source.currentCapacity, std::nullopt);
    EXPECT_EQ(battery->source.maxCapacity, std::nullopt);
    EXPECT_EQ(battery->smart, SmartBattery{});
}

TEST(MachineBatteryTest, EmptyBatteryIsNotAnUnknownOne) {
    PowerSupply supply = energyBattery();
    supply.energyNow = 0;
    EXPECT_EQ(machineBattery({supply})->source.currentCapacity, 0);
}

// Charging, plugged in

TEST(MachineBatteryTest, OnlyChargingIsCharging) {
    for (const char* status : {"Full", "Not charging", "Pending charge", "Unknown", "Discharging", ""}) {
        PowerSupply supply = energyBattery();
        supply.status = status;
        EXPECT_EQ(machineBattery({supply})->source.isCharging, false) << status;
    }
    PowerSupply supply = energyBattery();
    supply.status = "Charging";
    EXPECT_EQ(machineBattery({supply})->source.isCharging, true);
}

TEST(MachineBatteryTest, OneOfTwoThatChargesIsCharging) {
    PowerSupply charging = energyBattery();
    charging.status = "Charging";
    PowerSupply resting = energyBattery();
    resting.status = "Not charging";
    EXPECT_EQ(machineBattery({resting, charging})->source.isCharging, true);
}

TEST(MachineBatteryTest, AnyAdapterOnlineIsMains) {
    EXPECT_TRUE(
        machineBattery({mains(0), {.type = "USB", .online = 1}, energyBattery()})->source.isOnACPower);
}

TEST(MachineBatteryTest, NegotiatedVoltageIsMainsToo) {
    EXPECT_TRUE(machineBattery({{.type = "USB", .online = 2}, energyBattery()})->source.isOnACPower);
}

TEST(MachineBatteryTest, AllAdaptersOfflineIsNoMainsThoughNothingDischarges) {
    PowerSupply supply = energyBattery();
    supply.status = "Unknown";
    EXPECT_FALSE(machineBattery({mains(0), supply})->source.isOnACPower);
}

TEST(MachineBatteryTest, WithoutAnAdapterTheStatusTells) {
    PowerSupply supply = energyBattery();
    EXPECT_FALSE(machineBattery({supply})->source.isOnACPower);
    supply.status = "Full";
    EXPECT_TRUE(machineBattery({supply})->source.isOnACPower);
}

TEST(MachineBatteryTest, AdapterThatCannotTellIsNoAdapter) {
    EXPECT_FALSE(machineBattery({{.type = "Mains"}, energyBattery()})->source.isOnACPower);
}

// Sign of the current

TEST(MachineBatteryTest, DischargingIsNegativeWhateverTheDriverSays) {
    PowerSupply supply = chargeBattery();
    supply.currentNow = -1'500'000;
    EXPECT_EQ(machineBattery({supply})->smart.instantAmperage, -1500);
    supply.currentNow = 1'500'000;
    EXPECT_EQ(machineBattery({supply})->smart.instantAmperage, -1500);
}

TEST(MachineBatteryTest, ChargingIsPositiveWhateverTheDriverSays) {
    PowerSupply supply = chargeBattery();
    supply.status = "Charging";
    supply.currentNow = -1'500'000;
    EXPECT_EQ(machineBattery({supply})->smart.instantAmperage, 1500);
}

TEST(MachineBatteryTest, LittleCurrentOfARestingBatteryIsNone) {
    PowerSupply supply = chargeBattery();
    supply.status = "Full";
    supply.currentNow = 4'900;
    EXPECT_EQ(machineBattery({supply})->smart.instantAmperage, 0);
    supply.currentNow = 5'000;
    EXPECT_EQ(machineBattery({supply})->smart.instantAmperage, 5);
}

TEST(MachineBatteryTest, DesignVoltageServesWithoutTheRealOne) {
    PowerSupply supply = chargeBattery();
    supply.voltageNow.reset();
    EXPECT_EQ(machineBattery({supply})->smart.voltage, 10'000);
}

TEST(MachineBatteryTest, WithoutAnyVoltageThereIsNoPower) {
    PowerSupply supply = chargeBattery();
    supply.voltageNow.reset();
    supply.voltageMinDesign.reset();
    const auto smart = machineBattery({supply})->smart;
    EXPECT_EQ(smart.instantAmperage, std::nullopt);
    EXPECT_EQ(smart.voltage, std::nullopt);
}

TEST(MachineBatteryTest, FirmwaresUnknownCurrentStaysImpossible) {
    PowerSupply supply = chargeBattery();
    supply.currentNow = 4'294'967'295'000;  // 0xFFFFFFFF mA.
    EXPECT_GT(-watts(machineBattery({supply})->smart), 250);
}

// Times

TEST(MachineBatteryTest, ChargingGivesTheTimeToFull) {
    PowerSupply supply = energyBattery();
    supply.status = "Charging";
    const auto source = machineBattery({supply})->source;
    EXPECT_EQ(source.timeToFullCharge, 120);
    EXPECT_EQ(source.timeToEmpty, std::nullopt);
}

TEST(MachineBatteryTest, RestingBatteryHasNoTime) {
    PowerSupply supply = energyBattery();
    supply.status = "Full";
    supply.powerNow = 0;
    const auto source = machineBattery({supply})->source;
    EXPECT_EQ(source.timeToEmpty, std::nullopt);
    EXPECT_EQ(source.timeToFullCharge, std::nullopt);
}

TEST(MachineBatteryTest, TimeBeyondTenDaysIsUnknown) {
    PowerSupply supply = energyBattery();
    supply.powerNow = 1'000;
    EXPECT_EQ(machineBattery({supply})->source.timeToEmpty, std::nullopt);
}

// Electronics

TEST(MachineBatteryTest, CycleCountOfZeroOrLessMeansThatNobodyCounts) {
    PowerSupply supply = energyBattery();
    supply.cycleCount = 0;
    EXPECT_EQ(machineBattery({supply})->smart.cycleCount, std::nullopt);
    supply.cycleCount = -1;
    EXPECT_EQ(machineBattery({supply})->smart.cycleCount, std::nullopt);
}

TEST(MachineBatteryTest, MostCyclesOfSeveralBatteriesCount) {
    Supplies supplies = {energyBattery(), energyBattery(), energyBattery()};
    supplies[0].cycleCount = 5;
    supplies[1].cycleCount = 90;
    EXPECT_EQ(machineBattery(supplies)->smart.cycleCount, 90);
}

TEST(MachineBatteryTest, HealthNeedsBothCapacitiesAboveZero) {
    PowerSupply supply = energyBattery();
    supply.energyFullDesign = 0;
    EXPECT_EQ(machineBattery({supply})->smart.designCapacity, std::nullopt);
    supply = energyBattery();
    supply.energyFull = 0;
    EXPECT_EQ(machineBattery({supply})->smart.nominalChargeCapacity, std::nullopt);
}

TEST(MachineBatteryTest, TemperatureInTenthsBecomesHundredths) {
    PowerSupply supply = energyBattery();
    supply.temperature = 305;
    EXPECT_EQ(machineBattery({supply})->smart.temperature, 3050);
}

// Wireless devices

TEST(PeripheralServicesTest, DeviceBatteriesAreListedWithTheirModel) {
    const Supplies supplies = {
        energyBattery(),
        {.type = "Battery", .scope = "Device", .modelName = "Mouse", .capacity = 40},
        {.type = "Battery", .scope = "Device", .modelName = "", .capacity = 41},
        {.type = "Battery", .scope = "Device", .modelName = "Pen", .present = 0, .capacity = 42}};
    EXPECT_EQ(peripheralServices(supplies),
              (std::vector<PeripheralService>{{40, "Mouse"}, {41, std::nullopt}}));
}

}  // namespace
}  // namespace velmora
