#pragma once

#include "base/LifeGuard.h"
#include "base/Subscription.h"
#include "model/StatsSnapshot.h"
#include "panels/MenuView.h"
#include "panels/PanelCollaborators.h"
#include "panels/PanelContext.h"

#include <functional>
#include <vector>

namespace velmora {

/// What the modules' panels have in common: they answer anew when their figures were sampled and when the
/// settings or the language changed.
class ModuleMenuView : public MenuView {
public:
    ModuleMenuView(const ModuleMenuView&) = delete;
    ModuleMenuView& operator=(const ModuleMenuView&) = delete;

    StatsModule module() const final { return m_module; }

protected:
    /// `sources` are the modules whose figures the panel shows.
    ModuleMenuView(StatsModule module, ModuleSet sources, const PanelCollaborators& with,
                   std::function<void()> dismiss);

    const PanelCollaborators& with() const { return m_with; }
    const StatsSnapshot& figures() const { return m_with.snapshot.get(); }
    /// With what stands in the settings now.
    PanelContext context() const;
    /// For what brings a list.
    std::function<void()> tellOfChange() {
        return [this] { changed.fire(); };
    }

private:
    const StatsModule m_module;
    const PanelCollaborators m_with;
    FooterIconRow m_footer;
    LifeGuard m_life;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
