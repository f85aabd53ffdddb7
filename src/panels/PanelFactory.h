#pragma once

#include "panels/MenuView.h"
#include "panels/PanelCollaborators.h"

#include <functional>
#include <memory>

namespace velmora {

/// Makes the content of the module's panel, as it opens. `dismiss` closes the panel; it may destroy what is
/// made here.
std::unique_ptr<MenuView> makeMenuView(StatsModule module, const PanelCollaborators& with,
                                       std::function<void()> dismiss);

}  // namespace velmora
