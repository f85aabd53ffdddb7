#include "platform/linux/network/Nl80211Messages.h"

#include "base/Utf8Text.h"

#include <linux/genetlink.h>
#include <linux/nl80211.h>

#include <algorithm>
#include <string_view>

namespace velmora::Nl80211Messages {
namespace {

using Netlink::Bytes;
using Netlink::nextAttribute;
using Netlink::valueOf;

/// A network's name is at most this long.
constexpr std::size_t kLongestSsid = 32;

/// The attributes of a message of that command; nothing for another.
std::optional<Bytes> attributesOf(const Netlink::Message& message, std::uint8_t command) {
    const auto header = valueOf<genlmsghdr>(message.body);
    if (!header || header->cmd != command) return std::nullopt;
    return Netlink::attributesBehind(message.body, sizeof(genlmsghdr));
}

/// A name is bytes, by custom UTF-8. A hidden one is empty or all zeros.
std::optional<std::string> ssidText(Bytes value) {
    value = value.first(std::min(value.size(), kLongestSsid));
    const std::string_view text(reinterpret_cast<const char*>(value.data()), value.size());
    if (text.find_first_not_of('\0') == std::string_view::npos) return std::nullopt;
    return validUtf8(text);
}

/// The first frequency among the links of a multi-link connection.
std::optional<std::uint32_t> firstLinkFrequency(Bytes links) {
    while (const auto link = nextAttribute(links)) {
        Bytes attributes = link->value;
        while (const auto attribute = nextAttribute(attributes)) {
            if (attribute->type == NL80211_ATTR_WIPHY_FREQ) return valueOf<std::uint32_t>(attribute->value);
        }
    }
    return std::nullopt;
}

struct Rate {
    double megabits = 0;
    int phyMode = 1;
};

Rate parseRate(Bytes attributes) {
    constexpr double kUnitsPerMegabit = 10;
    Rate rate;
    while (const auto attribute = nextAttribute(attributes)) {
        switch (attribute->type) {
            case NL80211_RATE_INFO_BITRATE32:
                rate.megabits = valueOf<std::uint32_t>(attribute->value).value_or(0) / kUnitsPerMegabit;
                break;
            case NL80211_RATE_INFO_BITRATE:
                if (rate.megabits == 0)
                    rate.megabits = valueOf<std::uint16_t>(attribute->value).value_or(0) / kUnitsPerMegabit;
                break;
            case NL80211_RATE_INFO_MCS:
                rate.phyMode = std::max(rate.phyMode, 4);
                break;
            case NL80211_RATE_INFO_VHT_MCS:
                rate.phyMode = std::max(rate.phyMode, 5);
                break;
            case NL80211_RATE_INFO_HE_MCS:
                rate.phyMode = std::max(rate.phyMode, 6);
                break;
            case NL80211_RATE_INFO_EHT_MCS:
                rate.phyMode = std::max(rate.phyMode, 7);
                break;
            default:
                break;
        }
    }
    return rate;
}

/// A signal strength in dBm, one byte in two's complement; 0 for none.
int decibels(Bytes value) {
    constexpr int kByteValues = 256;
    const int number = valueOf<std::uint8_t>(value).value_or(0);
    return number < kByteValues / 2 ? number : number - kByteValues;
}

void takeStationInformation(Bytes attributes, Station& station) {
    int average = 0;
    while (const auto attribute = nextAttribute(attributes)) {
        switch (attribute->type) {
            case NL80211_STA_INFO_SIGNAL:
                station.signal = decibels(attribute->value);
                break;
            case NL80211_STA_INFO_SIGNAL_AVG:
                average = decibels(attribute->value);
                break;
            case NL80211_STA_INFO_TX_BITRATE: {
                const Rate rate = parseRate(attribute->value);
                station.transmitRate = rate.megabits;
                station.phyMode = std::max(station.phyMode, rate.phyMode);
                break;
            }
            case NL80211_STA_INFO_RX_BITRATE:
                station.phyMode = std::max(station.phyMode, parseRate(attribute->value).phyMode);
                break;
            default:
                break;
        }
    }
    if (station.signal == 0) station.signal = average;
}

/// Information elements are a number, a length and that many bytes each; the name is number 0.
std::optional<std::string> ssidAmong(Bytes elements) {
    while (elements.size() >= 2) {
        const auto number = std::to_integer<std::uint8_t>(elements[0]);
        const auto length = std::to_integer<std::size_t>(elements[1]);
        elements = elements.subspan(2);
        if (length > elements.size()) return std::nullopt;
        if (number == 0) return ssidText(elements.first(length));
        elements = elements.subspan(length);
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::uint16_t> parseFamily(const Netlink::Message& message) {
    auto attributes = attributesOf(message, CTRL_CMD_NEWFAMILY);
    if (!attributes) return std::nullopt;
    while (const auto attribute = nextAttribute(*attributes)) {
        if (attribute->type == CTRL_ATTR_FAMILY_ID) return valueOf<std::uint16_t>(attribute->value);
    }
    return std::nullopt;
}

std::optional<Interface> parseInterface(const Netlink::Message& message) {
    auto attributes = attributesOf(message, NL80211_CMD_NEW_INTERFACE);
    if (!attributes) return std::nullopt;
    Interface interface;
    while (const auto attribute = nextAttribute(*attributes)) {
        switch (attribute->type) {
            case NL80211_ATTR_IFINDEX:
                interface.index = valueOf<std::int32_t>(attribute->value).value_or(0);
                break;
            case NL80211_ATTR_IFNAME:
                interface.name = Netlink::textOf(attribute->value);
                break;
            case NL80211_ATTR_IFTYPE:
                interface.isStation = valueOf<std::uint32_t>(attribute->value) == NL80211_IFTYPE_STATION;
                break;
            case NL80211_ATTR_SSID:
                interface.ssid = ssidText(attribute->value);
                break;
            case NL80211_ATTR_WIPHY_FREQ:
                interface.frequency = valueOf<std::uint32_t>(attribute->value);
                break;
            case NL80211_ATTR_MLO_LINKS:
                if (!interface.frequency) interface.frequency = firstLinkFrequency(attribute->value);
                break;
            default:
                break;
        }
    }
    // Peer-to-peer devices have no network interface.
    if (interface.index <= 0 || interface.name.empty()) return std::nullopt;
    return interface;
}

std::optional<Station> parseStation(const Netlink::Message& message) {
    auto attributes = attributesOf(message, NL80211_CMD_NEW_STATION);
    if (!attributes) return std::nullopt;
    Station station;
    bool hasPeer = false;
    while (const auto attribute = nextAttribute(*attributes)) {
        if (attribute->type == NL80211_ATTR_MAC) {
            const auto bssid = valueOf<Bssid>(attribute->value);
            hasPeer = bssid.has_value();
            if (bssid) station.bssid = *bssid;
        }
        if (attribute->type == NL80211_ATTR_STA_INFO) takeStationInformation(attribute->value, station);
    }
    if (!hasPeer) return std::nullopt;
    return station;
}

std::optional<std::string> parseAssociatedSsid(const Netlink::Message& message) {
    auto attributes = attributesOf(message, NL80211_CMD_NEW_SCAN_RESULTS);
    if (!attributes) return std::nullopt;
    while (const auto attribute = nextAttribute(*attributes)) {
        if (attribute->type != NL80211_ATTR_BSS) continue;
        bool associated = false;
        Bytes elements;
        Bytes details = attribute->value;
        while (const auto detail = nextAttribute(details)) {
            if (detail->type == NL80211_BSS_STATUS)
                associated = valueOf<std::uint32_t>(detail->value) == NL80211_BSS_STATUS_ASSOCIATED;
            if (detail->type == NL80211_BSS_INFORMATION_ELEMENTS) elements = detail->value;
        }
        return associated ? ssidAmong(elements) : std::nullopt;
    }
    return std::nullopt;
}

WifiChannel channelOf(std::uint32_t frequency) {
    constexpr std::uint32_t kStep = 5;
    const auto number = [frequency](std::uint32_t base) {
        return static_cast<int>((frequency - base) / kStep);
    };
    if (frequency >= 2412 && frequency <= 2472) return {.band = 1, .number = number(2407)};
    if (frequency == 2484) return {.band = 1, .number = 14};
    if (frequency == 5935) return {.band = 3, .number = 2};
    if (frequency >= 5000 && frequency <= 5895) return {.band = 2, .number = number(5000)};
    if (frequency >= 5955 && frequency <= 7115) return {.band = 3, .number = number(5950)};
    // 60 GHz, which has no name here.
    if (frequency >= 58320 && frequency <= 70200)
        return {.band = 0, .number = static_cast<int>((frequency - 56160) / 2160)};
    return {};
}

}  // namespace velmora::Nl80211Messages
