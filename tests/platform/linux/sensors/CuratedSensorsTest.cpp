#include "platform/linux/sensors/CuratedSensors.h"

#include "samplers/SensorCategory.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Inputs = std::vector<SensorChip::Input>;
using Sensors = std::vector<CuratedSensor>;

Sensors curated(std::string_view name, const Inputs& inputs, std::string_view subject = {}) {
    return curatedSensors({.name = name, .inputs = inputs, .subject = subject});
}

TEST(CuratedSensorsTest, PackagesOfCoretempComeWithoutTheCores) {
    EXPECT_EQ(curated("coretemp", {{1, "Package id 0"}, {2, "Core 0"}, {3, "Core 1"}, {7, "Package id 1"}}),
              (Sensors{{1, "CPU tdie coretemp Package id 0", SensorCost::direct},
                       {7, "CPU tdie coretemp Package id 1", SensorCost::direct}}));
}

TEST(CuratedSensorsTest, CoresOfCoretempServeWithoutAPackage) {
    EXPECT_EQ(curated("coretemp", {{2, "Core 0"}, {3, "Core 1"}}),
              (Sensors{{2, "CPU tdie coretemp Core 0", SensorCost::direct},
                       {3, "CPU tdie coretemp Core 1", SensorCost::direct}}));
}

TEST(CuratedSensorsTest, DieWinsOverControlAndChipletsAreLeftOut) {
    EXPECT_EQ(curated("k10temp", {{1, "Tctl"}, {2, "Tdie"}, {3, "Tccd1"}}),
              (Sensors{{2, "CPU tdie k10temp", SensorCost::direct}}));
}

TEST(CuratedSensorsTest, ControlServesWithoutDie) {
    EXPECT_EQ(curated("zenpower", {{1, "Tctl"}, {3, "Tccd1"}}),
              (Sensors{{1, "CPU tdie k10temp", SensorCost::direct}}));
}

TEST(CuratedSensorsTest, OldProcessorWithoutLabelsServes) {
    EXPECT_EQ(curated("k10temp", {{1, ""}}), (Sensors{{1, "CPU tdie k10temp", SensorCost::direct}}));
}

