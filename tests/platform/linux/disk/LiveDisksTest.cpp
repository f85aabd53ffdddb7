#include "base/ParseNumber.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/disk/LinuxMountTable.h"
#include "platform/linux/disk/LinuxVolumes.h"
#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

// The adapters against the machine that runs the test, with what its own tools and files say.

namespace velmora {
namespace {

/// A process whose root was changed sees only the mounts below it.
bool hasMountAtRoot() {
    std::ifstream file("/proc/self/mountinfo");
    const std::string mounts{std::istreambuf_iterator<char>(file), {}};
    return mounts.find(" / rw") != std::string::npos || mounts.find(" / ro") != std::string::npos;
}

std::string outputOf(const std::string& command) {
    std::string output;
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    std::array<char, 4096> block{};
    while (pipe) {
        const std::size_t length = std::fread(block.data(), 1, block.size(), pipe.get());
        if (length == 0) break;
        output.append(block.data(), length);
    }
    return output;
}

/// Bytes written to all whole disks, straight from the kernel's text.
std::uint64_t writtenBytesInKernelText() {
    std::uint64_t bytes = 0;
    const std::string text = readSystemFile("/proc/diskstats", std::size_t{1} << 20).value_or("");
    std::string_view rest = text;
    while (!rest.empty()) {
        std::string_view line = nextLine(rest);
        std::vector<std::string> fields;
        for (auto field = nextField(line); !field.empty(); field = nextField(line))
            fields.emplace_back(field);
        if (fields.size() < 10 || !std::filesystem::exists("/sys/block/" + fields[2] + "/device")) continue;
        bytes += 512 * parseNumber<std::uint64_t>(fields[9]).value_or(0);
    }
    return bytes;
}

std::uint64_t writtenBytes(LinuxBlockDevices& devices) {
    std::vector<BlockDriverCounters> drivers;
    EXPECT_TRUE(devices.drivers(drivers));
    std::uint64_t bytes = 0;
    for (const auto& driver : drivers) bytes += driver.writeBytes;
    return bytes;
}

/// Writes past the page cache, so that the bytes reach the disk before this returns. False where the folder's
/// file system cannot do that.
bool writeToDisk(const std::filesystem::path& file, std::size_t megabytes) {
    const FileDescriptor descriptor(::open(file.c_str(), O_WRONLY | O_CREAT | O_DIRECT | O_CLOEXEC, 0600));
    if (!descriptor) return false;
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    const std::unique_ptr<void, void (*)(void*)> block(std::aligned_alloc(4096, kBlock), std::free);
    std::fill_n(static_cast<char*>(block.get()), kBlock, 'x');
    for (std::size_t count = 0; count < megabytes; ++count) {
        if (::write(descriptor.get(), block.get(), kBlock) != static_cast<ssize_t>(kBlock)) return false;
    }
    return ::fsync(descriptor.get()) == 0;
}

TEST(LiveDisks, RootHasTheSizeThatDfPrints) {
    if (!hasMountAtRoot()) GTEST_SKIP() << "a changed root shows no mount at /";
    LinuxVolumes volumes;
    for (const std::string& path : volumes.mountedVolumes()) {
        if (path != "/") continue;
        const std::string printed = outputOf("LC_ALL=C df -B1 --output=size,avail / | tail -n 1");
        std::string_view rest = printed;
        std::string_view line = nextLine(rest);
        const auto size = parseNumber<std::int64_t>(nextField(line));
        const auto available = parseNumber<std::int64_t>(nextField(line));
        const auto values = volumes.values("/");
        ASSERT_TRUE(size && available && values) << printed;
        EXPECT_EQ(values->totalCapacity, *size);
        // Other programs write meanwhile.
        constexpr double kTolerance = 256e6;
        EXPECT_NEAR(static_cast<double>(values->availableCapacity.value_or(-1)),
                    static_cast<double>(*available), kTolerance);
        return;
    }
    FAIL() << "no volume at /";
}

TEST(LiveDisks, EveryLocalVolumeIsOneThatDfLists) {
    LinuxVolumes volumes;
    const std::string targets = "\n" + outputOf("LC_ALL=C df -a --output=target | tail -n +2");
    for (const std::string& path : volumes.mountedVolumes())
        EXPECT_NE(targets.find("\n" + path + "\n"), std::string::npos) << path;
}

TEST(LiveDisks, BytesWrittenToADiskAreCounted) {
    constexpr std::size_t kMegabytes = 32;
    const std::filesystem::path file =
        std::filesystem::path(VELMORA_BINARY_DIR) / ("live-disks-" + std::to_string(::getpid()));
    LinuxBlockDevices devices{SystemRoot()};
    const std::uint64_t kernelBefore = writtenBytesInKernelText();
    const std::uint64_t before = writtenBytes(devices);
    const bool isWritten = writeToDisk(file, kMegabytes);
    const std::uint64_t after = writtenBytes(devices);
    const std::uint64_t kernelAfter = writtenBytesInKernelText();
    std::filesystem::remove(file);
    // A build tree in memory, or on another machine's disk, brings no traffic to a disk of this one.
    if (!isWritten || kernelAfter - kernelBefore < (kMegabytes << 20))
        GTEST_SKIP() << "the build tree lies on no disk of this machine";
    EXPECT_GE(after - before, kMegabytes << 20);
    EXPECT_LE(after - before, kernelAfter - kernelBefore);
}

TEST(LiveDisks, MediaBearNamesThatTheVolumesBear) {
    LinuxVolumes volumes;
    LinuxBlockDevices devices{SystemRoot()};
    std::vector<MediaCounters> media;
    ASSERT_TRUE(devices.media(MediaClass::media, media));
    for (const std::string& path : volumes.mountedVolumes()) {
        const auto values = volumes.values(path);
        const auto source = volumes.mountSource(path);
        if (!values || !values->isInternal.value_or(false)) continue;
        ASSERT_TRUE(source && source->starts_with("/dev/dsk-")) << path;
        const bool isKnown = std::ranges::any_of(
            media, [&](const MediaCounters& entry) { return "/dev/" + entry.bsdName == *source; });
        EXPECT_TRUE(isKnown) << *source;
    }
}

/// Runs the work in a child with mounts of its own. -1 if the system gives it none.
int inOwnMountNamespace(int (*work)(const std::filesystem::path& folder),
                        const std::filesystem::path& folder) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool hasOwn = ::unshare(CLONE_NEWNS) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
        const bool isApart = hasOwn && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        ::_exit(isApart ? work(folder) : 255);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status)) return 254;
    return WEXITSTATUS(status) == 255 ? -1 : WEXITSTATUS(status);
}

