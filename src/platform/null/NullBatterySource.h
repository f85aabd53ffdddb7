#pragma once

#include "platform/BatterySource.h"

namespace velmora {

/// A machine without a battery.
class NullBatterySource final : public BatterySource {
public:
    bool powerSources(std::vector<PowerSource>&) override { return false; }
    std::optional<SmartBattery> smartBattery() override { return std::nullopt; }
    bool isLowPowerModeEnabled() override { return false; }
    Answer peripherals(std::vector<PeripheralService>&) override { return Answer::failed; }
};

}  // namespace velmora
