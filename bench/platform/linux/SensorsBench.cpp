#include "BareReads.h"

#include "fakes/FakeClock.h"
#include "fakes/FakePowerServices.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/power/LinuxBatterySource.h"
#include "platform/linux/power/PowerSupplies.h"
#include "platform/linux/sensors/LinuxFanSource.h"
#include "platform/linux/sensors/LinuxThermalSensorSource.h"
#include "samplers/BatterySampler.h"
#include "samplers/FanSampler.h"
#include "samplers/TemperatureSampler.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// The sensors of a laptop whose attributes are plain files, so that what is measured is the program's own
// part and the bare reads of as many files, and not what some machine's firmware takes.

namespace velmora {
namespace {

class Laptop {
public:
    Laptop() {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-bench-XXXXXX").native();
        m_path = ::mkdtemp(name.data());
        chip(0, "coretemp", {{"temp1_input", "52000"}, {"temp1_label", "Package id 0"}});
        chip(1, "nvme", {{"temp1_input", "38850"}, {"temp1_label", "Composite"}});
        chip(2, "thinkpad", {{"temp3_input", "41000"}, {"fan1_input", "2843"}});
        write("sys/class/power_supply/BAT0/type", "Battery");
        write("sys/class/power_supply/BAT0/uevent",
              "POWER_SUPPLY_STATUS=Discharging\nPOWER_SUPPLY_ENERGY_NOW=20000000\n"
              "POWER_SUPPLY_ENERGY_FULL=40000000\nPOWER_SUPPLY_ENERGY_FULL_DESIGN=50000000\n"
              "POWER_SUPPLY_VOLTAGE_NOW=10000000\nPOWER_SUPPLY_POWER_NOW=10000000");
    }
    Laptop(const Laptop&) = delete;
    Laptop& operator=(const Laptop&) = delete;
    ~Laptop() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    SystemRoot root() const { return SystemRoot(m_path); }
    std::string path(const std::string& relative) const { return m_path + "/" + relative; }

private:
    void chip(int number, const std::string& name,
              const std::vector<std::pair<std::string, std::string>>& attributes) {
        const std::string folder =
            "sys/class/hwmon/hwmon" + std::string(1, static_cast<char>('0' + number)) + "/";
        write(folder + "name", name);
        for (const auto& [attribute, value] : attributes) write(folder + attribute, value);
    }
    void write(const std::string& relative, const std::string& text) const {
        const std::filesystem::path file = path(relative);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text << '\n';
    }

    std::string m_path;
};

class SensorParts {
public:
    explicit SensorParts(const SystemRoot& root)
        : slow(makeSlowSensorReading(root, queue, runLoop, monotonic, 0)),
          thermal(root, slow, monotonic),
          fans(slow) {
        thermal.sensors(ThermalSensorSource::Scope::all);
        queue.runAll();
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkQueue queue;
    BootTimeClock monotonic;
    std::shared_ptr<SlowSensorReading> slow;
    LinuxThermalSensorSource thermal;
    LinuxFanSource fans;
};

void temperatureSample(benchmark::State& state) {
    const Laptop laptop;
    SensorParts parts(laptop.root());
    TemperatureSampler sampler(parts.thermal);
    std::vector<TemperatureReading> readings;
    for (auto _ : state) {
        sampler.temperatureGroups(readings);
        benchmark::DoNotOptimize(readings.data());
    }
}
BENCHMARK(temperatureSample)->Name("TemperatureSample");

void processorTemperature(benchmark::State& state) {
    const Laptop laptop;
    SensorParts parts(laptop.root());
    TemperatureSampler sampler(parts.thermal);
    for (auto _ : state) benchmark::DoNotOptimize(sampler.cpuTemperature());
}
BENCHMARK(processorTemperature)->Name("ProcessorTemperature");

/// The one attribute that the main thread reads.
void processorTemperatureFloor(benchmark::State& state) {
    const Laptop laptop;
    const std::string path = laptop.path("sys/class/hwmon/hwmon0/temp1_input");
    BareReads reads{path.c_str()};
    for (auto _ : state) reads.read();
}
BENCHMARK(processorTemperatureFloor)->Name("ProcessorTemperature/floor");
BENCHMARK(processorTemperatureFloor)->Name("TemperatureSample/floor");

void slowSensors(benchmark::State& state) {
    const Laptop laptop;
    const BootTimeClock monotonic;
    SlowSensors sensors(laptop.root(), monotonic);
    SlowSensors::Figures figures;
    for (auto _ : state) benchmark::DoNotOptimize(sensors.read(figures));
}
BENCHMARK(slowSensors)->Name("SlowSensors");

void slowSensorsFloor(benchmark::State& state) {
    const Laptop laptop;
    const std::string disk = laptop.path("sys/class/hwmon/hwmon1/temp1_input");
    const std::string board = laptop.path("sys/class/hwmon/hwmon2/temp3_input");
    const std::string fan = laptop.path("sys/class/hwmon/hwmon2/fan1_input");
    BareReads reads{disk.c_str(), board.c_str(), fan.c_str()};
    for (auto _ : state) reads.read();
}
BENCHMARK(slowSensorsFloor)->Name("SlowSensors/floor");

/// Fans come out of the last slow reading: there is no file to read.
void fanSample(benchmark::State& state) {
    const Laptop laptop;
    SensorParts parts(laptop.root());
    FanSampler sampler(parts.fans);
    std::vector<double> speeds;
    for (auto _ : state) {
        sampler.speeds(speeds);
        benchmark::DoNotOptimize(speeds.data());
    }
}
BENCHMARK(fanSample)->Name("FanSample");

/// What the main thread does; the files are the worker's.
void batterySample(benchmark::State& state) {
    const Laptop laptop;
    FakeClock clock;
    FakeRunLoop runLoop(clock);
    FakeWorkQueue queue;
    const BootTimeClock monotonic;
    FakePowerDeviceService devices;
    FakePowerProfileService profiles;
    LinuxBatterySource source(laptop.root(), queue, runLoop, monotonic, devices, profiles, 0);
    queue.runAll();
    BatterySampler sampler(source, clock);
    BatteryStats stats;
    sampler.sample(stats);
    queue.runAll();
    for (auto _ : state) {
        sampler.sample(stats);
        benchmark::DoNotOptimize(stats.percent);
    }
}
BENCHMARK(batterySample)->Name("BatterySample");

void batteryReading(benchmark::State& state) {
    const Laptop laptop;
    const SystemRoot root = laptop.root();
    for (auto _ : state)
        benchmark::DoNotOptimize(machineBattery(readPowerSupplies(root, PowerSupplyScope::machine)));
}
BENCHMARK(batteryReading)->Name("BatteryReading");

void batteryReadingFloor(benchmark::State& state) {
    const Laptop laptop;
    const std::string type = laptop.path("sys/class/power_supply/BAT0/type");
    const std::string text = laptop.path("sys/class/power_supply/BAT0/uevent");
    BareReads reads{type.c_str(), text.c_str()};
    for (auto _ : state) reads.read();
}
BENCHMARK(batteryReadingFloor)->Name("BatteryReading/floor");

}  // namespace
}  // namespace velmora
