#include "samplers/SensorCategory.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

using enum TempCategory;

TEST(SensorCategoryTest, FlashMemoryIsADiskAndNoProcessor) {
    EXPECT_EQ(categoryOfSensor("NAND CH0 temp"), ssd);
}
TEST(SensorCategoryTest, GasGaugeIsTheBattery) {
    EXPECT_EQ(categoryOfSensor("gas gauge battery"), battery);
    EXPECT_EQ(categoryOfSensor("Gas Gauge"), battery);
    EXPECT_EQ(categoryOfSensor("gas"), other);
}
TEST(SensorCategoryTest, CalibrationIsOther) {
    EXPECT_EQ(categoryOfSensor("PMU tcal"), other);
}
TEST(SensorCategoryTest, CalibrationOfTheProcessorIsOtherToo) {
    EXPECT_EQ(categoryOfSensor("PMU tcal tdie cpu"), other);
}
TEST(SensorCategoryTest, DieIsTheProcessor) {
    EXPECT_EQ(categoryOfSensor("PMU tdie1"), cpu);
}
TEST(SensorCategoryTest, PerformanceClusterIsTheProcessor) {
    EXPECT_EQ(categoryOfSensor("pACC MTR Temp Sensor5"), cpu);
}
TEST(SensorCategoryTest, EfficiencyClusterIsTheProcessor) {
    EXPECT_EQ(categoryOfSensor("eACC MTR Temp Sensor0"), cpu);
}
TEST(SensorCategoryTest, GraphicsIsGraphics) {
    EXPECT_EQ(categoryOfSensor("GPU MTR Temp Sensor1"), gpu);
}
TEST(SensorCategoryTest, ChipIsChip) {
    EXPECT_EQ(categoryOfSensor("SOC MTR Temp Sensor0"), soc);
}
TEST(SensorCategoryTest, DeviceIsTheEnclosure) {
    EXPECT_EQ(categoryOfSensor("PMU tdev3"), enclosure);
}
TEST(SensorCategoryTest, KeyTC0PIsTheProcessor) {
    EXPECT_EQ(categoryOfSensor("TC0P"), cpu);
}
TEST(SensorCategoryTest, KeyTG0DIsGraphics) {
    EXPECT_EQ(categoryOfSensor("TG0D"), gpu);
}
TEST(SensorCategoryTest, KeyTN0DIsADisk) {
    EXPECT_EQ(categoryOfSensor("TN0D"), ssd);
}
TEST(SensorCategoryTest, KeysTS0PAndTH0AAreTheEnclosure) {
    EXPECT_EQ(categoryOfSensor("TS0P"), enclosure);
    EXPECT_EQ(categoryOfSensor("TH0A"), enclosure);
}
TEST(SensorCategoryTest, UnknownNameIsOther) {
    EXPECT_EQ(categoryOfSensor("ambient"), other);
    EXPECT_EQ(categoryOfSensor(""), other);
}
TEST(SensorCategoryTest, KeysCountAtTheBeginningOnly) {
    EXPECT_EQ(categoryOfSensor("x TC0P"), other);
    EXPECT_EQ(categoryOfSensor("x TG0D"), other);
    EXPECT_EQ(categoryOfSensor("x TN0D"), other);
    EXPECT_EQ(categoryOfSensor("x TS0P"), other);
    EXPECT_EQ(categoryOfSensor("x TH0A"), other);
}
TEST(SensorCategoryTest, EarlierTestDecides) {
    EXPECT_EQ(categoryOfSensor("SSD GPU"), ssd);
    EXPECT_EQ(categoryOfSensor("GPU Battery"), gpu);
    EXPECT_EQ(categoryOfSensor("Battery tcal"), battery);
    EXPECT_EQ(categoryOfSensor("SOC CPU"), cpu);
    EXPECT_EQ(categoryOfSensor("SOC tdev"), soc);
    EXPECT_EQ(categoryOfSensor("CPU socket"), cpu);
}
TEST(SensorCategoryTest, BytesThatAreNoTextAreOther) {
    EXPECT_EQ(categoryOfSensor(std::string("\xff\0\xc3", 3)), other);
}

TEST(SensorCategoryTest, LongNameIsClassifiedToo) {
    EXPECT_EQ(categoryOfSensor(std::string(500, 'x') + " GPU"), gpu);
    EXPECT_EQ(categoryOfSensor(std::string(125, 'x') + "GPU"), gpu);
    EXPECT_EQ(categoryOfSensor(std::string(126, 'x') + "GPU"), gpu);
}

TEST(ProcessorSensorTest, ClusterNamesCountInTheirOwnCaseOnly) {
    EXPECT_EQ(processorSensor("pACC MTR Temp Sensor5"), ProcessorSensor::cpu);
    EXPECT_EQ(processorSensor("eACC MTR Temp Sensor5"), ProcessorSensor::cpu);
    EXPECT_EQ(processorSensor("PMU tdie1"), ProcessorSensor::cpu);
    EXPECT_EQ(processorSensor("pacc x"), ProcessorSensor::none);
    EXPECT_EQ(processorSensor("eacc x"), ProcessorSensor::none);
    EXPECT_EQ(processorSensor("TDIE"), ProcessorSensor::none);
}
TEST(ProcessorSensorTest, CpuCountsInAnyCase) {
    EXPECT_EQ(processorSensor("Cpu die"), ProcessorSensor::cpu);
    EXPECT_EQ(processorSensor("CPU"), ProcessorSensor::cpu);
}
TEST(ProcessorSensorTest, ChipCountsInUpperCaseOnly) {
    EXPECT_EQ(processorSensor("SOC MTR"), ProcessorSensor::soc);
    EXPECT_EQ(processorSensor("soc mtr"), ProcessorSensor::none);
}
TEST(ProcessorSensorTest, NameOfBothIsTheProcessor) {
    EXPECT_EQ(processorSensor("SOC cpu"), ProcessorSensor::cpu);
}
TEST(ProcessorSensorTest, FlashMemoryOfTheProcessorCountsHereThoughItIsADisk) {
    EXPECT_EQ(processorSensor("NAND cpu"), ProcessorSensor::cpu);
}

}  // namespace
}  // namespace velmora
