#include "platform/linux/loop/SystemClock.h"

#include <gtest/gtest.h>

#include <ctime>

namespace velmora {
namespace {

TEST(SystemClock, TellsTheSystemsTime) {
    const SystemClock clock;
    timespec before{};
    timespec after{};
    ::clock_gettime(CLOCK_REALTIME, &before);
    const double now = clock.now().secondsSince1970;
    ::clock_gettime(CLOCK_REALTIME, &after);
    const auto seconds = [](const timespec& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    };
    // A double of today's seconds is good to a quarter of a microsecond.
    EXPECT_GE(now, seconds(before) - 1e-6);
    EXPECT_LE(now, seconds(after) + 1e-6);
}

}  // namespace
}  // namespace velmora
