#pragma once

#include <optional>
#include <string_view>

namespace velmora {

/// The desktop's service that switches the machine between performance and saving.
class PowerProfileService {
public:
    virtual ~PowerProfileService() = default;
    /// "power-saver", "balanced", "performance" or a name of the service's own; nothing without a service or
    /// an answer. Never waits; the first call may start asking. Valid until control is back in the run loop.
    virtual std::optional<std::string_view> activeProfile() = 0;
};

}  // namespace velmora
