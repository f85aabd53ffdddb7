#include "platform/linux/graphics/GraphicsCards.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace velmora {
namespace {

using Percents = std::vector<int>;

/// What the library of the tests answers and was asked.
struct NvidiaRecord {
    std::optional<int> answer = 55;
    std::map<std::string, int> answers;  ///< Of single cards, before `answer`.
    std::vector<std::string> asked;
    int releases = 0;
    int loads = 0;
};

class RecordingNvidia final : public NvidiaLibrary {
public:
    explicit RecordingNvidia(NvidiaRecord& record) : m_record(record) {}
    std::optional<int> utilization(const std::string& pciAddress) override {
        m_record.asked.push_back(pciAddress);
        const auto own = m_record.answers.find(pciAddress);
        return own == m_record.answers.end() ? m_record.answer : own->second;
    }
    void release() override { ++m_record.releases; }

private:
    NvidiaRecord& m_record;
};

class GraphicsCardsTest : public testing::Test {
protected:
    void addCard(const std::string& card, const std::string& driver,
                 const std::string& runtimeStatus = "active") {
        const std::string folder = "sys/class/drm/" + card + "/";
        tree.link(folder + "device/driver", "../../../bus/pci/drivers/" + driver);
        tree.write(folder + "device/power/runtime_status", runtimeStatus + "\n");
    }
    /// The device of an NVIDIA card is a link whose name is the card's address on the bus.
    void addNvidia(const std::string& card, const std::string& address, const std::string& runtimeStatus,
                   const std::string& control) {
        const std::string device = "sys/devices/pci0000:00/" + address + "/";
        tree.link(device + "driver", "../../../bus/pci/drivers/nvidia");
        tree.write(device + "power/runtime_status", runtimeStatus + "\n");
        tree.write(device + "power/control", control + "\n");
        tree.link("sys/class/drm/" + card + "/device", "../../../devices/pci0000:00/" + address);
    }
    void setAmd(const std::string& card, const std::string& percent) {
        tree.write("sys/class/drm/" + card + "/device/gpu_busy_percent", percent + "\n");
    }

    SystemTree tree;
    NvidiaRecord nvidia;
    GraphicsCards cards{tree.root(), [this] {
                            ++nvidia.loads;
                            return std::make_unique<RecordingNvidia>(nvidia);
                        }};
};

TEST_F(GraphicsCardsTest, MachineWithoutCardsGivesNone) {
    EXPECT_EQ(cards.read(0), Percents{});
    EXPECT_FALSE(cards.hasCards());
    EXPECT_EQ(nvidia.loads, 0);
}

TEST_F(GraphicsCardsTest, TwoCardsGiveTwoFigures) {
    addCard("card0", "amdgpu");
    addCard("card1", "amdgpu");
    setAmd("card0", "10");
    setAmd("card1", "40");
    EXPECT_EQ(cards.read(0), (Percents{10, 40}));
    EXPECT_TRUE(cards.hasCards());
}

TEST_F(GraphicsCardsTest, ConnectorsAndRenderNodesAreNoCards) {
    addCard("card0", "amdgpu");
    setAmd("card0", "10");
    addCard("card0-HDMI-A-1", "amdgpu");
    setAmd("card0-HDMI-A-1", "90");
    addCard("renderD128", "amdgpu");
    setAmd("renderD128", "90");
    EXPECT_EQ(cards.read(0), Percents{10});
}

TEST_F(GraphicsCardsTest, OneBadCardDoesNotHideAnother) {
    addCard("card0", "amdgpu");
    setAmd("card0", "what");
    addCard("card1", "amdgpu");
    setAmd("card1", "30");
    EXPECT_EQ(cards.read(0), Percents{30});
}

TEST_F(GraphicsCardsTest, PercentageAboveHundredIsNoFigure) {
    addCard("card0", "amdgpu");
    setAmd("card0", "65535");
    EXPECT_EQ(cards.read(0), Percents{});
}

TEST_F(GraphicsCardsTest, SleepingCardIsIdleWithoutBeingRead) {
    for (const char* status : {"suspended", "suspending"}) {
        addCard("card0", "amdgpu", status);
        setAmd("card0", "77");
        EXPECT_EQ(cards.read(0), Percents{0}) << status;
    }
}

TEST_F(GraphicsCardsTest, CardOfAnUnknownDriverIsLeftOut) {
    addCard("card0", "virtio_gpu", "suspended");
    EXPECT_EQ(cards.read(0), Percents{});
    EXPECT_FALSE(cards.hasCards());
}

TEST_F(GraphicsCardsTest, BusiestUnitOfAnI915CardCountsFromTheSecondRead) {
    tree.show("hybrid-laptop/frame-0");
    EXPECT_EQ(cards.read(100), Percents{});
    EXPECT_TRUE(cards.hasCards());
    tree.show("hybrid-laptop/frame-1");
    // Unit 0 slept 1.5 s of 2, unit 1 1.9 s.
    EXPECT_EQ(cards.read(102), Percents{25});
}

TEST_F(GraphicsCardsTest, OldI915CounterIsRead) {
    addCard("card0", "i915");
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "1000\n");
    cards.read(10);
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "1100\n");
    EXPECT_EQ(cards.read(11), Percents{90});
}

