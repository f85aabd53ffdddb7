#pragma once

#include "platform/WifiSource.h"
#include "platform/linux/network/NetlinkMessages.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

// The answers of the kernel's wireless service (nl80211 over generic netlink), each from one message. What
// lacks the attribute that makes it useful gives nothing.

namespace velmora::Nl80211Messages {

/// The number under which a generic netlink service is reached, from the answer to `CTRL_CMD_GETFAMILY`.
std::optional<std::uint16_t> parseFamily(const Netlink::Message& message);

struct Interface {
    int index = 0;
    std::string name;
    bool isStation = false;  ///< A client of an access point, not one itself.
    std::optional<std::string> ssid;
    std::optional<std::uint32_t> frequency;  ///< MHz; of the first link of several.
    friend bool operator==(const Interface&, const Interface&) = default;
};
std::optional<Interface> parseInterface(const Netlink::Message& message);

using Bssid = std::array<std::uint8_t, 6>;

/// The access point as a station's only peer.
struct Station {
    Bssid bssid{};
    int signal = 0;           ///< dBm; 0 if unknown.
    double transmitRate = 0;  ///< Megabits per second; 0 if unknown.
    int phyMode = 1;          ///< Generation 4 to 7, the best of both directions; 1 for older ones.
    friend bool operator==(const Station&, const Station&) = default;
};
std::optional<Station> parseStation(const Netlink::Message& message);

/// The name in a scan's result; nothing for an access point that the machine is not associated with.
std::optional<std::string> parseAssociatedSsid(const Netlink::Message& message);

/// Band and number of a frequency in MHz; band 0 for one outside the three bands.
WifiChannel channelOf(std::uint32_t frequency);

}  // namespace velmora::Nl80211Messages
