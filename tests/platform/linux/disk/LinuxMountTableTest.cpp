#include "platform/linux/disk/LinuxMountTable.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace velmora {
namespace {

/// A process whose root was changed sees only the mounts below it.
bool hasMountAtRoot() {
    std::ifstream file("/proc/self/mountinfo");
    const std::string mounts{std::istreambuf_iterator<char>(file), {}};
    return mounts.find(" / rw") != std::string::npos || mounts.find(" / ro") != std::string::npos;
}

TEST(LinuxMountTable, MissingTableIsEmpty) {
    const SystemTree tree;
    EXPECT_TRUE(LinuxMountTable(tree.root()).read().empty());
}

TEST(LinuxMountTable, HintsOfBothFilesReachTheMounts) {
    const SystemTree tree;
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / /a rw - ext4 /dev/sda1 rw\n2 1 8:2 / /b rw - ext4 /dev/sda2 rw\n"
               "3 1 8:3 / /c rw - ext4 /dev/sda3 rw\n");
    tree.write("etc/fstab", "/dev/sda1 /a ext4 x-gvfs-hide\n");
    tree.write("run/mount/utab", "SRC=/dev/sda2 TARGET=/b OPTS=_netdev\n");
    const auto mounts = LinuxMountTable(tree.root()).read();
    ASSERT_EQ(mounts.size(), 2u);
    EXPECT_EQ(mounts[0].mountPoint, "/b");
    EXPECT_TRUE(mounts[0].needsNetwork);
    EXPECT_FALSE(mounts[1].needsNetwork);
}

TEST(LinuxMountTable, CapturedTableMayAlwaysHaveChanged) {
    const SystemTree tree;
    LinuxMountTable table(tree.root());
    EXPECT_TRUE(table.hasChanged());
    EXPECT_TRUE(table.hasChanged());
}

TEST(LinuxMountTable, RunningSystemHasChangedAtTheFirstLook) {
    LinuxMountTable table{SystemRoot()};
    EXPECT_TRUE(table.hasChanged());
    if (!hasMountAtRoot()) GTEST_SKIP() << "a changed root shows no mount at /";
    EXPECT_FALSE(table.read().empty());
}

}  // namespace
}  // namespace velmora
