#pragma once

#include "platform/ProcessIconSource.h"

namespace velmora {

/// A system whose processes belong to no application.
class NullProcessIconSource final : public ProcessIconSource {
public:
    std::optional<std::string> iconOf(std::int32_t) override { return std::nullopt; }
};

}  // namespace velmora
