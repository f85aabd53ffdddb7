#include "platform/linux/store/SettingsDatabase.h"

#include "base/FormatText.h"

#include <sys/stat.h>

#include <sqlite3.h>

#include <utility>

namespace velmora {
namespace {

// The layout's number in the file, raised only by a change that older programs must not write to.
constexpr int kLayoutVersion = 1;
constexpr int kBusyTimeoutMs = 100;

std::optional<std::pair<dev_t, ino_t>> identityOf(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) return std::nullopt;
    return std::pair(status.st_dev, status.st_ino);
}

/// A file name in the form of an address, in which options can be given.
std::string addressOf(const std::filesystem::path& file) {
    std::string address = "file:";
    for (const char letter : file.native()) {
        if (letter == '%' || letter == '?' || letter == '#') {
            appendFormat(address, "%%%02x", {static_cast<unsigned>(static_cast<unsigned char>(letter))});
        } else {
            address.push_back(letter);
        }
    }
    return address;
}

void bindText(sqlite3_stmt* statement, int position, std::string_view text) {
    sqlite3_bind_text64(statement, position, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

}  // namespace

void SettingsDatabase::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

SettingsDatabase::SettingsDatabase(const std::filesystem::path& file) : m_file(file) {
    m_state = openForWriting();
    const bool isBusy = (sqlite3_errcode(m_connection) & 0xff) == SQLITE_BUSY;
    if ((m_state == State::unavailable && !isBusy) || m_state == State::readOnly) {
        // A closed database in a folder that takes no new files can be read only as one that never changes.
        const std::string problem = m_problem;
        const State reading = openForReading();
        if (reading != State::unavailable) m_state = reading;
        m_problem = problem;
    }
    if (m_state == State::corrupt || m_state == State::unavailable) {
        close();
        return;
    }
    m_identity = identityOf(m_file);
    m_select = prepare("SELECT value FROM defaults WHERE key = ?1");
    m_dataVersion = prepare("PRAGMA data_version");
    wasChangedByOthers();
    if (m_state != State::ready) return;
    m_upsert = prepare(
        "INSERT INTO defaults (key, value) VALUES (?1, ?2) "
        "ON CONFLICT (key) DO UPDATE SET value = excluded.value");
    m_delete = prepare("DELETE FROM defaults WHERE key = ?1");
}

SettingsDatabase::~SettingsDatabase() {
    close();
}

SettingsDatabase::State SettingsDatabase::openForWriting() {
    std::error_code ignored;
    std::filesystem::create_directories(m_file.parent_path(), ignored);
    const int result = open(m_file.native(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (result != SQLITE_OK) return failure();
    if (sqlite3_db_readonly(m_connection, "main") == 1) {
        m_problem = "the file cannot be written";
        return State::readOnly;
    }
    return checkLayout();
}

SettingsDatabase::State SettingsDatabase::openForReading() {
    close();
    const int result = open(addressOf(m_file) + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    if (result != SQLITE_OK) return State::unavailable;
    switch (const State layout = checkLayout()) {
        case State::ready:
        case State::readOnly:
            return State::readOnly;
        case State::foreign:
            return layout;
        case State::corrupt:  // Or changed by somebody else while we looked; damage is found by a writer
                              // alone.
        case State::unavailable:
            break;
    }
    return State::unavailable;
}

SettingsDatabase::State SettingsDatabase::checkLayout() {
    const bool readOnly = sqlite3_db_readonly(m_connection, "main") == 1;
    // One statement, so that the answer is of one moment: another process may be making the layout just now.
    const Statement layout =
        prepare("SELECT user_version, (SELECT count(*) FROM sqlite_schema) FROM pragma_user_version");
    if (!layout || !step(layout.get())) return failure();
    const int version = sqlite3_column_int(layout.get(), 0);
    const int objects = sqlite3_column_int(layout.get(), 1);
    sqlite3_reset(layout.get());
    // Damage past the first page shows only when somebody looks. The file is small.
    if (const Statement check = prepare("PRAGMA quick_check(1)"); !check || !step(check.get())) {
        return failure();
    } else if (const auto* answer = sqlite3_column_text(check.get(), 0);
               answer == nullptr || std::string_view(reinterpret_cast<const char*>(answer)) != "ok") {
        m_problem = "the file is damaged";
        return State::corrupt;
    }
    if (version == 0 && objects == 0) {
        if (!readOnly) return makeLayout();
        m_problem = "the file is empty";
        return State::unavailable;
    }
    if (version > kLayoutVersion || !prepare("SELECT key, value FROM defaults LIMIT 0")) {
        m_problem = "the file has another program version's layout";
        return State::foreign;
    }
    if (readOnly) return State::ready;
    return execute("PRAGMA journal_mode = WAL") && execute("PRAGMA synchronous = NORMAL") ? State::ready
                                                                                          : failure();
}

SettingsDatabase::State SettingsDatabase::makeLayout() {
    // There is nothing to lose yet, so the first start does not wait for the disk. A file system without
    // shared memory keeps the older kind of journal; that is slower and as safe.
    execute("PRAGMA synchronous = OFF");
    execute("PRAGMA journal_mode = WAL");
    const bool made =
        execute("BEGIN IMMEDIATE") &&
        execute("CREATE TABLE IF NOT EXISTS defaults (key TEXT PRIMARY KEY, value TEXT NOT NULL)") &&
        execute("PRAGMA user_version = 1") && execute("COMMIT") && execute("PRAGMA synchronous = NORMAL");
    return made ? State::ready : failure();
}

int SettingsDatabase::open(const std::string& name, int flags) {
    const int result = sqlite3_open_v2(name.c_str(), &m_connection,
                                       flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (result == SQLITE_OK) sqlite3_busy_timeout(m_connection, kBusyTimeoutMs);
    return result;
}

void SettingsDatabase::close() {
    m_select.reset();
    m_upsert.reset();
    m_delete.reset();
    m_dataVersion.reset();
    // The log of a damaged file is evidence, which a usual close would fold into the file or remove.
    if (m_connection != nullptr && m_state == State::corrupt) {
        sqlite3_db_config(m_connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    }
    sqlite3_close(m_connection);
    m_connection = nullptr;
}

bool SettingsDatabase::execute(const char* sql) {
    return sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

SettingsDatabase::Statement SettingsDatabase::prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(m_connection, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return Statement(statement);
}

bool SettingsDatabase::step(sqlite3_stmt* statement) {
    return sqlite3_step(statement) == SQLITE_ROW;
}

SettingsDatabase::State SettingsDatabase::failure() {
    m_problem = m_connection ? sqlite3_errmsg(m_connection) : "out of memory";
    switch (sqlite3_errcode(m_connection) & 0xff) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return State::corrupt;
        case SQLITE_READONLY:
            return State::readOnly;
        default:
            return State::unavailable;
    }
}

SettingsDatabase::Outcome SettingsDatabase::refusal() {
    return failure() == State::corrupt ? Outcome::corrupt : Outcome::refused;
}

bool SettingsDatabase::isStillAtItsPath() const {
    return m_identity && m_identity == identityOf(m_file);
}

bool SettingsDatabase::wasChangedByOthers() {
    if (!m_dataVersion) return false;
    const bool hasAnswer = step(m_dataVersion.get());
    const std::int64_t version = hasAnswer ? sqlite3_column_int64(m_dataVersion.get(), 0) : m_lastDataVersion;
    sqlite3_reset(m_dataVersion.get());
    return std::exchange(m_lastDataVersion, version) != version;
}

SettingsDatabase::Value SettingsDatabase::read(std::string_view key) {
    if (!m_select) return {};
    bindText(m_select.get(), 1, key);
    Value value;
    const int result = sqlite3_step(m_select.get());
    if (result == SQLITE_ROW && sqlite3_column_type(m_select.get(), 0) == SQLITE_TEXT) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_select.get(), 0));
        value.text.emplace(text, static_cast<std::size_t>(sqlite3_column_bytes(m_select.get(), 0)));
    } else if (result != SQLITE_ROW && result != SQLITE_DONE) {
        value.outcome = refusal();
    }
    sqlite3_reset(m_select.get());
    return value;
}

SettingsDatabase::Outcome SettingsDatabase::store(const Changes& changes) {
    if (m_state != State::ready || !m_upsert || !m_delete) return Outcome::refused;
    if (!execute("BEGIN IMMEDIATE")) return refusal();
    bool done = true;
    for (const auto& [key, text] : changes) {
        sqlite3_stmt* const statement = text ? m_upsert.get() : m_delete.get();
        bindText(statement, 1, key);
        if (text) bindText(statement, 2, *text);
        done = sqlite3_step(statement) == SQLITE_DONE;
        if (!done) break;
        sqlite3_reset(statement);
    }
    done = done && execute("COMMIT");
    if (done) return Outcome::stored;

    const Outcome outcome = refusal();
    sqlite3_reset(m_upsert.get());
    sqlite3_reset(m_delete.get());
    if (sqlite3_get_autocommit(m_connection) == 0) execute("ROLLBACK");
    return outcome;
}

}  // namespace velmora
