#include "platform/qt/desktop/ApplicationStarter.h"

#include "platform/qt/desktop/ApplicationScope.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace velmora {
namespace {

constexpr int kLongestBusName = 255;

/// What a launcher handed to this program alone: with it, the next application's window would be taken for
/// ours.
constexpr std::array kOwnTokens = {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "GIO_LAUNCHED_DESKTOP_FILE",
                                   "GIO_LAUNCHED_DESKTOP_FILE_PID"};

bool isBusNameLetter(QChar letter) {
    const char16_t code = letter.unicode();
    return (code >= u'A' && code <= u'Z') || (code >= u'a' && code <= u'z') ||
           (code >= u'0' && code <= u'9') || code == u'_' || code == u'-';
}

bool isBusNameElement(const QString& element) {
    if (element.isEmpty() || (element.front() >= u'0' && element.front() <= u'9')) return false;
    return std::all_of(element.begin(), element.end(), isBusNameLetter);
}

/// It may still do what it was asked, only later.
bool mayBeUnderWay(const QDBusError& error) {
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

}  // namespace

ApplicationStarter::ApplicationStarter(SessionBus bus, const QProcessEnvironment& environment)
    : m_sessionBus(std::move(bus)), m_environment(environment), m_connectionName(SessionBus::newName()) {
    for (const char* token : kOwnTokens) m_environment.remove(QLatin1String(token));
}

ApplicationStarter::~ApplicationStarter() {
    if (!m_bus) return;
    m_bus.reset();
    SessionBus::close(m_connectionName);
}

void ApplicationStarter::start(const ApplicationLaunch& launch) {
    const auto path =
        launch.isBusActivatable ? objectPathOf(QString::fromStdString(launch.id)) : std::nullopt;
    if (path && connect()) {
        activate(launch, *path);
    } else {
        startCommand(launch);
    }
}

void ApplicationStarter::openURL(const std::string& url) {
    // The toolkit would start the same tool, but with this program's own environment.
    const QStringList folders = m_environment.value(QStringLiteral("PATH")).split(u':', Qt::SkipEmptyParts);
    const QString tool = QStandardPaths::findExecutable(QStringLiteral("xdg-open"), folders);
    if (tool.isEmpty()) {
        QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
    } else {
        startCommand({.command = {tool.toStdString(), url}});
    }
}

std::optional<QString> ApplicationStarter::objectPathOf(const QString& id) {
    const QStringList elements = id.split(u'.');
    const bool isName = elements.size() > 1 && id.size() <= kLongestBusName &&
                        std::all_of(elements.begin(), elements.end(), isBusNameElement);
    if (!isName) return std::nullopt;
    QString path = u'/' + id;
    path.replace(u'.', u'/').replace(u'-', u'_');
    return path;
}

bool ApplicationStarter::connect() {
    if (!m_bus && m_sessionBus.isPresent()) m_bus = m_sessionBus.open(m_connectionName);
    return m_bus && m_bus->isConnected();
}

void ApplicationStarter::activate(const ApplicationLaunch& launch, const QString& path) {
    QDBusMessage call = QDBusMessage::createMethodCall(QString::fromStdString(launch.id), path,
                                                       QStringLiteral("org.freedesktop.Application"),
                                                       QStringLiteral("Activate"));
    call.setArguments({QVariantMap()});
    auto* const pending = new QDBusPendingCallWatcher(m_bus->asyncCall(call), &m_pending);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, &m_pending,
                     [this, launch](QDBusPendingCallWatcher* finished) {
                         finished->deleteLater();
                         const QDBusPendingReply<> reply(*finished);
                         if (reply.isError() && !mayBeUnderWay(reply.error())) startCommand(launch);
                     });
}

void ApplicationStarter::startCommand(const ApplicationLaunch& launch) {
    if (launch.command.empty()) return;
    QStringList words;
    for (const std::string& word : launch.command) words.append(QString::fromStdString(word));
    QProcess process;
    process.setProgram(words.takeFirst());
    process.setArguments(words);
    process.setProcessEnvironment(m_environment);
    const QString folder = QString::fromStdString(launch.folder);
    process.setWorkingDirectory(QFileInfo(folder).isDir() ? folder : QDir::homePath());
    // What it has to say is not said in our name.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    qint64 pid = 0;
    if (!process.startDetached(&pid) || !connect()) return;
    const std::string& program = launch.command.front();
    const std::string name = launch.id.empty() ? program.substr(program.rfind('/') + 1) : launch.id;
    moveToScope(*m_bus, QString::fromStdString(name), pid);
}

}  // namespace velmora
