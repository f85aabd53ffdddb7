#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

namespace velmora {

/// A desktop session of the test's own: an X server, a session bus and a home, which nobody else uses. Ends
/// what it started when it goes.
class PrivateSession {
public:
    /// A forgetful screen is that of a server which starts over when its last client leaves.
    enum class Display { none, virtualScreen, forgetfulScreen };
    enum class Bus { none, ownBus };

    explicit PrivateSession(Display display = Display::virtualScreen, Bus bus = Bus::ownBus);
    PrivateSession(const PrivateSession&) = delete;
    PrivateSession& operator=(const PrivateSession&) = delete;
    ~PrivateSession();

    QProcessEnvironment environment() const { return m_environment; }
    QString busAddress() const { return m_busAddress; }
    /// A folder of the session, which goes with it.
    QString folder() const { return m_folder.path(); }
    QString configFolder() const { return m_folder.filePath("home/.config"); }

    /// Starts a program of the desktop in this session, such as a window manager; it ends with the session.
    QProcess& start(const QString& program, const QStringList& arguments = {});
    /// Runs a tool to its end and gives what it printed; empty if it failed.
    QByteArray output(const QString& tool, const QStringList& arguments) const;

private:
    QString startAndReadLine(const QString& program, const QStringList& arguments);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_busAddress;
    std::vector<std::unique_ptr<QProcess>> m_processes;
};

/// Makes a process that is to be started end with this one, also when this one is killed.
void bindToTheTest(QProcess& process);

/// Lets events happen until the condition holds; false once the time is over.
bool waitUntil(const std::function<bool()>& condition, int limitMs = 15000);

}  // namespace velmora
