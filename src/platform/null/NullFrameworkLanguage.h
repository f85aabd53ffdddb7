#pragma once

#include "platform/FrameworkLanguage.h"

namespace velmora {

/// A toolkit that draws no texts of its own.
class NullFrameworkLanguage final : public FrameworkLanguage {
public:
    void setLanguage(const std::optional<std::string>&) override {}
};

}  // namespace velmora
