#include "base/ParseNumber.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeRunLoop.h"
#include "platform/linux/desktop/LinuxTextOrder.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/disk/LinuxDiskPlaces.h"
#include "platform/linux/disk/LinuxVolumes.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/TemporaryFolder.h"
#include "platform/linux/loop/ThreadWorkQueue.h"
#include "samplers/DiskBreakdown.h"
#include "samplers/DiskSampler.h"
#include "samplers/VolumeIOSampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

// The readers of disk figures over the real adapters.

namespace velmora {
namespace {

namespace fs = std::filesystem;

/// What the system's own tool finds allocated below the folder, without the folders themselves.
std::int64_t allocatedByFind(const fs::path& folder) {
    const std::string command = "find '" + folder.string() + "' ! -type d -printf '%b\\n'";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    std::int64_t blocks = 0;
    std::array<char, 64> line{};
    while (pipe && std::fgets(line.data(), line.size(), pipe.get())) {
        std::string_view text = line.data();
        blocks += parseNumber<std::int64_t>(nextLine(text)).value_or(0);
    }
    return blocks * 512;
}

class LiveDiskBreakdownTest : public testing::Test {
protected:
    void write(const std::string& name, std::size_t length) { machine.write(name, std::string(length, 'x')); }
    std::int64_t found(const std::string& name) { return allocatedByFind(machine.path() / name); }

    TemporaryFolder machine;
    FakeDefaults defaults;
    FakeClock clock;
    FakeRunLoop loop{clock};
};

TEST_F(LiveDiskBreakdownTest, PlacesOfAMadeUpHomeHaveTheSizesThatFindAddsUp) {
    write("opt/tool/program", 300'000);
    write("home/ada/Documents/letter", 10'000);
    write("home/ada/Documents/old/letter", 20'000);
    write("home/ada/Downloads/image", 1'000'000);
    write("home/ada/Applications/tool", 40'000);
    write("home/ada/Nextcloud/photos/one", 500'000);
    write("home/ada/.cache/pages", 70'000);
    write("home/ada/.config/settings", 5'000);
    write("home/ada/.local/share/own", 30'000);
    write("home/ada/.local/share/Trash/files/gone", 200'000);
    write("home/ada/outside", 900'000);
    const fs::path home = machine.path() / "home/ada";
    LinuxDiskPlaces places(
        SystemRoot(machine.path().string()),
        {.home = home, .configHome = home / ".config", .dataHome = home / ".local/share", .id = ::getuid()});
    ThreadWorkQueue queue("test-walk");
    DiskBreakdown breakdown(places, defaults, clock, queue, loop);
    EXPECT_EQ(breakdown.parts(), std::nullopt);
    ASSERT_TRUE(loop.waitForPost());
    loop.runPosted();
    const auto parts = breakdown.parts();
    ASSERT_TRUE(parts);
    EXPECT_EQ(parts->at("docs"), found("home/ada/Documents") + found("home/ada/Downloads"));
    EXPECT_EQ(parts->at("apps"), found("opt") + found("home/ada/Applications"));
    EXPECT_EQ(parts->at("icloud"), found("home/ada/Nextcloud"));
    EXPECT_EQ(parts->at("system"), found("home/ada/.cache") + found("home/ada/.config") +
                                       found("home/ada/.local") - found("home/ada/.local/share/Trash"));
    EXPECT_EQ(parts->at("trash"), found("home/ada/.local/share/Trash"));
}

/// Writes past the page cache; false where the folder's file system cannot do that.
bool writeToDisk(const fs::path& file, std::size_t length) {
    const FileDescriptor descriptor(::open(file.c_str(), O_WRONLY | O_CREAT | O_DIRECT | O_CLOEXEC, 0600));
    if (!descriptor) return false;
    const std::unique_ptr<void, void (*)(void*)> block(std::aligned_alloc(4096, length), std::free);
    std::fill_n(static_cast<char*>(block.get()), length, 'x');
    return ::write(descriptor.get(), block.get(), length) == static_cast<ssize_t>(length);
}

TEST(LiveDiskFigures, BytesWrittenShowInAllRatesOfTheirDisk) {
    constexpr std::size_t kBytes = std::size_t{16} << 20;
    LinuxBlockDevices devices{SystemRoot()};
    LinuxVolumes mounted;
    const LinuxTextOrder order;
    DiskSampler disks(devices, mounted, order);
    VolumeIOSampler volumes(devices);
    const fs::path folder = fs::canonical(VELMORA_BINARY_DIR);
    disks.volumes();
    const auto disk = disks.bsdName(folder.string());
    // A build tree in memory, or on another machine's disk, brings no traffic to a disk of this one.
    if (!disk) GTEST_SKIP() << "the build tree lies on no disk of this machine";

    disks.activity(0);
    volumes.sample(0);
    const fs::path file = folder / ("live-figures-" + std::to_string(::getpid()));
    const bool isWritten = writeToDisk(file, kBytes);
    const DiskActivity activity = disks.activity(2);
    const auto& rates = volumes.sample(2);
    fs::remove(file);
    if (!isWritten) GTEST_SKIP() << "the build tree's file system cannot write past the page cache";
    EXPECT_GE(activity.writePerSec, kBytes / 2.0);
    EXPECT_GT(activity.iops, 0);
    ASSERT_TRUE(rates.contains(*disk)) << *disk;
    EXPECT_GE(rates.at(*disk).writePerSec, kBytes / 2.0);
}

}  // namespace
}  // namespace velmora
