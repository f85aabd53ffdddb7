#pragma once

#include "model/StatsSnapshot.h"

#include <cmath>

namespace velmora {

/// A machine at work, with full short series.
inline StatsSnapshot busySnapshot() {
    StatsSnapshot snapshot;
    for (int tick = 0; tick < 60; ++tick) {
        const double wave = 0.5 + 0.5 * std::sin(tick * 0.55) * std::cos(tick * 0.21);
        snapshot.cpu.history.append(0.1 + 0.7 * wave);
        snapshot.memory.pressureHistory.append(0.52 + 0.002 * tick);
        snapshot.disk.activityHistory.append(wave * wave * 9e7);
        snapshot.network.downHistory.append(wave * 4.2e6);
        snapshot.network.upHistory.append((1 - wave) * 1.3e6);
        snapshot.sensors.history.append(0.4 + 0.25 * wave);
        snapshot.battery.history.append(0.95 - 0.0025 * tick);
    }
    snapshot.cpu.usage = 0.42;
    snapshot.memory.pressure = 0.64;
    DiskVolume root;
    root.path = "/";
    root.name = "Root";
    root.total = 512'000'000'000;
    root.free = 138'000'000'000;
    root.isInternal = true;
    snapshot.disk.volumes = {root};
    snapshot.network.upPerSec = 12'400;
    snapshot.network.downPerSec = 3'400'000;
    snapshot.sensors.temperatures = {{TempCategory::cpu, 56.4}};
    snapshot.battery.present = true;
    snapshot.battery.percent = 80;
    snapshot.battery.isCharging = true;
    snapshot.battery.isPluggedIn = true;
    snapshot.updated = ModuleSet::all();
    return snapshot;
}

}  // namespace velmora
