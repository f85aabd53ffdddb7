#pragma once

#include "platform/BatterySource.h"
#include "platform/PowerDeviceService.h"
#include "platform/PowerProfileService.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/loop/BackgroundReading.h"
#include "platform/linux/power/MachineBattery.h"

namespace velmora {

/// The battery from /sys/class/power_supply, read on the work queue; times and wireless devices from the
/// desktop's power service where there is one; the low-power mode from the desktop's profile service, or from
/// the firmware's profile.
class LinuxBatterySource final : public BatterySource {
public:
    /// How long the first question, or one after a long pause, waits for the reading that it needs. Without
    /// this a machine would have no battery until the second question, ten seconds later.
    static constexpr double kPatience = 0.05;

    /// The first reading starts at once.
    LinuxBatterySource(const SystemRoot& root, WorkQueue& workQueue, RunLoop& runLoop,
                       const MonotonicClock& clock, PowerDeviceService& devices,
                       PowerProfileService& profiles, double patience = kPatience);

    bool powerSources(std::vector<PowerSource>& sources) override;
    std::optional<SmartBattery> smartBattery() override;
    bool isLowPowerModeEnabled() override;
    Answer peripherals(std::vector<PeripheralService>& services) override;

private:
    struct Reading {
        std::optional<MachineBattery> battery;
        bool firmwareSaves = false;
    };

    PowerDeviceService& m_devices;
    PowerProfileService& m_profiles;
    BackgroundReading<Reading> m_reading;
    BackgroundReading<std::vector<PeripheralService>> m_peripherals;
};

}  // namespace velmora
