#include "platform/linux/network/Nl80211Client.h"

#include "base/ParseNumber.h"
#include "platform/linux/files/SystemFile.h"

#include <linux/genetlink.h>
#include <linux/if.h>
#include <linux/netlink.h>
#include <linux/nl80211.h>

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

namespace velmora {
namespace {

Netlink::RequestBuilder request(std::uint16_t family, std::uint16_t flags, std::uint8_t command) {
    Netlink::RequestBuilder builder(family, flags);
    builder.record(genlmsghdr{.cmd = command, .version = 1, .reserved = 0});
    return builder;
}

}  // namespace

Nl80211Client::Nl80211Client(SystemRoot root) : m_root(std::move(root)) {}

std::optional<WifiInterface> Nl80211Client::query(const std::optional<std::string>& primaryInterface) {
    // A question for a service that is not there would make the kernel load its module.
    if (systemFolderEntries(m_root.path("sys/class/ieee80211")).empty() || !findFamily()) return std::nullopt;
    const auto found = defaultInterface(primaryInterface);
    if (!found) return std::nullopt;
    WifiInterface wifi;
    wifi.name = found->name;
    wifi.ssid = found->ssid;
    wifi.isPoweredOn = isPoweredOn(found->name);
    const auto peer = station(found->index);
    if (!peer) return wifi;
    if (found->frequency) wifi.channel = Nl80211Messages::channelOf(*found->frequency);
    if (!wifi.ssid) wifi.ssid = associatedSsid(found->index);
    wifi.rssi = peer->signal;
    wifi.transmitRate = peer->transmitRate;
    wifi.phyMode = rememberedMode(*peer);
    return wifi;
}

bool Nl80211Client::findFamily() {
    constexpr std::string_view kName{NL80211_GENL_NAME, sizeof NL80211_GENL_NAME};
    if (!m_socket || !m_socket->isOpen()) m_socket.emplace(NETLINK_GENERIC);
    if (m_family != 0) return true;
    auto question = request(GENL_ID_CTRL, 0, CTRL_CMD_GETFAMILY)
                        .attribute(CTRL_ATTR_FAMILY_NAME, std::as_bytes(std::span(kName)))
                        .bytes();
    m_socket->ask(question, [this](const Netlink::Message& message) {
        m_family = Nl80211Messages::parseFamily(message).value_or(0);
    });
    return m_family != 0;
}

std::optional<Nl80211Messages::Interface> Nl80211Client::defaultInterface(
    const std::optional<std::string>& primary) {
    std::optional<Nl80211Messages::Interface> best;
    auto question = request(m_family, NLM_F_DUMP, NL80211_CMD_GET_INTERFACE).bytes();
    const auto answer = m_socket->ask(question, [&](const Netlink::Message& message) {
        auto interface = Nl80211Messages::parseInterface(message);
        if (!interface || !interface->isStation) return;
        const auto rank = [&primary](const Nl80211Messages::Interface& candidate) {
            return std::pair(candidate.name != primary, candidate.index);
        };
        if (!best || rank(*interface) < rank(*best)) best = std::move(interface);
    });
    // The service may have been unloaded and loaded anew under another number.
    if (answer != NetlinkSocket::Answer::complete) m_family = 0;
    return best;
}

std::optional<Nl80211Messages::Station> Nl80211Client::station(int index) {
    std::optional<Nl80211Messages::Station> peer;
    auto question = request(m_family, NLM_F_DUMP, NL80211_CMD_GET_STATION)
                        .attributeOf(NL80211_ATTR_IFINDEX, index)
                        .bytes();
    m_socket->ask(question, [&peer](const Netlink::Message& message) {
        if (!peer) peer = Nl80211Messages::parseStation(message);
    });
    return peer;
}

std::optional<std::string> Nl80211Client::associatedSsid(int index) {
    std::optional<std::string> ssid;
    auto question =
        request(m_family, NLM_F_DUMP, NL80211_CMD_GET_SCAN).attributeOf(NL80211_ATTR_IFINDEX, index).bytes();
    m_socket->ask(question, [&ssid](const Netlink::Message& message) {
        if (!ssid) ssid = Nl80211Messages::parseAssociatedSsid(message);
    });
    return ssid;
}

bool Nl80211Client::isPoweredOn(const std::string& name) const {
    const std::string folder = m_root.path("sys/class/net/") + name + '/';
    const auto flags = readSystemWord(folder + "flags");
    if (!flags || !flags->starts_with("0x")) return false;
    const auto bits = parseNumber<std::uint32_t>(std::string_view(*flags).substr(2), 16).value_or(0);
    if ((bits & static_cast<std::uint32_t>(IFF_UP)) == 0) return false;
    const std::string radio = folder + "phy80211/";
    return std::ranges::none_of(systemFolderEntries(radio), [&radio](const std::string& entry) {
        if (!entry.starts_with("rfkill")) return false;
        return readSystemWord(radio + entry + "/soft") == "1" ||
               readSystemWord(radio + entry + "/hard") == "1";
    });
}

int Nl80211Client::rememberedMode(const Nl80211Messages::Station& station) {
    if (!m_best || m_best->bssid != station.bssid || m_best->phyMode < station.phyMode) m_best = station;
    return m_best->phyMode;
}

}  // namespace velmora
