#pragma once

#include "base/Published.h"
#include "base/Subscription.h"
#include "core/BatteryStage.h"
#include "core/CPUStage.h"
#include "core/DailyCounters.h"
#include "core/DiskStage.h"
#include "core/MemoryStage.h"
#include "core/NetworkStage.h"
#include "core/SensorsStage.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class AppSettings;
class Clock;

/// The heart of the program: one timer, one published value. At each fire of the timer the modules that are
/// due are sampled in a fixed order, and a whole new snapshot is published in one assignment, in which all
/// subscribers run. A module is sampled while it is enabled or placed as a widget. Main thread only.
class StatsEngine {
public:
    /// Restores what was stored and starts nothing. All arguments must outlive the engine, the run loop also
    /// every latency probe.
    StatsEngine(const Clock& clock, RunLoop& runLoop, Defaults& defaults, const AppSettings& settings,
                const Display& display, ImproveEvents& improveEvents,
                const Published<ModuleSet>& placedModules, const Samplers& samplers);
    StatsEngine(const StatsEngine&) = delete;
    StatsEngine& operator=(const StatsEngine&) = delete;
    static StatsEngine& shared();

    /// Follows the settings and starts the timer, which then never stops. Called once.
    void start();

    /// The latest figures; told inside each tick.
    const Published<StatsSnapshot>& snapshot() const { return m_snapshot; }

    /// Samples what is due and publishes. The timer calls this; so may a tool that has no timer.
    void tick();

private:
    void restartTimer();
    double timerPeriod() const;
    bool isActive(StatsModule module) const;
    std::optional<double> due(StatsModule module, Date now);

    const Clock& m_clock;
    RunLoop& m_runLoop;
    const AppSettings& m_settings;
    const Published<ModuleSet>& m_placedModules;
    GPUSampling& m_gpu;
    TemperatureSampling& m_temperature;

    DailyCounters m_daily;
    CPUStage m_cpuStage;
    MemoryStage m_memoryStage;
    DiskStage m_diskStage;
    NetworkStage m_networkStage;
    SensorsStage m_sensorsStage;
    BatteryStage m_batteryStage;

    Published<StatsSnapshot> m_snapshot;
    StatsSnapshot m_working;  ///< Equal to the published snapshot between ticks, so a tick copies once.
    std::vector<TemperatureReading> m_groups;
    std::array<std::optional<Date>, kModuleCount> m_lastSampled;

    std::shared_ptr<StatsEngine*> m_self = std::make_shared<StatsEngine*>(this);  ///< For weak holds.
    Subscription m_timer;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
