#pragma once

#include "platform/linux/network/LinkFacts.h"

#include <optional>
#include <string>
#include <vector>

// Which interfaces carry the machine's own traffic, which stand in a local network and which are tunnels. A
// container host has dozens of interfaces through which the same byte passes once each; the machine's own are
// those with hardware behind them, and tunnels.

namespace velmora::LinkRules {

/// True for hardware and tunnels; false for loopback and for what only passes on: bridges and their ports,
/// bonds, virtual networks and whatever else stands on another interface.
bool isOwnTraffic(const LinkFacts& link);

/// True for a kind of interface that only passes on what others carry.
bool isPassingKind(const LinkFacts& link);

/// True for one end of a private tunnel: a program's layer 3 interface, WireGuard, IPsec or PPP.
bool isTunnel(const LinkFacts& link);

enum class LanRule {
    hardware,     ///< Ethernet-like interfaces with hardware behind them.
    anyEthernet,  ///< For a container, which sees no hardware: all but bridges and virtual machines' ends.
};
LanRule lanRule(const std::vector<LinkFacts>& links);
bool isLan(const LinkFacts& link, LanRule rule);

/// "Wi-Fi", "Cellular", "Bluetooth PAN", "USB Ethernet" or "Ethernet"; nothing for any other.
std::optional<std::string> displayName(const LinkFacts& link);

}  // namespace velmora::LinkRules
