#include "samplers/BatteryRecords.h"

#include <nlohmann/json.hpp>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr bool kAllowExceptions = false;
    const auto dictionary = nlohmann::json::parse(data, data + size, nullptr, kAllowExceptions);
    velmora::BatteryRecords::decodePowerSource(dictionary);
    velmora::BatteryRecords::decodeSmartBattery(dictionary);
    velmora::BatteryRecords::decodePeripheral(dictionary);
    return 0;
}
