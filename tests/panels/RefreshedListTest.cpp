#include "panels/RefreshedList.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using IntList = RefreshedList<int>;

class RefreshedListTest : public testing::Test {
protected:
    std::unique_ptr<IntList> makeList() {
        return std::make_unique<IntList>(
            runLoop, [this](IntList::Answer answer) { questions.push_back(std::move(answer)); },
            [this] { ++arrivals; });
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    std::vector<IntList::Answer> questions;
    int arrivals = 0;
};

TEST_F(RefreshedListTest, AsksAtOnceAndIsEmptyUntilTheAnswer) {
    const auto list = makeList();
    ASSERT_THAT(questions, SizeIs(1));
    EXPECT_THAT(list->rows(), IsEmpty());
    EXPECT_EQ(arrivals, 0);
    questions[0]({1, 2});
    EXPECT_THAT(list->rows(), ElementsAre(1, 2));
    EXPECT_EQ(arrivals, 1);
}

TEST_F(RefreshedListTest, AsksEveryTwoSeconds) {
    const auto list = makeList();
    for (std::size_t tick = 1; tick <= 4; ++tick) {
        ASSERT_THAT(questions, SizeIs(tick));
        questions.back()({static_cast<int>(tick)});
        runLoop.advance(1.99);
        EXPECT_THAT(questions, SizeIs(tick));
        runLoop.advance(0.01);
    }
    EXPECT_THAT(runLoop.timerSeconds(), ElementsAre(2.0));
}

TEST_F(RefreshedListTest, KeepsTheLastAnswerWhileTheNextIsAwaited) {
    const auto list = makeList();
    questions[0]({1});
    runLoop.advance(2);
    EXPECT_THAT(list->rows(), ElementsAre(1));
    questions[1]({});
    EXPECT_THAT(list->rows(), IsEmpty());
}

TEST_F(RefreshedListTest, ATickWhileAnAnswerIsAwaitedAsksNothing) {
    const auto list = makeList();
    runLoop.advance(6);
    EXPECT_THAT(questions, SizeIs(1));
    questions[0]({1});
    runLoop.advance(2);
    EXPECT_THAT(questions, SizeIs(2));
}

TEST_F(RefreshedListTest, ADroppedAnswerIsNotAwaited) {
    const auto list = makeList();
    questions.clear();
    runLoop.advance(2);
    EXPECT_THAT(questions, SizeIs(1));
}

TEST_F(RefreshedListTest, AnAnswerInsideTheQuestionCounts) {
    const IntList list(
        runLoop, [](const IntList::Answer& answer) { answer({7}); }, [this] { ++arrivals; });
    EXPECT_THAT(list.rows(), ElementsAre(7));
    runLoop.advance(2);
    EXPECT_EQ(arrivals, 2);
}

TEST_F(RefreshedListTest, AnAnswerThatComesTooLateDoesNothing) {
    auto list = makeList();
    list.reset();
    questions[0]({1});
    EXPECT_EQ(arrivals, 0);
}

TEST_F(RefreshedListTest, TheTimerEndsWithTheList) {
    auto list = makeList();
    list.reset();
    EXPECT_EQ(runLoop.timerCount(), 0u);
    runLoop.advance(10);
    EXPECT_THAT(questions, SizeIs(1));
}

TEST_F(RefreshedListTest, TheListMayGoFromInsideItsArrival) {
    std::unique_ptr<IntList> list;
    list = std::make_unique<IntList>(
        runLoop, [this](IntList::Answer answer) { questions.push_back(std::move(answer)); },
        [&list] { list.reset(); });
    questions[0]({1});
    EXPECT_FALSE(list);
}

}  // namespace
}  // namespace velmora
