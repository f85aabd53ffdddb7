// A whole tick of the program's engine over this machine, with every active module due, and beside it the
// bare kernel reads that the tick needs. Slower work (process walk, volumes, details) has its own benchmarks.

#include "../platform/linux/BareLinkStatistics.h"
#include "../platform/linux/BareReads.h"
#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "fakes/AllocationCounter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

#include <sys/stat.h>

namespace velmora {
namespace {

const ModuleSet kDefaultModules{StatsModule::cpu, StatsModule::memory, StatsModule::network};

/// The engine as the program composes it, in virtual time: so little passes between two ticks that nothing of
/// a slower pace falls into them.
class Machine {
public:
    explicit Machine(const ModuleSet& modules) {
        auto clock = std::make_unique<FakeClock>();
        m_clock = clock.get();
        m_platform = nullPlatform(std::move(clock), std::make_unique<FakeRunLoop>(*m_clock));
        m_platform.monotonicClock = std::make_unique<BootTimeClock>();
        auto worker = std::make_unique<FakeWorkQueue>();
        m_worker = worker.get();
        m_platform.workQueue = std::move(worker);
        addLinuxSources(m_platform, SystemRoot());
        m_settings.emplace(*m_platform.defaults, *m_platform.bundle, *m_platform.loginItem,
                           *m_platform.systemLog);
        m_settings->setSampleInterval(0);
        m_settings->setInterval(0, StatsModule::battery);
        std::vector<StatsModule> enabled;
        for (const StatsModule module : kAllModules) {
            if (modules.contains(module)) enabled.push_back(module);
        }
        m_settings->setEnabledModules(enabled);
        m_samplers.emplace(m_platform);
        m_engine.emplace(*m_clock, *m_platform.runLoop, *m_platform.defaults, *m_settings,
                         *m_platform.display, *m_platform.improveEvents, m_placed, m_samplers->view());
        for (int second = 0; second < 400; ++second) tick(1);
    }
    void tick(double seconds) {
        m_clock->advance(seconds);
        m_engine->tick();
        // Slow readings end between two ticks, as they do on the program's worker.
        m_worker->runAll();
    }

private:
    FakeClock* m_clock = nullptr;
    FakeWorkQueue* m_worker = nullptr;
    Platform m_platform;
    std::optional<AppSettings> m_settings;
    std::optional<SamplerSet> m_samplers;
    Published<ModuleSet> m_placed;
    std::optional<StatsEngine> m_engine;
};

void tickOf(benchmark::State& state, const ModuleSet& modules) {
    Machine machine(modules);
    const std::size_t before = allocationCount();
    for (auto _ : state) machine.tick(1e-6);
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}
void tickOfAll(benchmark::State& state) {
    tickOf(state, ModuleSet::all());
}
void tickOfDefault(benchmark::State& state) {
    tickOf(state, kDefaultModules);
}
BENCHMARK(tickOfAll)->Name("Tick, all six modules");
BENCHMARK(tickOfDefault)->Name("Tick, the default three");

void bareCalls(BareReads& reads, BareLinkStatistics& links) {
    double averages[3];
    struct stat status;
    reads.read();
    links.read();
    benchmark::DoNotOptimize(::getloadavg(averages, 3));
    benchmark::DoNotOptimize(::stat("/proc", &status));
}
void floorOfDefault(benchmark::State& state) {
    BareReads reads{"/proc/stat", "/proc/loadavg", "/proc/meminfo", "/proc/vmstat"};
    reads.addZramDevices();
    BareLinkStatistics links;
    for (auto _ : state) bareCalls(reads, links);
}
void floorOfAll(benchmark::State& state) {
    BareReads reads{"/proc/stat", "/proc/loadavg", "/proc/meminfo", "/proc/vmstat", "/proc/diskstats"};
    reads.addZramDevices();
    BareLinkStatistics links;
    for (auto _ : state) bareCalls(reads, links);
}
BENCHMARK(floorOfAll)->Name("Tick, all six modules/floor");
BENCHMARK(floorOfDefault)->Name("Tick, the default three/floor");

/// The longest of an hour of ticks at two seconds, all work of slower paces included.
void longestTick(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    double longest = 0;
    for (auto _ : state) {
        Machine machine(ModuleSet::all());
        for (int second = 0; second < 3600; second += 2) {
            const auto began = Clock::now();
            machine.tick(2);
            longest =
                std::max(longest, std::chrono::duration<double, std::milli>(Clock::now() - began).count());
        }
    }
    state.counters["longest_ms"] = longest;
}
BENCHMARK(longestTick)->Name("An hour of ticks")->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
