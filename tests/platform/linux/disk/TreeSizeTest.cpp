#include "platform/linux/disk/TreeSize.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// What the file system has given to a file, which is what counts.
std::int64_t allocated(const fs::path& file) {
    struct stat status {};
    EXPECT_EQ(::lstat(file.c_str(), &status), 0);
    return status.st_blocks * 512;
}

class TreeSizeTest : public testing::Test {
protected:
    fs::path write(const std::string& name, std::size_t length = 10'000) {
        return folder.write(name, std::string(length, 'x'));
    }
    std::int64_t size(const std::set<std::string>& leftOut = {}) {
        return treeSize(folder.path().string(), leftOut, {});
    }

    TemporaryFolder folder;
};

TEST_F(TreeSizeTest, FilesCountWithTheirAllocatedBytes) {
    const auto one = write("a");
    const auto two = write("below/deeper/b", 100'000);
    const auto empty = write("empty", 0);
    EXPECT_EQ(size(), allocated(one) + allocated(two) + allocated(empty));
    EXPECT_GE(size(), 110'000);
}

TEST_F(TreeSizeTest, FoldersThemselvesCountNothing) {
    fs::create_directories(folder.path() / "a/b/c");
    EXPECT_EQ(size(), 0);
}

TEST_F(TreeSizeTest, HoleInAFileCountsNothing) {
    const auto file = write("sparse", 1);
    fs::resize_file(file, 100'000'000);
    EXPECT_EQ(size(), allocated(file));
    EXPECT_LT(size(), 1'000'000);
}

TEST_F(TreeSizeTest, FileWithSeveralNamesCountsOnce) {
    const auto file = write("a/file");
    fs::create_directories(folder.path() / "b");
    fs::create_hard_link(file, folder.path() / "b/same");
    fs::create_hard_link(file, folder.path() / "again");
    EXPECT_EQ(size(), allocated(file));
}

TEST_F(TreeSizeTest, LinkIsNotFollowed) {
    TemporaryFolder elsewhere;
    elsewhere.write("large", std::string(500'000, 'x'));
    fs::create_symlink(elsewhere.path(), folder.path() / "link");
    fs::create_symlink(elsewhere.path() / "large", folder.path() / "fileLink");
    fs::create_symlink(folder.path(), folder.path() / "circle");
    EXPECT_EQ(size(), allocated(folder.path() / "link") + allocated(folder.path() / "fileLink") +
                          allocated(folder.path() / "circle"));
}

TEST_F(TreeSizeTest, StartMayBeALink) {
    const auto file = write("real/a");
    fs::create_symlink("real", folder.path() / "link");
    EXPECT_EQ(treeSize((folder.path() / "link").string(), {}, {}), allocated(file));
}

TEST_F(TreeSizeTest, FilesInsideAnApplicationPackageAreNotCounted) {
    write("Editor.app/Contents/program");
    const auto file = write("Editor.appdata/program");
    EXPECT_EQ(size(), allocated(file));
}

TEST_F(TreeSizeTest, FileNamedAsAPackageCounts) {
    const auto file = write("single.app");
    EXPECT_EQ(size(), allocated(file));
}

TEST_F(TreeSizeTest, PackageThatIsTheStartIsLookedThrough) {
    const auto file = write("Editor.app/program");
    EXPECT_EQ(treeSize((folder.path() / "Editor.app").string(), {}, {}), allocated(file));
}

TEST_F(TreeSizeTest, WhatIsLeftOutIsNotCounted) {
    const auto file = write("kept/a");
    write("out/b");
    write("kept/out/c");
    EXPECT_EQ(size({(folder.path() / "out").string(), (folder.path() / "kept/out").string()}),
              allocated(file));
}

TEST_F(TreeSizeTest, SlashAtTheEndOfTheStartDoesNotCount) {
    const auto file = write("a");
    write("out/b");
    EXPECT_EQ(treeSize(folder.path().string() + "//", {(folder.path() / "out").string()}, {}),
              allocated(file));
}

TEST_F(TreeSizeTest, OtherFileSystemsBelowAreNotEntered) {
    // /proc/self holds links and files, and below "/" other file systems begin at /proc and /sys.
    struct stat root {};
    struct stat proc {};
    ASSERT_EQ(::stat("/", &root), 0);
    ASSERT_EQ(::stat("/proc", &proc), 0);
    ASSERT_NE(root.st_dev, proc.st_dev);
    std::set<std::string> leftOut;
    for (const auto& entry : fs::directory_iterator("/")) {
        if (entry.path() != "/proc" && entry.path() != "/sys") leftOut.insert(entry.path().string());
    }
    EXPECT_EQ(treeSize("/", leftOut, {}), 0);
}

TEST_F(TreeSizeTest, StartThatIsMissingOrAFileCountsNothing) {
    const auto file = write("a");
    EXPECT_EQ(treeSize((folder.path() / "none").string(), {}, {}), 0);
    EXPECT_EQ(treeSize(file.string(), {}, {}), 0);
    EXPECT_EQ(treeSize("", {}, {}), 0);
}

TEST_F(TreeSizeTest, FolderThatCannotBeReadIsPassedOver) {
    const auto file = write("a");
    write("closed/b");
    const fs::path closed = folder.path() / "closed";
    fs::permissions(closed, fs::perms::none);
    // The administrator reads everything, so for that user the size is that of both.
    const bool readsAll = ::access(closed.c_str(), R_OK) == 0;
    const std::int64_t expected = allocated(file) + (readsAll ? allocated(closed / "b") : 0);
    EXPECT_EQ(size(), expected);
    fs::permissions(closed, fs::perms::owner_all);
}

TEST_F(TreeSizeTest, PipeDoesNotHoldTheWalk) {
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(size(), 0);
}

TEST_F(TreeSizeTest, DeeperThan200LevelsIsNotCounted) {
    std::string path = folder.path().string();
    for (int level = 1; level < 200; ++level) {
        path += "/d";
        ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
    }
    folder.write(fs::relative(path, folder.path()).string() + "/inside", std::string(9000, 'x'));
    const std::int64_t inside = allocated(path + "/inside");
    ASSERT_EQ(::mkdir((path + "/e").c_str(), 0700), 0);
    folder.write(fs::relative(path, folder.path()).string() + "/e/outside", std::string(9000, 'x'));
    EXPECT_EQ(size(), inside);
}

TEST_F(TreeSizeTest, RequestedStopEndsTheWalk) {
    write("a");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(treeSize(folder.path().string(), {}, stop.get_token()), 0);
}

}  // namespace
}  // namespace velmora
