#include "platform/linux/network/LinuxLinkTable.h"

#include "platform/linux/network/LinkFiles.h"
#include "platform/linux/network/RouteMessages.h"

#include <linux/if.h>
#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// A captured tree is not asked about the running kernel: a protocol that there is none of gives a closed
/// socket.
constexpr int kNoProtocol = -1;

}  // namespace

LinuxLinkTable::LinuxLinkTable(SystemRoot root)
    : m_root(std::move(root)), m_socket(m_root.isRunningSystem() ? NETLINK_ROUTE : kNoProtocol) {
    (void)m_socket.join(RTNLGRP_LINK);
}

const std::vector<LinkFacts>& LinuxLinkTable::links() {
    // Files tell no news.
    if (m_socket.collectNews() || !m_socket.isOpen()) m_isStale = true;
    if (m_isStale) rebuild();
    return m_links;
}

const LinkFacts* LinuxLinkTable::find(std::string_view name) {
    const auto found = std::ranges::find(links(), name, &LinkFacts::name);
    return found == m_links.end() ? nullptr : &*found;
}

const LinkFacts* LinuxLinkTable::findKnown(int index) const {
    const auto found = std::ranges::lower_bound(m_links, index, {}, &LinkFacts::index);
    return found == m_links.end() || found->index != index ? nullptr : &*found;
}

void LinuxLinkTable::followNews() {
    if (m_socket.takeNews()) m_isStale = true;
    if (m_isStale) rebuild();
}

bool LinuxLinkTable::counts(int index) const {
    return std::ranges::binary_search(m_counted, index);
}

bool LinuxLinkTable::counts(std::string_view name) const {
    // Where there is no /sys, a name is all that is known of an interface; loopback's is always the same.
    if (!m_sawOwnTraffic && !isKnown(name)) return name != "lo";
    return std::ranges::binary_search(m_countedNames, name, std::less<>());
}

bool LinuxLinkTable::isKnown(std::string_view name) const {
    return std::ranges::binary_search(m_names, name, std::less<>());
}

void LinuxLinkTable::rebuild() {
    m_isStale = false;
    if (m_socket.isOpen()) {
        // What changes while it is asked for is asked for again, at the next look.
        if (!readLinks()) m_isStale = true;
        if (m_socket.takeNews()) m_isStale = true;
    } else {
        m_links = LinkFiles::list(m_root);
    }
    classify();
}

bool LinuxLinkTable::readLinks() {
    std::vector<LinkFacts> links;
    // Statistics would be most of each message.
    auto request = Netlink::RequestBuilder(RTM_GETLINK, NLM_F_DUMP)
                       .record(ifinfomsg{})
                       .attributeOf(IFLA_EXT_MASK, std::uint32_t{RTEXT_FILTER_SKIP_STATS})
                       .bytes();
    const auto answer = m_socket.ask(request, [&links](const Netlink::Message& message) {
        if (auto link = RouteMessages::parseLink(message)) links.push_back(std::move(*link));
    });
    if (answer != NetlinkSocket::Answer::complete) return false;
    // The files of what only passes traffic on would tell nothing that its kind does not; a container host
    // has hundreds.
    for (LinkFacts& link : links) {
        if (!LinkRules::isPassingKind(link)) LinkFiles::addFacts(m_root, link);
    }
    std::ranges::sort(links, {}, &LinkFacts::index);
    m_links = std::move(links);
    return true;
}

void LinuxLinkTable::classify() {
    m_sawOwnTraffic = m_sawOwnTraffic || std::ranges::any_of(m_links, LinkRules::isOwnTraffic);
    m_lanRule = LinkRules::lanRule(m_links);
    m_names.clear();
    m_countedNames.clear();
    m_counted.clear();
    for (const LinkFacts& link : m_links) {
        m_names.push_back(link.name);
        // Once there was hardware, its unplugging leaves nothing: else the bridges' totals would show as a
        // burst of traffic.
        const bool isLoopback = (link.flags & static_cast<std::uint32_t>(IFF_LOOPBACK)) != 0;
        if (m_sawOwnTraffic ? !LinkRules::isOwnTraffic(link) : isLoopback) continue;
        m_counted.push_back(link.index);
        m_countedNames.push_back(link.name);
    }
    std::ranges::sort(m_names);
    std::ranges::sort(m_countedNames);
    std::ranges::sort(m_counted);
}

}  // namespace velmora
