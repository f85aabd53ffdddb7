#include "model/StatsModule.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

Rows rowsOf(StatsModule module) {
    Rows rows;
    for (const ModuleMetric& metric : metrics(module)) rows.emplace_back(metric.key, metric.labelKey);
    return rows;
}

TEST(StatsModule, OrderRawValuesAndLabelsAreAsStored) {
    std::vector<std::string> rawValues;
    std::vector<std::string> labels;
    for (const StatsModule module : kAllModules) {
        rawValues.emplace_back(rawValue(module));
        labels.emplace_back(shortLabel(module));
    }
    EXPECT_EQ(rawValues,
              (std::vector<std::string>{"cpu", "memory", "disk", "network", "sensors", "battery"}));
    EXPECT_EQ(labels, (std::vector<std::string>{"CPU", "MEM", "DSK", "NET", "SEN", "BAT"}));
}

TEST(StatsModule, RawValueLeadsBackToItsModule) {
    for (const StatsModule module : kAllModules) EXPECT_EQ(moduleFromRawValue(rawValue(module)), module);
}

TEST(StatsModule, UnknownRawValueIsNoModule) {
    EXPECT_EQ(moduleFromRawValue("gpu"), std::nullopt);
    EXPECT_EQ(moduleFromRawValue(""), std::nullopt);
    EXPECT_EQ(moduleFromRawValue("cpu "), std::nullopt);
}

TEST(StatsModule, RawValueIsCaseSensitive) {
    EXPECT_EQ(moduleFromRawValue("CPU"), std::nullopt);
}

TEST(StatsModule, MetricsStandInDisplayOrder) {
    EXPECT_EQ(rowsOf(StatsModule::cpu), (Rows{{"cores", "metric.cores"},
                                              {"load", "metric.load"},
                                              {"gpu", "metric.gpu"},
                                              {"top", "metric.top"}}));
    EXPECT_EQ(rowsOf(StatsModule::memory), (Rows{{"breakdown", "metric.breakdown"},
                                                 {"swap", "metric.swap"},
                                                 {"pageio", "metric.pageio"},
                                                 {"top", "metric.top"}}));
    EXPECT_EQ(rowsOf(StatsModule::disk),
              (Rows{{"volumes", "metric.volumes"}, {"activity", "metric.activity"}, {"top", "metric.top"}}));
    EXPECT_EQ(rowsOf(StatsModule::network),
              (Rows{{"localIP", "metric.localIP"}, {"totals", "metric.totals"}, {"top", "metric.top"}}));
    EXPECT_EQ(rowsOf(StatsModule::sensors),
              (Rows{{"temperatures", "metric.temperatures"}, {"fans", "metric.fans"}}));
    EXPECT_EQ(rowsOf(StatsModule::battery), (Rows{{"cycles", "metric.cycles"},
                                                  {"health", "metric.health"},
                                                  {"temperature", "metric.temperature"},
                                                  {"peripherals", "metric.peripherals"},
                                                  {"energy", "metric.energy"}}));
}

TEST(ModuleSet, HoldsWhatWasInserted) {
    ModuleSet set{StatsModule::disk, StatsModule::cpu};
    EXPECT_TRUE(set.contains(StatsModule::cpu));
    EXPECT_FALSE(set.contains(StatsModule::memory));
    EXPECT_EQ(set.size(), 2u);
    set.remove(StatsModule::cpu);
    EXPECT_EQ(set, ModuleSet{StatsModule::disk});
    set.clear();
    EXPECT_TRUE(set.empty());
}

TEST(ModuleSet, AllHoldsEveryModule) {
    for (const StatsModule module : kAllModules) EXPECT_TRUE(ModuleSet::all().contains(module));
    EXPECT_EQ(ModuleSet::all().size(), kModuleCount);
}

}  // namespace
}  // namespace velmora
