#include "base/Date.h"

#include <gtest/gtest.h>

#include <chrono>

namespace velmora {
namespace {

TEST(Date, DifferenceIsInSeconds) {
    EXPECT_EQ(Date{1'700'000'010.5} - Date{1'700'000'000}, 10.5);
}

TEST(Date, SumIsLaterBySeconds) {
    EXPECT_EQ((Date{100} + 2.5), Date{102.5});
}

TEST(Date, EarlierDateComparesLess) {
    EXPECT_LT(Date{1}, Date{2});
    EXPECT_EQ(Date{}, Date{0});
}

TEST(Date, DistantPastIsTheFirstDayOfYearOneOfTheJulianCalendar) {
    using namespace std::chrono;
    const sys_days firstDay = year{0} / December / 30;  // In the calendar of today, reckoned backwards.
    EXPECT_EQ(Date::distantPast().secondsSince1970,
              static_cast<double>(duration_cast<seconds>(firstDay.time_since_epoch()).count()));
    EXPECT_LT(Date::distantPast(), Date{0});
}

}  // namespace
}  // namespace velmora
