#include "platform/linux/sensors/HwmonChips.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"

#include <stdlib.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <tuple>

namespace velmora {
namespace {

constexpr std::size_t kMostChips = 128;
constexpr std::size_t kLongestName = 128;

std::optional<std::string> firstLine(const std::string& path) {
    const auto text = readSystemFile(path, kLongestName);
    if (!text) return std::nullopt;
    std::string_view rest = *text;
    return std::string(nextLine(rest));
}

std::string realFolder(const std::string& path) {
    struct Free {
        void operator()(char* text) const { ::free(text); }
    };
    const std::unique_ptr<char, Free> real(::realpath(path.c_str(), nullptr));
    return real ? std::string(real.get()) + "/" : std::string();
}

void findInputs(HwmonChip& chip) {
    for (const std::string& attribute : systemFolderEntries(chip.folder)) {
        if (const int number = hwmonNumber(attribute, "temp", "_input"); number > 0)
            chip.temperatures.push_back(number);
        if (const int number = hwmonNumber(attribute, "fan", "_input"); number > 0)
            chip.fans.push_back(number);
    }
    std::ranges::sort(chip.temperatures);
    std::ranges::sort(chip.fans);
}

}  // namespace

int hwmonNumber(std::string_view attribute, std::string_view prefix, std::string_view suffix) {
    if (attribute.size() <= prefix.size() + suffix.size() || !attribute.starts_with(prefix) ||
        !attribute.ends_with(suffix))
        return 0;
    attribute.remove_prefix(prefix.size());
    attribute.remove_suffix(suffix.size());
    constexpr int kLargest = 1000;
    const auto number = parseNumber<int>(attribute);
    return number && *number > 0 && *number <= kLargest ? *number : 0;
}

std::string temperatureLabel(const HwmonChip& chip, int number) {
    return firstLine(formatText("%stemp%d_label", {chip.folder, number})).value_or("");
}

std::vector<HwmonChip> hwmonChips(const SystemRoot& root) {
    std::vector<HwmonChip> chips;
    const std::string parent = root.path("sys/class/hwmon/");
    for (const std::string& entry : systemFolderEntries(parent)) {
        if (chips.size() == kMostChips) break;
        HwmonChip chip{
            .folder = parent + entry + "/", .name = {}, .device = {}, .temperatures = {}, .fans = {}};
        auto name = firstLine(chip.folder + "name");
        if (!name) {
            // Drivers of the old kind have their attributes at the device itself.
            chip.folder += "device/";
            name = firstLine(chip.folder + "name");
        }
        if (!name || name->empty()) continue;
        chip.name = std::move(*name);
        chip.device = realFolder(parent + entry + "/device");
        findInputs(chip);
        chips.push_back(std::move(chip));
    }
    std::ranges::sort(chips, {},
                      [](const HwmonChip& chip) { return std::tie(chip.name, chip.device, chip.folder); });
    return chips;
}

}  // namespace velmora
