#include "platform/linux/disk/LinuxDiskPlaces.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// A machine with a home folder at home/ada.
class LinuxDiskPlacesTest : public testing::Test {
protected:
    LinuxDiskPlacesTest() { fs::create_directories(home()); }

    fs::path home() const { return fs::canonical(tree.path("")) / "home/ada"; }
    std::string inHome(const std::string& name) const { return (home() / name).string(); }
    std::string inRoot(const std::string& name) const {
        return (fs::canonical(tree.path("")) / name).string();
    }
    void makeInHome(const std::string& name, std::size_t length = 20'000) {
        tree.write("home/ada/" + name, std::string(length, 'x'));
    }
    std::int64_t allocated(const std::string& name) const {
        struct stat status {};
        EXPECT_EQ(::lstat(inHome(name).c_str(), &status), 0);
        return status.st_blocks * 512;
    }
    LinuxDiskPlaces places() const {
        return LinuxDiskPlaces(SystemRoot(inRoot("")), {.home = home(),
                                                        .configHome = home() / ".config",
                                                        .dataHome = home() / ".local/share",
                                                        .id = 1000});
    }
    void setUserDirs(const std::string& text) { tree.write("home/ada/.config/user-dirs.dirs", text); }

    SystemTree tree;
};

using Folders = std::vector<std::string>;

TEST_F(LinuxDiskPlacesTest, DocumentsAreTheThreeUsualFolders) {
    EXPECT_EQ(places().places().documents,
              (Folders{inHome("Desktop"), inHome("Documents"), inHome("Downloads")}));
}

TEST_F(LinuxDiskPlacesTest, DocumentsFollowTheUsersOwnNames) {
    setUserDirs("XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_DOCUMENTS_DIR=\"$HOME/Dokumente\"\n");
    EXPECT_EQ(places().places().documents,
              (Folders{inHome("Dokumente"), inHome("Downloads"), inHome("Schreibtisch")}));
}

TEST_F(LinuxDiskPlacesTest, PlaceThatIsTheHomeItselfIsSkipped) {
    setUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/\"\nXDG_DESKTOP_DIR=\"$HOME\"\n");
    EXPECT_EQ(places().places().documents, Folders{inHome("Downloads")});
}

TEST_F(LinuxDiskPlacesTest, PlaceThatHoldsTheHomeIsSkipped) {
    setUserDirs("XDG_DOCUMENTS_DIR=\"" + inRoot("home") + "\"\nXDG_DESKTOP_DIR=\"/\"\n");
    EXPECT_EQ(places().places().documents, Folders{inHome("Downloads")});
}

TEST_F(LinuxDiskPlacesTest, LinkToTheHomeIsSkipped) {
    fs::create_symlink(home(), inHome("Documents"));
    EXPECT_EQ(places().places().documents, (Folders{inHome("Desktop"), inHome("Downloads")}));
}

TEST_F(LinuxDiskPlacesTest, PlaceInsideAnotherIsSkipped) {
    setUserDirs(
        "XDG_DOCUMENTS_DIR=\"$HOME/Files\"\nXDG_DESKTOP_DIR=\"$HOME/Files/Desktop\"\n"
        "XDG_DOWNLOAD_DIR=\"$HOME/Files\"\n");
    EXPECT_EQ(places().places().documents, Folders{inHome("Files")});
}

TEST_F(LinuxDiskPlacesTest, PlaceBehindALinkIsWhereItLeads) {
    fs::create_directories(inRoot("data/downloads"));
    fs::create_symlink(inRoot("data/downloads"), inHome("Downloads"));
    EXPECT_EQ(places().places().documents,
              (Folders{inRoot("data/downloads"), inHome("Desktop"), inHome("Documents")}));
}

TEST_F(LinuxDiskPlacesTest, ApplicationsLieInTheFoldersOfPackages) {
    EXPECT_EQ(places().places().applications,
              (Folders{inHome(".local/share/flatpak"), inHome("AppImages"), inHome("Applications"),
                       inRoot("opt"), inRoot("var/lib/flatpak"), inRoot("var/lib/snapd/snaps")}));
}

TEST_F(LinuxDiskPlacesTest, CloudFoldersAreRealFoldersOnly) {
    makeInHome("Nextcloud/file");
    makeInHome("Dropbox");  // A file of that name.
    fs::create_symlink(inHome("Nextcloud"), inHome("OneDrive"));
    EXPECT_EQ(places().places().cloud, Folders{inHome("Nextcloud")});
}

TEST_F(LinuxDiskPlacesTest, CloudFolderThatIsAMountIsNotCounted) {
    makeInHome("MEGA/file");
    tree.write("proc/self/mountinfo",
               "1 1 0:60 / " + inHome("MEGA").substr(inRoot("").size() - 1) + " rw - fuse.rclone mega: rw\n");
    EXPECT_EQ(places().places().cloud, Folders{});
}

TEST_F(LinuxDiskPlacesTest, LibraryHoldsTheCloudFoldersToo) {
    makeInHome("Nextcloud/file");
    EXPECT_EQ(places().places().library, (Folders{inHome(".cache"), inHome(".config"), inHome(".local"),
                                                  inHome(".var"), inHome("Nextcloud")}));
}

