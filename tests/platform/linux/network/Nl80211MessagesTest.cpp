#include "platform/linux/network/Nl80211Messages.h"

#include "platform/linux/network/NetlinkBytes.h"

#include <gtest/gtest.h>

#include <linux/genetlink.h>
#include <linux/nl80211.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Nl80211Messages::channelOf;

constexpr std::uint16_t kFamily = 30;

NetlinkBytes answer(std::uint8_t command) {
    NetlinkBytes bytes;
    bytes.bytes({command, 1, 0, 0});
    return bytes;
}

NetlinkBytes station(const NetlinkBytes& information) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_STATION);
    bytes.attribute(NL80211_ATTR_MAC, NetlinkBytes().bytes({2, 0, 0, 0, 0, 9}))
        .attribute(NL80211_ATTR_STA_INFO, information);
    return bytes;
}

NetlinkBytes rate(std::uint16_t marker, std::uint32_t tenths) {
    NetlinkBytes bytes;
    bytes.attributeOf(NL80211_RATE_INFO_BITRATE32, tenths);
    if (marker != 0) bytes.attributeOf(marker, std::uint8_t{9});
    return bytes;
}

template <typename Parser>
void expectNoHarmWhenCut(const NetlinkBytes& bytes, Parser parse) {
    for (std::size_t length = 0; length < bytes.get().size(); ++length) {
        const std::vector<std::byte> cut(bytes.get().begin(),
                                         bytes.get().begin() + static_cast<std::ptrdiff_t>(length));
        (void)parse(Netlink::Message{kFamily, 0, 1, cut});
    }
}

TEST(Nl80211Messages, FamilyHasItsNumber) {
    NetlinkBytes bytes = answer(CTRL_CMD_NEWFAMILY);
    bytes.attributeOf(CTRL_ATTR_FAMILY_ID, std::uint16_t{31});
    EXPECT_EQ(Nl80211Messages::parseFamily(bytes.message(GENL_ID_CTRL)), 31);
    EXPECT_EQ(Nl80211Messages::parseFamily(answer(CTRL_CMD_NEWFAMILY).message(GENL_ID_CTRL)), std::nullopt);
    expectNoHarmWhenCut(bytes, Nl80211Messages::parseFamily);
}

TEST(Nl80211Messages, AssociatedStationHasItsNameAndFrequency) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_INTERFACE);
    bytes.attributeOf(NL80211_ATTR_IFINDEX, std::int32_t{3})
        .attribute(NL80211_ATTR_IFNAME, NetlinkBytes().text("wlp2s0").bytes({0}))
        .attributeOf(NL80211_ATTR_IFTYPE, std::uint32_t{2})
        .attribute(NL80211_ATTR_SSID, NetlinkBytes().text("Harbour"))
        .attributeOf(NL80211_ATTR_WIPHY_FREQ, std::uint32_t{5180});
    const auto interface = Nl80211Messages::parseInterface(bytes.message(kFamily));
    ASSERT_TRUE(interface);
    EXPECT_EQ(interface->index, 3);
    EXPECT_EQ(interface->name, "wlp2s0");
    EXPECT_TRUE(interface->isStation);
    EXPECT_EQ(interface->ssid, "Harbour");
    EXPECT_EQ(interface->frequency, 5180U);
    expectNoHarmWhenCut(bytes, Nl80211Messages::parseInterface);
}

TEST(Nl80211Messages, AccessPointIsNoStation) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_INTERFACE);
    bytes.attributeOf(NL80211_ATTR_IFINDEX, std::int32_t{3})
        .attribute(NL80211_ATTR_IFNAME, NetlinkBytes().text("ap0"))
        .attributeOf(NL80211_ATTR_IFTYPE, std::uint32_t{3});
    EXPECT_FALSE(Nl80211Messages::parseInterface(bytes.message(kFamily))->isStation);
}

TEST(Nl80211Messages, DeviceWithoutAnInterfaceIsNone) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_INTERFACE);
    bytes.attributeOf(NL80211_ATTR_IFTYPE, std::uint32_t{10});
    EXPECT_EQ(Nl80211Messages::parseInterface(bytes.message(kFamily)), std::nullopt);
}

