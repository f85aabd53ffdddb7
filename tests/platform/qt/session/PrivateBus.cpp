#include "platform/qt/session/PrivateBus.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <chrono>
#include <csignal>

#include <sys/prctl.h>

namespace velmora {
namespace {

constexpr const char* kConfiguration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1/bus</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

}  // namespace

PrivateBus::PrivateBus() {
    const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly)) return;
    file.write(QString::fromLatin1(kConfiguration).arg(m_folder.path()).toUtf8());
    file.close();
    // A test that crashes takes its bus along.
    m_daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + configuration, QStringLiteral("--nofork"),
                    QStringLiteral("--print-address")});
    while (m_address.isEmpty() && m_daemon.waitForReadyRead()) {
        if (m_daemon.canReadLine()) m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }
}

PrivateBus::~PrivateBus() {
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

void closeWithObject(QObject& object, const QString& connectionName) {
    QObject::connect(&object, &QObject::destroyed, [connectionName] { SessionBus::close(connectionName); });
}

bool waitUntil(const std::function<bool()>& condition) {
    bool expired = false;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &limit, [&expired] { expired = true; });
    limit.start(std::chrono::seconds(10));
    while (!condition() && !expired) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

}  // namespace velmora
