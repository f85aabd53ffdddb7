#include "platform/linux/graphics/GraphicsCards.h"

#include <benchmark/benchmark.h>

namespace velmora {
namespace {

/// What one reading costs the worker on this machine, also one without a card.
void graphicsCards(benchmark::State& state) {
    GraphicsCards cards{SystemRoot()};
    double seconds = 0;
    for (auto _ : state) benchmark::DoNotOptimize(cards.read(seconds += 2));
}
BENCHMARK(graphicsCards)->Name("GraphicsCards");

}  // namespace
}  // namespace velmora
