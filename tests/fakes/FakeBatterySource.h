#pragma once

#include "platform/BatterySource.h"

#include <optional>
#include <vector>

namespace velmora {

class FakeBatterySource final : public BatterySource {
public:
    bool powerSources(std::vector<PowerSource>& into) override {
        if (listFails) return false;
        into = sources;
        return true;
    }
    std::optional<SmartBattery> smartBattery() override {
        ++smartBatteryReads;
        return smart;
    }
    bool isLowPowerModeEnabled() override {
        ++lowPowerReads;
        return lowPower;
    }
    Answer peripherals(std::vector<PeripheralService>& into) override {
        ++peripheralReads;
        into = services;
        return answer;
    }

    bool listFails = false;
    std::vector<PowerSource> sources;
    std::optional<SmartBattery> smart;
    bool lowPower = false;
    Answer answer = Answer::given;
    std::vector<PeripheralService> services;
    int smartBatteryReads = 0;
    int lowPowerReads = 0;
    int peripheralReads = 0;
};

}  // namespace velmora
