#include "samplers/DiskRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>

namespace velmora {
namespace {

using DiskRecords::decodeBlockDriver;
using DiskRecords::decodeMedia;
using DiskRecords::mediaKeys;
using nlohmann::json;

const json kDriver = {{"Statistics",
                       {{"Bytes (Read)", 4096},
                        {"Bytes (Write)", 8192},
                        {"Operations (Read)", 3},
                        {"Operations (Write)", 4},
                        {"Errors (Read)", 9}}}};

TEST(DiskRecords, DriverWithStatisticsGivesItsFourCounters) {
    EXPECT_EQ(decodeBlockDriver(kDriver),
              (BlockDriverCounters{
                  .readBytes = 4096, .writeBytes = 8192, .readOperations = 3, .writeOperations = 4}));
}

TEST(DiskRecords, DriverWithoutStatisticsGivesNothing) {
    EXPECT_EQ(decodeBlockDriver(json{{"Other", 1}}), std::nullopt);
}

TEST(DiskRecords, DriverWhoseStatisticsAreNoDictionaryGivesNothing) {
    EXPECT_EQ(decodeBlockDriver(json{{"Statistics", 17}}), std::nullopt);
}

TEST(DiskRecords, PropertiesThatAreNoDictionaryGiveNothing) {
    EXPECT_EQ(decodeBlockDriver(json::array({1, 2})), std::nullopt);
    EXPECT_EQ(decodeMedia(json("disk0"), mediaKeys(MediaClass::media)), std::nullopt);
}

TEST(DiskRecords, AbsentWriteOperationsCountAsZero) {
    json driver = kDriver;
    driver["Statistics"].erase("Operations (Write)");
    EXPECT_EQ(decodeBlockDriver(driver)->writeOperations, 0u);
    EXPECT_EQ(decodeBlockDriver(driver)->readOperations, 3u);
}

TEST(DiskRecords, CounterOfAnotherTypeCountsAsZero) {
    for (const json& foreign : {json("4096"), json(true), json(1.5), json(-1), json()}) {
        json driver = kDriver;
        driver["Statistics"]["Bytes (Read)"] = foreign;
        EXPECT_EQ(decodeBlockDriver(driver)->readBytes, 0u) << foreign;
        EXPECT_EQ(decodeBlockDriver(driver)->writeBytes, 8192u);
    }
}

TEST(DiskRecords, LargestCounterIsKept) {
    constexpr auto kLargest = std::numeric_limits<std::uint64_t>::max();
    json driver = kDriver;
    driver["Statistics"]["Bytes (Read)"] = kLargest;
    EXPECT_EQ(decodeBlockDriver(driver)->readBytes, kLargest);
}

TEST(DiskRecords, MediaOfEachClassIsReadUnderItsOwnKeys) {
    const json entry = {{"BSD Name", "disk3s1"},
                        {"Statistics",
                         {{"Bytes (Read)", 1},
                          {"Bytes (Write)", 2},
                          {"Bytes read from block device", 3},
                          {"Bytes written to block device", 4}}}};
    EXPECT_EQ(decodeMedia(entry, mediaKeys(MediaClass::media)), (MediaCounters{"disk3s1", 1, 2}));
    EXPECT_EQ(decodeMedia(entry, mediaKeys(MediaClass::apfsVolume)), (MediaCounters{"disk3s1", 3, 4}));
}

TEST(DiskRecords, ClassesBearTheirRegistryNames) {
    EXPECT_EQ(DiskRecords::kBlockDriverClass, "IOBlockStorageDriver");
    EXPECT_EQ(mediaKeys(MediaClass::apfsVolume).className, "AppleAPFSVolume");
    EXPECT_EQ(mediaKeys(MediaClass::media).className, "IOMedia");
}

TEST(DiskRecords, MediaWithoutANameGivesNothing) {
    const json statistics = {{"Bytes (Read)", 1}};
    EXPECT_EQ(decodeMedia(json{{"Statistics", statistics}}, mediaKeys(MediaClass::media)), std::nullopt);
    EXPECT_EQ(decodeMedia(json{{"BSD Name", 7}, {"Statistics", statistics}}, mediaKeys(MediaClass::media)),
              std::nullopt);
}

TEST(DiskRecords, MediaWithoutStatisticsGivesNothing) {
    EXPECT_EQ(decodeMedia(json{{"BSD Name", "disk0"}}, mediaKeys(MediaClass::media)), std::nullopt);
}

TEST(DiskRecords, MediaWithEmptyStatisticsGivesZeros) {
    EXPECT_EQ(decodeMedia(json{{"BSD Name", "disk0"}, {"Statistics", json::object()}},
                          mediaKeys(MediaClass::media)),
              (MediaCounters{"disk0", 0, 0}));
}

}  // namespace
}  // namespace velmora
