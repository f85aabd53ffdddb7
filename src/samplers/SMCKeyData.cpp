#include "samplers/SMCKeyData.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace velmora {
namespace {

// Where the fields lie in the record.
constexpr std::size_t kKey = 0;
constexpr std::size_t kDataSize = 28;
constexpr std::size_t kDataType = 32;
constexpr std::size_t kDataAttributes = 36;
constexpr std::size_t kResult = 37;
constexpr std::size_t kStatus = 38;
constexpr std::size_t kData8 = 39;
constexpr std::size_t kData32 = 40;
constexpr std::size_t kBytes = 44;

template <typename Field>
void put(ControllerRecord& record, std::size_t offset, const Field& field) {
    std::memcpy(record.data() + offset, &field, sizeof field);
}

template <typename Field>
void take(const ControllerRecord& record, std::size_t offset, Field& field) {
    std::memcpy(&field, record.data() + offset, sizeof field);
}

std::uint32_t bigEndian(std::span<const std::byte> bytes) {
    std::uint32_t number = 0;
    for (const std::byte each : bytes) number = number << 8 | std::to_integer<std::uint32_t>(each);
    return number;
}

}  // namespace

std::uint32_t fourCC(std::string_view key) {
    return bigEndian(std::as_bytes(std::span(key.substr(0, 4))));
}

std::uint32_t SMCValue::integer() const {
    return bigEndian(std::span(bytes).first(std::min<std::size_t>(info.dataSize, 4)));
}

std::optional<double> SMCValue::speed() const {
    if (info.dataType == fourCC("fpe2")) return bigEndian(std::span(bytes).first(2)) * 0.25;
    if (info.dataType == fourCC("flt ")) {
        float speed = 0;
        std::memcpy(&speed, bytes.data(), sizeof speed);
        return static_cast<double>(speed);
    }
    return std::nullopt;
}

ControllerRecord SMCKeyData::encoded() const {
    ControllerRecord record{};
    put(record, kKey, key);
    put(record, kDataSize, keyInfo.dataSize);
    put(record, kDataType, keyInfo.dataType);
    put(record, kDataAttributes, keyInfo.dataAttributes);
    put(record, kResult, result);
    put(record, kStatus, status);
    put(record, kData8, data8);
    put(record, kData32, data32);
    put(record, kBytes, bytes);
    return record;
}

SMCKeyData SMCKeyData::decoded(const ControllerRecord& record) {
    SMCKeyData data;
    take(record, kKey, data.key);
    take(record, kDataSize, data.keyInfo.dataSize);
    take(record, kDataType, data.keyInfo.dataType);
    take(record, kDataAttributes, data.keyInfo.dataAttributes);
    take(record, kResult, data.result);
    take(record, kStatus, data.status);
    take(record, kData8, data.data8);
    take(record, kData32, data.data32);
    take(record, kBytes, data.bytes);
    return data;
}

}  // namespace velmora
