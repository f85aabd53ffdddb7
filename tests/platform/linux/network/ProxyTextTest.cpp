#include "platform/linux/network/ProxyText.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

namespace velmora {
namespace {

using ProxyText::Desktop;
using ProxyText::hostOf;
using Kind = ProxyText::KioSettings::Kind;

TEST(ProxyText, HostLosesSchemeUserAndPort) {
    EXPECT_EQ(hostOf("proxy.example"), "proxy.example");
    EXPECT_EQ(hostOf("proxy.example:8080"), "proxy.example");
    EXPECT_EQ(hostOf("http://proxy.example:8080/"), "proxy.example");
    EXPECT_EQ(hostOf("socks5h://user:se@cret@proxy.example:1080"), "proxy.example");
    EXPECT_EQ(hostOf("http://proxy.example 8080"), "proxy.example");
    EXPECT_EQ(hostOf("  192.0.2.1:3128\r"), "192.0.2.1");
}

TEST(ProxyText, HostOfTheOtherFamilyLosesItsBrackets) {
    EXPECT_EQ(hostOf("http://[2001:db8::1]:8080"), "2001:db8::1");
    EXPECT_EQ(hostOf("2001:db8::1"), "2001:db8::1");
}

TEST(ProxyText, TextWithoutAHostHasNone) {
    for (const char* text : {"", " ", "http://", "http://:8080", ":8080", "http://user@", "[::1"})
        EXPECT_EQ(hostOf(text), "") << text;
}

TEST(ProxyText, ManualKioProxiesHaveTheirHosts) {
    const auto kio = ProxyText::parseKio(
        "[Other]\nProxyType=2\n[Proxy Settings]\nProxyType=1\nhttpProxy=http://web.example 3128\n"
        "httpsProxy=\nsocksProxy=socks://socks.example 1080\n[Third]\nProxyType=0\n");
    EXPECT_EQ(kio.kind, Kind::manual);
    EXPECT_FALSE(kio.settings.isAutomatic);
    EXPECT_EQ(kio.settings.http, (ProxyWay{true, "web.example"}));
    EXPECT_EQ(kio.settings.https, ProxyWay{});
    EXPECT_EQ(kio.settings.socks, (ProxyWay{true, "socks.example"}));
}

TEST(ProxyText, KioTypesHaveTheirMeaning) {
    const auto kind = [](const std::string& type) {
        return ProxyText::parseKio("[Proxy Settings]\nProxyType=" + type + "\n").kind;
    };
    EXPECT_EQ(kind("0"), Kind::none);
    EXPECT_EQ(kind("1"), Kind::manual);
    EXPECT_EQ(kind("2"), Kind::automatic);
    EXPECT_EQ(kind("3"), Kind::automatic);
    EXPECT_EQ(kind("4"), Kind::environment);
    EXPECT_EQ(kind("5"), Kind::none);
    EXPECT_EQ(kind("x"), Kind::none);
    EXPECT_EQ(kind(""), Kind::none);
}

TEST(ProxyText, AutomaticKioProxyIsMarkedSo) {
    EXPECT_TRUE(ProxyText::parseKio("[Proxy Settings]\nProxyType=3\n").settings.isAutomatic);
}

TEST(ProxyText, KioMarksForUnchangeableAreNoPartOfNames) {
    EXPECT_EQ(ProxyText::parseKio("[Proxy Settings][$i]\nProxyType[$i]=2\n").kind, Kind::automatic);
}

TEST(ProxyText, DamagedKioTextAsksForNone) {
    EXPECT_EQ(ProxyText::parseKio("").kind, Kind::none);
    EXPECT_EQ(ProxyText::parseKio("[Proxy Settings").kind, Kind::none);
    EXPECT_EQ(ProxyText::parseKio("ProxyType=1\n").kind, Kind::none);
    EXPECT_EQ(ProxyText::parseKio("[Proxy Settings]\n=1\nProxyType\n\xFF=\xFE\n").kind, Kind::none);
}

ProxyText::Environment environment(std::map<std::string, std::string> variables) {
    return [variables = std::move(variables)](const std::string& name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        if (found == variables.end()) return std::nullopt;
        return found->second;
    };
}

TEST(ProxyText, EnvironmentNamesOneProxyPerWay) {
    const auto settings =
        ProxyText::fromEnvironment(environment({{"http_proxy", "http://web.example:3128"},
                                                {"https_proxy", "tls.example:3128"},
                                                {"all_proxy", "socks5://all.example:1080"}}));
    ASSERT_TRUE(settings);
    EXPECT_FALSE(settings->isAutomatic);
    EXPECT_EQ(settings->http, (ProxyWay{true, "web.example"}));
    EXPECT_EQ(settings->https, (ProxyWay{true, "tls.example"}));
    EXPECT_EQ(settings->socks, (ProxyWay{true, "all.example"}));
}

TEST(ProxyText, LowerCaseComesBeforeCapitals) {
    const auto both =
        ProxyText::fromEnvironment(environment({{"http_proxy", "low"}, {"HTTP_PROXY", "high"}}));
    EXPECT_EQ(both->http.host, "low");
    const auto capitals =
        ProxyText::fromEnvironment(environment({{"http_proxy", ""}, {"HTTP_PROXY", "high"}}));
    EXPECT_EQ(capitals->http.host, "high");
}

TEST(ProxyText, EmptyEnvironmentHasNoProxy) {
    EXPECT_EQ(ProxyText::fromEnvironment(environment({})), std::nullopt);
    EXPECT_EQ(ProxyText::fromEnvironment(environment({{"http_proxy", "http://"}})), std::nullopt);
}

TEST(ProxyText, DesktopsAreKnownByAnyOfTheirNames) {
    EXPECT_EQ(ProxyText::desktopOf("GNOME"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("ubuntu:GNOME"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("X-Cinnamon"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("Budgie:GNOME"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("XFCE"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("MATE"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("Unity"), Desktop::gnomeFamily);
    EXPECT_EQ(ProxyText::desktopOf("KDE"), Desktop::kde);
    EXPECT_EQ(ProxyText::desktopOf("sway"), Desktop::other);
    EXPECT_EQ(ProxyText::desktopOf(""), Desktop::other);
    EXPECT_EQ(ProxyText::desktopOf("::"), Desktop::other);
}

TEST(ProxyText, GnomeModesHaveTheirMeaning) {
    EXPECT_EQ(
        ProxyText::fromGnome({.mode = "none", .httpHost = "web.example", .httpsHost = {}, .socksHost = {}}),
        std::nullopt);
    EXPECT_TRUE(ProxyText::fromGnome({.mode = "auto", .httpHost = {}, .httpsHost = {}, .socksHost = {}})
                    ->isAutomatic);
    const auto manual = ProxyText::fromGnome(
        {.mode = "manual", .httpHost = "", .httpsHost = "tls.example", .socksHost = "socks.example"});
    ASSERT_TRUE(manual);
    EXPECT_EQ(manual->http, ProxyWay{}) << "an empty host is not enabled";
    EXPECT_EQ(manual->https, (ProxyWay{true, "tls.example"}));
    EXPECT_EQ(manual->socks, (ProxyWay{true, "socks.example"}));
}

}  // namespace
}  // namespace velmora
