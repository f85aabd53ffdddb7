#pragma once

#include "base/Subscription.h"
#include "platform/Defaults.h"
#include "platform/linux/files/FolderWatch.h"
#include "platform/linux/store/SettingsDatabase.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace velmora {

class Clock;
class RunLoop;
class SystemLog;

/// The user's values in one SQLite file. Each key is written for itself and read from the file, so two copies
/// of the program lose none of each other's keys and see each other's writes.
///
/// A value waits in memory until it is on the disk: a relaxed one for at most ten seconds, and any value for
/// as long as the file cannot be written (full disk, read-only folder, another process at work), with one log
/// line and a new attempt every ten seconds. A damaged file is set aside as `<name>.corrupt-<seconds since
/// 1970>`, with its log, and a fresh one begun. A file of a later layout is read as far as its table allows
/// and never changed, since what a newer program put there is not ours to touch: changes then last for the
/// run.
class SqliteDefaults final : public Defaults {
public:
    /// The file's folder is made if it is missing. All collaborators must outlive this.
    SqliteDefaults(std::filesystem::path file, RunLoop& runLoop, const Clock& clock, SystemLog& log);
    ~SqliteDefaults() override;

    std::optional<nlohmann::json> read(std::string_view key) const override;
    void write(std::string_view key, const nlohmann::json& value, Urgency urgency) override;
    void remove(std::string_view key) override;
    void synchronize() override;

private:
    /// Nothing in place of a value is a removal.
    using Pending = std::map<std::string, std::optional<nlohmann::json>, std::less<>>;

    void keep(std::string_view key, std::optional<nlohmann::json> value);
    void flush();
    void flushSoon();
    SettingsDatabase::Outcome storePending();
    /// Opens the file anew, setting a damaged one aside first.
    void open();
    /// The same for a file, or a folder, that may be another one than before.
    void openReplaced();
    void setAside();
    void logOnce(std::string_view problem);
    void watchFolder();
    void fileChanged(std::string_view name);
    void lookAfter(double seconds);
    void lookForOthersChanges();

    std::filesystem::path m_file;
    RunLoop& m_runLoop;
    const Clock& m_clock;
    SystemLog& m_log;
    Pending m_pending;
    Subscription m_flushTimer;
    std::unique_ptr<SettingsDatabase> m_database;
    bool m_troubleLogged = false;
    Subscription m_lookTimer;
    bool m_isOthersFile = false;  ///< The file was replaced, and nobody has been told yet.
    std::unique_ptr<FolderWatch> m_watch;
};

}  // namespace velmora
