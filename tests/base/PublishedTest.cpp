#include "base/Published.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(Published, SubscribingDeliversTheCurrentValueAtOnce) {
    const Published<int> published(4);
    std::vector<int> seen;
    const auto subscription = published.subscribe([&](int value) { seen.push_back(value); });
    EXPECT_EQ(seen, std::vector<int>{4});
}

TEST(Published, AssignmentOfAnEqualValueNotifiesToo) {
    Published<int> published(4);
    std::vector<int> seen;
    const auto subscription = published.subscribe([&](int value) { seen.push_back(value); });
    published.set(4);
    EXPECT_EQ(seen, (std::vector<int>{4, 4}));
}

TEST(Published, NewValueIsVisibleInsideTheNotification) {
    Published<std::string> published("old");
    std::string seen;
    const auto subscription = published.subscribe([&](const std::string&) { seen = published.get(); });
    published.set("new");
    EXPECT_EQ(seen, "new");
}

TEST(Published, AssignmentInsideANotificationReachesAllAndLeavesTheLastValue) {
    Published<int> published(0);
    std::vector<int> seen;
    const auto corrector = published.subscribe([&](int value) {
        if (value == 1) published.set(2);
    });
    const auto observer = published.subscribe([&](int value) { seen.push_back(value); });
    published.set(1);
    EXPECT_EQ(published.get(), 2);
    // The handler that was due when the value changed again gets the value as it is by then.
    EXPECT_EQ(seen, (std::vector<int>{0, 2, 2}));
}

TEST(Published, EndedSubscriptionHearsNothingMore) {
    Published<int> published(0);
    int calls = 0;
    auto subscription = published.subscribe([&](int) { ++calls; });
    subscription.reset();
    published.set(1);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(published.subscriberCount(), 0u);
}

}  // namespace
}  // namespace velmora
