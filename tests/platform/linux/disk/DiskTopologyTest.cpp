#include "platform/linux/disk/DiskTopology.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

class DiskTopologyTest : public testing::Test {
protected:
    /// A device at sys/devices/<path>, of the given number.
    void addDevice(const std::string& path, const std::string& number) {
        tree.write("sys/devices/" + path + "/dev", number + "\n");
        tree.link("sys/dev/block/" + number, "../../devices/" + path);
    }
    void addSlave(const std::string& path, const std::string& slave, const std::string& slavePath) {
        tree.link("sys/devices/" + path + "/slaves/" + slave, tree.path("sys/devices/" + slavePath));
    }
    DiskOrigin originOf(DeviceNumber number) {
        const auto origin = DiskTopology(tree.root()).originOf(number);
        EXPECT_TRUE(origin);
        return origin.value_or(DiskOrigin{});
    }

    SystemTree tree;
};

TEST_F(DiskTopologyTest, UnknownNumberGivesNothing) {
    EXPECT_EQ(DiskTopology(tree.root()).originOf({8, 1}), std::nullopt);
}

TEST_F(DiskTopologyTest, DiskIsItsOwnOrigin) {
    addDevice("a/block/sda", "8:0");
    tree.write("sys/devices/a/block/sda/device/vendor", "x\n");
    EXPECT_EQ(originOf({8, 0}), (DiskOrigin{.name = "sda", .isHardware = true}));
}

TEST_F(DiskTopologyTest, PartitionHasItsDiskAbove) {
    addDevice("a/block/sda", "8:0");
    addDevice("a/block/sda/sda3", "8:3");
    tree.write("sys/devices/a/block/sda/sda3/partition", "3\n");
    EXPECT_EQ(originOf({8, 3}).name, "sda");
}

TEST_F(DiskTopologyTest, PartitionOfALoopDeviceKnowsNoNumberRule) {
    addDevice("virtual/block/loop0", "7:0");
    addDevice("virtual/block/loop0/loop0p1", "259:0");
    tree.write("sys/devices/virtual/block/loop0/loop0p1/partition", "1\n");
    EXPECT_EQ(originOf({259, 0}), (DiskOrigin{.name = "loop0"}));
}

TEST_F(DiskTopologyTest, LayersAreFollowedToTheOneDisk) {
    addDevice("a/block/sda", "8:0");
    addDevice("a/block/sda/sda1", "8:1");
    tree.write("sys/devices/a/block/sda/sda1/partition", "1\n");
    addDevice("virtual/block/dm-0", "253:0");
    addDevice("virtual/block/dm-1", "253:1");
    addSlave("virtual/block/dm-0", "sda1", "a/block/sda/sda1");
    addSlave("virtual/block/dm-1", "dm-0", "virtual/block/dm-0");
    EXPECT_EQ(originOf({253, 1}).name, "sda");
}

TEST_F(DiskTopologyTest, TwoPartitionsOfOneDiskAreOneDisk) {
    addDevice("a/block/sda", "8:0");
    for (const std::string number : {"1", "2"}) {
        addDevice("a/block/sda/sda" + number, "8:" + number);
        tree.write("sys/devices/a/block/sda/sda" + number + "/partition", number + "\n");
        addSlave("virtual/block/dm-0", "sda" + number, "a/block/sda/sda" + number);
    }
    addDevice("virtual/block/dm-0", "253:0");
    EXPECT_EQ(originOf({253, 0}).name, "sda");
}

TEST_F(DiskTopologyTest, LayerAcrossDisksBearsItsOwnName) {
    addDevice("a/block/sda", "8:0");
    addDevice("b/block/sdb", "8:16");
    addDevice("virtual/block/md0", "9:0");
    addSlave("virtual/block/md0", "sda", "a/block/sda");
    addSlave("virtual/block/md0", "sdb", "b/block/sdb");
    addDevice("virtual/block/md0/md0p1", "259:0");
    tree.write("sys/devices/virtual/block/md0/md0p1/partition", "1\n");
    EXPECT_EQ(originOf({9, 0}).name, "md0");
    EXPECT_EQ(originOf({259, 0}).name, "md0");
}

TEST_F(DiskTopologyTest, CircleOfLayersEnds) {
    addDevice("virtual/block/dm-0", "253:0");
    addDevice("virtual/block/dm-1", "253:1");
    addSlave("virtual/block/dm-0", "dm-1", "virtual/block/dm-1");
    addSlave("virtual/block/dm-1", "dm-0", "virtual/block/dm-0");
    EXPECT_EQ(DiskTopology(tree.root()).originOf({253, 0}), std::nullopt);
}

