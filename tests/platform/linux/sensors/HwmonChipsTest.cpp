#include "platform/linux/sensors/HwmonChips.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class HwmonChipsTest : public testing::Test {
protected:
    void add(const std::string& entry, std::string_view name, const std::string& device = "") {
        tree.write("sys/class/hwmon/" + entry + "/name", std::string(name) + "\n");
        if (device.empty()) return;
        tree.write("sys/devices/" + device + "/uevent", "");
        tree.link("sys/class/hwmon/" + entry + "/device", "../../../devices/" + device);
    }

    SystemTree tree;
};

TEST_F(HwmonChipsTest, MachineWithoutTheFolderHasNone) {
    EXPECT_TRUE(hwmonChips(tree.root()).empty());
}

TEST_F(HwmonChipsTest, ChipsComeByNameAndThenByPlace) {
    add("hwmon0", "nvme", "pci/2");
    add("hwmon1", "coretemp", "platform/c");
    add("hwmon2", "nvme", "pci/1");
    const auto chips = hwmonChips(tree.root());
    ASSERT_EQ(chips.size(), 3U);
    EXPECT_EQ(chips[0].name, "coretemp");
    EXPECT_TRUE(chips[1].device.ends_with("/sys/devices/pci/1/"));
    EXPECT_TRUE(chips[2].device.ends_with("/sys/devices/pci/2/"));
}

TEST_F(HwmonChipsTest, InputsComeByNumberAndForeignNamesArePassedOver) {
    add("hwmon0", "x");
    for (const char* attribute :
         {"temp10_input", "temp2_input", "temp0_input", "temp-1_input", "temp_input", "temp1_label",
          "tempa_input", "temp99999999999_input", "fan3_input", "fan1_input"})
        tree.write(std::string("sys/class/hwmon/hwmon0/") + attribute, "1\n");
    const auto chips = hwmonChips(tree.root());
    ASSERT_EQ(chips.size(), 1U);
    EXPECT_EQ(chips[0].temperatures, (std::vector<int>{2, 10}));
    EXPECT_EQ(chips[0].fans, (std::vector<int>{1, 3}));
}

TEST_F(HwmonChipsTest, ChipOfTheOldKindHasItsAttributesAtTheDevice) {
    tree.write("sys/devices/platform/a/name", "applesmc\n");
    tree.write("sys/devices/platform/a/temp1_input", "1\n");
    tree.write("sys/devices/platform/a/temp1_label", "TC0P\n");
    tree.link("sys/class/hwmon/hwmon0/device", "../../../devices/platform/a");
    const auto chips = hwmonChips(tree.root());
    ASSERT_EQ(chips.size(), 1U);
    EXPECT_EQ(chips[0].name, "applesmc");
    EXPECT_EQ(temperatureLabel(chips[0], 1), "TC0P");
    EXPECT_EQ(temperatureLabel(chips[0], 2), "");
}

TEST_F(HwmonChipsTest, ChipWithoutANameIsLeftOut) {
    tree.write("sys/class/hwmon/hwmon0/temp1_input", "1\n");
    tree.write("sys/class/hwmon/hwmon1/name", "");
    EXPECT_TRUE(hwmonChips(tree.root()).empty());
}

}  // namespace
}  // namespace velmora
