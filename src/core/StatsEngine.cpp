#include "core/StatsEngine.h"

#include "core/AppSettings.h"
#include "platform/Clock.h"
#include "platform/RunLoop.h"

#include <algorithm>
#include <span>

namespace velmora {
namespace {

constexpr double kShortestPeriod = 0.5;
/// Lets a module whose interval equals the timer's period be due at every fire, although timers jitter.
constexpr double kDueSlack = 0.05;

}  // namespace

StatsEngine::StatsEngine(const Clock& clock, RunLoop& runLoop, Defaults& defaults,
                         const AppSettings& settings, const Display& display, ImproveEvents& improveEvents,
                         const Published<ModuleSet>& placedModules, const Samplers& samplers)
    : m_clock(clock),
      m_runLoop(runLoop),
      m_settings(settings),
      m_placedModules(placedModules),
      m_gpu(samplers.gpu),
      m_temperature(samplers.temperature),
      m_daily(defaults),
      m_cpuStage(samplers.cpu, samplers.temperature),
      m_memoryStage(samplers.memory, samplers.processes),
      m_diskStage(samplers.disk, samplers.volumeIO, m_daily),
      m_networkStage(clock.now(), runLoop, samplers, m_daily),
      m_sensorsStage(samplers.fan, improveEvents, m_daily),
      m_batteryStage(samplers.battery, defaults, display) {}

void StatsEngine::start() {
    m_subscriptions.push_back(
        m_settings.sampleInterval().subscribe([this, last = std::optional<double>()](double seconds) mutable {
            if (last == seconds) return;
            last = seconds;
            restartTimer();
        }));
    m_subscriptions.push_back(
        m_settings.moduleIntervals().subscribe([this](const auto&) { restartTimer(); }));
    m_subscriptions.push_back(
        m_placedModules.subscribe([this, last = std::optional<ModuleSet>()](const ModuleSet& placed) mutable {
            if (last == placed) return;
            last = placed;
            m_runLoop.post([self = std::weak_ptr(m_self)] {
                if (const auto engine = self.lock()) (*engine)->restartTimer();
            });
        }));
    restartTimer();
}

void StatsEngine::restartTimer() {
    m_timer.reset();
    m_timer = m_runLoop.every(timerPeriod(), [this] { tick(); });
    m_lastSampled.fill(std::nullopt);
    tick();
}

double StatsEngine::timerPeriod() const {
    double shortest = m_settings.sampleInterval().get();
    for (const StatsModule module : kAllModules) {
        if (isActive(module)) shortest = std::min(shortest, m_settings.interval(module));
    }
    // In this order also for what is not a number.
    return std::max(kShortestPeriod, shortest);
}

bool StatsEngine::isActive(StatsModule module) const {
    return m_settings.isEnabled(module) || m_placedModules.get().contains(module);
}

std::optional<double> StatsEngine::due(StatsModule module, Date now) {
    if (!isActive(module)) return std::nullopt;
    std::optional<Date>& last = m_lastSampled[indexOf(module)];
    const double elapsed = last ? now - *last : 0;
    if (last && elapsed < m_settings.interval(module) - kDueSlack) return std::nullopt;
    last = now;
    return elapsed;
}

void StatsEngine::tick() {
    const Date now = m_clock.now();
    m_working.timestamp = now;
    m_working.updated.clear();
    std::array<double, kModuleCount> elapsed{};
    for (const StatsModule module : kAllModules) {
        const auto seconds = due(module, now);
        if (!seconds) continue;
        m_working.updated.insert(module);
        elapsed[indexOf(module)] = *seconds;
    }
    const auto isDue = [this](StatsModule module) { return m_working.updated.contains(module); };
    const auto elapsedOf = [&elapsed](StatsModule module) { return elapsed[indexOf(module)]; };

    // These two feed both the processor and the sensors, and are read at most once.
    std::optional<double> gpu;
    m_groups.clear();
    if (isDue(StatsModule::cpu) || isDue(StatsModule::sensors)) gpu = m_gpu.sample();
    if (isDue(StatsModule::sensors)) m_temperature.temperatureGroups(m_groups);

    if (isDue(StatsModule::cpu)) m_cpuStage.sample(now, gpu, m_groups, m_working.cpu);
    if (isDue(StatsModule::memory)) {
        m_memoryStage.sample(now, elapsedOf(StatsModule::memory), m_working.memory);
    }
    if (isDue(StatsModule::disk)) m_diskStage.sample(now, elapsedOf(StatsModule::disk), m_working.disk);
    if (isDue(StatsModule::network)) {
        m_networkStage.sample(now, elapsedOf(StatsModule::network), m_working.network);
    }
    if (isDue(StatsModule::sensors)) m_sensorsStage.sample(now, gpu, m_groups, m_working.sensors);
    if (isDue(StatsModule::battery)) m_batteryStage.sample(now, m_working.battery);

    m_snapshot.set(m_working);
}

}  // namespace velmora
