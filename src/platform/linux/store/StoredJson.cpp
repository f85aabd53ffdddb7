#include "platform/linux/store/StoredJson.h"

#include <nlohmann/json.hpp>

namespace velmora {

using nlohmann::json;

std::optional<json> valueOfStoredJson(std::string_view text) {
    constexpr bool kAllowExceptions = false;
    json value = json::parse(text, nullptr, kAllowExceptions);
    if (value.is_discarded()) return std::nullopt;
    return value;
}

std::string storedJson(const json& value) {
    constexpr int kOnOneLine = -1;
    constexpr bool kEscapeAllButASCII = false;
    return value.dump(kOnOneLine, ' ', kEscapeAllButASCII, json::error_handler_t::replace);
}

}  // namespace velmora
