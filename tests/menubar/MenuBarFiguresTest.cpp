#include "menubar/MenuBarFigures.h"

#include "menubar/SampleSnapshots.h"

#include <gtest/gtest.h>

namespace velmora::MenuBarFigures {
namespace {

DiskVolume volume(std::uint64_t total, std::uint64_t free) {
    DiskVolume volume;
    volume.path = "/";
    volume.total = total;
    volume.free = free;
    return volume;
}

TEST(MenuBarFigures, EachModuleStacksItsLabelOverItsFigure) {
    const StatsSnapshot snapshot = busySnapshot();
    EXPECT_EQ(lines(StatsModule::cpu, snapshot), (FigureLines{"CPU", "42%"}));
    EXPECT_EQ(lines(StatsModule::memory, snapshot), (FigureLines{"MEM", "64%"}));
    EXPECT_EQ(lines(StatsModule::disk, snapshot), (FigureLines{"DSK", "73%"}));
    EXPECT_EQ(lines(StatsModule::sensors, snapshot), (FigureLines{"SEN", "56°"}));
}

TEST(MenuBarFigures, NetworkShowsSendingAboveReceiving) {
    EXPECT_EQ(lines(StatsModule::network, busySnapshot()),
              (FigureLines{"↑ 12K", "↓ 3.4M", LinesLayout::twoValues}));
}

TEST(MenuBarFigures, ProcessorShowsAndFillsToItsUse) {
    StatsSnapshot snapshot;
    snapshot.cpu.usage = 0.9;
    snapshot.cpu.user = 0.2;
    EXPECT_EQ(lines(StatsModule::cpu, snapshot).bottom, "90%");
    EXPECT_EQ(fraction(StatsModule::cpu, snapshot), 0.9);
}

TEST(MenuBarFigures, MemoryShowsPressureNotUse) {
    StatsSnapshot snapshot;
    snapshot.memory.total = 100;
    snapshot.memory.used = 90;
    snapshot.memory.pressure = 0.2;
    EXPECT_EQ(lines(StatsModule::memory, snapshot).bottom, "20%");
    EXPECT_EQ(fraction(StatsModule::memory, snapshot), 0.2);
}

TEST(MenuBarFigures, NoVolumesShowZeroPercentAndHaveNoFraction) {
    EXPECT_EQ(lines(StatsModule::disk, {}).bottom, "0%");
    EXPECT_FALSE(fraction(StatsModule::disk, {}));
}

TEST(MenuBarFigures, VolumeOfUnknownCapacityIsZero) {
    StatsSnapshot snapshot;
    snapshot.disk.volumes = {volume(0, 0)};
    EXPECT_EQ(lines(StatsModule::disk, snapshot).bottom, "0%");
    EXPECT_EQ(fraction(StatsModule::disk, snapshot), 0.0);
}

TEST(MenuBarFigures, DiskIsTheVolumeOfTheSystemWhereverItStandsInTheList) {
    StatsSnapshot snapshot;
    DiskVolume other = volume(100, 90);
    other.path = "/data";
    snapshot.disk.volumes = {other, volume(200, 50)};
    EXPECT_EQ(lines(StatsModule::disk, snapshot), (FigureLines{"DSK", "75%"}));
    EXPECT_EQ(fraction(StatsModule::disk, snapshot), 0.75);
}

TEST(MenuBarFigures, VolumeWithMoreFreeThanItHoldsCountsAsEmpty) {
    EXPECT_EQ(usedShare(volume(100, 130)), 0);
    EXPECT_EQ(usedShare(volume(100, 25)), 0.75);
    StatsSnapshot snapshot;
    snapshot.disk.volumes = {volume(100, 130)};
    EXPECT_EQ(lines(StatsModule::disk, snapshot).bottom, "0%");
    EXPECT_EQ(fraction(StatsModule::disk, snapshot), 0.0);
}

TEST(MenuBarFigures, NoTemperatureIsADash) {
    EXPECT_EQ(lines(StatsModule::sensors, {}), (FigureLines{"SEN", "—"}));
    EXPECT_FALSE(fraction(StatsModule::sensors, {}));
}

TEST(MenuBarFigures, TemperatureIsRoundedToWholeDegrees) {
    StatsSnapshot snapshot;
    snapshot.sensors.temperatures = {{TempCategory::gpu, 99.0}, {TempCategory::cpu, 56.6}};
    EXPECT_EQ(lines(StatsModule::sensors, snapshot), (FigureLines{"SEN", "57°"}));
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::sensors, snapshot), 0.566);
}

