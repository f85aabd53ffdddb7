#include "platform/linux/network/NetlinkMessages.h"
#include "platform/linux/network/Nl80211Messages.h"
#include "platform/linux/network/RouteMessages.h"

#include <cstddef>
#include <cstdint>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    Netlink::Bytes rest = std::as_bytes(std::span(data, size));
    while (const auto message = Netlink::nextMessage(rest)) {
        RouteMessages::parseLink(*message);
        RouteMessages::parseBytes(*message);
        RouteMessages::parseAddress(*message);
        RouteMessages::parseDefaultRoute(*message);
        RouteMessages::parseNextHop(*message);
        Nl80211Messages::parseFamily(*message);
        if (const auto interface = Nl80211Messages::parseInterface(*message))
            Nl80211Messages::channelOf(interface->frequency.value_or(0));
        Nl80211Messages::parseStation(*message);
        Nl80211Messages::parseAssociatedSsid(*message);
    }
    return 0;
}
