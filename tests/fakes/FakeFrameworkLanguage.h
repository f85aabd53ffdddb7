#pragma once

#include "platform/FrameworkLanguage.h"

#include <optional>
#include <string>
#include <vector>

namespace velmora {

class FakeFrameworkLanguage final : public FrameworkLanguage {
public:
    void setLanguage(const std::optional<std::string>& tag) override { calls.push_back(tag); }

    std::vector<std::optional<std::string>> calls;
};

}  // namespace velmora
