#pragma once

#include "base/Subscription.h"

#include <functional>

namespace velmora {

/// The main thread's loop. Timers are precise (within a millisecond or two, never early by more) and fire
/// while menus are open and windows are dragged. Everything runs on the thread that runs the loop.
class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// Runs the task later, in the order of posting, never inside this call. The one operation that any
    /// thread may call.
    virtual void post(std::function<void()> task) = 0;
    /// Runs the task once, unless the handle is gone by then.
    [[nodiscard]] virtual Subscription after(double seconds, std::function<void()> task) = 0;
    /// Runs the task every `seconds`, for the first time after one period, until the handle is gone. Periods
    /// that passed while the thread was busy are skipped, not made up for.
    [[nodiscard]] virtual Subscription every(double seconds, std::function<void()> task) = 0;

    enum class Readiness { readable, writable, exceptional };
    /// Runs the task whenever the descriptor is ready, until the handle is gone. The descriptor must stay
    /// open for as long.
    [[nodiscard]] virtual Subscription watch(int descriptor, Readiness readiness,
                                             std::function<void()> task) = 0;
};

}  // namespace velmora