TEST_F(GraphicsCardsTest, XeUnitsOfAllTilesAreRead) {
    addCard("card0", "xe");
    const std::string device = "sys/class/drm/card0/device/";
    tree.write(device + "tile0/gt0/gtidle/idle_residency_ms", "0\n");
    tree.write(device + "tile0/gt1/gtidle/idle_residency_ms", "0\n");
    tree.write(device + "tile1/gt2/gtidle/idle_residency_ms", "0\n");
    cards.read(10);
    tree.write(device + "tile0/gt0/gtidle/idle_residency_ms", "1000\n");
    tree.write(device + "tile0/gt1/gtidle/idle_residency_ms", "800\n");
    tree.write(device + "tile1/gt2/gtidle/idle_residency_ms", "300\n");
    EXPECT_EQ(cards.read(11), Percents{70});
}

TEST_F(GraphicsCardsTest, MoreSleepThanTimeIsIdle) {
    addCard("card0", "i915");
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "0\n");
    cards.read(10);
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "1005\n");
    EXPECT_EQ(cards.read(11), Percents{0});
}

TEST_F(GraphicsCardsTest, SleepCounterThatFellGivesNoFigureOnce) {
    addCard("card0", "i915");
    const char* const counter = "sys/class/drm/card0/power/rc6_residency_ms";
    tree.write(counter, "5000\n");
    cards.read(10);
    tree.write(counter, "100\n");
    EXPECT_EQ(cards.read(11), Percents{});
    tree.write(counter, "600\n");
    EXPECT_EQ(cards.read(12), Percents{50});
}

TEST_F(GraphicsCardsTest, ReadWithoutTimeInBetweenGivesNoFigure) {
    addCard("card0", "i915");
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "0\n");
    cards.read(10);
    EXPECT_EQ(cards.read(10), Percents{});
}

TEST_F(GraphicsCardsTest, CardThatWokeUpStartsWithoutAFigure) {
    addCard("card0", "i915");
    tree.write("sys/class/drm/card0/power/rc6_residency_ms", "0\n");
    cards.read(10);
    addCard("card0", "i915", "suspended");
    EXPECT_EQ(cards.read(12), Percents{0});
    addCard("card0", "i915");
    EXPECT_EQ(cards.read(14), Percents{});
}

TEST_F(GraphicsCardsTest, NvidiaCardIsAskedByItsAddress) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    EXPECT_EQ(cards.read(0), Percents{55});
    EXPECT_EQ(nvidia.asked, std::vector<std::string>{"0000:01:00.0"});
}

