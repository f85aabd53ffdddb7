#include "app/SingleInstance.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "fakes/FakeWorkspace.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class SingleInstanceTest : public testing::Test {
protected:
    SingleInstanceTest() {
        bundle.executable = "/opt/velmora/bin/velmora";
        bundle.values["CFBundleIdentifier"] = "com.torvane.Velmora";
        workspace.running = {{workspace.own, "com.torvane.Velmora", "/opt/velmora/bin/velmora"},
                             {7, std::nullopt, "/usr/bin/editor"}};
    }
    SingleInstance& instance() {
        m_instance = std::make_unique<SingleInstance>(workspace, bundle, log, runLoop, "/started/as/velmora");
        return *m_instance;
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeWorkspace workspace;
    FakeBundle bundle;
    FakeSystemLog log;

private:
    std::unique_ptr<SingleInstance> m_instance;
};

TEST_F(SingleInstanceTest, NoOtherCopyMeansNoLogLineAndNoDelayedTask) {
    instance().terminateOthers();
    EXPECT_TRUE(log.lines().empty());
    EXPECT_TRUE(workspace.terminateRequests.empty());
    EXPECT_EQ(runLoop.postedCount(), 0u);
    EXPECT_EQ(runLoop.timerCount(), 0u);
    runLoop.advance(10);
    EXPECT_TRUE(workspace.forceRequests.empty());
}

TEST_F(SingleInstanceTest, ACopyOfTheSameIdentifierIsAskedToEnd) {
    workspace.running.push_back({41, "com.torvane.Velmora", "/home/user/other-name"});
    instance().terminateOthers();
    EXPECT_EQ(workspace.terminateRequests, std::vector<std::int64_t>{41});
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0], "Velmora: terminating duplicate instance pid=41 (/home/user/other-name)");
}

TEST_F(SingleInstanceTest, AnotherIdentifierWithTheSameExecutableNameIsEndedAsWell) {
    workspace.running.push_back({42, "org.example.Other", "/somewhere/else/velmora"});
    instance().terminateOthers();
    EXPECT_EQ(workspace.terminateRequests, std::vector<std::int64_t>{42});
}

TEST_F(SingleInstanceTest, TwoAbsentIdentifiersAreNotTheSameIdentifier) {
    bundle.values.clear();
    workspace.running.push_back({43, std::nullopt, "/usr/bin/another"});
    instance().terminateOthers();
    EXPECT_TRUE(workspace.terminateRequests.empty());
}

TEST_F(SingleInstanceTest, TheFirstArgumentNamesTheExecutableWithoutABundlePath) {
    bundle.executable.reset();
    workspace.running = {{44, std::nullopt, "/elsewhere/velmora"}};
    instance().terminateOthers();
    EXPECT_EQ(workspace.terminateRequests, std::vector<std::int64_t>{44});
}

TEST_F(SingleInstanceTest, ACopyWithoutAPathIsLoggedAsUnknown) {
    workspace.running.push_back({45, "com.torvane.Velmora", std::nullopt});
    instance().terminateOthers();
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0], "Velmora: terminating duplicate instance pid=45 (unknown path)");
}

TEST_F(SingleInstanceTest, AnOldCopyThatStaysIsForcedAfterThreeSeconds) {
    workspace.running.push_back({46, std::nullopt, "/old/velmora"});
    instance().terminateOthers();
    runLoop.advance(2.99);
    EXPECT_TRUE(workspace.forceRequests.empty());
    runLoop.advance(0.02);
    EXPECT_EQ(workspace.forceRequests, std::vector<std::int64_t>{46});
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_EQ(log.lines()[1], "Velmora: force-terminating unresponsive duplicate pid=46");
    runLoop.advance(10);
    EXPECT_EQ(workspace.forceRequests.size(), 1u);
}

TEST_F(SingleInstanceTest, TheTimeThatTheProgramTakesToStartCounts) {
    // The three seconds used to begin when the loop first turned.
    workspace.running.push_back({46, std::nullopt, "/old/velmora"});
    instance().terminateOthers();
    runLoop.stall(2);
    runLoop.advance(0.99);
    EXPECT_TRUE(workspace.forceRequests.empty());
    runLoop.advance(0.02);
    EXPECT_EQ(workspace.forceRequests, std::vector<std::int64_t>{46});
}

TEST_F(SingleInstanceTest, AnOldCopyThatQuitsInTimeGetsNoForceStepAndNoSecondLine) {
    workspace.running.push_back({47, std::nullopt, "/old/velmora"});
    instance().terminateOthers();
    workspace.terminated.insert(47);
    runLoop.advance(5);
    EXPECT_TRUE(workspace.forceRequests.empty());
    EXPECT_EQ(log.lines().size(), 1u);
}

TEST_F(SingleInstanceTest, OnlyTheCopiesThatStayAreForced) {
    workspace.running.push_back({48, std::nullopt, "/old/velmora"});
    workspace.running.push_back({49, "com.torvane.Velmora", "/older/other-name"});
    instance().terminateOthers();
    EXPECT_EQ(workspace.terminateRequests, (std::vector<std::int64_t>{48, 49}));
    workspace.terminated.insert(48);
    runLoop.advance(5);
    EXPECT_EQ(workspace.forceRequests, std::vector<std::int64_t>{49});
}

TEST_F(SingleInstanceTest, ACopyThatCameLaterIsNotForced) {
    // It is the newer one, and ends us.
    workspace.running.push_back({50, std::nullopt, "/old/velmora"});
    instance().terminateOthers();
    workspace.running.push_back({51, std::nullopt, "/new/velmora"});
    runLoop.advance(5);
    EXPECT_EQ(workspace.forceRequests, std::vector<std::int64_t>{50});
}

TEST_F(SingleInstanceTest, TheOwnProcessIsNoDuplicateOfItself) {
    workspace.running = {{workspace.own, "com.torvane.Velmora", "/opt/velmora/bin/velmora"}};
    instance().terminateOthers();
    EXPECT_TRUE(workspace.terminateRequests.empty());
}

}  // namespace
}  // namespace velmora
