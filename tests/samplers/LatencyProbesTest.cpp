#include "samplers/LatencyProbes.h"

#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeWorkQueue.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora {
namespace {

using State = ConnectionState;

class LatencyProbesTest : public testing::Test {
protected:
    PingCompletion remember() {
        return [this](std::optional<double> milliseconds) { results.push_back(milliseconds); };
    }
    /// What an ordinary host answers.
    static std::vector<std::uint8_t> echo(std::vector<std::uint8_t> request) {
        std::vector<std::uint8_t> datagram(20);
        datagram[0] = 0x45;
        request[0] = 0;
        datagram.insert(datagram.end(), request.begin(), request.end());
        return datagram;
    }
    std::optional<double> ping() {
        results.clear();
        probes.icmpPing("192.0.2.1", 2.0, remember());
        worker.runAll();
        EXPECT_EQ(results.size(), 1U);
        return results.empty() ? std::nullopt : results.front();
    }
    std::optional<double> connect(std::vector<std::pair<double, State>> script) {
        results.clear();
        connections.script = std::move(script);
        probes.measurePing(remember());
        worker.runAll();
        EXPECT_EQ(results.size(), 1U) << "a probe completes exactly once";
        return results.empty() ? std::nullopt : results.front();
    }

    FakeWorkQueue worker;
    FakeMonotonicClock clock;
    FakeEchoSocketFactory sockets{clock};
    FakeConnectionProbe connections{clock};
    LatencyProbes probes{"192.0.2.9", worker, sockets,
                         connections, clock,  [] { return std::uint16_t{0x0102}; }};
    std::vector<std::optional<double>> results;
};

TEST_F(LatencyProbesTest, ReplyGivesItsRoundTripInMilliseconds) {
    sockets.reply = echo;
    sockets.replyAfter = 0.0125;
    EXPECT_NEAR(ping().value(), 12.5, 1e-6);
    EXPECT_EQ(sockets.closeCount, 1);
}

TEST_F(LatencyProbesTest, ProbeDoesNotRunOnTheCallersThread) {
    probes.icmpPing("192.0.2.1", 2.0, remember());
    probes.measurePing(remember());
    EXPECT_EQ(sockets.openCount, 0);
    EXPECT_TRUE(results.empty());
    EXPECT_EQ(worker.pendingCount(), 2U);
}

TEST_F(LatencyProbesTest, RequestGoesToTheHostWithTheDrawnIdentifier) {
    ping();
    EXPECT_EQ(sockets.lastHost, "192.0.2.1");
    ASSERT_EQ(sockets.lastMessage.size(), 16U);
    EXPECT_EQ(sockets.lastMessage[4], 0x01);
    EXPECT_EQ(sockets.lastMessage[5], 0x02);
}

TEST_F(LatencyProbesTest, TimeoutIsCutToWholeSeconds) {
    probes.icmpPing("192.0.2.1", 2.9, remember());
    worker.runAll();
    EXPECT_EQ(sockets.lastTimeout, 2);
}

TEST_F(LatencyProbesTest, RefusedSocketGivesNone) {
    sockets.refuses = true;
    EXPECT_EQ(ping(), std::nullopt);
}

TEST_F(LatencyProbesTest, FailedSendGivesNoneWithoutWaiting) {
    sockets.sends = false;
    EXPECT_EQ(ping(), std::nullopt);
    EXPECT_EQ(sockets.receiveCount, 0);
    EXPECT_EQ(sockets.closeCount, 1);
}

TEST_F(LatencyProbesTest, TimeoutGivesNone) {
    sockets.reply = nullptr;
    EXPECT_EQ(ping(), std::nullopt);
    EXPECT_EQ(sockets.closeCount, 1);
}

TEST_F(LatencyProbesTest, ForeignIdentifierGivesNoneAtOnceAndClosesTheSocket) {
    sockets.reply = [](const std::vector<std::uint8_t>& request) {
        auto datagram = echo(request);
        datagram[25] = static_cast<std::uint8_t>(datagram[25] ^ 1U);
        return datagram;
    };
    EXPECT_EQ(ping(), std::nullopt);
    EXPECT_EQ(sockets.receiveCount, 1) << "there is exactly one receive";
    EXPECT_EQ(sockets.closeCount, 1);
}

TEST_F(LatencyProbesTest, EchoProbePingsTheInjectedAddressForTwoSeconds) {
    sockets.reply = echo;
    probes.icmpProbe()(remember());
    worker.runAll();
    EXPECT_EQ(sockets.lastHost, "192.0.2.9");
    EXPECT_EQ(sockets.lastTimeout, 2);
    EXPECT_EQ(results.size(), 1U);
}

TEST_F(LatencyProbesTest, EmptyAddressMeansNoProbe) {
    LatencyProbes none("", worker, sockets, connections, clock);
    EXPECT_FALSE(none.icmpProbe());
    EXPECT_FALSE(none.connectionProbe());
}

TEST_F(LatencyProbesTest, ReadyConnectionGivesTheTimeSinceTheStart) {
    EXPECT_NEAR(connect({{0.001, State::preparing}, {0.019, State::ready}}).value(), 20, 1e-6);
    EXPECT_EQ(connections.lastHost, "192.0.2.9");
    EXPECT_EQ(connections.lastPort, 443);
    EXPECT_EQ(connections.lastTimeout, 3);
}

TEST_F(LatencyProbesTest, FailureAfterReadyIsIgnored) {
    EXPECT_NEAR(connect({{0.02, State::ready}, {0.5, State::failed}}).value(), 20, 1e-6);
}

TEST_F(LatencyProbesTest, TimeoutAfterReadyDoesNothing) {
    EXPECT_NEAR(connect({{0.02, State::ready}, {2.98, State::timedOut}}).value(), 20, 1e-6);
}

TEST_F(LatencyProbesTest, ReadyAfterAFailureIsIgnored) {
    EXPECT_EQ(connect({{0.02, State::failed}, {0.5, State::ready}}), std::nullopt);
}

TEST_F(LatencyProbesTest, ReadyAfterTheTimeoutIsIgnored) {
    EXPECT_EQ(connect({{3, State::timedOut}, {0.1, State::ready}}), std::nullopt);
}

TEST_F(LatencyProbesTest, FailedAndCancelledAndTimedOutGiveNone) {
    EXPECT_EQ(connect({{0.02, State::failed}}), std::nullopt);
    EXPECT_EQ(connect({{0.02, State::cancelled}}), std::nullopt);
    EXPECT_EQ(connect({{3, State::timedOut}}), std::nullopt);
}

TEST_F(LatencyProbesTest, OtherStatesDecideNothing) {
    EXPECT_NEAR(
        connect({{0, State::setup}, {0, State::preparing}, {0.01, State::waiting}, {0.01, State::ready}})
            .value(),
        20, 1e-6);
}

TEST_F(LatencyProbesTest, ProbesAreInterruptedAtTheEnd) {
    { const LatencyProbes ending("192.0.2.9", worker, sockets, connections, clock); }
    EXPECT_EQ(sockets.interruptCount, 1);
    EXPECT_EQ(connections.interruptCount, 1);
}

TEST_F(LatencyProbesTest, RandomIdentifierIsNeverZero) {
    for (int draw = 0; draw < 1000; ++draw) EXPECT_NE(LatencyProbes::randomIdentifier(), 0);
}

}  // namespace
}  // namespace velmora