TEST(Nl80211Messages, FrequencyOfAMultiLinkConnectionIsItsFirst) {
    const NetlinkBytes first = NetlinkBytes().attributeOf(NL80211_ATTR_WIPHY_FREQ, std::uint32_t{6135});
    const NetlinkBytes second = NetlinkBytes().attributeOf(NL80211_ATTR_WIPHY_FREQ, std::uint32_t{5180});
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_INTERFACE);
    bytes.attributeOf(NL80211_ATTR_IFINDEX, std::int32_t{3})
        .attribute(NL80211_ATTR_IFNAME, NetlinkBytes().text("wlan0"))
        .attribute(NL80211_ATTR_MLO_LINKS, NetlinkBytes().attribute(1, first).attribute(2, second));
    EXPECT_EQ(Nl80211Messages::parseInterface(bytes.message(kFamily))->frequency, 6135U);
}

std::optional<std::string> ssidOf(const NetlinkBytes& value) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_INTERFACE);
    bytes.attributeOf(NL80211_ATTR_IFINDEX, std::int32_t{3})
        .attribute(NL80211_ATTR_IFNAME, NetlinkBytes().text("wlan0"))
        .attribute(NL80211_ATTR_SSID, value);
    return Nl80211Messages::parseInterface(bytes.message(kFamily))->ssid;
}

TEST(Nl80211Messages, HiddenNameIsAbsent) {
    EXPECT_EQ(ssidOf(NetlinkBytes()), std::nullopt);
    EXPECT_EQ(ssidOf(NetlinkBytes().bytes({0, 0, 0})), std::nullopt);
}

TEST(Nl80211Messages, NameOfForeignBytesIsMadeShowable) {
    EXPECT_EQ(ssidOf(NetlinkBytes().bytes({'a', 0xFF, 'b'})), "a\uFFFDb");
}

TEST(Nl80211Messages, OverlongNameIsCut) {
    EXPECT_EQ(ssidOf(NetlinkBytes().bytes(std::vector<int>(1000, 'x'))), std::string(32, 'x'));
}

TEST(Nl80211Messages, StationHasItsSignalAndRate) {
    const NetlinkBytes bytes =
        station(NetlinkBytes()
                    .attributeOf(NL80211_STA_INFO_SIGNAL, std::int8_t{-55})
                    .attributeOf(NL80211_STA_INFO_SIGNAL_AVG, std::int8_t{-60})
                    .attribute(NL80211_STA_INFO_TX_BITRATE, rate(NL80211_RATE_INFO_HE_MCS, 8667)));
    const auto found = Nl80211Messages::parseStation(bytes.message(kFamily));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->bssid, (Nl80211Messages::Bssid{2, 0, 0, 0, 0, 9}));
    EXPECT_EQ(found->signal, -55);
    EXPECT_DOUBLE_EQ(found->transmitRate, 866.7);
    EXPECT_EQ(found->phyMode, 6);
    expectNoHarmWhenCut(bytes, Nl80211Messages::parseStation);
}

TEST(Nl80211Messages, MissingSignalIsTheAverageOne) {
    const NetlinkBytes bytes =
        station(NetlinkBytes().attributeOf(NL80211_STA_INFO_SIGNAL_AVG, std::int8_t{-60}));
    EXPECT_EQ(Nl80211Messages::parseStation(bytes.message(kFamily))->signal, -60);
}

TEST(Nl80211Messages, GenerationIsTheBestOfBothDirections) {
    const auto mode = [](std::uint16_t sent, std::uint16_t received) {
        const NetlinkBytes bytes = station(NetlinkBytes()
                                               .attribute(NL80211_STA_INFO_TX_BITRATE, rate(sent, 60))
                                               .attribute(NL80211_STA_INFO_RX_BITRATE, rate(received, 60)));
        return Nl80211Messages::parseStation(bytes.message(kFamily))->phyMode;
    };
    EXPECT_EQ(mode(0, 0), 1);
    EXPECT_EQ(mode(NL80211_RATE_INFO_MCS, 0), 4);
    EXPECT_EQ(mode(0, NL80211_RATE_INFO_VHT_MCS), 5);
    EXPECT_EQ(mode(NL80211_RATE_INFO_MCS, NL80211_RATE_INFO_HE_MCS), 6);
    EXPECT_EQ(mode(NL80211_RATE_INFO_EHT_MCS, NL80211_RATE_INFO_HE_MCS), 7);
}

