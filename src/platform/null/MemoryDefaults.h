#pragma once

#include "platform/Defaults.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <string>

namespace velmora {

/// Defaults that live as long as the process, for tools and for systems without a place to store them.
class MemoryDefaults final : public Defaults {
public:
    std::optional<nlohmann::json> read(std::string_view key) const override;
    void write(std::string_view key, const nlohmann::json& value, Urgency urgency) override;
    void remove(std::string_view key) override;

private:
    std::map<std::string, nlohmann::json, std::less<>> m_values;
};

}  // namespace velmora
