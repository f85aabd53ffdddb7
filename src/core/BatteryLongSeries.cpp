#include "core/BatteryLongSeries.h"

#include "platform/Defaults.h"
#include "platform/Display.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace velmora {
namespace {

constexpr std::string_view kPercentKey = "bat.long.percent";
constexpr std::string_view kPluggedKey = "bat.long.plugged";
constexpr std::string_view kScreenKey = "bat.long.screen";
constexpr std::string_view kSampledAtKey = "bat.long.at";

constexpr double kSlotSeconds = 300;
using Series = History<double, 288>;

Series storedSeries(const Defaults& defaults, std::string_view key) {
    Series series;
    const auto stored = defaults.numberArray(key);
    if (!stored) return series;
    for (const double value : *stored) series.append(value);
    return series;
}

void storeSeries(Defaults& defaults, std::string_view key, const Series& series) {
    defaults.setNumberArray(key, std::vector<double>(series.begin(), series.end()));
}

}  // namespace

BatteryLongSeries::BatteryLongSeries(Defaults& defaults, const Display& display)
    : m_defaults(defaults),
      m_display(display),
      m_percent(storedSeries(defaults, kPercentKey)),
      m_plugged(storedSeries(defaults, kPluggedKey)),
      m_screenOn(storedSeries(defaults, kScreenKey)),
      m_sampledAt{defaults.number(kSampledAtKey).value_or(0)} {}

void BatteryLongSeries::sample(Date now, BatteryStats& stats) {
    if (now - m_sampledAt >= kSlotSeconds) extend(now, stats);
    stats.percentLong = m_percent;
    stats.pluggedLong = m_plugged;
    stats.screenOnLong = m_screenOn;
}

void BatteryLongSeries::extend(Date now, const BatteryStats& stats) {
    constexpr auto kSlots = static_cast<double>(Series::capacity());
    const int steps = static_cast<int>(std::clamp((now - m_sampledAt) / kSlotSeconds, 1.0, kSlots));
    const double percent = stats.percent / 100.0;
    const double previous = m_percent.empty() ? percent : m_percent.back();
    for (int gap = 1; gap < steps; ++gap) append(previous, 0, 0);
    append(percent, stats.isPluggedIn ? 1 : 0, m_display.isAsleep() ? 0 : 1);
    m_sampledAt = now;
    store();
}

void BatteryLongSeries::append(double percent, double plugged, double screenOn) {
    m_percent.append(percent);
    m_plugged.append(plugged);
    m_screenOn.append(screenOn);
}

void BatteryLongSeries::store() const {
    storeSeries(m_defaults, kPercentKey, m_percent);
    storeSeries(m_defaults, kPluggedKey, m_plugged);
    storeSeries(m_defaults, kScreenKey, m_screenOn);
    m_defaults.setNumber(kSampledAtKey, m_sampledAt.secondsSince1970);
}

}  // namespace velmora
