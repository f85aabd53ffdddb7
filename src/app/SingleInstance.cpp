#include "app/SingleInstance.h"

#include "base/FormatText.h"
#include "platform/Bundle.h"
#include "platform/RunLoop.h"
#include "platform/SystemLog.h"

namespace velmora {
namespace {

constexpr double kSecondsUntilForce = 3.0;

std::string lastComponent(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1);
}

}  // namespace

SingleInstance::SingleInstance(const Workspace& workspace, const Bundle& bundle, SystemLog& log,
                               RunLoop& runLoop, std::string firstArgument)
    : m_workspace(workspace),
      m_bundle(bundle),
      m_log(log),
      m_runLoop(runLoop),
      m_executableName(lastComponent(bundle.executablePath().value_or(std::move(firstArgument)))) {}

bool SingleInstance::isDuplicate(const RunningApplication& application) const {
    if (application.pid == m_workspace.ownProcess()) return false;
    const auto identifier = m_bundle.identifier();
    if (identifier && application.bundleIdentifier == identifier) return true;
    return application.executablePath && lastComponent(*application.executablePath) == m_executableName;
}

void SingleInstance::terminateOthers() {
    for (const RunningApplication& application : m_workspace.runningApplications()) {
        if (!isDuplicate(application)) continue;
        auto held = m_workspace.hold(application);
        if (!held) continue;  // Ended between the listing and now.
        m_log.write(formatText("Velmora: terminating duplicate instance pid=%d (%@)",
                               {application.pid, application.executablePath.value_or("unknown path")}));
        held->terminate();
        m_duplicates.push_back({application.pid, std::move(held)});
    }
    if (m_duplicates.empty()) return;
    m_forceTimer = m_runLoop.after(kSecondsUntilForce, [this] { forceTerminateRemaining(); });
}

void SingleInstance::forceTerminateRemaining() {
    for (const Duplicate& duplicate : m_duplicates) {
        if (duplicate.application->isTerminated()) continue;
        m_log.write(formatText("Velmora: force-terminating unresponsive duplicate pid=%d", {duplicate.pid}));
        duplicate.application->forceTerminate();
    }
    m_duplicates.clear();
}

}  // namespace velmora
