#include "samplers/NetworkRecords.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmora;
    const auto bytes = std::as_bytes(std::span(data, size));
    std::vector<InterfaceCounters> interfaces;
    NetworkRecords::decodeInterfaceList(bytes, interfaces);
    NetworkRecords::decodeLinkAddress(bytes);
    NetworkRecords::decodeBaudRate(bytes);
    const auto value = nlohmann::json::parse(data, data + size, nullptr, false);
    NetworkRecords::decodeGlobalIPv4(value);
    NetworkRecords::decodeNameServers(value);
    NetworkRecords::decodeProxySettings(value);
    return 0;
}
