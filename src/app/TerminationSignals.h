#pragma once

#include "base/Subscription.h"

#include <functional>

namespace velmora {

class RunLoop;

/// Turns SIGTERM and SIGINT into a call on the main loop, so that the program ends as it does from its menu.
/// One object at a time.
class TerminationSignals {
public:
    TerminationSignals(RunLoop& runLoop, std::function<void()> terminate);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

private:
    Subscription m_watch;
};

}  // namespace velmora
