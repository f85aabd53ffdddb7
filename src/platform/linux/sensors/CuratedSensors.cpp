#include "platform/linux/sensors/CuratedSensors.h"

#include "base/FormatText.h"

#include <algorithm>
#include <array>
#include <functional>

namespace velmora {
namespace {

using Input = SensorChip::Input;

bool beginsWithAny(std::string_view name, std::span<const std::string_view> prefixes) {
    return std::ranges::any_of(prefixes, [&](std::string_view prefix) { return name.starts_with(prefix); });
}

const Input* labelled(const SensorChip& chip, std::string_view label) {
    const auto found = std::ranges::find(chip.inputs, label, &Input::label);
    return found == chip.inputs.end() ? nullptr : &*found;
}

/// The first one, if it has no label: a driver that has one sensor does not name it.
const Input* unnamedFirst(const SensorChip& chip) {
    return !chip.inputs.empty() && chip.inputs.front().label.empty() ? &chip.inputs.front() : nullptr;
}

CuratedSensor sensor(const Input& input, std::string name, SensorCost cost) {
    return {input.number, std::move(name), cost};
}

std::vector<CuratedSensor> coreTemp(const SensorChip& chip) {
    std::vector<CuratedSensor> packages;
    std::vector<CuratedSensor> cores;
    for (const Input& input : chip.inputs) {
        auto& list = input.label.starts_with("Core ") ? cores : packages;
        if (&list == &packages && !input.label.starts_with("Package id ") &&
            !input.label.starts_with("Physical id "))
            continue;
        list.push_back(sensor(input, "CPU tdie coretemp " + input.label, SensorCost::direct));
    }
    return packages.empty() ? cores : packages;
}

/// Tctl is what fans follow; on some processors it lies 20 degrees above the real value, Tdie.
std::vector<CuratedSensor> zenDie(const SensorChip& chip) {
    const Input* input = labelled(chip, "Tdie");
    if (!input) input = labelled(chip, "Tctl");
    if (!input) input = unnamedFirst(chip);
    if (!input) return {};
    return {sensor(*input, "CPU tdie k10temp", SensorCost::direct)};
}

std::vector<CuratedSensor> graphicsCard(const SensorChip& chip) {
    const Input* input = labelled(chip, "edge");
    if (!input) input = labelled(chip, "pkg");
    if (!input) input = unnamedFirst(chip);
    if (!input) return {};
    return {sensor(*input, formatText("GPU %s %s", {chip.name, chip.subject}), SensorCost::slow)};
}

std::vector<CuratedSensor> nvmeDisk(const SensorChip& chip) {
    const Input* input = labelled(chip, "Composite");
    if (!input) input = unnamedFirst(chip);
    if (!input) return {};
    return {sensor(*input, formatText("SSD %s", {chip.subject}), SensorCost::slow)};
}

std::vector<CuratedSensor> scsiDisk(const SensorChip& chip) {
    if (chip.inputs.empty() || chip.subject.empty()) return {};
    return {sensor(chip.inputs.front(), formatText("SSD %s", {chip.subject}), SensorCost::slowest)};
}

std::vector<CuratedSensor> battery(const SensorChip& chip) {
    if (chip.inputs.empty() || chip.subject.empty()) return {};
    return {sensor(chip.inputs.front(), formatText("Battery %s", {chip.subject}), SensorCost::slow)};
}

std::vector<CuratedSensor> enclosure(const SensorChip& chip, const std::function<bool(const Input&)>& fits) {
    std::vector<CuratedSensor> sensors;
    for (const Input& input : chip.inputs) {
        if (!fits(input)) continue;
        std::string name = input.label.empty() ? formatText("tdev %s %d", {chip.name, input.number})
                                               : formatText("tdev %s %s", {chip.name, input.label});
        sensors.push_back(sensor(input, std::move(name), SensorCost::slow));
    }
    return sensors;
}

/// Their labels are the controller's keys, which the rules of names know.
std::vector<CuratedSensor> controllerKeys(const SensorChip& chip) {
    std::vector<CuratedSensor> sensors;
    for (const Input& input : chip.inputs) {
        if (!input.label.empty()) sensors.push_back(sensor(input, input.label, SensorCost::slow));
    }
    return sensors;
}

}  // namespace

bool isBoardChip(std::string_view name) {
    static constexpr std::array<std::string_view, 15> kPrefixes = {
        "nct6", "nct7", "it86",  "it87",   "f718", "f719",   "f81",  "w836",
        "w837", "sch5", "dme17", "smsc47", "vt12", "vt8231", "pc873"};
    return beginsWithAny(name, kPrefixes);
}

bool isDirectChip(std::string_view name) {
    if (name == "coretemp" || name == "k10temp" || name == "zenpower") return true;
    const auto zone = curatedZone(name);
    return zone && zone->cost == SensorCost::direct;
}

bool isGraphicsChip(std::string_view name) {
    return name == "amdgpu" || name == "radeon" || name == "nouveau" || name == "i915" || name == "xe";
}

bool isCuratedChip(std::string_view name) {
    return isDirectChip(name) || curatedZone(name) || isGraphicsChip(name) || isBoardChip(name) ||
           name == "nvme" || name == "drivetemp" || name == "thinkpad" || name == "dell_smm" ||
           name == "dell_ddv" || name == "applesmc";
}

std::vector<CuratedSensor> curatedSensors(const SensorChip& chip) {
    if (chip.isBattery) return battery(chip);
    if (chip.name == "coretemp") return coreTemp(chip);
    if (chip.name == "k10temp" || chip.name == "zenpower") return zenDie(chip);
    if (chip.name == "nvme") return nvmeDisk(chip);
    if (chip.name == "drivetemp") return scsiDisk(chip);
    if (chip.name == "applesmc") return controllerKeys(chip);
    if (isGraphicsChip(chip.name)) return graphicsCard(chip);
    if (chip.name == "thinkpad") {
        // The processor and the graphics card have sensors of their own.
        return enclosure(chip,
                         [](const Input& input) { return input.label != "CPU" && input.label != "GPU"; });
    }
    if (chip.name == "dell_smm" || chip.name == "dell_ddv")
        return enclosure(chip, [](const Input& input) { return input.label.starts_with("Ambient"); });
    // Of a board's channels only the one that the chip's maker meant for the board is worth a name.
    if (isBoardChip(chip.name))
        return enclosure(chip, [](const Input& input) { return input.label == "SYSTIN"; });
    if (const auto zone = curatedZone(chip.name)) {
        if (chip.inputs.empty()) return {};
        return {sensor(chip.inputs.front(), zone->name, zone->cost)};
    }
    return {};
}

std::string zoneNameOfChip(std::string_view name) {
    std::string zone(name);
    std::ranges::replace(zone, '_', '-');
    return zone;
}

std::optional<CuratedSensor> curatedZone(std::string_view type) {
    const std::string zone = zoneNameOfChip(type);
    const auto named = [&](std::string_view prefix, SensorCost cost) {
        return CuratedSensor{0, formatText("%s %s", {prefix, type}), cost};
    };
    static constexpr std::array<std::string_view, 2> kClusters = {"big", "little"};
    const bool isThermal = zone.find("thermal") != std::string::npos;
    if (isThermal && (zone.starts_with("cpu") || beginsWithAny(zone, kClusters)))
        return named("CPU tdie", SensorCost::direct);
    if (zone == "x86-pkg-temp") return named("CPU tdie", SensorCost::direct);
    if ((isThermal && zone.starts_with("soc")) || zone.starts_with("pch-"))
        return named("SOC", SensorCost::slow);
    if (isThermal && zone.starts_with("gpu")) return named("GPU", SensorCost::slow);
    if (zone == "acpitz") return named("tdev", SensorCost::slow);
    return std::nullopt;
}

}  // namespace velmora
