#include "platform/linux/processor/CoreClassification.h"

#include "base/FormatText.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processor/CpuList.h"
#include "platform/linux/processor/ProcStat.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <string_view>

namespace velmora {
namespace {

std::vector<int> onlineCpus(const SystemRoot& root) {
    constexpr std::size_t kLongestStat = std::size_t{4} << 20;
    std::vector<ProcStat::CoreTimes> cores;
    ProcStat::parseCoreTimes(readSystemFile(root.path("proc/stat"), kLongestStat).value_or(""), cores);
    std::vector<int> cpus;
    std::ranges::transform(cores, std::back_inserter(cpus), &ProcStat::CoreTimes::cpu);
    std::ranges::sort(cpus);
    return cpus;
}

std::vector<int> cpusOfUnit(const SystemRoot& root, std::string_view unit) {
    for (const std::string_view folder : {"sys/devices/", "sys/bus/event_source/devices/"}) {
        const auto text = readSystemWord(root.path(std::string(folder).append(unit).append("/cpus")));
        if (!text) continue;
        if (const auto cpus = parseCpuList(*text)) return *cpus;
    }
    return {};
}

/// A hybrid processor of the x86 kind has one counting unit for each kind of core. The slowest kind may have
/// two: the cores on the low-power island are a unit of their own.
std::optional<CoreClassification> classifyByUnit(const SystemRoot& root, const std::vector<int>& online) {
    if (cpusOfUnit(root, "cpu_core").empty()) return std::nullopt;
    std::vector<int> slow = cpusOfUnit(root, "cpu_atom");
    std::ranges::copy(cpusOfUnit(root, "cpu_lowpower"), std::back_inserter(slow));
    std::ranges::sort(slow);
    if (slow.empty()) return std::nullopt;
    CoreClassification classification{.levelCount = 2, .efficiencyCpus = {}};
    std::ranges::set_intersection(slow, online, std::back_inserter(classification.efficiencyCpus));
    return classification;
}

/// Only x86 writes this line of /proc/cpuinfo.
bool isX86(const SystemRoot& root) {
    const std::string text = readSystemFile(root.path("proc/cpuinfo"), 4096).value_or("");
    return text.find("\ncpu family\t") != std::string::npos;
}

/// On other processors the kernel rates the cores by their capacity, 1024 for the fastest.
CoreClassification classifyByCapacity(const SystemRoot& root, const std::vector<int>& online) {
    std::map<std::uint64_t, std::vector<int>> cpusByCapacity;
    for (const int cpu : online) {
        const auto capacity =
            readSystemNumber(root.path(formatText("sys/devices/system/cpu/cpu%d/cpu_capacity", {cpu})));
        // Without the file for the first core there is none for the others.
        if (!capacity && cpusByCapacity.empty()) break;
        if (capacity) cpusByCapacity[*capacity].push_back(cpu);
    }
    if (cpusByCapacity.size() < 2) return {};
    const auto& [lowest, cpus] = *cpusByCapacity.begin();
    const std::uint64_t highest = cpusByCapacity.rbegin()->first;
    // Cores of one kind may be rated a little apart; another kind has at most 80 % of the highest rating.
    if (lowest * 5 > highest * 4) return {};
    return {.levelCount = static_cast<std::int32_t>(cpusByCapacity.size()), .efficiencyCpus = cpus};
}

}  // namespace

CoreClassification classifyCores(const SystemRoot& root) {
    const std::vector<int> online = onlineCpus(root);
    if (auto classification = classifyByUnit(root, online)) return *classification;
    if (isX86(root)) return {};
    return classifyByCapacity(root, online);
}

}  // namespace velmora
