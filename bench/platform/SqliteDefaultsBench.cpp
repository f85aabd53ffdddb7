// What the settings file costs the main thread: a write that must be on the disk, one that may wait, a read,
// and opening the file at the program's start.

#include "fakes/AllocationCounter.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLog.h"
#include "platform/linux/store/SqliteDefaults.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace velmora {
namespace {

/// A store in a folder of its own, with about as many keys as the program has after a week.
class Store {
public:
    Store() {
        std::string name = (std::filesystem::temp_directory_path() / "velmora-bench-XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr) std::abort();
        m_folder = name;
        open();
        for (int key = 0; key < 40; ++key)
            defaults->setNumber("key." + std::string(1, static_cast<char>('0' + key)), key);
    }
    ~Store() {
        defaults.reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    void open() {
        defaults = std::make_unique<SqliteDefaults>(m_folder / "defaults.db", runLoop, clock, log);
    }

    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeSystemLog log;
    std::unique_ptr<SqliteDefaults> defaults;

private:
    std::filesystem::path m_folder;
};

void DefaultsWriteNow(benchmark::State& state) {
    Store store;
    double value = 0;
    for (auto _ : state) store.defaults->setNumber("sampleInterval", ++value);
}
BENCHMARK(DefaultsWriteNow);

void DefaultsWriteRelaxed(benchmark::State& state) {
    Store store;
    double value = 0;
    store.defaults->setNumber("net.active", value, Defaults::Urgency::relaxed);
    const std::size_t before = allocationCount();
    for (auto _ : state) store.defaults->setNumber("net.active", ++value, Defaults::Urgency::relaxed);
    state.counters["allocations"] = benchmark::Counter(static_cast<double>(allocationCount() - before),
                                                       benchmark::Counter::kAvgIterations);
}
BENCHMARK(DefaultsWriteRelaxed);

void DefaultsRead(benchmark::State& state) {
    Store store;
    for (auto _ : state) benchmark::DoNotOptimize(store.defaults->number("key.0"));
}
BENCHMARK(DefaultsRead);

void DefaultsOpen(benchmark::State& state) {
    Store store;
    // The first one stays open, so that closing the others does not fold the log into the file each time.
    const auto first = std::move(store.defaults);
    for (auto _ : state) {
        store.open();
        benchmark::DoNotOptimize(store.defaults->number("key.0"));
    }
}
BENCHMARK(DefaultsOpen);

}  // namespace
}  // namespace velmora
