#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::ProcNetRoute {

struct DefaultRoute {
    std::string interface;
    std::optional<std::string> gateway;  ///< Absent on a point-to-point link.
    friend bool operator==(const DefaultRoute&, const DefaultRoute&) = default;
};

/// The best way out in the text of /proc/net/route: of those to everywhere that are up, the one with the
/// lowest metric, the first of equals. Malformed lines are passed over.
std::optional<DefaultRoute> parse(std::string_view text);

}  // namespace velmora::ProcNetRoute
