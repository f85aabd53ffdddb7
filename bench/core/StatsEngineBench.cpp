#include "core/StatsEngine.h"

#include "core/BusyMachine.h"
#include "fakes/AllocationCounter.h"

#include <benchmark/benchmark.h>

#include <cstddef>

// What the engine itself adds to a tick: the samplers are doubles that cost next to nothing, so series, daily
// counters and publishing remain.

namespace velmora {
namespace {

/// So little time passes between two ticks that the slower work (process walk, volumes, details) stays out.
constexpr double kMicrosecond = 1e-6;

void tickWith(benchmark::State& state, const ModuleSet& modules, double secondsBetweenTicks) {
    BusyMachine machine(modules);
    const std::size_t before = allocationCount();
    for (auto _ : state) machine.tick(secondsBetweenTicks);
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}

BENCHMARK_CAPTURE(tickWith, nothing_due, ModuleSet{}, kMicrosecond);
BENCHMARK_CAPTURE(tickWith, default_three_steady,
                  (ModuleSet{StatsModule::cpu, StatsModule::memory, StatsModule::network}), kMicrosecond);
BENCHMARK_CAPTURE(tickWith, all_six_steady, ModuleSet::all(), kMicrosecond);
/// With everything that comes every 10, 30 and 300 seconds in its share.
BENCHMARK_CAPTURE(tickWith, all_six_every_two_seconds, ModuleSet::all(), 2.0);

}  // namespace
}  // namespace velmora
