#pragma once

#include "base/Subscription.h"
#include "platform/Workspace.h"

#include <memory>
#include <string>
#include <vector>

namespace velmora {

class Bundle;
class RunLoop;
class SystemLog;

/// Only one copy of the program runs, and the newest wins: it asks the older ones to end and ends those that
/// are still there three seconds later. Both copies live side by side in between.
class SingleInstance {
public:
    /// `firstArgument` is the command that the program was started with; it names the executable where the
    /// bundle cannot.
    SingleInstance(const Workspace& workspace, const Bundle& bundle, SystemLog& log, RunLoop& runLoop,
                   std::string firstArgument);

    /// Returns at once. The later step comes three seconds from now, or when the run loop first turns after
    /// that, if this object lives by then.
    void terminateOthers();

private:
    struct Duplicate {
        std::int64_t pid;
        std::unique_ptr<Workspace::Application> application;
    };
    bool isDuplicate(const RunningApplication& application) const;
    void forceTerminateRemaining();

    const Workspace& m_workspace;
    const Bundle& m_bundle;
    SystemLog& m_log;
    RunLoop& m_runLoop;
    std::string m_executableName;
    std::vector<Duplicate> m_duplicates;
    Subscription m_forceTimer;
};

}  // namespace velmora
