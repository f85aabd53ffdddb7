#include "samplers/NetworkRecords.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <string>

namespace velmora::NetworkRecords {
namespace {

/// The value at an offset that the caller has found to lie inside.
template <typename Value>
Value valueAt(std::span<const std::byte> bytes, std::size_t offset) {
    Value value{};
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::optional<std::string> textUnder(const nlohmann::json& dictionary, const char* key) {
    if (!dictionary.is_object()) return std::nullopt;
    const auto entry = dictionary.find(key);
    if (entry == dictionary.end() || !entry->is_string()) return std::nullopt;
    return entry->get<std::string>();
}

bool isNonZeroInteger(const nlohmann::json& dictionary, const char* key) {
    const auto entry = dictionary.find(key);
    return entry != dictionary.end() && entry->is_number_integer() && *entry != 0;
}

ProxyWay proxyWay(const nlohmann::json& dictionary, const char* enableKey, const char* hostKey) {
    return {.isEnabled = isNonZeroInteger(dictionary, enableKey),
            .host = textUnder(dictionary, hostKey).value_or(std::string())};
}

}  // namespace

void decodeInterfaceList(std::span<const std::byte> messages, std::vector<InterfaceCounters>& interfaces) {
    constexpr std::size_t kBytesRead = 112;
    constexpr std::size_t kTypeOffset = 3;
    constexpr std::size_t kFlagsOffset = 8;
    constexpr std::size_t kReceivedOffset = 96;
    constexpr std::size_t kSentOffset = 104;
    constexpr std::uint8_t kInterfaceInformation = 18;  // RTM_IFINFO2
    constexpr std::int32_t kLoopback = 8;               // IFF_LOOPBACK
    interfaces.clear();
    while (messages.size() >= kBytesRead) {
        const auto length = valueAt<std::uint16_t>(messages, 0);
        if (length == 0) return;
        if (valueAt<std::uint8_t>(messages, kTypeOffset) == kInterfaceInformation) {
            interfaces.push_back(
                {.isLoopback = (valueAt<std::int32_t>(messages, kFlagsOffset) & kLoopback) != 0,
                 .receivedBytes = valueAt<std::uint64_t>(messages, kReceivedOffset),
                 .sentBytes = valueAt<std::uint64_t>(messages, kSentOffset)});
        }
        messages = messages.subspan(std::min<std::size_t>(length, messages.size()));
    }
}

std::optional<std::vector<std::uint8_t>> decodeLinkAddress(std::span<const std::byte> socketAddress) {
    constexpr std::size_t kDataOffset = 8;
    constexpr std::uint8_t kLinkFamily = 18;  // AF_LINK
    if (socketAddress.size() < kDataOffset || valueAt<std::uint8_t>(socketAddress, 1) != kLinkFamily)
        return std::nullopt;
    const std::size_t nameLength = valueAt<std::uint8_t>(socketAddress, 5);
    const std::size_t addressLength = valueAt<std::uint8_t>(socketAddress, 6);
    if (socketAddress.size() < kDataOffset + nameLength + addressLength) return std::nullopt;
    std::vector<std::uint8_t> address(addressLength);
    std::ranges::transform(socketAddress.subspan(kDataOffset + nameLength, addressLength), address.begin(),
                           [](std::byte value) { return std::to_integer<std::uint8_t>(value); });
    return address;
}

std::uint32_t decodeBaudRate(std::span<const std::byte> interfaceData) {
    constexpr std::size_t kBaudRateOffset = 16;
    if (interfaceData.size() < kBaudRateOffset + sizeof(std::uint32_t)) return 0;
    return valueAt<std::uint32_t>(interfaceData, kBaudRateOffset);
}

GlobalIPv4 decodeGlobalIPv4(const nlohmann::json& value) {
    return {.primaryInterface = textUnder(value, "PrimaryInterface"), .router = textUnder(value, "Router")};
}

std::vector<std::string> decodeNameServers(const nlohmann::json& value) {
    std::vector<std::string> servers;
    if (!value.is_object()) return servers;
    const auto addresses = value.find("ServerAddresses");
    if (addresses == value.end() || !addresses->is_array()) return servers;
    for (const auto& address : *addresses) {
        if (!address.is_string()) return {};
        servers.push_back(address.get<std::string>());
    }
    return servers;
}

std::optional<ProxySettings> decodeProxySettings(const nlohmann::json& value) {
    if (!value.is_object()) return std::nullopt;
    return ProxySettings{.isAutomatic = isNonZeroInteger(value, "ProxyAutoConfigEnable"),
                         .http = proxyWay(value, "HTTPEnable", "HTTPProxy"),
                         .https = proxyWay(value, "HTTPSEnable", "HTTPSProxy"),
                         .socks = proxyWay(value, "SOCKSEnable", "SOCKSProxy")};
}

}  // namespace velmora::NetworkRecords
