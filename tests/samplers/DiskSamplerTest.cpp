#include "samplers/DiskSampler.h"

#include "fakes/FakeDiskSources.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

class DiskSamplerTest : public testing::Test {
protected:
    std::vector<std::string> namesInOrder() {
        std::vector<std::string> names;
        for (const DiskVolume& volume : sampler.volumes()) names.push_back(volume.name);
        return names;
    }
    DiskVolume onlyVolume() {
        const std::vector<DiskVolume> found = sampler.volumes();
        EXPECT_EQ(found.size(), 1u);
        return found.empty() ? DiskVolume{} : found.front();
    }

    FakeBlockDeviceSource devices;
    FakeVolumeSource volumes;
    FakeTextOrder order;
    DiskSampler sampler{devices, volumes, order};
};

TEST_F(DiskSamplerTest, FirstActivityGivesZeroRatesAndNonZeroTotals) {
    devices.driverCounters = {{1000, 2000, 3, 4}, {500, 600, 7, 8}};
    const DiskActivity activity = sampler.activity(2);
    EXPECT_EQ(activity.readPerSec, 0);
    EXPECT_EQ(activity.writePerSec, 0);
    EXPECT_EQ(activity.iops, 0);
    EXPECT_EQ(activity.readBytes, 1500u);
    EXPECT_EQ(activity.writeBytes, 2600u);
}

TEST_F(DiskSamplerTest, SecondActivityGivesTheSumsOfAllDriversPerSecond) {
    devices.driverCounters = {{1000, 2000, 3, 4}, {500, 600, 7, 8}};
    sampler.activity(0);
    devices.driverCounters = {{3000, 2400, 5, 5}, {700, 600, 7, 10}};
    const DiskActivity activity = sampler.activity(2);
    EXPECT_DOUBLE_EQ(activity.readPerSec, 1100);
    EXPECT_DOUBLE_EQ(activity.writePerSec, 200);
    EXPECT_DOUBLE_EQ(activity.iops, 2.5);
    EXPECT_EQ(activity.readBytes, 3700u);
}

TEST_F(DiskSamplerTest, CounterThatFallsGivesZeroForThatRateOnly) {
    devices.driverCounters = {{1000, 2000, 10, 0}, {9000, 100, 1, 0}};
    sampler.activity(0);
    // The second disk is gone: fewer bytes read, more written, more operations.
    devices.driverCounters = {{1500, 4100, 21, 0}};
    const DiskActivity activity = sampler.activity(1);
    EXPECT_EQ(activity.readPerSec, 0);
    EXPECT_DOUBLE_EQ(activity.writePerSec, 2000);
    EXPECT_DOUBLE_EQ(activity.iops, 10);
}

TEST_F(DiskSamplerTest, FallInWritesOrOperationsGivesZeroForThatRateOnly) {
    devices.driverCounters = {{1000, 2000, 10, 10}};
    sampler.activity(0);
    devices.driverCounters = {{1100, 1999, 10, 9}};
    const DiskActivity activity = sampler.activity(1);
    EXPECT_DOUBLE_EQ(activity.readPerSec, 100);
    EXPECT_EQ(activity.writePerSec, 0);
    EXPECT_EQ(activity.iops, 0);
}

TEST_F(DiskSamplerTest, IntervalOfZeroGivesZeroRatesAndAdvancesTheBaseline) {
    devices.driverCounters = {{1000, 0, 0, 0}};
    sampler.activity(1);
    devices.driverCounters = {{5000, 0, 0, 0}};
    EXPECT_EQ(sampler.activity(0).readPerSec, 0);
    devices.driverCounters = {{5600, 0, 0, 0}};
    EXPECT_DOUBLE_EQ(sampler.activity(2).readPerSec, 300);
}

TEST_F(DiskSamplerTest, FailedListGivesFiveZerosAndKeepsTheBaseline) {
    devices.driverCounters = {{1000, 2000, 3, 4}};
    sampler.activity(0);
    devices.failsToListDrivers = true;
    const DiskActivity failed = sampler.activity(1);
    EXPECT_EQ(failed.readPerSec, 0);
    EXPECT_EQ(failed.writePerSec, 0);
    EXPECT_EQ(failed.iops, 0);
    EXPECT_EQ(failed.readBytes, 0u);
    EXPECT_EQ(failed.writeBytes, 0u);
    devices.failsToListDrivers = false;
    devices.driverCounters = {{1800, 2000, 3, 4}};
    EXPECT_DOUBLE_EQ(sampler.activity(2).readPerSec, 400);
}

TEST_F(DiskSamplerTest, PassWithoutDriversIsABaselineOfZero) {
    sampler.activity(0);
    devices.driverCounters = {{800, 0, 0, 0}};
    EXPECT_DOUBLE_EQ(sampler.activity(2).readPerSec, 400);
}

TEST_F(DiskSamplerTest, VolumesStandWithTheRootFirstAndTheOthersByName) {
    volumes.add("/Volumes/z", "zeta");
    volumes.add("/Volumes/a", "Alpha");
    volumes.add("/", "Macintosh HD");
    EXPECT_EQ(namesInOrder(), (std::vector<std::string>{"Macintosh HD", "Alpha", "zeta"}));
}

