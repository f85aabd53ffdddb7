#include "samplers/TopProcessSampler.h"

#include "fakes/FakeProcessSources.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<TopProcess> cpu(std::string_view output, int limit = 5) {
    return TopProcessSampler::parseOutput(output, limit, TopProcessSampler::parseCPULine);
}

std::vector<TopProcess> memory(std::string_view output, int limit = 5) {
    return TopProcessSampler::parseOutput(output, limit, TopProcessSampler::parseMemoryLine);
}

TEST(TopProcessSamplerTest, LineOfNumberPidAndThreeWordsKeepsTheWholeName) {
    EXPECT_THAT(cpu(" 12.5 301 Web Content Process\n"),
                ElementsAre(TopProcess{301, "Web Content Process", 12.5}));
}

TEST(TopProcessSamplerTest, InnerSpacesOfTheNameStayAndOuterOnesGo) {
    EXPECT_THAT(cpu("  1.0   7   a  b \t\n"), ElementsAre(TopProcess{7, "a  b", 1}));
}

TEST(TopProcessSamplerTest, NamesWithParenthesesCommasAndDotsStayWhole) {
    EXPECT_THAT(cpu("1.0 7 ((sd-pam) a,b.c)\n"), ElementsAre(TopProcess{7, "((sd-pam) a,b.c)", 1}));
}

TEST(TopProcessSamplerTest, LineOfTwoPiecesIsSkippedAndDoesNotCountAgainstTheLimit) {
    EXPECT_THAT(cpu("9.0 1\n8.0 2 b\n7.0 3 c\n", 2),
                ElementsAre(TopProcess{2, "b", 8}, TopProcess{3, "c", 7}));
}

TEST(TopProcessSamplerTest, LineWhoseNumbersFailIsSkipped) {
    EXPECT_THAT(cpu("x 1 a\n1.0 y b\nnan 2 c\ninf 3 d\n1.0 4 e\n"), ElementsAre(TopProcess{4, "e", 1}));
}

TEST(TopProcessSamplerTest, FourGoodLinesOfEightWithLimitFiveGiveFour) {
    const std::string output = "8 1 a\nbad\n7 2 b\nbad\n6 3 c\nbad\n5 4 d\nbad\n";
    EXPECT_THAT(cpu(output, 5), SizeIs(4));
}

TEST(TopProcessSamplerTest, OnlyThreeLinesMoreThanTheLimitAreRead) {
    EXPECT_THAT(cpu("bad\nbad\nbad\nbad\n5 4 d\n", 1), IsEmpty());
    EXPECT_THAT(cpu("bad\nbad\nbad\n5 4 d\n", 1), SizeIs(1));
}

TEST(TopProcessSamplerTest, EmptyLinesDoNotCountAsLines) {
    EXPECT_THAT(cpu("\n\n\n\n\n5 4 d\n", 1), SizeIs(1));
}

TEST(TopProcessSamplerTest, ListEndsAtTheLimitInOutputOrder) {
    EXPECT_THAT(cpu("1 1 a\n9 2 b\n5 3 c\n", 2), ElementsAre(TopProcess{1, "a", 1}, TopProcess{2, "b", 9}));
}

TEST(TopProcessSamplerTest, LimitOfZeroOrLessGivesNothing) {
    EXPECT_THAT(cpu("1 1 a\n", 0), IsEmpty());
    EXPECT_THAT(cpu("1 1 a\n", -1), IsEmpty());
}

TEST(TopProcessSamplerTest, UndecodableOutputGivesNothing) {
    EXPECT_THAT(cpu("1 1 a\n2 2 \xFF\n"), IsEmpty());
}

TEST(TopProcessSamplerTest, LastLineNeedsNoLineEnd) {
    EXPECT_THAT(cpu("1 1 a"), SizeIs(1));
}

TEST(TopProcessSamplerTest, ResidentKibibytesBecomeBytes) {
    EXPECT_THAT(memory("2048 301 firefox\n"), ElementsAre(TopProcess{301, "firefox", 2097152}));
}

TEST(TopProcessSamplerTest, ListsRunTheListerWithTheirArguments) {
    FakeProcessLister lister;
    TopProcessSampler::byCPU(lister, 5, [](auto) {});
    TopProcessSampler::byMemory(lister, 5, [](auto) {});
    ASSERT_THAT(lister.calls, SizeIs(2));
    EXPECT_THAT(lister.calls[0].arguments, ElementsAre("-Aceo", "pcpu=,pid=,comm=", "-r"));
    EXPECT_THAT(lister.calls[1].arguments, ElementsAre("-Aceo", "rss=,pid=,comm=", "-m"));
    EXPECT_EQ(lister.calls[0].lines, 8);
}

TEST(TopProcessSamplerTest, FailedLaunchGivesAnEmptyList) {
    FakeProcessLister lister;
    std::optional<std::vector<TopProcess>> result;
    TopProcessSampler::byCPU(lister, 5, [&](auto list) { result = std::move(list); });
    EXPECT_FALSE(result);
    lister.calls[0].completion(std::nullopt);
    ASSERT_TRUE(result);
    EXPECT_THAT(*result, IsEmpty());
}

TEST(TopProcessSamplerTest, OutputReachesTheCallerAsAList) {
    FakeProcessLister lister;
    std::vector<TopProcess> result;
    TopProcessSampler::byMemory(lister, 5, [&](auto list) { result = std::move(list); });
    lister.calls[0].completion("1 9 a\n");
    EXPECT_THAT(result, ElementsAre(TopProcess{9, "a", 1024}));
}

