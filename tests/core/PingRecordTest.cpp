#include "core/PingRecord.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

void addGood(PingRecord& record, int count, double milliseconds = 10) {
    for (int index = 0; index < count; ++index) record.add(milliseconds, PingMethod::icmp);
}

TEST(PingRecordTest, NothingIsKnownAtFirst) {
    const PingRecord record;
    EXPECT_EQ(record.lastMs(), std::nullopt);
    EXPECT_EQ(record.lossPct(), std::nullopt);
    EXPECT_EQ(record.jitterMs(), std::nullopt);
    EXPECT_EQ(record.method(), PingMethod::icmp);
}

TEST(PingRecordTest, FailureLeavesTheLastGoodRoundTrip) {
    PingRecord record;
    record.add(12.5, PingMethod::icmp);
    record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.lastMs(), 12.5);
}

TEST(PingRecordTest, LossNeedsSixOutcomes) {
    PingRecord record;
    addGood(record, 4);
    record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.lossPct(), std::nullopt);
    addGood(record, 3);
    EXPECT_EQ(record.lossPct(), 12.5);
}

TEST(PingRecordTest, LossLooksAtTheLastFortyOutcomes) {
    PingRecord record;
    record.add(std::nullopt, PingMethod::icmp);
    addGood(record, 39);
    EXPECT_EQ(record.lossPct(), 2.5);
    addGood(record, 1);
    EXPECT_EQ(record.lossPct(), 0.0);
}

TEST(PingRecordTest, JitterNeedsThreeRoundTrips) {
    PingRecord record;
    record.add(10, PingMethod::icmp);
    record.add(std::nullopt, PingMethod::icmp);
    record.add(14, PingMethod::icmp);
    EXPECT_EQ(record.jitterMs(), std::nullopt);
    record.add(12, PingMethod::icmp);
    EXPECT_EQ(record.jitterMs(), 3.0);  // (4 + 2) / 2
}

TEST(PingRecordTest, JitterLooksAtTheLastTwentyRoundTrips) {
    PingRecord record;
    record.add(1000, PingMethod::icmp);
    addGood(record, 19);
    EXPECT_GT(record.jitterMs().value(), 0.0);
    addGood(record, 1);
    EXPECT_EQ(record.jitterMs(), 0.0);
}

TEST(PingRecordTest, ThreeFailedEchoRequestsInARowFlipToTheFallback) {
    PingRecord record;
    addGood(record, 5);
    for (int index = 0; index < 3; ++index) record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.method(), PingMethod::fallback);
}

TEST(PingRecordTest, ThreeFailuresAsTheFirstOutcomesFlip) {
    PingRecord record;
    for (int index = 0; index < 3; ++index) record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.method(), PingMethod::fallback);
}

TEST(PingRecordTest, TwoFailuresAndASuccessDoNotFlip) {
    PingRecord record;
    for (int round = 0; round < 5; ++round) {
        record.add(std::nullopt, PingMethod::icmp);
        record.add(std::nullopt, PingMethod::icmp);
        record.add(10, PingMethod::icmp);
    }
    EXPECT_EQ(record.method(), PingMethod::icmp);
}

TEST(PingRecordTest, LossIsUnknownAfterTheFlip) {
    PingRecord record;
    addGood(record, 10);
    for (int index = 0; index < 3; ++index) record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.lossPct(), std::nullopt);
    for (int index = 0; index < 20; ++index) record.add(10, PingMethod::fallback);
    EXPECT_EQ(record.lossPct(), std::nullopt);
}

TEST(PingRecordTest, NothingFlipsBack) {
    PingRecord record;
    for (int index = 0; index < 3; ++index) record.add(std::nullopt, PingMethod::icmp);
    for (int index = 0; index < 50; ++index) record.add(10, PingMethod::fallback);
    record.add(10, PingMethod::icmp);
    EXPECT_EQ(record.method(), PingMethod::fallback);
}

TEST(PingRecordTest, FlipClearsTheOutcomes) {
    PingRecord record;
    addGood(record, 10);
    for (int index = 0; index < 2; ++index) record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.outcomeCount(), 12U);
    record.add(std::nullopt, PingMethod::icmp);
    EXPECT_EQ(record.outcomeCount(), 0U);
    record.add(10, PingMethod::fallback);
    EXPECT_EQ(record.outcomeCount(), 1U);
}

TEST(PingRecordTest, FailuresOfTheFallbackDoNotFlip) {
    PingRecord record;
    for (int index = 0; index < 5; ++index) record.add(std::nullopt, PingMethod::fallback);
    EXPECT_EQ(record.method(), PingMethod::icmp);
}

TEST(PingRecordTest, RoundTripsOfTheFallbackGiveJitterToo) {
    PingRecord record;
    for (int index = 0; index < 3; ++index) record.add(std::nullopt, PingMethod::icmp);
    record.add(20, PingMethod::fallback);
    record.add(30, PingMethod::fallback);
    record.add(20, PingMethod::fallback);
    EXPECT_EQ(record.jitterMs(), 10.0);
}

}  // namespace
}  // namespace velmora
