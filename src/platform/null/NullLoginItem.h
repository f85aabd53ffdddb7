#pragma once

#include "platform/LoginItem.h"

namespace velmora {

/// A system that starts nothing at login, and says so.
class NullLoginItem final : public LoginItem {
public:
    std::optional<std::string> registerItem() override { return kAnswer; }
    std::optional<std::string> unregisterItem() override { return std::nullopt; }

private:
    static constexpr const char* kAnswer = "This system cannot start programs at login.";
};

}  // namespace velmora
