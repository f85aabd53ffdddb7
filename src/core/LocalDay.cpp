#include "core/LocalDay.h"

#include "base/FormatText.h"

#include <cmath>
#include <ctime>

namespace velmora {
namespace {

// Offsets from universal time are whole quarters of an hour, so a local day ends only where a quarter ends.
constexpr double kQuarterHour = 900;

}  // namespace

LocalDay::LocalDay() {
    ::tzset();
}

const std::string& LocalDay::key(Date now) {
    const auto quarter = static_cast<std::int64_t>(std::floor(now.secondsSince1970 / kQuarterHour));
    if (m_quarter == quarter) return m_key;
    const auto seconds = static_cast<std::time_t>(std::floor(now.secondsSince1970));
    std::tm local{};
    if (::localtime_r(&seconds, &local) == nullptr) return m_key;
    m_quarter = quarter;
    m_key.clear();
    appendFormat(m_key, "%04d-%02d-%02d", {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday});
    return m_key;
}

}  // namespace velmora
