#include "platform/linux/network/ProxyText.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <array>

namespace velmora::ProxyText {
namespace {

ProxyWay wayTo(std::string_view host) {
    return {.isEnabled = !host.empty(), .host = std::string(host)};
}

std::string_view withoutBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto begin = text.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

KioSettings::Kind kioKind(std::string_view value) {
    switch (parseNumber<int>(value).value_or(0)) {
        case 1:
            return KioSettings::Kind::manual;
        case 2:  // A script at a given place,
        case 3:  // and one that is to be found in the network.
            return KioSettings::Kind::automatic;
        case 4:
            return KioSettings::Kind::environment;
        default:
            return KioSettings::Kind::none;
    }
}

}  // namespace

std::string_view hostOf(std::string_view proxy) {
    proxy = withoutBlanks(proxy);
    if (const auto scheme = proxy.find("://"); scheme != std::string_view::npos)
        proxy.remove_prefix(scheme + 3);
    proxy = proxy.substr(0, proxy.find_first_of("/?# \t"));
    if (const auto user = proxy.rfind('@'); user != std::string_view::npos) proxy.remove_prefix(user + 1);
    if (proxy.starts_with('[')) {
        const auto end = proxy.find(']');
        return end == std::string_view::npos ? std::string_view{} : proxy.substr(1, end - 1);
    }
    // More than one colon is an IPv6 address without brackets, and then without a port.
    if (std::ranges::count(proxy, ':') > 1) return proxy;
    return proxy.substr(0, proxy.find(':'));
}

KioSettings parseKio(std::string_view text) {
    KioSettings kio;
    bool inGroup = false;
    while (!text.empty()) {
        const std::string_view line = withoutBlanks(nextLine(text));
        if (line.starts_with('[')) {
            inGroup = line.starts_with("[Proxy Settings]") &&
                      (line.size() == 16 || line.substr(16).starts_with("[$"));
            continue;
        }
        const auto equals = line.find('=');
        if (!inGroup || equals == std::string_view::npos) continue;
        // A key may carry a mark for "not to be changed": "ProxyType[$i]".
        std::string_view key = withoutBlanks(line.substr(0, equals));
        key = key.substr(0, key.find('['));
        const std::string_view value = withoutBlanks(line.substr(equals + 1));
        if (key == "ProxyType") kio.kind = kioKind(value);
        if (key == "httpProxy") kio.settings.http = wayTo(hostOf(value));
        if (key == "httpsProxy") kio.settings.https = wayTo(hostOf(value));
        if (key == "socksProxy") kio.settings.socks = wayTo(hostOf(value));
    }
    kio.settings.isAutomatic = kio.kind == KioSettings::Kind::automatic;
    return kio;
}

std::optional<ProxySettings> fromEnvironment(const Environment& environment) {
    const auto way = [&environment](std::string name) {
        auto value = environment(name);
        if (!value || value->empty()) {
            std::ranges::transform(name, name.begin(), [](char letter) {
                return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
            });
            value = environment(name);
        }
        return value ? wayTo(hostOf(*value)) : ProxyWay{};
    };
    ProxySettings settings;
    settings.http = way("http_proxy");
    settings.https = way("https_proxy");
    settings.socks = way("all_proxy");
    if (settings == ProxySettings{}) return std::nullopt;
    return settings;
}

Desktop desktopOf(std::string_view currentDesktop) {
    constexpr std::array<std::string_view, 6> kGnomeFamily = {"GNOME",  "Unity", "Cinnamon",
                                                              "Budgie", "XFCE",  "MATE"};
    while (!currentDesktop.empty()) {
        const auto length = std::min(currentDesktop.find(':'), currentDesktop.size());
        std::string_view name = currentDesktop.substr(0, length);
        currentDesktop.remove_prefix(std::min(length + 1, currentDesktop.size()));
        if (name == "KDE") return Desktop::kde;
        if (name.starts_with("X-")) name.remove_prefix(2);
        if (std::ranges::find(kGnomeFamily, name) != kGnomeFamily.end()) return Desktop::gnomeFamily;
    }
    return Desktop::other;
}

std::optional<ProxySettings> fromGnome(const GnomeSettings& gnome) {
    if (gnome.mode == "auto") {
        ProxySettings settings;
        settings.isAutomatic = true;
        return settings;
    }
    if (gnome.mode != "manual") return std::nullopt;
    ProxySettings settings;
    settings.http = wayTo(hostOf(gnome.httpHost));
    settings.https = wayTo(hostOf(gnome.httpsHost));
    settings.socks = wayTo(hostOf(gnome.socksHost));
    return settings;
}

}  // namespace velmora::ProxyText
