#pragma once

#include "platform/NetworkConfigurationSource.h"
#include "platform/linux/network/LinuxDefaultRoute.h"
#include "platform/linux/network/LinuxLinkTable.h"

#include <memory>

namespace velmora {

class UpstreamNameServers;

/// The default route, the resolver's configuration and fixed English names of the interfaces.
class LinuxNetworkConfiguration final : public NetworkConfigurationSource {
public:
    LinuxNetworkConfiguration(std::shared_ptr<LinuxLinkTable> links, UpstreamNameServers& upstream);

    GlobalIPv4 globalIPv4() override { return m_route.read(); }
    /// The first server of resolv.conf. One on this machine only passes questions on, so the first that it
    /// asks in turn stands for it, if that can be found out.
    std::vector<std::string> nameServers() override;
    std::vector<NamedInterface> interfaces() override;

private:
    std::shared_ptr<LinuxLinkTable> m_links;
    LinuxDefaultRoute m_route;
    UpstreamNameServers& m_upstream;
};

}  // namespace velmora
