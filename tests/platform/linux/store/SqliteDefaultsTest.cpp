#include "platform/linux/store/SqliteDefaults.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <sqlite3.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace velmora {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Runs SQL on a file from outside, as another program would.
void runOutside(const std::filesystem::path& file, const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    char* problem = nullptr;
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &problem), SQLITE_OK)
        << (problem ? problem : "");
    sqlite3_free(problem);
    sqlite3_close(database);
}

/// What a query with one answer says from outside; "(none)" without a row. `?1` in it is the word.
std::string answerOutside(const std::filesystem::path& file, const std::string& sql,
                          const std::string& word = "") {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, word.data(), static_cast<int>(word.size()), SQLITE_STATIC);
    std::string text = "(none)";
    if (sqlite3_step(statement) == SQLITE_ROW)
        text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return text;
}

/// The stored text of a key, read from outside; "(none)" without a row.
std::string storedOutside(const std::filesystem::path& file, const std::string& key) {
    return answerOutside(file, "SELECT value FROM defaults WHERE key = ?1", key);
}

class SqliteDefaultsTest : public ::testing::Test {
protected:
    std::unique_ptr<SqliteDefaults> open() {
        return std::make_unique<SqliteDefaults>(file, runLoop, clock, log);
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "config" / "Velmora" / "defaults.db";
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeSystemLog log;
};

TEST_F(SqliteDefaultsTest, FirstUseMakesTheFolderAndTheFile) {
    const auto defaults = open();
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_EQ(defaults->read("sampleInterval"), std::nullopt);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(SqliteDefaultsTest, FileIsOneTableOfTextsByKeyWithAWriteAheadLog) {
    const auto defaults = open();
    defaults->setTextArray("enabledModules", {"cpu", "disk"});
    EXPECT_EQ(answerOutside(file, "SELECT group_concat(sql) FROM sqlite_schema WHERE type = 'table'"),
              "CREATE TABLE defaults (key TEXT PRIMARY KEY, value TEXT NOT NULL)");
    EXPECT_EQ(answerOutside(file, "PRAGMA journal_mode"), "wal");
    EXPECT_EQ(storedOutside(file, "enabledModules"), R"(["cpu","disk"])");
}

TEST_F(SqliteDefaultsTest, EveryTypeComesBackFromTheFile) {
    {
        const auto defaults = open();
        defaults->setText("languageCode", "zh-Hant");
        defaults->setBoolean("launchAtLogin", false);
        defaults->setNumber("sampleInterval", 2.0);
        defaults->setUnsignedInteger("net.today.base", std::numeric_limits<std::uint64_t>::max());
        defaults->setTextArray("enabledModules", {"cpu", "network"});
        defaults->setNumberArray("series", {0.25, 1, 1e-9});
        defaults->setTextMap("moduleColors", {{"cpu", "0A84FF"}});
        defaults->setNumberMap("moduleIntervals", {{"disk", 5}});
        defaults->setTextArrayMap("moduleHiddenMetrics", {{"cpu", {}}, {"disk", {"top"}}});
    }
    const auto defaults = open();
    EXPECT_EQ(defaults->text("languageCode"), "zh-Hant");
    EXPECT_EQ(defaults->boolean("launchAtLogin"), false);
    EXPECT_EQ(defaults->number("sampleInterval"), 2.0);
    EXPECT_EQ(defaults->unsignedInteger("net.today.base"), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(defaults->textArray("enabledModules"), (std::vector<std::string>{"cpu", "network"}));
    EXPECT_EQ(defaults->numberArray("series"), (std::vector<double>{0.25, 1, 1e-9}));
    EXPECT_EQ(defaults->textMap("moduleColors"), (std::map<std::string, std::string>{{"cpu", "0A84FF"}}));
    EXPECT_EQ(defaults->numberMap("moduleIntervals"), (std::map<std::string, double>{{"disk", 5}}));
    EXPECT_EQ(defaults->textArrayMap("moduleHiddenMetrics"),
              (std::map<std::string, std::vector<std::string>>{{"cpu", {}}, {"disk", {"top"}}}));
}

TEST_F(SqliteDefaultsTest, DoublesComeBackToTheLastBit) {
    const std::vector<double> values = {0.1, 1.0 / 3, 1e308, 5e-324, -0.0, 1'700'000'000.123456};
    open()->setNumberArray("values", values);
    EXPECT_EQ(open()->numberArray("values"), values);
}

TEST_F(SqliteDefaultsTest, RemovedKeyIsAbsent) {
    const auto defaults = open();
    defaults->setText("languageCode", "de");
    defaults->remove("languageCode");
    EXPECT_EQ(defaults->read("languageCode"), std::nullopt);
    EXPECT_EQ(storedOutside(file, "languageCode"), "(none)");
}

TEST_F(SqliteDefaultsTest, KeysMayHoldAnyCharacters) {
    const std::string key = "it's \"odd\"; DROP TABLE defaults; \xC3\xA9";
    open()->setText(key, "here");
    EXPECT_EQ(open()->text(key), "here");
}

TEST_F(SqliteDefaultsTest, TextThatIsNotUTF8IsStoredWithReplacements) {
    open()->setText("name",
                    "a\xFF"
                    "b");
    EXPECT_EQ(open()->text("name"),
              "a\xEF\xBF\xBD"
              "b");
}

TEST_F(SqliteDefaultsTest, WriteOfNowIsOnTheDiskWhenItReturns) {
    const auto defaults = open();
    defaults->setNumber("sampleInterval", 5);
    EXPECT_EQ(storedOutside(file, "sampleInterval"), "5.0");
}

TEST_F(SqliteDefaultsTest, RelaxedWriteIsVisibleAtOnceAndOnTheDiskAfterTenSeconds) {
    const auto defaults = open();
    defaults->setNumber("net.active", 1, Defaults::Urgency::relaxed);
    EXPECT_EQ(defaults->number("net.active"), 1);
    EXPECT_EQ(storedOutside(file, "net.active"), "(none)");
    runLoop.advance(9.9);
    EXPECT_EQ(storedOutside(file, "net.active"), "(none)");
    runLoop.advance(0.1);
    EXPECT_EQ(storedOutside(file, "net.active"), "1.0");
}

TEST_F(SqliteDefaultsTest, RelaxedWritesOfTenSecondsAreOneDiskWrite) {
    const auto defaults = open();
    std::vector<std::string> onDisk;
    for (int second = 1; second <= 25; ++second) {
        defaults->setNumber("net.active", second, Defaults::Urgency::relaxed);
        runLoop.advance(1);
        const std::string stored = storedOutside(file, "net.active");
        if (onDisk.empty() || onDisk.back() != stored) onDisk.push_back(stored);
    }
    EXPECT_THAT(onDisk, ElementsAre("(none)", "10.0", "20.0"));
}

TEST_F(SqliteDefaultsTest, WithoutRelaxedWritesNoTimerWaits) {
    const auto defaults = open();
    defaults->setNumber("sampleInterval", 5);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    defaults->setNumber("net.active", 1, Defaults::Urgency::relaxed);
    EXPECT_EQ(runLoop.timerCount(), 1u);
    runLoop.advance(10);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(SqliteDefaultsTest, RelaxedWritesReachTheDiskAtDestruction) {
    open()->setNumber("net.active", 3, Defaults::Urgency::relaxed);
    EXPECT_EQ(storedOutside(file, "net.active"), "3.0");
}

TEST_F(SqliteDefaultsTest, RelaxedWritesReachTheDiskWhenAskedTo) {
    const auto defaults = open();
    defaults->setNumber("net.active", 3, Defaults::Urgency::relaxed);
    defaults->synchronize();
    EXPECT_EQ(storedOutside(file, "net.active"), "3.0");
}

TEST_F(SqliteDefaultsTest, WriteOfNowReplacesAWaitingRelaxedOneOfItsKey) {
    const auto defaults = open();
    defaults->setNumber("counter", 1, Defaults::Urgency::relaxed);
    defaults->setNumber("counter", 2);
    runLoop.advance(20);
    EXPECT_EQ(storedOutside(file, "counter"), "2.0");
}

TEST_F(SqliteDefaultsTest, RemovalReplacesAWaitingRelaxedWriteOfItsKey) {
    const auto defaults = open();
    defaults->setNumber("counter", 1, Defaults::Urgency::relaxed);
    defaults->remove("counter");
    EXPECT_EQ(defaults->read("counter"), std::nullopt);
    runLoop.advance(20);
    EXPECT_EQ(storedOutside(file, "counter"), "(none)");
}

TEST_F(SqliteDefaultsTest, TwoCopiesLoseNoneOfEachOthersKeysAndSeeEachOthersWrites) {
    const auto older = open();
    const auto newer = open();
    older->setText("old", "1");
    newer->setText("new", "2");
    EXPECT_EQ(newer->text("old"), "1");
    EXPECT_EQ(older->text("new"), "2");
    older->setNumber("old.counter", 1, Defaults::Urgency::relaxed);
    newer->setNumber("new.counter", 2, Defaults::Urgency::relaxed);
    runLoop.advance(10);
    const auto later = open();
    EXPECT_EQ(later->text("old"), "1");
    EXPECT_EQ(later->text("new"), "2");
    EXPECT_EQ(later->number("old.counter"), 1);
    EXPECT_EQ(later->number("new.counter"), 2);
}

TEST_F(SqliteDefaultsTest, ReadOfAKeyThatAnotherCopyWroteIsNeverAnOlderOne) {
    const auto reader = open();
    const auto writer = open();
    for (int value = 0; value < 100; ++value) {
        writer->setNumber("counter", value);
        ASSERT_EQ(reader->number("counter"), value);
    }
}

TEST_F(SqliteDefaultsTest, FileLockedByAnotherProcessIsWaitedForBrieflyAndWrittenLater) {
    const auto defaults = open();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    defaults->setNumber("sampleInterval", 5);
    EXPECT_EQ(defaults->number("sampleInterval"), 5);
    EXPECT_EQ(log.lines().size(), 1u);

    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    runLoop.advance(10);
    EXPECT_EQ(storedOutside(file, "sampleInterval"), "5.0");
    EXPECT_EQ(log.lines().size(), 1u);
}

TEST_F(SqliteDefaultsTest, ValueThatIsNotJSONReadsAsAbsent) {
    open()->setText("good", "value");
    runOutside(file,
               "INSERT INTO defaults VALUES ('empty', ''), ('broken', '{\"cpu\":'), ('two', '1 2'), "
               "('word', 'yes'), ('bytes', x'FF00FF')");
    const auto defaults = open();
    for (const char* key : {"empty", "broken", "two", "word", "bytes"})
        EXPECT_EQ(defaults->read(key), std::nullopt) << key;
    EXPECT_EQ(defaults->text("good"), "value");
}

TEST_F(SqliteDefaultsTest, ValueOfAnotherTypeReadsAsAbsent) {
    const auto defaults = open();
    defaults->setText("text", "1");
    defaults->setNumber("number", 1);
    EXPECT_EQ(defaults->number("text"), std::nullopt);
    EXPECT_EQ(defaults->boolean("text"), std::nullopt);
    EXPECT_EQ(defaults->text("number"), std::nullopt);
    EXPECT_EQ(defaults->textArray("number"), std::nullopt);
    EXPECT_EQ(defaults->textMap("number"), std::nullopt);
}

TEST_F(SqliteDefaultsTest, NumbersStoredInTheWrongColumnTypeReadAsTheirText) {
    { const auto made = open(); }
    // The column makes a text of it, as it does for everything that is no blob.
    runOutside(file, "INSERT INTO defaults VALUES ('sampleInterval', 5)");
    EXPECT_EQ(open()->number("sampleInterval"), 5);
}

void expectSetAside(const TemporaryFolder& folder, const std::filesystem::path& file,
                    const FakeSystemLog& log, const std::string& contents) {
    const std::filesystem::path damaged = file.native() + ".corrupt-1700000000";
    ASSERT_TRUE(std::filesystem::exists(damaged));
    EXPECT_EQ(TemporaryFolder::contentsOf(damaged), contents);
    EXPECT_THAT(log.lines(),
                ElementsAre("Velmora: unreadable settings were set aside as " + damaged.native()));
    static_cast<void>(folder);
}

TEST_F(SqliteDefaultsTest, GarbageFileIsSetAsideAndAFreshOneBegun) {
    const std::string garbage(5000, 'x');
    folder.write("config/Velmora/defaults.db", garbage);
    const auto defaults = open();
    expectSetAside(folder, file, log, garbage);
    defaults->setNumber("sampleInterval", 5);
    EXPECT_EQ(storedOutside(file, "sampleInterval"), "5.0");
}

TEST_F(SqliteDefaultsTest, TruncatedFileIsSetAsideAndAFreshOneBegun) {
    {
        const auto defaults = open();
        for (int index = 0; index < 400; ++index) {
            defaults->setText("key" + std::string(1, static_cast<char>('a' + index % 26)) +
                                  std::string(1, static_cast<char>('a' + index / 26)),
                              std::string(100, 'v'));
        }
    }
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
    const std::string contents = TemporaryFolder::contentsOf(file);
    const auto defaults = open();
    expectSetAside(folder, file, log, contents);
    EXPECT_EQ(defaults->read("keyaa"), std::nullopt);
}

TEST_F(SqliteDefaultsTest, DamageInTheMiddleIsFoundAtTheStart) {
    {
        const auto defaults = open();
        for (int index = 0; index < 26; ++index)
            defaults->setText(std::string(1, static_cast<char>('a' + index)), std::string(1000, 'v'));
    }
    std::string contents = TemporaryFolder::contentsOf(file);
    for (std::size_t at = 4096; at < 3 * 4096; ++at) contents[at] = '\x5A';
    folder.write("config/Velmora/defaults.db", contents);
    const auto defaults = open();
    expectSetAside(folder, file, log, contents);
}

TEST_F(SqliteDefaultsTest, LogOfADamagedFileGoesWithIt) {
    folder.write("config/Velmora/defaults.db", std::string(5000, 'x'));
    folder.write("config/Velmora/defaults.db-wal", "left over");
    const auto defaults = open();
    const std::filesystem::path damagedLog = file.native() + ".corrupt-1700000000-wal";
    EXPECT_EQ(TemporaryFolder::contentsOf(damagedLog), "left over");
}

TEST_F(SqliteDefaultsTest, SecondDamagedFileOfASecondGetsANameOfItsOwn) {
    for (int round = 0; round < 2; ++round) {
        folder.write("config/Velmora/defaults.db", std::string(5000, static_cast<char>('x' + round)));
        const auto defaults = open();
    }
    EXPECT_THAT(folder.names("config/Velmora"), ElementsAre("defaults.db", "defaults.db.corrupt-1700000000",
                                                            "defaults.db.corrupt-1700000000-2"));
}

TEST_F(SqliteDefaultsTest, EmptyFileIsAFreshStart) {
    folder.write("config/Velmora/defaults.db", "");
    const auto defaults = open();
    defaults->setText("languageCode", "de");
    EXPECT_EQ(storedOutside(file, "languageCode"), "\"de\"");
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(SqliteDefaultsTest, FileThatIsRemovedDuringTheRunIsMadeAnewAtTheNextWrite) {
    const auto defaults = open();
    defaults->setText("before", "1");
    for (const std::string& name : folder.names("config/Velmora"))
        std::filesystem::remove(file.parent_path() / name);
    defaults->setText("after", "2");
    EXPECT_EQ(storedOutside(file, "after"), "\"2\"");
}

TEST_F(SqliteDefaultsTest, FileThatAnotherCopySetAsideIsNotWrittenAnyMore) {
    const auto defaults = open();
    defaults->setText("before", "1");
    std::filesystem::rename(file, file.native() + ".corrupt-1");
    std::filesystem::rename(file.native() + "-wal", file.native() + ".corrupt-1-wal");
    std::filesystem::rename(file.native() + "-shm", file.native() + ".corrupt-1-shm");
    defaults->setText("after", "2");
    EXPECT_EQ(storedOutside(file, "after"), "\"2\"");
}

TEST_F(SqliteDefaultsTest, FolderInTheFilesPlaceCostsPersistenceOnly) {
    std::filesystem::create_directories(file);
    const auto defaults = open();
    defaults->setNumber("sampleInterval", 5);
    defaults->setNumber("net.active", 1, Defaults::Urgency::relaxed);
    runLoop.advance(60);
    EXPECT_EQ(defaults->number("sampleInterval"), 5);
    EXPECT_EQ(defaults->number("net.active"), 1);
    defaults->remove("sampleInterval");
    EXPECT_EQ(defaults->read("sampleInterval"), std::nullopt);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_THAT(log.lines()[0], StartsWith("Velmora: settings last only for this run: "));
}

TEST_F(SqliteDefaultsTest, ValuesKeptThroughTroubleReachTheDiskWhenItEnds) {
    std::filesystem::create_directories(file);
    const auto defaults = open();
    defaults->setNumber("sampleInterval", 5);
    std::filesystem::remove(file);
    runLoop.advance(10);
    EXPECT_EQ(storedOutside(file, "sampleInterval"), "5.0");
}

TEST_F(SqliteDefaultsTest, FileInTheFoldersPlaceCostsPersistenceOnly) {
    folder.write("config", "a file");
    const auto defaults = open();
    defaults->setNumber("sampleInterval", 5);
    EXPECT_EQ(defaults->number("sampleInterval"), 5);
    EXPECT_EQ(log.lines().size(), 1u);
}

TEST_F(SqliteDefaultsTest, LaterLayoutIsReadAndNeverChanged) {
    open()->setText("languageCode", "de");
    runOutside(
        file,
        "PRAGMA user_version = 2; ALTER TABLE defaults ADD COLUMN owner TEXT; PRAGMA journal_mode = DELETE");
    const std::string before = TemporaryFolder::contentsOf(file);
    {
        const auto defaults = open();
        EXPECT_EQ(defaults->text("languageCode"), "de");
        defaults->setText("languageCode", "fr");
        EXPECT_EQ(defaults->text("languageCode"), "fr");
        defaults->setNumber("net.active", 1, Defaults::Urgency::relaxed);
        runLoop.advance(60);
    }
    EXPECT_EQ(TemporaryFolder::contentsOf(file), before);
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_THAT(log.lines()[0], HasSubstr("another program version's layout"));
}

TEST_F(SqliteDefaultsTest, ForeignDatabaseIsNeverChanged) {
    std::filesystem::create_directories(file.parent_path());
    runOutside(file, "CREATE TABLE recipes (name TEXT); INSERT INTO recipes VALUES ('soup')");
    const std::string before = TemporaryFolder::contentsOf(file);
    {
        const auto defaults = open();
        EXPECT_EQ(defaults->read("languageCode"), std::nullopt);
        defaults->setText("languageCode", "fr");
        EXPECT_EQ(defaults->text("languageCode"), "fr");
    }
    EXPECT_EQ(TemporaryFolder::contentsOf(file), before);
    EXPECT_EQ(folder.names("config/Velmora"), std::vector<std::string>{"defaults.db"});
}

TEST_F(SqliteDefaultsTest, TableWithOtherColumnsIsNeverChanged) {
    std::filesystem::create_directories(file.parent_path());
    runOutside(file, "CREATE TABLE defaults (name TEXT, data BLOB); PRAGMA user_version = 1");
    const std::string before = TemporaryFolder::contentsOf(file);
    open()->setText("languageCode", "fr");
    EXPECT_EQ(TemporaryFolder::contentsOf(file), before);
}

}  // namespace
}  // namespace velmora
