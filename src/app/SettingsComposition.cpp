#include "app/SettingsComposition.h"

#include "platform/Platform.h"
#include "settings/pages/AboutTab.h"
#include "settings/pages/GeneralTab.h"

namespace velmora {

SettingsCollaborators settingsCollaborators(Platform& platform, const Published<StatsSnapshot>& snapshot,
                                            AppSettings& settings, L10n& l10n, SettingsRouter& router,
                                            const Published<Scheme>& scheme) {
    const auto makeGeneral = [&settings, &l10n](QWidget* parent) -> QWidget* {
        return new GeneralTab(settings, l10n, parent);
    };
    const auto makeAbout = [&platform, &settings, &l10n](QWidget* parent) -> QWidget* {
        return new AboutTab({settings, l10n, *platform.bundle, *platform.workspace}, parent);
    };
    return {.router = router,
            .settings = settings,
            .l10n = l10n,
            .snapshot = snapshot,
            .scheme = scheme,
            .bundle = *platform.bundle,
            .runLoop = *platform.runLoop,
            .blur = *platform.windowBlur,
            .pages = {{SettingsTab::general, makeGeneral}, {SettingsTab::about, makeAbout}}};
}

}  // namespace velmora
