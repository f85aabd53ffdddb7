#pragma once

#include "platform/BatterySource.h"
#include "platform/linux/power/PowerSupply.h"

#include <optional>
#include <vector>

namespace velmora {

/// All batteries of the machine as the one that the figures are about.
struct MachineBattery {
    PowerSource source;
    SmartBattery smart;
    friend bool operator==(const MachineBattery&, const MachineBattery&) = default;
};

/// Puts the machine's batteries together; nothing without one.
///
/// - Charges add up, in the batteries' own unit, or as energies if one counts energy and another charge.
/// Where
///   a battery tells neither, the mean of the percentages serves.
/// - Drivers differ in the sign of the current: it is negative while discharging and positive while charging,
///   whatever they say, and of a resting battery less than 5 mA are none.
/// - A cycle count of 0 means that nobody counts.
/// - Times are those at the present power; nothing is known while it is next to none.
std::optional<MachineBattery> machineBattery(const std::vector<PowerSupply>& supplies);

/// The batteries of wireless devices among these.
std::vector<PeripheralService> peripheralServices(const std::vector<PowerSupply>& supplies);

}  // namespace velmora
