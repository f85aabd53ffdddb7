#include "app/VisibilityGuard.h"

#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeStatusBar.h"

#include <gtest/gtest.h>

#include <optional>

namespace velmora {
namespace {

class VisibilityGuardTest : public testing::Test {
protected:
    void start() {
        guard.emplace(bar, runLoop, [this] { ++opened; });
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeStatusBar bar;
    std::optional<VisibilityGuard> guard;
    int opened = 0;
};

TEST_F(VisibilityGuardTest, WhileTheItemsAreSeenNothingOpens) {
    start();
    bar.setAppearance({true, false, {2.0}});
    runLoop.advance(60);
    EXPECT_EQ(opened, 0);
    EXPECT_EQ(runLoop.timerCount(), 0u);
}

TEST_F(VisibilityGuardTest, ABarWithoutAnyPlaceFromTheOutsetOpensOnceAfterItsPatience) {
    bar.setVisible(false);
    start();
    runLoop.advance(4.9);
    EXPECT_EQ(opened, 0);
    runLoop.advance(0.2);
    EXPECT_EQ(opened, 1);
    runLoop.advance(3600);
    EXPECT_EQ(opened, 1);
}

TEST_F(VisibilityGuardTest, AHostThatComesInTimeOpensNothing) {
    bar.setVisible(false);
    start();
    runLoop.advance(4);
    bar.setVisible(true);
    runLoop.advance(60);
    EXPECT_EQ(opened, 0);
}

TEST_F(VisibilityGuardTest, OtherChangesWhileNothingIsSeenNeitherOpenAgainNorPutItOff) {
    bar.setVisible(false);
    start();
    for (int second = 0; second < 20; ++second) {
        bar.setAppearance({});
        runLoop.advance(1);
    }
    EXPECT_EQ(opened, 1);
}

TEST_F(VisibilityGuardTest, APlaceThatIsLostAgainOpensAgain) {
    start();
    for (int time = 0; time < 3; ++time) {
        bar.setVisible(false);
        runLoop.advance(6);
        bar.setVisible(true);
        runLoop.advance(6);
    }
    EXPECT_EQ(opened, 3);
}

TEST_F(VisibilityGuardTest, AGuardThatIsGoneOpensNothing) {
    bar.setVisible(false);
    start();
    guard.reset();
    runLoop.advance(60);
    EXPECT_EQ(opened, 0);
}

}  // namespace
}  // namespace velmora
