#include "platform/linux/desktop/LinuxDisplay.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

class LinuxDisplayTest : public ::testing::Test {
protected:
    void connector(const std::string& name, const char* status, const char* dpms, const char* enabled) const {
        const std::string path = "sys/class/drm/" + name + "/";
        folder.write(path + "status", std::string(status) + "\n");
        folder.write(path + "dpms", std::string(dpms) + "\n");
        folder.write(path + "enabled", std::string(enabled) + "\n");
    }
    bool isAsleep() const { return LinuxDisplay(SystemRoot(folder.path())).isAsleep(); }

    TemporaryFolder folder;
};

TEST_F(LinuxDisplayTest, WithoutGraphicsItIsAwake) {
    EXPECT_FALSE(isAsleep());
}

TEST_F(LinuxDisplayTest, LitScreenIsAwake) {
    connector("card0-eDP-1", "connected", "On", "enabled");
    EXPECT_FALSE(isAsleep());
}

TEST_F(LinuxDisplayTest, ScreenThatIsOffIsAsleep) {
    connector("card0-eDP-1", "connected", "Off", "enabled");
    EXPECT_TRUE(isAsleep());
}

TEST_F(LinuxDisplayTest, PanelOfAClosedLaptopIsAsleep) {
    connector("card0-eDP-1", "connected", "On", "disabled");
    EXPECT_TRUE(isAsleep());
}

TEST_F(LinuxDisplayTest, OneLitScreenKeepsItAwake) {
    connector("card0-eDP-1", "connected", "Off", "disabled");
    connector("card0-HDMI-A-1", "connected", "On", "enabled");
    EXPECT_FALSE(isAsleep());
}

TEST_F(LinuxDisplayTest, ConnectorsWithoutAScreenDoNotCount) {
    connector("card0-DP-1", "disconnected", "Off", "disabled");
    EXPECT_FALSE(isAsleep());
    connector("card0-eDP-1", "connected", "Off", "enabled");
    EXPECT_TRUE(isAsleep());
}

TEST_F(LinuxDisplayTest, EntriesThatAreNoConnectorsAreLeftOut) {
    folder.write("sys/class/drm/version", "drm 1.1.0\n");
    folder.write("sys/class/drm/card0/dev", "226:0\n");
    folder.write("sys/class/drm/renderD128/dev", "226:128\n");
    EXPECT_FALSE(isAsleep());
}

TEST_F(LinuxDisplayTest, ConnectorWithoutPowerStateIsAwake) {
    folder.write("sys/class/drm/card0-eDP-1/status", "connected\n");
    EXPECT_FALSE(isAsleep());
}

}  // namespace
}  // namespace velmora
