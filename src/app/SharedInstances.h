#pragma once

#include "base/Published.h"
#include "look/Scheme.h"
#include "model/StatsModule.h"
#include "platform/Platform.h"

namespace velmora {

/// The one platform of this process; made on first use, never torn down.
Platform& sharedPlatform();
/// The modules that a widget host shows; empty while none is connected.
Published<ModuleSet>& sharedPlacedModules();
/// Whether the interface is light or dark; light until the desktop has been asked.
Published<Scheme>& sharedScheme();

}  // namespace velmora
