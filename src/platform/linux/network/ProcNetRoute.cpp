#include "platform/linux/network/ProcNetRoute.h"

#include "base/ParseNumber.h"
#include "platform/linux/network/IpText.h"

#include <net/route.h>
#include <sys/socket.h>

#include <span>

namespace velmora::ProcNetRoute {
namespace {

struct Line {
    std::string_view interface;
    std::uint32_t gateway = 0;  ///< As it lies in memory.
    std::uint32_t metric = 0;
};

/// Interface, destination, gateway, flags, references, uses, metric, mask: addresses and flags in hexadecimal
/// digits of the machine's own byte order.
std::optional<Line> parseDefaultLine(std::string_view line) {
    Line route{.interface = nextField(line)};
    const auto destination = parseNumber<std::uint32_t>(nextField(line), 16);
    const auto gateway = parseNumber<std::uint32_t>(nextField(line), 16);
    const auto flags = parseNumber<std::uint32_t>(nextField(line), 16);
    nextField(line);
    nextField(line);
    const auto metric = parseNumber<std::uint32_t>(nextField(line));
    const auto mask = parseNumber<std::uint32_t>(nextField(line), 16);
    if (!destination || !gateway || !flags || !metric || !mask) return std::nullopt;
    if (*destination != 0 || *mask != 0 || (*flags & RTF_UP) == 0 || (*flags & RTF_REJECT) != 0)
        return std::nullopt;
    route.gateway = *gateway;
    route.metric = *metric;
    return route;
}

}  // namespace

std::optional<DefaultRoute> parse(std::string_view text) {
    std::optional<Line> best;
    while (!text.empty()) {
        const auto route = parseDefaultLine(nextLine(text));
        if (route && (!best || route->metric < best->metric)) best = route;
    }
    if (!best) return std::nullopt;
    DefaultRoute route{.interface = std::string(best->interface), .gateway = std::nullopt};
    if (best->gateway != 0) route.gateway = ipText(AF_INET, std::as_bytes(std::span(&best->gateway, 1)));
    return route;
}

}  // namespace velmora::ProcNetRoute
