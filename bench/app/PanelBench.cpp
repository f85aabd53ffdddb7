// From a click on an item to its painted panel: the real program on a virtual display, clicked and watched
// from outside. The floor is a bare popup of the same toolkit, opened and watched in the same way.

#include "BarePopup.h"
#include "VirtualDisplay.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <filesystem>
#include <string>

namespace velmora {
namespace {

constexpr std::uint32_t kDarkGround = 0x2a2a2d;
constexpr std::uint32_t kLightGround = 0xffffff;
/// In the ground of a panel, between its line and its first card.
constexpr int kGroundX = 150;
constexpr int kGroundY = 3;

/// Clicks into the first window that is shown, and times what opens.
void openAndClose(benchmark::State& state, DisplayWatch& watch) {
    using Clock = std::chrono::steady_clock;
    constexpr int kInsideX = 20;
    constexpr int kInsideY = 10;
    const auto seconds = [](Clock::time_point since) {
        return std::chrono::duration<double>(Clock::now() - since).count();
    };
    const xcb_window_t bar = watch.nextShown();
    double first = 0;
    const auto open = [&]() -> double {
        const auto began = Clock::now();
        watch.click(bar, kInsideX, kInsideY);
        const xcb_window_t panel = watch.nextShown();
        if (panel == XCB_WINDOW_NONE ||
            !watch.waitUntilPainted(panel, kGroundX, kGroundY, kDarkGround, kLightGround)) {
            state.SkipWithError("nothing opened");
            return 0;
        }
        const double took = seconds(began);
        watch.click(bar, kInsideX, kInsideY);
        if (!watch.waitUntilHidden(panel)) state.SkipWithError("it did not close");
        return took;
    };
    first = open();
    for (auto unused : state) {
        (void)unused;
        state.SetIterationTime(open());
    }
    state.counters["first_ms"] = first * 1000;
}

void clickToPanel(benchmark::State& state) {
    const ProgramCopy program;
    const VirtualDisplay display;
    DisplayWatch watch(display);
    const Child child(program.path().c_str(), {}, [&] { program.prepare(display); });
    openAndClose(state, watch);
}
BENCHMARK(clickToPanel)
    ->Name("Click to painted panel")
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);

void clickToBarePopup(benchmark::State& state) {
    const ProgramCopy program;  // For its surroundings.
    const VirtualDisplay display;
    DisplayWatch watch(display);
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const Child child(self.c_str(), {kBarePopupArgument}, [&] { program.prepare(display); });
    openAndClose(state, watch);
}
BENCHMARK(clickToBarePopup)
    ->Name("Click to painted panel/floor")
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora
