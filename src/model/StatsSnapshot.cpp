#include "model/StatsSnapshot.h"

#include <algorithm>

namespace velmora {

const DiskVolume* DiskStats::boot() const {
    if (volumes.empty()) return nullptr;
    const auto root = std::ranges::find(volumes, "/", &DiskVolume::path);
    return root != volumes.end() ? &*root : &volumes.front();
}

std::optional<double> SensorsStats::primaryTemperature() const {
    if (temperatures.empty()) return std::nullopt;
    const auto cpu = std::ranges::find(temperatures, TempCategory::cpu, &TemperatureReading::category);
    if (cpu != temperatures.end()) return cpu->celsius;
    return std::ranges::max_element(temperatures, {}, &TemperatureReading::celsius)->celsius;
}

}  // namespace velmora
