#include "platform/linux/disk/MountFilter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

MountEntry mount(const std::string& point, const std::string& type = "ext4", DeviceNumber device = {8, 1}) {
    return {.device = device, .root = "/", .mountPoint = point, .type = type, .source = "/dev/sda1"};
}

std::vector<std::string> listed(const std::vector<MountEntry>& entries, const MountHintTable& hints = {}) {
    std::vector<std::string> points;
    for (const MountEntry& entry : MountFilter::listedMounts(entries, hints))
        points.push_back(entry.mountPoint);
    return points;
}

using Points = std::vector<std::string>;

TEST(MountFilter, OfSeveralMountsOnOnePointTheLastCounts) {
    const auto entries =
        MountFilter::listedMounts({mount("/mnt/a", "ext4", {8, 1}), mount("/mnt/a", "xfs", {8, 2})}, {});
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].type, "xfs");
}

TEST(MountFilter, AutomaticMountPointIsNotListed) {
    EXPECT_EQ(listed({mount("/mnt/auto", "autofs", {0, 50})}), Points{});
}

TEST(MountFilter, MountOnAnAutomaticMountPointIsListed) {
    EXPECT_EQ(listed({mount("/mnt/auto", "autofs", {0, 50}), mount("/mnt/auto", "nfs4", {0, 51})}),
              Points{"/mnt/auto"});
}

TEST(MountFilter, RootIsListedWhateverItIs) {
    for (const char* type : {"overlay", "9p", "virtiofs", "tmpfs", "squashfs", "rootfs"}) {
        MountEntry root = mount("/", type, {0, 20});
        root.isReadOnly = true;
        EXPECT_EQ(listed({root}), Points{"/"}) << type;
    }
}

TEST(MountFilter, RootThatIsAnAutomaticMountPointIsNotListed) {
    EXPECT_EQ(listed({mount("/", "autofs", {0, 20})}), Points{});
}

TEST(MountFilter, PseudoFileSystemsAreNotListed) {
    for (const char* type : {"proc", "sysfs", "tmpfs", "devtmpfs", "cgroup2", "overlay", "nsfs", "ramfs",
                             "fuse", "fuse.portal", "fuse.gvfsd-fuse", "fuse.lxcfs", "fuse.snapfuse",
                             "fuse.mount_Editor.AppImage", "nfsd", "rpc_pipefs"})
        EXPECT_EQ(listed({mount("/mnt/x", type, {0, 33})}), Points{}) << type;
}

TEST(MountFilter, FileSystemsOfProgramsAreListed) {
    for (const char* type :
         {"fuseblk", "fuse.sshfs", "fuse.rclone", "fuse.mergerfs", "virtiofs", "9p", "zfs"})
        EXPECT_EQ(listed({mount("/mnt/x", type, {0, 33})}), Points{"/mnt/x"}) << type;
}

TEST(MountFilter, ReadOnlyPackageImagesAreNotListed) {
    for (const char* type : {"squashfs", "erofs"}) {
        MountEntry image = mount("/mnt/image", type, {7, 1});
        EXPECT_EQ(listed({image}), Points{"/mnt/image"}) << type;
        image.isReadOnly = true;
        EXPECT_EQ(listed({image}), Points{}) << type;
    }
}

TEST(MountFilter, DiscIsListedUnlessItIsAnImage) {
    MountEntry disc = mount("/media/cdrom", "iso9660", {11, 0});
    disc.isReadOnly = true;
    disc.source = "/dev/sr0";
    EXPECT_EQ(listed({disc}), Points{"/media/cdrom"});
    disc.device = {7, 2};
    EXPECT_EQ(listed({disc}), Points{});
    disc.device = {259, 2};
    disc.source = "/dev/loop0p1";
    EXPECT_EQ(listed({disc}), Points{});
}

TEST(MountFilter, SystemFoldersAreNotListed) {
    for (const char* point : {"/boot",
                              "/boot/efi",
                              "/efi",
                              "/dev/x",
                              "/proc/x",
                              "/sys/x",
                              "/run",
                              "/run/x",
                              "/run/mediator",
                              "/snap/x/1",
                              "/var/snap/x",
                              "/var/lib/docker/x",
                              "/var/lib/containers",
                              "/var/lib/snapd/x",
                              "/var/lib/flatpak",
                              "/var/lib/kubelet/pods",
                              "/var/lib/lxc/a",
                              "/sysroot",
                              "/ostree/x",
                              "/usr",
                              "/usr/local",
                              "/etc/hosts",
                              "/nix/store",
                              "/tmp",
                              "/tmp/x"})
        EXPECT_EQ(listed({mount(point)}), Points{}) << point;
}

TEST(MountFilter, OtherFoldersAreListed) {
    for (const char* point : {"/home", "/data", "/mnt", "/media/x", "/run/media/ada/STICK", "/bootcamp",
                              "/nix", "/var", "/var/lib", "/var/lib/dockers", "/srv", "/opt", "/temporary"})
        EXPECT_EQ(listed({mount(point)}), Points{point}) << point;
}

TEST(MountFilter, HintHidesAMount) {
    EXPECT_EQ(listed({mount("/data")}, {{"/data", {.hides = true}}}), Points{});
}

TEST(MountFilter, HintToShowOverridesFolderAndHintToHide) {
    EXPECT_EQ(listed({mount("/usr/local")}, {{"/usr/local", {.shows = true}}}), Points{"/usr/local"});
    EXPECT_EQ(listed({mount("/data")}, {{"/data", {.hides = true, .shows = true}}}), Points{"/data"});
}

