#include "platform/linux/network/LinuxProxySettings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>

#include <dlfcn.h>
#include <unistd.h>

namespace velmora {
namespace {

class LinuxProxySettingsTest : public testing::Test {
protected:
    LinuxProxySettingsTest() {
        folder = std::filesystem::temp_directory_path() / ("velmora-proxy-" + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
    }
    ~LinuxProxySettingsTest() override { std::filesystem::remove_all(folder); }

    LinuxProxySettings settings() {
        return {folder, [variables = variables](const std::string& name) -> std::optional<std::string> {
                    const auto found = variables.find(name);
                    if (found == variables.end()) return std::nullopt;
                    return found->second;
                }};
    }
    void writeKio(const std::string& text) { std::ofstream(folder / "kioslaverc") << text; }

    std::filesystem::path folder;
    std::map<std::string, std::string> variables;
};

TEST_F(LinuxProxySettingsTest, NoDesktopAndNoEnvironmentHaveNone) {
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read(), std::nullopt);
}

TEST_F(LinuxProxySettingsTest, OtherDesktopTakesTheEnvironment) {
    variables = {{"XDG_CURRENT_DESKTOP", "sway"}, {"https_proxy", "http://tls.example:1"}};
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read()->https.host, "tls.example");
}

TEST_F(LinuxProxySettingsTest, KdeSettingsComeBeforeTheEnvironment) {
    variables = {{"XDG_CURRENT_DESKTOP", "KDE"}, {"http_proxy", "environment.example"}};
    writeKio("[Proxy Settings]\nProxyType=1\nhttpProxy=http://kde.example 8080\n");
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read()->http.host, "kde.example");
}

TEST_F(LinuxProxySettingsTest, KdeSettingsAreReadAnew) {
    variables = {{"XDG_CURRENT_DESKTOP", "KDE"}};
    writeKio("[Proxy Settings]\nProxyType=0\n");
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read(), std::nullopt);
    writeKio("[Proxy Settings]\nProxyType=2\n");
    EXPECT_TRUE(source.read()->isAutomatic);
}

TEST_F(LinuxProxySettingsTest, KdeMayDeferToTheEnvironment) {
    variables = {{"XDG_CURRENT_DESKTOP", "KDE"}, {"http_proxy", "environment.example"}};
    writeKio("[Proxy Settings]\nProxyType=4\nhttpProxy=http_proxy\n");
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read()->http.host, "environment.example");
}

TEST_F(LinuxProxySettingsTest, MissingKdeFileTakesTheEnvironment) {
    variables = {{"XDG_CURRENT_DESKTOP", "KDE"}, {"all_proxy", "all.example"}};
    LinuxProxySettings source = settings();
    EXPECT_EQ(source.read()->socks.host, "all.example");
}

TEST_F(LinuxProxySettingsTest, GnomeSettingsAreReadFromTheRealLibrary) {
    // The library and the settings' description come with the desktop, which a build machine need not have.
    if (!::dlopen("libgio-2.0.so.0", RTLD_LAZY) ||
        !std::filesystem::exists("/usr/share/glib-2.0/schemas/org.gnome.system.proxy.gschema.xml")) {
        GTEST_SKIP() << "no GSettings here";
    }
    // The library reads a plain file instead of the user's own settings; it looks at these once per process.
    ::setenv("GSETTINGS_BACKEND", "keyfile", 1);
    ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    std::filesystem::create_directories(folder / "glib-2.0/settings");
    std::ofstream(folder / "glib-2.0/settings/keyfile")
        << "[system/proxy]\nmode='manual'\n[system/proxy/https]\nhost='tls.example'\n";
    variables = {{"XDG_CURRENT_DESKTOP", "GNOME"}, {"http_proxy", "environment.example"}};
    LinuxProxySettings source = settings();
    const auto read = source.read();
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("GSETTINGS_BACKEND");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->http, ProxyWay{});
    EXPECT_EQ(read->https, (ProxyWay{true, "tls.example"}));
}

}  // namespace
}  // namespace velmora
