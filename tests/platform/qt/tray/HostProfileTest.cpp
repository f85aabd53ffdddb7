#include "platform/qt/tray/HostProfile.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Order = HostProfile::Order;

struct Row {
    const char* comm;
    HostProfile profile;
};

TEST(HostProfile, EachKnownHostHasItsOwn) {
    const Row rows[] = {
        {"kded5", {.order = Order::title}},
        {"kded6", {.order = Order::title}},
        {"lxqt-panel", {.order = Order::registration}},
        {"panel-6-systray", {.order = Order::front, .remembersPlaces = true}},
        {"gnome-shell", {.order = Order::front, .itemNeedsMenu = true, .showsLabel = true}},
        {"xapp-sn-watcher", {.keepsWidth = true, .order = Order::title}},
        {"waybar", {.keepsWidth = true, .order = Order::registration, .clickPointMayBeLocal = true}},
        {"notification-ar", {.keepsWidth = true, .order = Order::id}},
        {"swaybar", {.order = Order::registration}},
    };
    for (const Row& row : rows) EXPECT_EQ(HostProfile::forProcess(row.comm), row.profile) << row.comm;
}

TEST(HostProfile, UnknownHostSqueezesAndKeepsTheOrderOfRegistration) {
    EXPECT_EQ(HostProfile::forProcess("somebar"), HostProfile{});
    EXPECT_EQ(HostProfile::forProcess(""), HostProfile{});
}

TEST(HostProfile, PanelNumberOfTwoDigitsCutsTheNameAndIsStillKnown) {
    EXPECT_EQ(HostProfile::forProcess("panel-12-systra").order, Order::front);
}

TEST(HostProfile, OtherPluginOfTheSamePanelIsUnknown) {
    EXPECT_EQ(HostProfile::forProcess("panel-3-actions"), HostProfile{});
}

}  // namespace
}  // namespace velmora
