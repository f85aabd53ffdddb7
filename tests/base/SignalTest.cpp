#include "base/Signal.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(Signal, SubscribersAreCalledInTheOrderInWhichTheyCame) {
    Signal<int> signal;
    std::vector<std::string> calls;
    const auto first =
        signal.subscribe([&](int value) { calls.push_back("first " + std::string(1, char('0' + value))); });
    const auto second =
        signal.subscribe([&](int value) { calls.push_back("second " + std::string(1, char('0' + value))); });
    signal.fire(7);
    EXPECT_EQ(calls, (std::vector<std::string>{"first 7", "second 7"}));
}

TEST(Signal, FiringWithoutSubscribersDoesNothing) {
    Signal<> signal;
    signal.fire();
    EXPECT_EQ(signal.subscriberCount(), 0u);
}

TEST(Signal, EndedSubscriptionIsNotCalledAgain) {
    Signal<> signal;
    int calls = 0;
    auto subscription = signal.subscribe([&] { ++calls; });
    signal.fire();
    subscription.reset();
    signal.fire();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(signal.subscriberCount(), 0u);
}

TEST(Signal, SubscriberThatEndsItselfInItsCallIsNotCalledAgain) {
    Signal<> signal;
    int calls = 0;
    Subscription subscription;
    subscription = signal.subscribe([&] {
        ++calls;
        subscription.reset();
    });
    signal.fire();
    signal.fire();
    EXPECT_EQ(calls, 1);
}

TEST(Signal, HandlerThatEndsALaterOneKeepsItFromTheSameFiring) {
    Signal<> signal;
    int laterCalls = 0;
    Subscription later;
    const auto first = signal.subscribe([&] { later.reset(); });
    later = signal.subscribe([&] { ++laterCalls; });
    signal.fire();
    EXPECT_EQ(laterCalls, 0);
    EXPECT_EQ(signal.subscriberCount(), 1u);
}

TEST(Signal, SubscriberThatCameDuringAFiringIsCalledFromTheNextOne) {
    Signal<> signal;
    int newCalls = 0;
    std::optional<Subscription> added;
    const auto first = signal.subscribe([&] {
        if (!added) added = signal.subscribe([&] { ++newCalls; });
    });
    signal.fire();
    EXPECT_EQ(newCalls, 0);
    signal.fire();
    EXPECT_EQ(newCalls, 1);
}

TEST(Signal, FiringFromInsideAHandlerReachesEverySubscriberBeforeTheOuterFiringGoesOn) {
    Signal<int> signal;
    std::vector<int> seenByLast;
    const auto first = signal.subscribe([&](int depth) {
        if (depth == 0) signal.fire(1);
    });
    const auto last = signal.subscribe([&](int depth) { seenByLast.push_back(depth); });
    signal.fire(0);
    EXPECT_EQ(seenByLast, (std::vector<int>{1, 0}));
}

TEST(Signal, EndingInANestedFiringHoldsForTheOuterOne) {
    Signal<int> signal;
    int lastCalls = 0;
    Subscription last;
    const auto first = signal.subscribe([&](int depth) {
        if (depth == 0) signal.fire(1);
        if (depth == 1) last.reset();
    });
    last = signal.subscribe([&](int) { ++lastCalls; });
    signal.fire(0);
    EXPECT_EQ(lastCalls, 0);
}

TEST(Signal, SignalDestroyedByAHandlerFinishesItsFiring) {
    auto signal = std::make_unique<Signal<>>();
    int laterCalls = 0;
    const auto destroyer = signal->subscribe([&] { signal.reset(); });
    const auto later = signal->subscribe([&] { ++laterCalls; });
    signal->fire();
    EXPECT_EQ(signal, nullptr);
    EXPECT_EQ(laterCalls, 1);
}

TEST(Signal, SubscriptionMayOutliveItsSignal) {
    Subscription subscription;
    {
        Signal<> signal;
        subscription = signal.subscribe([] {});
    }
    subscription.reset();
    EXPECT_FALSE(subscription);
}

TEST(Signal, EndedHandlerReleasesWhatItHeld) {
    Signal<> signal;
    auto held = std::make_shared<int>(1);
    auto subscription = signal.subscribe([held] {});
    subscription.reset();
    EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace velmora
