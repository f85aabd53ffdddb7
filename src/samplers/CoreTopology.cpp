#include "samplers/CoreTopology.h"

#include "platform/ProcessorSources.h"

#include <algorithm>

namespace velmora {

int CoreTopology::efficiencyCoreCount() {
    std::call_once(m_readOnce, [this] {
        const auto levels = m_levels.levelCount();
        if (!levels || *levels < 2) return;
        m_efficiencyCoreCount = std::max(m_levels.logicalCores(*levels - 1).value_or(0), 0);
    });
    return m_efficiencyCoreCount;
}

}  // namespace velmora
