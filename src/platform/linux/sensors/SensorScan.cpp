#include "platform/linux/sensors/SensorScan.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/sensors/HwmonChips.h"

#include <unistd.h>

#include <algorithm>
#include <map>
#include <set>

namespace velmora {
namespace {

constexpr std::size_t kMostSensors = 256;

enum class Subject { part, battery };
enum class Speed { direct, slow };

/// "nvme0" of ".../nvme/nvme0/".
std::string lastComponent(std::string folder) {
    if (folder.ends_with('/')) folder.pop_back();
    return folder.substr(folder.rfind('/') + 1);
}

std::string firstEntry(const std::string& folder, std::string_view prefix) {
    for (const std::string& name : systemFolderEntries(folder)) {
        if (name.starts_with(prefix)) return name;
    }
    return {};
}

std::string nvmeDisk(const HwmonChip& chip) {
    std::string name = lastComponent(chip.device);
    if (name.starts_with("nvme")) return name;
    // Older kernels hang the chip at the controller's slot.
    name = firstEntry(chip.device + "nvme", "nvme");
    return name.empty() ? "nvme" : name;
}

std::string solidStateDisk(const HwmonChip& chip) {
    const std::string disk = firstEntry(chip.device + "block", "");
    if (disk.empty()) return {};
    return readSystemNumber(chip.device + "block/" + disk + "/queue/rotational") == 0 ? disk : std::string();
}

bool isMachineBattery(const HwmonChip& chip) {
    return !chip.device.empty() && readSystemWord(chip.device + "type") == "Battery" &&
           readSystemWord(chip.device + "scope") != "Device";
}

std::string powerStatusOf(const HwmonChip& chip) {
    if (chip.device.empty()) return {};
    std::string path = chip.device + "power/runtime_status";
    return ::access(path.c_str(), R_OK) == 0 ? path : std::string();
}

void addSensors(const HwmonChip& chip, std::string_view subject, Subject kind,
                std::vector<FoundSensor>& sensors) {
    std::vector<SensorChip::Input> inputs;
    for (const int number : chip.temperatures) inputs.push_back({number, temperatureLabel(chip, number)});
    const std::string powerStatus = powerStatusOf(chip);
    for (auto& curated : curatedSensors({chip.name, inputs, subject, kind == Subject::battery})) {
        if (sensors.size() == kMostSensors) return;
        sensors.push_back({std::move(curated.name),
                           formatText("%stemp%d_input", {chip.folder, curated.number}), powerStatus,
                           curated.cost});
    }
}

void addFans(const HwmonChip& chip, std::vector<FoundFan>& fans) {
    const std::string powerStatus = chip.fans.empty() ? std::string() : powerStatusOf(chip);
    for (const int number : chip.fans) {
        if (fans.size() == kMostSensors) return;
        std::string fault = formatText("%sfan%d_fault", {chip.folder, number});
        if (::access(fault.c_str(), R_OK) != 0) fault.clear();
        fans.push_back({formatText("%sfan%d_input", {chip.folder, number}), std::move(fault), powerStatus,
                        isBoardChip(chip.name)});
    }
}

/// Zones that have no chip of their own. The processor's chip measures what the zone of its package does.
void addZones(const SystemRoot& root, const std::vector<HwmonChip>& chips, Speed speed,
              std::vector<FoundSensor>& sensors) {
    std::set<std::string> twins;
    for (const HwmonChip& chip : chips) {
        twins.insert(zoneNameOfChip(chip.name));
        if (chip.name == "coretemp") twins.insert("x86-pkg-temp");
    }
    const std::string parent = root.path("sys/class/thermal/");
    for (const std::string& entry : systemFolderEntries(parent)) {
        if (!entry.starts_with("thermal_zone") || sensors.size() == kMostSensors) continue;
        const auto type = readSystemWord(parent + entry + "/type");
        if (!type || twins.contains(zoneNameOfChip(*type))) continue;
        auto curated = curatedZone(*type);
        if (!curated || (curated->cost == SensorCost::direct) != (speed == Speed::direct)) continue;
        sensors.push_back({std::move(curated->name), parent + entry + "/temp", {}, curated->cost});
    }
}

}  // namespace

std::vector<FoundSensor> findDirectSensors(const SystemRoot& root) {
    std::vector<FoundSensor> sensors;
    const std::vector<HwmonChip> chips = hwmonChips(root);
    for (const HwmonChip& chip : chips) {
        if (isDirectChip(chip.name)) addSensors(chip, {}, Subject::part, sensors);
    }
    addZones(root, chips, Speed::direct, sensors);
    return sensors;
}

FoundSlow findSlowSensors(const SystemRoot& root) {
    FoundSlow found;
    const std::vector<HwmonChip> chips = hwmonChips(root);
    std::map<std::string, int> cardsOfDriver;
    for (const HwmonChip& chip : chips) {
        addFans(chip, found.fans);
        if (isDirectChip(chip.name) || chip.temperatures.empty()) continue;
        if (chip.name == "nvme") {
            addSensors(chip, nvmeDisk(chip), Subject::part, found.sensors);
        } else if (chip.name == "drivetemp") {
            addSensors(chip, solidStateDisk(chip), Subject::part, found.sensors);
        } else if (isGraphicsChip(chip.name)) {
            addSensors(chip, formatText("%d", {cardsOfDriver[chip.name]++}), Subject::part, found.sensors);
        } else if (isCuratedChip(chip.name)) {
            addSensors(chip, {}, Subject::part, found.sensors);
        } else if (isMachineBattery(chip)) {
            addSensors(chip, lastComponent(chip.device), Subject::battery, found.sensors);
        }
    }
    addZones(root, chips, Speed::slow, found.sensors);
    return found;
}

}  // namespace velmora