TEST_F(DiskSamplerTest, VolumesOfEqualNameKeepTheirOrder) {
    volumes.add("/b", "data");
    volumes.add("/a", "DATA");
    EXPECT_EQ(namesInOrder(), (std::vector<std::string>{"data", "DATA"}));
}

TEST_F(DiskSamplerTest, TwoRootsKeepTheirOrder) {
    volumes.add("/", "one");
    volumes.paths.push_back("/");
    volumes.add("/a", "Alpha");
    EXPECT_EQ(namesInOrder(), (std::vector<std::string>{"one", "one", "Alpha"}));
}

TEST_F(DiskSamplerTest, VolumeWithoutCapacityIsNotListed) {
    volumes.add("/a", "zero").totalCapacity = 0;
    volumes.add("/b", "negative").totalCapacity = -5;
    volumes.add("/c", "unknown").totalCapacity.reset();
    EXPECT_TRUE(sampler.volumes().empty());
}

TEST_F(DiskSamplerTest, VolumeThatDoesNotSayWhetherItIsBrowsableIsListed) {
    volumes.add("/a", "quiet").isBrowsable.reset();
    volumes.add("/b", "shown").isBrowsable = true;
    volumes.add("/c", "hidden").isBrowsable = false;
    EXPECT_EQ(namesInOrder(), (std::vector<std::string>{"quiet", "shown"}));
}

TEST_F(DiskSamplerTest, VolumeThatCannotBeReadIsNotListed) {
    volumes.paths = {"/gone"};
    volumes.add("/a", "there");
    EXPECT_EQ(namesInOrder(), std::vector<std::string>{"there"});
}

TEST_F(DiskSamplerTest, NetworkVolumeIsNeitherRemovableNorHasADevice) {
    VolumeValues& share = volumes.add("/mnt/nas", "nas");
    share.isLocal = false;
    share.isRemovable = true;
    share.isEjectable = true;
    volumes.sources["/mnt/nas"] = "//nas/share";
    const DiskVolume volume = onlyVolume();
    EXPECT_TRUE(volume.isNetwork);
    EXPECT_FALSE(volume.isRemovable);
    EXPECT_EQ(volume.bsd, std::nullopt);
}

TEST_F(DiskSamplerTest, VolumeThatSaysNothingIsLocalAndNeitherInternalNorRemovable) {
    volumes.add("/a", "quiet");
    const DiskVolume volume = onlyVolume();
    EXPECT_FALSE(volume.isNetwork);
    EXPECT_FALSE(volume.isInternal);
    EXPECT_FALSE(volume.isRemovable);
}

TEST_F(DiskSamplerTest, EitherRemovableOrEjectableMakesALocalVolumeRemovable) {
    volumes.add("/a", "a").isRemovable = true;
    VolumeValues& ejectable = volumes.add("/b", "b");
    ejectable.isEjectable = true;
    ejectable.isInternal = true;
    const std::vector<DiskVolume> found = sampler.volumes();
    EXPECT_TRUE(found.at(0).isRemovable);
    EXPECT_TRUE(found.at(1).isRemovable);
    EXPECT_TRUE(found.at(1).isInternal);
}

TEST_F(DiskSamplerTest, AbsentOrNegativeFreeSpaceIsZero) {
    volumes.add("/a", "a").availableCapacity.reset();
    volumes.add("/b", "b").availableCapacity = -1;
    for (const DiskVolume& volume : sampler.volumes()) {
        EXPECT_EQ(volume.free, 0u);
        EXPECT_EQ(volume.total, 1'000'000'000u);
    }
}

TEST_F(DiskSamplerTest, VolumeWithoutANameBearsTheLastPartOfItsPath) {
    volumes.add("/media/ada/STICK", "").name.reset();
    EXPECT_EQ(onlyVolume().name, "STICK");
}

TEST_F(DiskSamplerTest, RootWithoutANameIsNamedByItsPath) {
    volumes.add("/", "").name.reset();
    EXPECT_EQ(onlyVolume().name, "/");
}

TEST_F(DiskSamplerTest, VolumesComeWithoutRates) {
    volumes.add("/", "root");
    EXPECT_EQ(onlyVolume().readPerSec, 0);
    EXPECT_EQ(onlyVolume().writePerSec, 0);
}

TEST_F(DiskSamplerTest, BsdNameIsWhatFollowsTheDevicesFolder) {
    volumes.sources["/"] = "/dev/disk3s1s1";
    EXPECT_EQ(sampler.bsdName("/"), "disk3s1s1");
}

TEST_F(DiskSamplerTest, BsdNameOfASourceOutsideTheDevicesFolderIsAbsent) {
    for (const std::string source :
         {"nas:/export", "map auto_home", "devfs", "/devices/disk1", "dev/disk1", ""}) {
        volumes.sources["/x"] = source;
        EXPECT_EQ(sampler.bsdName("/x"), std::nullopt) << source;
    }
}

TEST_F(DiskSamplerTest, VolumeWhoseDeviceCannotBeAskedStaysListed) {
    volumes.add("/a", "a");
    volumes.sources.clear();
    EXPECT_EQ(onlyVolume().bsd, std::nullopt);
}

}  // namespace
}  // namespace velmora
