#pragma once

#include "platform/ProcessorSources.h"
#include "platform/linux/processor/ProcStat.h"

#include <memory>
#include <vector>

namespace velmora {

class StatFile;

/// The core lines of /proc/stat as counters that never fall.
///
/// The kernel's own counters do fall, and a reader that takes wrapping differences would see four billion
/// idle ticks. So what is handed out are accumulators: each grows by what its core's counter grew. A small
/// fall adds nothing; a fall by more than a second's ticks means that the counters started anew, and then
/// nothing of that core's line is added.
class LinuxProcessorTicksSource final : public ProcessorTicksSource {
public:
    /// `efficiencyCpus`, ascending CPU numbers, come first in what is read.
    LinuxProcessorTicksSource(std::shared_ptr<StatFile> file, std::vector<int> efficiencyCpus);

    bool read(std::vector<CoreTicks>& cores) override;

private:
    /// Puts `m_read` into the order in which the cores are handed out.
    void putEfficiencyCoresFirst();
    /// The counters of the same CPU at the last read; null if it had no line then.
    const ProcStat::CoreTimes* lastTimesOf(const ProcStat::CoreTimes& times, std::size_t position) const;

    std::shared_ptr<StatFile> m_file;
    std::vector<int> m_efficiencyCpus;
    std::vector<ProcStat::CoreTimes> m_read;
    std::vector<ProcStat::CoreTimes> m_ordered;
    std::vector<ProcStat::CoreTimes> m_last;  ///< In the order handed out.
    std::vector<CoreTicks> m_accumulators;    ///< By position: a set of CPUs may change and keep its size.
};

}  // namespace velmora
