#include "samplers/BatterySampler.h"

#include "fakes/FakeBatterySource.h"
#include "fakes/FakeClock.h"
#include "samplers/BatteryRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <limits>

namespace velmora {
namespace {

using nlohmann::json;

class BatterySamplerTest : public testing::Test {
protected:
    BatteryStats sample() {
        BatteryStats stats;
        sampler.sample(stats);
        return stats;
    }
    /// A machine whose one source has this description, which lacks only its type.
    BatteryStats sampleDescribed(json description) {
        description["Type"] = "InternalBattery";
        source.sources = {*BatteryRecords::decodePowerSource(description)};
        return sample();
    }
    BatteryStats sampleSmart(const json& properties) {
        source.smart = BatteryRecords::decodeSmartBattery(properties);
        return sampleDescribed(json::object());
    }
    static PeripheralService device(std::string name, int percent) { return {percent, std::move(name)}; }

    FakeBatterySource source;
    FakeClock clock;
    BatterySampler sampler{source, clock};
};

TEST_F(BatterySamplerTest, ListThatCannotBeReadGivesTheEmptyRecord) {
    source.listFails = true;
    source.sources = {{.isInternalBattery = true, .currentCapacity = 50}};
    source.smart = SmartBattery{.cycleCount = 3};
    source.lowPower = true;
    source.services = {device("Mouse", 40)};
    EXPECT_EQ(sample(), BatteryStats{});
}

TEST_F(BatterySamplerTest, MachineWithoutInternalBatteryReadsNothingElse) {
    source.sources = {
        {.isInternalBattery = false, .currentCapacity = 50, .isCharging = true, .isOnACPower = true}};
    source.smart = SmartBattery{.cycleCount = 3};
    source.lowPower = true;
    source.services = {device("Mouse", 40)};
    EXPECT_EQ(sample(), BatteryStats{});
    EXPECT_EQ(source.smartBatteryReads, 0);
    EXPECT_EQ(source.lowPowerReads, 0);
    EXPECT_EQ(source.peripheralReads, 0);
}

TEST_F(BatterySamplerTest, FirstInternalBatteryOfTheListCounts) {
    source.sources = {{.isInternalBattery = false, .currentCapacity = 1},
                      {.isInternalBattery = true, .currentCapacity = 70},
                      {.isInternalBattery = true, .currentCapacity = 20}};
    const BatteryStats stats = sample();
    EXPECT_TRUE(stats.present);
    EXPECT_EQ(stats.percent, 70);
}

TEST_F(BatterySamplerTest, BatteryThatVanishesLeavesNothingBehind) {
    source.sources = {
        {.isInternalBattery = true, .currentCapacity = 50, .isCharging = true, .timeToFullCharge = 9}};
    source.smart = SmartBattery{.cycleCount = 3, .nominalChargeCapacity = 4, .designCapacity = 5};
    source.services = {device("Mouse", 40)};
    BatteryStats stats;
    sampler.sample(stats);
    source.sources.clear();
    sampler.sample(stats);
    EXPECT_EQ(stats, BatteryStats{});
}

TEST_F(BatterySamplerTest, SampleLeavesTheSeriesAlone) {
    BatteryStats stats;
    stats.history.append(0.5);
    stats.percentLong.append(0.25);
    sampler.sample(stats);
    EXPECT_EQ(stats.history.size(), 1U);
    EXPECT_EQ(stats.percentLong.size(), 1U);
}

// Charge

TEST_F(BatterySamplerTest, MissingMaximumCountsAsHundred) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 50}}).percent, 50);
}

TEST_F(BatterySamplerTest, MaximumOfAnotherTypeCountsAsHundred) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 50}, {"Max Capacity", "200"}}).percent, 50);
}

TEST_F(BatterySamplerTest, MissingCurrentCapacityIsNoCharge) {
    EXPECT_EQ(sampleDescribed({{"Max Capacity", 100}}).percent, 0);
}

TEST_F(BatterySamplerTest, MaximumOfZeroGivesNoPercent) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 50}, {"Max Capacity", 0}}).percent, 0);
}

TEST_F(BatterySamplerTest, NegativeMaximumGivesNoPercent) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 50}, {"Max Capacity", -100}}).percent, 0);
}

