#include "samplers/NetTopSampler.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeProcessSources.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "fakes/FakeToolLauncher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::string_view kHeader = ",bytes_in,bytes_out,\n";

class NetTopSamplerTest : public testing::Test {
protected:
    const std::vector<TopIOProcess>& list() const { return sampler.processes().get(); }
    /// Warms up, shows the tool's rows as a whole block and gives what is published.
    const std::vector<TopIOProcess>& published(std::string_view rows, int limit = 5) {
        sampler.start(limit);
        for (const std::string_view text : {kHeader, kHeader, rows, kHeader}) launcher.write(text);
        loop.runPosted();
        return list();
    }

    FakeToolLauncher launcher;
    LiveTools liveTools;
    FakeClock clock;
    FakeRunLoop loop{clock};
    NetTopSampler sampler{launcher, liveTools, loop, "/usr/bin/nettop"};
};

TEST_F(NetTopSamplerTest, RowGivesPidNameAndBytesPerSecond) {
    EXPECT_THAT(published("Safari.1234,2000,4000,\n"), ElementsAre(TopIOProcess{1234, "Safari", 1000, 2000}));
}

TEST_F(NetTopSamplerTest, NameKeepsItsDots) {
    EXPECT_THAT(published("com.apple.WebKit.Ne.505,10,0,\n"),
                ElementsAre(TopIOProcess{505, "com.apple.WebKit.Ne", 5, 0}));
}

TEST_F(NetTopSamplerTest, NameWithSpacesAndParenthesesStaysWhole) {
    EXPECT_THAT(published("Web (Content) 2.7,4,4,\n"), ElementsAre(TopIOProcess{7, "Web (Content) 2", 2, 2}));
}

TEST_F(NetTopSamplerTest, IdleRowIsDropped) {
    EXPECT_THAT(published("a.1,0,0,\n"), IsEmpty());
}

TEST_F(NetTopSamplerTest, RowWithoutANumberAsPidIsDropped) {
    EXPECT_THAT(published("a.x,1,1,\na.,1,1,\na,1,1,\na.99999999999,1,1,\na.1b,1,1,\n"), IsEmpty());
}

TEST_F(NetTopSamplerTest, RowWithFewerThanThreeFieldsOrBadNumbersIsDropped) {
    EXPECT_THAT(published("a.1,1\na.1\n\na.1,x,1,\na.1,1,,\na.1,nan,1,\na.1,inf,1,\na,b.1,2,3\n"), IsEmpty());
}

TEST_F(NetTopSamplerTest, RowOfThreeFieldsNeedsNoCommaAtItsEnd) {
    EXPECT_THAT(published("a.1,2,2\n"), SizeIs(1));
}

TEST_F(NetTopSamplerTest, MalformedRowLosesItselfAlone) {
    EXPECT_THAT(published("nonsense\na.1,2,2,\n"), SizeIs(1));
}

TEST_F(NetTopSamplerTest, LineCutAcrossTwoChunksIsJoined) {
    sampler.start(5);
    launcher.write(std::string(kHeader) + std::string(kHeader) + "Saf");
    launcher.write("ari.12");
    launcher.write("34,2000,4000,\n,byt");
    loop.runPosted();
    EXPECT_THAT(list(), IsEmpty());
    launcher.write("es_in,bytes_out,\n");
    loop.runPosted();
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{1234, "Safari", 1000, 2000}));
}

TEST_F(NetTopSamplerTest, CarriageReturnAndNewlineEndALineTogetherAlsoWhenCut) {
    sampler.start(5);
    launcher.write(",bytes_in,bytes_out,\r\n,bytes_in,bytes_out,\r");
    launcher.write("\na.1,2,2\r");
    launcher.write("\n,bytes_in,bytes_out,\r\n");
    loop.runPosted();
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{1, "a", 1, 1}));
}

TEST_F(NetTopSamplerTest, FirstTwoHeadersPublishNothingAndTheThirdTheRowsBeforeIt) {
    int notifications = 0;
    const Subscription subscription = sampler.processes().subscribe([&](const auto&) { ++notifications; });
    sampler.start(5);
    launcher.write(kHeader);
    launcher.write("absolute.1,9000000,9000000,\n");
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_EQ(notifications, 1);  // Of the subscription itself.
    launcher.write("delta.2,2,0,\n");
    loop.runPosted();
    EXPECT_EQ(notifications, 1);
    launcher.write(kHeader);
    EXPECT_EQ(notifications, 1);  // Not on the reader's stack.
    loop.runPosted();
    EXPECT_EQ(notifications, 2);
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{2, "delta", 1, 0}));
}

TEST_F(NetTopSamplerTest, EachLaterHeaderPublishesItsBlock) {
    published("a.1,2,0,\n");
    launcher.write("b.2,4,0,\n");
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{2, "b", 2, 0}));
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_THAT(list(), IsEmpty());
}

