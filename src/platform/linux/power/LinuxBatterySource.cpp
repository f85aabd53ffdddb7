#include "platform/linux/power/LinuxBatterySource.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/power/PowerSupplies.h"

#include <cmath>

namespace velmora {
namespace {

constexpr std::int64_t kSecondsPerMinute = 60;
/// The kernel keeps what the firmware said for a second.
constexpr double kCadence = 2;
constexpr double kPeripheralCadence = 30;
constexpr double kNoPatience = 0;

std::optional<std::int64_t> wholePercent(const PowerDevice& device) {
    if (!device.percentage || !(*device.percentage >= 0 && *device.percentage <= 100)) return std::nullopt;
    // A device that knows only "low" or "full" may come with a percentage of nothing.
    if (device.batteryLevel != PowerDevice::kExactLevel && *device.percentage == 0) return std::nullopt;
    return std::lround(*device.percentage);
}

void listDevices(const std::vector<PowerDevice>& devices, std::vector<PeripheralService>& services) {
    services.clear();
    for (const PowerDevice& device : devices) {
        // A device whose kind is unknown passes for a battery, so the kind alone does not tell.
        if (device.powerSupply || !device.isPresent || device.type == PowerDevice::linePower) continue;
        PeripheralService& service = services.emplace_back();
        service.batteryPercent = wholePercent(device);
        if (!device.model.empty()) service.product = device.model;
    }
}

}  // namespace

LinuxBatterySource::LinuxBatterySource(const SystemRoot& root, WorkQueue& workQueue, RunLoop& runLoop,
                                       const MonotonicClock& clock, PowerDeviceService& devices,
                                       PowerProfileService& profiles, double patience)
    : m_devices(devices),
      m_profiles(profiles),
      m_reading(workQueue, runLoop, clock, patience,
                [root](Reading& reading) {
                    reading.battery = machineBattery(readPowerSupplies(root, PowerSupplyScope::machine));
                    reading.firmwareSaves =
                        readSystemWord(root.path("sys/firmware/acpi/platform_profile")) == "low-power";
                    return kCadence;
                }),
      m_peripherals(workQueue, runLoop, clock, kNoPatience, [root](std::vector<PeripheralService>& services) {
          services = peripheralServices(readPowerSupplies(root, PowerSupplyScope::device));
          return kPeripheralCadence;
      }) {
    m_reading.start();
}

bool LinuxBatterySource::powerSources(std::vector<PowerSource>& sources) {
    sources.clear();
    const Reading* reading = m_reading.latest();
    if (reading == nullptr) return false;
    if (!reading->battery) return true;
    PowerSource& source = sources.emplace_back(reading->battery->source);
    // The service watches the battery all the time, so its estimate is better than one made of two numbers.
    if (m_devices.state() != PowerDeviceService::State::known) return true;
    const auto& display = m_devices.devices().display;
    if (!display || display->type != PowerDevice::battery) return true;
    source.timeToEmpty = display->timeToEmpty / kSecondsPerMinute;
    source.timeToFullCharge = display->timeToFull / kSecondsPerMinute;
    return true;
}

std::optional<SmartBattery> LinuxBatterySource::smartBattery() {
    const Reading* reading = m_reading.latest();
    if (reading == nullptr || !reading->battery) return std::nullopt;
    return reading->battery->smart;
}

bool LinuxBatterySource::isLowPowerModeEnabled() {
    if (const auto profile = m_profiles.activeProfile()) return *profile == "power-saver";
    const Reading* reading = m_reading.latest();
    return reading != nullptr && reading->firmwareSaves;
}

BatterySource::Answer LinuxBatterySource::peripherals(std::vector<PeripheralService>& services) {
    switch (m_devices.state()) {
        case PowerDeviceService::State::asking:
            return Answer::notYet;
        case PowerDeviceService::State::known:
            listDevices(m_devices.devices().devices, services);
            return Answer::given;
        case PowerDeviceService::State::absent:
            break;
    }
    const auto* read = m_peripherals.latest();
    if (read == nullptr) return Answer::notYet;
    services = *read;
    return Answer::given;
}

}  // namespace velmora
