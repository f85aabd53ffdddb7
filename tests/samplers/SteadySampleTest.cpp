#include "fakes/AllocationCounter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeMemorySource.h"
#include "fakes/FakeProcessorSources.h"
#include "samplers/CPUSampler.h"
#include "samplers/GPUSampler.h"
#include "samplers/MemorySampler.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace velmora {
namespace {

/// What `work` takes from the heap.
template <typename Work>
std::size_t allocationsOf(Work&& work) {
    const std::size_t before = allocationCount();
    work();
    return allocationCount() - before;
}

TEST(SteadySampleTest, CPUSampleTakesNothingFromTheHeap) {
    FakeProcessorTicksSource ticks;
    FakeLoadAverageSource load;
    FakeBootTimeSource boot;
    FakeTaskCountSource tasks;
    FakePerformanceLevelSource levels;
    FakeClock clock;
    CPUSampler sampler(ticks, load, boot, tasks, levels, clock);
    ticks.cores.resize(64);
    CPUFigures figures;
    const auto sampleAll = [&] {
        ticks.cores[3].user += 10;
        sampler.sample(figures);
        sampler.loadAverage();
        sampler.uptime();
        sampler.taskThreadCounts();
        sampler.efficiencyCoreCount();
    };
    // Two buffers change places, so both have their storage after the second sample.
    sampleAll();
    sampleAll();
    EXPECT_EQ(allocationsOf([&] {
                  for (int tick = 0; tick < 100; ++tick) sampleAll();
              }),
              0U);
}

TEST(SteadySampleTest, GPUSampleTakesNothingFromTheHeap) {
    FakeAcceleratorSource accelerators;
    accelerators.percents = {1, 2, 3};
    GPUSampler sampler(accelerators);
    sampler.sample();
    EXPECT_EQ(allocationsOf([&] { sampler.sample(); }), 0U);
}

TEST(SteadySampleTest, MemorySampleTakesNothingFromTheHeap) {
    FakeMemorySource source;
    source.pages = MemoryCounters{.pageSize = 1024};
    MemorySampler sampler(source);
    MemoryStats stats;
    EXPECT_EQ(allocationsOf([&] { sampler.sample(2, stats); }), 0U);
}

}  // namespace
}  // namespace velmora
