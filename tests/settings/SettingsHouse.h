#pragma once

#include "core/AppSettings.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakePreferredLanguages.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "fakes/FakeWindowBlur.h"
#include "l10n/L10n.h"
#include "menubar/SampleSnapshots.h"
#include "settings/window/SettingsCollaborators.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QWidget>

namespace velmora {

/// Everything that the settings window stands on, over doubles. Two tabs have a page of one line.
struct SettingsHouse {
    SettingsHouse() { snapshot.set(busySnapshot()); }

    SettingsCollaborators collaborators() {
        const auto line = [](const char* words) {
            return [words](QWidget* parent) -> QWidget* {
                return new QLabel(QString::fromLatin1(words), parent);
            };
        };
        return {router,
                settings,
                l10n,
                snapshot,
                scheme,
                bundle,
                runLoop,
                blur,
                {{SettingsTab::general, line("general page")}, {SettingsTab::about, line("about page")}}};
    }
    /// As if a tick had brought new figures of these modules.
    void publish(ModuleSet updated) {
        StatsSnapshot next = snapshot.get();
        next.cpu.usage = next.cpu.usage > 0.5 ? 0.1 : 0.9;
        next.updated = updated;
        snapshot.set(next);
    }
    void speak(AppLanguage language) { l10n.apply(std::string(rawValue(language))); }
    /// Deletes what was told to go, as the loop does between two events.
    static void sweep() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeDefaults defaults;
    FakeBundle bundle;
    FakeLoginItem loginItem;
    FakeSystemLog log;
    FakePreferredLanguages preferredLanguages;
    FakeFrameworkLanguage framework;
    AppSettings settings{defaults, bundle, loginItem, log};
    L10n l10n{defaults, preferredLanguages, framework};
    Published<StatsSnapshot> snapshot;
    Published<Scheme> scheme{Scheme::light};
    SettingsRouter router;
    FakeWindowBlur blur;
};

}  // namespace velmora
