#include "core/DiskVolumeMapping.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

DiskVolume volume(std::string path, std::optional<std::string> bsd) {
    DiskVolume made;
    made.path = std::move(path);
    made.bsd = std::move(bsd);
    return made;
}

TEST(DiskVolumeMappingTest, SlicesAreDroppedFromADiskName) {
    EXPECT_EQ(wholeDiskName("disk3s1s1"), "disk3");
    EXPECT_EQ(wholeDiskName("disk12"), "disk12");
    EXPECT_EQ(wholeDiskName("disk0s2"), "disk0");
}

TEST(DiskVolumeMappingTest, OtherNamesStayWhole) {
    EXPECT_EQ(wholeDiskName("nvme0n1p2"), "nvme0n1p2");
    EXPECT_EQ(wholeDiskName("sda1"), "sda1");
    EXPECT_EQ(wholeDiskName("Disk3s1"), "Disk3s1");
    EXPECT_EQ(wholeDiskName(""), "");
}

TEST(DiskVolumeMappingTest, NameWithoutDigitsAfterDiskKeepsOnlyDisk) {
    EXPECT_EQ(wholeDiskName("disk"), "disk");
    EXPECT_EQ(wholeDiskName("diskette"), "disk");
}

TEST(DiskVolumeMappingTest, TwoVolumesOnOneDiskNeitherAtRootGiveAllToTheFirst) {
    std::vector<DiskVolume> volumes = {volume("/data", "disk3s1"), volume("/backup", "disk3s2")};
    mapThroughput({{"disk3", {100, 50}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 100);
    EXPECT_EQ(volumes[0].writePerSec, 50);
    EXPECT_EQ(volumes[1].readPerSec, 0);
    EXPECT_EQ(volumes[1].writePerSec, 0);
}

TEST(DiskVolumeMappingTest, VolumeAtRootTakesTheDisksThroughput) {
    std::vector<DiskVolume> volumes = {volume("/data", "disk3s1"), volume("/", "disk3s5"),
                                       volume("/backup", "disk3s2")};
    mapThroughput({{"disk3", {100, 50}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 0);
    EXPECT_EQ(volumes[1].readPerSec, 100);
    EXPECT_EQ(volumes[2].readPerSec, 0);
}

TEST(DiskVolumeMappingTest, TwoSlicesOfOneDiskFoldIntoItsOneVolume) {
    std::vector<DiskVolume> volumes = {volume("/", "disk3s1s1"), volume("/Volumes/stick", "disk10s1")};
    mapThroughput({{"disk3s1", {100, 50}}, {"disk3s5", {7, 9}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 107);
    EXPECT_EQ(volumes[0].writePerSec, 59);
    EXPECT_EQ(volumes[1].readPerSec, 0) << "disk10 is no slice of disk1";
}

TEST(DiskVolumeMappingTest, LaterVolumeTakesADiskOverOnlyAtTheRoot) {
    std::vector<DiskVolume> volumes = {volume("/", "disk3s1"), volume("/data", "disk3s2"),
                                       volume("/", "disk3s5")};
    mapThroughput({{"disk3", {100, 50}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 0);
    EXPECT_EQ(volumes[1].readPerSec, 0);
    EXPECT_EQ(volumes[2].readPerSec, 100);
}

TEST(DiskVolumeMappingTest, EntriesOfOneDiskAreAdded) {
    std::vector<DiskVolume> volumes = {volume("/", "disk3s1")};
    mapThroughput({{"disk3", {100, 50}}, {"disk3s2", {1, 2}}, {"disk4", {1000, 1000}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 101);
    EXPECT_EQ(volumes[0].writePerSec, 52);
}

TEST(DiskVolumeMappingTest, SlicesOfOneContainerFoldIntoItsOneVolumeSummed) {
    std::vector<DiskVolume> volumes = {volume("/data", "disk3s9"), volume("/other", "disk30s1")};
    mapThroughput({{"disk3s1", {100, 50}}, {"disk3s5", {11, 7}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 111);
    EXPECT_EQ(volumes[0].writePerSec, 57);
    EXPECT_EQ(volumes[1].readPerSec, 0);
}

TEST(DiskVolumeMappingTest, VolumesWithoutADeviceOrThroughputReadZero) {
    std::vector<DiskVolume> volumes = {volume("/", std::nullopt), volume("/data", "sdb1")};
    volumes[0].readPerSec = 7;  // What the last sample left here.
    volumes[1].writePerSec = 7;
    mapThroughput({{"sda", {100, 50}}}, volumes);
    for (const DiskVolume& each : volumes) {
        EXPECT_EQ(each.readPerSec, 0) << each.path;
        EXPECT_EQ(each.writePerSec, 0) << each.path;
    }
}

TEST(DiskVolumeMappingTest, EachDiskHasItsOwnVolume) {
    std::vector<DiskVolume> volumes = {volume("/", "nvme0n1"), volume("/home", "sda"), volume("/srv", "sda")};
    mapThroughput({{"nvme0n1", {1, 2}}, {"sda", {3, 4}}}, volumes);
    EXPECT_EQ(volumes[0].readPerSec, 1);
    EXPECT_EQ(volumes[1].writePerSec, 4);
    EXPECT_EQ(volumes[2].writePerSec, 0);
}

TEST(DiskVolumeMappingTest, NoVolumesAreNoError) {
    std::vector<DiskVolume> volumes;
    mapThroughput({{"sda", {3, 4}}}, volumes);
    EXPECT_TRUE(volumes.empty());
}

}  // namespace
}  // namespace velmora
