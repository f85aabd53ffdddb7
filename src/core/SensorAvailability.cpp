#include "core/SensorAvailability.h"

#include "platform/ImproveEvents.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace velmora {
namespace {

constexpr std::array<std::string_view, 3> kMetricNames = {"cpuTemp", "fan", "gpu"};

}  // namespace

void SensorAvailability::report(const SensorsStats& stats) {
    if (std::ranges::find(stats.temperatures, TempCategory::cpu, &TemperatureReading::category) ==
        stats.temperatures.end()) {
        report(Gap::cpuTemperature);
    }
    if (stats.fans.empty()) report(Gap::fan);
    if (!stats.gpuUsage) report(Gap::gpu);
}

void SensorAvailability::report(Gap gap) {
    const auto index = static_cast<std::size_t>(gap);
    if (m_reported.test(index)) return;
    m_reported.set(index);
    m_events.record("sensor.unavailable",
                    {{"module", "sensors"}, {"metric", kMetricNames[index]}, {"reason", "unsupported"}});
}

}  // namespace velmora
