#include "model/StatsModule.h"

namespace velmora {
namespace {

struct ModuleNames {
    std::string_view raw;
    std::string_view label;
};

constexpr std::array<ModuleNames, kModuleCount> kNames = {{
    {"cpu", "CPU"},
    {"memory", "MEM"},
    {"disk", "DSK"},
    {"network", "NET"},
    {"sensors", "SEN"},
    {"battery", "BAT"},
}};

constexpr ModuleMetric kCPUMetrics[] = {
    {"cores", "metric.cores"}, {"load", "metric.load"}, {"gpu", "metric.gpu"}, {"top", "metric.top"}};
constexpr ModuleMetric kMemoryMetrics[] = {{"breakdown", "metric.breakdown"},
                                           {"swap", "metric.swap"},
                                           {"pageio", "metric.pageio"},
                                           {"top", "metric.top"}};
constexpr ModuleMetric kDiskMetrics[] = {
    {"volumes", "metric.volumes"}, {"activity", "metric.activity"}, {"top", "metric.top"}};
constexpr ModuleMetric kNetworkMetrics[] = {
    {"localIP", "metric.localIP"}, {"totals", "metric.totals"}, {"top", "metric.top"}};
constexpr ModuleMetric kSensorsMetrics[] = {{"temperatures", "metric.temperatures"}, {"fans", "metric.fans"}};
constexpr ModuleMetric kBatteryMetrics[] = {{"cycles", "metric.cycles"},
                                            {"health", "metric.health"},
                                            {"temperature", "metric.temperature"},
                                            {"peripherals", "metric.peripherals"},
                                            {"energy", "metric.energy"}};

}  // namespace

std::string_view rawValue(StatsModule module) {
    return kNames[indexOf(module)].raw;
}

std::optional<StatsModule> moduleFromRawValue(std::string_view raw) {
    for (const StatsModule module : kAllModules) {
        if (rawValue(module) == raw) return module;
    }
    return std::nullopt;
}

std::string_view shortLabel(StatsModule module) {
    return kNames[indexOf(module)].label;
}

std::span<const ModuleMetric> metrics(StatsModule module) {
    switch (module) {
        case StatsModule::cpu:
            return kCPUMetrics;
        case StatsModule::memory:
            return kMemoryMetrics;
        case StatsModule::disk:
            return kDiskMetrics;
        case StatsModule::network:
            return kNetworkMetrics;
        case StatsModule::sensors:
            return kSensorsMetrics;
        case StatsModule::battery:
            return kBatteryMetrics;
    }
    return {};
}

}  // namespace velmora
