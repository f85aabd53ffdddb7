#include "samplers/SamplerSet.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeMemorySource.h"
#include "fakes/FakeProcessorSources.h"
#include "fakes/FakeRunLoop.h"
#include "platform/null/NullPlatform.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora {
namespace {

class SamplerSetTest : public testing::Test {
protected:
    SamplerSetTest() {
        platform.loadAverage = std::make_unique<FakeLoadAverageSource>();
        platform.bootTime = std::make_unique<FakeBootTimeSource>();
        platform.taskCount = std::make_unique<FakeTaskCountSource>();
        platform.performanceLevels = std::make_unique<FakePerformanceLevelSource>();
        auto ticks = std::make_unique<FakeProcessorTicksSource>();
        ticks->cores = {{0, 0, 0, 0}};
        platform.processorTicks = std::move(ticks);
        auto cards = std::make_unique<FakeAcceleratorSource>();
        cards->percents = {42};
        platform.accelerators = std::move(cards);
        auto memory = std::make_unique<FakeMemorySource>();
        memory->physical = 4096;
        platform.memory = std::move(memory);
    }

    FakeClock clock;
    Platform platform = nullPlatform(std::make_unique<FakeClock>(), std::make_unique<FakeRunLoop>(clock));
};

TEST_F(SamplerSetTest, ReadersTakeTheirFiguresFromThePlatform) {
    SamplerSet set(platform);
    const Samplers samplers = set.view();
    CPUFigures figures;
    samplers.cpu.sample(figures);
    EXPECT_EQ(figures.perCore.size(), 1U);
    EXPECT_EQ(samplers.gpu.sample(), 0.42);
    MemoryStats memory;
    samplers.memory.sample(1, memory);
    EXPECT_EQ(memory.total, 4096U);
}

TEST_F(SamplerSetTest, FiguresWithoutASourceStayAtTheirDefaults) {
    SamplerSet set(platform);
    const Samplers samplers = set.view();
    BatteryStats battery;
    samplers.battery.sample(battery);
    EXPECT_EQ(battery, BatteryStats{});
    std::vector<TemperatureReading> readings{{TempCategory::cpu, 50}};
    samplers.temperature.temperatureGroups(readings);
    EXPECT_TRUE(readings.empty());
    std::vector<double> rpm{1000};
    samplers.fan.speeds(rpm);
    EXPECT_TRUE(rpm.empty());
    EXPECT_TRUE(samplers.disk.volumes().empty());
    EXPECT_TRUE(samplers.volumeIO.sample(1).empty());
    EXPECT_EQ(samplers.processes.memoryFootprintTop(8).total, 0);
}

}  // namespace
}  // namespace velmora
