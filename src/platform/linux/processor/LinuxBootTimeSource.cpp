#include "platform/linux/processor/LinuxBootTimeSource.h"

#include "platform/linux/files/StatFile.h"
#include "platform/linux/processor/ProcStat.h"

#include <utility>

namespace velmora {

LinuxBootTimeSource::LinuxBootTimeSource(std::shared_ptr<StatFile> file) : m_file(std::move(file)) {}

std::optional<std::int64_t> LinuxBootTimeSource::bootTimeSeconds() {
    const auto text = m_file->readOrReuse();
    if (!text) return std::nullopt;
    return ProcStat::parseBootTime(*text);
}

}  // namespace velmora
