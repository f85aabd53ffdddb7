#include "platform/linux/LinuxSources.h"

#include "fakes/AllocationCounter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/Platform.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <optional>

// Whole machines: the samplers over the Linux sources over captured trees.

namespace velmora {
namespace {

/// What `work` takes from the heap.
template <typename Work>
std::size_t allocationsOf(Work&& work) {
    const std::size_t before = allocationCount();
    work();
    return allocationCount() - before;
}

class LinuxSourcesTest : public testing::Test {
protected:
    /// Two seconds pass from one frame to the next.
    static constexpr double kSeconds = 2;

    void start(const SystemRoot& root) {
        auto clock = std::make_unique<FakeClock>();
        auto loop = std::make_unique<FakeRunLoop>(*clock);
        auto queue = std::make_unique<FakeWorkQueue>();
        runLoop = loop.get();
        workQueue = queue.get();
        platform = nullPlatform(std::move(clock), std::move(loop));
        platform.workQueue = std::move(queue);
        addLinuxSources(platform, root);
        set = std::make_unique<SamplerSet>(platform);
        samplers.emplace(set->view());
    }
    void start(std::string_view captured) {
        tree.show(captured);
        start(tree.root());
    }
    CPUFigures cpu() {
        CPUFigures figures;
        samplers->cpu.sample(figures);
        return figures;
    }
    MemoryStats memory(double interval = kSeconds) {
        MemoryStats stats;
        samplers->memory.sample(interval, stats);
        return stats;
    }

