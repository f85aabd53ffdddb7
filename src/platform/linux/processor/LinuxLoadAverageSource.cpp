#include "platform/linux/processor/LinuxLoadAverageSource.h"

#include "platform/linux/files/SystemRoot.h"
#include "platform/linux/processor/ProcLoadAverage.h"

#include <array>

#include <stdlib.h>

namespace velmora {

LinuxLoadAverageSource::LinuxLoadAverageSource(const SystemRoot& root) {
    if (!root.isRunningSystem()) m_captured.emplace(root.path("proc/loadavg"));
}

LoadAverage LinuxLoadAverageSource::read() {
    if (m_captured) {
        const auto text = m_captured->read();
        const auto parsed = text ? parseProcLoadAverage(*text) : std::nullopt;
        return parsed ? parsed->load : LoadAverage{};
    }
    std::array<double, 3> averages{};
    if (::getloadavg(averages.data(), static_cast<int>(averages.size())) < 0) return {};
    return {averages[0], averages[1], averages[2]};
}

}  // namespace velmora
