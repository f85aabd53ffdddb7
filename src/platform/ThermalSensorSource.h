#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora {

struct ThermalSensor {
    std::optional<std::string> product = {};  ///< Its name, by which it is classified.
    std::optional<double> celsius = {};       ///< Nothing if it cannot be read now.
    friend bool operator==(const ThermalSensor&, const ThermalSensor&) = default;
};

/// The machine's thermal sensors (`IOHIDEventSystemClientCopyServices` and, of each service,
/// `IOHIDServiceClientCopyProperty`, `IOHIDServiceClientCopyEvent` and `IOHIDEventGetFloatValue`).
class ThermalSensorSource {
public:
    enum class Scope {
        all,
        processor  ///< Sensors that are neither the processor's nor its chip's may be left out.
    };

    virtual ~ThermalSensorSource() = default;
    /// The sensors with what they measure now; null if they cannot be listed. Valid until the next call.
    virtual const std::vector<ThermalSensor>* sensors(Scope scope) = 0;
};

}  // namespace velmora
