#include "platform/linux/network/LinuxWifiSource.h"

#include "fakes/FakeNetworkSources.h"
#include "fakes/FakeWorkQueue.h"
#include "platform/linux/network/Nl80211Client.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace velmora {
namespace {

const std::string kHost = std::string(VELMORA_FIXTURES) + "/network-container-host";

/// Runs each piece of work on a thread while the caller waits for the answer.
class QuickWorker final : public WorkQueue {
public:
    ~QuickWorker() override {
        if (m_thread.joinable()) m_thread.join();
    }
    void async(std::function<void()> work) override {
        if (m_thread.joinable()) m_thread.join();
        m_thread = std::thread(std::move(work));
        m_thread.join();
        m_thread = {};
    }

private:
    std::thread m_thread;
};

class LinuxWifiSourceTest : public testing::Test {
protected:
    LinuxWifiSource source(WorkQueue& worker, const std::string& root = kHost) {
        return {std::make_shared<LinuxLinkTable>(SystemRoot(root)), worker, clock,
                [this](const std::optional<std::string>& primary) {
                    ++questions;
                    lastPrimary = primary;
                    return answer;
                }};
    }
    static WifiInterface named(std::string name) {
        WifiInterface wifi;
        wifi.name = std::move(name);
        return wifi;
    }

    FakeMonotonicClock clock;
    std::optional<WifiInterface> answer = named("wlp2s0");
    int questions = 0;
    std::optional<std::string> lastPrimary;
};

TEST_F(LinuxWifiSourceTest, QuickAnswerIsGivenAtOnce) {
    QuickWorker worker;
    LinuxWifiSource wifi = source(worker);
    EXPECT_EQ(wifi.defaultInterface(), named("wlp2s0"));
    EXPECT_EQ(lastPrimary, "enp3s0") << "the interface of the default route";
}

TEST_F(LinuxWifiSourceTest, ReadsOfOneRefreshShareAnAnswer) {
    QuickWorker worker;
    LinuxWifiSource wifi = source(worker);
    for (int read = 0; read < 3; ++read) wifi.defaultInterface();
    EXPECT_EQ(questions, 1);
    clock.now += 30;
    wifi.defaultInterface();
    EXPECT_EQ(questions, 2);
}

TEST_F(LinuxWifiSourceTest, SlowDriverGivesTheLastAnswer) {
    FakeWorkQueue worker;
    LinuxWifiSource wifi = source(worker);
    EXPECT_EQ(wifi.defaultInterface(), std::nullopt);
    worker.runAll();
    EXPECT_EQ(wifi.defaultInterface(), named("wlp2s0"));
    clock.now += 30;
    answer = named("wlan7");
    EXPECT_EQ(wifi.defaultInterface(), named("wlp2s0"));
}

TEST_F(LinuxWifiSourceTest, OnlyOneQuestionIsUnderWay) {
    FakeWorkQueue worker;
    LinuxWifiSource wifi = source(worker);
    for (int read = 0; read < 5; ++read) {
        wifi.defaultInterface();
        clock.now += 30;
    }
    EXPECT_EQ(worker.pendingCount(), 1U);
}

TEST_F(LinuxWifiSourceTest, AnswerOlderThanThreeRefreshesIsAbsent) {
    FakeWorkQueue worker;
    LinuxWifiSource wifi = source(worker);
    wifi.defaultInterface();
    worker.runAll();
    clock.now += 90;
    EXPECT_EQ(wifi.defaultInterface(), named("wlp2s0"));
    clock.now += 1;
    EXPECT_EQ(wifi.defaultInterface(), std::nullopt);
}

TEST_F(LinuxWifiSourceTest, LateAnswerMayOutliveTheSource) {
    FakeWorkQueue worker;
    { source(worker).defaultInterface(); }
    EXPECT_EQ(worker.runAll(), 1U);
}

TEST_F(LinuxWifiSourceTest, MachineWithoutWirelessHardwareIsNotAsked) {
    FakeWorkQueue worker;
    LinuxWifiSource wifi = source(worker, std::string(VELMORA_FIXTURES) + "/network-container");
    EXPECT_EQ(wifi.defaultInterface(), std::nullopt);
    EXPECT_EQ(worker.pendingCount(), 0U);
}

TEST(Nl80211Client, MachineWithoutWirelessHardwareHasNoInterface) {
    Nl80211Client client(SystemRoot(std::string(VELMORA_FIXTURES) + "/network-container"));
    EXPECT_EQ(client.query(std::nullopt), std::nullopt);
}

TEST(Nl80211Client, KernelWithoutTheServiceHasNoInterface) {
    // The tree shows wireless hardware, so the running kernel is asked, and asked again after the failure.
    Nl80211Client client{SystemRoot(kHost)};
    EXPECT_NO_FATAL_FAILURE(client.query("wlp2s0"));
    EXPECT_NO_FATAL_FAILURE(client.query(std::nullopt));
}

}  // namespace
}  // namespace velmora
