#include "samplers/NetworkSampler.h"

#include "fakes/FakeNetworkSources.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {
namespace {

class NetworkSamplerTest : public testing::Test {
protected:
    void have(std::uint64_t down, std::uint64_t up) {
        counters.interfaces = {{.isLoopback = false, .receivedBytes = down, .sentBytes = up}};
    }
    void haveAddress(std::string name, std::optional<std::string> text) {
        addresses.addresses.push_back(
            {.name = std::move(name), .isUp = true, .isLoopback = false, .text = std::move(text)});
    }

    FakeInterfaceCounterSource counters;
    FakeInterfaceAddressSource addresses;
    NetworkSampler sampler{counters, addresses};
};

TEST_F(NetworkSamplerTest, FirstSampleGivesTotalsAndZeroRates) {
    have(5000, 700);
    const NetworkRates rates = sampler.sample(0);
    EXPECT_EQ(rates.downPerSec, 0);
    EXPECT_EQ(rates.upPerSec, 0);
    EXPECT_EQ(rates.totalDown, 5000U);
    EXPECT_EQ(rates.totalUp, 700U);
}

TEST_F(NetworkSamplerTest, FirstSampleWithAnIntervalStillGivesZeroRates) {
    have(5000, 700);
    const NetworkRates rates = sampler.sample(2);
    EXPECT_EQ(rates.downPerSec, 0);
    EXPECT_EQ(rates.upPerSec, 0);
}

TEST_F(NetworkSamplerTest, GrowthOverTheIntervalIsTheRate) {
    have(1000, 100);
    sampler.sample(0);
    have(5000, 300);
    const NetworkRates rates = sampler.sample(2);
    EXPECT_DOUBLE_EQ(rates.downPerSec, 2000);
    EXPECT_DOUBLE_EQ(rates.upPerSec, 100);
}

TEST_F(NetworkSamplerTest, IntervalOfZeroGivesZeroRatesAndMovesTheBaseline) {
    have(1000, 100);
    sampler.sample(2);
    have(9000, 900);
    const NetworkRates still = sampler.sample(0);
    EXPECT_EQ(still.downPerSec, 0);
    EXPECT_EQ(still.upPerSec, 0);
    have(9010, 905);
    const NetworkRates next = sampler.sample(1);
    EXPECT_DOUBLE_EQ(next.downPerSec, 10);
    EXPECT_DOUBLE_EQ(next.upPerSec, 5);
}

TEST_F(NetworkSamplerTest, FallingDownCounterLeavesTheUpRateAlive) {
    have(10000, 100);
    sampler.sample(0);
    have(4000, 500);
    const NetworkRates fallen = sampler.sample(2);
    EXPECT_EQ(fallen.downPerSec, 0);
    EXPECT_DOUBLE_EQ(fallen.upPerSec, 200);
    EXPECT_EQ(fallen.totalDown, 4000U);
    have(4600, 500);
    EXPECT_DOUBLE_EQ(sampler.sample(2).downPerSec, 300) << "the lower total is the new baseline";
}

TEST_F(NetworkSamplerTest, LoopbackAddsNothing) {
    have(100, 10);
    counters.interfaces.push_back({.isLoopback = true, .receivedBytes = 7777, .sentBytes = 7777});
    EXPECT_EQ(sampler.counters(), (NetworkTotals{100, 10}));
}

TEST_F(NetworkSamplerTest, SeveralInterfacesAddUp) {
    have(100, 10);
    counters.interfaces.push_back({.isLoopback = false, .receivedBytes = 1, .sentBytes = 2});
    EXPECT_EQ(sampler.counters(), (NetworkTotals{101, 12}));
}

TEST_F(NetworkSamplerTest, FailedReadCountsAsZeroAndTheNextSpansAllThatThereIs) {
    have(6000, 600);
    sampler.sample(0);
    counters.fails = true;
    const NetworkRates failed = sampler.sample(2);
    EXPECT_EQ(failed.downPerSec, 0);
    EXPECT_EQ(failed.upPerSec, 0);
    EXPECT_EQ(failed.totalDown, 0U);
    EXPECT_EQ(failed.totalUp, 0U);
    counters.fails = false;
    const NetworkRates after = sampler.sample(2);
    EXPECT_DOUBLE_EQ(after.downPerSec, 3000);
    EXPECT_DOUBLE_EQ(after.upPerSec, 300);
}

TEST_F(NetworkSamplerTest, TotalsAboveTheExactRangeOfDoublesKeepTheirDifference) {
    constexpr std::uint64_t kHuge = std::uint64_t{1} << 60U;
    have(kHuge, 0);
    sampler.sample(0);
    have(kHuge + 3, 0);
    EXPECT_DOUBLE_EQ(sampler.sample(1).downPerSec, 3);
}

TEST_F(NetworkSamplerTest, SmallestNameGivesTheAddressWhateverTheOrder) {
    haveAddress("en1", "192.0.2.11");
    haveAddress("en0", "192.0.2.10");
    EXPECT_EQ(sampler.localIPAddress(), "192.0.2.10");
}

TEST_F(NetworkSamplerTest, NamesAreComparedAsPlainText) {
    haveAddress("en2", "192.0.2.2");
    haveAddress("en10", "192.0.2.10");
    EXPECT_EQ(sampler.localIPAddress(), "192.0.2.10");
}

TEST_F(NetworkSamplerTest, FirstAddressOfAnInterfaceIsTaken) {
    haveAddress("en0", "192.0.2.1");
    haveAddress("en0", "192.0.2.2");
    EXPECT_EQ(sampler.localIPAddress(), "192.0.2.1");
}

TEST_F(NetworkSamplerTest, TunnelAndBridgeNeverGiveTheAddress) {
    haveAddress("utun3", "192.0.2.3");
    haveAddress("bridge0", "192.0.2.4");
    EXPECT_EQ(sampler.localIPAddress(), std::nullopt);
}

TEST_F(NetworkSamplerTest, InterfaceThatIsDownGivesNoAddress) {
    haveAddress("en0", "192.0.2.1");
    addresses.addresses.back().isUp = false;
    haveAddress("en1", "192.0.2.2");
    EXPECT_EQ(sampler.localIPAddress(), "192.0.2.2");
}

TEST_F(NetworkSamplerTest, LoopbackGivesNoAddress) {
    haveAddress("en0", "127.0.0.1");
    addresses.addresses.back().isLoopback = true;
    EXPECT_EQ(sampler.localIPAddress(), std::nullopt);
}

TEST_F(NetworkSamplerTest, AddressThatCannotBeWrittenIsPassedOver) {
    haveAddress("en0", std::nullopt);
    haveAddress("en1", "192.0.2.2");
    EXPECT_EQ(sampler.localIPAddress(), "192.0.2.2");
}

TEST_F(NetworkSamplerTest, NoAddressesGiveNone) {
    EXPECT_EQ(sampler.localIPAddress(), std::nullopt);
}

}  // namespace
}  // namespace velmora
