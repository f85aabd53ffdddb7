#pragma once

#include "base/Date.h"
#include "samplers/Samplers.h"

#include <optional>
#include <span>

namespace velmora {

/// Makes the processor's record: figures, series, counts.
class CPUStage {
public:
    CPUStage(CPUSampling& cpu, TemperatureSampling& temperature) : m_cpu(cpu), m_temperature(temperature) {}

    /// `gpu` and `groups` were read once for the whole tick; `groups` is empty if they were not read.
    void sample(Date now, std::optional<double> gpu, std::span<const TemperatureReading> groups,
                CPUStats& stats);

private:
    CPUSampling& m_cpu;
    TemperatureSampling& m_temperature;
    CPUFigures m_figures;
    Date m_longSampledAt = Date::distantPast();
    Date m_coreSampledAt = Date::distantPast();
};

}  // namespace velmora
