#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace velmora {

/// Sets the process's time zone for a test, as a POSIX text such as "EAST-1" (one hour east of UTC).
class TimeZoneGuard {
public:
    explicit TimeZoneGuard(const std::string& zone) {
        if (const char* before = std::getenv("TZ")) m_before = before;
        ::setenv("TZ", zone.c_str(), 1);
        ::tzset();
    }
    TimeZoneGuard(const TimeZoneGuard&) = delete;
    TimeZoneGuard& operator=(const TimeZoneGuard&) = delete;
    ~TimeZoneGuard() {
        if (m_before) {
            ::setenv("TZ", m_before->c_str(), 1);
        } else {
            ::unsetenv("TZ");
        }
        ::tzset();
    }

private:
    std::optional<std::string> m_before;
};

}  // namespace velmora
