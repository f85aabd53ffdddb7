#pragma once

#include "platform/ProcessorSources.h"
#include "platform/linux/processor/CoreClassification.h"

namespace velmora {

/// The kinds of cores, found out beforehand. Only the slowest kind's cores are counted; nobody asks for those
/// of another.
class LinuxPerformanceLevelSource final : public PerformanceLevelSource {
public:
    explicit LinuxPerformanceLevelSource(const CoreClassification& classification);

    std::optional<std::int32_t> levelCount() override { return m_levelCount; }
    std::optional<std::int32_t> logicalCores(std::int32_t level) override;

private:
    std::int32_t m_levelCount;
    std::int32_t m_efficiencyCores;
};

}  // namespace velmora
