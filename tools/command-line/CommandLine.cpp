#include "command-line/CommandLine.h"

#include <utility>

namespace velmora::CommandLine {

std::string takeModules(std::string_view list, std::vector<StatsModule>& modules) {
    std::vector<StatsModule> named;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const auto module = moduleFromRawValue(list.substr(begin, end - begin));
        if (!module) return "--modules needs names of cpu, memory, disk, network, sensors, battery";
        named.push_back(*module);
        begin = end + 1;
    }
    modules = std::move(named);
    return {};
}

}  // namespace velmora::CommandLine
