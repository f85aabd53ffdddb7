#include "platform/linux/disk/MountInfo.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

const std::string kLine = "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 - ext3 /dev/root rw,errors=continue\n";

MountEntry only(std::string_view text) {
    const auto entries = parseMountInfo(text);
    EXPECT_EQ(entries.size(), 1u) << text;
    return entries.empty() ? MountEntry{} : entries.front();
}

TEST(MountInfo, LineGivesItsColumns) {
    EXPECT_EQ(only(kLine), (MountEntry{.device = {98, 0},
                                       .root = "/mnt1",
                                       .mountPoint = "/mnt2",
                                       .type = "ext3",
                                       .source = "/dev/root"}));
}

TEST(MountInfo, LineWithoutOptionalColumnsIsRead) {
    EXPECT_EQ(only("27 1 254:0 / / rw,relatime - ext4 /dev/vda rw\n").type, "ext4");
}

TEST(MountInfo, LineWithManyOptionalColumnsIsRead) {
    EXPECT_EQ(
        only("27 1 254:0 / / rw shared:1 master:7 propagate_from:2 unbindable - ext4 /dev/vda rw\n").source,
        "/dev/vda");
}

TEST(MountInfo, EscapedLettersAreTheirBytes) {
    const MountEntry entry =
        only("27 1 8:1 / /media/a\\040b\\011c\\012d\\134e\\043 rw - vfat /dev/disk\\040one rw\n");
    EXPECT_EQ(entry.mountPoint, "/media/a b\tc\nd\\e#");
    EXPECT_EQ(entry.source, "/dev/disk one");
}

TEST(MountInfo, BackslashThatIsNoEscapeStays) {
    EXPECT_EQ(unescapeMountText("a\\04"), "a\\04");
    EXPECT_EQ(unescapeMountText("a\\099"), "a\\099");
    EXPECT_EQ(unescapeMountText("a\\777"), "a\\777");
    EXPECT_EQ(unescapeMountText("\\"), "\\");
    EXPECT_EQ(unescapeMountText("\\303\\274"), "\u00fc");
}

TEST(MountInfo, EmptySourceIsAnEmptyText) {
    const MountEntry entry = only("27 1 0:40 / /x rw - tmpfs  rw,size=4k\n");
    EXPECT_EQ(entry.type, "tmpfs");
    EXPECT_EQ(entry.source, "");
}

TEST(MountInfo, ReadOnlyMountAndReadOnlyFileSystemAreBothReadOnly) {
    EXPECT_TRUE(only("27 1 7:0 / /x ro,nodev - squashfs /dev/loop0 rw\n").isReadOnly);
    EXPECT_TRUE(only("27 1 7:0 / /x rw - squashfs /dev/loop0 ro\n").isReadOnly);
    EXPECT_FALSE(
        only("27 1 7:0 / /x rw,errors=remount-ro - ext4 /dev/loop0 rw,errors=remount-ro\n").isReadOnly);
}

TEST(MountInfo, LineCutAnywhereGivesNothing) {
    const std::string whole = kLine.substr(0, kLine.size() - 1);
    for (std::size_t length = 0; length <= whole.size(); ++length)
        EXPECT_TRUE(parseMountInfo(whole.substr(0, length)).empty()) << length;
}

TEST(MountInfo, ShortLineGivesNothing) {
    for (const char* line :
         {"27\n", "27 1 254:0\n", "27 1 254:0 / /\n", "27 1 254:0 / / rw\n", "27 1 254:0 / / rw -\n",
          "27 1 254:0 / / rw - ext4\n", "27 1 254:0 / / rw - ext4 /dev/vda\n",
          "27 1 254:0 / / rw shared:1 ext4 /dev/vda rw\n"})
        EXPECT_TRUE(parseMountInfo(line).empty()) << line;
}

TEST(MountInfo, MalformedDeviceNumberGivesNothing) {
    for (const std::string number : {"254", "254:", ":0", "a:b", "-1:0", "4294967296:0", "1:2:3"})
        EXPECT_TRUE(parseMountInfo("27 1 " + number + " / / rw - ext4 /dev/vda rw\n").empty()) << number;
}

TEST(MountInfo, MountPointThatIsNoPathGivesNothing) {
    EXPECT_TRUE(parseMountInfo("27 1 8:1 / name rw - ext4 /dev/vda rw\n").empty());
}

TEST(MountInfo, BadLineCostsItselfOnly) {
    EXPECT_EQ(parseMountInfo("nonsense\n" + kLine + std::string(200, '\0') + "\n" + kLine).size(), 2u);
}

TEST(MountInfo, BytesThatAreNoUtf8AreKept) {
    EXPECT_EQ(only("27 1 8:1 / /media/M\xFCller rw - vfat /dev/sda1 rw\n").mountPoint, "/media/M\xFCller");
}

TEST(MountInfo, OptionIsFoundWholeOnly) {
    EXPECT_TRUE(hasMountOption("rw,ro", "ro"));
    EXPECT_TRUE(hasMountOption("ro", "ro"));
    EXPECT_FALSE(hasMountOption("rox,xro", "ro"));
    EXPECT_FALSE(hasMountOption("", "ro"));
    EXPECT_FALSE(hasMountOption(",,", "ro"));
}

}  // namespace
}  // namespace velmora
