#include "samplers/TemperatureSampler.h"

#include "fakes/FakeSensorSources.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using Readings = std::vector<TemperatureReading>;

class TemperatureSamplerTest : public testing::Test {
protected:
    Readings groups() {
        Readings readings = {{TempCategory::gpu, 99}};  // Of an earlier sample.
        sampler.temperatureGroups(readings);
        return readings;
    }

    FakeThermalSensorSource source;
    TemperatureSampler sampler{source};
};

TEST_F(TemperatureSamplerTest, SensorsThatCannotBeListedGiveNothing) {
    source.fails = true;
    source.list = {{"PMU tdie1", 50}};
    EXPECT_EQ(groups(), Readings{});
    EXPECT_EQ(sampler.cpuTemperature(), std::nullopt);
}

TEST_F(TemperatureSamplerTest, HalfADegreeCountsForTheProcessorButForNoGroup) {
    source.list = {{"PMU tdie1", 0.5}};
    EXPECT_EQ(sampler.cpuTemperature(), 0.5);
    EXPECT_EQ(groups(), Readings{});
}

TEST_F(TemperatureSamplerTest, HundredThirtyDegreesCountForNeither) {
    source.list = {{"PMU tdie1", 130}};
    EXPECT_EQ(sampler.cpuTemperature(), std::nullopt);
    EXPECT_EQ(groups(), Readings{});
}

TEST_F(TemperatureSamplerTest, BoundsThemselvesAreOutside) {
    source.list = {{"PMU tdie1", 0}, {"PMU tdie2", -5}};
    EXPECT_EQ(sampler.cpuTemperature(), std::nullopt);
    source.list = {{"PMU tdie1", 1}};
    EXPECT_EQ(groups(), Readings{});
    source.list = {{"PMU tdie1", 129.9}};
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 129.9}}));
}

TEST_F(TemperatureSamplerTest, ReadingThatIsNoNumberIsLeftOut) {
    source.list = {{"PMU tdie1", std::numeric_limits<double>::quiet_NaN()}, {"PMU tdie2", 40}};
    EXPECT_EQ(sampler.cpuTemperature(), 40.0);
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 40}}));
}

TEST_F(TemperatureSamplerTest, WithChipSensorsAloneTheirMeanIsTheProcessors) {
    source.list = {{"SOC MTR Temp Sensor0", 40}, {"SOC MTR Temp Sensor1", 44}, {"ambient", 20}};
    EXPECT_EQ(sampler.cpuTemperature(), 42.0);
}

TEST_F(TemperatureSamplerTest, ProcessorSensorsCountAloneIfThereAreAny) {
    source.list = {
        {"SOC MTR Temp Sensor0", 40}, {"pACC MTR Temp Sensor1", 60}, {"eACC MTR Temp Sensor1", 50}};
    EXPECT_EQ(sampler.cpuTemperature(), 55.0);
}

TEST_F(TemperatureSamplerTest, ClusterInLowerCaseIsDroppedFromTheProcessorThoughItIsInItsGroup) {
    source.list = {{"pacc x", 60}};
    EXPECT_EQ(sampler.cpuTemperature(), std::nullopt);
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 60}}));
}

TEST_F(TemperatureSamplerTest, SixCategoriesComeInTheirOrderWithoutOther) {
    source.list = {{"ambient", 20},      {"gas gauge battery", 31}, {"PMU tdev3", 32}, {"NAND CH0 temp", 33},
                   {"SOC MTR Temp", 34}, {"GPU MTR Temp", 35},      {"PMU tdie1", 36}};
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 36},
                                  {TempCategory::gpu, 35},
                                  {TempCategory::soc, 34},
                                  {TempCategory::ssd, 33},
                                  {TempCategory::enclosure, 32},
                                  {TempCategory::battery, 31}}));
}

TEST_F(TemperatureSamplerTest, GroupIsTheMeanOfItsSensors) {
    source.list = {{"PMU tdie1", 40}, {"PMU tdie2", 41}, {"PMU tdie3", 45}, {"PMU tdie4", 0.5}};
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 42}}));
}

TEST_F(TemperatureSamplerTest, SensorWithoutNameOrReadingIsSkipped) {
    source.list = {{std::nullopt, 50}, {"PMU tdie1", std::nullopt}, {"PMU tdie2", 40}};
    EXPECT_EQ(groups(), (Readings{{TempCategory::cpu, 40}}));
    EXPECT_EQ(sampler.cpuTemperature(), 40.0);
}

TEST_F(TemperatureSamplerTest, ProcessorAloneDoesNotAskForAllSensors) {
    sampler.cpuTemperature();
    groups();
    using Scope = ThermalSensorSource::Scope;
    EXPECT_EQ(source.scopes, (std::vector<Scope>{Scope::processor, Scope::all}));
}

}  // namespace
}  // namespace velmora
