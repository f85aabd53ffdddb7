#include "samplers/TemperatureSampler.h"

#include "samplers/SensorCategory.h"

#include <array>

namespace velmora {
namespace {

/// No sensor of a running machine measures this many degrees; a broken one reads less or more.
constexpr double kTooHot = 130;

class Mean {
public:
    void add(double value) {
        m_sum += value;
        ++m_count;
    }
    std::optional<double> value() const {
        return m_count > 0 ? std::optional(m_sum / m_count) : std::nullopt;
    }

private:
    double m_sum = 0;
    int m_count = 0;
};

bool isBetween(std::optional<double> celsius, double above) {
    return celsius && *celsius > above && *celsius < kTooHot;
}

}  // namespace

void TemperatureSampler::temperatureGroups(std::vector<TemperatureReading>& readings) {
    readings.clear();
    const auto* sensors = m_source.sensors(ThermalSensorSource::Scope::all);
    if (sensors == nullptr) return;
    std::array<Mean, kAllTempCategories.size()> means;
    for (const ThermalSensor& sensor : *sensors) {
        if (!sensor.product || !isBetween(sensor.celsius, 1)) continue;
        means[indexOf(categoryOfSensor(*sensor.product))].add(*sensor.celsius);
    }
    for (const TempCategory category : kAllTempCategories) {
        if (category == TempCategory::other) continue;
        if (const auto mean = means[indexOf(category)].value()) readings.push_back({category, *mean});
    }
}

std::optional<double> TemperatureSampler::cpuTemperature() {
    const auto* sensors = m_source.sensors(ThermalSensorSource::Scope::processor);
    if (sensors == nullptr) return std::nullopt;
    Mean cpu;
    Mean soc;
    for (const ThermalSensor& sensor : *sensors) {
        if (!sensor.product || !isBetween(sensor.celsius, 0)) continue;
        switch (processorSensor(*sensor.product)) {
            case ProcessorSensor::cpu:
                cpu.add(*sensor.celsius);
                break;
            case ProcessorSensor::soc:
                soc.add(*sensor.celsius);
                break;
            case ProcessorSensor::none:
                break;
        }
    }
    const auto mean = cpu.value();
    return mean ? mean : soc.value();
}

}  // namespace velmora