constexpr std::uint64_t kMegabyte = 1'000'000;

TEST(MemoryFootprintTopTest, HelpersAddUpUnderTheirApplication) {
    FakeProcessFootprintSource source;
    source.add(1, "Mail", 200 * kMegabyte);
    source.add(2, "Mail Helper (Renderer)", 300 * kMegabyte);
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, ElementsAre(MemoryProcess{"Mail", 0.5}));
    EXPECT_EQ(top.total, 1);
}

TEST(MemoryFootprintTopTest, HelperMarkIsCutAtItsFirstPlaceAndCaseSensitively) {
    FakeProcessFootprintSource source;
    source.add(1, "A Helper B Helper", 200 * kMegabyte);
    source.add(2, "A helper", 300 * kMegabyte);
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, ElementsAre(MemoryProcess{"A helper", 0.3}, MemoryProcess{"A", 0.2}));
}

TEST(MemoryFootprintTopTest, NameOfTheMarkAloneIsAnEmptyKeyLikeAnyOther) {
    FakeProcessFootprintSource source;
    source.add(1, " Helper", 200 * kMegabyte);
    source.add(2, " Helper", 100 * kMegabyte);
    EXPECT_THAT(TopProcessSampler::memoryFootprintTop(source, 8).top, ElementsAre(MemoryProcess{"", 0.3}));
}

TEST(MemoryFootprintTopTest, EmptyNameIsAQuestionMark) {
    FakeProcessFootprintSource source;
    source.add(1, "", 200 * kMegabyte);
    EXPECT_THAT(TopProcessSampler::memoryFootprintTop(source, 8).top, ElementsAre(MemoryProcess{"?", 0.2}));
}

TEST(MemoryFootprintTopTest, GroupBelowATenthIsDroppedFromListTotalAndSum) {
    FakeProcessFootprintSource source;
    source.add(1, "small", 90 * kMegabyte);
    source.add(2, "big", 500 * kMegabyte);
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, ElementsAre(MemoryProcess{"big", 0.5}));
    EXPECT_EQ(top.total, 1);
    EXPECT_DOUBLE_EQ(top.sumGB, 0.5);
}

TEST(MemoryFootprintTopTest, GroupOfExactlyATenthCounts) {
    FakeProcessFootprintSource source;
    source.add(1, "a", 70 * kMegabyte);
    source.add(2, "a", 30 * kMegabyte);
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, ElementsAre(MemoryProcess{"a", 0.1}));
    EXPECT_EQ(top.total, 1);
}

TEST(MemoryFootprintTopTest, LimitCutsTheListButNotTotalAndSum) {
    FakeProcessFootprintSource source;
    for (int pid = 1; pid <= 10; ++pid) {
        source.add(pid, std::string(1, static_cast<char>('a' + pid)),
                   static_cast<unsigned>(pid) * 100 * kMegabyte);
    }
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, SizeIs(8));
    EXPECT_EQ(top.top.front().gb, 1);
    EXPECT_EQ(top.top.back().gb, 0.3);
    EXPECT_EQ(top.total, 10);
    EXPECT_THAT(top.sumGB, DoubleNear(5.5, 1e-9));
}

TEST(MemoryFootprintTopTest, UnreadableProcessAndOneWithoutMemoryAreSkipped) {
    FakeProcessFootprintSource source;
    source.add(1, "a", 0);
    source.add(2, "b", 200 * kMegabyte);
    source.pids.push_back(3);
    source.pids.push_back(0);
    source.pids.push_back(-4);
    source.footprints[0] = source.footprints[-4] = 500 * kMegabyte;
    EXPECT_THAT(TopProcessSampler::memoryFootprintTop(source, 8).top, SizeIs(1));
}

TEST(MemoryFootprintTopTest, NoProcessListGivesAnEmptyResult) {
    FakeProcessFootprintSource source;
    source.add(1, "a", 200 * kMegabyte);
    source.count = 0;
    EXPECT_EQ(TopProcessSampler::memoryFootprintTop(source, 8).total, 0);
    EXPECT_THAT(source.bufferSizes, IsEmpty());
    source.count = 1;
    source.written = 0;
    const MemoryTop top = TopProcessSampler::memoryFootprintTop(source, 8);
    EXPECT_THAT(top.top, IsEmpty());
    EXPECT_EQ(top.total, 0);
    EXPECT_EQ(top.sumGB, 0);
}

TEST(MemoryFootprintTopTest, BufferHasRoomForSixteenMoreAndTheResultIsACount) {
    FakeProcessFootprintSource source;
    for (int pid = 1; pid <= 40; ++pid) source.add(pid, "a", 100 * kMegabyte);
    // All 40 are used: taken for bytes, the answer would stand for 10.
    EXPECT_DOUBLE_EQ(TopProcessSampler::memoryFootprintTop(source, 8).sumGB, 4);
    EXPECT_THAT(source.bufferSizes, ElementsAre(56U));
}

TEST(MemoryFootprintTopTest, NamesOfEqualWeightKeepAStableOrder) {
    FakeProcessFootprintSource source;
    source.add(1, "b", 200 * kMegabyte);
    source.add(2, "a", 200 * kMegabyte);
    EXPECT_THAT(TopProcessSampler::memoryFootprintTop(source, 8).top,
                ElementsAre(MemoryProcess{"a", 0.2}, MemoryProcess{"b", 0.2}));
}

}  // namespace
}  // namespace velmora
