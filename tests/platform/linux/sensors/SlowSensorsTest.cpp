#include "platform/linux/sensors/SlowSensors.h"

#include "fakes/FakeNetworkSources.h"
#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class SlowSensorsTest : public testing::Test {
protected:
    const SlowSensors::Figures& readAfter(double seconds) {
        clock.now += seconds;
        next = sensors.read(figures);
        return figures;
    }
    void addChip(const std::string& entry, std::string_view name, std::string_view device) {
        tree.write("sys/class/hwmon/" + entry + "/name", std::string(name) + "\n");
        tree.link("sys/class/hwmon/" + entry + "/device", "../../../devices/" + std::string(device));
        tree.write("sys/devices/" + std::string(device) + "/power/runtime_status", "active\n");
    }
    void set(const std::string& attribute, std::string_view value) {
        tree.write("sys/class/hwmon/" + attribute, std::string(value) + "\n");
    }
    using Fans = std::vector<std::optional<double>>;

    /// NVIDIA's library with one temperature for all cards.
    class FakeLibrary final : public NvidiaLibrary {
    public:
        explicit FakeLibrary(SlowSensorsTest& test) : m_test(test) {}
        std::optional<int> utilization(const std::string&) override { return std::nullopt; }
        std::optional<int> temperature(const std::string& address) override {
            m_test.askedCards.push_back(address);
            return 66;
        }
        void release() override { ++m_test.releases; }

    private:
        SlowSensorsTest& m_test;
    };
    void addNvidiaCard(const std::string& card, const std::string& address) {
        tree.link("sys/class/drm/" + card + "/device", "../../../devices/" + address);
        tree.link("sys/devices/" + address + "/driver", "../../bus/pci/drivers/nvidia");
        tree.write("sys/devices/" + address + "/power/control", "on\n");
        tree.write("sys/devices/" + address + "/power/runtime_status", "active\n");
    }

    SystemTree tree;
    FakeMonotonicClock clock;
    int libraryLoads = 0;
    int releases = 0;
    std::vector<std::string> askedCards;
    SlowSensors sensors{tree.root(), clock, [this] {
                            ++libraryLoads;
                            return std::make_unique<FakeLibrary>(*this);
                        }};
    SlowSensors::Figures figures;
    double next = 0;
};

TEST_F(SlowSensorsTest, MachineWithNothingIsLookedAtSeldom) {
    EXPECT_EQ(readAfter(0), SlowSensors::Figures{});
    EXPECT_EQ(next, 30);
}

TEST_F(SlowSensorsTest, SuspendedCardIsNotReadUntilItWakes) {
    addChip("hwmon0", "amdgpu", "pci/card");
    set("hwmon0/temp1_input", "61000");
    set("hwmon0/temp1_label", "edge");
    set("hwmon0/fan1_input", "900");
    EXPECT_EQ(readAfter(0).temperatures.at(0), (ThermalSensor{"GPU amdgpu 0", 61}));
    EXPECT_EQ(next, 2);
    for (const char* asleep : {"suspended\n", "suspending\n"}) {
        tree.write("sys/devices/pci/card/power/runtime_status", asleep);
        EXPECT_EQ(readAfter(2).temperatures.at(0), (ThermalSensor{"GPU amdgpu 0", std::nullopt}));
        EXPECT_EQ(figures.fans, Fans{std::nullopt});
    }
    tree.write("sys/devices/pci/card/power/runtime_status", "active\n");
    EXPECT_EQ(readAfter(2).temperatures.at(0).celsius, 61.0);
    EXPECT_EQ(figures.fans, Fans{900.0});
}

TEST_F(SlowSensorsTest, BoardHeaderCountsOnceItHasTurned) {
    addChip("hwmon0", "nct6798", "platform/board");
    set("hwmon0/fan1_input", "0");
    set("hwmon0/fan2_input", "700");
    EXPECT_EQ(readAfter(0).fans, Fans{700.0});
    set("hwmon0/fan1_input", "400");
    EXPECT_EQ(readAfter(2).fans, (Fans{400.0, 700.0}));
    set("hwmon0/fan1_input", "0");
    EXPECT_EQ(readAfter(2).fans, (Fans{0.0, 700.0}));
}

TEST_F(SlowSensorsTest, BoardHeaderThatTurnedIsRememberedWhenChipsChange) {
    addChip("hwmon0", "nct6798", "platform/board");
    set("hwmon0/fan1_input", "700");
    readAfter(0);
    set("hwmon0/fan1_input", "0");
    addChip("hwmon1", "thinkpad", "platform/thinkpad");
    set("hwmon1/fan1_input", "2000");
    EXPECT_EQ(readAfter(30).fans, (Fans{0.0, 2000.0}));
}

TEST_F(SlowSensorsTest, LaptopFanAtRestCounts) {
    addChip("hwmon0", "thinkpad", "platform/thinkpad");
    set("hwmon0/fan1_input", "0");
    EXPECT_EQ(readAfter(0).fans, Fans{0.0});
}

TEST_F(SlowSensorsTest, BrokenFanIsPassedOverUntilItIsWell) {
    addChip("hwmon0", "dell_smm", "platform/dell");
    set("hwmon0/fan1_input", "3000");
    set("hwmon0/fan1_fault", "1");
    EXPECT_EQ(readAfter(0).fans, Fans{std::nullopt});
    set("hwmon0/fan1_fault", "0");
    EXPECT_EQ(readAfter(2).fans, Fans{3000.0});
}

