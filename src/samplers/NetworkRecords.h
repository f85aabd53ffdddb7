#pragma once

#include "platform/InterfaceCounterSource.h"
#include "platform/NetworkConfigurationSource.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

// The raw records in which the program's first home hands out network figures: messages of the routing socket
// in the machine's byte order, and dictionaries of the configuration store. They are decoded, and tested,
// everywhere.

namespace velmora::NetworkRecords {

/// The answer to `NET_RT_IFLIST2`: messages of different kinds back to back, of which each `if_msghdr2`
/// describes an interface. Replaces `interfaces`, reusing its storage. A record that is cut off ends the
/// walk.
void decodeInterfaceList(std::span<const std::byte> messages, std::vector<InterfaceCounters>& interfaces);

/// The link-layer address in a `sockaddr_dl`; nothing for another family or a record that is cut off.
std::optional<std::vector<std::uint8_t>> decodeLinkAddress(std::span<const std::byte> socketAddress);

/// `ifi_baudrate` of a classic `if_data`, a 32-bit figure that wraps; 0 for fewer bytes.
std::uint32_t decodeBaudRate(std::span<const std::byte> interfaceData);

/// The value of "State:/Network/Global/IPv4". An entry that is missing or no text is absent.
GlobalIPv4 decodeGlobalIPv4(const nlohmann::json& value);

/// "ServerAddresses" in the value of "State:/Network/Global/DNS"; empty if that is no array of texts.
std::vector<std::string> decodeNameServers(const nlohmann::json& value);

/// The dictionary of `CFNetworkCopySystemProxySettings`; nothing if it is no dictionary.
std::optional<ProxySettings> decodeProxySettings(const nlohmann::json& value);

}  // namespace velmora::NetworkRecords
