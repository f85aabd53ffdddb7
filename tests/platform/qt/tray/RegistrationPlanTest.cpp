#include "platform/qt/tray/RegistrationPlan.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Ids = std::vector<std::string>;
using Order = HostProfile::Order;

const HostProfile kRegistration{.order = Order::registration};
const HostProfile kFront{.order = Order::front};
const HostProfile kRemembering{.order = Order::front, .remembersPlaces = true};
const HostProfile kTitle{.order = Order::title};
const HostProfile kId{.order = Order::id};

const Ids kNobody;
const Ids kAbc{"a", "b", "c"};

TEST(RegistrationPlan, FirstItemsRegisterFromLeftToRight) {
    for (const HostProfile& host : {kRegistration, kTitle, kId}) {
        EXPECT_EQ(RegistrationPlan::make(host, kNobody, kAbc), (RegistrationPlan{{}, kAbc}));
    }
}

TEST(RegistrationPlan, FirstItemsRegisterInReverseWhereTheNewestIsLeftmost) {
    for (const HostProfile& host : {kFront, kRemembering}) {
        EXPECT_EQ(RegistrationPlan::make(host, kNobody, kAbc), (RegistrationPlan{{}, {"c", "b", "a"}}));
    }
}

TEST(RegistrationPlan, SameItemsNeedNothing) {
    EXPECT_EQ(RegistrationPlan::make(kRegistration, kAbc, kAbc), RegistrationPlan{});
    EXPECT_EQ(RegistrationPlan::make(kFront, {"c", "b", "a"}, kAbc), RegistrationPlan{});
    EXPECT_EQ(RegistrationPlan::make(kTitle, {"b", "a", "c"}, kAbc), RegistrationPlan{});
}

TEST(RegistrationPlan, NewItemMakesThoseToItsRightRegisterAnew) {
    EXPECT_EQ(RegistrationPlan::make(kRegistration, {"a", "c", "d"}, {"a", "b", "c", "d"}),
              (RegistrationPlan{{"c", "d"}, {"b", "c", "d"}}));
}

TEST(RegistrationPlan, NewItemMakesThoseToItsLeftRegisterAnewWhereTheNewestIsLeftmost) {
    EXPECT_EQ(RegistrationPlan::make(kFront, {"d", "c", "a"}, {"a", "b", "c", "d"}),
              (RegistrationPlan{{"a"}, {"b", "a"}}));
}

TEST(RegistrationPlan, NewItemIsJustAddedWhereTheHostSortsOrRemembers) {
    for (const HostProfile& host : {kTitle, kId, kRemembering}) {
        EXPECT_EQ(RegistrationPlan::make(host, {"a", "c"}, kAbc), (RegistrationPlan{{}, {"b"}}));
    }
}

TEST(RegistrationPlan, NewItemAtTheEndDisturbsNobody) {
    EXPECT_EQ(RegistrationPlan::make(kRegistration, {"a", "b"}, kAbc), (RegistrationPlan{{}, {"c"}}));
    EXPECT_EQ(RegistrationPlan::make(kFront, {"c", "b"}, kAbc), (RegistrationPlan{{}, {"a"}}));
}

TEST(RegistrationPlan, RemovedItemDisturbsNobody) {
    EXPECT_EQ(RegistrationPlan::make(kRegistration, kAbc, {"a", "c"}), (RegistrationPlan{{"b"}, {}}));
    EXPECT_EQ(RegistrationPlan::make(kFront, {"c", "b", "a"}, {"a", "c"}), (RegistrationPlan{{"b"}, {}}));
}

TEST(RegistrationPlan, ReplacedItemsAllLeave) {
    EXPECT_EQ(RegistrationPlan::make(kRegistration, kAbc, {"x"}), (RegistrationPlan{kAbc, {"x"}}));
}

}  // namespace
}  // namespace velmora
