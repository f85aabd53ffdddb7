#include "platform/qt/desktop/DesktopColors.h"

#include "platform/qt/desktop/KeyFileText.h"
#include "platform/qt/desktop/PortalScheme.h"
#include "platform/qt/desktop/XfcePanelColors.h"
#include "platform/qt/x11/DockProperties.h"

#include <QEvent>
#include <QGuiApplication>
#include <QImage>
#include <QPalette>
#include <QPixmap>
#include <QScreen>

namespace velmora {
namespace {

/// After a change of colours other programs need a moment to paint their panels anew.
constexpr double kRepaintSeconds = 1.0;

double lightnessOf(const QColor& color) {
    return lightness(static_cast<double>(color.redF()), static_cast<double>(color.greenF()),
                     static_cast<double>(color.blueF()));
}

/// Scaled to one pixel an image is its own mean.
double meanLightness(const QImage& image) {
    return lightnessOf(image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0));
}

}  // namespace

DesktopColors::DesktopColors(RunLoop& loop, const SessionBus& bus, const Session& session,
                             PlasmaFolders plasma)
    : m_loop(loop), m_session(session), m_plasma(std::move(plasma)) {
    if (bus.isPresent()) {
        m_connectionName = SessionBus::newName();
        m_connection = bus.open(m_connectionName);
        m_portal = std::make_unique<PortalScheme>(*m_connection);
        m_subscriptions.push_back(m_portal->changed.subscribe([this] { gatherLater(); }));
        if (session.desktop == Session::Desktop::xfce) {
            m_xfce = std::make_unique<XfcePanelColors>(*m_connection);
            m_subscriptions.push_back(m_xfce->changed.subscribe([this] { gatherLater(); }));
        }
    }
    if (session.desktop == Session::Desktop::plasma) {
        m_files = std::make_unique<QFileSystemWatcher>();
        connect(m_files.get(), &QFileSystemWatcher::fileChanged, this, [this] {
            watchPlasmaFiles();
            gather();
        });
        connect(m_files.get(), &QFileSystemWatcher::directoryChanged, this, [this] {
            if (watchPlasmaFiles()) gather();
        });
        watchPlasmaFiles();
    }
    qApp->installEventFilter(this);
    gather();
}

DesktopColors::~DesktopColors() {
    m_portal.reset();
    m_xfce.reset();
    if (!m_connection) return;
    m_connection.reset();
    SessionBus::close(m_connectionName);
}

void DesktopColors::setPanelPixels(PanelPixels use) {
    if (m_panelPixels == use) return;
    m_panelPixels = use;
    gather();
}

bool DesktopColors::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange) gatherLater();
    return false;
}

/// At once, and again when the panels have had the time to follow.
void DesktopColors::gatherLater() {
    gather();
    if (m_panelPixels == PanelPixels::ignored) return;
    m_repaintPause = m_loop.after(kRepaintSeconds, [this] { gather(); });
}

void DesktopColors::gather() {
    BarSurroundings found;
    found.desktop = m_session.desktop;
    if (m_portal) found.prefersDark = m_portal->prefersDark();
    found.paletteLightness = lightnessOf(QGuiApplication::palette().color(QPalette::Window));
    if (m_session.desktop == Session::Desktop::plasma) found.plasmaPanel = plasmaPanelLightness(m_plasma);
    if (m_xfce) {
        found.xfceDarkMode = m_xfce->darkMode();
        found.xfcePanel = m_xfce->lightness();
    }
    found.dockPixels = panelPixels();
    if (found == m_surroundings) return;
    m_surroundings = found;
    changed.fire();
}

/// The programs that store these files replace them, which ends the watch of the old file. A file that is
/// missing is waited for by way of its folder.
bool DesktopColors::watchPlasmaFiles() {
    bool isAnyNew = false;
    bool isAnyMissing = false;
    for (const QString& path : {m_plasma.plasmarc(), m_plasma.kdeglobals()}) {
        if (m_files->files().contains(path)) continue;
        (m_files->addPath(path) ? isAnyNew : isAnyMissing) = true;
    }
    if (isAnyMissing) {
        m_files->addPath(m_plasma.configuration);
    } else {
        m_files->removePath(m_plasma.configuration);
    }
    return isAnyNew;
}

std::optional<double> DesktopColors::panelPixels() const {
    if (m_panelPixels == PanelPixels::ignored || m_session.windows != Session::WindowSystem::x11) {
        return std::nullopt;
    }
    QScreen* const screen = QGuiApplication::primaryScreen();
    if (!screen) return std::nullopt;
    double sum = 0;
    int count = 0;
    for (const DockProperties::Dock& dock : DockProperties::allDocks()) {
        const QImage image = screen->grabWindow(dock.window).toImage();
        if (image.isNull()) continue;
        sum += meanLightness(image);
        ++count;
    }
    return count > 0 ? std::optional(sum / count) : std::nullopt;
}

}  // namespace velmora
