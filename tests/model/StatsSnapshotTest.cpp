#include "model/StatsSnapshot.h"

#include "model/SnapshotFields.h"

#include <gtest/gtest.h>

#include <optional>
#include <type_traits>

namespace velmora {
namespace {

DiskVolume volumeAt(const char* path) {
    DiskVolume volume;
    volume.path = path;
    return volume;
}

TEST(StatsSnapshot, BeforeTheFirstTickEveryFigureIsAbsent) {
    const StatsSnapshot snapshot;
    EXPECT_EQ(snapshot.timestamp, Date::distantPast());
    EXPECT_TRUE(snapshot.updated.empty());
    EXPECT_EQ(snapshot.cpu.usage, 0);
    EXPECT_TRUE(snapshot.cpu.perCore.empty());
    EXPECT_TRUE(snapshot.cpu.history.empty());
    EXPECT_EQ(snapshot.cpu.temperature, std::nullopt);
    EXPECT_EQ(snapshot.memory.total, 0u);
    EXPECT_TRUE(snapshot.disk.volumes.empty());
    EXPECT_EQ(snapshot.network.netName, std::nullopt);
    EXPECT_FALSE(snapshot.network.vpnOn);
    EXPECT_TRUE(snapshot.sensors.temperatures.empty());
    EXPECT_FALSE(snapshot.battery.present);
}

/// Called with each field of a record, at every depth.
struct ExpectNothing {
    template <typename Value>
    void operator()(const char* name, const std::optional<Value>& value) const {
        EXPECT_FALSE(value.has_value()) << name;
    }
    void operator()(const char* name, const auto& value) const {
        if constexpr (requires { SnapshotFields::visit(value, [](const char*, const auto&) {}); }) {
            SnapshotFields::visit(value, *this);
        } else if constexpr (requires { value.empty(); }) {
            EXPECT_TRUE(value.empty()) << name;
        } else {
            EXPECT_EQ(value, std::remove_cvref_t<decltype(value)>{}) << name;
        }
    }
    void operator()(const char* name, const decltype(SensorsStats::temperatureHistories)& histories) const {
        for (const ShortSeries& series : histories) EXPECT_TRUE(series.empty()) << name;
    }
    void operator()(const char*, const Date& date) const { EXPECT_EQ(date, Date::distantPast()); }
};

TEST(StatsSnapshot, BeforeTheFirstTickEachFieldOfEveryRecordIsZeroFalseAbsentOrEmpty) {
    const StatsSnapshot snapshot;
    const DiskVolume volume;
    const MemoryProcess process;
    const PeripheralBattery peripheral;
    SnapshotFields::visit(snapshot, ExpectNothing());
    SnapshotFields::visit(volume, ExpectNothing());
    SnapshotFields::visit(process, ExpectNothing());
    SnapshotFields::visit(peripheral, ExpectNothing());
}

TEST(StatsSnapshot, CopyStaysAsItWasWhenTheOriginalChanges) {
    StatsSnapshot snapshot;
    snapshot.cpu.perCore = {0.25};
    snapshot.cpu.history.append(0.25);
    const StatsSnapshot copy = snapshot;
    snapshot.cpu.perCore[0] = 0.75;
    snapshot.cpu.history.append(0.75);
    EXPECT_EQ(copy.cpu.perCore, std::vector<double>{0.25});
    EXPECT_EQ(copy.cpu.history.size(), 1u);
}

TEST(StatsSnapshot, EveryShortSeriesHoldsSixtySamples) {
    const auto holdsSixty = [](const auto&... series) { return ((series.capacity() == 60) && ...); };
    const StatsSnapshot s;
    EXPECT_TRUE(holdsSixty(s.cpu.history, s.cpu.userHistory, s.cpu.systemHistory, s.cpu.gpuHistory));
    EXPECT_TRUE(holdsSixty(s.memory.history, s.memory.pressureHistory));
    EXPECT_TRUE(holdsSixty(s.disk.activityHistory, s.disk.readHistory, s.disk.writeHistory));
    EXPECT_TRUE(holdsSixty(s.network.downHistory, s.network.upHistory));
    EXPECT_TRUE(holdsSixty(s.battery.history, s.battery.pluggedHistory));
    EXPECT_TRUE(holdsSixty(s.sensors.history));
    for (const auto& series : s.sensors.temperatureHistories) EXPECT_TRUE(holdsSixty(series));
}

TEST(StatsSnapshot, LongSeriesHaveTheirCaps) {
    const StatsSnapshot snapshot;
    EXPECT_EQ(snapshot.cpu.userLong.capacity(), 60u);
    EXPECT_EQ(snapshot.cpu.systemLong.capacity(), 60u);
    EXPECT_EQ(snapshot.cpu.loadLong.capacity(), 60u);
    EXPECT_EQ(snapshot.cpu.gpuLong.capacity(), 60u);
    EXPECT_EQ(snapshot.cpu.perCoreLong.capacity(), 20u);
    EXPECT_EQ(snapshot.memory.usedLong.capacity(), 360u);
    EXPECT_EQ(snapshot.memory.appLong.capacity(), 360u);
    EXPECT_EQ(snapshot.disk.readLong.capacity(), 120u);
    EXPECT_EQ(snapshot.disk.writeLong.capacity(), 120u);
    EXPECT_EQ(snapshot.network.downLong.capacity(), 180u);
    EXPECT_EQ(snapshot.network.upLong.capacity(), 180u);
    EXPECT_EQ(snapshot.sensors.cpuLong.capacity(), 180u);
    EXPECT_EQ(snapshot.sensors.fanLong.capacity(), 180u);
    EXPECT_EQ(snapshot.battery.percentLong.capacity(), 288u);
    EXPECT_EQ(snapshot.battery.pluggedLong.capacity(), 288u);
    EXPECT_EQ(snapshot.battery.screenOnLong.capacity(), 288u);
}

TEST(DiskStatsBoot, VolumeAtTheRootIsTheBootVolume) {
    DiskStats disk;
    disk.volumes = {volumeAt("/home"), volumeAt("/"), volumeAt("/media")};
    ASSERT_NE(disk.boot(), nullptr);
    EXPECT_EQ(disk.boot()->path, "/");
}

TEST(DiskStatsBoot, WithoutARootTheFirstVolumeStandsIn) {
    DiskStats disk;
    disk.volumes = {volumeAt("/home"), volumeAt("/media")};
    ASSERT_NE(disk.boot(), nullptr);
    EXPECT_EQ(disk.boot()->path, "/home");
}

TEST(DiskStatsBoot, WithoutVolumesThereIsNone) {
    EXPECT_EQ(DiskStats().boot(), nullptr);
}

TEST(SensorsStatsPrimaryTemperature, FirstProcessorEntryCounts) {
    SensorsStats sensors;
    sensors.temperatures = {
        {TempCategory::gpu, 90}, {TempCategory::cpu, 45}, {TempCategory::cpu, 60}, {TempCategory::ssd, 30}};
    EXPECT_EQ(sensors.primaryTemperature(), 45);
}

TEST(SensorsStatsPrimaryTemperature, WithoutAProcessorTheHottestCounts) {
    SensorsStats sensors;
    sensors.temperatures = {{TempCategory::ssd, 38}, {TempCategory::gpu, 51}, {TempCategory::battery, 30}};
    EXPECT_EQ(sensors.primaryTemperature(), 51);
}

TEST(SensorsStatsPrimaryTemperature, BatteryAloneGivesItsValue) {
    SensorsStats sensors;
    sensors.temperatures = {{TempCategory::battery, 31.5}};
    EXPECT_EQ(sensors.primaryTemperature(), 31.5);
}

TEST(SensorsStatsPrimaryTemperature, WithoutEntriesThereIsNone) {
    EXPECT_EQ(SensorsStats().primaryTemperature(), std::nullopt);
}

}  // namespace
}  // namespace velmora
