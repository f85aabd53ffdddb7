#include "platform/linux/files/FolderWatch.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace velmora {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FolderWatchTest : public ::testing::Test {
protected:
    std::unique_ptr<FolderWatch> watch(const std::filesystem::path& path) {
        return std::make_unique<FolderWatch>(path, runLoop,
                                             [this](std::string_view name) { told.emplace(name); });
    }
    /// What was told of since the last call. The kernel queues an event within the call that causes it.
    std::set<std::string> namesTold() {
        while (runLoop.pollWatches(std::chrono::milliseconds(0)) > 0) continue;
        return std::exchange(told, {});
    }

    TemporaryFolder folder;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    std::set<std::string> told;
};

TEST_F(FolderWatchTest, FilesMadeWrittenMovedAndRemovedAreTold) {
    folder.write("old", "1");
    const auto watching = watch(folder.path());
    EXPECT_THAT(namesTold(), IsEmpty()) << "what was there before is no news";
    folder.write("new", "");
    EXPECT_THAT(namesTold(), ElementsAre("new"));
    folder.write("old", "2");
    EXPECT_THAT(namesTold(), ElementsAre("old"));
    std::filesystem::rename(folder.path() / "old", folder.path() / "moved");
    EXPECT_THAT(namesTold(), ElementsAre("moved", "old"));
    std::filesystem::remove(folder.path() / "moved");
    EXPECT_THAT(namesTold(), ElementsAre("moved"));
}

TEST_F(FolderWatchTest, ReadingAFileIsNotTold) {
    folder.write("file", "text");
    const auto watching = watch(folder.path());
    EXPECT_EQ(TemporaryFolder::contentsOf(folder.path() / "file"), "text");
    EXPECT_THAT(namesTold(), IsEmpty());
}

TEST_F(FolderWatchTest, FilesInAFolderBelowAreNotTold) {
    folder.write("below/file", "1");
    const auto watching = watch(folder.path());
    folder.write("below/file", "2");
    EXPECT_THAT(namesTold(), IsEmpty());
}

TEST_F(FolderWatchTest, MoreChangesThanOneReadTakesAreAllTold) {
    const auto watching = watch(folder.path());
    for (int number = 0; number < 300; ++number) folder.write("file" + std::to_string(number), "x");
    const auto names = namesTold();
    EXPECT_EQ(names.size(), 300U);
    EXPECT_THAT(names, Contains("file299"));
}

TEST_F(FolderWatchTest, MissingFolderIsNotWatched) {
    const auto watching = watch(folder.path() / "nowhere");
    EXPECT_EQ(runLoop.watcherCount(), 0U);
}

TEST_F(FolderWatchTest, WatchThatIsGoneTellsNothing) {
    watch(folder.path());
    EXPECT_EQ(runLoop.watcherCount(), 0U);
    folder.write("file", "1");
    EXPECT_THAT(namesTold(), IsEmpty());
}

}  // namespace
}  // namespace velmora