TEST_F(BatterySamplerTest, PercentIsRoundedToTheNearest) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 4999}, {"Max Capacity", 10000}}).percent, 50);
}

TEST_F(BatterySamplerTest, HalfAPercentIsRoundedUp) {
    EXPECT_EQ(sampleDescribed({{"Current Capacity", 125}, {"Max Capacity", 1000}}).percent, 13);
}

TEST_F(BatterySamplerTest, RatioBeyondAllBoundsStaysANumber) {
    constexpr auto kHuge = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(sampleDescribed({{"Current Capacity", kHuge}, {"Max Capacity", 1}}).percent,
              std::numeric_limits<int>::max());
}

// Charging and plugged in

TEST_F(BatterySamplerTest, FullOnMainsIsPluggedInWithoutCharging) {
    const auto stats = sampleDescribed({{"Is Charging", false}, {"Power Source State", "AC Power"}});
    EXPECT_FALSE(stats.isCharging);
    EXPECT_TRUE(stats.isPluggedIn);
}

TEST_F(BatterySamplerTest, ChargingDoesNotMakeItPluggedIn) {
    const auto stats = sampleDescribed({{"Is Charging", true}, {"Power Source State", "Battery Power"}});
    EXPECT_TRUE(stats.isCharging);
    EXPECT_FALSE(stats.isPluggedIn);
}

TEST_F(BatterySamplerTest, MissingStatesAreNo) {
    const auto stats = sampleDescribed(json::object());
    EXPECT_FALSE(stats.isCharging);
    EXPECT_FALSE(stats.isPluggedIn);
}

// Time remaining

TEST_F(BatterySamplerTest, TimeToEmptyOfMinusOneIsAbsent) {
    EXPECT_EQ(sampleDescribed({{"Time to Empty", -1}}).timeRemainingMinutes, std::nullopt);
}

TEST_F(BatterySamplerTest, TimeToEmptyOfZeroIsAbsent) {
    EXPECT_EQ(sampleDescribed({{"Time to Empty", 0}}).timeRemainingMinutes, std::nullopt);
}

TEST_F(BatterySamplerTest, TimeToEmptyCountsWhileNotCharging) {
    EXPECT_EQ(sampleDescribed({{"Time to Empty", 1}, {"Time to Full Charge", 30}}).timeRemainingMinutes, 1);
}

TEST_F(BatterySamplerTest, TimeToEmptyIsNotLookedAtWhileCharging) {
    EXPECT_EQ(sampleDescribed({{"Is Charging", true}, {"Time to Empty", 90}, {"Time to Full Charge", -1}})
                  .timeRemainingMinutes,
              std::nullopt);
}

TEST_F(BatterySamplerTest, TimeToFullCountsWhileCharging) {
    EXPECT_EQ(sampleDescribed({{"Is Charging", true}, {"Time to Empty", 90}, {"Time to Full Charge", 45}})
                  .timeRemainingMinutes,
              45);
}

TEST_F(BatterySamplerTest, TimeOfAnotherTypeIsAbsent) {
    EXPECT_EQ(sampleDescribed({{"Time to Empty", "90"}}).timeRemainingMinutes, std::nullopt);
}

// The battery's electronics

TEST_F(BatterySamplerTest, UnreadableElectronicsLeaveTheChargeIntact) {
    const auto stats =
        sampleDescribed({{"Current Capacity", 50}, {"Is Charging", true}, {"Time to Full Charge", 7}});
    EXPECT_EQ(stats.percent, 50);
    EXPECT_TRUE(stats.isCharging);
    EXPECT_EQ(stats.timeRemainingMinutes, 7);
    EXPECT_EQ(stats.cycleCount, std::nullopt);
    EXPECT_EQ(stats.health, std::nullopt);
    EXPECT_EQ(stats.temperature, std::nullopt);
    EXPECT_EQ(stats.powerWatts, std::nullopt);
}

TEST_F(BatterySamplerTest, InstantCurrentWinsOverTheSmoothedOne) {
    EXPECT_DOUBLE_EQ(
        *sampleSmart({{"InstantAmperage", 2000}, {"Amperage", 1000}, {"Voltage", 10000}}).powerWatts, 20);
}

