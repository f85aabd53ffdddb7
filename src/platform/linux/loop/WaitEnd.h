#pragma once

#include "platform/linux/files/FileDescriptor.h"

namespace velmora {

/// Waits for a descriptor in a way that another thread can end for good.
class WaitEnd {
public:
    enum class Outcome { ready, timedOut, ended };

    WaitEnd();
    /// Waits until the descriptor is ready for the events of `poll`, or broken.
    Outcome wait(int descriptor, short events, double seconds) const;
    /// Ends the waits under way, and those to come at once. Callable from any thread.
    void end() const;

private:
    FileDescriptor m_ended;
};

}  // namespace velmora
