#include "platform/linux/disk/LinuxVolumes.h"

#include "base/ParseNumber.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// What a machine's disks come to, a line each.
class DisksText {
public:
    void add(BlockDeviceSource& devices) {
        std::vector<BlockDriverCounters> drivers;
        EXPECT_TRUE(devices.drivers(drivers));
        line({"drivers", std::to_string(drivers.size())});
        for (const auto& driver : drivers) {
            line({"driver", std::to_string(driver.readBytes), std::to_string(driver.writeBytes),
                  std::to_string(driver.readOperations), std::to_string(driver.writeOperations)});
        }
        std::vector<MediaCounters> media;
        EXPECT_TRUE(devices.media(MediaClass::media, media));
        for (const auto& entry : media)
            line({"media", entry.bsdName, std::to_string(entry.readBytes), std::to_string(entry.writeBytes)});
    }

    void add(VolumeSource& volumes) {
        for (const std::string& path : volumes.mountedVolumes()) {
            const auto values = volumes.values(path);
            std::vector<std::string> words = {"volume", path};
            if (!values) {
                words.emplace_back("absent");
                line(words);
                continue;
            }
            words.push_back(values->name ? '"' + *values->name + '"' : "-");
            words.push_back(std::to_string(values->totalCapacity.value_or(-1)));
            words.push_back(std::to_string(values->availableCapacity.value_or(-1)));
            const auto flag = [&words](std::optional<bool> value, const char* word) {
                if (value.value_or(false)) words.emplace_back(word);
            };
            flag(values->isInternal, "internal");
            flag(!values->isLocal.value_or(true), "network");
            flag(values->isRemovable, "removable");
            flag(values->isEjectable, "ejectable");
            words.emplace_back("from");
            words.push_back(volumes.mountSource(path).value_or("nothing"));
            line(words);
        }
    }

    const std::string& text() const { return m_text; }

private:
    void line(const std::vector<std::string>& words) {
        for (std::size_t index = 0; index < words.size(); ++index)
            m_text += (index == 0 ? "" : " ") + words[index];
        m_text += '\n';
    }

    std::string m_text;
};

/// A machine whose mount points and device nodes answer what the test says.
class LinuxVolumesTest : public testing::Test {
protected:
    LinuxVolumes& volumes() {
        if (!m_volumes) {
            m_volumes.emplace(
                root, LinuxVolumes::Calls{.space = [this](const std::string& point) { return ask(point); },
                                          .startThread =
                                              [this](std::function<void()> work) {
                                                  threads.push_back(std::move(work));
                                                  return true;
                                              },
                                          .blockDevice =
                                              [this](const std::string& path) {
                                                  const auto node = nodes.find(path);
                                                  return node == nodes.end() ? std::nullopt
                                                                             : std::optional(node->second);
                                              }});
        }
        return *m_volumes;
    }

    /// Takes up a captured machine with the answers beside it.
    void show(const std::string& machine) {
        tree.show(machine);
        for (const auto& words : linesOf("space.txt", 3)) {
            const auto blocks = parseNumber<std::uint64_t>(words.at(1));
            const auto available = parseNumber<std::uint64_t>(words.at(2));
            const auto size = parseNumber<std::uint64_t>(words.at(3));
            ASSERT_TRUE(blocks && available && size) << words.at(0);
            spaces[words.at(0)] = volumeSpaceOfBlocks(*blocks, *available, *size);
        }
        for (const auto& words : linesOf("devices.txt", 1)) {
            const auto number = DeviceNumber::parse(words.at(1));
            ASSERT_TRUE(number);
            nodes[root.path(words.at(0).substr(1))] = *number;
        }
    }

    void runThreads() {
        std::vector<std::function<void()>> round;
        round.swap(threads);
        for (const auto& work : round) work();
    }

    std::optional<VolumeSpace> ask(const std::string& mountPoint) {
        asked.push_back(mountPoint);
        const auto space = spaces.find(mountPoint);
        return space == spaces.end() ? std::nullopt : std::optional(space->second);
    }

    /// The lines of a file, each cut into words from its end: the first may have blanks in it.
    std::vector<std::vector<std::string>> linesOf(const std::string& file, int wordsAtTheEnd) {
        const std::string text = TemporaryFolder::contentsOf(root.path(file));
        std::vector<std::vector<std::string>> lines;
        std::string_view rest = text;
        while (!rest.empty()) {
            std::string_view line = nextLine(rest);
            std::vector<std::string> words;
            for (int count = 0; count < wordsAtTheEnd; ++count) {
                const auto blank = line.rfind(' ');
                words.insert(words.begin(), std::string(line.substr(blank + 1)));
                line = line.substr(0, blank);
            }
            words.insert(words.begin(), std::string(line));
            lines.push_back(words);
        }
        return lines;
    }

