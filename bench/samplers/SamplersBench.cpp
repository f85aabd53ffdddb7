#include "../platform/linux/BareReads.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "platform/Platform.h"
#include "platform/linux/LinuxSources.h"
#include "platform/linux/loop/SystemClock.h"
#include "platform/null/NullPlatform.h"
#include "samplers/SamplerSet.h"

#include <benchmark/benchmark.h>

#include <memory>

#include <stdlib.h>
#include <sys/stat.h>

// Each sampler over the running system, and beside it the bare reads of the files that it needs: their ratio
// is what the program adds to the kernel's work.

namespace velmora {
namespace {

class RunningSystem {
public:
    RunningSystem() {
        m_platform =
            nullPlatform(std::make_unique<SystemClock>(), std::make_unique<FakeRunLoop>(m_loopClock));
        addLinuxSources(m_platform, SystemRoot());
        m_set = std::make_unique<SamplerSet>(m_platform);
    }
    Samplers samplers() { return m_set->view(); }

private:
    FakeClock m_loopClock;
    Platform m_platform;
    std::unique_ptr<SamplerSet> m_set;
};

void bareProcessorReads(benchmark::State& state) {
    BareReads reads{"/proc/stat", "/proc/loadavg"};
    double averages[3];
    struct stat status;
    for (auto _ : state) {
        reads.read();
        benchmark::DoNotOptimize(::getloadavg(averages, 3));
        benchmark::DoNotOptimize(::stat("/proc", &status));
    }
}
BENCHMARK(bareProcessorReads)->Name("CPUSampler/floor");

void cpuSampler(benchmark::State& state) {
    RunningSystem system;
    const Samplers samplers = system.samplers();
    CPUFigures figures;
    for (auto _ : state) {
        samplers.cpu.sample(figures);
        benchmark::DoNotOptimize(samplers.cpu.loadAverage());
        benchmark::DoNotOptimize(samplers.cpu.uptime());
        benchmark::DoNotOptimize(samplers.cpu.taskThreadCounts());
        benchmark::DoNotOptimize(samplers.cpu.efficiencyCoreCount());
    }
}
BENCHMARK(cpuSampler)->Name("CPUSampler");

void bareMemorySamplerReads(benchmark::State& state) {
    BareReads reads{"/proc/meminfo", "/proc/vmstat", "/sys/block/zram0/mm_stat"};
    for (auto _ : state) reads.read();
}
BENCHMARK(bareMemorySamplerReads)->Name("MemorySampler/floor");

void memorySampler(benchmark::State& state) {
    RunningSystem system;
    const Samplers samplers = system.samplers();
    MemoryStats stats;
    for (auto _ : state) samplers.memory.sample(2, stats);
}
BENCHMARK(memorySampler)->Name("MemorySampler");

void gpuSampler(benchmark::State& state) {
    RunningSystem system;
    const Samplers samplers = system.samplers();
    for (auto _ : state) benchmark::DoNotOptimize(samplers.gpu.sample());
}
BENCHMARK(gpuSampler)->Name("GPUSampler");

}  // namespace
}  // namespace velmora
