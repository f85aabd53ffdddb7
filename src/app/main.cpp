#include "app/AboutPanel.h"
#include "app/AppDelegate.h"
#include "app/ApplicationService.h"
#include "app/DesktopPlatform.h"
#include "app/PanelComposition.h"
#include "app/PanelController.h"
#include "app/QuitKey.h"
#include "app/SessionCheck.h"
#include "app/SharedInstances.h"
#include "app/SingleInstance.h"
#include "app/StoredLanguage.h"
#include "app/TerminationSignals.h"
#include "app/VisibilityGuard.h"
#include "core/AppSettings.h"
#include "core/StatsEngine.h"
#include "l10n/L10n.h"
#include "look/SystemFont.h"
#include "menubar/StatusItemController.h"
#include "panels/PanelAccessibility.h"
#include "panels/PanelFactory.h"
#include "panels/kit/ProcessIcons.h"
#include "platform/qt/language/LanguageEnvironment.h"
#include "platform/qt/tray/TrayAnchor.h"
#include "samplers/LiveTools.h"
#include "samplers/NetTopSampler.h"
#include "settings/window/SettingsWindowController.h"

#include <QApplication>

#include <cstdio>

namespace velmora {
namespace {

/// The arguments that are URLs of the program's scheme. Anything else on the command line means nothing.
std::vector<std::string> urlArguments(int argumentCount, char** arguments, const Bundle& bundle) {
    const QString prefix =
        QString::fromStdString(bundle.information("VMCallbackScheme").value_or("velmora")) + "://";
    std::vector<std::string> urls;
    for (int index = 1; index < argumentCount; ++index) {
        if (QString::fromLocal8Bit(arguments[index]).startsWith(prefix, Qt::CaseInsensitive)) {
            urls.emplace_back(arguments[index]);
        }
    }
    return urls;
}

/// Brings the settings window to the front, on the given tab or on the one that is selected.
void showSettings(std::optional<SettingsTab> tab) {
    SettingsWindowController::shared().show(tab);
}

std::unique_ptr<MenuView> makePanel(StatsModule module, std::function<void()> dismiss) {
    return makeMenuView(
        module,
        panelCollaborators(sharedPlatform(), StatsEngine::shared().snapshot(), AppSettings::shared(),
                           L10n::shared(), SettingsRouter::shared(), LiveTools::shared(), showSettings),
        std::move(dismiss));
}

std::unique_ptr<StatusItemController> makeStatusItems(Platform& platform, PanelHost& panels) {
    StatusItemController::Actions actions;
    actions.showSettings = [] { showSettings(std::nullopt); };
    actions.showAbout = [&platform] { showAboutPanel(L10n::shared(), *platform.bundle); };
    actions.quit = [] { QApplication::quit(); };
    return std::make_unique<StatusItemController>(StatsEngine::shared().snapshot(), AppSettings::shared(),
                                                  L10n::shared(), *platform.runLoop, *platform.statusBar,
                                                  panels, std::move(actions));
}

/// With very many processes the walk over them takes longer than the first item should wait for.
void reapOrphans(Platform& platform) {
    platform.walkWorker->async(
        [&platform] { NetTopSampler::reapOrphans(*platform.orphans, *platform.systemLog); });
}

int run(int argumentCount, char** arguments) {
    // First: what the program starts gets the environment as it is now.
    Platform& platform = sharedPlatform();
    SessionCheck::chooseWindowingBackend();
    LanguageEnvironment languageEnvironment;
    applyStoredLanguage(*platform.defaults, languageEnvironment);

    // A process that was started for a URL hands it to the copy that waits for it, and must not end that
    // copy.
    const std::vector<std::string> urls = urlArguments(argumentCount, arguments, *platform.bundle);
    if (!urls.empty() && ApplicationService::forward(urls)) return 0;

    std::optional<SessionCheck::DisplayCheck> display(std::in_place);
    if (const auto& problem = display->problem()) {
        std::fputs(("velmora: " + *problem + "\n").c_str(), stderr);
        return 1;
    }
    SingleInstance singleInstance(*platform.workspace, *platform.bundle, *platform.systemLog,
                                  *platform.runLoop, argumentCount > 0 ? arguments[0] : "velmora");
    singleInstance.terminateOthers();

    // A request to end that comes while the program starts is met once the loop turns.
    const TerminationSignals terminationSignals(*platform.runLoop, [] { QApplication::quit(); });

    QApplication application(argumentCount, arguments);
    display.reset();
    installPanelAccessibility();
    QApplication::setApplicationName("velmora");
    QApplication::setApplicationDisplayName("Velmora");
    QApplication::setDesktopFileName(ApplicationService::kBusName);
    QApplication::setQuitOnLastWindowClosed(false);
    if (!SystemFont::isInstalled()) {
        std::fputs("velmora: no fonts are installed, so no text can be shown\n", stderr);
    }
    Toolkit toolkit = addToolkit(platform);
    // Before any view hears of another language and asks for its font.
    Subscription fontFollowing = L10n::shared().language().subscribe(SystemFont::setLanguage);
    Subscription schemeFollowing =
        toolkit.interfaceScheme->scheme().subscribe([](Scheme scheme) { sharedScheme().set(scheme); });

    ProcessIcons processIcons(*platform.processIcons);
    std::optional<PanelController> panels;
    panels.emplace(makePanel, toolkit.interfaceScheme->scheme(), processIcons, *platform.runLoop,
                   Session::current());
    AppDelegate delegate(
        {AppSettings::shared(), L10n::shared(), *platform.runLoop, *platform.clock, *platform.processMeter,
         *platform.improveEvents, sharedPlacedModules(), [] { StatsEngine::shared().start(); },
         [&platform, &panels] { return makeStatusItems(platform, *panels); },
         [&platform] { reapOrphans(platform); }, [] { NetTopSampler::terminateAll(LiveTools::shared()); }});
    delegate.setAccountPageOpener([] { showSettings(SettingsTab::account); });
    ApplicationService service(
        {[] { showSettings(std::nullopt); }, [&delegate](const std::string& url) { delegate.handleURL(url); },
         [&delegate](const std::string& name) {
             if (const auto module = moduleFromRawValue(name))
                 delegate.togglePanel(*module, cornerAnchor(Session::current().windows, ScreenPlace::all()));
         }});
    if (!service.start()) {
        std::fputs("velmora: there is no session bus, so no tray can show the items\n", stderr);
    }
    const QuitKey quitKey;
    std::optional<VisibilityGuard> visibilityGuard;
    visibilityGuard.emplace(*platform.statusBar, *platform.runLoop, [] { showSettings(std::nullopt); });

    platform.runLoop->post([&delegate, &urls] {
        delegate.applicationDidFinishLaunching();
        for (const std::string& url : urls) delegate.handleURL(url);
    });
    const int status = QApplication::exec();
    delegate.applicationWillTerminate();
    panels.reset();
    visibilityGuard.reset();
    SettingsWindowController::shared().dropWindow();
    schemeFollowing.reset();
    fontFollowing.reset();
    toolkit = {};
    endPlatform(platform);
    return status;
}

}  // namespace
}  // namespace velmora

int main(int argumentCount, char** arguments) {
    return velmora::run(argumentCount, arguments);
}