TEST(LiveDisks, MountAndUnmountAreNoticed) {
    const TemporaryFolder folder;
    const int result = inOwnMountNamespace(
        [](const std::filesystem::path& point) {
            LinuxMountTable table{SystemRoot()};
            if (!table.hasChanged()) return 1;
            table.hasChanged();
            if (table.hasChanged()) return 2;
            if (::mount("none", point.c_str(), "tmpfs", 0, nullptr) != 0) return 255;
            if (!table.hasChanged()) return 3;
            if (table.hasChanged()) return 4;
            if (::umount(point.c_str()) != 0) return 255;
            return table.hasChanged() ? 0 : 5;
        },
        folder.path());
    if (result == -1) GTEST_SKIP() << "this system gives a test no mounts of its own";
    EXPECT_EQ(result, 0);
}

TEST(LiveDisks, BoundFolderIsNoSecondVolume) {
    const TemporaryFolder folder;
    const int result = inOwnMountNamespace(
        [](const std::filesystem::path& point) {
            LinuxVolumes volumes;
            const auto before = volumes.mountedVolumes();
            if (::mount("/", point.c_str(), nullptr, MS_BIND, nullptr) != 0) return 255;
            return volumes.mountedVolumes() == before ? 0 : 1;
        },
        folder.path());
    if (result == -1) GTEST_SKIP() << "this system gives a test no mounts of its own";
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace velmora
