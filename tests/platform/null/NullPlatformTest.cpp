#include "platform/null/NullPlatform.h"

#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "samplers/SamplerSet.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace velmora {
namespace {

/// A clock of the platform's own that shows what the test's clock shows.
class ClockView final : public Clock {
public:
    explicit ClockView(const Clock& clock) : m_clock(clock) {}
    Date now() const override { return m_clock.now(); }

private:
    const Clock& m_clock;
};

class NullPlatformTest : public ::testing::Test {
protected:
    FakeClock clock;
    Platform platform =
        nullPlatform(std::make_unique<ClockView>(clock), std::make_unique<FakeRunLoop>(clock));
    FakeRunLoop& runLoop = static_cast<FakeRunLoop&>(*platform.runLoop);
};

TEST_F(NullPlatformTest, EveryPortHasAnAdapter) {
    EXPECT_TRUE(platform.clock && platform.systemLog && platform.runLoop && platform.workQueue);
    EXPECT_TRUE(platform.bundle && platform.defaults && platform.preferredLanguages &&
                platform.frameworkLanguage);
    EXPECT_TRUE(platform.loginItem && platform.workspace && platform.display && platform.processMeter);
    EXPECT_TRUE(platform.statusBar && platform.improveEvents && platform.processorTicks &&
                platform.loadAverage);
    EXPECT_TRUE(platform.bootTime && platform.taskCount && platform.performanceLevels &&
                platform.accelerators);
    EXPECT_TRUE(platform.memory);
}

TEST_F(NullPlatformTest, EveryAnswerIsAbsent) {
    EXPECT_EQ(platform.bundle->identifier(), std::nullopt);
    EXPECT_EQ(platform.bundle->executablePath(), std::nullopt);
    EXPECT_TRUE(platform.preferredLanguages->tags().empty());
    EXPECT_FALSE(platform.display->isAsleep());
    EXPECT_EQ(platform.processMeter->cpuTimeSeconds(), 0);
    EXPECT_EQ(platform.processMeter->residentBytes(), 0u);
    EXPECT_EQ(platform.processMeter->hardwareModel(), "");
    EXPECT_FALSE(platform.statusBar->isVisible());
    EXPECT_TRUE(platform.workspace->runningApplications().empty());
    EXPECT_EQ(platform.workspace->hold({}), nullptr);
    std::vector<CoreTicks> cores;
    EXPECT_FALSE(platform.processorTicks->read(cores));
    EXPECT_EQ(platform.memory->physicalMemory(), 0u);
    EXPECT_EQ(platform.memory->counters(), std::nullopt);
    EXPECT_EQ(platform.performanceLevels->levelCount(), std::nullopt);
}

TEST_F(NullPlatformTest, SwitchingTheLoginItemOnFailsWithASentence) {
    EXPECT_NE(platform.loginItem->registerItem(), std::nullopt);
    EXPECT_EQ(platform.loginItem->unregisterItem(), std::nullopt);
}

TEST_F(NullPlatformTest, EngineOverItStartsTicksAndPublishesTheDefaults) {
    AppSettings settings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    settings.setEnabledModules({kAllModules.begin(), kAllModules.end()});
    SamplerSet samplers(platform);
    Samplers readers = samplers.view();
    readers.icmpPing = nullptr;
    readers.measurePing = nullptr;
    const Published<ModuleSet> placed;
    StatsEngine engine(*platform.clock, runLoop, *platform.defaults, settings, *platform.display,
                       *platform.improveEvents, placed, readers);
    std::vector<StatsSnapshot> snapshots;
    const auto subscription =
        engine.snapshot().subscribe([&](const StatsSnapshot& snapshot) { snapshots.push_back(snapshot); });
    engine.start();
    runLoop.advance(60);

    ASSERT_GT(snapshots.size(), 10u);
    ModuleSet sampled;
    for (const StatsSnapshot& snapshot : snapshots) {
        for (const StatsModule module : kAllModules) {
            if (snapshot.updated.contains(module)) sampled.insert(module);
        }
    }
    EXPECT_EQ(sampled, ModuleSet::all());

    const StatsSnapshot& last = snapshots.back();
    EXPECT_EQ(last.cpu.usage, 0);
    EXPECT_TRUE(last.cpu.perCore.empty());
    EXPECT_EQ(last.cpu.uptime, 0);
    EXPECT_EQ(last.cpu.temperature, std::nullopt);
    EXPECT_EQ(last.cpu.taskCount, std::nullopt);
    EXPECT_EQ(last.memory.total, 0u);
    EXPECT_TRUE(last.disk.volumes.empty());
    EXPECT_EQ(last.disk.boot(), nullptr);
    EXPECT_EQ(last.network.localIP, std::nullopt);
    EXPECT_EQ(last.network.pingMs, std::nullopt);
    EXPECT_TRUE(last.sensors.temperatures.empty());
    EXPECT_FALSE(last.battery.present);
    EXPECT_TRUE(last.cpu.history.size() > 1);
}

}  // namespace
}  // namespace velmora
