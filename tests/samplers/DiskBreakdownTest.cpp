#include "samplers/DiskBreakdown.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeDiskSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeWorkQueue.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>

namespace velmora {
namespace {

using Parts = DiskBreakdown::Parts;

class DiskBreakdownTest : public testing::Test {
protected:
    DiskBreakdownTest() {
        places.folders = {.documents = {"/h/Documents", "/h/Desktop", "/h/Downloads"},
                          .applications = {"/Applications"},
                          .cloud = {"/h/Library/Mobile Documents"},
                          .library = {"/h/Library"},
                          .trash = {"/h/.Trash"}};
        places.sizes = {{"/h/Documents", 100},   {"/h/Desktop", 20},  {"/h/Downloads", 3},
                        {"/Applications", 5000}, {"/h/Library", 900}, {"/h/Library/Mobile Documents", 400},
                        {"/h/.Trash", 7}};
    }

    void storeResult(double secondsAgo, const nlohmann::json& parts = {{"docs", 1}}) {
        defaults.stored["disk.parts"] = parts;
        defaults.stored["disk.parts.at"] = clock.now().secondsSince1970 - secondsAgo;
    }
    void finishScan() {
        queue.runAll();
        loop.runPosted();
    }

    FakeDiskPlaceSource places;
    FakeDefaults defaults;
    FakeClock clock;
    FakeWorkQueue queue;
    FakeRunLoop loop{clock};
    std::unique_ptr<DiskBreakdown> breakdown =
        std::make_unique<DiskBreakdown>(places, defaults, clock, queue, loop);
};

const Parts kMeasured = {{"docs", 123}, {"apps", 5000}, {"icloud", 400}, {"system", 500}, {"trash", 7}};

TEST_F(DiskBreakdownTest, FreshStateGivesNothingAndQueuesOneScan) {
    EXPECT_EQ(breakdown->parts(), std::nullopt);
    EXPECT_EQ(queue.pendingCount(), 1u);
    EXPECT_TRUE(places.measured.empty());
}

TEST_F(DiskBreakdownTest, SecondCallDuringTheScanQueuesNoSecondAndGivesNothing) {
    breakdown->parts();
    EXPECT_EQ(breakdown->parts(), std::nullopt);
    EXPECT_EQ(queue.pendingCount(), 1u);
}

TEST_F(DiskBreakdownTest, CallBetweenTheWalkAndItsStoringQueuesNoSecondScan) {
    breakdown->parts();
    queue.runAll();
    EXPECT_EQ(breakdown->parts(), std::nullopt);
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(DiskBreakdownTest, FinishedScanIsServed) {
    breakdown->parts();
    finishScan();
    EXPECT_EQ(breakdown->parts(), kMeasured);
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(DiskBreakdownTest, FinishedScanIsStoredWithItsTime) {
    breakdown->parts();
    clock.advance(10);
    finishScan();
    EXPECT_EQ(
        defaults.stored.at("disk.parts"),
        (nlohmann::json{{"docs", 123}, {"apps", 5000}, {"icloud", 400}, {"system", 500}, {"trash", 7}}));
    EXPECT_EQ(defaults.stored.at("disk.parts.at"), nlohmann::json(clock.now().secondsSince1970));
}

TEST_F(DiskBreakdownTest, PlacesAreMeasuredInTheirOrder) {
    breakdown->parts();
    finishScan();
    EXPECT_EQ(places.measured,
              (std::vector<std::string>{"/h/Documents", "/h/Desktop", "/h/Downloads", "/Applications",
                                        "/h/Library/Mobile Documents", "/h/Library", "/h/.Trash"}));
}

TEST_F(DiskBreakdownTest, ResultOf1799SecondsAgoStartsNoScan) {
    storeResult(1799);
    EXPECT_EQ(breakdown->parts(), (Parts{{"docs", 1}}));
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(DiskBreakdownTest, ResultOf1800SecondsAgoStartsAScanAndIsStillServed) {
    storeResult(1800);
    EXPECT_EQ(breakdown->parts(), (Parts{{"docs", 1}}));
    EXPECT_EQ(queue.pendingCount(), 1u);
    EXPECT_EQ(breakdown->parts(), (Parts{{"docs", 1}}));
    finishScan();
    EXPECT_EQ(breakdown->parts(), kMeasured);
}

TEST_F(DiskBreakdownTest, ResultOfThisRunGrowsOldToo) {
    breakdown->parts();
    finishScan();
    clock.advance(1799);
    breakdown->parts();
    EXPECT_EQ(queue.pendingCount(), 0u);
    clock.advance(1);
    EXPECT_EQ(breakdown->parts(), kMeasured);
    EXPECT_EQ(queue.pendingCount(), 1u);
}

TEST_F(DiskBreakdownTest, CloudLargerThanTheLibraryGivesSystemZero) {
    places.sizes["/h/Library"] = 300;
    breakdown->parts();
    finishScan();
    EXPECT_EQ(breakdown->parts()->at("system"), 0);
    EXPECT_EQ(breakdown->parts()->at("icloud"), 400);
}

TEST_F(DiskBreakdownTest, FolderOfTwoPlacesIsLookedThroughOnce) {
    places.folders.library = {"/h/.cache", "/h/Cloud"};
    places.folders.cloud = {"/h/Cloud"};
    places.sizes = {{"/h/.cache", 30}, {"/h/Cloud", 500}};
    breakdown->parts();
    finishScan();
    EXPECT_EQ(breakdown->parts()->at("system"), 30);
    EXPECT_EQ(breakdown->parts()->at("icloud"), 500);
    EXPECT_EQ(std::ranges::count(places.measured, "/h/Cloud"), 1);
}

TEST_F(DiskBreakdownTest, PlacesThatCannotBeReadCountZero) {
    places.sizes.clear();
    breakdown->parts();
    finishScan();
    EXPECT_EQ(breakdown->parts(),
              (Parts{{"docs", 0}, {"apps", 0}, {"icloud", 0}, {"system", 0}, {"trash", 0}}));
}

TEST_F(DiskBreakdownTest, StoredPartsWithAValueThatIsNoIntegerAreAsIfAbsent) {
    for (const nlohmann::json& foreign :
         {nlohmann::json("12"), nlohmann::json(1.5), nlohmann::json(true), nlohmann::json(),
          nlohmann::json::array({1}), nlohmann::json(std::numeric_limits<std::uint64_t>::max())}) {
        storeResult(5, {{"docs", 1}, {"apps", foreign}});
        DiskBreakdown fresh(places, defaults, clock, queue, loop);
        EXPECT_EQ(fresh.parts(), std::nullopt) << foreign;
        EXPECT_EQ(queue.pendingCount(), 1u);
        queue.runAll();
    }
}

TEST_F(DiskBreakdownTest, StoredPartsThatAreNoDictionaryAreAsIfAbsent) {
    for (const nlohmann::json& foreign :
         {nlohmann::json(7), nlohmann::json::array({1, 2}), nlohmann::json("{}")}) {
        storeResult(5, foreign);
        EXPECT_EQ(breakdown->parts(), std::nullopt) << foreign;
    }
}

TEST_F(DiskBreakdownTest, StoredPartsWithoutATimeAreServedAndOld) {
    defaults.stored["disk.parts"] = {{"docs", 1}};
    EXPECT_EQ(breakdown->parts(), (Parts{{"docs", 1}}));
    EXPECT_EQ(queue.pendingCount(), 1u);
}

TEST_F(DiskBreakdownTest, ResultOutlivesTheObject) {
    breakdown->parts();
    finishScan();
    breakdown = std::make_unique<DiskBreakdown>(places, defaults, clock, queue, loop);
    EXPECT_EQ(breakdown->parts(), kMeasured);
    EXPECT_EQ(queue.pendingCount(), 0u);
}

TEST_F(DiskBreakdownTest, ScanThatIsAskedForTwiceRunsOnce) {
    breakdown->scan();
    breakdown->scan();
    EXPECT_EQ(queue.pendingCount(), 1u);
    finishScan();
    breakdown->scan();
    EXPECT_EQ(queue.pendingCount(), 1u);
}

TEST_F(DiskBreakdownTest, EndDuringTheWalkStopsItAndStoresNothing) {
    breakdown->parts();
    places.onMeasure = [this](const std::string&) { breakdown.reset(); };
    finishScan();
    EXPECT_EQ(places.measured.size(), 1u);
    EXPECT_TRUE(defaults.writes.empty());
}

TEST_F(DiskBreakdownTest, EndBeforeTheStoringStoresNothing) {
    breakdown->parts();
    queue.runAll();
    breakdown.reset();
    loop.runPosted();
    EXPECT_TRUE(defaults.writes.empty());
}

}  // namespace
}  // namespace velmora
