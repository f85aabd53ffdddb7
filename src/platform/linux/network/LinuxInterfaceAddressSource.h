#pragma once

#include "platform/InterfaceAddressSource.h"
#include "platform/linux/network/LinuxLinkTable.h"

#include <memory>

namespace velmora {

/// Addresses by netlink, speeds from sys/class/net. Interface names say nothing on Linux: what stands in a
/// local network and what is a tunnel is told by what the interface is made of.
class LinuxInterfaceAddressSource final : public InterfaceAddressSource {
public:
    explicit LinuxInterfaceAddressSource(std::shared_ptr<LinuxLinkTable> links);

    std::vector<InterfaceAddress> ipv4Addresses() override;
    /// The speed of an interface without hardware is a fancy figure and counts as unknown.
    std::vector<InterfaceLink> links(const std::string& name) override;
    bool isLanName(std::string_view name) override;
    bool isTunnelName(std::string_view name) override;

private:
    std::shared_ptr<LinuxLinkTable> m_links;
};

}  // namespace velmora
