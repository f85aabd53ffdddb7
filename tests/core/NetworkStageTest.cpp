#include "core/NetworkStage.h"

#include "core/DailyCounters.h"
#include "core/SeriesPoints.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSamplers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NetworkStageTest : public testing::Test {
protected:
    NetworkStageTest() {
        samplers.networkInfo.bsd = "en0";
        samplers.networkInfo.netName = "Home";
        samplers.network.localIP = "192.0.2.7";
    }

    void sample(double at, double elapsed = 1) { stage.sample(Date{at}, elapsed, stats); }
    /// The calls of the details since the last question.
    std::vector<std::string> detailCalls() { return std::exchange(samplers.networkInfo.calls, {}); }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeSamplers samplers;
    FakeDefaults defaults;
    DailyCounters daily{defaults};
    NetworkStage stage{Date{-100}, runLoop, samplers.view(), daily};
    NetworkStats stats;
};

TEST_F(NetworkStageTest, RatesAndTotalsAreTakenOverWithTheElapsedTime) {
    samplers.network.rates = {100, 50, 1000, 500};
    sample(0, 2);
    EXPECT_EQ(stats.downPerSec, 100);
    EXPECT_EQ(stats.upPerSec, 50);
    EXPECT_EQ(stats.totalDown, 1000U);
    EXPECT_EQ(stats.totalUp, 500U);
    EXPECT_THAT(points(stats.downHistory), ElementsAre(100.0));
    EXPECT_THAT(points(stats.upHistory), ElementsAre(50.0));
    EXPECT_THAT(samplers.network.intervals, ElementsAre(2.0));
}

TEST_F(NetworkStageTest, SeriesAreCapped) {
    for (int step = 0; step < 200; ++step) sample(step * 10.0);
    EXPECT_EQ(stats.downHistory.size(), 60U);
    EXPECT_EQ(stats.upHistory.size(), 60U);
    EXPECT_EQ(stats.downLong.size(), 180U);
    EXPECT_EQ(stats.upLong.size(), 180U);
}

TEST_F(NetworkStageTest, LongSeriesGrowEveryTenSeconds) {
    for (int second = 0; second <= 20; ++second) {
        samplers.network.rates.downPerSec = second;
        samplers.network.rates.upPerSec = second + 0.5;
        sample(second);
    }
    EXPECT_THAT(points(stats.downLong), ElementsAre(0.0, 10.0, 20.0));
    EXPECT_THAT(points(stats.upLong), ElementsAre(0.5, 10.5, 20.5));
}

TEST_F(NetworkStageTest, LocalAddressIsRefreshedAfterMoreThanTenSeconds) {
    sample(0);
    samplers.network.localIP = "192.0.2.8";
    sample(10);
    EXPECT_EQ(stats.localIP, "192.0.2.7");
    sample(10.5);
    EXPECT_EQ(stats.localIP, "192.0.2.8");
}

TEST_F(NetworkStageTest, AbsentLocalAddressIsAskedForAtEverySample) {
    samplers.network.localIP.reset();
    sample(0);
    sample(1);
    EXPECT_EQ(samplers.network.localIPCount, 2);
}

TEST_F(NetworkStageTest, CountersMakeTheDaysAndTheMonthsFigures) {
    samplers.network.rates = {9000, 2000, 1000, 500};
    sample(0, 0);
    samplers.network.rates = {8000, 4000, 1600, 700};
    sample(2, 2);
    EXPECT_EQ(stats.totalToday, 800U);
    EXPECT_EQ(stats.downToday, 600U);
    EXPECT_EQ(stats.upToday, 200U);
    EXPECT_EQ(stats.monthTotal, 800U);
    EXPECT_EQ(stats.activeSecToday, 2.0);
    EXPECT_EQ(stats.peakTodayDown, 9000.0);
}