TEST(MountFilter, HintToHideDoesNotHideTheRoot) {
    EXPECT_EQ(listed({mount("/")}, {{"/", {.hides = true}}}), Points{"/"});
}

TEST(MountFilter, BoundFolderIsFoldedIntoItsFileSystem) {
    MountEntry bound = mount("/a");
    bound.root = "/folder";
    EXPECT_EQ(listed({mount("/mnt/whole"), bound}), Points{"/mnt/whole"});
}

TEST(MountFilter, SubvolumesAreFoldedIntoTheOneAtTheRoot) {
    MountEntry root = mount("/", "btrfs", {0, 39});
    root.root = "/@";
    MountEntry home = mount("/home", "btrfs", {0, 39});
    home.root = "/@home";
    MountEntry top = mount("/mnt/top", "btrfs", {0, 39});
    EXPECT_EQ(listed({home, top, root}), Points{"/"});
}

TEST(MountFilter, OfEqualMountsTheShortestPointCounts) {
    EXPECT_EQ(listed({mount("/mnt/longer"), mount("/mnt/a"), mount("/mnt/abc")}), Points{"/mnt/a"});
}

TEST(MountFilter, HiddenMountIsNotPreferredToAShownOne) {
    EXPECT_EQ(listed({mount("/etc"), mount("/mnt/longer/point")}), Points{"/mnt/longer/point"});
}

TEST(MountFilter, SameNumberOfAnotherTypeIsAnotherFileSystem) {
    EXPECT_EQ(listed({mount("/a", "ext4"), mount("/b", "xfs")}), (Points{"/a", "/b"}));
}

TEST(MountFilter, DatasetsAreFoldedByPool) {
    MountEntry pool = mount("/tank", "zfs", {0, 61});
    pool.source = "tank";
    MountEntry media = mount("/tank/media", "zfs", {0, 62});
    media.source = "tank/media";
    MountEntry other = mount("/other", "zfs", {0, 63});
    other.source = "tank2/media";
    EXPECT_EQ(listed({media, pool, other}), (Points{"/tank", "/other"}));
}

TEST(MountFilter, MountsStandInTheOrderOfMounting) {
    EXPECT_EQ(listed({mount("/z", "ext4", {8, 3}), mount("/", "ext4", {8, 2}), mount("/a", "ext4", {8, 1})}),
              (Points{"/z", "/", "/a"}));
}

TEST(MountFilter, SlowMountsAreThoseOfServersAndProgramsAndOnesThatNeedTheNetwork) {
    const std::vector<MountEntry> mounts = {mount("/", "nfs4"),
                                            mount("/mnt/nas", "nfs4"),
                                            mount("/home/ada/app", "fuse.sshfs"),
                                            mount("/san"),
                                            mount("/data"),
                                            mount("/hidden", "nfs4"),
                                            mount("/hidden", "ext4")};
    MountHintTable hints;
    hints["/san"].needsNetwork = true;
    EXPECT_EQ(MountFilter::slowMountPoints(mounts, hints), (Points{"/home/ada/app", "/mnt/nas", "/san"}));
}

TEST(MountFilter, AutomaticMountPointIsSlowUntilSomethingLocalIsMountedThere) {
    EXPECT_EQ(MountFilter::slowMountPoints({mount("/net", "autofs")}, {}), Points{"/net"});
    EXPECT_EQ(MountFilter::slowMountPoints({mount("/data", "autofs"), mount("/data", "ext4")}, {}), Points{});
}

TEST(MountFilter, NetworkTypesAreKnown) {
    for (const char* type :
         {"nfs",       "nfs4",         "cifs",       "smb3",      "smbfs",          "afs",
          "ncpfs",     "9p",           "ceph",       "davfs",     "fuse.rclone",    "fuse.davfs2",
          "fuse.s3fs", "fuse.gcsfuse", "fuse.sshfs", "fuse.ceph", "fuse.glusterfs", "fuse.curlftpfs",
          "lustre",    "beegfs",       "virtiofs"})
        EXPECT_TRUE(MountFilter::isNetworkType(type)) << type;
    for (const char* type : {"ext4", "btrfs", "fuseblk", "fuse.mergerfs", "overlay", "zfs", ""})
        EXPECT_FALSE(MountFilter::isNetworkType(type)) << type;
}

TEST(MountFilter, UserSpaceTypesAreKnown) {
    for (const char* type : {"fuse", "fuseblk", "fuse.mergerfs"})
        EXPECT_TRUE(MountFilter::isUserSpaceType(type));
    for (const char* type : {"ext4", "fusectl", "nfs"}) EXPECT_FALSE(MountFilter::isUserSpaceType(type));
}

TEST(MountFilter, PathIsBelowAFolderOnlyAtASlash) {
    EXPECT_TRUE(MountFilter::isAtOrBelow("/a/b", "/a"));
    EXPECT_TRUE(MountFilter::isAtOrBelow("/a", "/a"));
    EXPECT_TRUE(MountFilter::isAtOrBelow("/a", "/"));
    EXPECT_FALSE(MountFilter::isAtOrBelow("/ab", "/a"));
    EXPECT_FALSE(MountFilter::isAtOrBelow("/", "/a"));
}

}  // namespace
}  // namespace velmora
