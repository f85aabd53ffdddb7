#include "platform/linux/power/PowerSupplies.h"

#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"

#include <algorithm>
#include <string>

namespace velmora {
namespace {

constexpr std::size_t kMostSupplies = 64;

std::string attribute(const std::string& folder, std::string_view name) {
    const auto text = readSystemFile(folder + std::string(name), 4096);
    if (!text) return {};
    std::string_view rest = *text;
    return std::string(nextLine(rest));
}

/// One attribute that fails with an error of its own makes the whole `uevent` fail; the others can still be
/// read one by one.
PowerSupply readSingly(const std::string& folder) {
    PowerSupply supply;
    for (const std::string_view name : powerSupplyPropertyNames()) {
        std::string file(name);
        std::ranges::transform(file, file.begin(), [](char letter) {
            return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        });
        takePowerSupplyProperty(supply, name, attribute(folder, file));
    }
    return supply;
}

}  // namespace

std::vector<PowerSupply> readPowerSupplies(const SystemRoot& root, PowerSupplyScope scope) {
    std::vector<PowerSupply> supplies;
    const std::string parent = root.path("sys/class/power_supply/");
    for (const std::string& name : systemFolderEntries(parent)) {
        if (supplies.size() == kMostSupplies) break;
        const std::string folder = parent + name + "/";
        // These two are constants of the driver: reading them asks no device.
        const std::string type = attribute(folder, "type");
        const std::string scopeName = attribute(folder, "scope");
        if ((scopeName == "Device") != (scope == PowerSupplyScope::device)) continue;
        PowerSupply supply = parsePowerSupply(readSystemFile(folder + "uevent").value_or(""));
        if (supply == PowerSupply{} || (supply.status.empty() && !supply.online && !supply.capacity))
            supply = readSingly(folder);
        // Older kernels leave the type out of the text.
        takePowerSupplyProperty(supply, "TYPE", type);
        takePowerSupplyProperty(supply, "SCOPE", scopeName);
        if (!supply.type.empty()) supplies.push_back(std::move(supply));
    }
    return supplies;
}

}  // namespace velmora
