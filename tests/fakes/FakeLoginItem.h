#pragma once

#include "platform/LoginItem.h"

#include <optional>
#include <string>

namespace velmora {

class FakeLoginItem final : public LoginItem {
public:
    std::optional<std::string> registerItem() override {
        ++registerCount;
        return answer(true);
    }
    std::optional<std::string> unregisterItem() override {
        ++unregisterCount;
        return answer(false);
    }

    int registerCount = 0;
    int unregisterCount = 0;
    bool isRegistered = false;
    /// What the next operations fail with.
    std::optional<std::string> failure;

private:
    std::optional<std::string> answer(bool registered) {
        if (!failure) isRegistered = registered;
        return failure;
    }
};

}  // namespace velmora
