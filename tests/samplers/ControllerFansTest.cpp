#include "samplers/ControllerFans.h"

#include "fakes/FakeSensorSources.h"
#include "samplers/FanSampler.h"

#include <gtest/gtest.h>

#include <bit>

namespace velmora {
namespace {

using Speeds = std::vector<double>;

class ControllerFansTest : public testing::Test {
protected:
    void setCount(std::uint8_t count) { connection.keys["FNum"] = {"ui8 ", 1, {count}}; }
    void setQuarters(const std::string& key, std::uint8_t high, std::uint8_t low) {
        connection.keys[key] = {"fpe2", 2, {high, low}};
    }
    void setFloat(const std::string& key, float speed) {
        const auto bytes = std::bit_cast<std::array<std::uint8_t, 4>>(speed);
        connection.keys[key] = {"flt ", 4, {bytes.begin(), bytes.end()}};
    }
    Speeds speeds() {
        Speeds rpm;
        sampler.speeds(rpm);
        return rpm;
    }

    FakeControllerConnection connection;
    ControllerFans fans{connection};
    FanSampler sampler{fans};
};

TEST_F(ControllerFansTest, WithoutConnectionNothingIsAsked) {
    connection.opened = 0;
    setCount(1);
    setQuarters("F0Ac", 0x1F, 0x40);
    EXPECT_EQ(speeds(), Speeds{});
    EXPECT_EQ(connection.calls, 0);
}

TEST_F(ControllerFansTest, MissingCountGivesNoSpeeds) {
    setQuarters("F0Ac", 0x1F, 0x40);
    EXPECT_EQ(speeds(), Speeds{});
}

TEST_F(ControllerFansTest, CountOfZeroGivesNoSpeeds) {
    setCount(0);
    setQuarters("F0Ac", 0x1F, 0x40);
    EXPECT_EQ(speeds(), Speeds{});
}

TEST_F(ControllerFansTest, CountOfSixteenGivesNoSpeeds) {
    setCount(16);
    setQuarters("F0Ac", 0x1F, 0x40);
    EXPECT_EQ(speeds(), Speeds{});
}

TEST_F(ControllerFansTest, QuartersAreDecodedBigEndian) {
    setCount(1);
    setQuarters("F0Ac", 0x1F, 0x40);
    EXPECT_EQ(speeds(), Speeds{2000.0});
}

TEST_F(ControllerFansTest, FloatIsDecodedInTheMachinesOrder) {
    setCount(1);
    setFloat("F0Ac", 2400.5F);
    EXPECT_EQ(speeds(), Speeds{2400.5});
}

TEST_F(ControllerFansTest, FloatOfTwentyThousandOrNegativeIsPassedOver) {
    setCount(3);
    setFloat("F0Ac", 20000);
    setFloat("F1Ac", -1);
    setFloat("F2Ac", 1500);
    EXPECT_EQ(speeds(), Speeds{1500});
}

TEST_F(ControllerFansTest, StoppedFanCounts) {
    setCount(1);
    setFloat("F0Ac", 0);
    EXPECT_EQ(speeds(), Speeds{0});
}

TEST_F(ControllerFansTest, FanOfAnotherTypeIsPassedOverAndTheOthersAreThere) {
    setCount(3);
    setFloat("F0Ac", 1000);
    connection.keys["F1Ac"] = {"ui16", 2, {0x1F, 0x40}};
    setFloat("F2Ac", 1200);
    EXPECT_EQ(speeds(), (Speeds{1000, 1200}));
}

TEST_F(ControllerFansTest, FanWhoseKeyIsRefusedIsPassedOver) {
    setCount(3);
    setFloat("F0Ac", 1000);
    setFloat("F2Ac", 1200);
    EXPECT_EQ(speeds(), (Speeds{1000, 1200}));
}

TEST_F(ControllerFansTest, FanWhoseValueIsRefusedIsPassedOver) {
    setCount(2);
    setFloat("F0Ac", 1000);
    connection.unreadable.insert("F0Ac");
    setFloat("F1Ac", 1200);
    EXPECT_EQ(speeds(), Speeds{1200});
}

TEST_F(ControllerFansTest, FailingCallsGiveNoSpeeds) {
    setCount(1);
    setFloat("F0Ac", 1000);
    connection.callFails = true;
    EXPECT_EQ(speeds(), Speeds{});
}

TEST_F(ControllerFansTest, EleventhFanReadsWhatItsCutKeyGives) {
    setCount(11);
    setFloat("F9Ac", 900);
    setFloat("F10A", 1234);
    EXPECT_EQ(speeds(), (Speeds{900, 1234}));
}

TEST_F(ControllerFansTest, IntegersOfOneToThreeBytesAreBigEndian) {
    connection.keys["AAAA"] = {"ui8 ", 1, {0x12, 0x34}};
    connection.keys["BBBB"] = {"ui16", 2, {0x12, 0x34}};
    connection.keys["CCCC"] = {"hex_", 3, {0x12, 0x34, 0x56, 0x78}};
    EXPECT_EQ(fans.readInt("AAAA"), 0x12U);
    EXPECT_EQ(fans.readInt("BBBB"), 0x1234U);
    EXPECT_EQ(fans.readInt("CCCC"), 0x123456U);
}

TEST_F(ControllerFansTest, LargerIntegersReadFourBytesAndNoneReadsZero) {
    connection.keys["AAAA"] = {"ui32", 4, {0x12, 0x34, 0x56, 0x78, 0x9A}};
    connection.keys["BBBB"] = {"ui64", 0xFFFFFFFF, {0x12, 0x34, 0x56, 0x78, 0x9A}};
    connection.keys["CCCC"] = {"flag", 0, {0x12}};
    EXPECT_EQ(fans.readInt("AAAA"), 0x12345678U);
    EXPECT_EQ(fans.readInt("BBBB"), 0x12345678U);
    EXPECT_EQ(fans.readInt("CCCC"), 0U);
}

TEST_F(ControllerFansTest, KeyInfoOfAnUnknownKeyIsAbsent) {
    EXPECT_EQ(fans.keyInfo("none"), std::nullopt);
    EXPECT_EQ(fans.readBytes("none"), std::nullopt);
    EXPECT_EQ(fans.readInt("none"), std::nullopt);
}

TEST_F(ControllerFansTest, BothCommandsGoOutAsRecords) {
    connection.keys["F0Ac"] = {"fpe2", 2, {0x1F, 0x40}};
    fans.readBytes("F0Ac");
    ASSERT_EQ(connection.requests.size(), 2U);
    const auto info = SMCKeyData::decoded(connection.requests[0]);
    EXPECT_EQ(info.key, fourCC("F0Ac"));
    EXPECT_EQ(info.data8, 9);
    EXPECT_EQ(info.keyInfo, SMCKeyInfo{});
    const auto read = SMCKeyData::decoded(connection.requests[1]);
    EXPECT_EQ(read.data8, 5);
    EXPECT_EQ(read.keyInfo, (SMCKeyInfo{2, fourCC("fpe2"), 0xC0}));
}

}  // namespace
}  // namespace velmora
