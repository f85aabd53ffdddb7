#pragma once

#include "model/StatsModule.h"

#include <string_view>

namespace velmora {

/// The name of the symbol that stands for the module in lists and headers.
constexpr std::string_view symbolName(StatsModule module) {
    switch (module) {
        case StatsModule::cpu:
            return "cpu.fill";
        case StatsModule::memory:
            return "memorychip.fill";
        case StatsModule::disk:
            return "internaldrive.fill";
        case StatsModule::network:
            return "arrow.up.arrow.down";
        case StatsModule::sensors:
            return "thermometer.medium";
        case StatsModule::battery:
            return "battery.75percent";
    }
    return {};
}

}  // namespace velmora
