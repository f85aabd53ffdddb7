#include "core/BatteryStage.h"

#include "core/SeriesPoints.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeDisplay.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;

class BatteryStageTest : public testing::Test {
protected:
    FakeBatterySampler battery;
    FakeDefaults defaults;
    FakeDisplay display;
    BatteryStage stage{battery, defaults, display};
    BatteryStats stats;
};

TEST_F(BatteryStageTest, FiguresAreTakenOver) {
    battery.figures.present = true;
    battery.figures.percent = 80;
    battery.figures.cycleCount = 120;
    stage.sample(Date{0}, stats);
    EXPECT_TRUE(stats.present);
    EXPECT_EQ(stats.percent, 80);
    EXPECT_EQ(stats.cycleCount, 120);
}

TEST_F(BatteryStageTest, ShortSeriesGrowAtEverySampleUpToSixty) {
    battery.figures.percent = 80;
    stage.sample(Date{0}, stats);
    battery.figures.percent = 81;
    battery.figures.isPluggedIn = true;
    stage.sample(Date{10}, stats);
    EXPECT_THAT(points(stats.history), ElementsAre(0.80, 0.81));
    EXPECT_THAT(points(stats.pluggedHistory), ElementsAre(false, true));
    for (int step = 2; step < 70; ++step) stage.sample(Date{step * 10.0}, stats);
    EXPECT_EQ(stats.history.size(), 60U);
    EXPECT_EQ(stats.pluggedHistory.size(), 60U);
}

TEST_F(BatteryStageTest, LongSeriesAreCopiedIntoTheRecord) {
    defaults.stored["bat.long.percent"] = {0.5};
    defaults.stored["bat.long.plugged"] = {1.0};
    defaults.stored["bat.long.screen"] = {0.0};
    defaults.stored["bat.long.at"] = 1000.0;
    BatteryStage restored(battery, defaults, display);
    restored.sample(Date{1100}, stats);
    EXPECT_THAT(points(stats.percentLong), ElementsAre(0.5));
    EXPECT_THAT(points(stats.pluggedLong), ElementsAre(1.0));
    EXPECT_THAT(points(stats.screenOnLong), ElementsAre(0.0));
    battery.figures.percent = 60;
    restored.sample(Date{1300}, stats);
    EXPECT_THAT(points(stats.percentLong), ElementsAre(0.5, 0.6));
}

}  // namespace
}  // namespace velmora
