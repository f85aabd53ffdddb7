#include "platform/linux/disk/SlowVolumeSpaces.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <future>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Mount = SlowVolumeSpaces::Mount;

const Mount kNas{"/mnt/nas", {0, 60}};
const Mount kDead{"/mnt/dead", {0, 61}};

/// Threads that run when the test says so.
class SlowVolumeSpacesTest : public testing::Test {
protected:
    void runThreads() {
        std::vector<std::function<void()>> round;
        round.swap(threads);
        for (const auto& work : round) work();
    }

    std::map<std::string, std::optional<VolumeSpace>> answers;
    std::vector<std::string> asked;
    std::vector<std::function<void()>> threads;
    bool canStartThreads = true;
    SlowVolumeSpaces spaces{[this](const std::string& mountPoint) {
                                asked.push_back(mountPoint);
                                return answers[mountPoint];
                            },
                            [this](std::function<void()> work) {
                                if (canStartThreads) threads.push_back(std::move(work));
                                return canStartThreads;
                            }};
};

TEST_F(SlowVolumeSpacesTest, MountIsAbsentUntilItHasAnswered) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), std::nullopt);
    EXPECT_TRUE(asked.empty());
    runThreads();
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), (VolumeSpace{100, 40}));
}

TEST_F(SlowVolumeSpacesTest, EachRefreshAsksAnew) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    runThreads();
    answers["/mnt/nas"] = VolumeSpace{100, 39};
    spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), (VolumeSpace{100, 39}));
}

TEST_F(SlowVolumeSpacesTest, MountThatHasNotAnsweredIsNotAskedAgain) {
    for (int refresh = 0; refresh < 10; ++refresh) spaces.refresh({kNas});
    EXPECT_EQ(threads.size(), 1u);
    runThreads();
    spaces.refresh({kNas});
    EXPECT_EQ(threads.size(), 1u);
}

TEST_F(SlowVolumeSpacesTest, AnswerServesForThreeRefreshesAndNoLonger) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});  // Takes the answer, and asks in vain from here on.
    for (int age = 1; age <= 3; ++age) {
        spaces.refresh({kNas});
        EXPECT_EQ(spaces.spaceOf("/mnt/nas"), (VolumeSpace{100, 40})) << age;
    }
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), std::nullopt);
}

TEST_F(SlowVolumeSpacesTest, MountThatAnswersAgainIsBack) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    for (int refresh = 0; refresh < 8; ++refresh) spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), (VolumeSpace{100, 40}));
}

TEST_F(SlowVolumeSpacesTest, FailureIsAnAnswerThatTakesTheFiguresAway) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    runThreads();
    answers["/mnt/nas"] = std::nullopt;
    spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), std::nullopt);
}

TEST_F(SlowVolumeSpacesTest, OtherFileSystemOnTheSameFolderStartsAnew) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});
    spaces.refresh({{"/mnt/nas", {0, 99}}});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), std::nullopt);
}

TEST_F(SlowVolumeSpacesTest, MountThatIsGoneIsForgotten) {
    answers["/mnt/nas"] = VolumeSpace{100, 40};
    spaces.refresh({kNas});
    runThreads();
    spaces.refresh({kNas});
    spaces.refresh({});
    EXPECT_EQ(spaces.spaceOf("/mnt/nas"), std::nullopt);
    EXPECT_EQ(spaces.spaceOf("/never/known"), std::nullopt);
}

TEST_F(SlowVolumeSpacesTest, SystemWithoutThreadsIsAskedAgainTheNextTime) {
    canStartThreads = false;
    spaces.refresh({kNas});
    canStartThreads = true;
    spaces.refresh({kNas});
    EXPECT_EQ(threads.size(), 1u);
}

TEST_F(SlowVolumeSpacesTest, NoMoreThan32QuestionsAreOpen) {
    std::vector<Mount> mounts;
    for (std::uint32_t number = 0; number < 100; ++number)
        mounts.push_back({"/mnt/" + std::to_string(number), {0, 100 + number}});
    spaces.refresh(mounts);
    spaces.refresh(mounts);
    EXPECT_EQ(threads.size(), 32u);
}

/// A server that is dead until the test lets it answer.
class DeadServer {
public:
    std::optional<VolumeSpace> ask(const std::string& mountPoint) {
        if (mountPoint != "/mnt/dead") return VolumeSpace{100, 40};
        std::unique_lock lock(m_mutex);
        ++m_asked;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_isBack; });
        return VolumeSpace{7, 7};
    }
    void comeBack() {
        const std::lock_guard lock(m_mutex);
        m_isBack = true;
        m_changed.notify_all();
    }
    bool waitUntilAsked() {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [this] { return m_asked > 0; });
    }
    int asked() {
        const std::lock_guard lock(m_mutex);
        return m_asked;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isBack = false;
    int m_asked = 0;
};

TEST(SlowVolumeSpaces, MountThatNeverAnswersCostsOnlyItsOwnFigures) {
    const auto server = std::make_shared<DeadServer>();
    // A thread says when it has ended, so that the test outlives none of its threads.
    std::vector<std::future<void>> ends;
    {
        SlowVolumeSpaces spaces(
            [server](const std::string& mountPoint) { return server->ask(mountPoint); },
            [&](std::function<void()> work) {
                auto end = std::make_shared<std::promise<void>>();
                ends.push_back(end->get_future());
                return SlowVolumeSpaces::startDetachedThread([work = std::move(work), end] {
                    work();
                    end->set_value();
                });
            });
        spaces.refresh({kDead, kNas});
        ASSERT_TRUE(server->waitUntilAsked());
        for (int refresh = 0; refresh < 6; ++refresh) {
            ends.back().wait();
            spaces.refresh({kDead, kNas});
            EXPECT_EQ(spaces.spaceOf("/mnt/nas"), (VolumeSpace{100, 40}));
            EXPECT_EQ(spaces.spaceOf("/mnt/dead"), std::nullopt);
        }
        EXPECT_EQ(server->asked(), 1);
        // The end of the object does not wait for the dead server either.
    }
    server->comeBack();
    for (auto& end : ends) end.wait();
}

}  // namespace
}  // namespace velmora
