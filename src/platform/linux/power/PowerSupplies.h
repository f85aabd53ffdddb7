#pragma once

#include "platform/linux/power/PowerSupply.h"

#include <vector>

namespace velmora {

class SystemRoot;

/// Which entries of /sys/class/power_supply to read.
enum class PowerSupplyScope {
    machine,
    device  ///< Batteries of wireless devices. Asking one may mean a radio message to it and its answer.
};

/// Reads the entries in the order of their names. Their attributes may evaluate methods of the firmware, so
/// this is done off the main thread. An entry that cannot be read is left out.
std::vector<PowerSupply> readPowerSupplies(const SystemRoot& root, PowerSupplyScope scope);

}  // namespace velmora
