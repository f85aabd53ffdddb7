#include "samplers/ProcessorRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cstring>

namespace velmora::ProcessorRecords {
namespace {

TEST(ProcessorRecordsTest, TickWordsAreUserSystemIdleNicePerCore) {
    const std::vector<std::uint32_t> words{1, 2, 3, 4, 5, 6, 7, 0xFFFFFFFF};
    std::vector<CoreTicks> cores;
    ASSERT_TRUE(decodeCoreTicks(words, 2, cores));
    EXPECT_EQ(cores, (std::vector<CoreTicks>{{.user = 1, .system = 2, .idle = 3, .nice = 4},
                                             {.user = 5, .system = 6, .idle = 7, .nice = 0xFFFFFFFF}}));
}

TEST(ProcessorRecordsTest, FewerTickWordsThanCoresGiveNoCores) {
    const std::vector<std::uint32_t> words{1, 2, 3, 4, 5, 6, 7};
    std::vector<CoreTicks> cores{{9, 9, 9, 9}};
    EXPECT_FALSE(decodeCoreTicks(words, 2, cores));
    EXPECT_TRUE(cores.empty());
}

TEST(ProcessorRecordsTest, AbsurdCoreCountGivesNoCores) {
    std::vector<CoreTicks> cores;
    EXPECT_FALSE(decodeCoreTicks(std::vector<std::uint32_t>(8), SIZE_MAX / 2, cores));
}

TEST(ProcessorRecordsTest, BootTimeIsTheSecondsOfTheTimeval) {
    std::array<std::byte, 16> bytes{};
    const std::int64_t seconds = 1'700'000'001;
    const std::int32_t microseconds = 999'999;
    std::memcpy(bytes.data(), &seconds, sizeof seconds);
    std::memcpy(bytes.data() + 8, &microseconds, sizeof microseconds);
    EXPECT_EQ(decodeBootTime(bytes), seconds);
}

TEST(ProcessorRecordsTest, ShortTimevalGivesNoBootTime) {
    EXPECT_EQ(decodeBootTime(std::array<std::byte, 15>{}), std::nullopt);
    EXPECT_EQ(decodeBootTime({}), std::nullopt);
}

TEST(ProcessorRecordsTest, LoadInfoBeginsWithTasksAndThreads) {
    EXPECT_EQ(decodeLoadInfo(std::array<std::int32_t, 4>{420, 2100, 7, 8}), (TaskThreadCounts{420, 2100}));
}

TEST(ProcessorRecordsTest, LoadInfoWordsAreSigned) {
    EXPECT_EQ(decodeLoadInfo(std::array<std::int32_t, 4>{-1, -2, 0, 0}), (TaskThreadCounts{-1, -2}));
}

TEST(ProcessorRecordsTest, ShortLoadInfoGivesNoCounts) {
    EXPECT_EQ(decodeLoadInfo(std::array<std::int32_t, 3>{1, 2, 3}), std::nullopt);
}

TEST(ProcessorRecordsTest, LevelNameHoldsTheLevel) {
    EXPECT_EQ(performanceLevelName(1), "hw.perflevel1.logicalcpu");
    EXPECT_EQ(performanceLevelName(12), "hw.perflevel12.logicalcpu");
}

std::optional<int> utilizationOf(const nlohmann::json& value) {
    return acceleratorUtilization({{"PerformanceStatistics", {{"Device Utilization %", value}}}});
}

TEST(ProcessorRecordsTest, UtilizationIsAnInteger) {
    EXPECT_EQ(utilizationOf(40), 40);
    EXPECT_EQ(utilizationOf(0), 0);
    EXPECT_EQ(utilizationOf(-1), -1);
}

TEST(ProcessorRecordsTest, UtilizationOfAnotherTypeIsAbsent) {
    EXPECT_EQ(utilizationOf("40"), std::nullopt);
    EXPECT_EQ(utilizationOf(40.5), std::nullopt);
    EXPECT_EQ(utilizationOf(true), std::nullopt);
    EXPECT_EQ(utilizationOf(nullptr), std::nullopt);
}

TEST(ProcessorRecordsTest, UtilizationBeyondAnIntegerIsAbsent) {
    EXPECT_EQ(utilizationOf(UINT64_MAX), std::nullopt);
    EXPECT_EQ(utilizationOf(INT64_MIN), std::nullopt);
}

TEST(ProcessorRecordsTest, AcceleratorWithoutStatisticsIsAbsent) {
    EXPECT_EQ(acceleratorUtilization({{"IOClass", "x"}}), std::nullopt);
    EXPECT_EQ(acceleratorUtilization({{"PerformanceStatistics", 3}}), std::nullopt);
    EXPECT_EQ(acceleratorUtilization({{"PerformanceStatistics", nlohmann::json::object()}}), std::nullopt);
}

TEST(ProcessorRecordsTest, PropertiesThatAreNoDictionaryAreAbsent) {
    EXPECT_EQ(acceleratorUtilization(nullptr), std::nullopt);
    EXPECT_EQ(acceleratorUtilization(nlohmann::json::array({1, 2})), std::nullopt);
}

}  // namespace
}  // namespace velmora::ProcessorRecords
