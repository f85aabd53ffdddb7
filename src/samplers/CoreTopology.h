#pragma once

#include <mutex>

namespace velmora {

class PerformanceLevelSource;

/// What kinds of cores the machine has. Found out at first use and kept for the life of the process.
class CoreTopology {
public:
    explicit CoreTopology(PerformanceLevelSource& levels) : m_levels(levels) {}

    /// Logical cores of the last performance level, which is the slowest; 0 on a machine with one level, or
    /// where the levels cannot be read. Callable from any thread.
    int efficiencyCoreCount();

private:
    PerformanceLevelSource& m_levels;
    std::once_flag m_readOnce;
    int m_efficiencyCoreCount = 0;
};

}  // namespace velmora
