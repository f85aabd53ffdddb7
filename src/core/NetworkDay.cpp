#include "core/NetworkDay.h"

#include "core/LocalDay.h"
#include "core/StoredCount.h"
#include "platform/Defaults.h"

#include <string_view>

namespace velmora {
namespace {

constexpr std::string_view kDayKey = "net.today.day";
constexpr std::string_view kBaseKey = "net.today.base";
constexpr std::string_view kBaseDownKey = "net.today.baseDown";
constexpr std::string_view kBaseUpKey = "net.today.baseUp";
constexpr std::string_view kPeakKey = "net.today.peak";
constexpr std::string_view kActiveKey = "net.today.active";
constexpr std::string_view kMonthKey = "net.month.key";
constexpr std::string_view kMonthBaseKey = "net.month.base";

/// Bytes per second, both directions, above which the connection counts as in use.
constexpr double kActivityThreshold = 10000.0;

/// One counter may have gone back alone; it then counts from its start.
constexpr std::uint64_t sinceBase(std::uint64_t counter, std::uint64_t base) {
    return counter < base ? counter : counter - base;
}

}  // namespace

NetworkDay::NetworkDay(Defaults& defaults)
    : m_defaults(defaults),
      m_day(defaults.text(kDayKey).value_or("")),
      m_base(storedCount(defaults, kBaseKey)),
      m_baseDown(storedCount(defaults, kBaseDownKey)),
      m_baseUp(storedCount(defaults, kBaseUpKey)),
      m_peak(defaults.number(kPeakKey).value_or(0)),
      m_activeSeconds(defaults.number(kActiveKey).value_or(0)),
      m_month(defaults.text(kMonthKey).value_or("")),
      m_monthBase(storedCount(defaults, kMonthBaseKey)) {}

void NetworkDay::count(const std::string& day, double elapsed, NetworkStats& stats) {
    countDay(day, stats);
    countMonth(day, stats);
    countActivity(elapsed, stats);
    countPeak(stats);
}

void NetworkDay::countDay(const std::string& day, NetworkStats& stats) {
    const std::uint64_t sum = stats.totalDown + stats.totalUp;
    if (day != m_day) {
        m_day = day;
        m_defaults.setText(kDayKey, m_day);
        rebase(sum, stats.totalDown, stats.totalUp);
        m_peak = 0;
        m_defaults.setNumber(kPeakKey, m_peak);
    }
    // The counters went back: the machine was started anew, and the day counts from there.
    if (sum < m_base) rebase(0, 0, 0);
    stats.totalToday = sum - m_base;
    stats.downToday = sinceBase(stats.totalDown, m_baseDown);
    stats.upToday = sinceBase(stats.totalUp, m_baseUp);
}

void NetworkDay::countMonth(const std::string& day, NetworkStats& stats) {
    const std::uint64_t sum = stats.totalDown + stats.totalUp;
    if (const std::string_view month = LocalDay::monthOf(day); month != m_month) {
        m_month = month;
        m_monthBase = sum;
        m_defaults.setText(kMonthKey, m_month);
        m_defaults.setUnsignedInteger(kMonthBaseKey, m_monthBase);
    }
    if (sum < m_monthBase) {
        m_monthBase = 0;
        m_defaults.setUnsignedInteger(kMonthBaseKey, m_monthBase);
    }
    stats.monthTotal = sum - m_monthBase;
}

void NetworkDay::countActivity(double elapsed, NetworkStats& stats) {
    // This figure is meant to grow across days and runs: no rollover touches it.
    if (stats.downPerSec + stats.upPerSec > kActivityThreshold) m_activeSeconds += elapsed;
    m_defaults.setNumber(kActiveKey, m_activeSeconds, Defaults::Urgency::relaxed);
    stats.activeSecToday = m_activeSeconds;
}

void NetworkDay::countPeak(NetworkStats& stats) {
    if (m_peak < stats.downPerSec) {
        m_peak = stats.downPerSec;
        m_defaults.setNumber(kPeakKey, m_peak);
    }
    stats.peakTodayDown = m_peak;
}

void NetworkDay::rebase(std::uint64_t sum, std::uint64_t down, std::uint64_t up) {
    m_base = sum;
    m_baseDown = down;
    m_baseUp = up;
    m_defaults.setUnsignedInteger(kBaseKey, sum);
    m_defaults.setUnsignedInteger(kBaseDownKey, down);
    m_defaults.setUnsignedInteger(kBaseUpKey, up);
}

}  // namespace velmora
