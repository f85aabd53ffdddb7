#include "platform/linux/network/LinuxInterfaceAddressSource.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/network/IpText.h"
#include "platform/linux/network/RouteMessages.h"

#include <linux/if.h>
#include <linux/if_addr.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <span>
#include <utility>

namespace velmora {

LinuxInterfaceAddressSource::LinuxInterfaceAddressSource(std::shared_ptr<LinuxLinkTable> links)
    : m_links(std::move(links)) {}

std::vector<InterfaceAddress> LinuxInterfaceAddressSource::ipv4Addresses() {
    std::vector<RouteMessages::LinkAddress> found;
    ifaddrmsg filter{};
    filter.ifa_family = AF_INET;
    auto request = Netlink::RequestBuilder(RTM_GETADDR, NLM_F_DUMP).record(filter).bytes();
    const auto answer = m_links->socket().ask(request, [&found](const Netlink::Message& message) {
        if (const auto address = RouteMessages::parseAddress(message)) found.push_back(*address);
    });
    std::vector<InterfaceAddress> addresses;
    if (answer != NetlinkSocket::Answer::complete) return addresses;
    (void)m_links->links();
    for (const auto& [index, address] : found) {
        const LinkFacts* const link = m_links->findKnown(index);
        if (!link) continue;
        addresses.push_back({.name = link->name,
                             .isUp = (link->flags & static_cast<std::uint32_t>(IFF_UP)) != 0,
                             .isLoopback = (link->flags & static_cast<std::uint32_t>(IFF_LOOPBACK)) != 0,
                             .text = ipText(AF_INET, std::as_bytes(std::span(address)))});
    }
    return addresses;
}

std::vector<InterfaceLink> LinuxInterfaceAddressSource::links(const std::string& name) {
    constexpr std::uint64_t kBitsPerMegabit = 1000000;
    /// No link is that fast; a figure above is an unknown speed in unsigned clothes.
    constexpr std::uint64_t kFastestMegabits = 10000000;
    const LinkFacts* const facts = m_links->find(name);
    if (!facts) return {};
    InterfaceLink link{.address = facts->address};
    if (facts->hasDevice) {
        // Interfaces that have no speed answer with an error or -1.
        const auto megabits = readSystemNumber(m_links->root().path("sys/class/net/") + name + "/speed");
        if (megabits && *megabits <= kFastestMegabits) link.baudRate = *megabits * kBitsPerMegabit;
    }
    return {std::move(link)};
}

bool LinuxInterfaceAddressSource::isLanName(std::string_view name) {
    const LinkFacts* const link = m_links->find(name);
    return link && LinkRules::isLan(*link, m_links->lanRule());
}

bool LinuxInterfaceAddressSource::isTunnelName(std::string_view name) {
    const LinkFacts* const link = m_links->find(name);
    return link && LinkRules::isTunnel(*link);
}

}  // namespace velmora
