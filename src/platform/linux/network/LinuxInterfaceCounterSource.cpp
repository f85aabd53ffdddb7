#include "platform/linux/network/LinuxInterfaceCounterSource.h"

#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>

#include <utility>

namespace velmora {
namespace {

/// A name of 15 letters and sixteen 64-bit numbers.
constexpr std::size_t kLongestLine = 512;

}  // namespace

LinuxInterfaceCounterSource::LinuxInterfaceCounterSource(std::shared_ptr<LinuxLinkTable> links)
    : m_links(std::move(links)), m_file(m_links->root().path("proc/net/dev"), kLongestLine) {
    if_stats_msg filter{};
    filter.filter_mask = IFLA_STATS_FILTER_BIT(IFLA_STATS_LINK_64);
    m_request = Netlink::RequestBuilder(RTM_GETSTATS, NLM_F_DUMP).record(filter).bytes();
}

bool LinuxInterfaceCounterSource::read(std::vector<InterfaceCounters>& interfaces) {
    interfaces.clear();
    return m_links->socket().isOpen() ? readByNetlink(interfaces) : readFromText(interfaces);
}

bool LinuxInterfaceCounterSource::readByNetlink(std::vector<InterfaceCounters>& interfaces) {
    m_bytes.clear();
    const auto answer = m_links->socket().ask(m_request, [this](const Netlink::Message& message) {
        if (const auto bytes = RouteMessages::parseBytes(message)) m_bytes.push_back(*bytes);
    });
    if (answer != NetlinkSocket::Answer::complete) return readFromText(interfaces);
    // News stand in front of the answer, so that a changed interface is seen as what it is from its first
    // read.
    m_links->followNews();
    for (const auto& bytes : m_bytes) {
        if (!m_links->counts(bytes.index)) continue;
        interfaces.push_back({.receivedBytes = bytes.received, .sentBytes = bytes.sent});
    }
    return true;
}

bool LinuxInterfaceCounterSource::readFromText(std::vector<InterfaceCounters>& interfaces) {
    const auto text = m_file.read();
    if (!text) return false;
    ProcNetDev::parse(*text, m_rows);
    m_links->followNames(m_rows);
    for (const auto& row : m_rows) {
        if (!m_links->counts(row.name)) continue;
        interfaces.push_back({.receivedBytes = row.received, .sentBytes = row.sent});
    }
    return true;
}

}  // namespace velmora
