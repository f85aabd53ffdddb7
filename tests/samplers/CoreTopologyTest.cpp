#include "samplers/CoreTopology.h"

#include "fakes/FakeProcessorSources.h"
#include "samplers/ProcessorRecords.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

/// Answers by the names that the program's first home uses.
class NamedLevels final : public PerformanceLevelSource {
public:
    std::optional<std::int32_t> levelCount() override { return count; }
    std::optional<std::int32_t> logicalCores(std::int32_t level) override {
        names.push_back(ProcessorRecords::performanceLevelName(level));
        return 6;
    }

    std::int32_t count = 0;
    std::vector<std::string> names;
};

TEST(CoreTopologyTest, OneLevelGivesNoEfficiencyCores) {
    FakePerformanceLevelSource levels;
    levels.levels = 1;
    levels.coresPerLevel = {8};
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 0);
}

TEST(CoreTopologyTest, FailedReadOfTheLevelsGivesNoEfficiencyCores) {
    FakePerformanceLevelSource levels;
    levels.coresPerLevel = {8, 4};
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 0);
}

TEST(CoreTopologyTest, FailedReadOfTheLastLevelGivesNoEfficiencyCores) {
    FakePerformanceLevelSource levels;
    levels.levels = 2;
    levels.coresPerLevel = {8, std::nullopt};
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 0);
}

TEST(CoreTopologyTest, NegativeCountGivesNoEfficiencyCores) {
    FakePerformanceLevelSource levels;
    levels.levels = 2;
    levels.coresPerLevel = {8, -4};
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 0);
}

TEST(CoreTopologyTest, TwoLevelsReadTheSecond) {
    NamedLevels levels;
    levels.count = 2;
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 6);
    EXPECT_EQ(levels.names, (std::vector<std::string>{"hw.perflevel1.logicalcpu"}));
}

TEST(CoreTopologyTest, ThreeLevelsReadTheThird) {
    NamedLevels levels;
    levels.count = 3;
    EXPECT_EQ(CoreTopology(levels).efficiencyCoreCount(), 6);
    EXPECT_EQ(levels.names, (std::vector<std::string>{"hw.perflevel2.logicalcpu"}));
}

TEST(CoreTopologyTest, CountIsReadOnceAtFirstUse) {
    FakePerformanceLevelSource levels;
    CoreTopology topology(levels);
    EXPECT_EQ(levels.levelCountReads, 0);
    levels.levels = 2;
    levels.coresPerLevel = {8, 4};
    EXPECT_EQ(topology.efficiencyCoreCount(), 4);
    levels.coresPerLevel = {8, 2};
    EXPECT_EQ(topology.efficiencyCoreCount(), 4);
    EXPECT_EQ(levels.levelCountReads, 1);
}

TEST(CoreTopologyTest, FailureIsKeptToo) {
    FakePerformanceLevelSource levels;
    CoreTopology topology(levels);
    EXPECT_EQ(topology.efficiencyCoreCount(), 0);
    levels.levels = 2;
    levels.coresPerLevel = {8, 4};
    EXPECT_EQ(topology.efficiencyCoreCount(), 0);
}

}  // namespace
}  // namespace velmora
