#include "panels/PanelWindow.h"

#include "panels/kit/BlendScroller.h"
#include "panels/kit/PanelWidget.h"
#include "platform/RunLoop.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollArea>

#include <utility>

namespace velmora {
namespace {

/// Above and below a button with the focus.
constexpr int kFocusMargin = 10;

Qt::WindowFlags flagsOf(PanelWindow::Kind kind) {
    const Qt::WindowFlags bare = Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    switch (kind) {
        case PanelWindow::Kind::popup:
            return Qt::Popup | bare;
        case PanelWindow::Kind::tool:
            return Qt::Tool | bare | Qt::WindowStaysOnTopHint;
        case PanelWindow::Kind::unmanaged:
            // Of the ordinary type: compositors give the keyboard to no other unmanaged window.
            return Qt::Window | bare | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint;
        case PanelWindow::Kind::plain:
            return Qt::Window | bare;
    }
    return bare;
}

}  // namespace

PanelWindow::PanelWindow(std::unique_ptr<MenuView> content, const Published<Scheme>& scheme,
                         ProcessIcons& icons, RunLoop& runLoop, Manner manner)
    : QWidget(nullptr, flagsOf(manner.kind)),
      m_content(std::move(content)),
      m_runLoop(runLoop),
      m_kind(manner.kind),
      m_backdrop(new PanelBackdrop(scheme.get(), manner.corners, this)),
      m_area(new QScrollArea(this)),
      m_panel(new PanelWidget(scheme.get(), icons)),
      m_scroller(new BlendScroller(Qt::Vertical, scheme.get())) {
    setObjectName(QStringLiteral("Velmora panel"));
    setAttribute(Qt::WA_TranslucentBackground, manner.corners == PanelBackdrop::Corners::round);
    setAttribute(Qt::WA_QuitOnClose, false);
    // A click elsewhere closes the panel; it must not reach what lies there a second time.
    setAttribute(Qt::WA_NoMouseReplay);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setFocusPolicy(Qt::NoFocus);

    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setVerticalScrollBar(m_scroller);
    m_area->setAutoFillBackground(false);
    m_area->viewport()->setAutoFillBackground(false);
    m_area->setWidget(m_panel);
    m_panel->setAutoFillBackground(false);

    m_subscriptions.push_back(m_content->changed.subscribe([this] { contentChanged(); }));
    m_subscriptions.push_back(scheme.subscribe([this](Scheme now) {
        m_backdrop->setScheme(now);
        m_panel->setScheme(now);
        m_scroller->setScheme(now);
    }));
    // A button that gets the focus by key may be out of sight.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && m_panel->isAncestorOf(now)) m_area->ensureWidgetVisible(now, 0, kFocusMargin);
    });
    showContent();
}

PanelWindow::~PanelWindow() = default;

void PanelWindow::open(const Anchor& anchor, const DesktopRect& screen, const DesktopRect& available) {
    m_anchor = anchor;
    m_screen = screen;
    m_available = available;
    takePlace(placePanel(anchor, {kWidth, wantedHeight()}, screen, available));
    m_isOpen = true;
    show();
    if (m_kind == Kind::popup) return;
    raise();
    activateWindow();
}

bool PanelWindow::event(QEvent* event) {
    const bool isManaged = m_kind == Kind::tool || m_kind == Kind::plain;
    if (event->type() == QEvent::WindowDeactivate && isManaged && m_isOpen) {
        if (const auto tell = deactivated) tell();
    }
    return QWidget::event(event);
}

void PanelWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (!std::exchange(m_isOpen, false)) return;
    if (const auto tell = closed) tell();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    const auto scroll = [this](QAbstractSlider::SliderAction action) { m_scroller->triggerAction(action); };
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            return;
        case Qt::Key_Up:
            return scroll(QAbstractSlider::SliderSingleStepSub);
        case Qt::Key_Down:
            return scroll(QAbstractSlider::SliderSingleStepAdd);
        case Qt::Key_PageUp:
            return scroll(QAbstractSlider::SliderPageStepSub);
        case Qt::Key_PageDown:
            return scroll(QAbstractSlider::SliderPageStepAdd);
        case Qt::Key_Home:
            return scroll(QAbstractSlider::SliderToMinimum);
        case Qt::Key_End:
            return scroll(QAbstractSlider::SliderToMaximum);
        default:
            QWidget::keyPressEvent(event);
    }
}

/// A popup hears every click. Those inside come here if no part of the panel takes them.
void PanelWindow::mousePressEvent(QMouseEvent* event) {
    if (rect().contains(event->position().toPoint())) return;
    if (const auto tell = pressedOutside) tell(event->globalPosition().toPoint());
}

void PanelWindow::resizeEvent(QResizeEvent*) {
    m_backdrop->setGeometry(rect());
    const QRect inner = rect().adjusted(0, kMargin, 0, -kMargin);
    m_area->setGeometry(inner);
}

/// However much changes in one turn of the loop, the panel is made and laid out once.
void PanelWindow::contentChanged() {
    if (std::exchange(m_isChangePending, true)) return;
    m_runLoop.post(m_life.wrap([this] {
        m_isChangePending = false;
        if (m_isOpen) showContent();
    }));
}

void PanelWindow::showContent() {
    MenuPanel panel = m_content->panel();
    const QString name = QString::fromStdString(panel.name);
    if (accessibleName() != name) {
        setAccessibleName(name);
        setWindowTitle(name);
    }
    m_panel->setPanel(std::move(panel));
    m_panel->resize(kWidth, m_panel->sizeHint().height());
    if (!m_isOpen) return;
    const DesktopRect place = resizePanel(m_place, wantedHeight(), m_anchor, m_screen, m_available);
    if (place != m_place) takePlace(place);
}

int PanelWindow::wantedHeight() const {
    return m_panel->height() + 2 * kMargin;
}

void PanelWindow::takePlace(const DesktopRect& place) {
    m_place = place;
    const QRect geometry(place.x, place.y, place.width, place.height);
    // A compositor that places windows stretches one that can be resized over all of its room.
    if (m_kind == Kind::plain) setFixedSize(geometry.size());
    setGeometry(geometry);
    if (placed) placed(geometry);
}

}  // namespace velmora
