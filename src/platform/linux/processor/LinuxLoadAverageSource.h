#pragma once

#include "platform/ProcessorSources.h"
#include "platform/linux/files/KeptFile.h"

#include <optional>

namespace velmora {

class SystemRoot;

/// `getloadavg` of the running system, or /proc/loadavg of a captured one.
class LinuxLoadAverageSource final : public LoadAverageSource {
public:
    explicit LinuxLoadAverageSource(const SystemRoot& root);

    LoadAverage read() override;

private:
    std::optional<KeptFile> m_captured;
};

}  // namespace velmora
