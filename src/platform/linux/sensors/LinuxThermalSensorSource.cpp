#include "platform/linux/sensors/LinuxThermalSensorSource.h"

#include "platform/linux/sensors/HwmonValue.h"

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// Drivers are loaded and cards plugged in while the machine runs.
constexpr double kSearchCadence = 30;

}  // namespace

LinuxThermalSensorSource::LinuxThermalSensorSource(SystemRoot root, std::shared_ptr<SlowSensorReading> slow,
                                                   const MonotonicClock& clock)
    : m_root(std::move(root)), m_slow(std::move(slow)), m_clock(clock) {}

const std::vector<ThermalSensor>* LinuxThermalSensorSource::sensors(Scope scope) {
    const double now = m_clock.seconds();
    if (!m_hasSearched || now - m_searchedAt >= kSearchCadence) {
        m_hasSearched = true;
        m_searchedAt = now;
        findAnew();
    }
    const bool withSlow = scope == Scope::all || m_direct.empty();
    const SlowSensors::Figures* slow = withSlow ? m_slow->latest() : nullptr;
    m_sensors.resize(m_direct.size() + (slow ? slow->temperatures.size() : 0));
    auto sensor = m_sensors.begin();
    for (Direct& direct : m_direct) {
        sensor->product = direct.found.name;
        sensor->celsius.reset();
        if (const auto text = direct.file.read()) sensor->celsius = parseMillidegrees(*text);
        ++sensor;
    }
    if (slow) std::ranges::copy(slow->temperatures, sensor);
    return &m_sensors;
}

void LinuxThermalSensorSource::findAnew() {
    std::vector<FoundSensor> found = findDirectSensors(m_root);
    if (found == m_found && !m_direct.empty()) return;
    m_found = std::move(found);
    m_direct.clear();
    for (const FoundSensor& each : m_found) m_direct.push_back({each, KeptFile(each.path)});
}

}  // namespace velmora
