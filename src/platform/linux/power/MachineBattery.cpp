#include "platform/linux/power/MachineBattery.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

using Batteries = std::vector<const PowerSupply*>;
using Number = std::optional<std::int64_t> PowerSupply::*;

constexpr std::string_view kCharging = "Charging";
constexpr std::string_view kDischarging = "Discharging";
constexpr double kMicro = 1e6;

/// A capacity of nothing is not one.
bool has(const PowerSupply& battery, Number number) {
    return (battery.*number).value_or(0) > 0;
}

bool countsEnergy(const PowerSupply& battery) {
    return battery.energyNow >= 0 && has(battery, &PowerSupply::energyFull);
}

bool countsCharge(const PowerSupply& battery) {
    return battery.chargeNow >= 0 && has(battery, &PowerSupply::chargeFull);
}

std::optional<double> voltage(const PowerSupply& battery) {
    if (has(battery, &PowerSupply::voltageNow)) return static_cast<double>(*battery.voltageNow);
    if (has(battery, &PowerSupply::voltageMinDesign)) return static_cast<double>(*battery.voltageMinDesign);
    return std::nullopt;
}

/// The voltage that turns a charge into an energy: the one that it was measured at when new.
std::optional<double> chargeVoltage(const PowerSupply& battery) {
    if (has(battery, &PowerSupply::voltageMinDesign)) return static_cast<double>(*battery.voltageMinDesign);
    return voltage(battery);
}

/// µWh from a pair of attributes that mean the same in either unit.
std::optional<double> energy(const PowerSupply& battery, Number inEnergy, Number inCharge) {
    if (battery.*inEnergy >= 0) return static_cast<double>(*(battery.*inEnergy));
    const auto volts = chargeVoltage(battery);
    if (!(battery.*inCharge >= 0) || !volts) return std::nullopt;
    return static_cast<double>(*(battery.*inCharge)) * *volts / kMicro;
}

/// A ratio's two sides, in a unit that they share.
struct Ratio {
    double part = 0;
    double whole = 0;
};

void store(const std::optional<Ratio>& ratio, std::optional<std::int64_t>& part,
           std::optional<std::int64_t>& whole) {
    if (!ratio) return;
    part = std::llround(ratio->part);
    whole = std::llround(ratio->whole);
}

std::optional<Ratio> sumInOneUnit(const Batteries& batteries, Number part, Number whole) {
    Ratio sum;
    for (const PowerSupply* battery : batteries) {
        if (!(battery->*part >= 0) || !has(*battery, whole)) return std::nullopt;
        sum.part += static_cast<double>(*(battery->*part));
        sum.whole += static_cast<double>(*(battery->*whole));
    }
    return sum;
}

std::optional<Ratio> sumAsEnergies(const Batteries& batteries, Number partEnergy, Number partCharge,
                                   Number wholeEnergy, Number wholeCharge) {
    Ratio sum;
    for (const PowerSupply* battery : batteries) {
        const bool inEnergy = battery->*partEnergy >= 0 && has(*battery, wholeEnergy);
        const bool inCharge = battery->*partCharge >= 0 && has(*battery, wholeCharge);
        if (!inEnergy && !inCharge) return std::nullopt;
        const double unit = inEnergy ? 1 : chargeVoltage(*battery).value_or(0) / kMicro;
        if (unit <= 0) return std::nullopt;
        sum.part += unit * static_cast<double>(*(battery->*(inEnergy ? partEnergy : partCharge)));
        sum.whole += unit * static_cast<double>(*(battery->*(inEnergy ? wholeEnergy : wholeCharge)));
    }
    return sum;
}

std::optional<Ratio> sum(const Batteries& batteries, Number partEnergy, Number partCharge, Number wholeEnergy,
                         Number wholeCharge) {
    if (const auto energies = sumInOneUnit(batteries, partEnergy, wholeEnergy)) return energies;
    if (const auto charges = sumInOneUnit(batteries, partCharge, wholeCharge)) return charges;
    return sumAsEnergies(batteries, partEnergy, partCharge, wholeEnergy, wholeCharge);
}

/// Percentages, of which a battery that counts has one too.
std::optional<Ratio> meanPercentage(const Batteries& batteries) {
    Ratio mean;
    for (const PowerSupply* battery : batteries) {
        if (battery->capacity >= 0 && *battery->capacity <= 100) {
            mean.part += static_cast<double>(*battery->capacity);
        } else if (countsEnergy(*battery)) {
            mean.part +=
                100 * static_cast<double>(*battery->energyNow) / static_cast<double>(*battery->energyFull);
        } else if (countsCharge(*battery)) {
            mean.part +=
                100 * static_cast<double>(*battery->chargeNow) / static_cast<double>(*battery->chargeFull);
        } else {
            return std::nullopt;
        }
        mean.whole += 100;
    }
    return mean;
}

/// mA with the sign that the status says.
std::optional<double> signedCurrent(const PowerSupply& battery) {
    constexpr double kResting = 5;
    std::optional<double> current;
    if (battery.currentNow) {
        current = static_cast<double>(*battery.currentNow) / 1000;
    } else if (const auto volts = voltage(battery); battery.powerNow && volts) {
        current = static_cast<double>(*battery.powerNow) * 1000 / *volts;
    }
    if (!current) return std::nullopt;
    if (battery.status == kDischarging) return -std::abs(*current);
    if (battery.status == kCharging) return std::abs(*current);
    return std::abs(*current) < kResting ? 0 : *current;
}

