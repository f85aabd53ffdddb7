#include "platform/linux/disk/LinuxBlockDevices.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

std::string line(const std::string& name, int number) {
    const std::string figure = std::to_string(number);
    return " 8 0 " + name + " " + figure + " 0 " + figure + " 0 " + figure + " 0 " + figure + " 0 0 0 0\n";
}

class LinuxBlockDevicesTest : public testing::Test {
protected:
    void addDisk(const std::string& name) { tree.write("sys/block/" + name + "/device/vendor", "x\n"); }
    void showLines(const std::string& text) { tree.write("proc/diskstats", text); }
    std::vector<std::uint64_t> readsOfDrivers() {
        std::vector<BlockDriverCounters> drivers;
        EXPECT_TRUE(devices.drivers(drivers));
        std::vector<std::uint64_t> reads;
        for (const auto& driver : drivers) reads.push_back(driver.readOperations);
        return reads;
    }
    std::vector<std::string> namesOfMedia() {
        std::vector<MediaCounters> media;
        EXPECT_TRUE(devices.media(MediaClass::media, media));
        std::vector<std::string> names;
        for (const auto& entry : media) names.push_back(entry.bsdName);
        return names;
    }

    SystemTree tree;
    LinuxBlockDevices devices{tree.root()};
};

TEST_F(LinuxBlockDevicesTest, SectorsAre512BytesLong) {
    addDisk("vda");
    showLines(" 254 0 vda 1 0 10 0 2 0 20 0 0 0 0\n");
    std::vector<BlockDriverCounters> drivers;
    ASSERT_TRUE(devices.drivers(drivers));
    EXPECT_EQ(drivers, (std::vector<BlockDriverCounters>{{5120, 10240, 1, 2}}));
}

TEST_F(LinuxBlockDevicesTest, PartitionsCountWithTheirDiskAlone) {
    addDisk("sda");
    showLines(line("sda", 5) + line("sda1", 3) + line("sda2", 2));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{5});
    EXPECT_EQ(namesOfMedia(), std::vector<std::string>{"dsk-sda"});
}

TEST_F(LinuxBlockDevicesTest, ImagesAndMemoryCountNowhere) {
    for (const char* name : {"loop0", "ram0", "zram0", "nbd0"})
        tree.write(std::string("sys/block/") + name + "/size", "9\n");
    showLines(line("loop0", 1) + line("ram0", 2) + line("zram0", 3) + line("nbd0", 4));
    EXPECT_TRUE(readsOfDrivers().empty());
    EXPECT_TRUE(namesOfMedia().empty());
}

TEST_F(LinuxBlockDevicesTest, LayersAreMediaButNoDrivers) {
    tree.write("sys/block/dm-0/dm/name", "luks\n");
    tree.write("sys/block/md0/md/level", "raid1\n");
    tree.write("sys/block/bcache0/bcache/state", "clean\n");
    showLines(line("dm-0", 1) + line("md0", 2) + line("bcache0", 3));
    EXPECT_TRUE(readsOfDrivers().empty());
    EXPECT_EQ(namesOfMedia(), (std::vector<std::string>{"dsk-dm-0", "dsk-md0", "dsk-bcache0"}));
}

TEST_F(LinuxBlockDevicesTest, FlashChipsAndFloppiesCountNowhere) {
    addDisk("mtdblock0");
    addDisk("fd0");
    showLines(line("mtdblock0", 1) + line("fd0", 2));
    EXPECT_TRUE(readsOfDrivers().empty());
}

TEST_F(LinuxBlockDevicesTest, HiddenDiskCountsNowhere) {
    addDisk("sda");
    tree.write("sys/block/sda/hidden", "1\n");
    showLines(line("sda", 1));
    EXPECT_TRUE(readsOfDrivers().empty());
}

TEST_F(LinuxBlockDevicesTest, NameWithASlashIsFoundUnderItsOtherForm) {
    addDisk("cciss!c0d0");
    showLines(line("cciss/c0d0", 6));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{6});
    EXPECT_EQ(namesOfMedia(), std::vector<std::string>{"dsk-cciss/c0d0"});
}

