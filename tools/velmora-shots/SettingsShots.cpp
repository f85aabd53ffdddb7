#include "SettingsShots.h"

#include "app/SettingsComposition.h"
#include "core/AppSettings.h"
#include "core/SettingsRouter.h"
#include "l10n/L10n.h"
#include "platform/linux/loop/HeadlessRunLoop.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/linux/store/JsonBundle.h"
#include "platform/null/NullPlatform.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/window/DetailPane.h"
#include "settings/window/SettingsFrames.h"
#include "settings/window/SettingsView.h"

#include <QCoreApplication>
#include <QScrollBar>

#include <algorithm>

namespace velmora {
namespace {

QImage pictureOf(SettingsView& view, SettingsTab tab, Scheme scheme) {
    setScheme(view, scheme);
    view.resize(SettingsFrames::tabWidth(tab), SettingsFrames::kHeight);
    view.show();
    QCoreApplication::processEvents();
    view.resize(view.width(), view.height() + view.detail().verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    QImage picture = view.grab().toImage();
    picture.setDevicePixelRatio(1);
    return picture;
}

}  // namespace

std::vector<Shot> takeSettingsShots(const ShotOptions& options, const StatsSnapshot& snapshot) {
    Platform platform = nullPlatform(std::make_unique<SystemClock>(), std::make_unique<HeadlessRunLoop>());
    platform.bundle = std::make_unique<JsonBundle>(JsonBundle::ofThisProcess());
    AppSettings settings(*platform.defaults, *platform.bundle, *platform.loginItem, *platform.systemLog);
    L10n l10n(*platform.defaults, *platform.preferredLanguages, *platform.frameworkLanguage);
    const std::string language(rawValue(options.language));
    settings.setLanguageCode(language);
    l10n.apply(language);
    SettingsRouter router;
    const Published<StatsSnapshot> figures(snapshot);
    const Published<Scheme> scheme(options.scheme == ShotOptions::Scheme::dark ? Scheme::dark
                                                                               : Scheme::light);
    const SettingsCollaborators with =
        settingsCollaborators(platform, figures, settings, l10n, router, scheme);

    std::vector<Shot> shots;
    const auto take = [&](const std::string& name) {
        SettingsView view(with);
        shots.push_back({name, name, pictureOf(view, router.selectedTab.get(), scheme.get())});
    };
    for (const SettingsTab tab : kAllSettingsTabs) {
        if (!with.hasPage(tab)) continue;
        router.selectedTab.set(tab);
        const std::string name = "settings-" + std::string(rawValue(tab));
        if (tab != SettingsTab::modules) {
            take(name);
            continue;
        }
        for (const StatsModule module : options.modules) {
            router.selectedModule.set(module);
            take(name + "-" + std::string(rawValue(module)));
        }
    }
    return shots;
}

}  // namespace velmora