TEST_F(NetworkStageTest, DetailsAreReadInOrderAndFilledIn) {
    FakeNetworkInfoSampler& info = samplers.networkInfo;
    info.linkMbps = 866.5;
    info.ifaceName = "Wi-Fi";
    info.wifi = {-55, "802.11ax", "36", "HomeNet"};
    info.router = "192.0.2.1";
    info.dns = "192.0.2.2";
    info.mac = "02:00:00:00:00:01";
    info.vpnOn = true;
    info.proxy = "proxy.example:8080";
    sample(0);
    EXPECT_THAT(detailCalls(), ElementsAre("primaryInterface", "networkName", "linkSpeed",
                                           "interfaceDisplayName", "wifiDetail", "routerAddress",
                                           "dnsAddress", "macAddress", "vpnActive", "proxyDescription"));
    EXPECT_THAT(info.askedInterfaces, testing::Each(std::optional<std::string>("en0")));
    EXPECT_EQ(stats.netName, "Home");
    EXPECT_EQ(stats.linkMbps, 866.5);
    EXPECT_EQ(stats.ifaceName, "Wi-Fi");
    EXPECT_EQ(stats.rssi, -55);
    EXPECT_EQ(stats.phyMode, "802.11ax");
    EXPECT_EQ(stats.channel, "36");
    EXPECT_EQ(stats.ssid, "HomeNet");
    EXPECT_EQ(stats.router, "192.0.2.1");
    EXPECT_EQ(stats.dns, "192.0.2.2");
    EXPECT_EQ(stats.mac, "02:00:00:00:00:01");
    EXPECT_TRUE(stats.vpnOn);
    EXPECT_EQ(stats.proxy, "proxy.example:8080");
}

TEST_F(NetworkStageTest, DetailsCarryOverForThirtySeconds) {
    sample(0);
    detailCalls();
    samplers.networkInfo.router = "192.0.2.9";
    sample(30);
    EXPECT_THAT(detailCalls(), IsEmpty());
    EXPECT_EQ(stats.router, std::nullopt);
    sample(30.5);
    EXPECT_EQ(stats.router, "192.0.2.9");
}

TEST_F(NetworkStageTest, DetailsAreReadAtEverySampleWhileTheNetworkHasNoName) {
    samplers.networkInfo.netName.reset();
    sample(0);
    detailCalls();
    sample(1);
    EXPECT_EQ(detailCalls().size(), 10U);
}

TEST_F(NetworkStageTest, ConnectedTimeRunsFromTheFirstDetails) {
    sample(0);
    EXPECT_EQ(stats.connectedSec, 0.0);
    sample(7);
    EXPECT_EQ(stats.connectedSec, 7.0);
}

TEST_F(NetworkStageTest, AnotherNetworkRestartsTheConnectedTime) {
    sample(0);
    samplers.networkInfo.netName = "Office";
    sample(31);
    EXPECT_EQ(stats.connectedSec, 0.0);
    sample(40);
    EXPECT_EQ(stats.connectedSec, 9.0);
}

TEST_F(NetworkStageTest, AnotherInterfaceRestartsTheConnectedTime) {
    sample(0);
    samplers.networkInfo.bsd = "en1";
    sample(31);
    EXPECT_EQ(stats.connectedSec, 0.0);
}

TEST_F(NetworkStageTest, ReconnectToTheSameNetworkDoesNotRestartTheConnectedTime) {
    sample(0);
    sample(31);
    sample(62);
    EXPECT_EQ(stats.connectedSec, 62.0);
}

TEST_F(NetworkStageTest, MachineWithoutAnyNetworkKeepsOneIdentity) {
    samplers.networkInfo.bsd.reset();
    samplers.networkInfo.netName.reset();
    sample(0);
    sample(5);
    EXPECT_EQ(stats.connectedSec, 5.0);
}

TEST_F(NetworkStageTest, ProbeIsSentAndItsOutcomeShownByTheNextSample) {
    sample(0);
    samplers.icmpPing.answer(11);
    runLoop.runPosted();
    EXPECT_EQ(stats.pingMs, std::nullopt);
    sample(1);
    EXPECT_EQ(stats.pingMs, 11.0);
}

TEST_F(NetworkStageTest, ProbesComeOnlyWithinSamples) {
    sample(0);
    sample(60);
    EXPECT_EQ(samplers.icmpPing.probeCount, 2);
}

}  // namespace
}  // namespace velmora
