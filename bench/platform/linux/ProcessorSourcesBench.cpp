#include "BareReads.h"
#include "platform/linux/files/StatFile.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processor/LinuxBootTimeSource.h"
#include "platform/linux/processor/LinuxLoadAverageSource.h"
#include "platform/linux/processor/LinuxProcessorTicksSource.h"
#include "platform/linux/processor/LinuxTaskCountSource.h"
#include "platform/linux/processor/ProcStat.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include <stdlib.h>
#include <sys/stat.h>

namespace velmora {
namespace {

void bareStatRead(benchmark::State& state) {
    BareReads reads{"/proc/stat"};
    for (auto _ : state) reads.read();
}
BENCHMARK(bareStatRead)->Name("ProcessorTicksAndBootTime/floor");

void ticksAndBootTime(benchmark::State& state) {
    const auto file = std::make_shared<StatFile>(SystemRoot());
    LinuxProcessorTicksSource ticks(file, {});
    LinuxBootTimeSource bootTime(file);
    std::vector<CoreTicks> cores;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ticks.read(cores));
        benchmark::DoNotOptimize(bootTime.bootTimeSeconds());
    }
}
BENCHMARK(ticksAndBootTime)->Name("ProcessorTicksAndBootTime");

/// The parser alone, over a text of many cores with a long line of interrupts.
void parseStatOfManyCores(benchmark::State& state) {
    std::string text = "cpu  1 2 3 4 5 6 7 8 9 10\n";
    for (int cpu = 0; cpu < state.range(0); ++cpu) {
        text += "cpu" + std::to_string(cpu) + " 4294967295 1234 567890 8000000 4321 12 3456 78 0 0\n";
    }
    text += "intr 987654321";
    for (int line = 0; line < 3000; ++line) text += " 0";
    text += "\nctxt 1\nbtime 1700000000\nprocesses 1\nprocs_running 1\nprocs_blocked 0\nsoftirq 1 2 3 4\n";
    std::vector<ProcStat::CoreTimes> cores;
    for (auto _ : state) {
        ProcStat::parseCoreTimes(text, cores);
        benchmark::DoNotOptimize(ProcStat::parseBootTime(text));
    }
}
BENCHMARK(parseStatOfManyCores)->Name("ParseProcStat")->Arg(8)->Arg(256);

void bareLoadAverage(benchmark::State& state) {
    double averages[3];
    for (auto _ : state) benchmark::DoNotOptimize(::getloadavg(averages, 3));
}
BENCHMARK(bareLoadAverage)->Name("LoadAverage/floor");

void loadAverage(benchmark::State& state) {
    LinuxLoadAverageSource source{SystemRoot()};
    for (auto _ : state) benchmark::DoNotOptimize(source.read());
}
BENCHMARK(loadAverage)->Name("LoadAverage");

void bareTaskCountReads(benchmark::State& state) {
    BareReads reads{"/proc/loadavg"};
    for (auto _ : state) {
        struct stat status;
        benchmark::DoNotOptimize(::stat("/proc", &status));
        reads.read();
    }
}
BENCHMARK(bareTaskCountReads)->Name("TaskCount/floor");

void taskCount(benchmark::State& state) {
    LinuxTaskCountSource source{SystemRoot()};
    for (auto _ : state) benchmark::DoNotOptimize(source.read());
}
BENCHMARK(taskCount)->Name("TaskCount");

}  // namespace
}  // namespace velmora
