#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// The properties of one entry of /sys/class/power_supply that matter here. A number that is missing,
/// malformed or beyond all reason is absent. Micro-units throughout: µWh, µAh, µV, µA, µW.
struct PowerSupply {
    std::string type = {};    ///< "Battery", "Mains", "USB" …
    std::string scope = {};   ///< "Device" if it feeds a device and not the machine.
    std::string status = {};  ///< "Charging", "Discharging", "Full", "Not charging", "Unknown".
    std::string modelName = {};
    std::optional<std::int64_t> present = {};
    std::optional<std::int64_t> online = {};
    std::optional<std::int64_t> capacity = {};  ///< Percent.
    std::optional<std::int64_t> energyNow = {};
    std::optional<std::int64_t> energyFull = {};
    std::optional<std::int64_t> energyFullDesign = {};
    std::optional<std::int64_t> chargeNow = {};
    std::optional<std::int64_t> chargeFull = {};
    std::optional<std::int64_t> chargeFullDesign = {};
    std::optional<std::int64_t> voltageNow = {};
    std::optional<std::int64_t> voltageMinDesign = {};
    std::optional<std::int64_t> currentNow = {};
    std::optional<std::int64_t> powerNow = {};
    std::optional<std::int64_t> cycleCount = {};
    std::optional<std::int64_t> temperature = {};  ///< Tenths of a degree Celsius.
    friend bool operator==(const PowerSupply&, const PowerSupply&) = default;

    /// False for an empty bay.
    bool isThere() const;
    bool isMachineBattery() const;
    /// Whether it brings in power from outside while it is online.
    bool isOutsideSupply() const;
};

/// Takes in one property: its name as in the kernel's `uevent` text without "POWER_SUPPLY_", and its value.
/// Other names are passed over.
void takePowerSupplyProperty(PowerSupply& supply, std::string_view name, std::string_view value);
/// The text of the attribute `uevent`, which has all properties at one moment, as "POWER_SUPPLY_STATUS=Full".
PowerSupply parsePowerSupply(std::string_view text);
/// All names that `takePowerSupplyProperty` knows.
std::span<const std::string_view> powerSupplyPropertyNames();

}  // namespace velmora
