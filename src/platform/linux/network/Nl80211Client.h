#pragma once

#include "platform/WifiSource.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/network/NetlinkSocket.h"
#include "platform/linux/network/Nl80211Messages.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// Asks the kernel's wireless service about the default interface: the client of an access point that carries
/// the default route, else the client with the lowest number. A driver may have to ask its firmware for the
/// figures, so a question may take long; for one thread at a time.
class Nl80211Client {
public:
    explicit Nl80211Client(SystemRoot root);

    /// Nothing without a wireless interface.
    std::optional<WifiInterface> query(const std::optional<std::string>& primaryInterface);

private:
    bool findFamily();
    std::optional<Nl80211Messages::Interface> defaultInterface(const std::optional<std::string>& primary);
    std::optional<Nl80211Messages::Station> station(int index);
    std::optional<std::string> associatedSsid(int index);
    bool isPoweredOn(const std::string& name) const;
    /// The best generation seen at this access point: an idle link falls back to a rate of an old one.
    int rememberedMode(const Nl80211Messages::Station& station);

    SystemRoot m_root;
    std::optional<NetlinkSocket> m_socket;
    std::uint16_t m_family = 0;  ///< 0 while unknown.
    std::optional<Nl80211Messages::Station> m_best;
};

}  // namespace velmora
