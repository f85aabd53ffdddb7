#pragma once

#include "model/StatsSnapshot.h"
#include "platform/ProcessorSources.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

// What the engine asks of the readers of figures, one abstract class per kind. A reader is called on the main
// thread, never throws, and answers what its record's defaults are for a figure that cannot be read. An
// `interval` is the seconds since the module's last sample, 0 on the first one after a restart of the timer.

namespace velmora {

struct CPUFigures {
    double usage = 0;
    double user = 0;
    double system = 0;
    std::vector<double> perCore;
};

class CPUSampling {
public:
    virtual ~CPUSampling() = default;
    /// Overwrites `figures`, reusing its storage.
    virtual void sample(CPUFigures& figures) = 0;
    virtual LoadAverage loadAverage() = 0;
    /// Seconds since boot; 0 if unknown.
    virtual double uptime() = 0;
    virtual std::optional<TaskThreadCounts> taskThreadCounts() = 0;
    /// Found out once per run.
    virtual int efficiencyCoreCount() = 0;
};

class GPUSampling {
public:
    virtual ~GPUSampling() = default;
    /// Fraction, not clamped to 1.
    virtual std::optional<double> sample() = 0;
};

class MemorySampling {
public:
    virtual ~MemorySampling() = default;
    /// Writes the twelve instant fields (`total` to `pageOutPerSec`); series and process list stay as they
    /// are.
    virtual void sample(double interval, MemoryStats& stats) = 0;
};

struct MemoryTop {
    std::vector<MemoryProcess> top;  ///< Heaviest first.
    int total = 0;                   ///< Processes looked at.
    double sumGB = 0;                ///< Of all of them.
};

class ProcessFootprintSampling {
public:
    virtual ~ProcessFootprintSampling() = default;
    /// Empty too while the first walk is under way, which is not waited for.
    virtual MemoryTop memoryFootprintTop(int limit) = 0;
    /// Whether what a question did not get has come since, so that it is worth asking once more.
    virtual bool hasLateAnswer() const { return false; }
};

struct DiskActivity {
    double readPerSec = 0;
    double writePerSec = 0;
    double iops = 0;
    std::uint64_t readBytes = 0;   ///< Cumulative.
    std::uint64_t writeBytes = 0;  ///< Cumulative.
};

class DiskSampling {
public:
    virtual ~DiskSampling() = default;
    virtual DiskActivity activity(double interval) = 0;
    /// The mounted volumes, rates 0.
    virtual std::vector<DiskVolume> volumes() = 0;
};

struct VolumeIORates {
    double readPerSec = 0;
    double writePerSec = 0;
};

class VolumeIOSampling {
public:
    virtual ~VolumeIOSampling() = default;
    /// Rates by device name; the reference stays valid until the next call.
    virtual const std::map<std::string, VolumeIORates>& sample(double interval) = 0;
};

struct NetworkRates {
    double downPerSec = 0;
    double upPerSec = 0;
    std::uint64_t totalDown = 0;
    std::uint64_t totalUp = 0;
};

class NetworkSampling {
public:
    virtual ~NetworkSampling() = default;
    virtual NetworkRates sample(double interval) = 0;
    virtual std::optional<std::string> localIPAddress() = 0;
};

struct WifiDetail {
    std::optional<int> rssi;
    std::optional<std::string> phy;
    std::optional<std::string> channel;
    std::optional<std::string> ssid;
};

class NetworkInfoSampling {
public:
    virtual ~NetworkInfoSampling() = default;
    /// Name of the interface that carries the default route.
    virtual std::optional<std::string> primaryInterface() = 0;
    virtual std::optional<std::string> networkName(const std::optional<std::string>& bsd) = 0;
    virtual std::optional<double> linkSpeed(const std::optional<std::string>& bsd) = 0;
    virtual std::optional<std::string> interfaceDisplayName(const std::optional<std::string>& bsd) = 0;
    virtual std::optional<std::string> macAddress(const std::optional<std::string>& bsd) = 0;
    virtual WifiDetail wifiDetail() = 0;
    virtual std::optional<std::string> routerAddress() = 0;
    virtual std::optional<std::string> dnsAddress() = 0;
    virtual std::optional<std::string> proxyDescription() = 0;
    virtual bool vpnActive() = 0;
};

class TemperatureSampling {
public:
    virtual ~TemperatureSampling() = default;
    /// Overwrites `readings` with the latest reading per category, reusing its storage.
    virtual void temperatureGroups(std::vector<TemperatureReading>& readings) = 0;
    virtual std::optional<double> cpuTemperature() = 0;
};

class FanSampling {
public:
    virtual ~FanSampling() = default;
    /// Overwrites `rpm`, reusing its storage.
    virtual void speeds(std::vector<double>& rpm) = 0;
};

class BatterySampling {
public:
    virtual ~BatterySampling() = default;
    /// Writes the instant fields; the series stay as they are.
    virtual void sample(BatteryStats& stats) = 0;
};

/// Asks for one round trip. The completion may come on any thread, with milliseconds or, on failure, nothing.
using PingCompletion = std::function<void(std::optional<double>)>;
using PingProbe = std::function<void(PingCompletion)>;

/// All the readers that the engine uses.
struct Samplers {
    CPUSampling& cpu;
    GPUSampling& gpu;
    MemorySampling& memory;
    ProcessFootprintSampling& processes;
    DiskSampling& disk;
    VolumeIOSampling& volumeIO;
    NetworkSampling& network;
    NetworkInfoSampling& networkInfo;
    TemperatureSampling& temperature;
    FanSampling& fan;
    BatterySampling& battery;
    PingProbe
        icmpPing;  ///< An echo request to the deployment's probe address, 2 s timeout; null for no probe.
    PingProbe measurePing;  ///< The fallback over TCP; null for no probe.
};

}  // namespace velmora
