#pragma once

#include <functional>

namespace velmora {

/// Runs work off the main thread, one piece after the other in the order given. Work gets values, and gives
/// its result back with `RunLoop::post`. Destruction waits for the piece at work and drops the rest.
class WorkQueue {
public:
    virtual ~WorkQueue() = default;
    /// Callable from any thread.
    virtual void async(std::function<void()> work) = 0;
};

}  // namespace velmora
