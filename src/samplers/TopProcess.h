#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// A process and one figure of it: percent of one core, bytes, or watts, by list. Identified by `pid`.
struct TopProcess {
    std::int32_t pid = 0;
    std::string name;
    double value = 0;
    friend bool operator==(const TopProcess&, const TopProcess&) = default;
};

/// A process and what goes in and out of it, bytes per second. Identified by `pid`.
struct TopIOProcess {
    std::int32_t pid = 0;
    std::string name;
    double incoming = 0;  ///< Read, or received.
    double outgoing = 0;  ///< Written, or sent.
    friend bool operator==(const TopIOProcess&, const TopIOProcess&) = default;
};

}  // namespace velmora
