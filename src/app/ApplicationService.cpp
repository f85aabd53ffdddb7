#include "app/ApplicationService.h"

#include "app/ApplicationAdaptor.h"
#include "app/PanelAdaptor.h"
#include "platform/qt/session/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace velmora {
namespace {

constexpr int kForwardTimeoutMs = 2000;

/// A connection for one question, which may be asked before there is an application object.
class BriefConnection {
public:
    BriefConnection() : m_name(SessionBus::newName()), m_bus(m_name) {
        if (const SessionBus sessionBus; sessionBus.isPresent()) m_bus = sessionBus.open(m_name);
    }
    ~BriefConnection() {
        m_bus = QDBusConnection(QString());
        SessionBus::close(m_name);
    }
    BriefConnection(const BriefConnection&) = delete;
    BriefConnection& operator=(const BriefConnection&) = delete;

    const QDBusConnection& bus() const { return m_bus; }

private:
    QString m_name;
    QDBusConnection m_bus;
};

}  // namespace

class ApplicationService::Endpoint final : public QObject {
public:
    explicit Endpoint(const Handlers& handlers)
        : m_adaptor(this, handlers.activate,
                    [open = handlers.open](const QStringList& urls) {
                        if (!open) return;
                        for (const QString& url : urls) open(url.toStdString());
                    }),
          m_panels(this, [toggle = handlers.togglePanel](const QString& module) {
              if (toggle) toggle(module.toStdString());
          }) {}

private:
    ApplicationAdaptor m_adaptor;
    PanelAdaptor m_panels;
};

ApplicationService::ApplicationService(const Handlers& handlers)
    : m_connection(SessionBus::newName()), m_endpoint(std::make_unique<Endpoint>(handlers)) {}

ApplicationService::~ApplicationService() {
    // A URL may arrive in this moment: what would take it goes first.
    QDBusConnection(m_connection).unregisterObject(kObjectPath);
    m_endpoint.reset();
    SessionBus::close(m_connection);
}

bool ApplicationService::start() {
    const SessionBus sessionBus;
    if (!sessionBus.isPresent()) return false;
    QDBusConnection bus = sessionBus.open(m_connection);
    if (!bus.isConnected()) return false;
    bus.registerObject(kObjectPath, m_endpoint.get(), QDBusConnection::ExportAdaptors);
    bus.interface()->registerService(kBusName, QDBusConnectionInterface::ReplaceExistingService,
                                     QDBusConnectionInterface::AllowReplacement);
    return true;
}

bool ApplicationService::forward(const std::vector<std::string>& urls) {
    const BriefConnection connection;
    if (!connection.bus().isConnected()) return false;
    const QDBusReply<bool> runs = connection.bus().interface()->isServiceRegistered(kBusName);
    if (!runs.isValid() || !runs.value()) return false;
    QStringList texts;
    for (const std::string& url : urls) texts.append(QString::fromStdString(url));
    QDBusMessage call =
        QDBusMessage::createMethodCall(kBusName, kObjectPath, "org.freedesktop.Application", "Open");
    call.setAutoStartService(false);
    call.setArguments({texts, QVariantMap{}});
    return connection.bus().call(call, QDBus::Block, kForwardTimeoutMs).type() == QDBusMessage::ReplyMessage;
}

std::int64_t ApplicationService::ownerProcess() {
    const BriefConnection connection;
    if (!connection.bus().isConnected()) return 0;
    const QDBusReply<uint> pid = connection.bus().interface()->servicePid(kBusName);
    return pid.isValid() ? static_cast<std::int64_t>(pid.value()) : 0;
}

}  // namespace velmora
