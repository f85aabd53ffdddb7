#include "platform/linux/sensors/SlowSensors.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/sensors/HwmonValue.h"

#include <cstddef>

namespace velmora {
namespace {

/// Controllers of disks take a command for each reading.
constexpr double kCadence = 2;
constexpr double kSlowestCadence = 30;
constexpr double kSearchCadence = 30;
/// A timer may come a little early.
constexpr double kSlack = 0.05;
constexpr std::size_t kMostFans = 15;

bool isAsleep(const std::string& powerStatus) {
    if (powerStatus.empty()) return false;
    const auto status = readSystemWord(powerStatus);
    return status == "suspended" || status == "suspending";
}

}  // namespace

double SlowSensors::read(Figures& figures) {
    const double now = m_clock.seconds();
    if (!m_hasSearched || now - m_searchedAt >= kSearchCadence - kSlack) {
        m_hasSearched = true;
        m_searchedAt = now;
        findAnew();
    }
    figures.temperatures.resize(m_sensors.size() + m_nvidia.cardCount());
    for (std::size_t index = 0; index < m_sensors.size(); ++index) {
        readSensor(m_sensors[index], now);
        figures.temperatures[index].product = m_sensors[index].found.name;
        figures.temperatures[index].celsius = m_sensors[index].celsius;
    }
    m_nvidia.read(figures.temperatures.begin() + static_cast<std::ptrdiff_t>(m_sensors.size()));
    figures.fans.clear();
    for (Fan& fan : m_fans) {
        if (figures.fans.size() == kMostFans) break;
        const auto speed = readFan(fan);
        if (fan.found.isHeader) {
            if (speed > 0) m_headersThatTurned.insert(fan.found.path);
            if (!m_headersThatTurned.contains(fan.found.path)) continue;
        }
        figures.fans.push_back(speed);
    }
    return figures.temperatures.empty() && m_fans.empty() ? kSearchCadence : kCadence;
}

void SlowSensors::findAnew() {
    m_nvidia.findAnew();
    FoundSlow found = findSlowSensors(m_root);
    if (found == m_found) return;
    m_found = std::move(found);
    m_sensors.clear();
    for (const FoundSensor& sensor : m_found.sensors)
        m_sensors.push_back({.found = sensor, .file = KeptFile(sensor.path), .celsius = std::nullopt});
    m_fans.clear();
    for (const FoundFan& fan : m_found.fans) m_fans.push_back({.found = fan, .file = KeptFile(fan.path)});
}

void SlowSensors::readSensor(Sensor& sensor, double now) {
    const bool isDue = !sensor.wasRead || sensor.found.cost != SensorCost::slowest ||
                       now - sensor.readAt >= kSlowestCadence - kSlack;
    if (!isDue) return;
    sensor.wasRead = true;
    sensor.readAt = now;
    sensor.celsius.reset();
    if (isAsleep(sensor.found.powerStatus)) return;
    if (const auto text = sensor.file.read()) sensor.celsius = parseMillidegrees(*text);
}

std::optional<double> SlowSensors::readFan(Fan& fan) {
    if (isAsleep(fan.found.powerStatus)) return std::nullopt;
    if (!fan.found.faultPath.empty() && readSystemNumber(fan.found.faultPath) == 1) return std::nullopt;
    const auto text = fan.file.read();
    if (!text) return std::nullopt;
    return parseHwmonValue(*text);
}

}  // namespace velmora
