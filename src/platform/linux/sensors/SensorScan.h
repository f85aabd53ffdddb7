#pragma once

#include "platform/linux/sensors/CuratedSensors.h"

#include <string>
#include <vector>

namespace velmora {

class SystemRoot;

/// A temperature that is handed out.
struct FoundSensor {
    std::string name;         ///< By which it is classified.
    std::string path;         ///< Of the attribute, in thousandths of a degree Celsius.
    std::string powerStatus;  ///< Of the attribute that says whether its device sleeps; empty for none.
    SensorCost cost = SensorCost::slow;
    friend bool operator==(const FoundSensor&, const FoundSensor&) = default;
};

struct FoundFan {
    std::string path;  ///< Of the attribute, in revolutions per minute.
    std::string
        faultPath;  ///< Of the attribute that is 1 while the fan's speed means nothing; empty for none.
    std::string powerStatus;  ///< As above.
    bool isHeader = false;    ///< On a main board; it may have nothing connected.
    friend bool operator==(const FoundFan&, const FoundFan&) = default;
};

/// The sensors that may be read at once. Takes about as long as opening a file for each of them.
std::vector<FoundSensor> findDirectSensors(const SystemRoot& root);

struct FoundSlow {
    std::vector<FoundSensor> sensors;
    std::vector<FoundFan> fans;  ///< By chip, by place of the device, by number.
    friend bool operator==(const FoundSlow&, const FoundSlow&) = default;
};

/// The others, and the fans. Some chips ask their firmware even for a label, so this is done on the work
/// queue.
FoundSlow findSlowSensors(const SystemRoot& root);

}  // namespace velmora
