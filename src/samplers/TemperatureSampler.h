#pragma once

#include "platform/ThermalSensorSource.h"
#include "samplers/Samplers.h"

namespace velmora {

/// Means of the machine's thermal sensors. A sensor that reads nothing or nonsense is left out.
class TemperatureSampler final : public TemperatureSampling {
public:
    explicit TemperatureSampler(ThermalSensorSource& source) : m_source(source) {}

    /// The mean per category in the order of the categories, without `other`.
    void temperatureGroups(std::vector<TemperatureReading>& readings) override;
    /// The mean of the processor's own sensors; of those of the chip that it is on if there are none.
    std::optional<double> cpuTemperature() override;

private:
    ThermalSensorSource& m_source;
};

}  // namespace velmora