TEST_F(NetTopSamplerTest, FiveLargestOfEightBySumWithTiesInOrderOfArrival) {
    const auto& top = published(
        "a.1,10,0,\nb.2,80,0,\nc.3,0,40,\nd.4,20,20,\n"
        "e.5,100,0,\nf.6,1,1,\ng.7,0,60,\nh.8,40,0,\n");
    std::vector<std::int32_t> pids;
    for (const auto& process : top) pids.push_back(process.pid);
    EXPECT_THAT(pids, ElementsAre(5, 2, 7, 3, 4));
}

TEST_F(NetTopSamplerTest, StartLaunchesTheToolWithItsArguments) {
    sampler.start(5);
    EXPECT_EQ(launcher.lastLookedFor, "/usr/bin/nettop");
    EXPECT_THAT(launcher.paths, ElementsAre("/usr/bin/nettop"));
    EXPECT_THAT(launcher.lastArguments,
                ElementsAre("-P", "-x", "-d", "-L", "0", "-s", "2", "-J", "bytes_in,bytes_out"));
    EXPECT_EQ(liveTools.count(), 1U);
}

TEST_F(NetTopSamplerTest, StartTwiceMakesOneTool) {
    sampler.start(5);
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(1));
}

TEST_F(NetTopSamplerTest, MissingToolStartsNothing) {
    launcher.exists = false;
    sampler.start(5);
    EXPECT_THAT(launcher.tools, IsEmpty());
    launcher.exists = true;
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(1));
}

TEST_F(NetTopSamplerTest, FailedLaunchChangesNothingSoThatALaterStartMayWork) {
    launcher.fails = true;
    sampler.start(5);
    EXPECT_EQ(liveTools.count(), 0U);
    launcher.fails = false;
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(1));
}

TEST_F(NetTopSamplerTest, StartForgetsToolsThatHaveEnded) {
    NetTopSampler other(launcher, liveTools, loop, "/usr/bin/nettop");
    other.start(5);
    launcher.tools[0]->isRunning = false;
    sampler.start(5);
    EXPECT_EQ(liveTools.count(), 1U);
}

TEST_F(NetTopSamplerTest, StopEndsTheToolAndEmptiesTheList) {
    published("a.1,2,0,\n");
    sampler.stop();
    EXPECT_EQ(launcher.tools[0]->terminateCount, 1);
    EXPECT_TRUE(launcher.tools[0]->isClosed);
    EXPECT_FALSE(launcher.tools[0]->wasClosedWithHandler);
    EXPECT_EQ(liveTools.count(), 0U);
    EXPECT_THAT(list(), IsEmpty());
}

TEST_F(NetTopSamplerTest, StopWithoutStartOnlyResetsTheList) {
    int notifications = 0;
    const Subscription subscription = sampler.processes().subscribe([&](const auto&) { ++notifications; });
    sampler.stop();
    EXPECT_EQ(notifications, 2);
    EXPECT_THAT(list(), IsEmpty());
    EXPECT_THAT(launcher.tools, IsEmpty());
}

TEST_F(NetTopSamplerTest, BlockThatWasFinishedBeforeTheStopIsNotPublishedAfterIt) {
    sampler.start(5);
    for (const std::string_view text : {kHeader, kHeader, std::string_view("a.1,2,0,\n"), kHeader})
        launcher.write(text);
    sampler.stop();
    loop.runPosted();
    EXPECT_THAT(list(), IsEmpty());
}

TEST_F(NetTopSamplerTest, StartAfterStopWarmsUpAnew) {
    published("a.1,2,0,\n");
    launcher.write("half a li");
    sampler.stop();
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(2));
    launcher.write(kHeader);
    launcher.write("b.2,2,0,\n");
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_THAT(list(), IsEmpty());
    launcher.write("c.3,2,0,\n");
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{3, "c", 1, 0}));
}

TEST_F(NetTopSamplerTest, ToolThatEndsByItselfLeavesItsLastListUntilStop) {
    published("a.1,2,0,\n");
    launcher.tools[0]->isRunning = false;
    launcher.write("");
    loop.runPosted();
    EXPECT_THAT(list(), SizeIs(1));
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(1));
    sampler.stop();
    sampler.start(5);
    EXPECT_THAT(launcher.tools, SizeIs(2));
}

TEST_F(NetTopSamplerTest, ChunkThatIsNoTextIsDroppedWholeAndTheCutRowFails) {
    sampler.start(5);
    launcher.write(kHeader);
    launcher.write(kHeader);
    launcher.write("a.1,2,2,\nb.2,");
    launcher.write("5,5,\n\xFF");
    launcher.write("c.3,2,2,\n");
    launcher.write(kHeader);
    loop.runPosted();
    // The rest of b's row went with the chunk: its line is "b.2,c.3,2,2,".
    EXPECT_THAT(list(), ElementsAre(TopIOProcess{1, "a", 1, 1}));
}

