#include "platform/linux/processor/CpuList.h"

#include "base/ParseNumber.h"

#include <algorithm>

namespace velmora {
namespace {

/// The kernel's own limit (CONFIG_NR_CPUS) is 8192.
constexpr int kLargestCpu = 65535;

}  // namespace

std::optional<std::vector<int>> parseCpuList(std::string_view text) {
    std::vector<int> cpus;
    std::string_view list = nextField(text = text.substr(0, text.find('\n')));
    if (!nextField(text).empty()) return std::nullopt;
    while (!list.empty()) {
        const auto length = std::min(list.find(','), list.size());
        const std::string_view range = list.substr(0, length);
        list.remove_prefix(length);
        if (!list.empty()) {
            list.remove_prefix(1);
            if (list.empty()) return std::nullopt;
        }
        const auto dash = range.find('-');
        const auto first = parseNumber<int>(range.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : parseNumber<int>(range.substr(dash + 1));
        if (!first || !last || *first < 0 || *last < *first || *last > kLargestCpu) return std::nullopt;
        if (cpus.size() > static_cast<std::size_t>(kLargestCpu)) return std::nullopt;
        for (int cpu = *first; cpu <= *last; ++cpu) cpus.push_back(cpu);
    }
    std::ranges::sort(cpus);
    cpus.erase(std::unique(cpus.begin(), cpus.end()), cpus.end());
    return cpus;
}

}  // namespace velmora