TEST_F(BatterySamplerTest, InstantCurrentOfZeroIsZeroWatts) {
    EXPECT_EQ(sampleSmart({{"InstantAmperage", 0}, {"Amperage", 1000}, {"Voltage", 10000}}).powerWatts, 0.0);
}

TEST_F(BatterySamplerTest, SmoothedCurrentServesWithoutTheInstantOne) {
    EXPECT_DOUBLE_EQ(*sampleSmart({{"Amperage", 1000}, {"Voltage", 10000}}).powerWatts, 10);
}

TEST_F(BatterySamplerTest, DischargingIsNegative) {
    EXPECT_DOUBLE_EQ(*sampleSmart({{"InstantAmperage", -1500}, {"Voltage", 12000}}).powerWatts, -18.0);
}

TEST_F(BatterySamplerTest, TwoHundredFiftyWattsAreABadRead) {
    EXPECT_EQ(sampleSmart({{"InstantAmperage", 25000}, {"Voltage", 10000}}).powerWatts, std::nullopt);
}

TEST_F(BatterySamplerTest, MinusTwoHundredFiftyWattsAreABadRead) {
    EXPECT_EQ(sampleSmart({{"InstantAmperage", -25000}, {"Voltage", 10000}}).powerWatts, std::nullopt);
}

TEST_F(BatterySamplerTest, LittleLessThanTwoHundredFiftyWattsPasses) {
    EXPECT_DOUBLE_EQ(*sampleSmart({{"InstantAmperage", 24990}, {"Voltage", 10000}}).powerWatts, 249.9);
}

TEST_F(BatterySamplerTest, PowerNeedsAVoltage) {
    EXPECT_EQ(sampleSmart({{"InstantAmperage", 1000}}).powerWatts, std::nullopt);
    EXPECT_EQ(sampleSmart({{"InstantAmperage", 1000}, {"Voltage", 0}}).powerWatts, std::nullopt);
}

TEST_F(BatterySamplerTest, TemperatureIsInHundredths) {
    EXPECT_EQ(sampleSmart({{"Temperature", 3050}}).temperature, 30.5);
}

TEST_F(BatterySamplerTest, TemperatureAboveEightyIsAbsent) {
    EXPECT_EQ(sampleSmart({{"Temperature", 8100}}).temperature, std::nullopt);
}

TEST_F(BatterySamplerTest, TemperatureOfEightyPasses) {
    EXPECT_EQ(sampleSmart({{"Temperature", 8000}}).temperature, 80.0);
}

TEST_F(BatterySamplerTest, TemperatureOfZeroPassesAndBelowIsAbsent) {
    EXPECT_EQ(sampleSmart({{"Temperature", 0}}).temperature, 0.0);
    EXPECT_EQ(sampleSmart({{"Temperature", -1}}).temperature, std::nullopt);
}

TEST_F(BatterySamplerTest, HealthIsAFractionAndMayExceedOne) {
    EXPECT_DOUBLE_EQ(*sampleSmart({{"NominalChargeCapacity", 4500}, {"DesignCapacity", 5000}}).health, 0.9);
    EXPECT_DOUBLE_EQ(*sampleSmart({{"NominalChargeCapacity", 5500}, {"DesignCapacity", 5000}}).health, 1.1);
}

TEST_F(BatterySamplerTest, DesignCapacityOfZeroGivesNoHealth) {
    EXPECT_EQ(sampleSmart({{"NominalChargeCapacity", 4500}, {"DesignCapacity", 0}}).health, std::nullopt);
}

TEST_F(BatterySamplerTest, HealthNeedsBothCapacities) {
    EXPECT_EQ(sampleSmart({{"NominalChargeCapacity", 4500}}).health, std::nullopt);
    EXPECT_EQ(sampleSmart({{"DesignCapacity", 4500}}).health, std::nullopt);
}

TEST_F(BatterySamplerTest, CyclesArePassedOn) {
    EXPECT_EQ(sampleSmart({{"CycleCount", 312}}).cycleCount, 312);
    EXPECT_EQ(sampleSmart({{"CycleCount", 0}}).cycleCount, 0);
    EXPECT_EQ(sampleSmart(json::object()).cycleCount, std::nullopt);
}

