#include "app/PanelController.h"

#include "panels/MenuView.h"
#include "platform/RunLoop.h"
#include "platform/qt/strip/StripCell.h"
#include "platform/qt/window/Compositing.h"
#include "platform/qt/window/OutsideClickShield.h"
#include "platform/qt/window/PopupGrab.h"
#include "platform/qt/window/ScreenPlace.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>

#include <utility>

namespace velmora {
namespace {

/// Where the X server belongs to a Wayland compositor, popups cannot grab the pointer. The large desktops
/// place a window of the ordinary sort where it wants to be; tiling compositors only one that they do not
/// manage.
PanelWindow::Kind kindFor(const Session& session) {
    switch (session.windows) {
        case Session::WindowSystem::x11:
        case Session::WindowSystem::offscreen:
        case Session::WindowSystem::native:
            return PanelWindow::Kind::popup;
        case Session::WindowSystem::xwayland:
            return session.desktop == Session::Desktop::other ? PanelWindow::Kind::unmanaged
                                                              : PanelWindow::Kind::tool;
        case Session::WindowSystem::wayland:
            return PanelWindow::Kind::plain;
    }
    return PanelWindow::Kind::popup;
}

/// An item under the point gets the press that the panel has taken from it. To everything else the click was
/// that which closed the panel, and nothing more.
void passPressToItem(QPoint at) {
    QWidget* const target = QApplication::widgetAt(at);
    if (!target || !qobject_cast<StripCell*>(target)) return;
    QMouseEvent press(QEvent::MouseButtonPress, target->mapFromGlobal(QPointF(at)), QPointF(at),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &press);
}

}  // namespace

PanelController::PanelController(MakeView makeView, const Published<Scheme>& scheme, ProcessIcons& icons,
                                 RunLoop& runLoop, const Session& session)
    : m_makeView(std::move(makeView)),
      m_scheme(scheme),
      m_icons(icons),
      m_runLoop(runLoop),
      m_session(session) {}

PanelController::~PanelController() = default;

void PanelController::toggle(StatsModule module, const Anchor& anchor) {
    if (std::exchange(m_closedByClick, std::nullopt) == module) return;
    const bool wasOpen = m_window && m_window->module() == module;
    close();
    if (!wasOpen) open(module, anchor);
}

void PanelController::close() {
    if (m_window) m_window->close();
}

void PanelController::open(StatsModule module, const Anchor& anchor) {
    // A panel can only close itself: by the time that a late caller asks, another one may be open.
    const auto own = std::make_shared<PanelWindow*>(nullptr);
    auto dismiss = m_life.wrap([this, own] {
        if (m_window && m_window.get() == *own) close();
    });
    const PanelWindow::Manner manner{kindFor(m_session), isComposited(m_session.windows)
                                                             ? PanelBackdrop::Corners::round
                                                             : PanelBackdrop::Corners::square};
    m_window =
        std::make_unique<PanelWindow>(m_makeView(module, dismiss), m_scheme, m_icons, m_runLoop, manner);
    *own = m_window.get();
    m_window->closed = [this] { drop(); };
    m_window->pressedOutside = [this](QPoint at) { clickedElsewhere(at); };
    m_window->deactivated = [this] { lostKeyboard(); };
    if (m_session.windows == Session::WindowSystem::xwayland) raiseShield();
    const ScreenPlace place = ScreenPlace::under(anchor);
    m_window->open(anchor, place.screen, place.available);
    closeWithScreen();
    if (m_session.windows == Session::WindowSystem::x11) PopupGrab::keepAsking(*m_window);
}

/// Where the panel and its item would be on another screen, nobody knows.
void PanelController::closeWithScreen() {
    QWidget& window = *m_window;
    QObject::connect(qApp, &QGuiApplication::screenRemoved, &window, [&window] { window.close(); });
    QObject::connect(window.screen(), &QScreen::geometryChanged, &window, [&window] { window.close(); });
}

void PanelController::raiseShield() {
    m_shield = std::make_unique<OutsideClickShield>(QRegion(), [this](QPoint at) { clickedElsewhere(at); });
    m_window->placed = [this](const QRect& geometry) { m_shield->setHoles(geometry); };
    m_shield->show();
}

/// Another item opens its panel with the same click, and the panel's own item does not open it again.
void PanelController::clickedElsewhere(QPoint at) {
    if (!m_window) return;
    const StatsModule module = m_window->module();
    close();
    m_runLoop.post(m_life.wrap([this, module, at] {
        m_closedByClick = module;
        passPressToItem(at);
        m_closedByClick.reset();
    }));
}

void PanelController::lostKeyboard() {
    if (!m_window) return;
    const StatsModule module = m_window->module();
    close();
    m_closedByClick = module;
    m_sameClick = m_runLoop.after(kSameClickSeconds, [this] { m_closedByClick.reset(); });
}

void PanelController::drop() {
    if (m_shield) {
        m_shield->hide();
        m_closed.push_back(std::move(m_shield));
    }
    m_closed.push_back(std::move(m_window));
    m_runLoop.post(m_life.wrap([this] { m_closed.clear(); }));
}

}  // namespace velmora