TEST(CuratedSensorsTest, EdgeOfAGraphicsCardComesWithoutJunctionAndMemory) {
    EXPECT_EQ(curated("amdgpu", {{1, "edge"}, {2, "junction"}, {3, "mem"}}, "0"),
              (Sensors{{1, "GPU amdgpu 0", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, PackageOfAGraphicsCardServes) {
    EXPECT_EQ(curated("xe", {{2, "pkg"}, {3, "vram"}}, "1"), (Sensors{{2, "GPU xe 1", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, GraphicsCardWithOneUnnamedSensorServes) {
    EXPECT_EQ(curated("nouveau", {{1, ""}}, "0"), (Sensors{{1, "GPU nouveau 0", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, CompositeOfADiskComesWithoutItsOthers) {
    EXPECT_EQ(curated("nvme", {{1, "Composite"}, {2, "Sensor 1"}}, "nvme0"),
              (Sensors{{1, "SSD nvme0", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, SolidStateDiskIsAskedSeldomAndATurningOneNever) {
    EXPECT_EQ(curated("drivetemp", {{1, ""}}, "sda"), (Sensors{{1, "SSD sda", SensorCost::slowest}}));
    EXPECT_EQ(curated("drivetemp", {{1, ""}}, ""), Sensors{});
}

TEST(CuratedSensorsTest, BatteryHasTheNameOfTheBattery) {
    const Inputs inputs = {{1, ""}};
    EXPECT_EQ(curatedSensors({.name = "BAT0", .inputs = inputs, .subject = "BAT0", .isBattery = true}),
              (Sensors{{1, "Battery BAT0", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, ThinkpadComesWithoutProcessorAndGraphics) {
    EXPECT_EQ(curated("thinkpad", {{1, "CPU"}, {2, "GPU"}, {3, ""}, {4, "Palm rest"}}),
              (Sensors{{3, "tdev thinkpad 3", SensorCost::slow},
                       {4, "tdev thinkpad Palm rest", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, OfADellOnlyTheAmbientSensorCounts) {
    EXPECT_EQ(curated("dell_smm", {{1, "CPU"}, {2, "Ambient"}, {3, "SODIMM"}, {4, "GPU"}}),
              (Sensors{{2, "tdev dell_smm Ambient", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, OfABoardOnlyTheBoardsOwnChannelCounts) {
    EXPECT_EQ(curated("nct6775",
                      {{1, "SYSTIN"}, {2, "CPUTIN"}, {3, "AUXTIN0"}, {4, "PECI Agent 0"}, {5, "TSI0_TEMP"}}),
              (Sensors{{1, "tdev nct6775 SYSTIN", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, ControllerKeysStayAsTheyAre) {
    EXPECT_EQ(curated("applesmc", {{1, "TC0P"}, {2, ""}}), (Sensors{{1, "TC0P", SensorCost::slow}}));
}

TEST(CuratedSensorsTest, ChipsOfNoCategoryAreLeftOut) {
    for (const char* name :
         {"iwlwifi_1", "spd5118", "jc42", "ath11k_hwmon", "r8169_0_300:00", "asus", "hp", "mystery"}) {
        EXPECT_EQ(curated(name, {{1, ""}, {2, "CPU"}}), Sensors{}) << name;
        EXPECT_FALSE(isCuratedChip(name)) << name;
    }
}

TEST(CuratedSensorsTest, ChipWithoutInputsGivesNone) {
    for (const char* name :
         {"coretemp", "k10temp", "amdgpu", "nvme", "drivetemp", "acpitz", "cpu_thermal", "thinkpad"})
        EXPECT_EQ(curated(name, {}, "x"), Sensors{}) << name;
}

TEST(CuratedSensorsTest, ProcessorZonesAreReadAtOnce) {
    for (const char* zone : {"cpu-thermal", "cpu_thermal", "cpu0-thermal", "cpuss1-thermal",
                             "bigcore0-thermal", "little-thermal", "x86_pkg_temp"}) {
        ASSERT_TRUE(curatedZone(zone)) << zone;
        EXPECT_EQ(curatedZone(zone)->cost, SensorCost::direct) << zone;
        EXPECT_EQ(categoryOfSensor(curatedZone(zone)->name), TempCategory::cpu) << zone;
        EXPECT_EQ(processorSensor(curatedZone(zone)->name), ProcessorSensor::cpu) << zone;
    }
}

TEST(CuratedSensorsTest, ChipZonesAreTheChipForBothClassifiers) {
    for (const char* zone : {"soc-thermal", "soc_thermal", "pch_skylake", "pch_cannonlake"}) {
        ASSERT_TRUE(curatedZone(zone)) << zone;
        EXPECT_EQ(categoryOfSensor(curatedZone(zone)->name), TempCategory::soc) << zone;
        EXPECT_EQ(processorSensor(curatedZone(zone)->name), ProcessorSensor::soc) << zone;
    }
}

TEST(CuratedSensorsTest, OtherZonesAreLeftOut) {
    for (const char* zone : {"INT3400 Thermal", "iwlwifi_1", "npu-thermal", "battery", "SEN1", "bigfoot", ""})
        EXPECT_FALSE(curatedZone(zone)) << zone;
}

TEST(CuratedSensorsTest, NamesFallIntoTheirCategories) {
    EXPECT_EQ(categoryOfSensor("CPU tdie coretemp Package id 0"), TempCategory::cpu);
    EXPECT_EQ(categoryOfSensor("CPU tdie k10temp"), TempCategory::cpu);
    EXPECT_EQ(categoryOfSensor("GPU amdgpu 0"), TempCategory::gpu);
    EXPECT_EQ(categoryOfSensor("SSD nvme0"), TempCategory::ssd);
    EXPECT_EQ(categoryOfSensor("Battery BAT0"), TempCategory::battery);
    EXPECT_EQ(categoryOfSensor("tdev acpitz"), TempCategory::enclosure);
    EXPECT_EQ(categoryOfSensor("tdev nct6775 SYSTIN"), TempCategory::enclosure);
    EXPECT_EQ(categoryOfSensor("tdev dell_smm Ambient"), TempCategory::enclosure);
    EXPECT_EQ(categoryOfSensor("tdev thinkpad 3"), TempCategory::enclosure);
}

TEST(CuratedSensorsTest, OnlyTheProcessorsChipsAreReadOnTheMainThread) {
    for (const char* name : {"coretemp", "k10temp", "zenpower", "cpu_thermal"})
        EXPECT_TRUE(isDirectChip(name)) << name;
    for (const char* name : {"nvme", "drivetemp", "amdgpu", "acpitz", "dell_smm", "thinkpad", "nct6775",
                             "applesmc", "soc_thermal", "BAT0"})
        EXPECT_FALSE(isDirectChip(name)) << name;
}

TEST(CuratedSensorsTest, BoardChipsAreKnownByTheirFamily) {
    for (const char* name : {"nct6775", "nct6798", "it8728", "w83627ehf", "f71882fg"})
        EXPECT_TRUE(isBoardChip(name)) << name;
    for (const char* name : {"amdgpu", "thinkpad", "dell_smm", "applesmc", "pwmfan"})
        EXPECT_FALSE(isBoardChip(name)) << name;
}

}  // namespace
}  // namespace velmora
