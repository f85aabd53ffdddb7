#include "platform/linux/store/SqliteDefaults.h"

#include "base/FormatText.h"
#include "platform/Clock.h"
#include "platform/RunLoop.h"
#include "platform/SystemLog.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/store/StoredJson.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cmath>
#include <utility>

namespace velmora {
namespace {

using nlohmann::json;
using State = SettingsDatabase::State;
using Outcome = SettingsDatabase::Outcome;

constexpr double kFlushSeconds = 10;
// A commit is seen only after the log was written and then marked in shared memory, of which no event tells.
constexpr double kCommitSeconds = 0.05;

/// The first free name of the form `<file>.corrupt-<seconds>`, `<file>.corrupt-<seconds>-2` …
std::filesystem::path nameForDamaged(const std::filesystem::path& file, Date now) {
    const std::string base = formatText("%s.corrupt-%.0f", {file.native(), std::floor(now.secondsSince1970)});
    std::filesystem::path name = base;
    std::error_code ignored;
    for (int attempt = 2; std::filesystem::exists(name, ignored); ++attempt) {
        name = formatText("%s-%d", {base, attempt});
    }
    return name;
}

bool isOpen(const SettingsDatabase& database) {
    return database.state() != State::corrupt && database.state() != State::unavailable;
}

std::filesystem::path withSuffix(const std::filesystem::path& file, const char* suffix) {
    return std::filesystem::path(file.native() + suffix);
}

}  // namespace

SqliteDefaults::SqliteDefaults(std::filesystem::path file, RunLoop& runLoop, const Clock& clock,
                               SystemLog& log)
    : m_file(std::move(file)), m_runLoop(runLoop), m_clock(clock), m_log(log) {
    open();
    watchFolder();
}

SqliteDefaults::~SqliteDefaults() {
    m_flushTimer.reset();
    synchronize();
}

std::optional<json> SqliteDefaults::read(std::string_view key) const {
    if (const auto waiting = m_pending.find(key); waiting != m_pending.end()) return waiting->second;
    // What cannot be read is absent; a damaged file is dealt with at the next write.
    const auto stored = m_database->read(key);
    return stored.text ? valueOfStoredJson(*stored.text) : std::nullopt;
}

void SqliteDefaults::write(std::string_view key, const json& value, Urgency urgency) {
    keep(key, value);
    switch (urgency) {
        case Urgency::now:
            flush();
            return;
        case Urgency::relaxed:
            flushSoon();
            return;
    }
}

void SqliteDefaults::remove(std::string_view key) {
    keep(key, std::nullopt);
    flush();
}

void SqliteDefaults::synchronize() {
    if (!m_pending.empty()) flush();
}

void SqliteDefaults::keep(std::string_view key, std::optional<json> value) {
    const auto waiting = m_pending.find(key);
    if (waiting != m_pending.end()) {
        waiting->second = std::move(value);
    } else {
        m_pending.emplace(key, std::move(value));
    }
}

void SqliteDefaults::flushSoon() {
    if (!m_flushTimer) m_flushTimer = m_runLoop.after(kFlushSeconds, [this] { flush(); });
}

void SqliteDefaults::flush() {
    m_flushTimer.reset();
    if (m_pending.empty()) return;
    const bool mustOpen = m_database->state() != State::ready && m_database->state() != State::foreign;
    if (!m_database->isStillAtItsPath()) {
        openReplaced();
        // Whoever writes is not told in the middle of it.
        if (m_isOthersFile) lookAfter(kCommitSeconds);
    } else if (mustOpen) {
        open();
    }
    if (m_database->state() == State::foreign) return;

    Outcome outcome = storePending();
    if (outcome == Outcome::corrupt) {
        open();
        outcome = storePending();
    }
    if (outcome == Outcome::stored) {
        m_pending.clear();
        m_troubleLogged = false;
    } else {
        logOnce(m_database->problem());
        flushSoon();
    }
}

Outcome SqliteDefaults::storePending() {
    SettingsDatabase::Changes changes;
    for (const auto& [key, value] : m_pending) {
        changes.emplace(key, value ? std::optional(storedJson(*value)) : std::nullopt);
    }
    return m_database->store(changes);
}

void SqliteDefaults::open() {
    m_database.reset();
    m_database = std::make_unique<SettingsDatabase>(m_file);
    if (m_database->state() == State::corrupt) setAside();
    if (m_database->state() != State::ready) logOnce(m_database->problem());
}

void SqliteDefaults::openReplaced() {
    open();
    m_isOthersFile = m_isOthersFile || isOpen(*m_database);
    watchFolder();
}

void SqliteDefaults::setAside() {
    // Two copies of the program may find the damage at the same time. The lock on the folder lets one of them
    // move the file; the other one looks again and finds the fresh file.
    const FileDescriptor folder(::open(m_file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || ::flock(folder.get(), LOCK_EX | LOCK_NB) != 0) return;
    m_database = std::make_unique<SettingsDatabase>(m_file);
    if (m_database->state() != State::corrupt) return;

    const std::filesystem::path damaged = nameForDamaged(m_file, m_clock.now());
    std::error_code failed;
    std::filesystem::rename(m_file, damaged, failed);
    if (failed) return;
    for (const char* suffix : {"-wal", "-shm"}) {
        std::error_code ignored;
        std::filesystem::rename(withSuffix(m_file, suffix), withSuffix(damaged, suffix), ignored);
    }
    m_log.write(formatText("Velmora: unreadable settings were set aside as %s", {damaged.native()}));
    m_database = std::make_unique<SettingsDatabase>(m_file);
}

void SqliteDefaults::watchFolder() {
    m_watch = std::make_unique<FolderWatch>(m_file.parent_path(), m_runLoop,
                                            [this](std::string_view name) { fileChanged(name); });
}

void SqliteDefaults::fileChanged(std::string_view name) {
    if (!name.starts_with(m_file.filename().native())) return;
    // An attempt to open a file that cannot be opened may change the folder too, and would call for the next.
    lookAfter(isOpen(*m_database) ? kCommitSeconds : kFlushSeconds);
}

void SqliteDefaults::lookAfter(double seconds) {
    if (!m_lookTimer) m_lookTimer = m_runLoop.after(seconds, [this] { lookForOthersChanges(); });
}

void SqliteDefaults::lookForOthersChanges() {
    m_lookTimer.reset();
    if (!m_database->isStillAtItsPath()) openReplaced();
    const bool isOthersFile = std::exchange(m_isOthersFile, false);
    if (m_database->wasChangedByOthers() || isOthersFile) changedOutside.fire();
}

void SqliteDefaults::logOnce(std::string_view problem) {
    if (m_troubleLogged) return;
    m_troubleLogged = true;
    m_log.write(formatText("Velmora: settings last only for this run: %s", {problem}));
}

}  // namespace velmora
