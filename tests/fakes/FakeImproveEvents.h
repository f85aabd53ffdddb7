#pragma once

#include "platform/ImproveEvents.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

class FakeImproveEvents final : public ImproveEvents {
public:
    struct Event {
        std::string name;
        nlohmann::json fields;
        friend bool operator==(const Event&, const Event&) = default;
    };

    void record(std::string_view name, const nlohmann::json& fields) override {
        events.push_back({std::string(name), fields});
    }

    std::vector<Event> events;
};

}  // namespace velmora
