#include "samplers/RusageSnapshot.h"

#include "fakes/FakeProcessSources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

TEST(RusageSnapshotTest, EntryHoldsCountersAndName) {
    FakeProcessCounterSource source;
    source.processes[7] = ProcessCounters{1, 2, 3};
    source.names[7] = "dd";
    EXPECT_THAT(RusageSnapshot::take(source), ElementsAre(Pair(7, RusageEntry{1, 2, 3, "dd"})));
    EXPECT_EQ(source.bufferSize, 8192U);
}

TEST(RusageSnapshotTest, EmptyNameIsAQuestionMark) {
    FakeProcessCounterSource source;
    source.processes[7] = ProcessCounters{};
    EXPECT_EQ(RusageSnapshot::take(source)[7].name, "?");
}

TEST(RusageSnapshotTest, UnreadableProcessIsSkipped) {
    FakeProcessCounterSource source;
    source.processes[7] = std::nullopt;
    source.processes[8] = ProcessCounters{};
    EXPECT_THAT(RusageSnapshot::take(source), SizeIs(1));
}

TEST(RusageSnapshotTest, AnswerIsDividedByFour) {
    FakeProcessCounterSource source;
    for (int pid = 1; pid <= 8; ++pid) source.processes[pid] = ProcessCounters{};
    source.answer = 8;  // Two entries, where a count would be eight.
    EXPECT_THAT(RusageSnapshot::take(source), SizeIs(2));
}

TEST(RusageSnapshotTest, FailureGivesNoEntries) {
    FakeProcessCounterSource source;
    source.processes[7] = ProcessCounters{};
    for (const std::int32_t answer : {0, -1, 3}) {
        source.answer = answer;
        EXPECT_THAT(RusageSnapshot::take(source), IsEmpty()) << answer;
    }
}

TEST(RusageSnapshotTest, ProcessIdsThatAreNoneAreSkipped) {
    FakeProcessCounterSource source;
    source.processes[0] = ProcessCounters{};
    source.processes[-3] = ProcessCounters{};
    EXPECT_THAT(RusageSnapshot::take(source), IsEmpty());
}

TEST(RusageSnapshotTest, TableBeyondTheBufferIsCut) {
    FakeProcessCounterSource source;
    for (int pid = 1; pid <= 9000; ++pid) source.processes[pid] = ProcessCounters{};
    EXPECT_THAT(RusageSnapshot::take(source), SizeIs(8192));
}

}  // namespace
}  // namespace velmora