    SystemTree tree;
    SystemRoot root = tree.root();
    std::map<std::string, VolumeSpace> spaces;
    std::map<std::string, DeviceNumber> nodes;
    std::vector<std::string> asked;
    std::vector<std::function<void()>> threads;

private:
    std::optional<LinuxVolumes> m_volumes;
};

class DisksOfMachineTest : public LinuxVolumesTest, public testing::WithParamInterface<const char*> {};

TEST_P(DisksOfMachineTest, DisksAndVolumesAreWhatTheRulesMakeOfThem) {
    show(GetParam());
    DisksText disks;
    LinuxBlockDevices devices(root);
    disks.add(devices);
    volumes().mountedVolumes();
    runThreads();
    disks.add(volumes());
    EXPECT_EQ(disks.text(), TemporaryFolder::contentsOf(root.path("disks.txt")));
}

INSTANTIATE_TEST_SUITE_P(Machines, DisksOfMachineTest,
                         testing::Values("luks-laptop", "raid-server", "btrfs-desktop", "sata-laptop",
                                         "virtio-vm", "container-host", "container", "zram-board",
                                         "multipath-workstation"),
                         [](const auto& machine) {
                             std::string name = machine.param;
                             std::erase(name, '-');
                             return name;
                         });

TEST_F(LinuxVolumesTest, MissingTableGivesNoVolumes) {
    EXPECT_TRUE(volumes().mountedVolumes().empty());
    EXPECT_EQ(volumes().values("/"), std::nullopt);
    EXPECT_EQ(volumes().mountSource("/"), std::nullopt);
}

TEST_F(LinuxVolumesTest, NetworkAndUserSpaceMountsAreAskedOnThreadsAlone) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 0:60 / /mnt/nas rw - nfs4 nas:/e rw\n"
               "3 1 8:3 / /mnt/win rw - fuseblk /dev/sda3 rw\n");
    for (const std::string path : {"/", "/mnt/nas", "/mnt/win"}) spaces[path] = {100, 50};
    for (const std::string& path : volumes().mountedVolumes()) volumes().values(path);
    EXPECT_EQ(asked, std::vector<std::string>{"/"});
    runThreads();
    EXPECT_EQ(asked, (std::vector<std::string>{"/", "/mnt/nas", "/mnt/win"}));
}

// The way to it leads over the server's folder, so that a dead server holds whoever asks for it.
TEST_F(LinuxVolumesTest, DiskMountedBelowANetworkMountIsAskedOnAThreadAndStaysALocalVolume) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 0:60 / /mnt/nas rw - nfs4 nas:/e rw\n"
               "3 2 8:3 / /mnt/nas/scratch rw - ext4 /dev/sda3 rw\n"
               "4 1 8:4 / /mnt/nasty rw - ext4 /dev/sda4 rw\n");
    for (const std::string path : {"/", "/mnt/nas", "/mnt/nas/scratch", "/mnt/nasty"})
        spaces[path] = {100, 50};
    for (const std::string& path : volumes().mountedVolumes()) volumes().values(path);
    EXPECT_EQ(asked, (std::vector<std::string>{"/", "/mnt/nasty"}));
    runThreads();
    volumes().mountedVolumes();
    ASSERT_TRUE(volumes().values("/mnt/nas/scratch"));
    EXPECT_EQ(volumes().values("/mnt/nas/scratch")->isLocal, true);
}

TEST_F(LinuxVolumesTest, MountThatNeedsTheNetworkByItsOptionsIsANetworkVolume) {
    tree.write("proc/self/mountinfo", "1 1 8:1 / /san rw - ext4 /dev/sdx1 rw\n");
    tree.write("etc/fstab", "UUID=1 /san ext4 _netdev 0 0\n");
    spaces["/san"] = {100, 50};
    volumes().mountedVolumes();
    runThreads();
    volumes().mountedVolumes();
    ASSERT_TRUE(volumes().values("/san"));
    EXPECT_EQ(volumes().values("/san")->isLocal, false);
    EXPECT_EQ(volumes().mountSource("/san"), "ext4");
}

TEST_F(LinuxVolumesTest, AutomaticMountPointIsNeverAsked) {
    tree.write("proc/self/mountinfo", "1 1 0:50 / /mnt/auto rw - autofs systemd-1 rw\n");
    EXPECT_TRUE(volumes().mountedVolumes().empty());
    runThreads();
    EXPECT_TRUE(asked.empty());
}

