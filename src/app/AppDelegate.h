#pragma once

#include "base/Date.h"
#include "base/LifeGuard.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "model/StatsModule.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

class AppSettings;
class Clock;
class ImproveEvents;
class L10n;
class ProcessMeter;
class RunLoop;
class StatsEngine;
class StatusItemController;
struct Anchor;

/// The program's life: what starts in which order, what a URL from outside does, how the program measures its
/// own weight, and what happens at its end. Main thread only.
class AppDelegate {
public:
    struct Collaborators {
        AppSettings& settings;
        L10n& l10n;
        RunLoop& runLoop;
        const Clock& clock;
        const ProcessMeter& processMeter;
        ImproveEvents& improveEvents;
        /// The modules that are shown as widgets.
        const Published<ModuleSet>& placedModules;
        /// Starts the engine.
        std::function<void()> startEngine;
        /// Makes the items; called once, after the engine has figures.
        std::function<std::unique_ptr<StatusItemController>()> makeStatusItems;
        /// Ends the tools that an earlier run left behind.
        std::function<void()> reapOrphans;
        /// Ends the tools of this run.
        std::function<void()> terminateTools;
    };

    explicit AppDelegate(Collaborators collaborators);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;
    ~AppDelegate();

    void applicationDidFinishLaunching();
    /// Drops what must not outlive the loop. Every setting has been stored when it was made.
    void applicationWillTerminate();

    /// A URL from the browser or the command line. A text that is no URL, or one that nobody accepts, does
    /// nothing.
    void handleURL(const std::string& text);
    /// Whether the sign-in takes the URL; none while there is no sign-in.
    void setCallbackHandler(std::function<bool(const std::string& url)> handle) {
        m_handleCallback = std::move(handle);
    }
    /// What follows a URL that was taken.
    void setAccountPageOpener(std::function<void()> open) { m_openAccountPage = std::move(open); }

    /// Does what a click on the module's item does. A panel without a known item opens at `otherwise`.
    void togglePanel(StatsModule module, const Anchor& otherwise);

    /// Sends what machine and choices the program runs with, once a run.
    void recordEnvironment();
    /// Sends the program's own load since the last measure.
    void recordSelfLoad();

private:
    void startSelfLoadReporting();

    Collaborators m_with;
    std::unique_ptr<StatusItemController> m_statusItems;
    std::function<bool(const std::string&)> m_handleCallback;
    std::function<void()> m_openAccountPage;

    Subscription m_environmentTimer;
    Subscription m_selfLoadTimer;
    std::optional<double> m_lastCPUTimeSeconds;
    std::optional<Date> m_lastCPUSampleAt;
    LifeGuard m_life;
};

}  // namespace velmora
