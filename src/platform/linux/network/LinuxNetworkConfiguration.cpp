#include "platform/linux/network/LinuxNetworkConfiguration.h"

#include "platform/UpstreamNameServers.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/network/LinkRules.h"
#include "platform/linux/network/ResolvConf.h"

#include <optional>
#include <utility>

namespace velmora {

LinuxNetworkConfiguration::LinuxNetworkConfiguration(std::shared_ptr<LinuxLinkTable> links,
                                                     UpstreamNameServers& upstream)
    : m_links(std::move(links)), m_route(m_links), m_upstream(upstream) {}

std::vector<std::string> LinuxNetworkConfiguration::nameServers() {
    const SystemRoot& root = m_links->root();
    const auto text = readSystemFile(root.path("etc/resolv.conf"));
    auto server = text ? ResolvConf::firstNameServer(*text) : std::nullopt;
    if (!server) return {};
    switch (ResolvConf::serverAt(*server)) {
        case ResolvConf::Server::elsewhere:
            break;
        case ResolvConf::Server::systemdStub:
            if (const auto own = readSystemFile(root.path("run/systemd/resolve/resolv.conf")))
                server = ResolvConf::firstNameServer(*own);
            break;
        case ResolvConf::Server::otherOnThisMachine:
            if (auto upstream = m_upstream.latest(); !upstream.empty()) return upstream;
            break;
    }
    if (!server) return {};
    return {std::move(*server)};
}

std::vector<NamedInterface> LinuxNetworkConfiguration::interfaces() {
    std::vector<NamedInterface> interfaces;
    for (const LinkFacts& link : m_links->links())
        interfaces.push_back({.bsdName = link.name, .displayName = LinkRules::displayName(link)});
    return interfaces;
}

}  // namespace velmora