TEST_F(NetTopSamplerTest, StreamWithoutLineEndsDoesNotFillTheMemory) {
    sampler.start(5);
    const std::string junk(50'000, 'x');
    for (int chunk = 0; chunk < 100; ++chunk) launcher.write(junk);
    launcher.write("\n");
    launcher.write(kHeader);
    launcher.write(kHeader);
    launcher.write("a.1,2,2,\n");
    launcher.write(kHeader);
    loop.runPosted();
    EXPECT_THAT(list(), SizeIs(1));
}

TEST_F(NetTopSamplerTest, ZeroBytesAndForeignLinesLoseOneRowAtMost) {
    using namespace std::string_literals;
    EXPECT_THAT(published("a.1\0,2,2,\n"s + "b.2,2,2,\n"), ElementsAre(TopIOProcess{2, "b", 1, 1}));
}

TEST_F(NetTopSamplerTest, DestructionEndsTheToolButLeavesTheListOfLiveOnes) {
    {
        NetTopSampler brief(launcher, liveTools, loop, "/usr/bin/nettop");
        brief.start(5);
    }
    EXPECT_EQ(launcher.tools[0]->terminateCount, 1);
    EXPECT_TRUE(launcher.tools[0]->isClosed);
    EXPECT_FALSE(launcher.write(kHeader));
    EXPECT_EQ(liveTools.count(), 1U);
}

TEST_F(NetTopSamplerTest, TerminateAllEndsWhatRunsAndForgetsAll) {
    NetTopSampler other(launcher, liveTools, loop, "/usr/bin/nettop");
    sampler.start(5);
    other.start(5);
    launcher.tools[0]->isRunning = false;
    NetTopSampler::terminateAll(liveTools);
    EXPECT_EQ(launcher.tools[0]->terminateCount, 0);
    EXPECT_EQ(launcher.tools[1]->terminateCount, 1);
    EXPECT_EQ(liveTools.count(), 0U);
}

TEST_F(NetTopSamplerTest, OutputFromAnotherThreadAndStopDoNotMeet) {
    sampler.start(5);
    const auto tool = launcher.tools[0];
    std::thread reader([&] {
        while (FakeToolLauncher::write(*tool, ",bytes_in\na.1,2,2,\n")) {
        }
    });
    ASSERT_TRUE(loop.waitForPost());
    sampler.stop();
    reader.join();
    loop.runPosted();
    EXPECT_THAT(list(), IsEmpty());
}

class ReapOrphansTest : public testing::Test {
protected:
    void reap() { NetTopSampler::reapOrphans(source, log); }

    FakeOrphanSource source;
    FakeSystemLog log;
};

TEST_F(ReapOrphansTest, OrphanOfThisUserGetsOneSignalAndOneLogLine) {
    source.processes[321] = {"nettop", ProcessParentage{1, 1000}};
    reap();
    EXPECT_THAT(source.terminated, ElementsAre(321));
    EXPECT_THAT(log.lines(), ElementsAre("Velmora: reaped orphaned nettop pid=321"));
    EXPECT_EQ(source.bufferSize, 8192U);
}

TEST_F(ReapOrphansTest, OrphanOfAnotherUserIsLeftAlone) {
    source.processes[321] = {"nettop", ProcessParentage{1, 1001}};
    reap();
    EXPECT_THAT(source.terminated, IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(ReapOrphansTest, ToolWithAnotherParentIsLeftAlone) {
    source.processes[321] = {"nettop", ProcessParentage{77, 1000}};
    reap();
    EXPECT_THAT(source.terminated, IsEmpty());
}

TEST_F(ReapOrphansTest, OnlyTheExactNameGoesOn) {
    source.processes[1] = {"nettop2", ProcessParentage{1, 1000}};
    source.processes[2] = {"Nettop", ProcessParentage{1, 1000}};
    source.processes[3] = {"", ProcessParentage{1, 1000}};
    reap();
    EXPECT_THAT(source.terminated, IsEmpty());
}

TEST_F(ReapOrphansTest, UnreadableParentageLeavesTheProcessAlone) {
    source.processes[321] = {"nettop", std::nullopt};
    reap();
    EXPECT_THAT(source.terminated, IsEmpty());
}

TEST_F(ReapOrphansTest, AnswerIsDividedByFour) {
    for (int pid = 1; pid <= 8; ++pid) source.processes[pid] = {"nettop", ProcessParentage{1, 1000}};
    source.answer = 8;
    reap();
    EXPECT_THAT(source.terminated, ElementsAre(1, 2));
    source.terminated.clear();
    source.answer = 0;
    reap();
    EXPECT_THAT(source.terminated, IsEmpty());
}

}  // namespace
}  // namespace velmora
