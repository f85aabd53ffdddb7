#pragma once

#include "base/Date.h"
#include "base/History.h"
#include "model/StatsModule.h"
#include "model/TempCategory.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// The one value that the engine publishes, whole, on every tick. Every record copies as a value: who holds a
// snapshot holds a consistent picture of one moment. The defaults are what is shown before the first tick.
//
// Fractions run from 0.0 to 1.0, sizes are bytes, rates bytes per second, temperatures degrees Celsius, fan
// speeds revolutions per minute. A figure that cannot be read is an empty optional, an empty list, 0 or
// false.

namespace velmora {

/// One point per sample of the module, 60 samples.
using ShortSeries = History<double, 60>;

struct LoadAverage {
    double one = 0;
    double five = 0;
    double fifteen = 0;
    friend bool operator==(const LoadAverage&, const LoadAverage&) = default;
};

struct CPUStats {
    double usage = 0;             ///< Busy fraction of all cores together.
    double user = 0;              ///< User share, nice time included.
    double system = 0;            ///< System share.
    std::vector<double> perCore;  ///< Busy fraction per logical core, efficiency cores first.
    int efficiencyCoreCount = 0;  ///< At most `perCore.size()`; 0 with one performance level.
    LoadAverage loadAvg;
    double uptime = 0;  ///< Seconds since boot.
    std::optional<double> temperature;
    std::optional<double> gpuUsage;  ///< Fraction; not clamped to 1.
    ShortSeries gpuHistory;
    History<double, 60> gpuLong;  ///< Every 5 s, 5 minutes; so too the next three long series.
    ShortSeries userHistory;
    ShortSeries systemHistory;
    History<double, 60> userLong;
    History<double, 60> systemLong;
    History<double, 60> loadLong;
    History<std::vector<double>, 20> perCoreLong;  ///< Every 15 s, 5 minutes; whole copies of `perCore`.
    std::optional<int> taskCount;
    std::optional<int> threadCount;
    ShortSeries history;  ///< Of `usage`.
    friend bool operator==(const CPUStats&, const CPUStats&) = default;
};

/// A process by its memory footprint, in gigabytes (1e9 bytes).
struct MemoryProcess {
    std::string name;
    double gb = 0;
    friend bool operator==(const MemoryProcess&, const MemoryProcess&) = default;
};

struct MemoryStats {
    std::uint64_t total = 0;  ///< Physical memory.
    std::uint64_t used = 0;
    std::uint64_t app = 0;
    std::uint64_t wired = 0;
    std::uint64_t compressed = 0;
    std::uint64_t cached = 0;  ///< Lies inside `free`.
    std::uint64_t free = 0;    ///< `total` less `used`.
    std::uint64_t swapUsed = 0;
    std::uint64_t swapTotal = 0;
    double pressure = 0;  ///< Fraction; this, not `used`, is on the status bar.
    double pageInPerSec = 0;
    double pageOutPerSec = 0;
    ShortSeries history;  ///< Of `used / total`.
    ShortSeries pressureHistory;
    History<double, 360> usedLong;        ///< Every 10 s, 60 minutes, of `used / total`.
    History<double, 360> appLong;         ///< Likewise of `app / total`.
    std::vector<MemoryProcess> topProcs;  ///< Heaviest first, at most 8.
    int topProcsTotal = 0;                ///< Processes that the list was cut from.
    double topProcsSumGB = 0;             ///< Sum of all their footprints.
    friend bool operator==(const MemoryStats&, const MemoryStats&) = default;
};

struct DiskVolume {
    std::string path;  ///< Mount point, the volume's identity.
    std::string name;
    std::uint64_t total = 0;
    std::uint64_t free = 0;
    bool isInternal = false;
    bool isNetwork = false;
    bool isRemovable = false;
    std::optional<std::string> bsd;  ///< Name of the device, as the throughput figures name it.
    double readPerSec = 0;           ///< Of the volume's whole disk.
    double writePerSec = 0;
    friend bool operator==(const DiskVolume&, const DiskVolume&) = default;
};

struct DiskStats {
    std::vector<DiskVolume> volumes;
    double readPerSec = 0;
    double writePerSec = 0;
    ShortSeries activityHistory;  ///< Of reads plus writes.
    ShortSeries readHistory;
    ShortSeries writeHistory;
    double iops = 0;  ///< Operations per second.
    std::uint64_t readToday = 0;
    std::uint64_t writeToday = 0;
    History<double, 120> readLong;  ///< Every 10 s, 20 minutes.
    History<double, 120> writeLong;
    friend bool operator==(const DiskStats&, const DiskStats&) = default;

