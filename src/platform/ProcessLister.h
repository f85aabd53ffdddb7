#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmora {

/// Runs the system's process lister (stands for `Process` with "/bin/ps" and two pipes).
class ProcessLister {
public:
    virtual ~ProcessLister() = default;

    /// Everything that the lister wrote to its standard output; nothing if it could not be launched.
    using Completion = std::function<void(std::optional<std::string> output)>;
    /// Calls back later, on the main thread; not at all once this object is gone. No more than the first
    /// `lines` lines are read, so an adapter that makes the lines itself need not make more.
    virtual void run(const std::vector<std::string>& arguments, int lines, Completion completion) = 0;
};

}  // namespace velmora
