#include "core/SensorAvailability.h"

#include "fakes/FakeImproveEvents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FakeImproveEvents::Event gap(const std::string& metric) {
    return {"sensor.unavailable", {{"module", "sensors"}, {"metric", metric}, {"reason", "unsupported"}}};
}

class SensorAvailabilityTest : public testing::Test {
protected:
    SensorAvailabilityTest() {
        complete.temperatures = {{TempCategory::cpu, 40}};
        complete.fans = {1200};
        complete.gpuUsage = 0.5;
    }

    FakeImproveEvents improve;
    SensorAvailability availability{improve};
    SensorsStats complete;
};

TEST_F(SensorAvailabilityTest, CompleteMachineReportsNothing) {
    availability.report(complete);
    EXPECT_THAT(improve.events, IsEmpty());
}

TEST_F(SensorAvailabilityTest, EveryGapIsReportedInOrder) {
    availability.report(SensorsStats{});
    EXPECT_THAT(improve.events, ElementsAre(gap("cpuTemp"), gap("fan"), gap("gpu")));
}

TEST_F(SensorAvailabilityTest, OtherTemperaturesAreNoProcessorTemperature) {
    complete.temperatures = {{TempCategory::battery, 30}};
    availability.report(complete);
    EXPECT_THAT(improve.events, ElementsAre(gap("cpuTemp")));
}

TEST_F(SensorAvailabilityTest, GapIsReportedOncePerRun) {
    complete.gpuUsage.reset();
    availability.report(complete);
    availability.report(complete);
    complete.gpuUsage = 0;
    availability.report(complete);
    complete.gpuUsage.reset();
    availability.report(complete);
    EXPECT_EQ(improve.events.size(), 1U);
}

TEST_F(SensorAvailabilityTest, LaterGapIsReportedToo) {
    availability.report(complete);
    complete.fans.clear();
    availability.report(complete);
    EXPECT_THAT(improve.events, ElementsAre(gap("fan")));
}

}  // namespace
}  // namespace velmora