    SystemTree tree;
    Platform platform;
    FakeRunLoop* runLoop = nullptr;
    FakeWorkQueue* workQueue = nullptr;
    std::unique_ptr<SamplerSet> set;
    std::optional<Samplers> samplers;
};

TEST_F(LinuxSourcesTest, HybridLaptopPutsItsEfficiencyCoresFirst) {
    start("hybrid-laptop/frame-0");
    EXPECT_EQ(samplers->cpu.efficiencyCoreCount(), 6);
    cpu();
    tree.show("hybrid-laptop/frame-1");
    const CPUFigures figures = cpu();
    EXPECT_EQ(figures.perCore,
              (std::vector<double>{0.1, 0.1, 0.1, 0.1, 0, 0, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5, 0.5}));
    EXPECT_DOUBLE_EQ(figures.user, 800.0 / 2800);
    EXPECT_DOUBLE_EQ(figures.system, 80.0 / 2800);
    EXPECT_EQ(samplers->cpu.loadAverage(), (LoadAverage{1.5, 1.25, 0.75}));
    EXPECT_EQ(samplers->cpu.uptime(), FakeClock::kStart.secondsSince1970 - 1'700'000'000);
    EXPECT_EQ(samplers->cpu.taskThreadCounts(), (TaskThreadCounts{4, 1234}));
}

TEST_F(LinuxSourcesTest, HybridLaptopReadsFromItsDisks) {
    start("hybrid-laptop/frame-0");
    memory(0);
    tree.show("hybrid-laptop/frame-1");
    const MemoryStats stats = memory();
    EXPECT_DOUBLE_EQ(stats.pageInPerSec, 4096.0 * 1024 / kSeconds);
    EXPECT_DOUBLE_EQ(stats.pageOutPerSec, 2048.0 * 1024 / kSeconds);
    EXPECT_DOUBLE_EQ(stats.pressure, 0.4);
    EXPECT_EQ(stats.used + stats.free, stats.total);
    EXPECT_EQ(stats.swapUsed, 500'000ULL * 1024);
}

TEST_F(LinuxSourcesTest, SmallVirtualMachineHasBothItsCores) {
    start("microvm/frame-0");
    EXPECT_EQ(cpu().perCore, (std::vector<double>{0, 0}));
    tree.show("microvm/frame-1");
    const CPUFigures figures = cpu();
    ASSERT_EQ(figures.perCore.size(), 2U);
    // One of the two cores was kept busy for 0.6 of 2 seconds, and other programs ran too.
    EXPECT_GE(figures.usage, 0.15);
    EXPECT_LE(figures.usage, 1.0);
    EXPECT_EQ(samplers->cpu.efficiencyCoreCount(), 0);
    EXPECT_EQ(samplers->cpu.taskThreadCounts()->tasks, 3);
    const MemoryStats stats = memory();
    EXPECT_EQ(stats.used + stats.free, stats.total);
    EXPECT_EQ(stats.compressed, 0U);
    EXPECT_EQ(stats.swapTotal, 0U);
}

TEST_F(LinuxSourcesTest, ManyCoresAreAllRead) {
    start("many-cores/frame-0");
    EXPECT_EQ(cpu().perCore.size(), 256U);
    tree.show("many-cores/frame-1");
    const CPUFigures figures = cpu();
    ASSERT_EQ(figures.perCore.size(), 256U);
    for (std::size_t core = 0; core < 256; ++core) {
        EXPECT_DOUBLE_EQ(figures.perCore[core], core < 200 ? static_cast<double>(core) / 200 : 1.0) << core;
    }
    EXPECT_EQ(platform.bootTime->bootTimeSeconds(), 1'690'000'000);
}

TEST_F(LinuxSourcesTest, ZramShowsAsSwapAndAsCompressed) {
    start("zram-swap");
    const MemoryStats stats = memory();
    EXPECT_EQ(stats.swapUsed, 1'600'000ULL * 1024);
    EXPECT_EQ(stats.compressed, (50'000 + 409'600 + 100) * 1024ULL);
}

TEST_F(LinuxSourcesTest, BareSandboxHasWhatItSays) {
    start("bare");
    EXPECT_EQ(cpu().perCore, std::vector<double>{0});
    const MemoryStats stats = memory();
    EXPECT_EQ(stats.total, 500'000ULL * 1024);
    EXPECT_EQ(stats.used, 150'000ULL * 1024);
    EXPECT_DOUBLE_EQ(stats.pressure, 0.3);
    EXPECT_EQ(stats.swapTotal, 0U);
    EXPECT_EQ(samplers->gpu.sample(), std::nullopt);
    EXPECT_EQ(samplers->cpu.taskThreadCounts(), (TaskThreadCounts{2, 40}));
}

TEST_F(LinuxSourcesTest, DamagedFilesLoseOnlyTheirOwnFigures) {
    start("damaged");
    EXPECT_EQ(cpu().perCore, std::vector<double>{0});
    EXPECT_EQ(samplers->cpu.loadAverage(), LoadAverage{});
    EXPECT_EQ(samplers->cpu.uptime(), 0);
    EXPECT_EQ(samplers->cpu.taskThreadCounts(), std::nullopt);
    EXPECT_EQ(samplers->cpu.efficiencyCoreCount(), 0);
    MemoryStats expected;
    expected.total = 16'000'000ULL * 1024;
    EXPECT_EQ(memory(), expected);
}

TEST_F(LinuxSourcesTest, EmptyTreeHasNoFigures) {
    start(tree.root());
    EXPECT_TRUE(cpu().perCore.empty());
    EXPECT_EQ(memory(), MemoryStats{});
    EXPECT_EQ(samplers->gpu.sample(), std::nullopt);
}

TEST_F(LinuxSourcesTest, GraphicsUnitIsReadByTheWorker) {
    // The source reads the system's clock for the time between two readings, so only that there is a figure
    // is certain here.
    start("hybrid-laptop/frame-0");
    workQueue->runAll();  // The battery's first reading has begun by itself.
    runLoop->runPosted();
    EXPECT_EQ(samplers->gpu.sample(), std::nullopt);
    EXPECT_EQ(workQueue->runAll(), 1U);
    EXPECT_EQ(runLoop->runPosted(), 1U);
    EXPECT_EQ(samplers->gpu.sample(), std::nullopt);
}

TEST_F(LinuxSourcesTest, SteadySampleOfTheRunningSystemTakesNothingFromTheHeap) {
    start(SystemRoot());
    CPUFigures figures;
    MemoryStats stats;
    const auto sampleAll = [&] {
        samplers->cpu.sample(figures);
        samplers->cpu.loadAverage();
        samplers->cpu.uptime();
        samplers->cpu.taskThreadCounts();
        samplers->memory.sample(kSeconds, stats);
    };
    // Lists of cores change places, and each gets its storage at its first turn.
    for (int tick = 0; tick < 3; ++tick) sampleAll();
    EXPECT_EQ(allocationsOf([&] {
                  for (int tick = 0; tick < 100; ++tick) sampleAll();
              }),
              0U);
}

}  // namespace
}  // namespace velmora
