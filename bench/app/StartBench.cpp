// From the start of the program's process to its first item on a screen: the real program on a virtual
// display of its own, without a session bus, with settings in a folder that goes with it.

#include "VirtualDisplay.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace velmora {
namespace {

void startToFirstItem(benchmark::State& state) {
    const ProgramCopy program;
    const VirtualDisplay display;
    DisplayWatch watch(display);
    for (auto unused : state) {
        (void)unused;
        const auto began = std::chrono::steady_clock::now();
        const Child child(program.path().c_str(), {}, [&] { program.prepare(display); });
        if (watch.nextShown() == XCB_WINDOW_NONE) state.SkipWithError("no item appeared");
        state.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count());
    }
}
BENCHMARK(startToFirstItem)
    ->Name("Start to first item")
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
