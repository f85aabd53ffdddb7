// Every render of every panel looks texts up: two hash look-ups and no allocation. Beside it stand two bare
// hash look-ups, and what the same would cost with one search through the flat list.

#include "fakes/AllocationCounter.h"
#include "l10n/L10n.h"
#include "l10n/LocalizationTables.h"
#include "platform/null/MemoryDefaults.h"
#include "platform/null/NullFrameworkLanguage.h"
#include "platform/null/NullPreferredLanguages.h"

#include <benchmark/benchmark.h>

namespace velmora {
namespace {

void L10nString(benchmark::State& state) {
    MemoryDefaults defaults;
    const NullPreferredLanguages preferred;
    NullFrameworkLanguage framework;
    L10n l10n(defaults, preferred, framework);
    l10n.apply("de");
    const auto keys = LocalizationTables::entries(AppLanguage::en);
    std::size_t index = 0;
    const std::size_t before = allocationCount();
    for (auto _ : state) {
        benchmark::DoNotOptimize(l10n.string(keys[index].key));
        index = index + 1 < keys.size() ? index + 1 : 0;
    }
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}
BENCHMARK(L10nString);

void TwoHashLookUps(benchmark::State& state) {
    const LocalizationTables::Tables& tables = LocalizationTables::tables();
    const auto keys = LocalizationTables::entries(AppLanguage::en);
    std::size_t index = 0;
    for (auto _ : state) {
        const LocalizationTables::Table& table = tables.find(AppLanguage::de)->second;
        benchmark::DoNotOptimize(table.find(keys[index].key)->second);
        index = index + 1 < keys.size() ? index + 1 : 0;
    }
}
BENCHMARK(TwoHashLookUps);

void L10nStringOfAMissingKey(benchmark::State& state) {
    MemoryDefaults defaults;
    const NullPreferredLanguages preferred;
    NullFrameworkLanguage framework;
    L10n l10n(defaults, preferred, framework);
    l10n.apply("de");
    const std::size_t before = allocationCount();
    for (auto _ : state) benchmark::DoNotOptimize(l10n.string("mod.missing"));
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}
BENCHMARK(L10nStringOfAMissingKey);

void SearchThroughTheList(benchmark::State& state) {
    const auto rows = LocalizationTables::entries(AppLanguage::de);
    std::size_t index = 0;
    for (auto _ : state) {
        const std::string_view key = rows[index].key;
        for (const LocalizationEntry& row : rows) {
            if (row.key != key) continue;
            benchmark::DoNotOptimize(row.text);
            break;
        }
        index = index + 1 < rows.size() ? index + 1 : 0;
    }
}
BENCHMARK(SearchThroughTheList);

void BuildOfOneTable(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(LocalizationTables::makeTable(LocalizationTables::entries(AppLanguage::de)));
    }
}
BENCHMARK(BuildOfOneTable);

}  // namespace
}  // namespace velmora
