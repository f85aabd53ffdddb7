#pragma once

#include "platform/PowerDeviceService.h"
#include "platform/PowerProfileService.h"

#include <optional>
#include <string>

namespace velmora {

class FakePowerDeviceService final : public PowerDeviceService {
public:
    State state() override { return current; }
    const PowerDevices& devices() override { return told; }

    State current = State::absent;
    PowerDevices told;
};

class FakePowerProfileService final : public PowerProfileService {
public:
    std::optional<std::string_view> activeProfile() override {
        if (!profile) return std::nullopt;
        return *profile;
    }

    std::optional<std::string> profile;
};

}  // namespace velmora
