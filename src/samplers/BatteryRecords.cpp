#include "samplers/BatteryRecords.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace velmora::BatteryRecords {
namespace {

using nlohmann::json;

const json* entry(const json& dictionary, const char* key) {
    const auto found = dictionary.find(key);
    return found == dictionary.end() ? nullptr : &*found;
}

std::optional<std::int64_t> integer(const json& dictionary, const char* key) {
    const json* value = entry(dictionary, key);
    if (value == nullptr || !value->is_number_integer()) return std::nullopt;
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (value->is_number_unsigned() && value->get<std::uint64_t>() > kLargest) return std::nullopt;
    return value->get<std::int64_t>();
}

std::optional<bool> boolean(const json& dictionary, const char* key) {
    const json* value = entry(dictionary, key);
    if (value == nullptr || !value->is_boolean()) return std::nullopt;
    return value->get<bool>();
}

std::optional<std::string> text(const json& dictionary, const char* key) {
    const json* value = entry(dictionary, key);
    if (value == nullptr || !value->is_string()) return std::nullopt;
    return value->get<std::string>();
}

}  // namespace

std::optional<PowerSource> decodePowerSource(const json& description) {
    if (!description.is_object()) return std::nullopt;
    return PowerSource{
        .isInternalBattery = text(description, "Type") == "InternalBattery",
        .currentCapacity = integer(description, "Current Capacity"),
        .maxCapacity = integer(description, "Max Capacity"),
        .isCharging = boolean(description, "Is Charging"),
        .isOnACPower = text(description, "Power Source State") == "AC Power",
        .timeToEmpty = integer(description, "Time to Empty"),
        .timeToFullCharge = integer(description, "Time to Full Charge"),
    };
}

std::optional<SmartBattery> decodeSmartBattery(const json& properties) {
    if (!properties.is_object()) return std::nullopt;
    return SmartBattery{
        .cycleCount = integer(properties, "CycleCount"),
        .nominalChargeCapacity = integer(properties, "NominalChargeCapacity"),
        .designCapacity = integer(properties, "DesignCapacity"),
        .instantAmperage = integer(properties, "InstantAmperage"),
        .amperage = integer(properties, "Amperage"),
        .voltage = integer(properties, "Voltage"),
        .temperature = integer(properties, "Temperature"),
    };
}

std::optional<PeripheralService> decodePeripheral(const json& properties) {
    if (!properties.is_object()) return std::nullopt;
    return PeripheralService{
        .batteryPercent = integer(properties, "BatteryPercent"),
        .product = text(properties, "Product"),
    };
}

}  // namespace velmora::BatteryRecords
