#pragma once

#include "base/LifeGuard.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "look/Scheme.h"
#include "menubar/PanelHost.h"
#include "panels/PanelWindow.h"
#include "platform/qt/session/Session.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class MenuView;
class OutsideClickShield;
class ProcessIcons;
class RunLoop;

/// Opens the modules' panels, at most one at a time, and closes them: on Escape, on a click elsewhere, on a
/// second click of their item, and when their content says so. Each opening makes a new panel; a closed one
/// is gone, with its timers and samplers, as soon as what closed it has run to its end. Main thread only.
class PanelController final : public PanelHost {
public:
    /// Makes the content of a module's panel. `dismiss` closes the panel; it does nothing once the panel is
    /// closed.
    using MakeView =
        std::function<std::unique_ptr<MenuView>(StatsModule module, std::function<void()> dismiss)>;

    PanelController(MakeView makeView, const Published<Scheme>& scheme, ProcessIcons& icons, RunLoop& runLoop,
                    const Session& session);
    PanelController(const PanelController&) = delete;
    PanelController& operator=(const PanelController&) = delete;
    ~PanelController() override;

    void toggle(StatsModule module, const Anchor& anchor) override;
    void close();

    /// Null while no panel is open.
    PanelWindow* window() const { return m_window.get(); }
    /// Null where the window itself notices clicks elsewhere, and while no panel is open.
    OutsideClickShield* shield() const { return m_shield.get(); }

    /// A click on the item of an open panel makes another window the active one first, and the desktop tells
    /// of the click after that. For so long it counts as the click that closed the panel.
    static constexpr double kSameClickSeconds = 0.3;

private:
    void open(StatsModule module, const Anchor& anchor);
    void raiseShield();
    void closeWithScreen();
    void clickedElsewhere(QPoint at);
    void lostKeyboard();
    void drop();

    const MakeView m_makeView;
    const Published<Scheme>& m_scheme;
    ProcessIcons& m_icons;
    RunLoop& m_runLoop;
    const Session m_session;

    std::unique_ptr<PanelWindow> m_window;
    std::unique_ptr<OutsideClickShield> m_shield;
    /// Closed, but perhaps still inside one of their events.
    std::vector<std::unique_ptr<QWidget>> m_closed;
    /// The panel that this click has closed already.
    std::optional<StatsModule> m_closedByClick;
    Subscription m_sameClick;
    LifeGuard m_life;
};

}  // namespace velmora
