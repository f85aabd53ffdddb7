#include "model/StatsSnapshot.h"

#include "core/BusyMachine.h"
#include "fakes/AllocationCounter.h"

#include <benchmark/benchmark.h>

#include <cstdint>

// What publishing costs before anyone reads: a snapshot with full series, as it is after some hours.

namespace velmora {
namespace {

const StatsSnapshot& fullSnapshot() {
    static const StatsSnapshot snapshot = [] {
        BusyMachine machine(ModuleSet::all());
        for (int step = 0; step < 400; ++step) machine.tick(10);
        return machine.snapshot();
    }();
    return snapshot;
}

void reportBytes(benchmark::State& state) {
    state.counters["bytes"] = static_cast<double>(sizeof(StatsSnapshot));
}

/// The assignment of a tick: the target already has all the storage that it needs.
void assignSnapshot(benchmark::State& state) {
    const StatsSnapshot& source = fullSnapshot();
    StatsSnapshot target = source;
    const std::size_t before = allocationCount();
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target);
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
    reportBytes(state);
}
BENCHMARK(assignSnapshot);

/// A fresh copy, as someone makes who keeps a snapshot.
void copySnapshot(benchmark::State& state) {
    const StatsSnapshot& source = fullSnapshot();
    for (auto _ : state) {
        StatsSnapshot copy = source;
        benchmark::DoNotOptimize(copy);
    }
    reportBytes(state);
}
BENCHMARK(copySnapshot);

/// The floor: the same number of bytes moved as one block.
void copyBareBytes(benchmark::State& state) {
    const std::vector<std::uint8_t> source(sizeof(StatsSnapshot), 1);
    std::vector<std::uint8_t> target(source.size());
    for (auto _ : state) {
        target = source;
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    reportBytes(state);
}
BENCHMARK(copyBareBytes);

}  // namespace
}  // namespace velmora
