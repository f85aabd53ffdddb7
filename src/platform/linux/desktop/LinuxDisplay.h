#pragma once

#include "platform/Display.h"
#include "platform/linux/files/SystemRoot.h"

#include <string>

namespace velmora {

/// The screens that the kernel drives, from the connectors below /sys/class/drm. Reading them probes no
/// hardware.
class LinuxDisplay final : public Display {
public:
    explicit LinuxDisplay(const SystemRoot& root = SystemRoot());

    /// True if at least one screen is connected and each of them is switched off, or disabled as the panel of
    /// a closed laptop is.
    bool isAsleep() const override;

private:
    std::string m_connectors;
};

}  // namespace velmora
