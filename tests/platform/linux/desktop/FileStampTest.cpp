#include "platform/linux/desktop/FileStamp.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace velmora {
namespace {

constexpr FileStamp settled() {
    return {.kind = FileStamp::Kind::file,
            .device = 1,
            .inode = 2,
            .size = 3,
            .changeSeconds = 4,
            .changeNanoseconds = 5};
}

TEST(FileStamp, SettledFileIsStillTheSame) {
    EXPECT_TRUE(settled().isStill(settled()));
    EXPECT_TRUE(FileStamp().isStill(FileStamp()));
}

TEST(FileStamp, EachDifferenceIsAChange) {
    for (const auto change :
         {+[](FileStamp& stamp) { stamp.kind = FileStamp::Kind::folder; },
          +[](FileStamp& stamp) { ++stamp.device; }, +[](FileStamp& stamp) { ++stamp.inode; },
          +[](FileStamp& stamp) { ++stamp.size; }, +[](FileStamp& stamp) { ++stamp.changeSeconds; },
          +[](FileStamp& stamp) { ++stamp.changeNanoseconds; }}) {
        FileStamp now = settled();
        change(now);
        EXPECT_FALSE(settled().isStill(now));
    }
}

TEST(FileStamp, WhatHadJustChangedMayChangeAgainInTheSameMoment) {
    FileStamp fresh = settled();
    fresh.isFresh = true;
    EXPECT_FALSE(fresh.isStill(settled()));
}

TEST(FileStamp, NewFileIsFresh) {
    const TemporaryFolder folder;
    const FileStamp stamp = FileStamp::of(folder.write("file", "four"));
    EXPECT_EQ(stamp.kind, FileStamp::Kind::file);
    EXPECT_EQ(stamp.size, 4);
    EXPECT_TRUE(stamp.isFresh);
}

TEST(FileStamp, WhatIsThereSinceTheSystemWasInstalledIsNotFresh) {
    const FileStamp stamp = FileStamp::of("/usr");
    EXPECT_EQ(stamp.kind, FileStamp::Kind::folder);
    EXPECT_TRUE(stamp.isStill(FileStamp::of("/usr")));
}

TEST(FileStamp, LinkIsWhatItLeadsTo) {
    const TemporaryFolder folder;
    std::filesystem::create_symlink(folder.path(), folder.path() / "up");
    std::filesystem::create_symlink("nowhere", folder.path() / "broken");
    std::filesystem::create_symlink("circle", folder.path() / "circle");
    EXPECT_EQ(FileStamp::of(folder.path() / "up").inode, FileStamp::of(folder.path()).inode);
    EXPECT_EQ(FileStamp::of(folder.path() / "broken").kind, FileStamp::Kind::absent);
    EXPECT_EQ(FileStamp::of(folder.path() / "circle").kind, FileStamp::Kind::absent);
}

TEST(FileStamp, DeviceIsNeitherFileNorFolder) {
    EXPECT_EQ(FileStamp::of("/dev/null").kind, FileStamp::Kind::other);
}

}  // namespace
}  // namespace velmora
