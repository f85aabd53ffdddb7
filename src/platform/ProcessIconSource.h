#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// Which picture stands for a running program (stands for `NSRunningApplication.icon`). Main thread.
class ProcessIconSource {
public:
    virtual ~ProcessIconSource() = default;
    /// The icon of the application that the process belongs to: a name in the icon theme, or an absolute
    /// path. Nothing if it belongs to none that is known, or is gone. Neither is sure to exist: the caller
    /// falls back on the icon of an executable.
    virtual std::optional<std::string> iconOf(std::int32_t pid) = 0;
};

}  // namespace velmora
