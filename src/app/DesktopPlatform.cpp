#include "app/DesktopPlatform.h"

#include "app/ApplicationService.h"
#include "app/StoredBarChoice.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/desktop/AutostartLoginItem.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/DesktopSurroundings.h"
#include "platform/linux/desktop/LinuxDisplay.h"
#include "platform/linux/desktop/LinuxProcessIconSource.h"
#include "platform/linux/desktop/LinuxShortcutTargets.h"
#include "platform/linux/desktop/LinuxSystemLog.h"
#include "platform/linux/desktop/LinuxWorkspace.h"
#include "platform/linux/files/XdgFolders.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/linux/processes/LinuxProcessMeter.h"
#include "platform/linux/store/JsonBundle.h"
#include "platform/linux/store/SqliteDefaults.h"
#include "platform/null/NullImproveEvents.h"
#include "platform/null/NullNetworkSources.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/SwitchingStatusBar.h"
#include "platform/qt/desktop/ApplicationStarter.h"
#include "platform/qt/language/QtFrameworkLanguage.h"
#include "platform/qt/language/QtPreferredLanguages.h"
#include "platform/qt/services/QtPowerDeviceService.h"
#include "platform/qt/services/QtPowerProfileService.h"
#include "platform/qt/services/QtUpstreamNameServers.h"
#include "platform/qt/x11/X11WindowBlur.h"

#include <cstdlib>

namespace velmora {
namespace {

/// An AppImage's executable lies in a mount that goes with the process; its file is what can be started
/// again.
std::string startableExecutable(const Bundle& bundle) {
    if (const char* appImage = std::getenv("APPIMAGE")) return appImage;
    return bundle.executablePath().value_or("");
}

std::filesystem::path below(std::filesystem::path folder, const char* name) {
    folder /= name;
    return folder;
}

std::unique_ptr<LoginItem> loginItem(const Bundle& bundle) {
    AutostartEntry entry;
    entry.identifier = ApplicationService::kBusName;
    entry.executable = startableExecutable(bundle);
    entry.userFolder = below(xdgConfigHome(), "autostart");
    for (const auto& folder : xdgConfigDirs()) entry.systemFolders.push_back(below(folder, "autostart"));
    return std::make_unique<AutostartLoginItem>(std::move(entry));
}

/// A program tells who it is by its name on the session bus. Only a copy that has an identifier itself asks.
std::map<std::int64_t, std::string> bundleIdentifiers(const Bundle& bundle) {
    const auto identifier = bundle.identifier();
    if (!identifier) return {};
    const std::int64_t owner = ApplicationService::ownerProcess();
    if (owner == 0) return {};
    return {{owner, *identifier}};
}

/// Made before the program chooses its own language: names are in the user's.
void addApplications(Platform& platform, const std::shared_ptr<ApplicationStarter>& starter) {
    const DesktopSurroundings surroundings = DesktopSurroundings::ofThisProcess();
    const auto entries = std::make_shared<DesktopEntries>(
        surroundings, DesktopEntryLocales(platform.preferredLanguages->tags()));
    platform.shortcutTargets = std::make_unique<LinuxShortcutTargets>(
        entries, surroundings, ApplicationService::kBusName,
        [starter](const ApplicationLaunch& launch) { starter->start(launch); });
    platform.processIcons = std::make_unique<LinuxProcessIconSource>(SystemRoot(), entries);
    // Once the program runs: the first panel is not to wait for it, nor the first item.
    platform.runLoop->post([entries, &worker = *platform.walkWorker, &runLoop = *platform.runLoop] {
        DesktopEntries::readAhead(entries, worker, runLoop);
    });
}

}  // namespace

Platform desktopPlatform() {
    Platform platform;
    // Keeps the user's environment for what is started, before the program chooses its own language.
    const auto starter = std::make_shared<ApplicationStarter>();
    platform.clock = std::make_unique<SystemClock>();
    platform.systemLog = std::make_unique<LinuxSystemLog>(*platform.clock);
    platform.runLoop = std::make_unique<QtRunLoop>();
    platform.bundle = std::make_unique<JsonBundle>(JsonBundle::ofThisProcess());
    platform.defaults = std::make_unique<SqliteDefaults>(defaultsFile(), *platform.runLoop, *platform.clock,
                                                         *platform.systemLog);
    platform.preferredLanguages = std::make_unique<QtPreferredLanguages>();
    platform.loginItem = loginItem(*platform.bundle);
    platform.workspace =
        std::make_unique<LinuxWorkspace>([&bundle = *platform.bundle] { return bundleIdentifiers(bundle); },
                                         [starter](const std::string& url) { starter->openURL(url); });
    platform.display = std::make_unique<LinuxDisplay>();
    platform.processMeter = std::make_unique<LinuxProcessMeter>();
    platform.improveEvents = std::make_unique<NullImproveEvents>();
    // The services connect to the system bus at the first question, once the engine runs.
    platform.monotonicClock = std::make_unique<BootTimeClock>();
    platform.upstreamNameServers = std::make_unique<QtUpstreamNameServers>(*platform.monotonicClock);
    platform.powerDevices = std::make_unique<QtPowerDeviceService>();
    platform.powerProfiles = std::make_unique<QtPowerProfileService>();
    platform.location = std::make_unique<NullLocationAuthorization>();  // Nothing asks for it here.
    addLinuxWorkers(platform);
    addApplications(platform, starter);
    addLinuxSources(platform, SystemRoot());
    return platform;
}

Toolkit addToolkit(Platform& platform) {
    platform.frameworkLanguage = std::make_unique<QtFrameworkLanguage>(platform.preferredLanguages->tags());
    auto statusBar = std::make_unique<SwitchingStatusBar>(*platform.runLoop, Session::current(),
                                                          storedBarChoice(*platform.defaults));
    Subscription choice = followStoredBarChoice(
        *platform.defaults,
        [&bar = *statusBar](const StatusBarPreferences& preferences) { bar.setPreferences(preferences); });
    auto scheme = std::make_unique<InterfaceScheme>(statusBar->colors());
    platform.statusBar = std::move(statusBar);
    platform.windowBlur = std::make_unique<X11WindowBlur>();
    auto iconTheme = std::make_unique<IconThemeName>(SessionBus(), IconThemeName::Places::ofUser(),
                                                     isIconThemeInstalled, useIconTheme);
    return {std::move(choice), std::move(scheme), std::move(iconTheme)};
}

void endPlatform(Platform& platform) {
    platform.statusBar.reset();
    platform.windowBlur.reset();
    platform.frameworkLanguage.reset();
    platform.defaults.reset();  // Closing the file folds its log into it.
}

}  // namespace velmora
