#include "PanelShots.h"

#include "app/PanelComposition.h"
#include "core/AppSettings.h"
#include "core/SettingsRouter.h"
#include "l10n/L10n.h"
#include "panels/PanelFactory.h"
#include "panels/PanelWindow.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/desktop/LinuxProcessIconSource.h"
#include "platform/linux/desktop/LinuxShortcutTargets.h"
#include "platform/linux/loop/BootTimeClock.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/linux/store/JsonBundle.h"
#include "platform/null/NullPlatform.h"
#include "samplers/LiveTools.h"

#include <memory>
#include <string>
#include <utility>

namespace velmora {
namespace {

/// Until every panel has its list: the traffic of processes comes in blocks of two seconds.
constexpr double kListSeconds = 3.5;
/// Higher than any panel.
constexpr DesktopRect kScreen{0, 0, 1000, 8000};

void addLiveProcesses(Platform& platform, AppLanguage language) {
    platform.monotonicClock = std::make_unique<BootTimeClock>();
    platform.bundle = std::make_unique<JsonBundle>(JsonBundle::ofThisProcess());
    addLinuxWorkers(platform);
    addLinuxSources(platform, SystemRoot());
    const DesktopSurroundings surroundings = DesktopSurroundings::ofThisProcess();
    const auto entries = std::make_shared<DesktopEntries>(
        surroundings, DesktopEntryLocales({std::string(rawValue(language))}));
    platform.shortcutTargets = std::make_unique<LinuxShortcutTargets>(entries, surroundings, std::string(),
                                                                      [](const ApplicationLaunch&) {});
    platform.processIcons = std::make_unique<LinuxProcessIconSource>(SystemRoot(), entries);
}

QImage pictureOf(PanelWindow& window) {
    window.open({}, kScreen, kScreen);
    QImage picture = window.grab().toImage();
    picture.setDevicePixelRatio(1);
    return picture;
}

}  // namespace

std::vector<Shot> takePanelShots(const ShotOptions& options, const StatsSnapshot& snapshot) {
    auto ownedLoop = std::make_unique<HeadlessRunLoop>();
    HeadlessRunLoop& loop = *ownedLoop;
    Platform platform = nullPlatform(std::make_unique<SystemClock>(), std::move(ownedLoop));
    const bool isLive = !options.figures;
    if (isLive) addLiveProcesses(platform, options.language);

    AppSettings settings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    L10n l10n(*platform.defaults, *platform.preferredLanguages, *platform.frameworkLanguage);
    l10n.apply(std::string(rawValue(options.language)));
    SettingsRouter router;
    LiveTools tools;
    ProcessIcons icons(*platform.processIcons);
    const Published<StatsSnapshot> figures(snapshot);
    const Published<Scheme> scheme(options.scheme == ShotOptions::Scheme::dark ? Scheme::dark
                                                                               : Scheme::light);
    const PanelCollaborators with = panelCollaborators(platform, figures, settings, l10n, router, tools, {});

    std::vector<std::unique_ptr<MenuView>> contents;
    for (const StatsModule module : options.modules) contents.push_back(makeMenuView(module, with, {}));
    if (isLive) {
        const Subscription end = loop.after(kListSeconds, [&loop] { loop.quit(); });
        loop.run();
    }
    std::vector<Shot> shots;
    for (auto& content : contents) {
        const std::string name = "panel-" + std::string(rawValue(content->module()));
        PanelWindow window(std::move(content), scheme, icons, loop,
                           {PanelWindow::Kind::popup, PanelBackdrop::Corners::round});
        shots.push_back({name, "panels", pictureOf(window)});
    }
    return shots;
}

}  // namespace velmora
