#include "core/CPUStage.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr double kLongPeriod = 5.0;
constexpr double kCorePeriod = 15.0;

}  // namespace

void CPUStage::sample(Date now, std::optional<double> gpu, std::span<const TemperatureReading> groups,
                      CPUStats& stats) {
    m_cpu.sample(m_figures);
    stats.usage = m_figures.usage;
    stats.user = m_figures.user;
    stats.system = m_figures.system;
    stats.perCore = m_figures.perCore;
    stats.efficiencyCoreCount = std::min(static_cast<int>(stats.perCore.size()), m_cpu.efficiencyCoreCount());
    stats.loadAvg = m_cpu.loadAverage();
    stats.uptime = m_cpu.uptime();

    const auto group = std::ranges::find(groups, TempCategory::cpu, &TemperatureReading::category);
    stats.temperature = group != groups.end() ? group->celsius : m_temperature.cpuTemperature();
    stats.gpuUsage = gpu;

    stats.history.append(stats.usage);
    stats.userHistory.append(stats.user);
    stats.systemHistory.append(stats.system);
    if (gpu) stats.gpuHistory.append(*gpu);
    if (now - m_longSampledAt >= kLongPeriod) {
        m_longSampledAt = now;
        stats.userLong.append(stats.user);
        stats.systemLong.append(stats.system);
        stats.loadLong.append(stats.loadAvg.one);
        if (gpu) stats.gpuLong.append(*gpu);
    }
    if (!stats.perCore.empty() && now - m_coreSampledAt >= kCorePeriod) {
        m_coreSampledAt = now;
        stats.perCoreLong.append(stats.perCore);
    }

    if (const auto counts = m_cpu.taskThreadCounts()) {
        stats.taskCount = counts->tasks;
        stats.threadCount = counts->threads;
    }
}

}  // namespace velmora
