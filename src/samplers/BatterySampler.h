#pragma once

#include "base/Date.h"
#include "platform/BatterySource.h"
#include "samplers/Samplers.h"

#include <vector>

namespace velmora {

class Clock;

/// The machine's battery, its low-power mode and, through a cache, the charge of wireless devices. A machine
/// without an internal battery reports none of these.
class BatterySampler final : public BatterySampling {
public:
    BatterySampler(BatterySource& source, const Clock& clock) : m_source(source), m_clock(clock) {}

    void sample(BatteryStats& stats) override;

    /// Replaces `list` with one row per name, sorted by name: of services with the same name the first.
    static void listPeripherals(const std::vector<PeripheralService>& services,
                                std::vector<PeripheralBattery>& list);

private:
    const PowerSource* findBattery();
    void refreshPeripherals();

    BatterySource& m_source;
    const Clock& m_clock;
    std::vector<PowerSource> m_sources;         ///< Of the last sample, for their storage.
    std::vector<PeripheralService> m_services;  ///< Likewise.
    std::vector<PeripheralBattery> m_peripheralsCache;
    Date m_peripheralsRefreshedAt = Date::distantPast();
};

}  // namespace velmora
