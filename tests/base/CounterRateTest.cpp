#include "base/CounterRate.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

TEST(CounterRate, DifferenceOverTime) {
    EXPECT_EQ(counterRate(1000, 5000, 2.0), 2000.0);
}

TEST(CounterRate, FirstSampleGivesZeroRate) {
    EXPECT_EQ(counterRate(std::nullopt, 5000, 2.0), 0.0);
}

TEST(CounterRate, NoTimePassedGivesZeroRate) {
    EXPECT_EQ(counterRate(1000, 5000, 0.0), 0.0);
}

TEST(CounterRate, TimeThatIsNegativeOrNotANumberGivesZeroRate) {
    EXPECT_EQ(counterRate(1000, 5000, -1.0), 0.0);
    EXPECT_EQ(counterRate(1000, 5000, std::numeric_limits<double>::quiet_NaN()), 0.0);
}

TEST(CounterRate, CounterThatFallsGivesZeroRate) {
    EXPECT_EQ(counterRate(5000, 1000, 2.0), 0.0);
}

TEST(CounterRate, CounterThatStandsGivesZeroRate) {
    EXPECT_EQ(counterRate(5000, 5000, 2.0), 0.0);
}

TEST(CounterRate, LargeCountersLoseNoPrecision) {
    constexpr std::uint64_t kLarge = (std::uint64_t{1} << 63) + 1;
    EXPECT_EQ(counterRate(kLarge, kLarge + 3, 1.0), 3.0);
}

}  // namespace
}  // namespace velmora
