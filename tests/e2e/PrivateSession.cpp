#include "PrivateSession.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <stdexcept>

#include <sys/prctl.h>

namespace velmora {

PrivateSession::PrivateSession(Display display, Bus bus) {
    QDir(m_folder.path()).mkpath("home/.config");
    QDir(m_folder.path()).mkpath("runtime");
    QFile::setPermissions(m_folder.filePath("runtime"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);

    const QProcessEnvironment system = QProcessEnvironment::systemEnvironment();
    for (const char* kept : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"}) {
        if (system.contains(kept)) m_environment.insert(kept, system.value(kept));
    }
    m_environment.insert("HOME", m_folder.filePath("home"));
    m_environment.insert("XDG_CONFIG_HOME", configFolder());
    m_environment.insert("XDG_RUNTIME_DIR", m_folder.filePath("runtime"));
    m_environment.insert("LANG", "C.UTF-8");
    m_environment.insert("XDG_SESSION_TYPE", "x11");
    m_environment.insert("NO_AT_BRIDGE", "1");

    if (display != Display::none) {
        QStringList arguments{"-displayfd", "1", "-screen", "0", "1280x720x24", "-nolisten", "tcp"};
        // One that starts over turns away the next client meanwhile.
        if (display == Display::virtualScreen) arguments << "-noreset";
        const QString number = startAndReadLine("Xvfb", arguments);
        m_environment.insert("DISPLAY", ":" + number);
    }
    if (bus == Bus::ownBus) {
        m_busAddress =
            startAndReadLine("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address=1",
                                             "--address=unix:path=" + m_folder.filePath("runtime/bus")});
        m_environment.insert("DBUS_SESSION_BUS_ADDRESS", m_busAddress);
    } else {
        m_environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + m_folder.filePath("runtime/no-bus"));
    }
}

PrivateSession::~PrivateSession() {
    // Last started, first ended: the X server goes after its clients.
    while (!m_processes.empty()) {
        QProcess& process = *m_processes.back();
        process.terminate();
        if (!process.waitForFinished(5000)) {
            process.kill();
            process.waitForFinished(5000);
        }
        m_processes.pop_back();
    }
}

QString PrivateSession::startAndReadLine(const QString& program, const QStringList& arguments) {
    QProcess& process = start(program, arguments);
    if (!waitUntil([&process] { return process.canReadLine() || process.state() == QProcess::NotRunning; }) ||
        !process.canReadLine()) {
        throw std::runtime_error(program.toStdString() + " did not start");
    }
    return QString::fromUtf8(process.readLine()).trimmed();
}

QProcess& PrivateSession::start(const QString& program, const QStringList& arguments) {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->setStandardErrorFile(QProcess::nullDevice());
    bindToTheTest(*process);
    process->start(program, arguments);
    if (!process->waitForStarted()) throw std::runtime_error(program.toStdString() + " cannot be started");
    m_processes.push_back(std::move(process));
    return *m_processes.back();
}

QByteArray PrivateSession::output(const QString& tool, const QStringList& arguments) const {
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(tool, arguments);
    if (!process.waitForFinished(15000) || process.exitCode() != 0) return {};
    return process.readAllStandardOutput();
}

void bindToTheTest(QProcess& process) {
    process.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
}

bool waitUntil(const std::function<bool()>& condition, int limitMs) {
    const QDeadlineTimer deadline(limitMs);
    while (!condition()) {
        if (deadline.hasExpired()) return false;
        // Wakes at any event of this process; the state of another process is looked at every 20 ms.
        QEventLoop loop;
        QTimer::singleShot(20, &loop, &QEventLoop::quit);
        loop.exec(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return true;
}

}  // namespace velmora
