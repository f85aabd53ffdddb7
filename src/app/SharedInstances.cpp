// The process-wide objects: made on first use, never torn down. They are defined here alone, in the
// executable, so that a test that reaches for one does not link.

#include "app/SharedInstances.h"

#include "app/DesktopPlatform.h"
#include "app/SettingsComposition.h"
#include "core/AppSettings.h"
#include "core/SettingsRouter.h"
#include "core/StatsEngine.h"
#include "l10n/L10n.h"
#include "samplers/LiveTools.h"
#include "samplers/SamplerSet.h"
#include "settings/window/SettingsWindowController.h"

namespace velmora {

Platform& sharedPlatform() {
    static auto* const platform = new Platform(desktopPlatform());
    return *platform;
}

Published<ModuleSet>& sharedPlacedModules() {
    static auto* const modules = new Published<ModuleSet>;
    return *modules;
}

Published<Scheme>& sharedScheme() {
    static auto* const scheme = new Published<Scheme>(Scheme::light);
    return *scheme;
}

AppSettings& AppSettings::shared() {
    Platform& platform = sharedPlatform();
    static auto* const settings =
        new AppSettings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    return *settings;
}

L10n& L10n::shared() {
    Platform& platform = sharedPlatform();
    static auto* const l10n =
        new L10n(*platform.defaults, *platform.preferredLanguages, *platform.frameworkLanguage);
    return *l10n;
}

StatsEngine& StatsEngine::shared() {
    Platform& platform = sharedPlatform();
    static auto* const samplers = new SamplerSet(platform);
    static auto* const engine =
        new StatsEngine(*platform.clock, *platform.runLoop, *platform.defaults, AppSettings::shared(),
                        *platform.display, *platform.improveEvents, sharedPlacedModules(), samplers->view());
    return *engine;
}

SettingsRouter& SettingsRouter::shared() {
    static auto* const router = new SettingsRouter;
    return *router;
}

SettingsWindowController& SettingsWindowController::shared() {
    static auto* const controller = new SettingsWindowController(
        settingsCollaborators(sharedPlatform(), StatsEngine::shared().snapshot(), AppSettings::shared(),
                              L10n::shared(), SettingsRouter::shared(), sharedScheme()));
    return *controller;
}

LiveTools& LiveTools::shared() {
    static auto* const tools = new LiveTools;
    return *tools;
}

}  // namespace velmora