TEST_F(LinuxVolumesTest, VolumeWhoseSpaceCannotBeAskedHasNoValues) {
    tree.write("proc/self/mountinfo", "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n");
    EXPECT_EQ(volumes().mountedVolumes(), std::vector<std::string>{"/"});
    EXPECT_EQ(volumes().values("/"), std::nullopt);
}

TEST_F(LinuxVolumesTest, SourceBelowDevWithoutADiskIsNotHandedOut) {
    tree.write(
        "proc/self/mountinfo",
        "1 1 0:70 / /mnt/x rw - fuse.mergerfs /dev/fuse rw\n2 1 8:9 / /mnt/y rw - ext4 /dev/sdz9 rw\n");
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().mountSource("/mnt/x"), "fuse.mergerfs");
    EXPECT_EQ(volumes().mountSource("/mnt/y"), "ext4");
}

TEST_F(LinuxVolumesTest, SourceOfAPathIsThatOfTheDeepestVolumeAboveIt) {
    tree.write("proc/self/mountinfo",
               "1 1 0:1 / / rw - overlay overlay rw\n2 1 0:2 / /mnt/nas rw - nfs4 nas:/e rw\n");
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().mountSource("/mnt/nas/folder/file"), "nas:/e");
    EXPECT_EQ(volumes().mountSource("/mnt/nasty"), "overlay");
}

TEST_F(LinuxVolumesTest, PathThatIsNoUtf8IsShownInValidFormAndAskedByItsBytes) {
    tree.write("proc/self/mountinfo", "1 1 8:1 / /media/M\xFCller rw - vfat /dev/sda1 rw\n");
    spaces["/media/M\xFCller"] = {100, 50};
    EXPECT_EQ(volumes().mountedVolumes(), std::vector<std::string>{"/media/M\uFFFDller"});
    EXPECT_TRUE(volumes().values("/media/M\uFFFDller"));
}

TEST_F(LinuxVolumesTest, RootWithoutALabelBearsTheSystemsName) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 8:2 / /data rw - ext4 /dev/sda2 rw\n");
    spaces["/"] = spaces["/data"] = {100, 50};
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().values("/")->name, std::nullopt);
    tree.write("usr/lib/os-release", "NAME=Fallback\n");
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().values("/")->name, "Fallback");
    tree.write("etc/os-release", "NAME=Own\n");
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().values("/")->name, "Own");
    EXPECT_EQ(volumes().values("/data")->name, std::nullopt);
    tree.write("run/udev/data/b8:1", "E:ID_FS_LABEL_ENC=Label\n");
    volumes().mountedVolumes();
    EXPECT_EQ(volumes().values("/")->name, "Label");
}

TEST_F(LinuxVolumesTest, NodeOfAFileSystemWithoutADeviceNumberIsAskedOnlyBelowDev) {
    tree.write("proc/self/mountinfo",
               "1 1 0:1 / /a rw - fuse.x /srv/image rw\n2 1 0:2 / /b rw - nfs /dev/sda1 rw\n"
               "3 1 0:3 / /c rw - btrfs /dev/sda1 rw\n");
    std::vector<std::string> lookedAt;
    LinuxVolumes source(tree.root(),
                        {.space = [](const std::string&) { return std::optional<VolumeSpace>(); },
                         .startThread = [](std::function<void()>) { return true; },
                         .blockDevice =
                             [&](const std::string& path) {
                                 lookedAt.push_back(path);
                                 return std::optional<DeviceNumber>();
                             }});
    source.mountedVolumes();
    EXPECT_EQ(lookedAt, std::vector<std::string>{tree.path("dev/sda1")});
}

TEST_F(LinuxVolumesTest, DamagedTableCostsTheDamagedLinesOnly) {
    tree.write("proc/self/mountinfo",
               "1 1 8:1 / / rw - ext4 /dev/sda1 rw\n" + std::string(500, '\0') +
                   "\n\xFF\xFE\n2 1 8:2 / /data rw - ext4 /dev/sda2 rw\n3 1 8:3 / /cut rw - ex");
    EXPECT_EQ(volumes().mountedVolumes(), (std::vector<std::string>{"/", "/data"}));
}

TEST(LinuxVolumes, NodeThatIsNoBlockDeviceHasNoNumber) {
    EXPECT_EQ(LinuxVolumes::blockDeviceAt("/dev/null"), std::nullopt);
    EXPECT_EQ(LinuxVolumes::blockDeviceAt("/dev/nothing/here"), std::nullopt);
}

}  // namespace
}  // namespace velmora
