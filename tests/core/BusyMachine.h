#pragma once

#include "core/EngineHouse.h"

#include <memory>
#include <vector>

namespace velmora {

/// Gives every sampler figures as an ordinary machine has them: 16 cores, six volumes on three disks, a
/// wireless network, eight temperatures, two fans, a battery.
inline void furnishMachine(FakeSamplers& samplers) {
    samplers.cpu.figures = {0.5, 0.3, 0.2, std::vector<double>(16, 0.5)};
    samplers.cpu.counts = TaskThreadCounts{400, 2000};
    samplers.gpu.fraction = 0.1;
    samplers.memory.figures.total = 32'000'000'000;
    samplers.memory.figures.used = 16'000'000'000;
    for (int process = 0; process < 8; ++process) {
        samplers.processes.answer.top.push_back({"A process with a rather long name", 1.0});
    }
    for (const char* path :
         {"/", "/home", "/var/lib/containers/storage", "/srv/photographs", "/boot", "/mnt"}) {
        samplers.disk.mounted.push_back(
            {.path = path, .name = "A volume with a rather long name", .bsd = "sda"});
    }
    samplers.volumeIO.rates = {{"nvme0n1", {1e6, 2e6}}, {"sda", {3e6, 4e6}}, {"sdb", {0, 0}}};
    samplers.network.rates = {1e6, 1e5, 1'000'000'000, 100'000'000};
    samplers.network.localIP = "2001:db8::1234:5678:9abc";
    samplers.networkInfo.bsd = "wlp0s20f3";
    samplers.networkInfo.netName = "A network with a long name";
    samplers.networkInfo.mac = "02:00:00:00:00:01";
    samplers.networkInfo.wifi = {-50, "802.11ax", "36 (5 GHz, 80 MHz)", "A network with a long name"};
    for (const TempCategory category : kAllTempCategories) {
        samplers.temperature.readings.push_back({category, 45});
    }
    samplers.fan.rpm = {1200, 1300};
    samplers.battery.figures.present = true;
    samplers.battery.figures.percent = 80;
    samplers.battery.figures.peripherals = {{"A mouse with a long name", 50}};
}

/// An engine of which every active module is due at every tick, among doubles that need no memory for what
/// they note down.
class BusyMachine {
public:
    explicit BusyMachine(const ModuleSet& enabled) : m_house(enabled) {
        furnishMachine(m_house.samplers);
        m_house.settings.setSampleInterval(0);
        m_house.settings.setInterval(0, StatsModule::battery);
        m_house.engine = std::make_unique<StatsEngine>(m_house.clock, m_house.runLoop, m_house.defaults,
                                                       m_house.settings, m_house.display, m_house.improve,
                                                       m_house.placed, m_house.samplers.viewWithoutProbes());
        m_house.defaults.recordsWrites = false;
        // Ten minutes fill every series whose points own memory.
        for (int second = 0; second < 600; ++second) tick(1);
    }

    /// One tick, so many seconds after the last one. True if it was a steady one: none of the work that has a
    /// slower pace and may cost memory fell into it, which is the process walk, the volumes, the local
    /// address, the network's details and a slot of the battery's series.
    bool tick(double seconds) {
        FakeSamplers& samplers = m_house.samplers;
        const int slowReadsBefore = samplers.disk.volumesCount + samplers.network.localIPCount;
        const Date slotBefore = m_slotAt;
        m_house.clock.advance(seconds);
        m_house.engine->tick();
        if (m_house.snapshot().updated.contains(StatsModule::battery)) noteSlot();
        const bool wasSteady =
            slowReadsBefore == samplers.disk.volumesCount + samplers.network.localIPCount &&
            samplers.processes.limits.empty() && samplers.networkInfo.calls.empty() && slotBefore == m_slotAt;
        forgetNotes();
        return wasSteady;
    }

    const StatsSnapshot& snapshot() const { return m_house.snapshot(); }
    const Published<StatsSnapshot>& published() const { return m_house.engine->snapshot(); }

private:
    void noteSlot() { m_slotAt.secondsSince1970 = m_house.defaults.stored.find("bat.long.at")->second; }

    /// Emptied vectors keep their storage.
    void forgetNotes() {
        FakeSamplers& samplers = m_house.samplers;
        samplers.processes.limits.clear();
        samplers.networkInfo.calls.clear();
        samplers.networkInfo.askedInterfaces.clear();
        samplers.memory.intervals.clear();
        samplers.disk.intervals.clear();
        samplers.volumeIO.intervals.clear();
        samplers.network.intervals.clear();
    }

    EngineHouse m_house;
    Date m_slotAt;
};

}  // namespace velmora
