#include "core/StatsEngine.h"

#include "core/BusyMachine.h"
#include "fakes/AllocationHooks.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(StatsEngineAllocationTest, CounterSeesAnAllocation) {
    const std::size_t before = allocationCount();
    const auto memory = std::make_unique<int>(3);
    EXPECT_EQ(*memory, 3);
    EXPECT_GT(allocationCount(), before);
}

TEST(StatsEngineAllocationTest, ThousandSteadyTicksOfAllModulesAllocateNothing) {
    BusyMachine machine(ModuleSet::all());
    int published = 0;
    const Subscription watching = machine.published().subscribe([&](const StatsSnapshot&) { ++published; });

    std::size_t allocations = 0;
    int steadyTicks = 0;
    int ticks = 0;
    while (steadyTicks < 1000 && ticks < 2000) {
        const std::size_t before = allocationCount();
        const bool wasSteady = machine.tick(1);
        const std::size_t made = allocationCount() - before;
        ++ticks;
        ASSERT_EQ(machine.snapshot().updated, ModuleSet::all());
        if (!wasSteady) continue;
        allocations += made;
        ++steadyTicks;
    }
    EXPECT_EQ(steadyTicks, 1000);
    EXPECT_EQ(allocations, 0U);
    EXPECT_EQ(published, ticks + 1);
}

}  // namespace
}  // namespace velmora
