#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class SystemRoot;

/// One entry of /sys/class/hwmon.
struct HwmonChip {
    std::string folder;  ///< Where its attributes are, with a slash at the end.
    std::string name;    ///< As the driver says: "coretemp", "nvme" …
    std::string device;  ///< Folder of the device that it measures, with a slash at the end; empty for none.
    std::vector<int> temperatures;  ///< The N of its `tempN_input`, ascending.
    std::vector<int> fans;          ///< The N of its `fanN_input`, ascending.
    friend bool operator==(const HwmonChip&, const HwmonChip&) = default;
};

/// The machine's chips by name, and chips of the same name by the place of their device, so that the order is
/// the same after each start. A chip without a name is left out. No sensor is read.
std::vector<HwmonChip> hwmonChips(const SystemRoot& root);

/// The N of "temp12_input" for the prefix "temp" and the suffix "_input"; 0 for another name.
int hwmonNumber(std::string_view attribute, std::string_view prefix, std::string_view suffix);

/// The label of `tempN_input`; empty if it has none.
std::string temperatureLabel(const HwmonChip& chip, int number);

}  // namespace velmora
