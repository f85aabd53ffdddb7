#pragma once

#include "model/TempCategory.h"

#include <string_view>

namespace velmora {

/// What a thermal sensor measures, by its name. Upper and lower case of the name do not count.
TempCategory categoryOfSensor(std::string_view sensorName);

/// How a sensor takes part in the processor's temperature. Here the case of most names counts.
enum class ProcessorSensor { none, cpu, soc };
ProcessorSensor processorSensor(std::string_view sensorName);

}  // namespace velmora
