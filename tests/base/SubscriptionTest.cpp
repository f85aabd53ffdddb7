#include "base/Subscription.h"

#include <gtest/gtest.h>

#include <utility>

namespace velmora {
namespace {

TEST(Subscription, DefaultConstructedOwnsNothing) {
    Subscription subscription;
    EXPECT_FALSE(subscription);
    subscription.reset();
}

TEST(Subscription, DestructionEndsOnce) {
    int ends = 0;
    {
        const Subscription subscription([&] { ++ends; });
    }
    EXPECT_EQ(ends, 1);
}

TEST(Subscription, ResetEndsOnce) {
    int ends = 0;
    Subscription subscription([&] { ++ends; });
    subscription.reset();
    subscription.reset();
    EXPECT_EQ(ends, 1);
}

TEST(Subscription, MovingHandsTheDutyOn) {
    int ends = 0;
    Subscription target;
    {
        Subscription source([&] { ++ends; });
        target = std::move(source);
    }
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(target);
    target.reset();
    EXPECT_EQ(ends, 1);
}

TEST(Subscription, OverwritingEndsTheOldOne) {
    int oldEnds = 0;
    int newEnds = 0;
    Subscription subscription([&] { ++oldEnds; });
    subscription = Subscription([&] { ++newEnds; });
    EXPECT_EQ(oldEnds, 1);
    EXPECT_EQ(newEnds, 0);
}

TEST(Subscription, EndThatResetsItsOwnHandleRunsOnce) {
    int ends = 0;
    Subscription subscription;
    subscription = Subscription([&] {
        ++ends;
        subscription.reset();
    });
    subscription.reset();
    EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace velmora
