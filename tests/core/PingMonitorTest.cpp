#include "core/PingMonitor.h"

#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSamplers.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace velmora {
namespace {

class PingMonitorTest : public testing::Test {
protected:
    void sample() { monitor->sample(clock.now(), stats); }
    /// One probe of the echo request, answered.
    void probeOnce(FakePing& ping, std::optional<double> milliseconds) {
        clock.advance(6);
        sample();
        ASSERT_TRUE(ping.answer(milliseconds));
        runLoop.runPosted();
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakePing icmp;
    FakePing fallback;
    NetworkStats stats;
    std::unique_ptr<PingMonitor> monitor =
        std::make_unique<PingMonitor>(runLoop, icmp.probe(), fallback.probe());
};

TEST_F(PingMonitorTest, FirstSampleProbes) {
    sample();
    EXPECT_EQ(icmp.probeCount, 1);
    EXPECT_EQ(fallback.probeCount, 0);
}

TEST_F(PingMonitorTest, NextProbeComesAfterMoreThanFiveSeconds) {
    sample();
    clock.advance(5);
    sample();
    EXPECT_EQ(icmp.probeCount, 1);
    clock.advance(0.5);
    sample();
    EXPECT_EQ(icmp.probeCount, 2);
}

TEST_F(PingMonitorTest, ProbeStillInFlightDoesNotHoldUpTheNext) {
    sample();
    clock.advance(6);
    sample();
    EXPECT_EQ(icmp.pending.size(), 2U);
}

TEST_F(PingMonitorTest, OutcomeCountsOnlyAfterTheHopToTheRunLoop) {
    sample();
    icmp.answer(7.5);
    sample();
    EXPECT_EQ(stats.pingMs, std::nullopt);
    runLoop.runPosted();
    sample();
    EXPECT_EQ(stats.pingMs, 7.5);
}

TEST_F(PingMonitorTest, OutcomeMayComeOnAnyThread) {
    sample();
    std::thread([this] { icmp.answer(9); }).join();
    ASSERT_TRUE(runLoop.waitForPost());
    runLoop.runPosted();
    sample();
    EXPECT_EQ(stats.pingMs, 9.0);
}

TEST_F(PingMonitorTest, FailureLeavesTheLastGoodValue) {
    probeOnce(icmp, 8);
    probeOnce(icmp, std::nullopt);
    sample();
    EXPECT_EQ(stats.pingMs, 8.0);
}

TEST_F(PingMonitorTest, ThreeFailuresInARowFlipToTheFallbackProbe) {
    for (int index = 0; index < 3; ++index) probeOnce(icmp, std::nullopt);
    probeOnce(fallback, 20);
    sample();
    EXPECT_EQ(icmp.probeCount, 3);
    EXPECT_EQ(fallback.probeCount, 1);
    EXPECT_EQ(stats.pingMs, 20.0);
}

TEST_F(PingMonitorTest, LossStaysAsItWasAfterTheFlip) {
    for (int index = 0; index < 6; ++index) probeOnce(icmp, 10);
    probeOnce(icmp, std::nullopt);
    probeOnce(icmp, std::nullopt);
    sample();
    EXPECT_EQ(stats.lossPct, 25.0);
    probeOnce(icmp, std::nullopt);
    for (int index = 0; index < 10; ++index) probeOnce(fallback, 10);
    sample();
    EXPECT_EQ(stats.lossPct, 25.0);
}

TEST_F(PingMonitorTest, OutcomeCountsForTheMethodThatItsProbeUsed) {
    // Four requests are under way when the first three have failed; the fourth then fails as an echo request,
    // although the fallback is in use by then.
    for (int index = 0; index < 4; ++index) {
        clock.advance(6);
        sample();
    }
    for (int index = 0; index < 4; ++index) icmp.answer(std::nullopt);
    runLoop.runPosted();
    clock.advance(6);
    sample();
    EXPECT_EQ(fallback.probeCount, 1);
}

TEST_F(PingMonitorTest, JitterIsWritten) {
    probeOnce(icmp, 10);
    probeOnce(icmp, 12);
    probeOnce(icmp, 8);
    sample();
    EXPECT_EQ(stats.jitterMs, 3.0);
}

TEST_F(PingMonitorTest, WithoutProbesNothingIsEverKnown) {
    monitor = std::make_unique<PingMonitor>(runLoop, nullptr, nullptr);
    for (int index = 0; index < 10; ++index) {
        clock.advance(6);
        sample();
    }
    runLoop.runPosted();
    EXPECT_EQ(stats.pingMs, std::nullopt);
    EXPECT_EQ(stats.lossPct, std::nullopt);
}

TEST_F(PingMonitorTest, OutcomeAfterTheMonitorsEndIsDropped) {
    sample();
    icmp.answer(5);
    monitor.reset();
    EXPECT_EQ(runLoop.runPosted(), 1U);
    EXPECT_EQ(stats.pingMs, std::nullopt);
}

}  // namespace
}  // namespace velmora
