#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// What the battery's figures are made of. Each question is answered on the main thread without waiting for
// hardware.

namespace velmora {

/// One entry of the power-source list. Absent stands for a missing entry and for one of another type.
struct PowerSource {
    bool isInternalBattery = false;                    ///< "Type" is "InternalBattery".
    std::optional<std::int64_t> currentCapacity = {};  ///< In any unit that `maxCapacity` has too.
    std::optional<std::int64_t> maxCapacity = {};      ///< In any unit that `currentCapacity` has too.
    std::optional<bool> isCharging = {};
    bool isOnACPower = false;                           ///< "Power Source State" is "AC Power".
    std::optional<std::int64_t> timeToEmpty = {};       ///< Minutes; below 1 while it is not known.
    std::optional<std::int64_t> timeToFullCharge = {};  ///< Minutes; below 1 while it is not known.
    friend bool operator==(const PowerSource&, const PowerSource&) = default;
};

/// What the battery's own electronics say.
struct SmartBattery {
    std::optional<std::int64_t> cycleCount = {};
    std::optional<std::int64_t> nominalChargeCapacity = {};  ///< In any unit that `designCapacity` has too.
    std::optional<std::int64_t> designCapacity = {};         ///< In any unit that the nominal one has too.
    std::optional<std::int64_t> instantAmperage = {};        ///< mA, negative while discharging.
    std::optional<std::int64_t> amperage = {};               ///< mA, likewise, smoothed.
    std::optional<std::int64_t> voltage = {};                ///< mV.
    std::optional<std::int64_t> temperature = {};            ///< Hundredths of a degree Celsius.
    friend bool operator==(const SmartBattery&, const SmartBattery&) = default;
};

/// What one wireless device tells of itself.
struct PeripheralService {
    std::optional<std::int64_t> batteryPercent = {};
    std::optional<std::string> product = {};
    friend bool operator==(const PeripheralService&, const PeripheralService&) = default;
};

class BatterySource {
public:
    enum class Answer {
        given,
        failed,
        notYet  ///< Nobody has answered so far, and somebody may.
    };

    virtual ~BatterySource() = default;
    /// Replaces `sources` with one record per source that can be described (`IOPSCopyPowerSourcesInfo`,
    /// `IOPSCopyPowerSourcesList`, `IOPSGetPowerSourceDescription`). False if there is no list.
    virtual bool powerSources(std::vector<PowerSource>& sources) = 0;
    /// The properties of the service "AppleSmartBattery"; nothing if there is none or they cannot be read.
    virtual std::optional<SmartBattery> smartBattery() = 0;
    /// `ProcessInfo.isLowPowerModeEnabled`.
    virtual bool isLowPowerModeEnabled() = 0;
    /// Replaces `services` with one record per service of the class "AppleDeviceManagementHIDEventService"
    /// whose properties can be read.
    virtual Answer peripherals(std::vector<PeripheralService>& services) = 0;
};

}  // namespace velmora
