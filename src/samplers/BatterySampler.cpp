#include "samplers/BatterySampler.h"

#include "platform/Clock.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {
namespace {

/// How long a list of wireless devices serves, in seconds.
constexpr double kPeripheralsAge = 30;

/// A record may claim any 64-bit number; a figure holds no more than an `int`.
std::optional<int> fitting(std::optional<std::int64_t> number) {
    if (!number || *number > std::numeric_limits<int>::max() || *number < std::numeric_limits<int>::min())
        return std::nullopt;
    return static_cast<int>(*number);
}

int chargePercent(const PowerSource& battery) {
    const auto current = static_cast<double>(battery.currentCapacity.value_or(0));
    const auto maximum = static_cast<double>(battery.maxCapacity.value_or(100));
    if (maximum <= 0) return 0;
    const double percent = std::round(current / maximum * 100);
    return static_cast<int>(
        std::clamp<double>(percent, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

std::optional<int> minutesRemaining(const PowerSource& battery) {
    const auto minutes =
        fitting(battery.isCharging.value_or(false) ? battery.timeToFullCharge : battery.timeToEmpty);
    return minutes && *minutes >= 1 ? minutes : std::nullopt;
}

std::optional<double> healthOf(const SmartBattery& battery) {
    if (!battery.nominalChargeCapacity || !battery.designCapacity || *battery.designCapacity < 1)
        return std::nullopt;
    return static_cast<double>(*battery.nominalChargeCapacity) / static_cast<double>(*battery.designCapacity);
}

std::optional<double> powerOf(const SmartBattery& battery) {
    /// No battery of a portable machine comes near this many watts: such a figure is a bad read.
    constexpr double kImpossibleWatts = 250;
    const auto current = battery.instantAmperage ? battery.instantAmperage : battery.amperage;
    if (!current || !battery.voltage || *battery.voltage < 1) return std::nullopt;
    const double watts = static_cast<double>(*current) * static_cast<double>(*battery.voltage) / 1'000'000;
    return std::abs(watts) < kImpossibleWatts ? std::optional(watts) : std::nullopt;
}

std::optional<double> temperatureOf(const SmartBattery& battery) {
    if (!battery.temperature) return std::nullopt;
    const double celsius = static_cast<double>(*battery.temperature) / 100;
    return celsius < 0 || celsius > 80 ? std::nullopt : std::optional(celsius);
}

}  // namespace

void BatterySampler::sample(BatteryStats& stats) {
    const PowerSource* battery = findBattery();
    stats.present = battery != nullptr;
    stats.percent = battery ? chargePercent(*battery) : 0;
    stats.isCharging = battery && battery->isCharging.value_or(false);
    stats.isPluggedIn = battery && battery->isOnACPower;
    stats.timeRemainingMinutes = battery ? minutesRemaining(*battery) : std::nullopt;

    const auto smart = battery ? m_source.smartBattery() : std::nullopt;
    stats.cycleCount = smart ? fitting(smart->cycleCount) : std::nullopt;
    stats.health = smart ? healthOf(*smart) : std::nullopt;
    stats.powerWatts = smart ? powerOf(*smart) : std::nullopt;
    stats.temperature = smart ? temperatureOf(*smart) : std::nullopt;

    stats.lowPowerMode = battery && m_source.isLowPowerModeEnabled();
    if (battery) {
        refreshPeripherals();
        stats.peripherals = m_peripheralsCache;
    } else {
        stats.peripherals.clear();
    }
}

const PowerSource* BatterySampler::findBattery() {
    m_sources.clear();
    if (!m_source.powerSources(m_sources)) return nullptr;
    const auto found = std::ranges::find_if(m_sources, &PowerSource::isInternalBattery);
    return found == m_sources.end() ? nullptr : &*found;
}

void BatterySampler::refreshPeripherals() {
    const Date now = m_clock.now();
    if (now - m_peripheralsRefreshedAt <= kPeripheralsAge) return;
    m_services.clear();
    switch (m_source.peripherals(m_services)) {
        case BatterySource::Answer::given:
            break;
        case BatterySource::Answer::failed:
            m_services.clear();
            break;
        case BatterySource::Answer::notYet:
            // Keeping an empty list for half a minute would hide what is known a moment later.
            m_peripheralsCache.clear();
            return;
    }
    listPeripherals(m_services, m_peripheralsCache);
    m_peripheralsRefreshedAt = now;
}

void BatterySampler::listPeripherals(const std::vector<PeripheralService>& services,
                                     std::vector<PeripheralBattery>& list) {
    list.clear();
    for (const PeripheralService& service : services) {
        if (!service.batteryPercent || *service.batteryPercent < 0 || *service.batteryPercent > 100) continue;
        if (!service.product) continue;
        if (std::ranges::find(list, *service.product, &PeripheralBattery::name) != list.end()) continue;
        list.push_back({*service.product, static_cast<int>(*service.batteryPercent)});
    }
    std::ranges::stable_sort(list, {}, &PeripheralBattery::name);
}

}  // namespace velmora
