#include "samplers/DiskRecords.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

namespace velmora::DiskRecords {
namespace {

using nlohmann::json;

const json* member(const json& dictionary, std::string_view key) {
    if (!dictionary.is_object()) return nullptr;
    const auto entry = dictionary.find(key);
    return entry == dictionary.end() ? nullptr : &*entry;
}

const json* statisticsOf(const json& properties) {
    const json* const statistics = member(properties, "Statistics");
    return statistics && statistics->is_object() ? statistics : nullptr;
}

std::uint64_t counterIn(const json& statistics, std::string_view key) {
    const json* const value = member(statistics, key);
    if (!value || !value->is_number_integer()) return 0;
    if (!value->is_number_unsigned() && value->get<std::int64_t>() < 0) return 0;
    return value->get<std::uint64_t>();
}

}  // namespace

MediaKeys mediaKeys(MediaClass mediaClass) {
    switch (mediaClass) {
        case MediaClass::apfsVolume:
            return {"AppleAPFSVolume", "Bytes read from block device", "Bytes written to block device"};
        case MediaClass::media:
            return {"IOMedia", "Bytes (Read)", "Bytes (Write)"};
    }
    return {};
}

std::optional<BlockDriverCounters> decodeBlockDriver(const json& properties) {
    const json* const statistics = statisticsOf(properties);
    if (!statistics) return std::nullopt;
    return BlockDriverCounters{.readBytes = counterIn(*statistics, "Bytes (Read)"),
                               .writeBytes = counterIn(*statistics, "Bytes (Write)"),
                               .readOperations = counterIn(*statistics, "Operations (Read)"),
                               .writeOperations = counterIn(*statistics, "Operations (Write)")};
}

std::optional<MediaCounters> decodeMedia(const json& properties, const MediaKeys& keys) {
    const json* const name = member(properties, "BSD Name");
    const json* const statistics = statisticsOf(properties);
    if (!name || !name->is_string() || !statistics) return std::nullopt;
    return MediaCounters{.bsdName = name->get<std::string>(),
                         .readBytes = counterIn(*statistics, keys.readKey),
                         .writeBytes = counterIn(*statistics, keys.writeKey)};
}

}  // namespace velmora::DiskRecords
