#include "platform/linux/processor/CoreClassification.h"

#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processor/LinuxPerformanceLevelSource.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class CoreClassificationTest : public testing::Test {
protected:
    void writeCores(int count) {
        std::string text = "cpu  1 1 1 1\n";
        for (int cpu = 0; cpu < count; ++cpu) text += "cpu" + std::to_string(cpu) + " 1 1 1 1\n";
        tree.write("proc/stat", text + "intr 0\n");
    }
    void writeCapacities(const std::vector<int>& capacities) {
        writeCores(static_cast<int>(capacities.size()));
        for (std::size_t cpu = 0; cpu < capacities.size(); ++cpu) {
            tree.write("sys/devices/system/cpu/cpu" + std::to_string(cpu) + "/cpu_capacity",
                       std::to_string(capacities[cpu]) + "\n");
        }
    }
    CoreClassification classify() { return classifyCores(tree.root()); }

    const CoreClassification oneLevel{.levelCount = 1, .efficiencyCpus = {}};
    SystemTree tree;
};

TEST_F(CoreClassificationTest, MachineThatSaysNothingHasOneLevel) {
    writeCores(4);
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, EmptyTreeHasOneLevel) {
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, AtomUnitHoldsTheEfficiencyCores) {
    writeCores(8);
    tree.write("sys/devices/cpu_core/cpus", "0-3\n");
    tree.write("sys/devices/cpu_atom/cpus", "4-7\n");
    EXPECT_EQ(classify(), (CoreClassification{2, {4, 5, 6, 7}}));
}

TEST_F(CoreClassificationTest, LowPowerUnitCountsAsEfficiencyToo) {
    tree.show("hybrid-laptop/frame-0");
    EXPECT_EQ(classify(), (CoreClassification{2, {8, 9, 10, 11, 12, 13}}));
}

TEST_F(CoreClassificationTest, UnitsAreFoundOnTheirBusToo) {
    writeCores(4);
    tree.write("sys/bus/event_source/devices/cpu_core/cpus", "0-1\n");
    tree.write("sys/bus/event_source/devices/cpu_atom/cpus", "2-3\n");
    EXPECT_EQ(classify(), (CoreClassification{2, {2, 3}}));
}

TEST_F(CoreClassificationTest, AtomUnitAloneIsOneLevel) {
    writeCores(4);
    tree.write("sys/devices/cpu_atom/cpus", "0-3\n");
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, CoreUnitAloneIsOneLevel) {
    writeCores(4);
    tree.write("sys/devices/cpu_core/cpus", "0-3\n");
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, OfflineCoresAreLeftOut) {
    writeCores(6);
    tree.write("sys/devices/cpu_core/cpus", "0-3\n");
    tree.write("sys/devices/cpu_atom/cpus", "4-7\n");
    EXPECT_EQ(classify(), (CoreClassification{2, {4, 5}}));
}

TEST_F(CoreClassificationTest, LowestOfThreeCapacitiesIsTheEfficiencyLevel) {
    tree.show("arm-three-levels");
    EXPECT_EQ(classify(), (CoreClassification{3, {0, 1, 2, 3}}));
}

TEST_F(CoreClassificationTest, EqualCapacitiesAreOneLevel) {
    writeCapacities({1024, 1024});
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, CapacityOfEightyPercentIsAnotherLevel) {
    writeCapacities({800, 1000});
    EXPECT_EQ(classify(), (CoreClassification{2, {0}}));
}

TEST_F(CoreClassificationTest, CapacityAboveEightyPercentIsTheSameLevel) {
    writeCapacities({801, 1000});
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, CapacitiesOfAnX86ProcessorSayNothing) {
    writeCapacities({400, 1024});
    tree.write("proc/cpuinfo", "processor\t: 0\nvendor_id\t: GenuineIntel\ncpu family\t: 6\n");
    EXPECT_EQ(classify(), oneLevel);
}

TEST_F(CoreClassificationTest, DamagedListsAreOneLevel) {
    tree.show("damaged");
    EXPECT_EQ(classify(), oneLevel);
}

TEST(LinuxPerformanceLevelSourceTest, OneLevelIsReportedAsOne) {
    LinuxPerformanceLevelSource source(CoreClassification{});
    EXPECT_EQ(source.levelCount(), 1);
    EXPECT_EQ(source.logicalCores(0), std::nullopt);
}

TEST(LinuxPerformanceLevelSourceTest, LastLevelHoldsTheEfficiencyCores) {
    LinuxPerformanceLevelSource source(CoreClassification{3, {0, 1, 2, 3}});
    EXPECT_EQ(source.levelCount(), 3);
    EXPECT_EQ(source.logicalCores(2), 4);
    EXPECT_EQ(source.logicalCores(1), std::nullopt);
    EXPECT_EQ(source.logicalCores(3), std::nullopt);
}

}  // namespace
}  // namespace velmora
