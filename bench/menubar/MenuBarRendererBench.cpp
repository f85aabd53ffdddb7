// What an update of one item costs: an image in each style of each module, at the ratios of usual screens.

#include "menubar/MenuBarIcon.h"
#include "menubar/MenuBarRenderer.h"
#include "menubar/SampleSnapshots.h"

#include <benchmark/benchmark.h>

#include <QGuiApplication>

#include <string>

namespace velmora {
namespace {

/// Fonts need an application object; one for the whole program of benchmarks.
void needApplication() {
    if (QCoreApplication::instance()) return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argumentCount = 1;
    static char name[] = "velmora-bench";
    static char* arguments[] = {name, nullptr};
    static const QGuiApplication application(argumentCount, arguments);
}

void renderItem(benchmark::State& state, ModuleStyle style, StatsModule module, double ratio) {
    needApplication();
    const StatsSnapshot snapshot = busySnapshot();
    const auto ink = MenuBarRenderer::Ink::automatic();
    for (auto unused : state) {
        (void)unused;
        benchmark::DoNotOptimize(MenuBarRenderer::render(style, module, snapshot, ink, ratio));
    }
}

void renderIcon(benchmark::State& state) {
    needApplication();
    for (auto unused : state) {
        (void)unused;
        benchmark::DoNotOptimize(MenuBarIcon::gauge(1));
    }
}
BENCHMARK(renderIcon)->Name("menubar/icon/gauge");

const bool registered = [] {
    for (const double ratio : {1.0, 2.0}) {
        for (const StatsModule module : kAllModules) {
            for (const ModuleStyle style : kAllStyles) {
                const std::string name = "menubar/" + std::string(ratio > 1 ? "2x/" : "1x/") +
                                         std::string(rawValue(module)) + "/" + std::string(rawValue(style));
                benchmark::RegisterBenchmark(
                    name.c_str(), [=](benchmark::State& state) { renderItem(state, style, module, ratio); });
            }
        }
    }
    return true;
}();

}  // namespace
}  // namespace velmora
