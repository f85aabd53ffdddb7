#pragma once

#include "model/StatsModule.h"
#include "platform/StatusBar.h"

namespace velmora {

/// Opens the modules' panels. A panel exists only while it is open.
class PanelHost {
public:
    virtual ~PanelHost() = default;
    /// Opens the module's panel beside the anchor; closes it if it is this module's that is open.
    virtual void toggle(StatsModule module, const Anchor& anchor) = 0;
};

}  // namespace velmora
