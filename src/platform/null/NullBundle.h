#pragma once

#include "platform/Bundle.h"

namespace velmora {

/// A program without an information dictionary.
class NullBundle final : public Bundle {
public:
    std::optional<std::string> information(std::string_view) const override { return std::nullopt; }
    std::optional<std::string> executablePath() const override { return std::nullopt; }
};

}  // namespace velmora
