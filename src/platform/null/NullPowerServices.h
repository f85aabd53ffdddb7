#pragma once

#include "platform/PowerDeviceService.h"
#include "platform/PowerProfileService.h"

// A desktop without services for power.

namespace velmora {

class NullPowerDeviceService final : public PowerDeviceService {
public:
    State state() override { return State::absent; }
    const PowerDevices& devices() override { return m_none; }

private:
    const PowerDevices m_none = {};
};

class NullPowerProfileService final : public PowerProfileService {
public:
    std::optional<std::string_view> activeProfile() override { return std::nullopt; }
};

}  // namespace velmora
