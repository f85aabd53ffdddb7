#pragma once

#include <compare>

namespace velmora {

/// A moment: seconds since 1970-01-01 00:00 UTC, as a double.
struct Date {
    double secondsSince1970 = 0;

    /// Before every moment that the program can meet: the first day of year 1.
    static constexpr Date distantPast() { return {-62135769600.0}; }

    friend constexpr double operator-(Date later, Date earlier) {
        return later.secondsSince1970 - earlier.secondsSince1970;
    }
    friend constexpr Date operator+(Date date, double seconds) { return {date.secondsSince1970 + seconds}; }
    // The check takes the 0 that the compiler compares with for one of ours.
    friend constexpr auto operator<=>(const Date&,
                                      const Date&) = default;  // NOLINT(modernize-use-nullptr)
};

}  // namespace velmora