    /// The volume at "/", else the first, else null. All disk figures of the status bar are of this volume.
    const DiskVolume* boot() const;
};

struct NetworkStats {
    double downPerSec = 0;
    double upPerSec = 0;
    std::uint64_t totalDown = 0;  ///< Since boot.
    std::uint64_t totalUp = 0;
    std::optional<std::string> localIP;
    ShortSeries downHistory;
    ShortSeries upHistory;
    std::uint64_t totalToday = 0;
    double peakTodayDown = 0;
    std::optional<double> pingMs;  ///< Latest good round trip, milliseconds.
    std::optional<std::string> netName;
    std::optional<double> linkMbps;
    History<double, 180> downLong;  ///< Every 10 s, 30 minutes.
    History<double, 180> upLong;
    std::uint64_t downToday = 0;
    std::uint64_t upToday = 0;
    double connectedSec = 0;         ///< Since the primary interface or network last changed.
    std::optional<double> jitterMs;  ///< Mean absolute difference of neighbouring round trips.
    std::optional<double> lossPct;   ///< Failed probes in percent, 0 to 100.
    std::optional<std::string> ifaceName;
    std::optional<std::string> phyMode;
    std::optional<std::string> channel;
    std::optional<int> rssi;  ///< dBm.
    std::optional<std::string> router;
    std::optional<std::string> dns;
    std::optional<std::string> mac;
    bool vpnOn = false;
    std::uint64_t monthTotal = 0;
    double activeSecToday = 0;
    std::optional<std::string> proxy;
    std::optional<std::string> ssid;
    friend bool operator==(const NetworkStats&, const NetworkStats&) = default;
};

struct TemperatureReading {
    TempCategory category = TempCategory::other;
    double celsius = 0;
    friend bool operator==(const TemperatureReading&, const TemperatureReading&) = default;
};

struct SensorsStats {
    std::vector<TemperatureReading> temperatures;
    std::vector<double> fans;
    std::optional<double> gpuUsage;
    ShortSeries history;  ///< Primary temperature over 100, at most 1.0.
    /// Degrees Celsius, one series per category, at `indexOf(category)`; empty for a category without
    /// readings.
    std::array<ShortSeries, kAllTempCategories.size()> temperatureHistories;
    History<double, 180> cpuLong;  ///< Every 10 s, 30 minutes; primary temperature, 0 where there was none.
    History<double, 180> fanLong;  ///< Likewise the fastest fan.
    double maxToday = 0;
    double fanMaxRpm = 0;  ///< Highest ever seen on this machine.
    friend bool operator==(const SensorsStats&, const SensorsStats&) = default;

    /// The first `cpu` reading, else the highest of all, else nothing.
    std::optional<double> primaryTemperature() const;
};

struct PeripheralBattery {
    std::string name;  ///< Its identity.
    int percent = 0;
    friend bool operator==(const PeripheralBattery&, const PeripheralBattery&) = default;
};

struct BatteryStats {
    bool present = false;
    int percent = 0;  ///< 0 to 100.
    bool isCharging = false;
    bool isPluggedIn = false;
    std::optional<int> timeRemainingMinutes;
    std::optional<int> cycleCount;
    std::optional<double> health;
    std::optional<double> temperature;
    bool lowPowerMode = false;
    std::vector<PeripheralBattery> peripherals;
    ShortSeries history;  ///< Of `percent / 100`.
    History<bool, 60> pluggedHistory;
    std::optional<double> powerWatts;
    History<double, 288> percentLong;   ///< One point per 5-minute slot, 24 hours; so too the next two.
    History<double, 288> pluggedLong;   ///< 1.0 or 0.0.
    History<double, 288> screenOnLong;  ///< 1.0 or 0.0.
    friend bool operator==(const BatteryStats&, const BatteryStats&) = default;
};

struct StatsSnapshot {
    CPUStats cpu;
    MemoryStats memory;
    DiskStats disk;
    NetworkStats network;
    SensorsStats sensors;
    BatteryStats battery;
    Date timestamp = Date::distantPast();  ///< When the tick that made this snapshot began.
    ModuleSet updated;                     ///< What that tick really sampled; the rest carries over.
    friend bool operator==(const StatsSnapshot&, const StatsSnapshot&) = default;
};

}  // namespace velmora