void storePower(const Batteries& batteries, SmartBattery& smart) {
    struct Flow {
        double current = 0;
        double volts = 0;
    };
    std::vector<Flow> flows;
    for (const PowerSupply* battery : batteries) {
        const auto volts = voltage(*battery);
        const auto current = signedCurrent(*battery);
        if (volts && current) flows.push_back({*current, *volts});
    }
    if (flows.empty()) return;
    const auto watts = [](const Flow& flow) { return std::abs(flow.current * flow.volts); };
    const Flow main = *std::ranges::max_element(flows, {}, watts);
    // As much current at the voltage of the battery at work as carries the power of all.
    double current = 0;
    for (const Flow& flow : flows) current += flow.current * (flow.volts / main.volts);
    smart.instantAmperage = std::llround(current);
    smart.voltage = std::llround(main.volts / 1000);
}

/// Minutes in which this energy flows at the present power of all batteries; nothing for more than ten days.
std::optional<std::int64_t> minutes(double microWattHours, double microWatts) {
    constexpr double kLongest = 10 * 24 * 60;
    if (!(microWatts > 0) || microWattHours < 0) return std::nullopt;
    const double result = 60 * microWattHours / microWatts;
    return result <= kLongest ? std::optional<std::int64_t>(std::llround(std::floor(result))) : std::nullopt;
}

void storeTimes(const Batteries& batteries, PowerSource& source) {
    double now = 0;
    double full = 0;
    double power = 0;
    for (const PowerSupply* battery : batteries) {
        const auto ownNow = energy(*battery, &PowerSupply::energyNow, &PowerSupply::chargeNow);
        const auto ownFull = energy(*battery, &PowerSupply::energyFull, &PowerSupply::chargeFull);
        const auto current = signedCurrent(*battery);
        // The voltage that made the charge an energy must make the current a power.
        const auto volts = countsEnergy(*battery) ? voltage(*battery) : chargeVoltage(*battery);
        if (!ownNow || !ownFull || !current || !volts) return;
        now += *ownNow;
        full += *ownFull;
        power += *current * *volts / 1000;
    }
    if (source.isCharging == true) {
        source.timeToFullCharge = minutes(full - now, power);
    } else {
        source.timeToEmpty = minutes(now, -power);
    }
}

bool isOnOutsidePower(const std::vector<PowerSupply>& supplies, const Batteries& batteries) {
    bool isKnown = false;
    for (const PowerSupply& supply : supplies) {
        if (!supply.isOutsideSupply() || !supply.online) continue;
        // 2 is "online" with a voltage that was negotiated.
        if (*supply.online >= 1) return true;
        isKnown = true;
    }
    return !isKnown && std::ranges::none_of(batteries, [](const PowerSupply* battery) {
        return battery->status == kDischarging;
    });
}

}  // namespace

std::optional<MachineBattery> machineBattery(const std::vector<PowerSupply>& supplies) {
    Batteries batteries;
    for (const PowerSupply& supply : supplies) {
        if (supply.isMachineBattery()) batteries.push_back(&supply);
    }
    if (batteries.empty()) return std::nullopt;

    MachineBattery machine;
    PowerSource& source = machine.source;
    source.isInternalBattery = true;
    auto charge = sum(batteries, &PowerSupply::energyNow, &PowerSupply::chargeNow, &PowerSupply::energyFull,
                      &PowerSupply::chargeFull);
    if (!charge) charge = meanPercentage(batteries);
    store(charge, source.currentCapacity, source.maxCapacity);
    source.isCharging = std::ranges::any_of(
        batteries, [](const PowerSupply* battery) { return battery->status == kCharging; });
    source.isOnACPower = isOnOutsidePower(supplies, batteries);
    storeTimes(batteries, source);

    SmartBattery& smart = machine.smart;
    store(sum(batteries, &PowerSupply::energyFull, &PowerSupply::chargeFull, &PowerSupply::energyFullDesign,
              &PowerSupply::chargeFullDesign),
          smart.nominalChargeCapacity, smart.designCapacity);
    if (smart.nominalChargeCapacity == 0) smart.nominalChargeCapacity.reset();
    for (const PowerSupply* battery : batteries) {
        if (has(*battery, &PowerSupply::cycleCount))
            smart.cycleCount = std::max(smart.cycleCount, battery->cycleCount);
        if (battery->temperature)
            smart.temperature = std::max(smart.temperature, std::optional(*battery->temperature * 10));
    }
    storePower(batteries, smart);
    return machine;
}

std::vector<PeripheralService> peripheralServices(const std::vector<PowerSupply>& supplies) {
    std::vector<PeripheralService> services;
    for (const PowerSupply& supply : supplies) {
        if (supply.scope != "Device" || !supply.isThere()) continue;
        PeripheralService service{.batteryPercent = supply.capacity, .product = std::nullopt};
        if (!supply.modelName.empty()) service.product = supply.modelName;
        services.push_back(std::move(service));
    }
    return services;
}

}  // namespace velmora
