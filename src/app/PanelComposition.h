#pragma once

#include "panels/PanelCollaborators.h"

namespace velmora {

class LiveTools;
struct Platform;

/// What panels over this platform are made of. Each open panel gets samplers of its own from it; everything
/// that is handed in must outlive the panels.
PanelCollaborators panelCollaborators(Platform& platform, const Published<StatsSnapshot>& snapshot,
                                      AppSettings& settings, const L10n& l10n, SettingsRouter& router,
                                      LiveTools& liveTools, ShowSettings showSettings);

}  // namespace velmora
