#pragma once

#include "platform/ImproveEvents.h"

namespace velmora {

/// Events end here.
class NullImproveEvents final : public ImproveEvents {
public:
    void record(std::string_view, const nlohmann::json&) override {}
};

}  // namespace velmora
