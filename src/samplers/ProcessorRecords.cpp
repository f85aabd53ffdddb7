#include "samplers/ProcessorRecords.h"

#include "base/FormatText.h"

#include <nlohmann/json.hpp>

#include <cstring>
#include <limits>

namespace velmora::ProcessorRecords {

bool decodeCoreTicks(std::span<const std::uint32_t> words, std::size_t coreCount,
                     std::vector<CoreTicks>& cores) {
    constexpr std::size_t kWordsPerCore = 4;
    cores.clear();
    if (coreCount > words.size() / kWordsPerCore) return false;
    for (std::size_t core = 0; core < coreCount; ++core) {
        const auto ticks = words.subspan(core * kWordsPerCore, kWordsPerCore);
        cores.push_back({.user = ticks[0], .system = ticks[1], .idle = ticks[2], .nice = ticks[3]});
    }
    return true;
}

std::optional<std::int64_t> decodeBootTime(std::span<const std::byte> timeval) {
    constexpr std::size_t kTimevalSize = 16;
    if (timeval.size() < kTimevalSize) return std::nullopt;
    std::int64_t seconds = 0;
    std::memcpy(&seconds, timeval.data(), sizeof seconds);
    return seconds;
}

std::optional<TaskThreadCounts> decodeLoadInfo(std::span<const std::int32_t> words) {
    constexpr std::size_t kWords = 4;
    if (words.size() < kWords) return std::nullopt;
    return TaskThreadCounts{words[0], words[1]};
}

std::string performanceLevelName(std::int32_t level) {
    return formatText("hw.perflevel%d.logicalcpu", {level});
}

std::optional<int> acceleratorUtilization(const nlohmann::json& properties) {
    if (!properties.is_object()) return std::nullopt;
    const auto statistics = properties.find("PerformanceStatistics");
    if (statistics == properties.end() || !statistics->is_object()) return std::nullopt;
    const auto utilization = statistics->find("Device Utilization %");
    if (utilization == statistics->end() || !utilization->is_number_integer()) return std::nullopt;
    if (utilization->is_number_unsigned() &&
        utilization->get<std::uint64_t>() > std::uint64_t{std::numeric_limits<int>::max()}) {
        return std::nullopt;
    }
    const auto percent = utilization->get<std::int64_t>();
    if (percent < std::numeric_limits<int>::min() || percent > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(percent);
}

}  // namespace velmora::ProcessorRecords
