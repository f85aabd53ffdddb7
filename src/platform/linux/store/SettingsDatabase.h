#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace velmora {

/// One open connection to a file of stored values: the table `defaults` of texts by key.
///
/// Commits reach the kernel before `store` returns and are not forced to the platter (write-ahead log with
/// `synchronous=NORMAL`): a killed process loses nothing, and a power cut can cost the last writes but never
/// the file. Another process that holds the file is waited for a tenth of a second, so nobody's main thread
/// hangs.
class SettingsDatabase {
public:
    enum class State {
        ready,        ///< Reads and writes.
        readOnly,     ///< Reads; the file or its folder cannot be written.
        foreign,      ///< The layout is not ours, probably a later one: reads what it can, writes nothing.
        corrupt,      ///< The file is damaged or no database.
        unavailable,  ///< Cannot be opened at present.
    };
    enum class Outcome { stored, refused, corrupt };
    /// Texts by key; nothing in place of a text removes the key.
    using Changes = std::map<std::string, std::optional<std::string>, std::less<>>;

    /// Opens the file, or makes it where there is none.
    explicit SettingsDatabase(const std::filesystem::path& file);
    ~SettingsDatabase();
    SettingsDatabase(const SettingsDatabase&) = delete;
    SettingsDatabase& operator=(const SettingsDatabase&) = delete;

    State state() const { return m_state; }
    /// The reason for any state but `ready`, and for the last refused store.
    const std::string& problem() const { return m_problem; }
    /// False once the path leads to another file: this one was removed, or set aside by another process.
    bool isStillAtItsPath() const;

    /// Whether another connection has committed something since this was last asked.
    bool wasChangedByOthers();

    struct Value {
        Outcome outcome = Outcome::stored;
        std::optional<std::string> text;  ///< Nothing if the key is not stored, or not as a text.
    };
    Value read(std::string_view key);
    /// All of the changes, or none.
    Outcome store(const Changes& changes);

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    State openForWriting();
    State openForReading();
    State checkLayout();
    /// Makes the table in an empty file, or finds another process's.
    State makeLayout();
    int open(const std::string& name, int flags);
    void close();
    bool execute(const char* sql);
    Statement prepare(const char* sql);
    bool step(sqlite3_stmt* statement);
    /// Remembers why the last call failed, and tells what that makes of the file.
    State failure();
    Outcome refusal();

    std::filesystem::path m_file;
    sqlite3* m_connection = nullptr;
    State m_state = State::unavailable;
    std::string m_problem;
    std::optional<std::pair<dev_t, ino_t>> m_identity;
    Statement m_select;
    Statement m_upsert;
    Statement m_delete;
    Statement m_dataVersion;
    std::int64_t m_lastDataVersion = 0;
};

}  // namespace velmora
