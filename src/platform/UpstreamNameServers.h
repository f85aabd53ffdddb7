#pragma once

#include <string>
#include <vector>

namespace velmora {

/// The name servers that a resolver on this machine asks in turn, as the desktop's network service knows
/// them.
class UpstreamNameServers {
public:
    virtual ~UpstreamNameServers() = default;
    /// The last answer, best first, and the start of the next question unless one is under way. Empty while
    /// there is no answer that is young enough.
    virtual std::vector<std::string> latest() = 0;
};

}  // namespace velmora
