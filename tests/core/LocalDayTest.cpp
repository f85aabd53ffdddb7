#include "core/LocalDay.h"

#include "core/TimeZoneGuard.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

// 2024-02-28 23:30:00 UTC.
constexpr Date kLateEvening{1'709'163'000};

TEST(LocalDayTest, KeyIsYearMonthAndDayWithLeadingZeros) {
    const TimeZoneGuard zone("UTC0");
    LocalDay day;
    EXPECT_EQ(day.key(kLateEvening), "2024-02-28");
    EXPECT_EQ(day.key(Date{0}), "1970-01-01");
}

TEST(LocalDayTest, DayChangesAtMidnightToTheSecond) {
    const TimeZoneGuard zone("UTC0");
    LocalDay day;
    EXPECT_EQ(day.key(kLateEvening + 1799.999), "2024-02-28");
    EXPECT_EQ(day.key(kLateEvening + 1800), "2024-02-29");
    EXPECT_EQ(day.key(kLateEvening + 1800 + 86400), "2024-03-01");
}

TEST(LocalDayTest, DayIsThatOfTheLocalZone) {
    const TimeZoneGuard zone("EAST-1");
    LocalDay day;
    EXPECT_EQ(day.key(kLateEvening), "2024-02-29");
}

TEST(LocalDayTest, MidnightOfAZoneWithAQuarterHourOffsetIsMet) {
    const TimeZoneGuard zone("NEPAL-5:45");
    LocalDay day;
    // 2024-02-28 18:15:00 UTC is midnight there.
    const Date midnight{1'709'144'100};
    EXPECT_EQ(day.key(midnight + -0.5), "2024-02-28");
    EXPECT_EQ(day.key(midnight), "2024-02-29");
}

TEST(LocalDayTest, ClockThatIsSetBackGivesTheEarlierDayAgain) {
    const TimeZoneGuard zone("UTC0");
    LocalDay day;
    EXPECT_EQ(day.key(kLateEvening + 3600), "2024-02-29");
    EXPECT_EQ(day.key(kLateEvening), "2024-02-28");
}

TEST(LocalDayTest, MonthIsTheFirstSevenCharacters) {
    EXPECT_EQ(LocalDay::monthOf("2024-02-28"), "2024-02");
    EXPECT_EQ(LocalDay::monthOf(""), "");
}

}  // namespace
}  // namespace velmora
