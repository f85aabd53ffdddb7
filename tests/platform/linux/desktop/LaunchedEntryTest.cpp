#include "platform/linux/desktop/LaunchedEntry.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

std::string environment(const std::vector<std::string>& variables) {
    std::string text;
    for (const std::string& variable : variables) text.append(variable).push_back('\0');
    return text;
}

constexpr auto kPath = "GIO_LAUNCHED_DESKTOP_FILE=/usr/share/applications/a.desktop";

TEST(LaunchedEntry, LaunchersLeaveThePathAndTheProcess) {
    EXPECT_EQ(launchedEntry(environment({"HOME=/", kPath, "GIO_LAUNCHED_DESKTOP_FILE_PID=42"}), 42),
              "/usr/share/applications/a.desktop");
}

TEST(LaunchedEntry, ChildThatInheritedItWasNotLaunchedByIt) {
    EXPECT_EQ(launchedEntry(environment({kPath, "GIO_LAUNCHED_DESKTOP_FILE_PID=41"}), 42), std::nullopt);
}

TEST(LaunchedEntry, WithoutTheProcessItMeansNothing) {
    EXPECT_EQ(launchedEntry(environment({kPath}), 42), std::nullopt);
    EXPECT_EQ(launchedEntry(environment({kPath, "GIO_LAUNCHED_DESKTOP_FILE_PID=x"}), 42), std::nullopt);
    EXPECT_EQ(launchedEntry(environment({"GIO_LAUNCHED_DESKTOP_FILE_PID=42"}), 42), std::nullopt);
    EXPECT_EQ(launchedEntry("", 42), std::nullopt);
}

TEST(LaunchedEntry, LastVariableNeedsNoEnd) {
    EXPECT_EQ(launchedEntry(std::string(kPath) + '\0' + "GIO_LAUNCHED_DESKTOP_FILE_PID=42", 42),
              "/usr/share/applications/a.desktop");
}

TEST(FlatpakInfo, ApplicationNamesItself) {
    EXPECT_EQ(
        applicationOfFlatpakInfo("[Application]\nname=org.mozilla.firefox\nruntime=r\n[Instance]\nname=x\n"),
        "org.mozilla.firefox");
}

TEST(FlatpakInfo, RuntimeAloneIsNoApplication) {
    EXPECT_EQ(applicationOfFlatpakInfo("[Runtime]\nname=org.gnome.Platform\n"), std::nullopt);
    EXPECT_EQ(applicationOfFlatpakInfo("[Application]\nname=\n"), std::nullopt);
    EXPECT_EQ(applicationOfFlatpakInfo(""), std::nullopt);
}

}  // namespace
}  // namespace velmora
