#include "BareReads.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/memory/LinuxMemorySource.h"
#include "platform/linux/memory/MemInfo.h"
#include "platform/linux/memory/VmStat.h"

#include <benchmark/benchmark.h>

#include <string>

namespace velmora {
namespace {

void bareMemoryReads(benchmark::State& state) {
    BareReads reads{"/proc/meminfo", "/proc/vmstat", "/sys/block/zram0/mm_stat"};
    for (auto _ : state) reads.read();
}
BENCHMARK(bareMemoryReads)->Name("MemoryCounters/floor");

void memoryCounters(benchmark::State& state) {
    LinuxMemorySource source{SystemRoot()};
    for (auto _ : state) {
        benchmark::DoNotOptimize(source.counters());
        benchmark::DoNotOptimize(source.availableLevel());
        benchmark::DoNotOptimize(source.swap());
    }
}
BENCHMARK(memoryCounters)->Name("MemoryCounters");

void parseMemInfoText(benchmark::State& state) {
    const std::string text = readSystemFile("/proc/meminfo").value_or("");
    for (auto _ : state) benchmark::DoNotOptimize(parseMemInfo(text));
}
BENCHMARK(parseMemInfoText)->Name("ParseMemInfo");

void parseVmStatText(benchmark::State& state) {
    const std::string text = readSystemFile("/proc/vmstat").value_or("");
    for (auto _ : state) benchmark::DoNotOptimize(parseVmStat(text));
}
BENCHMARK(parseVmStatText)->Name("ParseVmStat");

}  // namespace
}  // namespace velmora
