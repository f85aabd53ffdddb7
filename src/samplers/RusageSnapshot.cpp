#include "samplers/RusageSnapshot.h"

#include "samplers/ProcessRecords.h"
#include "samplers/TopProcessSampler.h"

#include <vector>

namespace velmora {

RusageSnapshot::Entries RusageSnapshot::take(ProcessCounterSource& source) {
    Entries entries;
    std::vector<std::int32_t> buffer(ProcessRecords::kFixedBufferEntries);
    const std::int32_t result = source.listAll(buffer);
    for (const std::int32_t pid : ProcessRecords::idsByByteCount(result, buffer)) {
        if (pid <= 0) continue;
        const auto counters = source.counters(pid);
        if (!counters) continue;
        entries.insert_or_assign(
            pid, RusageEntry{counters->diskRead, counters->diskWritten, counters->billedEnergy,
                             TopProcessSampler::processName(source.name(pid))});
    }
    return entries;
}

}  // namespace velmora