TEST_F(SlowSensorsTest, FansComeByChipThenPlaceThenNumber) {
    addChip("hwmon0", "thinkpad", "platform/z");
    set("hwmon0/fan10_input", "1010");
    set("hwmon0/fan2_input", "1002");
    addChip("hwmon1", "amdgpu", "pci/1");
    set("hwmon1/fan1_input", "501");
    addChip("hwmon2", "amdgpu", "pci/0");
    set("hwmon2/fan1_input", "500");
    EXPECT_EQ(readAfter(0).fans, (Fans{500.0, 501.0, 1002.0, 1010.0}));
}

TEST_F(SlowSensorsTest, FifteenFansAreTheMost) {
    addChip("hwmon0", "thinkpad", "platform/z");
    for (int fan = 1; fan <= 20; ++fan) set("hwmon0/fan" + std::to_string(fan) + "_input", "1000");
    EXPECT_EQ(readAfter(0).fans.size(), 15U);
}

TEST_F(SlowSensorsTest, SolidStateDiskIsAskedEveryHalfMinute) {
    addChip("hwmon0", "drivetemp", "scsi/0");
    tree.write("sys/devices/scsi/0/block/sda/queue/rotational", "0\n");
    set("hwmon0/temp1_input", "30000");
    EXPECT_EQ(readAfter(0).temperatures.at(0), (ThermalSensor{"SSD sda", 30}));
    set("hwmon0/temp1_input", "31000");
    EXPECT_EQ(readAfter(2).temperatures.at(0).celsius, 30.0);
    EXPECT_EQ(readAfter(28).temperatures.at(0).celsius, 31.0);
}

TEST_F(SlowSensorsTest, TurningDiskIsNeverAsked) {
    addChip("hwmon0", "drivetemp", "scsi/0");
    tree.write("sys/devices/scsi/0/block/sda/queue/rotational", "1\n");
    set("hwmon0/temp1_input", "30000");
    EXPECT_TRUE(readAfter(0).temperatures.empty());
}

TEST_F(SlowSensorsTest, ChipThatComesIsFoundWithinHalfAMinute) {
    readAfter(0);
    addChip("hwmon0", "acpitz", "virtual/zone");
    set("hwmon0/temp1_input", "40000");
    EXPECT_TRUE(readAfter(29).temperatures.empty());
    EXPECT_EQ(readAfter(1).temperatures.at(0), (ThermalSensor{"tdev acpitz", 40}));
}

TEST_F(SlowSensorsTest, ChipThatGoesLosesItsFigureAtOnce) {
    addChip("hwmon0", "acpitz", "virtual/zone");
    set("hwmon0/temp1_input", "40000");
    readAfter(0);
    tree.write("sys/class/hwmon/hwmon0/temp1_input", "");
    EXPECT_EQ(readAfter(2).temperatures.at(0).celsius, std::nullopt);
    tree.remove("sys/class/hwmon/hwmon0");
    EXPECT_TRUE(readAfter(30).temperatures.empty());
}

TEST_F(SlowSensorsTest, CardsOfNvidiaAreAskedByTheirLibrary) {
    addNvidiaCard("card0", "0000:01:00.0");
    EXPECT_EQ(readAfter(0).temperatures, (std::vector<ThermalSensor>{{"GPU nvidia 0", 66}}));
    EXPECT_EQ(askedCards, std::vector<std::string>{"0000:01:00.0"});
    EXPECT_EQ(next, 2);
}

TEST_F(SlowSensorsTest, WithoutSuchACardTheLibraryIsNotLoaded) {
    readAfter(0);
    EXPECT_EQ(libraryLoads, 0);
}

TEST_F(SlowSensorsTest, NvidiaCardThatMaySleepIsNotKeptAwake) {
    addNvidiaCard("card0", "0000:01:00.0");
    tree.write("sys/devices/0000:01:00.0/power/control", "auto\n");
    EXPECT_EQ(readAfter(0).temperatures.at(0), (ThermalSensor{"GPU nvidia 0", std::nullopt}));
    EXPECT_EQ(libraryLoads, 0);
}

TEST_F(SlowSensorsTest, NvidiaCardThatSleepsKeepsTheOthersFromBeingAsked) {
    addNvidiaCard("card0", "0000:01:00.0");
    addNvidiaCard("card1", "0000:02:00.0");
    readAfter(0);
    EXPECT_EQ(askedCards.size(), 2U);
    tree.write("sys/devices/0000:02:00.0/power/runtime_status", "suspended\n");
    readAfter(2);
    EXPECT_EQ(askedCards.size(), 2U);
    EXPECT_EQ(releases, 1);
}

TEST_F(SlowSensorsTest, WirelessCardIsLeftAlone) {
    addChip("hwmon0", "iwlwifi_1", "pci/wlan");
    set("hwmon0/temp1_input", "40000");
    EXPECT_TRUE(readAfter(0).temperatures.empty());
}

TEST_F(SlowSensorsTest, OlderKernelsDiskIsNamedByItsController) {
    addChip("hwmon0", "nvme", "pci/slot");
    tree.write("sys/devices/pci/slot/nvme/nvme3/model", "x\n");
    set("hwmon0/temp1_input", "40000");
    EXPECT_EQ(readAfter(0).temperatures.at(0), (ThermalSensor{"SSD nvme3", 40}));
}

}  // namespace
}  // namespace velmora
