// What one process hears of the writes of another one.

#include "platform/linux/store/SqliteDefaults.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>

namespace velmora {
namespace {

using ::testing::ElementsAre;

/// A store as it is in a process of its own.
struct Store {
    explicit Store(const std::filesystem::path& file) : defaults(file, runLoop, clock, log) {
        defaultsChanged = defaults.changedOutside.subscribe([this] { ++told; });
    }
    /// Lets a second pass, with all that the watched folder has to tell before it. The kernel queues an event
    /// within the call that causes it.
    void pass(double seconds = 1) {
        takeEvents();
        runLoop.advance(seconds);
        takeEvents();
    }
    void takeEvents() {
        while (runLoop.pollWatches(std::chrono::milliseconds(0)) > 0) continue;
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeSystemLog log;
    SqliteDefaults defaults;
    Subscription defaultsChanged;
    int told = 0;
};

class SqliteDefaultsFollowTest : public ::testing::Test {
protected:
    void removeAllFiles() const {
        for (const std::string& name : folder.names()) std::filesystem::remove_all(folder.path() / name);
    }

    TemporaryFolder folder;
    std::filesystem::path file = folder.path() / "defaults.db";
};

TEST_F(SqliteDefaultsFollowTest, CommitOfAnotherProcessIsToldAndTheNextReadSeesIt) {
    Store store(file);
    Store other(file);
    store.pass();
    const int before = store.told;
    other.defaults.setText("languageCode", "de");
    store.pass();
    EXPECT_EQ(store.told, before + 1);
    EXPECT_EQ(store.defaults.text("languageCode"), "de");
}

TEST_F(SqliteDefaultsFollowTest, RemovalByAnotherProcessIsTold) {
    Store store(file);
    Store other(file);
    store.defaults.setText("languageCode", "de");
    store.pass();
    const int before = store.told;
    other.defaults.remove("languageCode");
    store.pass();
    EXPECT_EQ(store.told, before + 1);
    EXPECT_EQ(store.defaults.text("languageCode"), std::nullopt);
}

TEST_F(SqliteDefaultsFollowTest, OwnWritesAreNotTold) {
    Store store(file);
    store.defaults.setText("languageCode", "de");
    store.pass();
    store.defaults.setNumber("net.active", 1, Defaults::Urgency::relaxed);
    store.pass(20);
    store.pass();
    store.defaults.remove("languageCode");
    store.pass();
    EXPECT_EQ(store.told, 0);
    EXPECT_EQ(store.runLoop.timerCount(), 0U) << "nothing goes on looking";
}

TEST_F(SqliteDefaultsFollowTest, WritesInQuickSuccessionAreToldOnce) {
    Store store(file);
    Store other(file);
    store.pass();
    const int before = store.told;
    for (int value = 0; value < 20; ++value) other.defaults.setNumber("sampleInterval", value);
    store.pass();
    EXPECT_EQ(store.told, before + 1);
    EXPECT_EQ(store.defaults.number("sampleInterval"), 19);
}

TEST_F(SqliteDefaultsFollowTest, WriteOfAnotherProcessAmongOwnOnesIsTold) {
    Store store(file);
    Store other(file);
    store.pass();
    const int before = store.told;
    store.defaults.setText("own", "1");
    other.defaults.setText("languageCode", "de");
    store.defaults.setText("own", "2");
    store.pass();
    EXPECT_EQ(store.told, before + 1);
}

TEST_F(SqliteDefaultsFollowTest, ReplacedFileIsTold) {
    Store store(file);
    store.defaults.setText("languageCode", "de");
    store.pass();
    removeAllFiles();
    { Store(file).defaults.setText("languageCode", "fr"); }
    store.pass();
    EXPECT_EQ(store.told, 1);
    EXPECT_EQ(store.defaults.text("languageCode"), "fr");
    store.pass();
    EXPECT_EQ(store.told, 1) << "once";
}

// The write opens the new file, and from then on nothing looked replaced.
TEST_F(SqliteDefaultsFollowTest, FileReplacedBeforeAWriteIsToldAfterIt) {
    Store store(file);
    store.defaults.setText("languageCode", "de");
    store.pass();
    removeAllFiles();
    { Store(file).defaults.setText("languageCode", "fr"); }
    store.defaults.setNumber("sampleInterval", 5);
    EXPECT_EQ(store.told, 0) << "not inside the write";
    store.pass();
    EXPECT_EQ(store.told, 1);
    EXPECT_EQ(store.defaults.text("languageCode"), "fr");
    EXPECT_EQ(store.defaults.number("sampleInterval"), 5);
}

TEST_F(SqliteDefaultsFollowTest, FolderMadeAnewIsWatchedAgain) {
    const std::filesystem::path below = folder.path() / "Velmora" / "defaults.db";
    Store store(below);
    removeAllFiles();
    store.defaults.setText("languageCode", "de");
    store.pass();
    Store other(below);
    store.pass();
    const int before = store.told;
    other.defaults.setText("languageCode", "fr");
    store.pass();
    EXPECT_EQ(store.told, before + 1);
}

TEST_F(SqliteDefaultsFollowTest, OtherFilesOfTheFolderAreNoReasonToLook) {
    Store store(file);
    store.pass();
    folder.write("tester.log", "line");
    store.takeEvents();
    EXPECT_EQ(store.runLoop.timerCount(), 0U);
}

// Each attempt to open such a file may make and remove a journal beside it, which calls for the next attempt.
TEST_F(SqliteDefaultsFollowTest, FileThatCannotBeOpenedIsTriedAgainOnlyEveryTenSeconds) {
    std::filesystem::create_directories(file);
    Store store(file);
    folder.write("defaults.db-journal", "");
    store.takeEvents();
    EXPECT_THAT(store.runLoop.timerSeconds(), ElementsAre(10.0));
    store.pass(10);
    EXPECT_EQ(store.told, 0) << "there is nothing to read yet";
}

TEST_F(SqliteDefaultsFollowTest, FileThatCanBeOpenedAtLastIsTold) {
    std::filesystem::create_directories(file);
    Store store(file);
    removeAllFiles();
    { Store(file).defaults.setText("languageCode", "fr"); }
    store.pass(10);
    EXPECT_EQ(store.told, 1);
    EXPECT_EQ(store.defaults.text("languageCode"), "fr");
}

}  // namespace
}  // namespace velmora
