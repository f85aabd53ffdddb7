#pragma once

#include "platform/BatterySource.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>

// The property dictionaries in which the program's first home describes batteries. They are decoded, and
// tested, everywhere. A whole number is a number without a fraction that fits 64 bits with sign; an entry of
// another type counts as missing.

namespace velmora::BatteryRecords {

/// The description of a power source; nothing if it is no dictionary.
std::optional<PowerSource> decodePowerSource(const nlohmann::json& description);

/// The properties of "AppleSmartBattery"; nothing if they are no dictionary.
std::optional<SmartBattery> decodeSmartBattery(const nlohmann::json& properties);

/// The properties of a wireless device's service; nothing if they are no dictionary.
std::optional<PeripheralService> decodePeripheral(const nlohmann::json& properties);

}  // namespace velmora::BatteryRecords
