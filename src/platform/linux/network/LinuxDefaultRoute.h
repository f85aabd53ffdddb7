#pragma once

#include "platform/NetworkConfigurationSource.h"
#include "platform/linux/network/LinuxLinkTable.h"

#include <memory>

namespace velmora {

/// The interface and the router of the best route to everywhere in the main table. It is looked up in the
/// table rather than asked for a way to some address: under the rules of a tunnel the latter would name the
/// tunnel, whose link facts are nobody's.
class LinuxDefaultRoute {
public:
    explicit LinuxDefaultRoute(std::shared_ptr<LinuxLinkTable> links) : m_links(std::move(links)) {}

    /// Both absent without such a route.
    GlobalIPv4 read();

private:
    std::optional<GlobalIPv4> readByNetlink();
    GlobalIPv4 readFromText();

    std::shared_ptr<LinuxLinkTable> m_links;
};

}  // namespace velmora
