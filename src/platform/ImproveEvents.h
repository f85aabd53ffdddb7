#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string_view>

namespace velmora {

/// Takes anonymous usage events; what becomes of them is the user's choice.
class ImproveEvents {
public:
    virtual ~ImproveEvents() = default;
    /// `fields` is an object of plain values.
    virtual void record(std::string_view name, const nlohmann::json& fields) = 0;
};

}  // namespace velmora
