#pragma once

#include "base/Subscription.h"

#include <functional>

namespace velmora {

class RunLoop;
class StatusBar;

/// Keeps the program from running unseen: where the status bar has no place to show the items, something else
/// is opened, once for each time that the place is lost. Hosts that start late or are restarted get some
/// seconds. Everything that is handed in outlives it. Main thread only.
class VisibilityGuard {
public:
    static constexpr double kPatienceSeconds = 5.0;

    VisibilityGuard(StatusBar& statusBar, RunLoop& runLoop, std::function<void()> open);

private:
    void look();

    const StatusBar& m_statusBar;
    RunLoop& m_runLoop;
    std::function<void()> m_open;
    Subscription m_patience;  ///< Kept until the items are seen again, also after it has run out.
    Subscription m_changes;
};

}  // namespace velmora
