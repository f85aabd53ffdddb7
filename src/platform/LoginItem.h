#pragma once

#include <optional>
#include <string>

namespace velmora {

/// Starting the program when the user logs in (stands for `SMAppService.mainAppService`).
class LoginItem {
public:
    virtual ~LoginItem() = default;
    /// Each gives nothing on success, else a sentence that says what went wrong.
    virtual std::optional<std::string> registerItem() = 0;
    virtual std::optional<std::string> unregisterItem() = 0;
};

}  // namespace velmora
