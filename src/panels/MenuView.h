#pragma once

#include "base/Signal.h"
#include "model/StatsModule.h"
#include "panels/kit/Views.h"

namespace velmora {

/// The content of one open panel: made when the panel opens, with its timer and its sampler, and gone with
/// it. Main thread only.
class MenuView {
public:
    virtual ~MenuView() = default;
    virtual StatsModule module() const = 0;
    /// What the panel shows now.
    virtual MenuPanel panel() const = 0;
    /// `panel` answers anew.
    Signal<> changed;
};

}  // namespace velmora
