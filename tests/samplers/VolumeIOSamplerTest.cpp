#include "samplers/VolumeIOSampler.h"

#include "fakes/FakeDiskSources.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

class VolumeIOSamplerTest : public testing::Test {
protected:
    FakeBlockDeviceSource devices;
    VolumeIOSampler sampler{devices};
};

TEST_F(VolumeIOSamplerTest, FirstSampleIsEmpty) {
    devices.mediaCounters = {{"disk0", 100, 100}};
    EXPECT_TRUE(sampler.sample(2).empty());
}

TEST_F(VolumeIOSamplerTest, SecondSampleGivesRatesPerDevice) {
    devices.mediaCounters = {{"disk0", 100, 50}, {"disk3s1", 10, 20}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk0", 500, 50}, {"disk3s1", 10, 40}};
    const auto& rates = sampler.sample(2);
    ASSERT_EQ(rates.size(), 2u);
    EXPECT_DOUBLE_EQ(rates.at("disk0").readPerSec, 200);
    EXPECT_DOUBLE_EQ(rates.at("disk0").writePerSec, 0);
    EXPECT_DOUBLE_EQ(rates.at("disk3s1").writePerSec, 10);
}

TEST_F(VolumeIOSamplerTest, IntervalOfZeroGivesNothingAndAdvancesTheBaseline) {
    devices.mediaCounters = {{"disk0", 100, 50}};
    sampler.sample(1);
    devices.mediaCounters = {{"disk0", 600, 50}};
    EXPECT_TRUE(sampler.sample(0).empty());
    devices.mediaCounters = {{"disk0", 700, 50}};
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk0").readPerSec, 100);
}

TEST_F(VolumeIOSamplerTest, IntervalThatIsNoNumberOrNegativeGivesNothing) {
    devices.mediaCounters = {{"disk0", 100, 50}};
    sampler.sample(1);
    EXPECT_TRUE(sampler.sample(-1).empty());
    EXPECT_TRUE(sampler.sample(std::numeric_limits<double>::quiet_NaN()).empty());
}

TEST_F(VolumeIOSamplerTest, VolumesAreAskedForBeforeMedia) {
    sampler.sample(0);
    EXPECT_EQ(devices.asked, (std::vector{MediaClass::apfsVolume, MediaClass::media}));
}

TEST_F(VolumeIOSamplerTest, VolumesFiguresWinOverTheMediaOfTheSameName) {
    devices.apfsVolumes = {{"disk3s1", 1000, 0}};
    devices.mediaCounters = {{"disk3s1", 5, 5}};
    sampler.sample(0);
    devices.apfsVolumes = {{"disk3s1", 1400, 0}};
    devices.mediaCounters = {{"disk3s1", 9000, 9000}};
    const VolumeIORates rates = sampler.sample(2).at("disk3s1");
    EXPECT_DOUBLE_EQ(rates.readPerSec, 200);
    EXPECT_DOUBLE_EQ(rates.writePerSec, 0);
}

TEST_F(VolumeIOSamplerTest, VolumeThatMovedNothingLeavesItsNameToTheMedia) {
    devices.apfsVolumes = {{"disk3s1", 0, 0}};
    devices.mediaCounters = {{"disk3s1", 100, 0}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk3s1", 300, 0}};
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk3s1").readPerSec, 200);
}

TEST_F(VolumeIOSamplerTest, FirstOfTwoMediaOfTheSameNameCounts) {
    devices.mediaCounters = {{"disk0", 100, 0}, {"disk0", 7, 0}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk0", 150, 0}, {"disk0", 9000, 0}};
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk0").readPerSec, 50);
}

TEST_F(VolumeIOSamplerTest, NameWithoutTheLetterSIsLeftOut) {
    const std::vector<MediaCounters> media = {{"vda", 1, 1},   {"nvme0n1", 1, 1}, {"", 1, 1},
                                              {"disk0", 1, 1}, {"sda", 1, 1},     {"dsk-vda", 1, 1}};
    devices.mediaCounters = media;
    sampler.sample(0);
    const auto& rates = sampler.sample(1);
    EXPECT_EQ(rates.size(), 3u);
    EXPECT_TRUE(rates.contains("disk0"));
    EXPECT_TRUE(rates.contains("sda"));
    EXPECT_TRUE(rates.contains("dsk-vda"));
}

TEST_F(VolumeIOSamplerTest, DeviceWithBothCountersZeroHasNoBaselineTheNextTime) {
    devices.mediaCounters = {{"disk4", 0, 0}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk4", 5000, 0}};
    EXPECT_TRUE(sampler.sample(1).empty());
    devices.mediaCounters = {{"disk4", 5100, 0}};
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk4").readPerSec, 100);
}

TEST_F(VolumeIOSamplerTest, OneCounterOfZeroIsEnoughForABaseline) {
    devices.mediaCounters = {{"disk4", 0, 10}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk4", 30, 10}};
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk4").readPerSec, 30);
}

TEST_F(VolumeIOSamplerTest, DeviceThatIsNewInThePassHasNoEntry) {
    devices.mediaCounters = {{"disk0", 10, 10}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk0", 10, 10}, {"disk9", 500, 500}};
    EXPECT_FALSE(sampler.sample(1).contains("disk9"));
}

TEST_F(VolumeIOSamplerTest, DeviceThatIsGoneHasNoEntry) {
    devices.mediaCounters = {{"disk0", 10, 10}, {"disk9", 500, 500}};
    sampler.sample(0);
    EXPECT_TRUE(sampler.sample(1).contains("disk9"));
    devices.mediaCounters = {{"disk0", 10, 10}};
    EXPECT_FALSE(sampler.sample(1).contains("disk9"));
}

TEST_F(VolumeIOSamplerTest, DeviceThatComesBackHasLostItsBaseline) {
    devices.mediaCounters = {{"disk9", 500, 500}};
    sampler.sample(0);
    devices.mediaCounters.clear();
    sampler.sample(1);
    devices.mediaCounters = {{"disk9", 900, 500}};
    EXPECT_TRUE(sampler.sample(1).empty());
}

TEST_F(VolumeIOSamplerTest, CounterThatFallsGivesZeroForThatDirectionOnly) {
    devices.mediaCounters = {{"disk0", 500, 100}};
    sampler.sample(0);
    devices.mediaCounters = {{"disk0", 400, 300}};
    const VolumeIORates rates = sampler.sample(2).at("disk0");
    EXPECT_EQ(rates.readPerSec, 0);
    EXPECT_DOUBLE_EQ(rates.writePerSec, 100);
}

TEST_F(VolumeIOSamplerTest, FailedListLosesTheBaselines) {
    devices.mediaCounters = {{"disk0", 500, 100}};
    sampler.sample(0);
    devices.failsToListMedia = true;
    EXPECT_TRUE(sampler.sample(1).empty());
    devices.failsToListMedia = false;
    devices.mediaCounters = {{"disk0", 900, 100}};
    EXPECT_TRUE(sampler.sample(1).empty());
    EXPECT_DOUBLE_EQ(sampler.sample(1).at("disk0").readPerSec, 0);
}

}  // namespace
}  // namespace velmora
