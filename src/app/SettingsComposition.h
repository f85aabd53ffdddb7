#pragma once

#include "settings/window/SettingsCollaborators.h"

namespace velmora {

struct Platform;

/// What the settings window over this platform stands on, with the pages that exist. Everything that is
/// handed in must outlive the window.
SettingsCollaborators settingsCollaborators(Platform& platform, const Published<StatsSnapshot>& snapshot,
                                            AppSettings& settings, L10n& l10n, SettingsRouter& router,
                                            const Published<Scheme>& scheme);

}  // namespace velmora
