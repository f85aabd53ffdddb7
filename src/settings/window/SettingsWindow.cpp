#include "settings/window/SettingsWindow.h"

#include "l10n/L10n.h"
#include "look/ApplicationIcon.h"
#include "platform/WindowBlur.h"
#include "settings/controls/SettingsScheme.h"
#include "settings/window/OverlayScrollers.h"
#include "settings/window/SettingsFrames.h"
#include "settings/window/SettingsView.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>

#include <cmath>

namespace velmora {
namespace {

/// What desktops put around a window, until this one has said it.
constexpr QMargins kUsualDecoration(2, 32, 2, 2);

}  // namespace

SettingsWindow::SettingsWindow(const SettingsCollaborators& collaborators, std::function<void()> closed)
    : m_with(collaborators), m_closed(std::move(closed)), m_scroll(new QScrollArea(this)) {
    // Whether a window can be see-through is settled when it is made.
    setAttribute(Qt::WA_TranslucentBackground, m_with.blur.isAvailable());
    setWindowIcon(ApplicationIcon::icon());
    // The scheme comes first: what is made in a window takes it over.
    m_subscriptions.push_back(m_with.scheme.subscribe([this](Scheme scheme) {
        setScheme(*this, scheme);
        forceOverlayScrollers(*this);
    }));
    m_subscriptions.push_back(m_with.l10n.language().subscribe([this](AppLanguage) {
        const std::string_view title = m_with.l10n.string("settings.title");
        setWindowTitle(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    }));

    m_view = new SettingsView(m_with);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setWidgetResizable(true);
    m_scroll->setWidget(m_view);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_view->setAutoFillBackground(false);
    auto* const stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->addWidget(m_scroll);
    forceOverlayScrollers(*this);

    m_subscriptions.push_back(m_with.blur.changed.subscribe([this] { showBlur(); }));
    auto* const close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
}

std::optional<QRect> SettingsWindow::visibleFrame() const {
    const QScreen* const shown = screen();
    if (!shown) return std::nullopt;
    return shown->availableGeometry();
}

QMargins SettingsWindow::decoration() const {
    const QWindow* const window = windowHandle();
    const QMargins known = window && isVisible() ? window->frameMargins() : QMargins();
    return known.isNull() ? kUsualDecoration : known;
}

void SettingsWindow::centre(SettingsTab tab) {
    // Where the pointer is, the user looks.
    if (QScreen* const pointed = QGuiApplication::screenAt(QCursor::pos())) setScreen(pointed);
    setGeometry(SettingsFrames::centredFrame(tab, visibleFrame(), decoration()));
    limitToScreen();
}

void SettingsWindow::widenFor(SettingsTab tab) {
    if (!isMaximized() && !isFullScreen()) {
        const QRect frame = SettingsFrames::frameForTab(tab, geometry(), visibleFrame(), decoration());
        // The other tab's least width must not stretch the window on its way.
        setMinimumSize(1, 1);
        if (frame != geometry()) setGeometry(frame);
    }
    limitToScreen();
}

void SettingsWindow::limitToScreen() {
    const QSize least =
        SettingsFrames::minimumSize(m_with.router.selectedTab.get(), visibleFrame(), decoration());
    // Where the desktop left the window smaller, it stays so.
    setMinimumSize(least.boundedTo(size()));
}

void SettingsWindow::bringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void SettingsWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    hide();
    m_closed();
}

void SettingsWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    showBlur();
}

void SettingsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!m_screenChange) {
        m_screenChange = connect(windowHandle(), &QWindow::screenChanged, this, [this] { followScreen(); });
        followScreen();
    }
    showBlur();
}

void SettingsWindow::followScreen() {
    disconnect(m_roomChange);
    if (const QScreen* const shown = screen()) {
        m_roomChange = connect(shown, &QScreen::availableGeometryChanged, this, [this] { limitToScreen(); });
    }
    limitToScreen();
    showBlur();
}

void SettingsWindow::showBlur() {
    const bool seesThrough = testAttribute(Qt::WA_TranslucentBackground) && m_with.blur.isAvailable();
    m_view->setSeesThrough(seesThrough);
    if (!testAttribute(Qt::WA_TranslucentBackground) || !windowHandle()) return;
    WindowBlur::Area area;
    if (seesThrough) {
        const QRect part = m_view->seeThroughArea().translated(m_view->mapTo(this, QPoint(0, 0)));
        const auto pixels = [ratio = devicePixelRatioF()](int points) {
            return static_cast<int>(std::lround(points * ratio));
        };
        area = {pixels(part.x()), pixels(part.y()), pixels(part.width()), pixels(part.height())};
    }
    m_with.blur.setArea(static_cast<std::uintptr_t>(winId()), area);
}

}  // namespace velmora
