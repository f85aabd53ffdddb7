#include "panels/ModuleMenuView.h"

#include "core/AppSettings.h"
#include "l10n/L10n.h"
#include "panels/FooterShortcuts.h"
#include "platform/RunLoop.h"

#include <algorithm>
#include <utility>

namespace velmora {

ModuleMenuView::ModuleMenuView(StatsModule module, ModuleSet sources, const PanelCollaborators& with,
                               std::function<void()> dismiss)
    : m_module(module), m_with(with) {
    m_subscriptions.push_back(m_with.snapshot.subscribe([this, sources](const StatsSnapshot& snapshot) {
        const auto wasSampled = [&](StatsModule source) {
            return sources.contains(source) && snapshot.updated.contains(source);
        };
        if (std::ranges::any_of(kAllModules, wasSampled)) changed.fire();
    }));
    // The signal fires before the new value stands, hence the hop.
    m_subscriptions.push_back(m_with.settings.willChange().subscribe(
        [this] { m_with.runLoop.post(m_life.wrap([this] { changed.fire(); })); }));
    // Runs at once for the first time. Which tools are installed is looked up here and not at every figure.
    m_subscriptions.push_back(
        m_with.l10n.language().subscribe([this, dismiss = std::move(dismiss)](AppLanguage) {
            const FooterShortcuts shortcuts(m_with.shortcutTargets, m_with.router, m_with.showSettings,
                                            m_with.l10n);
            m_footer.shortcuts = shortcuts.forModule(m_module, dismiss);
            changed.fire();
        }));
}

PanelContext ModuleMenuView::context() const {
    return {m_module, m_with.settings, m_with.l10n, m_footer};
}

}  // namespace velmora
