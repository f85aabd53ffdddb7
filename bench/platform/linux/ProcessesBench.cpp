#include "platform/linux/files/TemporaryFolder.h"
#include "platform/linux/processes/LinuxProcessCounterSource.h"
#include "platform/linux/processes/LinuxProcessFootprintSource.h"
#include "platform/linux/processes/MadeUpProcesses.h"
#include "platform/linux/traffic/InetDiagMessages.h"
#include "platform/linux/traffic/MadeUpSockets.h"
#include "platform/linux/traffic/TrafficLedger.h"
#include "samplers/TopProcessSampler.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

// Walks over 100 to 10,000 made-up processes and lists of 10 to 10,000 made-up sockets, each beside the least
// that could be done: the same files opened and read, the same messages passed over.

namespace velmora {
namespace {

/// A machine with that many processes, made once for all benchmarks of this run.
const SystemRoot& machineOf(std::int64_t processes) {
    static std::map<std::int64_t, std::pair<std::unique_ptr<TemporaryFolder>, SystemRoot>> machines;
    auto& machine = machines[processes];
    if (!machine.first) {
        machine.first = std::make_unique<TemporaryFolder>(folderForManyFiles());
        machine.second = SystemRoot(machine.first->path().native());
        writeManyProcesses(machine.second, static_cast<std::int32_t>(processes));
    }
    return machine.second;
}

void readBare(benchmark::State& state, std::int64_t count, const char* file) {
    const int folder = ::open(machineOf(count).path("proc").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    std::vector<std::string> paths;
    for (std::int64_t pid = 1; pid <= count; ++pid)
        paths.push_back(formatText("%d/%s", {pid, std::string_view(file)}));
    std::vector<char> buffer(16384);
    for (auto _ : state) {
        for (const std::string& path : paths) {
            const int descriptor = ::openat(folder, path.c_str(), O_RDONLY | O_CLOEXEC);
            benchmark::DoNotOptimize(::read(descriptor, buffer.data(), buffer.size()));
            ::close(descriptor);
        }
    }
    ::close(folder);
}

void footprintWalk(benchmark::State& state, std::int64_t count) {
    LinuxProcessFootprintSource source(machineOf(count));
    for (auto _ : state) benchmark::DoNotOptimize(TopProcessSampler::memoryFootprintTop(source, 8));
}
void footprintWalkFloor(benchmark::State& state, std::int64_t count) {
    readBare(state, count, "status");
}
void processTableWalk(benchmark::State& state, std::int64_t count) {
    ProcessTable table(machineOf(count));
    std::vector<std::int32_t> buffer(8192);
    for (auto _ : state) {
        table.walk();
        benchmark::DoNotOptimize(table.fillInBytes(buffer, ::geteuid()));
    }
}
void processTableWalkFloor(benchmark::State& state, std::int64_t count) {
    readBare(state, count, "stat");
}

std::vector<std::byte> dumpOfMany(std::int64_t sockets) {
    std::vector<MadeUpSocket> many(static_cast<std::size_t>(sockets));
    for (std::size_t index = 0; index < many.size(); ++index) {
        many[index].cookie = index + 1;
        many[index].inode = static_cast<std::uint32_t>(index + 1000);
        many[index].received = index;
    }
    return dumpOf(many);
}

void socketWalk(benchmark::State& state, std::int64_t count) {
    const std::vector<std::byte> dump = dumpOfMany(count);
    TrafficLedger ledger;
    std::vector<TcpSocket> sockets;
    for (auto _ : state) {
        sockets.clear();
        Netlink::Bytes rest = dump;
        while (const auto message = Netlink::nextMessage(rest)) {
            if (const auto socket = InetDiag::parse(*message)) sockets.push_back(*socket);
        }
        ledger.take(sockets, [](const TcpSocket& socket) {
            return std::optional(static_cast<std::int32_t>(socket.inode % 50 + 1));
        });
        benchmark::DoNotOptimize(ledger.endInterval());
    }
}
void socketWalkFloor(benchmark::State& state, std::int64_t count) {
    const std::vector<std::byte> dump = dumpOfMany(count);
    for (auto _ : state) {
        Netlink::Bytes rest = dump;
        while (const auto message = Netlink::nextMessage(rest))
            benchmark::DoNotOptimize(message->body.data());
    }
}

const int kRegistered = [] {
    const auto add = [](const char* name, void (*work)(benchmark::State&, std::int64_t),
                        void (*floor)(benchmark::State&, std::int64_t),
                        std::initializer_list<std::int64_t> sizes) {
        for (const std::int64_t size : sizes) {
            const std::string whole = formatText("%s_%d", {name, size});
            // The size is in the name, so that the floor's differs by its end alone.
            const auto sized = [size](void (*body)(benchmark::State&, std::int64_t)) {
                return [body, size](benchmark::State& state) { body(state, size); };
            };
            benchmark::RegisterBenchmark(whole.c_str(), sized(work));
            benchmark::RegisterBenchmark((whole + "/floor").c_str(), sized(floor));
        }
    };
    add("footprintWalk", footprintWalk, footprintWalkFloor, {100, 1000, 10000});
    add("processTableWalk", processTableWalk, processTableWalkFloor, {100, 1000, 10000});
    add("socketWalk", socketWalk, socketWalkFloor, {10, 1000, 10000});
    return 0;
}();

}  // namespace
}  // namespace velmora
