#include "samplers/ControllerFans.h"

#include "base/FormatText.h"

namespace velmora {
namespace {

constexpr std::uint32_t kMostFans = 15;
/// The one method that takes and gives a record.
constexpr std::uint32_t kHandleRecord = 2;

}  // namespace

void ControllerFans::read(std::vector<std::optional<double>>& speeds) {
    speeds.clear();
    if (m_connection.connection() == 0) return;
    const auto count = readInt("FNum");
    if (!count || *count < 1 || *count > kMostFans) return;
    for (std::uint32_t fan = 0; fan < *count; ++fan) {
        // From the tenth fan on the key is longer than the four characters that count, and reads what those
        // give.
        const auto value = readBytes(formatText("F%uAc", {fan}));
        speeds.push_back(value ? value->speed() : std::nullopt);
    }
}

std::optional<std::uint32_t> ControllerFans::readInt(std::string_view key) {
    const auto value = readBytes(key);
    if (!value) return std::nullopt;
    return value->integer();
}

std::optional<SMCKeyInfo> ControllerFans::keyInfo(std::string_view key) {
    SMCKeyData request;
    request.key = fourCC(key);
    request.data8 = SMCKeyData::kGetKeyInfo;
    const auto answer = call(request);
    if (!answer || answer->result != 0) return std::nullopt;
    return answer->keyInfo;
}

std::optional<SMCValue> ControllerFans::readBytes(std::string_view key) {
    const auto info = keyInfo(key);
    if (!info) return std::nullopt;
    SMCKeyData request;
    request.key = fourCC(key);
    request.keyInfo = *info;
    request.data8 = SMCKeyData::kReadKey;
    const auto answer = call(request);
    if (!answer || answer->result != 0) return std::nullopt;
    return SMCValue{*info, answer->bytes};
}

std::optional<SMCKeyData> ControllerFans::call(const SMCKeyData& request) {
    ControllerRecord output{};
    if (!m_connection.call(kHandleRecord, request.encoded(), output)) return std::nullopt;
    return SMCKeyData::decoded(output);
}

}  // namespace velmora