TEST(MenuBarFigures, TemperatureFillsToAHundredDegreesAtMost) {
    StatsSnapshot snapshot;
    snapshot.sensors.temperatures = {{TempCategory::cpu, 57.0}};
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::sensors, snapshot), 0.57);
    snapshot.sensors.temperatures = {{TempCategory::cpu, 131.0}};
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::sensors, snapshot), 1.0);
    EXPECT_EQ(lines(StatsModule::sensors, snapshot).bottom, "131°");
}

TEST(MenuBarFigures, DesktopWithoutBatteryShowsADashUnderTheLabel) {
    EXPECT_EQ(lines(StatsModule::battery, {}), (FigureLines{"BAT", "—"}));
}

TEST(MenuBarFigures, DesktopWithoutBatteryHasNoFraction) {
    EXPECT_FALSE(fraction(StatsModule::battery, {}));
}

TEST(MenuBarFigures, ChargingPutsTheBoltDirectlyInFront) {
    StatsSnapshot snapshot;
    snapshot.battery.present = true;
    snapshot.battery.percent = 80;
    EXPECT_EQ(lines(StatsModule::battery, snapshot).bottom, "80%");
    snapshot.battery.isCharging = true;
    EXPECT_EQ(lines(StatsModule::battery, snapshot).bottom, "\u26A1\uFE0E80%");
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::battery, snapshot), 0.8);
}

TEST(MenuBarFigures, ChargingWithoutBatteryPutsTheBoltInFrontOfTheDash) {
    StatsSnapshot snapshot;
    snapshot.battery.isCharging = true;
    EXPECT_EQ(lines(StatsModule::battery, snapshot).bottom, "\u26A1\uFE0E—");
}

TEST(MenuBarFigures, NetworkFillsToTheLargestSumOfAPair) {
    StatsSnapshot snapshot;
    for (const double rate : {1e6, 3e6}) {
        snapshot.network.downHistory.append(rate);
        snapshot.network.upHistory.append(4e6 - rate);
    }
    snapshot.network.downPerSec = 1.5e6;
    snapshot.network.upPerSec = 0.5e6;
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::network, snapshot), 0.5);
}

TEST(MenuBarFigures, QuietNetworkFillsAgainstTheFloor) {
    StatsSnapshot snapshot;
    snapshot.network.downHistory.append(10);
    snapshot.network.upHistory.append(10);
    snapshot.network.downPerSec = 20'000;
    snapshot.network.upPerSec = 5'000;
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::network, snapshot), 0.25);
}

TEST(MenuBarFigures, NetworkWithSeriesOfUnequalLengthFillsToTheirPairs) {
    StatsSnapshot snapshot;
    snapshot.network.downHistory.append(1e6);
    snapshot.network.downHistory.append(8e6);
    snapshot.network.upHistory.append(1e6);
    snapshot.network.downPerSec = 1e6;
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::network, snapshot), 0.5);
}

TEST(MenuBarFigures, NetworkAboveItsHistoryIsFull) {
    StatsSnapshot snapshot;
    snapshot.network.downPerSec = 9e9;
    EXPECT_DOUBLE_EQ(*fraction(StatsModule::network, snapshot), 1.0);
}

TEST(MenuBarFigures, OneLineIsTheFigureAlone) {
    const StatsSnapshot snapshot = busySnapshot();
    EXPECT_EQ(oneLine(StatsModule::cpu, snapshot), "42%");
    EXPECT_EQ(oneLine(StatsModule::network, snapshot), "↑ 12K ↓ 3.4M");
    EXPECT_EQ(oneLine(StatsModule::sensors, snapshot), "56°");
    EXPECT_EQ(oneLine(StatsModule::battery, {}), "—");
}

TEST(MenuBarFigures, CompactRatesDropTheBlankAndFromTenMegabytesTheDecimal) {
    StatsSnapshot snapshot;
    snapshot.network.upPerSec = 9.94e6;
    snapshot.network.downPerSec = 99.95e6;
    EXPECT_EQ(compactLines(StatsModule::network, snapshot).top, "↑9.9M");
    EXPECT_EQ(compactLines(StatsModule::network, snapshot).bottom, "↓100M");
    EXPECT_EQ(compactLines(StatsModule::cpu, snapshot), lines(StatsModule::cpu, snapshot));
}

}  // namespace
}  // namespace velmora::MenuBarFigures
