#pragma once

#include "samplers/Samplers.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Readers of figures with settable answers and call counts, and `FakeSamplers`, which owns one of each and
// hands them out as the engine takes them.

namespace velmora {

class FakeCPUSampler final : public CPUSampling {
public:
    void sample(CPUFigures& into) override {
        ++sampleCount;
        into = figures;
    }
    LoadAverage loadAverage() override { return load; }
    double uptime() override { return uptimeSeconds; }
    std::optional<TaskThreadCounts> taskThreadCounts() override { return counts; }
    int efficiencyCoreCount() override { return efficiencyCores; }

    CPUFigures figures;
    LoadAverage load;
    double uptimeSeconds = 0;
    std::optional<TaskThreadCounts> counts;
    int efficiencyCores = 0;
    int sampleCount = 0;
};

class FakeGPUSampler final : public GPUSampling {
public:
    std::optional<double> sample() override {
        ++sampleCount;
        return fraction;
    }

    std::optional<double> fraction;
    int sampleCount = 0;
};

class FakeMemorySampler final : public MemorySampling {
public:
    void sample(double interval, MemoryStats& stats) override {
        intervals.push_back(interval);
        stats.total = figures.total;
        stats.used = figures.used;
        stats.app = figures.app;
        stats.wired = figures.wired;
        stats.compressed = figures.compressed;
        stats.cached = figures.cached;
        stats.free = figures.free;
        stats.swapUsed = figures.swapUsed;
        stats.swapTotal = figures.swapTotal;
        stats.pressure = figures.pressure;
        stats.pageInPerSec = figures.pageInPerSec;
        stats.pageOutPerSec = figures.pageOutPerSec;
    }

    MemoryStats figures;  ///< Only the instant fields count.
    std::vector<double> intervals;
};

class FakeProcessFootprintSampler final : public ProcessFootprintSampling {
public:
    MemoryTop memoryFootprintTop(int limit) override {
        limits.push_back(limit);
        isLate = false;
        return answer;
    }
    bool hasLateAnswer() const override { return isLate; }

    MemoryTop answer;
    std::vector<int> limits;  ///< Of every walk.
    bool isLate = false;      ///< Until the next question.
};

class FakeDiskSampler final : public DiskSampling {
public:
    DiskActivity activity(double interval) override {
        intervals.push_back(interval);
        return figures;
    }
    std::vector<DiskVolume> volumes() override {
        ++volumesCount;
        return mounted;
    }

    DiskActivity figures;
    std::vector<DiskVolume> mounted;
    std::vector<double> intervals;
    int volumesCount = 0;
};

class FakeVolumeIOSampler final : public VolumeIOSampling {
public:
    const std::map<std::string, VolumeIORates>& sample(double interval) override {
        intervals.push_back(interval);
        return rates;
    }

    std::map<std::string, VolumeIORates> rates;
    std::vector<double> intervals;
};

class FakeNetworkSampler final : public NetworkSampling {
public:
    NetworkRates sample(double interval) override {
        intervals.push_back(interval);
        return rates;
    }
    std::optional<std::string> localIPAddress() override {
        ++localIPCount;
        return localIP;
    }

    NetworkRates rates;
    std::optional<std::string> localIP;
    std::vector<double> intervals;
    int localIPCount = 0;
};

class FakeNetworkInfoSampler final : public NetworkInfoSampling {
public:
    std::optional<std::string> primaryInterface() override {
        calls.push_back("primaryInterface");
        return bsd;
    }
    std::optional<std::string> networkName(const std::optional<std::string>& name) override {
        return noted("networkName", name, netName);
    }
    std::optional<double> linkSpeed(const std::optional<std::string>& name) override {
        return noted("linkSpeed", name, linkMbps);
    }
    std::optional<std::string> interfaceDisplayName(const std::optional<std::string>& name) override {
        return noted("interfaceDisplayName", name, ifaceName);
    }
    std::optional<std::string> macAddress(const std::optional<std::string>& name) override {
        return noted("macAddress", name, mac);
    }
    WifiDetail wifiDetail() override {
        calls.push_back("wifiDetail");
        return wifi;
    }
    std::optional<std::string> routerAddress() override {
        calls.push_back("routerAddress");
        return router;
    }
    std::optional<std::string> dnsAddress() override {
        calls.push_back("dnsAddress");
        return dns;
    }
    std::optional<std::string> proxyDescription() override {
        calls.push_back("proxyDescription");
        return proxy;
    }
    bool vpnActive() override {
        calls.push_back("vpnActive");
        return vpnOn;
    }

