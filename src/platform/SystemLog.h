#pragma once

#include <string_view>

namespace velmora {

/// The system's log (stands for `NSLog`). A line has no newline; lines of the program begin with "Velmora: ".
class SystemLog {
public:
    virtual ~SystemLog() = default;
    /// Callable from any thread.
    virtual void write(std::string_view line) = 0;
};

}  // namespace velmora