TEST_F(DiskTopologyTest, SlaveThatLeadsNowhereIsLeftOut) {
    addDevice("a/block/sda", "8:0");
    addDevice("virtual/block/dm-0", "253:0");
    addSlave("virtual/block/dm-0", "sda", "a/block/sda");
    addSlave("virtual/block/dm-0", "sdz", "gone/sdz");
    EXPECT_EQ(originOf({253, 0}).name, "sda");
}

TEST_F(DiskTopologyTest, NameWithASlashIsTheKernels) {
    addDevice("a/block/cciss!c0d0", "104:0");
    EXPECT_EQ(originOf({104, 0}).name, "cciss/c0d0");
}

TEST_F(DiskTopologyTest, MediumThatCanBeTakenOutIsRemovable) {
    addDevice("a/block/sr0", "11:0");
    tree.write("sys/devices/a/block/sr0/removable", "1\n");
    EXPECT_TRUE(originOf({11, 0}).isRemovable);
    EXPECT_FALSE(originOf({11, 0}).isEjectable);
}

TEST_F(DiskTopologyTest, DiskOnAnOutsideBusIsEjectableWhateverItSays) {
    for (const std::string bus : {"pci/usb2/2-1/block/sda", "pci/ieee1394/host0/block/sda"}) {
        addDevice(bus, "8:0");
        tree.write("sys/devices/" + bus + "/removable", "0\n");
        EXPECT_TRUE(originOf({8, 0}).isEjectable) << bus;
        EXPECT_FALSE(originOf({8, 0}).isRemovable) << bus;
    }
}

TEST_F(DiskTopologyTest, CardIsEjectableAndSolderedFlashIsNot) {
    const std::string card = "soc/mmc_host/mmc0/mmc0:aaaa/block/mmcblk0";
    addDevice(card, "179:0");
    tree.write("sys/devices/" + card + "/device/type", "SD\n");
    EXPECT_TRUE(originOf({179, 0}).isEjectable);
    tree.write("sys/devices/" + card + "/device/type", "MMC\n");
    EXPECT_FALSE(originOf({179, 0}).isEjectable);
}

TEST_F(DiskTopologyTest, DiskBehindAnOutsidePortIsEjectable) {
    addDevice("pci0000:00/0000:00:07.0/0000:04:00.0/nvme/nvme1/nvme1n1", "259:4");
    EXPECT_FALSE(originOf({259, 4}).isEjectable);
    tree.write("sys/devices/pci0000:00/0000:00:07.0/removable", "fixed\n");
    EXPECT_FALSE(originOf({259, 4}).isEjectable);
    tree.write("sys/devices/pci0000:00/0000:00:07.0/removable", "removable\n");
    EXPECT_TRUE(originOf({259, 4}).isEjectable);
}

TEST_F(DiskTopologyTest, DiskWithSeveralWaysIsEjectableByItsControllers) {
    addDevice("virtual/nvme-subsystem/nvme-subsys0/nvme0n1", "259:0");
    tree.link("sys/devices/virtual/nvme-subsystem/nvme-subsys0/nvme0n1/device", "..");
    tree.write("sys/devices/pci0000:00/0000:04:00.0/nvme/nvme0/state", "live\n");
    tree.link("sys/devices/virtual/nvme-subsystem/nvme-subsys0/nvme0",
              "../../../pci0000:00/0000:04:00.0/nvme/nvme0");
    EXPECT_FALSE(originOf({259, 0}).isEjectable);
    EXPECT_TRUE(originOf({259, 0}).isHardware);
    tree.write("sys/devices/pci0000:00/0000:04:00.0/removable", "removable\n");
    EXPECT_TRUE(originOf({259, 0}).isEjectable);
}

TEST_F(DiskTopologyTest, OneDiskThatCanBeTakenOffIsEnoughForALayer) {
    addDevice("a/block/sda", "8:0");
    tree.write("sys/devices/a/block/sda/device/vendor", "x\n");
    addDevice("pci/usb1/1-1/block/sdb", "8:16");
    addDevice("virtual/block/md0", "9:0");
    addSlave("virtual/block/md0", "sda", "a/block/sda");
    addSlave("virtual/block/md0", "sdb", "pci/usb1/1-1/block/sdb");
    EXPECT_TRUE(originOf({9, 0}).isEjectable);
    EXPECT_FALSE(originOf({9, 0}).isHardware);
}

}  // namespace
}  // namespace velmora
