#include "samplers/FanSampler.h"

#include "fakes/FakeSensorSources.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora {
namespace {

using Speeds = std::vector<double>;

class FanSamplerTest : public testing::Test {
protected:
    Speeds speedsOf(std::vector<std::optional<double>> read) {
        source.speeds = std::move(read);
        Speeds speeds = {1, 2, 3};  // Of an earlier sample.
        sampler.speeds(speeds);
        return speeds;
    }

    FakeFanSource source;
    FanSampler sampler{source};
};

TEST_F(FanSamplerTest, MachineWithoutFansHasNoSpeeds) {
    EXPECT_EQ(speedsOf({}), Speeds{});
}

TEST_F(FanSamplerTest, StoppedFanCounts) {
    EXPECT_EQ(speedsOf({0.0, 1200.0}), (Speeds{0, 1200}));
}

TEST_F(FanSamplerTest, FanThatCannotBeReadIsPassedOver) {
    EXPECT_EQ(speedsOf({1000.0, std::nullopt, 1200.0}), (Speeds{1000, 1200}));
}

TEST_F(FanSamplerTest, TwentyThousandIsPassedOverAndLittleLessCounts) {
    EXPECT_EQ(speedsOf({20000.0, 19999.75, 65535.0}), (Speeds{19999.75}));
}

TEST_F(FanSamplerTest, NegativeSpeedAndNoNumberArePassedOver) {
    EXPECT_EQ(speedsOf({-1.0, std::numeric_limits<double>::quiet_NaN(), 900.0}), (Speeds{900}));
}

}  // namespace
}  // namespace velmora
