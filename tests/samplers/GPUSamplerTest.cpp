#include "samplers/GPUSampler.h"

#include "fakes/FakeProcessorSources.h"
#include "samplers/ProcessorRecords.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace velmora {
namespace {

/// Accelerators by their property dictionaries, as the program's first home hands them out.
class RegistryAccelerators final : public AcceleratorSource {
public:
    bool utilizations(std::vector<int>& percents) override {
        percents.clear();
        for (const auto& properties : dictionaries) {
            if (const auto percent = ProcessorRecords::acceleratorUtilization(properties))
                percents.push_back(*percent);
        }
        return true;
    }

    std::vector<nlohmann::json> dictionaries;
};

/// Fails half-way through its list.
class InterruptedAccelerators final : public AcceleratorSource {
public:
    bool utilizations(std::vector<int>& percents) override {
        percents = {40};
        return false;
    }
};

class GPUSamplerTest : public testing::Test {
protected:
    std::optional<double> sample(std::vector<int> percents) {
        accelerators.percents = std::move(percents);
        return sampler.sample();
    }

    FakeAcceleratorSource accelerators;
    GPUSampler sampler{accelerators};
};

TEST_F(GPUSamplerTest, BusiestOfTwoAcceleratorsCounts) {
    EXPECT_EQ(sample({10, 40}), 0.4);
    EXPECT_EQ(sample({40, 10}), 0.4);
}

TEST_F(GPUSamplerTest, IdleAcceleratorGivesZeroAndNotNothing) {
    EXPECT_EQ(sample({0}), 0.0);
}

TEST_F(GPUSamplerTest, NoAcceleratorGivesNothing) {
    EXPECT_EQ(sample({}), std::nullopt);
}

TEST_F(GPUSamplerTest, FailedListingGivesNothing) {
    sample({40});
    accelerators.fails = true;
    EXPECT_EQ(sampler.sample(), std::nullopt);
}

TEST_F(GPUSamplerTest, ListingThatFailsHalfWayGivesNothing) {
    InterruptedAccelerators interrupted;
    EXPECT_EQ(GPUSampler(interrupted).sample(), std::nullopt);
}

TEST_F(GPUSamplerTest, ReportAboveHundredIsPassedOn) {
    EXPECT_EQ(sample({120}), 1.2);
}

TEST_F(GPUSamplerTest, NegativeReportCountsAsZero) {
    EXPECT_EQ(sample({-3}), 0.0);
}

TEST_F(GPUSamplerTest, OnlyAcceleratorWithoutStatisticsGivesNothing) {
    RegistryAccelerators registry;
    registry.dictionaries = {{{"model", "x"}}};
    EXPECT_EQ(GPUSampler(registry).sample(), std::nullopt);
}

TEST_F(GPUSamplerTest, AcceleratorWithoutStatisticsDoesNotHideAnother) {
    RegistryAccelerators registry;
    registry.dictionaries = {{{"model", "x"}}, {{"PerformanceStatistics", {{"Device Utilization %", 25}}}}};
    EXPECT_EQ(GPUSampler(registry).sample(), 0.25);
}

}  // namespace
}  // namespace velmora