TEST_F(LinuxBlockDevicesTest, DiskThatCountsNothingTakesTheSumOfItsHiddenPaths) {
    addDisk("nvme0n1");
    for (const char* path : {"nvme0c0n1", "nvme0c1n1"}) {
        addDisk(path);
        tree.write(std::string("sys/block/") + path + "/hidden", "1\n");
    }
    showLines(line("nvme0c0n1", 4) + line("nvme0c1n1", 3) + line("nvme0n1", 0));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{7});
    EXPECT_EQ(namesOfMedia(), std::vector<std::string>{"dsk-nvme0n1"});
}

TEST_F(LinuxBlockDevicesTest, DiskThatCountsForItselfLeavesItsPathsAside) {
    addDisk("nvme0n1");
    addDisk("nvme0c0n1");
    tree.write("sys/block/nvme0c0n1/hidden", "1\n");
    showLines(line("nvme0c0n1", 4) + line("nvme0n1", 5));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{5});
}

TEST_F(LinuxBlockDevicesTest, PathToOneDiskDoesNotCountForAnother) {
    addDisk("nvme0n1");
    addDisk("nvme0n2");
    addDisk("nvme0c0n1");
    tree.write("sys/block/nvme0c0n1/hidden", "1\n");
    showLines(line("nvme0c0n1", 4) + line("nvme0n1", 0) + line("nvme0n2", 0));
    EXPECT_EQ(readsOfDrivers(), (std::vector<std::uint64_t>{4, 0}));
}

TEST_F(LinuxBlockDevicesTest, NewDiskIsLookedUpWhenTheLinesChange) {
    addDisk("sda");
    showLines(line("sda", 1));
    EXPECT_EQ(readsOfDrivers().size(), 1u);
    addDisk("sdb");
    showLines(line("sda", 1) + line("sdb", 2));
    EXPECT_EQ(readsOfDrivers(), (std::vector<std::uint64_t>{1, 2}));
    showLines(line("sdb", 2));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{2});
}

TEST_F(LinuxBlockDevicesTest, SameLinesAreNotLookedUpAgain) {
    addDisk("sda");
    showLines(line("sda", 1));
    readsOfDrivers();
    tree.remove("sys");
    showLines(line("sda", 9));
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{9});
}

TEST_F(LinuxBlockDevicesTest, MediaAnswerFromTheReadOfTheDrivers) {
    addDisk("sda");
    showLines(line("sda", 1));
    readsOfDrivers();
    showLines(line("sda", 2));
    std::vector<MediaCounters> media;
    ASSERT_TRUE(devices.media(MediaClass::media, media));
    EXPECT_EQ(media, (std::vector<MediaCounters>{{"dsk-sda", 512, 512}}));
    ASSERT_TRUE(devices.media(MediaClass::media, media));
    EXPECT_EQ(media, (std::vector<MediaCounters>{{"dsk-sda", 1024, 1024}}));
}

TEST_F(LinuxBlockDevicesTest, UnreadableFileIsAFailureForBoth) {
    std::vector<BlockDriverCounters> drivers;
    std::vector<MediaCounters> media;
    EXPECT_FALSE(devices.drivers(drivers));
    EXPECT_FALSE(devices.media(MediaClass::media, media));
}

TEST_F(LinuxBlockDevicesTest, EmptyFileIsAListWithoutDisks) {
    showLines("");
    EXPECT_TRUE(readsOfDrivers().empty());
}

TEST_F(LinuxBlockDevicesTest, MalformedLineCostsItsOwnDiskOnly) {
    addDisk("sda");
    addDisk("sdb");
    showLines(" 8 0 sda x\n" + line("sdb", 2) + std::string(300, '\0') + "\n\xFF\xFE\n");
    EXPECT_EQ(readsOfDrivers(), std::vector<std::uint64_t>{2});
}

TEST_F(LinuxBlockDevicesTest, VolumesHaveNoFiguresOfTheirOwn) {
    addDisk("sda");
    showLines(line("sda", 1));
    std::vector<MediaCounters> media = {{"left over", 1, 1}};
    EXPECT_TRUE(devices.media(MediaClass::apfsVolume, media));
    EXPECT_TRUE(media.empty());
}

}  // namespace
}  // namespace velmora