TEST(Nl80211Messages, ShortRateStandsInForTheLongOne) {
    const NetlinkBytes bytes = station(
        NetlinkBytes().attribute(NL80211_STA_INFO_TX_BITRATE,
                                 NetlinkBytes().attributeOf(NL80211_RATE_INFO_BITRATE, std::uint16_t{540})));
    EXPECT_DOUBLE_EQ(Nl80211Messages::parseStation(bytes.message(kFamily))->transmitRate, 54);
}

TEST(Nl80211Messages, StationWithoutAnAddressIsNone) {
    EXPECT_EQ(Nl80211Messages::parseStation(answer(NL80211_CMD_NEW_STATION).message(kFamily)), std::nullopt);
}

std::optional<std::string> scanned(std::uint32_t status, const NetlinkBytes& elements) {
    NetlinkBytes bytes = answer(NL80211_CMD_NEW_SCAN_RESULTS);
    bytes.attribute(NL80211_ATTR_BSS, NetlinkBytes()
                                          .attribute(NL80211_BSS_INFORMATION_ELEMENTS, elements)
                                          .attributeOf(NL80211_BSS_STATUS, status));
    expectNoHarmWhenCut(bytes, Nl80211Messages::parseAssociatedSsid);
    return Nl80211Messages::parseAssociatedSsid(bytes.message(kFamily));
}

TEST(Nl80211Messages, AssociatedScanResultHasItsName) {
    EXPECT_EQ(scanned(1, NetlinkBytes().bytes({1, 2, 9, 9, 0, 3, 'P', 'i', 'e'})), "Pie");
}

TEST(Nl80211Messages, OtherScanResultsHaveNone) {
    EXPECT_EQ(scanned(0, NetlinkBytes().bytes({0, 3, 'P', 'i', 'e'})), std::nullopt);
    EXPECT_EQ(scanned(2, NetlinkBytes().bytes({0, 3, 'P', 'i', 'e'})), std::nullopt);
}

TEST(Nl80211Messages, ElementThatIsCutOffHasNoName) {
    EXPECT_EQ(scanned(1, NetlinkBytes().bytes({0, 9, 'P', 'i', 'e'})), std::nullopt);
    EXPECT_EQ(scanned(1, NetlinkBytes().bytes({0})), std::nullopt);
    EXPECT_EQ(scanned(1, NetlinkBytes()), std::nullopt);
}

TEST(Nl80211Messages, FrequenciesHaveTheirChannels) {
    EXPECT_EQ(channelOf(2412), (WifiChannel{1, 1}));
    EXPECT_EQ(channelOf(2472), (WifiChannel{1, 13}));
    EXPECT_EQ(channelOf(2484), (WifiChannel{1, 14}));
    EXPECT_EQ(channelOf(5180), (WifiChannel{2, 36}));
    EXPECT_EQ(channelOf(5885), (WifiChannel{2, 177}));
    EXPECT_EQ(channelOf(5935), (WifiChannel{3, 2}));
    EXPECT_EQ(channelOf(5955), (WifiChannel{3, 1}));
    EXPECT_EQ(channelOf(7115), (WifiChannel{3, 233}));
}

TEST(Nl80211Messages, FrequencyOutsideTheBandsHasNoBand) {
    EXPECT_EQ(channelOf(60480), (WifiChannel{0, 2}));
    EXPECT_EQ(channelOf(0).band, 0);
    EXPECT_EQ(channelOf(900).band, 0);
    EXPECT_EQ(channelOf(0xFFFFFFFF).band, 0);
}

}  // namespace
}  // namespace velmora
