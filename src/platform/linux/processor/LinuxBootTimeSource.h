#pragma once

#include "platform/ProcessorSources.h"

#include <memory>

namespace velmora {

class StatFile;

/// The "btime" line of /proc/stat. It counts time in suspend, and follows when the clock is set.
class LinuxBootTimeSource final : public BootTimeSource {
public:
    explicit LinuxBootTimeSource(std::shared_ptr<StatFile> file);

    std::optional<std::int64_t> bootTimeSeconds() override;

private:
    std::shared_ptr<StatFile> m_file;
};

}  // namespace velmora
