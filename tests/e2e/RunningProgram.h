#pragma once

#include "PrivateSession.h"

#include <QJsonValue>
#include <QProcess>

namespace velmora {

/// The real program in a private session, under an executable name of its own: the single-instance guard of
/// one test meets only the copies that this test started.
class RunningProgram {
public:
    explicit RunningProgram(PrivateSession& session, const QStringList& arguments = {},
                            const QProcessEnvironment& extra = {});
    ~RunningProgram();

    QProcess& process() { return m_process; }
    qint64 pid() const { return m_process.processId(); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// What it has written to standard error so far.
    QString messages();
    /// Waits for its end and gives the exit code; -1 if it does not end or crashed.
    int waitForExit(int limitMs = 15000);

    /// Path of this session's copy of the program.
    static QString executable(const PrivateSession& session);

private:
    QProcess m_process;
    QString m_messages;
};

/// Writes a value as the program stores it, also while it runs.
bool storeDefault(const PrivateSession& session, const QString& key, const QByteArray& json);
/// The JSON text under a key; empty if there is none.
QByteArray storedDefault(const PrivateSession& session, const QString& key);

}  // namespace velmora
