#include "platform/linux/processor/LinuxPerformanceLevelSource.h"

namespace velmora {

LinuxPerformanceLevelSource::LinuxPerformanceLevelSource(const CoreClassification& classification)
    : m_levelCount(classification.levelCount),
      m_efficiencyCores(static_cast<std::int32_t>(classification.efficiencyCpus.size())) {}

std::optional<std::int32_t> LinuxPerformanceLevelSource::logicalCores(std::int32_t level) {
    if (m_levelCount < 2 || level != m_levelCount - 1) return std::nullopt;
    return m_efficiencyCores;
}

}  // namespace velmora
