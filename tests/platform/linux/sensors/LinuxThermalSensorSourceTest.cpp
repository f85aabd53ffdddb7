#include "platform/linux/sensors/LinuxThermalSensorSource.h"

#include "fakes/AllocationCounter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/sensors/LinuxFanSource.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Scope = ThermalSensorSource::Scope;
using Sensors = std::vector<ThermalSensor>;

class LinuxThermalSensorSourceTest : public testing::Test {
protected:
    void addProcessor() {
        tree.write("sys/class/hwmon/hwmon0/name", "coretemp\n");
        tree.write("sys/class/hwmon/hwmon0/temp1_label", "Package id 0\n");
        tree.write("sys/class/hwmon/hwmon0/temp1_input", "50000\n");
    }
    void addDisk() {
        tree.write("sys/class/hwmon/hwmon1/name", "nvme\n");
        tree.write("sys/class/hwmon/hwmon1/temp1_label", "Composite\n");
        tree.write("sys/class/hwmon/hwmon1/temp1_input", "40000\n");
        tree.write("sys/class/hwmon/hwmon1/fan1_input", "900\n");
    }

    const ThermalSensor processor{"CPU tdie coretemp Package id 0", 50};
    const ThermalSensor disk{"SSD nvme", 40};
    SystemTree tree;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue queue;
    FakeMonotonicClock monotonic;
    std::shared_ptr<SlowSensorReading> slow =
        makeSlowSensorReading(tree.root(), queue, runLoop, monotonic, 0);
    LinuxThermalSensorSource source{tree.root(), slow, monotonic};
    LinuxFanSource fans{slow};
};

TEST_F(LinuxThermalSensorSourceTest, ProcessorIsThereAtTheFirstQuestion) {
    addProcessor();
    addDisk();
    EXPECT_EQ(*source.sensors(Scope::all), Sensors{processor});
}

TEST_F(LinuxThermalSensorSourceTest, SlowSensorsComeWithTheNextQuestion) {
    addProcessor();
    addDisk();
    source.sensors(Scope::all);
    queue.runAll();
    EXPECT_EQ(*source.sensors(Scope::all), (Sensors{processor, disk}));
}

TEST_F(LinuxThermalSensorSourceTest, ProcessorAloneDisturbsNoDisk) {
    addProcessor();
    addDisk();
    EXPECT_EQ(*source.sensors(Scope::processor), Sensors{processor});
    EXPECT_EQ(queue.pendingCount(), 0U);
}

TEST_F(LinuxThermalSensorSourceTest, MachineWithoutProcessorSensorAsksTheSlowOnes) {
    addDisk();
    source.sensors(Scope::processor);
    queue.runAll();
    EXPECT_EQ(*source.sensors(Scope::processor), Sensors{disk});
}

TEST_F(LinuxThermalSensorSourceTest, ProcessorIsReadAfreshEachTime) {
    addProcessor();
    source.sensors(Scope::all);
    tree.write("sys/class/hwmon/hwmon0/temp1_input", "51500\n");
    EXPECT_EQ(source.sensors(Scope::all)->front().celsius, 51.5);
}

TEST_F(LinuxThermalSensorSourceTest, ProcessorThatCannotBeReadHasNoTemperature) {
    addProcessor();
    source.sensors(Scope::all);
    tree.write("sys/class/hwmon/hwmon0/temp1_input", "");
    EXPECT_EQ(source.sensors(Scope::all)->front().celsius, std::nullopt);
}

TEST_F(LinuxThermalSensorSourceTest, DriverThatIsLoadedLaterIsFound) {
    source.sensors(Scope::all);
    addProcessor();
    monotonic.now += 29;
    EXPECT_EQ(*source.sensors(Scope::all), Sensors{});
    monotonic.now += 1;
    EXPECT_EQ(source.sensors(Scope::all)->size(), 1U);
}

TEST_F(LinuxThermalSensorSourceTest, SlowSensorsThatHangAreGoneAfterThreeRefreshes) {
    addProcessor();
    addDisk();
    source.sensors(Scope::all);
    queue.runAll();
    for (int tick = 0; tick < 3; ++tick) {
        monotonic.now += 2;
        EXPECT_EQ(source.sensors(Scope::all)->size(), 2U);
    }
    monotonic.now += 2;
    EXPECT_EQ(*source.sensors(Scope::all), Sensors{processor});
}

TEST_F(LinuxThermalSensorSourceTest, FansComeFromTheSameReading) {
    addDisk();
    source.sensors(Scope::all);
    std::vector<std::optional<double>> speeds = {1.0};
    fans.read(speeds);
    EXPECT_TRUE(speeds.empty());
    EXPECT_EQ(queue.runAll(), 1U);
    fans.read(speeds);
    EXPECT_EQ(speeds, (std::vector<std::optional<double>>{900.0}));
}

TEST_F(LinuxThermalSensorSourceTest, SteadyQuestionTakesNothingFromTheHeap) {
    addProcessor();
    addDisk();
    source.sensors(Scope::all);
    queue.runAll();
    source.sensors(Scope::all);
    std::vector<std::optional<double>> speeds;
    fans.read(speeds);
    const std::size_t before = allocationCount();
    for (int tick = 0; tick < 100; ++tick) {
        source.sensors(Scope::all);
        source.sensors(Scope::processor);
        fans.read(speeds);
    }
    EXPECT_EQ(allocationCount() - before, 0U);
}

}  // namespace
}  // namespace velmora
