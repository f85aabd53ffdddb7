#include "core/SensorDay.h"

#include "platform/Defaults.h"

#include <string_view>

namespace velmora {
namespace {

constexpr std::string_view kDayKey = "sen.today.day";
constexpr std::string_view kMaxKey = "sen.today.max";
constexpr std::string_view kFanMaxKey = "sen.fan.max";

}  // namespace

SensorDay::SensorDay(Defaults& defaults)
    : m_defaults(defaults),
      m_day(defaults.text(kDayKey).value_or("")),
      m_maxToday(defaults.number(kMaxKey).value_or(0)),
      m_fanMaxRpm(defaults.number(kFanMaxKey).value_or(0)) {}

void SensorDay::count(const std::string& day, double temperature, double fastestFan, SensorsStats& stats) {
    if (day != m_day) {
        m_day = day;
        m_defaults.setText(kDayKey, m_day);
        m_maxToday = 0;  // Stored with the first reading of the day, not before.
    }
    if (m_maxToday < temperature) {
        m_maxToday = temperature;
        m_defaults.setNumber(kMaxKey, m_maxToday);
    }
    stats.maxToday = m_maxToday;
    if (m_fanMaxRpm < fastestFan) {
        m_fanMaxRpm = fastestFan;
        m_defaults.setNumber(kFanMaxKey, m_fanMaxRpm);
    }
    stats.fanMaxRpm = m_fanMaxRpm;
}

}  // namespace velmora
