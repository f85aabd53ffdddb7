#pragma once

#include "platform/ApplicationLaunch.h"
#include "platform/qt/session/SessionBus.h"

#include <QDBusConnection>
#include <QObject>
#include <QProcessEnvironment>

#include <optional>
#include <string>

namespace velmora {

/// Starts other applications, which go on when this program ends. Failures are silent. Main thread; needs the
/// application object.
class ApplicationStarter {
public:
    /// Made at the start of the program, it keeps the user's environment as it was before the program chose
    /// its own language and windowing system: that is what applications are started with.
    explicit ApplicationStarter(SessionBus bus = SessionBus(), const QProcessEnvironment& environment =
                                                                   QProcessEnvironment::systemEnvironment());
    ~ApplicationStarter();
    ApplicationStarter(const ApplicationStarter&) = delete;
    ApplicationStarter& operator=(const ApplicationStarter&) = delete;

    /// Waits for nothing but the new process. An application on the bus that does not answer is started by
    /// its command.
    void start(const ApplicationLaunch& launch);

    /// Opens an address with what the user has chosen for its kind.
    void openURL(const std::string& url);

    /// Where an application that the bus starts has its object: "/org/example/Name" for "org.example.Name".
    /// Nothing for an id that is no name on a bus.
    static std::optional<QString> objectPathOf(const QString& id);

private:
    bool connect();
    void activate(const ApplicationLaunch& launch, const QString& path);
    void startCommand(const ApplicationLaunch& launch);

    SessionBus m_sessionBus;
    QProcessEnvironment m_environment;
    QString m_connectionName;
    std::optional<QDBusConnection> m_bus;  ///< From the first question on.
    QObject m_pending;                     ///< Owns the questions that are under way.
};

}  // namespace velmora