TEST_F(LinuxDiskPlacesTest, TrashLiesInTheHomeAndOnLocalVolumes) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 8:2 / /data rw - ext4 /dev/sda2 rw\n"
               "3 1 0:60 / /mnt/nas rw - nfs4 nas:/e rw\n4 1 0:61 / /mnt/app rw - fuse.sshfs a:/ rw\n"
               "5 1 0:62 / /sys rw - sysfs sysfs rw\n");
    EXPECT_EQ(places().places().trash,
              (Folders{inRoot(".Trash-1000"), inRoot("data/.Trash-1000"), inHome(".local/share/Trash")}));
}

TEST_F(LinuxDiskPlacesTest, PlaceOnANetworkMountIsSkippedWithoutALook) {
    tree.write("proc/self/mountinfo",
               "1 1 0:60 / " + inHome("Documents").substr(inRoot("").size() - 1) + " rw - nfs4 nas:/e rw\n");
    EXPECT_EQ(places().places().documents, (Folders{inHome("Desktop"), inHome("Downloads")}));
}

// The look at a dead server's folder would not come back, and then no place would ever be measured.
TEST_F(LinuxDiskPlacesTest, LinkToANetworkMountIsNotFollowed) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 0:60 / /mnt/nas rw - nfs4 nas:/e rw\n");
    fs::create_directories(inRoot("mnt/nas/ada/papers"));
    fs::create_symlink(inRoot("mnt/nas/ada/papers"), inHome("Documents"));
    fs::create_symlink("../../mnt/nas/ada", inHome("server"));
    fs::create_symlink("server/papers", inHome("Downloads"));
    EXPECT_EQ(places().places().documents, Folders{inHome("Desktop")});
}

TEST_F(LinuxDiskPlacesTest, FolderBelowANetworkMountIsSkipped) {
    tree.write("proc/self/mountinfo",
               "1 1 0:60 / " + inHome("Server").substr(inRoot("").size() - 1) + " rw - nfs4 nas:/e rw\n");
    setUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/Server/papers\"\n");
    EXPECT_EQ(places().places().documents, (Folders{inHome("Desktop"), inHome("Downloads")}));
}

TEST_F(LinuxDiskPlacesTest, AutomaticMountPointIsSkippedUntilSomethingLocalIsMountedThere) {
    const std::string point = inHome("Documents").substr(inRoot("").size() - 1);
    const std::string automatic = "1 1 0:50 / " + point + " rw - autofs systemd-1 rw\n";
    tree.write("proc/self/mountinfo", automatic);
    EXPECT_EQ(places().places().documents, (Folders{inHome("Desktop"), inHome("Downloads")}));
    tree.write("proc/self/mountinfo", automatic + "2 1 8:3 / " + point + " rw - ext4 /dev/sda3 rw\n");
    EXPECT_EQ(places().places().documents,
              (Folders{inHome("Desktop"), inHome("Documents"), inHome("Downloads")}));
}

TEST_F(LinuxDiskPlacesTest, HomeOnAServerIsMeasuredLikeAnyOther) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 0:60 / /home rw - nfs4 nas:/home rw\n");
    EXPECT_EQ(places().places().documents,
              (Folders{inHome("Desktop"), inHome("Documents"), inHome("Downloads")}));
}

TEST_F(LinuxDiskPlacesTest, CircleOfLinksIsNoPlace) {
    fs::create_symlink(inHome("Downloads"), inHome("Documents"));
    fs::create_symlink(inHome("Documents"), inHome("Downloads"));
    EXPECT_EQ(places().places().documents, Folders{inHome("Desktop")});
}

TEST_F(LinuxDiskPlacesTest, TrashAndPackagesDoNotCountForTheLibrary) {
    makeInHome(".local/share/Trash/files/gone", 50'000);
    makeInHome(".local/share/flatpak/app/large", 90'000);
    makeInHome(".local/share/own", 20'000);
    LinuxDiskPlaces source = places();
    source.places();
    EXPECT_EQ(source.dirSize(inHome(".local"), {}), allocated(".local/share/own"));
    EXPECT_EQ(source.dirSize(inHome(".local/share/Trash"), {}), allocated(".local/share/Trash/files/gone"));
}

TEST_F(LinuxDiskPlacesTest, MountPointInsideAPlaceIsNotLookedAt) {
    makeInHome("Documents/own");
    makeInHome("Documents/nas/remote", 90'000);
    tree.write("proc/self/mountinfo", "1 1 0:60 / " + inHome("Documents/nas").substr(inRoot("").size() - 1) +
                                          " rw - nfs4 nas:/e rw\n");
    LinuxDiskPlaces source = places();
    source.places();
    EXPECT_EQ(source.dirSize(inHome("Documents"), {}), allocated("Documents/own"));
}

TEST_F(LinuxDiskPlacesTest, FilesInsideAnApplicationPackageAreNotCountedTowardTheApplications) {
    makeInHome("Applications/Editor.app/program", 90'000);
    makeInHome("Applications/tool");
    LinuxDiskPlaces source = places();
    source.places();
    EXPECT_EQ(source.dirSize(inHome("Applications"), {}), allocated("Applications/tool"));
}

TEST_F(LinuxDiskPlacesTest, MissingPlaceCountsZero) {
    LinuxDiskPlaces source = places();
    for (const std::string& folder : source.places().documents)
        EXPECT_EQ(source.dirSize(folder, {}), 0) << folder;
}

TEST_F(LinuxDiskPlacesTest, ThisUserHasAHome) {
    EXPECT_TRUE(LinuxDiskPlaces::thisUser().home.is_absolute());
}

}  // namespace
}  // namespace velmora
