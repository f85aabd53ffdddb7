#pragma once

#include "base/Signal.h"
#include "base/Subscription.h"
#include "platform/RunLoop.h"
#include "platform/qt/bar/BarShade.h"
#include "platform/qt/desktop/PlasmaPanelColors.h"
#include "platform/qt/session/SessionBus.h"

#include <QDBusConnection>
#include <QFileSystemWatcher>
#include <QObject>

#include <memory>
#include <optional>
#include <vector>

namespace velmora {

class PortalScheme;
class XfcePanelColors;

/// Gathers what is known of the desktop's colours, and follows their changes. Rests while nothing changes.
class DesktopColors final : public QObject {
public:
    DesktopColors(RunLoop& loop, const SessionBus& bus, const Session& session,
                  PlasmaFolders plasma = PlasmaFolders::ofUser());
    ~DesktopColors() override;

    const BarSurroundings& surroundings() const { return m_surroundings; }
    Signal<> changed;

    /// From now on the pixels of other programs' panels count, where they can be seen; or no more.
    enum class PanelPixels { ignored, watched };
    void setPanelPixels(PanelPixels use);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void gather();
    void gatherLater();
    /// True if one of them was not watched before.
    bool watchPlasmaFiles();
    std::optional<double> panelPixels() const;

    RunLoop& m_loop;
    Session m_session;
    PlasmaFolders m_plasma;
    QString m_connectionName;
    std::optional<QDBusConnection> m_connection;
    std::unique_ptr<PortalScheme> m_portal;
    std::unique_ptr<XfcePanelColors> m_xfce;
    std::unique_ptr<QFileSystemWatcher> m_files;
    PanelPixels m_panelPixels = PanelPixels::ignored;
    BarSurroundings m_surroundings;
    Subscription m_repaintPause;
    std::vector<Subscription> m_subscriptions;
};

}  // namespace velmora