    std::optional<std::string> bsd;
    std::optional<std::string> netName;
    std::optional<double> linkMbps;
    std::optional<std::string> ifaceName;
    std::optional<std::string> mac;
    WifiDetail wifi;
    std::optional<std::string> router;
    std::optional<std::string> dns;
    std::optional<std::string> proxy;
    bool vpnOn = false;
    /// The names of the operations in the order of calling.
    std::vector<std::string> calls;
    /// The interface that each call of the four operations with an argument was about.
    std::vector<std::optional<std::string>> askedInterfaces;

private:
    template <typename Answer>
    Answer noted(const char* operation, const std::optional<std::string>& name, const Answer& answer) {
        calls.emplace_back(operation);
        askedInterfaces.push_back(name);
        return answer;
    }
};

class FakeTemperatureSampler final : public TemperatureSampling {
public:
    void temperatureGroups(std::vector<TemperatureReading>& into) override {
        ++groupsCount;
        into = readings;
    }
    std::optional<double> cpuTemperature() override {
        ++cpuTemperatureCount;
        return cpu;
    }

    std::vector<TemperatureReading> readings;
    std::optional<double> cpu;
    int groupsCount = 0;
    int cpuTemperatureCount = 0;
};

class FakeFanSampler final : public FanSampling {
public:
    void speeds(std::vector<double>& into) override {
        ++sampleCount;
        into = rpm;
    }

    std::vector<double> rpm;
    int sampleCount = 0;
};

class FakeBatterySampler final : public BatterySampling {
public:
    void sample(BatteryStats& stats) override {
        ++sampleCount;
        stats.present = figures.present;
        stats.percent = figures.percent;
        stats.isCharging = figures.isCharging;
        stats.isPluggedIn = figures.isPluggedIn;
        stats.timeRemainingMinutes = figures.timeRemainingMinutes;
        stats.cycleCount = figures.cycleCount;
        stats.health = figures.health;
        stats.temperature = figures.temperature;
        stats.lowPowerMode = figures.lowPowerMode;
        stats.peripherals = figures.peripherals;
        stats.powerWatts = figures.powerWatts;
    }

    BatteryStats figures;  ///< Only the instant fields count.
    int sampleCount = 0;
};

/// A probe that keeps its completions until a test answers.
class FakePing {
public:
    PingProbe probe() {
        return [this](PingCompletion completion) {
            ++probeCount;
            pending.push_back(std::move(completion));
        };
    }

    /// Answers the oldest open probe: milliseconds, or nothing for a failure. False if none is open.
    bool answer(std::optional<double> milliseconds) {
        if (pending.empty()) return false;
        const PingCompletion completion = std::move(pending.front());
        pending.erase(pending.begin());
        completion(milliseconds);
        return true;
    }

    int probeCount = 0;
    std::vector<PingCompletion> pending;
};

struct FakeSamplers {
    FakeCPUSampler cpu;
    FakeGPUSampler gpu;
    FakeMemorySampler memory;
    FakeProcessFootprintSampler processes;
    FakeDiskSampler disk;
    FakeVolumeIOSampler volumeIO;
    FakeNetworkSampler network;
    FakeNetworkInfoSampler networkInfo;
    FakeTemperatureSampler temperature;
    FakeFanSampler fan;
    FakeBatterySampler battery;
    FakePing icmpPing;
    FakePing measurePing;

    /// The readers as the engine takes them; this object must outlive their use.
    Samplers view() {
        return {cpu,
                gpu,
                memory,
                processes,
                disk,
                volumeIO,
                network,
                networkInfo,
                temperature,
                fan,
                battery,
                icmpPing.probe(),
                measurePing.probe()};
    }
    /// The same without any latency probe.
    Samplers viewWithoutProbes() {
        Samplers samplers = view();
        samplers.icmpPing = nullptr;
        samplers.measurePing = nullptr;
        return samplers;
    }
};

}  // namespace velmora
