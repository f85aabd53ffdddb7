#pragma once

#include "base/LifeGuard.h"
#include "base/Published.h"
#include "base/Subscription.h"
#include "look/Scheme.h"
#include "panels/MenuView.h"
#include "panels/PanelBackdrop.h"
#include "platform/PanelPlacement.h"

#include <QPoint>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QScrollArea;

namespace velmora {

class BlendScroller;
class PanelWidget;
class ProcessIcons;
class RunLoop;

/// The window of one open panel. It shows what its content answers, follows its height with the edge at the
/// anchor's side in place, and scrolls what is taller than the screen. It is used once: who made it destroys
/// it, and its content with it, after it was closed.
class PanelWindow final : public QWidget {
    Q_OBJECT
public:
    /// How the window stands among the others of the desktop.
    enum class Kind : std::uint8_t {
        popup,      ///< Grabs pointer and keyboard.
        tool,       ///< On top and managed by the window manager, which gives it the keyboard.
        unmanaged,  ///< Where we put it, on top, out of the window manager's reach.
        plain,      ///< An ordinary window without a frame; the compositor places it.
    };
    struct Manner {
        Kind kind = Kind::popup;
        PanelBackdrop::Corners corners = PanelBackdrop::Corners::round;
    };

    static constexpr int kWidth = 300;
    /// Above and below the panel, for the line around it.
    static constexpr int kMargin = 1;

    PanelWindow(std::unique_ptr<MenuView> content, const Published<Scheme>& scheme, ProcessIcons& icons,
                RunLoop& runLoop, Manner manner);
    ~PanelWindow() override;

    /// Shows the panel beside the anchor, on the given screen. Once.
    void open(const Anchor& anchor, const DesktopRect& screen, const DesktopRect& available);

    StatsModule module() const { return m_content->module(); }

    /// Escape was pressed, or the toolkit closed the window. Each callback may be called from inside an event
    /// of this window, so it must not destroy it at once.
    std::function<void()> closed;
    /// A popup was open and the click was elsewhere, at this point of the desktop.
    std::function<void(QPoint at)> pressedOutside;
    /// Another window has the keyboard now. Only a managed window is told.
    std::function<void()> deactivated;
    /// The window has another place or size.
    std::function<void(const QRect& geometry)> placed;

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void contentChanged();
    void showContent();
    int wantedHeight() const;
    void takePlace(const DesktopRect& place);

    const std::unique_ptr<MenuView> m_content;
    RunLoop& m_runLoop;
    const Kind m_kind;
    PanelBackdrop* m_backdrop;
    QScrollArea* m_area;
    PanelWidget* m_panel;
    BlendScroller* m_scroller;

    Anchor m_anchor;
    DesktopRect m_screen;
    DesktopRect m_available;
    DesktopRect m_place;
    bool m_isOpen = false;
    bool m_isChangePending = false;

    LifeGuard m_life;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
