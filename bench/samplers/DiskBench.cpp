#include "../platform/linux/BareReads.h"
#include "fakes/AllocationCounter.h"
#include "platform/linux/desktop/LinuxTextOrder.h"
#include "platform/linux/disk/LinuxBlockDevices.h"
#include "platform/linux/disk/LinuxVolumes.h"
#include "platform/linux/disk/MountFilter.h"
#include "platform/linux/disk/MountInfo.h"
#include "platform/linux/disk/TreeSize.h"
#include "platform/linux/files/SystemFile.h"
#include "samplers/DiskSampler.h"
#include "samplers/VolumeIOSampler.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <ftw.h>
#include <stdlib.h>
#include <sys/statvfs.h>

// The disk stage's readers over the running system, each beside the bare calls that it needs, and the walk of
// the disk breakdown beside the C library's own.

namespace velmora {
namespace {

void bareDiskReads(benchmark::State& state) {
    BareReads reads{"/proc/diskstats"};
    for (auto _ : state) reads.read();
}
BENCHMARK(bareDiskReads)->Name("DiskSamplers/floor");

/// What each tick of the disk module asks for: all disks together, and each by name.
void diskSamplers(benchmark::State& state) {
    LinuxBlockDevices devices{SystemRoot()};
    LinuxVolumes mounted;
    const LinuxTextOrder order;
    DiskSampler disks(devices, mounted, order);
    VolumeIOSampler volumes(devices);
    for (int tick = 0; tick < 3; ++tick) {
        disks.activity(2);
        volumes.sample(2);
    }
    const std::size_t before = allocationCount();
    for (auto _ : state) {
        benchmark::DoNotOptimize(disks.activity(2));
        benchmark::DoNotOptimize(volumes.sample(2));
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}
BENCHMARK(diskSamplers)->Name("DiskSamplers");

void bareVolumeCalls(benchmark::State& state) {
    struct statvfs status {};
    for (auto _ : state) benchmark::DoNotOptimize(::statvfs("/", &status));
}
BENCHMARK(bareVolumeCalls)->Name("DiskSampler.volumes/floor");

void volumeList(benchmark::State& state) {
    LinuxBlockDevices devices{SystemRoot()};
    LinuxVolumes mounted;
    const LinuxTextOrder order;
    DiskSampler disks(devices, mounted, order);
    for (auto _ : state) benchmark::DoNotOptimize(disks.volumes());
}
BENCHMARK(volumeList)->Name("DiskSampler.volumes");

void mountTable(benchmark::State& state) {
    // A desktop's table, with the overlays of a hundred containers.
    std::string text = readSystemFile("/proc/self/mountinfo").value_or("");
    for (int number = 0; number < 100; ++number) {
        text += "90 20 0:" + std::to_string(100 + number) + " / /var/lib/docker/overlay2/" +
                std::to_string(number) +
                "/merged rw,relatime shared:9 - overlay overlay rw,lowerdir=/l/A:/l/B\n";
    }
    for (auto _ : state) benchmark::DoNotOptimize(MountFilter::listedMounts(parseMountInfo(text), {}));
}
BENCHMARK(mountTable)->Name("MountTable, 100 containers");

/// 1000 folders with 100 files each.
class HundredThousandFiles {
public:
    HundredThousandFiles() {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-bench-XXXXXX").native();
        m_path = ::mkdtemp(name.data());
        for (int folder = 0; folder < 1000; ++folder) {
            const auto below = m_path / std::to_string(folder);
            std::filesystem::create_directory(below);
            for (int file = 0; file < 100; ++file) std::ofstream(below / std::to_string(file));
        }
    }
    ~HundredThousandFiles() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    HundredThousandFiles(const HundredThousandFiles&) = delete;
    HundredThousandFiles& operator=(const HundredThousandFiles&) = delete;

    /// Made once for all benchmarks that use it.
    static std::string path() {
        static const HundredThousandFiles files;
        return files.m_path.string();
    }

private:
    std::filesystem::path m_path;
};

void libraryWalk(benchmark::State& state) {
    const std::string path = HundredThousandFiles::path();
    static std::int64_t blocks = 0;
    for (auto _ : state) {
        ::nftw(
            path.c_str(),
            [](const char*, const struct stat* status, int, struct FTW*) {
                blocks += status->st_blocks;
                return 0;
            },
            64, FTW_PHYS | FTW_MOUNT);
        benchmark::DoNotOptimize(blocks);
    }
}
BENCHMARK(libraryWalk)->Name("DiskBreakdown.dirSize, 100000 files/floor")->Unit(benchmark::kMillisecond);

void breakdownWalk(benchmark::State& state) {
    const std::string path = HundredThousandFiles::path();
    for (auto _ : state) benchmark::DoNotOptimize(treeSize(path, {}, {}));
}
BENCHMARK(breakdownWalk)->Name("DiskBreakdown.dirSize, 100000 files")->Unit(benchmark::kMillisecond);

/// The same with something to leave out, which needs every path.
void breakdownWalkWithHoles(benchmark::State& state) {
    const std::string path = HundredThousandFiles::path();
    for (auto _ : state) benchmark::DoNotOptimize(treeSize(path, {path + "/7", path + "/8/9"}, {}));
}
BENCHMARK(breakdownWalkWithHoles)
    ->Name("DiskBreakdown.dirSize with left-out paths, 100000 files")
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
