#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// The value that a stored text stands for; nothing if the text is not one JSON value in UTF-8.
std::optional<nlohmann::json> valueOfStoredJson(std::string_view text);

/// The text to store for a value. Bytes that are not UTF-8 are replaced, so that the text can be read again.
std::string storedJson(const nlohmann::json& value);

}  // namespace velmora