TEST_F(GraphicsCardsTest, SleepingNvidiaCardIsNotWoken) {
    addNvidia("card0", "0000:01:00.0", "suspended", "auto");
    EXPECT_EQ(cards.read(0), Percents{0});
    EXPECT_TRUE(nvidia.asked.empty());
}

TEST_F(GraphicsCardsTest, NoNvidiaCardIsAskedWhileAnotherSleeps) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    addNvidia("card1", "0000:02:00.0", "suspended", "auto");
    EXPECT_EQ(cards.read(0), Percents{0});
    EXPECT_TRUE(nvidia.asked.empty());
}

TEST_F(GraphicsCardsTest, IdleNvidiaCardThatMaySleepIsLeftInPeace) {
    addNvidia("card0", "0000:01:00.0", "active", "auto");
    nvidia.answer = 0;
    EXPECT_EQ(cards.read(0), Percents{0});
    EXPECT_EQ(nvidia.releases, 1);
    EXPECT_EQ(cards.read(10), Percents{0});
    EXPECT_EQ(nvidia.asked.size(), 1U);
    nvidia.answer = 80;
    EXPECT_EQ(cards.read(31), Percents{80});
}

TEST_F(GraphicsCardsTest, BusyNvidiaCardIsNotHiddenByAnIdleOneThatMaySleep) {
    // The idle card was left in peace, and with it all others for as long as it stayed idle.
    addNvidia("card0", "0000:01:00.0", "active", "auto");
    addNvidia("card1", "0000:02:00.0", "active", "auto");
    nvidia.answers = {{"0000:01:00.0", 0}, {"0000:02:00.0", 90}};
    EXPECT_EQ(cards.read(0), (Percents{0, 90}));
    EXPECT_EQ(cards.read(2), (Percents{0, 90}));
    EXPECT_EQ(nvidia.releases, 0);
    nvidia.answers["0000:02:00.0"] = 0;
    EXPECT_EQ(cards.read(4), (Percents{0, 0}));
    EXPECT_EQ(nvidia.releases, 1) << "both may sleep now";
    EXPECT_EQ(cards.read(6), (Percents{0, 0}));
    EXPECT_EQ(nvidia.asked.size(), 6U);
}

TEST_F(GraphicsCardsTest, IdleNvidiaCardThatMaySleepIsLeftInPeaceWithOneThatNeverSleeps) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    addNvidia("card1", "0000:02:00.0", "active", "auto");
    nvidia.answer = 0;
    EXPECT_EQ(cards.read(0), (Percents{0, 0}));
    EXPECT_EQ(nvidia.releases, 1);
    EXPECT_EQ(cards.read(10), (Percents{0, 0}));
    EXPECT_EQ(nvidia.asked.size(), 2U);
}

TEST_F(GraphicsCardsTest, IdleNvidiaCardThatNeverSleepsIsAskedEachTime) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    nvidia.answer = 0;
    cards.read(0);
    cards.read(2);
    EXPECT_EQ(nvidia.asked.size(), 2U);
    EXPECT_EQ(nvidia.releases, 0);
}

TEST_F(GraphicsCardsTest, NvidiaCardThatDoesNotAnswerGivesNoFigure) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    nvidia.answer = std::nullopt;
    EXPECT_EQ(cards.read(0), Percents{});
}

TEST_F(GraphicsCardsTest, MissingLibraryIsLookedForOnce) {
    addNvidia("card0", "0000:01:00.0", "active", "on");
    int loads = 0;
    GraphicsCards withoutLibrary(tree.root(), [&loads] {
        ++loads;
        return nullptr;
    });
    EXPECT_EQ(withoutLibrary.read(0), Percents{});
    EXPECT_EQ(withoutLibrary.read(2), Percents{});
    EXPECT_EQ(loads, 1);
}

}  // namespace
}  // namespace velmora
