#include "core/SensorsStage.h"

#include "core/DailyCounters.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr double kLongPeriod = 10.0;

/// A category without a reading loses its series.
void extendCategorySeries(SensorsStats& stats) {
    for (const TempCategory category : kAllTempCategories) {
        ShortSeries& series = stats.temperatureHistories[indexOf(category)];
        const auto reading =
            std::find_if(stats.temperatures.rbegin(), stats.temperatures.rend(),
                         [&](const TemperatureReading& entry) { return entry.category == category; });
        if (reading == stats.temperatures.rend()) {
            series.clear();
        } else {
            series.append(reading->celsius);
        }
    }
}

}  // namespace

void SensorsStage::sample(Date now, std::optional<double> gpu, const std::vector<TemperatureReading>& groups,
                          SensorsStats& stats) {
    stats.temperatures = groups;
    m_fan.speeds(stats.fans);
    stats.gpuUsage = gpu;
    m_availability.report(stats);

    const double temperature = stats.primaryTemperature().value_or(0);
    const double fastestFan = stats.fans.empty() ? 0 : *std::ranges::max_element(stats.fans);
    stats.history.append(std::min(temperature / 100, 1.0));
    extendCategorySeries(stats);
    m_daily.countSensors(now, temperature, fastestFan, stats);
    if (now - m_longSampledAt >= kLongPeriod) {
        m_longSampledAt = now;
        stats.cpuLong.append(temperature);
        stats.fanLong.append(fastestFan);
    }
}

}  // namespace velmora
