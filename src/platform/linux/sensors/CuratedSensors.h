#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Which of the many temperatures of a Linux machine are handed out, and under which names.
//
// A category's figure is the mean of its sensors, and a sensor's category follows from its name. The kernel's
// own labels say too little for that ("Composite", "edge", "Tctl"), and there are too many of them: each core
// beside the whole package, board channels with nothing connected, the same processor measured by three
// chips. So the one honest sensor of each part gets a name that tells what it is, and the others are left
// out, as are those that no category shows: wireless and network cards, memory modules, turning disks.

namespace velmora {

/// How a sensor may be read.
enum class SensorCost {
    direct,   ///< A register: at once, on the main thread.
    slow,     ///< A message to firmware, a bus or a controller: on the work queue.
    slowest,  ///< A command that keeps a disk awake: likewise, and seldom.
};

struct CuratedSensor {
    int number = 0;  ///< The N of `tempN_input`.
    std::string name;
    SensorCost cost = SensorCost::slow;
    friend bool operator==(const CuratedSensor&, const CuratedSensor&) = default;
};

/// What a chip's sensors are told apart by.
struct SensorChip {
    struct Input {
        int number = 0;
        std::string label;  ///< Empty for none.
    };

    std::string_view name;
    std::span<const Input> inputs;
    /// The disk or the battery that it measures, empty for a disk that turns; for graphics cards its number
    /// among those of its driver.
    std::string_view subject = {};
    bool isBattery = false;  ///< A chip of a battery has the name that its driver gave the battery.
};

/// The sensors of a chip that are handed out.
std::vector<CuratedSensor> curatedSensors(const SensorChip& chip);

/// True for the chips whose sensors can be read at once.
bool isDirectChip(std::string_view name);
/// True for chips, other than batteries, of which `curatedSensors` may hand out any.
bool isCuratedChip(std::string_view name);
/// True for the chips of graphics cards.
bool isGraphicsChip(std::string_view name);

/// What a thermal zone that has no chip is handed out as. `number` is of no meaning.
std::optional<CuratedSensor> curatedZone(std::string_view type);
/// Chips and zones of the same thing differ in this: "cpu_thermal" is the zone "cpu-thermal".
std::string zoneNameOfChip(std::string_view name);

/// True for the chips of main boards, whose unconnected fan headers read 0.
bool isBoardChip(std::string_view name);

}  // namespace velmora
