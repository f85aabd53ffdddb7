#pragma once

#include "platform/HIDEventFunctions.h"
#include "platform/ThermalSensorSource.h"

namespace velmora {

/// The thermal sensors that the HID event system knows, through functions that may be missing. What is not
/// there when this is made stays absent for the life of the process.
class HIDThermalSensors final : public ThermalSensorSource {
public:
    explicit HIDThermalSensors(HIDEventFunctions functions);

    const std::vector<ThermalSensor>* sensors(Scope scope) override;

private:
    HIDEventFunctions m_functions;
    HIDHandle m_client;  ///< Null if any part of the setup failed.
    std::vector<ThermalSensor> m_sensors;
};

}  // namespace velmora
