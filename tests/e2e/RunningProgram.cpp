#include "RunningProgram.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace velmora {
namespace {

struct Database {
    explicit Database(const PrivateSession& session) {
        QDir(session.configFolder()).mkpath("Velmora");
        const QByteArray path = (session.configFolder() + "/Velmora/defaults.db").toUtf8();
        if (sqlite3_open(path.constData(), &handle) != SQLITE_OK) return;
        sqlite3_busy_timeout(handle, 5000);
        isOpen =
            sqlite3_exec(handle,
                         "PRAGMA journal_mode=WAL; PRAGMA user_version=1;"
                         "CREATE TABLE IF NOT EXISTS defaults(key TEXT PRIMARY KEY, value TEXT NOT NULL)",
                         nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    ~Database() { sqlite3_close(handle); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle = nullptr;
    bool isOpen = false;
};

}  // namespace

RunningProgram::RunningProgram(PrivateSession& session, const QStringList& arguments,
                               const QProcessEnvironment& extra) {
    QProcessEnvironment environment = session.environment();
    environment.insert(extra);
    m_process.setProcessEnvironment(environment);
    bindToTheTest(m_process);
    m_process.start(executable(session), arguments);
    m_process.waitForStarted();
}

RunningProgram::~RunningProgram() {
    if (!isRunning()) return;
    m_process.terminate();
    if (!m_process.waitForFinished(10000)) {
        m_process.kill();
        m_process.waitForFinished(5000);
    }
}

QString RunningProgram::messages() {
    m_messages += QString::fromUtf8(m_process.readAllStandardError());
    return m_messages;
}

int RunningProgram::waitForExit(int limitMs) {
    if (!waitUntil([this] { return !isRunning(); }, limitMs)) return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QString RunningProgram::executable(const PrivateSession& session) {
    // The name is unique among all tests that run at the time; the kernel keeps 15 characters of it.
    const QString path = QString("%1/vm-%2-%3")
                             .arg(session.folder())
                             .arg(QCoreApplication::applicationPid())
                             .arg(reinterpret_cast<quintptr>(&session) >> 4 & 0xfff);
    if (!QFileInfo::exists(path)) {
        QFile::copy(VELMORA_PROGRAM, path);
        QFile::copy(QFileInfo(VELMORA_PROGRAM).path() + "/bundle.json", session.folder() + "/bundle.json");
    }
    return path;
}

bool storeDefault(const PrivateSession& session, const QString& key, const QByteArray& json) {
    const Database database(session);
    if (!database.isOpen) return false;
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.handle,
                       "INSERT INTO defaults(key, value) VALUES(?1, ?2) "
                       "ON CONFLICT(key) DO UPDATE SET value = excluded.value",
                       -1, &statement, nullptr);
    const QByteArray name = key.toUtf8();
    sqlite3_bind_text(statement, 1, name.constData(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_text(statement, 2, json.constData(), -1, SQLITE_TRANSIENT);
    const bool stored = sqlite3_step(statement) == SQLITE_DONE;
    sqlite3_finalize(statement);
    return stored;
}

QByteArray storedDefault(const PrivateSession& session, const QString& key) {
    const Database database(session);
    if (!database.isOpen) return {};
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.handle, "SELECT value FROM defaults WHERE key = ?1", -1, &statement, nullptr);
    const QByteArray name = key.toUtf8();
    sqlite3_bind_text(statement, 1, name.constData(), -1, SQLITE_TRANSIENT);
    QByteArray value;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        value = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    }
    sqlite3_finalize(statement);
    return value;
}

}  // namespace velmora
