#pragma once

namespace velmora {

/// Time that only goes forward at its own pace, for measuring spans. Callable from any thread.
class MonotonicClock {
public:
    virtual ~MonotonicClock() = default;
    /// Seconds since some fixed moment.
    virtual double seconds() const = 0;
};

}  // namespace velmora