TEST_F(BatterySamplerTest, NumbersBeyondAnIntAreAbsent) {
    constexpr auto kHuge = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(sampleSmart({{"CycleCount", kHuge}}).cycleCount, std::nullopt);
    EXPECT_EQ(sampleDescribed({{"Time to Empty", kHuge}}).timeRemainingMinutes, std::nullopt);
}

TEST_F(BatterySamplerTest, LowPowerModeIsPassedOn) {
    source.lowPower = true;
    EXPECT_TRUE(sampleDescribed(json::object()).lowPowerMode);
}

// Wireless devices

class BatteryPeripheralsTest : public BatterySamplerTest {
protected:
    BatteryPeripheralsTest() { source.sources = {{.isInternalBattery = true}}; }
    using List = std::vector<PeripheralBattery>;
};

TEST_F(BatteryPeripheralsTest, TwoOfTheSameProductGiveOneRowTheFirst) {
    source.services = {device("Mouse", 40), device("Mouse", 90)};
    EXPECT_EQ(sample().peripherals, (List{{"Mouse", 40}}));
}

TEST_F(BatteryPeripheralsTest, PercentBeyondHundredIsNotListed) {
    source.services = {device("Mouse", 101), device("Keyboard", 100), device("Pad", 0), device("Pen", -1)};
    EXPECT_EQ(sample().peripherals, (List{{"Keyboard", 100}, {"Pad", 0}}));
}

TEST_F(BatteryPeripheralsTest, DeviceWithoutProductIsNotListed) {
    source.services = {{50, std::nullopt}, {std::nullopt, "Mouse"}};
    EXPECT_EQ(sample().peripherals, List{});
}

TEST_F(BatteryPeripheralsTest, UnlistedServiceDoesNotHideALaterOneOfItsName) {
    source.services = {device("Mouse", 101), device("Mouse", 90)};
    EXPECT_EQ(sample().peripherals, (List{{"Mouse", 90}}));
}

TEST_F(BatteryPeripheralsTest, RowsAreInPlainOrderOfNames) {
    source.services = {device("mouse", 1), device("Älter", 2), device("Zebra", 3)};
    EXPECT_EQ(sample().peripherals, (List{{"Zebra", 3}, {"mouse", 1}, {"Älter", 2}}));
}

TEST_F(BatteryPeripheralsTest, TwoCallsTenSecondsApartReadOnce) {
    source.services = {device("Mouse", 40)};
    sample();
    clock.advance(10);
    source.services.clear();
    EXPECT_EQ(sample().peripherals, (List{{"Mouse", 40}}));
    EXPECT_EQ(source.peripheralReads, 1);
}

TEST_F(BatteryPeripheralsTest, CallAfterThirtyOneSecondsReadsAgain) {
    source.services = {device("Mouse", 40)};
    sample();
    clock.advance(31);
    source.services.clear();
    EXPECT_EQ(sample().peripherals, List{});
    EXPECT_EQ(source.peripheralReads, 2);
}

TEST_F(BatteryPeripheralsTest, ExactlyThirtySecondsAreNotMoreThanThirty) {
    sample();
    clock.advance(30);
    sample();
    EXPECT_EQ(source.peripheralReads, 1);
}

TEST_F(BatteryPeripheralsTest, FailedReadGivesAnEmptyListForHalfAMinute) {
    source.answer = BatterySource::Answer::failed;
    source.services = {device("Mouse", 40)};
    EXPECT_EQ(sample().peripherals, List{});
    clock.advance(10);
    sample();
    EXPECT_EQ(source.peripheralReads, 1);
}

TEST_F(BatteryPeripheralsTest, SourceThatDoesNotKnowYetIsAskedAgainAtTheNextSample) {
    source.answer = BatterySource::Answer::notYet;
    EXPECT_EQ(sample().peripherals, List{});
    clock.advance(10);
    source.answer = BatterySource::Answer::given;
    source.services = {device("Mouse", 40)};
    EXPECT_EQ(sample().peripherals, (List{{"Mouse", 40}}));
}

TEST_F(BatteryPeripheralsTest, MachineThatLosesItsBatteryShowsNoPeripherals) {
    source.services = {device("Mouse", 40)};
    BatteryStats stats;
    sampler.sample(stats);
    source.sources.clear();
    sampler.sample(stats);
    EXPECT_EQ(stats.peripherals, List{});
}

}  // namespace
}  // namespace velmora
